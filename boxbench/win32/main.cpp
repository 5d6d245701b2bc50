// BoxBench.exe [FILE]: the bench beside a panel; FILE is where its log is saved without asking.
#include "base/text.h"
#include "boxbench/win32/bench_window.h"

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR /*commandLine*/, int show) {
  // The one that is given has only the letters of the system's code page.
  panelora::boxbench::BenchWindow bench(instance, panelora::boxbench::FileOf(GetCommandLineW()));
  if (bench.Make(show)) return bench.Run();
  const std::string reason =
      panelora::Format("The window can't be made: error %lu.", GetLastError());
  MessageBoxA(nullptr, reason.c_str(), "Panelora BoxBench", MB_ICONERROR);
  return 1;
}
