// Which control of a window can have the focus, and where the focus goes from one that can't.
#pragma once

#include "platform/win32/windows_headers.h"

namespace panelora::win32 {

// Seen, with everything that it lies in, and not disabled.
bool IsUsable(HWND window);

// Usable, and one at which Tab stops: no label and no frame, to which arrow keys would lead.
bool TakesFocus(HWND window);

// Where the focus goes from a control of the window that can't keep it (null = from none): to the
// next one of its page, while that is shown, else to the first of the page that is, else to the
// window's first; null when nothing takes it.
HWND NextUsable(HWND window, HWND lost);

}  // namespace panelora::win32
