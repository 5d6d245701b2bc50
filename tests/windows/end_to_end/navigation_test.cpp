// Every navigation button: which page it shows, with which buttons where.
#include "tests/support/information_controls.h"
#include "tests/support/video_menu_controls.h"
#include "tests/windows/end_to_end/program_test.h"

namespace panelora::testing::end_to_end {

namespace {

class NavigationTest : public ProgramTest {
 protected:
  // A press and what is to be seen after it.
  struct Step {
    int dialog;
    int button;
    Look look;
  };

  void Walk(PanelProcess& panel, const std::vector<Step>& steps) {
    int count = 0;
    for (const Step& step : steps) {
      SCOPED_TRACE(::testing::Message() << "step " << ++count << ", button " << step.button);
      panel.Press(step.dialog, step.button);
      ASSERT_EQ(panel.CurrentLook(), step.look);
      ASSERT_EQ(panel.PlaceOf(panel.Page(step.look.pages.front())), (ui::Rect{110, 65, 540, 335}));
    }
  }
};

// The Information page as it is left behind when a Video page was left directly: without Refresh.
Look HomeLookWithoutRefresh() {
  Look look = HomeLook();
  look.controls.erase(kRefreshButton);
  return look;
}

Look VideoSettingsLook() {
  return PageLook(res::kVideoSettings, {{kPageUpButton, ButtonAt(65)},
                                        {kApplyButton, ButtonAt(105)},
                                        {kReturnButton, ButtonAt(145)}});
}

Look VideoMenuLook() { return PageLook(res::kVideoMenu, {{kReturnButton, ButtonAt(65)}}); }

// A video page that has defaults of its own.
Look VideoPageLook(int page) {
  return PageLook(page, {{kApplyButton, ButtonAt(65)},
                         {kDefaultButton, ButtonAt(105)},
                         {kReturnButton, ButtonAt(145)}});
}

Look AudioLook() {
  return PageLook(res::kAudio, {{kApplyButton, ButtonAt(65)}, {kReturnButton, ButtonAt(105)}});
}

Look ProcAmpLook() {
  return PageLook(res::kProcAmp, {{kDefaultButton, ButtonAt(65)},
                                  {kReturnButton, ButtonAt(105)},
                                  {kPageUpButton, ButtonAt(145)}});
}

// Without anything to apply Return stays where it was last.
Look SettingLook(int returnPlace) {
  return PageLook(res::kSetting, {{kReturnButton, ButtonAt(returnPlace)}});
}

Look SettingLookWithApply() {
  return PageLook(res::kSetting, {{kApplyButton, ButtonAt(65)}, {kReturnButton, ButtonAt(105)}});
}

TEST_F(NavigationTest, Firmware273GoesStraightToTheVideoSettings) {
  PanelProcess& panel = Start({.firmware = 273});
  EXPECT_EQ(panel.Text(res::kInformation, kFirmwareValue), "0.1.1.1");
  Walk(panel, {{res::kMain, kInformationButton, HomeLook()},
               {res::kMain, kRefreshButton, HomeLook()},
               {res::kMain, kSettingButton, SettingLook(65)},
               {res::kMain, kReturnButton, HomeLook()},
               {res::kMain, kVideoButton, VideoSettingsLook()},
               {res::kMain, kPageUpButton, VideoSettingsLook()},
               {res::kMain, kPageUpButton, VideoSettingsLook()},
               {res::kMain, kApplyButton, VideoSettingsLook()},
               {res::kMain, kPictureButton, VideoSettingsLook()},
               {res::kMain, kReturnButton, HomeLookWithoutRefresh()}});
  // Hidden, and moved all the same.
  EXPECT_EQ(panel.PlaceOf(panel.Control(res::kMain, kReturnButton)), ButtonAt(105));
  EXPECT_EQ(panel.PlaceOf(panel.Control(res::kMain, kApplyButton)), ButtonAt(65));
  EXPECT_EQ(panel.PlaceOf(panel.Control(res::kMain, kPageUpButton)), ButtonAt(145));
  Walk(panel, {{res::kMain, kInformationButton, HomeLookWithoutRefresh()},
               {res::kMain, kSettingButton, SettingLook(105)},
               {res::kMain, kReturnButton, HomeLook()},
               {res::kMain, kSettingButton, SettingLook(65)},
               {res::kMain, kReturnButton, HomeLook()},
               {res::kMain, kAudioButton, AudioLook()},
               {res::kMain, kReturnButton, HomeLook()},
               {res::kMain, kProcAmpButton, ProcAmpLook()},
               {res::kMain, kReturnButton, HomeLook()}});
}

class VideoMenuTest : public NavigationTest, public ::testing::WithParamInterface<std::uint32_t> {};

TEST_P(VideoMenuTest, LeadsToTheVideoPagesAndBack) {
  PanelProcess& panel = Start({.firmware = GetParam()});
  // From firmware 281 there is something to apply on the Setting page.
  const Look setting = GetParam() >= 281 ? SettingLookWithApply() : SettingLook(65);
  Walk(panel, {{res::kMain, kInformationButton, HomeLook()},
               {res::kMain, kRefreshButton, HomeLook()},
               {res::kMain, kPictureButton, HomeLook()},
               {res::kMain, kVideoButton, VideoMenuLook()}});
  EXPECT_EQ(panel.ShownControls(res::kVideoMenu),
            (Places{{1047, {45, 30, 390, 250}},
                    {kVideoSettingsButton, {60, 85, 360, 50}},
                    {kImageAdjustButton, {60, 170, 360, 50}}}));
  Walk(panel, {{res::kMain, kReturnButton, HomeLook()},
               {res::kMain, kVideoButton, VideoMenuLook()},
               {res::kVideoMenu, kVideoSettingsButton, VideoSettingsLook()},
               {res::kMain, kPageUpButton, VideoSettingsLook()},
               {res::kMain, kApplyButton, VideoSettingsLook()},
               {res::kMain, kReturnButton, VideoMenuLook()},
               {res::kVideoMenu, kImageAdjustButton, VideoPageLook(res::kImageAdjust)},
               {res::kMain, kApplyButton, VideoPageLook(res::kImageAdjust)},
               {res::kMain, kDefaultButton, VideoPageLook(res::kImageAdjust)},
               {res::kMain, kPictureButton, VideoPageLook(res::kImageAdjust)},
               {res::kMain, kReturnButton, VideoMenuLook()},
               {res::kMain, kPictureButton, VideoMenuLook()},
               {res::kMain, kReturnButton, HomeLook()},
               {res::kMain, kAudioButton, AudioLook()},
               {res::kMain, kApplyButton, AudioLook()},
               {res::kMain, kPictureButton, AudioLook()},
               {res::kMain, kReturnButton, HomeLook()},
               {res::kMain, kProcAmpButton, ProcAmpLook()},
               {res::kMain, kPageUpButton, ProcAmpLook()},
               {res::kMain, kDefaultButton, ProcAmpLook()},
               {res::kMain, kPictureButton, ProcAmpLook()},
               {res::kMain, kReturnButton, HomeLook()},
               {res::kMain, kSettingButton, setting},
               {res::kMain, kPictureButton, setting},
               {res::kMain, kReturnButton, HomeLook()}});
}

INSTANTIATE_TEST_SUITE_P(Firmware, VideoMenuTest, ::testing::Values(274, 280, 281, 0x0126),
                         ::testing::PrintToStringParamName());

TEST_F(NavigationTest, Brand2HasApplyOnTheProcAmpPage) {
  PanelProcess& panel = Start({.identity = {26, 2, 0, 0, 0}});
  Walk(panel, {{res::kMain, kProcAmpButton,
                PageLook(res::kProcAmp, {{kDefaultButton, ButtonAt(65)},
                                         {kApplyButton, ButtonAt(105)},
                                         {kReturnButton, ButtonAt(145)},
                                         {kPageUpButton, ButtonAt(185)}})},
               {res::kMain, kReturnButton, HomeLook()},
               {res::kMain, kAudioButton, AudioLook()},
               {res::kMain, kReturnButton, HomeLook()}});
}

// Model 26 shows no buttons for these pages; their procedures are there all the same.
TEST_F(NavigationTest, EveryVideoPageComesWithItsButtons) {
  Look displayMode = VideoPageLook(res::kDisplayMode);
  displayMode.controls[kPageUpButton] = ButtonAt(185);
  const Look tvWall = PageLook(res::kTvWall, {{kWall1Button, ButtonAt(65)},
                                              {kWall2Button, ButtonAt(105)},
                                              {kWall3Button, ButtonAt(145)},
                                              {kWall4Button, ButtonAt(185)},
                                              {kReturnButton, ButtonAt(225)}});
  const std::pair<int, Look> pages[] = {{kDisplayModeButton, displayMode},
                                        {kTvWallButton, tvWall},
                                        {kPipButton, VideoPageLook(res::kPip)},
                                        {kGenlockButton, VideoPageLook(res::kGenlock)},
                                        {kRoiButton, VideoPageLook(res::kRoi)}};
  PanelProcess& panel = Start();
  panel.Press(res::kMain, kVideoButton);
  for (const auto& [button, look] : pages) {
    SCOPED_TRACE(button);
    panel.Command(res::kVideoMenu, button);
    EXPECT_EQ(panel.CurrentLook(), look);
    panel.Press(res::kMain, kReturnButton);
    EXPECT_EQ(panel.CurrentLook(), VideoMenuLook());
  }
}

TEST_F(NavigationTest, InformationReadsFormatAndFirmware) {
  PanelProcess& panel = Start();
  panel.TakeCalls();
  panel.Press(res::kMain, kInformationButton);
  EXPECT_EQ(panel.TakeCalls(), kInformationCalls);
  panel.Press(res::kMain, kVideoButton);
  EXPECT_EQ(panel.TakeCalls(), Calls{});
  panel.Press(res::kMain, kReturnButton);
  EXPECT_EQ(panel.TakeCalls(), kInformationCalls);
}

// The second press of a quick pair arrives as a double click.
TEST_F(NavigationTest, TwoQuickPressesOfTheMouseCountTwice) {
  PanelProcess& panel = Start();
  panel.TakeCalls();
  const HWND button = panel.Control(res::kMain, kRefreshButton);
  const LPARAM middle = MAKELPARAM(55, 22);
  panel.Send(button, WM_LBUTTONDOWN, MK_LBUTTON, middle);
  panel.Send(button, WM_LBUTTONUP, 0, middle);
  EXPECT_EQ(panel.TakeCalls(), kInformationCalls);
  panel.Send(button, WM_LBUTTONDBLCLK, MK_LBUTTON, middle);
  panel.Send(button, WM_LBUTTONUP, 0, middle);
  EXPECT_EQ(panel.TakeCalls(), kInformationCalls);
}

TEST_F(NavigationTest, PageUpOnInformationDoesNothing) {
  PanelProcess& panel = Start();
  panel.TakeCalls();
  panel.Command(res::kMain, kPageUpButton);
  EXPECT_EQ(panel.TakeCalls(), Calls{});
  EXPECT_EQ(panel.CurrentLook(), HomeLook());
}

TEST_F(NavigationTest, NewFirmwareCountsFromTheNextReadOfInformation) {
  PanelProcess& panel = Start({.firmware = 273});
  panel.Become({26, 0, 0, 0, 0}, 274);
  panel.Press(res::kMain, kVideoButton);
  EXPECT_EQ(panel.CurrentLook(), VideoSettingsLook());
  panel.Press(res::kMain,
              kReturnButton);  // reads the new version, but the old one chose the way back
  EXPECT_EQ(panel.Text(res::kInformation, kFirmwareValue), "0.1.1.2");
  panel.Press(res::kMain, kVideoButton);
  EXPECT_EQ(panel.CurrentLook(), VideoMenuLook());
}

}  // namespace

}  // namespace panelora::testing::end_to_end
