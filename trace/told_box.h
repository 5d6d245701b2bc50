// Which box a trace is of, as far as its calls have told.
#pragma once

#include "catalogue/codecs.h"
#include "catalogue/information.h"
#include "device/call.h"

namespace panelora::trace {

inline constexpr std::size_t kIdentityBytes = 5;  // of the identity block, that are used

class ToldBox {
 public:
  void Hear(const Call& call) {
    if (!call.Succeeded()) return;
    if (call.operation == Call::Operation::kGetBlock && call.number == kIdentityBlock.number &&
        call.bytes.size() >= kIdentityBytes) {
      const Identity told = DecodeIdentity(call.bytes);
      if (told != identity) firmware = 0;
      identity = told;
    }
    if (call.operation == Call::Operation::kGetWord && call.group == kBoxGroup &&
        call.number == information::FirmwareOf(identity.boxType).number) {
      firmware = DecodeFirmware(call.words);
    }
  }

  const Identity& TheIdentity() const { return identity; }
  std::uint32_t Firmware() const { return firmware; }  // 0 = it was not told

 private:
  Identity identity;
  std::uint32_t firmware = 0;
};

}  // namespace panelora::trace
