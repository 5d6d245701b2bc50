// What pressing a navigation button changes in the windows, to be done again on bare ones.
#pragma once

#include <string>
#include <vector>

#include "benchmarks/bare_windows.h"
#include "platform/win32/win32_toolkit.h"

namespace panelora::benchmarks {

// A window's part in what the panel shows.
struct Look {
  int dialog = 0;
  int control = 0;  // 0 = the dialog itself
  bool visible = false;
  RECT place{};  // in its parent
  std::string text;
  std::string picture;  // empty = none
  bool focused = false;
  LOGFONTA font{};
};

// Every window of the panel, in a fixed order.
std::vector<Look> LookAt(win32::Win32Toolkit& toolkit);

// What differs between two looks at the same panel.
struct Change {
  Look after;
  bool visibility = false;
  bool place = false;
  bool text = false;
  bool picture = false;
  bool focus = false;  // comes to it
  bool font = false;
};
std::vector<Change> ChangesBetween(const std::vector<Look>& before, const std::vector<Look>& after);

// Makes the bare windows look so: what hides first, as the panel does.
void Apply(const std::vector<Change>& changes, BareWindows& windows);

}  // namespace panelora::benchmarks
