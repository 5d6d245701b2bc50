// The Video settings page on models other than 26.
#include <map>

#include "tests/support/video_settings_fixture.h"

namespace panelora::testing {
namespace {

using VideoSettingsModels = VideoSettings;

TEST_F(VideoSettingsModels, ControlsOfOtherModelsStepThroughTheirRows) {
  Open();
  EXPECT_EQ(Cycle(1088, 1087, 2), (Texts{"Enable", "Disable"}));
  EXPECT_EQ(Cycle(1091, 1090, 4), (Texts{"HD", "3GA", "3GB", "SD"}));
  EXPECT_EQ(Cycle(1098, 1097, 3), (Texts{"Full Range", "Limit Range", "Full Range"}));
  EXPECT_EQ(Cycle(1101, 1100, 4), (Texts{"YUV444", "YUV422", "RGB444", "YUV444"}));
  EXPECT_EQ(Cycle(1109, 1108, 4), (Texts{"Hor.", "Ver.", "Hor. + Ver.", "Disable"}));
  EXPECT_EQ(Cycle(1113, 1112, 2), (Texts{"Enable", "Disable"}));
  // No rows for this model: the first text stays.
  for (const auto& [button, text] : std::map<int, int>{
           {1053, 1052}, {1057, 1056}, {1065, 1064}, {1070, 1069}, {1082, 1080}, {1041, 1040}}) {
    const std::string before = desk.Text(kPage, text);
    EXPECT_EQ(Cycle(button, text, 1), Texts{before}) << button;
  }
}

TEST_F(VideoSettingsModels, TypedControlsOfOtherModels) {
  Open(0x0126, {24, 0, 0, 0, 0});
  EXPECT_EQ(Cycle(1053, 1052, 4), (Texts{"SMALL", "MEDIUM", "LARGE", "DISABLE"}));
  EXPECT_EQ(Cycle(1057, 1056, 4), (Texts{"SMALL", "MEDIUM", "LARGE", "DISABLE"}));
  EXPECT_EQ(Cycle(1065, 1064, 2), (Texts{"ON", "OFF"}));
  EXPECT_EQ(Cycle(1070, 1069, 2), (Texts{"Level", "Pulse"}));
  panel.reset();
  Open(0x0126, {25, 0, 0, 0, 0});
  EXPECT_EQ(Cycle(1082, 1080, 2), (Texts{"0   IRE", "7.5 IRE"}));
}

TEST_F(VideoSettingsModels, HdmiOutputModeDviAllowsRgbOnly) {
  Open();
  box.Word(10) = {1, 0};
  Press(kPageUpButton);
  EXPECT_EQ(TextOf(kColour), "YUV444");
  EXPECT_EQ(Cycle(1105, 1104, 1), Texts{"HDMI"});
  EXPECT_TRUE(desk.Enables(kPage, 1037));
  EXPECT_EQ(TextOf(kColour), "YUV444");
  EXPECT_EQ(Cycle(1105, 1104, 1), Texts{"DVI"});
  EXPECT_FALSE(desk.Enables(kPage, 1037));
  EXPECT_EQ(TextOf(kColour), "RGB444");
  EXPECT_EQ(Cycle(1105, 1104, 1), Texts{"HDMI"});
  EXPECT_TRUE(desk.Enables(kPage, 1037));
  EXPECT_EQ(TextOf(kColour), "YUV444");
}

TEST_F(VideoSettingsModels, GenlockModeOtherThanFreeRunLocksTheOutputFormat) {
  Open(0x0126, {30, 0, 0, 0, 0});
  EXPECT_EQ(Cycle(1079, 1077, 1), Texts{"External"});
  EXPECT_FALSE(desk.Enables(kPage, 1029));
  EXPECT_FALSE(desk.Enables(kPage, 1033));
  EXPECT_EQ(Cycle(1079, 1077, 1), Texts{"Free-Run"});
  EXPECT_TRUE(desk.Enables(kPage, 1029));
  EXPECT_TRUE(desk.Enables(kPage, 1033));
}

TEST_F(VideoSettingsModels, AutoPhaseWritesAtOnceAndShowsWithTheVgaInputOfManyInputModels) {
  Open();
  TakeCalls();
  desk.Press(kPage, 1066);
  EXPECT_EQ(TakeCalls(), Calls{"set block 13,0,1: 01"});
  panel.reset();
  for (const std::uint8_t type : Bytes{23, 42, 25, 29, 50}) {
    Open(0x0126, {type, 0, 0, 0, 0});
    const bool many = type != 50;
    bool sawVga = false;
    for (int i = 0; i < 7; ++i) {
      desk.Press(kPage, kInput.next);
      const std::string input = TextOf(kInput);
      const bool vga = input == "DVI-A" || input == "DVI-A (VGA)";
      sawVga |= vga;
      EXPECT_EQ(desk.Shows(kPage, 1066), many && vga) << int{type} << " " << input;
    }
    EXPECT_EQ(sawVga, many) << int{type};
    panel.reset();
  }
}

TEST_F(VideoSettingsModels, VideoFreezeWritesAtOnceAsTheModelWantsIt) {
  struct Row {
    Identity identity;
    Calls calls;
  };
  const Calls block = {"set block 19,0,1: 01"};
  const Calls word = {"set word 0,19 = 11"};
  const Row rows[] = {{{26, 0, 0, 0, 0}, block},
                      {{17, 2, 0, 1, 1}, block},
                      {{20, 2, 0, 1, 1}, {}},  // keeps its genlock mode there
                      {{24, 0, 0, 0, 0}, word},
                      {{34, 1, 0, 0, 0}, word},
                      {{24, 2, 0, 0, 0}, block},
                      {{34, 0, 0, 1, 0}, block},
                      {{25, 0, 0, 0, 0}, {"set block 19,0,1: 01", "set word 0,23 = 11"}},
                      {{29, 2, 0, 1, 0}, {"set block 19,0,1: 01", "set word 0,23 = 11"}}};
  for (const Row& row : Tried(rows)) {
    Open(0x0126, row.identity);
    TakeCalls();
    desk.Press(kPage, 1075);
    EXPECT_EQ(TakeCalls(), row.calls) << int{row.identity.boxType};
    panel.reset();
  }
}

struct LastIndexRow {
  Identity identity;
  std::uint32_t firmware;
  int last;
};

// Counts how many presses bring the first caption back.
TEST_F(VideoSettingsModels, AspectRatioOfOtherModelsWrapsAtItsLastIndex) {
  const LastIndexRow rows[] = {
      {{50, 0, 0, 0, 0}, 0x0100, 6}, {{23, 0, 0, 0, 0}, 0x0100, 3}, {{42, 0, 0, 0, 0}, 0x0100, 3},
      {{30, 0, 0, 0, 0}, 0x0100, 3}, {{43, 0, 0, 0, 0}, 0x0100, 3}, {{21, 0, 0, 0, 0}, 0x0100, 4},
      {{46, 0, 0, 0, 0}, 0x0100, 4}, {{47, 0, 0, 0, 0}, 0x0100, 4}, {{48, 0, 0, 0, 0}, 0x0100, 4},
      {{49, 0, 0, 0, 0}, 0x0100, 4}, {{39, 0, 0, 0, 0}, 0x0100, 4}, {{40, 0, 0, 0, 0}, 0x0100, 4},
      {{37, 0, 0, 0, 0}, 0x0100, 4}, {{38, 0, 0, 0, 0}, 0x0100, 4}, {{20, 2, 0, 0, 0}, 290, 4},
      {{20, 2, 0, 0, 0}, 289, 2},    {{33, 2, 0, 0, 0}, 290, 4},    {{33, 1, 0, 0, 0}, 290, 2},
      {{18, 2, 0, 0, 0}, 294, 4},    {{18, 2, 0, 0, 0}, 293, 2},    {{32, 2, 0, 0, 0}, 294, 4},
      {{32, 0, 0, 0, 0}, 294, 2},    {{24, 0, 0, 1, 0}, 0x0100, 3}, {{24, 0, 0, 0, 0}, 0x0100, 5},
      {{34, 2, 0, 1, 0}, 0x0100, 5}, {{34, 1, 0, 1, 0}, 0x0100, 3}, {{25, 0, 0, 0, 0}, 265, 7},
      {{25, 0, 0, 0, 0}, 264, 2},    {{25, 2, 0, 0, 0}, 265, 2},    {{25, 1, 0, 0, 1}, 265, 2},
      {{29, 0, 0, 0, 0}, 265, 7},    {{29, 0, 0, 0, 0}, 264, 2},    {{29, 2, 0, 0, 0}, 0, 7},
      {{29, 1, 0, 0, 1}, 0, 7},      {{29, 1, 0, 0, 0}, 0, 2},      {{13, 0, 0, 0, 0}, 0x0100, 2}};
  for (const LastIndexRow& row : Tried(rows)) {
    Open(row.firmware, row.identity);
    const bool own = row.identity.boxType == 50;
    const std::string first = own ? "Keep Aspect Ratio" : "16 : 9";
    while (TextOf(kAspect) != first) desk.Press(kPage, kAspect.next);
    int presses = 0;
    do {
      desk.Press(kPage, kAspect.next);
      ++presses;
    } while (TextOf(kAspect) != first && presses < 20);
    EXPECT_EQ(presses, row.last + 1) << int{row.identity.boxType} << " brand "
                                     << int{row.identity.brandCode} << " fw " << row.firmware;
    panel.reset();
  }
}

TEST_F(VideoSettingsModels, InputSourceOfOtherModelsWrapsAtItsLastIndex) {
  const std::pair<std::uint8_t, Texts> rows[] = {
      {std::uint8_t{50}, {"SDI", "VGA", "HDMI", "SDI"}},
      {std::uint8_t{24}, {"SDI", "HDMI", "SDI"}},
      {std::uint8_t{48}, {"SDI 1", "SDI 2"}},
      {std::uint8_t{27}, {"CH 1", "CH 2"}},
      {std::uint8_t{23}, {"DVI-A", "YPbPr", "SDI", "CVBS", "S-VIDEO", "HDMI", "DVI-D"}},
      {std::uint8_t{25},
       {"DVI-A (VGA)", "Component (YPbPr)", "Composite (CVBS)", "S-Video (YC)", "DVI-D (HDMI)"}}};
  for (const auto& [type, texts] : Tried(rows)) {
    Open(0x0126, {type, 0, 0, 0, 0});
    box.Block(3) = {1, 0};
    Press(kPictureButton);
    EXPECT_EQ(Cycle(kInput, texts.size()), texts) << int{type};
    panel.reset();
  }
}

TEST_F(VideoSettingsModels, OtherModelsReadAndWriteOneByteBlocks) {
  Open(0x0126, {17, 0, 0, 0, 0});
  TakeCalls();
  Press(kPictureButton);
  EXPECT_EQ(TakeCalls(), (Calls{"get block 4,0,2", "get block 15,0,2"}));
  EXPECT_EQ(CallsOf(kApplyButton), (Calls{"set block 4,0,1: 0F", "set block 15,0,1: 01"}));
  EXPECT_EQ(desk.TimerPeriod(kPage, 1), 0);
  panel.reset();
  Open(0x0126, {50, 0, 0, 0, 0});
  EXPECT_EQ(CallsOf(kApplyButton),
            (Calls{"set block 3,0,1: 02", "set block 5,0,1: 0F", "set block 15,0,1: 05"}));
}

TEST_F(VideoSettingsModels, PassThroughModelsStartTheRefreshTimerWhichRunsOnce) {
  Open(0x0126, {20, 0, 0, 0, 0});
  EXPECT_EQ(CallsOf(kApplyButton),
            (Calls{"set block 4,0,1: 0F", "set block 15,0,1: 01", "set block 8,0,1: 00"}));
  EXPECT_EQ(desk.TimerPeriod(kPage, 1), 5000);
  box.Word(17) = {1, 0};
  box.Word(1) = {7, 0};
  desk.Tick(kPage, 1);
  EXPECT_EQ(TakeCalls(), (Calls{"get word 0,17", "get word 0,1"}));
  EXPECT_EQ(desk.DebugOutput(), Texts{"START VIDEO SETTING TIMER !!\n"});
  EXPECT_EQ(desk.Text(kPage, 1032), "Output Format ( 1280x720 59.94p)");
  EXPECT_EQ(TextOf(kFormat), "Pass Through");
  EXPECT_EQ(desk.TimerPeriod(kPage, 1), 0);
  // A report is no request, and the output format that was chosen stays chosen.
  EXPECT_EQ(CallsOf(kApplyButton),
            (Calls{"set block 4,0,1: 0F", "set block 15,0,1: 01", "set block 8,0,1: 00"}));
}

TEST_F(VideoSettingsModels, FormatReportBecomesTheSelection) {
  Open(0x0126, {20, 0, 0, 0, 0});
  CallsOf(kApplyButton);
  box.Word(1) = {7, 0};
  desk.Tick(kPage, 1);
  EXPECT_EQ(desk.Text(kPage, 1032), "Output Format ");
  EXPECT_EQ(TextOf(kFormat), "1280x720 59.94p");
  EXPECT_EQ(CallsOf(kApplyButton)[0], "set block 4,0,1: 07");
}

TEST_F(VideoSettingsModels, FailedFormatReportChangesNothing) {
  for (const char* failing : {"get word 0,17", "get word 0,1"}) {
    Open(0x0126, {20, 0, 0, 0, 0});
    CallsOf(kApplyButton);
    box.Word(17) = {1, 0};
    box.Word(1) = {7, 0};
    device.Fail(failing);
    desk.Tick(kPage, 1);
    EXPECT_EQ(desk.Text(kPage, 1032), "Output Format");
    EXPECT_EQ(TextOf(kFormat), "1920x1080 60.00p");
    EXPECT_EQ(CallsOf(kApplyButton)[0], "set block 4,0,1: 0F");
    device.FailNothing();
    panel.reset();
  }
}

// The caption says whether the input is passed through, also with a format that has no name.
TEST_F(VideoSettingsModels, FormatReportWithoutNameChangesTheCaptionAlone) {
  Open(0x0126, {20, 0, 0, 0, 0});
  CallsOf(kApplyButton);
  box.Word(17) = {1, 0};
  box.Word(1) = {7, 0};
  desk.Tick(kPage, 1);
  ASSERT_EQ(desk.Text(kPage, 1032), "Output Format ( 1280x720 59.94p)");
  box.Word(17) = {0, 0};
  box.Word(1) = {200, 0};
  desk.Tick(kPage, 1);
  EXPECT_EQ(desk.Text(kPage, 1032), "Output Format ");
  EXPECT_EQ(TextOf(kFormat), "Pass Through");
  box.Word(1) = {8, 0};
  desk.Tick(kPage, 1);
  EXPECT_EQ(TextOf(kFormat), "1280x720 50.00p");
  box.Word(17) = {1, 0};
  box.Word(1) = {200, 0};
  desk.Tick(kPage, 1);
  EXPECT_EQ(desk.Text(kPage, 1032), "Output Format ");
  EXPECT_EQ(TextOf(kFormat), "Pass Through");
}

TEST_F(VideoSettingsModels, PassThroughThatWasNeverReadIsNeverWritten) {
  admitted = {20};
  StartWith(0x0126, Identity{20, 0, 0, 0, 0});
  device.Fail("get block 8,0,2");
  panel->OpenPage(PageCode::kVideoSettings);
  const Calls others = {"set block 4,0,1: 0F", "set block 15,0,1: 01"};
  EXPECT_EQ(CallsOf(kApplyButton), others);
  EXPECT_EQ(desk.TimerPeriod(kPage, 1), 0);  // nothing that the box would have to settle
  device.FailNothing();
  box.Block(8) = {1, 0};
  Press(kPictureButton);
  const Calls all = Join({others, {"set block 8,0,1: 01"}});
  EXPECT_EQ(CallsOf(kApplyButton), all);
  EXPECT_EQ(desk.TimerPeriod(kPage, 1), 5000);
  device.Fail("get block 8,0,2");
  Press(kPictureButton);
  EXPECT_EQ(CallsOf(kApplyButton), all);  // a failed read keeps what was read before
  // Another connection: the box may be another one.
  box.SetPresent(false);
  for (int i = 0; i < 6; ++i) Tick();
  box.SetPresent(true);
  Tick();
  panel->OpenPage(PageCode::kVideoSettings);
  EXPECT_EQ(CallsOf(kApplyButton), others);
}

TEST_F(VideoSettingsModels, SimulatedBoxReportsWhatWasApplied) {
  Open(0x0126, {20, 0, 0, 0, 0});
  desk.Press(kPage, kFormat.next);
  CallsOf(kApplyButton);
  desk.Tick(kPage, 1);
  EXPECT_EQ(TextOf(kFormat), "1920x1080 59.94p");
}

TEST_F(VideoSettingsModels, SomePassThroughModelsRefreshWhole) {
  const Calls scaler = {"get block 3,0,2", "get block 4,0,2", "get block 22,0,2", "get word 0,11",
                        "get block 8,0,2"};
  const Calls locked = {"get block 4,0,2", "get word 0,7", "get block 8,0,2"};
  for (const std::uint8_t type : Bytes{24, 34, 30, 43}) {
    Open(0x0126, {type, 0, 0, 0, 0});
    CallsOf(kApplyButton);
    EXPECT_EQ(desk.TimerPeriod(kPage, 1), 5000);
    desk.Tick(kPage, 1);
    EXPECT_EQ(TakeCalls(), type == 24 || type == 34 ? scaler : locked);
    EXPECT_EQ(desk.TimerPeriod(kPage, 1), 0);
    panel.reset();
  }
}

TEST_F(VideoSettingsModels, ReturnAndTheEndStopTheTimer) {
  Open(0x0126, {20, 0, 0, 0, 0});
  CallsOf(kApplyButton);
  Press(kReturnButton);
  EXPECT_EQ(desk.TimerPeriod(kPage, 1), 0);
  panel->OpenPage(PageCode::kVideoSettings);
  CallsOf(kApplyButton);
  EXPECT_EQ(desk.TimerPeriod(kPage, 1), 5000);
  ASSERT_EQ(desk.TimerPeriod(res::kMain, 1), 3000);
  desk.RequestClose(res::kMain);
  EXPECT_EQ(desk.TimersLeftRunning(), 0);
}

TEST_F(VideoSettingsModels, OutputSourceIsStepped) {
  Open(0x0126, {25, 0, 0, 0, 0});
  box.Block(5) = {9, 0};  // a value without a row is not sent back
  Press(kPictureButton);
  EXPECT_EQ(CallsOf(kApplyButton),
            (Calls{"set block 3,0,1: 02", "set block 4,0,1: 0F", "set block 15,0,1: 01"}));
  desk.Press(kPage, 1045);
  EXPECT_EQ(desk.Text(kPage, 1044), "VGA + HDMI");
  EXPECT_EQ(CallsOf(kApplyButton), (Calls{"set block 3,0,1: 02", "set block 4,0,1: 0F",
                                          "set block 5,0,1: 00", "set block 15,0,1: 01"}));
}

// The phase is that of the analogue input, which an operator may choose on the box itself.
TEST_F(VideoSettingsModels, AutoPhaseFollowsTheInputThatARefreshReads) {
  for (const std::uint8_t type : Bytes{23, 42, 25, 29}) {
    SCOPED_TRACE(int{type});
    Open(0x0126, {type, 0, 0, 0, 0});
    const auto shownFor = [&](std::uint8_t input) {
      box.Block(3) = {input, 0};
      Press(kPictureButton);
      return desk.Shows(kPage, 1066);
    };
    EXPECT_TRUE(shownFor(2));
    EXPECT_FALSE(shownFor(1));
    EXPECT_TRUE(shownFor(2));
    EXPECT_FALSE(shownFor(99));  // none that is known
    box.Block(3) = {2, 0};
    Press(kReturnButton);
    panel->OpenPage(PageCode::kVideoSettings);
    EXPECT_TRUE(desk.Shows(kPage, 1066));
    Press(kPageUpButton);
    EXPECT_FALSE(desk.Shows(kPage, 1066));
    box.Block(3) = {1, 0};
    Press(kPageUpButton);
    EXPECT_FALSE(desk.Shows(kPage, 1066));
    panel.reset();
  }
}

}  // namespace
}  // namespace panelora::testing
