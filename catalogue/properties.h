// What a box can be asked and told: a row for every property that it has, made from the rows of the
// pages. What a call means follows from them.
#pragma once

#include <string>
#include <vector>

#include "catalogue/kept.h"
#include "device/call.h"

namespace panelora {

// What a call carried, with zeros behind what it did.
struct Carried {
  const Identity& box;
  bool isWrite;        // told to the box, and not reported by it
  BlockBuffer bytes;   // of a block, or the four picture values
  WordBuffer words;    // of anything else
  std::uint8_t value;  // byte 0 of a block, the low byte of anything else
};

using Words = std::string (*)(const Carried& carried);

struct Property {
  static constexpr int kAnyValue = -1;

  const char* name;
  Address at;  // of a block with how many bytes are asked for
  Access access = Access::kBoth;
  std::uint8_t writeLength = 1;  // of a block
  // What a value is called: by its words, its choice, or as a number.
  Words words = nullptr;
  Choices choices = {};
  Reads reads = Reads::kValue;
  int command = kAnyValue;  // the only value that a command is
  // What counts only where the box has nothing else there: what it keeps under other conditions,
  // and what a page asks only to look at something else.
  bool isAside = false;

  // What it may be asked and told with.
  bool Fits(const Call& call) const;
};

// Those of any box, also of none, come first.
std::vector<Property> PropertiesOf(const Identity& identity, std::uint32_t firmware);

// Those that a call may mean: where a number means two things, both.
std::vector<Property> PropertiesOf(const Identity& identity, std::uint32_t firmware,
                                   const Call& call);

}  // namespace panelora
