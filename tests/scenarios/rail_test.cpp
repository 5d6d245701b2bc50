// The rail behind the navigation buttons says which page is shown, and which of its sub-pages.
#include "tests/support/scenario.h"

namespace panelora::testing {
namespace {

class RailTest : public Scenario {
 protected:
  std::string Shown(int picture) {
    return desk.Shows(res::kMain, picture) ? desk.Picture(res::kMain, picture) : "";
  }
  std::string Mark() { return Shown(kPageMark); }
  std::string Dots() { return Shown(kSubPageDots); }
};

TEST_F(RailTest, FollowsThePages) {
  StartWith(0x0126);
  EXPECT_EQ(Shown(kRail), "RAIL");
  EXPECT_EQ(Mark(), "MARK_INFORMATION");
  EXPECT_EQ(Dots(), "");
  Press(kAudioButton);
  EXPECT_EQ(Mark(), "MARK_AUDIO");
  EXPECT_EQ(Dots(), "");
  Press(kReturnButton);
  EXPECT_EQ(Mark(), "MARK_INFORMATION");
  Press(kVideoButton);
  EXPECT_EQ(Mark(), "MARK_VIDEO");
  panel->OpenPage(PageCode::kVideoSettings);
  EXPECT_EQ(Mark(), "MARK_VIDEO_SETTINGS");
  Press(kReturnButton);
  EXPECT_EQ(Mark(), "MARK_VIDEO");
}

TEST_F(RailTest, HasAMarkOfItsOwnForEveryPage) {
  StartWith(Identity{46, 0, 0, 0, 0});
  std::vector<std::string> marks;
  for (int code = 0; code <= static_cast<int>(PageCode::kTextLabels); ++code) {
    panel->OpenPage(static_cast<PageCode>(code));
    EXPECT_EQ(Mark().substr(0, 5), "MARK_") << code;
    marks.push_back(Mark());
  }
  std::sort(marks.begin(), marks.end());
  EXPECT_EQ(std::unique(marks.begin(), marks.end()), marks.end());
}

TEST_F(RailTest, HasADotForEachSubPageThatPageUpLeadsTo) {
  StartWith(0x0126);
  panel->OpenPage(PageCode::kVideoSettings);
  EXPECT_EQ(Dots(), "DOTS_1_OF_2");
  Press(kPageUpButton);
  EXPECT_EQ(Dots(), "DOTS_2_OF_2");
  Press(kPageUpButton);
  EXPECT_EQ(Dots(), "DOTS_1_OF_2");
  Press(kPageUpButton);
  Press(kReturnButton);
  EXPECT_EQ(Dots(), "");
  panel->OpenPage(PageCode::kProcAmp);
  EXPECT_EQ(Dots(), "DOTS_1_OF_2");
}

TEST_F(RailTest, HasThreeDotsWhereThereAreThreeSubPages) {
  StartWith(Identity{37, 0, 0, 0, 0});
  panel->OpenPage(PageCode::kVideoSettings);
  EXPECT_EQ(Dots(), "DOTS_1_OF_3");
  Press(kPageUpButton);
  EXPECT_EQ(Dots(), "DOTS_2_OF_3");
  Press(kPageUpButton);
  EXPECT_EQ(Dots(), "DOTS_3_OF_3");
}

// Page Up is not there to lead to the RGB view of other types.
TEST_F(RailTest, HasNoDotsWithoutPageUp) {
  StartWith(Identity{46, 0, 0, 0, 0});
  panel->OpenPage(PageCode::kProcAmp);
  EXPECT_FALSE(desk.Shows(res::kMain, kPageUpButton));
  EXPECT_EQ(Dots(), "");
}

TEST_F(RailTest, GoesAndComesWithTheBox) {
  StartWith(0x0126);
  panel->OpenPage(PageCode::kVideoSettings);
  Press(kPageUpButton);
  box.SetPresent(false);
  for (int tick = 0; tick < 3; ++tick) Tick();
  ExpectDisconnectedLook();
  EXPECT_EQ(Shown(kRail), "");
  EXPECT_EQ(Mark(), "");
  EXPECT_EQ(Dots(), "");
  box.SetPresent(true);
  Tick();
  ExpectConnectedLook();
  EXPECT_EQ(Shown(kRail), "RAIL");
  EXPECT_EQ(Mark(), "MARK_INFORMATION");
  EXPECT_EQ(Dots(), "");
}

}  // namespace
}  // namespace panelora::testing
