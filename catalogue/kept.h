// Which box keeps which option where: the one kind of row for all options of all pages.
#pragma once

#include <cstdint>
#include <span>

#include "catalogue/choice.h"
#include "device/address.h"
#include "device/box_types.h"

namespace panelora {

// What a row asks of the box beyond its type; null = nothing. `firmware` = (major × 256) + minor.
using Condition = bool (*)(const Identity& identity, std::uint32_t firmware);

template <std::uint32_t version>
constexpr Condition kFromFirmware =
    [](const Identity&, std::uint32_t firmware) { return firmware >= version; };

// An option that the operator can choose: ">>" steps its index, and after `last` comes `first`.
struct OptionList {
  const char* name;  // as the panel captions it
  Choices choices;
  std::uint8_t last;
  std::uint8_t first = 0;
  std::uint8_t factory = 0;  // the index that a box leaves the factory with
};

// What a box reports: the index of a choice, or its value.
enum class Reads : std::uint8_t { kIndex, kValue };

// The boxes that use the row's address for both, to tell the option, or to be told it.
enum class Access : std::uint8_t { kBoth, kReadOnly, kWriteOnly };

struct Kept {
  BoxTypes types;
  std::uint8_t subPage;
  std::uint8_t option;
  Address at;
  Reads reads = Reads::kIndex;
  Condition when = nullptr;
  Access access = Access::kBoth;

  bool Serves(const Identity& identity, std::uint32_t firmware) const {
    return types.Has(identity.boxType) && (when == nullptr || when(identity, firmware));
  }
};

// The options of a page, by the numbers that `kept` gives them.
struct OptionGroup {
  std::span<const OptionList> options;
  std::span<const Kept> kept;  // in the order in which a page asks for them
};

// What a box is told to do at once.
struct Command {
  BoxTypes types;
  Address at;
  std::uint8_t value;
  Condition when = nullptr;

  bool Serves(const Identity& identity, std::uint32_t firmware) const {
    return types.Has(identity.boxType) && (when == nullptr || when(identity, firmware));
  }
};

// The first row for a box type, or for a box where rows have conditions; null when there is none.
template <class Row, std::size_t size>
constexpr const Row* FirstOf(const Row (&rows)[size], std::uint8_t boxType) {
  for (const Row& row : rows) {
    if (row.types.Has(boxType)) return &row;
  }
  return nullptr;
}
template <class Row, std::size_t size>
const Row* FirstOf(const Row (&rows)[size], const Identity& identity) {
  for (const Row& row : rows) {
    if (row.types.Has(identity.boxType) && (row.when == nullptr || row.when(identity, 0))) {
      return &row;
    }
  }
  return nullptr;
}

}  // namespace panelora
