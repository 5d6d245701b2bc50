// The Genlock page on the desk.
#pragma once

#include "tests/support/one_page.h"

namespace panelora::testing {

constexpr int kPage = res::kGenlock;
constexpr int kNextMode = 1080;
constexpr int kNextSync = 1095;
constexpr int kVUp = 1107;
constexpr int kVDown = 1108;
constexpr int kHUp = 1109;
constexpr int kHDown = 1110;
constexpr int kVSlider = 1086;
constexpr int kHSlider = 1087;
constexpr int kVEdit = 1105;
constexpr int kHEdit = 1106;
constexpr int kHorizontal[] = {1085, kHSlider, kHUp, kHDown, kHEdit, 1089, 1091};

struct GroupRow {
  std::vector<std::uint8_t> types;
  int reference;
  int mode;
  int delays;
  int sync;  // 0 = none
};
inline const GroupRow kGroups[] = {{{39, 40, 46, 47, 48, 49, 50}, 25, 26, 27, 46},
                                   {{20, 33}, 21, 19, 20, 0},
                                   {{30, 43}, 18, 15, 16, 22}};

inline const GroupRow& GroupOf(std::uint8_t type) {
  for (const GroupRow& group : kGroups) {
    if (std::find(group.types.begin(), group.types.end(), type) != group.types.end()) return group;
  }
  return kGroups[0];
}

inline std::uint8_t Number(int block) { return static_cast<std::uint8_t>(block); }

inline Calls Reads(std::uint8_t type) {
  const GroupRow& group = GroupOf(type);
  Calls reads = {Format("get block %d,0,30", group.reference),
                 Format("get block %d,0,4", group.mode)};
  if (&group == kGroups) {
    reads.push_back("get block 38,0,2");
    reads.push_back("get block 4,0,2");
  }
  reads.push_back(Format("get block %d,0,4", group.delays));
  if (group.sync != 0) reads.push_back(Format("get block %d,0,2", group.sync));
  return reads;
}

class Genlock : public OnePage<kPage> {
 protected:
  // Opens the page on a box with these codes and delays.
  void Open(std::uint8_t type, int mode = 1, int outputCode = 10, int inputCode = 15,
            int vertical = 100, int horizontal = 200) {
    panel.reset();
    device.FailNothing();
    StartWith({type, 0, 0, 0, 0});
    SetBox(mode, outputCode, inputCode, vertical, horizontal);
    panel->OpenPage(PageCode::kGenlock);
    TakeCalls();
  }
  void SetBox(int mode, int outputCode, int inputCode, int vertical, int horizontal) {
    const GroupRow& group = GroupOf(panel->Panel().identity.boxType);
    box.Block(Number(group.mode)) = {Number(mode), Number(outputCode), 0, Number(inputCode)};
    if (&group == kGroups) {
      box.Block(26)[3] = 99;  // of no use there
      box.Block(4) = {Number(inputCode), 0};
    }
    box.Block(Number(group.delays)) = {Number(vertical & 0xFF), Number(vertical >> 8),
                                       Number(horizontal & 0xFF), Number(horizontal >> 8)};
  }
  // What is written for these delays.
  Calls Delays(int vertical, int horizontal, bool final, int syncMode = 0) {
    const GroupRow& group = GroupOf(panel->Panel().identity.boxType);
    Calls calls = {Format("set block %d,0,5: %02X %02X %02X %02X %02X", group.delays, vertical >> 8,
                          vertical & 0xFF, horizontal >> 8, horizontal & 0xFF, final ? 1 : 0)};
    if (group.delays == 16) calls.push_back(Format("set block 22,0,1: %02X", syncMode));
    return calls;
  }
  Calls Mode(int mode) {
    return {Format("set block %d,0,1: %02X", GroupOf(panel->Panel().identity.boxType).mode, mode)};
  }
  void ExpectShown(int vertical, int horizontal) {
    for (const int control : {kVEdit, 1088}) {
      EXPECT_EQ(desk.Text(kPage, control), std::to_string(vertical)) << control;
    }
    for (const int control : {kHEdit, 1089}) {
      EXPECT_EQ(desk.Text(kPage, control), std::to_string(horizontal)) << control;
    }
    const auto inRange = [&](int slider, int value) {
      return std::min(value, desk.SliderRange(kPage, slider).second);
    };
    EXPECT_EQ(desk.SliderPosition(kPage, kVSlider), inRange(kVSlider, vertical));
    EXPECT_EQ(desk.SliderPosition(kPage, kHSlider), inRange(kHSlider, horizontal));
  }
  std::string ModeName() { return desk.Text(kPage, 1079); }
  std::string SyncName() { return desk.Text(kPage, 1094); }
  std::string FormatText() { return desk.Text(kPage, 1083); }
};

}  // namespace panelora::testing
