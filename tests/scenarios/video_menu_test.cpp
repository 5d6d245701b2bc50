// The Video menu page.
#include <map>

#include "tests/support/scenario.h"

namespace panelora::testing {
namespace {

constexpr int kPage = res::kVideoMenu;

class VideoMenu : public Scenario {
 protected:
  // The tops of the buttons that are shown; all of them stand in one column.
  std::map<int, int> ShownButtons() {
    std::map<int, int> shown;
    for (int button = 1002; button <= 1008; ++button) {
      if (!desk.Shows(kPage, button)) continue;
      const Rect place = desk.PlaceOf(kPage, button);
      EXPECT_EQ(place, (Rect{60, place.y, 360, 50})) << button;
      shown[button] = place.y;
    }
    return shown;
  }
};

TEST_F(VideoMenu, Model26ShowsSettingsAboveImageAdjust) {
  Start();
  TakeCalls();
  Press(kVideoButton);
  EXPECT_EQ(TakeCalls(), Calls{});
  EXPECT_EQ(ShownButtons(), (std::map<int, int>{{1002, 85}, {1007, 170}}));
  EXPECT_EQ(desk.PlaceOf(kPage, 1047), (Rect{45, 30, 390, 250}));
}

TEST_F(VideoMenu, RoiPicturesStandTheOtherWayRound) {
  Start();
  const std::pair<int, std::pair<const char*, const char*>> rows[] = {
      {1002, {"VIDEO_SET_BTU_U", "VIDEO_SET_BTU_D"}},
      {1003, {"DISPLAY_SET_BTU_U", "DISPLAY_SET_BTU_D"}},
      {1004, {"TVWALL_SET_BTU_U", "TVWALL_SET_BTU_D"}},
      {1005, {"PIP_SETTING_U", "PIP_SETTING_D"}},
      {1006, {"GENLOCK_U", "GENLOCK_D"}},
      {1007, {"IMAGEADJUST_U", "IMAGEADJUST_D"}},
      {1008, {"ROI_D", "ROI_U"}}};
  for (const auto& [button, pictures] : rows) {
    EXPECT_EQ(desk.Picture(kPage, button), pictures.first);
    EXPECT_EQ(desk.PressedPicture(kPage, button), pictures.second);
  }
}

TEST_F(VideoMenu, CaptionsStayAsTheTemplateHasThem) {
  Start();
  EXPECT_EQ(desk.Text(kPage, 1007), "Image Adjsut");  // deliberate
  EXPECT_EQ(desk.Text(kPage, 1004), "TV WALL");
}

TEST_F(VideoMenu, OtherModelsShowThePagesThatKnowThem) {
  using Layout = std::map<int, int>;
  struct Row {
    Bytes types;
    std::uint8_t brand;
    Layout layout;
  };
  const Row rows[] = {
      {{50}, 0, {{1002, 60}, {1006, 130}, {1007, 200}}},
      {{13, 15, 51}, 0, {{1002, 60}, {1003, 130}, {1005, 200}}},
      {{14, 36, 32, 35}, 0, {{1002, 60}, {1004, 140}, {1008, 210}}},
      {{17, 18, 37, 38}, 0, {{1002, 85}, {1004, 170}}},
      {{20, 33}, 0, {{1002, 85}, {1004, 170}}},
      {{20, 33}, 1, {{1002, 90}, {1006, 180}}},
      {{40}, 0, {{1002, 60}, {1004, 130}, {1006, 200}}},
      {{30, 43, 39, 46, 47, 48, 49}, 0, {{1002, 45}, {1004, 105}, {1006, 165}, {1008, 225}}},
      {{23, 42, 24, 34, 25, 29}, 0, {{1002, 60}, {1007, 130}, {1008, 200}}},
      {{5, 21, 52}, 0, {{1002, 125}}}};
  for (const Row& row : rows) {
    for (const std::uint8_t type : Tried(row.types)) {
      admitted = {type};
      StartWith(0x0126, {type, row.brand, 0, 0, 0});
      Press(kVideoButton);
      const bool asks = type == 13 || type == 15;
      EXPECT_EQ(TakeCalls(), asks ? Calls{"get block 1,0,20"} : Calls{}) << int{type};
      EXPECT_EQ(ShownButtons(), row.layout) << int{type} << " brand " << int{row.brand};
      panel.reset();
    }
  }
}

}  // namespace
}  // namespace panelora::testing
