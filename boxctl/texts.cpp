#include "boxctl/texts.h"

#include <algorithm>
#include <charconv>
#include <numeric>

#include "base/text.h"

namespace panelora::boxctl {

namespace {

bool IsBlank(char letter) { return letter == ' ' || letter == '\t'; }

char Small(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

std::optional<std::uint8_t> DigitOf(char letter) {
  const char digit = Small(letter);
  if (digit >= '0' && digit <= '9') return static_cast<std::uint8_t>(digit - '0');
  if (digit >= 'a' && digit <= 'f') return static_cast<std::uint8_t>(digit - 'a' + 10);
  return std::nullopt;
}

}  // namespace

std::string HexOf(std::span<const std::uint8_t> bytes) {
  std::string text;
  for (const std::uint8_t byte : bytes) text += Format("%02X", byte);
  return text;
}

std::optional<Bytes> BytesOfHex(std::string_view text) {
  if (text.size() % 2 != 0) return std::nullopt;
  Bytes bytes;
  for (std::size_t i = 0; i < text.size(); i += 2) {
    const auto high = DigitOf(text[i]);
    const auto low = DigitOf(text[i + 1]);
    if (!high || !low) return std::nullopt;
    bytes.push_back(static_cast<std::uint8_t>(*high * 16 + *low));
  }
  return bytes;
}

std::optional<std::uint32_t> NumberOf(std::string_view text, std::uint32_t least,
                                      std::uint32_t most) {
  const bool isHex = text.starts_with("0x") || text.starts_with("0X");
  if (isHex) text.remove_prefix(2);
  std::uint32_t number = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number, isHex ? 16 : 10);
  const bool isWhole = error == std::errc() && stop == end && !text.empty();
  return isWhole && number >= least && number <= most ? std::optional(number) : std::nullopt;
}

std::optional<std::uint32_t> FirmwareOfText(const std::string& text) {
  if (text.find('.') == std::string::npos) return NumberOf(text, 0, kMostFirmware);
  constexpr std::size_t kLength = 7;  // four digits and the dots between them
  if (text.size() != kLength) return std::nullopt;
  std::uint32_t version = 0;
  for (std::size_t i = 0; i < kLength; ++i) {
    const auto digit = DigitOf(text[i]);
    if (i % 2 == 1 ? text[i] != '.' : !digit) return std::nullopt;
    if (i % 2 == 0) version = version * 16 + *digit;
  }
  return version;
}

std::string Printable(std::string_view text) {
  std::string printable;
  for (const char letter : text) {
    const bool isPlain = letter >= ' ' && letter <= '~';
    printable +=
        isPlain ? std::string(1, letter) : Format("\\x%02X", static_cast<unsigned>(letter) & 0xFFU);
  }
  return printable;
}

std::string Folded(std::string_view text) {
  std::string folded;
  for (const char letter : text) {
    if (!IsBlank(letter)) folded += Small(letter);
  }
  return folded;
}

std::size_t DistanceOf(std::string_view one, std::string_view other) {
  std::vector<std::size_t> row(other.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 1; i <= one.size(); ++i) {
    std::size_t diagonal = row[0];
    row[0] = i;
    for (std::size_t j = 1; j <= other.size(); ++j) {
      const std::size_t replaced = diagonal + (one[i - 1] == other[j - 1] ? 0 : 1);
      diagonal = row[j];
      row[j] = std::min({row[j] + 1, row[j - 1] + 1, replaced});
    }
  }
  return row.back();
}

std::string Joined(std::span<const std::string> texts) {
  std::string all;
  for (const std::string& text : texts) all += (all.empty() ? "" : ", ") + text;
  return all;
}

}  // namespace panelora::boxctl
