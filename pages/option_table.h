// Option tables: constant rows that end at the row whose key is 255, searched from the start.
#pragma once

#include <cstdint>

namespace panelora {

// The key of the row that ends every option table.
constexpr std::uint8_t kTableEnd = 255;

// The first row that `matches`, or null. The search ends at the row whose `key` is 255, which is
// itself offered to `matches` first: some end rows carry a text that a box can ask for.
template <class Row, class Matches>
const Row* FindRow(const Row* row, std::uint8_t Row::*key, Matches matches) {
  for (;; ++row) {
    const bool last = row->*key == kTableEnd;
    if (matches(*row)) return row;
    if (last) return nullptr;
  }
}

// A value and how it is called.
struct NamedValue {
  std::uint8_t value;  // 255 ends the table
  const char* name;
};

// The name of the first row with the value; null when there is none. The last row is never found.
inline const char* NameOf(const NamedValue* table, std::uint8_t value) {
  const NamedValue* row = FindRow(table, &NamedValue::value,
                                  [&](const NamedValue& each) { return each.value == value; });
  return row == nullptr || row->value == kTableEnd ? nullptr : row->name;
}

}  // namespace panelora
