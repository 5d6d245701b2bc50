// The Genlock page (template 112): what the box locks its output timing to.
#pragma once

#include "pages/page.h"
#include "res/dialog_templates.h"

namespace panelora {

class CGenlockDlg final : public Page {
 public:
  explicit CGenlockDlg(PanelContext context) : Page(res::kGenlock, context) {}

  // Copies the device handle.
  void Init() { deviceHandle = panel.deviceHandle; }

  // The page was opened from the Video menu.
  void OnShowFromMenu() { Refresh(serialHandle); }

  // The operator leaves the page without applying.
  void RestoreDelays() {}
};

}  // namespace panelora
