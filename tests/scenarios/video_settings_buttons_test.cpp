// The Video settings page of every box type: what its buttons do, and what failures leave.
#include "tests/support/video_list.h"

namespace panelora::testing {
namespace {

using namespace video_list;

using VideoButtons = VideoListed;

// A list that steps through its names, wherever the box keeps it.
struct Stepped {
  int next;
  int text;
  std::vector<int> types;  // none: all of them
  Texts names;             // from index 0, which is selected at the start

  bool Serves(int type) const {
    return types.empty() || std::find(types.begin(), types.end(), type) != types.end();
  }
};
const Stepped kStepped[] = {
    {1053, 1052, {24, 34}, {"DISABLE", "SMALL", "MEDIUM", "LARGE"}},
    {1057, 1056, {24, 34}, {"DISABLE", "SMALL", "MEDIUM", "LARGE"}},
    {1065, 1064, {24, 34}, {"OFF", "ON"}},
    {1070, 1069, {24, 34}, {"Pulse", "Level"}},
    {1082, 1080, {23, 42}, {"0   IRE", "7.5 IRE"}},
    {1082, 1080, {25, 29}, {"7.5 IRE", "0   IRE"}},
    {1079, 1077, {30, 43}, {"Free-Run", "External"}},
    {1079, 1077, {20, 33}, {"Free-Run", "SDI-In"}},
    {1041, 1040, {23, 42}, {"AV"}},
    {1045, 1044, {25, 29}, {"VGA + HDMI"}},
    {1022, 1023, {26}, {"Limit Range", "Full Range"}},
    {1037, 1036, {23, 26, 37, 38, 39, 40, 42, 46, 47, 48, 49, 50}, {"RGB444", "YUV444", "YUV422"}},
    {1085, 1084, {}, {"Disable", "Min", "Mid", "Max"}},
    {1088, 1087, {}, {"Disable", "Enable"}},
    {1091, 1090, {}, {"SD", "HD", "3GA", "3GB"}},
    {1098, 1097, {}, {"Limit Range", "Full Range"}},
    {1101, 1100, {}, {"RGB444", "YUV444", "YUV422"}},
    {1109, 1108, {}, {"Disable", "Hor.", "Ver.", "Hor. + Ver."}},
    {1113, 1112, {}, {"Disable", "Enable"}},
    {1105, 1104, {}, {"DVI", "HDMI"}}};
// They have no names.
const std::pair<int, int> kNameless[] = {{1061, 1060}, {1074, 1073}, {1094, 1093}};

TEST_F(VideoButtons, EveryListStepsThroughItsNamesAndWritesNothing) {
  for (const int type : kTypes) {
    SCOPED_TRACE(Named(Box(type)));
    OpenAs(Box(type));
    std::map<int, Texts> namesOf;
    std::map<int, int> textOf(std::begin(kNameless), std::end(kNameless));
    if (type != 26) textOf[1049] = 1048;  // which reads and writes it
    for (const Stepped& each : kStepped) {
      textOf[each.next] = each.text;
      if (each.Serves(type)) namesOf[each.next] = each.names;
    }
    for (const auto& [next, text] : textOf) {
      const Texts& names = namesOf[next];
      const std::string first = desk.Text(kPage, text);
      for (std::size_t i = 1; i <= 9; ++i) {
        desk.Press(kPage, next);
        ASSERT_EQ(desk.Text(kPage, text), names.empty() ? first : names[i % names.size()])
            << next << " press " << i;
      }
    }
    ASSERT_EQ(TakeCalls(), Calls{});
  }
}

TEST_F(VideoButtons, GenlockModeLocksTheFormatButtonsOfEveryType) {
  for (const int type : kTypes) {
    OpenAs(Box(type));
    for (const bool freeRun : {false, true, false}) {
      desk.Press(kPage, 1079);
      ASSERT_EQ(desk.Enables(kPage, kFormat.next), freeRun) << type;
      ASSERT_EQ(desk.Enables(kPage, kFormatBack), freeRun) << type;
    }
  }
}

TEST_F(VideoButtons, ImmediateButtonsOfEveryIdentity) {
  for (const int type : kTypes) {
    for (const int brand : {0, 2}) {
      for (const int dip : {0, 1, 2}) {
        if (dip + brand != 0 && !Has({20, 24, 34, 25, 29}, type)) continue;
        const Identity identity = Box(type, brand, dip, 1);
        SCOPED_TRACE(Named(identity));
        OpenAs(identity);
        EXPECT_EQ(CallsOnPage(kPage, kAutoPhase), Calls{SetBlock(13, {1})});
        Calls freeze = {SetBlock(19, {1})};
        if (!HasFreeze(type)) freeze = {};
        if (Has({24, 34}, type) && dip != 1 && brand != 2) freeze = {SetWord(19, 11)};
        if (Has({25, 29}, type)) freeze.push_back(SetWord(23, 11));
        EXPECT_EQ(CallsOnPage(kPage, kFreeze), freeze);
      }
    }
  }
}

TEST_F(VideoButtons, PassThroughRequestGoesBackAndStartsTheTimer) {
  for (const int type : kTypes) {
    SCOPED_TRACE(Named(Box(type)));
    OpenAs(Box(type));
    for (const int request : {0, 1, 2, 255}) {
      Report(8, {static_cast<std::uint8_t>(request), 0x77});
      Reread();
      const Calls sent = CallsOf(kApplyButton);
      const std::string call = SetBlock(8, {request});
      ASSERT_EQ(!sent.empty() && sent.back() == call, PassesThrough(type)) << request;
      ASSERT_EQ(std::count(sent.begin(), sent.end(), call), PassesThrough(type) ? 1 : 0);
      ASSERT_EQ(desk.TimerPeriod(kPage, 1), PassesThrough(type) ? 5000 : 0);
    }
  }
}

TEST_F(VideoButtons, TimerTellsOfEveryFormatOnTypesThatReportIt) {
  for (const int type : {20, 33}) {
    OpenAs(Box(type));
    std::string caption = "Output Format";
    std::string text = TextOf(kFormat);
    for (const int report : {0, 1, 2, 255}) {
      for (const int code : UpTo(24)) {
        SCOPED_TRACE(Named(Box(type)) + " report " + std::to_string(report) + " code " +
                     std::to_string(code));
        Press(kApplyButton);
        ReportWord(17, report);
        ReportWord(1, code);
        TakeCalls();
        desk.Tick(kPage, 1);
        ASSERT_EQ(TakeCalls(), (Calls{GetWord(17), GetWord(1)}));
        const char* name = nullptr;
        for (const Option& option : kFormats) {
          if (option.value == code) name = option.text;
        }
        if (report == 1) {
          if (name != nullptr) caption = std::string("Output Format ( ") + name + ")";
          text = "Pass Through";
        } else {
          caption = "Output Format ";
          if (name != nullptr) text = name;
        }
        ASSERT_EQ(desk.Text(kPage, kFormat.label), caption);
        ASSERT_EQ(TextOf(kFormat), text);
        ASSERT_EQ(desk.TimerPeriod(kPage, 1), 0);
      }
    }
  }
}

TEST_F(VideoButtons, Brand3CallsTheRangeOfEveryTypeHdmiOutputRange) {
  for (const int type : kTypes) {
    for (const int brand : {0, 2, 3, 4}) {
      if (!Has({0, 20, 24, 26, 50, 51}, type)) continue;
      StartAs(Box(type, brand));
      EXPECT_EQ(desk.Text(kPage, kLevel.label),
                brand == 3 ? "HDMI Output Range" : "Video Output Range")
          << Named(Box(type, brand));
    }
  }
  // Also when another box is connected.
  StartAs(Box(26, 3));
  box.SetPresent(false);
  Tick();
  box.Become(Box(26, 1), 0x0126);
  box.SetPresent(true);
  Tick();
  EXPECT_EQ(desk.Text(kPage, kLevel.label), "Video Output Range");
}

TEST_F(VideoButtons, ButtonsOutsideTheGroupsHaveTheirFont) {
  StartAs(Box(24));
  for (const int control : {kFormatBack, kAutoPhase, kFreeze}) {
    EXPECT_EQ(desk.FontOf(kPage, control), (ui::Font{"Arial", 120})) << control;
  }
}

// Initialising puts the output level back and no other selection.
TEST_F(VideoButtons, SelectionsOutliveAConnectionChange) {
  OpenAs(Box(26));
  ReportWord(4, 4);
  ReportWord(2, 7);
  ReportWord(7, 3);
  ReportWord(12, 1);
  Reread();
  const Calls chosen = CallsOf(kApplyButton);
  ASSERT_EQ(chosen, (Calls{SetWord(4, 4), SetWord(2, 7), SetWord(7, 3), SetWord(12, 1)}));
  box.SetPresent(false);
  for (int i = 0; i < 6; ++i) Tick();
  box.SetPresent(true);
  Tick();
  device.FailEverything();
  panel->OpenPage(PageCode::kVideoSettings);
  device.FailNothing();
  EXPECT_EQ(CallsOf(kApplyButton), chosen);
}

// Filled and answered with something else than success, each read on its own.
TEST_F(VideoButtons, OneFailedReadKeepsItsSelectionAlone) {
  struct Case {
    int type;
    int subPage;
  };
  for (const Case& each : {Case{26, 0}, Case{26, 1}, Case{50, 0}, Case{24, 0}, Case{25, 0},
                           Case{24, 1}, Case{30, 1}, Case{50, 1}}) {
    const Identity identity = Box(each.type);
    const Settings settings = SettingsOf(identity, 0x0126, each.subPage);
    for (std::size_t failing = 0; failing < settings.size(); ++failing) {
      SCOPED_TRACE(Named(identity) + " address " + std::to_string(settings[failing].address));
      OpenAs(identity, 0x0126, each.subPage);
      for (const Setting& setting : settings) {
        ReportTo(setting, setting.options.back().value);
      }
      Reread();
      for (const Setting& setting : settings) {
        ReportTo(setting, setting.options.front().value);
      }
      const std::string call = Reads(identity, settings)[failing];
      device.FillAndAnswer(call, 2);
      Reread();
      device.FailNothing();
      std::vector<int> selected;
      for (std::size_t i = 0; i < settings.size(); ++i) {
        const Setting& setting = settings[i];
        // The output colour alone falls back, to RGB444.
        const bool kept = i == failing && setting.group.next != kColour.next;
        const Option& option = kept ? setting.options.back() : setting.options.front();
        EXPECT_EQ(TextOf(setting.group), option.text);
        selected.push_back(option.index);
      }
      EXPECT_EQ(CallsOf(kApplyButton), Writes(identity, settings, selected));
    }
  }
}

// A box that answers another handle is asked by the old one until the page is initialised again.
TEST_F(VideoButtons, HandleIsThatOfTheLastConnection) {
  OpenAs(Box(26));
  Press(kReturnButton);
  device.AnswerHandle(0x1234);
  for (int i = 0; i < 6; ++i) Tick();
  ReportWord(4, 4);
  panel->OpenPage(PageCode::kVideoSettings);
  EXPECT_EQ(TextOf(kInput), "HDMI");
  Press(kReturnButton);
  box.SetPresent(false);
  for (int i = 0; i < 6; ++i) Tick();
  box.SetPresent(true);
  Tick();
  panel->OpenPage(PageCode::kVideoSettings);
  EXPECT_EQ(TextOf(kInput), "SDI");
}

// What was never read is sent as its first row; there is none for the output format.
TEST_F(VideoButtons, FirstSelectionsOfEveryType) {
  for (const int type : kTypes) {
    StartAs(Box(type));
    device.FailEverything();
    panel->OpenPage(PageCode::kVideoSettings);
    device.FailNothing();
    Calls expected;
    for (const Setting& setting : SettingsOf(Box(type), 0x0126, 0)) {
      const Option* option = At(setting.options, 0);
      if (option == nullptr) continue;
      expected.push_back(SetOf(setting, option->value));
    }
    EXPECT_EQ(CallsOf(kApplyButton), expected) << type;  // and no pass-through
  }
}

// A box that is genlocked, or puts out DVI, locks buttons; the next box finds them free.
TEST_F(VideoButtons, AnotherBoxFindsEveryButtonFree) {
  admitted = {30, 50, 25};
  StartWith(0x0126, Box(30));
  const auto connect = [&](int type) {
    box.SetPresent(false);
    for (int i = 0; i < 6; ++i) Tick();
    box.Become(Box(type), 0x0126);
    box.SetPresent(true);
    Tick();
    panel->OpenPage(PageCode::kVideoSettings);
  };
  for (const auto& [type, button] : {std::pair{30, kFormat.next}, {50, kColour.next}}) {
    connect(type);
    Report(15, {1, 0});  // the genlock mode of 30
    Report(42, {0, 0});  // the HDMI output mode of 50
    Press(kPageUpButton);
    EXPECT_FALSE(desk.Enables(kPage, button)) << type;
    connect(25);
    EXPECT_TRUE(desk.Enables(kPage, button)) << type;
  }
}

TEST_F(VideoButtons, WithoutBoxTheFirstTextsStandAndNothingIsAsked) {
  box.SetPresent(false);
  Start();
  TakeCalls();
  panel->OpenPage(PageCode::kVideoSettings);
  EXPECT_EQ(TakeCalls(), Calls{});
  EXPECT_EQ(TextOf(kInput), "HDMI");
}

}  // namespace
}  // namespace panelora::testing
