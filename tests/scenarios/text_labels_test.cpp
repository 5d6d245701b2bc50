// The Text Labels page.
#include "tests/support/scenario.h"

namespace panelora::testing {
namespace {

constexpr int kPage = res::kTextLabels;
constexpr int kState = 1112;
constexpr int kNextState = 1113;
constexpr int kLabel = 1115;

class TextLabels : public Scenario {
 protected:
  void Open(std::uint8_t type = 46) {
    panel.reset();
    StartWith({type, 0, 0, 0, 0});
    panel->OpenPage(PageCode::kTextLabels);
    TakeCalls();
  }
  // Refresh does nothing on this page: it is opened again.
  void Show(std::uint8_t state, const std::string& label) {
    Bytes block = {state};
    block.insert(block.end(), label.begin(), label.end());
    block.resize(60, 'x');  // what stands behind the field is no part of it
    box.Block(41) = block;
    panel->OpenPage(PageCode::kTextLabels);
    TakeCalls();
  }
  static Calls Written(std::uint8_t state, const std::string& label) {
    BlockBuffer buffer{};
    buffer[0] = state;
    std::copy(label.begin(), label.end(), buffer.begin() + 1);
    return {TextOf(Call::SetBlock(41, kNoSub, 21, buffer))};
  }
};

const std::string kBlanks(20, ' ');

TEST_F(TextLabels, PlacesTextsAndFonts) {
  Start();
  EXPECT_EQ(desk.Text(kPage, 1110), "Text Labels Enable");
  EXPECT_EQ(desk.Text(kPage, 1111), "");
  EXPECT_EQ(desk.Text(kPage, kState), "Disable");
  EXPECT_EQ(desk.Text(kPage, kNextState), ">>");
  EXPECT_EQ(desk.Text(kPage, 1114), "Text Labels");
  EXPECT_EQ(desk.PlaceOf(kPage, 1110), (Rect{50, 55, 300, 20}));
  EXPECT_EQ(desk.PlaceOf(kPage, 1111), (Rect{50, 70, 300, 48}));
  EXPECT_EQ(desk.PlaceOf(kPage, kState), (Rect{60, 85, 250, 30}));
  EXPECT_EQ(desk.PlaceOf(kPage, kNextState), (Rect{370, 78, 40, 39}));
  EXPECT_EQ(desk.PlaceOf(kPage, 1114), (Rect{50, 155, 300, 20}));
  EXPECT_EQ(desk.PlaceOf(kPage, kLabel), (Rect{50, 175, 310, 35}));
  EXPECT_EQ(desk.FontOf(kPage, kState), ui::kValueFont);
  EXPECT_EQ(desk.FontOf(kPage, kLabel), ui::kValueFont);
  for (const int control : {1110, 1111, kNextState, 1114}) {
    EXPECT_EQ(desk.FontOf(kPage, control), ui::kCaptionFont) << control;
  }
}

TEST_F(TextLabels, OpeningAndDefaultTellEveryBoxAndRead) {
  const Calls opening = {"set block 1,0,1: 03", "get block 41,0,60"};
  for (const std::uint8_t type : Bytes{26, 46, 15, 50, 51, 24}) {
    Open(type);
    panel->OpenPage(PageCode::kTextLabels);
    EXPECT_EQ(TakeCalls(), opening) << int{type};
    EXPECT_EQ(CallsOf(kDefaultButton), opening) << int{type};
    EXPECT_EQ(CallsOf(kPictureButton), Calls{}) << int{type};  // Refresh has nothing to read here
  }
}

TEST_F(TextLabels, ShowsTheLabelTrimmedAndBlanksAsBlanks) {
  Open();
  const std::pair<const char*, const char*> rows[] = {
      {"        CAM         ", "CAM"},        {"CAM                 ", "CAM"},
      {"                 CAM", "CAM"},        {"12345678901234567890", "12345678901234567890"},
      {"  TWO  WORDS        ", "TWO  WORDS"}, {"                    ", "                    "}};
  for (const auto& [field, text] : rows) {
    Show(1, field);
    EXPECT_EQ(desk.Text(kPage, kLabel), text);
  }
}

TEST_F(TextLabels, StatesEnableTheEdit) {
  Open();
  Show(0, kBlanks);
  EXPECT_EQ(desk.Text(kPage, kState), "Disable");
  EXPECT_FALSE(desk.Enables(kPage, kLabel));
  Show(2, kBlanks);
  EXPECT_EQ(desk.Text(kPage, kState), "Default Labels");
  EXPECT_FALSE(desk.Enables(kPage, kLabel));  // as it was
  Show(1, kBlanks);
  EXPECT_EQ(desk.Text(kPage, kState), "Enable");
  EXPECT_TRUE(desk.Enables(kPage, kLabel));
  Show(2, kBlanks);
  EXPECT_EQ(desk.Text(kPage, kState), "Default Labels");
  EXPECT_TRUE(desk.Enables(kPage, kLabel));  // as it was
}

TEST_F(TextLabels, NextStateSkipsTheDefaultLabels) {
  Open();
  Show(2, kBlanks);
  const std::pair<const char*, bool> rows[] = {
      {"Disable", false}, {"Enable", true}, {"Disable", false}};
  for (const auto& [state, enabled] : rows) {
    TakeCalls();
    desk.Press(kPage, kNextState);
    EXPECT_EQ(TakeCalls(), Calls{});
    EXPECT_EQ(desk.Text(kPage, kState), state);
    EXPECT_EQ(desk.Enables(kPage, kLabel), enabled);
  }
}

// The text of the table's end is never shown.
TEST_F(TextLabels, UnknownStateKeepsText) {
  Open();
  Show(1, kBlanks);
  for (const std::uint8_t state : Bytes{3, 100, 255}) {
    Show(state, kBlanks);
    EXPECT_EQ(desk.Text(kPage, kState), "Enable") << int{state};
    EXPECT_TRUE(desk.Enables(kPage, kLabel));
  }
  desk.Press(kPage, kNextState);
  EXPECT_EQ(desk.Text(kPage, kState), "Disable");
}

TEST_F(TextLabels, FailedReadChangesNothing) {
  Open();
  Show(1, "        CAM         ");
  box.Block(41) = {0, 'N', 'E', 'W'};
  device.Fail("get block 41,0,60");
  panel->OpenPage(PageCode::kTextLabels);
  EXPECT_EQ(desk.Text(kPage, kState), "Enable");
  EXPECT_EQ(desk.Text(kPage, kLabel), "CAM");
  EXPECT_TRUE(desk.Enables(kPage, kLabel));
  EXPECT_EQ(CallsOf(kApplyButton), Written(1, "        CAM         "));
}

TEST_F(TextLabels, ApplyWritesStateAndCentredLabel) {
  Open();
  Show(1, kBlanks);
  const std::pair<const char*, const char*> rows[] = {
      {"CAM", "        CAM         "},
      {"EVEN", "        EVEN        "},
      {"12345678901234567890", "12345678901234567890"},
      {"", "                    "}};
  for (const auto& [text, field] : rows) {
    desk.Type(kPage, kLabel, text);
    EXPECT_EQ(CallsOf(kApplyButton), Written(1, field)) << text;
  }
  desk.Type(kPage, kLabel, "CAM");
  desk.Press(kPage, kNextState);
  EXPECT_EQ(CallsOf(kApplyButton), Written(0, "        CAM         "));
  Show(2, "        CAM         ");
  EXPECT_EQ(CallsOf(kApplyButton), Written(2, "        CAM         "));
}

TEST_F(TextLabels, LabelTakesTwentyCharacters) {
  Open();
  Show(1, kBlanks);
  desk.Type(kPage, kLabel, "123456789012345678901234");
  EXPECT_EQ(desk.Text(kPage, kLabel), "12345678901234567890");
}

TEST_F(TextLabels, BoxHasALabel) {
  Open();
  EXPECT_EQ(desk.Text(kPage, kLabel), "CAMERA 1");
  EXPECT_EQ(desk.Text(kPage, kState), "Enable");
}

TEST_F(TextLabels, TakesTheHandleOfABoxThatCameBack) {
  Open();
  box.SetPresent(false);
  Tick();
  box.SetPresent(true);
  device.AnswerHandle(0x77);
  Tick();
  Show(1, "        NEW         ");
  EXPECT_EQ(desk.Text(kPage, kLabel), "NEW");
}

TEST_F(TextLabels, FailedWritesAreNotMinded) {
  Open();
  Show(1, "        CAM         ");
  device.Fail("set block 1,0,1: 03");
  panel->OpenPage(PageCode::kTextLabels);
  EXPECT_EQ(TakeCalls(), (Calls{"set block 1,0,1: 03", "get block 41,0,60"}));
  device.Fail(Written(1, "        CAM         ").front());
  EXPECT_EQ(CallsOf(kApplyButton), Written(1, "        CAM         "));
  EXPECT_EQ(desk.Text(kPage, kLabel), "CAM");
}

TEST_F(TextLabels, ApplyDefaultAndRefreshSilenceTheMonitor) {
  Open();
  Press(kApplyButton);
  EXPECT_EQ(panel->Panel().tickSkip, 5);
  for (const int button : {kDefaultButton, kPictureButton}) {
    Press(button);
    EXPECT_EQ(panel->Panel().tickSkip, 2);
  }
}

}  // namespace
}  // namespace panelora::testing
