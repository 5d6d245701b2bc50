#include "pages/setting/setting_dlg.h"

namespace panelora {

namespace {
constexpr int kHardwareReset = 1041;
}  // namespace

void CSettingDlg::OnCommand(int control, ui::Notification what) {
  static constexpr CommandRow<CSettingDlg> kCommands[] = {
      {kHardwareReset, &CSettingDlg::OnHardwareReset},
  };
  DispatchCommand(*this, kCommands, control, what);
}

void CSettingDlg::OnHardwareReset() {
  panel.tickSkip = 0;
  panel.forceDisconnect = true;
  if (panel.identity.boxType == 26) WriteWord(word::kCommand, command::kHardwareReset);
}

}  // namespace panelora
