#include "platform/win32/dpi.h"

namespace panelora::win32 {

namespace {

// Bound at run time: systems before Windows 10 lack these functions.
template <class Function>
Function UserFunction(const char* name) {
  const HMODULE user = GetModuleHandleA("user32.dll");
  if (user == nullptr) return nullptr;
  return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(user, name)));
}

constexpr UINT kDisableAll = 1;  // DDC_DISABLE_ALL

}  // namespace

int DpiOf(HWND window) {
  static const auto getDpiForWindow = UserFunction<UINT(WINAPI*)(HWND)>("GetDpiForWindow");
  if (getDpiForWindow != nullptr) {
    const UINT dpi = getDpiForWindow(window);
    if (dpi != 0) return static_cast<int>(dpi);
  }
  const HDC screen = GetDC(nullptr);
  const int dpi = GetDeviceCaps(screen, LOGPIXELSX);
  ReleaseDC(nullptr, screen);
  return dpi;
}

void LeaveScalingToProgram(HWND dialog) {
  using SetBehavior = BOOL(WINAPI*)(HWND, UINT, UINT);
  static const auto setBehavior = UserFunction<SetBehavior>("SetDialogDpiChangeBehavior");
  if (setBehavior != nullptr) setBehavior(dialog, kDisableAll, kDisableAll);
}

}  // namespace panelora::win32
