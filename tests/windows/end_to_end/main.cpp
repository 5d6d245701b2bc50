// The end-to-end tests. Arguments behind those of the test framework: the program, the simulated
// DEVLNK.dll, the program that admits every box type, BoxBench.exe and boxctl.exe; then, where the
// tests are to run over it, the DEVLNK.dll that traces.
#include <windows.h>

#include <gtest/gtest.h>

#include <iostream>

#include "tests/boxbench/bench_process.h"
#include "tests/windows/end_to_end/panel_process.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (argc != 6 && argc != 7) {
    std::cerr << "usage: panel_end_to_end [options] Panelora.exe DEVLNK.dll PaneloraEveryModel.exe "
                 "BoxBench.exe boxctl.exe [TRACING DEVLNK.dll]\n";
    return 2;
  }
  wchar_t self[MAX_PATH] = L"";
  GetModuleFileNameW(nullptr, self, MAX_PATH);
  panelora::testing::end_to_end::TheParts() = {
      std::filesystem::absolute(argv[1]),
      std::filesystem::absolute(argv[2]),
      std::filesystem::absolute(argv[3]),
      std::filesystem::path(self).parent_path(),
      std::filesystem::absolute(argv[5]),
      argc > 6 ? std::filesystem::absolute(argv[6]) : std::filesystem::path()};
  panelora::boxbench::testing::TheParts() = {std::filesystem::absolute(argv[4]).string(),
                                             std::filesystem::absolute(argv[2]).string()};
  // A program that crashes ends instead of asking what to do.
  SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);
  return RUN_ALL_TESTS();
}
