// The Text Labels page (template 115): the on-screen text label.
#pragma once

#include "pages/page.h"
#include "res/dialog_templates.h"

namespace panelora {

class CTextLabelsDlg final : public Page {
 public:
  explicit CTextLabelsDlg(PanelContext context) : Page(res::kTextLabels, context) {}

  // Copies the device handle.
  void Init() { deviceHandle = panel.deviceHandle; }

  // The page was opened from the Video menu.
  void OnShowFromMenu() { Refresh(serialHandle); }
};

}  // namespace panelora
