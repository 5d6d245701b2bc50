// The tracing DEVLNK.dll hands every call on as it is, and writes it down.
#include <array>
#include <random>
#include <vector>

#include "catalogue/codecs.h"
#include "simulator/box_model.h"
#include "tests/trace/traced_library.h"
#include "trace/call_ring.h"

namespace panelora::trace {
namespace {

// What a caller gives to a call and finds after it: buffers with guards behind what it asked for.
struct Seen {
  Call::Operation operation = Call::Operation::kOpen;
  std::uint32_t result = 0;
  std::array<std::uint8_t, 256> bytes{};
  std::array<std::uint32_t, 3> words{};
  std::array<std::uint8_t, 4> picture{};
  DWORD error = 0;

  bool operator==(const Seen&) const = default;
};

// A call of every kind with numbers that are drawn, the same for the same seed.
class Caller {
 public:
  Caller(const LoadedLibrary& theLibrary, unsigned seed) : library(theLibrary), generator(seed) {}

  Seen Make() {
    Seen seen;
    seen.bytes.fill(0xA5);
    seen.words.fill(0xA5A5A5A5);
    seen.picture.fill(0xA5);
    seen.operation = static_cast<Call::Operation>(Below(8));
    SetLastError(kError);
    seen.result = Made(seen);
    seen.error = GetLastError();
    return seen;
  }

  std::vector<Seen> Make(int count) {
    std::vector<Seen> all = {Opened()};
    for (int i = 1; i < count; ++i) all.push_back(Make());
    return all;
  }

  // The calls so far as a trace has to have them.
  const std::vector<Call>& Calls() const { return calls; }

 private:
  static constexpr DWORD kError = 4711;

  std::uint32_t Below(std::uint32_t end) { return static_cast<std::uint32_t>(generator() % end); }
  std::uint8_t Byte() { return static_cast<std::uint8_t>(Below(256)); }

  Seen Opened() {
    Seen seen;
    seen.result = Open(kOpenMode);
    return seen;
  }

  std::uint32_t Open(std::uint32_t mode) {
    Call call = Call::Open(mode);
    const std::uint32_t opened = library->open(mode);
    handle = opened;
    call.words[0] = opened;
    call.result = opened != kNoBox ? kSuccess : 0;
    calls.push_back(call);
    return opened;
  }

  std::uint32_t Kept(Call call, int result) {
    call.result = result;
    calls.push_back(std::move(call));
    return static_cast<std::uint32_t>(result);
  }

  std::uint32_t Made(Seen& seen) {
    static constexpr std::uint8_t kProperties[] = {254, 1, 14, 17, 18, 22, 23, 2};
    const std::uint8_t property = kProperties[Below(8)];
    const auto sub = static_cast<std::uint8_t>(Below(8) == 0 ? 1 : 0);
    const std::uint8_t length = Byte();
    const std::uint32_t group = Below(10) == 0 ? 1 : 0;
    const std::uint32_t item = Below(24);
    const std::uint32_t used = Below(10) == 0 ? handle + 1 : handle;
    BlockBuffer block;
    switch (seen.operation) {
      case Call::Operation::kOpen:
        return Open(Below(4) == 0 ? 1 : kOpenMode);
      case Call::Operation::kGetBlock: {
        Call call = Call::GetBlock(property, sub, length);
        const int result =
            library->getKiraboxProperty(used, property, sub, length, seen.bytes.data());
        if (result != 0) call.bytes.assign(seen.bytes.begin(), seen.bytes.begin() + length);
        return Kept(call, result);
      }
      case Call::Operation::kSetBlock:
        for (std::uint8_t& byte : seen.bytes) byte = Byte();
        std::copy(seen.bytes.begin(), seen.bytes.end(), block.begin());
        return Kept(Call::SetBlock(property, sub, length, block),
                    library->setKiraboxProperty(used, property, sub, length, seen.bytes.data()));
      case Call::Operation::kGetWord:
        return ReadWord(Call::GetWord(group, item),
                        library->getBoxProperty(used, group, item, seen.words.data()), seen);
      case Call::Operation::kSetWord:
        return Kept(Call::SetWord(group, item, length),
                    library->setBoxProperty(used, group, item, length));
      case Call::Operation::kGetPicture: {
        auto& [brightness, contrast, hue, saturation] = seen.picture;
        Call call = Call::GetPicture();
        const int result =
            library->getKiraboxProcAmp(used, &brightness, &contrast, &hue, &saturation);
        call.bytes.assign(seen.picture.begin(), seen.picture.end());
        return Kept(call, result);
      }
      case Call::Operation::kGetProcAmp:
        return ReadWord(Call::GetProcAmp(group, item % 7),
                        library->getVideoProcAmp(used, group, item % 7, seen.words.data()), seen);
      case Call::Operation::kSetProcAmp:
        return Kept(Call::SetProcAmp(group, item % 7, length),
                    library->setVideoProcAmp(used, group, item % 7, length));
    }
    return 0;
  }

  // The trace has the second word where the library fills it, which is compared elsewhere.
  std::uint32_t ReadWord(Call call, int result, const Seen& seen) {
    if (result != 0) call.words[0] = seen.words[0];
    return Kept(std::move(call), result);
  }

  const LoadedLibrary& library;
  std::mt19937 generator;
  std::uint32_t handle = 0;
  std::vector<Call> calls;
};

// Makes the same calls with and without the tracing library, compares what the caller sees, and the
// trace with what it made.
void ExpectSame(const std::filesystem::path& bare, const std::filesystem::path& tracing,
                const std::filesystem::path& file, const std::function<void(const char*)>& useDesk,
                int count) {
  std::vector<Call> made;
  {
    useDesk("bare");
    const LoadedLibrary bareLibrary(bare);
    const std::vector<Seen> expected = Caller(bareLibrary, 1).Make(count);
    useDesk("traced");
    const LoadedLibrary tracedLibrary(tracing);
    Caller caller(tracedLibrary, 1);
    const std::vector<Seen> seen = caller.Make(count);
    for (std::size_t i = 0; i < seen.size(); ++i) {
      ASSERT_EQ(seen[i], expected[i]) << i << ": " << TextOf(caller.Calls()[i]);
    }
    made = caller.Calls();
  }
  Trace trace = TraceIn(file);
  EXPECT_EQ(trace.lost, 0U);
  ASSERT_EQ(trace.calls.size(), made.size());
  for (std::size_t i = 0; i < made.size(); ++i) {
    trace.calls[i].call.words[1] = 0;
    ASSERT_EQ(trace.calls[i].call, made[i]) << i << ": " << TextOf(made[i]);
  }
}

TEST_F(TracedLibrary, HandsCallsOfTheSimulatedBoxOnAsTheyAre) {
  PutOver(Simulated());
  ExpectSame(
      Bare(), Tracing(), File(), [&](const char* name) { UseDesk(name); }, 2000);
}

TEST_F(TracedLibrary, HandsCallsOfLibrariesThatAreWrongOnAsTheyAre) {
  for (const char* name : {"fake_fails_every_call", "fake_only_opens", "fake_fills_answers",
                           "fake_fills_and_fails", "fake_answers_two", "fake_random"}) {
    SCOPED_TRACE(name);
    const FreshFolder fresh(name);
    std::filesystem::copy_file(PANELORA_TRACE_LIBRARY, fresh.Path() / "DEVLNK.dll");
    std::filesystem::copy_file(Fake(name), fresh.Path() / "DEVLNK.box.dll");
    std::filesystem::copy_file(Fake(name), fresh.Path() / kBare);
    ExpectSame(
        fresh.Path() / kBare, fresh.Path() / "DEVLNK.dll", fresh.Path() / "DEVLNK.trace.txt",
        [](const char*) {}, 500);
  }
}

// Of model 26 the firmware alone has two words; a caller has room for one elsewhere.
TEST_F(TracedLibrary, TakesNoMoreWordsThanTheLibraryFills) {
  PutOver(Simulated());
  UseDesk("words");
  {
    const LoadedLibrary library(Tracing());
    const std::uint32_t handle = library->open(kOpenMode);
    std::array<std::uint8_t, 20> identity{};
    EXPECT_EQ(library->getKiraboxProperty(handle, 254, 0, 20, identity.data()), kSuccess);
    for (const std::uint32_t item : {4U, 5U}) {
      WordBuffer words = {7, 7};
      EXPECT_EQ(library->getBoxProperty(handle, 0, item, words.data()), kSuccess);
    }
  }
  const Trace trace = TraceIn(File());
  ASSERT_EQ(trace.calls.size(), 4U);
  EXPECT_EQ(trace.calls[2].call.words, (WordBuffer{1, 0}));
  EXPECT_EQ(trace.calls[3].call.words, EncodeFirmware(simulator::BoxModel::kDefaultFirmware));
  for (std::size_t i = 1; i < trace.calls.size(); ++i) {
    EXPECT_GE(trace.calls[i].time, trace.calls[i - 1].time);
  }
}

// What stands before and behind such a call is read too.
TEST_F(TracedLibrary, TracesCallsWithoutABuffer) {
  PutOver(Fake("fake_only_opens"));
  std::vector<int> results;
  {
    const LoadedLibrary library(Tracing());
    const std::uint32_t handle = library->open(kOpenMode);
    results = {library->setKiraboxProperty(handle, 14, 0, 5, nullptr),
               library->getKiraboxProperty(handle, 14, 0, 5, nullptr),
               library->getBoxProperty(handle, 0, 5, nullptr),
               library->getKiraboxProcAmp(handle, nullptr, nullptr, nullptr, nullptr),
               library->getVideoProcAmp(handle, 0, 2, nullptr)};
    library->open(kOpenMode);
  }
  const Trace trace = TraceIn(File());
  ASSERT_EQ(trace.calls.size(), results.size() + 2);
  for (std::size_t i = 0; i < results.size(); ++i) {
    EXPECT_EQ(trace.calls[i + 1].call.result, results[i]) << i;
    EXPECT_TRUE(trace.calls[i + 1].call.bytes.empty()) << i;
  }
  EXPECT_EQ(trace.calls[1].call.length, 5);
}

// The buffers of a call that the library did not make stay as they are.
void ExpectEveryCallFails(const LoadedLibrary& library) {
  std::array<std::uint8_t, 4> bytes = {1, 2, 3, 4};
  std::uint32_t word = 5;
  EXPECT_EQ(library->open(kOpenMode), kNoBox);
  for (const std::uint32_t handle : {kNoBox, simulator::BoxModel::kHandle}) {
    EXPECT_EQ(library->getKiraboxProperty(handle, 254, 0, 4, bytes.data()), 0);
    EXPECT_EQ(library->setKiraboxProperty(handle, 22, 0, 1, bytes.data()), 0);
    EXPECT_EQ(library->getBoxProperty(handle, 0, 5, &word), 0);
    EXPECT_EQ(library->setBoxProperty(handle, 0, 4, 1), 0);
    EXPECT_EQ(library->getKiraboxProcAmp(handle, &bytes[0], &bytes[1], &bytes[2], &bytes[3]), 0);
    EXPECT_EQ(library->getVideoProcAmp(handle, 0, 2, &word), 0);
    EXPECT_EQ(library->setVideoProcAmp(handle, 0, 2, 1), 0);
  }
  EXPECT_EQ(bytes, (std::array<std::uint8_t, 4>{1, 2, 3, 4}));
  EXPECT_EQ(word, 5U);
}

TEST_F(TracedLibrary, FailsWithoutALibraryAndFindsItAtALaterOpen) {
  PutTracing();
  UseDesk("late");
  {
    const LoadedLibrary library(Tracing());
    ExpectEveryCallFails(library);
    ExpectEveryCallFails(library);
    PutTraced(Simulated());
    std::uint32_t word = 0;
    EXPECT_EQ(library->getBoxProperty(simulator::BoxModel::kHandle, 0, 5, &word), 0);
    EXPECT_EQ(library->open(kOpenMode), simulator::BoxModel::kHandle);
  }
  EXPECT_EQ(TraceIn(File()).calls.size(), 32U);
}

// Neither is one of this library's own copies; each can be replaced by one that does.
TEST_F(TracedLibrary, TakesNoLibraryThatCanNotBeUsed) {
  PutTracing();
  UseDesk("unusable");
  const LoadedLibrary library(Tracing());
  const std::filesystem::path traced = folder.Path() / "DEVLNK.box.dll";
  std::ofstream(traced, std::ios::binary) << "no library";
  ExpectEveryCallFails(library);
  std::filesystem::remove(traced);
  PutTraced(Fake("fake_refuses"));
  ExpectEveryCallFails(library);
  std::filesystem::remove(traced);
  PutTraced(Simulated());
  EXPECT_EQ(library->open(kOpenMode), simulator::BoxModel::kHandle);
}

TEST_F(TracedLibrary, DoesNotTraceItself) {
  PutTracing();
  PutTraced(PANELORA_TRACE_LIBRARY);
  // The copy that is traced has itself beside it.
  ExpectEveryCallFails(LoadedLibrary(Tracing()));
}

// One older file is kept; each run begins a file.
TEST_F(TracedLibrary, KeepsTheTraceOfTheRunBefore) {
  PutOver(Fake("fake_only_opens"));
  for (std::uint32_t run = 1; run <= 20; ++run) {
    {
      const LoadedLibrary library(Tracing());
      EXPECT_EQ(library->open(run), 1U);
    }
    for (const auto& [file, of] : {std::pair(File(), run), std::pair(OlderFile(), run - 1)}) {
      if (of == 0) continue;
      const Trace trace = TraceIn(file);
      ASSERT_EQ(trace.calls.size(), 1U);
      EXPECT_EQ(trace.calls[0].call.number, of);
    }
  }
}

TEST_F(TracedLibrary, LeavesNoFileWhereNoCallWasMade) {
  PutOver(Fake("fake_only_opens"));
  { const LoadedLibrary library(Tracing()); }
  EXPECT_FALSE(std::filesystem::exists(File()));
}

// A file that nobody else may open or move, but as far as it is shared.
class KeptFile {
 public:
  explicit KeptFile(const std::filesystem::path& path, DWORD shared = 0)
      : file(CreateFileW(path.c_str(), shared == 0 ? GENERIC_WRITE : GENERIC_READ, shared, nullptr,
                         OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr)) {
    EXPECT_NE(file, INVALID_HANDLE_VALUE);
  }
  ~KeptFile() { CloseHandle(file); }
  KeptFile(const KeptFile&) = delete;
  KeptFile& operator=(const KeptFile&) = delete;

 private:
  HANDLE file;
};

TEST_F(TracedLibrary, WritesAmongTheTemporaryFilesWhereItCanNotWriteBesideItself) {
  PutOver(Fake("fake_only_opens"));
  const KeptFile kept(File());
  {
    const LoadedLibrary library(Tracing());
    for (std::uint32_t i = 0; i < 7; ++i) library->open(i);
  }
  EXPECT_EQ(TraceIn(temporary.Path() / "DEVLNK.trace.txt").calls.size(), 7U);
}

// No call waits for the writer; what finds no room is counted.
TEST_F(TracedLibrary, CountsWhatIsLostWhileNothingCanBeWritten) {
  PutOver(Fake("fake_only_opens"));
  UseTemporaryFolder(folder.Path() / "missing");
  constexpr std::uint32_t kMore = 1000;
  auto kept = std::make_unique<KeptFile>(File());
  const LoadedLibrary library(Tracing());
  for (std::uint32_t i = 0; i < CallRing::kHeld + kMore; ++i) EXPECT_EQ(library->open(i), 1U);
  kept.reset();
  const std::string last = " lost " + std::to_string(kMore) + " [";
  EXPECT_TRUE(Until([&] { return BytesOf(File()).find(last) != std::string::npos; }));
  EXPECT_EQ(library->open(1), 1U);
  EXPECT_TRUE(Until([&] { return TraceIn(File()).calls.size() == CallRing::kHeld + 1; }));
  EXPECT_EQ(TraceIn(File()).lost, kMore);
}

TEST_F(TracedLibrary, LimitsTheLengthOfItsFile) {
  PutOver(Fake("fake_fills_answers"));
  {
    const LoadedLibrary library(Tracing());
    BlockBuffer block{};
    EXPECT_TRUE(Until([&] {
      for (int i = 0; i < 1000; ++i) library->getKiraboxProperty(0, 1, 0, 255, block.data());
      return std::filesystem::exists(OlderFile());
    }));
  }
  const Trace older = TraceIn(OlderFile());
  const Trace trace = TraceIn(File());
  EXPECT_EQ(older.firstNumber, 1U);
  EXPECT_EQ(trace.firstNumber, 1 + older.calls.size() + older.lost);
  EXPECT_LE(std::filesystem::file_size(OlderFile()), 16U * 1024 * 1024);
}

// A reader that does not share the file for moving takes nothing from the trace.
TEST_F(TracedLibrary, GoesOnInAFileThatAReaderKeeps) {
  PutOver(Fake("fake_fills_answers"));
  std::uint64_t made = 0;
  std::unique_ptr<KeptFile> reader;
  {
    const LoadedLibrary library(Tracing());
    BlockBuffer block{};
    const auto call = [&] {
      for (int i = 0; i < 1000; ++i) library->getKiraboxProperty(0, 1, 0, 255, block.data());
      made += 1000;
      Sleep(20);
    };
    call();
    EXPECT_TRUE(Until([&] { return std::filesystem::exists(File()); }));
    reader = std::make_unique<KeptFile>(File(), FILE_SHARE_READ | FILE_SHARE_WRITE);
    EXPECT_TRUE(Until([&] {
      call();
      return std::filesystem::file_size(File()) > 18U * 1024 * 1024;
    }));
    EXPECT_FALSE(std::filesystem::exists(OlderFile()));
    reader.reset();
    EXPECT_TRUE(Until([&] {
      call();
      return std::filesystem::exists(OlderFile());
    }));
  }
  const Trace older = TraceIn(OlderFile());
  const Trace trace = TraceIn(File());
  EXPECT_EQ(older.firstNumber, 1U);
  EXPECT_EQ(trace.firstNumber, 1 + older.calls.size() + older.lost);
  EXPECT_EQ(trace.firstNumber - 1 + trace.calls.size() + trace.lost, made);
  EXPECT_FALSE(std::filesystem::exists(temporary.Path() / "DEVLNK.trace.txt"));
}

// A process of this program that makes calls of the tracing library in the folder.
class OtherProcess {
 public:
  OtherProcess(const std::filesystem::path& library, const std::string& what) {
    wchar_t self[MAX_PATH] = L"";
    GetModuleFileNameW(nullptr, self, MAX_PATH);
    std::wstring command = L"\"" + std::wstring(self) + L"\" --calls \"" + library.wstring() +
                           L"\" " + std::wstring(what.begin(), what.end());
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    EXPECT_TRUE(CreateProcessW(self, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                               &start, &process));
    CloseHandle(process.hThread);
    handle = process.hProcess;
  }
  ~OtherProcess() {
    if (!hasEnded) Kill();
    CloseHandle(handle);
  }
  OtherProcess(const OtherProcess&) = delete;
  OtherProcess& operator=(const OtherProcess&) = delete;

  void Kill() {
    TerminateProcess(handle, 1);
    WaitForSingleObject(handle, INFINITE);
  }
  // Its exit code, when it has ended by itself.
  DWORD Ended() {
    hasEnded = WaitForSingleObject(handle, 60'000) == WAIT_OBJECT_0;
    EXPECT_TRUE(hasEnded);
    DWORD code = STILL_ACTIVE;
    GetExitCodeProcess(handle, &code);
    return code;
  }

 private:
  HANDLE handle = nullptr;
  bool hasEnded = false;  // by itself
};

// Of a process that has ended. Wine may tell that of a 32-bit one while its libraries still end,
// and whoever ends it then ends them, too.
Trace EndedTraceIn(const std::filesystem::path& file, std::size_t leastCalls) {
  Until([&] {
    const Trace trace = TraceIn(file);
    return trace.calls.size() + trace.lost >= leastCalls;
  });
  return TraceIn(file);
}

TEST_F(TracedLibrary, LeavesATraceThatCanBeReadWhenItsProcessIsKilled) {
  PutOver(Simulated());
  UseDesk("killed");
  for (int round = 0; round < 5; ++round) {
    OtherProcess process(Tracing(), "forever");
    EXPECT_TRUE(Until([&] { return BytesOf(File()).find("\n100 ") != std::string::npos; }));
    process.Kill();
    const Trace trace = TraceIn(File());
    EXPECT_GE(trace.calls.size(), 100U);
    std::uint32_t mode = 1000;
    for (const TracedCall& each : trace.calls) EXPECT_EQ(each.call.number, mode++);
    std::filesystem::remove(File());
  }
}

TEST_F(TracedLibrary, HasTheLastCallWhenItsProcessEnds) {
  PutOver(Fake("fake_only_opens"));
  for (int round = 0; round < 5; ++round) {
    EXPECT_EQ(OtherProcess(Tracing(), "1500").Ended(), 0U);
    const Trace trace = EndedTraceIn(File(), 1500);
    ASSERT_EQ(trace.calls.size(), 1500U);
    EXPECT_EQ(trace.calls.back().call.number, 1000U + 1499);
  }
}

TEST_F(TracedLibrary, LeavesTheTraceOfAnotherProcessAlone) {
  PutOver(Fake("fake_only_opens"));
  const OtherProcess process(Tracing(), "forever");
  EXPECT_TRUE(Until([&] { return BytesOf(File()).find("\n100 ") != std::string::npos; }));
  EXPECT_EQ(OtherProcess(Tracing(), "1500").Ended(), 0U);
  EXPECT_EQ(EndedTraceIn(temporary.Path() / "DEVLNK.trace.txt", 1500).calls.size(), 1500U);
  EXPECT_GE(TraceIn(File()).calls.size(), 99U);
}

// Whatever its threads are doing at that moment.
TEST_F(TracedLibrary, LetsAProcessEndWhileOtherThreadsMakeCalls) {
  PutOver(Fake("fake_only_opens"));
  for (int round = 0; round < 20; ++round) {
    EXPECT_EQ(OtherProcess(Tracing(), "threads").Ended(), 0U);
    const Trace trace = EndedTraceIn(File(), 1500);
    EXPECT_GE(trace.calls.size() + trace.lost, 1500U);
  }
}

}  // namespace
}  // namespace panelora::trace
