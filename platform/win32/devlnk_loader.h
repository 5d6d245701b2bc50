// Finds DEVLNK.dll beside the program.
#pragma once

#include <memory>

#include "device/devlnk_library.h"
#include "ui/toolkit.h"

namespace panelora::win32 {

// The library beside the program and nowhere else. When it is missing, of the wrong kind or lacks
// an export, every call of the result fails, and one line on the debugger's output stream says
// which.
std::unique_ptr<DevlnkLibrary> LoadDevlnk(ui::Toolkit& toolkit);

}  // namespace panelora::win32
