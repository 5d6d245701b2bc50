// The Video settings page (template 108).
#pragma once

#include "pages/page.h"
#include "res/dialog_templates.h"

namespace panelora {

class CVideoSettingsDlg final : public Page {
 public:
  explicit CVideoSettingsDlg(PanelContext context) : Page(res::kVideoSettings, context) {}

  // Copies the device handle.
  void Init() { deviceHandle = panel.deviceHandle; }

  // Shows the controls of a sub-page (0, 1 or 2).
  void SetSubPage(int /*subPage*/) {}

  // Stops the refresh timer.
  void StopTimer() {}
};

}  // namespace panelora
