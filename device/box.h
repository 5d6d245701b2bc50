// The box as its owner knows it: the library, and the handle that it was given.
#pragma once

#include <algorithm>
#include <cstdint>
#include <initializer_list>
#include <span>

#include "device/address.h"
#include "device/device_link.h"

namespace panelora {

// Reads are true when the box answered. What a failed one leaves in bytes or words is nothing to
// look at; a single value is left as it was.
class Box {
 public:
  Box(DeviceLink& theLink, DeviceHandle theHandle) : link(&theLink), handle(theHandle) {}

  DeviceHandle Handle() const { return handle; }

  // The bytes of a block.
  bool Read(const Address& at, BlockBuffer& bytes) const {
    return link->GetKiraboxProperty(handle, at.number, at.sub, at.readLength, bytes) == kSuccess;
  }

  // Both words of an item or picture control; most answer with one.
  bool Read(const Address& at, WordBuffer& words) const {
    if (at.kind == Address::Kind::kProcAmp) {
      return link->GetVideoProcAmp(handle, kBoxGroup, at.number, words) == kSuccess;
    }
    return link->GetBoxProperty(handle, kBoxGroup, at.number, words) == kSuccess;
  }

  // Byte 0 of a block, the low byte of anything else.
  bool Read(const Address& at, std::uint8_t& value) const {
    if (at.kind == Address::Kind::kNone) return false;
    if (at.kind == Address::Kind::kBlock) {
      BlockBuffer bytes{};
      if (!Read(at, bytes)) return false;
      value = bytes[0];
      return true;
    }
    WordBuffer words{};
    if (!Read(at, words)) return false;
    value = static_cast<std::uint8_t>(words[0] & 0xFF);
    return true;
  }

  // The four picture values at once. What a failed call left in them is theirs.
  void Read(ProcAmpBytes& picture) const { link->GetKiraboxProcAmp(handle, picture); }

  // All bytes to a block; the one byte, as the value, to anything else. The result is not looked
  // at.
  void Write(const Address& at, std::span<const std::uint8_t> bytes) const {
    switch (at.kind) {
      case Address::Kind::kBlock: {
        BlockBuffer buffer{};
        std::copy(bytes.begin(), bytes.end(), buffer.begin());
        link->SetKiraboxProperty(handle, at.number, at.sub, static_cast<std::uint8_t>(bytes.size()),
                                 buffer);
        break;
      }
      case Address::Kind::kWord:
        link->SetBoxProperty(handle, kBoxGroup, at.number, bytes.front());
        break;
      case Address::Kind::kProcAmp:
        link->SetVideoProcAmp(handle, kBoxGroup, at.number, bytes.front());
        break;
      case Address::Kind::kNone:
        break;
    }
  }
  void Write(const Address& at, std::initializer_list<std::uint8_t> bytes) const {
    Write(at, std::span(bytes.begin(), bytes.size()));
  }

 private:
  DeviceLink* link;
  DeviceHandle handle;
};

}  // namespace panelora
