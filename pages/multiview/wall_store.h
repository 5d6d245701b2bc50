// Where a box keeps its place in a video wall: read by the main window when it opens the TV Wall
// page, written by the page.
#pragma once

#include <cstdint>

#include "device/properties.h"

namespace panelora {

// Screens along each side of the greatest wall.
constexpr std::uint32_t kMaxWallSize = 4;

struct WallStore {
  std::uint8_t boxType;
  std::uint8_t block;  // byte 0 size 1-4, byte 1 tile 0-15; 0 = word items instead
  std::uint32_t sizeItem = 0;
  std::uint32_t tileItem = 0;
};

inline constexpr WallStore kWallStores[] = {
    {18, 0, word::kWallSize, word::kWallTile},
    {32, 0, word::kWallSize, word::kWallTile},
    {46, block::kWall},
    {47, block::kWall},
    {48, block::kWall},
    {49, block::kWall},
    {39, block::kWall},
    {40, block::kWall},
    {37, block::kWall},
    {38, block::kWall},
    {14, block::kWallInput},
    {36, block::kWallInput},
    {20, 0, word::kWallSize, word::kWallTile},
    {33, 0, word::kWallSize, word::kWallTile},
    {17, 0, word::kWallSizeInput, word::kWallTileInput},
    {35, 0, word::kWallSizeInput, word::kWallTileInput},
    {30, 0, word::kWallSize, word::kWallTile},
    {43, 0, word::kWallSize, word::kWallTile},
};

// Null for models that are no part of a wall.
constexpr const WallStore* FindWallStore(std::uint8_t boxType) {
  for (const WallStore& store : kWallStores) {
    if (store.boxType == boxType) return &store;
  }
  return nullptr;
}

}  // namespace panelora
