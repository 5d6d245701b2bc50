// The keys that press what a page offers, wherever the focus is.
#include "tests/support/audio_controls.h"
#include "tests/support/scenario.h"
#include "tests/support/video_menu_controls.h"

namespace panelora::testing {
namespace {

using ui::Key;

class KeysTest : public Scenario {
 protected:
  Calls CallsOfKey(int page, int control, Key key) {
    TakeCalls();
    desk.PressKey(page, control, key);
    return TakeCalls();
  }
};

TEST_F(KeysTest, BackReturnsFromThePage) {
  StartWith(0x0126);
  Press(kAudioButton);
  const Calls asked = Join({kInformationCalls});
  EXPECT_EQ(CallsOfKey(kPage, kMute.next, Key::kBack), asked);
  EXPECT_EQ(ShownPages(), std::vector<int>{res::kInformation});
  EXPECT_EQ(desk.Focus(res::kMain), std::pair(int{res::kMain}, kAudioButton));
  // On Information there is nowhere to go back to.
  EXPECT_EQ(CallsOfKey(res::kMain, kAudioButton, Key::kBack), Calls{});
  EXPECT_EQ(ShownPages(), std::vector<int>{res::kInformation});
}

TEST_F(KeysTest, BackGoesOneStepAtATime) {
  StartWith(0x0126);
  Press(kVideoButton);
  desk.Press(res::kVideoMenu, kVideoSettingsButton);
  desk.PressKey(res::kVideoSettings, 1018, Key::kBack);
  EXPECT_EQ(ShownPages(), std::vector<int>{res::kVideoMenu});
  desk.PressKey(res::kVideoMenu, kVideoSettingsButton, Key::kBack);
  EXPECT_EQ(ShownPages(), std::vector<int>{res::kInformation});
}

TEST_F(KeysTest, ApplyIsThatOfThePage) {
  StartWith(0x0126);
  Press(kAudioButton);
  desk.Press(kPage, kMute.next);
  const Calls applied = CallsOf(kApplyButton);
  EXPECT_FALSE(applied.empty());
  EXPECT_EQ(CallsOfKey(kPage, kMute.next, Key::kApply), applied);
  EXPECT_EQ(desk.Focus(res::kMain), std::pair(int{kPage}, kMute.next));
  Press(kReturnButton);
  EXPECT_EQ(CallsOfKey(res::kMain, kAudioButton, Key::kApply), Calls{});
}

// Enter on the page stays what the page makes of it, and a page without Apply applies nothing.
TEST_F(KeysTest, ApplyOnProcAmpIsThatOfBrand2) {
  StartWith(0x0126, {26, 2, 0, 0, 0});
  Press(kProcAmpButton);
  desk.Type(res::kProcAmp, 1049, "7");
  EXPECT_EQ(CallsOfKey(res::kProcAmp, 1049, Key::kApply), Calls{"set proc amp 0,2 = 7"});
  desk.Type(res::kProcAmp, 1049, "8");
  EXPECT_EQ(CallsOfKey(res::kProcAmp, 1049, Key::kEnter), Calls{});
  panel.reset();
  StartWith(0x0126);
  Press(kProcAmpButton);
  EXPECT_EQ(CallsOfKey(res::kProcAmp, 1032, Key::kApply), Calls{});
}

TEST_F(KeysTest, RefreshReadsEveryPageAsThePictureDoes) {
  StartWith(0x0126);
  EXPECT_EQ(CallsOfKey(res::kMain, kAudioButton, Key::kRefresh), kInformationCalls);
  Press(kAudioButton);
  EXPECT_EQ(CallsOfKey(kPage, kSource.next, Key::kRefresh), CallsOf(kPictureButton));
  Press(kReturnButton);
  Press(kVideoButton);
  EXPECT_EQ(CallsOfKey(res::kVideoMenu, kVideoSettingsButton, Key::kRefresh), Calls{});
}

TEST_F(KeysTest, NextPageGoesThroughTheSubPages) {
  StartWith(0x0126);
  Press(kVideoButton);
  desk.Press(res::kVideoMenu, kVideoSettingsButton);
  EXPECT_FALSE(CallsOfKey(res::kVideoSettings, 1018, Key::kNextPage).empty());
  EXPECT_TRUE(desk.Shows(res::kVideoSettings, 1037));
  desk.PressKey(res::kVideoSettings, 1037, Key::kNextPage);
  EXPECT_FALSE(desk.Shows(res::kVideoSettings, 1037));
  // Where there are none, the key does not reach the control.
  Press(kReturnButton);
  Press(kReturnButton);
  Press(kAudioButton);
  EXPECT_EQ(CallsOfKey(kPage, kMute.next, Key::kNextPage), Calls{});
}

TEST_F(KeysTest, HelpOpensTheGuideWhereThereIsOne) {
  StartWith(0x0126);
  EXPECT_EQ(CallsOfKey(res::kMain, kAudioButton, Key::kHelp), Calls{});
  EXPECT_EQ(desk.GuidesOpened(), 0);
  desk.LayGuide(true);
  desk.PressKey(res::kMain, kAudioButton, Key::kHelp);
  EXPECT_EQ(desk.GuidesOpened(), 1);
  Press(kProcAmpButton);
  EXPECT_EQ(CallsOfKey(res::kProcAmp, 1032, Key::kHelp), Calls{});
  EXPECT_EQ(desk.GuidesOpened(), 2);
  EXPECT_EQ(ShownPages(), std::vector<int>{res::kProcAmp});
}

TEST_F(KeysTest, NoneOfThemReachesAnotherWindow) {
  StartWith(0x0126);
  Press(kAudioButton);
  for (const Key key : {Key::kBack, Key::kApply, Key::kRefresh, Key::kNextPage, Key::kHelp}) {
    TakeCalls();
    desk.WhileModal([&] {
      desk.PressKey(res::kAbout, 1, key);
      EXPECT_TRUE(desk.IsOpen(res::kAbout));
      desk.PressKey(res::kAbout, 1, Key::kEscape);
    });
    desk.ChooseSystemMenu(res::kMain, 0x10);
    EXPECT_EQ(TakeCalls(), Calls{});
    EXPECT_EQ(ShownPages(), std::vector<int>{kPage});
  }
}

}  // namespace
}  // namespace panelora::testing
