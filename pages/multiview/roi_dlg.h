// The region of interest page (template 114).
#pragma once

#include "pages/page.h"
#include "res/dialog_templates.h"

namespace panelora {

class CROIDlg final : public Page {
 public:
  explicit CROIDlg(PanelContext context) : Page(res::kRoi, context) {}

  // Copies the device handle.
  void Init() { deviceHandle = panel.deviceHandle; }

  // The page was opened from the Video menu.
  void OnShowFromMenu() { Refresh(serialHandle); }
};

}  // namespace panelora
