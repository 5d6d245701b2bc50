// The page codes: which page is current, and so what Apply, Default, Refresh and Page Up act on.
#pragma once

#include <cstdint>

namespace panelora {

enum class PageCode : std::uint8_t {
  kInformation = 0,
  kVideoMenu = 1,
  kAudio = 2,
  kProcAmp = 3,
  kSetting = 4,
  kTvWall = 5,
  kDisplayMode = 6,
  kVideoSettings = 7,
  kPip = 8,
  kGenlock = 9,
  kImageAdjust = 10,
  kRoi = 11,
  kTextLabels = 12,
};

}  // namespace panelora
