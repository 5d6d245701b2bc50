// The list of everything that the box keeps: where, what it is called, its value in bytes and in
// words, and who changed it last and when.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "boxbench/words.h"
#include "catalogue/properties.h"
#include "simulator/box_control.h"

namespace panelora::boxbench {

struct PropertyRow {
  Address at;
  std::string number = {};           // "block 14"
  std::string name = {};             // all names that the number has on this box
  std::vector<Property> means = {};  // none = no row of the catalogue names it
  std::vector<std::uint8_t> bytes = {};
  std::string words = {};
  std::optional<simulator::By> by = {};  // who wrote it last, as far as is known
  std::uint64_t time = 0;                // when, in microseconds since 1970 (UTC)
  std::uint64_t changedAt = 0;           // ms of the bench's clock; 0 = not since it looks

  // As the list shows it: of a word four bytes where the other four are 0.
  std::string HexBytes() const;
};

class PropertyList {
 public:
  enum Column : int { kNumber, kName, kBytes, kWords, kBy, kTime, kColumnCount };
  static constexpr std::uint64_t kFlash = 1000;  // ms that a change is marked

  // Takes the box over. `calls` are those that were made since the last time; what changed without
  // one was changed by whom the look names, or by the box itself at `time`. `now` is ms of a clock
  // that is never 0. True when a row came, went or changed.
  bool Update(const simulator::BoxControl::Look& look, std::span<const simulator::Entry> calls,
              std::uint64_t time, std::uint64_t now);

  // Part of a number, a name or the words; "" = all.
  void SetFilter(const std::string& text);

  std::size_t Count() const { return rows.size(); }
  std::size_t Shown() const { return shown.size(); }
  const PropertyRow& Row(std::size_t shownIndex) const { return rows[shown[shownIndex]]; }
  const std::vector<PropertyRow>& All() const { return rows; }
  const PropertyRow* Find(const Address& at) const;
  // Where a place is shown, if it is.
  std::optional<std::size_t> IndexOf(const Address& at) const;
  // In one line; "" beyond the rows and columns. `toLocal` is added to times, in microseconds.
  std::string Cell(std::size_t shownIndex, int column, std::int64_t toLocal) const;
  bool IsFlashing(std::size_t shownIndex, std::uint64_t now) const;
  // "41 properties" or "3 of 41 properties".
  std::string Counts() const;

 private:
  void MakeRows(const simulator::BoxMemory& box);
  void NoteWrites(std::span<const simulator::Entry> calls, std::uint64_t after);
  void Filter();

  Identity identity{};
  std::uint32_t firmware = 0;
  std::uint64_t changes = 0;  // that were made otherwise, as far as is seen
  bool isMade = false;
  std::vector<PropertyRow> rows;
  std::vector<std::size_t> shown;
  std::string filter;
};

// What a row's value is called when it is these bytes.
std::string WordsOfValue(const Identity& box, const PropertyRow& row,
                         std::span<const std::uint8_t> bytes);
// The same without names before it, for each of the things that the number means.
std::vector<std::string> ReadingsOfValue(const Identity& box, const PropertyRow& row,
                                         std::span<const std::uint8_t> bytes);

}  // namespace panelora::boxbench
