// The tracing DEVLNK.dll in a folder of its own, over a library that is copied beside it.
#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <sstream>
#include <string>

#include "device/devlnk_library.h"
#include "trace/trace_file.h"

namespace panelora::trace {

// A folder that is there as long as this is, as far as what is in it lets itself be removed.
class FreshFolder {
 public:
  explicit FreshFolder(const std::string& name)
      : path(std::filesystem::temp_directory_path() /
             ("panelora_trace_" + std::to_string(GetCurrentProcessId()) + "_" + name)) {
    std::filesystem::remove_all(path);
    std::filesystem::create_directories(path);
  }
  ~FreshFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path, ignored);
  }
  FreshFolder(const FreshFolder&) = delete;
  FreshFolder& operator=(const FreshFolder&) = delete;

  const std::filesystem::path& Path() const { return path; }

 private:
  std::filesystem::path path;
};

// A library that is loaded as long as this is; none when the file can't be.
class LoadedLibrary {
 public:
  explicit LoadedLibrary(const std::filesystem::path& file)
      : module(LoadLibraryExW(file.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH)) {
    EXPECT_NE(module, nullptr) << file << ": " << GetLastError();
    const std::string missing = DevlnkLibrary::Bind(
        [this](const char* name) { return reinterpret_cast<void*>(GetProcAddress(module, name)); },
        exports);
    EXPECT_EQ(missing, "");
  }
  ~LoadedLibrary() { FreeLibrary(module); }
  LoadedLibrary(const LoadedLibrary&) = delete;
  LoadedLibrary& operator=(const LoadedLibrary&) = delete;

  const DevlnkExports* operator->() const { return &exports; }

 private:
  HMODULE module;
  DevlnkExports exports;
};

// False when it does not come about within a minute.
inline bool Until(const std::function<bool()>& condition) {
  const ULONGLONG end = GetTickCount64() + 60'000;
  while (!condition()) {
    if (GetTickCount64() > end) return false;
    Sleep(10);
  }
  return true;
}

inline Trace TraceIn(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  std::string error;
  const auto trace = ReadTrace(in, error);
  EXPECT_TRUE(trace) << file << ": " << error;
  return trace.value_or(Trace());
}

// The bytes of a file, none when it is not there.
inline std::string BytesOf(const std::filesystem::path& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

class TracedLibrary : public ::testing::Test {
 protected:
  static constexpr char kBare[] = "bare.dll";

  // Puts the tracing library and, in its own name and as the one that is traced, another one into
  // the folder.
  void PutOver(const std::filesystem::path& library) {
    PutTracing();
    PutTraced(library);
    std::filesystem::copy_file(library, folder.Path() / kBare);
  }
  void PutTracing() {
    std::filesystem::copy_file(PANELORA_TRACE_LIBRARY, folder.Path() / "DEVLNK.dll");
  }
  void PutTraced(const std::filesystem::path& library) {
    std::filesystem::copy_file(library, folder.Path() / "DEVLNK.box.dll");
  }

  static std::filesystem::path Simulated() { return PANELORA_SIMULATED_LIBRARY; }
  static std::filesystem::path Fake(const std::string& name) {
    return std::filesystem::path(PANELORA_FAKE_LIBRARIES) / (name + ".dll");
  }

  std::filesystem::path Tracing() const { return folder.Path() / "DEVLNK.dll"; }
  std::filesystem::path Bare() const { return folder.Path() / kBare; }
  std::filesystem::path File() const { return folder.Path() / "DEVLNK.trace.txt"; }
  std::filesystem::path OlderFile() const { return folder.Path() / "DEVLNK.trace.old.txt"; }

  // A desk of the test's own: the box of libraries that are first called from now on.
  void UseDesk(const std::string& name) {
    SetEnvironmentVariableA(
        "PANELORA_BOX", ("trace " + std::to_string(GetCurrentProcessId()) + " " + name).c_str());
  }
  void UseTemporaryFolder(const std::filesystem::path& path) {
    SetEnvironmentVariableW(L"TMP", path.c_str());
    SetEnvironmentVariableW(L"TEMP", path.c_str());
  }

  void SetUp() override { UseTemporaryFolder(temporary.Path()); }
  void TearDown() override { UseTemporaryFolder(own); }

  FreshFolder folder{"library"};
  FreshFolder temporary{"temporary"};

 private:
  std::filesystem::path own = std::filesystem::temp_directory_path();
};

}  // namespace panelora::trace
