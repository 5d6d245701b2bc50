// The real windows behind a desk, for what only they can tell.
#pragma once

#include "platform/win32/win32_toolkit.h"
#include "tests/support/desk.h"

namespace panelora::testing {

inline win32::Win32Toolkit& WindowsOf(Desk& desk) {
  return static_cast<win32::Win32Toolkit&>(desk.Toolkit());
}

}  // namespace panelora::testing
