// Which inputs the main, sub and second sub picture show, by display mode and combination code.
//
// There are two tables: the general one, and that of brand 12, which has a block of its own for box
// type 15 in front of the general rows. The first match counts.
#pragma once

#include <cstdint>
#include <optional>

namespace panelora {

// Input numbers 1 to 4; 0 = none.
struct Channels {
  std::uint8_t main = 0;
  std::uint8_t sub = 0;
  std::uint8_t sub2 = 0;

  bool operator==(const Channels&) const = default;
};

struct ChannelChoice {
  std::uint8_t code;  // 1 to 12: what the box is sent
  Channels channels;
  Channels shown;  // the numbers in the names, which may be others than the channels'
};

// The name of an input, "Channel 1" to "Channel 4"; empty for none.
const char* ChannelName(std::uint8_t number);

// The brand with a table of its own; it shows three channels in modes 4 and 5.
constexpr std::uint8_t kBrandOfThreeChannels = 12;

// The first row of the brand's table; none when no row matches.
std::optional<ChannelChoice> FindByCode(std::uint8_t brandCode, std::uint8_t boxType,
                                        std::uint8_t mode, std::uint8_t code);
std::optional<ChannelChoice> FindByChannels(std::uint8_t brandCode, std::uint8_t boxType,
                                            std::uint8_t mode, const Channels& channels);

}  // namespace panelora
