// Where the box keeps a value.
#pragma once

#include <cstdint>

#include "device/device_link.h"

namespace panelora {

struct Address {
  enum class Kind : std::uint8_t {
    kNone,     // the box keeps no such value
    kWord,     // item `number` of kBoxGroup: one 32-bit value, whose low byte counts
    kBlock,    // property `number`, sub-number `sub`: `readLength` bytes are asked for
    kProcAmp,  // picture control `number`
  };

  Kind kind = Kind::kNone;
  std::uint8_t number = 0;
  std::uint8_t readLength = 0;
  std::uint8_t sub = kNoSub;

  friend constexpr bool operator==(const Address&, const Address&) = default;
};

constexpr Address Word(std::uint32_t item) {
  return {Address::Kind::kWord, static_cast<std::uint8_t>(item), 0, kNoSub};
}

// Most blocks hold one value and are asked for two bytes.
constexpr Address Block(std::uint8_t property, std::uint8_t readLength = 2,
                        std::uint8_t sub = kNoSub) {
  return {Address::Kind::kBlock, property, readLength, sub};
}

constexpr Address ProcAmp(std::uint32_t control) {
  return {Address::Kind::kProcAmp, static_cast<std::uint8_t>(control), 0, kNoSub};
}

}  // namespace panelora
