#include "trace/trace_line.h"

#include <algorithm>
#include <charconv>
#include <chrono>

namespace panelora::trace {

namespace {

constexpr std::uint64_t kMicrosecondsPerSecond = 1'000'000;
// The last moment of the year 9999, which has four digits.
constexpr std::uint64_t kLastTime = 253'402'300'800 * kMicrosecondsPerSecond - 1;

}  // namespace

void Line::Add(std::string_view part) {
  const std::size_t count = std::min(part.size(), kLongest - size);
  std::copy_n(part.begin(), count, text.begin() + static_cast<std::ptrdiff_t>(size));
  size += count;
}

// With zeros before it up to that many digits.
void Line::AddNumber(std::uint64_t value, std::size_t digits) {
  std::array<char, 20> number{};
  const char* end = std::to_chars(number.data(), number.data() + number.size(), value).ptr;
  const auto count = static_cast<std::size_t>(end - number.data());
  for (std::size_t i = count; i < digits; ++i) Add("0");
  Add({number.data(), count});
}

void Line::AddByte(std::uint8_t byte) {
  constexpr char kDigits[] = "0123456789ABCDEF";
  if (size + 2 > kLongest) return;
  text[size++] = kDigits[byte >> 4];
  text[size++] = kDigits[byte & 0xF];
}

void Line::AddBytes(const Record& record) {
  for (std::size_t i = 0; i < record.byteCount && size < kLongest; ++i) {
    text[size++] = ' ';
    AddByte(record.bytes[i]);
  }
}

void Line::AddTime(std::uint64_t time) {
  using std::chrono::microseconds;
  const microseconds since1970(std::min(time, kLastTime));
  const auto days = std::chrono::floor<std::chrono::days>(since1970);
  const std::chrono::year_month_day date{std::chrono::sys_days(days)};
  const auto rest = static_cast<std::uint64_t>((since1970 - days).count());
  const std::uint64_t seconds = rest / kMicrosecondsPerSecond;
  AddNumber(static_cast<std::uint64_t>(static_cast<int>(date.year())), 4);
  Add("-");
  AddNumber(static_cast<unsigned>(date.month()), 2);
  Add("-");
  AddNumber(static_cast<unsigned>(date.day()), 2);
  Add(" ");
  AddNumber(seconds / 3600, 2);
  Add(":");
  AddNumber(seconds / 60 % 60, 2);
  Add(":");
  AddNumber(seconds % 60, 2);
  Add(".");
  AddNumber(rest % kMicrosecondsPerSecond, 6);
}

// As TextOf has it.
void Line::AddAsked(const Record& record) {
  const auto addPair = [&](std::string_view name) {
    Add(name);
    AddNumber(record.group);
    Add(",");
    AddNumber(record.number);
  };
  const auto addBlock = [&](std::string_view name) {
    Add(name);
    AddNumber(record.number);
    Add(",");
    AddNumber(record.sub);
    Add(",");
    AddNumber(record.length);
  };
  switch (record.operation) {
    case Call::Operation::kOpen:
      Add("open ");
      AddNumber(record.number);
      break;
    case Call::Operation::kGetBlock:
      addBlock("get block ");
      break;
    case Call::Operation::kSetBlock:
      addBlock("set block ");
      Add(":");
      AddBytes(record);
      break;
    case Call::Operation::kGetWord:
      addPair("get word ");
      break;
    case Call::Operation::kSetWord:
      addPair("set word ");
      Add(" = ");
      AddNumber(record.words[0]);
      break;
    case Call::Operation::kGetPicture:
      Add("get proc amp");
      break;
    case Call::Operation::kGetProcAmp:
      addPair("get proc amp ");
      break;
    case Call::Operation::kSetProcAmp:
      addPair("set proc amp ");
      Add(" = ");
      AddNumber(record.words[0]);
      break;
  }
}

void Line::AddAnswer(const Record& record) {
  switch (record.operation) {
    case Call::Operation::kGetBlock:
    case Call::Operation::kGetPicture:
      if (record.byteCount == 0) return;
      Add(" =");
      AddBytes(record);
      return;
    case Call::Operation::kOpen:
    case Call::Operation::kGetWord:
    case Call::Operation::kGetProcAmp:
      if (record.words == WordBuffer{} && record.result != kSuccess) return;
      Add(" = ");
      AddNumber(record.words[0]);
      if (record.words[1] == 0) return;
      Add(" ");
      AddNumber(record.words[1]);
      return;
    default:
      return;
  }
}

void Line::AddCheck() {
  const std::uint32_t check = CheckOf(Text());
  Add(" [");
  for (int shift = 24; shift >= 0; shift -= 8) AddByte(static_cast<std::uint8_t>(check >> shift));
  Add("]");
  Add(kLineEnd);
}

Line Line::First(std::uint64_t firstNumber) {
  Line line;
  line.Add(kFirstLine);
  line.AddNumber(firstNumber);
  line.Add(kLineEnd);
  return line;
}

Line Line::OfCall(std::uint64_t number, const Record& record) {
  Line line;
  line.AddNumber(number);
  line.Add(" ");
  line.AddTime(record.time);
  line.Add(" ");
  line.AddNumber(record.duration);
  line.Add("us ");
  line.AddAsked(record);
  line.AddAnswer(record);
  line.Add(record.result < 0 ? " -> -" : " -> ");
  line.AddNumber(record.result < 0 ? -static_cast<std::uint64_t>(record.result)
                                   : static_cast<std::uint64_t>(record.result));
  line.AddCheck();
  return line;
}

Line Line::OfLost(std::uint64_t number, std::uint64_t count) {
  Line line;
  line.AddNumber(number);
  line.Add(" lost ");
  line.AddNumber(count);
  line.AddCheck();
  return line;
}

}  // namespace panelora::trace
