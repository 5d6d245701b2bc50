// A call as the tracing library puts it into its ring.
#pragma once

#include <algorithm>

#include "trace/trace_line.h"

namespace panelora::trace {

// A read without bytes was not answered, a write without them was given no buffer.
inline Record RecordOf(const TracedCall& traced) {
  const Call& call = traced.call;
  Record record{};
  record.time = traced.time;
  record.duration = traced.duration;
  record.group = call.group;
  record.number = call.number;
  record.result = call.result;
  record.words = call.words;
  record.operation = call.operation;
  record.sub = call.sub;
  record.length = call.length;
  record.byteCount = static_cast<std::uint8_t>(call.bytes.size());
  std::copy(call.bytes.begin(), call.bytes.end(), record.bytes.begin());
  return record;
}

}  // namespace panelora::trace
