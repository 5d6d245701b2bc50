#include "platform/win32/guide.h"

#include "platform/win32/system_library.h"

namespace panelora::win32 {

std::wstring ProgramFolder() {
  std::wstring path(32768, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
  const std::size_t slash = path.find_last_of(L"\\/");
  return path.substr(0, slash == std::wstring::npos ? 0 : slash + 1);
}

std::wstring GuideBeside(const std::wstring& folder) {
  const std::wstring guide = folder + L"guide\\index.html";
  const DWORD found = GetFileAttributesW(guide.c_str());
  const bool isFile = found != INVALID_FILE_ATTRIBUTES && (found & FILE_ATTRIBUTE_DIRECTORY) == 0;
  return isFile ? guide : std::wstring();
}

// The shell is loaded when it is first wanted: a start does without it.
bool ShowFile(const std::wstring& file) {
  using Execute =
      HINSTANCE(WINAPI*)(HWND, const wchar_t*, const wchar_t*, const wchar_t*, const wchar_t*, int);
  const auto execute = Bind<Execute>(LoadFromSystem(L"shell32.dll"), "ShellExecuteW");
  constexpr INT_PTR kLastError = 32;  // greater is success
  return execute != nullptr &&
         reinterpret_cast<INT_PTR>(
             execute(nullptr, L"open", file.c_str(), nullptr, nullptr, SW_SHOWNORMAL)) > kLastError;
}

}  // namespace panelora::win32
