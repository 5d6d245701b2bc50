// The Image adjustment page (template 113): position and size of the output picture.
#pragma once

#include "pages/page.h"
#include "res/dialog_templates.h"

namespace panelora {

class CImageAdjustDlg final : public Page {
 public:
  explicit CImageAdjustDlg(PanelContext context) : Page(res::kImageAdjust, context) {}

  // Copies the device handle.
  void Init() { deviceHandle = panel.deviceHandle; }

  // The page was opened from the Video menu.
  void OnShowFromMenu() { Refresh(serialHandle); }
};

}  // namespace panelora
