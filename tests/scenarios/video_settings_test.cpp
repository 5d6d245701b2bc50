// The Video settings page.
#include "tests/support/video_settings_fixture.h"

namespace panelora::testing {
namespace {

Places ExpectedSubPage0() {
  Places all;
  PlaceFour(all, kInput, {50, 15}, 360);
  PlaceFour(all, kAspect, {50, 85}, 360);
  PlaceFour(all, kEq, {50, 155}, 360);
  PlaceFour(all, kFormat, {50, 225}, 360);
  all[kFormat.value] = {60, 255, 260, 30};
  all[kFormatBack] = {360, 248, 40, 39};
  all[kFormat.next] = {410, 248, 40, 39};
  return all;
}

Places ExpectedSubPage1(bool edgeEnhance) {
  Places all;
  PlaceFour(all, kColour, {50, 35}, 360);
  PlaceFour(all, kLevel, {50, 115}, 360);
  if (edgeEnhance) PlaceFour(all, kEdge, {50, 195}, 360);
  return all;
}

TEST_F(VideoSettings, SubPagesShowTheirGroupsAtTheirPlaces) {
  Open();
  EXPECT_EQ(ShownControls(), ExpectedSubPage0());
  Press(kPageUpButton);
  EXPECT_EQ(ShownControls(), ExpectedSubPage1(true));
  Press(kPageUpButton);
  EXPECT_EQ(ShownControls(), ExpectedSubPage0());
}

TEST_F(VideoSettings, EdgeEnhanceIsShownFromFirmware278) {
  OpenSubPage1(0x0115);  // 277
  EXPECT_EQ(ShownControls(), ExpectedSubPage1(false));
  panel.reset();
  OpenSubPage1(0x0116);  // 278
  EXPECT_EQ(ShownControls(), ExpectedSubPage1(true));
}

TEST_F(VideoSettings, BothWaysOfOpeningReadSubPage0) {
  const Calls reads = {"get word 0,4", "get word 0,2", "get word 0,7", "get word 0,12"};
  StartWith(0x0111);  // 273: straight to the page
  Press(kVideoButton);
  EXPECT_EQ(TakeCalls(), reads);
  EXPECT_EQ(ShownControls(), ExpectedSubPage0());
  panel.reset();
  StartWith(0x0112);  // 274: through the menu
  Press(kVideoButton);
  EXPECT_EQ(TakeCalls(), Calls{});
  desk.Press(res::kVideoMenu, 1002);
  EXPECT_EQ(TakeCalls(), reads);
  EXPECT_EQ(ShownControls(), ExpectedSubPage0());
}

TEST_F(VideoSettings, RefreshReadsTheShownSubPageOnly) {
  OpenSubPage1();
  TakeCalls();
  Press(kPictureButton);
  EXPECT_EQ(TakeCalls(), (Calls{"get word 0,10", "get word 0,15", "get word 0,19"}));
  panel.reset();
  OpenSubPage1(0x0115);
  TakeCalls();
  Press(kPictureButton);
  EXPECT_EQ(TakeCalls(), (Calls{"get word 0,10", "get word 0,15"}));
}

TEST_F(VideoSettings, ShowsWhatTheBoxReports) {
  box.Become({26, 0, 0, 0, 0}, 0x0126);
  Open();
  EXPECT_EQ(TextOf(kInput), "HDMI");
  EXPECT_EQ(TextOf(kFormat), "1920x1080 60.00p");
  EXPECT_EQ(TextOf(kAspect), "Full Screen (16:9)");
  EXPECT_EQ(TextOf(kEq), "LOW");
  box.Word(4) = {4, 0};
  box.Word(2) = {2, 0};
  box.Word(7) = {6, 0};
  box.Word(12) = {0, 0};
  Press(kPictureButton);
  EXPECT_EQ(TextOf(kInput), "SDI");
  EXPECT_EQ(TextOf(kFormat), "720x576 50.00i");
  EXPECT_EQ(TextOf(kAspect), "Pan Scan 16 : 9");
  EXPECT_EQ(TextOf(kEq), "MIDDLE");
  box.Word(10) = {3, 0};
  box.Word(15) = {0, 0};
  box.Word(19) = {2, 0};
  Press(kPageUpButton);
  EXPECT_EQ(TextOf(kColour), "YUV422");
  EXPECT_EQ(TextOf(kLevel), "Limit Range");
  EXPECT_EQ(TextOf(kEdge), "Mid");
}

TEST_F(VideoSettings, OnlyTheLowByteCounts) {
  Open();
  box.Word(4) = {0xABCDEF02, 7};
  Press(kPictureButton);
  EXPECT_EQ(TextOf(kInput), "VGA");
}

TEST_F(VideoSettings, InputSourceStepsThroughItsRows) {
  Open();
  box.Word(4) = {2, 0};
  Press(kPictureButton);
  EXPECT_EQ(TextOf(kInput), "VGA");
  EXPECT_EQ(Cycle(kInput, 4), (Texts{"HDMI", "SDI", "VGA", "HDMI"}));
}

TEST_F(VideoSettings, InputSourceIsWrittenAsItsDeviceCode) {
  Open();
  for (const std::uint32_t expected : {4U, 2U, 1U}) {
    desk.Press(kPage, kInput.next);
    EXPECT_EQ(CallsOf(kApplyButton)[0], "set word 0,4 = " + std::to_string(expected));
  }
}

const std::pair<const char*, int> kFormats[] = {
    {"1920x1080 60.00p", 15}, {"1920x1080 59.94p", 16}, {"1920x1080 50.00p", 17},
    {"1920x1080 30.00p", 18}, {"1920x1080 29.97p", 19}, {"1920x1080 25.00p", 20},
    {"1920x1080 24.00p", 21}, {"1920x1080 23.98p", 22}, {"1920x1080 60.00i", 12},
    {"1920x1080 59.94i", 13}, {"1920x1080 50.00i", 14}, {"1280x720 60.00p", 6},
    {"1280x720 59.94p", 7},   {"1280x720 50.00p", 8},   {"720x480 60.00p", 3},
    {"720x480 59.94p", 4},    {"720x576 50.00p", 5},    {"720x480 59.94i", 1},
    {"720x576 50.00i", 2}};

TEST_F(VideoSettings, OutputFormatStepsForwardThroughAllRowsAndWrites) {
  Open();
  for (int i = 1; i <= 20; ++i) {
    const auto& [caption, code] = kFormats[i % 19];
    desk.Press(kPage, kFormat.next);
    EXPECT_EQ(TextOf(kFormat), caption);
    EXPECT_EQ(CallsOf(kApplyButton)[1], "set word 0,2 = " + std::to_string(code));
  }
}

TEST_F(VideoSettings, OutputFormatStepsBackThroughAllRowsAndReadsThemBack) {
  Open();
  for (int i = 18; i >= 0; --i) {
    desk.Press(kPage, kFormatBack);
    EXPECT_EQ(TextOf(kFormat), kFormats[i].first);
  }
  desk.Press(kPage, kFormatBack);
  EXPECT_EQ(TextOf(kFormat), "720x576 50.00i");
  for (const auto& [caption, code] : kFormats) {
    box.Word(2) = {static_cast<std::uint32_t>(code), 0};
    Press(kPictureButton);
    EXPECT_EQ(TextOf(kFormat), caption);
  }
}

TEST_F(VideoSettings, OutputFormatWithoutSelectionStartsAtItsEnds) {
  device.Fail("get word 0,2");
  Open();
  EXPECT_EQ(TextOf(kFormat), "1920x1080 p60.00");  // the first text
  EXPECT_EQ(CallsOf(kApplyButton),
            (Calls{"set word 0,4 = 1", "set word 0,7 = 1", "set word 0,12 = 2"}));
  desk.Press(kPage, kFormatBack);
  EXPECT_EQ(TextOf(kFormat), "720x576 50.00i");
  panel.reset();
  Open();
  desk.Press(kPage, kFormat.next);
  EXPECT_EQ(TextOf(kFormat), "1920x1080 60.00p");
}

TEST_F(VideoSettings, AspectRatioStopsAtUnderScanBeforeFirmware278) {
  const Texts five = {"Dot By Dot", "4 : 3", "14 : 9", "UnderScan"};
  Open(0x0115);  // 277; the box reports 1
  Texts expected = five;
  expected.insert(expected.end(), {"Keep Aspect Ratio", "Full Screen (16:9)"});
  EXPECT_EQ(Cycle(kAspect, 6), expected);
  panel.reset();
  Open(0x0116);  // 278
  expected = five;
  expected.insert(expected.end(), {"Pan Scan 16 : 9", "Keep Aspect Ratio", "Full Screen (16:9)"});
  EXPECT_EQ(Cycle(kAspect, 7), expected);
}

TEST_F(VideoSettings, AspectRatioAndEqAreWrittenAsTheirIndices) {
  Open();
  for (const int index : {2, 3, 4, 5, 6, 0, 1}) {
    desk.Press(kPage, kAspect.next);
    EXPECT_EQ(CallsOf(kApplyButton)[2], "set word 0,7 = " + std::to_string(index));
  }
  const std::pair<const char*, int> eqs[] = {{"MIDDLE", 0}, {"HIGH", 1}, {"LOW", 2}};
  for (const auto& [caption, index] : eqs) {
    desk.Press(kPage, kEq.next);
    EXPECT_EQ(TextOf(kEq), caption);
    EXPECT_EQ(CallsOf(kApplyButton)[3], "set word 0,12 = " + std::to_string(index));
  }
}

TEST_F(VideoSettings, OutputColourSkipsTheValue2) {
  OpenSubPage1();
  const std::pair<const char*, int> colours[] = {{"YUV444", 1}, {"YUV422", 3}, {"RGB444", 0}};
  for (const auto& [caption, value] : colours) {
    desk.Press(kPage, kColour.next);
    EXPECT_EQ(TextOf(kColour), caption);
    EXPECT_EQ(CallsOf(kApplyButton)[0], "set word 0,10 = " + std::to_string(value));
  }
}

TEST_F(VideoSettings, OutputLevelAndEdgeEnhanceStepAndWrite) {
  OpenSubPage1();
  EXPECT_EQ(TextOf(kLevel), "Full Range");
  EXPECT_EQ(Cycle(kLevel, 3), (Texts{"Limit Range", "Full Range", "Limit Range"}));
  EXPECT_EQ(Cycle(kEdge, 5), (Texts{"Min", "Mid", "Max", "Disable", "Min"}));
  EXPECT_EQ(CallsOf(kApplyButton),
            (Calls{"set word 0,10 = 0", "set word 0,15 = 0", "set word 0,19 = 1"}));
}

TEST_F(VideoSettings, ApplyWritesTheVisibleSubPageOnlyAndInOrder) {
  Open();
  EXPECT_EQ(CallsOf(kApplyButton), (Calls{"set word 0,4 = 1", "set word 0,2 = 15",
                                          "set word 0,7 = 1", "set word 0,12 = 2"}));
  Press(kPageUpButton);
  EXPECT_EQ(CallsOf(kApplyButton),
            (Calls{"set word 0,10 = 0", "set word 0,15 = 1", "set word 0,19 = 0"}));
  EXPECT_EQ(desk.TimerPeriod(kPage, 1), 0);  // no refresh timer on this model
  panel.reset();
  OpenSubPage1(0x0115);
  EXPECT_EQ(CallsOf(kApplyButton), (Calls{"set word 0,10 = 0", "set word 0,15 = 1"}));
}

TEST_F(VideoSettings, ButtonsWriteNothingBeforeApply) {
  Open();
  TakeCalls();
  for (const int button : {1018, 1026, 1029, 1033, 1049, 1037, 1022, 1085}) {
    desk.Press(kPage, button);
  }
  EXPECT_EQ(TakeCalls(), Calls{});
}

TEST_F(VideoSettings, SelectionsSurviveTheOtherSubPageUntilItsRefresh) {
  Open();
  desk.Press(kPage, kInput.next);
  EXPECT_EQ(TextOf(kInput), "SDI");
  Press(kPageUpButton);
  EXPECT_EQ(TextOf(kInput), "SDI");
  Press(kPageUpButton);  // refreshed when it is shown again
  EXPECT_EQ(TextOf(kInput), "HDMI");
}

TEST_F(VideoSettings, FailedReadKeepsTextAndSelection) {
  Open();
  box.Word(4) = {4, 0};
  box.Word(2) = {1, 0};
  box.Word(7) = {3, 0};
  box.Word(12) = {1, 0};
  device.FailEverything();
  Press(kPictureButton);
  EXPECT_EQ(TextOf(kInput), "HDMI");
  EXPECT_EQ(TextOf(kFormat), "1920x1080 60.00p");
  EXPECT_EQ(TextOf(kAspect), "Full Screen (16:9)");
  EXPECT_EQ(TextOf(kEq), "LOW");
  device.FailNothing();
  EXPECT_EQ(CallsOf(kApplyButton), (Calls{"set word 0,4 = 1", "set word 0,2 = 15",
                                          "set word 0,7 = 1", "set word 0,12 = 2"}));
}

TEST_F(VideoSettings, EachFailedReadLeavesTheOthersWorking) {
  const std::pair<const char*, Group> rows[] = {{"get word 0,4", kInput},
                                                {"get word 0,2", kFormat},
                                                {"get word 0,7", kAspect},
                                                {"get word 0,12", kEq}};
  for (const auto& [failing, control] : rows) {
    Open();
    const std::string before = TextOf(control);
    box.Word(4) = {4, 0};
    box.Word(2) = {1, 0};
    box.Word(7) = {3, 0};
    box.Word(12) = {1, 0};
    device.Fail(failing);
    Press(kPictureButton);
    for (const auto& [other, shown] : rows) {
      const bool changed =
          TextOf(shown) != (other == std::string("get word 0,4")   ? "HDMI"
                            : other == std::string("get word 0,2") ? "1920x1080 60.00p"
                            : other == std::string("get word 0,7") ? "Full Screen (16:9)"
                                                                   : "LOW");
      EXPECT_EQ(changed, other != std::string(failing)) << failing << " " << other;
    }
    EXPECT_EQ(TextOf(control), before);
    device.FailNothing();
    panel.reset();
  }
}

TEST_F(VideoSettings, FailedColourReadFallsBackToRgb) {
  OpenSubPage1();
  box.Word(10) = {3, 0};
  box.Word(15) = {0, 0};
  Press(kPictureButton);
  EXPECT_EQ(TextOf(kColour), "YUV422");
  device.Fail("get word 0,10");
  device.Fail("get word 0,15");
  box.Word(15) = {1, 0};
  Press(kPictureButton);
  EXPECT_EQ(TextOf(kColour), "RGB444");
  EXPECT_EQ(TextOf(kLevel), "Limit Range");  // this one keeps what it showed
  EXPECT_EQ(CallsOf(kApplyButton)[0], "set word 0,10 = 0");
}

TEST_F(VideoSettings, ReportedValueWithoutRowKeepsTheTextAndIsNotWrittenBack) {
  Open();
  box.Word(4) = {3, 0};
  box.Word(2) = {0, 0};
  box.Word(7) = {7, 0};
  box.Word(12) = {3, 0};
  Press(kPictureButton);
  EXPECT_EQ(TextOf(kInput), "HDMI");
  EXPECT_EQ(TextOf(kFormat), "1920x1080 60.00p");
  EXPECT_EQ(TextOf(kAspect), "Full Screen (16:9)");
  EXPECT_EQ(TextOf(kEq), "LOW");
  EXPECT_EQ(CallsOf(kApplyButton), Calls{});
  box.Word(10) = {2, 0};
  box.Word(15) = {2, 0};
  box.Word(19) = {4, 0};
  Press(kPageUpButton);
  EXPECT_EQ(TextOf(kColour), "RGB444");
  EXPECT_EQ(TextOf(kLevel), "Full Range");
  EXPECT_EQ(TextOf(kEdge), "Disable");
  EXPECT_EQ(CallsOf(kApplyButton), Calls{});
}

TEST_F(VideoSettings, EveryControlComesBackFromAValueWithoutRow) {
  Open();
  for (const std::uint32_t item : {4U, 2U, 7U, 12U}) box.Word(item) = {255, 0};
  Press(kPictureButton);
  EXPECT_EQ(CallsOf(kApplyButton), Calls{});
  for (const int next : {kInput.next, kFormat.next, kAspect.next, kEq.next}) {
    desk.Press(kPage, next);
  }
  EXPECT_EQ(CallsOf(kApplyButton), (Calls{"set word 0,4 = 2", "set word 0,2 = 15",
                                          "set word 0,7 = 0", "set word 0,12 = 0"}));
}

TEST_F(VideoSettings, FailedReadsOfSubPage1KeepWhatWasShown) {
  OpenSubPage1();
  box.Word(15) = {0, 0};
  box.Word(19) = {2, 0};
  Press(kPictureButton);
  device.Fail("get word 0,15");
  device.Fail("get word 0,19");
  box.Word(15) = {1, 0};
  box.Word(19) = {0, 0};
  Press(kPictureButton);
  EXPECT_EQ(TextOf(kLevel), "Limit Range");
  EXPECT_EQ(TextOf(kEdge), "Mid");
  EXPECT_EQ(CallsOf(kApplyButton),
            (Calls{"set word 0,10 = 0", "set word 0,15 = 0", "set word 0,19 = 2"}));
}

TEST_F(VideoSettings, InitialisingSetsTheOutputLevelBack) {
  OpenSubPage1();  // the box reports 1
  box.SetPresent(false);
  for (int i = 0; i < 3; ++i) Tick();
  box.SetPresent(true);
  Tick();
  device.Fail("get word 0,15");
  panel->OpenPage(PageCode::kVideoSettings);
  Press(kPageUpButton);
  EXPECT_EQ(CallsOf(kApplyButton)[1], "set word 0,15 = 0");
}

TEST_F(VideoSettings, EdgeEnhance255ShowsErrorAndIsNotWrittenBack) {
  OpenSubPage1();
  box.Word(19) = {255, 0};
  Press(kPictureButton);
  EXPECT_EQ(TextOf(kEdge), "Error");
  EXPECT_EQ(CallsOf(kApplyButton), (Calls{"set word 0,10 = 0", "set word 0,15 = 1"}));
  desk.Press(kPage, kEdge.next);
  EXPECT_EQ(TextOf(kEdge), "Disable");
}

TEST_F(VideoSettings, FirstTextsAndFonts) {
  device.FailEverything();
  Start();
  struct Row {
    int label;
    const char* caption;
    int text;
    const char* first;
    int frame;
    int next;
  };
  const Row rows[] = {{1020, "Input Source", 1019, "HDMI", 1017, 1018},
                      {1030, "Video Output Range", 1023, "Full Range", 1021, 1022},
                      {1031, "Aspect Ratio", 1025, "Full Screen", 1024, 1026},
                      {1032, "Output Format", 1028, "1920x1080 p60.00", 1027, 1029},
                      {1034, "HDMI Output Color", 1036, "RGB444", 1035, 1037},
                      {1038, "Output Mode", 1040, "AV", 1039, 1041},
                      {1043, "Output Source", 1044, "VGA + HDMI", 1042, 1045},
                      {1046, "HDMI Input EQ", 1048, "LOW", 1047, 1049},
                      {1050, "SDI 0 EQ", 1052, "LOW", 1051, 1053},
                      {1054, "SDI 1 EQ", 1056, "LOW", 1055, 1057},
                      {1058, "YC/CVBS Format", 1060, "PAL", 1059, 1061},
                      {1062, "CRC Error", 1064, "OFF", 1063, 1065},
                      {1067, "GPI Mode", 1069, "MODE 1", 1068, 1070},
                      {1071, "GPI Mode", 1073, "MODE 1", 1072, 1074},
                      {1078, "Genlock Mode", 1077, "Free Run", 1114, 1079},
                      {1081, "Composite Setup Level", 1080, "0 IRE", 1115, 1082},
                      {1083, "Edge Enhance", 1084, "Disable", 1116, 1085},
                      {1086, "Color Up Filter", 1087, "Disable", 1117, 1088},
                      {1089, "SDI Standard", 1090, "SD", 1118, 1091},
                      {1092, "Control Mode", 1093, "DipSwitch", 1119, 1094},
                      {1076, "HDMI Output Range", 1097, "Full Range", 1096, 1098},
                      {1095, "SDI Output Color", 1100, "RGB444", 1099, 1101},
                      {1102, "HDMI Output Mode", 1104, "HDMI", 1103, 1105},
                      {1106, "Image Mirror", 1108, "Hor.", 1107, 1109},
                      {1110, "SDI Re-Clock", 1112, "Enable", 1111, 1113}};
  for (const Row& row : rows) {
    EXPECT_EQ(desk.Text(kPage, row.label), row.caption) << row.label;
    EXPECT_EQ(desk.Text(kPage, row.text), row.first) << row.text;
    EXPECT_EQ(desk.Text(kPage, row.frame), "") << row.frame;
    EXPECT_EQ(desk.Text(kPage, row.next), ">>") << row.next;
    for (const int small : {row.label, row.frame, row.next}) {
      EXPECT_EQ(desk.FontOf(kPage, small), (ui::Font{"Arial", 120})) << small;
    }
    EXPECT_EQ(desk.FontOf(kPage, row.text), (ui::Font{"Arial", 182})) << row.text;
  }
  EXPECT_EQ(desk.Text(kPage, 1033), "<<");
  EXPECT_EQ(desk.Text(kPage, 1066), "PHASE");
  EXPECT_EQ(desk.Text(kPage, 1075), "Video Freeze");
}

TEST_F(VideoSettings, Brand3CallsTheRangeHdmiOutputRange) {
  Open(0x0126, {26, 3, 0, 0, 0});
  EXPECT_EQ(desk.Text(kPage, 1030), "HDMI Output Range");
}

TEST_F(VideoSettings, GroupsWithoutOptionsDoNothing) {
  Open();
  TakeCalls();
  for (const int button : {1061, 1074, 1094}) desk.Press(kPage, button);
  EXPECT_EQ(desk.Text(kPage, 1060), "PAL");
  EXPECT_EQ(desk.Text(kPage, 1073), "MODE 1");
  EXPECT_EQ(desk.Text(kPage, 1093), "DipSwitch");
  EXPECT_EQ(TakeCalls(), Calls{});
}

TEST_F(VideoSettings, ConnectionChangeStartsAnew) {
  Open();
  desk.Press(kPage, kInput.next);
  box.SetPresent(false);
  Tick();
  box.SetPresent(true);
  Tick();
  EXPECT_EQ(TextOf(kInput), "HDMI");  // the first text
}

}  // namespace
}  // namespace panelora::testing
