#include "catalogue/channel_table.h"

#include <iterator>
#include <span>

#include "catalogue/multiview.h"

namespace panelora {

namespace {

using namespace multiview;

// The rows of a mode, in the order of their codes from 1.
using Rows = std::span<const Channels>;

constexpr Channels kMainOnly[] = {{1, 0, 0}, {2, 0, 0}, {3, 0, 0}, {4, 0, 0}};
constexpr Channels kNoChannels[] = {{0, 0, 0}, {0, 0, 0}, {0, 0, 0}, {0, 0, 0}};
constexpr Channels kMainAndSub[] = {{1, 2, 0}, {1, 3, 0}, {1, 4, 0}, {2, 1, 0},
                                    {2, 3, 0}, {2, 4, 0}, {3, 1, 0}, {3, 2, 0},
                                    {3, 4, 0}, {4, 1, 0}, {4, 2, 0}, {4, 3, 0}};
// The numbers of box type 51 in mode 4, which disagree with the names shown: deliberate.
constexpr Channels kMainAndSub51[] = {{1, 2, 0}, {1, 3, 0}, {1, 4, 0}, {2, 3, 0},
                                      {2, 4, 0}, {2, 1, 0}, {3, 4, 0}, {3, 1, 0},
                                      {3, 2, 0}, {4, 1, 0}, {4, 2, 0}, {4, 3, 0}};
constexpr Channels kPairAndSub2[] = {{1, 2, 3}, {1, 2, 4}, {2, 1, 3}, {2, 1, 4},
                                     {3, 4, 1}, {3, 4, 2}, {4, 3, 1}, {4, 3, 2}};
constexpr Channels kThree[] = {{1, 2, 3}, {1, 2, 4}, {1, 3, 4}, {2, 1, 3}, {2, 1, 4}, {2, 3, 4},
                               {3, 1, 2}, {3, 1, 4}, {3, 2, 4}, {4, 1, 2}, {4, 1, 3}, {4, 2, 3}};
constexpr Channels kThreeOfBrand12[] = {{1, 2, 3}, {1, 2, 4}, {1, 3, 4}, {2, 1, 3},
                                        {2, 1, 4}, {2, 3, 4}, {3, 1, 2}, {3, 4, 1},
                                        {3, 4, 2}, {4, 1, 2}, {4, 3, 1}, {4, 3, 2}};

struct ModeRows {
  BoxTypes types;
  std::uint8_t mode;
  Rows rows;
  Rows shown;
};

constexpr ModeRows kGeneral[] = {
    {kModels, 1, kMainOnly, kMainOnly},        {kModels, 2, kNoChannels, kNoChannels},
    {kModels, 3, kMainOnly, kMainOnly},        {kByWord, 4, kMainAndSub, kMainAndSub},
    {kByBlock, 4, kMainAndSub51, kMainAndSub}, {kByWord, 5, kMainOnly, kMainOnly},
    {kByWord, 6, kPairAndSub2, kPairAndSub2},  {kByWord, 7, kThree, kThree},
    {kByWord, 8, kMainOnly, kMainOnly},        {kByWord, 9, kMainAndSub, kMainAndSub},
};

// What brand 12 has in front of the general rows.
constexpr ModeRows kOfBrand12[] = {
    {{15}, 1, kMainOnly, kMainOnly}, {{15}, 2, kNoChannels, kNoChannels},
    {{15}, 3, kMainOnly, kMainOnly}, {{15}, 4, kThreeOfBrand12, kThreeOfBrand12},
    {{15}, 5, kThree, kThree},
};

// `matches` gets the code and the channels of each row.
template <class Matches>
std::optional<ChannelChoice> Find(std::span<const ModeRows> table, std::uint8_t boxType,
                                  std::uint8_t mode, Matches matches) {
  for (const ModeRows& block : table) {
    if (!block.types.Has(boxType) || block.mode != mode) continue;
    for (std::size_t i = 0; i < block.rows.size(); ++i) {
      const auto code = static_cast<std::uint8_t>(i + 1);
      if (matches(code, block.rows[i])) return ChannelChoice{code, block.rows[i], block.shown[i]};
    }
  }
  return std::nullopt;
}

template <class Matches>
std::optional<ChannelChoice> FindInTableOf(std::uint8_t brandCode, std::uint8_t boxType,
                                           std::uint8_t mode, Matches matches) {
  if (brandCode == kBrandOfThreeChannels) {
    if (const auto own = Find(kOfBrand12, boxType, mode, matches)) return own;
  }
  return Find(kGeneral, boxType, mode, matches);
}

}  // namespace

const char* ChannelName(std::uint8_t number) {
  static constexpr const char* kNames[] = {"", "Channel 1", "Channel 2", "Channel 3", "Channel 4"};
  return number < std::size(kNames) ? kNames[number] : "";
}

std::optional<ChannelChoice> FindByCode(std::uint8_t brandCode, std::uint8_t boxType,
                                        std::uint8_t mode, std::uint8_t code) {
  return FindInTableOf(brandCode, boxType, mode,
                       [code](std::uint8_t rowCode, const Channels&) { return rowCode == code; });
}

std::optional<ChannelChoice> FindByChannels(std::uint8_t brandCode, std::uint8_t boxType,
                                            std::uint8_t mode, const Channels& channels) {
  return FindInTableOf(brandCode, boxType, mode,
                       [&channels](std::uint8_t, const Channels& row) { return row == channels; });
}

}  // namespace panelora
