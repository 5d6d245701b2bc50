// The delays of the Genlock page: ranges, previews, final values.
#include <tuple>

#include "tests/support/genlock_fixture.h"

namespace panelora::testing {
namespace {

struct RangeRow {
  int outputCode;
  int lines;
  int clocks;
  std::vector<int> inputs;
};
const RangeRow kRanges[] = {
    {0, 525, 1716, {0, 1}},     {1, 625, 1728, {2}},       {4, 750, 1650, {6, 7}},
    {6, 750, 1980, {8}},        {7, 1125, 2200, {12, 13}}, {9, 1125, 2640, {14}},
    {10, 1125, 2200, {15, 16}}, {12, 1125, 2640, {17}},    {45, 1125, 2200, {18, 19}}};

TEST_F(Genlock, RangesGoByOutputAndReference) {
  for (const std::uint8_t type : Bytes{46, 20, 30}) {
    Open(type);
    for (const RangeRow& row : kRanges) {
      for (int input = 0; input <= 22; ++input) {
        const bool allowed =
            std::find(row.inputs.begin(), row.inputs.end(), input) != row.inputs.end();
        SetBox(type == 20 ? 2 : 1, row.outputCode, input, 10, 20);
        Press(kPictureButton);
        EXPECT_EQ(desk.SliderRange(kPage, kVSlider), std::make_pair(0, row.lines));
        EXPECT_EQ(desk.SliderRange(kPage, kHSlider), std::make_pair(0, allowed ? row.clocks : 0))
            << row.outputCode << " " << input;
        for (const int control : kHorizontal) {
          EXPECT_EQ(desk.Shows(kPage, control), allowed) << control;
        }
        for (const int control : {kHSlider, kHUp, kHDown, kHEdit}) {
          EXPECT_EQ(desk.Enables(kPage, control), allowed) << control;
        }
        for (const int control : {kVSlider, kVUp, kVDown, kVEdit}) {
          EXPECT_TRUE(desk.Enables(kPage, control)) << control;
          EXPECT_TRUE(desk.Shows(kPage, control)) << control;
        }
        ExpectShown(10, allowed ? 20 : 0);
      }
    }
  }
}

TEST_F(Genlock, ForbiddenHorizontalDelayIsHeldAt0) {
  Open(46, 1, 0, 2, 100, 200);
  ExpectShown(100, 0);
  EXPECT_EQ(CallsOnPage(kPage, kVUp), Delays(101, 0, false));
  // What is taken back is what the box had.
  EXPECT_EQ(CallsOf(kReturnButton), Delays(100, 200, false));
  Open(46, 1, 0, 2, 100, 200);
  EXPECT_EQ(CallsOf(kApplyButton), Join({Mode(1), Delays(100, 0, true)}));
  // Nothing was previewed: leaving writes nothing.
  Open(46, 1, 0, 2, 100, 200);
  EXPECT_EQ(CallsOf(kReturnButton), Calls{});
}

TEST_F(Genlock, UnknownOutputKeepsTheRangeAndForbidsTheHorizontalDelay) {
  Open(46, 1, 1, 2, 100, 200);
  for (const int output : {2, 3, 5, 8, 11, 44, 255}) {
    SetBox(1, output, 2, 100, 200);
    Press(kPictureButton);
    EXPECT_EQ(desk.SliderRange(kPage, kVSlider), std::make_pair(0, 625)) << output;
    EXPECT_FALSE(desk.Enables(kPage, kHSlider)) << output;
    ExpectShown(100, 0);
  }
}

TEST_F(Genlock, UnknownOutputAtTheStartHasNoRange) {
  panel.reset();
  admitted = {46};
  box.Become({46, 0, 0, 0, 0}, 0x0126);
  box.Block(26) = {1, 99, 0, 0};
  Start();
  panel->OpenPage(PageCode::kGenlock);
  EXPECT_EQ(desk.SliderRange(kPage, kVSlider), std::make_pair(0, 0));
  EXPECT_FALSE(desk.Shows(kPage, kHSlider));
  EXPECT_EQ(desk.Text(kPage, kVEdit), "100");
}

TEST_F(Genlock, BoxIsLockedWithBothDelaysAsItLeavesTheFactory) {
  for (const GroupRow& group : kGroups) {
    for (const std::uint8_t type : Tried(group.types)) {
      panel.reset();
      StartWith({type, 0, 0, 0, 0});
      panel->OpenPage(PageCode::kGenlock);
      EXPECT_NE(ModeName(), "Free-Run") << int{type};
      EXPECT_TRUE(desk.Enables(kPage, kHSlider)) << int{type};
      ExpectShown(100, 200);
    }
  }
}

TEST_F(Genlock, FreeRunDisablesTheDelaysAndKeepsThem) {
  for (const std::uint8_t type : Bytes{46, 20, 30}) {
    Open(type, 0);
    for (const int control : {kVSlider, kVUp, kVDown, kVEdit, kHSlider, kHUp, kHDown, kHEdit}) {
      EXPECT_FALSE(desk.Enables(kPage, control)) << control;
    }
    EXPECT_EQ(desk.SliderRange(kPage, kVSlider), std::make_pair(0, 0));
    EXPECT_EQ(desk.SliderRange(kPage, kHSlider), std::make_pair(0, 0));
    EXPECT_EQ(desk.Text(kPage, kVEdit), "100");
    // The next mode enables at once, with the delays of the box.
    EXPECT_EQ(CallsOnPage(kPage, kNextMode), Calls{});
    for (const int control : {kVSlider, kVUp, kVDown, kVEdit, kHSlider, kHUp, kHDown, kHEdit}) {
      EXPECT_TRUE(desk.Enables(kPage, control)) << control;
    }
    EXPECT_EQ(desk.SliderRange(kPage, kVSlider), std::make_pair(0, 1125));
    ExpectShown(100, 200);
    EXPECT_EQ(CallsOnPage(kPage, kVUp), Delays(101, 200, false));
    // And back again.
    while (ModeName() != "Free-Run") desk.Press(kPage, kNextMode);
    for (const int slider : {kVSlider, kHSlider}) {
      EXPECT_FALSE(desk.Enables(kPage, slider));
      EXPECT_EQ(desk.SliderRange(kPage, slider), std::make_pair(0, 0));
    }
    EXPECT_TRUE(desk.Shows(kPage, kHSlider));  // the reference would allow it
  }
}

TEST_F(Genlock, LeavingFreeRunDoesNotAllowWhatTheReferenceForbids) {
  Open(46, 0, 10, 2);
  desk.Press(kPage, kNextMode);
  EXPECT_TRUE(desk.Enables(kPage, kVSlider));
  for (const int control : kHorizontal) EXPECT_FALSE(desk.Shows(kPage, control)) << control;
  for (const int control : {kHSlider, kHUp, kHDown, kHEdit}) {
    EXPECT_FALSE(desk.Enables(kPage, control)) << control;
  }
}

TEST_F(Genlock, FreeRunPreviewsNoDelayAndLeavingItWritesNothing) {
  Open(46, 0);
  EXPECT_EQ(CallsOf(kReturnButton), Calls{});
  panel->OpenPage(PageCode::kGenlock);
  TakeCalls();
  desk.PressKey(kPage, kVEdit, ui::Key::kEnter);  // is disabled and gets no keys
  EXPECT_EQ(TakeCalls(), Calls{});
  desk.PressKey(kPage, kNextMode, ui::Key::kEnter);
  EXPECT_EQ(TakeCalls(), Delays(0, 0, false));
  EXPECT_EQ(CallsOf(kReturnButton), Delays(100, 200, false));
}

TEST_F(Genlock, ApplyInFreeRunWritesDelaysOf0) {
  Open(46, 1);
  desk.Press(kPage, kNextMode);
  EXPECT_EQ(CallsOf(kApplyButton), Join({Mode(0), Delays(0, 0, true)}));
}

// Every output code: typed, stepped and dragged to 0, the end, and over it.
TEST_F(Genlock, DelaysStopAtTheirEnds) {
  for (const std::uint8_t type : Bytes{50, 33, 43}) {
    Open(type);
    for (const RangeRow& row : Tried(kRanges)) {
      const int mode = type == 33 ? 2 : 1;
      SetBox(mode, row.outputCode, row.inputs.front(), row.lines - 1, row.clocks - 1);
      Press(kPictureButton);
      // Up to the end and once more.
      EXPECT_EQ(CallsOnPage(kPage, kVUp), Delays(row.lines, row.clocks - 1, false));
      EXPECT_EQ(CallsOnPage(kPage, kVUp), Delays(row.lines, row.clocks - 1, false));
      EXPECT_EQ(CallsOnPage(kPage, kHUp), Delays(row.lines, row.clocks, false));
      EXPECT_EQ(CallsOnPage(kPage, kHUp), Delays(row.lines, row.clocks, false));
      ExpectShown(row.lines, row.clocks);
      EXPECT_EQ(CallsOnPage(kPage, kVDown), Delays(row.lines - 1, row.clocks, false));
      EXPECT_EQ(CallsOnPage(kPage, kHDown), Delays(row.lines - 1, row.clocks - 1, false));
      // Dragged.
      EXPECT_EQ(Slide(kVSlider, 0), Delays(0, row.clocks - 1, false));
      EXPECT_EQ(Slide(kHSlider, 0), Delays(0, 0, false));
      ExpectShown(0, 0);
      EXPECT_EQ(Slide(kHSlider, 0), Calls{});  // no change
      EXPECT_EQ(CallsOnPage(kPage, kVDown), Delays(0, 0, false));
      EXPECT_EQ(CallsOnPage(kPage, kHDown), Delays(0, 0, false));
      EXPECT_EQ(Slide(kVSlider, 5000), Delays(row.lines, 0, false));
      EXPECT_EQ(Slide(kHSlider, 5000), Delays(row.lines, row.clocks, false));
      // Typed.
      for (const auto& [typed, vertical, horizontal] :
           std::vector<std::tuple<std::string, int, int>>{
               {"0", 0, 0},
               {"9999", row.lines, row.clocks},
               {"-3", 0, 0},
               {std::to_string(row.lines), row.lines, row.lines},
               {std::to_string(row.lines + 1), row.lines, row.lines + 1}}) {
        desk.Type(kPage, kVEdit, typed);
        desk.Type(kPage, kHEdit, typed);
        TakeCalls();
        desk.PressKey(kPage, kVEdit, ui::Key::kEnter);
        EXPECT_EQ(TakeCalls(), Delays(vertical, horizontal, false)) << typed;
        ExpectShown(vertical, horizontal);
        desk.Type(kPage, kVEdit, typed);
        desk.Type(kPage, kHEdit, typed);
        EXPECT_EQ(CallsOf(kApplyButton), Join({Mode(mode), Delays(vertical, horizontal, true)}));
        ExpectShown(vertical, horizontal);
      }
    }
  }
}

TEST_F(Genlock, TypedVerticalDelayOf2000On625LinesIsSentAs625) {
  Open(46, 1, 1, 2);
  desk.Type(kPage, kVEdit, "2000");
  EXPECT_EQ(CallsOf(kApplyButton), Join({Mode(1), Delays(625, 200, true)}));
}

TEST_F(Genlock, VerticalDelayOf300IsSentHighByteFirst) {
  Open(46);
  desk.Type(kPage, kVEdit, "300");
  EXPECT_EQ(CallsOf(kApplyButton),
            (Calls{"set block 26,0,1: 01", "set block 27,0,5: 01 2C 00 C8 01"}));
  // Read the other way round.
  box.Block(27) = {0x2C, 0x01, 0xC8, 0x00};
  Press(kPictureButton);
  ExpectShown(300, 200);
}

TEST_F(Genlock, ReportedDelayBeyondTheRangeComesBackWithAStepUp) {
  Open(46, 1, 1, 2, 2000, 200);
  EXPECT_EQ(desk.Text(kPage, kVEdit), "2000");
  EXPECT_EQ(CallsOnPage(kPage, kVUp), Delays(625, 200, false));
  Open(46, 1, 1, 2, 2000, 200);
  EXPECT_EQ(CallsOnPage(kPage, kVDown), Delays(1999, 200, false));  // only the way up is limited
}

TEST_F(Genlock, TextWithoutNumberEndsThere) {
  for (const int edit : {kVEdit, kHEdit}) {
    for (const char* text : {"", " ", "abc", "-"}) {
      Open(46);
      desk.Type(kPage, kVEdit, "300");
      desk.Type(kPage, kHEdit, "301");
      desk.Type(kPage, edit, text);
      TakeCalls();
      desk.PressKey(kPage, edit, ui::Key::kEnter);
      EXPECT_EQ(TakeCalls(), Calls{}) << text;
      EXPECT_EQ(desk.Text(kPage, edit), text);
      EXPECT_EQ(CallsOf(kApplyButton), Mode(1)) << text;
      EXPECT_EQ(CallsOnPage(kPage, kVUp), Delays(101, 200, false)) << text;  // nothing was stored
    }
  }
}

TEST_F(Genlock, EnterAndEscapeAreConsumed) {
  Open(46);
  TakeCalls();
  desk.PressKey(kPage, kVEdit, ui::Key::kEscape);
  EXPECT_EQ(TakeCalls(), Calls{});
  EXPECT_TRUE(desk.IsShown(kPage));
  EXPECT_TRUE(panel->IsOpen());
  desk.PressKey(kPage, kHEdit, ui::Key::kEnter);
  EXPECT_EQ(TakeCalls(), Delays(100, 200, false));
  EXPECT_TRUE(desk.IsShown(kPage));
  EXPECT_TRUE(panel->IsOpen());
}

TEST_F(Genlock, ReturnTakesAPreviewBack) {
  for (const std::uint8_t type : Bytes{46, 20, 30}) {
    Open(type, type == 20 ? 2 : 1);
    const Calls back = Delays(100, 200, false);
    EXPECT_EQ(CallsOf(kReturnButton), Calls{});  // nothing to take back
    panel->OpenPage(PageCode::kGenlock);
    Slide(kVSlider, 300);
    EXPECT_EQ(CallsOf(kReturnButton), back);
    panel->OpenPage(PageCode::kGenlock);
    ExpectShown(100, 200);
    desk.Press(kPage, kHUp);
    EXPECT_EQ(CallsOf(kReturnButton), back);
  }
}

TEST_F(Genlock, ReturnAfterApplyWritesNothing) {
  Open(46);
  Slide(kVSlider, 300);
  Press(kApplyButton);
  EXPECT_EQ(CallsOf(kReturnButton), Calls{});
  panel->OpenPage(PageCode::kGenlock);
  Slide(kVSlider, 301);
  EXPECT_EQ(CallsOf(kReturnButton), Delays(300, 200, false));
}

// What a refresh reads then is the preview itself.
TEST_F(Genlock, PreviewIsTakenBackEvenAfterARefresh) {
  Open(46);
  Slide(kVSlider, 300);
  Press(kPictureButton);
  ExpectShown(300, 200);
  EXPECT_EQ(CallsOf(kReturnButton), Delays(100, 200, false));
}

TEST_F(Genlock, AnotherBoxIsNotGivenTheDelaysOfTheOneBefore) {
  Open(46);
  Slide(kVSlider, 300);
  box.SetPresent(false);
  for (int i = 0; i < 3; ++i) Tick();
  box.Become({46, 0, 0, 0, 0}, 0x0126);
  box.SetPresent(true);
  device.AnswerHandle(0x77);
  Tick();
  panel->OpenPage(PageCode::kGenlock);
  ExpectShown(100, 200);
  EXPECT_EQ(CallsOf(kReturnButton), Calls{});
}

TEST_F(Genlock, FailedWritesAreNotMinded) {
  Open(30);
  device.Fail("set block 15,0,1: 01");
  device.Fail("set block 16,0,5: 00 64 00 C8 01");
  EXPECT_EQ(CallsOf(kApplyButton), Join({Mode(1), Delays(100, 200, true)}));
}

TEST_F(Genlock, SliderThatDidNotMoveShowsItsValueAlone) {
  Open(46);
  desk.Type(kPage, kVEdit, "7");
  desk.Type(kPage, kHEdit, "8");
  EXPECT_EQ(Slide(kVSlider, 100), Calls{});
  EXPECT_EQ(desk.Text(kPage, kVEdit), "100");
  EXPECT_EQ(desk.Text(kPage, kHEdit), "8");
}

// Enter belongs to the typed delays, wherever the focus is.
TEST_F(Genlock, EnterOnAButtonSendsWhatWasTyped) {
  Open(46);
  desk.Type(kPage, kVEdit, "300");
  for (const int button : {kVUp, kNextMode}) {
    TakeCalls();
    desk.PressKey(kPage, button, ui::Key::kEnter);
    EXPECT_EQ(TakeCalls(), Delays(300, 200, false));
    EXPECT_EQ(ModeName(), "External");
  }
}

// Numbers are limited to the range, however long they are.
TEST_F(Genlock, EditsTakeWhatIsTyped) {
  Open(46);
  for (const char* typed : {"12345", "000300", "65537", "4294967297", "99999999999999999999"}) {
    const bool small = typed == std::string("000300");
    for (const int edit : {kVEdit, kHEdit}) {
      desk.Type(kPage, edit, typed);
      EXPECT_EQ(desk.Text(kPage, edit), typed);
    }
    TakeCalls();
    desk.PressKey(kPage, kVEdit, ui::Key::kEnter);
    EXPECT_EQ(TakeCalls(), Delays(small ? 300 : 1125, small ? 300 : 2200, false)) << typed;
  }
}

TEST_F(Genlock, WhatNoPreviewChangedIsNotTakenBack) {
  for (const std::uint8_t type : Bytes{46, 20, 30}) {
    Open(type, type == 20 ? 2 : 1);
    // A step forth and back.
    desk.Press(kPage, kVUp);
    desk.Press(kPage, kVDown);
    EXPECT_EQ(CallsOf(kReturnButton), Calls{});
    // The box has other delays by now: they are what counts.
    const auto reopenWith = [&](int vertical, int horizontal) {
      SetBox(type == 20 ? 2 : 1, 10, 15, vertical, horizontal);
      panel->OpenPage(PageCode::kGenlock);
      ExpectShown(vertical, horizontal);
    };
    reopenWith(300, 250);
    EXPECT_EQ(CallsOf(kReturnButton), Calls{});
    reopenWith(300, 250);
    EXPECT_EQ(CallsOnPage(kPage, kVUp), Delays(301, 250, false));
    EXPECT_EQ(CallsOf(kReturnButton), Delays(300, 250, false));
    // Enter without a change.
    reopenWith(310, 260);
    TakeCalls();
    desk.PressKey(kPage, kVEdit, ui::Key::kEnter);
    EXPECT_EQ(TakeCalls(), Delays(310, 260, false));
    EXPECT_EQ(CallsOf(kReturnButton), Calls{});
    reopenWith(320, 270);
    EXPECT_EQ(CallsOf(kReturnButton), Calls{});
    // A refresh reads other delays while no preview is out.
    reopenWith(330, 280);
    SetBox(type == 20 ? 2 : 1, 10, 15, 340, 290);
    Press(kPictureButton);
    EXPECT_EQ(CallsOf(kReturnButton), Calls{});
  }
}

TEST_F(Genlock, PreviewIsTakenBackAfterDefaultToo) {
  Open(46);
  Slide(kVSlider, 300);
  Press(kDefaultButton);
  ExpectShown(300, 200);
  EXPECT_EQ(CallsOf(kReturnButton), Delays(100, 200, false));
}

TEST_F(Genlock, NothingOfTheBoxBeforeIsShown) {
  Open(39, 2, 10, 15, 300, 400);
  box.Block(46) = {1, 0};
  Press(kPictureButton);
  box.SetPresent(false);
  for (int i = 0; i < 3; ++i) Tick();
  box.SetPresent(true);
  for (const std::string& read : Reads(39)) device.Fail(read);
  Tick();
  panel->OpenPage(PageCode::kGenlock);
  EXPECT_EQ(FormatText(), "-  NO SIGNAL  -");
  EXPECT_EQ(ModeName(), "Free-Run");
  EXPECT_EQ(SyncName(), "75 ohms termination");
  ExpectShown(0, 0);
  desk.Press(kPage, kNextMode);
  EXPECT_EQ(desk.SliderRange(kPage, kVSlider), std::make_pair(0, 0));
  TakeCalls();
  EXPECT_EQ(CallsOf(kReturnButton), Calls{});
}

}  // namespace
}  // namespace panelora::testing
