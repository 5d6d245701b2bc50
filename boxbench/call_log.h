// The list of the calls that were made: all that the journal told, numbered without a gap, and
// which of them are shown.
#pragma once

#include <cstdint>
#include <deque>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

#include "boxbench/words.h"
#include "simulator/box_control.h"

namespace panelora::boxbench {

class CallLog {
 public:
  enum Column : int {
    kNumber,
    kTime,
    kBy,
    kDirection,
    kWords,
    kResult,
    kDuration,
    kCall,
    kColumnCount
  };
  enum class Kind : std::uint8_t { kAll, kReads, kWrites, kOpens, kFailed };
  // The oldest calls go when there are more.
  static constexpr std::size_t kMost = 200000;

  explicit CallLog(std::size_t theMost = kMost) : most(theMost) {}

  // The number of the first call that it has not seen.
  std::uint64_t Next() const { return next; }
  // Takes over what the journal has from Next() on; calls are named as those of this box.
  void Add(const simulator::BoxControl::Calls& calls, const Identity& box, std::uint32_t firmware);

  // Shows calls of the kind that have the text, whatever case, in who, meaning, result or call, or
  // as their number; "" = all. Rows of lost calls are always shown. A paused log stays where it
  // stood.
  void SetFilter(Kind kind, const std::string& text);
  // Shows no more calls until it goes on; they are kept and counted all the same.
  void Pause(bool pause);
  bool IsPaused() const { return paused; }
  // Forgets all calls so far; Next(), filter and pause stay.
  void Clear();

  std::size_t Count() const { return all.size() - lostRows; }
  std::size_t Shown() const { return view.size(); }
  std::uint64_t Dropped() const { return dropped; }
  // "12,345 calls, 3 shown, ..."; lost and dropped ones where there are any.
  std::string Counts() const;

  static const char* Title(int column);
  // In one line; "" beyond the rows and columns. `toLocal` is added to times, in microseconds, here
  // and below.
  std::string Cell(std::size_t shownIndex, int column, std::int64_t toLocal);
  // Whether the box did not take the call, or it was lost; false beyond the rows, as below.
  bool HasFailed(std::size_t shownIndex) const;
  bool IsWrite(std::size_t shownIndex) const;
  // These rows tab separated, a line each, below a line of titles; lines end with "\r\n".
  std::string Text(std::span<const std::size_t> shownIndices, std::int64_t toLocal);
  // The same of all that are shown.
  std::string AllText(std::int64_t toLocal);

 private:
  struct Box {
    Identity identity;
    std::uint32_t firmware;
  };
  struct Row {
    std::uint64_t number;
    std::uint64_t lost;  // above 0: the row stands for so many calls that nobody kept
    std::uint64_t time;
    std::uint32_t duration;
    std::uint32_t box;  // which of `boxes` was asked
    simulator::By by;
    Call call;
  };
  struct Texts {
    std::string call;
    std::string words;
    std::string result;
  };

  const Row& Kept(std::uint64_t place) const {
    return all[static_cast<std::size_t>(place - first)];
  }
  const Row& At(std::size_t shownIndex) const { return Kept(view[shownIndex]); }
  const Texts& TextsOf(const Row& row);
  bool IsShown(const Row& row);
  void Append(Row row);
  void ShowFrom(std::uint64_t from);
  std::string Line(std::size_t shownIndex, std::int64_t toLocal);

  std::size_t most;
  std::deque<Row> all;
  std::uint64_t first = 0;  // the place of all[0], counted from the beginning
  std::deque<std::uint64_t> view;
  std::uint64_t pausedFrom = 0;
  std::uint64_t next = 1;
  std::uint64_t lost = 0;
  std::uint64_t dropped = 0;
  std::size_t lostRows = 0;  // in `all`, that stand for calls that nobody kept
  std::vector<Box> boxes;
  Kind kind = Kind::kAll;
  std::string filter;
  bool paused = false;
  std::unordered_map<std::string, Texts> known;  // most calls are made again and again
};

}  // namespace panelora::boxbench
