// The processing amplifier page (template 106).
#pragma once

#include "pages/page.h"
#include "res/dialog_templates.h"

namespace panelora {

class CProcAmpDlg final : public Page {
 public:
  explicit CProcAmpDlg(PanelContext context) : Page(res::kProcAmp, context) {}

  // Copies the device handle and keeps the serial handle.
  void Init(ui::SerialHandle serial, const ProcAmpCache& /*cache*/) {
    deviceHandle = panel.deviceHandle;
    serialHandle = serial;
  }

  // 0 = the picture controls, 1 = the RGB controls.
  void SetViewMode(int /*mode*/) {}

  // The operator leaves the page by Return.
  void Leave() {}
};

}  // namespace panelora
