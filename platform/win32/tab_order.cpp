// Which controls can have the keyboard, in which order Tab visits them, and where the focus goes
// when its control can't keep it.
#include "platform/win32/tab_order.h"

#include <algorithm>

#include "platform/win32/win32_toolkit.h"
#include "ui/reading_order.h"

namespace panelora::win32 {

bool IsUsable(HWND window) { return IsWindowVisible(window) && IsWindowEnabled(window); }

bool TakesFocus(HWND window) {
  return IsUsable(window) && (GetWindowLongPtrA(window, GWL_STYLE) & WS_TABSTOP) != 0;
}

// Each look at a window is a question to the system, so that only what is shown is looked at.
std::vector<HWND> Win32Dialog::TabStops(HWND lost) const {
  std::vector<HWND> found;
  std::vector<ui::Rect> places;
  for (const ui::ControlTemplate& row : source.controls) {
    const Win32Control& control = *Find(row.id);
    const bool isLost = GetParent(lost) == window && GetDlgCtrlID(lost) == row.id;
    if (!isLost && (!control.shown || !TakesFocus(WindowOf(control)))) continue;
    found.push_back(WindowOf(control));
    places.push_back(control.rect);
  }
  std::vector<HWND> stops;
  for (const std::size_t each : ui::ReadingOrder(places)) stops.push_back(found[each]);
  for (auto page = toolkit.dialogs.rbegin(); page != toolkit.dialogs.rend(); ++page) {
    const bool isOurs = (*page)->parent == this && !(*page)->source.framed && (*page)->IsOpen();
    if (!isOurs || (!(*page)->IsSeen() && !IsChild((*page)->window, lost))) continue;
    const std::vector<HWND> own = (*page)->TabStops(lost);
    stops.insert(stops.end(), own.begin(), own.end());
  }
  return stops;
}

// From a control that can't keep it (null = from none): to the next one of its page, while that is
// shown, else to the first of the page that is, else to the window's first; null when nothing takes
// it.
HWND Win32Dialog::NextUsable(HWND lost) const {
  const std::vector<HWND> inOrder = TabStops(lost);
  std::vector<HWND> stops = inOrder;
  const auto from = std::find(stops.begin(), stops.end(), lost);
  if (from != stops.end()) std::rotate(stops.begin(), from, stops.end());
  const HWND page = GetParent(lost);
  for (const HWND stop : stops) {
    if (GetParent(stop) == page && IsUsable(stop)) return stop;
  }
  for (const HWND stop : stops) {
    if (GetParent(stop) != window && IsUsable(stop)) return stop;
  }
  for (const HWND stop : inOrder) {
    if (IsUsable(stop)) return stop;
  }
  return nullptr;
}

void Win32Dialog::MoveByTab(HWND from, bool back) {
  std::vector<HWND> stops = TabStops(from);
  if (stops.empty()) return;
  if (back) std::reverse(stops.begin(), stops.end());
  const auto at = std::find(stops.begin(), stops.end(), from);
  const bool isLast = at == stops.end() || at + 1 == stops.end();
  const HWND next = isLast ? stops.front() : *(at + 1);
  toolkit.GiveFocus(next);
  const Win32Dialog* dialog = toolkit.DialogOf(next);
  const bool isEdit = dialog->Find(GetDlgCtrlID(next))->kind == ui::ControlKind::kEdit;
  if (isEdit) SendMessageA(next, EM_SETSEL, 0, -1);  // what is typed replaces it
}

}  // namespace panelora::win32
