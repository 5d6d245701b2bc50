// What the Information page tells of the box.
#pragma once

namespace panelora::testing {

constexpr int kFormatValue = 1007;
constexpr int kFirmwareValue = 1014;
constexpr int kWebAddress = 1015;

}  // namespace panelora::testing
