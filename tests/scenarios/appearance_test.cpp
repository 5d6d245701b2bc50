// How the controls of every page look from the start, compared as a whole.
#include <map>
#include <set>

#include "tests/support/panel_test.h"

namespace panelora::testing {
namespace {

using ui::ControlKind;

class Appearance : public PanelTest {};

constexpr ui::Font kSmall{"Arial", 120};   // 12 points
constexpr ui::Font kMedium{"Arial", 130};  // 13 points
constexpr ui::Font kLarge{"Arial", 182};   // 18.2 points
constexpr ui::Font kNoFont{"", 0};

// The values that a ">>" steps, and the text of a label.
const std::map<int, std::set<int>> kLargeTexts = {
    {res::kVideoSettings,
     {1019, 1025, 1048, 1028, 1036, 1023, 1084, 1040, 1044, 1052, 1056, 1060, 1064,
      1069, 1073, 1077, 1080, 1087, 1090, 1093, 1097, 1100, 1104, 1108, 1112}},
    {res::kDisplayMode, {1045, 1048, 1051, 1054, 1061}},
    {res::kGenlock, {1079, 1094}},
    {res::kRoi, {1045}},
    {res::kTextLabels, {1112, 1115}},
};

TEST_F(Appearance, TextsAreSmallAndValuesLarge) {
  Start();
  for (int page = res::kInformation; page <= res::kTextLabels; ++page) {
    const auto large = kLargeTexts.find(page);
    for (const ui::ControlTemplate& control : res::FindDialog(page)->controls) {
      ui::Font font = kSmall;
      if (large != kLargeTexts.end() && large->second.contains(control.id)) font = kLarge;
      if (page == res::kProcAmp && control.id == 1027) font = kMedium;
      if (page == res::kVideoMenu && control.kind == ControlKind::kGroup) font = kNoFont;
      // Hardware Reset is the one picture on a page that has a font for its text.
      const bool drawn = control.kind == ControlKind::kSlider ||
                         (control.kind == ControlKind::kPictureButton && page != res::kSetting);
      if (drawn) font = kNoFont;
      EXPECT_EQ(desk.FontOf(page, control.id), font) << page << " " << control.id;
    }
  }
}

}  // namespace
}  // namespace panelora::testing
