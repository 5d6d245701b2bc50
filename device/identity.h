// The identity block: which box is attached.
#pragma once

#include <array>
#include <cstdint>

namespace panelora {

// `boxType` of no box.
constexpr std::uint8_t kNoBoxType = 255;

// Bytes 0 to 4 of the identity block (property kIdentityBlock). All 255 until a box was
// identified.
struct Identity {
  std::uint8_t boxType = 255;        // model code; kNoBoxType = no box
  std::uint8_t brandCode = 255;      // 1, 2, 3, 4, 8, 9: a reseller's brand; others: the maker's
  std::uint8_t subModel = 255;       // sub-model within a brand
  std::uint8_t inputDipFlag = 255;   // 1 = an input-side model that is configured by DIP switches
  std::uint8_t outputDipFlag = 255;  // 1 = DIP-switch variant of an output-side model

  bool operator==(const Identity&) const = default;
};

}  // namespace panelora
