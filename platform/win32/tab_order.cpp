#include "platform/win32/tab_order.h"

#include <algorithm>
#include <vector>

namespace panelora::win32 {

namespace {

// Every control that Tab visits while it is usable, in that order: those of a page stand where the
// page does.
void CollectTabStops(HWND parent, std::vector<HWND>& stops) {
  for (HWND child = GetWindow(parent, GW_CHILD); child != nullptr;
       child = GetWindow(child, GW_HWNDNEXT)) {
    if ((GetWindowLongPtrA(child, GWL_EXSTYLE) & WS_EX_CONTROLPARENT) != 0) {
      CollectTabStops(child, stops);
    } else if ((GetWindowLongPtrA(child, GWL_STYLE) & WS_TABSTOP) != 0) {
      stops.push_back(child);
    }
  }
}

std::vector<HWND> TabStops(HWND window) {
  std::vector<HWND> stops;
  CollectTabStops(window, stops);
  return stops;
}

}  // namespace

bool IsUsable(HWND window) { return IsWindowVisible(window) && IsWindowEnabled(window); }

bool TakesFocus(HWND window) {
  return IsUsable(window) && (GetWindowLongPtrA(window, GWL_STYLE) & WS_TABSTOP) != 0;
}

HWND FirstUsable(HWND dialog) {
  for (const HWND stop : TabStops(dialog)) {
    if (IsUsable(stop)) return stop;
  }
  return nullptr;
}

HWND NextUsable(HWND window, HWND lost) {
  std::vector<HWND> stops = TabStops(window);
  // From the lost one round to it.
  const auto from = std::find(stops.begin(), stops.end(), lost);
  if (from != stops.end()) std::rotate(stops.begin(), from, stops.end());
  const HWND page = GetParent(lost);
  for (const HWND stop : stops) {
    if (GetParent(stop) == page && IsUsable(stop)) return stop;
  }
  for (const HWND stop : stops) {
    if (GetParent(stop) != window && IsUsable(stop)) return stop;
  }
  return FirstUsable(window);
}

}  // namespace panelora::win32
