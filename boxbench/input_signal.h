// The signal that the box receives: from what is typed to what its model tells.
#pragma once

#include <span>
#include <string>
#include <string_view>

#include "boxbench/words.h"
#include "catalogue/codecs.h"
#include "simulator/box_control.h"

namespace panelora::boxbench {

struct Signal {
  VideoFormat format;  // width 0 = no signal
  bool isInterlaced = false;
};

// The usual ones, as they are typed: "1920x1080 59.94p", "no signal".
std::span<const char* const> UsualSignals();
// Width and height in pixels and the rate in Hz, with the scan; or how a signal is typed.
Typed<Signal> ParseSignal(std::string_view text);
// As ParseSignal takes it, with two decimals of the rate; "no signal" without width or height.
std::string TextOf(const Signal& signal);

// Gives it to all inputs of the box; what became of it, in one line.
struct SignalResult {
  bool isSet;
  std::string text;
};
SignalResult SetSignal(simulator::BoxControl& control, const Signal& signal);

}  // namespace panelora::boxbench
