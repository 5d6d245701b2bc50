#include "catalogue/audio.h"

#include <iterator>

namespace panelora::audio {

namespace {

constexpr Choice kMutes[] = {{kAllTypes, 0, "OFF", 0}, {kAllTypes, 1, "ON", 1}};

constexpr Choice kStandards[] = {{{26, 50}, 0, "SMPTE(USA)", 0}, {{26, 50}, 1, "EBU(Europe)", 1}};

constexpr Choice kChannels[] = {{{18, 29, 32}, 0, "2.0 Channel", 2},
                                {{18, 29, 32}, 1, "3.1 Channel", 3},
                                {{18, 29, 32}, 2, "5.1 Channel", 6},
                                {{18, 29, 32}, 3, "6.1 Channel", 7},
                                {{18, 29, 32}, 4, "7.1 Channel", 8}};

constexpr Choice kXlrLevels[] = {
    {{24, 34}, 0, "10 dB", 0},  {{24, 34}, 1, "24 dB", 1},  {{14, 36}, 0, "0 dBu", 0},
    {{14, 36}, 1, "6 dBu", 1},  {{14, 36}, 2, "12 dBu", 2}, {{14, 36}, 3, "18 dBu", 3},
    {{14, 36}, 4, "24 dBu", 4},
};

constexpr Choice kXlrImpedances[] = {{{14}, 0, "High", 0}, {{14}, 1, "Low", 1}};

constexpr Choice kSourcesOfInput0[] = {
    {{24, 34}, 0, "Default ( SDI )", 0},
};
constexpr Choice kSourcesOfInput1[] = {
    {{26, 50}, 0, "L/R Audio", 0},
    {{26, 50}, 1, "Internal (HDMI)", 1},
    {{26, 50}, 2, "SDI", 3},
    {{24, 34}, 0, "Default ( HDMI )", 0},
};
constexpr Choice kSourcesOfInput2[] = {
    {{26, 50}, 0, "L/R Audio", 0},
    {{26, 50}, 1, "Internal (Mute)", 1},
    {{26, 50}, 2, "SDI", 3},
};
constexpr Choice kSourcesOfInput4[] = {
    {{26, 50}, 0, "L/R Audio", 0},
    {{26, 50}, 1, "Internal (SDI)", 1},
    {{26, 50}, 2, "HDMI", 2},
};
constexpr BoxTypes kWithEmbedded = {37, 38, 39, 40, 46, 47, 48, 49, 52};

constexpr Choice kSourcesOfAnyInput[] = {
    {{24, 34, 25, 29}, 1, "L/R Audio", 1},
    {{24, 34}, 2, "XLR Audio", 2},
    {{25, 29}, 0, "Default", 0},
    {{25, 29}, 2, "Embedded Audio", 2},
    {kWithEmbedded, 0, "Embedded Audio", 0},
    {kWithEmbedded, 1, "L/R Audio", 1},
    {kWithEmbedded, 2, "Mix Audio", 2},
    {{14, 36}, 0, "Internal", 0},
    {{14, 36}, 1, "XLR Audio", 1},
    {{14, 36}, 2, "AES-3", 2},
    {{13, 15}, 0, "Channel 1", 0},
    {{13, 15}, 1, "Channel 2", 1},
    {{13, 15}, 2, "Channel 3", 2},
    {{13, 15}, 3, "Channel 4", 3},
    {{51}, 0, "Line In 1", 0},
    {{51}, 1, "Line In 2", 1},
    {{51}, 2, "Line In 3", 2},
    {{51}, 3, "Line In 4", 3},
    {{23, 42}, 0, "Internal( HDMI )", 0},
    {{23, 42}, 1, "SPDIF", 1},
    {{23, 42}, 2, "MicroPhone", 2},
    {{30, 43}, 0, "Embedded( SDI )", 0},
    {{30, 43}, 1, "Analog L/R Audio", 1},
    {{30, 43}, 2, "Mix ( SDI + L/R )", 2},
    {{20, 33}, 0, "L(Aud) + R( Dig )", 0},
    {{20, 33}, 1, "R(Aud) + L( Dig )", 1},
    {{17, 21, 35}, 0, "SDI", 0},
    {{17, 21, 35}, 1, "HDMI", 1},
    {{18, 32}, 0, "Nono", 0},
    {{18, 32}, 1, "LAnalog L/R Audio", 1},
    {{18, 32}, 2, "L/R Ear Phone", 2},
};

constexpr Choice kOutputLevels[] = {
    {kAllTypes, 0, "+24.0", 110}, {kAllTypes, 1, "+20.0", 102}, {kAllTypes, 2, "+10.0", 82},
    {kAllTypes, 3, "+4.0", 70},   {kAllTypes, 4, "+0.0", 62},   {kAllTypes, 5, "-10.0", 42},
    {kAllTypes, 6, "-20.0", 22},  {kAllTypes, 7, "-30.0", 2},
};
constexpr Choice kInputLevels[] = {
    {kAllTypes, 0, "+10.0", 0},  {kAllTypes, 1, "+6.0", 8},   {kAllTypes, 2, "+4.0", 12},
    {kAllTypes, 3, "+0.0", 20},  {kAllTypes, 4, "-6.0", 32},  {kAllTypes, 5, "-10.0", 40},
    {kAllTypes, 6, "-20.0", 60}, {kAllTypes, 7, "-28.5", 77},
};

static_assert(EveryRowCounts(kMutes));
static_assert(EveryRowCounts(kStandards));
static_assert(EveryRowCounts(kChannels));
static_assert(EveryRowCounts(kXlrLevels));
static_assert(EveryRowCounts(kXlrImpedances));
static_assert(EveryRowCounts(kSourcesOfInput0));
static_assert(EveryRowCounts(kSourcesOfInput1));
static_assert(EveryRowCounts(kSourcesOfInput2));
static_assert(EveryRowCounts(kSourcesOfInput4));
static_assert(EveryRowCounts(kSourcesOfAnyInput));
static_assert(EveryRowCounts(kOutputLevels));
static_assert(EveryRowCounts(kInputLevels));

constexpr OptionList kLists[kOptionCount] = {
    {"Audio Mute", kMutes, 1},        {"Audio Source", {}, 0, 0, 1},
    {"Audio Level", kStandards, 1},  // the caption is deliberate
    {"XLR Level", kXlrLevels, 4},     {"XLR Impedance", kXlrImpedances, 1},
    {"Output Channel", kChannels, 4},
};

constexpr BoxTypes kWithStandard = {26, 50};
constexpr BoxTypes kWithInput = {24, 34};
constexpr BoxTypes kWithMuteIn5 = {20, 30, 33, 43};
constexpr BoxTypes kWithMuteIn11 = {13, 15, 18, 23, 32, 42};

constexpr Kept kKept[] = {
    {kWithStandard, 0, kMute, Word(11)},
    // What is read is shown as an index although the value is what is written: a reported value 3
    // has no row. Deliberate.
    {kWithStandard, 0, kSource, Word(6)},
    {kWithStandard, 0, kStandard, Word(16)},

    {kWithMuteIn5, 0, kMute, Word(5)},
    {kWithMuteIn11, 0, kMute, Word(11)},
    {{17, 35}, 0, kMute, Word(17)},
    {{24, 34}, 0, kMute, Word(7)},
    {{36}, 0, kMute, Word(3)},
    {{21}, 0, kMute, Word(24), Reads::kIndex, nullptr, Access::kReadOnly},
    {{21}, 0, kMute, Block(1), Reads::kIndex, nullptr, Access::kWriteOnly},
    {kOtherTypes.Except(kWithStandard)
         .Except(kWithMuteIn5)
         .Except(kWithMuteIn11)
         .Except({17, 21, 24, 34, 35, 36, 51}),
     0, kMute, Block(6)},

    {{17, 35}, 0, kSource, Block(3)},
    {{20, 33}, 0, kSource, Word(6)},
    {{18, 32}, 0, kSource, Word(7)},
    {{13, 15, 23, 42}, 0, kSource, Word(16)},
    {{14, 36}, 0, kSource, Block(9)},
    {kWithEmbedded.With({24, 25, 29, 30, 34, 43, 51}), 0, kSource, Block(10)},
    {{21}, 0, kSource, Block(38), Reads::kIndex, nullptr, Access::kReadOnly},
    {{21}, 0, kSource, Block(4), Reads::kIndex, nullptr, Access::kWriteOnly},

    {{14, 24, 34, 36}, 0, kXlrLevel, Block(7)},
    {{14}, 0, kXlrImpedance, Block(32)},
    {{18, 32}, 0, kChannel, Block(32), Reads::kValue},
    {{29}, 0, kChannel, Block(32), Reads::kValue, kFromFirmware<265>},
};

constexpr Volumes kVolumes[] = {
    {{46, 47, 48, 49, 52}, VolumeKind::kAttenuation, Block(11)},
    {{25, 29}, VolumeKind::kInput, Block(19, 3)},
    {{24, 34}, VolumeKind::kOutputLevel, Block(44)},
    {kAllTypes, VolumeKind::kNone, {}},
};

}  // namespace

const OptionGroup& Options() {
  static constexpr OptionGroup kGroup = {kLists, kKept};
  return kGroup;
}

std::span<const Sources> AllSources() {
  static constexpr Sources kSources[] = {{0, kSourcesOfInput0},
                                         {1, kSourcesOfInput1},
                                         {2, kSourcesOfInput2},
                                         {4, kSourcesOfInput4},
                                         {kAnyInput, kSourcesOfAnyInput}};
  return kSources;
}

const Choice* FindSource(std::uint8_t boxType, std::uint8_t input, std::uint8_t index) {
  for (const Sources& each : AllSources()) {
    if (each.input != input && each.input != kAnyInput) continue;
    if (const Choice* found = FindIndex(each.choices, boxType, index)) return found;
  }
  return nullptr;
}

Address InputOf(std::uint8_t boxType) {
  if (kWithStandard.Has(boxType)) return Word(4);
  return kWithInput.Has(boxType) ? Block(3) : Address{};
}

Address FittedOf(std::uint8_t boxType) {
  static constexpr BoxTypes kTelling = {37, 38, 52};
  return kTelling.Has(boxType) ? Block(38) : Address{};
}

const Volumes& VolumesOf(std::uint8_t boxType) {
  const Volumes* row = FirstOf(kVolumes, boxType);
  return row != nullptr ? *row : *std::rbegin(kVolumes);
}

Choices LevelsOf(VolumeKind kind) {
  return kind == VolumeKind::kOutputLevel ? Choices(kOutputLevels) : Choices(kInputLevels);
}

}  // namespace panelora::audio
