#include "boxbench/call_log.h"

#include <algorithm>

#include "base/text.h"
#include "catalogue/describe.h"

namespace panelora::boxbench {

namespace {

constexpr std::size_t kMostKnown = 20000;

const char* DirectionOf(const Call& call) {
  if (call.operation == Call::Operation::kOpen) return "open";
  return call.IsWrite() ? "write" : "read";
}

// A read with what was answered; TextOf tells only what was asked.
std::string CallText(const Call& call) {
  std::string text = TextOf(call);
  if (call.IsWrite() || !call.Succeeded()) return text;
  switch (call.operation) {
    case Call::Operation::kGetBlock:
    case Call::Operation::kGetPicture:
      return text + ": " + HexText(call.bytes);
    case Call::Operation::kGetWord:
      text += Format(" = %u", call.words[0]);
      return call.words[1] != 0 ? text + Format(", %u", call.words[1]) : text;
    case Call::Operation::kGetProcAmp:
      return text + Format(" = %u", call.words[0]);
    default:
      return text;
  }
}

void AddNumber(std::string& key, std::uint32_t number) {
  key.append(reinterpret_cast<const char*>(&number), sizeof number);
}

// What the texts of a call hang on.
std::string KeyOf(const Call& call, std::uint32_t box) {
  std::string key;
  AddNumber(key, box);
  AddNumber(key, static_cast<std::uint32_t>(call.operation));
  AddNumber(key, call.group);
  AddNumber(key, call.number);
  AddNumber(key, static_cast<std::uint32_t>(call.result));
  AddNumber(key, call.words[0]);
  AddNumber(key, call.words[1]);
  key.push_back(static_cast<char>(call.sub));
  key.push_back(static_cast<char>(call.length));
  key.append(call.bytes.begin(), call.bytes.end());
  return key;
}

std::string ResultText(const Call& call) {
  if (call.Succeeded()) return "ok";
  return call.result == 0 ? "failed" : Format("result %d", call.result);
}

}  // namespace

void CallLog::Add(const simulator::BoxControl::Calls& calls, const Identity& box,
                  std::uint32_t firmware) {
  if (calls.entries.empty() && calls.lost == 0) return;
  if (boxes.empty() || boxes.back().identity != box || boxes.back().firmware != firmware) {
    boxes.push_back({box, firmware});
  }
  const auto which = static_cast<std::uint32_t>(boxes.size() - 1);
  const std::uint64_t from = first + all.size();
  if (calls.lost != 0) {
    lost += calls.lost;
    ++lostRows;
    Append({next, calls.lost, 0, 0, which, simulator::By::kBox, {}});
  }
  for (const simulator::Entry& entry : calls.entries) {
    Append({entry.number, 0, entry.time, entry.duration, which, entry.by, CallOf(entry)});
  }
  next = calls.entries.empty() ? next + calls.lost : calls.entries.back().number + 1;
  while (all.size() > most) {
    if (all.front().lost != 0) {
      --lostRows;
    } else {
      ++dropped;
    }
    all.pop_front();
    ++first;
  }
  while (!view.empty() && view.front() < first) view.pop_front();
  if (!paused) ShowFrom(from);
}

void CallLog::Append(Row row) { all.push_back(std::move(row)); }

void CallLog::ShowFrom(std::uint64_t from) {
  const std::uint64_t end = first + all.size();
  for (std::uint64_t place = std::max(from, first); place < end; ++place) {
    if (IsShown(Kept(place))) view.push_back(place);
  }
}

bool CallLog::IsShown(const Row& row) {
  if (row.lost != 0) return true;
  switch (kind) {
    case Kind::kAll:
      break;
    case Kind::kReads:
      if (!row.call.IsRead()) return false;
      break;
    case Kind::kWrites:
      if (!row.call.IsWrite()) return false;
      break;
    case Kind::kOpens:
      if (row.call.operation != Call::Operation::kOpen) return false;
      break;
    case Kind::kFailed:
      if (row.call.Succeeded()) return false;
      break;
  }
  if (filter.empty()) return true;
  const Texts& texts = TextsOf(row);
  return Contains(texts.words, filter) || Contains(texts.call, filter) ||
         Contains(texts.result, filter) || Contains(NameOf(row.by), filter) ||
         std::to_string(row.number) == filter;
}

void CallLog::SetFilter(Kind newKind, const std::string& text) {
  kind = newKind;
  filter = Tidied(text);
  view.clear();
  ShowFrom(first);
  if (!paused) return;
  while (!view.empty() && view.back() >= pausedFrom) view.pop_back();
}

void CallLog::Pause(bool pause) {
  if (pause == paused) return;
  paused = pause;
  if (paused) {
    pausedFrom = first + all.size();
  } else {
    ShowFrom(pausedFrom);
  }
}

void CallLog::Clear() {
  first += all.size();
  pausedFrom = first;
  all.clear();
  view.clear();
  known.clear();
  lost = dropped = 0;
  lostRows = 0;
}

std::string CallLog::Counts() const {
  std::string text = CountText(Count(), "call", "calls");
  if (paused) {
    const std::uint64_t end = first + all.size();
    text += ", paused: " + CountText(end - std::max(pausedFrom, first)) + " new";
  }
  if (view.size() != all.size()) text += ", " + CountText(view.size()) + " shown";
  if (lost != 0) text += ", " + CountText(lost) + " lost";
  if (dropped != 0) text += ", the oldest " + CountText(dropped) + " dropped";
  return text;
}

const CallLog::Texts& CallLog::TextsOf(const Row& row) {
  const std::string key = KeyOf(row.call, row.box);
  const auto found = known.find(key);
  if (found != known.end()) return found->second;
  if (known.size() >= kMostKnown) known.clear();
  const Box& box = boxes[row.box];
  Texts texts{CallText(row.call), Printable(Describe(box.identity, box.firmware, row.call)),
              ResultText(row.call)};
  return known.emplace(key, std::move(texts)).first->second;
}

const char* CallLog::Title(int column) {
  constexpr const char* kTitles[kColumnCount] = {"No.",     "Time",   "Who",      "Direction",
                                                 "Meaning", "Result", "Duration", "Call"};
  return column >= 0 && column < kColumnCount ? kTitles[column] : "";
}

std::string CallLog::Cell(std::size_t shownIndex, int column, std::int64_t toLocal) {
  if (shownIndex >= view.size()) return "";
  const Row& row = At(shownIndex);
  if (row.lost != 0) {
    if (column == kNumber) return CountText(row.number);
    return column == kWords
               ? CountText(row.lost, "call was", "calls were") + " lost: the bench looked too late"
               : "";
  }
  switch (column) {
    case kNumber:
      return CountText(row.number);
    case kTime:
      return ClockText(row.time, toLocal);
    case kBy:
      return NameOf(row.by);
    case kDirection:
      return DirectionOf(row.call);
    case kCall:
      return TextsOf(row).call;
    case kWords:
      return TextsOf(row).words;
    case kResult:
      return TextsOf(row).result;
    case kDuration:
      return DurationText(row.duration);
    default:
      return "";
  }
}

bool CallLog::HasFailed(std::size_t shownIndex) const {
  return shownIndex < view.size() && (At(shownIndex).lost != 0 || !At(shownIndex).call.Succeeded());
}

bool CallLog::IsWrite(std::size_t shownIndex) const {
  return shownIndex < view.size() && At(shownIndex).call.IsWrite();
}

std::string CallLog::Line(std::size_t shownIndex, std::int64_t toLocal) {
  std::string line;
  for (int column = 0; column < kColumnCount; ++column) {
    line += (column == 0 ? "" : "\t") + Cell(shownIndex, column, toLocal);
  }
  return line + "\r\n";
}

std::string CallLog::Text(std::span<const std::size_t> shownIndices, std::int64_t toLocal) {
  std::string text;
  for (int column = 0; column < kColumnCount; ++column) {
    text += std::string(column == 0 ? "" : "\t") + Title(column);
  }
  text += "\r\n";
  for (const std::size_t index : shownIndices) text += Line(index, toLocal);
  return text;
}

std::string CallLog::AllText(std::int64_t toLocal) {
  std::string text = Text({}, toLocal);
  for (std::size_t i = 0; i < view.size(); ++i) text += Line(i, toLocal);
  return text;
}

}  // namespace panelora::boxbench
