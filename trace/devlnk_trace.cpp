// The DEVLNK.dll that stands between a program and the maker's library, which is to lie beside it
// as DEVLNK.box.dll. It hands every call on as it is, and writes it into DEVLNK.trace.txt.
#include <windows.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cwchar>
#include <cwctype>
#include <initializer_list>
#include <limits>
#include <string>
#include <string_view>
#include <utility>

#include "device/devlnk_library.h"
#include "trace/answered_words.h"
#include "trace/trace_writer.h"

namespace panelora::trace {

namespace {

constexpr int kFailure = 0;
constexpr wchar_t kBoxLibrary[] = L"DEVLNK.box.dll";
constexpr wchar_t kFile[] = L"DEVLNK.trace.txt";
constexpr wchar_t kOlderFile[] = L"DEVLNK.trace.old.txt";

// The name of a file, as long as it has room.
class FileName {
 public:
  static constexpr std::size_t kRoom = 1024;

  constexpr FileName() = default;
  FileName(const wchar_t* folder, const wchar_t* name) {
    if (std::wcslen(folder) + std::wcslen(name) >= kRoom) return;
    std::wcscpy(text.data(), folder);
    std::wcscat(text.data(), name);
  }

  bool IsEmpty() const { return text[0] == L'\0'; }
  const wchar_t* Text() const { return text.data(); }

 private:
  std::array<wchar_t, kRoom> text = {};
};

HMODULE OwnModule() {
  HMODULE own = nullptr;
  GetModuleHandleExW(
      GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
      reinterpret_cast<const wchar_t*>(&OwnModule), &own);
  return own;
}

// A file beside this library; empty when the folder's name is too long.
FileName Beside(const wchar_t* name) {
  wchar_t path[FileName::kRoom] = L"";
  const DWORD length = GetModuleFileNameW(OwnModule(), path, FileName::kRoom);
  wchar_t* end = std::wcsrchr(path, L'\\');
  if (length == 0 || length >= FileName::kRoom || end == nullptr) return {};
  end[1] = L'\0';
  return {path, name};
}

// A file in the folder of the temporary ones.
FileName Temporary(const wchar_t* name) {
  wchar_t folder[MAX_PATH + 1] = L"";
  const DWORD length = GetTempPathW(MAX_PATH + 1, folder);
  if (length == 0 || length > MAX_PATH) return {};
  return {folder, name};
}

// Where a trace may be written: its file and the older one. One process at a time has it.
class TracePlace {
 public:
  constexpr TracePlace() = default;
  TracePlace(const FileName& theFile, const FileName& theOlderFile)
      : file(theFile), olderFile(theOlderFile) {}

  // False when another process has it.
  bool Claim() {
    if (file.IsEmpty()) return false;
    if (claim != nullptr) return true;
    claim = CreateMutexW(nullptr, FALSE, ClaimName().data());
    if (claim != nullptr && GetLastError() == ERROR_ALREADY_EXISTS) Release();
    return claim != nullptr;
  }

  void Release() {
    const HANDLE closed = std::exchange(claim, nullptr);
    if (closed != nullptr) CloseHandle(closed);
  }

  // A new file, open for writing; null when there can be none, or the one before can't be moved,
  // which it can't while somebody has it open who does not let it. A thread that was ended in here
  // may have left one that is still empty, and open: that is taken.
  HANDLE Begin() const {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (GetFileAttributesExW(file.Text(), GetFileExInfoStandard, &data) &&
        (data.nFileSizeLow != 0 || data.nFileSizeHigh != 0) &&
        !MoveFileExW(file.Text(), olderFile.Text(), MOVEFILE_REPLACE_EXISTING)) {
      return nullptr;
    }
    return Open(CREATE_ALWAYS);
  }

  // The file that is there, open for writing, with all that it has; null when there is none.
  HANDLE GoOn() const { return Open(OPEN_EXISTING); }

 private:
  HANDLE Open(DWORD how) const {
    const HANDLE opened =
        CreateFileW(file.Text(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, how,
                    FILE_ATTRIBUTE_NORMAL, nullptr);
    return opened != INVALID_HANDLE_VALUE ? opened : nullptr;
  }

  // Of the file's name, as no object may have it.
  std::array<wchar_t, 40> ClaimName() const {
    std::uint64_t hash = 0xCBF29CE484222325;
    for (const wchar_t* letter = file.Text(); *letter != L'\0'; ++letter) {
      hash = (hash ^ std::towlower(*letter)) * 0x100000001B3;
    }
    std::array<wchar_t, 40> name = {};
    std::wcscpy(name.data(), L"Local\\PaneloraTrace.");
    wchar_t* digit = name.data() + std::wcslen(name.data());
    for (; hash != 0; hash >>= 4) *digit++ = L"0123456789ABCDEF"[hash & 0xF];
    return name;
  }

  FileName file;
  FileName olderFile;
  HANDLE claim = nullptr;
};

// The trace's file beside this library or, where none can be written there, among the temporary
// ones.
class TraceFiles final : public TraceDisk {
 public:
  constexpr TraceFiles() = default;

  void FindPlaces() {
    places = {TracePlace(Beside(kFile), Beside(kOlderFile)),
              TracePlace(Temporary(kFile), Temporary(kOlderFile))};
    places.front().Claim();
  }

  bool Begin() noexcept override {
    const ULONGLONG now = GetTickCount64();
    if (now < notBefore) return false;
    const bool isBegun = MakeFile();
    if (!isBegun) notBefore = now + kWait;
    return isBegun;
  }

  bool Write(std::uint64_t at, std::string_view bytes) noexcept override {
    if (!GoTo(at)) return false;
    for (std::string_view left = bytes; !left.empty();) {
      DWORD written = 0;
      const bool isDone =
          WriteFile(file, left.data(), static_cast<DWORD>(left.size()), &written, nullptr) != FALSE;
      if (!isDone || written == 0) {
        if (GoTo(at)) SetEndOfFile(file);  // no half of a line stays
        return false;
      }
      left.remove_prefix(written);
    }
    return true;
  }

  void Close() {
    CloseFile();
    for (TracePlace& place : places) place.Release();
  }

 private:
  static constexpr ULONGLONG kWait = 1000;  // ms until files are tried again

  // A file that can't be moved away stays the one that is written.
  bool MakeFile() {
    CloseFile();
    if (current != nullptr) {
      file = current->Begin();
      if (file != nullptr) return true;
      file = current->GoOn();
      if (file != nullptr) return false;
    }
    for (TracePlace& place : places) {
      if (!place.Claim()) continue;
      file = place.Begin();
      if (file == nullptr) continue;
      current = &place;
      return true;
    }
    return false;
  }

  // Nobody else has the handle when it is closed.
  void CloseFile() {
    const HANDLE closed = std::exchange(file, nullptr);
    if (closed != nullptr) CloseHandle(closed);
  }

  bool GoTo(std::uint64_t at) const {
    LARGE_INTEGER place;
    place.QuadPart = static_cast<LONGLONG>(at);
    return SetFilePointerEx(file, place, nullptr, FILE_BEGIN) != FALSE;
  }

  std::array<TracePlace, 2> places;
  TracePlace* current = nullptr;  // where the last file was begun
  HANDLE file = nullptr;          // none
  ULONGLONG notBefore = 0;
};

// What a call is timed with. Older systems know the time of day to some milliseconds only.
class Clock {
 public:
  constexpr Clock() = default;

  void Start() {
    QueryPerformanceFrequency(&perSecond);
    const auto precise = reinterpret_cast<void*>(
        GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "GetSystemTimePreciseAsFileTime"));
    timeOfDay = precise != nullptr ? reinterpret_cast<TimeOfDay>(precise) : GetSystemTimeAsFileTime;
  }

  // Microseconds since 1970 (UTC).
  std::uint64_t Time() const {
    constexpr std::uint64_t kFrom1601To1970 = 11644473600000000;
    FILETIME time;
    timeOfDay(&time);
    const std::uint64_t tenths =
        static_cast<std::uint64_t>(time.dwHighDateTime) << 32 | time.dwLowDateTime;
    return tenths / 10 - kFrom1601To1970;
  }

  static LONGLONG Count() {
    LARGE_INTEGER count;
    QueryPerformanceCounter(&count);
    return count.QuadPart;
  }

  std::uint32_t MicrosecondsSince(LONGLONG begin) const {
    constexpr double kMost = std::numeric_limits<std::uint32_t>::max();
    const double passed =
        static_cast<double>(Count() - begin) * 1e6 / static_cast<double>(perSecond.QuadPart);
    return static_cast<std::uint32_t>(std::clamp(passed, 0.0, kMost));
  }

 private:
  using TimeOfDay = void(WINAPI*)(FILETIME*);

  LARGE_INTEGER perSecond = {};
  TimeOfDay timeOfDay = nullptr;
};

// Calls go into a ring; a thread of the system's pool writes them into a file a moment later.
class Tracer {
 public:
  explicit constexpr Tracer(CallRing& theRing) : ring(theRing), writer(theRing, files) {}

  // At the first call: what it does must not be done while libraries are loaded.
  void Start() { InitOnceExecuteOnce(&once, OnStart, this, nullptr); }

  void Put(const Record& record) {
    words.Hear(record);
    if (isEnded.load(std::memory_order_relaxed)) return;
    ring.Put(record);
    if (ring.Waiting() == CallRing::kHeld / 2) SetTimer(0);
  }

  // The library is unloaded, or the process ends; then no other thread is left, and each may have
  // been ended in the middle of anything.
  void End(bool endsProcess) {
    if (isEnded.exchange(true) || !isStarted.load()) return;
    if (!endsProcess && timer != nullptr) {
      SetThreadpoolTimer(timer, nullptr, 0, 0);
      WaitForThreadpoolTimerCallbacks(timer, TRUE);
      CloseThreadpoolTimer(timer);
    }
    writer.WriteWaiting();
    files.Close();
  }

  const Clock& TheClock() const { return clock; }
  const AnsweredWords& Words() const { return words; }

 private:
  static constexpr int kPeriod = 50;  // ms: what is lost when the process is killed

  void StartOnce() {
    clock.Start();
    files.FindPlaces();
    // The maker's library was just read from the disk. A process that is short ends while the file
    // would be opened otherwise.
    writer.Begin();
    timer = CreateThreadpoolTimer(OnTimer, this, nullptr);
    SetTimer(kPeriod);
    isStarted.store(true);
  }

  void SetTimer(int milliseconds) {
    if (timer == nullptr) return;
    LARGE_INTEGER due;
    due.QuadPart = -LONGLONG{milliseconds} * 10'000;
    FILETIME from = {due.LowPart, static_cast<DWORD>(due.HighPart)};
    SetThreadpoolTimer(timer, &from, kPeriod, 0);
  }

  static BOOL CALLBACK OnStart(INIT_ONCE*, void* self, void**) noexcept {
    static_cast<Tracer*>(self)->StartOnce();
    return TRUE;
  }
  static void CALLBACK OnTimer(PTP_CALLBACK_INSTANCE, void* self, PTP_TIMER) noexcept {
    static_cast<Tracer*>(self)->WriteWaiting();
  }

  // One thread at a time: a slow disk must not hold more of them.
  void WriteWaiting() {
    if (isWriting.test_and_set()) return;
    writer.WriteWaiting();
    isWriting.clear();
  }

  CallRing& ring;
  TraceFiles files;
  TraceWriter writer;
  AnsweredWords words;
  Clock clock;
  INIT_ONCE once = {};
  PTP_TIMER timer = nullptr;
  std::atomic<bool> isStarted = false;
  std::atomic<bool> isEnded = false;
  std::atomic_flag isWriting = ATOMIC_FLAG_INIT;
};

// Made before anything runs, and never unmade: there are calls until the very end.
Tracer& TheTracer() {
  static CallRing::Places places;  // all zeros, which take no room in the file
  static constinit CallRing ring(places);
  static constinit Tracer tracer(ring);
  return tracer;
}

// The system's folders and that of the library, where the system can be told so; no box opens when
// something of it is missing.
HMODULE Load(const wchar_t* path) {
  const bool canTell =
      GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "AddDllDirectory") != nullptr;
  const DWORD folders = canTell ? LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR | LOAD_LIBRARY_SEARCH_SYSTEM32
                                : LOAD_WITH_ALTERED_SEARCH_PATH;
  const UINT mode = GetErrorMode();
  SetErrorMode(mode | SEM_FAILCRITICALERRORS);
  const HMODULE module = LoadLibraryExW(path, nullptr, folders);
  SetErrorMode(mode);
  return module;
}

// The maker's library. It is looked for at every open until it is found.
class BoxLibrary {
 public:
  constexpr BoxLibrary() = default;

  // Null until it was found.
  const DevlnkExports* Get() const { return found.load(std::memory_order_acquire); }

  void Find() {
    AcquireSRWLockExclusive(&lock);
    if (Get() == nullptr) TryToFind();
    ReleaseSRWLockExclusive(&lock);
  }

  // As it would be unloaded if it were the program's own.
  void Release() {
    if (module != nullptr) FreeLibrary(module);
  }

 private:
  void TryToFind() {
    const FileName path = Beside(kBoxLibrary);
    module = path.IsEmpty() ? nullptr : Load(path.Text());
    // A copy of this library in its place would call itself without end.
    if (module != nullptr && module != OwnModule()) {
      const std::string missing = DevlnkLibrary::Bind(
          [this](const char* name) {
            return reinterpret_cast<void*>(GetProcAddress(module, name));
          },
          exports);
      if (missing.empty()) {
        found.store(&exports, std::memory_order_release);
        return;
      }
    }
    Release();
    module = nullptr;
    if (!std::exchange(isTold, true)) {
      OutputDebugStringA(
          "Panelora: no library DEVLNK.box.dll that can be used lies beside the DEVLNK.dll that "
          "traces; rename the maker's DEVLNK.dll to that.\n");
    }
  }

  SRWLOCK lock = {};
  HMODULE module = nullptr;
  DevlnkExports exports;
  std::atomic<const DevlnkExports*> found = nullptr;
  bool isTold = false;
};

BoxLibrary& TheBoxLibrary() {
  static constinit BoxLibrary library;
  return library;
}

const DevlnkExports* Box() { return TheBoxLibrary().Get(); }

// A call while it is made: begun when this is made, and traced with what is put into `record`.
class Making {
 public:
  Making(Call::Operation operation, std::uint32_t group, std::uint32_t number) {
    TheTracer().Start();
    record.operation = operation;
    record.group = group;
    record.number = number;
    record.time = TheTracer().TheClock().Time();
    begin = Clock::Count();
  }

  // To be told before the call is made.
  void TakeBlock(std::uint8_t sub, std::uint8_t length) {
    record.sub = sub;
    record.length = length;
  }
  void TakeBytes(const std::uint8_t* bytes) {
    if (bytes == nullptr) return;
    std::copy_n(bytes, record.length, record.bytes.begin());
    record.byteCount = record.length;
  }
  void TakeWords(const std::uint32_t* words, std::size_t count) {
    if (words != nullptr) std::copy_n(words, count, record.words.begin());
  }
  void TakePicture(std::initializer_list<const std::uint8_t*> values) {
    if (std::find(values.begin(), values.end(), nullptr) != values.end()) return;
    for (const std::uint8_t* value : values) record.bytes[record.byteCount++] = *value;
  }

  // The library has answered; whether it said that it did.
  bool Answered(int result) {
    error = GetLastError();
    record.duration = TheTracer().TheClock().MicrosecondsSince(begin);
    record.result = result;
    return result != kFailure;
  }

  // Traces the call; its result.
  int Keep() {
    TheTracer().Put(record);
    SetLastError(error);
    return record.result;
  }

 private:
  Record record = {};
  LONGLONG begin = 0;
  DWORD error = 0;
};

}  // namespace

}  // namespace panelora::trace

using panelora::Call;
using panelora::kBoxGroup;
using namespace panelora::trace;  // NOLINT: the exports stand outside every namespace

#define DEVLNK_EXPORT extern "C" __declspec(dllexport)

extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD reason, void* endsProcess) {
  if (reason != DLL_PROCESS_DETACH) return TRUE;
  TheTracer().End(endsProcess != nullptr);
  if (endsProcess == nullptr) TheBoxLibrary().Release();
  return TRUE;
}

DEVLNK_EXPORT std::uint32_t PANELORA_DEVLNK_CALL DEVLNK_OPEN(std::uint32_t mode) {
  if (Box() == nullptr) TheBoxLibrary().Find();
  Making call(Call::Operation::kOpen, kBoxGroup, mode);
  const std::uint32_t handle = Box() != nullptr ? Box()->open(mode) : panelora::kNoBox;
  call.Answered(handle != panelora::kNoBox ? panelora::kSuccess : kFailure);
  call.TakeWords(&handle, 1);
  call.Keep();
  return handle;
}

DEVLNK_EXPORT int PANELORA_DEVLNK_CALL DEVLNK_GET_KIRABOX_PROPERTY(std::uint32_t handle,
                                                                   std::uint8_t property,
                                                                   std::uint8_t sub,
                                                                   std::uint8_t length,
                                                                   std::uint8_t* out) {
  Making call(Call::Operation::kGetBlock, kBoxGroup, property);
  call.TakeBlock(sub, length);
  const int result =
      Box() != nullptr ? Box()->getKiraboxProperty(handle, property, sub, length, out) : kFailure;
  if (call.Answered(result)) call.TakeBytes(out);
  return call.Keep();
}

// The library may change the bytes that it is told.
DEVLNK_EXPORT int PANELORA_DEVLNK_CALL DEVLNK_SET_KIRABOX_PROPERTY(std::uint32_t handle,
                                                                   std::uint8_t property,
                                                                   std::uint8_t sub,
                                                                   std::uint8_t length,
                                                                   std::uint8_t* bytes) {
  Making call(Call::Operation::kSetBlock, kBoxGroup, property);
  call.TakeBlock(sub, length);
  call.TakeBytes(bytes);
  call.Answered(Box() != nullptr ? Box()->setKiraboxProperty(handle, property, sub, length, bytes)
                                 : kFailure);
  return call.Keep();
}

DEVLNK_EXPORT int PANELORA_DEVLNK_CALL DEVLNK_GET_BOX_PROPERTY(std::uint32_t handle,
                                                               std::uint32_t group,
                                                               std::uint32_t item,
                                                               std::uint32_t* out) {
  Making call(Call::Operation::kGetWord, group, item);
  const int result = Box() != nullptr ? Box()->getBoxProperty(handle, group, item, out) : kFailure;
  if (call.Answered(result)) call.TakeWords(out, TheTracer().Words().Of(item));
  return call.Keep();
}

DEVLNK_EXPORT int PANELORA_DEVLNK_CALL DEVLNK_SET_BOX_PROPERTY(std::uint32_t handle,
                                                               std::uint32_t group,
                                                               std::uint32_t item,
                                                               std::uint32_t value) {
  Making call(Call::Operation::kSetWord, group, item);
  call.TakeWords(&value, 1);
  call.Answered(Box() != nullptr ? Box()->setBoxProperty(handle, group, item, value) : kFailure);
  return call.Keep();
}

// What its result says is not known, so that the values count whatever it is.
DEVLNK_EXPORT int PANELORA_DEVLNK_CALL DEVLNK_GET_KIRABOX_PROC_AMP(std::uint32_t handle,
                                                                   std::uint8_t* brightness,
                                                                   std::uint8_t* contrast,
                                                                   std::uint8_t* hue,
                                                                   std::uint8_t* saturation) {
  Making call(Call::Operation::kGetPicture, kBoxGroup, 0);
  const int result = Box() != nullptr
                         ? Box()->getKiraboxProcAmp(handle, brightness, contrast, hue, saturation)
                         : kFailure;
  call.Answered(result);
  if (Box() != nullptr) call.TakePicture({brightness, contrast, hue, saturation});
  return call.Keep();
}

DEVLNK_EXPORT int PANELORA_DEVLNK_CALL DEVLNK_GET_VIDEO_PROC_AMP(std::uint32_t handle,
                                                                 std::uint32_t group,
                                                                 std::uint32_t control,
                                                                 std::uint32_t* out) {
  Making call(Call::Operation::kGetProcAmp, group, control);
  const int result =
      Box() != nullptr ? Box()->getVideoProcAmp(handle, group, control, out) : kFailure;
  if (call.Answered(result)) call.TakeWords(out, 1);
  return call.Keep();
}

DEVLNK_EXPORT int PANELORA_DEVLNK_CALL DEVLNK_SET_VIDEO_PROC_AMP(std::uint32_t handle,
                                                                 std::uint32_t group,
                                                                 std::uint32_t control,
                                                                 std::uint32_t value) {
  Making call(Call::Operation::kSetProcAmp, group, control);
  call.TakeWords(&value, 1);
  call.Answered(Box() != nullptr ? Box()->setVideoProcAmp(handle, group, control, value)
                                 : kFailure);
  return call.Keep();
}
