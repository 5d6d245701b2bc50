// Everything that a box keeps, in one piece and without pointers: it may lie in memory that several
// programs share, and is copied as it is.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <initializer_list>
#include <type_traits>
#include <vector>

#include "device/device_link.h"
#include "device/identity.h"

namespace panelora::simulator {

// The bytes of a block property; without any the box does not have it, and its reads fail.
class KeptBlock {
 public:
  static constexpr std::size_t kMost = 255;  // a length is one byte

  // NOLINTBEGIN(readability-identifier-naming): named like those of a vector
  KeptBlock& operator=(std::initializer_list<std::uint8_t> bytes) {
    assign(bytes.begin(), bytes.end());
    return *this;
  }
  KeptBlock& operator=(const std::vector<std::uint8_t>& bytes) {
    assign(bytes.begin(), bytes.end());
    return *this;
  }
  template <class Iterator>
  void assign(Iterator first, Iterator last) {
    resize(0);
    resize(static_cast<std::size_t>(std::distance(first, last)));
    std::copy_n(first, size(), held.begin());
  }
  void assign(std::size_t count, std::uint8_t value) {
    resize(0);
    resize(count);
    std::fill_n(held.begin(), size(), value);
  }
  // New bytes are 0.
  void resize(std::size_t count) {
    const std::size_t before = size();
    length = static_cast<std::uint8_t>(std::min(count, kMost));
    for (std::size_t i = before; i < length; ++i) held[i] = 0;
  }

  std::size_t size() const { return length; }
  void clear() { length = 0; }
  bool empty() const { return length == 0; }
  std::uint8_t& operator[](std::size_t i) { return held[i]; }
  std::uint8_t operator[](std::size_t i) const { return held[i]; }
  std::uint8_t* begin() { return held.data(); }
  std::uint8_t* end() { return held.data() + length; }
  const std::uint8_t* begin() const { return held.data(); }
  const std::uint8_t* end() const { return held.data() + length; }
  // NOLINTEND(readability-identifier-naming)

  bool operator==(const KeptBlock& other) const {
    return std::equal(begin(), end(), other.begin(), other.end());
  }
  bool operator==(const std::vector<std::uint8_t>& bytes) const {
    return std::equal(begin(), end(), bytes.begin(), bytes.end());
  }

 private:
  std::uint8_t length;
  std::array<std::uint8_t, kMost + 1> held;
};

struct KeptWord {
  bool held;  // the box has such an item
  WordBuffer words;
};

struct BoxMemory {
  static constexpr std::size_t kNumbers = 256;  // of properties, and of items
  static constexpr std::size_t kSubs = 4;       // of the one property that has sub-numbers

  bool beingMade;  // between the beginning and the end of becoming what it is
  Identity identity;
  std::uint32_t firmware;
  bool present;
  bool restarting;
  bool inputIsGiven;          // what it receives came from outside, and hangs on no source
  std::uint64_t restartedAt;  // ms of the clock that the box is given
  std::array<KeptBlock, kNumbers> blocks;
  std::array<KeptBlock, kSubs - 1> labels;  // of the sub-numbers above 0
  std::array<KeptWord, kNumbers> words;
  ProcAmpBytes picture;
};

static_assert(std::is_trivially_copyable_v<BoxMemory>);

}  // namespace panelora::simulator
