#include "boxbench/words.h"

#include <algorithm>
#include <tuple>

#include "base/text.h"

namespace panelora::boxbench {

namespace {

constexpr std::uint64_t kMicrosecondsPerSecond = 1000000;

char Lower(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool IsBlank(char letter) { return letter == ' ' || letter == '\t' || letter == ','; }

int DigitOf(char letter) {
  const char lower = Lower(letter);
  if (lower >= '0' && lower <= '9') return lower - '0';
  if (lower >= 'a' && lower <= 'f') return lower - 'a' + 10;
  return -1;
}

auto OrderOf(const Address& at) { return std::make_tuple(at.kind, at.number, at.sub); }

}  // namespace

bool IsBefore(const Address& left, const Address& right) { return OrderOf(left) < OrderOf(right); }
bool IsSamePlace(const Address& left, const Address& right) {
  return OrderOf(left) == OrderOf(right);
}

const char* NameOf(simulator::By by) {
  switch (by) {
    case simulator::By::kPanel:
      return "panel";
    case simulator::By::kBench:
      return "bench";
    case simulator::By::kBoxctl:
      return "boxctl";
    case simulator::By::kBox:
      return "the box";
  }
  return "unknown";
}

std::string ClockText(std::uint64_t time, std::int64_t toLocal) {
  const std::uint64_t local = time + static_cast<std::uint64_t>(toLocal);
  const auto thousandths = static_cast<unsigned>(local / 1000 % 1000);
  const auto ofDay = static_cast<unsigned>(local / kMicrosecondsPerSecond % 86400);
  return Format("%02u:%02u:%02u.%03u", ofDay / 3600, ofDay / 60 % 60, ofDay % 60, thousandths);
}

std::string DurationText(std::uint32_t duration) {
  return Format("%u.%03u ms", duration / 1000, duration % 1000);
}

std::string CountText(std::uint64_t count) {
  std::string text = std::to_string(count);
  for (std::size_t left = text.size(); left > 3; left -= 3) text.insert(left - 3, ",");
  return text;
}

std::string CountText(std::uint64_t count, const char* one, const char* more) {
  return CountText(count) + " " + (count == 1 ? one : more);
}

std::string HexText(std::span<const std::uint8_t> bytes) {
  std::string text;
  for (const std::uint8_t byte : bytes) text += Format(text.empty() ? "%02X" : " %02X", byte);
  return text;
}

Typed<std::vector<std::uint8_t>> ParseHex(std::string_view text) {
  std::vector<std::uint8_t> bytes;
  for (std::size_t at = 0; at < text.size();) {
    if (IsBlank(text[at])) {
      ++at;
      continue;
    }
    std::size_t end = at;
    while (end < text.size() && !IsBlank(text[end])) ++end;
    std::string_view digits = text.substr(at, end - at);
    if (digits.size() > 2 && digits[0] == '0' && Lower(digits[1]) == 'x') digits.remove_prefix(2);
    if (digits.size() > 2 && digits.size() % 2 != 0) {
      return {{}, "\"" + std::string(digits) + "\" has an odd number of digits: type two a byte"};
    }
    for (std::size_t i = 0; i < digits.size(); i += 2) {
      int byte = 0;
      for (const char letter : digits.substr(i, 2)) {
        const int digit = DigitOf(letter);
        if (digit < 0) {
          return {{},
                  "\"" + std::string(digits) +
                      "\" is no byte: type two digits from 0 to F for each, like 0A FF"};
        }
        byte = byte * 16 + digit;
      }
      bytes.push_back(static_cast<std::uint8_t>(byte));
    }
    at = end;
  }
  if (bytes.empty()) return {{}, "type at least one byte, like 0A"};
  return {bytes};
}

std::optional<std::uint32_t> ParseWhole(std::string_view text, std::uint32_t most) {
  const std::string tidied = Tidied(text);
  constexpr std::size_t kMostDigits = 10;
  if (tidied.empty() || tidied.size() > kMostDigits) return std::nullopt;
  std::uint64_t number = 0;
  for (const char letter : tidied) {
    if (letter < '0' || letter > '9') return std::nullopt;
    number = number * 10 + static_cast<unsigned>(letter - '0');
  }
  if (number > most) return std::nullopt;
  return static_cast<std::uint32_t>(number);
}

std::string Printable(std::string_view text) {
  constexpr char kDelete = 0x7F;
  std::string printable;
  for (const char letter : text) {
    const auto code = static_cast<unsigned char>(letter);
    if (code < ' ' || letter == kDelete) {
      printable += Format("\\x%02X", code);
    } else {
      printable += letter;
    }
  }
  return printable;
}

std::string Tidied(std::string_view text) {
  std::string tidied;
  for (const char letter : text) {
    const bool blank = letter == ' ' || letter == '\t' || letter == '\r' || letter == '\n';
    if (!blank) {
      tidied += letter;
    } else if (!tidied.empty() && tidied.back() != ' ') {
      tidied += ' ';
    }
  }
  if (!tidied.empty() && tidied.back() == ' ') tidied.pop_back();
  return tidied;
}

std::wstring FileOf(std::wstring_view commandLine) {
  constexpr std::wstring_view kBlanks = L" \t";
  std::size_t end = 0;  // of the program, whose blanks are in quotation marks
  for (bool isQuoted = false; end < commandLine.size(); ++end) {
    if (commandLine[end] == L'"') isQuoted = !isQuoted;
    if (!isQuoted && kBlanks.find(commandLine[end]) != std::wstring_view::npos) break;
  }
  const std::size_t begin = commandLine.find_first_not_of(kBlanks, end);
  if (begin == std::wstring_view::npos) return L"";
  std::wstring_view file = commandLine.substr(begin);
  if (file.front() == L'"') {
    file.remove_prefix(1);
    file = file.substr(0, file.find(L'"'));
  } else {
    file = file.substr(0, file.find_last_not_of(kBlanks) + 1);
  }
  return std::wstring(file);
}

bool IsSameText(std::string_view left, std::string_view right) {
  return std::equal(left.begin(), left.end(), right.begin(), right.end(),
                    [](char one, char other) { return Lower(one) == Lower(other); });
}

bool Contains(std::string_view text, std::string_view part) {
  return std::search(text.begin(), text.end(), part.begin(), part.end(),
                     [](char one, char other) { return Lower(one) == Lower(other); }) !=
             text.end() ||
         part.empty();
}

}  // namespace panelora::boxbench
