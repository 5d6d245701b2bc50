#include "catalogue/video.h"

namespace panelora::video {

namespace {

// Types with a choice between HDMI and DVI, and so of its colours.
constexpr BoxTypes kWithHdmiMode = {23, 37, 38, 39, 40, 42, 46, 47, 48, 49, 50};
constexpr BoxTypes kWithColour = kWithHdmiMode.With(kShippedType);

constexpr Choice kInputSources[] = {
    {{26, 50}, 0, "VGA", 2},
    {{26, 50}, 1, "HDMI", 1},
    {{26, 50}, 2, "SDI", 4},
    {{24, 34}, 0, "SDI", 0},
    {{24, 34}, 1, "HDMI", 1},
    {{48, 49}, 0, "SDI 1", 0},
    {{48, 49}, 1, "SDI 2", 1},
    {{27}, 0, "CH 1", 0},
    {{27}, 1, "CH 2", 1},
    {{25, 29}, 0, "DVI-D (HDMI)", 1},
    {{25, 29}, 1, "DVI-A (VGA)", 2},
    {{25, 29}, 2, "Component (YPbPr)", 3},
    {{25, 29}, 3, "Composite (CVBS)", 4},
    {{25, 29}, 4, "S-Video (YC)", 5},
    {{23, 42}, 0, "HDMI", 0},
    {{23, 42}, 1, "DVI-D", 1},
    {{23, 42}, 2, "DVI-A", 2},
    {{23, 42}, 3, "YPbPr", 3},
    {{23, 42}, 4, "SDI", 4},
    {{23, 42}, 5, "CVBS", 5},
    {{23, 42}, 6, "S-VIDEO", 6},
};

// 1080p from the highest rate down, then 1080i, 720p, 480p and 576p, 480i and 576i: not the order
// of the codes, on purpose. Index 0 is left out: the buttons never reach it.
constexpr Choice kOutputFormats[] = {
    {kAllTypes, 1, "1920x1080 60.00p", 15},  {kAllTypes, 2, "1920x1080 59.94p", 16},
    {kAllTypes, 3, "1920x1080 50.00p", 17},  {kAllTypes, 4, "1920x1080 30.00p", 18},
    {kAllTypes, 5, "1920x1080 29.97p", 19},  {kAllTypes, 6, "1920x1080 25.00p", 20},
    {kAllTypes, 7, "1920x1080 24.00p", 21},  {kAllTypes, 8, "1920x1080 23.98p", 22},
    {kAllTypes, 9, "1920x1080 60.00i", 12},  {kAllTypes, 10, "1920x1080 59.94i", 13},
    {kAllTypes, 11, "1920x1080 50.00i", 14}, {kAllTypes, 12, "1280x720 60.00p", 6},
    {kAllTypes, 13, "1280x720 59.94p", 7},   {kAllTypes, 14, "1280x720 50.00p", 8},
    {kAllTypes, 15, "720x480 60.00p", 3},    {kAllTypes, 16, "720x480 59.94p", 4},
    {kAllTypes, 17, "720x576 50.00p", 5},    {kAllTypes, 18, "720x480 59.94i", 1},
    {kAllTypes, 19, "720x576 50.00i", 2},
};

// First match: the rows of all types come after those of their own.
constexpr Choice kAspectRatios[] = {
    {{26, 50}, 0, "Keep Aspect Ratio", 0},
    {{26, 50}, 1, "Full Screen (16:9)", 1},
    {{26, 50}, 2, "Dot By Dot", 2},
    {{26, 50}, 3, "4 : 3", 3},
    {{26, 50}, 4, "14 : 9", 4},
    {{26, 50}, 5, "UnderScan", 5},
    {{26, 50}, 6, "Pan Scan 16 : 9", 6},
    {{24, 34}, 3, "UnderScan", 3},
    {{24, 34}, 4, "Keep Aspect Ratio", 4},
    {{24, 34}, 5, "Full Screen", 5},
    {{25, 29}, 5, "14 : 9", 5},
    {{25, 29}, 6, "UnderScan", 6},
    {{25, 29}, 7, "Pan Scan 16 : 9", 7},
    {kAllTypes, 0, "16 : 9", 0},
    {kAllTypes, 1, "4 : 3", 1},
    {kAllTypes, 2, "Dot By Dot", 2},
    {kAllTypes, 3, "Keep Aspect Ratio", 3},
    {kAllTypes, 4, "Full Screen", 4},
};

// In the order in which the box keeps them.
constexpr Choice kHdmiEqs[] = {
    {{26}, 2, "LOW", 2},
    {{26}, 0, "MIDDLE", 0},
    {{26}, 1, "HIGH", 1},
};

constexpr Choice kOutputLevels[] = {
    {{26}, 0, "Limit Range", 0},
    {{26}, 1, "Full Range", 1},
};

// There is no value 2, on purpose.
constexpr Choice kOutputColours[] = {
    {kWithColour, 0, "RGB444", 0},
    {kWithColour, 1, "YUV444", 1},
    {kWithColour, 2, "YUV422", 3},
};

constexpr Choice kEdgeEnhances[] = {
    {kAllTypes, 0, "Disable", 0}, {kAllTypes, 1, "Min", 1},          {kAllTypes, 2, "Mid", 2},
    {kAllTypes, 3, "Max", 3},     {kAllTypes, kNoIndex, "Error", 0},
};

constexpr Choice kColourUpFilters[] = {
    {kAllTypes, 0, "Disable", 0},
    {kAllTypes, 1, "Enable", 1},
    {kAllTypes, kNoIndex, "Error", 0},
};

constexpr Choice kSdiTypes[] = {
    {kAllTypes, 0, "SD", 1},
    {kAllTypes, 1, "HD", 4},
    {kAllTypes, 2, "3GA", 9},
    {kAllTypes, 3, "3GB", 10},
};

constexpr Choice kSecondOutputLevels[] = {
    {kAllTypes, 1, "Full Range", 1},
    {kAllTypes, 0, "Limit Range", 0},
};

constexpr Choice kSdiOutputColours[] = {
    {kAllTypes, 0, "RGB444", 0},
    {kAllTypes, 1, "YUV444", 1},
    {kAllTypes, 2, "YUV422", 3},
};

constexpr Choice kHdmiOutputModes[] = {
    {kAllTypes, 1, "HDMI", 1},
    {kAllTypes, 0, "DVI", 0},
};

constexpr Choice kImageMirrors[] = {
    {kAllTypes, 0, "Disable", 0},
    {kAllTypes, 1, "Hor.", 1},
    {kAllTypes, 2, "Ver.", 2},
    {kAllTypes, 3, "Hor. + Ver.", 3},
};

constexpr Choice kReclocks[] = {
    {kAllTypes, 0, "Disable", 0},
    {kAllTypes, 1, "Enable", 1},
};

constexpr Choice kSdiEqs[] = {
    {{24, 34}, 0, "DISABLE", 0},
    {{24, 34}, 1, "SMALL", 1},
    {{24, 34}, 2, "MEDIUM", 2},
    {{24, 34}, 3, "LARGE", 3},
};

constexpr Choice kGpiModes[] = {
    {{24, 34}, 0, "Pulse", 0},
    {{24, 34}, 1, "Level", 1},
};

constexpr Choice kErrorLeds[] = {
    {{24, 34}, 0, "OFF", 0},
    {{24, 34}, 1, "ON", 1},
};

constexpr Choice kGenlockModes[] = {
    {{20, 30, 33, 43}, 0, "Free-Run", 0},
    {{30, 43}, 1, "External", 1},
    {{20, 33}, 1, "SDI-In", 1},
    {{20, 33}, 2, "Ref-In", 2},
};

constexpr Choice kIreLevels[] = {
    {{23, 42}, 0, "0   IRE", 0},
    {{23, 42}, 1, "7.5 IRE", 1},
    {{25, 29}, 0, "7.5 IRE", 0},
    {{25, 29}, 1, "0   IRE", 1},
};

constexpr Choice kOutputSources[] = {
    {{25, 29}, 0, "VGA + HDMI", 0},
};

// The one that is known.
constexpr Choice kOutputModes[] = {{{23, 42}, 0, "AV", 0}};
static_assert(EveryRowCounts(kOutputModes));

constexpr OptionList kLists[kOptionCount] = {
    {"Input Source", kInputSources, 1, 0, 1},
    {"Video Output Range", kOutputLevels, 1, 0, 1},
    {"Aspect Ratio", kAspectRatios, 2, 0, 1},
    {"Output Format", kOutputFormats, 19, 1, 1},
    {"Output Mode", kOutputModes, 0},
    {"HDMI Output Color", kOutputColours, 2},
    {"Output Source", kOutputSources, 0},
    {"HDMI Input EQ", kHdmiEqs, 2, 0, 2},
    {"SDI 0 EQ", kSdiEqs, 3},
    {"SDI 1 EQ", kSdiEqs, 3},
    {"CRC Error", kErrorLeds, 1},
    {"GPI Mode", kGpiModes, 1},
    {"Genlock Mode", kGenlockModes, 1},
    {"Composite Setup Level", kIreLevels, 1},
    {"Edge Enhance", kEdgeEnhances, 3},
    {"Color Up Filter", kColourUpFilters, 1},
    {"SDI Standard", kSdiTypes, 3},
    {"HDMI Output Range", kSecondOutputLevels, 1},
    {"SDI Output Color", kSdiOutputColours, 2},
    {"HDMI Output Mode", kHdmiOutputModes, 1},
    {"Image Mirror", kImageMirrors, 3},
    {"SDI Re-Clock", kReclocks, 1},
};

static_assert(EveryRowCounts(kInputSources));
static_assert(EveryRowCounts(kOutputFormats));
static_assert(EveryRowCounts(kAspectRatios));
static_assert(EveryRowCounts(kHdmiEqs));
static_assert(EveryRowCounts(kOutputLevels));
static_assert(EveryRowCounts(kOutputColours));
static_assert(EveryRowCounts(kEdgeEnhances));
static_assert(EveryRowCounts(kColourUpFilters));
static_assert(EveryRowCounts(kSdiTypes));
static_assert(EveryRowCounts(kSecondOutputLevels));
static_assert(EveryRowCounts(kSdiOutputColours));
static_assert(EveryRowCounts(kHdmiOutputModes));
static_assert(EveryRowCounts(kImageMirrors));
static_assert(EveryRowCounts(kReclocks));
static_assert(EveryRowCounts(kSdiEqs));
static_assert(EveryRowCounts(kGpiModes));
static_assert(EveryRowCounts(kErrorLeds));
static_assert(EveryRowCounts(kGenlockModes));
static_assert(EveryRowCounts(kIreLevels));
static_assert(EveryRowCounts(kOutputSources));

constexpr BoxTypes kWithInputs = {23, 24, 25, 27, 29, 34, 42, 48, 49, 50};
// They tell the format of their reference in block 4.
constexpr BoxTypes kGenlocked = {39, 40, 46, 47, 48, 49, 50};
// Block 15 is the DIP 8 mode, the genlock mode or the region of these.
constexpr BoxTypes kAspectElsewhere = {14, 21, 24, 30, 34, 36, 37, 38,
                                       39, 40, 43, 46, 47, 48, 49, 51};
// Types of which nothing more is known.
constexpr BoxTypes kPlain =
    kOtherTypes.Except(kWithHdmiMode).Except({14, 20, 24, 25, 29, 30, 33, 34, 36, 43, 51});

bool IsBrand2(const Identity& box, std::uint32_t /*firmware*/) { return box.brandCode == 2; }
bool IsNotBrand2(const Identity& box, std::uint32_t /*firmware*/) { return box.brandCode != 2; }

constexpr Kept kKept[] = {
    {kShippedType, 0, kInputSource, Word(4), Reads::kValue},
    {kShippedType, 0, kOutputFormat, Word(2), Reads::kValue},
    {kShippedType, 0, kAspectRatio, Word(7)},
    {kShippedType, 0, kHdmiEq, Word(12)},
    {kShippedType, 1, kOutputColour, Word(10), Reads::kValue},
    {kShippedType, 1, kOutputLevel, Word(15)},
    {kShippedType, 1, kEdgeEnhance, Word(19), Reads::kIndex, kFromFirmware<278>},

    // The first sub-page: input, what is put out, and how the picture fills it.
    {kWithInputs, 0, kInputSource, Block(3), Reads::kValue},
    {kOtherTypes.Except(kGenlocked).Except({21}), 0, kOutputFormat, Block(4), Reads::kValue},
    {{21}, 0, kOutputFormat, Word(2), Reads::kValue},
    {kGenlocked, 0, kOutputFormat, Block(5), Reads::kValue},
    {{25, 29}, 0, kOutputSource, Block(5), Reads::kValue},
    {{23, 42}, 0, kOutputMode, Block(5)},
    {{24, 34}, 0, kErrorLed, Block(22)},
    {kOtherTypes.Except(kAspectElsewhere), 0, kAspectRatio, Block(15)},
    {{14, 36, 37, 38, 39, 40, 46, 47, 48, 49, 51}, 0, kAspectRatio, Block(20)},
    {{21, 30, 43}, 0, kAspectRatio, Word(7)},
    {{24, 34}, 0, kAspectRatio, Block(15), Reads::kIndex, IsBrand2},
    {{24, 34}, 0, kAspectRatio, Word(11), Reads::kIndex, IsNotBrand2},

    // The second one.
    {{24, 34}, 1, kSdi0Eq, Block(5)},
    {{24, 34}, 1, kSdi1Eq, Block(13)},
    {{24, 34}, 1, kGpiMode, Block(50)},
    {{30, 43}, 1, kGenlockMode, Block(15)},
    {{20, 33}, 1, kGenlockMode, Block(19)},
    {{23, 25, 29, 42}, 1, kIreLevel, Block(20)},
    {kWithHdmiMode, 1, kHdmiOutputMode, Block(42)},
    {kWithHdmiMode, 1, kOutputColour, Block(7), Reads::kValue},
    {{37, 38}, 1, kSecondOutputLevel, Block(33)},
    {{20, 33, 39, 40, 46, 47, 48, 49}, 1, kSdiOutputColour, Block(40), Reads::kValue},
    {{20, 33, 50}, 1, kImageMirror, Block(45)},
    {kPlain.With({25, 29}), 1, kEdgeEnhance, Block(25)},
    {kPlain.With({14, 25, 29, 36, 51}), 1, kColourUpFilter, Block(29)},
    {{14, 30, 36, 43, 51}, 1, kSdiType, Block(30), Reads::kValue},
    {kPlain.With({14, 30, 36, 43, 51}), 1, kReclock, Block(49)},

    // The third, of those that have one.
    {{24, 34}, 2, kSdiType, Block(30), Reads::kValue, IsBrand2},
    {{24, 34}, 2, kSdiOutputColour, Block(40), Reads::kValue, IsBrand2},
    {{24, 34}, 2, kImageMirror, Block(45), Reads::kIndex, IsBrand2},
    {{24, 34}, 2, kReclock, Block(49), Reads::kIndex, IsBrand2},
    {{37, 38}, 2, kColourUpFilter, Block(29), Reads::kIndex, IsNotBrand2},
    {{37, 38}, 2, kSdiType, Block(30), Reads::kValue, IsNotBrand2},
    {{37, 38}, 2, kImageMirror, Block(45), Reads::kIndex, IsNotBrand2},
    {{37, 38}, 2, kReclock, Block(49), Reads::kIndex, IsNotBrand2},
};

// The first row that holds counts; the last of an option always does.
struct LastRow {
  Option option;
  BoxTypes types;
  std::uint8_t last;
  Condition when = nullptr;
};
constexpr LastRow kLasts[] = {
    {kInputSource, {26, 50}, 2},
    {kInputSource, {23, 42}, 6},
    {kInputSource, {25, 29}, 4},
    {kAspectRatio, {26}, 6, kFromFirmware<278>},
    {kAspectRatio, {26}, 5},
    {kAspectRatio, {50}, 6},
    {kAspectRatio, {23, 30, 42, 43}, 3},
    {kAspectRatio, {21, 37, 38, 39, 40, 46, 47, 48, 49}, 4},
    {kAspectRatio,
     {20, 33},
     4,
     [](const Identity& box, std::uint32_t firmware) {
       return box.brandCode == 2 && firmware > 289;
     }},
    {kAspectRatio,
     {18, 32},
     4,
     [](const Identity& box, std::uint32_t firmware) {
       return box.brandCode == 2 && firmware > 293;
     }},
    {kAspectRatio,
     {24, 34},
     5,
     [](const Identity& box, std::uint32_t) {
       return box.inputDipFlag != 1 || box.brandCode == 2;
     }},
    {kAspectRatio, {24, 34}, 3},
    {kAspectRatio,
     {25, 29},
     7,
     [](const Identity& box, std::uint32_t firmware) {
       return box.brandCode == 0 && firmware >= 265;
     }},
    {kAspectRatio,
     {29},
     7,
     [](const Identity& box, std::uint32_t) {
       return box.brandCode == 2 || (box.brandCode == 1 && box.outputDipFlag == 1);
     }},
};

// 24 and 34 without DIP switches, but for those of brand 2, have a way of their own.
bool TogglesByWord(const Identity& box, std::uint32_t /*firmware*/) {
  return box.inputDipFlag != 1 && box.brandCode != 2;
}

constexpr Command kFreeze[] = {
    {{24, 34}, Word(19), 11, TogglesByWord},
    {{24, 34},
     Block(19),
     1,
     [](const Identity& box, std::uint32_t firmware) { return !TogglesByWord(box, firmware); }},
    {kWithFreeze.Except({24, 34}), Block(19), 1},
    {{25, 29}, Word(23), 11},
};

}  // namespace

const OptionGroup& Options() {
  static constexpr OptionGroup kGroup = {kLists, kKept};
  return kGroup;
}

std::uint8_t LastIndex(Option option, const Identity& identity, std::uint32_t firmware) {
  for (const LastRow& row : kLasts) {
    if (row.option != option || !row.types.Has(identity.boxType)) continue;
    if (row.when == nullptr || row.when(identity, firmware)) return row.last;
  }
  return kLists[option].last;
}

int SubPages(const Identity& identity) {
  static constexpr BoxTypes kThreeOfBrand2 = {24, 34};
  static constexpr BoxTypes kThreeOfOthers = {37, 38};
  return (identity.brandCode == 2 ? kThreeOfBrand2 : kThreeOfOthers).Has(identity.boxType) ? 3 : 2;
}

std::span<const Command> FreezeCommands() { return kFreeze; }

}  // namespace panelora::video
