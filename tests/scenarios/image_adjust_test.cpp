// The Image adjustment page.
#include "tests/support/one_page.h"

namespace panelora::testing {
namespace {

constexpr int kPage = res::kImageAdjust;
constexpr int kButtons[] = {1091, 1092, 1093, 1094, 1095, 1096, 1097, 1098};

class ImageAdjust : public OnePage<kPage> {
 protected:
  void Open(Identity identity = {26, 0, 0, 0, 0}) { StartWith(identity); }
  // Whether positions and sizes can be stepped.
  std::pair<bool, bool> Enabled() {
    for (int i = 1; i < 4; ++i) {
      EXPECT_EQ(desk.Enables(kPage, 1091 + i), desk.Enables(kPage, 1091));
      EXPECT_EQ(desk.Enables(kPage, 1095 + i), desk.Enables(kPage, 1095));
    }
    return {desk.Enables(kPage, 1091), desk.Enables(kPage, 1095)};
  }
  // What the page says of buttons that can't be used.
  std::string Reason() { return desk.Shows(kPage, 1101) ? desk.Text(kPage, 1101) : ""; }
};

TEST_F(ImageAdjust, OpensOnModel26WithARestoreAndItsReads) {
  Open();
  Press(kVideoButton);
  desk.Press(res::kVideoMenu, 1007);
  EXPECT_EQ(TakeCalls(), (Calls{"set word 0,3 = 3", "get word 0,4", "get word 0,7",
                                "get block 18,0,2", "get block 17,0,4"}));
}

TEST_F(ImageAdjust, LaysOutOneFrameOnModels26And50) {
  for (const std::uint8_t type : Bytes{26, 50}) {
    Open({type, 0, 0, 0, 0});
    panel->OpenPage(PageCode::kImageAdjust);
    EXPECT_FALSE(desk.Shows(kPage, 1100));
    EXPECT_TRUE(desk.Shows(kPage, 1099));
    const int tops[] = {45, 105, 165, 225};
    for (int row = 0; row < 4; ++row) {
      EXPECT_EQ(desk.PlaceOf(kPage, 1087 + row), (Rect{80, tops[row], 200, 40}));
      EXPECT_EQ(desk.PlaceOf(kPage, 1091 + 2 * row), (Rect{310, tops[row], 40, 40}));
      EXPECT_EQ(desk.PlaceOf(kPage, 1092 + 2 * row), (Rect{360, tops[row], 40, 40}));
    }
    panel.reset();
  }
}

TEST_F(ImageAdjust, LaysOutTwoFramesOnOtherModels) {
  for (const std::uint8_t type : Bytes{24, 34, 23, 42, 25, 29}) {
    Open({type, 0, 0, 0, 0});
    panel->OpenPage(PageCode::kImageAdjust);
    EXPECT_EQ(desk.Text(kPage, 1099), "Position Adjust(VGA only)");
    EXPECT_EQ(desk.PlaceOf(kPage, 1099), (Rect{45, 5, 390, 135}));
    EXPECT_EQ(desk.PlaceOf(kPage, 1100), (Rect{45, 140, 390, 140}));
    EXPECT_TRUE(desk.Shows(kPage, 1100));
    panel.reset();
  }
}

TEST_F(ImageAdjust, CaptionsAndFonts) {
  Open();
  const std::pair<int, const char*> texts[] = {{1087, "Horizontal Position"},
                                               {1088, "Vertical Position"},
                                               {1089, "Horizontal Size"},
                                               {1090, "Vertical Size"},
                                               {1091, "+"},
                                               {1092, "-"},
                                               {1097, "+"},
                                               {1098, "-"}};
  for (const auto& [id, text] : texts) {
    EXPECT_EQ(desk.Text(kPage, id), text);
    EXPECT_EQ(desk.FontOf(kPage, id), (ui::Font{"Arial", 120})) << id;
  }
}

TEST_F(ImageAdjust, Model26EnablesPositionsOnVgaAndSizesOnUnderScan) {
  Open();
  panel->OpenPage(PageCode::kImageAdjust);
  EXPECT_EQ(Enabled(), std::make_pair(false, false));
  box.Word(4) = {2, 0};
  box.Word(7) = {5, 0};
  Press(kPictureButton);
  EXPECT_EQ(Enabled(), std::make_pair(true, true));
  box.Word(4) = {4, 0};
  Press(kPictureButton);
  EXPECT_EQ(Enabled(), std::make_pair(false, true));
  box.Word(7) = {6, 0};
  Press(kPictureButton);
  EXPECT_EQ(Enabled(), std::make_pair(false, false));
}

TEST_F(ImageAdjust, SaysWhyButtonsCantBeUsed) {
  Open();
  panel->OpenPage(PageCode::kImageAdjust);
  EXPECT_EQ(Reason(), "Position needs the VGA input.  Size needs UnderScan.");
  box.Word(4) = {2, 0};
  Press(kPictureButton);
  EXPECT_EQ(Reason(), "Size needs UnderScan.");
  box.Word(7) = {5, 0};
  Press(kPictureButton);
  EXPECT_EQ(Reason(), "");
  box.Word(4) = {0, 0};
  Press(kPictureButton);
  EXPECT_EQ(Reason(), "Position needs the VGA input.");
  device.Fail("get word 0,4");
  box.Word(4) = {2, 0};
  Press(kPictureButton);
  EXPECT_EQ(Reason(), "Position needs the VGA input.");
  panel.reset();
  device.FailNothing();
  Open({24, 0, 0, 0, 0});
  panel->OpenPage(PageCode::kImageAdjust);
  EXPECT_EQ(Reason().substr(0, 32), "Position can't be adjusted here.");
}

TEST_F(ImageAdjust, FailedReadLeavesTheEnabling) {
  Open();
  box.Word(4) = {2, 0};
  box.Word(7) = {5, 0};
  panel->OpenPage(PageCode::kImageAdjust);
  device.Fail("get word 0,4");
  device.Fail("get word 0,7");
  box.Word(4) = {1, 0};
  box.Word(7) = {1, 0};
  Press(kPictureButton);
  EXPECT_EQ(Enabled(), std::make_pair(true, true));
}

TEST_F(ImageAdjust, DisabledButtonsWriteNothing) {
  Open();
  panel->OpenPage(PageCode::kImageAdjust);
  for (const int button : kButtons) EXPECT_EQ(CallsOfPress(button), Calls{}) << button;
}

class ImageAdjustOpen : public ImageAdjust {
 protected:
  void OpenWith(std::vector<std::uint8_t> position, std::vector<std::uint8_t> size) {
    Open();
    box.Word(4) = {2, 0};
    box.Word(7) = {5, 0};
    panel->OpenPage(PageCode::kImageAdjust);
    box.Block(17) = std::move(position);
    box.Block(18) = std::move(size);
    Press(kPictureButton);
  }
};

TEST_F(ImageAdjustOpen, PressWritesThePairBigEndian) {
  OpenWith({0x01, 0x2B, 0x00, 0x32}, {99, 100});
  EXPECT_EQ(CallsOfPress(1091), Calls{"set block 17,0,4: 01 2C 00 32"});  // 300, 50
  EXPECT_EQ(CallsOfPress(1092), Calls{"set block 17,0,4: 01 2B 00 32"});
  EXPECT_EQ(CallsOfPress(1093), Calls{"set block 17,0,4: 01 2B 00 33"});
  EXPECT_EQ(CallsOfPress(1094), Calls{"set block 17,0,4: 01 2B 00 32"});
  EXPECT_EQ(CallsOfPress(1095), Calls{"set block 18,0,2: 64 64"});
  EXPECT_EQ(CallsOfPress(1098), Calls{"set block 18,0,2: 64 63"});
}

TEST_F(ImageAdjustOpen, PositionsStopAtTheirEnds) {
  OpenWith({0x02, 0x57, 0x00, 99}, {100, 100});  // 599, 99
  EXPECT_EQ(CallsOfPress(1091), Calls{"set block 17,0,4: 02 58 00 63"});
  EXPECT_EQ(CallsOfPress(1091), Calls{"set block 17,0,4: 02 58 00 63"});  // 600 again
  EXPECT_EQ(CallsOfPress(1093), Calls{"set block 17,0,4: 02 58 00 64"});
  EXPECT_EQ(CallsOfPress(1093), Calls{"set block 17,0,4: 02 58 00 64"});
  panel.reset();
  OpenWith({0, 6, 0, 6}, {100, 100});
  EXPECT_EQ(CallsOfPress(1092), Calls{"set block 17,0,4: 00 05 00 06"});
  EXPECT_EQ(CallsOfPress(1092), Calls{"set block 17,0,4: 00 05 00 06"});
  EXPECT_EQ(CallsOfPress(1094), Calls{"set block 17,0,4: 00 05 00 05"});
  EXPECT_EQ(CallsOfPress(1094), Calls{"set block 17,0,4: 00 05 00 05"});
}

TEST_F(ImageAdjustOpen, SizesWrapRound) {
  OpenWith({0, 5, 0, 5}, {99, 81});
  EXPECT_EQ(CallsOfPress(1095), Calls{"set block 18,0,2: 64 51"});
  EXPECT_EQ(CallsOfPress(1095), Calls{"set block 18,0,2: 50 51"});  // 100 and one more: 80
  EXPECT_EQ(CallsOfPress(1096), Calls{"set block 18,0,2: 64 51"});  // 80 and one less: 100
  EXPECT_EQ(CallsOfPress(1098), Calls{"set block 18,0,2: 64 50"});
  EXPECT_EQ(CallsOfPress(1098), Calls{"set block 18,0,2: 64 64"});
  EXPECT_EQ(CallsOfPress(1097), Calls{"set block 18,0,2: 64 50"});
}

TEST_F(ImageAdjustOpen, FailedReadKeepsTheValues) {
  OpenWith({0, 10, 0, 20}, {90, 91});
  device.Fail("get block 17,0,4");
  device.Fail("get block 18,0,2");
  box.Block(17) = {0, 99, 0, 99};
  box.Block(18) = {80, 80};
  Press(kPictureButton);
  EXPECT_EQ(CallsOfPress(1091), Calls{"set block 17,0,4: 00 0B 00 14"});
  EXPECT_EQ(CallsOfPress(1095), Calls{"set block 18,0,2: 5B 5B"});
}

struct ModelRow {
  Identity identity;
  Calls opening;
  Calls horizontalUp;  // of positions that the box gives as 300 and 50
  Calls sizeDown;      // of sizes that the box gives as 100 and 100
};

TEST_F(ImageAdjust, EveryModelReadsAndWritesItsProperties) {
  const ModelRow rows[] = {{{50, 0, 0, 0, 0},
                            {"set block 1,0,1: 03", "get block 3,0,2", "get block 15,0,2",
                             "get block 24,0,2", "get block 31,0,4"},
                            {"set block 31,0,4: 01 2D 00 32"},
                            {"set block 24,0,2: 63 64"}},
                           {{24, 0, 0, 0, 0},
                            {"set word 0,5 = 2", "get word 0,11", "get block 14,0,2"},
                            {},
                            {"set block 14,0,2: 63 64"}},
                           {{34, 1, 0, 0, 0},
                            {"set word 0,5 = 2", "get word 0,11", "get block 14,0,2"},
                            {},
                            {"set block 14,0,2: 63 64"}},
                           {{24, 2, 0, 0, 0},
                            {"set block 1,0,1: 02", "get block 15,0,2", "get block 24,0,2"},
                            {},
                            {"set block 24,0,2: 63 64"}},
                           {{23, 0, 0, 0, 0},
                            {"set word 0,7 = 2", "get block 12,0,2", "get block 13,0,4"},
                            {"set block 13,0,4: 01 2D 00 32"},
                            {"set block 12,0,2: 63 64"}},
                           {{42, 0, 0, 0, 0},
                            {"set word 0,7 = 2", "get block 12,0,2", "get block 13,0,4"},
                            {"set block 13,0,4: 01 2D 00 32"},
                            {"set block 12,0,2: 63 64"}},
                           {{25, 0, 0, 0, 0},
                            {"set word 0,4 = 2", "get block 9,0,2", "get block 18,0,4"},
                            {"set block 18,0,4: 01 2D 00 32"},
                            {"set block 9,0,2: 63 64"}},
                           {{29, 0, 0, 0, 0},
                            {"set word 0,4 = 2", "get block 9,0,2", "get block 18,0,4"},
                            {"set block 18,0,4: 01 2D 00 32"},
                            {"set block 9,0,2: 63 64"}},
                           {{20, 0, 0, 0, 0}, {}, {}, {}}};
  for (const ModelRow& row : Tried(rows)) {
    Open(row.identity);
    // Whatever enables the buttons of this model.
    if (row.identity.boxType == 50) box.Block(15) = {5, 0};
    if (row.identity.boxType == 24 || row.identity.boxType == 34) box.Block(15) = {3, 0};
    panel->OpenPage(PageCode::kImageAdjust);
    EXPECT_EQ(TakeCalls(), row.opening) << int{row.identity.boxType};
    EXPECT_EQ(CallsOfPress(1091), row.horizontalUp) << int{row.identity.boxType};
    EXPECT_EQ(CallsOfPress(1096), row.sizeDown) << int{row.identity.boxType};
    panel.reset();
  }
}

TEST_F(ImageAdjust, ScalersEnableSizesOnlyForOneAspectRatio) {
  for (const std::uint8_t brand : Bytes{0, 2}) {
    Open({24, brand, 0, 0, 0});
    for (const std::uint8_t aspect : Bytes{3, 2, 5}) {
      box.Block(15) = {aspect, 0};
      box.Word(11) = {aspect, 0};
      panel->OpenPage(PageCode::kImageAdjust);
      EXPECT_EQ(Enabled(), std::make_pair(false, aspect == 3)) << int{brand};
    }
    panel.reset();
  }
}

TEST_F(ImageAdjust, FramesAndRowsHaveTheirPlaces) {
  Open();
  panel->OpenPage(PageCode::kImageAdjust);
  EXPECT_EQ(desk.Text(kPage, 1099), "Image Adjust");
  EXPECT_EQ(desk.PlaceOf(kPage, 1099), (Rect{45, 15, 390, 265}));
  panel.reset();
  Open({23, 0, 0, 0, 0});
  panel->OpenPage(PageCode::kImageAdjust);
  const int tops[] = {35, 85, 170, 225};
  for (int row = 0; row < 4; ++row) {
    EXPECT_EQ(desk.PlaceOf(kPage, 1091 + 2 * row), (Rect{310, tops[row], 40, 40}));
  }
}

TEST_F(ImageAdjust, FailedReadsOfOtherModelsKeepValuesAndEnabling) {
  struct Row {
    Identity identity;
    const char* enabling;
    const char* sizes;
    int sizeBlock;
  };
  const Row rows[] = {{{50, 0, 0, 0, 0}, "get block 15,0,2", "get block 24,0,2", 24},
                      {{24, 0, 0, 0, 0}, "get word 0,11", "get block 14,0,2", 14},
                      {{34, 2, 0, 0, 0}, "get block 15,0,2", "get block 24,0,2", 24}};
  for (const Row& row : rows) {
    Open(row.identity);
    box.Block(15) = {static_cast<std::uint8_t>(row.identity.boxType == 50 ? 5 : 3), 0};
    box.Block(static_cast<std::uint8_t>(row.sizeBlock)) = {90, 91};
    panel->OpenPage(PageCode::kImageAdjust);
    device.Fail(row.enabling);
    device.Fail(row.sizes);
    box.Block(15) = {0, 0};
    box.Word(11) = {0, 0};
    box.Block(static_cast<std::uint8_t>(row.sizeBlock)) = {80, 80};
    Press(kPictureButton);
    EXPECT_TRUE(Enabled().second) << int{row.identity.boxType};
    EXPECT_EQ(CallsOfPress(1095),
              Calls{"set block " + std::to_string(row.sizeBlock) + ",0,2: 5B 5B"});
    device.FailNothing();
    panel.reset();
  }
}

TEST_F(ImageAdjust, Model50EnablesByItsBlocks) {
  Open({50, 0, 0, 0, 0});
  for (const std::uint8_t input : Bytes{2, 1}) {
    for (const std::uint8_t aspect : Bytes{5, 3}) {
      box.Block(3) = {input, 0};
      box.Block(15) = {aspect, 0};
      panel->OpenPage(PageCode::kImageAdjust);
      EXPECT_EQ(Enabled(), std::make_pair(input == 2, aspect == 5));
    }
  }
}

TEST_F(ImageAdjust, DefaultRestoresAndReads) {
  Open();
  panel->OpenPage(PageCode::kImageAdjust);
  TakeCalls();
  Press(kDefaultButton);
  EXPECT_EQ(TakeCalls(), (Calls{"set word 0,3 = 3", "get word 0,4", "get word 0,7",
                                "get block 18,0,2", "get block 17,0,4"}));
}

TEST_F(ImageAdjust, ApplyWritesNothing) {
  Open();
  panel->OpenPage(PageCode::kImageAdjust);
  TakeCalls();
  Press(kApplyButton);
  EXPECT_EQ(TakeCalls(), Calls{});
}

TEST_F(ImageAdjust, TakesTheHandleOfABoxThatCameLater) {
  box.SetPresent(false);
  Start();
  box.SetPresent(true);
  device.AnswerHandle(0x77);
  Tick();
  box.Word(4) = {2, 0};
  panel->OpenPage(PageCode::kImageAdjust);
  EXPECT_EQ(Enabled(), std::make_pair(true, false));
}

}  // namespace
}  // namespace panelora::testing
