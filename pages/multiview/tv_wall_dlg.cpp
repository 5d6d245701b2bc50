#include "pages/multiview/tv_wall_dlg.h"

#include "base/text.h"
#include "catalogue/wall.h"

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

const Grid* GridOf(std::uint8_t wallSize) {
  return wallSize >= 1 && wallSize <= wall::kMaxSize ? &kGrids[wallSize - 1] : nullptr;
}

ui::Rect PlaceOf(const Grid& grid, int tile) {
  return {4 + tile % grid.size * grid.tileWidth, 5 + tile / grid.size * grid.tileHeight,
          grid.tileWidth, grid.tileHeight};
}

// The single tile has but one picture.
std::string PictureOf(int size, int tile, bool chosen) {
  return Format("WND%dX%d_%02d_%c", size, size, tile, chosen && size > 1 ? 'D' : 'U');
}

}  // namespace

// The tiles of the grid; 0 while its size is not known.
int CTVWallDlg::Tiles() const {
  const Grid* grid = GridOf(panel.wallSize);
  return grid == nullptr ? 0 : grid->size * grid->size;
}

void CTVWallDlg::Open() {
  TakeHandle();
  ReadWall();
  Layout();
}

void CTVWallDlg::ReadWall() {
  const wall::Store* store = wall::Find(panel.identity.boxType);
  if (store == nullptr) return;
  std::uint8_t size = panel.wallSize;
  std::uint8_t tile = panel.tilePosition;
  BlockBuffer bytes{};
  if (store->tile.kind != Address::Kind::kNone) {
    Read(store->size, size);
    Read(store->tile, tile);
  } else if (Read(store->size, bytes)) {
    size = bytes[0];
    tile = bytes[1];
  }
  if (size < 1 || size > wall::kMaxSize) return;
  panel.wallSize = size;
  panel.tilePosition = tile;
}

void CTVWallDlg::Layout() {
  const Grid* grid = GridOf(panel.wallSize);
  if (grid == nullptr) return;
  chosen = kNone;
  for (int tile = 0; tile < kMaxTiles; ++tile) {
    const bool shown = tile < Tiles();
    if (shown) {
      Window().PlaceControl(kFirstTile + tile, PlaceOf(*grid, tile));
      Window().SetPictures(kFirstTile + tile, PictureOf(grid->size, tile, false),
                           PictureOf(grid->size, tile, true));
    }
    Window().ShowControl(kFirstTile + tile, shown);
  }
}

// One picture for released and pressed, so that a chosen tile stays drawn as chosen.
void CTVWallDlg::ShowChosen() {
  const int size = static_cast<int>(panel.wallSize);
  for (int tile = 0; tile < Tiles(); ++tile) {
    const std::string picture = PictureOf(size, tile, tile == chosen);
    Window().SetPictures(kFirstTile + tile, picture, picture);
  }
}

void CTVWallDlg::OnMousePress(int control) { Choose(control - kFirstTile); }

void CTVWallDlg::OnCommand(int control, ui::Notification what) {
  if (what == ui::Notification::kClicked && control != kFirstTile + chosen) {
    Choose(control - kFirstTile);
  }
}

void CTVWallDlg::Choose(int tile) {
  if (tile < 0 || tile >= Tiles()) return;
  chosen = tile;
  ShowChosen();
  panel.tilePosition = static_cast<std::uint8_t>(tile);
  WriteChoice();
}

void CTVWallDlg::WriteChoice() {
  const wall::Store* store = wall::Find(panel.identity.boxType);
  if (store == nullptr) return;
  if (store->tile.kind == Address::Kind::kNone) {
    Write(store->size, {panel.wallSize, panel.tilePosition});
    return;
  }
  Write(store->size, {panel.wallSize});
  Write(store->tile, {panel.tilePosition});
}

}  // namespace panelora
