// The Audio page of every box type: a list of its own of what is shown where, which sources there
// are, and what is read and written.
#pragma once

#include <algorithm>
#include <optional>

#include "tests/support/audio_controls.h"
#include "tests/support/model_walk.h"
#include "tests/support/one_page.h"

namespace panelora::testing::audio_models {

// One letter a part: m mute, s source, t standard, x XLR level, i XLR impedance, c output channel,
// v volume, b volume with the level combo below it, h HDMI volume.
struct Column {
  std::initializer_list<int> types;
  const char* parts;
  const char* partsOfBrand2;
};
inline const Column kColumns[] = {
    {{26, 50}, "mst", "mst"},
    {{29}, "csmv", "csb"},
    {{25}, "smv", "sb"},
    {{18, 32}, "csm", "csm"},
    {{24, 34}, "xsmv", "xsb"},
    {{14}, "xis", "xis"},
    {{36}, "xsm", "xsm"},
    {{46, 47, 48, 49, 52}, "svh", "svh"},
    {{51}, "s", "s"},
    {{13, 15, 17, 20, 21, 23, 30, 33, 35, 37, 38, 39, 40, 42, 43}, "sm", "sm"},
};

inline std::string PartsOf(const Identity& box) {
  for (const Column& column : kColumns) {
    if (Has(column.types, box.boxType)) {
      return box.brandCode == 2 ? column.partsOfBrand2 : column.parts;
    }
  }
  return "m";
}
inline bool HasPart(const Identity& box, char part) {
  return PartsOf(box).find(part) != std::string::npos;
}
inline bool TakesWords(int type) { return type == 26 || type == 50; }

// Where a value is kept: word item or block property; -1 = nowhere.
struct Place {
  bool isWord;
  int number;

  std::string Get() const { return isWord ? GetWord(number) : GetBlock(number); }
  std::string Set(int value) const {
    return isWord ? SetWord(number, value) : SetBlock(number, {value});
  }
};
inline constexpr Place W(int item) { return {true, item}; }
inline constexpr Place B(int property) { return {false, property}; }
inline constexpr Place kNowhere = {false, -1};

inline Place MuteOf(int type) {
  if (Has({26, 50, 13, 15, 18, 32, 23, 42}, type)) return W(11);
  if (Has({17, 35}, type)) return W(17);
  if (Has({20, 33, 30, 43}, type)) return W(5);
  if (Has({24, 34}, type)) return W(7);
  if (type == 36) return W(3);
  if (type == 21) return W(24);
  return type == 51 ? kNowhere : B(6);
}
inline Place SourceOf(int type) {
  if (Has({26, 50, 20, 33}, type)) return W(6);
  if (Has({18, 32}, type)) return W(7);
  if (Has({13, 15, 23, 42}, type)) return W(16);
  if (Has({17, 35}, type)) return B(3);
  if (Has({14, 36}, type)) return B(9);
  if (type == 21) return B(38);
  return B(10);
}
// Type 21 is told elsewhere.
inline Place ToldMuteOf(int type) { return type == 21 ? B(1) : MuteOf(type); }
inline Place ToldSourceOf(int type) { return type == 21 ? B(4) : SourceOf(type); }
// The video input on which the sources hang.
inline Place InputOf(int type) {
  if (TakesWords(type)) return W(4);
  return type == 24 || type == 34 ? B(3) : kNowhere;
}
// These tell first whether they have a source and a volume.
inline bool TellsWhatItHas(int type) { return Has({37, 38, 52}, type); }

enum class Volume { kNone, kAttenuation, kInput, kOutput };
inline Volume VolumeOf(int type) {
  if (Has({46, 47, 48, 49, 52}, type)) return Volume::kAttenuation;
  if (type == 25 || type == 29) return Volume::kInput;
  if (type == 24 || type == 34) return Volume::kOutput;
  return Volume::kNone;
}

inline Places ExpectedPlaces(const Identity& box) {
  const std::string parts = PartsOf(box);
  const bool tight = parts.find_first_of("vb") != std::string::npos;
  Places places;
  int top = tight ? 5 : 35;
  for (const char part : parts) {
    switch (part) {
      case 'm':
        PlaceFour(places, kMute, {50, top}, 370);
        break;
      case 's':
        PlaceFour(places, kSource, {50, top}, 370);
        break;
      case 't':
        PlaceFour(places, kStandard, {50, top}, 370);
        break;
      case 'x':
        PlaceFour(places, kXlrLevel, {50, top}, 370);
        break;
      case 'i':
        PlaceFour(places, kImpedance, {50, top}, 370);
        break;
      case 'c':
        PlaceFour(places, kChannel, {50, top}, 370);
        break;
      case 'h':
        places[kHdmiText] = {50, top, 330, 20};
        places[kHdmiFrame] = {50, top + 15, 300, 48};
        places[kHdmiBar] = {60, top + 33, 280, 16};
        places[kHdmiSofter] = {370, top + 23, 40, 39};
        places[kHdmiLouder] = {415, top + 23, 40, 39};
        break;
      default:
        places[kVolumeText] = {50, top, 330, 20};
        places[kVolumeFrame] = {50, top + 15, 300, 48};
        places[kVolumeBar] = {60, top + 33, 230, 16};
        if (VolumeOf(box.boxType) != Volume::kAttenuation) {
          places[kLevelText] = {295, top + 31, 50, 20};
        }
        places[kSofter] = {370, top + 23, 40, 39};
        places[kLouder] = {415, top + 23, 40, 39};
        if (part == 'v') break;
        places[kScale] = {50, top + 68, 370, 20};
        places[kRuler] = {65, top + 88, 355, 20};
        places[kComboCaption] = {50, top + 118, 100, 20};
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
inline const SourceList kSources[] = {
    {{26, 50}, 2, {{"L/R Audio"}, {"Internal (Mute)"}, {"SDI", 3}}},
    {{26, 50}, 1, {{"L/R Audio"}, {"Internal (HDMI)"}, {"SDI", 3}}},
    {{26, 50}, 4, {{"L/R Audio"}, {"Internal (SDI)"}, {"HDMI"}}},
    {{24, 34}, 0, {{"Default ( SDI )"}, {"L/R Audio"}, {"XLR Audio"}}},
    {{24, 34}, 1, {{"Default ( HDMI )"}, {"L/R Audio"}, {"XLR Audio"}}},
    // Of another input the scalers have no default, which is index 0.
    {{24, 34}, -1, {{nullptr}, {"L/R Audio"}, {"XLR Audio"}}},
    {{25, 29}, -1, {{"Default"}, {"L/R Audio"}, {"Embedded Audio"}}},
    {{37, 38, 39, 40, 46, 47, 48, 49, 52}, -1, {{"Embedded Audio"}, {"L/R Audio"}, {"Mix Audio"}}},
    {{14, 36}, -1, {{"Internal"}, {"XLR Audio"}, {"AES-3"}}},
    {{13, 15}, -1, {{"Channel 1"}, {"Channel 2"}, {"Channel 3"}, {"Channel 4"}}},
    {{51}, -1, {{"Line In 1"}, {"Line In 2"}, {"Line In 3"}, {"Line In 4"}}},
    {{23, 42}, -1, {{"Internal( HDMI )"}, {"SPDIF"}, {"MicroPhone"}}},
    {{30, 43}, -1, {{"Embedded( SDI )"}, {"Analog L/R Audio"}, {"Mix ( SDI + L/R )"}}},
    {{20, 33}, -1, {{"L(Aud) + R( Dig )"}, {"R(Aud) + L( Dig )"}}},
    {{17, 21, 35}, -1, {{"SDI"}, {"HDMI"}}},
    {{18, 32}, -1, {{"Nono"}, {"LAnalog L/R Audio"}, {"L/R Ear Phone"}}},
};

inline std::vector<SourceRow> SourcesOf(int type, int input) {
  for (const SourceList& list : kSources) {
    if (!Has(list.types, type)) continue;
    if (list.input == input || list.input == -1) return list.rows;
  }
  return {};
}
inline std::optional<SourceRow> SourceOf(int type, int input, int index) {
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

class AudioModels : public OnePage<kPage, ModelWalk> {
 protected:
  void OpenAs(const Identity& identity) {
    StartAs(identity);
    Press(kAudioButton);
    TakeCalls();
  }
  void Hold(const Identity& identity, const Held& held) {
    const auto report = [&](const Place& place, int value) {
      if (place.number < 0) return;
      if (place.isWord) {
        ReportWord(place.number, value);
      } else {
        Report(place.number, {static_cast<std::uint8_t>(value), 0x77});
      }
    };
    const int type = identity.boxType;
    report(MuteOf(type), held.mute);
    report(InputOf(type), held.input);
    if (HasPart(identity, 's')) report(SourceOf(type), held.source);
    if (HasPart(identity, 't')) report(W(16), held.standard);
    if (HasPart(identity, 'x')) report(B(7), held.xlrLevel);
    if (HasPart(identity, 'i') || HasPart(identity, 'c')) report(B(32), held.option32);
    const Bytes volumes = {static_cast<std::uint8_t>(held.volume),
                           static_cast<std::uint8_t>(held.volume2), 0x77};
    if (VolumeOf(identity.boxType) == Volume::kAttenuation) Report(11, volumes);
    if (VolumeOf(identity.boxType) == Volume::kInput) Report(19, volumes);
    if (VolumeOf(identity.boxType) == Volume::kOutput) report(B(44), held.level);
  }
  // The box holds this and the page has read it.
  void Read(const Identity& identity, const Held& held) {
    Hold(identity, held);
    Reread();
    TakeCalls();
  }
  static Calls Reads(const Identity& box) {
    const int type = box.boxType;
    Calls calls;
    if (TellsWhatItHas(type)) calls.push_back(GetBlock(38));
    if (MuteOf(type).number >= 0) calls.push_back(MuteOf(type).Get());
    if (HasPart(box, 's')) {
      if (InputOf(type).number >= 0) calls.push_back(InputOf(type).Get());
      calls.push_back(SourceOf(type).Get());
    }
    if (HasPart(box, 't')) calls.push_back(GetWord(16));
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
    const int type = box.boxType;
    const std::optional<SourceRow> row = SourceOf(type, held.input, held.source);
    if (row && HasPart(box, 's')) calls.push_back(ToldSourceOf(type).Set(row->code));
    if (HasPart(box, 'm')) calls.push_back(ToldMuteOf(type).Set(held.mute));
    if (HasPart(box, 't')) calls.push_back(SetWord(16, held.standard));
    if (HasPart(box, 'x')) calls.push_back(SetBlock(7, {held.xlrLevel}));
    // A channel that has no name is not sent back.
    const bool named = held.option32 >= 2 && held.option32 <= 8 && held.option32 / 2 != 2;
    if (HasPart(box, 'i') || (HasPart(box, 'c') && named)) {
      calls.push_back(SetBlock(32, {held.option32}));
    }
    const Volume volume = VolumeOf(box.boxType);
    if (volume == Volume::kAttenuation) {
      calls.push_back(SetBlock(11, {held.volume, held.volume2}));
    }
    if (volume == Volume::kOutput) calls.push_back(SetBlock(44, {held.level, 0}));
    return calls;
  }
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
      ASSERT_EQ(CallsOfPress(group.next), Calls{});
      Held stepped = held;
      stepped.*field = value + 1 > last ? 0 : value + 1;
      if (texts.contains(stepped.*field)) shown = texts.at(stepped.*field);
      ASSERT_EQ(TextOf(group), shown);
      ASSERT_EQ(CallsOf(kApplyButton), Writes(identity, stepped));
    }
  }
};

}  // namespace panelora::testing::audio_models
