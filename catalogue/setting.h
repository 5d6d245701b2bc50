// The unit-wide options, which box keeps which of them where, and what resets a box.
//
// Models: of box type 26 all is the box's own. Of the other types the texts are known, that most
// have five DIP 8 modes, and the properties that they use between them; which type uses which, and
// that 50 has the modes of 26, is chosen.
#pragma once

#include "catalogue/kept.h"

namespace panelora::setting {

// In the order in which they stand on the page; the box is told the DIP 8 mode last.
enum Option : std::uint8_t { kDip8, kLock, kPattern, kOsd, kNoSignal, kOptionCount };

const OptionGroup& Options();

// Where the DIP 8 mode comes with a second byte, which goes back as it came.
constexpr Address kDip8AndExtra = Block(23);

// The greatest mode of a type. Models with seven modes are offered the first and the last alone,
// though their table holds more: deliberate.
std::uint8_t LastDip8(std::uint8_t boxType);
constexpr std::uint8_t kLastOfSevenModes = 6;

// What a box is told to restart.
struct Reset {
  BoxTypes types;
  Address at;
  std::uint8_t value = 1;
};
// Of any type but no box.
const Reset& ResetOf(std::uint8_t boxType);

}  // namespace panelora::setting
