// Which control of a window can have the focus.
#pragma once

#include "platform/win32/windows_headers.h"

namespace panelora::win32 {

// Seen, with everything that it lies in, and not disabled.
bool IsUsable(HWND window);

// Usable, and one at which Tab stops: no label and no frame, to which arrow keys would lead.
bool TakesFocus(HWND window);

}  // namespace panelora::win32
