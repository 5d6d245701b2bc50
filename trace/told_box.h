// Which box a trace is of, as far as its calls have told.
#pragma once

#include "catalogue/codecs.h"
#include "catalogue/information.h"
#include "device/call.h"

namespace panelora::trace {

inline constexpr std::size_t kIdentityBytes = 5;  // of the identity block, that are used

// Of a Call, or of a Record.
template <class Made>
bool AsksIdentity(const Made& made) {
  return made.operation == Call::Operation::kGetBlock && made.number == kIdentityBlock.number;
}
template <class Made>
bool AsksFirmware(const Made& made, std::uint8_t boxType) {
  return made.operation == Call::Operation::kGetWord && made.group == kBoxGroup &&
         made.number == information::FirmwareOf(boxType).number;
}

class ToldBox {
 public:
  void Hear(const Call& call) {
    if (!call.Succeeded()) return;
    if (AsksIdentity(call) && call.bytes.size() >= kIdentityBytes) {
      const Identity told = DecodeIdentity(call.bytes);
      if (told != identity) firmware = 0;
      identity = told;
    }
    if (AsksFirmware(call, identity.boxType)) firmware = DecodeFirmware(call.words);
  }

  const Identity& TheIdentity() const { return identity; }
  std::uint32_t Firmware() const { return firmware; }  // 0 = it was not told

 private:
  Identity identity;
  std::uint32_t firmware = 0;
};

}  // namespace panelora::trace
