// Where the keyboard is: always on a control that is seen and enabled, or on the window itself.
#include <functional>

#include "tests/support/scenario.h"
#include "tests/support/video_menu_controls.h"

namespace panelora::testing {

namespace {

using Focus = std::pair<int, int>;

class FocusTest : public Scenario {
 protected:
  Focus Now() { return desk.Focus(res::kMain); }
};

TEST_F(FocusTest, GoesToTheFirstControlOfThePageThatAButtonShows) {
  StartWith(0x0126);
  const std::pair<int, Focus> kWays[] = {
      {kVideoButton, {res::kVideoMenu, kVideoSettingsButton}},
      {kAudioButton, {res::kAudio, 1024}},
      {kProcAmpButton, {res::kProcAmp, 1032}},
      {kSettingButton, {res::kSetting, 1056}},
  };
  for (const auto& [button, first] : kWays) {
    Press(button);
    EXPECT_EQ(Now(), first) << button;
    Press(kReturnButton);
    EXPECT_EQ(Now(), Focus(res::kMain, button));
  }
}

TEST_F(FocusTest, BeginsOnInformation) {
  StartWith(0x0126);
  EXPECT_EQ(Now(), Focus(res::kMain, kInformationButton));
}

// As the eye finds them: what a page shows first has it first, whatever its number.
TEST_F(FocusTest, GoesToWhatStandsHighestOnThePage) {
  const std::pair<std::uint8_t, int> kFirst[] = {{26, 1024}, {14, 1041}, {29, 1049}, {51, 1029}};
  for (const auto& [type, first] : kFirst) {
    StartWith(Identity{type, 0, 0, 0, 0});
    Press(kAudioButton);
    EXPECT_EQ(Now(), Focus(res::kAudio, first)) << int{type};
    panel.reset();
  }
}

TEST_F(FocusTest, StaysOnTheButtonOfAPageWithoutControls) {
  StartWith(0x0126);
  Press(kInformationButton);
  EXPECT_EQ(Now(), Focus(res::kMain, kInformationButton));
}

TEST_F(FocusTest, ReturnBringsItBackToTheButtonThatLedThere) {
  StartWith(0x0126);
  box.Word(4) = {2, 0};  // positions can be set
  Press(kVideoButton);
  const std::pair<int, Focus> kWays[] = {
      {kVideoSettingsButton, {res::kVideoSettings, 1018}},
      {kImageAdjustButton, {res::kImageAdjust, 1091}},
  };
  for (const auto& [button, first] : kWays) {
    desk.Press(res::kVideoMenu, button);
    EXPECT_EQ(Now(), first) << button;
    Press(kReturnButton);
    EXPECT_EQ(Now(), Focus(res::kVideoMenu, button));
  }
  Press(kReturnButton);
  EXPECT_EQ(Now(), Focus(res::kMain, kVideoButton));
}

TEST_F(FocusTest, ReturnBringsItBackToVideoWhereThereIsNoMenu) {
  StartWith(273);
  Press(kVideoButton);
  EXPECT_EQ(Now().first, res::kVideoSettings);
  Press(kReturnButton);
  EXPECT_EQ(Now(), Focus(res::kMain, kVideoButton));
}

TEST_F(FocusTest, StaysOnApplyDefaultAndPageUp) {
  StartWith(0x0126);
  Press(kProcAmpButton);
  for (const int button : {kDefaultButton, kPageUpButton}) {
    Press(button);
    EXPECT_EQ(Now(), Focus(res::kMain, button));
  }
  Press(kReturnButton);
  Press(kAudioButton);
  Press(kApplyButton);
  EXPECT_EQ(Now(), Focus(res::kMain, kApplyButton));
}

TEST_F(FocusTest, StaysWhereItIsWhenThePictureRefreshesThePage) {
  StartWith({14, 0, 0, 0, 0});
  Press(kVideoButton);
  desk.Press(res::kVideoMenu, 1004);
  EXPECT_EQ(Now(), Focus(res::kTvWall, 1021));
  Press(kPictureButton);
  EXPECT_EQ(Now(), Focus(res::kMain, kPictureButton));
  Press(kReturnButton);
  Press(kReturnButton);
  Press(kProcAmpButton);
  Press(kPictureButton);
  EXPECT_EQ(Now(), Focus(res::kMain, kPictureButton));
}

// What a tick does to a dialog of plain controls.
class FocusOfPlainDialogs : public ::testing::Test, public ui::DialogEvents {
 protected:
  FocusOfPlainDialogs() {
    window->Show(true);
    for (ui::Dialog* page : {front.get(), back.get()}) page->Place({110, 65, 540, 335}, 1000);
    front->Show(true);
    desk.Settle();
  }
  void OnTimer(int /*timer*/) override { action(); }
  Focus After(std::function<void()> change) {
    action = std::move(change);
    desk.Tick(res::kMain, 1);
    return desk.Focus(res::kMain);
  }

  Desk desk;
  std::function<void()> action;
  std::unique_ptr<ui::Dialog> window = desk.Toolkit().CreateDialogFrom(res::kMain, *this, nullptr);
  std::unique_ptr<ui::Dialog> front =
      desk.Toolkit().CreateDialogFrom(res::kGenlock, *this, window.get());
  std::unique_ptr<ui::Dialog> back =
      desk.Toolkit().CreateDialogFrom(res::kTextLabels, *this, window.get());
};

TEST_F(FocusOfPlainDialogs, GoesToTheNextControlOfItsPageWhenItsOwnIsDisabledOrHidden) {
  EXPECT_EQ(After([&] { front->Focus(1087); }), Focus(res::kGenlock, 1087));
  EXPECT_EQ(After([&] { front->EnableControl(1087, false); }), Focus(res::kGenlock, 1109));
  EXPECT_EQ(After([&] { front->ShowControl(1109, false); }), Focus(res::kGenlock, 1106));
}

TEST_F(FocusOfPlainDialogs, GoesRoundToTheFirstControlFromTheLast) {
  EXPECT_EQ(After([&] { front->Focus(1106); }), Focus(res::kGenlock, 1106));
  EXPECT_EQ(After([&] { front->EnableControl(1106, false); }), Focus(res::kGenlock, 1080));
}

TEST_F(FocusOfPlainDialogs, GoesToThePageThatIsShownInstead) {
  EXPECT_EQ(After([&] { front->Focus(1109); }), Focus(res::kGenlock, 1109));
  EXPECT_EQ(After([&] {
              front->Show(false);
              back->Show(true);
            }),
            Focus(res::kTextLabels, 1113));
}

TEST_F(FocusOfPlainDialogs, GoesToTheWindowWhenNothingTakesIt) {
  EXPECT_EQ(After([&] { front->Focus(1109); }), Focus(res::kGenlock, 1109));
  EXPECT_EQ(After([&] {
              front->Show(false);
              for (const ui::ControlTemplate& control : res::FindDialog(res::kMain)->controls) {
                window->ShowControl(control.id, false);
              }
            }),
            Focus(res::kMain, 0));
  // And back as soon as something does.
  EXPECT_EQ(After([&] { window->ShowControl(1003, true); }), Focus(res::kMain, 1003));
}

TEST_F(FocusOfPlainDialogs, IsNotGivenToWhatCantHaveIt) {
  EXPECT_EQ(After([&] { front->Focus(1109); }), Focus(res::kGenlock, 1109));
  bool given = false;
  const Focus kept = {res::kGenlock, 1109};
  EXPECT_EQ(After([&] { given |= front->Focus(1077); }), kept);  // a label
  EXPECT_EQ(After([&] { given |= front->Focus(7); }), kept);     // no control
  EXPECT_EQ(After([&] { given |= back->Focus(1113); }), kept);   // in a hidden page
  EXPECT_EQ(After([&] {
              front->EnableControl(1107, false);
              given |= front->Focus(1107);
            }),
            kept);
  EXPECT_EQ(After([&] { given |= back->FocusFirst(); }), kept);
  EXPECT_FALSE(given);
}

TEST_F(FocusTest, IsOnThePictureWhileThereIsNoBox) {
  for (const int button : {kVideoButton, kAudioButton, kProcAmpButton, kSettingButton}) {
    SCOPED_TRACE(button);
    box.Become(simulator::BoxModel::kDefaultIdentity, 0x0126);
    if (panel == nullptr) Start();
    Press(button);
    EXPECT_NE(Now().first, res::kMain);
    box.SetPresent(false);
    for (int i = 0; i < 4 && panel->IsConnected(); ++i) Tick();
    ASSERT_FALSE(panel->IsConnected());
    EXPECT_EQ(Now(), Focus(res::kMain, kPictureButton));
    box.SetPresent(true);
    Tick();
    ASSERT_TRUE(panel->IsConnected());
    EXPECT_EQ(Now(), Focus(res::kMain, kPictureButton));
  }
}

TEST_F(FocusTest, CautionHasAControlOfItsOwn) {
  StartWith(0x0126);
  Press(kSettingButton);
  desk.Press(res::kSetting, 1056);
  Press(kApplyButton);
  ASSERT_TRUE(desk.IsOpen(res::kCaution));
  EXPECT_EQ(desk.Focus(res::kCaution), Focus(res::kCaution, 1117));
  desk.RequestClose(res::kCaution);
  EXPECT_EQ(Now(), Focus(res::kMain, kApplyButton));
}

}  // namespace

}  // namespace panelora::testing
