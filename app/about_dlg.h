// The About dialog (template 100).
#pragma once

#include "ui/toolkit.h"

namespace panelora {

class CAboutDlg final : public ui::DialogEvents {
 public:
  explicit CAboutDlg(ui::Toolkit& theToolkit) : toolkit(theToolkit) {}

  // Shows the dialog and returns when the operator has closed it.
  void Run(ui::Dialog& owner);

  void OnCommand(int control, ui::Notification what) override;
  bool OnKey(ui::Key key) override;
  void OnCloseRequest() override;
  void OnDestroy() override { window = nullptr; }

 private:
  ui::Toolkit& toolkit;
  ui::Dialog* window = nullptr;  // while it is open
};

}  // namespace panelora
