// The per-monitor dpi of Windows 10, on systems that have it; the screen's one dpi on the others.
#pragma once

#include "platform/win32/windows_headers.h"

namespace panelora::win32 {

constexpr UINT kDpiChanged = 0x02E0;  // WM_DPICHANGED

int DpiOf(HWND window);

// Tells the system not to lay the dialog out again by itself when the dpi changes.
void LeaveScalingToProgram(HWND dialog);

}  // namespace panelora::win32
