// The buttons of the Video menu, by the pages that they open.
#pragma once

namespace panelora::testing {

constexpr int kVideoSettingsButton = 1002;
constexpr int kDisplayModeButton = 1003;
constexpr int kTvWallButton = 1004;
constexpr int kPipButton = 1005;
constexpr int kGenlockButton = 1006;
constexpr int kImageAdjustButton = 1007;
constexpr int kRoiButton = 1008;

}  // namespace panelora::testing
