// How the controls of every page look from the start, compared as a whole.
#include <map>
#include <set>

#include "tests/support/scenario.h"

namespace panelora::testing {
namespace {

using ui::ControlKind;

class Appearance : public Scenario {};

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

using Texts = std::vector<std::pair<int, std::string>>;

TEST_F(Appearance, MultiViewPagesHaveTheirTextsBeforeTheyReadABox) {
  const std::map<int, Texts> pages = {
      {res::kDisplayMode,
       {{1044, "Dispalye Mode"},
        {1003, ""},
        {1045, "Mode 1"},
        {1046, ">>"},
        {1047, "Main Channel"},
        {1004, ""},
        {1048, "Channel 1"},
        {1049, ">>"},
        {1050, "Sub Channel 1"},
        {1005, ""},
        {1051, "Channel 1"},
        {1052, ">>"},
        {1053, "Sub Channel 2"},
        {1006, ""},
        {1054, "Channel 2"},
        {1055, ">>"},
        {1060, "Input Lebels"},
        {1007, ""},
        {1061, "OFF"},
        {1062, ">>"},
        {1056, "Input 1 Labels :"},
        {1057, "Input 2 Labels :"},
        {1058, "Input 3 Labels :"},
        {1059, "Input 4 Labels :"},
        {1109, ""},
        {1110, ""},
        {1111, ""},
        {1112, ""}}},
      {res::kPip,
       {{1050, "CH 1"},
        {1051, "H. Position"},
        {1052, "V. Position"},
        {1053, "H. Size"},
        {1054, "V. Size"},
        {1063, "CH 2"},
        {1064, "H. Position"},
        {1065, "V. Position"},
        {1066, "H. Size"},
        {1067, "V. Size"}}},
      {res::kGenlock,
       {{1077, "Genlock Mode"},
        {1078, ""},
        {1079, "Free-Run"},
        {1080, ">>"},
        {1092, "Sync Mode"},
        {1093, ""},
        {1094, "75 ohms termination"},
        {1095, ">>"},
        {1081, "Info"},
        {1082, "Sync Input Format :"},
        {1083, "-  NO SIGNAL  -"},
        {1084, "V Sync Delay :"},
        {1108, "<<"},
        {1107, ">>"},
        {1105, "0"},
        {1088, "0"},
        {1090, "H"},
        {1085, "H Sync Delay :"},
        {1110, "<<"},
        {1109, ">>"},
        {1106, "0"},
        {1089, "0"},
        {1091, "Clock"}}},
      {res::kImageAdjust,
       {{1087, "Horizontal Position"},
        {1088, "Vertical Position"},
        {1089, "Horizontal Size"},
        {1090, "Vertical Size"},
        {1091, "+"},
        {1092, "-"},
        {1093, "+"},
        {1094, "-"},
        {1095, "+"},
        {1096, "-"},
        {1097, "+"},
        {1098, "-"}}},
      {res::kRoi,
       {{1044, "Display Mode"},
        {1003, ""},
        {1045, "Full Screen"},
        {1100, ">>"},
        {1102, "adjust ROI"},
        {1051, "H. Pos"},
        {1052, "V. Pos"},
        {1053, "H. Size"},
        {1054, "V. Size"}}},
      {res::kTextLabels,
       {{1110, "Text Labels Enable"},
        {1111, ""},
        {1112, "Disable"},
        {1113, ">>"},
        {1114, "Text Labels"},
        {1115, ""}}},
  };
  box.SetPresent(false);
  Start();
  for (const auto& [page, texts] : pages) {
    for (const auto& [control, text] : texts) {
      EXPECT_EQ(desk.Text(page, control), text) << page << " " << control;
    }
  }
}

}  // namespace
}  // namespace panelora::testing
