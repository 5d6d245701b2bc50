// The unit-wide options, which box keeps which of them where, and what resets a box.
//
// Models: of box type 26 all is the box's own. Of the other types the texts are known, and the
// properties that they use between them; which type uses which is chosen.
#pragma once

#include "catalogue/kept.h"

namespace panelora::setting {

// In the order in which they stand on the page; the box is told the DIP 8 mode last.
enum Option : std::uint8_t { kDip8, kLock, kPattern, kOsd, kNoSignal, kOptionCount };

const OptionGroup& Options();

// Where the DIP 8 mode comes with a second byte, which goes back as it came.
constexpr Address kDip8AndExtra = Block(23);

// What a box is told to restart.
struct Reset {
  BoxTypes types;
  Address at;
  std::uint8_t value = 1;
};
// Of any type but no box.
const Reset& ResetOf(std::uint8_t boxType);

}  // namespace panelora::setting
