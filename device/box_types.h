// A set of box types, the key of every row that depends on the model.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <initializer_list>

#include "device/identity.h"

namespace panelora {

class BoxTypes {
 public:
  constexpr BoxTypes() = default;

  // Box type codes, 0 to 254, each once. Made at compile time: a code that is none, or that stands
  // twice, does not compile.
  consteval BoxTypes(std::initializer_list<int> codes) {
    for (const int code : codes) {
      if (code < 0 || code >= kNoBoxType) NoBoxTypeHasThisCode();
      if (Has(static_cast<std::uint8_t>(code))) ThisCodeStandsTwice();
      words[static_cast<std::size_t>(code) / kBits] |= Bit(code);
    }
  }

  // Every code there is; no box is in no set.
  static consteval BoxTypes All() {
    BoxTypes all;
    for (int code = 0; code < kNoBoxType; ++code) {
      all.words[static_cast<std::size_t>(code) / kBits] |= Bit(code);
    }
    return all;
  }

  constexpr bool Has(std::uint8_t boxType) const {
    return (words[boxType / kBits] & Bit(boxType)) != 0;
  }
  constexpr bool IsEmpty() const { return *this == BoxTypes(); }

  constexpr BoxTypes With(const BoxTypes& others) const {
    BoxTypes both = *this;
    for (std::size_t i = 0; i < kWords; ++i) both.words[i] |= others.words[i];
    return both;
  }
  constexpr BoxTypes Except(const BoxTypes& others) const {
    BoxTypes rest = *this;
    for (std::size_t i = 0; i < kWords; ++i) rest.words[i] &= ~others.words[i];
    return rest;
  }

  friend constexpr bool operator==(const BoxTypes&, const BoxTypes&) = default;

 private:
  // What is evaluated at compile time can't call them: their names are the compiler's message.
  static void NoBoxTypeHasThisCode() {}
  static void ThisCodeStandsTwice() {}

  static constexpr std::size_t kBits = 64;
  static constexpr std::size_t kWords = 4;
  static constexpr std::uint64_t Bit(int code) { return std::uint64_t{1} << (code % 64); }

  std::array<std::uint64_t, kWords> words{};
};

inline constexpr BoxTypes kAllTypes = BoxTypes::All();
// The shipped model.
inline constexpr BoxTypes kShippedType = {26};
inline constexpr BoxTypes kOtherTypes = BoxTypes::All().Except(kShippedType);

}  // namespace panelora
