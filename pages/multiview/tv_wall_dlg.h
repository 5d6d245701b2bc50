// The TV Wall page (template 110): which screen of a square video wall the box shows. The main
// window's 1X1 to 4X4 buttons choose the grid; a press on a tile, by mouse or key, is written at
// once, grid and tile together. There is nothing to apply and nothing to restore.
//
// Models: those of catalogue/wall.h; on all others the pictures change and nothing is written.
#pragma once

#include <optional>

#include "pages/page.h"
#include "res/dialog_templates.h"

namespace panelora {

class CTVWallDlg final : public Page {
 public:
  explicit CTVWallDlg(PanelContext context) : Page(res::kTvWall, context) {}

  // Copies the device handle, reads the layout of the wall into the panel state, and lays it out.
  // A failed read keeps the layout, and so does a size that no wall has: what is shown can still be
  // pressed.
  void Open() override;

  // Places the tiles of the grid, none of them chosen, and hides the others. A wall size outside 1
  // to 4 changes nothing.
  void Layout();

  // Chooses a tile before its button sees the press.
  void OnMousePress(int control) override;
  // The same for a press that is none of the mouse, unless the tile is chosen already: as it is
  // when the mouse that pressed it is let go.
  void OnCommand(int control, ui::Notification what) override;

  std::optional<ui::Colour> BackgroundColour() override { return ui::Colour{0, 0, 0}; }

 private:
  void ReadWall();
  int Tiles() const;
  void Choose(int tile);
  void ShowChosen();
  void WriteChoice();

  static constexpr int kNone = -1;
  int chosen = kNone;  // the tile that is drawn so
};

}  // namespace panelora
