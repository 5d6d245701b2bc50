#include "catalogue/setting.h"

#include <iterator>

namespace panelora::setting {

namespace {

constexpr Choice kLocks[] = {{kAllTypes, 1, "Locked", 1}, {kAllTypes, 0, "Un-Locked", 0}};
constexpr Choice kOsds[] = {{kAllTypes, 1, "Enable", 1}, {kAllTypes, 0, "Disable", 0}};
constexpr Choice kNoSignals[] = {{kAllTypes, 1, "Blue Screen", 1},
                                 {kAllTypes, 0, "Black Screen", 0},
                                 {kAllTypes, 2, "Disable Output", 2}};
constexpr Choice kPatterns[] = {
    {kAllTypes, 0, "Disable", 0}, {kAllTypes, 1, "White", 1},      {kAllTypes, 2, "Cross", 2},
    {kAllTypes, 3, "Hatch", 3},   {kAllTypes, 4, "Color Bar", 4},  {kAllTypes, 5, "Gray", 5},
    {kAllTypes, 6, "Window", 6},  {kAllTypes, 7, "H Ramp", 7},     {kAllTypes, 8, "WH Ramp", 8},
    {kAllTypes, 9, "WV Ramp", 9}, {kAllTypes, 10, "Diagonal", 10}, {kAllTypes, 11, "Red", 11},
    {kAllTypes, 12, "Green", 12}, {kAllTypes, 13, "Blue", 13},
};
// Models with the scaling modes of a seven-way switch.
constexpr BoxTypes kWithSevenModes = {26, 50};
// Models with five of them.
constexpr BoxTypes kWithFiveModes = {13, 14, 15, 17, 18, 20, 21, 23, 24, 25, 29, 30, 32, 33,
                                     34, 35, 36, 37, 38, 39, 40, 42, 43, 46, 47, 48, 49, 51};

constexpr Choice kDip8Modes[] = {
    {kWithSevenModes, 0, "Keep Aspect Ratio", 0},
    {kWithSevenModes, 1, "Full Screen (16:9)", 1},
    {kWithSevenModes, 2, "Dot By Dot", 2},
    {kWithSevenModes, 3, "4 : 3", 3},
    {kWithSevenModes, 4, "14 : 9", 4},
    {kWithSevenModes, 5, "UnderScan", 5},
    {kWithSevenModes, 6, "Pan Scan 16 : 9", 6},
    {kWithFiveModes, 4, "Full Screen", 4},
    {kWithFiveModes, 0, "16 : 9", 0},
    {kWithFiveModes, 1, "4 : 3", 1},
    {kWithFiveModes, 2, "Dot By Dot", 2},
    {kWithFiveModes, 3, "Keep Aspect Ratio", 3},
};

constexpr OptionList kLists[kOptionCount] = {
    {"DipSwitch 8(1) Mode", kDip8Modes, 4},  {"Function Button", kLocks, 1},
    {"Pattern Mode", kPatterns, 13},         {"OSD Hide Mode", kOsds, 1, 0, 1},
    {"No Signal Mode", kNoSignals, 2, 0, 1},
};

static_assert(EveryRowCounts(kLocks));
static_assert(EveryRowCounts(kOsds));
static_assert(EveryRowCounts(kNoSignals));
static_assert(EveryRowCounts(kPatterns));
static_assert(EveryRowCounts(kDip8Modes));

// Three options each. What a type needs for its wall, its audio, its region or its firmware
// version is not among their addresses.
constexpr BoxTypes kByBlock = {14, 36, 37, 38, 39, 40, 46, 47, 48, 49, 51};
constexpr BoxTypes kLocking = {13, 15, 17, 18, 21, 32, 35};
constexpr BoxTypes kWithOsd = {20, 24, 30, 33, 34, 43};
constexpr BoxTypes kWithPattern = {23, 25, 29, 42};
constexpr BoxTypes kWithLowItems = {19, 27};
constexpr BoxTypes kRest = kOtherTypes.Except(kByBlock)
                               .Except({50})
                               .Except(kLocking)
                               .Except(kWithOsd)
                               .Except(kWithPattern)
                               .Except(kWithLowItems);

constexpr Kept kKept[] = {
    {kShippedType, 0, kDip8, kDip8AndExtra, Reads::kIndex, kFromFirmware<294>},
    {kShippedType, 0, kNoSignal, Block(22), Reads::kIndex, kFromFirmware<293>},
    {kShippedType, 0, kOsd, Word(21), Reads::kIndex, kFromFirmware<281>},

    {kByBlock, 0, kDip8, Block(15)},
    {kWithFiveModes.Except(kByBlock).With({50}), 0, kDip8, Block(17)},
    {kByBlock.With({50}), 0, kOsd, Block(21)},
    {kByBlock.With({50}), 0, kNoSignal, Block(22)},
    {kLocking.With(kRest), 0, kLock, Word(12)},
    {kLocking.With(kRest).With(kWithPattern), 0, kPattern, Word(13)},
    {kWithOsd, 0, kOsd, Word(21)},
    {kWithOsd, 0, kNoSignal, Word(16)},
    {kWithPattern.With(kRest), 0, kNoSignal, Word(17)},
    {kWithLowItems, 0, kLock, Word(8)},
    {kWithLowItems, 0, kPattern, Word(10)},
    {kWithLowItems, 0, kNoSignal, Word(5)},
};

constexpr Reset kResets[] = {
    {{20, 21, 25, 29, 30, 33, 43}, Word(4)},
    {{24, 34}, Word(5)},
    {{18, 32}, Word(6)},
    {{23, 42}, Word(7)},
    {{13, 15}, Word(10)},
    {{17, 35}, Word(8), 0},
    {{37, 38, 39, 40, 46, 47, 48, 49, 50, 51}, Block(1)},
    {{14, 36}, Block(10)},
    {kAllTypes, Word(3)},
};

}  // namespace

const OptionGroup& Options() {
  static constexpr OptionGroup kGroup = {kLists, kKept};
  return kGroup;
}

std::uint8_t LastDip8(std::uint8_t boxType) { return kWithSevenModes.Has(boxType) ? 6 : 4; }

const Reset& ResetOf(std::uint8_t boxType) {
  const Reset* row = FirstOf(kResets, boxType);
  return row != nullptr ? *row : *std::rbegin(kResets);
}

}  // namespace panelora::setting
