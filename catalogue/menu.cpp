#include "catalogue/menu.h"

#include <iterator>

namespace panelora::menu {

namespace {

using enum PageCode;

bool IsBrand1(const Identity& box, std::uint32_t /*firmware*/) { return box.brandCode == 1; }

// The first row that holds counts. 20 and 33 never have TV Wall and Genlock at once, 33 has no ROI,
// and that the layout without ROI is that of 40 is a choice.
constexpr Layout kLayouts[] = {
    {{26}, {{{kVideoSettings, 85}, {kImageAdjust, 170}}}},
    {{50}, {{{kVideoSettings, 60}, {kGenlock, 130}, {kImageAdjust, 200}}}},
    {{13, 15, 51}, {{{kVideoSettings, 60}, {kDisplayMode, 130}, {kPip, 200}}}},
    {{14, 32, 35, 36}, {{{kVideoSettings, 60}, {kTvWall, 140}, {kRoi, 210}}}},
    {{17, 18, 37, 38}, {{{kVideoSettings, 85}, {kTvWall, 170}}}},
    {{20, 33}, {{{kVideoSettings, 90}, {kGenlock, 180}}}, IsBrand1},
    {{20, 33}, {{{kVideoSettings, 85}, {kTvWall, 170}}}},
    {{30, 39, 43, 46, 47, 48, 49},
     {{{kVideoSettings, 45}, {kTvWall, 105}, {kGenlock, 165}, {kRoi, 225}}}},
    {{40}, {{{kVideoSettings, 60}, {kTvWall, 130}, {kGenlock, 200}}}},
    {{23, 24, 25, 29, 34, 42}, {{{kVideoSettings, 60}, {kImageAdjust, 130}, {kRoi, 200}}}},
    {kAllTypes, {{{kVideoSettings, 125}}}},
};

}  // namespace

const Layout& LayoutOf(const Identity& identity) {
  const Layout* row = FirstOf(kLayouts, identity);
  return row != nullptr ? *row : *std::rbegin(kLayouts);
}

}  // namespace panelora::menu
