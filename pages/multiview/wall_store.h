// Where a box keeps its place in a video wall: read by the main window when it opens the TV Wall
// page, written by the page.
#pragma once

#include <cstdint>

#include "device/properties.h"

namespace panelora {

struct WallStore {
  std::uint8_t boxType;
  std::uint8_t block;      // byte 0 size 1-4, byte 1 tile 0-15; 0 = word items instead
  std::uint32_t sizeItem;  // the tile's item is the next one
};

inline constexpr WallStore kWallStores[] = {
    {18, 0, word::kWallSize},      {32, 0, word::kWallSize},   {46, block::kWall, 0},
    {47, block::kWall, 0},         {48, block::kWall, 0},      {49, block::kWall, 0},
    {39, block::kWall, 0},         {40, block::kWall, 0},      {37, block::kWall, 0},
    {38, block::kWall, 0},         {14, block::kWallInput, 0}, {36, block::kWallInput, 0},
    {20, 0, word::kWallSize},      {33, 0, word::kWallSize},   {17, 0, word::kWallSizeInput},
    {35, 0, word::kWallSizeInput}, {30, 0, word::kWallSize},   {43, 0, word::kWallSize},
};

// Null for models that are no part of a wall.
constexpr const WallStore* FindWallStore(std::uint8_t boxType) {
  for (const WallStore& store : kWallStores) {
    if (store.boxType == boxType) return &store;
  }
  return nullptr;
}

}  // namespace panelora
