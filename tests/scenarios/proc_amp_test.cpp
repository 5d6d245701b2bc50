// The processing amplifier page.
#include "tests/support/proc_amp_controls.h"
#include "tests/support/scenario.h"

namespace panelora::testing {
namespace {

constexpr int kPage = res::kProcAmp;
constexpr int kRgbSliders[] = {1041, 1044, 1047};
constexpr int kRgbLabels[] = {1042, 1045, 1048};

class ProcAmp : public Scenario {
 protected:
  void Open(std::uint8_t brand = 0, std::uint8_t boxType = 26) {
    StartWith({boxType, brand, 0, 0, 0});
    box.Picture() = {10, 20, 30, 40};
    if (boxType == 26) box.Block(14) = {50, 60, 7};
    Press(kProcAmpButton);
    TakeCalls();
  }
  Calls CallsOfDrag(int slider, int position) {
    TakeCalls();
    desk.Drag(kPage, slider, position);
    return TakeCalls();
  }
  void TypeAll(const char* a, const char* b, const char* c, const char* d) {
    const char* texts[] = {a, b, c, d};
    for (int i = 0; i < 4; ++i) desk.Type(kPage, kPictureEdits[i], texts[i]);
  }
};

TEST_F(ProcAmp, ShowsTheValuesOfTheBox) {
  Open();
  const int pictures[] = {10, 20, 30, 40};
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(desk.SliderPosition(kPage, kPictureSliders[i]), pictures[i]);
    EXPECT_EQ(desk.SliderRange(kPage, kPictureSliders[i]), std::make_pair(0, 255));
    EXPECT_EQ(desk.Text(kPage, kPictureLabels[i]), std::to_string(pictures[i]));
  }
  const int rgb[] = {50, 60, 7};
  const int maxima[] = {255, 255, 64};
  for (int i = 0; i < 3; ++i) {
    EXPECT_EQ(desk.SliderPosition(kPage, kRgbSliders[i]), rgb[i]);
    EXPECT_EQ(desk.SliderRange(kPage, kRgbSliders[i]), std::make_pair(0, maxima[i]));
    EXPECT_EQ(desk.Text(kPage, kRgbLabels[i]), std::to_string(rgb[i]));
  }
  EXPECT_EQ(desk.Text(kPage, 1027), "Proc Amp");
  EXPECT_EQ(desk.PlaceOf(kPage, 1027), (Rect{50, 30, 375, 240}));
  EXPECT_EQ(desk.FontOf(kPage, 1027), (ui::Font{"Arial", 130}));
  EXPECT_EQ(desk.Text(kPage, 1028), "Brightness");
  EXPECT_EQ(desk.Text(kPage, 1031), "Saturation");
  EXPECT_EQ(desk.Text(kPage, 1043), "RGB Offset");
  EXPECT_EQ(desk.Text(kPage, 1046), "RGB Offset");
}

TEST_F(ProcAmp, ViewsShowPictureOrRgb) {
  for (const std::uint8_t brand : Bytes{0, 2}) {
    Open(brand);
    for (const bool rgb : {false, true, false}) {
      for (int id = 1028; id <= 1035; ++id) EXPECT_EQ(desk.Shows(kPage, id), !rgb) << id;
      for (const int id : kPictureLabels) EXPECT_EQ(desk.Shows(kPage, id), !rgb && brand != 2);
      for (const int id : kPictureEdits) EXPECT_EQ(desk.Shows(kPage, id), !rgb && brand == 2) << id;
      for (int id = 1040; id <= 1048; ++id) EXPECT_EQ(desk.Shows(kPage, id), rgb) << id;
      EXPECT_TRUE(desk.Shows(kPage, 1027));
      Press(kPageUpButton);
    }
    EXPECT_EQ(TakeCalls(), Calls{});
    panel.reset();
  }
}

TEST_F(ProcAmp, SliderWritesOnceWhenItsValueChanged) {
  Open();
  for (std::uint32_t i = 0; i < 4; ++i) {
    const int slider = kPictureSliders[i];
    for (const int position : {11, 200, 255, 0}) {
      EXPECT_EQ(CallsOfDrag(slider, position), Calls{"set proc amp 0," + std::to_string(2 + i) +
                                                     " = " + std::to_string(position)});
      EXPECT_EQ(desk.Text(kPage, kPictureLabels[i]), std::to_string(position));
      EXPECT_EQ(CallsOfDrag(slider, position), Calls{});
    }
  }
}

TEST_F(ProcAmp, RepaintAloneSendsNothingAndSilencesTheMonitor) {
  Open();
  for (int view = 0; view < 2; ++view) {
    TakeCalls();
    desk.Repaint(kPage);
    EXPECT_EQ(TakeCalls(), Calls{});
    EXPECT_EQ(panel->Panel().tickSkip, 2);
    Press(kPageUpButton);
  }
}

TEST_F(ProcAmp, Brand2SendsAgainWithEveryRepaint) {
  Open(2);
  EXPECT_EQ(CallsOfDrag(1032, 200), Calls{"set proc amp 0,2 = 200"});
  EXPECT_EQ(desk.Text(kPage, 1049), "200");
  TakeCalls();
  desk.Repaint(kPage);
  EXPECT_EQ(TakeCalls(), Calls{"set proc amp 0,2 = 200"});
  EXPECT_EQ(CallsOfDrag(1032, 10), Calls{});  // the stored value again
  desk.Repaint(kPage);
  EXPECT_EQ(TakeCalls(), Calls{});
}

TEST_F(ProcAmp, RgbSlidersSendAllThreeBytes) {
  Open();
  Press(kPageUpButton);
  EXPECT_EQ(CallsOfDrag(1041, 255), Calls{"set block 14,0,3: FF 3C 07"});
  EXPECT_EQ(CallsOfDrag(1044, 0), Calls{"set block 14,0,3: FF 00 07"});
  EXPECT_EQ(CallsOfDrag(1047, 64), Calls{"set block 14,0,3: FF 00 40"});
  EXPECT_EQ(CallsOfDrag(1047, 200), Calls{});  // can't go above 64
  EXPECT_EQ(desk.Text(kPage, 1048), "64");
}

TEST_F(ProcAmp, StoredByteIsWhatTheSliderCanHold) {
  Open();
  box.Block(14) = {1, 2, 200};
  Press(kPictureButton);
  EXPECT_EQ(desk.SliderPosition(kPage, 1047), 64);
  EXPECT_EQ(CallsOf(kPageUpButton), Calls{});  // the RGB sliders are painted for the first time
  desk.Repaint(kPage);
  EXPECT_EQ(TakeCalls(), Calls{});
}

TEST_F(ProcAmp, Brand2ShowsThreeDigitEdits) {
  Open(2);
  EXPECT_EQ(desk.Text(kPage, 1049), "010");
  EXPECT_EQ(desk.Text(kPage, 1052), "040");
  desk.Type(kPage, 1049, "12345");
  EXPECT_EQ(desk.Text(kPage, 1049), "123");
}

TEST_F(ProcAmp, ApplySendsWhatChangedInOrder) {
  Open(2);
  EXPECT_EQ(CallsOf(kApplyButton), Calls{});
  TypeAll("1", "020", "3", "4");
  EXPECT_EQ(CallsOf(kApplyButton),
            (Calls{"set proc amp 0,2 = 1", "set proc amp 0,4 = 3", "set proc amp 0,5 = 4"}));
  EXPECT_EQ(desk.SliderPosition(kPage, 1032), 1);
  EXPECT_EQ(desk.Text(kPage, 1049), "001");  // the slider has painted
  EXPECT_EQ(CallsOf(kApplyButton), Calls{});
}

TEST_F(ProcAmp, TypedTextsAreParsedAndClamped) {
  struct Row {
    const char* typed;
    int sent;  // -1 = ends the operation
  };
  const Row rows[] = {{"300", 255}, {"-1", 255}, {"", -1},  {"12a", 12},  {"12abc", 12}, {"  7", 7},
                      {"abc", -1},  {"0", 0},    {"-0", 0}, {"255", 255}, {"256", 255}};
  for (const Row& row : Tried(rows)) {
    Open(2);
    desk.Type(kPage, 1049, row.typed);
    Calls expected;
    if (row.sent >= 0) expected = {"set proc amp 0,2 = " + std::to_string(row.sent)};
    EXPECT_EQ(CallsOf(kApplyButton), expected) << row.typed;
    EXPECT_EQ(desk.SliderPosition(kPage, 1032), row.sent >= 0 ? row.sent : 10) << row.typed;
    panel.reset();
  }
}

TEST_F(ProcAmp, ApplyEndsAtTheFirstTextThatIsNoNumber) {
  Open(2);
  TypeAll("1", "", "3", "4");
  EXPECT_EQ(CallsOf(kApplyButton), Calls{"set proc amp 0,2 = 1"});
  EXPECT_EQ(desk.SliderPosition(kPage, 1034), 30);
}

TEST_F(ProcAmp, ApplyWithoutEditsSendsNothing) {
  Open(0);
  EXPECT_EQ(CallsOf(kApplyButton), Calls{});
}

TEST_F(ProcAmp, ReturnOfBrand2SendsTheStoredValuesAgain) {
  Open(2);
  TypeAll("1", "020", "300", "40");
  TakeCalls();
  Press(kReturnButton);
  EXPECT_EQ(TakeCalls(),
            Join({{"set proc amp 0,2 = 10", "set proc amp 0,4 = 30"}, kInformationCalls}));
  EXPECT_EQ(panel->Panel().tickSkip, 2);
}

// 255 is stored: "300" is the same after the limit, a negative number is not.
TEST_F(ProcAmp, ReturnLimitsWithASign) {
  Open(2);
  box.Picture() = {255, 255, 255, 255};
  Press(kPictureButton);
  TypeAll("300", "-1", "255", "256");
  TakeCalls();
  Press(kReturnButton);
  EXPECT_EQ(TakeCalls(), Join({{"set proc amp 0,3 = 255"}, kInformationCalls}));
}

TEST_F(ProcAmp, Brand2StoresItsRgbBytes) {
  Open(2);
  Press(kPageUpButton);
  EXPECT_EQ(CallsOfDrag(1041, 255), Calls{"set block 14,0,3: FF 3C 07"});
  desk.Repaint(kPage);
  EXPECT_EQ(TakeCalls(), Calls{});
}

TEST_F(ProcAmp, ReturnSendsNothingWhenATextIsNoNumberOrOnOtherBrands) {
  Open(2);
  TypeAll("1", "2", "3", "");
  TakeCalls();
  Press(kReturnButton);
  EXPECT_EQ(TakeCalls(), kInformationCalls);
  panel.reset();
  Open(0);
  desk.Drag(kPage, 1032, 99);
  TakeCalls();
  Press(kReturnButton);
  EXPECT_EQ(TakeCalls(), kInformationCalls);
}

// A slider that was dragged shows another number than the one stored.
TEST_F(ProcAmp, ReturnOfBrand2TakesADragBack) {
  Open(2);
  desk.Drag(kPage, 1035, 200);
  TakeCalls();
  Press(kReturnButton);
  EXPECT_EQ(TakeCalls(), Join({{"set proc amp 0,3 = 20"}, kInformationCalls}));
}

TEST_F(ProcAmp, DefaultRestoresTheViewThatIsShown) {
  Open();
  Press(kDefaultButton);
  EXPECT_EQ(TakeCalls(), (Calls{"set word 0,3 = 0", "get proc amp", "get block 14,0,3"}));
  for (const int slider : kPictureSliders) EXPECT_EQ(desk.SliderPosition(kPage, slider), 128);
  EXPECT_EQ(desk.SliderPosition(kPage, 1041), 50);
  Press(kPageUpButton);
  TakeCalls();
  Press(kDefaultButton);
  EXPECT_EQ(TakeCalls(), (Calls{"set word 0,3 = 2", "get proc amp", "get block 14,0,3"}));
  EXPECT_EQ(desk.SliderPosition(kPage, 1041), 128);
  EXPECT_EQ(desk.SliderPosition(kPage, 1044), 128);
  EXPECT_EQ(desk.SliderPosition(kPage, 1047), 7);  // the second offset is not read back
  EXPECT_TRUE(desk.Shows(kPage, 1041));            // the view stays
}

TEST_F(ProcAmp, DefaultWithFailedReads) {
  Open();
  device.Fail("get proc amp");
  device.Fail("get block 14,0,3");
  Press(kDefaultButton);
  const int pictures[] = {10, 20, 30, 40};
  for (int i = 0; i < 4; ++i) {
    EXPECT_EQ(desk.SliderPosition(kPage, kPictureSliders[i]), pictures[i]);
  }
  EXPECT_EQ(desk.SliderPosition(kPage, 1041), 128);
  EXPECT_EQ(desk.SliderPosition(kPage, 1044), 128);
}

// The four values are taken whatever the call answers, and those that it does not fill stay.
TEST_F(ProcAmp, ResultOfTheFourByteCallDoesNotCount) {
  Start();
  device.FillAndAnswer("get proc amp", 0);
  box.Picture() = {10, 20, 30, 40};
  Press(kProcAmpButton);
  EXPECT_EQ(desk.Text(kPage, 1036), "10");
  box.Picture() = {50, 60, 70, 80};
  device.FillAndAnswer("get proc amp", 2);
  device.Fail("set word 0,3 = 0");
  Press(kDefaultButton);
  EXPECT_EQ(desk.Text(kPage, 1036), "50");
  EXPECT_EQ(desk.Text(kPage, 1039), "80");
  device.FillNothing("get proc amp");
  Press(kDefaultButton);
  EXPECT_EQ(desk.Text(kPage, 1036), "50");
  EXPECT_EQ(desk.Text(kPage, 1039), "80");
  Press(kProcAmpButton);  // here every value starts in the middle
  EXPECT_EQ(desk.Text(kPage, 1036), "128");
}

TEST_F(ProcAmp, DefaultOnPagesWithoutDefaultsActsHere) {
  Start();
  Press(kVideoButton);
  TakeCalls();
  Press(kDefaultButton);
  EXPECT_EQ(TakeCalls(), (Calls{"set word 0,3 = 0", "get proc amp", "get block 14,0,3"}));
  panel->OpenPage(PageCode::kVideoSettings);
  TakeCalls();
  Press(kDefaultButton);
  EXPECT_EQ(TakeCalls(), (Calls{"set word 0,3 = 0", "get proc amp", "get block 14,0,3"}));
}

TEST_F(ProcAmp, EnterAndEscapeAreSwallowed) {
  Open(2);
  for (const ui::Key key : {ui::Key::kEnter, ui::Key::kEscape}) {
    desk.Type(kPage, 1049, "99");
    desk.PressKey(kPage, 1049, key);
    EXPECT_TRUE(desk.IsShown(kPage));
    EXPECT_TRUE(panel->IsOpen());
  }
  EXPECT_EQ(TakeCalls(), Calls{});
}

TEST_F(ProcAmp, OtherModelsCommitWithControl255) {
  struct Row {
    std::uint8_t boxType;
    std::uint32_t firmware;
    std::uint8_t brand;
    bool commits;
  };
  const Row rows[] = {{24, 262, 2, true},    {24, 261, 2, false}, {34, 262, 2, true},
                      {25, 265, 2, true},    {25, 264, 2, false}, {29, 265, 2, true},
                      {20, 0, 2, true},      {33, 0, 2, true},    {24, 262, 1, false},
                      {46, 0x0126, 2, false}};
  for (const Row& row : Tried(rows)) {
    admitted = {row.boxType};
    StartWith(row.firmware, {row.boxType, row.brand, 0, 0, 0});
    Press(kProcAmpButton);
    for (const int edit : kPictureEdits) desk.Type(kPage, edit, "128");
    EXPECT_EQ(CallsOf(kApplyButton), row.commits ? Calls{"set proc amp 0,255 = 1"} : Calls{})
        << int{row.boxType};
    desk.PressKey(kPage, 1049, ui::Key::kEnter);
    EXPECT_EQ(TakeCalls(),
              row.commits ? (Calls{"set proc amp 0,255 = 1", "set proc amp 0,255 = 0"}) : Calls{})
        << int{row.boxType};
    panel.reset();
  }
}

TEST_F(ProcAmp, OtherModelsReadTheirDefaultsOneByOne) {
  const std::pair<std::uint8_t, Calls> rows[] = {
      {std::uint8_t{20}, {"set word 0,4 = 0"}},     {std::uint8_t{24}, {"set word 0,5 = 0"}},
      {std::uint8_t{23}, {"set word 0,7 = 0"}},     {std::uint8_t{46}, {"set block 1,0,1: 00"}},
      {std::uint8_t{21}, {"set word 0,4 = 0"}},     {std::uint8_t{13}, {"set word 0,10 = 0"}},
      {std::uint8_t{14}, {"set block 16,0,1: 00"}}, {std::uint8_t{5}, {"set word 0,4 = 0"}}};
  const Calls reads = {"get proc amp 0,2", "get proc amp 0,3", "get proc amp 0,4",
                       "get proc amp 0,5"};
  for (const auto& [type, select] : Tried(rows)) {
    Open(0, type);
    box.Picture() = {1, 2, 3, 4};
    Press(kDefaultButton);
    EXPECT_EQ(TakeCalls(), Join({select, reads})) << int{type};
    EXPECT_EQ(desk.SliderPosition(kPage, 1033), type == 5 ? 128 : 4);  // 5 has no picture values
    EXPECT_FALSE(desk.Shows(kPage, 1041));
    panel.reset();
  }
}

TEST_F(ProcAmp, FailedSingleReadsAreToldToTheDebugger) {
  Open(0, 20);
  device.FailEverything();
  Press(kDefaultButton);
  EXPECT_EQ(
      desk.DebugOutput(),
      (std::vector<std::string>{
          "GET VIDEO PROC AMP ERROR ( BRIGHTNESS )!!", "GET VIDEO PROC AMP ERROR ( CONTRAST )!!",
          "GET VIDEO PROC AMP ERROR ( HUE )!!", "GET VIDEO PROC AMP ERROR ( SATURATION )!!"}));
  EXPECT_EQ(desk.SliderPosition(kPage, 1032), 10);
}

TEST_F(ProcAmp, ModelsWithoutPictureValuesStandInTheMiddleDisabled) {
  for (const std::uint8_t type : Bytes{5, 27, 6, 7}) {
    Open(0, type);
    for (const int slider : kPictureSliders) {
      EXPECT_EQ(desk.SliderPosition(kPage, slider), 128) << int{type};
      EXPECT_FALSE(desk.Enables(kPage, slider)) << int{type};
    }
    for (std::size_t i = 0; i < 4; ++i) EXPECT_EQ(panel->Panel().procAmpCache[i], 128);
    panel.reset();
  }
}

}  // namespace
}  // namespace panelora::testing
