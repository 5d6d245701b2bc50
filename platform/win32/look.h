// The colours of what the toolkit draws itself.
#pragma once

#include "platform/win32/windows_headers.h"

namespace panelora::win32 {

struct Look {
  COLORREF face;  // of a button
  COLORREF hot;   // under the mouse
  COLORREF pressed;
  COLORREF disabled;
  COLORREF rim;
  COLORREF ink;  // on it
  COLORREF disabledInk;
  COLORREF accent;   // what is pending, and where the operator is
  COLORREF readout;  // behind a value
  COLORREF readoutRim;
};

// The system's own colours where the operator asked for high contrast.
Look LookOf(bool highContrast);
bool IsHighContrast();

}  // namespace panelora::win32
