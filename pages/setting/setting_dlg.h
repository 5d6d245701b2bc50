// The Setting page (template 107): unit-wide options and the hardware reset.
#pragma once

#include "pages/page.h"
#include "res/dialog_templates.h"

namespace panelora {

class CSettingDlg final : public Page {
 public:
  explicit CSettingDlg(PanelContext context) : Page(res::kSetting, context) {}

  // Copies the device handle.
  void Init() { deviceHandle = panel.deviceHandle; }

  void OnCommand(int control, ui::Notification what) override;

 private:
  // Acts at once: the box restarts, and the next tick of the monitor shows it as absent.
  void OnHardwareReset();
};

}  // namespace panelora
