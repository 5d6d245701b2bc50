// Works inside the program as a message hook. It holds the monitor's clock, so that only the ticks
// that a test sends count: WM_TIMER from the system's timer is taken out of the queue, one that is
// sent passes. And it tells what can't be seen from another process.
#include "tests/windows/probe/panel_probe.h"

#include <windows.h>

#include <string>

namespace panelora::testing::end_to_end {

namespace {

std::string SystemMenuOf(HWND window) {
  const HMENU menu = GetSystemMenu(window, FALSE);
  std::string text;
  for (int i = 0; i < GetMenuItemCount(menu); ++i) {
    char item[128] = "";
    MENUITEMINFOA info{};
    info.cbSize = sizeof info;
    info.fMask = MIIM_FTYPE | MIIM_ID | MIIM_STRING;
    info.dwTypeData = item;
    info.cch = sizeof item;
    GetMenuItemInfoA(menu, static_cast<UINT>(i), TRUE, &info);
    if ((info.fType & MFT_SEPARATOR) != 0) {
      text += "-\n";
    } else {
      text += std::to_string(info.wID) + " " + item + "\n";
    }
  }
  return text;
}

void Describe(HWND window) {
  const std::string name = kProbeMemoryName + std::to_string(GetCurrentProcessId());
  const HANDLE mapping = OpenFileMappingA(FILE_MAP_ALL_ACCESS, FALSE, name.c_str());
  if (mapping == nullptr) return;
  if (void* view = MapViewOfFile(mapping, FILE_MAP_ALL_ACCESS, 0, 0, 0)) {
    ProbeMemory& memory = *static_cast<ProbeMemory*>(view);
    memory.plantedLibraryLoads = LoadLibraryA(kPlantedLibrary) != nullptr;
    memory.bigIcon = SendMessageA(window, WM_GETICON, ICON_BIG, 0) != 0;
    memory.smallIcon = SendMessageA(window, WM_GETICON, ICON_SMALL, 0) != 0;
    lstrcpynA(memory.systemMenu, SystemMenuOf(window).c_str(), sizeof memory.systemMenu);
    InterlockedExchange(&memory.described, 1);
    UnmapViewOfFile(view);
  }
  CloseHandle(mapping);
}

void CountRelease() {
  static ProbeInput* const input = [] {
    const std::string name = kProbeInputName + std::to_string(GetCurrentProcessId());
    const HANDLE mapping = OpenFileMappingA(FILE_MAP_ALL_ACCESS, FALSE, name.c_str());
    return static_cast<ProbeInput*>(
        mapping != nullptr ? MapViewOfFile(mapping, FILE_MAP_ALL_ACCESS, 0, 0, 0) : nullptr);
  }();
  if (input != nullptr) InterlockedIncrement(&input->releases);
}

bool IsRelease(UINT message) {
  return message == WM_KEYUP || message == WM_SYSKEYUP || message == WM_LBUTTONUP;
}

}  // namespace

}  // namespace panelora::testing::end_to_end

extern "C" LRESULT CALLBACK HoldClock(int code, WPARAM wParam, LPARAM lParam) {
  using namespace panelora::testing::end_to_end;
  if (code == HC_ACTION) {
    static const UINT describe = RegisterWindowMessageA(kDescribeWindow);
    MSG& message = *reinterpret_cast<MSG*>(lParam);
    if (message.message == WM_TIMER) message.message = WM_NULL;
    if (message.message == describe && wParam == PM_REMOVE) Describe(message.hwnd);
    if (IsRelease(message.message) && wParam == PM_REMOVE) CountRelease();
  }
  return CallNextHookEx(nullptr, code, wParam, lParam);
}
