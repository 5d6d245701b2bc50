// The Display Mode page: layouts, what it reads and writes, random modes. Channel rules and labels
// have files of their own.
#include <set>

#include "tests/support/display_mode_fixture.h"

namespace panelora::testing {
namespace {

TEST_F(DisplayMode, CaptionsAndFontsAreTheBoxsOwn) {
  Start();
  const std::map<int, std::string> texts = {{1044, "Dispalye Mode"},
                                            {1045, "Mode 1"},
                                            {1047, "Main Channel"},
                                            {1048, "Channel 1"},
                                            {1050, "Sub Channel 1"},
                                            {1051, "Channel 1"},
                                            {1053, "Sub Channel 2"},
                                            {1054, "Channel 2"},
                                            {1060, "Input Lebels"},
                                            {1061, "OFF"},
                                            {1056, "Input 1 Labels :"},
                                            {1057, "Input 2 Labels :"},
                                            {1058, "Input 3 Labels :"},
                                            {1059, "Input 4 Labels :"},
                                            {1046, ">>"},
                                            {1049, ">>"},
                                            {1052, ">>"},
                                            {1055, ">>"},
                                            {1062, ">>"},
                                            {1003, ""},
                                            {1004, ""},
                                            {1005, ""},
                                            {1006, ""},
                                            {1007, ""}};
  const std::set<int> values = {1045, 1048, 1051, 1054, 1061};
  for (const auto& [id, text] : texts) {
    EXPECT_EQ(desk.Text(kPage, id), text) << id;
    const ui::Font font{"Arial", values.contains(id) ? 182 : 120};
    EXPECT_EQ(desk.FontOf(kPage, id), font) << id;
  }
}

TEST_F(DisplayMode, LayoutGoesByBrandAndNumberOfModes) {
  struct Row {
    std::uint8_t brand;
    std::uint8_t nineModes;
    std::uint8_t labels;
    const Places& places;
  };
  const Row rows[] = {{0, 0, 0, kThreeGroups}, {0, 0, 1, kThreeGroups}, {0, 2, 0, kThreeGroups},
                      {0, 1, 0, kFourGroups},  {0, 1, 1, kFourGroups},  {2, 0, 0, kThreeGroups},
                      {2, 0, 1, kThreeGroups}, {2, 1, 0, kFourGroups},  {2, 1, 1, kFourGroups},
                      {8, 0, 0, kThreeGroups}, {8, 1, 1, kFourGroups},  {12, 0, 0, kFourGroups},
                      {12, 1, 1, kFourGroups}};
  for (const std::uint8_t type : Bytes{13, 15, 51}) {
    for (const Row& row : Tried(rows)) {
      Open({type, row.brand, 0, 0, 0}, row.nineModes, row.labels);
      EXPECT_EQ(ShownControls(), row.places)
          << int{type} << " brand " << int{row.brand} << " modes " << int{row.nineModes};
    }
  }
}

TEST_F(DisplayMode, InitReadsTheNumberOfModesAndAFailureMeansFive) {
  Open({15, 0, 0, 0, 0}, 1);
  device.Fail("get block 1,0,20");
  panel.reset();
  Start();
  EXPECT_EQ(ShownControls(), kThreeGroups);
}

TEST_F(DisplayMode, PageUpShowsTheLabelsAndTheModesAgain) {
  for (const std::uint8_t nineModes : Bytes{0, 1}) {
    Open({15, 0, 0, 0, 0}, nineModes);
    EXPECT_EQ(CallsOf(kPageUpButton), kLabelReads);
    EXPECT_EQ(ShownControls(), kLabelsView);
    EXPECT_EQ(CallsOf(kPageUpButton), kModeReads);
    EXPECT_EQ(ShownControls(), nineModes == 1 ? kFourGroups : kThreeGroups);
  }
}

// Page Up goes by the number of modes alone; leaving the page puts the brand's layout back.
TEST_F(DisplayMode, Brand12ComesBackFromItsLabelsInThreeGroupsUntilThePageIsLeft) {
  Open({15, 12, 0, 0, 0}, 0);
  Press(kPageUpButton);
  Press(kPageUpButton);
  EXPECT_EQ(ShownControls(), kThreeGroups);
  Press(kReturnButton);
  panel->OpenPage(PageCode::kDisplayMode);
  EXPECT_EQ(ShownControls(), kFourGroups);
}

TEST_F(DisplayMode, LeavingThePageFromTheLabelsComesBackToTheModes) {
  Open({15, 0, 0, 0, 0});
  Press(kPageUpButton);
  Press(kReturnButton);
  panel->OpenPage(PageCode::kDisplayMode);
  EXPECT_EQ(ShownControls(), kFourGroups);
  Press(kPageUpButton);
  EXPECT_EQ(ShownControls(), kLabelsView);
}

TEST_F(DisplayMode, OpeningAndDefaultTellTheBoxAndRead) {
  for (const std::uint8_t type : Bytes{13, 15, 51}) {
    Open({type, 0, 0, 0, 0});
    panel->OpenPage(PageCode::kDisplayMode);
    EXPECT_EQ(TakeCalls(), Join({kOpening, kModeReads})) << int{type};
    EXPECT_EQ(CallsOf(kDefaultButton), Join({kOpening, kModeReads})) << int{type};
    EXPECT_EQ(CallsOf(kPictureButton), kModeReads) << int{type};
  }
}

// Every type is asked for its modes while the page is initialised, and told when it is opened; a
// type without them is asked and told nothing else.
TEST_F(DisplayMode, OtherTypesAreOnlyToldThatThePageIsOpen) {
  for (const std::uint8_t type : Bytes{26, 50, 24, 17}) {
    SCOPED_TRACE(int{type});
    panel.reset();
    admitted = {type};
    box.Become({type, 0, 0, 0, 0}, 0x0126);
    TakeCalls();
    Start();
    const Calls start = TakeCalls();
    EXPECT_EQ(std::count(start.begin(), start.end(), "get block 1,0,20"), 1);
    panel->OpenPage(PageCode::kDisplayMode);
    EXPECT_EQ(TakeCalls(), kOpening);
    EXPECT_EQ(CallsOf(kPictureButton), Calls{});
    EXPECT_EQ(CallsOf(kApplyButton), Calls{});
    for (const int button : {1046, 1046, 1046, 1049, 1052, 1055}) {
      EXPECT_EQ(CallsOnPage(kPage, button), Calls{}) << button;
    }
    EXPECT_EQ(Mode(), "Mode 1");
    EXPECT_EQ(Names(), (std::vector<std::string>{"Channel 1", "Channel 1", "Channel 2"}));
  }
}

TEST_F(DisplayMode, Type51ReadsModeAndCodesInEitherView) {
  Open({51, 0, 0, 0, 0});
  EXPECT_EQ(CallsOf(kPageUpButton), kModeReads);
}

TEST_F(DisplayMode, Brand2WithoutLabelsReadsModeAndCodesInEitherView) {
  Open({15, 2, 0, 0, 0}, 1, 0);
  EXPECT_EQ(CallsOf(kPageUpButton), kModeReads);
  EXPECT_EQ(CallsOf(kPageUpButton), kModeReads);
  Open({15, 2, 0, 0, 0}, 1, 1);
  EXPECT_EQ(CallsOf(kPageUpButton), kLabelReads);
}

TEST_F(DisplayMode, RefreshShowsModeAndChannelsOfTheCode) {
  Open({15, 0, 0, 0, 0});
  box.Block(1)[0] = 7;
  box.Block(2) = {0, 0, 0, 0, 0, 0, 6, 0, 0, 0};
  Press(kPictureButton);
  EXPECT_EQ(Mode(), "Mode 7\t\t\t");
  EXPECT_EQ(Names(), (std::vector<std::string>{"Channel 2", "Channel 3", "Channel 4"}));
}

TEST_F(DisplayMode, ModeNamesKeepTheirTabs) {
  struct Row {
    std::uint8_t type;
    std::vector<int> withTabs;
    int modes;
  };
  const Row rows[] = {{51, {3, 4}, 4}, {15, {3, 4, 5, 6, 7, 8, 9}, 9}, {13, {3, 4, 5, 8, 9}, 9}};
  for (const Row& row : rows) {
    Open({row.type, 0, 0, 0, 0});
    for (int mode = 1; mode <= row.modes; ++mode) {
      box.Block(1)[0] = static_cast<std::uint8_t>(mode);
      Press(kPictureButton);
      const bool tabs =
          std::find(row.withTabs.begin(), row.withTabs.end(), mode) != row.withTabs.end();
      EXPECT_EQ(Mode(), "Mode " + std::to_string(mode) + (tabs ? "\t\t\t" : "")) << int{row.type};
    }
  }
}

TEST_F(DisplayMode, UnknownModeOrCodeKeepsTheTexts) {
  Open({15, 0, 0, 0, 0});
  box.Block(1)[0] = 4;
  box.Block(2) = {1, 1, 1, 2, 1, 1, 1, 1, 1, 1};
  Press(kPictureButton);
  const std::vector<std::string> names = {"Channel 1", "Channel 3", ""};
  EXPECT_EQ(Names(), names);
  for (const std::uint8_t mode : Bytes{0, 10, 11, 200, 255}) {
    box.Block(1)[0] = mode;
    Press(kPictureButton);
    EXPECT_EQ(Mode(), "Mode 4\t\t\t") << int{mode};
    EXPECT_EQ(Names(), names) << int{mode};
    for (const int button : {1049, 1052, 1055}) desk.Press(kPage, button);
    EXPECT_EQ(Names(), names) << int{mode};
  }
  box.Block(1)[0] = 4;
  for (const std::uint8_t code : Bytes{0, 13, 255}) {
    box.Block(2)[3] = code;
    Press(kPictureButton);
    EXPECT_EQ(Names(), names) << int{code};
  }
}

TEST_F(DisplayMode, FailedReadsKeepWhatWasShown) {
  for (const std::uint8_t type : Bytes{51, 15, 13}) {
    for (const char* failing : {"get block 1,0,20", "get block 2,0,20"}) {
      Open({type, 0, 0, 0, 0});
      box.Block(1)[0] = 4;
      box.Block(2) = {1, 1, 3, 2, 1, 1, 1, 1, 1, 1};
      Press(kPictureButton);
      box.Block(1)[0] = 3;
      box.Block(2) = {1, 1, 3, 3, 1, 1, 1, 1, 1, 1};
      device.Fail(failing);
      EXPECT_EQ(CallsOf(kPictureButton), kModeReads);
      // The mode alone is new, or the code of the old mode.
      if (std::string(failing) == "get block 1,0,20") {
        EXPECT_EQ(Mode(), "Mode 4\t\t\t");
        EXPECT_EQ(Names(), (std::vector<std::string>{"Channel 1", "Channel 4", ""}));
      } else {
        EXPECT_EQ(Mode(), "Mode 3\t\t\t");
        EXPECT_EQ(Names(), (std::vector<std::string>{"Channel 2", "", ""}));
      }
      device.FailNothing();
    }
  }
}

TEST_F(DisplayMode, WithoutNineModesTheModesAreFive) {
  for (const std::uint8_t type : Bytes{13, 15}) {
    for (const std::uint8_t nineModes : Bytes{0, 1, 2}) {
      Open({type, 0, 0, 0, 0}, nineModes);
      const int modes = nineModes == 1 ? 9 : 5;
      for (int press = 1; press <= modes; ++press) {
        EXPECT_EQ(CallsOnPage(kPage, kNextMode), Calls{});
        EXPECT_EQ(Mode().substr(0, 6), "Mode " + std::to_string(press % modes + 1));
      }
    }
  }
}

TEST_F(DisplayMode, Type51HasFourModes) {
  Open({51, 0, 0, 0, 0});
  for (const char* mode : {"Mode 2", "Mode 3\t\t\t", "Mode 4\t\t\t", "Mode 1"}) {
    desk.Press(kPage, kNextMode);
    EXPECT_EQ(Mode(), mode);
  }
}

TEST_F(DisplayMode, Type51TakesARememberedCodeOf0As1) {
  Open({51, 0, 0, 0, 0});
  box.Block(2) = {2, 0, 0, 0, 0, 0, 0, 0, 0, 0};
  Press(kPictureButton);
  desk.Press(kPage, kNextMode);
  desk.Press(kPage, kNextMode);
  EXPECT_EQ(Names(), (std::vector<std::string>{"Channel 1", "", ""}));
  EXPECT_EQ(CallsOf(kApplyButton), (Calls{"set block 1,0,1: 03", "set block 2,0,1: 01"}));
}

TEST_F(DisplayMode, OtherTypesTakeARememberedCodeOf0AsNone) {
  Open({15, 0, 0, 0, 0});
  box.Block(2) = {2, 1, 0, 0, 0, 0, 0, 0, 0, 0};
  Press(kPictureButton);
  desk.Press(kPage, kNextMode);
  EXPECT_EQ(Names(), (std::vector<std::string>{"", "", ""}));
  desk.Press(kPage, kNextMode);
  EXPECT_EQ(Names(), (std::vector<std::string>{"", "", ""}));
  EXPECT_EQ(CallsOf(kApplyButton), (Calls{"set word 0,1 = 3", "set word 0,2 = 0"}));
}

TEST_F(DisplayMode, Brand8HoldsTheBoxsMode5AsMode9) {
  for (const std::uint8_t type : Bytes{13, 15}) {
    for (const std::uint8_t nineModes : Bytes{0, 1}) {
      Open({type, 8, 0, 0, 0}, nineModes);
      box.Block(1)[0] = 5;
      box.Block(2) = {1, 1, 1, 1, 3, 1, 1, 1, 12, 1};
      Press(kPictureButton);
      EXPECT_EQ(Mode(), "Mode 5\t\t\t");
      EXPECT_EQ(Names(), (std::vector<std::string>{"Channel 4", "Channel 3", ""}));
      EXPECT_EQ(CallsOf(kApplyButton), (Calls{"set word 0,1 = 9", "set word 0,2 = 12"}));
      std::vector<std::string> modes;
      for (int press = 0; press < 5; ++press) {
        desk.Press(kPage, kNextMode);
        modes.push_back(Mode());
      }
      const std::vector<std::string> expected = {"Mode 1", "Mode 2", "Mode 3\t\t\t", "Mode 4\t\t\t",
                                                 "Mode 5\t\t\t"};
      EXPECT_EQ(modes, expected);
      EXPECT_EQ(CallsOf(kApplyButton), (Calls{"set word 0,1 = 9", "set word 0,2 = 12"}));
    }
  }
}

TEST_F(DisplayMode, Brand8OfType51HasNoMode9) {
  Open({51, 8, 0, 0, 0});
  box.Block(1)[0] = 4;
  box.Block(2) = {1, 1, 1, 4, 0, 0, 0, 0, 0, 0};
  Press(kPictureButton);
  desk.Press(kPage, kNextMode);
  EXPECT_EQ(Mode(), "Mode 1");
}

TEST_F(DisplayMode, ApplyWritesModeAndCodeAsTheTypeTakesThem) {
  Open({51, 0, 0, 0, 0});
  desk.Press(kPage, kNextMode);
  desk.Press(kPage, kNextMode);
  desk.Press(kPage, 1049);
  EXPECT_EQ(CallsOf(kApplyButton), (Calls{"set block 1,0,1: 03", "set block 2,0,1: 02"}));
  // The box is there when it is read again.
  Press(kPictureButton);
  EXPECT_EQ(Names(), (std::vector<std::string>{"Channel 2", "", ""}));
  for (const std::uint8_t type : Bytes{13, 15}) {
    Open({type, 0, 0, 0, 0});
    for (int press = 0; press < 3; ++press) desk.Press(kPage, kNextMode);
    desk.Press(kPage, 1052);
    EXPECT_EQ(CallsOf(kApplyButton), (Calls{"set word 0,1 = 4", "set word 0,2 = 2"}));
    Press(kPictureButton);
    EXPECT_EQ(Mode(), "Mode 4\t\t\t");
    EXPECT_EQ(Names(), (std::vector<std::string>{"Channel 1", "Channel 3", ""}));
  }
}

// Deliberate: the slot is that of the mode that was written before.
TEST_F(DisplayMode, AppliedCodeIsRememberedUnderTheModeBefore) {
  Open({15, 0, 0, 0, 0});
  box.Block(2) = {1, 1, 1, 1, 1, 1, 1, 1, 1, 1};
  Press(kPictureButton);
  desk.Press(kPage, 1049);  // mode 1, channel 2
  Press(kApplyButton);
  desk.Press(kPage, kNextMode);
  desk.Press(kPage, kNextMode);
  for (int press = 0; press < 2; ++press) desk.Press(kPage, 1049);  // mode 3, channel 3
  Press(kApplyButton);
  // Round to mode 1: it now has the code of mode 3, and mode 3 still the box's.
  for (int press = 0; press < 7; ++press) desk.Press(kPage, kNextMode);
  EXPECT_EQ(Mode(), "Mode 1");
  EXPECT_EQ(Names()[0], "Channel 3");
  for (int press = 0; press < 2; ++press) desk.Press(kPage, kNextMode);
  EXPECT_EQ(Names()[0], "Channel 1");
}

TEST_F(DisplayMode, Type51RemembersNothingOfWhatItApplied) {
  Open({51, 0, 0, 0, 0});
  desk.Press(kPage, 1049);
  Press(kApplyButton);
  for (int press = 0; press < 4; ++press) desk.Press(kPage, kNextMode);
  EXPECT_EQ(Mode(), "Mode 1");
  EXPECT_EQ(Names()[0], "Channel 1");
}

TEST_F(DisplayMode, AnyTimerShowsARandomModeButNeverTheTopOne) {
  Open({15, 0, 0, 0, 0}, 1);
  desk.DrawNext({0, 9, 18, 17, 8});
  desk.Tick(kPage, 77);
  EXPECT_EQ(TakeCalls(), Calls{"set word 0,1 = 8"});
  desk.Tick(kPage, 1);
  EXPECT_EQ(TakeCalls(), Calls{"set word 0,1 = 8"});
  EXPECT_EQ(Mode(), "Mode 1");  // the page goes on showing what it showed
  EXPECT_EQ(CallsOf(kApplyButton), (Calls{"set word 0,1 = 8", "set word 0,2 = 1"}));
  for (const std::uint8_t type : Bytes{13, 51}) {
    for (const std::uint8_t nineModes : Bytes{0, 2}) {
      Open({type, 0, 0, 0, 0}, nineModes);
      desk.DrawNext({5, 10, 9});
      desk.Tick(kPage, 5);
      EXPECT_EQ(TakeCalls(), Calls{"set word 0,1 = 4"});
      desk.Press(kPage, kNextMode);
      EXPECT_EQ(Mode(), type == 51 ? "Mode 1" : "Mode 5\t\t\t");
    }
  }
}

TEST_F(DisplayMode, NothingStartsATimer) {
  Open({15, 0, 0, 0, 0});
  for (const int button : {1046, 1049, 1052, 1055, 1062}) desk.Press(kPage, button);
  for (int timer = 0; timer < 100; ++timer) EXPECT_EQ(desk.TimerPeriod(kPage, timer), 0);
}

TEST_F(DisplayMode, TakesTheHandleOfABoxThatCameBack) {
  Open({15, 0, 0, 0, 0});
  box.SetPresent(false);
  for (int i = 0; i < 3; ++i) Tick();
  box.SetPresent(true);
  device.AnswerHandle(0x77);
  Tick();
  panel->OpenPage(PageCode::kDisplayMode);
  box.Block(1)[0] = 3;
  Press(kPictureButton);
  EXPECT_EQ(Mode(), "Mode 3\t\t\t");
}

// The mode that was read is the one whose slot the next Apply takes.
TEST_F(DisplayMode, ReadModeIsTheModeBefore) {
  Open({15, 0, 0, 0, 0});
  box.Block(1)[0] = 4;
  Press(kPictureButton);
  desk.Press(kPage, 1052);  // code 2
  desk.Press(kPage, kNextMode);
  desk.Press(kPage, 1049);  // mode 5, code 2
  Press(kApplyButton);
  for (int press = 0; press < 8; ++press) desk.Press(kPage, kNextMode);
  EXPECT_EQ(Mode(), "Mode 4\t\t\t");
  EXPECT_EQ(Names(), (std::vector<std::string>{"Channel 1", "Channel 3", ""}));
}

TEST_F(DisplayMode, Brand8TakesTheSlotOfMode9ForTheBoxsMode5) {
  Open({15, 8, 0, 0, 0});
  box.Block(1)[0] = 5;
  Press(kPictureButton);
  desk.Press(kPage, kNextMode);
  desk.Press(kPage, 1049);  // mode 1, code 2
  Press(kApplyButton);
  for (int press = 0; press < 4; ++press) desk.Press(kPage, kNextMode);
  EXPECT_EQ(Mode(), "Mode 5\t\t\t");
  EXPECT_EQ(Names(), (std::vector<std::string>{"Channel 1", "Channel 3", ""}));
}

TEST_F(DisplayMode, RefreshInTheLabelsViewShowsTheChannelsOfTheCodeToo) {
  Open({15, 0, 0, 0, 0});
  desk.Press(kPage, 1052);  // mode 1 has no sub picture: no such combination
  desk.Press(kPage, 1049);
  EXPECT_EQ(Names()[0], "Channel 1");
  EXPECT_EQ(CallsOf(kPageUpButton), kLabelReads);
  desk.Press(kPage, 1049);  // from the numbers of the code again
  EXPECT_EQ(Names()[0], "Channel 2");
}

// A mode from outside the round of the buttons.
TEST_F(DisplayMode, NextModeComesBackFromModesBeyondTheRound) {
  struct Row {
    std::uint8_t type;
    std::uint8_t brand;
    std::uint8_t nineModes;
    std::uint8_t reported;
    const char* next;
  };
  const Row rows[] = {
      {15, 8, 0, 6, "Mode 7\t\t\t"}, {13, 8, 1, 7, "Mode 8\t\t\t"}, {15, 8, 1, 8, "Mode 5\t\t\t"},
      {15, 0, 0, 6, "Mode 1"},       {13, 2, 0, 9, "Mode 1"},       {13, 12, 0, 5, "Mode 1"},
      {15, 2, 0, 5, "Mode 1"},       {15, 0, 1, 200, "Mode 1"},     {51, 0, 0, 7, "Mode 1"},
      {51, 8, 0, 5, "Mode 1"},       {51, 0, 1, 4, "Mode 1"}};
  for (const Row& row : Tried(rows)) {
    Open({row.type, row.brand, 0, 0, 0}, row.nineModes);
    desk.Press(kPage, kNextMode);  // something else than Mode 1
    box.Block(1)[0] = row.reported;
    Press(kPictureButton);
    desk.Press(kPage, kNextMode);
    EXPECT_EQ(Mode(), row.next) << int{row.type} << " " << int{row.reported};
  }
}

TEST_F(DisplayMode, Brand8OfType51WritesTheModeThatItReported) {
  Open({51, 8, 0, 0, 0});
  box.Block(1)[0] = 5;
  box.Block(2) = {1, 1, 1, 1, 7, 1, 1, 1, 9, 1};
  Press(kPictureButton);
  EXPECT_EQ(CallsOf(kApplyButton), (Calls{"set block 1,0,1: 05", "set block 2,0,1: 07"}));
}

// The mode of the initialisation stands when the refresh can't read one.
TEST_F(DisplayMode, InitTakesTheMode) {
  Open({15, 0, 0, 0, 0});
  box.Block(1)[0] = 4;
  panel.reset();
  Start();
  device.Fail("get block 1,0,20");
  panel->OpenPage(PageCode::kDisplayMode);
  EXPECT_EQ(Mode(), "Mode 4\t\t\t");
}

TEST_F(DisplayMode, ReconnectStartsTheTextsAndTheNumberOfModesAgain) {
  Open({15, 0, 0, 0, 0}, 1);
  box.Block(1)[0] = 4;
  Press(kPictureButton);
  Press(kPageUpButton);
  desk.Press(kPage, kNextLabels);
  desk.Type(kPage, 1109, "OLD");
  box.SetPresent(false);
  for (int i = 0; i < 3; ++i) Tick();
  device.Fail("get block 1,0,20");
  box.SetPresent(true);
  Tick();
  EXPECT_EQ(ShownControls(), kThreeGroups);
  EXPECT_EQ(Mode(), "Mode 1");
  EXPECT_EQ(Names(), (std::vector<std::string>{"Channel 1", "Channel 1", "Channel 2"}));
  EXPECT_EQ(desk.Text(kPage, 1061), "OFF");
  for (const int edit : {1109, 1110, 1111, 1112}) EXPECT_EQ(desk.Text(kPage, edit), "");
}

TEST_F(DisplayMode, FailedWritesAreNotMinded) {
  Open({15, 0, 0, 0, 0});
  device.Fail("set word 0,1 = 1");
  EXPECT_EQ(CallsOf(kApplyButton), (Calls{"set word 0,1 = 1", "set word 0,2 = 1"}));
}

}  // namespace
}  // namespace panelora::testing
