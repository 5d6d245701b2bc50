// The system's headers, in the only order in which they compile.
#pragma once

// clang-format off
#include <windows.h>
#include <commctrl.h>
// clang-format on
