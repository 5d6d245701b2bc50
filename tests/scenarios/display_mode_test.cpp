// The Display Mode page: views, what it reads and writes, labels, random modes. The channel rules
// have a file of their own (display_mode_channels_test.cpp).
#include <map>
#include <set>

#include "tests/support/panel_test.h"

namespace panelora::testing {
namespace {

constexpr int kPage = res::kDisplayMode;
constexpr int kNextMode = 1046;
constexpr int kNextLabels = 1062;

const Calls kModeReads = {"get block 1,0,20", "get block 2,0,20"};
const Calls kLabelReads = {"get block 20,0,2", "get block 19,0,60", "get block 19,1,60",
                           "get block 19,2,60", "get block 19,3,60"};
const Calls kOpening = {"set word 0,10 = 3"};

using Places = std::map<int, Rect>;

const Places kThreeGroups = {
    {1044, {70, 35, 300, 20}},  {1003, {70, 50, 300, 48}},  {1045, {80, 65, 250, 30}},
    {1046, {380, 58, 40, 39}},  {1047, {70, 115, 300, 20}}, {1004, {70, 130, 300, 48}},
    {1048, {80, 145, 250, 30}}, {1049, {380, 138, 40, 39}}, {1050, {70, 195, 300, 20}},
    {1005, {70, 210, 300, 48}}, {1051, {80, 225, 250, 30}}, {1052, {380, 218, 40, 39}},
};
const Places kFourGroups = {
    {1044, {70, 15, 300, 20}},  {1003, {70, 30, 300, 48}},  {1045, {80, 45, 250, 30}},
    {1046, {380, 38, 40, 39}},  {1047, {70, 85, 300, 20}},  {1004, {70, 100, 300, 48}},
    {1048, {80, 115, 250, 30}}, {1049, {380, 108, 40, 39}}, {1050, {70, 155, 300, 20}},
    {1005, {70, 170, 300, 48}}, {1051, {80, 185, 250, 30}}, {1052, {380, 178, 40, 39}},
    {1053, {70, 225, 300, 20}}, {1006, {70, 240, 300, 48}}, {1054, {80, 255, 250, 30}},
    {1055, {380, 248, 40, 39}},
};
const Places kLabelsView = {
    {1060, {70, 15, 300, 20}},   {1007, {70, 30, 300, 48}},   {1061, {80, 45, 250, 30}},
    {1062, {380, 38, 40, 39}},   {1056, {70, 105, 110, 20}},  {1057, {70, 155, 110, 20}},
    {1058, {70, 205, 110, 20}},  {1059, {70, 255, 110, 20}},  {1109, {180, 103, 240, 25}},
    {1110, {180, 153, 240, 25}}, {1111, {180, 203, 240, 25}}, {1112, {180, 253, 240, 25}},
};

class DisplayMode : public PanelTest {
 protected:
  // Opens the page on a box with these modes and labels.
  void Open(Identity identity, std::uint8_t nineModes = 1, std::uint8_t labels = 1,
            std::uint32_t firmware = 0x0126) {
    panel.reset();
    admitted = {identity.boxType};
    box.Become(identity, firmware);
    box.Block(1) = {1, nineModes, labels};
    Start();
    panel->ShowDisplayMode();
    device.TakeCalls();
  }
  // The firmware above which other brands than 2 write labels is 288.
  void OpenLabels(Identity identity = {15, 0, 0, 0, 0}, std::uint32_t firmware = 289) {
    Open(identity, 1, 1, firmware);
    Press(kPageUpButton);
    device.TakeCalls();
  }
  std::vector<std::string> Names() {
    return {desk.Text(kPage, 1048), desk.Text(kPage, 1051), desk.Text(kPage, 1054)};
  }
  std::string Mode() { return desk.Text(kPage, 1045); }
  Calls CallsOf(int button) {
    TakeCalls();
    Press(button);
    return TakeCalls();
  }
  Calls CallsOnPage(int button) {
    TakeCalls();
    desk.Press(kPage, button);
    return TakeCalls();
  }
  Places ShownControls() {
    Places shown;
    for (const ui::ControlTemplate& control : res::FindDialog(kPage)->controls) {
      if (desk.Shows(kPage, control.id)) shown[control.id] = desk.PlaceOf(kPage, control.id);
    }
    return shown;
  }
  std::vector<bool> EnabledEdits() {
    std::vector<bool> enabled;
    for (const int edit : {1109, 1110, 1111, 1112}) enabled.push_back(desk.Enables(kPage, edit));
    return enabled;
  }
  static Bytes LabelBlock(const std::string& text) {
    Bytes block(text.begin(), text.end());
    block.resize(60, 'x');  // what stands behind the field is no part of it
    return block;
  }
};

const std::vector<bool> kAllEnabled(4, true);
const std::vector<bool> kAllDisabled(4, false);

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
    for (const Row& row : rows) {
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
  panel->ShowDisplayMode();
  EXPECT_EQ(ShownControls(), kFourGroups);
}

TEST_F(DisplayMode, LeavingThePageFromTheLabelsComesBackToTheModes) {
  Open({15, 0, 0, 0, 0});
  Press(kPageUpButton);
  Press(kReturnButton);
  panel->ShowDisplayMode();
  EXPECT_EQ(ShownControls(), kFourGroups);
  Press(kPageUpButton);
  EXPECT_EQ(ShownControls(), kLabelsView);
}

TEST_F(DisplayMode, OpeningAndDefaultTellTheBoxAndRead) {
  for (const std::uint8_t type : Bytes{13, 15, 51}) {
    Open({type, 0, 0, 0, 0});
    panel->ShowDisplayMode();
    EXPECT_EQ(TakeCalls(), Join({kOpening, kModeReads})) << int{type};
    EXPECT_EQ(CallsOf(kDefaultButton), Join({kOpening, kModeReads})) << int{type};
    EXPECT_EQ(CallsOf(kPictureButton), kModeReads) << int{type};
  }
}

TEST_F(DisplayMode, OtherTypesReadAndWriteNothing) {
  Open({26, 0, 0, 0, 0});
  panel->ShowDisplayMode();
  EXPECT_EQ(TakeCalls(), kOpening);
  EXPECT_EQ(CallsOf(kPictureButton), Calls{});
  EXPECT_EQ(CallsOf(kApplyButton), Calls{});
  for (const int button : {1046, 1049, 1052, 1055}) {
    EXPECT_EQ(CallsOnPage(button), Calls{}) << button;
  }
  EXPECT_EQ(Mode(), "Mode 1");
  EXPECT_EQ(Names(), (std::vector<std::string>{"Channel 1", "Channel 1", "Channel 2"}));
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
        EXPECT_EQ(CallsOnPage(kNextMode), Calls{});
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
  EXPECT_EQ(CallsOnPage(kNextLabels), Calls{});
  EXPECT_EQ(desk.Text(kPage, 1061), "OFF");
  EXPECT_EQ(EnabledEdits(), kAllDisabled);
  desk.Press(kPage, kNextLabels);
  EXPECT_EQ(desk.Text(kPage, 1061), "ON");
  EXPECT_EQ(EnabledEdits(), kAllEnabled);
  desk.Press(kPage, kNextLabels);
  EXPECT_EQ(desk.Text(kPage, 1061), "OFF");
  box.Block(20) = {9, 0};
  Press(kPictureButton);
  EXPECT_EQ(desk.Text(kPage, 1061), "OFF");  // no such state
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
    for (const Row& row : rows) {
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

TEST_F(DisplayMode, AnyTimerShowsARandomModeButNeverTheTopOne) {
  Open({15, 0, 0, 0, 0}, 1);
  desk.DrawNext({0, 9, 18, 17, 8});
  desk.Tick(kPage, 77);
  EXPECT_EQ(TakeCalls(), Calls{"set word 0,1 = 8"});
  desk.Tick(kPage, 1);
  EXPECT_EQ(TakeCalls(), Calls{"set word 0,1 = 8"});
  EXPECT_EQ(Mode(), "Mode 1");  // the page goes on showing what it showed
  EXPECT_EQ(CallsOf(kApplyButton), (Calls{"set word 0,1 = 8", "set word 0,2 = 1"}));
  Open({15, 0, 0, 0, 0}, 0);
  desk.DrawNext({5, 10, 9});
  desk.Tick(kPage, 5);
  EXPECT_EQ(TakeCalls(), Calls{"set word 0,1 = 4"});
}

TEST_F(DisplayMode, NothingStartsATimer) {
  Open({15, 0, 0, 0, 0});
  for (const int button : {1046, 1049, 1052, 1055, 1062}) desk.Press(kPage, button);
  for (int timer = 0; timer < 100; ++timer) EXPECT_EQ(desk.TimerPeriod(kPage, timer), 0);
}

TEST_F(DisplayMode, TakesTheHandleOfABoxThatCameBack) {
  Open({15, 0, 0, 0, 0});
  box.SetPresent(false);
  for (int i = 0; i < 3; ++i) Tick();  // opening the page silenced none, Refresh does
  box.SetPresent(true);
  device.AnswerHandle(0x77);
  Tick();
  panel->ShowDisplayMode();
  box.Block(1)[0] = 3;
  Press(kPictureButton);
  EXPECT_EQ(Mode(), "Mode 3\t\t\t");
}

}  // namespace
}  // namespace panelora::testing
