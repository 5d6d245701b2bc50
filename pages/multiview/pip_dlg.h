// The picture-in-picture page (template 111).
#pragma once

#include "pages/page.h"
#include "res/dialog_templates.h"

namespace panelora {

class CPIPDlg final : public Page {
 public:
  explicit CPIPDlg(PanelContext context) : Page(res::kPip, context) {}

  // Copies the device handle and keeps the serial handle.
  void Init(ui::SerialHandle serial) {
    deviceHandle = panel.deviceHandle;
    serialHandle = serial;
  }

  // The page was opened from the Video menu.
  void OnShowFromMenu() { Refresh(serialHandle); }
};

}  // namespace panelora
