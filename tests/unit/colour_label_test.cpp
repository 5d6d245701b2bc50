// Where the lines of the colour label go.
#include "app/colour_label.h"

#include <gtest/gtest.h>

namespace panelora {
namespace {

// A caption of 40 by 16 pixels in a frame from (10, 4) to (210, 104).
constexpr TextSize kCaption{40, 16};

ColourLabelLook Look(int alignment, int frameStyle = kFrameEtched) {
  ColourLabelLook look;
  look.caption = "Caption";
  look.alignment = alignment;
  look.frameStyle = frameStyle;
  look.margin = 8;
  look.penWidth = 2;
  look.left = 10;
  look.top = 4;
  look.right = 210;
  look.bottom = 104;
  return look;
}

TEST(ColourLabel, IsAnEtchedFrameOfOnePixelWithItsCaptionAtTheLeftUnlessToldOtherwise) {
  const ColourLabelLook look;
  EXPECT_EQ(look.penWidth, 1);
  EXPECT_EQ(look.font, (ui::Font{"Arial", 120}));
  EXPECT_EQ(look.alignment, 256);
  EXPECT_EQ(look.margin, 0);
  EXPECT_EQ(look.captionOffset, 0);
  EXPECT_NE(look.frameStyle, 32768);
  EXPECT_NE(look.frameStyle, 12);
  EXPECT_EQ((ui::Rect{look.left, look.top, look.right, look.bottom}), (ui::Rect{}));
  const TextSize nothing;
  EXPECT_EQ(nothing.width, 0);
  EXPECT_EQ(nothing.height, 0);
}

TEST(ColourLabel, CaptionHasABlankOnEachSide) {
  EXPECT_EQ(CaptionText(Look(kCaptionLeft)), " Caption ");
  EXPECT_EQ(CaptionText(ColourLabelLook{}), "  ");
}

TEST(ColourLabel, TopLineRunsThroughTheMiddleOfTheCaption) {
  EXPECT_EQ(LayOutColourLabel(Look(kCaptionLeft), kCaption).lineY, 4 + 8 - 1);
  EXPECT_EQ(LayOutColourLabel(Look(kCaptionLeft), {40, 15}).lineY, 4 + 7 - 1);
}

TEST(ColourLabel, GapGoesByTheAlignment) {
  const auto gap = [](int alignment) {
    const ColourLabelGeometry geometry = LayOutColourLabel(Look(alignment), kCaption);
    return std::make_pair(geometry.gapStart, geometry.gapEnd);
  };
  EXPECT_EQ(gap(kCaptionLeft), std::make_pair(18, 58));
  EXPECT_EQ(gap(kCaptionRight), std::make_pair(162, 202));
  // Deliberate: not moved by the frame's left edge.
  EXPECT_EQ(gap(kCaptionCentred), std::make_pair(80, 120));
  for (const int other : {0, 1, 255, 1024}) EXPECT_EQ(gap(other), std::make_pair(40, 40)) << other;
}

TEST(ColourLabel, CaptionStandsInTheGap) {
  const auto place = [](int alignment) {
    ColourLabelLook look = Look(alignment);
    look.captionOffset = 3;
    return LayOutColourLabel(look, kCaption).caption;
  };
  EXPECT_EQ(place(kCaptionLeft), (ui::Rect{18, 7, 40, 16}));
  EXPECT_EQ(place(kCaptionRight), (ui::Rect{162, 7, 40, 16}));
  EXPECT_EQ(place(kCaptionCentred), (ui::Rect{80, 7, 40, 16}));
  EXPECT_EQ(place(0), (ui::Rect{10, 7, 40, 16}));  // over the frame's left end
}

TEST(ColourLabel, OutlineRunsFromTheGapRoundToTheGap) {
  const Outline expected = {{{58, 11}, {210, 11}, {210, 104}, {10, 104}, {10, 11}, {18, 11}}};
  for (const int style : {kFrameEtched, kFrameFlat, kFrameRaised}) {
    EXPECT_EQ(LayOutColourLabel(Look(kCaptionLeft, style), kCaption).outline, expected);
  }
}

TEST(ColourLabel, SecondOutlineLiesOnePenWidthInsideOrOutside) {
  EXPECT_FALSE(LayOutColourLabel(Look(kCaptionLeft, kFrameFlat), kCaption).secondOutline);
  const Outline inside = {{{58, 13}, {208, 13}, {208, 102}, {12, 102}, {12, 13}, {18, 13}}};
  for (const int etched : {kFrameEtched, 1, 13}) {
    const auto geometry = LayOutColourLabel(Look(kCaptionLeft, etched), kCaption);
    EXPECT_EQ(geometry.secondOutline, inside) << etched;
  }
  const Outline outside = {{{58, 9}, {212, 9}, {212, 106}, {8, 106}, {8, 9}, {18, 9}}};
  EXPECT_EQ(LayOutColourLabel(Look(kCaptionLeft, kFrameRaised), kCaption).secondOutline, outside);
}

TEST(ColourLabel, EmptyCaptionLeavesNoGap) {
  for (const int alignment : {kCaptionLeft, kCaptionRight, kCaptionCentred, 0}) {
    ColourLabelLook look = Look(alignment);
    look.caption.clear();
    const ColourLabelGeometry geometry = LayOutColourLabel(look, {8, 16});
    EXPECT_EQ(geometry.gapStart, geometry.gapEnd) << alignment;
    EXPECT_EQ(geometry.outline.front(), geometry.outline.back()) << alignment;
    EXPECT_EQ(geometry.lineY, 11);
  }
}

}  // namespace
}  // namespace panelora
