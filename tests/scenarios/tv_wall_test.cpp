// The TV Wall page: grids, pictures of the tiles, and what a press on a tile writes.
#include "catalogue/wall.h"
#include "tests/support/scenario.h"

namespace panelora::testing {
namespace {

constexpr int kPage = res::kTvWall;
constexpr int kFirst = 1021;
constexpr int kWallButtons[] = {kWall1Button, kWall2Button, kWall3Button, kWall4Button};

// Released and pressed picture of each shown tile, "-" for one that is hidden.
using Pictures = std::vector<std::pair<std::string, std::string>>;

std::string PictureName(int size, int tile, char state) {
  return Format("WND%dX%d_%02d_%c", size, size, tile, state);
}

class TvWall : public Scenario {
 protected:
  void Open(std::uint8_t boxType, int size = 2, int tile = 0) {
    panel.reset();
    StartWith({boxType, 0, 0, 0, 0});
    const auto sizeByte = static_cast<std::uint8_t>(size);
    const auto tileByte = static_cast<std::uint8_t>(tile);
    for (const std::uint8_t block : Bytes{8, 16}) {
      if (!box.Block(block).empty()) box.Block(block) = {sizeByte, tileByte};
    }
    for (const std::uint32_t item : {8U, 10U}) {
      box.Word(item) = {sizeByte, 0};
      box.Word(item + 1) = {tileByte, 0};
    }
    panel->OpenPage(PageCode::kTvWall);
    TakeCalls();
  }
  Calls CallsOfTile(int tile) {
    TakeCalls();
    desk.PressMouse(kPage, kFirst + tile);
    return TakeCalls();
  }
  Pictures Shown() {
    Pictures pictures;
    for (int tile = 0; tile < 16; ++tile) {
      const int control = kFirst + tile;
      if (desk.Shows(kPage, control)) {
        pictures.emplace_back(desk.Picture(kPage, control), desk.PressedPicture(kPage, control));
      } else {
        pictures.emplace_back("-", "-");
      }
    }
    return pictures;
  }
  // What a fresh grid shows, or one with a chosen tile.
  static Pictures Grid(int size) {
    Pictures pictures(16, {"-", "-"});
    for (int tile = 0; tile < size * size; ++tile) {
      pictures[static_cast<std::size_t>(tile)] = {PictureName(size, tile, 'U'),
                                                  PictureName(size, tile, size == 1 ? 'U' : 'D')};
    }
    return pictures;
  }
  static Pictures Chosen(int size, int chosen) {
    Pictures pictures(16, {"-", "-"});
    for (int tile = 0; tile < size * size; ++tile) {
      const std::string picture = PictureName(size, tile, tile == chosen && size > 1 ? 'D' : 'U');
      pictures[static_cast<std::size_t>(tile)] = {picture, picture};
    }
    return pictures;
  }
};

TEST_F(TvWall, GridsStandWhereTheyShould) {
  const std::vector<std::vector<Rect>> grids = {
      {{4, 5, 479, 299}},
      {{4, 5, 240, 150}, {244, 5, 240, 150}, {4, 155, 240, 150}, {244, 155, 240, 150}},
      {{4, 5, 160, 100},
       {164, 5, 160, 100},
       {324, 5, 160, 100},
       {4, 105, 160, 100},
       {164, 105, 160, 100},
       {324, 105, 160, 100},
       {4, 205, 160, 100},
       {164, 205, 160, 100},
       {324, 205, 160, 100}},
      {{4, 5, 120, 75},
       {124, 5, 120, 75},
       {244, 5, 120, 75},
       {364, 5, 120, 75},
       {4, 80, 120, 75},
       {124, 80, 120, 75},
       {244, 80, 120, 75},
       {364, 80, 120, 75},
       {4, 155, 120, 75},
       {124, 155, 120, 75},
       {244, 155, 120, 75},
       {364, 155, 120, 75},
       {4, 230, 120, 75},
       {124, 230, 120, 75},
       {244, 230, 120, 75},
       {364, 230, 120, 75}}};
  Open(14);
  for (const int size : {4, 1, 3, 2, 1, 4}) {
    Press(kWallButtons[size - 1]);
    EXPECT_EQ(TakeCalls(), Calls{}) << size;  // the box learns of it with the tile
    EXPECT_EQ(Shown(), Grid(size)) << size;
    const std::vector<Rect>& places = grids[static_cast<std::size_t>(size - 1)];
    for (std::size_t tile = 0; tile < places.size(); ++tile) {
      EXPECT_EQ(desk.PlaceOf(kPage, kFirst + static_cast<int>(tile)), places[tile])
          << size << " tile " << tile;
    }
  }
}

TEST_F(TvWall, EveryTileOfEveryGridIsShownAsChosenAndWritten) {
  Open(14);
  for (int size = 1; size <= 4; ++size) {
    Press(kWallButtons[size - 1]);
    // Down and up again, so that every tile takes over from another.
    for (int step = 0; step < 2 * size * size; ++step) {
      const int tile = step < size * size ? size * size - 1 - step : step - size * size;
      EXPECT_EQ(CallsOfTile(tile), Calls{Format("set block 8,0,2: %02X %02X", size, tile)});
      EXPECT_EQ(Shown(), Chosen(size, tile)) << size << " tile " << tile;
      EXPECT_EQ(panel->Panel().tilePosition, static_cast<std::uint32_t>(tile));
    }
  }
}

TEST_F(TvWall, TileFiveOfFourByFour) {
  Open(14);
  Press(kWall4Button);
  EXPECT_EQ(CallsOfTile(5), Calls{"set block 8,0,2: 04 05"});
  for (int tile = 0; tile < 16; ++tile) {
    EXPECT_EQ(desk.Picture(kPage, kFirst + tile),
              Format(tile == 5 ? "WND4X4_%02d_D" : "WND4X4_%02d_U", tile));
  }
}

TEST_F(TvWall, TilesAreWrittenAsTheTypeTakesThem) {
  for (int type = 0; type < 255; ++type) {
    Calls expected;
    switch (type) {
      case 46:
      case 47:
      case 48:
      case 49:
      case 39:
      case 40:
      case 37:
      case 38:
        expected = {"set block 16,0,2: 03 07"};
        break;
      case 14:
      case 36:
        expected = {"set block 8,0,2: 03 07"};
        break;
      case 18:
      case 32:
      case 20:
      case 33:
      case 30:
      case 43:
        expected = {"set word 0,8 = 3", "set word 0,9 = 7"};
        break;
      case 17:
      case 35:
        expected = {"set word 0,10 = 3", "set word 0,11 = 7"};
        break;
      default:
        break;
    }
    EXPECT_EQ(wall::Find(static_cast<std::uint8_t>(type)) != nullptr, !expected.empty()) << type;
    // On the page every type of the table, and some of the others.
    if (expected.empty() && type % 16 != 10) continue;
    Open(static_cast<std::uint8_t>(type));
    Press(kWall3Button);
    EXPECT_EQ(CallsOfTile(7), expected) << type;
    EXPECT_EQ(Shown(), Chosen(3, 7)) << type;
  }
}

// The tile that the box reports is known, but none is drawn as chosen until one is pressed.
TEST_F(TvWall, OpeningLaysOutTheGridOfTheBoxAndDrawsNoTileAsChosen) {
  for (const std::uint8_t type : Bytes{14, 46, 18, 17}) {
    Open(type, 3, 4);
    EXPECT_EQ(Shown(), Grid(3)) << int{type};
    EXPECT_EQ(panel->Panel().tilePosition, 4U);
    EXPECT_EQ(CallsOfTile(8).size(), type == 14 || type == 46 ? 1U : 2U);
    EXPECT_EQ(Shown(), Chosen(3, 8)) << int{type};
    // Refresh is the whole opening.
    Press(kPictureButton);
    EXPECT_EQ(Shown(), Grid(3)) << int{type};
    EXPECT_EQ(panel->Panel().tilePosition, 8U);
    panel->OpenPage(PageCode::kTvWall);
    EXPECT_EQ(Shown(), Grid(3)) << int{type};
  }
}

TEST_F(TvWall, OpeningWithATileOutsideTheGridChoosesNone) {
  Open(14, 2, 9);
  EXPECT_EQ(Shown(), Grid(2));
  EXPECT_EQ(panel->Panel().tilePosition, 9U);
}

TEST_F(TvWall, FailedReadKeepsTheEarlierGrid) {
  const std::pair<std::uint8_t, Calls> rows[] = {{14, {"get block 8,0,20"}},
                                                 {46, {"get block 16,0,20"}},
                                                 {18, {"get word 0,8", "get word 0,9"}},
                                                 {17, {"get word 0,10", "get word 0,11"}}};
  for (const auto& [type, reads] : Tried(rows)) {
    for (const std::string& failing : reads) {
      Open(type, 3, 4);
      device.Fail(failing);
      const bool sizeFails = failing == reads.front();
      const bool tileFails = failing == reads.back();
      for (const std::uint8_t block : Bytes{8, 16}) {
        if (!box.Block(block).empty()) box.Block(block) = {4, 1};
      }
      for (const std::uint32_t item : {8U, 10U}) {
        box.Word(item) = {4, 0};
        box.Word(item + 1) = {1, 0};
      }
      panel->OpenPage(PageCode::kTvWall);
      EXPECT_EQ(TakeCalls(), reads);
      EXPECT_EQ(Shown(), Grid(sizeFails ? 3 : 4)) << failing;
      EXPECT_EQ(panel->Panel().tilePosition, tileFails ? 4U : 1U) << failing;
      device.FailNothing();
    }
  }
}

TEST_F(TvWall, SizeOutsideOneToFourLaysOutNothing) {
  for (const int size : {0, 5, 255}) {
    Open(14, size, 0);
    for (int tile = 0; tile < 16; ++tile) {
      EXPECT_TRUE(desk.Shows(kPage, kFirst + tile));
      EXPECT_EQ(desk.Text(kPage, kFirst + tile), "TV Wall 1");
      EXPECT_EQ(desk.Picture(kPage, kFirst + tile), "");
    }
    EXPECT_EQ(desk.PlaceOf(kPage, kFirst + 15), (Rect{282, 193, 77, 46}));  // the template's
    EXPECT_EQ(CallsOfTile(3), Calls{}) << size;
    // A grid that was shown before stays.
    box.Block(8) = {2, 1};
    panel->OpenPage(PageCode::kTvWall);
    box.Block(8) = {static_cast<std::uint8_t>(size), 0};
    panel->OpenPage(PageCode::kTvWall);
    EXPECT_EQ(Shown(), Grid(2));
    EXPECT_EQ(CallsOfTile(2), Calls{"set block 8,0,2: 02 02"});
  }
}

TEST_F(TvWall, GridButtonsChooseTheFirstTileWithoutShowingIt) {
  Open(14, 3, 4);
  Press(kWall3Button);
  EXPECT_EQ(Shown(), Grid(3));
  EXPECT_EQ(panel->Panel().tilePosition, 0U);
  Press(kPictureButton);  // the box was told nothing
  EXPECT_EQ(panel->Panel().tilePosition, 4U);
}

TEST_F(TvWall, ApplyAndHiddenTilesWriteNothing) {
  Open(14, 2, 1);
  TakeCalls();
  Press(kApplyButton);
  EXPECT_EQ(TakeCalls(), Calls{});
  EXPECT_EQ(Shown(), Grid(2));
  desk.PressMouse(kPage, kFirst + 7);
  EXPECT_EQ(TakeCalls(), Calls{});
}

// By Space or Enter, or by a screen reader.
TEST_F(TvWall, APressThatIsNoneOfTheMouseChoosesToo) {
  Open(14, 2, 1);
  TakeCalls();
  desk.Press(kPage, kFirst + 3);
  EXPECT_EQ(TakeCalls(), Calls{"set block 8,0,2: 02 03"});
  EXPECT_EQ(Shown(), Chosen(2, 3));
  desk.PressKey(kPage, kFirst + 1, ui::Key::kEnter);
  EXPECT_EQ(TakeCalls(), Calls{"set block 8,0,2: 02 01"});
  EXPECT_EQ(Shown(), Chosen(2, 1));
}

// The button of a tile that the mouse pressed is pressed when the mouse is let go.
TEST_F(TvWall, AMouseThatIsLetGoChoosesNotAgain) {
  Open(14, 2, 1);
  TakeCalls();
  desk.PressMouse(kPage, kFirst + 2);
  desk.Press(kPage, kFirst + 2);
  EXPECT_EQ(TakeCalls(), Calls{"set block 8,0,2: 02 02"});
  desk.PressMouse(kPage, kFirst + 2);
  EXPECT_EQ(TakeCalls(), Calls{"set block 8,0,2: 02 02"});
  Press(kWall2Button);  // none is drawn as chosen
  desk.Press(kPage, kFirst + 2);
  EXPECT_EQ(TakeCalls(), Calls{"set block 8,0,2: 02 02"});
}

TEST_F(TvWall, TakesTheHandleOfABoxThatCameBack) {
  Open(14);
  box.SetPresent(false);
  Tick();
  box.SetPresent(true);
  device.AnswerHandle(0x77);
  Tick();
  panel->OpenPage(PageCode::kTvWall);
  EXPECT_EQ(CallsOfTile(3), Calls{"set block 8,0,2: 02 03"});
  EXPECT_EQ(box.Block(8), (Bytes{2, 3}));
}

TEST_F(TvWall, FailedWritesAreNotMinded) {
  Open(18, 3, 0);
  device.Fail("set word 0,8 = 3");
  EXPECT_EQ(CallsOfTile(5), (Calls{"set word 0,8 = 3", "set word 0,9 = 5"}));
}

TEST_F(TvWall, OnlyTheLowByteOfAWordCounts) {
  Open(18);
  box.Word(8) = {0xFF03, 1};
  box.Word(9) = {0x1104, 1};
  panel->OpenPage(PageCode::kTvWall);
  EXPECT_EQ(Shown(), Grid(3));
  EXPECT_EQ(panel->Panel().tilePosition, 4U);
}

// Deliberate as on every page without defaults: Default acts on the proc amp. Page Up does nothing.
TEST_F(TvWall, DefaultAndPageUpAreOfOtherPages) {
  Open(14);
  Press(kPageUpButton);
  EXPECT_EQ(TakeCalls(), Calls{});
  Press(kDefaultButton);
  EXPECT_EQ(TakeCalls(), (Calls{"set block 16,0,1: 00", "get proc amp 0,2", "get proc amp 0,3",
                                "get proc amp 0,4", "get proc amp 0,5"}));
  EXPECT_EQ(panel->Panel().tickSkip, 2);
}

// As the box leaves the factory. Some have the size in the low word of their firmware version.
TEST_F(TvWall, EveryBoxOfAWallHasAPlaceInIt) {
  for (const std::uint8_t type :
       Tried(Bytes{14, 17, 18, 20, 30, 32, 33, 35, 36, 37, 38, 39, 40, 43, 46, 47, 48, 49})) {
    panel.reset();
    StartWith({type, 0, 0, 0, 0}, 0x0102);
    panel->OpenPage(PageCode::kTvWall);
    EXPECT_EQ(Shown(), Grid(2)) << int{type};
    EXPECT_EQ(panel->Panel().tilePosition, 0U) << int{type};
  }
}

TEST_F(TvWall, BackgroundIsBlackAndThatOfOtherPagesTheSystems) {
  struct : PendingLight {
    void ShowPending(bool /*pending*/) override {}
  } light;
  PanelState state;
  CTVWallDlg wall({state, device, desk.Toolkit(), light});
  EXPECT_EQ(wall.BackgroundColour(), (ui::Colour{0, 0, 0}));
  CPIPDlg pip({state, device, desk.Toolkit(), light});
  EXPECT_EQ(pip.BackgroundColour(), std::nullopt);
}

}  // namespace
}  // namespace panelora::testing
