// BoxBench.exe [FILE]: the bench beside a panel; FILE is where its log is saved without asking.
#include "boxbench/win32/bench_window.h"

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR /*commandLine*/, int show) {
  // The one that is given has only the letters of the system's code page.
  panelora::boxbench::BenchWindow bench(instance, panelora::boxbench::FileOf(GetCommandLineW()));
  return bench.Make(show) ? bench.Run() : 1;
}
