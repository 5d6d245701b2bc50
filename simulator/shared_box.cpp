#include "simulator/shared_box.h"

#include <algorithm>

namespace panelora::simulator {

Call CallOf(const Entry& entry) {
  const std::size_t count = std::min<std::size_t>(entry.byteCount, entry.bytes.size());
  return {.operation = entry.operation,
          .group = entry.group,
          .number = entry.item,
          .sub = entry.sub,
          .length = entry.length,
          .bytes = {entry.bytes.begin(), entry.bytes.begin() + count},
          .words = entry.words,
          .result = entry.result};
}

Entry EntryOf(const Call& call) {
  Entry entry{};
  entry.operation = call.operation;
  entry.group = call.group;
  entry.item = call.number;
  entry.sub = call.sub;
  entry.length = call.length;
  entry.result = call.result;
  entry.words = call.words;
  const std::size_t count = std::min(call.bytes.size(), entry.bytes.size());
  entry.byteCount = static_cast<std::uint32_t>(count);
  std::copy_n(call.bytes.begin(), count, entry.bytes.begin());
  return entry;
}

}  // namespace panelora::simulator
