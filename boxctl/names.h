// The properties of a box by the names that the panel shows, and by their addresses.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "catalogue/properties.h"

namespace panelora::boxctl {

// A property by a name that no other one of its list has: where two have the same, the address
// stands behind it.
struct Named {
  std::string name;
  Property property;
};

// What a box can be asked; what it can be told; both, with the commands that it obeys.
std::vector<Named> ReadableOf(const Identity& identity, std::uint32_t firmware);
std::vector<Named> WritableOf(const Identity& identity, std::uint32_t firmware);
std::vector<Named> AllOf(const Identity& identity, std::uint32_t firmware);

// Those of the name, or of the address, without regard to blanks and capital letters. A failure
// that lists near names when there is none.
std::vector<Named> Find(std::span<const Named> all, const std::string& name);
// The same for one; a failure that lists them when there are several.
Named FindOne(std::span<const Named> all, const std::string& name);

// Whether the name is that of a command.
bool IsCommand(std::span<const Named> all, const std::string& name);

// The names that look most like what was typed, at most five.
std::string NearOf(std::span<const std::string> names, const std::string& typed);

// Gives every name that stands more than once its address; what stands twice at one place is there
// once.
std::vector<Named> Distinct(std::span<const Property> properties);

}  // namespace panelora::boxctl
