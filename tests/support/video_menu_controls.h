// The buttons of the Video menu, by the pages that they open.
#pragma once

namespace panelora::testing {

inline constexpr int kVideoSettingsButton = 1002;
inline constexpr int kDisplayModeButton = 1003;
inline constexpr int kTvWallButton = 1004;
inline constexpr int kPipButton = 1005;
inline constexpr int kGenlockButton = 1006;
inline constexpr int kImageAdjustButton = 1007;
inline constexpr int kRoiButton = 1008;

}  // namespace panelora::testing
