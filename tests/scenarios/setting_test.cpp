// The Setting page and the Caution dialog.
#include <map>

#include "tests/support/one_page.h"
#include "tests/support/setting_controls.h"

namespace panelora::testing {
namespace {

class Setting : public OnePage<kPage> {
 protected:
  void Open(std::uint32_t firmware = 0x0126, Identity identity = {26, 0, 0, 0, 0}) {
    StartWith(identity, firmware);
    Press(kSettingButton);
  }
};

void AddGroup(Places& all, const Group& group, int label, int frame, int value, int next) {
  all[group.label] = {55, label, 300, 20};
  all[group.frame] = {55, frame, 300, 48};
  all[group.value] = {65, value, 250, 30};
  all[group.next] = {375, next, 40, 39};
}

Places Expected(std::uint32_t firmware) {
  Places all;
  int reset = 125;
  if (firmware >= 294) {
    AddGroup(all, kDip8, 15, 30, 45, 38);
    AddGroup(all, kOsd, 85, 100, 115, 108);
    AddGroup(all, kNoSignal, 155, 170, 185, 178);
    reset = 235;
  } else if (firmware == 293) {
    AddGroup(all, kOsd, 30, 45, 60, 52);
    AddGroup(all, kNoSignal, 115, 130, 145, 137);
    reset = 215;
  } else if (firmware >= 281) {
    AddGroup(all, kOsd, 65, 80, 95, 88);
    reset = 165;
  }
  all[kReset] = {55, reset, 360, 50};
  return all;
}

TEST_F(Setting, ShowsTheOptionsOfTheFirmware) {
  for (const std::uint32_t firmware : {0U, 274U, 280U, 281U, 292U, 293U, 294U, 518U}) {
    Open(firmware);
    EXPECT_EQ(ShownControls(), Expected(firmware)) << firmware;
    panel.reset();
  }
}

TEST_F(Setting, ReadsTheOptionsOfTheFirmware) {
  const std::pair<std::uint32_t, Calls> rows[] = {
      {294, {"get block 23,0,2", "get block 22,0,2", "get word 0,21"}},
      {293, {"get block 22,0,2", "get word 0,21"}},
      {292, {"get word 0,21"}},
      {281, {"get word 0,21"}},
      {280, {}}};
  for (const auto& [firmware, calls] : rows) {
    Open(firmware);
    EXPECT_EQ(TakeCalls(), calls) << firmware;
    Press(kPictureButton);
    EXPECT_EQ(TakeCalls(), calls) << firmware;
    Press(kDefaultButton);  // reads as Refresh does
    EXPECT_EQ(TakeCalls(), calls) << firmware;
    panel.reset();
  }
}

TEST_F(Setting, FirstTextsFontsAndPictures) {
  box.SetPresent(false);
  Start();
  const std::pair<int, const char*> texts[] = {{1040, "Function Button"},
                                               {1038, "Un-Locked"},
                                               {1042, "OSD Hide Mode"},
                                               {1044, "Hide"},
                                               {1050, "Pattern Mode"},
                                               {1052, "Disable"},
                                               {1046, "No Signal Mode"},
                                               {1048, "Blue Screen"},
                                               {1051, "DipSwitch 8(1) Mode"},
                                               {1055, "FULL SCREEN"},
                                               {1037, ""},
                                               {1039, ">>"}};
  for (const auto& [id, text] : texts) {
    EXPECT_EQ(desk.Text(kPage, id), text) << id;
    EXPECT_EQ(desk.FontOf(kPage, id), (ui::Font{"Arial", 120})) << id;
  }
  EXPECT_EQ(desk.Picture(kPage, kReset), "RESET_BTU_U");
  EXPECT_EQ(desk.PressedPicture(kPage, kReset), "RESET_BTU_D");
}

TEST_F(Setting, ShowsWhatTheBoxReports) {
  Open();
  EXPECT_EQ(TextOf(kDip8), "Keep Aspect Ratio");
  EXPECT_EQ(TextOf(kNoSignal), "Blue Screen");
  EXPECT_EQ(TextOf(kOsd), "Enable");
  const char* modes[] = {"Keep Aspect Ratio", "Full Screen (16:9)", "Dot By Dot", "4 : 3", "14 : 9",
                         "UnderScan",         "Pan Scan 16 : 9"};
  const char* noSignals[] = {"Black Screen", "Blue Screen", "Disable Output"};
  const char* osds[] = {"Disable", "Enable"};
  for (std::uint8_t i = 0; i < 7; ++i) {
    box.Block(23) = {i, 0};
    box.Block(22) = {static_cast<std::uint8_t>(i % 3), 0};
    box.Word(21) = {i % 2U, 0};
    Press(kPictureButton);
    EXPECT_EQ(TextOf(kDip8), modes[i]);
    EXPECT_EQ(TextOf(kNoSignal), noSignals[i % 3]);
    EXPECT_EQ(TextOf(kOsd), osds[i % 2]);
    EXPECT_EQ(TextOf(kLock), "Un-Locked");
  }
}

TEST_F(Setting, FailedReadsAndValuesWithoutRowKeepTheTexts) {
  Open();
  for (const char* call : {"get block 23,0,2", "get block 22,0,2", "get word 0,21"}) {
    device.Fail(call);
  }
  box.Block(23) = {6, 9};
  box.Block(22) = {2, 0};
  box.Word(21) = {0, 0};
  Press(kPictureButton);
  EXPECT_EQ(TextOf(kDip8), "Keep Aspect Ratio");
  EXPECT_EQ(TextOf(kNoSignal), "Blue Screen");
  EXPECT_EQ(TextOf(kOsd), "Enable");
  EXPECT_EQ(CallsOf(kApplyButton),
            (Calls{"set word 0,21 = 1", "set block 22,0,1: 01", "set block 23,0,2: 00 00"}));
  device.FailNothing();
  box.Block(23) = {7, 9};
  box.Block(22) = {3, 0};
  box.Word(21) = {2, 0};
  Press(kPictureButton);
  EXPECT_EQ(TextOf(kDip8), "Keep Aspect Ratio");
  EXPECT_EQ(TextOf(kNoSignal), "Blue Screen");
  EXPECT_EQ(TextOf(kOsd), "Enable");
}

TEST_F(Setting, ButtonsStepAndWrap) {
  Open();
  TakeCalls();
  EXPECT_EQ(Cycle(kOsd, 3), (Texts{"Disable", "Enable", "Disable"}));
  EXPECT_EQ(Cycle(kNoSignal, 4),
            (Texts{"Disable Output", "Black Screen", "Blue Screen", "Disable Output"}));
  EXPECT_EQ(Cycle(kLock, 3), (Texts{"Locked", "Un-Locked", "Locked"}));
  EXPECT_EQ(Cycle(kPattern, 15),
            (Texts{"White", "Cross", "Hatch", "Color Bar", "Gray", "Window", "H Ramp", "WH Ramp",
                   "WV Ramp", "Diagonal", "Red", "Green", "Blue", "Disable", "White"}));
  EXPECT_EQ(TakeCalls(), Calls{});
}

TEST_F(Setting, Dip8OffersOnlyKeepAndPanScan) {
  Open();
  EXPECT_EQ(Cycle(kDip8, 3), (Texts{"Pan Scan 16 : 9", "Keep Aspect Ratio", "Pan Scan 16 : 9"}));
  const std::pair<int, const char*> starts[] = {{1, "Pan Scan 16 : 9"},
                                                {5, "Pan Scan 16 : 9"},
                                                {6, "Keep Aspect Ratio"},
                                                {7, "Keep Aspect Ratio"},
                                                {255, "Keep Aspect Ratio"}};
  for (const auto& [start, next] : starts) {
    box.Block(23) = {static_cast<std::uint8_t>(start), 0};
    Press(kPictureButton);
    EXPECT_EQ(Cycle(kDip8, 1), Texts{next}) << start;
  }
}

TEST_F(Setting, ApplyWritesAllThreeWhateverIsShown) {
  Open(293);
  EXPECT_EQ(CallsOf(kApplyButton),
            (Calls{"set word 0,21 = 1", "set block 22,0,1: 01", "set block 23,0,2: 00 00"}));
  panel.reset();
  Open(280);
  EXPECT_EQ(CallsOf(kApplyButton),
            (Calls{"set word 0,21 = 0", "set block 22,0,1: 00", "set block 23,0,2: 00 00"}));
  panel.reset();
  Open();
  box.Block(23) = {3, 0x5A};  // the extra byte goes back as it came
  Press(kPictureButton);
  desk.Press(kPage, kOsd.next);
  desk.Press(kPage, kNoSignal.next);
  EXPECT_EQ(CallsOf(kApplyButton),
            (Calls{"set word 0,21 = 0", "set block 22,0,1: 02", "set block 23,0,2: 03 5A"}));
}

TEST_F(Setting, CautionComesOncePerChange) {
  Open();
  Press(kApplyButton);
  EXPECT_FALSE(desk.IsOpen(res::kCaution));
  desk.Press(kPage, kDip8.next);
  Press(kApplyButton);
  EXPECT_TRUE(desk.IsShown(res::kCaution));
  EXPECT_EQ(desk.Title(res::kCaution), "Caution");
  EXPECT_EQ(desk.Text(res::kCaution, 1117), "");
  EXPECT_EQ(desk.Text(res::kCaution, 1118), "DipSwitch Config Be Changed !!!");
  EXPECT_EQ(desk.Picture(res::kCaution, 1117), "CAUTION");
  EXPECT_EQ(desk.PressedPicture(res::kCaution, 1117), "CAUTION");
  EXPECT_EQ(desk.FontOf(res::kCaution, 1117), (ui::Font{"Arial", 120}));
  EXPECT_EQ(desk.FontOf(res::kCaution, 1118), (ui::Font{"Arial", 120}));
  const ui::Point page = desk.ScreenPosition(kPage);
  EXPECT_EQ(desk.ScreenPosition(res::kCaution), (ui::Point{page.x + 40, page.y + 90}));
  desk.RequestClose(res::kCaution);
  EXPECT_FALSE(desk.IsOpen(res::kCaution));
  Press(kApplyButton);  // the same value again
  EXPECT_FALSE(desk.IsOpen(res::kCaution));
  desk.Press(kPage, kDip8.next);
  Press(kApplyButton);
  EXPECT_TRUE(desk.IsShown(res::kCaution));
}

TEST_F(Setting, SecondChangeReplacesTheOpenCaution) {
  Open();
  desk.Press(kPage, kDip8.next);
  Press(kApplyButton);
  const ui::Point first = desk.ScreenPosition(res::kCaution);
  desk.Press(kPage, kDip8.next);
  Press(kApplyButton);
  EXPECT_TRUE(desk.IsShown(res::kCaution));
  EXPECT_EQ(desk.ScreenPosition(res::kCaution), first);
  desk.RequestClose(res::kCaution);
  EXPECT_FALSE(desk.IsOpen(res::kCaution));  // there was only one
}

TEST_F(Setting, RefreshConfirmsTheModeOfTheBox) {
  Open();
  desk.Press(kPage, kDip8.next);
  Press(kPictureButton);  // back to what the box has
  Press(kApplyButton);
  EXPECT_FALSE(desk.IsOpen(res::kCaution));
}

TEST_F(Setting, ModeThatTheBoxReportsNeedsNoCaution) {
  Open();
  box.Block(23) = {6, 1};
  Press(kPictureButton);
  Press(kApplyButton);
  EXPECT_FALSE(desk.IsOpen(res::kCaution));
}

TEST_F(Setting, RefreshUnlocks) {
  Open();
  EXPECT_EQ(Cycle(kLock, 1), Texts{"Locked"});
  Press(kPictureButton);
  EXPECT_EQ(TextOf(kLock), "Un-Locked");
  EXPECT_EQ(Cycle(kLock, 1), Texts{"Locked"});
}

TEST_F(Setting, HardwareResetWorksWithoutOptionsAndBringsThePageBackAnew) {
  Open(280);
  desk.Press(kPage, kDip8.next);
  ASSERT_EQ(TextOf(kDip8), "Pan Scan 16 : 9");
  desk.Press(kPage, kReset);
  EXPECT_EQ(TakeCalls(), Calls{"set word 0,3 = 1"});
  Tick();
  ExpectDisconnectedLook();
  now += simulator::BoxModel::kRestartTime;
  Tick();
  ExpectConnectedLook();
  EXPECT_EQ(TextOf(kDip8), "FULL SCREEN");
}

TEST_F(Setting, EscapeClosesTheCautionAndTheMainWindowGoesOn) {
  Open();
  desk.Press(kPage, kDip8.next);
  Press(kApplyButton);
  desk.PressKey(res::kCaution, 1117, ui::Key::kEscape);
  EXPECT_FALSE(desk.IsOpen(res::kCaution));
  EXPECT_TRUE(panel->IsOpen());
  Press(kReturnButton);
  ExpectConnectedLook();
}

TEST_F(Setting, ClosingTheMainWindowTakesTheCautionWithIt) {
  Open();
  desk.Press(kPage, kDip8.next);
  Press(kApplyButton);
  desk.RequestClose(res::kMain);
  EXPECT_FALSE(desk.IsOpen(res::kMain));
  EXPECT_FALSE(desk.IsOpen(res::kCaution));
}

TEST_F(Setting, UnpluggingWithTheCautionOpenDoesNoHarm) {
  Open();
  desk.Press(kPage, kDip8.next);
  Press(kApplyButton);
  box.SetPresent(false);
  for (int i = 0; i < 6; ++i) Tick();
  ExpectDisconnectedLook();
  desk.RequestClose(res::kCaution);
  EXPECT_FALSE(desk.IsOpen(res::kCaution));
}

TEST_F(Setting, HardwareResetIsSentAsTheModelWantsIt) {
  struct Row {
    Bytes types;
    Calls calls;
  };
  const Row rows[] = {
      {{20, 21, 33, 30, 43, 25, 29}, {"set word 0,4 = 1"}},
      {{24, 34}, {"set word 0,5 = 1"}},
      {{18, 32}, {"set word 0,6 = 1"}},
      {{23, 42}, {"set word 0,7 = 1"}},
      {{13, 15}, {"set word 0,10 = 1"}},
      {{17, 35}, {"set word 0,8 = 0"}},
      {{37, 38, 39, 40, 46, 47, 48, 49, 50, 51}, {"set block 1,0,1: 01"}},
      {{14, 36}, {"set block 10,0,1: 01"}},
      // Every other type, from the first to the last code that there is.
      {{0, 1, 5, 6, 7, 19, 26, 27, 44, 45, 52, 53, 54, 55, 254}, {"set word 0,3 = 1"}}};
  for (const Row& row : rows) {
    for (const std::uint8_t type : Tried(row.types)) {
      Open(0x0126, {type, 0, 0, 0, 0});
      TakeCalls();
      desk.Press(kPage, kReset);
      EXPECT_EQ(TakeCalls(), row.calls) << int{type};
      EXPECT_TRUE(panel->Panel().forceDisconnect);
      EXPECT_EQ(panel->Panel().tickSkip, 0);
      panel.reset();
    }
  }
}

TEST_F(Setting, FailedReadsOfOtherModelsKeepTheTexts) {
  admitted = {46};
  StartWith(0x0126, {46, 0, 0, 0, 0});
  device.FailEverything();
  Press(kSettingButton);
  EXPECT_EQ(TextOf(kNoSignal), "Blue Screen");
  EXPECT_EQ(TextOf(kOsd), "Hide");
  EXPECT_EQ(TextOf(kDip8), "FULL SCREEN");
}

// A front panel that is locked is not unlocked because a read failed.
TEST_F(Setting, FailedReadOfTheLockKeepsIt) {
  Open(0x0126, {18, 0, 0, 0, 0});
  box.Word(12) = {1, 0};
  Press(kPictureButton);
  EXPECT_EQ(TextOf(kLock), "Locked");
  device.Fail("get word 0,12");
  Press(kPictureButton);
  EXPECT_EQ(TextOf(kLock), "Locked");
  EXPECT_EQ(CallsOf(kApplyButton)[0], "set word 0,12 = 1");
}

TEST_F(Setting, OtherModelsReadAndWriteTheirOptions) {
  Open(0x0126, {46, 0, 0, 0, 0});
  EXPECT_EQ(TakeCalls(), (Calls{"get block 15,0,2", "get block 21,0,2", "get block 22,0,2"}));
  EXPECT_EQ(Cycle(kDip8, 5),
            (Texts{"4 : 3", "Dot By Dot", "Keep Aspect Ratio", "Full Screen", "16 : 9"}));
  EXPECT_EQ(CallsOf(kApplyButton),
            (Calls{"set block 21,0,1: 01", "set block 22,0,1: 01", "set block 15,0,1: 00"}));
  EXPECT_FALSE(desk.IsOpen(res::kCaution));
  panel.reset();
  Open(0x0126, {18, 0, 0, 0, 0});
  EXPECT_EQ(TakeCalls(), (Calls{"get block 17,0,2", "get word 0,12", "get word 0,13"}));
  desk.Press(kPage, kLock.next);
  EXPECT_EQ(CallsOf(kApplyButton),
            (Calls{"set word 0,12 = 1", "set word 0,13 = 0", "set block 17,0,1: 00"}));
}

}  // namespace
}  // namespace panelora::testing
