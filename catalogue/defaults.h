// What a box keeps when it leaves the factory, by the rows that say what it has at all.
#pragma once

#include <vector>

#include "device/address.h"
#include "device/identity.h"

namespace panelora {

struct Default {
  Address at;
  std::vector<std::uint8_t> bytes;  // of a word the value's
};

// In the order in which they are stored: where a number means two things, the later one stands.
std::vector<Default> DefaultsOf(const Identity& identity, std::uint32_t firmware);

// The insets of a multi-viewer in their first place, as they are told.
std::vector<std::uint8_t> FirstInset1();
std::vector<std::uint8_t> FirstInset2();

}  // namespace panelora
