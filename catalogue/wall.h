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

inline constexpr Store kStores[] = {
    {{18, 20, 30, 32, 33, 43}, Word(8), Word(9)},
    {{37, 38, 39, 40, 46, 47, 48, 49}, Block(16, 20), {}},
    {{14, 36}, Block(8, 20), {}},
    {{17, 35}, Word(10), Word(11)},
};

// Null for models that are no part of a wall.
constexpr const Store* Find(std::uint8_t boxType) { return FirstOf(kStores, boxType); }

}  // namespace panelora::wall
