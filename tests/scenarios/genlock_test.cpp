// The Genlock page: its three groups of models, names, ranges, previews and final values.
#include <map>

#include "tests/support/panel_test.h"

namespace panelora::testing {
namespace {

constexpr int kPage = res::kGenlock;
constexpr int kNextMode = 1080;
constexpr int kNextSync = 1095;
constexpr int kVUp = 1107;
constexpr int kVDown = 1108;
constexpr int kHUp = 1109;
constexpr int kHDown = 1110;
constexpr int kVSlider = 1086;
constexpr int kHSlider = 1087;
constexpr int kVEdit = 1105;
constexpr int kHEdit = 1106;
constexpr int kHorizontal[] = {1085, kHSlider, kHUp, kHDown, kHEdit, 1089, 1091};

struct GroupRow {
  std::vector<std::uint8_t> types;
  int reference;
  int mode;
  int delays;
  int sync;  // 0 = none
};
const GroupRow kGroups[] = {{{39, 40, 46, 47, 48, 49, 50}, 25, 26, 27, 46},
                            {{20, 33}, 21, 19, 20, 0},
                            {{30, 43}, 18, 15, 16, 22}};

const GroupRow& GroupOf(std::uint8_t type) {
  for (const GroupRow& group : kGroups) {
    if (std::find(group.types.begin(), group.types.end(), type) != group.types.end()) return group;
  }
  return kGroups[0];
}

std::uint8_t Number(int block) { return static_cast<std::uint8_t>(block); }

Calls Reads(std::uint8_t type) {
  const GroupRow& group = GroupOf(type);
  Calls reads = {ui::Format("get block %d,0,30", group.reference),
                 ui::Format("get block %d,0,4", group.mode)};
  if (&group == kGroups) {
    reads.push_back("get block 38,0,2");
    reads.push_back("get block 4,0,2");
  }
  reads.push_back(ui::Format("get block %d,0,4", group.delays));
  if (group.sync != 0) reads.push_back(ui::Format("get block %d,0,2", group.sync));
  return reads;
}

class Genlock : public PanelTest {
 protected:
  // Opens the page on a box with these codes and delays.
  void Open(std::uint8_t type, int mode = 1, int outputCode = 10, int inputCode = 15,
            int vertical = 100, int horizontal = 200) {
    panel.reset();
    device.FailNothing();
    StartWith({type, 0, 0, 0, 0});
    SetBox(mode, outputCode, inputCode, vertical, horizontal);
    panel->ShowGenlock();
    TakeCalls();
  }
  void SetBox(int mode, int outputCode, int inputCode, int vertical, int horizontal) {
    const GroupRow& group = GroupOf(panel->Panel().identity.boxType);
    box.Block(Number(group.mode)) = {Number(mode), Number(outputCode), 0, Number(inputCode)};
    if (&group == kGroups) {
      box.Block(26)[3] = 99;  // of no use there
      box.Block(4) = {Number(inputCode), 0};
    }
    box.Block(Number(group.delays)) = {Number(vertical & 0xFF), Number(vertical >> 8),
                                       Number(horizontal & 0xFF), Number(horizontal >> 8)};
  }
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
  Calls Slide(int slider, int position) {
    TakeCalls();
    desk.Drag(kPage, slider, position);
    EXPECT_EQ(TakeCalls(), Calls{});
    desk.Release(kPage, slider);
    return TakeCalls();
  }
  // What is written for these delays.
  Calls Delays(int vertical, int horizontal, bool final, int syncMode = 0) {
    const GroupRow& group = GroupOf(panel->Panel().identity.boxType);
    Calls calls = {ui::Format("set block %d,0,5: %02X %02X %02X %02X %02X", group.delays,
                              vertical >> 8, vertical & 0xFF, horizontal >> 8, horizontal & 0xFF,
                              final ? 1 : 0)};
    if (group.delays == 16) calls.push_back(ui::Format("set block 22,0,1: %02X", syncMode));
    return calls;
  }
  Calls Mode(int mode) {
    return {
        ui::Format("set block %d,0,1: %02X", GroupOf(panel->Panel().identity.boxType).mode, mode)};
  }
  void ExpectShown(int vertical, int horizontal) {
    for (const int control : {kVEdit, 1088}) {
      EXPECT_EQ(desk.Text(kPage, control), std::to_string(vertical)) << control;
    }
    for (const int control : {kHEdit, 1089}) {
      EXPECT_EQ(desk.Text(kPage, control), std::to_string(horizontal)) << control;
    }
    const auto inRange = [&](int slider, int value) {
      return std::min(value, desk.SliderRange(kPage, slider).second);
    };
    EXPECT_EQ(desk.SliderPosition(kPage, kVSlider), inRange(kVSlider, vertical));
    EXPECT_EQ(desk.SliderPosition(kPage, kHSlider), inRange(kHSlider, horizontal));
  }
  std::string ModeName() { return desk.Text(kPage, 1079); }
  std::string SyncName() { return desk.Text(kPage, 1094); }
  std::string FormatText() { return desk.Text(kPage, 1083); }
};

TEST_F(Genlock, CaptionsAndFonts) {
  Open(30);
  const std::map<int, std::string> texts = {{1077, "Genlock Mode"},
                                            {1092, "Sync Mode"},
                                            {1081, "Info"},
                                            {1082, "Sync Input Format :"},
                                            {1084, "V Sync Delay :"},
                                            {1085, "H Sync Delay :"},
                                            {1090, "H"},
                                            {1091, "Clock"},
                                            {kVUp, ">>"},
                                            {kVDown, "<<"},
                                            {kHUp, ">>"},
                                            {kHDown, "<<"},
                                            {kNextMode, ">>"},
                                            {kNextSync, ">>"},
                                            {1078, ""},
                                            {1093, ""}};
  for (const auto& [id, text] : texts) {
    EXPECT_EQ(desk.Text(kPage, id), text) << id;
    EXPECT_EQ(desk.FontOf(kPage, id), ui::kCaptionFont) << id;
  }
  for (const int id : {1079, 1094}) EXPECT_EQ(desk.FontOf(kPage, id), ui::kValueFont) << id;
}

TEST_F(Genlock, OpeningTellsTheBoxThenReads) {
  const std::map<int, std::string> openings = {
      {46, "set block 1,0,1: 02"}, {47, "set block 1,0,1: 02"}, {48, "set block 1,0,1: 02"},
      {49, "set block 1,0,1: 02"}, {39, "set block 1,0,1: 02"}, {40, "set block 1,0,1: 02"},
      {50, "set block 1,0,1: 04"}, {30, "set word 0,4 = 2"},    {43, "set word 0,4 = 2"},
      {20, "set word 0,4 = 3"},    {33, "set word 0,4 = 3"}};
  for (const auto& [type, opening] : openings) {
    Open(Number(type));
    const Calls expected = Join({{opening}, Reads(Number(type))});
    panel->ShowGenlock();
    EXPECT_EQ(TakeCalls(), expected) << type;
    EXPECT_EQ(CallsOf(kDefaultButton), expected) << type;
    EXPECT_EQ(CallsOf(kPictureButton), Reads(Number(type))) << type;
  }
}

TEST_F(Genlock, InitialisationReadsTheBox) {
  for (const std::uint8_t type : Bytes{46, 20, 30}) {
    panel.reset();
    admitted = {type};
    box.Become({type, 0, 0, 0, 0}, 0x0126);
    Start();
    const Calls calls = TakeCalls();
    const Calls reads = Reads(type);
    ASSERT_GE(calls.size(), reads.size());
    const auto found = std::search(calls.begin(), calls.end(), reads.begin(), reads.end());
    EXPECT_NE(found, calls.end()) << int{type};
  }
}

TEST_F(Genlock, OtherTypesAreAskedAndToldNothing) {
  StartWith({26, 0, 0, 0, 0});
  panel->ShowGenlock();
  for (const int button : {kPictureButton, kApplyButton, kDefaultButton}) Press(button);
  for (const int button : {kNextMode, kNextSync, kVUp, kVDown}) desk.Press(kPage, button);
  desk.PressKey(kPage, kVEdit, ui::Key::kEnter);
  EXPECT_EQ(TakeCalls(), Calls{});
}

TEST_F(Genlock, ReferenceFormatIsReadLittleEndian) {
  struct Row {
    Bytes bytes;
    const char* text;
  };
  const Row rows[] = {{{0x80, 7, 0x38, 4, 0x3C, 0, 1}, "1920x1080  60.00p"},
                      {{0x80, 7, 0x38, 4, 59, 94, 0}, "1920x1080  59.94i"},
                      {{0x80, 7, 0x38, 4, 50, 0, 2}, "1920x1080  50.00i"},
                      {{0xD0, 2, 0x40, 2, 120, 7, 1}, "720x576  120.0p"},
                      {{0, 0, 0x38, 4, 60, 0, 1}, "-  NO SIGNAL  -"},
                      {{0x80, 7, 0, 0, 60, 0, 1}, "-  NO SIGNAL  -"}};
  for (const std::uint8_t type : Bytes{50, 20, 30}) {
    Open(type);
    for (const Row& row : rows) {
      box.Block(Number(GroupOf(type).reference)) = row.bytes;
      Press(kPictureButton);
      EXPECT_EQ(FormatText(), row.text) << int{type};
    }
  }
}

TEST_F(Genlock, FormatThatWasNeverReadIsNoSignal) {
  for (const std::uint8_t type : Bytes{50, 20, 30}) {
    panel.reset();
    device.Fail(ui::Format("get block %d,0,30", GroupOf(type).reference));
    StartWith({type, 0, 0, 0, 0});
    panel->ShowGenlock();
    EXPECT_EQ(FormatText(), "-  NO SIGNAL  -");
    device.FailNothing();
  }
}

TEST_F(Genlock, FailedReadsKeepWhatWasShown) {
  for (const std::uint8_t type : Bytes{39, 40, 46, 47, 48, 49, 50, 20, 33, 30, 43}) {
    for (const std::string& failing : Reads(type)) {
      Open(type, type == 20 || type == 33 ? 2 : 1, 10, 15);
      const GroupRow& group = GroupOf(type);
      const std::string mode = ModeName();
      SetBox(0, 7, 12, 300, 400);
      box.Block(Number(group.reference)) = {0xD0, 2, 0x40, 2, 50, 0, 1};
      if (group.sync != 0) box.Block(Number(group.sync)) = {1, 0};
      if (group.sync == 46) box.Block(38) = {1, 0};
      device.Fail(failing);
      EXPECT_EQ(CallsOf(kPictureButton), Reads(type)) << failing;
      const bool formatFails = failing == Reads(type)[0];
      const bool modeFails = failing == Reads(type)[1];
      const bool delaysFail = failing == ui::Format("get block %d,0,4", group.delays);
      EXPECT_EQ(FormatText(), formatFails ? "1920x1080  60.00p" : "720x576  50.00p") << failing;
      EXPECT_EQ(ModeName(), modeFails ? mode : "Free-Run") << failing;
      // 10 with 12, or 7 with 15, is no pair that allows a horizontal delay.
      const bool allowed = !(&group == kGroups && (modeFails || failing == "get block 4,0,2"));
      EXPECT_EQ(desk.Text(kPage, kVEdit), delaysFail ? "100" : "300") << failing;
      EXPECT_EQ(desk.Text(kPage, kHEdit), !allowed ? "0" : delaysFail ? "200" : "400") << failing;
      if (group.sync == 46) {
        EXPECT_EQ(desk.Enables(kPage, kNextMode), failing == "get block 38,0,2") << failing;
      }
      if (type == 39 || type == 40 || group.sync == 22) {
        const bool syncFails = failing == ui::Format("get block %d,0,2", group.sync);
        EXPECT_EQ(SyncName(), syncFails ? "75 ohms termination" : "Open termination") << failing;
      }
    }
  }
}

TEST_F(Genlock, ModesGoRoundAsTheTypeHasThem) {
  const std::vector<std::string> external = {"External", "Free-Run", "External"};
  const std::vector<std::string> inputs = {"SDI Input", "Ref Input", "Free-Run", "SDI Input"};
  const std::vector<std::string> hdmi = {"HDMI Input", "Free-Run", "HDMI Input"};
  // Type 50 has no name for its mode 2: the text stays.
  const std::vector<std::string> fifty = {"External", "External", "Free-Run", "External"};
  const std::map<int, std::vector<std::string>> rows = {
      {30, external}, {43, external}, {46, external}, {47, external}, {48, inputs}, {49, inputs},
      {39, inputs},   {40, inputs},   {20, hdmi},     {33, hdmi},     {50, fifty}};
  for (const auto& [type, names] : rows) {
    Open(Number(type), 0);
    EXPECT_EQ(ModeName(), "Free-Run");
    for (const std::string& name : names) {
      EXPECT_EQ(CallsOnPage(kNextMode), Calls{});
      EXPECT_EQ(ModeName(), name) << type;
    }
  }
  // What is reported is shown where it has a name.
  Open(20, 1);
  EXPECT_EQ(ModeName(), "SDI Input");
  desk.Press(kPage, kNextMode);
  EXPECT_EQ(ModeName(), "HDMI Input");
  for (const int mode : {3, 200, 255}) {
    Open(39, mode);
    EXPECT_EQ(ModeName(), "SDI Input");  // no such mode: the text from before
    desk.Press(kPage, kNextMode);
    EXPECT_EQ(CallsOf(kApplyButton).front(), "set block 26,0,1: 00") << mode;
  }
}

TEST_F(Genlock, Type50SendsItsModeWithoutName) {
  Open(50, 1);
  desk.Press(kPage, kNextMode);
  EXPECT_EQ(CallsOf(kApplyButton), Join({Mode(2), Delays(100, 200, true)}));
}

TEST_F(Genlock, SyncModesAreShownWhereTheyHaveNames) {
  for (const std::uint8_t type : Bytes{39, 40, 46, 47, 48, 49, 50, 20, 33, 30, 43}) {
    Open(type);
    const bool named = type == 39 || type == 40 || type == 30 || type == 43;
    for (const int control : {1092, 1093, 1094, kNextSync}) {
      EXPECT_EQ(desk.Shows(kPage, control), named) << int{type};
    }
    if (!named) continue;
    EXPECT_EQ(SyncName(), "75 ohms termination");
    EXPECT_EQ(CallsOnPage(kNextSync), Calls{});
    EXPECT_EQ(SyncName(), "Open termination");
    desk.Press(kPage, kNextSync);
    EXPECT_EQ(SyncName(), "75 ohms termination");
    box.Block(Number(GroupOf(type).sync)) = {1, 0};
    Press(kPictureButton);
    EXPECT_EQ(SyncName(), "Open termination");
    box.Block(Number(GroupOf(type).sync)) = {7, 0};
    Press(kPictureButton);
    EXPECT_EQ(SyncName(), "Open termination");
    desk.Press(kPage, kNextSync);
    EXPECT_EQ(SyncName(), "75 ohms termination");
  }
}

TEST_F(Genlock, SyncModeIsWrittenAfterEveryWriteOfDelaysOnGroup3) {
  for (const std::uint8_t type : Bytes{30, 43}) {
    Open(type);
    desk.Press(kPage, kNextSync);
    EXPECT_EQ(CallsOnPage(kVUp), Delays(101, 200, false, 1));
    EXPECT_EQ(CallsOf(kApplyButton), Join({Mode(1), Delays(101, 200, true, 1)}));
  }
}

TEST_F(Genlock, LockedModeCannotBeStepped) {
  for (const std::uint8_t type : Bytes{39, 40, 46, 47, 48, 49, 50}) {
    Open(type);
    for (const auto& [reported, enabled] :
         std::vector<std::pair<int, bool>>{{1, false}, {2, false}, {0, true}, {2, true}}) {
      box.Block(38) = {Number(reported), 0};
      Press(kPictureButton);
      EXPECT_EQ(desk.Enables(kPage, kNextMode), enabled) << int{type} << " " << reported;
    }
  }
}

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
  EXPECT_EQ(CallsOnPage(kVUp), Delays(101, 0, false));
  EXPECT_EQ(CallsOf(kApplyButton), Join({Mode(1), Delays(101, 0, true)}));
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
    EXPECT_EQ(CallsOnPage(kNextMode), Calls{});
    for (const int control : {kVSlider, kVUp, kVDown, kVEdit, kHSlider, kHUp, kHDown, kHEdit}) {
      EXPECT_TRUE(desk.Enables(kPage, control)) << control;
    }
    EXPECT_EQ(desk.SliderRange(kPage, kVSlider), std::make_pair(0, 1125));
    ExpectShown(100, 200);
    EXPECT_EQ(CallsOnPage(kVUp), Delays(101, 200, false));
  }
}

TEST_F(Genlock, ApplyInFreeRunWritesNoDelay) {
  Open(46, 1);
  desk.Press(kPage, kNextMode);
  EXPECT_EQ(CallsOf(kApplyButton), Join({Mode(0), Delays(0, 0, true)}));
}

// Every output code: typed, stepped and dragged to 0, the end, and over it.
TEST_F(Genlock, DelaysStopAtTheirEnds) {
  for (const std::uint8_t type : Bytes{50, 33, 43}) {
    for (const RangeRow& row : kRanges) {
      const int mode = type == 33 ? 2 : 1;
      Open(type, mode, row.outputCode, row.inputs.front(), row.lines - 1, row.clocks - 1);
      // Up to the end and once more.
      EXPECT_EQ(CallsOnPage(kVUp), Delays(row.lines, row.clocks - 1, false));
      EXPECT_EQ(CallsOnPage(kVUp), Delays(row.lines, row.clocks - 1, false));
      EXPECT_EQ(CallsOnPage(kHUp), Delays(row.lines, row.clocks, false));
      EXPECT_EQ(CallsOnPage(kHUp), Delays(row.lines, row.clocks, false));
      ExpectShown(row.lines, row.clocks);
      EXPECT_EQ(CallsOnPage(kVDown), Delays(row.lines - 1, row.clocks, false));
      EXPECT_EQ(CallsOnPage(kHDown), Delays(row.lines - 1, row.clocks - 1, false));
      // Dragged.
      EXPECT_EQ(Slide(kVSlider, 0), Delays(0, row.clocks - 1, false));
      EXPECT_EQ(Slide(kHSlider, 0), Delays(0, 0, false));
      ExpectShown(0, 0);
      EXPECT_EQ(Slide(kHSlider, 0), Calls{});  // no change
      EXPECT_EQ(CallsOnPage(kVDown), Delays(0, 0, false));
      EXPECT_EQ(CallsOnPage(kHDown), Delays(0, 0, false));
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

TEST_F(Genlock, ReportedDelayBeyondTheRangeComesBackWithTheNextStep) {
  Open(46, 1, 1, 2, 2000, 200);
  EXPECT_EQ(desk.Text(kPage, kVEdit), "2000");
  EXPECT_EQ(CallsOnPage(kVUp), Delays(625, 200, false));
  Open(46, 1, 1, 2, 2000, 200);
  EXPECT_EQ(CallsOnPage(kVDown), Delays(625, 200, false));
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
      EXPECT_EQ(CallsOnPage(kVUp), Delays(101, 200, false)) << text;  // nothing was stored
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
    panel->ShowGenlock();
    Slide(kVSlider, 300);
    EXPECT_EQ(CallsOf(kReturnButton), back);
    panel->ShowGenlock();
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
  panel->ShowGenlock();
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
  panel->ShowGenlock();
  ExpectShown(100, 200);
  EXPECT_EQ(CallsOf(kReturnButton), Calls{});
}

TEST_F(Genlock, FailedWritesAreNotMinded) {
  Open(30);
  device.Fail("set block 15,0,1: 01");
  device.Fail("set block 16,0,5: 00 64 00 C8 01");
  EXPECT_EQ(CallsOf(kApplyButton), Join({Mode(1), Delays(100, 200, true)}));
}

}  // namespace
}  // namespace panelora::testing
