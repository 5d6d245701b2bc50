// A box as boxctl talks to it: opened, and asked what it is.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "device/address.h"
#include "device/call.h"
#include "device/device_link.h"
#include "device/identity.h"

namespace panelora::boxctl {

class AttachedBox {
 public:
  // Opens the box and asks for its identity and firmware; what no box answers is a failure. The
  // link outlives it.
  explicit AttachedBox(DeviceLink& theLink);

  const Identity& Who() const { return identity; }
  // As of a box of version 0 where it does not tell its own.
  std::uint32_t Firmware() const { return firmware.value_or(0); }
  bool TellsFirmware() const { return firmware.has_value(); }

  // Asks for an address, and tells what came of it. Picture values are asked for as the panel
  // asks this model for them.
  Call Ask(const Address& at) const;
  // All bytes to a block, the first one as the value to anything else. False when it is refused.
  bool Tell(const Address& at, std::span<const std::uint8_t> bytes) const;
  // Models that keep picture values only when told so keep them from now on.
  void KeepPicture() const;
  // Whether the box that was opened is still there, and the same.
  bool IsThere() const;

 private:
  Call AskBlock(const Address& at) const;
  Call AskPicture(const Address& at) const;
  bool TellsBack(const Address& picture, std::uint8_t value) const;

  DeviceLink& link;
  DeviceHandle handle;
  Identity identity;
  std::optional<std::uint32_t> firmware;
};

// What a write to the address is as a call.
Call WriteTo(const Address& at, std::span<const std::uint8_t> bytes);

}  // namespace panelora::boxctl
