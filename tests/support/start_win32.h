// Starts a Windows program from a test.
#pragma once

#include <windows.h>

#include <stdexcept>
#include <string>

namespace panelora::testing {

// By its command line. Wine has been seen to refuse a start that it grants the next moment; throws
// when it goes on refusing.
inline PROCESS_INFORMATION StartByLine(std::string line, DWORD flags = 0) {
  constexpr int kAttempts = 5;
  constexpr DWORD kPause = 5;  // ms
  STARTUPINFOA start{};
  start.cb = sizeof start;
  PROCESS_INFORMATION process{};
  for (int attempt = 1; !CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, flags,
                                        nullptr, nullptr, &start, &process);
       ++attempt) {
    const DWORD error = GetLastError();
    if (attempt == kAttempts) {
      throw std::runtime_error(line + " can't be started: error " + std::to_string(error));
    }
    Sleep(kPause);
  }
  return process;
}

}  // namespace panelora::testing
