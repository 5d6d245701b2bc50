// The Audio page of every box type, against a list of its own: what is shown where, which sources
// and levels there are, and exactly what is read and written.
#include <cmath>
#include <optional>

#include "tests/support/model_walk.h"

namespace panelora::testing {
namespace {

constexpr int kPage = res::kAudio;

constexpr Group kMute = {1026, 1023, 1025, 1024};
constexpr Group kSource = {1030, 1027, 1028, 1029};
constexpr Group kStandard = {1035, 1036, 1037, 1038};
constexpr Group kXlrLevel = {1055, 1039, 1040, 1041};
constexpr Group kImpedance = {1056, 1042, 1043, 1044};
constexpr Group kChannel = {1057, 1047, 1048, 1049};
constexpr int kVolumeText = 1058;
constexpr int kVolumeBar = 1103;
constexpr int kLevelText = 1059;
constexpr int kSofter = 1045;
constexpr int kLouder = 1046;
constexpr int kHdmiText = 1052;
constexpr int kHdmiBar = 1104;
constexpr int kHdmiSofter = 1053;
constexpr int kHdmiLouder = 1054;
constexpr int kScale = 1050;
constexpr int kRuler = 1051;
constexpr int kCombo = 1108;

// One letter a part: m mute, s source, t standard, x XLR level, i XLR impedance, c output channel,
// v volume, b volume with the level combo below it, h HDMI volume.
struct Column {
  std::initializer_list<int> types;
  const char* parts;
  const char* partsOfBrand2;
};
const Column kColumns[] = {
    {{26, 50}, "mst", "mst"},  {{29}, "csmv", "csb"},
    {{25}, "smv", "sb"},       {{18, 32}, "csm", "csm"},
    {{24, 34}, "xsmv", "xsb"}, {{14}, "xis", "xis"},
    {{36}, "xsm", "xsm"},      {{46, 47, 48, 49, 52}, "svh", "svh"},
    {{51}, "s", "s"},
};

std::string PartsOf(const Identity& box) {
  for (const Column& column : kColumns) {
    if (Has(column.types, box.boxType)) {
      return box.brandCode == 2 ? column.partsOfBrand2 : column.parts;
    }
  }
  return "sm";
}
bool HasPart(const Identity& box, char part) {
  return PartsOf(box).find(part) != std::string::npos;
}
bool TakesWords(int type) { return type == 26 || type == 50; }
int SourceBlock(int type) { return type == 14 || type == 36 ? 9 : 10; }

enum class Volume { kNone, kAttenuation, kInput, kOutput };
Volume VolumeOf(int type) {
  if (Has({46, 47, 48, 49, 52}, type)) return Volume::kAttenuation;
  if (type == 25 || type == 29) return Volume::kInput;
  if (type == 24 || type == 34) return Volume::kOutput;
  return Volume::kNone;
}

void PlaceFour(Places& places, const Group& group, int top) {
  places[group.label] = {50, top, 300, 20};
  places[group.frame] = {50, top + 15, 300, 48};
  places[group.value] = {60, top + 30, 250, 30};
  places[group.next] = {370, top + 23, 40, 39};
}

Places ExpectedPlaces(const Identity& box) {
  const std::string parts = PartsOf(box);
  const bool tight = parts.find_first_of("vb") != std::string::npos;
  Places places;
  int top = tight ? 5 : 35;
  for (const char part : parts) {
    switch (part) {
      case 'm':
        PlaceFour(places, kMute, top);
        break;
      case 's':
        PlaceFour(places, kSource, top);
        break;
      case 't':
        PlaceFour(places, kStandard, top);
        break;
      case 'x':
        PlaceFour(places, kXlrLevel, top);
        break;
      case 'i':
        PlaceFour(places, kImpedance, top);
        break;
      case 'c':
        PlaceFour(places, kChannel, top);
        break;
      case 'h':
        places[kHdmiText] = {50, top, 330, 20};
        places[1061] = {50, top + 15, 300, 48};
        places[kHdmiBar] = {60, top + 33, 280, 16};
        places[kHdmiSofter] = {370, top + 23, 40, 39};
        places[kHdmiLouder] = {415, top + 23, 40, 39};
        break;
      default:
        places[kVolumeText] = {50, top, 330, 20};
        places[1060] = {50, top + 15, 300, 48};
        places[kVolumeBar] = {60, top + 33, 230, 16};
        if (VolumeOf(box.boxType) != Volume::kAttenuation) {
          places[kLevelText] = {295, top + 31, 50, 20};
        }
        places[kSofter] = {370, top + 23, 40, 39};
        places[kLouder] = {415, top + 23, 40, 39};
        if (part == 'v') break;
        places[kScale] = {50, top + 68, 370, 20};
        places[kRuler] = {65, top + 88, 355, 20};
        places[1062] = {50, top + 118, 100, 20};
        places[kCombo] = {160, top + 116, 110, 24};
        break;
    }
    top += tight ? 68 : 80;
  }
  return places;
}

// Sources in the order of their indices. The device code is the index but where `code` says more.
struct SourceRow {
  const char* text;
  int code = -1;
};
struct SourceList {
  std::initializer_list<int> types;
  int input;  // -1: whatever the input
  std::vector<SourceRow> rows;
};
const SourceList kSources[] = {
    {{26, 50}, 2, {{"L/R Audio"}, {"Internal (Mute)"}, {"SDI", 3}}},
    {{26, 50}, 1, {{"L/R Audio"}, {"Internal (HDMI)"}, {"SDI", 3}}},
    {{26, 50}, 4, {{"L/R Audio"}, {"Internal (SDI)"}, {"HDMI"}}},
    {{24, 34}, 0, {{"Default ( SDI )"}, {"L/R Audio"}, {"XLR Audio"}}},
    {{24, 34}, 1, {{"Default ( HDMI )"}, {"L/R Audio"}, {"XLR Audio"}}},
    // Of another input the scalers have no default, which is index 0.
    {{24, 34}, -1, {{nullptr}, {"L/R Audio"}, {"XLR Audio"}}},
    {{25, 29}, -1, {{"Default"}, {"L/R Audio"}, {"Embedded Audio"}}},
    {{46, 47, 48, 49, 52}, -1, {{"Embedded Audio"}, {"L/R Audio"}, {"Mix Audio"}}},
    {{14, 36}, -1, {{"Internal"}, {"XLR Audio"}, {"AES-3"}}},
    {{13, 15}, -1, {{"Channel 1"}, {"Channel 2"}, {"Channel 3"}, {"Channel 4"}}},
    {{51}, -1, {{"Line In 1"}, {"Line In 2"}, {"Line In 3"}, {"Line In 4"}}},
    {{23, 42}, -1, {{"Internal( HDMI )"}, {"SPDIF"}, {"MicroPhone"}}},
    {{30, 43}, -1, {{"Embedded( SDI )"}, {"Analog L/R Audio"}, {"Mix ( SDI + L/R )"}}},
    {{20, 33}, -1, {{"L(Aud) + R( Dig )"}, {"R(Aud) + L( Dig )"}}},
    {{17, 35}, -1, {{"SDI"}, {"HDMI"}}},
    {{18, 32}, -1, {{"Nono"}, {"LAnalog L/R Audio"}, {"L/R Ear Phone"}}},
};

std::vector<SourceRow> SourcesOf(int type, int input) {
  for (const SourceList& list : kSources) {
    if (!Has(list.types, type)) continue;
    if (list.input == input || list.input == -1) return list.rows;
  }
  return {};
}
std::optional<SourceRow> SourceOf(int type, int input, int index) {
  const std::vector<SourceRow> rows = SourcesOf(type, input);
  const auto at = static_cast<std::size_t>(index);
  if (at >= rows.size() || rows[at].text == nullptr) return std::nullopt;
  SourceRow row = rows[at];
  if (row.code < 0) row.code = index;
  return row;
}

// What a box holds that the page reads; the channel and the impedance share their place.
struct Held {
  int mute = 0;
  int input = 0;
  int source = 0;
  int standard = 0;
  int xlrLevel = 0;
  int option32 = 0;
  int volume = 0;
  int volume2 = 0;
  int level = 0;
};

class AudioModels : public ModelWalk {
 protected:
  void OpenAs(const Identity& identity) {
    StartAs(identity);
    Press(kAudioButton);
    TakeCalls();
  }
  void Hold(const Identity& identity, const Held& held) {
    const auto report = [&](int property, int value) {
      Report(property, {static_cast<std::uint8_t>(value), 0x77});
    };
    if (TakesWords(identity.boxType)) {
      ReportWord(11, held.mute);
      ReportWord(4, held.input);
      ReportWord(6, held.source);
      ReportWord(16, held.standard);
      return;
    }
    report(6, held.mute);
    report(3, held.input);
    report(SourceBlock(identity.boxType), held.source);
    report(7, held.xlrLevel);
    report(32, held.option32);
    const Bytes volumes = {static_cast<std::uint8_t>(held.volume),
                           static_cast<std::uint8_t>(held.volume2), 0x77};
    if (VolumeOf(identity.boxType) == Volume::kAttenuation) Report(11, volumes);
    if (VolumeOf(identity.boxType) == Volume::kInput) Report(19, volumes);
    if (VolumeOf(identity.boxType) == Volume::kOutput) report(44, held.level);
  }
  // The box holds this and the page has read it.
  void Read(const Identity& identity, const Held& held) {
    Hold(identity, held);
    Reread();
    TakeCalls();
  }
  static Calls Reads(const Identity& box) {
    if (TakesWords(box.boxType)) return {GetWord(11), GetWord(4), GetWord(6), GetWord(16)};
    Calls calls;
    if (box.boxType != 51) calls.push_back(GetBlock(6));
    calls.push_back(GetBlock(3));
    calls.push_back(GetBlock(SourceBlock(box.boxType)));
    if (HasPart(box, 'x')) calls.push_back(GetBlock(7));
    if (HasPart(box, 'i') || HasPart(box, 'c')) calls.push_back(GetBlock(32));
    const Volume volume = VolumeOf(box.boxType);
    if (volume == Volume::kAttenuation) calls.push_back(GetBlock(11));
    if (volume == Volume::kInput) calls.push_back(GetBlock(19, 3));
    if (volume == Volume::kOutput) calls.push_back(GetBlock(44));
    return calls;
  }
  static Calls Writes(const Identity& box, const Held& held) {
    Calls calls;
    const std::optional<SourceRow> row = SourceOf(box.boxType, held.input, held.source);
    if (TakesWords(box.boxType)) {
      if (row) calls.push_back(SetWord(6, row->code));
      calls.push_back(SetWord(11, held.mute));
      calls.push_back(SetWord(16, held.standard));
      return calls;
    }
    if (row) calls.push_back(SetBlock(SourceBlock(box.boxType), {row->code}));
    if (HasPart(box, 'm')) calls.push_back(SetBlock(6, {held.mute}));
    if (HasPart(box, 'x')) calls.push_back(SetBlock(7, {held.xlrLevel}));
    if (HasPart(box, 'i') || HasPart(box, 'c')) calls.push_back(SetBlock(32, {held.option32}));
    const Volume volume = VolumeOf(box.boxType);
    if (volume == Volume::kAttenuation) {
      calls.push_back(SetBlock(11, {held.volume, held.volume2}));
    }
    if (volume == Volume::kOutput) calls.push_back(SetBlock(44, {held.level, 0}));
    return calls;
  }
  std::string TextOf(int control) { return desk.Text(kPage, control); }
  std::string TextOf(const Group& group) { return TextOf(group.value); }

  // Every value that a box can report for a setting of four controls: the listed ones show their
  // text, the others keep it; Apply sends back what was read, and a press goes on from there.
  void WalkSetting(const Identity& identity, const Group& group, int Held::*field,
                   const std::map<int, std::string>& texts, int last) {
    Held held;
    std::string shown = TextOf(group);
    for (const int value : {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 254, 255}) {
      SCOPED_TRACE("value " + std::to_string(value));
      held.*field = value;
      Read(identity, held);
      if (texts.contains(value)) shown = texts.at(value);
      ASSERT_EQ(TextOf(group), shown);
      ASSERT_EQ(CallsOf(kApplyButton), Writes(identity, held));
      ASSERT_EQ(CallsOnPage(kPage, group.next), Calls{});
      Held stepped = held;
      stepped.*field = value + 1 > last ? 0 : value + 1;
      if (texts.contains(stepped.*field)) shown = texts.at(stepped.*field);
      ASSERT_EQ(TextOf(group), shown);
      ASSERT_EQ(CallsOf(kApplyButton), Writes(identity, stepped));
    }
  }
};

TEST_F(AudioModels, EveryTypeShowsItsPartsInOneColumn) {
  for (const int type : kTypes) {
    for (const int brand : {0, 2}) {
      const Identity identity = Box(type, brand);
      OpenAs(identity);
      ASSERT_EQ(ShownOn(kPage), ExpectedPlaces(identity)) << Named(identity);
    }
  }
}

TEST_F(AudioModels, EveryControlHasItsCaptionAndFont) {
  const std::map<int, std::string> texts = {{1026, "Audio Mute"},
                                            {1023, ""},
                                            {1024, ">>"},
                                            {1030, "Audio Source"},
                                            {1027, ""},
                                            {1029, ">>"},
                                            {1035, "Audio Level"},
                                            {1036, ""},
                                            {1038, ">>"},
                                            {1056, "XLR Impedance"},
                                            {1042, ""},
                                            {1044, ">>"},
                                            {1057, "Output Channel"},
                                            {1047, ""},
                                            {1049, ">>"},
                                            {1039, ""},
                                            {1041, ">>"},
                                            {1060, ""},
                                            {1061, ""},
                                            {1045, "-"},
                                            {1046, "+"},
                                            {1053, "-"},
                                            {1054, "+"},
                                            {1062, "Audio Level"}};
  for (const auto& column : kColumns) {
    for (const int type : column.types) {
      OpenAs(Box(type));
      for (const auto& [control, text] : texts) {
        EXPECT_EQ(TextOf(control), text) << control << " of " << type;
      }
      EXPECT_EQ(TextOf(kXlrLevel.label), "XLR Level") << type;
      for (const ui::ControlTemplate& control : res::FindDialog(kPage)->controls) {
        EXPECT_EQ(desk.FontOf(kPage, control.id), (ui::Font{"Arial", 120})) << control.id;
      }
    }
  }
}

TEST_F(AudioModels, FirstTextsOfOtherModels) {
  device.FailEverything();
  StartAs(Box(26));
  const std::map<int, std::string> texts = {{1040, "0 dBu"}, {1043, "High"}, {1048, "2.0 Channel"}};
  for (const auto& [control, text] : texts) EXPECT_EQ(TextOf(control), text) << control;
}

TEST_F(AudioModels, EveryTypeReadsAndWritesWhatItHas) {
  for (const int type : kTypes) {
    for (const int brand : {0, 2}) {
      const Identity identity = Box(type, brand);
      SCOPED_TRACE(Named(identity));
      Held held;
      held.mute = 1;
      held.input = type == 26 || type == 50 ? 4 : 1;
      held.source = 1;
      held.standard = 1;
      held.xlrLevel = 1;
      held.option32 = type == 14 ? 1 : 7;
      held.volume = 31;
      held.volume2 = 32;
      held.level = 33;
      StartAs(identity);
      Hold(identity, held);
      ASSERT_EQ(CallsOf(kAudioButton), Reads(identity));
      ASSERT_EQ(CallsOf(kPictureButton), Reads(identity));
      ASSERT_EQ(CallsOf(kDefaultButton), Reads(identity));
      ASSERT_EQ(CallsOf(kApplyButton), Writes(identity, held));
    }
  }
}

TEST_F(AudioModels, EverySourceIsShownSentAndSteppedFrom) {
  for (const int type : kTypes) {
    const Identity identity = Box(type);
    OpenAs(identity);
    std::string shown = TextOf(kSource);
    for (const int input : {0, 1, 2, 3, 4, 254, 255}) {
      const auto count = static_cast<int>(SourcesOf(type, input).size());
      for (const int source : {0, 1, 2, 3, 4, 255}) {
        SCOPED_TRACE(Named(identity) + " input " + std::to_string(input) + " source " +
                     std::to_string(source));
        Held held;
        held.input = input;
        held.source = source;
        Read(identity, held);
        if (const auto row = SourceOf(type, input, source)) shown = row->text;
        ASSERT_EQ(TextOf(kSource), shown);
        ASSERT_EQ(CallsOf(kApplyButton), Writes(identity, held));
        const Calls sent = CallsOnPage(kPage, kSource.next);
        ASSERT_EQ(sent, Calls{});
        // The types of words always count to 2, the others to the last source of the input.
        const int last = TakesWords(type) ? 2 : std::max(count - 1, 0);
        held.source = source + 1 > last ? 0 : source + 1;
        if (const auto row = SourceOf(type, input, held.source)) shown = row->text;
        ASSERT_EQ(TextOf(kSource), shown);
        ASSERT_EQ(CallsOf(kApplyButton), Writes(identity, held));
      }
    }
  }
}

TEST_F(AudioModels, EveryMuteIsShownSentAndSteppedFrom) {
  for (const int type : kTypes) {
    if (type == 51) continue;  // is not asked for it
    const Identity identity = Box(type);
    SCOPED_TRACE(Named(identity));
    OpenAs(identity);
    WalkSetting(identity, kMute, &Held::mute, {{0, "OFF"}, {1, "ON"}}, 1);
    if (HasFatalFailure()) return;
  }
  OpenAs(Box(51));
  Held held;
  held.mute = 1;
  Read(Box(51), held);
  EXPECT_EQ(TextOf(kMute), "ON");  // the first text
  held.mute = 0;
  Read(Box(51), held);
  EXPECT_EQ(TextOf(kMute), "ON");
}

TEST_F(AudioModels, EveryStandardIsShownSentAndSteppedFrom) {
  for (const int type : {26, 50}) {
    const Identity identity = Box(type);
    SCOPED_TRACE(Named(identity));
    OpenAs(identity);
    WalkSetting(identity, kStandard, &Held::standard, {{0, "SMPTE(USA)"}, {1, "EBU(Europe)"}}, 1);
  }
}

TEST_F(AudioModels, EveryXlrLevelIsShownSentAndSteppedFrom) {
  const std::map<int, std::string> scaler = {{0, "10 dB"}, {1, "24 dB"}};
  const std::map<int, std::string> converter = {
      {0, "0 dBu"}, {1, "6 dBu"}, {2, "12 dBu"}, {3, "18 dBu"}, {4, "24 dBu"}};
  for (const int type : {24, 34, 14, 36}) {
    for (const int brand : {0, 2}) {
      for (const int dip : {0, 1, 2}) {
        const Identity identity = Box(type, brand, dip, 1);
        SCOPED_TRACE(Named(identity));
        const bool isScaler = type == 24 || type == 34;
        const bool byDip = isScaler && dip == 1;
        OpenAs(identity);
        EXPECT_EQ(TextOf(kXlrLevel.label), byDip ? "L/R Audio Level" : "XLR Level");
        WalkSetting(identity, kXlrLevel, &Held::xlrLevel, isScaler ? scaler : converter,
                    byDip ? 1 : 4);
        if (HasFatalFailure()) return;
      }
    }
  }
}

TEST_F(AudioModels, EveryImpedanceIsShownSentAndSteppedFrom) {
  const Identity identity = Box(14);
  OpenAs(identity);
  WalkSetting(identity, kImpedance, &Held::option32, {{0, "High"}, {1, "Low"}}, 1);
}

TEST_F(AudioModels, EveryChannelIsShownSentAndSteppedFrom) {
  const std::vector<std::pair<int, std::string>> channels = {{2, "2.0 Channel"},
                                                             {3, "3.1 Channel"},
                                                             {6, "5.1 Channel"},
                                                             {7, "6.1 Channel"},
                                                             {8, "7.1 Channel"}};
  for (const int type : {29, 18, 32}) {
    for (const int brand : {0, 2}) {
      const Identity identity = Box(type, brand);
      SCOPED_TRACE(Named(identity));
      OpenAs(identity);
      std::string shown = TextOf(kChannel);
      for (const int value : {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 255}) {
        Held held;
        held.option32 = value;
        Read(identity, held);
        std::size_t next = 0;  // a value without a row goes on with the first
        for (std::size_t i = 0; i < channels.size(); ++i) {
          if (channels[i].first != value) continue;
          shown = channels[i].second;
          next = (i + 1) % channels.size();
        }
        ASSERT_EQ(TextOf(kChannel), shown) << value;
        ASSERT_EQ(CallsOf(kApplyButton), Writes(identity, held)) << value;
        ASSERT_EQ(CallsOnPage(kPage, kChannel.next), Calls{});
        held.option32 = channels[next].first;
        shown = channels[next].second;
        ASSERT_EQ(TextOf(kChannel), shown) << value;
        ASSERT_EQ(CallsOf(kApplyButton), Writes(identity, held)) << value;
      }
    }
  }
}

TEST_F(AudioModels, EveryAttenuationIsShownUpsideDownAndStepped) {
  for (const int type : {46, 47, 48, 49, 52}) {
    for (const int brand : {0, 2}) {
      const Identity identity = Box(type, brand);
      SCOPED_TRACE(Named(identity));
      OpenAs(identity);
      for (const int raw : {0, 1, 2, 50, 98, 99, 100}) {
        Held held;
        held.volume = raw;
        held.volume2 = 100 - raw;
        const auto expectShown = [&] {
          const int first = 100 - held.volume;
          const int second = 100 - held.volume2;
          EXPECT_EQ(desk.ProgressRange(kPage, kVolumeBar), std::make_pair(0, 100));
          EXPECT_EQ(desk.ProgressRange(kPage, kHdmiBar), std::make_pair(0, 100));
          EXPECT_EQ(desk.ProgressPosition(kPage, kVolumeBar), first);
          EXPECT_EQ(desk.ProgressPosition(kPage, kHdmiBar), second);
          EXPECT_EQ(TextOf(kVolumeText), "L/R Audio Volume ( " + std::to_string(first) + " )");
          EXPECT_EQ(TextOf(kHdmiText), "Embedded Audio Volume ( " + std::to_string(second) + " )");
          EXPECT_EQ(CallsOf(kApplyButton), Writes(identity, held));
        };
        Read(identity, held);
        expectShown();
        const auto press = [&](int button, int Held::*field, int step) {
          EXPECT_EQ(CallsOnPage(kPage, button), Calls{});
          held.*field = std::clamp(held.*field + step, 0, 100);
          expectShown();
        };
        press(kSofter, &Held::volume, 1);
        press(kHdmiSofter, &Held::volume2, 1);
        press(kLouder, &Held::volume, -1);
        press(kLouder, &Held::volume, -1);
        press(kHdmiLouder, &Held::volume2, -1);
        press(kHdmiLouder, &Held::volume2, -1);
        ASSERT_FALSE(HasFailure()) << raw;
      }
    }
  }
}

std::string Decibels(double value) {
  const int half = static_cast<int>(std::lround(std::fabs(value) * 2));
  return std::to_string(half / 2) + (half % 2 == 0 ? ".0" : ".5");
}

TEST_F(AudioModels, EveryOutputLevelIsShownSteppedAndSent) {
  for (const int type : {24, 34}) {
    for (const int brand : {0, 2}) {
      const Identity identity = Box(type, brand);
      SCOPED_TRACE(Named(identity));
      OpenAs(identity);
      for (const int raw : {0, 1, 2, 60, 61, 62, 63, 64, 110, 111, 112}) {
        Held held;
        held.level = raw;
        const auto expectShown = [&] {
          const double level = (held.level - 62) / 2.0;
          const std::string sign = level < 0 ? "-" : "+";
          EXPECT_EQ(TextOf(kVolumeText),
                    " Analog L/R Audio Output Level ( " + sign + " " + Decibels(level) + " )");
          EXPECT_EQ(TextOf(kLevelText), " " + sign + Decibels(level));
          EXPECT_EQ(TextOf(kRuler), "|_____|_____|_____|_____|_____|__|");
          EXPECT_EQ(desk.ProgressRange(kPage, kVolumeBar), std::make_pair(0, 112));
          EXPECT_EQ(desk.ProgressPosition(kPage, kVolumeBar), held.level);
          EXPECT_EQ(CallsOf(kApplyButton), Writes(identity, held));
        };
        Read(identity, held);
        expectShown();
        const auto press = [&](int button, int step) {
          EXPECT_EQ(CallsOnPage(kPage, button), Calls{});
          held.level = std::clamp(held.level + step, 0, 112);
          expectShown();
        };
        press(kSofter, -1);
        press(kLouder, 1);
        press(kLouder, 1);
        for (const int button : {kHdmiSofter, kHdmiLouder}) {  // belong to other types
          EXPECT_EQ(CallsOnPage(kPage, button), Calls{});
        }
        expectShown();
        ASSERT_FALSE(HasFailure()) << raw;
      }
    }
  }
}

// Source 1 turns the first volume, source 2 the second; with brand 2 the first is an input level.
TEST_F(AudioModels, EveryInputVolumeIsShownSteppedAndSentAtOnce) {
  for (const int type : {25, 29}) {
    for (const int brand : {0, 1, 2, 3}) {
      const Identity identity = Box(type, brand);
      OpenAs(identity);
      for (const int source : {0, 1, 2}) {
        const bool isLevel = brand == 2 && source != 2;
        const int last = isLevel ? 80 : 100;
        for (const int raw : {0, 1, 2, 18, 19, 20, 21, 22, 75, 76, 77, 78, 79, 80, 99, 100}) {
          if (raw > last) break;
          SCOPED_TRACE(Named(identity) + " source " + std::to_string(source) + " raw " +
                       std::to_string(raw));
          Held held;
          held.source = source;
          int Held::*const field = source == 2 ? &Held::volume2 : &Held::volume;
          held.volume = 55;
          held.volume2 = 66;
          held.*field = raw;
          const auto expectShown = [&] {
            const int value = held.*field;
            if (!isLevel) {
              EXPECT_EQ(desk.ProgressRange(kPage, kVolumeBar), std::make_pair(0, 100));
              EXPECT_EQ(desk.ProgressPosition(kPage, kVolumeBar), value);
              EXPECT_EQ(TextOf(kVolumeText), "Audio Volume ( " + std::to_string(value) + " )");
              EXPECT_EQ(TextOf(kLevelText), "");
              return;
            }
            const double level = (20 - value) / 2.0;
            const std::string sign = level < 0 ? "-" : "+";
            EXPECT_EQ(TextOf(kVolumeText), (value == 20 ? " " : "") +
                                               ("Analog L/R Audio Input Level ( " + sign) + " " +
                                               Decibels(level) + " )");
            EXPECT_EQ(TextOf(kLevelText), sign + Decibels(level));
            EXPECT_EQ(TextOf(kRuler), "  |______|_______|_______|_______|");
            EXPECT_EQ(desk.ProgressRange(kPage, kVolumeBar), std::make_pair(0, 80));
            EXPECT_EQ(desk.ProgressPosition(kPage, kVolumeBar), 80 - value);
          };
          Read(identity, held);
          expectShown();
          const auto press = [&](int button, int step) {
            const Calls sent = CallsOnPage(kPage, button);
            const int top = isLevel ? 77 : 100;
            if (source != 0) {  // a level beyond the end comes back to it when it is turned further
              held.*field =
                  step > 0 ? std::min(held.*field + 1, top) : std::max(held.*field - 1, 0);
            }
            EXPECT_EQ(sent, Calls{SetBlock(19, {held.volume, held.volume2})});
            expectShown();
          };
          press(kSofter, isLevel ? 1 : -1);
          press(kLouder, isLevel ? -1 : 1);
          press(kLouder, isLevel ? -1 : 1);
          // Apply has no volume to send: it went out with the press.
          EXPECT_EQ(CallsOf(kApplyButton), Writes(identity, held));
          ASSERT_FALSE(HasFailure());
        }
      }
    }
  }
}

TEST_F(AudioModels, EveryEntryOfTheLevelComboIsSentAtOnce) {
  struct Entry {
    const char* text;
    int raw;
  };
  const Entry outputs[] = {{" +24.0", 110}, {" +20.0", 102}, {" +10.0", 82}, {" +4.0", 70},
                           {" +0.0", 62},   {" -10.0", 42},  {" -20.0", 22}, {" -30.0", 2}};
  const Entry inputs[] = {{" +10.0", 0}, {" +6.0", 8},   {" +4.0", 12},  {" +0.0", 20},
                          {" -6.0", 32}, {" -10.0", 40}, {" -20.0", 60}, {" -28.5", 77}};
  for (const int type : {24, 34, 25, 29}) {
    const bool output = type == 24 || type == 34;
    SCOPED_TRACE(type);
    const Identity identity = Box(type, 2);
    StartAs(identity);
    for (const int property : {19, 44}) box.Block(static_cast<std::uint8_t>(property)).clear();
    Press(kAudioButton);
    // No volume was read: the scale stands there as it was filled.
    EXPECT_EQ(TextOf(kScale),
              output ? "   -30     -20       -10        0       +10     +20+24 [dBu]"
                     : "   -28         -20           -10             0           +10 [dBV]");
    EXPECT_EQ(TextOf(kRuler),
              output ? "|_____|_____|_____|_____|_____|__|" : "|______|_______|_______|_______|");
    Held held;
    held.source = 1;
    held.volume2 = 9;
    Read(identity, held);
    for (int i = 0; i < 8; ++i) {
      const Entry& entry = output ? outputs[i] : inputs[i];
      ASSERT_EQ(desk.Items(kPage, kCombo).at(static_cast<std::size_t>(i)), entry.text);
      TakeCalls();
      desk.Choose(kPage, kCombo, i);
      EXPECT_EQ(TakeCalls(),
                Calls{output ? SetBlock(44, {entry.raw, 0}) : SetBlock(19, {entry.raw, 9})});
      EXPECT_EQ(desk.ProgressRange(kPage, kVolumeBar), std::make_pair(0, output ? 112 : 80));
      EXPECT_EQ(desk.ProgressPosition(kPage, kVolumeBar), output ? entry.raw : 80 - entry.raw);
      EXPECT_EQ((output ? "" : " ") + TextOf(kLevelText), entry.text);
    }
    TakeCalls();
    desk.Choose(kPage, kCombo, -1);  // none
    EXPECT_EQ(TakeCalls(), Calls{});
    EXPECT_EQ(desk.Items(kPage, kCombo).size(), 8U);
    Press(kAudioButton);  // filled anew, and not once more
    EXPECT_EQ(desk.Items(kPage, kCombo).size(), 8U);
  }
}

// What a type does not have is not moved by buttons that it does not show.
TEST_F(AudioModels, ButtonsOfOtherTypesTellTheBoxNothing) {
  for (const int type : kTypes) {
    const Identity identity = Box(type);
    const Volume volume = VolumeOf(type);
    OpenAs(identity);
    Held held;
    held.source = 1;
    held.input = 1;
    Read(identity, held);
    const Calls before = CallsOf(kApplyButton);
    for (const Group& group : {kStandard, kXlrLevel, kImpedance, kChannel}) {
      if (!ExpectedPlaces(identity).contains(group.next)) {
        EXPECT_EQ(CallsOnPage(kPage, group.next), Calls{}) << group.next;
      }
    }
    for (const int button : {kSofter, kLouder, kHdmiSofter, kHdmiLouder}) {
      if (volume != Volume::kNone) continue;
      EXPECT_EQ(CallsOnPage(kPage, button), Calls{}) << button;
    }
    EXPECT_EQ(CallsOf(kApplyButton), before) << Named(identity);
  }
}

// Each read on its own: the others are shown all the same, and what was read before is sent back.
TEST_F(AudioModels, OneFailedReadKeepsItsValueAlone) {
  for (const int type : {26, 50, 14, 36, 18, 24, 25, 29, 46, 52, 13, 21}) {
    const Identity identity = Box(type);
    OpenAs(identity);
    Held first;
    first.input = 1;
    first.source = 1;
    first.option32 = type == 14 ? 0 : 2;
    first.volume = 10;
    first.volume2 = 20;
    first.level = 30;
    Held second = {1, 4, 0, 1, 1, type == 14 ? 1 : 3, 40, 50, 60};
    if (!TakesWords(type)) second.input = 0;
    struct Row {
      std::string call;
      std::vector<int Held::*> kept;
    };
    Row rows[] = {{GetBlock(6), {&Held::mute}},
                  {GetBlock(3), {&Held::input}},
                  {GetBlock(SourceBlock(type)), {&Held::source}},
                  {GetBlock(7), {&Held::xlrLevel}},
                  {GetBlock(32), {&Held::option32}},
                  {GetBlock(11), {&Held::volume, &Held::volume2}},
                  {GetBlock(44), {&Held::level}},
                  {GetBlock(19, 3), {&Held::volume, &Held::volume2}},
                  {GetWord(11), {&Held::mute}},
                  {GetWord(4), {&Held::input}},
                  {GetWord(6), {&Held::source}},
                  {GetWord(16), {&Held::standard}}};
    for (const Row& row : rows) {
      SCOPED_TRACE(Named(identity) + " " + row.call);
      Read(identity, first);
      device.FillAndAnswer(row.call, 2);  // filled, and no success
      Read(identity, second);
      device.FailNothing();
      Held expected = second;
      const Calls reads = Reads(identity);
      if (std::find(reads.begin(), reads.end(), row.call) == reads.end()) continue;
      for (int Held::*field : row.kept) expected.*field = first.*field;
      EXPECT_EQ(CallsOf(kApplyButton), Writes(identity, expected));
      if (HasPart(identity, 'm')) {
        EXPECT_EQ(TextOf(kMute), expected.mute == 1 ? "ON" : "OFF");
      }
      // The text of a source that was not read stays, whatever the input is now.
      const bool sourceRead = row.kept.front() != &Held::source;
      const int input = sourceRead ? expected.input : first.input;
      if (const auto source = SourceOf(type, input, expected.source)) {
        EXPECT_EQ(TextOf(kSource), source->text);
      }
    }
  }
}

// A box that answers another handle is asked by the old one until the page is opened again.
TEST_F(AudioModels, HandleIsThatOfTheOpening) {
  OpenAs(Box(26));
  device.AnswerHandle(0x1234);
  for (int i = 0; i < 6; ++i) Tick();
  ReportWord(11, 1);
  Reread();
  EXPECT_EQ(TextOf(kMute), "OFF");
  Press(kAudioButton);
  EXPECT_EQ(TextOf(kMute), "ON");
}

// What was never read is sent as it was at the start.
TEST_F(AudioModels, FirstValuesOfEveryType) {
  for (const int type : kTypes) {
    const Identity identity = Box(type);
    StartAs(identity);
    device.FailEverything();
    Press(kAudioButton);
    device.FailNothing();
    Held first;
    first.level = 62;  // 0 dB
    EXPECT_EQ(CallsOf(kApplyButton), Writes(identity, first)) << type;
  }
}

TEST_F(AudioModels, WithoutBoxNothingIsShownOrAsked) {
  box.SetPresent(false);
  Start();
  EXPECT_EQ(ShownOn(kPage), Places{});
  EXPECT_EQ(CallsOf(kAudioButton), Calls{});
  EXPECT_EQ(ShownOn(kPage), Places{});
}

// The page is set up anew whenever it is opened.
TEST_F(AudioModels, OpeningTakesTheHandleAndTheFirstTextsAgain) {
  OpenAs(Box(26));
  ASSERT_EQ(TextOf(kMute), "OFF");
  device.AnswerHandle(0x1234);
  Press(kReturnButton);
  for (int i = 0; i < 6; ++i) Tick();  // takes the new handle
  ReportWord(11, 9);
  Press(kAudioButton);
  EXPECT_EQ(TextOf(kMute), "ON");  // the first text: 9 has no row
  ReportWord(11, 0);
  Reread();
  EXPECT_EQ(TextOf(kMute), "OFF");
}

}  // namespace
}  // namespace panelora::testing
