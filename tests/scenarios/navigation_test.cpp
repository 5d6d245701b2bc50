// The navigation bar: pages, buttons, and what Apply, Default, Refresh and Page Up act on.
#include <cstdlib>

#include "tests/support/scenario.h"

namespace panelora::testing {
namespace {

using Navigation = Scenario;

TEST_F(Navigation, AudioShowsItsPageWithApplyAndReturn) {
  Start();
  Press(kAudioButton);
  EXPECT_EQ(panel->CurrentPage(), PageCode::kAudio);
  EXPECT_EQ(ShownPages(), std::vector<int>{res::kAudio});
  EXPECT_EQ(Buttons(), (Texts{"Apply 65", "Return 105"}));
  Press(kReturnButton);
  ExpectConnectedLook();
}

TEST_F(Navigation, ProcAmpReadsItsValuesAndShowsDefaultReturnAndPageUp) {
  Start();
  TakeCalls();
  Press(kProcAmpButton);
  EXPECT_EQ(TakeCalls(), (Calls{"get proc amp", "get block 14,0,3"}));
  EXPECT_EQ(panel->CurrentPage(), PageCode::kProcAmp);
  EXPECT_EQ(ShownPages(), std::vector<int>{res::kProcAmp});
  EXPECT_EQ(Buttons(), (Texts{"Default 65", "Return 105", "Page Up 145"}));
  Press(kReturnButton);
  ExpectConnectedLook();
}

TEST_F(Navigation, ProcAmpOfBrand2HasApply) {
  StartWith(0x0126, {26, 2, 0, 0, 0});
  Press(kProcAmpButton);
  EXPECT_EQ(Buttons(), (Texts{"Default 65", "Apply 105", "Return 145", "Page Up 185"}));
}

TEST_F(Navigation, ProcAmpCacheHoldsWhatTheBoxTells) {
  Start();
  box.Picture() = {10, 20, 30, 40};
  box.Block(14) = {50, 60, 7};
  Press(kProcAmpButton);
  EXPECT_EQ(panel->Panel().procAmpCache, (ProcAmpCache{10, 20, 30, 40, 50, 60, 7, 128, 128, 128}));
}

TEST_F(Navigation, FailedProcAmpReadsStandInTheMiddle) {
  Start();
  box.Picture() = {10, 20, 30, 40};
  box.Block(14) = {50, 60, 7};
  device.Fail("get proc amp");
  device.Fail("get block 14,0,3");
  Press(kProcAmpButton);
  EXPECT_EQ(panel->Panel().procAmpCache,
            (ProcAmpCache{128, 128, 128, 128, 128, 128, 0, 128, 128, 128}));
}

struct SettingRow {
  std::uint32_t firmware;
  Texts buttons;
};

TEST_F(Navigation, SettingShowsApplyFromFirmware281) {
  const SettingRow rows[] = {
      {0x0111, {"Return 65"}},               // 273
      {0x0112, {"Return 65"}},               // 274
      {0x0118, {"Return 65"}},               // 280
      {0x0119, {"Apply 65", "Return 105"}},  // 281
      {0x0126, {"Apply 65", "Return 105"}},  // 294
  };
  for (const SettingRow& row : rows) {
    StartWith(row.firmware);
    Press(kSettingButton);
    EXPECT_EQ(panel->CurrentPage(), PageCode::kSetting);
    EXPECT_EQ(ShownPages(), std::vector<int>{res::kSetting});
    EXPECT_EQ(Buttons(), row.buttons) << row.firmware;
    panel.reset();
  }
}

TEST_F(Navigation, SettingLeavesReturnInItsLastPlaceBelowFirmware281) {
  StartWith(0x0111);
  Press(kVideoButton);   // straight to the Video settings page
  Press(kReturnButton);  // leaves the hidden Return at 105
  Press(kSettingButton);
  EXPECT_EQ(Buttons(), Texts{"Return 105"});
}

TEST_F(Navigation, VideoStaysOnTheMenuFromFirmware274) {
  StartWith(0x0112);
  Press(kVideoButton);
  EXPECT_EQ(panel->CurrentPage(), PageCode::kVideoMenu);
  EXPECT_EQ(ShownPages(), std::vector<int>{res::kVideoMenu});
  EXPECT_EQ(Buttons(), Texts{"Return 65"});
  desk.Press(res::kVideoMenu, 1002);
  EXPECT_EQ(panel->CurrentPage(), PageCode::kVideoSettings);
  EXPECT_EQ(ShownPages(), std::vector<int>{res::kVideoSettings});
  EXPECT_EQ(Buttons(), (Texts{"Page Up 65", "Apply 105", "Return 145"}));
  Press(kReturnButton);
  EXPECT_EQ(panel->CurrentPage(), PageCode::kVideoMenu);
  EXPECT_EQ(ShownPages(), std::vector<int>{res::kVideoMenu});
  EXPECT_EQ(Buttons(), Texts{"Return 65"});
  Press(kReturnButton);
  ExpectConnectedLook();
}

TEST_F(Navigation, VideoGoesStraightToTheSettingsBelowFirmware274) {
  StartWith(0x0111);
  Press(kVideoButton);
  EXPECT_EQ(panel->CurrentPage(), PageCode::kVideoSettings);
  EXPECT_EQ(ShownPages(), std::vector<int>{res::kVideoSettings});
  EXPECT_EQ(Buttons(), (Texts{"Page Up 65", "Apply 105", "Return 145"}));
  Press(kReturnButton);
  EXPECT_EQ(panel->CurrentPage(), PageCode::kInformation);
  EXPECT_EQ(ShownPages(), std::vector<int>{res::kInformation});
  // Refresh stays hidden on this way back.
  EXPECT_EQ(Buttons(),
            (Texts{"Information 65", "Video 105", "Audio 145", "Proc Amp 185", "Setting 225"}));
  EXPECT_EQ(desk.PlaceOf(res::kMain, kReturnButton), (Rect{0, 105, 110, 40}));
  EXPECT_EQ(desk.PlaceOf(res::kMain, kApplyButton), (Rect{0, 65, 110, 40}));
  EXPECT_EQ(desk.PlaceOf(res::kMain, kPageUpButton), (Rect{0, 145, 110, 40}));
  EXPECT_EQ(panel->Panel().cycleState, 0);
}

TEST_F(Navigation, InformationButtonRefreshesAndKeepsTheOtherButtons) {
  Start();
  TakeCalls();
  Press(kInformationButton);
  EXPECT_EQ(TakeCalls(), kInformationCalls);
  ExpectConnectedLook();
}

struct MenuRow {
  PageCode code;
  int page;
  Texts buttons;
};

TEST_F(Navigation, VideoSubPagesShowTheirButtonsAndReturnToTheMenu) {
  const Texts usual = {"Apply 65", "Default 105", "Return 145"};
  const MenuRow rows[] = {
      {PageCode::kVideoSettings, res::kVideoSettings, {"Page Up 65", "Apply 105", "Return 145"}},
      {PageCode::kDisplayMode,
       res::kDisplayMode,
       {"Apply 65", "Default 105", "Return 145", "Page Up 185"}},
      {PageCode::kTvWall, res::kTvWall, {"1X1 65", "2X2 105", "3X3 145", "4X4 185", "Return 225"}},
      {PageCode::kPip, res::kPip, usual},
      {PageCode::kGenlock, res::kGenlock, usual},
      {PageCode::kImageAdjust, res::kImageAdjust, usual},
      {PageCode::kRoi, res::kRoi, usual},
  };
  Start();
  for (const MenuRow& row : rows) {
    Press(kVideoButton);
    panel->OpenPage(row.code);
    EXPECT_EQ(panel->CurrentPage(), row.code);
    EXPECT_EQ(ShownPages(), std::vector<int>{row.page});
    EXPECT_EQ(Buttons(), row.buttons) << row.page;
    Press(kReturnButton);
    EXPECT_EQ(panel->CurrentPage(), PageCode::kVideoMenu);
    EXPECT_EQ(ShownPages(), std::vector<int>{res::kVideoMenu});
    EXPECT_EQ(Buttons(), Texts{"Return 65"}) << row.page;
    Press(kReturnButton);
    ExpectConnectedLook();
  }
}

TEST_F(Navigation, TextLabelsReturnsToInformation) {
  Start();
  panel->OpenPage(PageCode::kTextLabels);
  EXPECT_EQ(panel->CurrentPage(), PageCode::kTextLabels);
  EXPECT_EQ(ShownPages(), std::vector<int>{res::kTextLabels});
  EXPECT_EQ(Buttons(), (Texts{"Apply 65", "Default 105", "Return 145"}));
  Press(kReturnButton);
  ExpectConnectedLook();
}

TEST_F(Navigation, VideoMenuButtonsOpenTheirPages) {
  const std::pair<int, int> rows[] = {{1002, res::kVideoSettings},
                                      {1003, res::kDisplayMode},
                                      {1004, res::kTvWall},
                                      {1005, res::kPip},
                                      {1006, res::kGenlock},
                                      {1007, res::kImageAdjust},
                                      {1008, res::kRoi}};
  Start();
  for (const auto& [button, page] : rows) {
    Press(kVideoButton);
    desk.Press(res::kVideoMenu, button);
    EXPECT_EQ(ShownPages(), std::vector<int>{page}) << button;
    Press(kReturnButton);
    Press(kReturnButton);
  }
}

TEST_F(Navigation, RefreshOnTheVideoMenuOnlySilencesTheMonitor) {
  Start();
  Press(kVideoButton);
  TakeCalls();
  Press(kPictureButton);
  EXPECT_EQ(TakeCalls(), Calls{});
  EXPECT_EQ(panel->Panel().tickSkip, 2);
}

TEST_F(Navigation, RefreshOnProcAmpReadsItsValuesAgain) {
  Start();
  Press(kProcAmpButton);
  TakeCalls();
  Press(kPictureButton);
  EXPECT_EQ(TakeCalls(), (Calls{"get proc amp", "get block 14,0,3"}));
  EXPECT_EQ(ShownPages(), std::vector<int>{res::kProcAmp});
}

TEST_F(Navigation, ApplySilencesFiveTicksAndDefaultTwo) {
  Start();
  Press(kApplyButton);
  EXPECT_EQ(panel->Panel().tickSkip, 5);
  Press(kAudioButton);
  Press(kDefaultButton);
  EXPECT_EQ(panel->Panel().tickSkip, 2);
}

TEST_F(Navigation, PageUpTogglesOnVideoSettingsAndProcAmp) {
  Start();
  Press(kPageUpButton);
  EXPECT_EQ(panel->Panel().cycleState, 0);
  Press(kVideoButton);
  Press(kPageUpButton);
  EXPECT_EQ(panel->Panel().cycleState, 0);
  desk.Press(res::kVideoMenu, 1002);
  for (const int state : {1, 0, 1}) {
    Press(kPageUpButton);
    EXPECT_EQ(panel->Panel().cycleState, state);
  }
  Press(kReturnButton);
  EXPECT_EQ(panel->Panel().cycleState, 0);
  Press(kReturnButton);
  Press(kProcAmpButton);
  for (const int state : {1, 0, 1}) {
    Press(kPageUpButton);
    EXPECT_EQ(panel->Panel().cycleState, state);
  }
  Press(kReturnButton);
  EXPECT_EQ(panel->Panel().cycleState, 0);
}

TEST_F(Navigation, PageUpDoesNothingOnPagesWithoutASecondView) {
  admitted = {39};
  StartWith(0x0126, {39, 0, 0, 0, 0});
  const auto stays = [&] {
    EXPECT_EQ(CallsOf(kPageUpButton), Calls{}) << static_cast<int>(panel->CurrentPage());
    EXPECT_EQ(panel->Panel().cycleState, 0);
  };
  for (const int button : {kInformationButton, kVideoButton, kAudioButton, kSettingButton}) {
    Press(button);
    stays();
    Press(kReturnButton);
  }
  for (const PageCode code : {PageCode::kTvWall, PageCode::kPip, PageCode::kGenlock,
                              PageCode::kImageAdjust, PageCode::kRoi, PageCode::kTextLabels}) {
    panel->OpenPage(code);
    stays();
  }
}

TEST_F(Navigation, PageUpTogglesOnDisplayMode) {
  Start();
  panel->OpenPage(PageCode::kDisplayMode);
  for (const int state : {1, 0, 1}) {
    Press(kPageUpButton);
    EXPECT_EQ(panel->Panel().cycleState, state);
  }
}

TEST_F(Navigation, VideoSettingsHasThreeSubPagesOnSomeModelsAndBrands) {
  struct Row {
    std::uint8_t boxType;
    std::uint8_t brandCode;
    int subPages;
  };
  const Row rows[] = {{24, 2, 3}, {34, 2, 3}, {24, 1, 2}, {34, 0, 2}, {37, 0, 3}, {38, 1, 3},
                      {37, 2, 2}, {38, 2, 2}, {50, 2, 2}, {26, 2, 2}, {20, 0, 2}};
  admitted = {20, 24, 26, 34, 37, 38, 50};
  for (const Row& row : rows) {
    StartWith(0x0126, {row.boxType, row.brandCode, 0, 0, 0});
    panel->OpenPage(PageCode::kVideoSettings);
    for (int press = 1; press <= 6; ++press) {
      Press(kPageUpButton);
      EXPECT_EQ(panel->Panel().cycleState, press % row.subPages)
          << int{row.boxType} << " brand " << int{row.brandCode};
    }
    panel.reset();
  }
}

TEST_F(Navigation, OpeningVideoSettingsStartsAtSubPageZero) {
  Start();
  panel->OpenPage(PageCode::kVideoSettings);
  Press(kPageUpButton);
  panel->OpenPage(PageCode::kVideoSettings);
  EXPECT_EQ(panel->Panel().cycleState, 0);
}

TEST_F(Navigation, ConnectionChangeResetsPageUp) {
  Start();
  Press(kProcAmpButton);
  Press(kPageUpButton);
  box.SetPresent(false);
  for (int i = 0; i < 3; ++i) Tick();  // two are skipped after the sliders have painted
  EXPECT_EQ(panel->Panel().cycleState, 0);
  box.SetPresent(true);
  Tick();
  ExpectConnectedLook();
}

TEST_F(Navigation, WallButtonsSetSizeAndFirstTile) {
  admitted = {14};
  StartWith(0x0126, {14, 0, 0, 0, 0});
  box.Block(8) = {2, 3};
  panel->OpenPage(PageCode::kTvWall);
  EXPECT_EQ(panel->Panel().wallSize, 2U);
  EXPECT_EQ(panel->Panel().tilePosition, 3U);
  const int buttons[] = {kWall1Button, kWall2Button, kWall3Button, kWall4Button};
  for (std::uint32_t size = 1; size <= 4; ++size) {
    Press(buttons[size - 1]);
    EXPECT_EQ(panel->Panel().wallSize, size);
    EXPECT_EQ(panel->Panel().tilePosition, 0U);
  }
}

TEST_F(Navigation, WallLayoutIsReadFromThePropertyOfTheModel) {
  struct Row {
    std::vector<std::uint8_t> types;
    Calls calls;
  };
  const Row rows[] = {
      {{37, 38, 39, 40, 46, 47, 48, 49}, {"get block 16,0,20"}},
      {{14, 36}, {"get block 8,0,20"}},
      {{18, 20, 30, 32, 33, 43}, {"get word 0,8", "get word 0,9"}},
      {{17, 35}, {"get word 0,10", "get word 0,11"}},
      {{26, 50, 51, 15}, {}},
  };
  for (const Row& row : rows) {
    for (const std::uint8_t type : Tried(row.types)) {
      admitted = {type};
      StartWith(0x0126, {type, 0, 0, 0, 0});
      panel->OpenPage(PageCode::kTvWall);
      EXPECT_EQ(TakeCalls(), row.calls) << int{type};
      panel.reset();
    }
  }
}

TEST_F(Navigation, FailedWallReadKeepsTheEarlierLayout) {
  admitted = {14};
  StartWith(0x0126, {14, 0, 0, 0, 0});
  box.Block(8) = {3, 7};
  panel->OpenPage(PageCode::kTvWall);
  device.Fail("get block 8,0,20");
  box.Block(8) = {1, 0};
  panel->OpenPage(PageCode::kTvWall);
  EXPECT_EQ(panel->Panel().wallSize, 3U);
  EXPECT_EQ(panel->Panel().tilePosition, 7U);
}

TEST_F(Navigation, InformationLookLacksWhatTheModelLacks) {
  struct Row {
    std::vector<std::uint8_t> types;
    bool audio;
    bool procAmp;
  };
  const Row rows[] = {{{6, 7, 52, 53, 54, 55}, true, false},
                      {{5, 27}, false, false},
                      {{19}, false, true},
                      {{26, 20, 13, 50}, true, true}};
  for (const Row& row : rows) {
    for (const std::uint8_t type : Tried(row.types)) {
      admitted = {type};
      StartWith(0x0126, {type, 0, 0, 0, 0});
      for (const int press : {kInformationButton, kSettingButton, kReturnButton}) Press(press);
      EXPECT_EQ(desk.Shows(res::kMain, kAudioButton), row.audio) << int{type};
      EXPECT_EQ(desk.Shows(res::kMain, kProcAmpButton), row.procAmp) << int{type};
      panel.reset();
    }
  }
}

TEST_F(Navigation, ProcAmpIsReadAsTheModelTellsIt) {
  const Calls single = {"get proc amp 0,2", "get proc amp 0,3", "get proc amp 0,4",
                        "get proc amp 0,5"};
  struct Row {
    std::vector<std::uint8_t> types;
    Calls calls;
  };
  const Row rows[] = {
      {{13, 14, 15, 17, 18, 19, 20, 30, 32, 33, 35, 36, 43, 48, 49}, single},
      {{6, 7}, {}},
      {{50, 24, 46}, {"get proc amp"}},
  };
  for (const Row& row : rows) {
    for (const std::uint8_t type : Tried(row.types)) {
      admitted = {type};
      StartWith(0x0126, {type, 0, 0, 0, 0});
      box.Picture() = {1, 2, 3, 4};
      Press(kProcAmpButton);
      EXPECT_EQ(TakeCalls(), row.calls) << int{type};
      const ProcAmpCache expected = row.calls.empty()
                                        ? kProcAmpStart
                                        : ProcAmpCache{1, 2, 3, 4, 128, 128, 128, 128, 128, 128};
      EXPECT_EQ(panel->Panel().procAmpCache, expected) << int{type};
      panel.reset();
    }
  }
}

TEST_F(Navigation, PortListBindsAPortAndShowsInformation) {
  Start();
  panel->Window().AddItem(kPortList, "NUL");
  panel->Window().AddItem(kPortList, "no such port");
  Press(kAudioButton);
  TakeCalls();
  desk.Choose(res::kMain, kPortList, 0);
  EXPECT_NE(panel->Panel().serialHandle, ui::kInvalidSerial);
  EXPECT_EQ(TakeCalls(), Join({kInformationCalls, kMultiViewCall}));
  EXPECT_EQ(panel->CurrentPage(), PageCode::kInformation);
  EXPECT_TRUE(desk.IsShown(res::kInformation));
  // A port that can't be opened: the old one is closed, and nothing else happens.
  Press(kSettingButton);
  TakeCalls();
  desk.Choose(res::kMain, kPortList, 1);
  EXPECT_EQ(panel->Panel().serialHandle, ui::kInvalidSerial);
  EXPECT_EQ(TakeCalls(), Calls{});
  EXPECT_EQ(panel->CurrentPage(), PageCode::kSetting);
}

TEST_F(Navigation, InformationHidesThePagesUpToTvWallAndKeepsTheOthers) {
  Start();
  panel->OpenPage(PageCode::kRoi);
  Press(kInformationButton);
  EXPECT_EQ(ShownPages(), (std::vector<int>{res::kInformation, res::kRoi}));
  EXPECT_TRUE(desk.Shows(res::kMain, kApplyButton));
  EXPECT_FALSE(desk.Shows(res::kMain, kDefaultButton));
  EXPECT_FALSE(desk.Shows(res::kMain, kReturnButton));
}

TEST_F(Navigation, InformationResetsPageUp) {
  Start();
  Press(kProcAmpButton);
  Press(kPageUpButton);
  Press(kInformationButton);
  EXPECT_EQ(panel->Panel().cycleState, 0);
}

TEST_F(Navigation, RefreshOnTheWallReadsItsLayoutAgain) {
  admitted = {14};
  StartWith(0x0126, {14, 0, 0, 0, 0});
  panel->OpenPage(PageCode::kTvWall);
  TakeCalls();
  Press(kPictureButton);
  EXPECT_EQ(TakeCalls(), Calls{"get block 8,0,20"});
  EXPECT_EQ(ShownPages(), std::vector<int>{res::kTvWall});
}

TEST_F(Navigation, ConnectionChangeForgetsTheProcAmpValues) {
  Start();
  box.Picture() = {10, 20, 30, 40};
  Press(kProcAmpButton);
  box.SetPresent(false);
  for (int i = 0; i < 3; ++i) Tick();
  EXPECT_EQ(panel->Panel().procAmpCache, kProcAmpStart);
}

TEST_F(Navigation, SingleProcAmpValuesThatFailStandInTheMiddle) {
  admitted = {20};
  StartWith(0x0126, {20, 0, 0, 0, 0});
  box.Picture() = {1, 2, 3, 4};
  Press(kProcAmpButton);
  device.Fail("get proc amp 0,4");
  Press(kPictureButton);
  EXPECT_EQ(panel->Panel().procAmpCache,
            (ProcAmpCache{1, 2, 128, 4, 128, 128, 128, 128, 128, 128}));
}

TEST_F(Navigation, OtherModelsHaveApplyOnAudioAndSetting) {
  admitted = {20};
  StartWith(0x0126, {20, 0, 0, 0, 0});
  Press(kAudioButton);
  EXPECT_EQ(Buttons(), (Texts{"Apply 65", "Return 105"}));
  Press(kReturnButton);
  Press(kSettingButton);
  EXPECT_EQ(Buttons(), (Texts{"Apply 65", "Return 105"}));
}

// What the operator can press, in turn and without an answer of the box: one page is shown, no
// button stands over another, and the keyboard is on something.
TEST_F(Navigation, ButtonsPressedInTurnLeaveTheWindowWhole) {
  constexpr int kTemplates[] = {103, 104, 105, 106, 107, 110, 109, 108, 111, 112, 113, 114, 115};
  for (const std::uint8_t brand : Bytes{0, 2}) {
    StartWith(0x0126, {26, brand, 0, 0, 0});
    device.FailEverything();
    int pressed = 0;
    for (int round = 0; round < 8; ++round) {
      for (const NavigationButton& button : kNavigationButtons) {
        if (!desk.Shows(res::kMain, button.control)) continue;
        SCOPED_TRACE(button.control);
        ++pressed;
        Press(button.control);
        const int page = kTemplates[static_cast<int>(panel->CurrentPage())];
        EXPECT_EQ(ShownPages(), std::vector<int>{page});
        EXPECT_EQ(desk.PlaceOf(page), (Rect{110, 65, 540, 335}));
        EXPECT_EQ(PictureRect(), (Rect{0, 0, 600, 65}));
        std::vector<int> tops;
        for (const NavigationButton& shown : kNavigationButtons) {
          if (!desk.Shows(res::kMain, shown.control)) continue;
          const Rect place = desk.PlaceOf(res::kMain, shown.control);
          for (const int top : tops) EXPECT_GE(std::abs(place.y - top), 40) << shown.control;
          tops.push_back(place.y);
        }
        const auto [dialog, control] = desk.Focus(res::kMain);
        EXPECT_TRUE(desk.IsShown(dialog));
        EXPECT_TRUE(desk.Shows(dialog, control)) << control;
        EXPECT_TRUE(desk.Enables(dialog, control)) << control;
      }
    }
    EXPECT_GT(pressed, 20);
    for (int i = 0; i < 2 && desk.Shows(res::kMain, kReturnButton); ++i) Press(kReturnButton);
    ExpectConnectedLook();
    device.FailNothing();
    panel.reset();
  }
}

}  // namespace
}  // namespace panelora::testing
