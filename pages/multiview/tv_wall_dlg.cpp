#include "pages/multiview/tv_wall_dlg.h"

#include "pages/multiview/wall_store.h"
#include "ui/text.h"

namespace panelora {

namespace {

// Tile k, counted row by row from the top left, is button 1021 + k.
constexpr int kFirstTile = 1021;
constexpr int kMaxTiles = 16;

// A grid of `size` by `size` tiles from the corner (4, 5).
struct Grid {
  int size;
  int tileWidth;
  int tileHeight;
};
constexpr Grid kGrids[] = {
    {1, 479, 299},  // one pixel short of the others, deliberately
    {2, 240, 150},
    {3, 160, 100},
    {4, 120, 75},
};

const Grid* GridOf(std::uint32_t wallSize) {
  return wallSize >= 1 && wallSize <= 4 ? &kGrids[wallSize - 1] : nullptr;
}

ui::Rect PlaceOf(const Grid& grid, int tile) {
  return {4 + tile % grid.size * grid.tileWidth, 5 + tile / grid.size * grid.tileHeight,
          grid.tileWidth, grid.tileHeight};
}

std::string PictureOf(int size, int tile, char state) {
  return ui::Format("WND%dX%d_%02d_%c", size, size, tile, state);
}

}  // namespace

// The tiles of the grid; 0 while its size is not known.
int CTVWallDlg::Tiles() const {
  const Grid* grid = GridOf(panel.wallSize);
  return grid == nullptr ? 0 : grid->size * grid->size;
}

void CTVWallDlg::Init() {
  deviceHandle = panel.deviceHandle;
  Layout();
  if (panel.tilePosition < static_cast<std::uint32_t>(Tiles())) {
    ShowChosen(static_cast<int>(panel.tilePosition));
  }
}

void CTVWallDlg::Layout() {
  const Grid* grid = GridOf(panel.wallSize);
  if (grid == nullptr) return;
  for (int tile = 0; tile < kMaxTiles; ++tile) {
    const bool shown = tile < Tiles();
    if (shown) {
      Window().PlaceControl(kFirstTile + tile, PlaceOf(*grid, tile));
      const std::string up = PictureOf(grid->size, tile, 'U');
      const bool single = grid->size == 1;  // has no picture of the pressed tile
      Window().SetPictures(kFirstTile + tile, up, single ? up : PictureOf(grid->size, tile, 'D'));
    }
    Window().ShowControl(kFirstTile + tile, shown);
  }
}

// One picture for released and pressed, so that a chosen tile stays drawn as chosen.
void CTVWallDlg::ShowTile(int tile, bool chosen) {
  const int size = static_cast<int>(panel.wallSize);
  const std::string picture = PictureOf(size, tile, chosen && size > 1 ? 'D' : 'U');
  Window().SetPictures(kFirstTile + tile, picture, picture);
}

void CTVWallDlg::ShowChosen(int tile) {
  for (int other = 0; other < Tiles(); ++other) ShowTile(other, other == tile);
}

void CTVWallDlg::OnMousePress(int control) {
  const int tile = control - kFirstTile;
  if (tile < 0 || tile >= Tiles()) return;
  ShowChosen(tile);
  panel.tilePosition = static_cast<std::uint32_t>(tile);
  WriteChoice();
}

void CTVWallDlg::WriteChoice() {
  const WallStore* store = FindWallStore(panel.identity.boxType);
  if (store == nullptr) return;
  if (store->block != 0) {
    WriteBlock(store->block, {static_cast<std::uint8_t>(panel.wallSize),
                              static_cast<std::uint8_t>(panel.tilePosition)});
    return;
  }
  WriteWord(store->sizeItem, panel.wallSize);
  WriteWord(store->sizeItem + 1, panel.tilePosition);
}

}  // namespace panelora
