// What the pages hold before the box has told anything: a box that is there and answers no read
// but that of its identity.
#include "tests/support/scenario.h"

namespace panelora::testing {
namespace {

class FirstValues : public Scenario {
 protected:
  void StartSilent(const Identity& identity) {
    panel.reset();
    admitted = {identity.boxType};
    box.Become(identity, 0x0126);
    for (int property = 0; property < 254; ++property) {
      for (std::uint8_t sub = 0; sub < 4; ++sub) {
        box.Block(static_cast<std::uint8_t>(property), sub).clear();
      }
    }
    for (int item = 0; item <= 24; ++item) device.Fail("get word 0," + std::to_string(item));
    Start();
    ASSERT_TRUE(panel->IsConnected());
    TakeCalls();
  }
};

TEST_F(FirstValues, FirmwareIsUnknown) {
  StartSilent({26, 0, 0, 0, 0});
  EXPECT_EQ(panel->Panel().firmwareVersion, 0U);
  EXPECT_EQ(panel->Panel().fittedOption, 0);
}

TEST_F(FirstValues, DisplayModeIsMode1OfItsFirstCode) {
  StartSilent({15, 0, 0, 0, 0});
  panel->OpenPage(PageCode::kDisplayMode);
  EXPECT_EQ(desk.Text(res::kDisplayMode, 1045), "Mode 1");
  EXPECT_EQ(CallsOf(kApplyButton), (Calls{"set word 0,1 = 1", "set word 0,2 = 1"}));
}

// Five modes without the flag for nine.
TEST_F(FirstValues, DisplayModesGoToMode5) {
  StartSilent({15, 0, 0, 0, 0});
  panel->OpenPage(PageCode::kDisplayMode);
  for (int i = 0; i < 4; ++i) desk.Press(res::kDisplayMode, 1046);
  EXPECT_EQ(CallsOf(kApplyButton), (Calls{"set word 0,1 = 5", "set word 0,2 = 0"}));
  desk.Press(res::kDisplayMode, 1046);
  EXPECT_EQ(desk.Text(res::kDisplayMode, 1045), "Mode 1");
}

TEST_F(FirstValues, InputLabelsAreOff) {
  StartSilent({15, 2, 0, 0, 0});
  panel->OpenPage(PageCode::kDisplayMode);
  Press(kPageUpButton);
  EXPECT_EQ(desk.Text(res::kDisplayMode, 1061), "OFF");
  desk.Press(res::kDisplayMode, 1062);
  EXPECT_EQ(desk.Text(res::kDisplayMode, 1061), "ON");
}

TEST_F(FirstValues, PipHasNoInset) {
  StartSilent({15, 0, 0, 0, 0});
  panel->OpenPage(PageCode::kPip);
  for (const int slider : {1055, 1056, 1057, 1058}) EXPECT_FALSE(desk.Enables(res::kPip, slider));
  for (const int edit : {1076, 1077, 1078, 1079}) EXPECT_EQ(desk.Text(res::kPip, edit), "0000");
  EXPECT_EQ(CallsOf(kApplyButton), Calls{"set block 13,0,8: 00 00 00 00 00 00 00 00"});
}

TEST_F(FirstValues, GenlockRunsFreeWithoutDelays) {
  StartSilent({43, 0, 0, 0, 0});
  panel->OpenPage(PageCode::kGenlock);
  EXPECT_EQ(desk.Text(res::kGenlock, 1079), "Free-Run");
  EXPECT_EQ(desk.Text(res::kGenlock, 1094), "75 ohms termination");
  for (const int slider : {1086, 1087}) EXPECT_FALSE(desk.Enables(res::kGenlock, slider));
  EXPECT_EQ(
      CallsOf(kApplyButton),
      (Calls{"set block 15,0,1: 00", "set block 16,0,5: 00 00 00 00 01", "set block 22,0,1: 00"}));
  // Without a known output a reference allows no delay either.
  desk.Press(res::kGenlock, 1080);
  EXPECT_EQ(desk.SliderRange(res::kGenlock, 1086), std::make_pair(0, 0));
  EXPECT_FALSE(desk.Shows(res::kGenlock, 1087));
}

// The buttons of this model are enabled without a read.
TEST_F(FirstValues, ImageStandsAtTheEndsOfItsRanges) {
  StartSilent({23, 0, 0, 0, 0});
  panel->OpenPage(PageCode::kImageAdjust);
  TakeCalls();
  EXPECT_EQ(CallsOnPage(res::kImageAdjust, 1092), Calls{"set block 13,0,4: 00 05 00 05"});
  EXPECT_EQ(CallsOnPage(res::kImageAdjust, 1094), Calls{"set block 13,0,4: 00 05 00 05"});
  EXPECT_EQ(CallsOnPage(res::kImageAdjust, 1095), Calls{"set block 12,0,2: 50 64"});
  EXPECT_EQ(CallsOnPage(res::kImageAdjust, 1097), Calls{"set block 12,0,2: 50 50"});
}

TEST_F(FirstValues, RegionIsTheFullScreenOfAFrameOf1920By1080) {
  StartSilent({46, 0, 0, 0, 0});
  device.Fail("get block 18,0,30");  // which the opening writes
  panel->OpenPage(PageCode::kRoi);
  EXPECT_EQ(desk.Text(res::kRoi, 1045), "Full Screen");
  EXPECT_EQ(desk.SliderRange(res::kRoi, 1055), std::make_pair(0, 1920));
  EXPECT_EQ(desk.SliderRange(res::kRoi, 1056), std::make_pair(0, 1080));
  EXPECT_EQ(desk.SliderRange(res::kRoi, 1057), std::make_pair(0, 960));
  EXPECT_EQ(desk.SliderRange(res::kRoi, 1058), std::make_pair(0, 540));
  EXPECT_EQ(CallsOf(kApplyButton), Calls{"set block 18,0,10: 00 00 00 00 00 00 00 00 01 01"});
}

TEST_F(FirstValues, TextLabelIsDisabledAndBlank) {
  StartSilent({26, 0, 0, 0, 0});
  panel->OpenPage(PageCode::kTextLabels);
  EXPECT_EQ(desk.Text(res::kTextLabels, 1112), "Disable");
  EXPECT_EQ(
      CallsOf(kApplyButton),
      Calls{"set block 41,0,21: 00 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20"});
}

// Mute off, SMPTE and the first of everything; the output level of the types that have one at 0 dB.
TEST_F(FirstValues, AudioIsNotMutedAndItsOutputAt0Decibels) {
  const std::pair<std::uint8_t, Calls> types[] = {
      {26, {"set word 0,11 = 0", "set word 0,16 = 0"}},
      {24,
       {"set block 10,0,1: 00", "set word 0,7 = 0", "set block 7,0,1: 00",
        "set block 44,0,2: 3E 00"}},
      {46, {"set block 10,0,1: 00", "set block 11,0,2: 00 00"}},
      {14, {"set block 9,0,1: 00", "set block 7,0,1: 00", "set block 32,0,1: 00"}},
  };
  for (const auto& [type, written] : types) {
    StartSilent({type, 0, 0, 0, 0});
    Press(kAudioButton);
    EXPECT_EQ(CallsOf(kApplyButton), written) << int{type};
  }
}

TEST_F(FirstValues, SettingsAre0) {
  StartSilent({24, 0, 0, 0, 0});
  Press(kSettingButton);
  EXPECT_EQ(CallsOf(kApplyButton),
            (Calls{"set word 0,21 = 0", "set word 0,16 = 0", "set block 17,0,1: 00"}));
  StartSilent({26, 0, 0, 0, 0});
  Press(kSettingButton);
  EXPECT_EQ(CallsOf(kApplyButton),
            (Calls{"set word 0,21 = 0", "set block 22,0,1: 00", "set block 23,0,2: 00 00"}));
}

}  // namespace
}  // namespace panelora::testing
