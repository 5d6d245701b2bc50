// What the Information page tells of the box.
#pragma once

namespace panelora::testing {

inline constexpr int kFormatValue = 1007;
inline constexpr int kFirmwareValue = 1014;
inline constexpr int kWebAddress = 1015;

}  // namespace panelora::testing
