// Calls in words: what they ask the box, tell it, or were told.
#pragma once

#include <cstdint>
#include <string>

#include "catalogue/properties.h"
#include "device/call.h"
#include "device/identity.h"

namespace panelora {

// "Input Source: VGA" for what was told or answered, "Input Source?" for what was not answered.
// Where a number means two things on a box, both stand there, with " / " between them. What no row
// knows is "unknown: " and the call. The identity may be that of no box.
std::string Describe(const Identity& box, std::uint32_t firmware, const Call& call);

// What the property of a box is called that a call told it, or was answered: "VGA".
std::string ValueOf(const Identity& box, const Property& property, const Call& call);

}  // namespace panelora
