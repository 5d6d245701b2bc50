// The Audio page (template 105).
#pragma once

#include "pages/page.h"
#include "res/dialog_templates.h"

namespace panelora {

class CAudioDlg final : public Page {
 public:
  explicit CAudioDlg(PanelContext context) : Page(res::kAudio, context) {}

  // Copies the device handle.
  void Init() { deviceHandle = panel.deviceHandle; }

  // The operator leaves the page by Return.
  void Leave() {}
};

}  // namespace panelora
