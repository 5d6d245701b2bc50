// Places and calls in words: where a box keeps something, and what calls ask it, tell it, or were
// told.
#pragma once

#include <cstdint>
#include <string>

#include "catalogue/properties.h"
#include "device/address.h"
#include "device/call.h"
#include "device/identity.h"

namespace panelora {

// "word 4", "block 14", "block 19.2", "picture 2"; nothing for no place.
std::string TextOf(const Address& at);

// "Input Source: VGA" for what was told or answered, "Input Source?" for what was not answered.
// Where a number means two things on a box, both stand there, with " / " between them. What no row
// knows is "unknown: " and the call. The identity may be that of no box.
std::string Describe(const Identity& box, std::uint32_t firmware, const Call& call);

// What the property of a box is called that a call told it, or was answered: "VGA".
std::string ValueOf(const Identity& box, const Property& property, const Call& call);

}  // namespace panelora
