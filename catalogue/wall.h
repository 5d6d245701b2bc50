// Where a box keeps its place in a video wall.
#pragma once

#include "catalogue/kept.h"

namespace panelora::wall {

// Screens along each side of the greatest wall.
constexpr std::uint8_t kMaxSize = 4;

// Size 1 to 4 and tile 0 to 15, by rows: two words, or two bytes of one block.
struct Store {
  BoxTypes types;
  Address size;
  Address tile;  // none = byte 1 of the block
};

// Null for models that are no part of a wall.
const Store* Find(std::uint8_t boxType);

}  // namespace panelora::wall
