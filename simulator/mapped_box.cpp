#include "simulator/mapped_box.h"

#include <algorithm>

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
  std::string own = name.substr(0, kLongestName);
  std::replace(own.begin(), own.end(), '\\', '_');  // which would name another space of names
  path = "Local\\PaneloraBox." + own;
  Open();
}

MappedBox::~MappedBox() {
  if (shared != nullptr) UnmapViewOfFile(shared);
  for (const HANDLE handle : {memory, life, mutex}) {
    if (handle != nullptr) CloseHandle(handle);
  }
}

void MappedBox::Open() {
  mutex = CreateMutexA(nullptr, FALSE, (path + ".lock").c_str());
  if (mutex == nullptr || !TakeMutex()) {
    error = "the simulated box can't be had: another program keeps it";
    return;
  }
  memory = CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, sizeof(SharedBox),
                              path.c_str());
  void* view = memory != nullptr ? MapViewOfFile(memory, FILE_MAP_ALL_ACCESS, 0, 0, 0) : nullptr;
  if (view == nullptr) {
    error = Format("the simulated box has no memory: error %lu", GetLastError());
    ReleaseMutex(mutex);
    return;
  }
  // Of another layout it may be smaller, but never than its first page.
  auto* found = static_cast<SharedBox*>(view);
  if (found->magic == 0) MakeBox(*found);
  if (found->magic == SharedBox::kMagic && found->layout == SharedBox::kLayout &&
      found->size == sizeof(SharedBox)) {
    shared = found;
    life = CreateEventA(nullptr, TRUE, FALSE, LifeOf(Process()).c_str());
    const bool isFirst = GetLastError() != ERROR_ALREADY_EXISTS;
    // One of the same number died here.
    if (isFirst && shared->owner == Process()) shared->owner = 0;
  } else {
    error = Format(
        "the simulated box is of another version (layout %u, this program knows %u): "
        "close the other programs that use it",
        found->layout, SharedBox::kLayout);
    UnmapViewOfFile(view);
  }
  ReleaseMutex(mutex);
}

bool MappedBox::TakeMutex() {
  const DWORD waited = WaitForSingleObject(mutex, kPatience);
  return waited == WAIT_OBJECT_0 || waited == WAIT_ABANDONED;
}

bool MappedBox::TryLock(std::uint32_t from) {
  auto* owner = reinterpret_cast<volatile LONG*>(&shared->owner);
  const auto before = static_cast<LONG>(from);
  return InterlockedCompareExchange(owner, static_cast<LONG>(Process()), before) == before;
}

std::string MappedBox::LifeOf(std::uint32_t process) const { return path + Format(".%u", process); }

bool MappedBox::IsAlive(std::uint32_t process) const {
  const HANDLE its = OpenEventA(SYNCHRONIZE, FALSE, LifeOf(process).c_str());
  if (its == nullptr) return false;
  CloseHandle(its);
  return true;
}

bool MappedBox::Lock() {
  if (TryLock(0)) return true;
  if (!TakeMutex()) return false;
  const std::uint64_t begin = Milliseconds();
  bool taken = false;
  while (!taken && Milliseconds() - begin < kPatience) {
    const std::uint32_t owner = *const_cast<volatile std::uint32_t*>(&shared->owner);
    taken = TryLock(0) || (owner != 0 && !IsAlive(owner) && TryLock(owner));
    if (!taken) ::Sleep(0);
  }
  ReleaseMutex(mutex);
  return taken;
}

void MappedBox::Unlock() {
  InterlockedExchange(reinterpret_cast<volatile LONG*>(&shared->owner), 0);
}

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
