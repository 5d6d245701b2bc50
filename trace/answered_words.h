// How many words a library fills where one or two may be answered.
#pragma once

#include <atomic>
#include <cstdint>

#include "catalogue/information.h"
#include "trace/told_box.h"
#include "trace/trace_line.h"

namespace panelora::trace {

// A caller may have room for one word only where no second one is answered. What has a second one
// hangs on the type of the box; until that is known, items that have one on any box count.
class AnsweredWords {
 public:
  constexpr AnsweredWords() = default;

  // Takes the box's type from an answered identity block, of which it is the first byte.
  void Hear(const Record& record) {
    if (AsksIdentity(record) && record.result == kSuccess && record.byteCount > 0) {
      boxType.store(record.bytes[0], std::memory_order_relaxed);
    }
  }

  std::size_t Of(std::uint32_t item) const {
    const int known = boxType.load(std::memory_order_relaxed);
    const bool hasTwo = known == kUnknown
                            ? information::MayHaveTwoWords(item)
                            : information::HasTwoWords(static_cast<std::uint8_t>(known), item);
    return hasTwo ? 2 : 1;
  }

 private:
  static constexpr int kUnknown = -1;

  std::atomic<int> boxType = kUnknown;
};

}  // namespace panelora::trace
