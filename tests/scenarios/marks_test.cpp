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

// A mode of the multi-view pages: its frame, its ">>", and the read that tells it.
struct ModeRow {
  Identity identity;
  PageCode code;
  int page;
  int frame;
  int next;
  const char* read;
};
constexpr ModeRow kModes[] = {
    {{15, 0, 0, 0, 0}, PageCode::kDisplayMode, res::kDisplayMode, 1003, 1046, "get block 1,0,20"},
    {{51, 0, 0, 0, 0}, PageCode::kDisplayMode, res::kDisplayMode, 1003, 1046, "get block 1,0,20"},
    {{30, 0, 0, 0, 0}, PageCode::kGenlock, res::kGenlock, 1078, 1080, "get block 15,0,4"},
    {{30, 0, 0, 0, 0}, PageCode::kGenlock, res::kGenlock, 1093, 1095, "get block 22,0,2"},
    {{46, 2, 0, 0, 0}, PageCode::kRoi, res::kRoi, 1003, 1100, "get block 18,0,30"},
    {{46, 0, 0, 0, 0}, PageCode::kTextLabels, res::kTextLabels, 1111, 1113, "get block 41,0,60"},
};

TEST_F(MarksTest, ModeOfAMultiViewPageIsPendingUntilItIsAppliedOrReadAnew) {
  for (const ModeRow& row : kModes) {
    SCOPED_TRACE(::testing::Message() << int{row.identity.boxType} << " " << row.read);
    panel.reset();
    device.FailNothing();
    StartWith(row.identity);
    panel->OpenPage(row.code);
    const auto frame = [&] { return desk.MarkOf(row.page, row.frame); };
    const auto expect = [&](Mark mark) {
      EXPECT_EQ(frame(), mark);
      EXPECT_EQ(Apply(), mark);
    };
    expect(Mark::kNone);
    desk.Press(row.page, row.next);
    expect(Mark::kPending);
    Press(kApplyButton);
    // The termination goes with the delays, which Apply sends.
    expect(Mark::kNone);
    desk.Press(row.page, row.next);
    expect(Mark::kPending);
    device.Fail(row.read);
    panel->OpenPage(row.code);
    expect(Mark::kPending);
    device.FailNothing();
    panel->OpenPage(row.code);
    expect(Mark::kNone);
  }
}

TEST_F(MarksTest, ChannelsArePendingEachForItself) {
  StartWith(Identity{15, 0, 0, 0, 0});
  panel->OpenPage(PageCode::kDisplayMode);
  const auto pending = [&] {
    std::vector<int> frames;
    for (const int frame : {1003, 1004, 1005}) {
      if (desk.MarkOf(res::kDisplayMode, frame) == Mark::kPending) frames.push_back(frame);
    }
    return frames;
  };
  EXPECT_EQ(pending(), std::vector<int>{});
  desk.Press(res::kDisplayMode, 1049);  // the main channel
  EXPECT_EQ(pending(), std::vector<int>{1004});
  EXPECT_EQ(Apply(), Mark::kPending);
  Press(kApplyButton);
  EXPECT_EQ(pending(), std::vector<int>{});
  EXPECT_EQ(Apply(), Mark::kNone);
}

// The labels are no part of what Apply sends from the view of the modes, and the other way round.
TEST_F(MarksTest, LabelsArePendingInTheirView) {
  StartWith(Identity{15, 0, 0, 0, 0}, 289);
  panel->OpenPage(PageCode::kDisplayMode);
  desk.Press(res::kDisplayMode, 1046);
  Press(kPageUpButton);
  EXPECT_EQ(Apply(), Mark::kNone);
  desk.Press(res::kDisplayMode, 1062);
  EXPECT_EQ(desk.MarkOf(res::kDisplayMode, 1007), Mark::kPending);
  EXPECT_EQ(Apply(), Mark::kPending);
  Press(kApplyButton);
  EXPECT_EQ(desk.MarkOf(res::kDisplayMode, 1007), Mark::kNone);
  EXPECT_EQ(Apply(), Mark::kNone);
}

// Typed texts too; they are sent with the state that shows them.
TEST_F(MarksTest, TypedLabelIsPendingUntilItIsAppliedOrTakenBack) {
  StartWith(Identity{15, 0, 0, 0, 0}, 289);
  box.Block(20) = {1};
  panel->OpenPage(PageCode::kDisplayMode);
  Press(kPageUpButton);
  desk.Press(res::kDisplayMode, 1062);
  desk.Press(res::kDisplayMode, 1062);
  Press(kApplyButton);
  const auto label = [&](int edit) { return desk.MarkOf(res::kDisplayMode, edit); };
  EXPECT_EQ(Apply(), Mark::kNone);
  const std::string told = desk.Text(res::kDisplayMode, 1110);
  desk.Type(res::kDisplayMode, 1110, "CAM 2");
  EXPECT_EQ(label(1109), Mark::kNone);
  EXPECT_EQ(label(1110), Mark::kPending);
  EXPECT_EQ(Apply(), Mark::kPending);
  desk.Type(res::kDisplayMode, 1110, told);
  EXPECT_EQ(label(1110), Mark::kNone);
  EXPECT_EQ(Apply(), Mark::kNone);
  desk.Type(res::kDisplayMode, 1112, "CAM 4");
  EXPECT_EQ(label(1112), Mark::kPending);
  Press(kApplyButton);
  EXPECT_EQ(label(1112), Mark::kNone);
  EXPECT_EQ(Apply(), Mark::kNone);
  desk.Type(res::kDisplayMode, 1112, "CAM 5");
  desk.Press(res::kDisplayMode, 1062);  // off: no label is sent
  EXPECT_EQ(label(1112), Mark::kNone);
  EXPECT_EQ(desk.MarkOf(res::kDisplayMode, 1007), Mark::kPending);
}

TEST_F(MarksTest, TypedTextLabelIsPendingUntilItIsAppliedOrReadAnew) {
  StartWith(Identity{46, 0, 0, 0, 0});
  box.Block(41) = {1, 'O', 'N', ' ', 'A', 'I', 'R'};
  panel->OpenPage(PageCode::kTextLabels);
  const auto label = [&] { return desk.MarkOf(res::kTextLabels, 1115); };
  EXPECT_EQ(label(), Mark::kNone);
  desk.Type(res::kTextLabels, 1115, "STUDIO");
  EXPECT_EQ(label(), Mark::kPending);
  EXPECT_EQ(Apply(), Mark::kPending);
  Press(kApplyButton);
  EXPECT_EQ(label(), Mark::kNone);
  EXPECT_EQ(Apply(), Mark::kNone);
  desk.Type(res::kTextLabels, 1115, "STUDIO 2");
  panel->OpenPage(PageCode::kTextLabels);
  EXPECT_EQ(label(), Mark::kNone);
  EXPECT_EQ(Apply(), Mark::kNone);
}

// Delays are on the box at once, but as a preview.
TEST_F(MarksTest, PreviewedDelayIsThereToBeApplied) {
  StartWith(Identity{30, 0, 0, 0, 0});
  box.Block(15) = {1, 10, 0, 15};
  panel->OpenPage(PageCode::kGenlock);
  EXPECT_EQ(Apply(), Mark::kNone);
  desk.Press(res::kGenlock, 1107);
  EXPECT_EQ(Apply(), Mark::kPending);
  Press(kPictureButton);  // what is read is the preview
  EXPECT_EQ(Apply(), Mark::kPending);
  Press(kApplyButton);
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
