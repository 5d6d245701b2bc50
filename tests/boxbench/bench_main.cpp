// The tests of BoxBench's window. Arguments behind those of the test framework: BoxBench.exe and
// the simulated DEVLNK.dll.
#include <gtest/gtest.h>

#include <filesystem>
#include <iostream>

#include "tests/boxbench/bench_process.h"

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  if (argc != 3) {
    std::cerr << "usage: boxbench_window [options] BoxBench.exe DEVLNK.dll\n";
    return 2;
  }
  panelora::boxbench::testing::TheParts() = {std::filesystem::absolute(argv[1]).string(),
                                             std::filesystem::absolute(argv[2]).string()};
  // A program that crashes ends instead of asking what to do.
  SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);
  return RUN_ALL_TESTS();
}
