#include "boxctl/values.h"

#include <algorithm>
#include <numeric>

#include "boxctl/attached_box.h"
#include "boxctl/failure.h"
#include "boxctl/settings.h"
#include "catalogue/audio.h"
#include "catalogue/codecs.h"
#include "catalogue/multiview.h"

namespace panelora::boxctl {

namespace {

constexpr std::string_view kHex = "hex:";
constexpr std::uint32_t kMostOfByte = 255;

std::size_t LengthOf(const Property& property) {
  return property.at.kind == Address::Kind::kBlock ? property.writeLength : std::size_t{1};
}

Failure Refusal(const Named& named, const std::string& text, const std::string& takes) {
  return {Exit::kBadInput, named.name + " can't be \"" + Printable(text) + "\": it takes " + takes};
}

std::string HexExample(std::size_t length) {
  Bytes bytes(length);
  std::iota(bytes.begin(), bytes.end(), std::uint8_t{1});
  return std::to_string(length) + (length == 1 ? " byte" : " bytes") + " as in hex:" + HexOf(bytes);
}

Bytes Padded(std::uint8_t value, const Property& property) {
  Bytes bytes = {value};
  bytes.resize(LengthOf(property));
  return bytes;
}

// The rows that a box of the type can be told, and a video input has.
std::vector<const Choice*> ChoicesOf(const Property& property, const Identity& identity,
                                     std::optional<std::uint8_t> input) {
  std::vector<const Choice*> found;
  const auto add = [&](Choices choices) {
    for (const Choice& choice : choices) {
      if (choice.index != kNoIndex && choice.types.Has(identity.boxType)) found.push_back(&choice);
    }
  };
  add(property.choices);
  const OptionList& sources = audio::Options().options[audio::kSource];
  if (property.name != std::string_view(sources.name)) return found;
  for (const audio::Sources& each : audio::AllSources()) {
    if (each.input == audio::kAnyInput || (input && each.input == *input)) add(each.choices);
  }
  return found;
}

std::optional<Bytes> LabelBytes(const std::string& text) {
  if (text.size() > kLabelLength || Printable(text) != text) return std::nullopt;
  const LabelField field = CentredLabel(text);
  return Bytes(field.begin(), field.end());
}

bool IsInputLabel(const Property& property) {
  return property.at.kind == Address::Kind::kBlock && property.choices.empty() &&
         property.writeLength == kLabelLength;
}

// "Enable, CAMERA 1", as it is shown.
std::optional<Bytes> TextLabelBytes(const std::string& text) {
  const std::size_t comma = text.find(',');
  if (comma == std::string::npos) return std::nullopt;
  const std::size_t begin = std::min(text.find_first_not_of(' ', comma + 1), text.size());
  const std::optional<Bytes> label = LabelBytes(text.substr(begin));
  for (const Choice& choice : multiview::TextLabelStates()) {
    if (!label || Folded(choice.text) != Folded(text.substr(0, comma))) continue;
    Bytes bytes = {choice.value};
    bytes.insert(bytes.end(), label->begin(), label->end());
    return bytes;
  }
  return std::nullopt;
}

Bytes BytesOfChoice(const Named& named, std::span<const Choice* const> choices,
                    const std::string& text) {
  std::vector<std::string> names;
  for (const Choice* choice : choices) {
    if (Folded(choice->text) == Folded(text)) return Padded(choice->value, named.property);
    std::string name = Printable(choice->text);
    name.erase(name.find_last_not_of(' ') + 1);
    if (std::find(names.begin(), names.end(), name) == names.end()) names.push_back(name);
  }
  throw Refusal(named, text, Joined(names));
}

// A value by what the box's words for it are.
std::optional<std::uint8_t> ValueByWords(const Named& named, const Identity& identity,
                                         const std::string& text) {
  if (named.property.words == nullptr) return std::nullopt;
  for (std::uint32_t value = 0; value <= kMostOfByte; ++value) {
    const Bytes bytes = {static_cast<std::uint8_t>(value)};
    const Call write = WriteTo(named.property.at, bytes);
    if (Folded(ValueText(identity, named.property, write)) == Folded(text)) return bytes.front();
  }
  return std::nullopt;
}

}  // namespace

Bytes BytesOfValue(const Named& named, const Identity& identity, std::optional<std::uint8_t> input,
                   const std::string& text) {
  const Property& property = named.property;
  const std::size_t length = LengthOf(property);
  if (text.starts_with(kHex)) {
    const std::optional<Bytes> bytes = BytesOfHex(std::string_view(text).substr(kHex.size()));
    if (bytes && bytes->size() == length) return *bytes;
    throw Refusal(named, text, HexExample(length));
  }
  const std::vector<const Choice*> choices = ChoicesOf(property, identity, input);
  if (!choices.empty()) return BytesOfChoice(named, choices, text);
  if (IsInputLabel(property)) {
    if (const std::optional<Bytes> label = LabelBytes(text)) return *label;
    throw Refusal(named, text, "at most " + std::to_string(kLabelLength) + " plain characters");
  }
  if (property.at == multiview::kTextLabel) {
    if (const std::optional<Bytes> label = TextLabelBytes(text)) return *label;
    throw Refusal(named, text, "Enable, Disable or Default Labels, then a comma and the text");
  }
  if (length > 1) throw Refusal(named, text, HexExample(length));
  if (const auto number = NumberOf(text, 0, kMostOfByte)) {
    return {static_cast<std::uint8_t>(*number)};
  }
  if (const auto value = ValueByWords(named, identity, text)) return {*value};
  throw Refusal(named, text, "a number from 0 to 255");
}

}  // namespace panelora::boxctl
