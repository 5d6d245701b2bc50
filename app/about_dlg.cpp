#include "app/about_dlg.h"

#include "res/dialog_templates.h"

namespace panelora {

namespace {
constexpr int kOk = 1;
}  // namespace

void CAboutDlg::Run(ui::Dialog& owner) {
  if (window != nullptr) return;  // it is open already
  toolkit.RunModal(res::kAbout, *this, owner, window);
}

void CAboutDlg::OnCommand(int control, ui::Notification /*what*/) {
  if (control == kOk) OnCloseRequest();
}

// Enter and Escape both mean "read it".
bool CAboutDlg::OnKey(ui::Key key) {
  if (IsOfWindow(key)) return false;
  OnCloseRequest();
  return true;
}

void CAboutDlg::OnCloseRequest() {
  if (window != nullptr) window->Close();
}

}  // namespace panelora
