#include "res/dialog_templates.h"
#include "tests/support/accessible_win32.h"
#include "tests/support/spoken.h"
#include "tests/support/windows_of.h"

namespace panelora::testing {

std::map<int, res::Spoken> SpokenOn(Desk& desk, int dialog) {
  const win32::Win32Dialog* found = WindowsOf(desk).Find(dialog);
  std::map<int, res::Spoken> spoken;
  for (const ui::ControlTemplate& row : res::FindDialog(dialog)->controls) {
    const HWND window = found->ControlWindow(row.id);
    if ((GetWindowLongPtrA(window, GWL_STYLE) & WS_VISIBLE) == 0) continue;
    const AccessiblePtr object = AccessibleOf(window);
    if (object == nullptr) continue;
    spoken[row.id] = {TextFrom(*object, &IAccessible::get_accName),
                      TextFrom(*object, &IAccessible::get_accValue),
                      TextFrom(*object, &IAccessible::get_accDescription)};
  }
  return spoken;
}

}  // namespace panelora::testing
