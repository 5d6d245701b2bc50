#include "trace/trace_file.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <limits>
#include <string_view>
#include <utility>

#include "trace/trace_line.h"

namespace panelora::trace {

namespace {

// More calls than this no program makes.
constexpr std::uint64_t kMostCalls = 1'000'000'000'000'000;
constexpr std::uint64_t kMostWord = std::numeric_limits<std::uint32_t>::max();
constexpr std::uint64_t kMostByte = std::numeric_limits<std::uint8_t>::max();
constexpr std::string_view kBeforeResult = " -> ";
constexpr std::size_t kCheckLength = 11;  // " [12345678]"
constexpr std::size_t kMostInHead = 2;    // identity and firmware

// Lines of a stream, none of which is held longer than a line of a trace is.
class Lines {
 public:
  // The first line has the number after this one.
  explicit Lines(std::istream& in, std::uint64_t before = 0) : source(in.rdbuf()), number(before) {}

  // False when there is no more, not even a part of a line.
  bool Next() {
    text.clear();
    isWhole = false;
    begin = read;
    for (int letter = 0; !isWhole && text.size() <= Line::kLongest;) {
      letter = source != nullptr ? source->sbumpc() : kEnd;
      if (letter == kEnd) break;
      ++read;
      isWhole = letter == '\n';
      if (!isWhole) text += static_cast<char>(letter);
    }
    if (text.empty() && !isWhole) return false;
    ++number;
    if (text.ends_with('\r')) text.pop_back();
    return true;
  }

  const std::string& Text() const { return text; }
  std::uint64_t Number() const { return number; }
  // Whether the line has its end.
  bool IsWhole() const { return isWhole; }
  // Whether the stream ended within the line.
  bool IsCutOff() const { return !isWhole && text.size() < Line::kLongest; }
  std::uint64_t BytesRead() const { return read; }
  // Where the line begins.
  std::uint64_t Begin() const { return begin; }

 private:
  static constexpr int kEnd = std::char_traits<char>::eof();

  std::streambuf* source;
  std::string text;
  std::uint64_t number;
  std::uint64_t read = 0;
  std::uint64_t begin = 0;
  bool isWhole = false;
};

// What is left to be read of a line.
class Rest {
 public:
  explicit Rest(std::string_view theText) : text(theText) {}

  bool IsEmpty() const { return text.empty(); }

  bool Takes(std::string_view part) {
    if (!text.starts_with(part)) return false;
    text.remove_prefix(part.size());
    return true;
  }

  // A number from 0 to `most`, in decimal; of so many digits, where their count is given.
  template <class Number>
  bool TakesNumber(Number& number, std::uint64_t most, std::size_t digits = 0) {
    const std::string_view tried = digits != 0 ? text.substr(0, digits) : text;
    std::uint64_t value = 0;
    const auto [end, problem] = std::from_chars(tried.data(), tried.data() + tried.size(), value);
    const auto count = static_cast<std::size_t>(end - tried.data());
    if (problem != std::errc() || value > most || (digits != 0 && count != digits)) return false;
    text.remove_prefix(count);
    number = static_cast<Number>(value);
    return true;
  }

  bool TakesByte(std::uint8_t& byte) {
    const std::string_view tried = text.substr(0, 2);
    const auto [end, problem] =
        std::from_chars(tried.data(), tried.data() + tried.size(), byte, 16);
    if (problem != std::errc() || end != tried.data() + 2) return false;
    text.remove_prefix(2);
    return true;
  }

 private:
  std::string_view text;
};

bool TakesTime(Rest& rest, std::uint64_t& time) {
  int year = 0;
  unsigned month = 0;
  unsigned day = 0;
  std::uint64_t hours = 0;
  std::uint64_t minutes = 0;
  std::uint64_t seconds = 0;
  std::uint64_t microseconds = 0;
  if (!rest.TakesNumber(year, 9999, 4) || !rest.Takes("-") || !rest.TakesNumber(month, 12, 2) ||
      !rest.Takes("-") || !rest.TakesNumber(day, 31, 2) || !rest.Takes(" ") ||
      !rest.TakesNumber(hours, 23, 2) || !rest.Takes(":") || !rest.TakesNumber(minutes, 59, 2) ||
      !rest.Takes(":") || !rest.TakesNumber(seconds, 59, 2) || !rest.Takes(".") ||
      !rest.TakesNumber(microseconds, 999'999, 6)) {
    return false;
  }
  const std::chrono::year_month_day date{std::chrono::year(year), std::chrono::month(month),
                                         std::chrono::day(day)};
  if (!date.ok() || year < 1970) return false;
  const auto days = std::chrono::sys_days(date).time_since_epoch().count();
  const std::uint64_t inDay = (hours * 60 + minutes) * 60 + seconds;
  time = (static_cast<std::uint64_t>(days) * 86'400 + inDay) * 1'000'000 + microseconds;
  return true;
}

bool TakesBytes(Rest& rest, std::size_t count, std::vector<std::uint8_t>& bytes) {
  bytes.resize(count);
  return std::all_of(bytes.begin(), bytes.end(),
                     [&](std::uint8_t& byte) { return rest.Takes(" ") && rest.TakesByte(byte); });
}

bool TakesPair(Rest& rest, Call& call) {
  return rest.TakesNumber(call.group, kMostWord) && rest.Takes(",") &&
         rest.TakesNumber(call.number, kMostWord);
}

bool TakesBlock(Rest& rest, Call& call) {
  return rest.TakesNumber(call.number, kMostByte) && rest.Takes(",") &&
         rest.TakesNumber(call.sub, kMostByte) && rest.Takes(",") &&
         rest.TakesNumber(call.length, kMostByte);
}

// What was answered, if anything was.
bool TakesWords(Rest& rest, Call& call) {
  if (!rest.Takes(" = ")) return true;
  if (!rest.TakesNumber(call.words[0], kMostWord)) return false;
  Rest further = rest;
  if (further.Takes(" ") && further.TakesNumber(call.words[1], kMostWord)) rest = further;
  return true;
}
bool TakesAnswer(Rest& rest, std::size_t count, Call& call) {
  return !rest.Takes(" =") || TakesBytes(rest, count, call.bytes);
}

// What was told. A caller that gave no buffer told nothing, whatever length it named.
bool TakesTold(Rest& rest, Call& call) {
  Rest further = rest;
  return further.Takes(kBeforeResult) || TakesBytes(rest, call.length, call.bytes);
}

bool TakesCall(Rest& rest, Call& call) {
  using enum Call::Operation;
  const auto is = [&](std::string_view name, Call::Operation operation) {
    if (!rest.Takes(name)) return false;
    call.operation = operation;
    return true;
  };
  if (is("open ", kOpen)) return rest.TakesNumber(call.number, kMostWord) && TakesWords(rest, call);
  if (is("get block ", kGetBlock)) {
    return TakesBlock(rest, call) && TakesAnswer(rest, call.length, call);
  }
  if (is("set block ", kSetBlock)) {
    return TakesBlock(rest, call) && rest.Takes(":") && TakesTold(rest, call);
  }
  if (is("get word ", kGetWord)) return TakesPair(rest, call) && TakesWords(rest, call);
  const auto takesValue = [&] {
    return TakesPair(rest, call) && rest.Takes(" = ") && rest.TakesNumber(call.words[0], kMostWord);
  };
  if (is("set word ", kSetWord)) return takesValue();
  if (is("get proc amp", kGetPicture)) {
    Rest control = rest;
    if (!control.Takes(" ") || !TakesPair(control, call)) {
      return TakesAnswer(rest, kPictureBytes, call);
    }
    rest = control;
    call.operation = kGetProcAmp;
    return TakesWords(rest, call);
  }
  return is("set proc amp ", kSetProcAmp) && takesValue();
}

bool TakesResult(Rest& rest, int& result) {
  if (!rest.Takes(kBeforeResult)) return false;
  const bool isNegative = rest.Takes("-");
  std::uint32_t size = 0;
  if (!rest.TakesNumber(size, std::uint64_t{1} << 31)) return false;
  const auto value = isNegative ? -static_cast<std::int64_t>(size) : std::int64_t{size};
  result = static_cast<int>(value);
  return value <= std::numeric_limits<int>::max() && rest.IsEmpty();
}

// All of a call behind its number.
bool TakesTraced(Rest& rest, TracedCall& traced) {
  return TakesTime(rest, traced.time) && rest.Takes(" ") &&
         rest.TakesNumber(traced.duration, kMostWord) && rest.Takes("us ") &&
         TakesCall(rest, traced.call) && TakesResult(rest, traced.call.result);
}

// What a line says without its check; nothing when that is wrong.
std::optional<std::string_view> Checked(std::string_view line) {
  if (line.size() < kCheckLength) return std::nullopt;
  const std::string_view said = line.substr(0, line.size() - kCheckLength);
  Rest rest(line.substr(said.size()));
  std::uint32_t check = 0;
  if (!rest.Takes(" [")) return std::nullopt;
  for (int i = 0; i < 4; ++i) {
    std::uint8_t byte = 0;
    if (!rest.TakesByte(byte)) return std::nullopt;
    check = check << 8 | byte;
  }
  if (!rest.Takes("]") || check != CheckOf(said)) return std::nullopt;
  return said;
}

class Reader {
 public:
  using Reached = GrowingTrace::Reached;

  Reader(std::istream& in, std::uint64_t theLongest, std::uint64_t line = 0)
      : lines(in, line > 0 ? line - 1 : 0), longest(theLongest) {}

  std::optional<Trace> Read(std::string& error) {
    if (!ReadFirstLine()) return Failed(error);
    while (lines.Next()) {
      if (lines.BytesRead() > longest) {
        problem = "the trace is longer than " + std::to_string(longest / 1'000'000) +
                  " MB: read its parts one by one";
        return Failed(error);
      }
      if (ReadLine()) continue;
      if (lines.IsCutOff() && isDamaged) break;
      return Failed(error);
    }
    error.clear();
    return std::move(trace);
  }

  // The same of lines that are whole, behind the one that was read last.
  std::optional<Trace> ReadOn(Reached& reached, std::string& error) {
    const std::uint64_t from = reached.place;
    const auto reach = [&] {
      reached = {from + lines.Begin(), lines.Number(), expected, lines.Text()};
    };
    if (reached.line != 0) {
      if (!lines.Next() || !lines.IsWhole() || lines.Text() != reached.text) return std::nullopt;
      trace.firstNumber = expected = reached.next;
    } else {
      const bool isThere = ReadFirstLine();
      if (lines.IsCutOff()) return std::nullopt;
      if (!isThere) return Failed(error);
      reach();
    }
    while (lines.Next() && !lines.IsCutOff()) {
      if (!ReadLine()) return Failed(error);
      reach();
    }
    return std::move(trace);
  }

 private:
  std::optional<Trace> Failed(std::string& error) const {
    error = "line " + std::to_string(std::max<std::uint64_t>(lines.Number(), 1)) + ": " + problem;
    return std::nullopt;
  }

  bool ReadFirstLine() {
    const bool isThere = lines.Next();
    Rest rest(lines.Text());
    rest.Takes("\xEF\xBB\xBF");  // the byte order mark of an editor
    if (isThere && lines.IsWhole() && rest.Takes(kFirstLine) &&
        rest.TakesNumber(expected, kMostCalls) && rest.IsEmpty() && expected != 0) {
      trace.firstNumber = expected;
      return true;
    }
    Rest version(lines.Text());
    const bool isOther = version.Takes("Panelora trace ") && !version.Takes("1,");
    problem = isOther ? "the trace is of another version: read it with the program that belongs to "
                        "the library which wrote it"
                      : "this is no trace: choose a file that the tracing library wrote";
    return false;
  }

  bool ReadLine() {
    const std::optional<std::string_view> said = Checked(lines.Text());
    isDamaged = !said.has_value();
    if (isDamaged) return Wrong("the line is damaged: take an untouched copy of the trace");
    Rest rest(*said);
    std::uint64_t number = 0;
    if (!rest.TakesNumber(number, kMostCalls) || !rest.Takes(" ")) return Wrong(kUnknown);
    if (number == kNoNumber) return TakeHead(rest);
    if (number != expected) {
      return Wrong("call " + std::to_string(expected) + " is missing here, call " +
                   std::to_string(number) + " follows: take an untouched copy of the trace");
    }
    return rest.Takes("lost ") ? TakeLost(rest) : TakeCall(rest);
  }

  bool TakeHead(Rest rest) {
    TracedCall traced;
    if (expected != trace.firstNumber || trace.before.size() == kMostInHead ||
        !TakesTraced(rest, traced))
      return Wrong(kUnknown);
    trace.before.push_back(std::move(traced.call));
    return true;
  }

  bool TakeLost(Rest rest) {
    std::uint64_t count = 0;
    if (!rest.TakesNumber(count, kMostCalls) || !rest.IsEmpty()) return Wrong(kUnknown);
    trace.lost += count;
    expected += count;
    return true;
  }

  bool TakeCall(Rest rest) {
    TracedCall& traced = trace.calls.emplace_back();
    traced.number = expected++;
    return TakesTraced(rest, traced) || Wrong(kUnknown);
  }

  bool Wrong(const std::string& what) {
    problem = what;
    return false;
  }

  static constexpr char kUnknown[] =
      "the line says no call that this program knows: read it with the program that belongs to the "
      "library which wrote it";

  Lines lines;
  std::uint64_t longest;
  Trace trace;
  std::uint64_t expected = 1;  // number of the next call
  bool isDamaged = false;
  std::string problem;
};

}  // namespace

std::optional<Trace> ReadTrace(std::istream& in, std::string& error, std::uint64_t longest) {
  return Reader(in, longest).Read(error);
}

std::optional<Trace> GrowingTrace::ReadOn(std::istream& in, std::string& error) {
  error.clear();
  return Reader(in, kLongestTrace, reached.line).ReadOn(reached, error);
}

}  // namespace panelora::trace
