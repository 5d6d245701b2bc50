// The end-to-end tests. Arguments behind those of the test framework: the program, the simulated
// DEVLNK.dll, and the program that admits every box type.
#include <windows.h>

#include <gtest/gtest.h>

#include <iostream>

#include "tests/windows/end_to_end/panel_process.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (argc != 4) {
    std::cerr
        << "usage: panel_end_to_end [options] Panelora.exe DEVLNK.dll PaneloraEveryModel.exe\n";
    return 2;
  }
  wchar_t self[MAX_PATH] = L"";
  GetModuleFileNameW(nullptr, self, MAX_PATH);
  panelora::testing::end_to_end::TheParts() = {
      std::filesystem::absolute(argv[1]), std::filesystem::absolute(argv[2]),
      std::filesystem::absolute(argv[3]), std::filesystem::path(self).parent_path()};
  // A program that crashes ends instead of asking what to do.
  SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);
  return RUN_ALL_TESTS();
}
