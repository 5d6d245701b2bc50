// Power and cable of the simulated box, which itself knows only whether it is plugged in.
#pragma once

#include <string>

#include "simulator/box_control.h"

namespace panelora::boxbench {

struct PlugSwitches {
  bool power = true;
  bool cable = true;

  bool IsPlugged() const { return power && cable; }
  // What another program did: whoever unplugs the box is taken to have pulled the cable.
  void See(bool isPlugged) {
    if (isPlugged) {
      power = cable = true;
    } else if (IsPlugged()) {
      cable = false;
    }
  }

  bool operator==(const PlugSwitches&) const = default;
};

// Whether the panel finds the box, and why not. `now` is ms of the clock of the box.
struct Connection {
  bool isThere;
  std::string text;
};
Connection ConnectionOf(const simulator::BoxControl::Look& look, const PlugSwitches& switches,
                        std::uint64_t now);

}  // namespace panelora::boxbench
