// The 16-bit values in the box's blocks. Which order a property has stands with its name.
#pragma once

#include <cstdint>

namespace panelora {

// Both take the bytes as they stand in the block.
constexpr std::uint16_t LittleEndian(std::uint8_t first, std::uint8_t second) {
  return static_cast<std::uint16_t>(second * 256 + first);
}
constexpr std::uint16_t BigEndian(std::uint8_t first, std::uint8_t second) {
  return static_cast<std::uint16_t>(first * 256 + second);
}

constexpr std::uint8_t HighByte(std::uint16_t value) {
  return static_cast<std::uint8_t>(value >> 8);
}
constexpr std::uint8_t LowByte(std::uint16_t value) {
  return static_cast<std::uint8_t>(value & 0xFF);
}

}  // namespace panelora
