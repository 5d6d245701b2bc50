// The region of interest page: properties by model, frames, modes, sliders.
#include "tests/support/one_page.h"

namespace panelora::testing {
namespace {

constexpr int kPage = res::kRoi;
constexpr int kNextMode = 1100;
constexpr int kSliders[] = {1055, 1056, 1057, 1058};  // H. Pos, V. Pos, H. Size, V. Size
constexpr int kLabels[] = {1059, 1060, 1061, 1062};

struct Region {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;
  int switchByte = 1;
  int mode = 0;
};

Bytes BytesOf(const Region& region) {
  Bytes bytes;
  for (const int value : {region.x, region.y, region.width, region.height}) {
    bytes.push_back(static_cast<std::uint8_t>(value >> 8));
    bytes.push_back(static_cast<std::uint8_t>(value & 0xFF));
  }
  bytes.push_back(static_cast<std::uint8_t>(region.switchByte));
  bytes.push_back(static_cast<std::uint8_t>(region.mode));
  return bytes;
}

std::string Write(int property, const Region& region) {
  BlockBuffer buffer{};
  const Bytes bytes = BytesOf(region);
  std::copy(bytes.begin(), bytes.end(), buffer.begin());
  return TextOf(Call::SetBlock(static_cast<std::uint8_t>(property), kNoSub, 10, buffer));
}

struct ModelRow {
  Identity identity;
  int region;
  std::string input;  // how the input format is asked for
};
const ModelRow kModels[] = {
    {{46, 0, 0, 0, 0}, 18, "get block 4,0,2"}, {{47, 0, 0, 0, 0}, 18, "get block 4,0,2"},
    {{48, 2, 0, 0, 0}, 18, "get block 4,0,2"}, {{49, 0, 0, 1, 0}, 18, "get block 4,0,2"},
    {{39, 0, 0, 0, 0}, 18, "get block 4,0,2"}, {{40, 0, 0, 0, 0}, 18, "get block 4,0,2"},
    {{35, 0, 0, 0, 0}, 14, "get word 0,4"},    {{32, 0, 0, 0, 0}, 18, "get word 0,2"},
    {{23, 0, 0, 0, 0}, 14, "get word 0,5"},    {{42, 0, 0, 0, 0}, 14, "get word 0,5"},
    {{30, 0, 0, 0, 0}, 19, "get word 0,2"},    {{43, 0, 0, 0, 0}, 19, "get word 0,2"},
    {{24, 0, 0, 0, 1}, 15, "get word 0,2"},    {{34, 1, 0, 0, 0}, 15, "get word 0,2"},
    {{24, 0, 0, 1, 0}, 18, "get block 6,0,2"}, {{34, 0, 0, 1, 0}, 18, "get block 6,0,2"},
    {{24, 2, 0, 0, 0}, 18, "get block 6,0,2"}, {{34, 2, 0, 0, 0}, 18, "get block 6,0,2"},
    {{14, 0, 0, 0, 0}, 14, "get word 0,1"},    {{36, 0, 0, 0, 0}, 14, "get word 0,1"},
    {{25, 0, 0, 0, 0}, 18, "get word 0,1"},    {{29, 0, 0, 0, 0}, 18, "get word 0,1"},
};

class Roi : public OnePage<kPage> {
 protected:
  // Opens the page on a box with this region; the input is 1920 by 1080.
  void Open(const Region& region = {100, 50, 640, 360, 1, 0}, std::uint8_t brand = 0) {
    OpenModel({46, brand, 0, 0, 0}, region);
  }
  void OpenModel(const Identity& identity, const Region& region) {
    panel.reset();
    StartWith(identity);
    panel->OpenPage(PageCode::kRoi);  // switches the region off
    for (const ModelRow& model : kModels) {
      if (model.identity.boxType == identity.boxType) property = model.region;
    }
    if (identity.boxType == 24 || identity.boxType == 34) {
      property = identity.inputDipFlag == 1 || identity.brandCode == 2 ? 18 : 15;
    }
    SetRegion(region);
    Press(kPictureButton);
    TakeCalls();
  }
  void SetRegion(const Region& region) {
    box.Block(static_cast<std::uint8_t>(property)) = BytesOf(region);
  }
  void SetInput(int code) {
    for (const std::uint8_t block : Bytes{4, 6}) {
      box.Block(block) = {static_cast<std::uint8_t>(code), 0};
    }
    for (const std::uint32_t item : {1U, 2U, 4U, 5U}) {
      box.Word(item) = {static_cast<std::uint32_t>(code), 0};
    }
  }
  // Texts without the line feed that a released slider puts behind its value.
  std::vector<int> Values() {
    std::vector<int> values;
    for (const int label : kLabels) values.push_back(std::stoi(desk.Text(kPage, label)));
    return values;
  }
  std::vector<int> Positions() {
    std::vector<int> positions;
    for (const int slider : kSliders) positions.push_back(desk.SliderPosition(kPage, slider));
    return positions;
  }
  std::vector<std::pair<int, int>> Ranges() {
    std::vector<std::pair<int, int>> ranges;
    for (const int slider : kSliders) ranges.push_back(desk.SliderRange(kPage, slider));
    return ranges;
  }
  std::string Mode() { return desk.Text(kPage, 1045); }
  bool SlidersEnabled() {
    const bool enabled = desk.Enables(kPage, kSliders[0]);
    for (const int slider : kSliders) EXPECT_EQ(desk.Enables(kPage, slider), enabled);
    return enabled;
  }

  int property = 18;
};

using Ints = std::vector<int>;

TEST_F(Roi, CaptionsAndFonts) {
  Open();
  const std::pair<int, const char*> texts[] = {
      {1044, "Display Mode"}, {1102, "adjust ROI"}, {1051, "H. Pos"},  {1052, "V. Pos"},
      {1053, "H. Size"},      {1054, "V. Size"},    {kNextMode, ">>"}, {1003, ""}};
  for (const auto& [id, text] : texts) {
    EXPECT_EQ(desk.Text(kPage, id), text);
    EXPECT_EQ(desk.FontOf(kPage, id), ui::kCaptionFont) << id;
  }
  for (const int label : kLabels) EXPECT_EQ(desk.FontOf(kPage, label), ui::kCaptionFont);
  EXPECT_EQ(desk.FontOf(kPage, 1045), ui::kValueFont);
}

TEST_F(Roi, EveryModelHasItsProperties) {
  for (const ModelRow& model : Tried(kModels)) {
    SCOPED_TRACE(int{model.identity.boxType});
    OpenModel(model.identity, {300, 50, 960, 540, 1, 1});
    const std::string read = Format("get block %d,0,30", model.region);
    EXPECT_EQ(CallsOf(kPictureButton), (Calls{model.input, read}));
    EXPECT_EQ(Values(), (Ints{300, 50, 960, 540}));
    EXPECT_EQ(Slide(1055, 0), Calls{Write(model.region, {0, 50, 960, 540, 0, 0})});
    EXPECT_EQ(CallsOf(kApplyButton), Calls{Write(model.region, {0, 50, 960, 540, 1, 1})});
    // Opening switches the region off; it comes back empty and is set to half the input.
    Calls opening = {Write(model.region, {0, 0, 0, 0, 2, 0}), model.input, read,
                     Write(model.region, {0, 0, 960, 540, 0, 0})};
    if (model.identity.boxType == 39 || model.identity.boxType == 40) {
      opening.insert(opening.begin(), "set block 1,0,1: 04");
    }
    panel->OpenPage(PageCode::kRoi);
    EXPECT_EQ(TakeCalls(), opening);
    EXPECT_EQ(Values(), (Ints{0, 0, 960, 540}));
    EXPECT_EQ(CallsOf(kDefaultButton), opening);
  }
}

TEST_F(Roi, OtherTypesAreAskedAndToldNothing) {
  for (const std::uint8_t type : Bytes{26, 50, 15, 37}) {
    panel.reset();
    StartWith({type, 0, 0, 0, 0});
    panel->OpenPage(PageCode::kRoi);
    for (const int button : {kPictureButton, kApplyButton}) Press(button);
    Slide(1055, 10);
    desk.Press(kPage, kNextMode);
    EXPECT_EQ(TakeCalls(), Calls{}) << int{type};
  }
}

// Where it keeps its region is not known.
TEST_F(Roi, Type33IsAskedForItsInputAlone) {
  StartWith({33, 0, 0, 0, 0});
  panel->OpenPage(PageCode::kRoi);
  EXPECT_EQ(TakeCalls(), Calls{"get word 0,1"});
  Press(kApplyButton);
  Slide(1057, 10);
  EXPECT_EQ(TakeCalls(), Calls{});
}

struct FrameRow {
  int first;
  int last;
  int width;
  int height;
};
const FrameRow kFrames[] = {{0, 1, 720, 480},     {2, 2, 720, 576},     {6, 8, 1280, 720},
                            {12, 22, 1920, 1080}, {24, 24, 800, 600},   {26, 26, 1024, 768},
                            {27, 27, 1280, 800},  {28, 28, 1280, 960},  {29, 29, 1280, 1024},
                            {31, 31, 1366, 768},  {33, 33, 1400, 1050}, {34, 34, 1600, 1200},
                            {35, 35, 1440, 900},  {36, 36, 1440, 1050}, {37, 37, 1680, 1050}};

TEST_F(Roi, FrameGoesByTheInputCodeAndOthersKeepIt) {
  Open({0, 0, 400, 300, 1, 0});
  int width = 1920;
  int height = 1080;
  for (int code = 0; code <= 255; ++code) {
    for (const FrameRow& row : kFrames) {
      if (code < row.first || code > row.last) continue;
      width = row.width;
      height = row.height;
    }
    SetInput(code);
    Press(kPictureButton);
    EXPECT_EQ(Ranges(), (std::vector<std::pair<int, int>>{
                            {0, width - 400}, {0, height - 300}, {0, width / 2}, {0, height / 2}}))
        << code;
  }
}

TEST_F(Roi, EmptyRegionIsWrittenBackAsHalfTheInput) {
  Open();
  for (const FrameRow& row : kFrames) {
    SetInput(row.last);
    SetRegion({0, 0, 0, 0, 2, 1});
    const Region half = {0, 0, row.width / 2, row.height / 2, 0, 0};
    EXPECT_EQ(CallsOf(kPictureButton),
              (Calls{"get block 4,0,2", "get block 18,0,30", Write(18, half)}));
    EXPECT_EQ(Values(), (Ints{0, 0, row.width / 2, row.height / 2}));
    EXPECT_EQ(Mode(), "Full Screen");
    EXPECT_EQ(CallsOf(kPictureButton).size(), 2U);  // it has a size now
  }
  // One of the two is enough to be a region.
  SetRegion({0, 0, 2, 0, 1, 0});
  EXPECT_EQ(CallsOf(kPictureButton).size(), 2U);
  SetRegion({0, 0, 0, 2, 1, 0});
  EXPECT_EQ(CallsOf(kPictureButton).size(), 2U);
}

TEST_F(Roi, FailedReadsKeepWhatWasShown) {
  for (const ModelRow& model : Tried(kModels)) {
    const std::string read = Format("get block %d,0,30", model.region);
    OpenModel(model.identity, {100, 50, 640, 360, 1, 0});
    for (const std::string& failing : {model.input, read}) {
      SetInput(15);
      SetRegion({100, 50, 640, 360, 1, 0});
      Press(kPictureButton);
      device.Fail(failing);
      SetInput(6);
      SetRegion({7, 8, 400, 300, 1, 1});
      EXPECT_EQ(CallsOf(kPictureButton), (Calls{model.input, read}));
      const bool regionFails = failing == read;
      EXPECT_EQ(Values(), regionFails ? (Ints{100, 50, 640, 360}) : (Ints{7, 8, 400, 300}));
      EXPECT_EQ(Mode(), regionFails ? "Dot by Dot" : "Full Screen");
      EXPECT_EQ(desk.SliderRange(kPage, 1057).second, regionFails ? 640 : 960) << failing;
      device.FailNothing();
    }
  }
}

// The frame is the box's from the first input that could be read, and 1920 by 1080 before.
TEST_F(Roi, InputThatWasNeverReadKeepsTheFrame) {
  for (const ModelRow& model : Tried(kModels)) {
    admitted = {model.identity.boxType};
    StartWith(0x0126, model.identity);
    SetRegion({0, 0, 0, 0, 1, 0});
    device.Fail(model.input);
    panel->OpenPage(PageCode::kRoi);
    EXPECT_EQ(Values(), (Ints{0, 0, 960, 540})) << int{model.identity.boxType};
    EXPECT_EQ(desk.SliderRange(kPage, 1057).second, 960);
    device.FailNothing();
    panel.reset();
  }
}

TEST_F(Roi, BrandsOtherThan2HaveTwoModes) {
  for (const std::uint8_t brand : Bytes{0, 1, 3, 12}) {
    Open({100, 50, 640, 360, 1, 0}, brand);
    EXPECT_EQ(Mode(), "Dot by Dot");
    for (const char* mode : {"Full Screen", "Dot by Dot", "Full Screen"}) {
      TakeCalls();
      desk.Press(kPage, kNextMode);
      EXPECT_EQ(TakeCalls(), Calls{});
      EXPECT_EQ(Mode(), mode) << int{brand};
      EXPECT_TRUE(SlidersEnabled());
    }
    EXPECT_EQ(CallsOf(kApplyButton), Calls{Write(18, {100, 50, 640, 360, 1, 1})});
  }
}

TEST_F(Roi, Brand2CanDisable) {
  Open({100, 50, 640, 360, 1, 0}, 2);
  desk.Press(kPage, kNextMode);
  EXPECT_EQ(TakeCalls(), Calls{});
  EXPECT_EQ(CallsOf(kApplyButton), Calls{Write(18, {100, 50, 640, 360, 1, 1})});
  desk.Press(kPage, kNextMode);
  EXPECT_EQ(TakeCalls(), Calls{});
  EXPECT_EQ(Mode(), "Disable");
  EXPECT_FALSE(SlidersEnabled());
  EXPECT_EQ(CallsOf(kApplyButton), Calls{Write(18, {100, 50, 640, 360, 2, 0})});
  desk.Press(kPage, kNextMode);
  EXPECT_EQ(Mode(), "Dot by Dot");
  EXPECT_TRUE(SlidersEnabled());
  EXPECT_EQ(CallsOf(kApplyButton), Calls{Write(18, {100, 50, 640, 360, 1, 0})});
}

TEST_F(Roi, ReportedDisableOfOtherBrandsIsKeptUntilTheNextMode) {
  Open({100, 50, 640, 360, 1, 2}, 1);
  EXPECT_EQ(Mode(), "Disable");
  EXPECT_FALSE(SlidersEnabled());
  EXPECT_EQ(CallsOf(kApplyButton), Calls{Write(18, {100, 50, 640, 360, 1, 2})});
  desk.Press(kPage, kNextMode);
  EXPECT_EQ(Mode(), "Dot by Dot");
  EXPECT_TRUE(SlidersEnabled());
}

TEST_F(Roi, ModesWithoutNameKeepTheText) {
  for (const std::uint8_t brand : Bytes{0, 2}) {
    for (const int mode : {3, 100, 255}) {
      Open({100, 50, 640, 360, 1, 1}, brand);
      SetRegion({100, 50, 640, 360, 1, mode});
      Press(kPictureButton);
      EXPECT_EQ(Mode(), "Full Screen") << mode;
      EXPECT_TRUE(SlidersEnabled());
      desk.Press(kPage, kNextMode);
      EXPECT_EQ(Mode(), "Dot by Dot") << mode;
    }
  }
}

TEST_F(Roi, PositionIsWrittenWhenItChanged) {
  Open();
  EXPECT_EQ(Slide(1055, 100), Calls{});
  EXPECT_EQ(desk.Text(kPage, 1059), "100\n");
  EXPECT_EQ(Slide(1055, 0), Calls{Write(18, {0, 50, 640, 360, 0, 0})});
  EXPECT_EQ(Slide(1055, 5000), Calls{Write(18, {1280, 50, 640, 360, 0, 0})});
  EXPECT_EQ(desk.Text(kPage, 1059), "1280\n");
  EXPECT_EQ(Slide(1056, 0), Calls{Write(18, {1280, 0, 640, 360, 0, 0})});
  EXPECT_EQ(Slide(1056, 5000), Calls{Write(18, {1280, 720, 640, 360, 0, 0})});
  EXPECT_EQ(desk.Text(kPage, 1060), "720\n");
}

TEST_F(Roi, SizesMoveInStepsOfTwo) {
  Open({0, 0, 640, 360, 1, 0});
  EXPECT_EQ(Positions(), (Ints{0, 0, 320, 180}));
  EXPECT_EQ(Slide(1057, 300), Calls{Write(18, {0, 0, 600, 360, 0, 0})});
  EXPECT_EQ(desk.Text(kPage, 1061), "600\n");
  EXPECT_EQ(desk.SliderRange(kPage, 1055), std::make_pair(0, 1320));
  EXPECT_EQ(Slide(1057, 300), Calls{});
  EXPECT_EQ(desk.Text(kPage, 1061), "600\n");
  EXPECT_EQ(Slide(1058, 200), Calls{Write(18, {0, 0, 600, 400, 0, 0})});
  EXPECT_EQ(desk.Text(kPage, 1062), "400\n");
  EXPECT_EQ(desk.SliderRange(kPage, 1056), std::make_pair(0, 680));
  // An odd size from the box is shown as it is.
  SetRegion({1, 2, 641, 361, 1, 0});
  Press(kPictureButton);
  EXPECT_EQ(Values(), (Ints{1, 2, 641, 361}));
  EXPECT_EQ(Positions(), (Ints{1, 2, 320, 180}));
}

TEST_F(Roi, SizeThatLeavesTheFramePushesThePosition) {
  Open({1000, 500, 640, 360, 1, 0});
  // As far as it fits.
  EXPECT_EQ(Slide(1057, 460), Calls{Write(18, {1000, 500, 920, 360, 0, 0})});
  EXPECT_EQ(Slide(1057, 461), Calls{Write(18, {998, 500, 922, 360, 0, 0})});
  EXPECT_EQ(Positions()[0], 998);
  EXPECT_EQ(desk.Text(kPage, 1059), "998\n");
  EXPECT_EQ(desk.SliderRange(kPage, 1055), std::make_pair(0, 998));
  EXPECT_EQ(Slide(1058, 291), Calls{Write(18, {998, 498, 922, 582, 0, 0})});
  EXPECT_EQ(desk.SliderRange(kPage, 1056), std::make_pair(0, 498));
  EXPECT_EQ(Positions()[1], 498);
  EXPECT_EQ(desk.Text(kPage, 1060), "498\n");
  // Both ends.
  EXPECT_EQ(Slide(1057, 5000), Calls{Write(18, {0, 498, 1920, 582, 0, 0})});
  EXPECT_EQ(Slide(1058, 5000), Calls{Write(18, {0, 0, 1920, 1080, 0, 0})});
  EXPECT_EQ(Slide(1057, 0), Calls{Write(18, {0, 0, 0, 1080, 0, 0})});
  EXPECT_EQ(Slide(1058, 0), Calls{Write(18, {0, 0, 0, 0, 0, 0})});
  EXPECT_EQ(desk.SliderRange(kPage, 1055), std::make_pair(0, 1920));
  // A region of no size does not stay.
  EXPECT_EQ(CallsOf(kPictureButton).back(), Write(18, {0, 0, 960, 540, 0, 0}));
}

TEST_F(Roi, RegionOutsideTheFrameIsShownAndNotTouched) {
  Open({60000, 50, 3000, 65535, 1, 0});
  EXPECT_EQ(Values(), (Ints{60000, 50, 3000, 65535}));
  EXPECT_EQ(Positions(), (Ints{0, 0, 960, 540}));
  EXPECT_EQ(CallsOf(kApplyButton), Calls{Write(18, {60000, 50, 3000, 65535, 1, 0})});
  // A smaller size brings it in, and the sliders with it.
  EXPECT_EQ(Slide(1057, 300), Calls{Write(18, {1320, 50, 600, 65535, 0, 0})});
  EXPECT_EQ(Positions()[0], 1320);
  Open({1000, 0, 1500, 360, 1, 0});
  EXPECT_EQ(Slide(1057, 400), Calls{Write(18, {1000, 0, 800, 360, 0, 0})});
  EXPECT_EQ(Positions()[0], 1000);
}

TEST_F(Roi, FailedWritesAreNotMinded) {
  Open();
  device.Fail(Write(18, {0, 50, 640, 360, 0, 0}));
  EXPECT_EQ(Slide(1055, 0), Calls{Write(18, {0, 50, 640, 360, 0, 0})});
  EXPECT_EQ(Values()[0], 0);
  OpenModel({39, 0, 0, 0, 0}, {100, 50, 640, 360, 1, 0});
  device.Fail("set block 1,0,1: 04");
  device.Fail(Write(18, {0, 0, 0, 0, 2, 0}));
  panel->OpenPage(PageCode::kRoi);
  EXPECT_EQ(TakeCalls(), (Calls{"set block 1,0,1: 04", Write(18, {0, 0, 0, 0, 2, 0}),
                                "get block 4,0,2", "get block 18,0,30"}));
  EXPECT_EQ(Values(), (Ints{100, 50, 640, 360}));
}

TEST_F(Roi, TakesTheHandleOfABoxThatCameBack) {
  Open();
  box.SetPresent(false);
  for (int i = 0; i < 3; ++i) Tick();
  box.SetPresent(true);
  device.AnswerHandle(0x77);
  Tick();
  panel->OpenPage(PageCode::kRoi);
  SetRegion({1, 2, 300, 200, 1, 0});
  Press(kPictureButton);
  EXPECT_EQ(Values(), (Ints{1, 2, 300, 200}));
}

TEST_F(Roi, RegionThatWasNotReadIsNotWritten) {
  device.Fail("get block 18,0,30");
  StartWith({46, 0, 0, 0, 0});
  panel->OpenPage(PageCode::kRoi);
  EXPECT_EQ(TakeCalls(),
            (Calls{Write(18, {0, 0, 0, 0, 2, 0}), "get block 4,0,2", "get block 18,0,30"}));
  EXPECT_EQ(Mode(), "Full Screen");
}

TEST_F(Roi, RefreshReplacesAModeThatWasNotApplied) {
  Open();
  desk.Press(kPage, kNextMode);
  EXPECT_EQ(Mode(), "Full Screen");
  Press(kPictureButton);
  EXPECT_EQ(Mode(), "Dot by Dot");
  // Opening it again with a mode without name keeps the text.
  SetRegion({100, 50, 640, 360, 1, 1});
  Press(kPictureButton);
  device.Fail("get block 18,0,30");
  panel->OpenPage(PageCode::kRoi);
  EXPECT_EQ(Mode(), "Full Screen");
}

// At every input: both sizes at their ends.
TEST_F(Roi, SizesReachFromNothingToTheInput) {
  Open();
  for (const FrameRow& row : kFrames) {
    SetInput(row.first);
    SetRegion({0, 0, 100, 100, 1, 0});
    Press(kPictureButton);
    const int width = row.width / 2 * 2;
    const int height = row.height / 2 * 2;
    EXPECT_EQ(Slide(1057, 5000), Calls{Write(18, {0, 0, width, 100, 0, 0})});
    EXPECT_EQ(Slide(1058, 5000), Calls{Write(18, {0, 0, width, height, 0, 0})});
    EXPECT_EQ(Slide(1057, 0), Calls{Write(18, {0, 0, 0, height, 0, 0})});
    EXPECT_EQ(Slide(1058, 0), Calls{Write(18, {0, 0, 0, 0, 0, 0})});
  }
}

TEST_F(Roi, ApplyDefaultAndRefreshSilenceTheMonitor) {
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
