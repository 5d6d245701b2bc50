#include "simulator/mapped_box.h"

#include <algorithm>
#include <cstdlib>

#include "base/text.h"
#include "simulator/box_control.h"

namespace panelora::simulator {

namespace {

constexpr DWORD kPatience = 1000;  // ms
constexpr std::size_t kLongestName = 100;
constexpr std::uint64_t kFrom1601To1970 = 11644473600000000;  // microseconds

}  // namespace

std::string BoxName() {
  char name[kLongestName + 1] = "";
  const DWORD length = GetEnvironmentVariableA("PANELORA_BOX", name, sizeof name);
  return length > 0 && length < sizeof name ? name : "desk";
}

MappedBox::MappedBox(const std::string& name) {
  std::string path = "Local\\PaneloraBox." + name.substr(0, kLongestName);
  std::replace(path.begin() + 6, path.end(), '\\', '_');  // no object of a name has more of them
  Open(path);
  if (shared == nullptr) Close();
}

MappedBox::~MappedBox() { Close(); }

void MappedBox::Open(const std::string& path) {
  mutex = CreateMutexA(nullptr, FALSE, (path + ".lock").c_str());
  if (mutex == nullptr || !Lock()) {
    error = "the simulated box can't be locked: another program keeps it";
    return;
  }
  memory = CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, sizeof(SharedBox),
                              path.c_str());
  void* view = memory != nullptr ? MapViewOfFile(memory, FILE_MAP_ALL_ACCESS, 0, 0, 0) : nullptr;
  if (view == nullptr) {
    error = Format("the simulated box has no memory: error %lu", GetLastError());
  } else {
    auto* found = static_cast<SharedBox*>(view);
    if (found->magic == 0) MakeBox(*found);
    if (found->magic == SharedBox::kMagic && found->layout == SharedBox::kLayout &&
        found->size == sizeof(SharedBox)) {
      shared = found;
    } else {
      error = Format(
          "the simulated box is of another version (layout %u, this program knows %u): "
          "close the other programs that use it",
          found->layout, SharedBox::kLayout);
      UnmapViewOfFile(view);
    }
  }
  Unlock();
}

void MappedBox::Close() {
  if (shared != nullptr) UnmapViewOfFile(shared);
  if (memory != nullptr) CloseHandle(memory);
  if (mutex != nullptr) CloseHandle(mutex);
  shared = nullptr;
  memory = mutex = nullptr;
}

bool MappedBox::Lock() {
  const DWORD waited = WaitForSingleObject(mutex, kPatience);
  return waited == WAIT_OBJECT_0 || waited == WAIT_ABANDONED;
}

void MappedBox::Unlock() { ReleaseMutex(mutex); }

std::uint64_t MappedBox::Milliseconds() const { return GetTickCount64(); }

std::uint64_t MappedBox::Microseconds() const {
  LARGE_INTEGER count;
  LARGE_INTEGER perSecond;
  QueryPerformanceCounter(&count);
  QueryPerformanceFrequency(&perSecond);
  return static_cast<std::uint64_t>(static_cast<double>(count.QuadPart) * 1e6 /
                                    static_cast<double>(perSecond.QuadPart));
}

std::uint64_t MappedBox::Time() const {
  FILETIME time;
  GetSystemTimeAsFileTime(&time);
  const std::uint64_t tenths =
      (static_cast<std::uint64_t>(time.dwHighDateTime) << 32) | time.dwLowDateTime;
  return tenths / 10 - kFrom1601To1970;
}

void MappedBox::Sleep(std::uint32_t milliseconds) { ::Sleep(milliseconds); }

std::uint32_t MappedBox::Process() const { return GetCurrentProcessId(); }

}  // namespace panelora::simulator
