// The way of calls from their callers through the ring into the files.
#include "trace/trace_writer.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <sstream>
#include <string>
#include <thread>

#include "tests/trace/record_of.h"
#include "trace/answered_words.h"

namespace panelora::trace {
namespace {

// Files in memory, of a disk that may be full or away.
class MemoryDisk final : public TraceDisk {
 public:
  bool Begin() noexcept override {
    ++begun;
    if (isAway || isKept) return false;
    files.emplace_back();
    return true;
  }

  bool Write(std::uint64_t at, std::string_view bytes) noexcept override {
    ++writes;
    if (files.empty()) return false;
    std::string& file = files.back();
    EXPECT_LE(at, file.size());
    const std::size_t taken = std::min<std::size_t>(bytes.size(), room - std::min(room, at));
    file.replace(static_cast<std::size_t>(at), taken, bytes.substr(0, taken));
    if (whileWriting) std::exchange(whileWriting, nullptr)();
    if (isLast) return false;
    if (taken < bytes.size()) file.resize(static_cast<std::size_t>(at));
    return taken == bytes.size();
  }

  std::vector<std::string> files;
  bool isAway = false;
  bool isKept = false;                 // by somebody who has the file open
  bool isLast = false;                 // whoever writes is ended with it
  std::uint64_t room = 1'000'000'000;  // bytes that a file can have
  std::function<void()> whileWriting;
  int begun = 0;
  int writes = 0;
};

class Writing : public ::testing::Test {
 protected:
  void Put(std::uint32_t count) {
    for (std::uint32_t i = 0; i < count; ++i) {
      const Call call = Call::SetWord(0, 1, put++);
      ring->Put(RecordOf({1'000'000, 5, call}));
    }
  }

  // What a file tells: the values of its calls, which count from 0 for number 1.
  Trace Read(std::size_t file) { return Read(disk.files.at(file)); }
  static Trace Read(const std::string& text) {
    std::istringstream in(text);
    std::string error;
    const auto trace = ReadTrace(in, error);
    EXPECT_TRUE(trace) << error;
    return trace.value_or(Trace());
  }

  // All calls of a file, each under its number.
  std::vector<std::uint64_t> NumbersIn(const Trace& trace) {
    std::vector<std::uint64_t> numbers;
    for (const TracedCall& each : trace.calls) {
      EXPECT_EQ(each.call.words[0] + 1, each.number);
      numbers.push_back(each.number);
    }
    return numbers;
  }

  static std::vector<std::uint64_t> Numbers(std::uint64_t first, std::uint64_t last) {
    std::vector<std::uint64_t> numbers;
    for (; first <= last; ++first) numbers.push_back(first);
    return numbers;
  }

  static constexpr std::uint32_t kHeld = CallRing::kHeld;

  std::unique_ptr<CallRing::Places> places = std::make_unique<CallRing::Places>();
  std::unique_ptr<CallRing> ring = std::make_unique<CallRing>(*places);
  MemoryDisk disk;
  std::unique_ptr<TraceWriter> writer = std::make_unique<TraceWriter>(*ring, disk);
  std::uint32_t put = 0;
};

TEST_F(Writing, BeginsAFileWithTheFirstCall) {
  writer->WriteWaiting();
  EXPECT_EQ(disk.begun, 0);
  Put(3);
  EXPECT_EQ(ring->Waiting(), 3U);
  writer->WriteWaiting();
  EXPECT_EQ(ring->Waiting(), 0U);
  Put(2);
  writer->WriteWaiting();
  writer->WriteWaiting();
  EXPECT_EQ(disk.begun, 1);
  EXPECT_EQ(disk.writes, 2);
  EXPECT_EQ(NumbersIn(Read(0)), Numbers(1, 5));
}

TEST_F(Writing, BeginsAFileBeforeTheFirstCallWhereItIsTold) {
  writer->Begin();
  EXPECT_EQ(disk.begun, 1);
  EXPECT_EQ(Read(0).calls.size(), 0U);
  Put(2);
  writer->WriteWaiting();
  EXPECT_EQ(disk.begun, 1);
  EXPECT_EQ(NumbersIn(Read(0)), Numbers(1, 2));
}

TEST_F(Writing, WritesAFullRingInOneGo) {
  Put(kHeld);
  EXPECT_EQ(ring->Waiting(), kHeld);
  writer->WriteWaiting();
  EXPECT_EQ(NumbersIn(Read(0)), Numbers(1, kHeld));
  EXPECT_EQ(Read(0).lost, 0U);
}

TEST_F(Writing, CountsWhatFindsNoRoom) {
  Put(kHeld + 70);
  EXPECT_EQ(ring->Waiting(), kHeld);
  writer->WriteWaiting();
  // It is told at once, not only before the next call.
  EXPECT_EQ(Read(0).lost, 70U);
  Put(1);
  writer->WriteWaiting();
  Trace trace = Read(0);
  EXPECT_EQ(trace.lost, 70U);
  EXPECT_EQ(trace.calls.back().number, kHeld + 71);
  trace.calls.pop_back();
  EXPECT_EQ(NumbersIn(trace), Numbers(1, kHeld));
}

TEST_F(Writing, TellsOfLostCallsBeforeTheCallThatFollows) {
  Put(kHeld + 5);
  ring->Release(1);  // there is room for one more before anything is written
  Put(1);
  EXPECT_EQ(ring->At(kHeld).lostBefore, 5U);
  EXPECT_EQ(ring->TakeLost(), 0U);
}

TEST_F(Writing, WaitsForADiskThatIsFull) {
  Put(10);
  writer->WriteWaiting();
  const std::size_t size = disk.files[0].size();
  disk.room = size + 100;
  Put(kHeld + 30);
  for (int i = 0; i < 3; ++i) writer->WriteWaiting();
  EXPECT_EQ(disk.files[0].size(), size);  // no half of a line
  EXPECT_EQ(NumbersIn(Read(0)), Numbers(1, 10));
  Put(1);
  disk.room = 1'000'000'000;
  writer->WriteWaiting();
  const Trace trace = Read(0);
  EXPECT_EQ(NumbersIn(trace), Numbers(1, 10 + kHeld));
  EXPECT_EQ(trace.lost, 31U);
  EXPECT_EQ(disk.begun, 1);
}

TEST_F(Writing, WaitsForAFileThatCanBeWritten) {
  disk.isAway = true;
  Put(kHeld + 3);
  for (int i = 0; i < 3; ++i) writer->WriteWaiting();
  EXPECT_EQ(disk.begun, 3);
  EXPECT_EQ(disk.writes, 0);
  disk.isAway = false;
  writer->WriteWaiting();
  EXPECT_EQ(NumbersIn(Read(0)), Numbers(1, kHeld));
  EXPECT_EQ(Read(0).lost, 3U);
}

// Lost ones that were to be told when the disk was full are told once.
TEST_F(Writing, TellsOfLostCallsOnceWhenTheDiskWasFull) {
  Put(kHeld + 7);
  disk.whileWriting = [&] { disk.room = 0; };
  while (disk.room != 0) writer->WriteWaiting();
  for (int i = 0; i < 3; ++i) writer->WriteWaiting();
  disk.room = 1'000'000'000;
  for (int i = 0; i < 3; ++i) writer->WriteWaiting();
  EXPECT_EQ(Read(0).lost, 7U);
  EXPECT_EQ(NumbersIn(Read(0)), Numbers(1, kHeld));
}

TEST_F(Writing, BeginsAnotherFileBeforeOneGrowsTooLong) {
  while (disk.files.size() < 2) {
    Put(kHeld);
    writer->WriteWaiting();
  }
  std::uint64_t next = 1;
  for (std::size_t i = 0; i < disk.files.size(); ++i) {
    EXPECT_LE(disk.files[i].size(), TraceWriter::kMostBytes);
    const Trace trace = Read(i);
    EXPECT_EQ(trace.firstNumber, next);
    EXPECT_EQ(NumbersIn(trace), Numbers(next, trace.calls.back().number));
    next = trace.calls.back().number + 1;
  }
  EXPECT_GT(disk.files[0].size(), TraceWriter::kMostBytes - 64 * 1024);
  EXPECT_EQ(next, put + 1U);
}

// Somebody who looks at the file may keep it from being moved.
TEST_F(Writing, GoesOnInAFileInWhosePlaceNoNewOneCanCome) {
  Put(1);
  writer->WriteWaiting();
  disk.isKept = true;
  while (disk.files[0].size() <= TraceWriter::kMostBytes) {
    Put(kHeld);
    writer->WriteWaiting();
  }
  EXPECT_EQ(ring->Waiting(), 0U);
  EXPECT_EQ(disk.files.size(), 1U);
  EXPECT_EQ(NumbersIn(Read(0)), Numbers(1, put));
  const std::uint32_t kept = put;
  disk.isKept = false;
  Put(1);
  writer->WriteWaiting();
  ASSERT_EQ(disk.files.size(), 2U);
  EXPECT_EQ(NumbersIn(Read(1)), Numbers(kept + 1, kept + 1));
}

TEST_F(Writing, WaitsWhereSuchAFileGrowsTooLong) {
  Put(1);
  writer->WriteWaiting();
  disk.isKept = true;
  while (ring->Waiting() == 0) {
    Put(kHeld);
    writer->WriteWaiting();
  }
  Put(kHeld);
  writer->WriteWaiting();
  EXPECT_LE(disk.files[0].size(), TraceWriter::kMostBytesOfKept);
  disk.isKept = false;
  writer->WriteWaiting();
  const Trace rest = Read(1);
  EXPECT_EQ(rest.firstNumber - 1 + rest.calls.size() + rest.lost, put);
}

Call Identified(std::uint8_t type) {
  Call call = Call::GetBlock(254, 0, 20);
  call.bytes.assign(20, 0);
  call.bytes[0] = type;
  call.result = kSuccess;
  return call;
}

Call FirmwareIn(std::uint32_t item, std::uint32_t low) {
  Call call = Call::GetWord(0, item);
  call.words = {low, 1};
  call.result = kSuccess;
  return call;
}

TEST_F(Writing, RepeatsInEachFileWhichBoxItIsOf) {
  const auto fillUpTo = [&](std::size_t files) {
    while (disk.files.size() < files) {
      Put(kHeld);
      writer->WriteWaiting();
    }
  };
  const auto before = [&](std::size_t file) {
    return Read(disk.files.at(file).substr(0, 2000)).before;
  };
  Call failed = Identified(99);
  failed.result = 0;
  Call other = FirmwareIn(8, 0x99);
  for (const Call& call : {Identified(13), FirmwareIn(8, 0x12), Identified(26), other, failed}) {
    ring->Put(RecordOf({1, 1, call}));
  }
  fillUpTo(2);
  EXPECT_EQ(before(0), std::vector<Call>());
  EXPECT_EQ(before(1), std::vector<Call>{Identified(26)});
  ring->Put(RecordOf({1, 1, FirmwareIn(5, 0x26)}));
  ring->Put(RecordOf({1, 1, Identified(26)}));
  fillUpTo(3);
  EXPECT_EQ(before(2), (std::vector<Call>{Identified(26), FirmwareIn(5, 0x26)}));
}

// The thread that writes is ended while it does: who comes after it writes the same once more, in
// the same place.
TEST_F(Writing, GoesOnWhereAnEndedThreadHadGotTo) {
  for (std::uint32_t calls : {1U, 100U, kHeld}) {
    Put(calls);
    disk.whileWriting = [&] {
      std::string& file = disk.files.back();
      if (calls == 100) file.resize(file.size() - 50);  // within a line
      writer->WriteWaiting();
      disk.isLast = true;
    };
    writer->WriteWaiting();
    disk.isLast = false;
  }
  EXPECT_EQ(ring->Waiting(), 0U);
  EXPECT_EQ(NumbersIn(Read(0)), Numbers(1, kHeld + 101));
}

TEST_F(Writing, TakesCallsOfManyThreadsWhileItWrites) {
  constexpr std::uint32_t kThreads = 4;
  constexpr std::uint32_t kEach = 5000;
  std::atomic<std::uint32_t> running = kThreads;
  std::vector<std::thread> threads;
  std::atomic<std::uint32_t> lost = 0;
  for (std::uint32_t thread = 0; thread < kThreads; ++thread) {
    threads.emplace_back([&, thread] {
      for (std::uint32_t i = 0; i < kEach; ++i) {
        if (!ring->Put(RecordOf({1, 1, Call::SetWord(thread, 1, i)}))) ++lost;
      }
      --running;
    });
  }
  while (running != 0) writer->WriteWaiting();
  for (std::thread& thread : threads) thread.join();
  writer->WriteWaiting();
  const Trace trace = Read(0);
  EXPECT_EQ(trace.lost, lost);
  EXPECT_EQ(trace.calls.size() + trace.lost, kThreads * kEach);
  // What a thread did stands in its order.
  std::array<std::uint32_t, kThreads> next{};
  for (const TracedCall& each : trace.calls) {
    std::uint32_t& of = next.at(each.call.group);
    EXPECT_GE(each.call.words[0], of);
    of = each.call.words[0] + 1;
  }
}

TEST(AnsweredWords, AreTwoWhereAnyBoxHasTwoUntilTheBoxIsKnown) {
  AnsweredWords words;
  const auto items = [&] {
    std::vector<std::uint32_t> two;
    for (std::uint32_t item = 0; item < 30; ++item) {
      if (words.Of(item) == 2) two.push_back(item);
    }
    return two;
  };
  const std::vector<std::uint32_t> any = {3, 4, 5, 7, 8, 14, 18};
  EXPECT_EQ(items(), any);
  Call identity = Call::GetBlock(254, 0, 20);
  identity.bytes.assign(20, 0);
  identity.bytes[0] = 26;
  words.Hear(RecordOf({0, 0, identity}));  // failed
  EXPECT_EQ(items(), any);
  identity.result = kSuccess;
  words.Hear(RecordOf({0, 0, identity}));
  EXPECT_EQ(items(), std::vector<std::uint32_t>{5});
  identity.bytes[0] = 20;
  words.Hear(RecordOf({0, 0, identity}));
  EXPECT_EQ(items(), (std::vector<std::uint32_t>{3, 4}));
  Call other = Call::GetBlock(1, 0, 20);
  other.bytes.assign(20, 0);
  other.result = kSuccess;
  words.Hear(RecordOf({0, 0, other}));
  EXPECT_EQ(items(), (std::vector<std::uint32_t>{3, 4}));
}

}  // namespace
}  // namespace panelora::trace
