#include "boxbench/property_list.h"

#include <algorithm>

#include "catalogue/describe.h"

namespace panelora::boxbench {

namespace {

using simulator::BoxMemory;
using simulator::By;
using simulator::Entry;

constexpr char kNotNamed[] = "(not named)";
constexpr std::size_t kWordBytes = 4;

std::vector<std::uint8_t> BytesOf(const BoxMemory& box, const Address& at) {
  return simulator::BytesAt(box, at);
}

std::uint32_t WordFrom(std::span<const std::uint8_t> bytes, std::size_t first) {
  std::uint32_t word = 0;
  for (std::size_t i = 0; i < kWordBytes && first + i < bytes.size(); ++i) {
    word |= static_cast<std::uint32_t>(bytes[first + i]) << (8 * i);
  }
  return word;
}

// The call that tells the value, or is answered with it.
Call CallWith(const Property& property, std::span<const std::uint8_t> bytes) {
  const Address& at = property.at;
  const bool isTold = property.access == Access::kWriteOnly;
  Call call;
  switch (at.kind) {
    case Address::Kind::kBlock:
      call = isTold ? Call{.operation = Call::Operation::kSetBlock, .number = at.number}
                    : Call::GetBlock(at.number, at.sub, at.readLength);
      call.bytes.assign(bytes.begin(), bytes.end());
      break;
    case Address::Kind::kWord:
      call = isTold ? Call::SetWord(kBoxGroup, at.number, 0) : Call::GetWord(kBoxGroup, at.number);
      break;
    case Address::Kind::kProcAmp:
      call = isTold ? Call::SetProcAmp(kBoxGroup, at.number, 0)
                    : Call::GetProcAmp(kBoxGroup, at.number);
      break;
    case Address::Kind::kNone:
      break;
  }
  if (at.kind != Address::Kind::kBlock) call.words = {WordFrom(bytes, 0), WordFrom(bytes, 4)};
  call.result = kSuccess;
  return call;
}

void AddOnce(std::vector<std::string>& texts, const std::string& text) {
  if (std::find(texts.begin(), texts.end(), text) == texts.end()) texts.push_back(text);
}

std::string Joined(const std::vector<std::string>& texts) {
  std::string all;
  for (const std::string& text : texts) all += (all.empty() ? "" : " / ") + text;
  return all;
}

// What the property makes of the bytes, in one line.
std::string ReadingOf(const Identity& box, const Property& property,
                      std::span<const std::uint8_t> bytes) {
  return Printable(ValueOf(box, property, CallWith(property, bytes)));
}

// Those that count where a number means several things.
void DropAsides(std::vector<Property>& means) {
  const auto isAside = [](const Property& each) { return each.isAside; };
  if (!std::all_of(means.begin(), means.end(), isAside)) std::erase_if(means, isAside);
}

std::string NamesOf(const std::vector<Property>& means) {
  std::vector<std::string> names;
  for (const Property& each : means) AddOnce(names, each.name);
  return names.empty() ? kNotNamed : Joined(names);
}

// Every place where the box keeps something, named or not.
std::vector<Address> KeptPlaces(const BoxMemory& box) {
  std::vector<Address> places;
  for (std::size_t number = 0; number < BoxMemory::kNumbers; ++number) {
    const auto item = static_cast<std::uint8_t>(number);
    if (box.words[number].held) places.push_back(Word(item));
    if (!box.blocks[number].empty()) places.push_back(Block(item));
  }
  return places;
}

std::optional<Address> PlaceOf(const Entry& entry) {
  if (entry.item >= BoxMemory::kNumbers) return std::nullopt;  // the box keeps nothing there
  switch (entry.operation) {
    case Call::Operation::kSetBlock:
      return Block(static_cast<std::uint8_t>(entry.item), entry.length, entry.sub);
    case Call::Operation::kSetWord:
      return Word(entry.item);
    case Call::Operation::kSetProcAmp:
      return ProcAmp(entry.item);
    default:
      return std::nullopt;
  }
}

}  // namespace

std::string PropertyRow::HexBytes() const {
  std::span<const std::uint8_t> seen = bytes;
  const bool isWord = at.kind == Address::Kind::kWord && seen.size() == 2 * kWordBytes;
  if (isWord && WordFrom(seen, kWordBytes) == 0) seen = seen.first(kWordBytes);
  return HexText(seen);
}

std::string WordsOfValue(const Identity& box, const PropertyRow& row,
                         std::span<const std::uint8_t> bytes) {
  if (bytes.empty()) return "";
  const bool hasNames = row.name.find(" / ") != std::string::npos;
  std::vector<std::string> texts;
  for (const Property& each : row.means) {
    if (each.command != Property::kAnyValue) continue;
    const std::string words = ReadingOf(box, each, bytes);
    AddOnce(texts, hasNames ? std::string(each.name) + ": " + words : words);
  }
  return Joined(texts);
}

std::vector<std::string> ReadingsOfValue(const Identity& box, const PropertyRow& row,
                                         std::span<const std::uint8_t> bytes) {
  std::vector<std::string> texts;
  for (const Property& each : row.means) {
    if (bytes.empty() || each.command != Property::kAnyValue) continue;
    AddOnce(texts, ReadingOf(box, each, bytes));
  }
  return texts;
}

void PropertyList::MakeRows(const BoxMemory& box) {
  std::vector<PropertyRow> made;
  const auto rowAt = [&made](const Address& at) -> PropertyRow& {
    const auto found = std::find_if(
        made.begin(), made.end(), [&](const PropertyRow& row) { return IsSamePlace(row.at, at); });
    if (found != made.end()) return *found;
    made.push_back({.at = at, .number = TextOf(at)});
    return made.back();
  };
  for (const Property& property : PropertiesOf(identity, firmware)) {
    rowAt(property.at).means.push_back(property);
  }
  for (const Address& at : KeptPlaces(box)) rowAt(at);
  for (PropertyRow& row : made) {
    DropAsides(row.means);
    row.name = NamesOf(row.means);
    row.bytes = BytesOf(box, row.at);
    row.words = WordsOfValue(identity, row, row.bytes);
  }
  std::stable_sort(made.begin(), made.end(), [](const PropertyRow& left, const PropertyRow& right) {
    return IsBefore(left.at, right.at);
  });
  rows = std::move(made);
}

// Those behind the number `after`; what was written before is gone.
void PropertyList::NoteWrites(std::span<const Entry> calls, std::uint64_t after) {
  for (const Entry& entry : calls) {
    const std::optional<Address> at = PlaceOf(entry);
    if (!at || entry.result != kSuccess || entry.number <= after) continue;
    const auto row = std::find_if(rows.begin(), rows.end(), [&](const PropertyRow& each) {
      return IsSamePlace(each.at, *at);
    });
    if (row == rows.end()) continue;
    row->by = entry.by;
    row->time = entry.time;
  }
}

bool PropertyList::Update(const simulator::BoxControl::Look& look, std::span<const Entry> calls,
                          std::uint64_t time, std::uint64_t now) {
  const BoxMemory& box = look.box;
  const bool isItsOwn = look.change.count == changes;  // nobody changed it otherwise
  changes = look.change.count;
  const bool isOther = !isMade || box.identity != identity || box.firmware != firmware;
  const bool isNamed = std::all_of(rows.begin(), rows.end(), [](const PropertyRow& row) {
    return !row.means.empty() || !row.bytes.empty();
  });
  const auto isNew = [this](const Address& at) { return Find(at) == nullptr; };
  const std::vector<Address> places = KeptPlaces(box);
  if (isOther || !isNamed || std::any_of(places.begin(), places.end(), isNew)) {
    const std::vector<PropertyRow> before = isOther ? std::vector<PropertyRow>() : rows;
    identity = box.identity;
    firmware = box.firmware;
    isMade = true;
    MakeRows(box);
    for (const PropertyRow& old : before) {
      const auto row = std::find_if(rows.begin(), rows.end(), [&](const PropertyRow& each) {
        return IsSamePlace(each.at, old.at);
      });
      if (row == rows.end()) continue;
      row->by = old.by;
      row->time = old.time;
      row->changedAt = old.changedAt;
    }
    NoteWrites(calls, look.change.made);
    Filter();
    return true;
  }
  std::vector<std::size_t> changed;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    std::vector<std::uint8_t> bytes = BytesOf(box, rows[i].at);
    if (bytes == rows[i].bytes) continue;
    PropertyRow& row = rows[i];
    row.bytes = std::move(bytes);
    row.words = WordsOfValue(identity, row, row.bytes);
    row.by = isItsOwn ? By::kBox : look.change.by;
    row.time = isItsOwn ? time : look.change.time;
    row.changedAt = now;
    changed.push_back(i);
  }
  NoteWrites(calls, look.change.made);
  if (changed.empty()) return !calls.empty();
  if (!filter.empty()) Filter();
  return true;
}

void PropertyList::SetFilter(const std::string& text) {
  filter = Tidied(text);
  Filter();
}

void PropertyList::Filter() {
  shown.clear();
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const PropertyRow& row = rows[i];
    if (Contains(row.number, filter) || Contains(row.name, filter) || Contains(row.words, filter)) {
      shown.push_back(i);
    }
  }
}

const PropertyRow* PropertyList::Find(const Address& at) const {
  for (const PropertyRow& row : rows) {
    if (IsSamePlace(row.at, at)) return &row;
  }
  return nullptr;
}

std::optional<std::size_t> PropertyList::IndexOf(const Address& at) const {
  for (std::size_t i = 0; i < shown.size(); ++i) {
    if (IsSamePlace(Row(i).at, at)) return i;
  }
  return std::nullopt;
}

std::string PropertyList::Cell(std::size_t shownIndex, int column, std::int64_t toLocal) const {
  if (shownIndex >= shown.size()) return "";
  const PropertyRow& row = Row(shownIndex);
  switch (column) {
    case kNumber:
      return row.number;
    case kName:
      return row.name;
    case kBytes:
      return row.HexBytes();
    case kWords:
      return row.words;
    case kBy:
      return row.by ? NameOf(*row.by) : "";
    case kTime:
      return row.by ? ClockText(row.time, toLocal) : "";
    default:
      return "";
  }
}

bool PropertyList::IsFlashing(std::size_t shownIndex, std::uint64_t now) const {
  if (shownIndex >= shown.size()) return false;
  const std::uint64_t since = Row(shownIndex).changedAt;
  return since != 0 && now - since < kFlash;
}

std::string PropertyList::Counts() const {
  const std::string all = CountText(rows.size(), "property", "properties");
  return shown.size() == rows.size() ? all : CountText(shown.size()) + " of " + all;
}

}  // namespace panelora::boxbench
