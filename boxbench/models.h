// The boxes that the simulated one can be, and what is typed to make it one.
#pragma once

#include <string>
#include <vector>

#include "boxbench/words.h"
#include "device/identity.h"

namespace panelora::boxbench {

struct Model {
  std::uint8_t type;
  std::string text;  // "26 - complete"
};

// The box types of the family, by their codes: from the first one that has a front to the last one.
// Of those between that have none no more is known than what all have.
const std::vector<Model>& Models();
// What a type is called, of the family or not.
std::string ModelText(std::uint8_t type);
// The pages that the panel has for the box, in one line.
std::string PagesText(const Identity& identity);

// The picture of the front in the panel's resources.
const char* FrontOf(const Identity& identity);

// What a box is made from, as typed.
struct BoxForm {
  std::uint8_t type = 0;
  std::string brand;
  std::string subModel;
  bool inputDip = false;
  bool outputDip = false;
  std::string firmware;  // hexadecimal
};
struct WantedBox {
  Identity identity;
  std::uint32_t firmware = 0;
};
// The box as typed, of whatever type; or which of its numbers can't be taken.
Typed<WantedBox> WantedBoxOf(const BoxForm& form);
// What is typed to make it, which WantedBoxOf takes.
BoxForm FormOf(const Identity& identity, std::uint32_t firmware);

// "shown as 0.1.2.6", or what is wrong.
std::string FirmwareHint(const std::string& firmware);

}  // namespace panelora::boxbench
