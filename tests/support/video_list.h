// The Video settings page of every box type as lists of their own: what each sub-page shows where,
// what the box can report of each setting, and where it keeps it.
#pragma once

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "tests/support/model_walk.h"

namespace panelora::testing::video_list {

inline constexpr int kPage = res::kVideoSettings;

inline constexpr Group kInput = {1020, 1017, 1019, 1018};
inline constexpr Group kAspect = {1031, 1024, 1025, 1026};
inline constexpr Group kFormat = {1032, 1027, 1028, 1029};
inline constexpr Group kOutputSource = {1043, 1042, 1044, 1045};
inline constexpr Group kColour = {1034, 1035, 1036, 1037};
inline constexpr Group kLevel = {1030, 1021, 1023, 1022};
inline constexpr Group kEq = {1046, 1047, 1048, 1049};
inline constexpr Group kEdge = {1083, 1116, 1084, 1085};
inline constexpr int kFormatBack = 1033;
inline constexpr int kAutoPhase = 1066;
inline constexpr int kFreeze = 1075;

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
  return {{0, "16 : 9", 0},
          {1, "4 : 3", 1},
          {2, "Dot By Dot", 2},
          {3, "Keep Aspect Ratio", 3},
          {4, "Full Screen", 4}};
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
};

using Settings = std::vector<Setting>;

// In the order in which they are read and written.
inline Settings SettingsOf(const Identity& box, std::uint32_t firmware, int subPage) {
  const int type = box.boxType;
  const Setting input = {kInput, type == 26 ? 4 : 3, InputsOf(type), false, LastInput(type)};
  const Setting format = {kFormat, type == 26 ? 2 : 4, kFormats, false, 19, 1};
  const Setting aspect = {kAspect, type == 26 ? 7 : 15, AspectsOf(type), true,
                          LastAspect(box, firmware)};
  if (type != 26) {
    if (subPage != 0) return {};
    return {input, format, {kOutputSource, 5, {{0, "VGA + HDMI", 0}}, false, 0}, aspect};
  }
  if (subPage == 0) {
    return {input,
            format,
            aspect,
            {kEq, 12, {{2, "LOW", 2}, {0, "MIDDLE", 0}, {1, "HIGH", 1}}, true, 2}};
  }
  Settings settings = {
      {kColour, 10, {{0, "RGB444", 0}, {1, "YUV444", 1}, {2, "YUV422", 3}}, false, 2},
      {kLevel, 15, {{0, "Limit Range", 0}, {1, "Full Range", 1}}, true, 1}};
  if (firmware >= 278) {
    settings.push_back(
        {kEdge, 19, {{0, "Disable", 0}, {1, "Min", 1}, {2, "Mid", 2}, {3, "Max", 3}}, true, 3});
  }
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

inline void PlaceFour(Places& places, const Group& group, int top) {
  places[group.label] = {50, top, 300, 20};
  places[group.frame] = {50, top + 15, 300, 48};
  places[group.value] = {60, top + 30, 250, 30};
  places[group.next] = {360, top + 23, 40, 39};
}

// Of the types other than 26; `phase`: the analogue input is selected.
inline Places ExpectedPlaces(int type, int subPage, bool phase) {
  Places places;
  if (subPage == 1) places[kFreeze] = {50, 35, 300, 40};
  if (subPage != 0) return places;
  PlaceFour(places, kInput, 15);
  PlaceFour(places, kAspect, 85);
  PlaceFour(places, kOutputSource, 155);
  PlaceFour(places, kFormat, 225);
  places[kFormat.value] = {60, 255, 260, 30};
  places[kFormatBack] = {360, 248, 40, 39};
  places[kFormat.next] = {410, 248, 40, 39};
  if (phase && HasPhase(type)) places[kAutoPhase] = {410, 38, 70, 39};
  return places;
}

class VideoListed : public ModelWalk {
 protected:
  void OpenAs(const Identity& identity, std::uint32_t firmware = 0x0126, int subPage = 0) {
    StartAs(identity, firmware);
    panel->OpenPage(PageCode::kVideoSettings);
    for (int i = 0; i < subPage; ++i) Press(kPageUpButton);
    TakeCalls();
  }
  void ReportTo(const Identity& identity, int address, int value) {
    if (identity.boxType == 26) {
      ReportWord(address, value);
    } else {
      Report(address, {static_cast<std::uint8_t>(value), 0x77});
    }
  }
  static Calls Reads(const Identity& identity, const Settings& settings) {
    Calls calls;
    for (const Setting& setting : settings) {
      calls.push_back(identity.boxType == 26 ? GetWord(setting.address)
                                             : GetBlock(setting.address));
    }
    if (PassesThrough(identity.boxType) && !settings.empty()) calls.push_back(GetBlock(8));
    return calls;
  }
  static Calls Writes(const Identity& identity, const Settings& settings,
                      const std::vector<int>& selected) {
    Calls calls;
    for (std::size_t i = 0; i < settings.size(); ++i) {
      const Option* option = At(settings[i].options, selected[i]);
      if (option == nullptr) continue;
      calls.push_back(identity.boxType == 26 ? SetWord(settings[i].address, option->value)
                                             : SetBlock(settings[i].address, {option->value}));
    }
    if (PassesThrough(identity.boxType) && !settings.empty()) calls.push_back(SetBlock(8, {0}));
    return calls;
  }
  std::string TextOf(const Group& group) { return desk.Text(kPage, group.value); }
};

inline std::vector<int> UpTo(int last) {
  std::vector<int> values;
  for (int value = 0; value <= last; ++value) values.push_back(value);
  values.push_back(254);
  values.push_back(255);
  return values;
}

}  // namespace panelora::testing::video_list
