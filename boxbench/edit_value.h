// A value as it is typed, in words or in bytes.
#pragma once

#include <string>
#include <vector>

#include "boxbench/property_list.h"

namespace panelora::boxbench {

// The values that have names, in the order of their bytes; none when there are too many for a list.
std::vector<std::string> ValuesOffered(const Identity& box, const PropertyRow& row);

// The bytes that the box is to keep. Words are what the list shows for the value, or a number.
Typed<std::vector<std::uint8_t>> ParseWords(const Identity& box, const PropertyRow& row,
                                            const std::string& text);
// Bytes are hexadecimal, at most as many as the row has room for; or what is wrong with them.
Typed<std::vector<std::uint8_t>> ParseBytes(const PropertyRow& row, const std::string& text);

// Puts the bytes where the box keeps them; why not, in one line, or nothing.
std::string StoreValue(simulator::BoxControl& control, const Address& at,
                       std::span<const std::uint8_t> bytes);

// What the box keeps there when it leaves the factory; empty when it keeps nothing.
std::vector<std::uint8_t> FactoryValue(const Identity& box, std::uint32_t firmware,
                                       const PropertyRow& row);

}  // namespace panelora::boxbench
