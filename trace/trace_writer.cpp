#include "trace/trace_writer.h"

#include <algorithm>

namespace panelora::trace {

void TraceWriter::Reach(const Progress& next) {
  const std::uint32_t other = 1 - which.load(std::memory_order_relaxed);
  progress[other] = next;
  which.store(other, std::memory_order_release);
  ring.Release(next.place);
}

void TraceWriter::Begin() noexcept {
  if (HasFile()) WriteBatch();
}

void TraceWriter::WriteWaiting() noexcept {
  while (IsAnythingLeft() && HasFile() && WriteBatch()) {
  }
}

// Calls that were lost behind all that waited are told as soon as that is written.
bool TraceWriter::IsAnythingLeft() {
  Progress next = Reached();
  if (next.place != ring.End() || next.lost != 0) return true;
  next.lost = ring.TakeLost();
  if (next.lost == 0) return false;
  Reach(next);
  return true;
}

bool TraceWriter::HasFile() {
  Progress next = Reached();
  if (next.isBegun && next.size + kBatchBytes <= kMostBytes) return true;
  if (!disk.Begin()) return next.isBegun && next.size + kBatchBytes <= kMostBytesOfKept;
  next.isBegun = true;
  next.size = 0;
  Reach(next);
  return true;
}

bool TraceWriter::WriteBatch() {
  Progress next = Reached();
  Fill(next);
  if (!disk.Write(next.size, {batch.data(), batchSize})) return false;
  next.size += batchSize;
  Reach(next);
  return true;
}

// As much as there is room for.
void TraceWriter::Fill(Progress& next) {
  constexpr std::size_t kMostOfACall = 2 * Line::kLongest;
  batchSize = 0;
  const auto addLost = [&](std::uint32_t count) {
    if (count != 0) Add(Line::OfLost(next.number, count));
    next.number += count;
  };
  if (next.size == 0) AddHead(next);
  addLost(next.lost);
  next.lost = 0;
  const std::uint32_t end = ring.End();
  for (; next.place != end && batchSize + kMostOfACall <= kBatchBytes; ++next.place) {
    const CallRing::Place& place = ring.At(next.place);
    addLost(place.lostBefore);
    next.told.Hear(place.record);
    Add(Line::OfCall(next.number++, place.record));
  }
}

// With what the files before it have told of the box, so that each can be read without them.
void TraceWriter::AddHead(const Progress& next) {
  Add(Line::First(next.number));
  for (const Record* record : {next.told.Identity(), next.told.Firmware()}) {
    if (record != nullptr) Add(Line::OfCall(kNoNumber, *record));
  }
}

void TraceWriter::Add(const Line& line) {
  const std::string_view text = line.Text();
  std::copy(text.begin(), text.end(), batch.begin() + static_cast<std::ptrdiff_t>(batchSize));
  batchSize += text.size();
}

}  // namespace panelora::trace
