// How a signal format is told in words.
#pragma once

#include <string>

namespace panelora {

// What stands instead of the format of an input without a signal.
inline constexpr char kNoSignalText[] = "-  NO SIGNAL  -";

// "1920x1080  59.94p" from width and height in pixels, rate in Hz and hundredths, and the letter of
// the scan; the no-signal text when width or height is 0.
std::string FormatText(int width, int height, int rate, int hundredths, const char* scan);

}  // namespace panelora
