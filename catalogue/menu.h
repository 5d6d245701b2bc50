// Which pages the family's models offer, and where the Video menu has them.
//
// Models: the menu of box type 26 is the box's own; the others have the pages that know them, but
// for some exceptions, stacked in one column.
#pragma once

#include <array>

#include "catalogue/kept.h"
#include "catalogue/page_code.h"

namespace panelora::menu {

// Models whose Information look lacks a button.
inline constexpr BoxTypes kWithoutAudio = {5, 19, 27};
inline constexpr BoxTypes kWithoutProcAmp = {5, 6, 7, 27, 52, 53, 54, 55};

// Models that are asked for their multi-view block when the menu is prepared. It uses none of it.
inline constexpr BoxTypes kAskedForMultiView = {13, 15};

// A page that the menu offers, and the top of its button. Information is never one.
struct Place {
  PageCode page = PageCode::kInformation;
  int y = 0;
};
struct Layout {
  BoxTypes types;
  std::array<Place, 4> places;
  Condition when = nullptr;
};
const Layout& LayoutOf(const Identity& identity);

}  // namespace panelora::menu
