// The Display Mode page on the desk.
#pragma once

#include "tests/support/one_page.h"

namespace panelora::testing {

constexpr int kPage = res::kDisplayMode;
constexpr int kNextMode = 1046;
constexpr int kNextLabels = 1062;

inline const Calls kModeReads = {"get block 1,0,20", "get block 2,0,20"};
inline const Calls kLabelReads = {"get block 20,0,2", "get block 19,0,60", "get block 19,1,60",
                                  "get block 19,2,60", "get block 19,3,60"};
inline const Calls kOpening = {"set word 0,10 = 3"};

inline const Places kThreeGroups = {
    {1044, {70, 35, 300, 20}},  {1003, {70, 50, 300, 48}},  {1045, {80, 65, 250, 30}},
    {1046, {380, 58, 40, 39}},  {1047, {70, 115, 300, 20}}, {1004, {70, 130, 300, 48}},
    {1048, {80, 145, 250, 30}}, {1049, {380, 138, 40, 39}}, {1050, {70, 195, 300, 20}},
    {1005, {70, 210, 300, 48}}, {1051, {80, 225, 250, 30}}, {1052, {380, 218, 40, 39}},
};
inline const Places kFourGroups = {
    {1044, {70, 15, 300, 20}},  {1003, {70, 30, 300, 48}},  {1045, {80, 45, 250, 30}},
    {1046, {380, 38, 40, 39}},  {1047, {70, 85, 300, 20}},  {1004, {70, 100, 300, 48}},
    {1048, {80, 115, 250, 30}}, {1049, {380, 108, 40, 39}}, {1050, {70, 155, 300, 20}},
    {1005, {70, 170, 300, 48}}, {1051, {80, 185, 250, 30}}, {1052, {380, 178, 40, 39}},
    {1053, {70, 225, 300, 20}}, {1006, {70, 240, 300, 48}}, {1054, {80, 255, 250, 30}},
    {1055, {380, 248, 40, 39}},
};
inline const Places kLabelsView = {
    {1060, {70, 15, 300, 20}},   {1007, {70, 30, 300, 48}},   {1061, {80, 45, 250, 30}},
    {1062, {380, 38, 40, 39}},   {1056, {70, 105, 110, 20}},  {1057, {70, 155, 110, 20}},
    {1058, {70, 205, 110, 20}},  {1059, {70, 255, 110, 20}},  {1109, {180, 103, 240, 25}},
    {1110, {180, 153, 240, 25}}, {1111, {180, 203, 240, 25}}, {1112, {180, 253, 240, 25}},
};

class DisplayMode : public OnePage<kPage> {
 protected:
  // Opens the page on a box with these modes and labels.
  void Open(Identity identity, std::uint8_t nineModes = 1, std::uint8_t labels = 1,
            std::uint32_t firmware = 0x0126) {
    panel.reset();
    admitted = {identity.boxType};
    box.Become(identity, firmware);
    box.Block(1) = {1, nineModes, labels};
    Start();
    panel->OpenPage(PageCode::kDisplayMode);
    device.TakeCalls();
  }
  // The firmware above which other brands than 2 write labels is 288.
  void OpenLabels(Identity identity = {15, 0, 0, 0, 0}, std::uint32_t firmware = 289) {
    Open(identity, 1, 1, firmware);
    Press(kPageUpButton);
    device.TakeCalls();
  }
  std::vector<std::string> Names() {
    return {desk.Text(kPage, 1048), desk.Text(kPage, 1051), desk.Text(kPage, 1054)};
  }
  std::string Mode() { return desk.Text(kPage, 1045); }
  std::vector<bool> EnabledEdits() {
    std::vector<bool> enabled;
    for (const int edit : {1109, 1110, 1111, 1112}) enabled.push_back(desk.Enables(kPage, edit));
    return enabled;
  }
  static Bytes LabelBlock(const std::string& text) {
    Bytes block(text.begin(), text.end());
    block.resize(60, 'x');  // what stands behind the field is no part of it
    return block;
  }
};

inline const std::vector<bool> kAllEnabled(4, true);
inline const std::vector<bool> kAllDisabled(4, false);

}  // namespace panelora::testing
