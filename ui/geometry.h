// Places on the screen, in pixels at 96 dpi; the toolkit scales them to the real screen.
#pragma once

#include <string_view>

namespace panelora::ui {

struct Point {
  int x = 0;
  int y = 0;

  bool operator==(const Point&) const = default;
};

struct Rect {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;

  bool operator==(const Rect&) const = default;
};

// Red, green and blue, 0 to 255 each.
struct Colour {
  unsigned char red = 0;
  unsigned char green = 0;
  unsigned char blue = 0;

  bool operator==(const Colour&) const = default;
};

// A font by its face and its size in tenths of a point.
struct Font {
  std::string_view face = "Arial";
  int tenths = 120;

  bool operator==(const Font&) const = default;
};

// Captions, buttons and small texts.
constexpr Font kCaptionFont{"Arial", 120};
// The values beside the ">>" buttons.
constexpr Font kValueFont{"Arial", 182};

}  // namespace panelora::ui
