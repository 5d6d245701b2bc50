// The controls' own windows answer screen readers, since these ask a control and not its dialog.
#pragma once

#include "platform/win32/windows_headers.h"

#include "ui/dialog_template.h"

namespace panelora::win32 {

// From now on the window of a control of one of our dialogs answers. Costs no talk with the system.
void LetSpeak(HWND control, ui::ControlKind kind);

}  // namespace panelora::win32
