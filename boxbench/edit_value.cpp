#include "boxbench/edit_value.h"

#include <algorithm>
#include <memory>

#include "base/text.h"
#include "boxbench/input_signal.h"
#include "catalogue/describe.h"
#include "simulator/box_model.h"

namespace panelora::boxbench {

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr int kByteValues = 256;
constexpr std::size_t kMostOffered = 64;
constexpr std::size_t kWordBytes = 4;

// The value with another first byte, as most are told.
Bytes WithFirst(const PropertyRow& row, int value) {
  Bytes bytes = row.bytes;
  if (bytes.empty()) bytes.resize(row.at.kind == Address::Kind::kBlock ? 1 : kWordBytes);
  bytes[0] = static_cast<std::uint8_t>(value);
  return bytes;
}

// Bytes at the beginning of what the box keeps, which stays as long as it is.
Bytes Over(const PropertyRow& row, std::span<const std::uint8_t> first, std::size_t at = 0) {
  Bytes bytes = row.bytes;
  if (bytes.size() < at + first.size()) bytes.resize(at + first.size());
  std::copy(first.begin(), first.end(), bytes.begin() + static_cast<std::ptrdiff_t>(at));
  return bytes;
}

// What the words of other than a first byte may stand for.
std::vector<Bytes> OtherReadings(const PropertyRow& row, const std::string& text) {
  std::vector<Bytes> readings;
  const bool isBlock = row.at.kind == Address::Kind::kBlock;
  if (const auto signal = ParseSignal(text); signal.value && isBlock) {
    for (const ByteOrder order : {ByteOrder::kBig, ByteOrder::kLittle}) {
      for (const std::uint8_t scan : {std::uint8_t{0}, std::uint8_t{1}, std::uint8_t{2}}) {
        VideoFormat format = signal.value->format;
        format.scan = scan;
        readings.push_back(Over(row, EncodeFormat(format, order)));
      }
    }
  }
  if (isBlock && text.size() <= kLabelLength) {
    readings.push_back(Over(row, CentredLabel(text)));
    const std::size_t comma = text.find(", ");
    if (comma != std::string::npos) {
      readings.push_back(Over(row, CentredLabel(text.substr(comma + 2)), 1));
    }
  }
  return readings;
}

// Whether the bytes are read as the text on any of the things that the number means. Some texts
// differ in their blanks alone, so that there is an exact way of comparing.
bool IsReadAs(const Identity& box, const PropertyRow& row, const Bytes& bytes,
              const std::string& wanted, bool isExact) {
  const auto isWanted = [&](const std::string& words) {
    return isExact ? words == wanted : IsSameText(Tidied(words), wanted);
  };
  const std::vector<std::string> readings = ReadingsOfValue(box, row, bytes);
  return std::any_of(readings.begin(), readings.end(), isWanted) ||
         isWanted(WordsOfValue(box, row, bytes));
}

std::optional<Bytes> FindReading(const Identity& box, const PropertyRow& row,
                                 const std::string& wanted, bool isExact) {
  if (IsReadAs(box, row, row.bytes, wanted, isExact)) return row.bytes;
  for (int value = 0; value < kByteValues; ++value) {
    Bytes bytes = WithFirst(row, value);
    if (IsReadAs(box, row, bytes, wanted, isExact)) return bytes;
  }
  return std::nullopt;
}

}  // namespace

std::vector<std::string> ValuesOffered(const Identity& box, const PropertyRow& row) {
  std::vector<std::string> offered;
  for (int value = 0; value < kByteValues; ++value) {
    const std::string words = WordsOfValue(box, row, WithFirst(row, value));
    if (words.empty() || words == Format("%d", value)) continue;
    if (std::find(offered.begin(), offered.end(), words) != offered.end()) continue;
    if (offered.size() == kMostOffered) return {};
    offered.push_back(words);
  }
  return offered;
}

Typed<Bytes> ParseWords(const Identity& box, const PropertyRow& row, const std::string& text) {
  const std::string typed = Tidied(text);
  if (typed.empty()) return {{}, "type a value for " + row.number};
  if (const auto exact = FindReading(box, row, text, true)) return {*exact};
  if (const auto same = FindReading(box, row, typed, false)) return {*same};
  const auto signal = ParseSignal(typed);
  const std::string wanted =
      signal.value && signal.value->format.width != 0 ? TextOf(*signal.value) : typed;
  for (const Bytes& reading : OtherReadings(row, typed)) {
    if (IsReadAs(box, row, reading, wanted, false)) return {reading};
  }
  if (const auto number = ParseWhole(typed, kByteValues - 1)) {
    return {WithFirst(row, static_cast<int>(*number))};
  }
  return {{},
          "\"" + typed + "\" is no value of " + row.name +
              ": choose one of the list, or type its bytes"};
}

Typed<Bytes> ParseBytes(const PropertyRow& row, const std::string& text) {
  Typed<Bytes> typed = ParseHex(text);
  if (!typed.value) return typed;
  const bool isWord = row.at.kind == Address::Kind::kWord;
  const bool isBlock = row.at.kind == Address::Kind::kBlock;
  const std::size_t most = isWord ? 2 * kWordBytes : isBlock ? simulator::KeptBlock::kMost : 1;
  if (typed.value->size() > most) {
    return {{}, row.number + " has room for " + CountText(most, "byte", "bytes")};
  }
  return typed;
}

std::string StoreValue(simulator::BoxControl& control, const Address& at,
                       std::span<const std::uint8_t> bytes) {
  if (control.Store(at, bytes)) return "";
  return control.LookAt() ? "the box does not keep " + TextOf(at) : kBusy;
}

Bytes FactoryValue(const Identity& box, std::uint32_t firmware, const PropertyRow& row) {
  const auto memory = std::make_unique<simulator::BoxMemory>();
  simulator::BoxModel(*memory, {}).Become(box, firmware);
  return simulator::BytesAt(*memory, row.at);
}

}  // namespace panelora::boxbench
