// The tests of the tracing DEVLNK.dll. "--calls LIBRARY WHAT" makes calls of it instead: so many,
// "forever", or from "threads" of which the last ones are running when the process ends.
#include <windows.h>

#include <gtest/gtest.h>

#include <string>
#include <thread>

#include "device/devlnk_library.h"

namespace {

using Open = std::uint32_t(PANELORA_DEVLNK_CALL*)(std::uint32_t);

constexpr std::uint32_t kFirstMode = 1000;

int MakeCalls(const char* library, const std::string& what) {
  const HMODULE module = LoadLibraryA(library);
  const auto open =
      reinterpret_cast<Open>(reinterpret_cast<void*>(GetProcAddress(module, "DEVLNK_OPEN")));
  if (open == nullptr) return 1;
  if (what == "threads") {
    for (int i = 0; i < 3; ++i) {
      std::thread([open] {
        for (std::uint32_t mode = kFirstMode;; ++mode) open(mode);
      }).detach();
    }
  }
  const bool isForever = what == "forever";
  const auto count = static_cast<std::uint32_t>(what == "threads" ? 1500 : std::atoi(what.c_str()));
  for (std::uint32_t i = 0; isForever || i < count; ++i) {
    open(kFirstMode + i);
    if (isForever && i % 16 == 0) Sleep(1);  // no more than the trace can take
  }
  ExitProcess(0);
}

}  // namespace

int main(int argc, char** argv) {
  SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX);
  if (argc == 4 && std::string(argv[1]) == "--calls") return MakeCalls(argv[2], argv[3]);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
