// The calls that told last which box a trace is of, as they are written.
#pragma once

#include <algorithm>

#include "trace/told_box.h"
#include "trace/trace_line.h"

namespace panelora::trace {

// It takes no memory of the system: it is asked while a process ends.
class ToldRecords {
 public:
  constexpr ToldRecords() = default;

  void Hear(const Record& record) {
    if (record.result != kSuccess) return;
    if (AsksIdentity(record) && record.byteCount >= kIdentityBytes) {
      const bool isSame =
          hasIdentity && std::equal(identity.bytes.begin(), identity.bytes.begin() + kIdentityBytes,
                                    record.bytes.begin());
      hasFirmware = hasFirmware && isSame;
      hasIdentity = true;
      identity = record;
    }
    if (hasIdentity && AsksFirmware(record, identity.bytes[0])) {
      hasFirmware = true;
      firmware = record;
    }
  }

  // Null until it was told.
  const Record* Identity() const { return hasIdentity ? &identity : nullptr; }
  const Record* Firmware() const { return hasFirmware ? &firmware : nullptr; }

 private:
  Record identity = {};
  Record firmware = {};
  bool hasIdentity = false;
  bool hasFirmware = false;
};

}  // namespace panelora::trace
