// The Genlock page: its three groups of models, reference, modes. The delays have a file of their
// own.
#include "tests/support/genlock_fixture.h"

namespace panelora::testing {
namespace {

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
  for (const auto& [type, opening] : Tried(openings)) {
    Open(Number(type));
    const Calls expected = Join({{opening}, Reads(Number(type))});
    panel->OpenPage(PageCode::kGenlock);
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
  panel->OpenPage(PageCode::kGenlock);
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
                      {{0xD0, 2, 0x40, 2, 99, 7, 1}, "720x576  99.07p"},
                      {{0xD0, 2, 0x40, 2, 100, 7, 0}, "720x576  100.0i"},
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
    device.Fail(Format("get block %d,0,30", GroupOf(type).reference));
    StartWith({type, 0, 0, 0, 0});
    panel->OpenPage(PageCode::kGenlock);
    EXPECT_EQ(FormatText(), "-  NO SIGNAL  -");
    device.FailNothing();
  }
}

TEST_F(Genlock, FailedReadsKeepWhatWasShown) {
  for (const std::uint8_t type : Tried(Bytes{39, 40, 46, 47, 48, 49, 50, 20, 33, 30, 43})) {
    Open(type);
    const GroupRow& group = GroupOf(type);
    for (const std::string& failing : Reads(type)) {
      device.FailNothing();
      SetBox(type == 20 || type == 33 ? 2 : 1, 10, 15, 100, 200);
      box.Block(Number(group.reference)) = {0x80, 7, 0x38, 4, 60, 0, 1};
      if (group.sync != 0) box.Block(Number(group.sync)) = {0, 0};
      if (group.sync == 46) box.Block(38) = {0, 0};
      Press(kPictureButton);
      const std::string mode = ModeName();
      SetBox(0, 7, 12, 300, 400);
      box.Block(Number(group.reference)) = {0xD0, 2, 0x40, 2, 50, 0, 1};
      if (group.sync != 0) box.Block(Number(group.sync)) = {1, 0};
      if (group.sync == 46) box.Block(38) = {1, 0};
      device.Fail(failing);
      EXPECT_EQ(CallsOf(kPictureButton), Reads(type)) << failing;
      const bool formatFails = failing == Reads(type)[0];
      const bool modeFails = failing == Reads(type)[1];
      const bool delaysFail = failing == Format("get block %d,0,4", group.delays);
      // The format alone is of the moment: one that could not be read is no signal.
      EXPECT_EQ(FormatText(), formatFails ? "-  NO SIGNAL  -" : "720x576  50.00p") << failing;
      EXPECT_EQ(ModeName(), modeFails ? mode : "Free-Run") << failing;
      // 10 with 12, or 7 with 15, is no pair that allows a horizontal delay.
      const bool allowed = !(&group == kGroups && (modeFails || failing == "get block 4,0,2"));
      EXPECT_EQ(desk.Text(kPage, kVEdit), delaysFail ? "100" : "300") << failing;
      EXPECT_EQ(desk.Text(kPage, kHEdit), !allowed ? "0" : delaysFail ? "200" : "400") << failing;
      if (group.sync == 46) {
        EXPECT_EQ(desk.Enables(kPage, kNextMode), failing == "get block 38,0,2") << failing;
      }
      if (type == 39 || type == 40 || group.sync == 22) {
        const bool syncFails = failing == Format("get block %d,0,2", group.sync);
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
      EXPECT_EQ(CallsOnPage(kPage, kNextMode), Calls{});
      EXPECT_EQ(ModeName(), name) << type;
    }
  }
  // What is reported is shown where it has a name.
  for (const std::uint8_t type : Bytes{20, 33}) {
    Open(type, 1);
    EXPECT_EQ(ModeName(), "SDI Input");
    desk.Press(kPage, kNextMode);
    EXPECT_EQ(ModeName(), "HDMI Input");
  }
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
  for (const std::uint8_t type : Tried(Bytes{39, 40, 46, 47, 48, 49, 50, 20, 33, 30, 43})) {
    Open(type);
    const bool named = type == 39 || type == 40 || type == 30 || type == 43;
    for (const int control : {1092, 1093, 1094, kNextSync}) {
      EXPECT_EQ(desk.Shows(kPage, control), named) << int{type};
    }
    if (!named) continue;
    EXPECT_EQ(SyncName(), "75 ohms termination");
    EXPECT_EQ(CallsOnPage(kPage, kNextSync), Calls{});
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
    EXPECT_EQ(CallsOnPage(kPage, kVUp), Delays(101, 200, false, 1));
    EXPECT_EQ(CallsOf(kApplyButton), Join({Mode(1), Delays(101, 200, true, 1)}));
    EXPECT_EQ(Slide(kHSlider, 5), Delays(101, 5, false, 1));
    TakeCalls();
    desk.PressKey(kPage, kVEdit, ui::Key::kEnter);
    EXPECT_EQ(TakeCalls(), Delays(101, 5, false, 1));
    EXPECT_EQ(CallsOf(kReturnButton), Delays(101, 200, false, 1));
  }
}

TEST_F(Genlock, LockedModeCannotBeStepped) {
  for (const std::uint8_t type : Tried(Bytes{39, 40, 46, 47, 48, 49, 50})) {
    Open(type);
    for (const auto& [reported, enabled] :
         std::vector<std::pair<int, bool>>{{1, false}, {2, false}, {0, true}, {2, true}}) {
      box.Block(38) = {Number(reported), 0};
      Press(kPictureButton);
      EXPECT_EQ(desk.Enables(kPage, kNextMode), enabled) << int{type} << " " << reported;
    }
  }
}

}  // namespace
}  // namespace panelora::testing
