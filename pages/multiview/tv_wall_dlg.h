// The TV Wall page (template 110): which part of a video wall the box shows.
#pragma once

#include "pages/page.h"
#include "res/dialog_templates.h"

namespace panelora {

class CTVWallDlg final : public Page {
 public:
  explicit CTVWallDlg(PanelContext context) : Page(res::kTvWall, context) {}

  // Copies the device handle.
  void Init() { deviceHandle = panel.deviceHandle; }

  // Lays out the tiles for the wall size of the panel state.
  void Layout() {}
};

}  // namespace panelora
