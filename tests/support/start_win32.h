// Starts a Windows program from a test.
#pragma once

#include <windows.h>

#include <filesystem>
#include <stdexcept>
#include <string>

namespace panelora::testing {

inline bool CreateByLine(std::string& line, DWORD flags, PROCESS_INFORMATION& process) {
  STARTUPINFOA start{};
  start.cb = sizeof start;
  return CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, flags, nullptr, nullptr,
                        &start, &process) != FALSE;
}

inline bool CreateByLine(std::wstring& line, DWORD flags, PROCESS_INFORMATION& process) {
  STARTUPINFOW start{};
  start.cb = sizeof start;
  return CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, flags, nullptr, nullptr,
                        &start, &process) != FALSE;
}

// By its command line. Wine has been seen to refuse a start that it grants the next moment; throws
// when it goes on refusing.
template <class Line>
PROCESS_INFORMATION StartByLine(Line line, DWORD flags = 0) {
  constexpr int kAttempts = 5;
  constexpr DWORD kPause = 5;  // ms
  PROCESS_INFORMATION process{};
  for (int attempt = 1; !CreateByLine(line, flags, process); ++attempt) {
    const DWORD error = GetLastError();
    if (attempt == kAttempts) {
      const std::u8string text = std::filesystem::path(line).u8string();
      throw std::runtime_error(std::string(text.begin(), text.end()) + " can't be started: error " +
                               std::to_string(error));
    }
    Sleep(kPause);
  }
  return process;
}

}  // namespace panelora::testing
