// The input labels of the Display Mode page, and what Apply writes in their view.
#include "tests/support/display_mode_fixture.h"

namespace panelora::testing {
namespace {

TEST_F(DisplayMode, LabelsAreShownTrimmedAndBlanksAsBlanks) {
  OpenLabels();
  box.Block(20) = {1, 0};
  box.Block(19, 0) = LabelBlock("        CAM         ");
  box.Block(19, 1) = LabelBlock("12345678901234567890");
  box.Block(19, 2) = LabelBlock(std::string(20, ' '));
  box.Block(19, 3) = LabelBlock("STUDIO B            ");
  EXPECT_EQ(CallsOf(kPictureButton), kLabelReads);
  EXPECT_EQ(desk.Text(kPage, 1061), "ON");
  EXPECT_EQ(desk.Text(kPage, 1109), "CAM");
  EXPECT_EQ(desk.Text(kPage, 1110), "12345678901234567890");
  EXPECT_EQ(desk.Text(kPage, 1111), std::string(20, ' '));
  EXPECT_EQ(desk.Text(kPage, 1112), "STUDIO B");
}

TEST_F(DisplayMode, FailedLabelReadsKeepEachText) {
  OpenLabels();
  const std::map<std::string, int> rows = {{"get block 20,0,2", 1061},
                                           {"get block 19,0,60", 1109},
                                           {"get block 19,1,60", 1110},
                                           {"get block 19,2,60", 1111},
                                           {"get block 19,3,60", 1112}};
  for (const auto& [failing, kept] : rows) {
    const auto fill = [&](std::uint8_t state, const std::string& label) {
      box.Block(20) = {state, 0};
      for (std::uint8_t input = 0; input < 4; ++input) {
        box.Block(19, input) = LabelBlock(label + std::string(20 - label.size(), ' '));
      }
    };
    device.FailNothing();
    fill(0, "OLD");
    Press(kPictureButton);
    fill(1, "NEW");
    device.Fail(failing);
    Press(kPictureButton);
    for (const auto& [call, control] : rows) {
      const std::string old = control == 1061 ? "OFF" : "OLD";
      const std::string fresh = control == 1061 ? "ON" : "NEW";
      EXPECT_EQ(desk.Text(kPage, control), control == kept ? old : fresh) << failing;
    }
  }
}

TEST_F(DisplayMode, LabelsStateSkipsTheDefaultLabels) {
  OpenLabels();
  box.Block(20) = {2, 0};
  Press(kPictureButton);
  EXPECT_EQ(desk.Text(kPage, 1061), "Default Labels");
  EXPECT_EQ(EnabledEdits(), kAllEnabled);  // reading does not touch them
  EXPECT_EQ(CallsOnPage(kPage, kNextLabels), Calls{});
  EXPECT_EQ(desk.Text(kPage, 1061), "OFF");
  EXPECT_EQ(EnabledEdits(), kAllDisabled);
  desk.Press(kPage, kNextLabels);
  EXPECT_EQ(desk.Text(kPage, 1061), "ON");
  EXPECT_EQ(EnabledEdits(), kAllEnabled);
  desk.Press(kPage, kNextLabels);
  EXPECT_EQ(desk.Text(kPage, 1061), "OFF");
  for (const std::uint8_t state : Bytes{3, 9, 255}) {  // no such states
    box.Block(20) = {state, 0};
    Press(kPictureButton);
    EXPECT_EQ(desk.Text(kPage, 1061), "OFF");
  }
  desk.Press(kPage, kNextLabels);  // from whatever was reported
  EXPECT_EQ(desk.Text(kPage, 1061), "OFF");
}

const std::string kState = "set block 20,0,20:";
const std::string kNineteenZeros = " 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00";

TEST_F(DisplayMode, ApplyWritesTheLabelsCentredWhenTheyAreOn) {
  for (const Identity& identity : {Identity{15, 0, 0, 0, 0}, Identity{13, 2, 0, 0, 0}}) {
    OpenLabels(identity);
    box.Block(20) = {1, 0};
    box.Block(19, 3) = LabelBlock(std::string(20, ' '));
    Press(kPictureButton);
    desk.Type(kPage, 1109, "CAM");
    desk.Type(kPage, 1110, "ABCD");
    desk.Type(kPage, 1111, "12345678901234567890");
    const Calls expected = {
        kState + " 01" + kNineteenZeros,
        "set block 19,0,20: 20 20 20 20 20 20 20 20 43 41 4D 20 20 20 20 20 20 20 20 20",
        "set block 19,1,20: 20 20 20 20 20 20 20 20 41 42 43 44 20 20 20 20 20 20 20 20",
        "set block 19,2,20: 31 32 33 34 35 36 37 38 39 30 31 32 33 34 35 36 37 38 39 30",
        "set block 19,3,20: 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20 20"};
    EXPECT_EQ(CallsOf(kApplyButton), expected);
    EXPECT_EQ(EnabledEdits(), kAllEnabled);
    Press(kPictureButton);
    EXPECT_EQ(desk.Text(kPage, 1109), "CAM");
  }
}

TEST_F(DisplayMode, ApplyWritesTheStateAloneWhenTheLabelsAreOffOrTheBoxsOwn) {
  OpenLabels();
  box.Block(20) = {0, 0};
  Press(kPictureButton);
  EXPECT_EQ(CallsOf(kApplyButton), Calls{kState + " 00" + kNineteenZeros});
  EXPECT_EQ(EnabledEdits(), kAllDisabled);
  box.Block(20) = {2, 0};
  Press(kPictureButton);
  EXPECT_EQ(CallsOf(kApplyButton), Calls{kState + " 02" + kNineteenZeros});
  EXPECT_EQ(EnabledEdits(), kAllDisabled);  // as they were
}

TEST_F(DisplayMode, LabelsTakeTwentyCharacters) {
  OpenLabels();
  for (const int edit : {1109, 1110, 1111, 1112}) {
    desk.Type(kPage, edit, "123456789012345678901234");
    EXPECT_EQ(desk.Text(kPage, edit), "12345678901234567890");
  }
}

// Which view's values Apply writes.
TEST_F(DisplayMode, ApplyGoesByTheViewOnlyWhereLabelsCanBeWritten) {
  struct Row {
    std::uint8_t brand;
    std::uint8_t labels;
    std::uint32_t firmware;
    bool byView;
  };
  const Row rows[] = {{0, 0, 288, false}, {0, 0, 289, true},  {0, 1, 288, false},
                      {12, 0, 289, true}, {2, 0, 289, false}, {2, 1, 100, true},
                      {2, 1, 289, true},  {8, 1, 288, false}, {8, 0, 289, true}};
  for (const std::uint8_t type : Bytes{13, 15}) {
    for (const Row& row : Tried(rows)) {
      Open({type, row.brand, 0, 0, 0}, 1, row.labels, row.firmware);
      box.Block(20) = {0, 0};
      const Calls words = {"set word 0,1 = 1", "set word 0,2 = 1"};
      EXPECT_EQ(CallsOf(kApplyButton), words) << int{row.brand};
      Press(kPageUpButton);
      const Calls labels = {kState + " 00" + kNineteenZeros};
      EXPECT_EQ(CallsOf(kApplyButton), row.byView ? labels : words)
          << int{row.brand} << " " << row.firmware;
    }
  }
}

TEST_F(DisplayMode, ApplyWithLabelsOnEnablesTheEdits) {
  OpenLabels();
  desk.Press(kPage, kNextLabels);
  desk.Press(kPage, kNextLabels);
  EXPECT_EQ(EnabledEdits(), kAllDisabled);
  box.Block(20) = {1, 0};
  Press(kPictureButton);
  EXPECT_EQ(EnabledEdits(), kAllDisabled);
  Press(kApplyButton);
  EXPECT_EQ(EnabledEdits(), kAllEnabled);
}

// Applying the labels remembers the pending code as any other Apply does.
TEST_F(DisplayMode, ApplyOfTheLabelsRemembersTheCode) {
  OpenLabels();
  Press(kPageUpButton);
  desk.Press(kPage, 1049);
  desk.Press(kPage, 1049);  // mode 1, code 3
  Press(kPageUpButton);
  Press(kApplyButton);
  for (int press = 0; press < 9; ++press) desk.Press(kPage, kNextMode);
  EXPECT_EQ(Mode(), "Mode 1");
  EXPECT_EQ(Names()[0], "Channel 3");
}

TEST_F(DisplayMode, BoxHasFourLabels) {
  OpenLabels();
  for (int input = 0; input < 4; ++input) {
    EXPECT_EQ(desk.Text(kPage, 1109 + input), "INPUT " + std::to_string(input + 1));
  }
}

}  // namespace
}  // namespace panelora::testing
