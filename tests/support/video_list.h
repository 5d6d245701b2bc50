// The Video settings page of every box type as lists of their own: what each sub-page shows where,
// what the box can report of each setting, and where it keeps it.
#pragma once

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "tests/support/model_walk.h"
#include "tests/support/one_page.h"
#include "tests/support/video_settings_controls.h"

namespace panelora::testing::video_list {

struct Option {
  int index;
  const char* text;
  int value;
};
using Options = std::vector<Option>;

inline const Options kFormats = {
    {1, "1920x1080 60.00p", 15},  {2, "1920x1080 59.94p", 16},  {3, "1920x1080 50.00p", 17},
    {4, "1920x1080 30.00p", 18},  {5, "1920x1080 29.97p", 19},  {6, "1920x1080 25.00p", 20},
    {7, "1920x1080 24.00p", 21},  {8, "1920x1080 23.98p", 22},  {9, "1920x1080 60.00i", 12},
    {10, "1920x1080 59.94i", 13}, {11, "1920x1080 50.00i", 14}, {12, "1280x720 60.00p", 6},
    {13, "1280x720 59.94p", 7},   {14, "1280x720 50.00p", 8},   {15, "720x480 60.00p", 3},
    {16, "720x480 59.94p", 4},    {17, "720x576 50.00p", 5},    {18, "720x480 59.94i", 1},
    {19, "720x576 50.00i", 2}};

inline Options InputsOf(int type) {
  switch (type) {
    case 26:
    case 50:
      return {{0, "VGA", 2}, {1, "HDMI", 1}, {2, "SDI", 4}};
    case 24:
    case 34:
      return {{0, "SDI", 0}, {1, "HDMI", 1}};
    case 48:
    case 49:
      return {{0, "SDI 1", 0}, {1, "SDI 2", 1}};
    case 27:
      return {{0, "CH 1", 0}, {1, "CH 2", 1}};
    case 25:
    case 29:
      return {{0, "DVI-D (HDMI)", 1},
              {1, "DVI-A (VGA)", 2},
              {2, "Component (YPbPr)", 3},
              {3, "Composite (CVBS)", 4},
              {4, "S-Video (YC)", 5}};
    case 23:
    case 42:
      return {{0, "HDMI", 0}, {1, "DVI-D", 1}, {2, "DVI-A", 2},  {3, "YPbPr", 3},
              {4, "SDI", 4},  {5, "CVBS", 5},  {6, "S-VIDEO", 6}};
    default:
      return {};
  }
}
inline int LastInput(int type) {
  if (type == 26 || type == 50) return 2;
  if (type == 23 || type == 42) return 6;
  return type == 25 || type == 29 ? 4 : 1;
}

inline Options AspectsOf(int type) {
  if (type == 26 || type == 50) {
    return {{0, "Keep Aspect Ratio", 0},
            {1, "Full Screen (16:9)", 1},
            {2, "Dot By Dot", 2},
            {3, "4 : 3", 3},
            {4, "14 : 9", 4},
            {5, "UnderScan", 5},
            {6, "Pan Scan 16 : 9", 6}};
  }
  Options options = {{0, "16 : 9", 0},
                     {1, "4 : 3", 1},
                     {2, "Dot By Dot", 2},
                     {3, "Keep Aspect Ratio", 3},
                     {4, "Full Screen", 4}};
  if (Has({24, 34}, type)) {
    options[3] = {3, "UnderScan", 3};
    options[4] = {4, "Keep Aspect Ratio", 4};
    options.push_back({5, "Full Screen", 5});
  }
  if (Has({25, 29}, type)) {
    options.push_back({5, "14 : 9", 5});
    options.push_back({6, "UnderScan", 6});
    options.push_back({7, "Pan Scan 16 : 9", 7});
  }
  return options;
}
inline int LastAspect(const Identity& box, std::uint32_t firmware) {
  const int type = box.boxType;
  const int brand = box.brandCode;
  if (type == 26) return firmware < 278 ? 5 : 6;
  if (type == 50) return 6;
  if (Has({23, 42, 30, 43}, type)) return 3;
  if (Has({21, 46, 47, 48, 49, 39, 40, 37, 38}, type)) return 4;
  if (Has({20, 33}, type) && brand == 2 && firmware >= 290) return 4;
  if (Has({18, 32}, type) && brand == 2 && firmware >= 294) return 4;
  if (Has({24, 34}, type)) return box.inputDipFlag == 1 && brand != 2 ? 3 : 5;
  if (Has({25, 29}, type) && brand == 0 && firmware >= 265) return 7;
  if (type == 29 && brand == 2) return 7;
  if (type == 29 && brand == 1 && box.outputDipFlag == 1) return 7;
  return 2;
}

inline bool PassesThrough(int type) { return Has({24, 34, 30, 43, 20, 33}, type); }
inline bool HasPhase(int type) { return Has({23, 42, 25, 29}, type); }

// A setting that is read, stepped and written: word item (26) or block.
struct Setting {
  Group group;
  int address;
  Options options;
  bool readsIndex;  // of what is read, the index of the row and not its value
  int last;
  int first = 0;
  bool isWord = false;
};

using Settings = std::vector<Setting>;

inline const Options kOffOn = {{0, "Disable", 0}, {1, "Enable", 1}};
inline const Options kColours = {{0, "RGB444", 0}, {1, "YUV444", 1}, {2, "YUV422", 3}};
inline const Options kSdiEqs = {
    {0, "DISABLE", 0}, {1, "SMALL", 1}, {2, "MEDIUM", 2}, {3, "LARGE", 3}};
inline const Options kEdges = {{0, "Disable", 0}, {1, "Min", 1}, {2, "Mid", 2}, {3, "Max", 3}};

inline const Setting kHdmiModeSetting = {kHdmiMode, 42, {{1, "HDMI", 1}, {0, "DVI", 0}}, true, 1};
inline const Setting kColourSetting = {kColour, 7, kColours, false, 2};
inline const Setting kSdiColourSetting = {kSdiColour, 40, kColours, false, 2};
inline const Setting kEdgeSetting = {kEdge, 25, kEdges, true, 3};
inline const Setting kUpFilterSetting = {kUpFilter, 29, kOffOn, true, 1};
inline const Setting kReclockSetting = {kReclock, 49, kOffOn, true, 1};
inline const Setting kSdiTypeSetting = {
    kSdiType, 30, {{0, "SD", 1}, {1, "HD", 4}, {2, "3GA", 9}, {3, "3GB", 10}}, false, 3};
inline const Setting kMirrorSetting = {
    kMirror,
    45,
    {{0, "Disable", 0}, {1, "Hor.", 1}, {2, "Ver.", 2}, {3, "Hor. + Ver.", 3}},
    true,
    3};
inline const Setting kSecondLevelSetting = {
    kSecondLevel, 33, {{1, "Full Range", 1}, {0, "Limit Range", 0}}, true, 1};

inline Setting AspectOf(const Identity& box, std::uint32_t firmware) {
  const int type = box.boxType;
  Setting aspect = {kAspect, 15, AspectsOf(type), true, LastAspect(box, firmware)};
  if (Has({14, 36, 37, 38, 39, 40, 46, 47, 48, 49, 51}, type)) aspect.address = 20;
  if (Has({21, 26, 30, 43}, type)) aspect.address = 7;
  if (Has({24, 34}, type) && box.brandCode != 2) aspect.address = 11;
  aspect.isWord = aspect.address == 7 || aspect.address == 11;
  return aspect;
}

// Of the types other than 26.
inline Settings FirstSubPage(const Identity& box, std::uint32_t firmware) {
  const int type = box.boxType;
  Settings settings;
  if (!InputsOf(type).empty())
    settings.push_back({kInput, 3, InputsOf(type), false, LastInput(type)});
  const bool locks = Has({39, 40, 46, 47, 48, 49, 50}, type);
  settings.push_back({kFormat, locks ? 5 : 4, kFormats, false, 19, 1});
  if (type == 21) {
    settings.back().address = 2;
    settings.back().isWord = true;
  }
  if (Has({25, 29}, type)) {
    settings.push_back({kOutputSource, 5, {{0, "VGA + HDMI", 0}}, false, 0});
  }
  if (Has({23, 42}, type)) settings.push_back({kMode, 5, {{0, "AV", 0}}, true, 0});
  if (Has({24, 34}, type)) settings.push_back({kLed, 22, {{0, "OFF", 0}, {1, "ON", 1}}, true, 1});
  settings.push_back(AspectOf(box, firmware));
  return settings;
}

inline Settings SecondSubPage(int type) {
  const Options external = {{0, "Free-Run", 0}, {1, "External", 1}};
  const Options inputs = {{0, "Free-Run", 0}, {1, "SDI-In", 1}, {2, "Ref-In", 2}};
  const Options ire = {{0, "0   IRE", 0}, {1, "7.5 IRE", 1}};
  const Options otherIre = {{0, "7.5 IRE", 0}, {1, "0   IRE", 1}};
  switch (type) {
    case 24:
    case 34:
      return {{kSdi0, 5, kSdiEqs, true, 3},
              {kSdi1, 13, kSdiEqs, true, 3},
              {kGpi, 50, {{0, "Pulse", 0}, {1, "Level", 1}}, true, 1}};
    case 30:
    case 43:
      return {{kGenlock, 15, external, true, 1}, kSdiTypeSetting, kReclockSetting};
    case 20:
    case 33:
      return {{kGenlock, 19, inputs, true, 1}, kSdiColourSetting, kMirrorSetting};
    case 23:
    case 42:
      return {{kIre, 20, ire, true, 1}, kHdmiModeSetting, kColourSetting};
    case 25:
    case 29:
      return {{kIre, 20, otherIre, true, 1}, kEdgeSetting, kUpFilterSetting};
    case 37:
    case 38:
      return {kHdmiModeSetting, kColourSetting, kSecondLevelSetting};
    case 39:
    case 40:
    case 46:
    case 47:
    case 48:
    case 49:
      return {kHdmiModeSetting, kColourSetting, kSdiColourSetting};
    case 50:
      return {kHdmiModeSetting, kColourSetting, kMirrorSetting};
    case 14:
    case 36:
    case 51:
      return {kUpFilterSetting, kSdiTypeSetting, kReclockSetting};
    default:
      return {kEdgeSetting, kUpFilterSetting, kReclockSetting};
  }
}

inline bool HasThree(const Identity& box) {
  return box.brandCode == 2 ? Has({24, 34}, box.boxType) : Has({37, 38}, box.boxType);
}

inline Settings ThirdSubPage(const Identity& box) {
  if (!HasThree(box)) return {};
  if (box.brandCode == 2) {
    return {kSdiTypeSetting, kSdiColourSetting, kMirrorSetting, kReclockSetting};
  }
  return {kUpFilterSetting, kSdiTypeSetting, kMirrorSetting, kReclockSetting};
}

// In the order in which they are read and written.
inline Settings SettingsOf(const Identity& box, std::uint32_t firmware, int subPage) {
  const int type = box.boxType;
  if (type != 26) {
    if (subPage == 0) return FirstSubPage(box, firmware);
    return subPage == 1 ? SecondSubPage(type) : ThirdSubPage(box);
  }
  Settings settings;
  if (subPage == 0) {
    settings = {{kInput, 4, InputsOf(type), false, 2},
                {kFormat, 2, kFormats, false, 19, 1},
                AspectOf(box, firmware),
                {kEq, 12, {{2, "LOW", 2}, {0, "MIDDLE", 0}, {1, "HIGH", 1}}, true, 2}};
  } else {
    settings = {{kColour, 10, kColours, false, 2},
                {kLevel, 15, {{0, "Limit Range", 0}, {1, "Full Range", 1}}, true, 1}};
    if (firmware >= 278) settings.push_back({kEdge, 19, kEdges, true, 3});
  }
  for (Setting& setting : settings) setting.isWord = true;
  return settings;
}

inline const Option* At(const Options& options, int index) {
  for (const Option& option : options) {
    if (option.index == index) return &option;
  }
  return nullptr;
}

// What is selected after a read.
inline int Selected(const Setting& setting, int read) {
  if (setting.readsIndex) return read;
  for (const Option& option : setting.options) {
    if (option.value == read) return option.index;
  }
  return 255;
}

inline bool HasFreeze(int type) { return !Has({13, 15, 20, 30, 33, 43}, type); }

// Of the types other than 26; `phase`: the analogue input is selected.
inline Places ExpectedPlaces(const Identity& box, int subPage, bool phase) {
  const int type = box.boxType;
  const Settings settings = SettingsOf(box, 0x0126, subPage);
  Places places;
  const bool freeze = subPage == 1 && HasFreeze(type);
  const bool tight = subPage == 0 || freeze || settings.size() > 3;
  int top = tight ? 15 : 35;
  const auto place = [&](const Setting& setting) {
    PlaceFour(places, setting.group, {50, top}, 360);
    if (setting.group.next == kFormat.next) {
      places[kFormat.value] = {60, top + 30, 260, 30};
      places[kFormatBack] = {360, top + 23, 40, 39};
      places[kFormat.next] = {410, top + 23, 40, 39};
    }
    top += tight ? 70 : 80;
  };
  for (const Setting& setting : settings) {
    if (!Has({kFormat.next, kOutputSource.next}, setting.group.next)) place(setting);
  }
  for (const Group& last : {kOutputSource, kFormat}) {
    for (const Setting& setting : settings) {
      if (setting.group.next == last.next) place(setting);
    }
  }
  if (freeze) places[kFreeze] = {50, 255, 300, 40};
  if (subPage == 0 && phase && HasPhase(type)) places[kAutoPhase] = {410, 38, 70, 39};
  return places;
}

inline std::string GetOf(const Setting& setting) {
  return setting.isWord ? GetWord(setting.address) : GetBlock(setting.address);
}
inline std::string SetOf(const Setting& setting, int value) {
  return setting.isWord ? SetWord(setting.address, value) : SetBlock(setting.address, {value});
}

class VideoListed : public OnePage<kPage, ModelWalk> {
 protected:
  void OpenAs(const Identity& identity, std::uint32_t firmware = 0x0126, int subPage = 0) {
    StartAs(identity, firmware);
    panel->OpenPage(PageCode::kVideoSettings);
    for (int i = 0; i < subPage; ++i) Press(kPageUpButton);
    TakeCalls();
  }
  void ReportTo(const Setting& setting, int value) {
    if (setting.isWord) {
      ReportWord(setting.address, value);
    } else {
      Report(setting.address, {static_cast<std::uint8_t>(value), 0x77});
    }
  }
  // Whether they are those of the first sub-page, where the pass-through goes with them.
  static bool IsFirst(const Settings& settings) {
    return std::any_of(settings.begin(), settings.end(),
                       [](const Setting& each) { return each.group.next == kFormat.next; });
  }
  static Calls Reads(const Identity& identity, const Settings& settings) {
    Calls calls;
    for (const Setting& setting : settings) {
      calls.push_back(GetOf(setting));
    }
    if (PassesThrough(identity.boxType) && IsFirst(settings)) calls.push_back(GetBlock(8));
    return calls;
  }
  static Calls Writes(const Identity& identity, const Settings& settings,
                      const std::vector<int>& selected) {
    Calls calls;
    for (std::size_t i = 0; i < settings.size(); ++i) {
      const Option* option = At(settings[i].options, selected[i]);
      if (option == nullptr) continue;
      calls.push_back(SetOf(settings[i], option->value));
    }
    if (PassesThrough(identity.boxType) && IsFirst(settings)) calls.push_back(SetBlock(8, {0}));
    return calls;
  }
};

inline std::vector<int> UpTo(int last) {
  std::vector<int> values;
  for (int value = 0; value <= last; ++value) values.push_back(value);
  values.push_back(254);
  values.push_back(255);
  return values;
}

}  // namespace panelora::testing::video_list
