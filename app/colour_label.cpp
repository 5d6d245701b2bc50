#include "app/colour_label.h"

namespace panelora {

namespace {

// `grown` > 0 lies outside the frame, < 0 inside; the gap stays where it is.
Outline OutlineOf(const ColourLabelLook& look, const ColourLabelGeometry& geometry, int grown) {
  const int left = look.left - grown;
  const int top = geometry.lineY - grown;
  const int right = look.right + grown;
  const int bottom = look.bottom + grown;
  return {{{geometry.gapEnd, top},
           {right, top},
           {right, bottom},
           {left, bottom},
           {left, top},
           {geometry.gapStart, top}}};
}

}  // namespace

std::string CaptionText(const ColourLabelLook& look) { return " " + look.caption + " "; }

ColourLabelGeometry LayOutColourLabel(const ColourLabelLook& look, TextSize caption) {
  ColourLabelGeometry geometry;
  const int width = look.caption.empty() ? 0 : caption.width;
  geometry.lineY = look.top + caption.height / 2 - 1;
  int captionX = look.left;
  switch (look.alignment) {
    case kCaptionRight:
      geometry.gapEnd = look.right - look.margin;
      geometry.gapStart = geometry.gapEnd - width;
      captionX = geometry.gapStart;
      break;
    case kCaptionLeft:
      geometry.gapStart = look.left + look.margin;
      geometry.gapEnd = geometry.gapStart + width;
      captionX = geometry.gapStart;
      break;
    case kCaptionCentred:
      // In the middle of the frame's width and not moved by its left edge: deliberate.
      geometry.gapStart = (look.right - width - look.left) / 2;
      geometry.gapEnd = geometry.gapStart + width;
      captionX = geometry.gapStart;
      break;
    default:
      geometry.gapStart = caption.width;
      geometry.gapEnd = caption.width;
      break;
  }
  geometry.outline = OutlineOf(look, geometry, 0);
  if (look.frameStyle != kFrameFlat) {
    const int grown = look.frameStyle == kFrameRaised ? look.penWidth : -look.penWidth;
    geometry.secondOutline = OutlineOf(look, geometry, grown);
  }
  geometry.caption = {captionX, look.top + look.captionOffset, width, caption.height};
  return geometry;
}

}  // namespace panelora
