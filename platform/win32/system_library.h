// The system's own libraries, for what the program does without until it is first wanted.
#pragma once

#include "platform/win32/windows_headers.h"

namespace panelora::win32 {

// A library of the system's folder and of no other, such as L"shell32.dll", for the caller to free
// or to keep. Null when it is not there.
HMODULE LoadFromSystem(const wchar_t* name);

// A function of the module, by its name and as the type that it has; null also without a module.
template <class Function>
Function Bind(HMODULE module, const char* name) {
  if (module == nullptr) return nullptr;
  return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module, name)));
}

}  // namespace panelora::win32
