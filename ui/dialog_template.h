// What a dialog consists of, as both toolkits know it.
#pragma once

#include <span>
#include <string_view>

#include "ui/geometry.h"

namespace panelora::ui {

enum class ControlKind {
  kLabel,
  kGroup,
  kButton,
  kDefaultButton,
  kPictureButton,
  kPicture,  // only to be looked at
  kEdit,
  kSlider,
  kProgress,
  kCombo,
  kIcon,
};

// The frame of one value, which is drawn as the box that the value stands in.
constexpr bool IsReadout(ControlKind kind, std::string_view text, const Rect& rect) {
  constexpr int kHighest = 60;
  return kind == ControlKind::kGroup && text.empty() && rect.height <= kHighest;
}

struct ControlTemplate {
  ControlKind kind;
  int id;
  const char* text;
  Rect units;  // dialog units
};

struct DialogTemplate {
  int number;
  const char* title;
  bool framed;  // a captioned window of its own; otherwise a child page
  Rect units;   // dialog units of the client area
  std::span<const ControlTemplate> controls;
};

// Dialog units in pixels at 96 dpi, for the 8-point dialog font of the templates: 6 by 13 pixels
// are 4 by 8 units.
constexpr Rect PixelsFromUnits(const Rect& units) {
  const auto horizontal = [](int value) { return (value * 6 + 2) / 4; };
  const auto vertical = [](int value) { return (value * 13 + 4) / 8; };
  return {horizontal(units.x), vertical(units.y), horizontal(units.width), vertical(units.height)};
}

}  // namespace panelora::ui
