// The defaults of every model but 26, as far as the panel knows them.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace panelora::simulator {

// A row without types serves all of them; later rows win.
struct BlockDefault {
  std::vector<std::uint8_t> types;
  std::uint8_t property;
  std::vector<std::uint8_t> bytes;
};

struct WordDefault {
  std::vector<std::uint8_t> types;
  std::uint32_t item;
  std::uint32_t value;
};

// A region of interest of half the input at (300, 50), switched on, full screen.
std::vector<std::uint8_t> Region();
// The text label "CAMERA 1", switched on.
std::vector<std::uint8_t> TextLabel();

std::span<const BlockDefault> BlockDefaults();
std::span<const WordDefault> WordDefaults();

}  // namespace panelora::simulator
