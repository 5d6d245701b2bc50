// How the names that a screen reader says follow from what stands on the screen.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "res/dialog_templates.h"
#include "res/spoken_names.h"

namespace panelora {
namespace {

using res::SeenControl;
using res::Spoken;
using res::SpokenOf;
using ui::ControlKind;
using ui::Mark;

constexpr int kAnyPage = res::kVideoSettings;

SeenControl Label(int id, const char* text, ui::Rect rect) {
  return {id, ControlKind::kLabel, text, rect};
}
SeenControl Button(int id, const char* text, ui::Rect rect) {
  return {id, ControlKind::kButton, text, rect};
}
SeenControl Frame(int id, ui::Rect rect, const char* text = "") {
  return {id, ControlKind::kGroup, text, rect};
}
SeenControl Picture(int id, const char* text, const char* picture, Mark mark = Mark::kNone) {
  return {id, ControlKind::kPictureButton, text, {0, 0, 110, 40}, true, mark, picture};
}
SeenControl Input(int id, ControlKind kind, const char* value, ui::Rect rect) {
  return {id, kind, "", rect, true, Mark::kNone, "", value};
}

// An option as pages place it, with the two buttons of an output format.
std::vector<SeenControl> Option(int top, const char* caption, const char* value, int first = 1) {
  return {Label(first, caption, {50, top, 300, 20}), Frame(first + 1, {50, top + 15, 300, 48}),
          Label(first + 2, value, {60, top + 30, 250, 30}),
          Button(first + 3, ">>", {410, top + 23, 40, 39}),
          Button(first + 4, "<<", {360, top + 23, 40, 39})};
}

TEST(SpokenNames, OptionNamesItsFrameItsValueAndItsButtons) {
  auto spoken = SpokenOf(kAnyPage, Option(15, "Output Format", "Dot By Dot"));
  EXPECT_EQ(spoken[1], (Spoken{"Output Format", "", ""}));
  EXPECT_EQ(spoken[2], (Spoken{"Output Format, setting", "", ""}));
  EXPECT_EQ(spoken[3], (Spoken{"Output Format, Dot By Dot", "Dot By Dot", ""}));
  EXPECT_EQ(spoken[4], (Spoken{"Output Format, Dot By Dot, next", "Dot By Dot", ""}));
  EXPECT_EQ(spoken[5], (Spoken{"Output Format, Dot By Dot, previous", "Dot By Dot", ""}));
}

TEST(SpokenNames, OptionsBelowEachOtherKeepApart) {
  std::vector<SeenControl> both = Option(15, "SDI 0 EQ", "LOW", 1);
  for (const SeenControl& each : Option(85, "SDI 1 EQ", "LOW", 11)) both.push_back(each);
  auto spoken = SpokenOf(kAnyPage, both);
  EXPECT_EQ(spoken[4].name, "SDI 0 EQ, LOW, next");
  EXPECT_EQ(spoken[14].name, "SDI 1 EQ, LOW, next");
  EXPECT_EQ(spoken[13].name, "SDI 1 EQ, LOW");
}

// The template has more controls in the same place, all but one group of them hidden.
TEST(SpokenNames, HiddenControlsNameNothing) {
  std::vector<SeenControl> both = Option(15, "Mute", "ON", 1);
  for (SeenControl& each : both) each.shown = false;
  for (const SeenControl& each : Option(15, "Level", "0 dBu", 11)) both.push_back(each);
  auto spoken = SpokenOf(kAnyPage, both);
  EXPECT_EQ(spoken.size(), 5U);
  EXPECT_EQ(spoken[14].name, "Level, 0 dBu, next");
}

TEST(SpokenNames, CaptionThatTellsAValueGivesItToTheButtons) {
  std::vector<SeenControl> volume = Option(5, "L/R Audio Volume ( 72 )", "");
  volume[4].text = "-";
  volume[3].text = "+";
  volume.push_back(Input(9, ControlKind::kProgress, "72%", {60, 38, 230, 16}));
  auto spoken = SpokenOf(kAnyPage, volume);
  EXPECT_EQ(spoken[1], (Spoken{"L/R Audio Volume, 72", "72", ""}));
  EXPECT_EQ(spoken[3].name, "L/R Audio Volume, nothing");
  EXPECT_EQ(spoken[4].name, "L/R Audio Volume, 72, increase");
  EXPECT_EQ(spoken[5].name, "L/R Audio Volume, 72, decrease");
  EXPECT_EQ(spoken[9], (Spoken{"L/R Audio Volume, level", "72%", ""}));
}

TEST(SpokenNames, PendingIsSaidOfTheValueAndDescribesItsControls) {
  std::vector<SeenControl> option = Option(15, "Audio Mute", "ON");
  option[1].mark = Mark::kPending;
  auto spoken = SpokenOf(kAnyPage, option);
  EXPECT_EQ(spoken[2].description, "Not applied yet");
  EXPECT_EQ(spoken[3], (Spoken{"Audio Mute, ON, not applied yet", "ON", ""}));
  EXPECT_EQ(spoken[4], (Spoken{"Audio Mute, ON, next", "ON", "Not applied yet"}));
  EXPECT_EQ(
      SpokenOf(res::kMain, std::vector{Picture(1007, "Apply", "", Mark::kPending)})[1007].name,
      "Apply, changes pending");
}

TEST(SpokenNames, RowIsNamedByItsFirstLabel) {
  auto spoken = SpokenOf(
      res::kGenlock,
      std::vector{Label(1084, "V Sync Delay :", {50, 205, 110, 20}),
                  Button(1108, "<<", {161, 202, 30, 26}),
                  Input(1086, ControlKind::kSlider, "7", {192, 200, 120, 29}),
                  Button(1107, ">>", {314, 202, 30, 26}),
                  Input(1105, ControlKind::kEdit, "0012", {350, 203, 50, 23}),
                  Label(1088, "12", {404, 205, 38, 20}), Label(1090, "H", {444, 205, 47, 20})});
  EXPECT_EQ(spoken[1084].name, "Vertical sync delay, caption");
  EXPECT_EQ(spoken[1086], (Spoken{"Vertical sync delay", "12", ""}));
  EXPECT_EQ(spoken[1108], (Spoken{"Vertical sync delay, 12, decrease", "12", ""}));
  EXPECT_EQ(spoken[1107].name, "Vertical sync delay, 12, increase");
  EXPECT_EQ(spoken[1105], (Spoken{"Vertical sync delay, number", "0012", ""}));
  EXPECT_EQ(spoken[1088].name, "Vertical sync delay, 12");
  EXPECT_EQ(spoken[1090].name, "Vertical sync delay, in lines");
}

TEST(SpokenNames, InsetsAreToldApart) {
  auto spoken =
      SpokenOf(res::kPip, std::vector{Label(1051, "H. Position", {80, 30, 80, 20}),
                                      Input(1055, ControlKind::kSlider, "5", {170, 27, 200, 25}),
                                      Frame(1050, {60, 5, 375, 150}, "CH 1"),
                                      Label(1064, "H. Position", {80, 180, 80, 20}),
                                      Input(1072, ControlKind::kSlider, "6", {170, 177, 200, 25}),
                                      Frame(1063, {60, 155, 375, 150}, "CH 2")});
  EXPECT_EQ(spoken[1055], (Spoken{"Inset 1, horizontal position", "5", ""}));
  EXPECT_EQ(spoken[1072], (Spoken{"Inset 2, horizontal position", "6", ""}));
  EXPECT_EQ(spoken[1050].name, "Inset 1");
  EXPECT_EQ(spoken[1064].name, "Inset 2, horizontal position, caption");
}

TEST(SpokenNames, EditBelowItsCaptionIsNamedByIt) {
  auto spoken = SpokenOf(res::kTextLabels,
                         std::vector{Label(1114, "Text Labels", {50, 155, 300, 20}),
                                     Input(1115, ControlKind::kEdit, "CAM", {50, 175, 310, 35})});
  EXPECT_EQ(spoken[1115], (Spoken{"Text Labels", "CAM", ""}));
  EXPECT_EQ(spoken[1114].name, "Text Labels, caption");
}

TEST(SpokenNames, StepsWithoutAValueTellTheirDirection) {
  auto spoken =
      SpokenOf(res::kImageAdjust, std::vector{Label(1087, "Horizontal Position", {80, 35, 200, 40}),
                                              Button(1091, "+", {310, 35, 40, 40}),
                                              Button(1092, "-", {360, 35, 40, 40})});
  EXPECT_EQ(spoken[1087].name, "Horizontal Position");
  EXPECT_EQ(spoken[1091].name, "Horizontal Position, increase");
  EXPECT_EQ(spoken[1092].name, "Horizontal Position, decrease");
}

TEST(SpokenNames, FrontOfTheConverter) {
  const auto front = [](const char* picture) {
    return SpokenOf(res::kMain, std::vector{Picture(1000, "Logo", picture)})[1000].name;
  };
  EXPECT_EQ(front("NULL_BOX"), "Front of the converter: no converter found");
  EXPECT_EQ(front("PANEL_BMP_17"), "Front of the converter: RXC-9 CENTER, Video converter");
  EXPECT_EQ(front("PANEL_BMP_46"), "Front of the converter: RXC-4, Scaler");
  EXPECT_EQ(front("ANOTHER"), "Front of the converter");
}

TEST(SpokenNames, RailSaysWhichPageIsShown) {
  const auto onRail = [](int id, const char* picture) {
    const SeenControl seen = {id,   ControlKind::kPicture, "",     {0, 270, 110, 48},
                              true, Mark::kNone,           picture};
    return SpokenOf(res::kMain, std::vector{seen})[id].name;
  };
  EXPECT_EQ(onRail(1016, "MARK_PROC_AMP"), "Page: Proc Amp");
  EXPECT_EQ(onRail(1016, "MARK_ROI"), "Page: Region of interest");
  EXPECT_EQ(onRail(1017, "DOTS_2_OF_3"), "Sub-page 2 of 3");
  EXPECT_EQ(onRail(1018, "RAIL"), "Navigation");
  EXPECT_EQ(onRail(1016, "ANOTHER"), "Picture");
}

TEST(SpokenNames, TilesAreCounted) {
  std::vector<SeenControl> tiles;
  for (int i = 0; i < 16; ++i) tiles.push_back(Picture(1021 + i, "TV Wall 1", "WND3X3_00_U"));
  for (int i = 9; i < 16; ++i) tiles[static_cast<std::size_t>(i)].shown = false;
  tiles[5].picture = "WND3X3_05_D";
  auto spoken = SpokenOf(res::kTvWall, tiles);
  EXPECT_EQ(spoken.size(), 9U);
  EXPECT_EQ(spoken[1021].name, "Tile 1 of 9");
  EXPECT_EQ(spoken[1026].name, "Tile 6 of 9, chosen");
}

TEST(SpokenNames, CurrentIsSaid) {
  const SeenControl button = Picture(1009, "2X2", "", Mark::kCurrent);
  EXPECT_EQ(SpokenOf(res::kMain, std::vector{button})[1009].name, "Wall of 2 by 2, current");
}

TEST(SpokenNames, NoneIsEmptyAndNoneStandsTwice) {
  std::vector<SeenControl> controls;
  int id = 0;
  for (int times = 0; times < 3; ++times) {
    for (int kind = 0; kind <= static_cast<int>(ControlKind::kIcon); ++kind) {
      controls.push_back({++id, static_cast<ControlKind>(kind), "", {100 * id, 0, 50, 100}});
    }
  }
  std::map<std::string, int> given;
  for (const auto& [control, spoken] : SpokenOf(kAnyPage, controls)) {
    EXPECT_NE(spoken.name, "") << control;
    EXPECT_EQ(++given[spoken.name], 1) << spoken.name;
  }
  EXPECT_EQ(given.size(), controls.size());
}

TEST(SpokenNames, LayoutOfATextIsNotSaid) {
  EXPECT_EQ(res::Said("Input Format    :"), "Input Format");
  EXPECT_EQ(res::Said("Mode 3\t\t\t"), "Mode 3");
  EXPECT_EQ(res::Said("512\n"), "512");
  EXPECT_EQ(res::Said("-  NO  SIGNAL  -"), "NO SIGNAL");
  EXPECT_EQ(res::Said("-  NO SIGNAL  - "), "NO SIGNAL");
  EXPECT_EQ(res::Said("- 4.5"), "- 4.5");
  EXPECT_EQ(res::Said(" - "), "-");
  EXPECT_EQ(res::Said("  : "), "");
}

TEST(SpokenNames, MisspeltTextsAreSaidRightly) {
  EXPECT_EQ(res::Said("Dispalye Mode"), "Display Mode");
  EXPECT_EQ(res::Said("Input Lebels"), "Input Labels");
  EXPECT_EQ(res::Said("Image Adjsut"), "Image Adjust");
  EXPECT_EQ(res::Said("LAnalog L/R Audio"), "Analog L/R Audio");
  EXPECT_EQ(res::Said("Nono"), "None");
}

TEST(SpokenNames, EveryControlOfTheTemplatesHasAName) {
  for (const ui::DialogTemplate& dialog : res::Dialogs()) {
    std::vector<SeenControl> controls;
    for (const ui::ControlTemplate& row : dialog.controls) {
      controls.push_back({row.id, row.kind, row.text, ui::PixelsFromUnits(row.units)});
    }
    const auto spoken = SpokenOf(dialog.number, controls);
    EXPECT_EQ(spoken.size(), controls.size()) << dialog.number;
  }
}

}  // namespace
}  // namespace panelora
