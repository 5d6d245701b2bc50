// The level texts of the Audio page: pure functions of the box's raw values.
#pragma once

#include <string>

namespace panelora {

struct LevelTexts {
  std::string caption;     // of the bar
  std::string shortLabel;  // the small one
};

// Analog output level, raw 0 to 112: (raw - 62) / 2 dB in half-decibel steps.
LevelTexts OutputLevelTexts(int raw);

// Analog input level, raw 0 to 80: (20 - raw) / 2 dB in half-decibel steps.
LevelTexts InputLevelTexts(int raw);

}  // namespace panelora
