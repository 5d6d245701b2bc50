#include "catalogue/describe.h"

#include <algorithm>

#include "base/text.h"

namespace panelora {

namespace {

Carried CarriedBy(const Call& call, const Identity& box) {
  Carried carried{box, call.IsWrite(), {}, call.words, 0};
  const std::size_t size = std::min(call.bytes.size(), carried.bytes.size());
  std::copy_n(call.bytes.begin(), size, carried.bytes.begin());
  const bool isBlock =
      call.operation == Call::Operation::kGetBlock || call.operation == Call::Operation::kSetBlock;
  carried.value = isBlock ? carried.bytes[0] : static_cast<std::uint8_t>(call.words[0] & 0xFF);
  return carried;
}

// Some texts are longer than what is seen of them.
std::string Trimmed(const char* text) {
  std::string trimmed = text;
  trimmed.erase(trimmed.find_last_not_of(" \t") + 1);
  return trimmed;
}

std::string ValueOf(const Property& property, const Carried& carried) {
  if (property.words != nullptr) return property.words(carried);
  const bool byIndex = property.reads == Reads::kIndex && !carried.isWrite;
  const Choice* choice = byIndex ? FindIndex(property.choices, carried.box.boxType, carried.value)
                                 : FindValue(property.choices, carried.box.boxType, carried.value);
  return choice != nullptr ? Trimmed(choice->text) : Format("%d", carried.value);
}

std::string PictureOf(const Carried& carried) {
  return Format("brightness %d, contrast %d, hue %d, saturation %d", carried.bytes[0],
                carried.bytes[1], carried.bytes[2], carried.bytes[3]);
}

bool IsAnswered(const Call& call) { return call.IsWrite() || call.Succeeded(); }

}  // namespace

std::string TextOf(const Address& at) {
  switch (at.kind) {
    case Address::Kind::kWord:
      return Format("word %d", at.number);
    case Address::Kind::kBlock:
      return at.sub == kNoSub ? Format("block %d", at.number)
                              : Format("block %d.%d", at.number, at.sub);
    case Address::Kind::kProcAmp:
      return Format("picture %d", at.number);
    case Address::Kind::kNone:
      break;
  }
  return "";
}

std::string ValueOf(const Identity& box, const Property& property, const Call& call) {
  return ValueOf(property, CarriedBy(call, box));
}

std::string Describe(const Identity& box, std::uint32_t firmware, const Call& call) {
  if (call.operation == Call::Operation::kOpen && call.number == kOpenMode) {
    return call.Succeeded() ? "Open: a box" : "Open?";
  }
  const Carried carried = CarriedBy(call, box);
  if (call.operation == Call::Operation::kGetPicture) {
    return "Picture values" + (call.bytes.empty() ? "?" : ": " + PictureOf(carried));
  }
  std::vector<std::string> texts;
  for (const Property& property : PropertiesOf(box, firmware, call)) {
    std::string text = property.name;
    if (property.command == Property::kAnyValue) {
      text += IsAnswered(call) ? ": " + ValueOf(property, carried) : "?";
    }
    if (std::find(texts.begin(), texts.end(), text) == texts.end()) texts.push_back(text);
  }
  std::string all;
  for (const std::string& text : texts) all += (all.empty() ? "" : " / ") + text;
  return all.empty() ? "unknown: " + TextOf(call) : all;
}

}  // namespace panelora
