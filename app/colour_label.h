// The colour label: a group frame with a caption set into its top edge, in colours of the program's
// own. This is where its lines go; platform/win32/colour_label_window.h draws them.
//
// All places are pixels of the label's window.
#pragma once

#include <array>
#include <optional>
#include <string>

#include "ui/geometry.h"

namespace panelora {

// The values of ColourLabelLook::alignment; any other one draws the frame closed, with the caption
// over its left end.
constexpr int kCaptionLeft = 256;
constexpr int kCaptionRight = 512;
constexpr int kCaptionCentred = 768;

// The values of ColourLabelLook::frameStyle; any other one is an etched frame.
constexpr int kFrameFlat = 32768;
constexpr int kFrameRaised = 12;
constexpr int kFrameEtched = 0;

struct ColourLabelLook {
  ui::Colour line;          // of the frame
  ui::Colour secondLine;    // of the two-colour styles
  ui::Colour disabledLine;  // the same while the label is disabled
  ui::Colour disabledSecondLine;
  int penWidth = 1;
  ui::Colour text;
  ui::Font font = ui::kCaptionFont;  // the face must outlive the label
  std::string caption;
  int alignment = kCaptionLeft;
  int margin = 0;         // from the frame's side to the caption
  int captionOffset = 0;  // moves the caption down
  int frameStyle = kFrameEtched;
  int left = 0;  // of the frame, as the three below
  int top = 0;
  int right = 0;
  int bottom = 0;
};

// The size of a text.
struct TextSize {
  int width = 0;
  int height = 0;
};

// What is drawn and measured as the caption: a blank on each side.
std::string CaptionText(const ColourLabelLook& look);

// From the end of the gap round the frame to its start.
using Outline = std::array<ui::Point, 6>;

struct ColourLabelGeometry {
  int lineY = 0;     // of the top line
  int gapStart = 0;  // the same as gapEnd where the frame is closed
  int gapEnd = 0;
  Outline outline;
  // One pen width inside (etched) or outside (raised); flat frames have none.
  std::optional<Outline> secondOutline;
  ui::Rect caption;
};

// `caption` is the size of CaptionText. An empty caption leaves no gap.
ColourLabelGeometry LayOutColourLabel(const ColourLabelLook& look, TextSize caption);

}  // namespace panelora
