// The picture-in-picture page: frames, sliders, edits, byte orders.
#include <map>

#include "tests/support/scenario.h"

namespace panelora::testing {
namespace {

constexpr int kPage = res::kPip;

// Sliders and edits of a channel: H. Position, V. Position, H. Size, V. Size.
struct Controls {
  int frame;
  int captions[4];
  int sliders[4];
  int edits[4];
  int labels[4];
};
constexpr Controls kCh1 = {1050,
                           {1051, 1052, 1053, 1054},
                           {1055, 1056, 1057, 1058},
                           {1076, 1077, 1078, 1079},
                           {1059, 1060, 1061, 1062}};
constexpr Controls kCh2 = {1063,
                           {1064, 1065, 1066, 1067},
                           {1072, 1073, 1074, 1075},
                           {1080, 1081, 1082, 1083},
                           {1068, 1069, 1070, 1071}};
enum Value { kHPos, kVPos, kHSize, kVSize };

using Range = std::pair<int, int>;

class Pip : public Scenario {
 protected:
  // A box in this display mode with an inset of 640 by 360 at (100, 50), on 1920 by 1080.
  void Open(Identity identity = {15, 0, 0, 0, 0}, std::uint8_t mode = 4) {
    panel.reset();
    StartWith(identity);
    box.Block(1)[0] = mode;
    SetInset(100, 50, 640, 360);
    SetFrame(1, 4);
    panel->OpenPage(PageCode::kPip);
    SetInset(100, 50, 640, 360);  // the opening put it in its first place
    Press(kPictureButton);
    TakeCalls();
  }
  void SetInset(int hPos, int vPos, int hSize, int vSize) {
    Bytes bytes;
    for (const int value : {hPos, vPos, hSize, vSize}) {
      bytes.push_back(static_cast<std::uint8_t>(value & 0xFF));
      bytes.push_back(static_cast<std::uint8_t>(value >> 8));
    }
    box.Block(13) = bytes;
  }
  void SetSecondInset(int hPos, int vPos, int hSize, int vSize) {
    Bytes bytes;
    for (const int value : {hPos, vPos, hSize, vSize}) {
      bytes.push_back(static_cast<std::uint8_t>(value >> 8));
      bytes.push_back(static_cast<std::uint8_t>(value & 0xFF));
    }
    box.Block(14) = bytes;
  }
  void SetFrame(std::uint8_t option, std::uint8_t format) {
    box.Block(5) = {option, 0};
    box.Block(6) = {format, 0};
    box.Word(5) = {option, 0};
    box.Word(6) = {format, 0};
  }
  void Refresh() {
    Press(kPictureButton);
    TakeCalls();
  }
  Texts Edits(const Controls& channel) {
    Texts texts;
    for (const int edit : channel.edits) texts.push_back(desk.Text(kPage, edit));
    return texts;
  }
  std::vector<int> Sliders(const Controls& channel) {
    std::vector<int> positions;
    for (const int slider : channel.sliders) {
      positions.push_back(desk.SliderPosition(kPage, slider));
    }
    return positions;
  }
  std::vector<Range> Ranges(const Controls& channel) {
    std::vector<Range> ranges;
    for (const int slider : channel.sliders) ranges.push_back(desk.SliderRange(kPage, slider));
    return ranges;
  }
  Calls Slide(int slider, int position) {
    TakeCalls();
    desk.Drag(kPage, slider, position);
    desk.Release(kPage, slider);
    return TakeCalls();
  }
  void TypeAll(const Controls& channel, const Texts& texts) {
    for (std::size_t i = 0; i < 4; ++i) desk.Type(kPage, channel.edits[i], texts[i]);
  }
};

Calls Reads(std::uint8_t type, std::uint8_t mode) {
  Calls reads = {"get block 1,0,20"};
  const Calls format = type == 51 ? Calls{"get block 5,0,20", "get block 6,0,20"}
                                  : Calls{"get word 0,5", "get word 0,6"};
  reads.insert(reads.end(), format.begin(), format.end());
  if (mode == 4 || mode == 6 || mode == 7) reads.push_back("get block 13,0,8");
  if (mode == 6) reads.push_back("get block 14,0,8");
  return reads;
}

const std::string kOnes = ": FF FF FF FF FF FF FF FF";

TEST_F(Pip, CaptionsAndFonts) {
  Open();
  for (const Controls& channel : {kCh1, kCh2}) {
    EXPECT_EQ(desk.Text(kPage, channel.frame), channel.frame == 1050 ? "CH 1" : "CH 2");
    const char* const captions[] = {"H. Position", "V. Position", "H. Size", "V. Size"};
    for (int i = 0; i < 4; ++i) {
      EXPECT_EQ(desk.Text(kPage, channel.captions[i]), captions[i]);
      EXPECT_EQ(desk.FontOf(kPage, channel.captions[i]), ui::kCaptionFont);
      EXPECT_EQ(desk.FontOf(kPage, channel.edits[i]), ui::kCaptionFont);
      desk.Type(kPage, channel.edits[i], "12345");
      EXPECT_EQ(desk.Text(kPage, channel.edits[i]), "12345");
    }
  }
}

TEST_F(Pip, OpeningTellsTheBoxThenReads) {
  struct Row {
    std::uint8_t type;
    std::uint8_t mode;
    Calls opening;
  };
  const Row rows[] = {
      {51, 4, {"set block 13,0,8" + kOnes}},
      {51, 6, {"set block 13,0,8" + kOnes, "set block 14,0,8" + kOnes}},
      {15, 4, {"set block 13,0,8" + kOnes, "set word 0,10 = 2"}},
      {13, 1, {"set block 13,0,8" + kOnes, "set word 0,10 = 2"}},
      {15, 6, {"set block 13,0,8" + kOnes, "set word 0,10 = 2", "set block 14,0,8" + kOnes}},
      {13, 6, {"set block 13,0,8" + kOnes, "set word 0,10 = 2", "set block 14,0,8" + kOnes}},
      {15, 7, {"set block 13,0,8" + kOnes, "set word 0,10 = 2"}},
  };
  for (const Row& row : rows) {
    Open({row.type, 0, 0, 0, 0}, row.mode);
    panel->OpenPage(PageCode::kPip);
    EXPECT_EQ(TakeCalls(), Join({row.opening, Reads(row.type, row.mode)})) << int{row.type};
    EXPECT_EQ(CallsOf(kPictureButton), Reads(row.type, row.mode));
    // Default opens again and then refreshes.
    EXPECT_EQ(CallsOf(kDefaultButton),
              Join({row.opening, Reads(row.type, row.mode), Reads(row.type, row.mode)}));
  }
}

TEST_F(Pip, OpeningGoesByTheModeOfTheLastRefresh) {
  Open({15, 0, 0, 0, 0}, 4);
  box.Block(1)[0] = 6;
  panel->OpenPage(PageCode::kPip);
  EXPECT_EQ(TakeCalls(), Join({{"set block 13,0,8" + kOnes, "set word 0,10 = 2"}, Reads(15, 6)}));
}

TEST_F(Pip, OtherTypesAreAskedAndToldNothing) {
  StartWith({26, 0, 0, 0, 0});
  panel->OpenPage(PageCode::kPip);
  for (const int button : {kPictureButton, kApplyButton, kDefaultButton}) Press(button);
  EXPECT_EQ(TakeCalls(), Calls{});
}

TEST_F(Pip, OneInsetHasThePageForItself) {
  for (const std::uint8_t mode : Bytes{1, 3, 4, 5, 7, 8, 9}) {
    Open({15, 0, 0, 0, 0}, mode);
    EXPECT_EQ(desk.PlaceOf(kPage, 1050), (Rect{60, 30, 375, 240}));
    for (int i = 0; i < 4; ++i) {
      const int y = 70 + 50 * i;
      EXPECT_EQ(desk.PlaceOf(kPage, kCh1.captions[i]), (Rect{80, y, 80, 20}));
      EXPECT_EQ(desk.PlaceOf(kPage, kCh1.sliders[i]), (Rect{170, y - 3, 200, 25}));
      EXPECT_EQ(desk.PlaceOf(kPage, kCh1.edits[i]), (Rect{380, y, 50, 20}));
      for (const int* row : {kCh1.captions, kCh1.sliders, kCh1.edits}) {
        EXPECT_TRUE(desk.Shows(kPage, row[i]));
      }
      EXPECT_FALSE(desk.Shows(kPage, kCh1.labels[i]));
      for (const int* row : {kCh2.captions, kCh2.sliders, kCh2.edits, kCh2.labels}) {
        EXPECT_FALSE(desk.Shows(kPage, row[i]));
      }
    }
    EXPECT_FALSE(desk.Shows(kPage, 1063));
  }
}

TEST_F(Pip, TwoInsetsShareThePage) {
  Open({15, 0, 0, 0, 0}, 6);
  EXPECT_EQ(desk.PlaceOf(kPage, 1050), (Rect{60, 5, 375, 150}));
  EXPECT_EQ(desk.PlaceOf(kPage, 1063), (Rect{60, 155, 375, 150}));
  int first = 30;
  for (const Controls& channel : {kCh1, kCh2}) {
    EXPECT_TRUE(desk.Shows(kPage, channel.frame));
    for (int i = 0; i < 4; ++i) {
      const int y = first + 30 * i;
      EXPECT_EQ(desk.PlaceOf(kPage, channel.captions[i]), (Rect{80, y, 80, 20}));
      EXPECT_EQ(desk.PlaceOf(kPage, channel.sliders[i]), (Rect{170, y - 3, 200, 25}));
      EXPECT_EQ(desk.PlaceOf(kPage, channel.edits[i]), (Rect{380, y, 50, 20}));
      for (const int* row : {channel.captions, channel.sliders, channel.edits}) {
        EXPECT_TRUE(desk.Shows(kPage, row[i]));
      }
      EXPECT_FALSE(desk.Shows(kPage, channel.labels[i]));
    }
    first = 180;
  }
}

TEST_F(Pip, ModesWithoutInsetDisableAndZero) {
  for (int mode = 0; mode <= 10; ++mode) {
    const bool inset = mode == 4 || mode == 6 || mode == 7;
    Open({15, 0, 0, 0, 0}, 4);
    box.Block(1)[0] = static_cast<std::uint8_t>(mode);
    Refresh();
    for (const int slider : kCh1.sliders) EXPECT_EQ(desk.Enables(kPage, slider), inset) << mode;
    const Texts zeros(4, "0000");
    if (!inset) {
      EXPECT_EQ(Edits(kCh1), zeros) << mode;
      EXPECT_EQ(Sliders(kCh1), (std::vector<int>{0, 0, 204, 160})) << mode;
    } else {
      EXPECT_EQ(Edits(kCh1)[0], "0100") << mode;
    }
  }
}

// Deliberate: the orders differ.
TEST_F(Pip, FirstInsetIsReadLittleEndianAndSecondBigEndian) {
  for (const std::uint8_t type : Bytes{13, 15, 51}) {
    Open({type, 0, 0, 0, 0}, 6);
    box.Block(13) = {0x10, 0x02, 0x20, 0x00, 0x2C, 0x01, 0xA1, 0x00};
    box.Block(14) = {0x10, 0x02, 0x00, 0x20, 0x01, 0x2C, 0x00, 0xA1};
    Refresh();
    EXPECT_EQ(Edits(kCh1), (Texts{"0528", "0032", "0300", "0161"})) << int{type};
    EXPECT_EQ(Edits(kCh2), (Texts{"4098", "0032", "0300", "0161"})) << int{type};
  }
}

TEST_F(Pip, FrameGoesByTypeOptionAndFormat) {
  struct Row {
    std::uint8_t type;
    std::uint8_t brand;
    std::uint8_t option;
    std::vector<int> formats;
    int width;
    int height;
  };
  const Row rows[] = {
      {51, 0, 0, {0, 1, 2, 3, 4, 5, 6, 7, 11}, 1920, 1080},
      {51, 2, 2, {8, 9, 10}, 1280, 720},
      {15, 0, 2, {0, 1}, 1120, 480},
      {13, 8, 2, {2, 3}, 720, 480},
      {15, 12, 2, {4, 5}, 1280, 720},
      {13, 0, 2, {6, 7, 8, 9}, 1920, 1080},
      {15, 2, 2, {0}, 1120, 480},
      {13, 2, 2, {1}, 720, 480},
      {15, 2, 2, {2, 4}, 1920, 1080},
      {15, 2, 2, {3}, 1280, 720},
      {15, 0, 1, {0}, 800, 600},
      {13, 2, 0, {1}, 1024, 768},
      {15, 2, 3, {2}, 1280, 1024},
      {13, 0, 255, {3}, 1600, 1200},
      {15, 0, 1, {4}, 1920, 1080},
  };
  for (const Row& row : rows) {
    Open({row.type, row.brand, 0, 0, 0});
    SetInset(0, 0, 300, 200);
    for (const int format : Tried(row.formats)) {
      // From another frame each time.
      SetFrame(row.type == 51 ? 0 : 1, row.type == 51 && row.width == 1920 ? 8 : 0);
      Refresh();
      SetFrame(row.option, static_cast<std::uint8_t>(format));
      Refresh();
      EXPECT_EQ(
          Ranges(kCh1),
          (std::vector<Range>{
              {0, row.width - 300}, {0, row.height - 200}, {204, row.width}, {160, row.height}}))
          << int{row.type} << " " << int{row.brand} << " " << format;
    }
  }
}

TEST_F(Pip, FormatWithoutFrameKeepsTheFrame) {
  struct Row {
    std::uint8_t type;
    std::uint8_t brand;
    std::uint8_t option;
    std::vector<int> formats;
  };
  const Row rows[] = {{51, 0, 0, {12, 13, 255}},
                      {15, 0, 2, {10, 11, 255}},
                      {15, 2, 2, {5, 6, 255}},
                      {13, 0, 1, {5, 6, 255}}};
  for (const Row& row : rows) {
    Open({row.type, row.brand, 0, 0, 0});
    SetInset(0, 0, 300, 200);
    SetFrame(row.type == 51 ? 0 : 1, row.type == 51 ? 8 : 3);
    Refresh();
    const std::vector<Range> before = Ranges(kCh1);
    EXPECT_EQ(before[2].second, row.type == 51 ? 1280 : 1600);
    for (const int format : Tried(row.formats)) {
      SetFrame(row.option, static_cast<std::uint8_t>(format));
      Refresh();
      EXPECT_EQ(Ranges(kCh1), before) << int{row.type} << " " << format;
    }
  }
}

TEST_F(Pip, FailedReadsKeepWhatWasShown) {
  for (const std::uint8_t type : Bytes{51, 15, 13}) {
    for (const std::string& failing : Reads(type, 6)) {
      Open({type, 0, 0, 0, 0}, 6);
      SetSecondInset(1, 2, 300, 200);
      Refresh();
      const Texts first = Edits(kCh1);
      const Texts second = Edits(kCh2);
      device.Fail(failing);
      SetInset(7, 8, 400, 300);
      SetSecondInset(9, 10, 401, 301);
      if (failing == "get block 1,0,20") box.Block(1)[0] = 3;
      SetFrame(2, type == 51 ? 8 : 2);
      EXPECT_EQ(CallsOf(kPictureButton), Reads(type, 6)) << failing;
      EXPECT_EQ(Edits(kCh1) == first, failing == "get block 13,0,8") << failing;
      EXPECT_EQ(Edits(kCh2) == second, failing == "get block 14,0,8") << failing;
      EXPECT_TRUE(desk.Enables(kPage, kCh1.sliders[0])) << failing;
      device.FailNothing();
      int width = type == 51 ? 1280 : 720;
      if (failing == "get block 6,0,20") width = 1920;
      if (failing == "get word 0,6") width = 1280;  // option 2 with format 4 from before
      if (failing == "get word 0,5") width = 1280;  // option 1 from before, whose format 2 is wide
      EXPECT_EQ(desk.SliderRange(kPage, kCh1.sliders[kHSize]).second, width) << failing;
    }
  }
}

TEST_F(Pip, PositionSliderStoresAndShows) {
  for (const bool second : {false, true}) {
    Open({15, 0, 0, 0, 0}, 6);
    SetSecondInset(100, 50, 640, 360);
    Refresh();
    const Controls& channel = second ? kCh2 : kCh1;
    EXPECT_EQ(Slide(channel.sliders[kHPos], 0), Calls{});
    EXPECT_EQ(Slide(channel.sliders[kVPos], 0), Calls{});
    EXPECT_EQ(Edits(channel), (Texts{"0000", "0000", "0640", "0360"}));
    EXPECT_EQ(Slide(channel.sliders[kHPos], 5000), Calls{});
    EXPECT_EQ(Slide(channel.sliders[kVPos], 5000), Calls{});
    EXPECT_EQ(Edits(channel), (Texts{"1280", "0720", "0640", "0360"}));
    EXPECT_EQ(desk.Text(kPage, channel.labels[kHPos]), "1280");
    EXPECT_EQ(desk.Text(kPage, channel.labels[kVPos]), "720");
    EXPECT_EQ(Ranges(channel)[kHSize], (Range{204, 1920}));
  }
}

TEST_F(Pip, SizeSliderPushesThePositionAndSetsItsRange) {
  for (const bool second : {false, true}) {
    Open({13, 0, 0, 0, 0}, 6);
    SetInset(1000, 600, 640, 360);
    SetSecondInset(1000, 600, 640, 360);
    Refresh();
    const Controls& channel = second ? kCh2 : kCh1;
    // Smaller: the position has more room and stays.
    EXPECT_EQ(Slide(channel.sliders[kHSize], 0), Calls{});
    EXPECT_EQ(Slide(channel.sliders[kVSize], 0), Calls{});
    EXPECT_EQ(Edits(channel), (Texts{"1000", "0600", "0204", "0160"}));
    EXPECT_EQ(Ranges(channel)[kHPos], (Range{0, 1716}));
    EXPECT_EQ(Ranges(channel)[kVPos], (Range{0, 920}));
    EXPECT_EQ(desk.Text(kPage, channel.labels[kHPos]), "1716\n");
    EXPECT_EQ(desk.Text(kPage, channel.labels[kVPos]), "920\n");
    EXPECT_EQ(desk.Text(kPage, channel.labels[kHSize]), "204");
    // Just as far as it goes, and one more.
    Slide(channel.sliders[kHSize], 920);
    EXPECT_EQ(Edits(channel)[kHPos], "1000");
    EXPECT_EQ(Ranges(channel)[kHPos], (Range{0, 1000 - 0}));
    Slide(channel.sliders[kHSize], 921);
    EXPECT_EQ(Edits(channel)[kHPos], "0999");
    EXPECT_EQ(Sliders(channel)[kHPos], 999);
    // The whole frame.
    EXPECT_EQ(Slide(channel.sliders[kHSize], 5000), Calls{});
    EXPECT_EQ(Slide(channel.sliders[kVSize], 5000), Calls{});
    EXPECT_EQ(Edits(channel), (Texts{"0000", "0000", "1920", "1080"}));
    EXPECT_EQ(Sliders(channel), (std::vector<int>{0, 0, 1920, 1080}));
    EXPECT_EQ(Ranges(channel)[kHPos], (Range{0, 0}));
  }
}

TEST_F(Pip, ReleaseWithoutChangeShowsTheValueAndNoMore) {
  Open();
  desk.Type(kPage, 1078, "7");
  Slide(1057, 640);
  EXPECT_EQ(desk.Text(kPage, 1061), "640");
  EXPECT_EQ(desk.Text(kPage, 1078), "7");
  EXPECT_EQ(desk.Text(kPage, 1059), "100");
}

TEST_F(Pip, DisplayMode7DoublesTheWidth) {
  Open({15, 0, 0, 0, 0}, 7);
  SetInset(100, 50, 300, 360);
  Refresh();
  EXPECT_EQ(Edits(kCh1), (Texts{"0100", "0050", "0600", "0360"}));
  EXPECT_EQ(desk.Text(kPage, 1061), "600");
  EXPECT_EQ(Sliders(kCh1), (std::vector<int>{100, 50, 300, 360}));
  EXPECT_EQ(Ranges(kCh1), (std::vector<Range>{{0, 1320}, {0, 720}, {204, 960}, {160, 1080}}));
  Slide(1055, 1320);
  EXPECT_EQ(Edits(kCh1)[kHPos], "1320");
  Slide(1057, 400);
  EXPECT_EQ(Edits(kCh1), (Texts{"1120", "0050", "0800", "0360"}));
  EXPECT_EQ(Ranges(kCh1)[kHPos], (Range{0, 1120}));
  EXPECT_EQ(desk.Text(kPage, 1059), "1120\n");
  EXPECT_EQ(desk.Text(kPage, 1061), "800");
  Slide(1057, 5000);
  EXPECT_EQ(Edits(kCh1), (Texts{"0000", "0050", "1920", "0360"}));
  Slide(1057, 0);
  EXPECT_EQ(Edits(kCh1)[kHSize], "0408");
  Slide(1058, 300);  // heights are not doubled
  EXPECT_EQ(Edits(kCh1)[kVSize], "0300");
  // 100 (0x64), 50, 301 halved, 300
  TypeAll(kCh1, {"100", "50", "603", "300"});
  EXPECT_EQ(CallsOf(kApplyButton), Calls{"set block 13,0,8: 00 64 00 32 01 2D 01 2C"});
  EXPECT_EQ(Sliders(kCh1), (std::vector<int>{100, 50, 301, 300}));
  EXPECT_EQ(Ranges(kCh1)[kHPos], (Range{0, 1318}));
  // Too wide: half of the frame; the edit shows what stood there before.
  TypeAll(kCh1, {"100", "50", "2000", "300"});
  EXPECT_EQ(CallsOf(kApplyButton), Calls{"set block 13,0,8: 00 00 00 32 03 C0 01 2C"});
  EXPECT_EQ(Edits(kCh1), (Texts{"0100", "50", "0602", "300"}));
}

TEST_F(Pip, ApplyWritesInTheOrderOfTheType) {
  Open({51, 0, 0, 0, 0}, 6);
  TypeAll(kCh1, {"0528", "32", "300", "161"});
  TypeAll(kCh2, {"1", "2", "0300", "0200"});
  EXPECT_EQ(CallsOf(kApplyButton), (Calls{"set block 13,0,8: 10 02 20 00 2C 01 A1 00",
                                          "set block 14,0,8: 00 01 00 02 01 2C 00 C8"}));
  for (const std::uint8_t type : Bytes{13, 15}) {
    Open({type, 0, 0, 0, 0});
    TypeAll(kCh1, {"0528", "32", "300", "161"});
    EXPECT_EQ(CallsOf(kApplyButton), Calls{"set block 13,0,8: 02 10 00 20 01 2C 00 A1"});
    // The box has them so that the next read shows them.
    Refresh();
    EXPECT_EQ(Edits(kCh1), (Texts{"0528", "0032", "0300", "0161"}));
    Open({type, 0, 0, 0, 0}, 6);
    TypeAll(kCh1, {"0528", "32", "300", "161"});
    TypeAll(kCh2, {"1", "2", "0300", "0200"});
    EXPECT_EQ(CallsOf(kApplyButton), (Calls{"set block 13,0,8: 02 10 00 20 01 2C 00 A1",
                                            "set block 14,0,8: 00 01 00 02 01 2C 00 C8"}));
    Refresh();
    EXPECT_EQ(Edits(kCh2), (Texts{"0001", "0002", "0300", "0200"}));
  }
}

TEST_F(Pip, PushedPositionIsWhatApplyWrites) {
  Open({15, 0, 0, 0, 0});
  Slide(1055, 1280);
  Slide(1057, 1000);
  EXPECT_EQ(CallsOf(kApplyButton), Calls{"set block 13,0,8: 03 98 00 32 03 E8 01 68"});
}

// The rewritten edit shows the value from before Apply: deliberate.
TEST_F(Pip, ApplyLimitsToTheFrameAndRewritesTheEdit) {
  Open({15, 0, 0, 0, 0});
  TypeAll(kCh1, {"1900", "50", "204", "360"});
  EXPECT_EQ(CallsOf(kApplyButton), Calls{"set block 13,0,8: 06 B4 00 32 00 CC 01 68"});  // 1716
  EXPECT_EQ(Edits(kCh1), (Texts{"0100", "50", "204", "360"}));
  EXPECT_EQ(Sliders(kCh1), (std::vector<int>{1716, 50, 204, 360}));
  EXPECT_EQ(Ranges(kCh1)[kHPos], (Range{0, 1716}));
  // Once more: the value before is now the limited one.
  TypeAll(kCh1, {"1900", "1079", "204", "200"});
  EXPECT_EQ(CallsOf(kApplyButton), Calls{"set block 13,0,8: 06 B4 03 70 00 CC 00 C8"});
  EXPECT_EQ(Edits(kCh1), (Texts{"1716", "0050", "204", "200"}));
}

// To the frame and to 0: a size is never raised.
TEST_F(Pip, ApplyLimitsToTheFrameAndToZero) {
  Open({15, 0, 0, 0, 0});
  TypeAll(kCh1, {"0", "0", "203", "159"});
  EXPECT_EQ(CallsOf(kApplyButton), Calls{"set block 13,0,8: 00 00 00 00 00 CB 00 9F"});
  EXPECT_EQ(Edits(kCh1), (Texts{"0", "0", "203", "159"}));
  TypeAll(kCh1, {"1920", "1080", "0", "0"});
  EXPECT_EQ(CallsOf(kApplyButton), Calls{"set block 13,0,8: 07 80 04 38 00 00 00 00"});
  TypeAll(kCh1, {"0", "0", "-1", "-200"});
  EXPECT_EQ(CallsOf(kApplyButton), Calls{"set block 13,0,8: 00 00 00 00 00 00 00 00"});
  EXPECT_EQ(Edits(kCh1), (Texts{"0", "0", "0000", "0000"}));
  TypeAll(kCh1, {"0", "0", "204", "160"});
  EXPECT_EQ(CallsOf(kApplyButton), Calls{"set block 13,0,8: 00 00 00 00 00 CC 00 A0"});
  TypeAll(kCh1, {"0", "0", "1921", "1081"});
  EXPECT_EQ(CallsOf(kApplyButton), Calls{"set block 13,0,8: 00 00 00 00 07 80 04 38"});
  EXPECT_EQ(Edits(kCh1), (Texts{"0", "0", "0204", "0160"}));
  TypeAll(kCh1, {"-5", "-1", "9999", "9999"});
  EXPECT_EQ(CallsOf(kApplyButton), Calls{"set block 13,0,8: 00 00 00 00 07 80 04 38"});
  EXPECT_EQ(Edits(kCh1), (Texts{"0000", "0000", "1920", "1080"}));
  // What just fits stays as it was typed.
  TypeAll(kCh1, {"1716", "920", "204", "160"});
  EXPECT_EQ(CallsOf(kApplyButton), Calls{"set block 13,0,8: 06 B4 03 98 00 CC 00 A0"});
  EXPECT_EQ(Edits(kCh1), (Texts{"1716", "920", "204", "160"}));
}

TEST_F(Pip, EditWithoutNumberEndsTheApplyThere) {
  Open({15, 0, 0, 0, 0}, 6);
  for (const char* text : {"", "   ", "x12", "-"}) {
    for (int i = 0; i < 4; ++i) {
      SetInset(100, 50, 640, 360);
      SetSecondInset(1, 2, 300, 200);
      Refresh();
      TypeAll(kCh1, {"10", "20", "400", "300"});
      desk.Type(kPage, kCh1.edits[i], text);
      EXPECT_EQ(CallsOf(kApplyButton), Calls{}) << i << text;
      EXPECT_EQ(Sliders(kCh1), (std::vector<int>{100, 50, 640, 360})) << i << text;
      // In the second channel: the first is written.
      TypeAll(kCh1, {"10", "20", "400", "300"});
      TypeAll(kCh2, {"11", "21", "401", "301"});
      desk.Type(kPage, kCh2.edits[i], text);
      EXPECT_EQ(CallsOf(kApplyButton), Calls{"set block 13,0,8: 00 0A 00 14 01 90 01 2C"});
      EXPECT_EQ(Sliders(kCh2), (std::vector<int>{1, 2, 300, 200})) << i << text;
    }
  }
}

TEST_F(Pip, NumberMayHaveTextBehindIt) {
  Open({15, 0, 0, 0, 0});
  TypeAll(kCh1, {" 10", "20px", "+400", "300 "});
  EXPECT_EQ(CallsOf(kApplyButton), Calls{"set block 13,0,8: 00 0A 00 14 01 90 01 2C"});
}

TEST_F(Pip, SlidersWriteNothingUntilApply) {
  Open({15, 0, 0, 0, 0});
  for (const int slider : kCh1.sliders) EXPECT_EQ(Slide(slider, 300), Calls{});
  EXPECT_EQ(CallsOf(kApplyButton), Calls{"set block 13,0,8: 01 2C 01 2C 01 2C 01 2C"});
}

TEST_F(Pip, InsetGreaterThanTheFrameIsShownAndLimitedByApply) {
  Open({15, 0, 0, 0, 0});
  SetInset(0xFFFF, 3000, 2500, 0xFFFF);
  Refresh();
  EXPECT_EQ(Edits(kCh1), (Texts{"65535", "3000", "2500", "65535"}));
  EXPECT_EQ(Sliders(kCh1), (std::vector<int>{0, 0, 1920, 1080}));
  EXPECT_EQ(CallsOf(kApplyButton), Calls{"set block 13,0,8: 00 00 00 00 07 80 04 38"});
  // A smaller size brings it in, and the slider with it.
  SetInset(3000, 0, 2500, 360);
  Refresh();
  Slide(1057, 600);
  EXPECT_EQ(Edits(kCh1)[kHPos], "1320");
  EXPECT_EQ(Sliders(kCh1)[kHPos], 1320);
}

TEST_F(Pip, TakesTheHandleOfABoxThatCameBack) {
  Open({15, 0, 0, 0, 0});
  box.SetPresent(false);
  for (int i = 0; i < 3; ++i) Tick();
  box.SetPresent(true);
  device.AnswerHandle(0x77);
  Tick();
  panel->OpenPage(PageCode::kPip);
  SetInset(1, 2, 300, 200);
  Press(kPictureButton);
  EXPECT_EQ(Edits(kCh1), (Texts{"0001", "0002", "0300", "0200"}));
}

// The box's first place of an inset is there when the page is opened for the first time.
TEST_F(Pip, FirstOpeningKnowsNoModeYet) {
  StartWith({15, 0, 0, 0, 0});
  box.Block(1)[0] = 6;
  panel->OpenPage(PageCode::kPip);
  EXPECT_EQ(TakeCalls(), Join({{"set block 13,0,8" + kOnes, "set word 0,10 = 2"}, Reads(15, 6)}));
  EXPECT_EQ(Edits(kCh1), (Texts{"0100", "0100", "0640", "0360"}));
  EXPECT_EQ(Edits(kCh2), (Texts{"1100", "0100", "0640", "0360"}));
}

TEST_F(Pip, ModeSurvivesTheLossOfTheBox) {
  Open({15, 0, 0, 0, 0}, 6);
  box.SetPresent(false);
  for (int i = 0; i < 3; ++i) Tick();
  box.SetPresent(true);
  Tick();
  TakeCalls();
  panel->OpenPage(PageCode::kPip);
  EXPECT_EQ(TakeCalls(),
            Join({{"set block 13,0,8" + kOnes, "set word 0,10 = 2", "set block 14,0,8" + kOnes},
                  Reads(15, 6)}));
}

TEST_F(Pip, ModeOfAnotherTypeAsksATypeWithoutInsetsNothing) {
  Open({15, 0, 0, 0, 0}, 6);
  admitted = {26};  // the list that the panel looks at
  box.SetPresent(false);
  for (int i = 0; i < 3; ++i) Tick();
  box.Become({26, 0, 0, 0, 0}, 0x0126);
  box.SetPresent(true);
  Tick();
  ASSERT_EQ(panel->Panel().identity.boxType, 26);
  TakeCalls();
  panel->OpenPage(PageCode::kPip);
  for (const int button : {kPictureButton, kApplyButton, kDefaultButton}) Press(button);
  EXPECT_EQ(TakeCalls(), Calls{});
}

TEST_F(Pip, EditsTakeWhatIsTyped) {
  Open({15, 0, 0, 0, 0}, 6);
  for (const Controls& channel : {kCh1, kCh2}) {
    TypeAll(channel, {"000000100", "123456789012345678901", "0000000000300", "0x"});
    EXPECT_EQ(Edits(channel), (Texts{"000000100", "123456789012345678901", "0000000000300", "0x"}));
  }
  // Numbers are limited, however long they are.
  TypeAll(kCh1, {"99999", "-99999", "000000400", "4294967596"});
  TypeAll(kCh2, {"0000000011", "70000", "65836", "12345678901234567890"});
  EXPECT_EQ(CallsOf(kApplyButton), (Calls{"set block 13,0,8: 05 F0 00 00 01 90 04 38",
                                          "set block 14,0,8: 00 00 00 00 07 80 04 38"}));
}

TEST_F(Pip, ModesComeAndGo) {
  Open({15, 0, 0, 0, 0}, 3);
  EXPECT_FALSE(desk.Enables(kPage, 1055));
  for (const int mode : {6, 4, 3, 7}) {
    box.Block(1)[0] = static_cast<std::uint8_t>(mode);
    Refresh();
    for (const int slider : kCh1.sliders) EXPECT_EQ(desk.Enables(kPage, slider), mode != 3);
    EXPECT_EQ(desk.PlaceOf(kPage, 1050).height, mode == 6 ? 150 : 240);
    EXPECT_EQ(desk.PlaceOf(kPage, kCh1.edits[3]).y, mode == 6 ? 120 : 220);
    for (const int edit : kCh2.edits) EXPECT_EQ(desk.Shows(kPage, edit), mode == 6);
    EXPECT_EQ(desk.Shows(kPage, kCh2.frame), mode == 6);
  }
}

TEST_F(Pip, OnlyTheLowByteOfAWordCounts) {
  Open({15, 0, 0, 0, 0});
  box.Word(5) = {0xAB02, 0xFFFF};
  box.Word(6) = {0x1202, 0xFFFF};
  Refresh();
  EXPECT_EQ(desk.SliderRange(kPage, 1057).second, 720);
}

TEST_F(Pip, FailedWritesAreNotMinded) {
  Open({15, 0, 0, 0, 0}, 6);
  TypeAll(kCh1, {"10", "20", "400", "300"});
  TypeAll(kCh2, {"11", "21", "401", "301"});
  device.Fail("set block 13,0,8: 00 0A 00 14 01 90 01 2C");
  EXPECT_EQ(CallsOf(kApplyButton), (Calls{"set block 13,0,8: 00 0A 00 14 01 90 01 2C",
                                          "set block 14,0,8: 00 0B 00 15 01 91 01 2D"}));
}

TEST_F(Pip, SecondInsetIsLimitedLikeTheFirst) {
  Open({15, 0, 0, 0, 0}, 6);
  SetSecondInset(100, 50, 640, 360);
  Refresh();
  TypeAll(kCh2, {"1900", "1079", "203", "200"});
  const Calls written = CallsOf(kApplyButton);
  ASSERT_EQ(written.size(), 2U);
  EXPECT_EQ(written[1], "set block 14,0,8: 06 B5 03 70 00 CB 00 C8");
  EXPECT_EQ(Edits(kCh2), (Texts{"0100", "0050", "203", "200"}));
  EXPECT_EQ(Sliders(kCh2), (std::vector<int>{1717, 880, 204, 200}));
}

TEST_F(Pip, ApplyWithoutInsetWritesEightZeroBytes) {
  for (const std::uint8_t mode : Bytes{1, 3, 5, 8}) {
    Open({15, 0, 0, 0, 0}, mode);
    EXPECT_EQ(CallsOf(kApplyButton), Calls{"set block 13,0,8: 00 00 00 00 00 00 00 00"});
  }
}

TEST_F(Pip, ApplyAndDefaultSilenceTheMonitor) {
  Open({15, 0, 0, 0, 0});
  Press(kApplyButton);
  EXPECT_EQ(panel->Panel().tickSkip, 5);
  Press(kDefaultButton);
  EXPECT_EQ(panel->Panel().tickSkip, 2);
  Press(kPageUpButton);
  EXPECT_EQ(panel->Panel().cycleState, 0);
}

}  // namespace
}  // namespace panelora::testing
