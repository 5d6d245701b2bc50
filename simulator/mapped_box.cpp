#include "simulator/mapped_box.h"

#include <algorithm>

#include "base/text.h"
#include "simulator/box_control.h"
#include "simulator/wait_for_box.h"

namespace panelora::simulator {

namespace {

constexpr std::uint32_t kPatience = 1000;  // ms
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

MappedBox::~MappedBox() { Close(); }

void MappedBox::Open() {
  mutex = CreateMutexA(nullptr, FALSE, (path + ".lock").c_str());
  if (mutex == nullptr) {
    error = Format("the simulated box can't be had: error %lu", GetLastError());
    return;
  }
  if (TakeTurn(kPatience)) {
    Map();
    EndTurn();
  } else {
    error = "the simulated box can't be had: another program keeps it";
  }
  // As long as it is held, nobody can make another one.
  if (!error.empty()) Close();
}

// Under the mutex.
void MappedBox::Map() {
  memory = CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, sizeof(SharedBox),
                              path.c_str());
  void* view = memory != nullptr ? MapViewOfFile(memory, FILE_MAP_ALL_ACCESS, 0, 0, 0) : nullptr;
  if (view == nullptr) {
    error = Format("the simulated box has no memory: error %lu", GetLastError());
    return;
  }
  // Of another layout it may be smaller, but never than its first page.
  shared = static_cast<SharedBox*>(view);
  if (shared->magic == 0) MakeBox(*shared);
  if (shared->magic != SharedBox::kMagic || shared->layout != SharedBox::kLayout ||
      shared->size != sizeof(SharedBox)) {
    error = Format(
        "the simulated box is of another version (layout %u, this program knows %u): "
        "close the other programs that use it",
        shared->layout, SharedBox::kLayout);
    return;
  }
  life = CreateEventA(nullptr, TRUE, FALSE, LifeOf(Process()).c_str());
  const DWORD result = GetLastError();
  if (life == nullptr) {  // the others would take this process for a dead one
    error = Format("the simulated box can't be had: error %lu", result);
    return;
  }
  // One of the same number died here.
  if (result != ERROR_ALREADY_EXISTS && shared->owner == Process()) shared->owner = 0;
}

void MappedBox::Close() {
  if (shared != nullptr) UnmapViewOfFile(shared);
  shared = nullptr;
  for (HANDLE* handle : {&memory, &life, &mutex}) {
    if (*handle != nullptr) CloseHandle(*handle);
    *handle = nullptr;
  }
}

bool MappedBox::TakeTurn(std::uint32_t patience) {
  const DWORD waited = WaitForSingleObject(mutex, patience);
  return waited == WAIT_OBJECT_0 || waited == WAIT_ABANDONED;
}

void MappedBox::EndTurn() { ReleaseMutex(mutex); }

bool MappedBox::TryBox() {
  const std::uint32_t owner = *const_cast<volatile std::uint32_t*>(&shared->owner);
  return TryLock(0) || (owner != 0 && !IsAlive(owner) && TryLock(owner));
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

bool MappedBox::Lock() { return TryLock(0) || WaitForBox(*this, kPatience); }

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
