#include "platform/win32/system_library.h"

#include <string>

namespace panelora::win32 {

// By its whole path: a Windows 7 without updates knows no other way to leave out all other folders.
HMODULE LoadFromSystem(const wchar_t* name) {
  wchar_t folder[MAX_PATH] = L"";
  GetSystemDirectoryW(folder, MAX_PATH);
  return LoadLibraryW((std::wstring(folder) + L"\\" + name).c_str());
}

}  // namespace panelora::win32
