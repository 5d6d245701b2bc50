// boxctl.exe: the program on Windows, at the simulated box of the desk.
#include <windows.h>

#include <shellapi.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <ios>
#include <iostream>
#include <map>
#include <memory>
#include <optional>
#include <streambuf>
#include <string>
#include <vector>

#include "base/text.h"
#include "boxctl/boxctl.h"
#include "device/devlnk_library.h"
#include "simulator/mapped_box.h"

namespace {

using panelora::DeviceLink;
using panelora::DevlnkLibrary;
using panelora::Format;
using panelora::simulator::MappedBox;

constexpr DWORD kPatience = 100;  // ms, until a wait looks whether it is to end

std::atomic<bool>& Stopped() {
  static std::atomic<bool> stopped = false;
  return stopped;
}

// The first Ctrl+C ends what waits, the second one the program.
BOOL WINAPI OnControl(DWORD /*event*/) noexcept { return Stopped().exchange(true) ? FALSE : TRUE; }

std::string ToUtf8(const std::wstring& text) {
  const int size = static_cast<int>(text.size());
  std::string utf8(text.size() * 3, '\0');  // no character takes more
  const int length = WideCharToMultiByte(CP_UTF8, 0, text.data(), size, utf8.data(),
                                         static_cast<int>(utf8.size()), nullptr, nullptr);
  utf8.resize(static_cast<std::size_t>(length));
  return utf8;
}

std::wstring FromUtf8(const std::string& text) {
  const int size = static_cast<int>(text.size());
  std::wstring wide(text.size(), L'\0');
  const int length = MultiByteToWideChar(CP_UTF8, 0, text.data(), size, wide.data(), size);
  wide.resize(static_cast<std::size_t>(length));
  return wide;
}

std::vector<std::string> Arguments() {
  int count = 0;
  wchar_t** words = CommandLineToArgvW(GetCommandLineW(), &count);
  std::vector<std::string> arguments;
  for (int i = 1; i < count; ++i) arguments.push_back(ToUtf8(words[i]));
  LocalFree(words);
  return arguments;
}

std::wstring FullPath(const std::wstring& path) {
  std::wstring full(32768, L'\0');  // no path is longer
  const DWORD length =
      GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
  if (length == 0 || length >= full.size()) return path;
  full.resize(length);
  return full;
}

// A file that others may write and move while it is read.
class SharedFile final : public std::streambuf {
 public:
  SharedFile(const std::wstring& path, std::uint64_t from)
      : file(CreateFileW(path.c_str(), GENERIC_READ,
                         FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                         OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr)) {
    LARGE_INTEGER place;
    place.QuadPart = static_cast<LONGLONG>(from);
    if (IsOpen()) SetFilePointerEx(file, place, nullptr, FILE_BEGIN);
  }
  ~SharedFile() override {
    if (IsOpen()) CloseHandle(file);
  }
  SharedFile(const SharedFile&) = delete;
  SharedFile& operator=(const SharedFile&) = delete;

  bool IsOpen() const { return file != INVALID_HANDLE_VALUE; }

 protected:
  int_type underflow() override {  // NOLINT(readability-identifier-naming): overridden
    DWORD count = 0;
    if (ReadFile(file, piece.data(), static_cast<DWORD>(piece.size()), &count, nullptr) == FALSE) {
      throw std::ios_base::failure(Format("error %lu", GetLastError()));
    }
    if (count == 0) return traits_type::eof();
    setg(piece.data(), piece.data(), piece.data() + count);
    return traits_type::to_int_type(piece[0]);
  }

 private:
  HANDLE file;
  std::array<char, 65536> piece;
};

class WindowsHost final : public panelora::boxctl::Host {
 public:
  Desk OpenDesk(std::string& error) override {
    if (!mapped || !mapped->IsOpen()) mapped.emplace();
    if (mapped->IsOpen()) return {&mapped->Shared(), &*mapped};
    error = mapped->Error();
    return {};
  }

  // A library stays loaded until the program ends.
  DeviceLink* OpenLibrary(const std::string& path, std::string& error) override {
    std::unique_ptr<DevlnkLibrary>& library = libraries[path];
    if (library != nullptr) return library.get();
    const HMODULE module =
        LoadLibraryExW(FullPath(FromUtf8(path)).c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    if (module == nullptr) {
      error = WhyNot(path, GetLastError());
      return nullptr;
    }
    auto loaded = std::make_unique<DevlnkLibrary>([module](const char* name) {
      return reinterpret_cast<void*>(GetProcAddress(module, name));
    });
    if (!loaded->IsUsable()) {
      error = path + " lacks " + loaded->MissingExport() + ": name a DEVLNK.dll";
      return nullptr;
    }
    library = std::move(loaded);
    return library.get();
  }

  std::unique_ptr<std::streambuf> OpenShared(const std::string& path, std::uint64_t from) override {
    auto file = std::make_unique<SharedFile>(FromUtf8(path), from);
    if (!file->IsOpen()) return nullptr;
    return file;
  }

  std::uint64_t Milliseconds() const override { return GetTickCount64(); }

  void Sleep(std::uint32_t milliseconds) override {
    const std::uint64_t begin = Milliseconds();
    for (std::uint64_t slept = 0; slept < milliseconds && !IsStopped();
         slept = Milliseconds() - begin) {
      ::Sleep(std::min<DWORD>(kPatience, milliseconds - static_cast<DWORD>(slept)));
    }
  }

  bool IsStopped() const override { return Stopped(); }

 private:
  static std::string WhyNot(const std::string& path, DWORD error) {
    constexpr const char* kOther = sizeof(void*) == 8 ? "32" : "64";
    if (error != ERROR_BAD_EXE_FORMAT) {
      return path + Format(" can't be loaded (error %lu): is the name right?", error);
    }
    return path + Format(" is a library for %s bits: use the boxctl for %s bits", kOther, kOther);
  }

  std::optional<MappedBox> mapped;
  std::map<std::string, std::unique_ptr<DevlnkLibrary>> libraries;
};

}  // namespace

int main() {
  SetConsoleCtrlHandler(OnControl, TRUE);
  SetErrorMode(SEM_FAILCRITICALERRORS);  // a library that lacks another raises no window
  WindowsHost host;
  return panelora::boxctl::Run(Arguments(), host, std::cin, std::cout, std::cerr);
}
