// What both the layout of the window and its painting go by, in pixels at 96 dpi.
#pragma once

namespace panelora::boxbench {

constexpr int kHeadHeight = 60;
constexpr int kMargin = 12;
constexpr int kLeastWidthForPicture = 860;  // of the window: a narrower one has none in its head

}  // namespace panelora::boxbench
