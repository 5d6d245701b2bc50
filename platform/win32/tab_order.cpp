#include "platform/win32/tab_order.h"

#include <algorithm>
#include <vector>

namespace panelora::win32 {

namespace {

// Goes through every control that Tab visits while it is usable, in that order, until `found` takes
// one: those of a page stand where the page does. A page that nobody sees is left out, unless the
// focus was lost on it: each look at a window is a question to the system.
template <class Found>
HWND FindTabStop(HWND parent, HWND lost, const Found& found) {
  for (HWND child = GetWindow(parent, GW_CHILD); child != nullptr;
       child = GetWindow(child, GW_HWNDNEXT)) {
    if ((GetWindowLongPtrA(child, GWL_EXSTYLE) & WS_EX_CONTROLPARENT) != 0) {
      if (!IsWindowVisible(child) && !IsChild(child, lost)) continue;
      if (const HWND stop = FindTabStop(child, lost, found); stop != nullptr) return stop;
    } else if ((GetWindowLongPtrA(child, GWL_STYLE) & WS_TABSTOP) != 0 && found(child)) {
      return child;
    }
  }
  return nullptr;
}

}  // namespace

bool IsUsable(HWND window) { return IsWindowVisible(window) && IsWindowEnabled(window); }

bool TakesFocus(HWND window) {
  return IsUsable(window) && (GetWindowLongPtrA(window, GWL_STYLE) & WS_TABSTOP) != 0;
}

HWND NextUsable(HWND window, HWND lost) {
  std::vector<HWND> stops;
  FindTabStop(window, lost, [&](HWND stop) {
    stops.push_back(stop);
    return false;
  });
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
  return FindTabStop(window, nullptr, IsUsable);
}

}  // namespace panelora::win32
