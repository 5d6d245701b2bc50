// Every navigation button: which page it shows, with which buttons where.
#include "tests/windows/end_to_end/device_calls.h"
#include "tests/windows/end_to_end/panel_test.h"

namespace panelora::end_to_end {

namespace {

class NavigationTest : public PanelTest {
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
  look.controls.erase(kRefresh);
  return look;
}

Look VideoSettingsLook() {
  return PageLook(kVideoSettingsPage,
                  {{kPageUp, ButtonAt(65)}, {kApply, ButtonAt(105)}, {kReturn, ButtonAt(145)}});
}

Look VideoMenuLook() { return PageLook(kVideoMenuPage, {{kReturn, ButtonAt(65)}}); }

// A video page that has defaults of its own.
Look VideoPageLook(int page) {
  return PageLook(page,
                  {{kApply, ButtonAt(65)}, {kDefault, ButtonAt(105)}, {kReturn, ButtonAt(145)}});
}

Look AudioLook() {
  return PageLook(kAudioPage, {{kApply, ButtonAt(65)}, {kReturn, ButtonAt(105)}});
}

Look ProcAmpLook() {
  return PageLook(kProcAmpPage,
                  {{kDefault, ButtonAt(65)}, {kReturn, ButtonAt(105)}, {kPageUp, ButtonAt(145)}});
}

// Without anything to apply Return stays where it was last.
Look SettingLook(int returnPlace) {
  return PageLook(kSettingPage, {{kReturn, ButtonAt(returnPlace)}});
}

Look SettingLookWithApply() {
  return PageLook(kSettingPage, {{kApply, ButtonAt(65)}, {kReturn, ButtonAt(105)}});
}

TEST_F(NavigationTest, Firmware273GoesStraightToTheVideoSettings) {
  PanelProcess& panel = Start({.firmware = 273});
  EXPECT_EQ(panel.Text(kInformationPage, 1014), "0.1.1.1");
  Walk(panel, {{kMain, kInformation, HomeLook()},
               {kMain, kRefresh, HomeLook()},
               {kMain, kSetting, SettingLook(65)},
               {kMain, kReturn, HomeLook()},
               {kMain, kVideo, VideoSettingsLook()},
               {kMain, kPageUp, VideoSettingsLook()},
               {kMain, kPageUp, VideoSettingsLook()},
               {kMain, kApply, VideoSettingsLook()},
               {kMain, kPicture, VideoSettingsLook()},
               {kMain, kReturn, HomeLookWithoutRefresh()}});
  // Hidden, and moved all the same.
  EXPECT_EQ(panel.PlaceOf(panel.Control(kMain, kReturn)), ButtonAt(105));
  EXPECT_EQ(panel.PlaceOf(panel.Control(kMain, kApply)), ButtonAt(65));
  EXPECT_EQ(panel.PlaceOf(panel.Control(kMain, kPageUp)), ButtonAt(145));
  Walk(panel, {{kMain, kInformation, HomeLookWithoutRefresh()},
               {kMain, kSetting, SettingLook(105)},
               {kMain, kReturn, HomeLook()},
               {kMain, kSetting, SettingLook(65)},
               {kMain, kReturn, HomeLook()},
               {kMain, kAudio, AudioLook()},
               {kMain, kReturn, HomeLook()},
               {kMain, kProcAmp, ProcAmpLook()},
               {kMain, kReturn, HomeLook()}});
}

class VideoMenuTest : public NavigationTest, public ::testing::WithParamInterface<std::uint32_t> {};

TEST_P(VideoMenuTest, LeadsToTheVideoPagesAndBack) {
  PanelProcess& panel = Start({.firmware = GetParam()});
  // From firmware 281 there is something to apply on the Setting page.
  const Look setting = GetParam() >= 281 ? SettingLookWithApply() : SettingLook(65);
  Walk(panel, {{kMain, kInformation, HomeLook()},
               {kMain, kRefresh, HomeLook()},
               {kMain, kPicture, HomeLook()},
               {kMain, kVideo, VideoMenuLook()}});
  EXPECT_EQ(
      panel.ShownControls(kVideoMenuPage),
      (Places{{1047, {45, 30, 390, 250}}, {1002, {60, 85, 360, 50}}, {1007, {60, 170, 360, 50}}}));
  Walk(panel, {{kMain, kReturn, HomeLook()},
               {kMain, kVideo, VideoMenuLook()},
               {kVideoMenuPage, 1002, VideoSettingsLook()},
               {kMain, kPageUp, VideoSettingsLook()},
               {kMain, kApply, VideoSettingsLook()},
               {kMain, kReturn, VideoMenuLook()},
               {kVideoMenuPage, 1007, VideoPageLook(kImageAdjustPage)},
               {kMain, kApply, VideoPageLook(kImageAdjustPage)},
               {kMain, kDefault, VideoPageLook(kImageAdjustPage)},
               {kMain, kPicture, VideoPageLook(kImageAdjustPage)},
               {kMain, kReturn, VideoMenuLook()},
               {kMain, kPicture, VideoMenuLook()},
               {kMain, kReturn, HomeLook()},
               {kMain, kAudio, AudioLook()},
               {kMain, kApply, AudioLook()},
               {kMain, kPicture, AudioLook()},
               {kMain, kReturn, HomeLook()},
               {kMain, kProcAmp, ProcAmpLook()},
               {kMain, kPageUp, ProcAmpLook()},
               {kMain, kDefault, ProcAmpLook()},
               {kMain, kPicture, ProcAmpLook()},
               {kMain, kReturn, HomeLook()},
               {kMain, kSetting, setting},
               {kMain, kPicture, setting},
               {kMain, kReturn, HomeLook()}});
}

INSTANTIATE_TEST_SUITE_P(Firmware, VideoMenuTest, ::testing::Values(274, 280, 281, 0x0126),
                         ::testing::PrintToStringParamName());

TEST_F(NavigationTest, Brand2HasApplyOnTheProcAmpPage) {
  PanelProcess& panel = Start({.identity = {26, 2, 0, 0, 0}});
  Walk(panel, {{kMain, kProcAmp,
                PageLook(kProcAmpPage, {{kDefault, ButtonAt(65)},
                                        {kApply, ButtonAt(105)},
                                        {kReturn, ButtonAt(145)},
                                        {kPageUp, ButtonAt(185)}})},
               {kMain, kReturn, HomeLook()},
               {kMain, kAudio, AudioLook()},
               {kMain, kReturn, HomeLook()}});
}

// Model 26 shows no buttons for these pages; their procedures are there all the same.
TEST_F(NavigationTest, EveryVideoPageComesWithItsButtons) {
  Look displayMode = VideoPageLook(kDisplayModePage);
  displayMode.controls[kPageUp] = ButtonAt(185);
  const Look tvWall = PageLook(kTvWallPage, {{kWall1, ButtonAt(65)},
                                             {kWall2, ButtonAt(105)},
                                             {kWall3, ButtonAt(145)},
                                             {kWall4, ButtonAt(185)},
                                             {kReturn, ButtonAt(225)}});
  const std::pair<int, Look> pages[] = {{1003, displayMode},
                                        {1004, tvWall},
                                        {1005, VideoPageLook(kPipPage)},
                                        {1006, VideoPageLook(kGenlockPage)},
                                        {1008, VideoPageLook(kRoiPage)}};
  PanelProcess& panel = Start();
  panel.Press(kMain, kVideo);
  for (const auto& [button, look] : pages) {
    SCOPED_TRACE(button);
    panel.Command(kVideoMenuPage, button);
    EXPECT_EQ(panel.CurrentLook(), look);
    panel.Press(kMain, kReturn);
    EXPECT_EQ(panel.CurrentLook(), VideoMenuLook());
  }
}

TEST_F(NavigationTest, InformationReadsFormatAndFirmware) {
  PanelProcess& panel = Start();
  panel.TakeCalls();
  panel.Press(kMain, kInformation);
  EXPECT_EQ(panel.TakeCalls(), kReadInformation);
  panel.Press(kMain, kVideo);
  EXPECT_EQ(panel.TakeCalls(), kNothing);
  panel.Press(kMain, kReturn);
  EXPECT_EQ(panel.TakeCalls(), kReadInformation);
}

// The second press of a quick pair arrives as a double click.
TEST_F(NavigationTest, TwoQuickPressesOfTheMouseCountTwice) {
  PanelProcess& panel = Start();
  panel.TakeCalls();
  const HWND button = panel.Control(kMain, kRefresh);
  const LPARAM middle = MAKELPARAM(55, 22);
  panel.Send(button, WM_LBUTTONDOWN, MK_LBUTTON, middle);
  panel.Send(button, WM_LBUTTONUP, 0, middle);
  EXPECT_EQ(panel.TakeCalls(), kReadInformation);
  panel.Send(button, WM_LBUTTONDBLCLK, MK_LBUTTON, middle);
  panel.Send(button, WM_LBUTTONUP, 0, middle);
  EXPECT_EQ(panel.TakeCalls(), kReadInformation);
}

TEST_F(NavigationTest, PageUpOnInformationDoesNothing) {
  PanelProcess& panel = Start();
  panel.TakeCalls();
  panel.Command(kMain, kPageUp);
  EXPECT_EQ(panel.TakeCalls(), kNothing);
  EXPECT_EQ(panel.CurrentLook(), HomeLook());
}

TEST_F(NavigationTest, NewFirmwareCountsFromTheNextReadOfInformation) {
  PanelProcess& panel = Start({.firmware = 273});
  panel.Become({26, 0, 0, 0, 0}, 274);
  panel.Press(kMain, kVideo);
  EXPECT_EQ(panel.CurrentLook(), VideoSettingsLook());
  panel.Press(kMain, kReturn);  // reads the new version, but the old one chose the way back
  EXPECT_EQ(panel.Text(kInformationPage, 1014), "0.1.1.2");
  panel.Press(kMain, kVideo);
  EXPECT_EQ(panel.CurrentLook(), VideoMenuLook());
}

}  // namespace

}  // namespace panelora::end_to_end
