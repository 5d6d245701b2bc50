#include "pages/setting/caution_dlg.h"

#include "pages/caption.h"
#include "res/dialog_templates.h"

namespace panelora {

namespace {
constexpr int kPicture = 1117;
constexpr int kText = 1118;
constexpr ui::Point kOffset = {40, 90};
}  // namespace

void CCautionDlg::Open(ui::Dialog& page) {
  window.reset();
  window = toolkit.CreateDialogFrom(res::kCaution, *this, &page);
  window->PlaceOver(page, kOffset);
  SetCaption(*window, kPicture, "");
  SetCaption(*window, kText, "DipSwitch Config Be Changed !!!");
  window->SetPictures(kPicture, "CAUTION", "CAUTION");
  window->Show(true);
}

bool CCautionDlg::OnKey(ui::Key key) {
  if (IsOfWindow(key)) return false;
  OnCloseRequest();
  return true;
}

// The window goes; the dialog is ready to be opened again.
void CCautionDlg::OnCloseRequest() { window->Close(); }

}  // namespace panelora
