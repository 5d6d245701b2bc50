// What stands out: where the operator is, and what is chosen and not yet told to the box.
#include "tests/support/audio_controls.h"
#include "tests/support/scenario.h"
#include "tests/support/video_menu_controls.h"

namespace panelora::testing {
namespace {

using ui::Mark;

class MarksTest : public Scenario {
 protected:
  Mark Apply() { return desk.MarkOf(res::kMain, kApplyButton); }
  Mark FrameOf(const Group& group) { return desk.MarkOf(kPage, group.frame); }
};

TEST_F(MarksTest, InformationIsWhereTheOperatorIs) {
  StartWith(0x0126);
  EXPECT_EQ(desk.MarkOf(res::kMain, kInformationButton), Mark::kCurrent);
  for (const int button : {kVideoButton, kAudioButton, kProcAmpButton, kSettingButton}) {
    EXPECT_EQ(desk.MarkOf(res::kMain, button), Mark::kNone) << button;
  }
}

TEST_F(MarksTest, StepIsPendingUntilItIsAppliedOrTakenBack) {
  StartWith(0x0126);
  Press(kAudioButton);
  EXPECT_EQ(Apply(), Mark::kNone);
  EXPECT_EQ(FrameOf(kMute), Mark::kNone);
  desk.Press(kPage, kMute.next);
  EXPECT_EQ(FrameOf(kMute), Mark::kPending);
  EXPECT_EQ(FrameOf(kStandard), Mark::kNone);
  EXPECT_EQ(Apply(), Mark::kPending);
  desk.Press(kPage, kMute.next);  // what the box has
  EXPECT_EQ(FrameOf(kMute), Mark::kNone);
  EXPECT_EQ(Apply(), Mark::kNone);
  desk.Press(kPage, kMute.next);
  desk.Press(kPage, kStandard.next);
  Press(kApplyButton);
  EXPECT_EQ(FrameOf(kMute), Mark::kNone);
  EXPECT_EQ(FrameOf(kStandard), Mark::kNone);
  EXPECT_EQ(Apply(), Mark::kNone);
}

TEST_F(MarksTest, RefreshClearsWhatItReads) {
  StartWith(0x0126);
  Press(kAudioButton);
  desk.Press(kPage, kMute.next);
  desk.Press(kPage, kStandard.next);
  device.Fail("get word 0,16");
  Press(kPictureButton);
  EXPECT_EQ(FrameOf(kMute), Mark::kNone);
  EXPECT_EQ(FrameOf(kStandard), Mark::kPending);  // was not read
  EXPECT_EQ(Apply(), Mark::kPending);
  device.FailNothing();
  Press(kPictureButton);
  EXPECT_EQ(Apply(), Mark::kNone);
}

TEST_F(MarksTest, ApplyIsLitForWhatItWouldSend) {
  StartWith(0x0126);
  Press(kVideoButton);
  desk.Press(res::kVideoMenu, kVideoSettingsButton);
  desk.Press(res::kVideoSettings, 1018);
  EXPECT_EQ(Apply(), Mark::kPending);
  Press(kPageUpButton);  // Apply sends what is seen, and the input source is not
  EXPECT_EQ(Apply(), Mark::kNone);
  desk.Press(res::kVideoSettings, 1037);
  EXPECT_EQ(Apply(), Mark::kPending);
  Press(kReturnButton);
  Press(kReturnButton);
  Press(kProcAmpButton);
  EXPECT_EQ(Apply(), Mark::kNone);
}

TEST_F(MarksTest, GridThatIsInForceIsLit) {
  StartWith(Identity{14, 0, 0, 0, 0});
  box.Block(8) = {3, 0};
  panel->OpenPage(PageCode::kTvWall);
  const auto lit = [&] {
    std::vector<int> buttons;
    for (const int button : {kWall1Button, kWall2Button, kWall3Button, kWall4Button}) {
      if (desk.MarkOf(res::kMain, button) == Mark::kCurrent) buttons.push_back(button);
    }
    return buttons;
  };
  EXPECT_EQ(lit(), std::vector<int>{kWall3Button});
  Press(kWall1Button);
  EXPECT_EQ(lit(), std::vector<int>{kWall1Button});
}

}  // namespace
}  // namespace panelora::testing
