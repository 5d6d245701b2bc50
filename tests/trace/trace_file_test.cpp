// The format of traces: what is written is read again, and nothing else is.
#include "trace/trace_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>
#include <sstream>

#include "tests/trace/record_of.h"

namespace panelora::trace {
namespace {

constexpr std::uint64_t kTime = 1'763'804'939'123'456;  // 2025-11-22 09:48:59.123456

Call With(Call call, int result, std::vector<std::uint8_t> bytes, WordBuffer words = {}) {
  call.result = result;
  call.bytes = std::move(bytes);
  call.words = words;
  return call;
}

std::vector<std::uint8_t> Bytes(std::size_t count) {
  std::vector<std::uint8_t> bytes(count);
  for (std::size_t i = 0; i < count; ++i) bytes[i] = static_cast<std::uint8_t>(255 - i);
  return bytes;
}

// Every operation, as it succeeds, as it fails, and with the greatest numbers there are.
std::vector<Call> ManyCalls() {
  constexpr std::uint32_t kMost = std::numeric_limits<std::uint32_t>::max();
  BlockBuffer sent{};
  std::fill(sent.begin(), sent.end(), std::uint8_t{0x5A});
  const auto done = [](Call call, int result) {
    call.result = result;
    return call;
  };
  return {
      With(Call::Open(2), 1, {}, {65537, 0}),
      With(Call::Open(2), 0, {}, {kNoBox, 0}),
      With(Call::Open(kMost), 1, {}, {0, 0}),
      With(Call::GetBlock(254, 0, 5), 1, {26, 0, 1, 2, 255}),
      With(Call::GetBlock(255, 255, 255), 1, Bytes(255)),
      Call::GetBlock(22, 0, 2),
      With(Call::GetBlock(22, 0, 0), 1, {}),
      With(Call::GetBlock(1, 0, 3), -7, {1, 2, 3}),
      done(Call::SetBlock(22, 0, 1, sent), 1),
      done(Call::SetBlock(255, 3, 255, sent), 0),
      done(Call::SetBlock(1, 0, 0, sent), std::numeric_limits<int>::min()),
      With(Call::SetBlock(14, 0, 5, sent), 0, {}),  // of a caller without a buffer
      With(Call::GetWord(0, 5), 1, {}, {38, 1}),
      With(Call::GetWord(0, 5), 1, {}, {0, 0}),
      With(Call::GetWord(kMost, kMost), std::numeric_limits<int>::max(), {}, {kMost, kMost}),
      Call::GetWord(1, 2),
      done(Call::SetWord(0, 4, kMost), 1),
      done(Call::SetWord(kMost, kMost, 0), 2),
      With(Call::GetPicture(), 1, {1, 2, 3, 255}),
      Call::GetPicture(),
      With(Call::GetProcAmp(0, 2), 1, {}, {128, 0}),
      Call::GetProcAmp(0, 9),
      done(Call::SetProcAmp(0, 255, 1), 1),
  };
}

std::vector<TracedCall> ManyTraced() {
  std::vector<TracedCall> traced;
  for (Call& call : ManyCalls()) {
    const std::uint64_t number = traced.size() + 1;
    traced.push_back(
        {kTime + number * 999'983, static_cast<std::uint32_t>(number * 17), call, number});
  }
  traced[3].time = 0;
  traced[4].duration = std::numeric_limits<std::uint32_t>::max();
  return traced;
}

std::string TextOfLines(const std::vector<TracedCall>& traced) {
  std::string text(Line::First(1).Text());
  for (const TracedCall& each : traced) {
    text += Line::OfCall(each.number, RecordOf(each)).Text();
  }
  return text;
}

bool AreSame(const TracedCall& one, const TracedCall& other) {
  return one.time == other.time && one.duration == other.duration && one.number == other.number &&
         one.call == other.call;
}

bool IsBeginning(const std::vector<TracedCall>& calls, const std::vector<TracedCall>& of) {
  return calls.size() <= of.size() && std::equal(calls.begin(), calls.end(), of.begin(), AreSame);
}

std::optional<Trace> Read(const std::string& text, std::string& error) {
  std::istringstream in(text);
  return ReadTrace(in, error);
}

std::string ErrorOf(const std::string& text) {
  std::string error;
  const auto trace = Read(text, error);
  return trace ? "none" : error;
}

TEST(TraceLine, SaysWhatWasCalled) {
  const auto text = [](const Call& call) {
    const Line line = Line::OfCall(17, RecordOf({kTime, 153, call}));
    EXPECT_TRUE(line.Text().ends_with("]\r\n"));
    return std::string(line.Text().substr(0, line.Text().size() - 13));
  };
  const std::string start = "17 2025-11-22 09:48:59.123456 153us ";
  EXPECT_EQ(text(With(Call::Open(2), 1, {}, {65537, 0})), start + "open 2 = 65537 -> 1");
  EXPECT_EQ(text(With(Call::GetBlock(254, 0, 3), 1, {26, 0, 255})),
            start + "get block 254,0,3 = 1A 00 FF -> 1");
  EXPECT_EQ(text(Call::GetBlock(254, 0, 3)), start + "get block 254,0,3 -> 0");
  EXPECT_EQ(text(With(Call::GetWord(0, 5), 1, {}, {38, 1})), start + "get word 0,5 = 38 1 -> 1");
  EXPECT_EQ(text(With(Call::GetPicture(), 1, {1, 2, 3, 4})),
            start + "get proc amp = 01 02 03 04 -> 1");
  EXPECT_EQ(text(With(Call::GetProcAmp(0, 2), -1, {}, {7, 0})),
            start + "get proc amp 0,2 = 7 -> -1");
  EXPECT_EQ(text(With(Call::SetBlock(14, 0, 5, {}), 0, {})), start + "set block 14,0,5: -> 0");
  EXPECT_EQ(text(Call::SetProcAmp(0, 255, 1)), start + "set proc amp 0,255 = 1 -> 0");
}

TEST(TraceLine, HasTheWordsOfTextOf) {
  for (const Call& call : ManyCalls()) {
    const Line line = Line::OfCall(1, RecordOf({kTime, 1, call}));
    EXPECT_NE(line.Text().find("us " + TextOf(call) + " "), std::string_view::npos) << line.Text();
  }
}

TEST(TraceLine, LastsToTheYear9999) {
  const Line line = Line::OfCall(1, RecordOf({std::numeric_limits<std::uint64_t>::max(), 1, {}}));
  EXPECT_TRUE(line.Text().starts_with("1 9999-12-31 23:59:59.999999 1us open 0 -> 0 ["));
}

TEST(TraceFile, IsReadAsItWasWritten) {
  const std::vector<TracedCall> written = ManyTraced();
  std::string error = "old";
  const auto trace = Read(TextOfLines(written), error);
  ASSERT_TRUE(trace) << error;
  EXPECT_EQ(error, "");
  EXPECT_EQ(trace->calls.size(), written.size());
  EXPECT_TRUE(IsBeginning(trace->calls, written));
  EXPECT_EQ(trace->lost, 0U);
  EXPECT_EQ(trace->firstNumber, 1U);
}

TEST(TraceFile, IsReadWithoutCarriageReturns) {
  std::string text = TextOfLines(ManyTraced());
  std::erase(text, '\r');
  EXPECT_EQ(ErrorOf(text), "none");
}

TEST(TraceFile, TellsHowManyCallsWereLost) {
  TracedCall call{kTime, 1, Call::Open(2), 30};
  std::string text(Line::First(21).Text());
  text += Line::OfLost(21, 9).Text();
  text += Line::OfCall(30, RecordOf(call)).Text();
  text += Line::OfLost(31, 2).Text();
  std::string error;
  const auto trace = Read(text, error);
  ASSERT_TRUE(trace) << error;
  EXPECT_EQ(trace->firstNumber, 21U);
  EXPECT_EQ(trace->lost, 11U);
  EXPECT_TRUE(IsBeginning(trace->calls, {call}));
}

TEST(TraceFile, TellsWhatTheFilesBeforeItToldOfTheBox) {
  const TracedCall identity{kTime, 7, With(Call::GetBlock(254, 0, 5), 1, {26, 0, 1, 2, 255})};
  const TracedCall firmware{kTime, 9, With(Call::GetWord(0, 5), 1, {}, {38, 1})};
  const TracedCall call{kTime, 1, Call::Open(2), 30};
  const std::string first(Line::First(30).Text());
  const std::string one(Line::OfCall(kNoNumber, RecordOf(identity)).Text());
  const std::string other(Line::OfCall(kNoNumber, RecordOf(firmware)).Text());
  const std::string numbered(Line::OfCall(30, RecordOf(call)).Text());
  std::string error;
  const auto trace = Read(first + one + other + numbered, error);
  ASSERT_TRUE(trace) << error;
  EXPECT_EQ(trace->before, (std::vector<Call>{identity.call, firmware.call}));
  EXPECT_TRUE(IsBeginning(trace->calls, {call}));
  // At the head alone.
  const std::string unknown =
      ": the line says no call that this program knows: read it with the program that belongs to "
      "the library which wrote it";
  EXPECT_EQ(ErrorOf(first + numbered + one), "line 3" + unknown);
  EXPECT_EQ(ErrorOf(first + one + one + one), "line 4" + unknown);
}

// Killed at any moment, a program leaves the beginning of a trace.
TEST(TraceFile, IsReadUpToWhereItIsCutOff) {
  const std::vector<TracedCall> written = ManyTraced();
  const std::string text = TextOfLines(written);
  const std::size_t first = text.find('\n') + 1;
  for (std::size_t size = first; size <= text.size(); ++size) {
    std::string error;
    const auto trace = Read(text.substr(0, size), error);
    ASSERT_TRUE(trace) << size << ": " << error;
    // A line is whole without its end too.
    const std::string_view begun = std::string_view(text).substr(0, size);
    const auto ends = static_cast<std::size_t>(std::count(begun.begin(), begun.end(), ']'));
    ASSERT_EQ(trace->calls.size(), ends) << size;
    ASSERT_TRUE(IsBeginning(trace->calls, written)) << size;
  }
  for (std::size_t size = 0; size < first; ++size) {
    EXPECT_TRUE(ErrorOf(text.substr(0, size)).starts_with("line 1: ")) << size;
  }
}

// Of a stream from the place on that was reached.
std::optional<Trace> ReadOn(GrowingTrace& growing, const std::string& text, std::string& error) {
  std::istringstream in(
      text.substr(std::min<std::size_t>(text.size(), growing.TheReached().place)));
  return growing.ReadOn(in, error);
}

TEST(TraceFile, IsReadWhileItGrows) {
  const std::vector<TracedCall> written = ManyTraced();
  const std::string text = TextOfLines(written);
  for (const std::size_t step : {1U, 50U, 1000U}) {
    GrowingTrace growing;
    std::vector<TracedCall> read;
    for (std::size_t size = 0; size < text.size() + step; size += step) {
      std::string error;
      const auto part = ReadOn(growing, text.substr(0, size), error);
      ASSERT_EQ(error, "");
      ASSERT_EQ(part.has_value(), growing.IsBegun());
      if (!part) continue;
      ASSERT_EQ(part->firstNumber, read.size() + 1);
      read.insert(read.end(), part->calls.begin(), part->calls.end());
    }
    EXPECT_EQ(read.size(), written.size());
    EXPECT_TRUE(IsBeginning(read, written));
  }
}

TEST(TraceFile, IsNotGoneOnWithInAnotherFile) {
  std::vector<TracedCall> traced = ManyTraced();
  std::string text = TextOfLines(traced);
  GrowingTrace growing;
  std::string error;
  ASSERT_TRUE(ReadOn(growing, text, error));
  EXPECT_FALSE(ReadOn(growing, "", error));
  EXPECT_FALSE(ReadOn(growing, text.substr(0, text.size() - 1), error));
  ++traced.back().time;
  EXPECT_FALSE(ReadOn(growing, TextOfLines(traced), error));
  EXPECT_EQ(error, "");
  EXPECT_TRUE(ReadOn(growing, text, error));
  text += "nonsense\r\n";
  EXPECT_FALSE(ReadOn(growing, text, error));
  EXPECT_EQ(error, "line " + std::to_string(traced.size() + 2) +
                       ": the line is damaged: take an untouched copy of the trace");
}

TEST(TraceFile, NamesTheLineThatIsWrong) {
  const std::vector<TracedCall> traced = ManyTraced();
  const auto line = [&](std::uint64_t number) {
    return std::string(Line::OfCall(number, RecordOf(traced[0])).Text());
  };
  const std::string first(Line::First(1).Text());
  const std::string untouched = ": take an untouched copy of the trace";
  EXPECT_EQ(ErrorOf(""), "line 1: this is no trace: choose a file that the tracing library wrote");
  EXPECT_EQ(ErrorOf("MZ\n"),
            "line 1: this is no trace: choose a file that the tracing library wrote");
  EXPECT_EQ(ErrorOf("Panelora trace 2, calls from 1\n"),
            "line 1: the trace is of another version: read it with the program that belongs to "
            "the library which wrote it");
  EXPECT_EQ(ErrorOf(first + line(1) + line(3)),
            "line 3: call 2 is missing here, call 3 follows" + untouched);
  EXPECT_EQ(ErrorOf(first + line(2) + line(1)),
            "line 2: call 1 is missing here, call 2 follows" + untouched);
  EXPECT_EQ(ErrorOf(first + line(1) + line(1)),
            "line 3: call 2 is missing here, call 1 follows" + untouched);
  EXPECT_EQ(ErrorOf(first + line(1).substr(0, 30) + "\r\n" + line(2)),
            "line 2: the line is damaged" + untouched);
  EXPECT_EQ(ErrorOf(first + line(1) + "\r\n"), "line 3: the line is damaged" + untouched);
  EXPECT_EQ(ErrorOf(first + line(1) + std::string(5000, 'x')),
            "line 3: the line is damaged" + untouched);
}

// A line of another program, with a check that is right.
TEST(TraceFile, NamesTheLineThatSaysNoCall) {
  const std::string start = "1 2025-11-22 09:48:59.123456 153us ";
  for (const std::string& said : {
           start + "close 2 -> 1",
           start + "open 2 -> 1 ",
           start + "open 4294967296 -> 1",
           start + "open 2 -> 2147483648",
           start + "open 2 -> -2147483649",
           start + "get block 256,0,2 -> 0",
           start + "get block 1,0,2 = 01 -> 1",
           start + "get block 1,0,2 = 01 02 03 -> 1",
           start + "set block 1,0,2: 01 -> 1",
           start + "set word 0,4 -> 1",
           start + "get proc amp = 01 02 03 -> 1",
           std::string("1 2025-02-29 09:48:59.123456 1us open 2 -> 1"),
           std::string("1 2025-02-28 24:48:59.123456 1us open 2 -> 1"),
           std::string("1 1969-12-31 09:48:59.123456 1us open 2 -> 1"),
           std::string("1 2025-02-28 9:48:59.123456 1us open 2 -> 1"),
           std::string("1 lost"),
           std::string("1"),
       }) {
    const std::string text = std::string(Line::First(1).Text()) + said +
                             Format(" [%08X]", CheckOf(said)) + std::string(kLineEnd);
    EXPECT_EQ(ErrorOf(text),
              "line 2: the line says no call that this program knows: read it with the program "
              "that belongs to the library which wrote it")
        << said;
  }
}

TEST(TraceFile, IsReadUpToItsGreatestLengthAndNoFurther) {
  EXPECT_EQ(kLongestTrace, 200'000'000U);
  std::vector<TracedCall> traced;
  for (std::uint64_t number = 1; number <= 2500; ++number) {
    traced.push_back({kTime, 1, With(Call::GetBlock(1, 0, 255), 1, Bytes(255)), number});
  }
  const std::string text = TextOfLines(traced);
  const auto read = [&](std::uint64_t longest) {
    std::istringstream in(text);
    std::string error;
    const auto trace = ReadTrace(in, error, longest);
    EXPECT_EQ(trace.has_value(), error.empty());
    return error;
  };
  EXPECT_EQ(read(text.size()), "");
  EXPECT_EQ(read(text.size() - 1),
            "line 2501: the trace is longer than 2 MB: read its parts one by one");
}

// Does one thing to a text that a disk, an editor or a careless hand may do.
class Damage {
 public:
  void To(std::string& text) {
    const std::size_t at = Below(text.size());
    switch (Below(8)) {
      case 0:
        text[at] = static_cast<char>(Below(256));
        break;
      case 1:
        text[at] = static_cast<char>(text[at] ^ (1 << Below(8)));
        break;
      case 2:
        text.erase(at, 1 + Below(200));
        break;
      case 3:
        text.insert(at, text, Below(text.size()), 1 + Below(200));
        break;
      case 4:
        text.resize(at);
        break;
      case 5:
        std::swap(text[at], text[Below(text.size())]);
        break;
      case 6:
        for (std::size_t i = at; i < std::min(text.size(), at + 64); ++i) {
          text[i] = static_cast<char>(Below(256));
        }
        break;
      default:
        SwapLines(text);
        break;
    }
  }

  std::size_t Below(std::size_t end) { return end == 0 ? 0 : generator() % end; }

 private:
  void SwapLines(std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) lines.push_back(line + "\n");
    if (lines.empty()) return;
    std::swap(lines[Below(lines.size())], lines[Below(lines.size())]);
    text.clear();
    for (const std::string& line : lines) text += line;
  }

  std::mt19937 generator{20'251'122};
};

// Whatever happened to a trace: what is read is the beginning of what was written, or the line is
// named where it is wrong.
TEST(TraceFile, TellsNothingThatWasNotWritten) {
  const std::vector<TracedCall> written = ManyTraced();
  const std::string whole = TextOfLines(written);
  Damage damage;
  int refused = 0;
  int taken = 0;
  for (int round = 0; round < 10'000; ++round) {
    std::string text = whole;
    for (std::size_t i = 1 + damage.Below(3); i > 0 && !text.empty(); --i) damage.To(text);
    std::string error;
    const auto trace = Read(text, error);
    if (trace) {
      ++taken;
      ASSERT_TRUE(IsBeginning(trace->calls, written)) << text;
      ASSERT_EQ(error, "");
      continue;
    }
    ++refused;
    const auto lines = static_cast<int>(std::count(text.begin(), text.end(), '\n')) + 1;
    int line = 0;
    ASSERT_EQ(std::sscanf(error.c_str(), "line %d: ", &line), 1) << error;
    ASSERT_TRUE(line >= 1 && line <= lines) << error;
    ASSERT_EQ(error.find('\n'), std::string::npos) << error;
  }
  EXPECT_GT(refused, 5000);
  EXPECT_GT(taken, 500);
}

}  // namespace
}  // namespace panelora::trace
