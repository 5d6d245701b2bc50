// The program's windows and pictures alone, as a program: its working set is what the system takes
// for them.
#include "benchmarks/bare_windows.h"

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int) {
  panelora::benchmarks::BareWindows windows(instance);
  const HWND dialog = windows.Create();
  MSG message;
  while (GetMessageA(&message, nullptr, 0, 0) > 0) {
    if (IsDialogMessageA(dialog, &message)) continue;
    TranslateMessage(&message);
    DispatchMessageA(&message);
  }
  return 0;
}
