// The Display Mode page (template 109): how the output is composed of the four inputs.
#pragma once

#include "pages/page.h"
#include "res/dialog_templates.h"

namespace panelora {

class CDisplayModeDlg final : public Page {
 public:
  explicit CDisplayModeDlg(PanelContext context) : Page(res::kDisplayMode, context) {}

  // Copies the device handle and keeps the serial handle.
  void Init(ui::SerialHandle serial) {
    deviceHandle = panel.deviceHandle;
    serialHandle = serial;
  }

  // The page was opened from the Video menu.
  void OnShowFromMenu() { Refresh(serialHandle); }

  // 0 = the display mode, 1 = the input labels.
  void ShowView(int /*view*/) {}
};

}  // namespace panelora
