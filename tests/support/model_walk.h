// A walk over the box types: the panel with any box of the family on any page.
#pragma once

#include <initializer_list>
#include <string>

#include "tests/support/scenario.h"

namespace panelora::testing {

class ModelWalk : public Scenario {
 protected:
  // The codes that some rule of the family names, and three that none does.
  static constexpr int kTypes[] = {0,  5,  6,  7,  13, 14, 15, 17, 18, 19, 20, 21, 22, 23, 24,
                                   25, 26, 27, 29, 30, 32, 33, 34, 35, 36, 37, 38, 39, 40, 42,
                                   43, 44, 45, 46, 47, 48, 49, 50, 51, 52, 53, 54, 55, 254};

  static Identity Box(int type, int brand = 0, int inputDip = 0, int outputDip = 0) {
    const auto byte = [](int value) { return static_cast<std::uint8_t>(value); };
    return {byte(type), byte(brand), 0, byte(inputDip), byte(outputDip)};
  }
  static std::string Named(const Identity& box) {
    return "type " + std::to_string(box.boxType) + " brand " + std::to_string(box.brandCode) +
           " DIP " + std::to_string(box.inputDipFlag) + std::to_string(box.outputDipFlag);
  }

  // The panel anew, with this box.
  void StartAs(const Identity& identity, std::uint32_t firmware = 0x0126) {
    panel.reset();
    StartWith(identity, firmware);
  }

  // The page reads the box again.
  void Reread() { Press(kPictureButton); }
  void Report(int property, Bytes bytes) {
    box.Block(static_cast<std::uint8_t>(property)) = std::move(bytes);
  }
  void ReportWord(int item, int value) {
    box.Word(static_cast<std::uint32_t>(item)) = {static_cast<std::uint32_t>(value), 0};
  }
};

inline bool Has(std::initializer_list<int> types, int type) {
  for (const int each : types) {
    if (each == type) return true;
  }
  return false;
}

inline std::string SetBlock(int property, std::initializer_list<int> bytes) {
  BlockBuffer buffer{};
  std::size_t size = 0;
  for (const int byte : bytes) buffer[size++] = static_cast<std::uint8_t>(byte);
  return TextOf(Call::SetBlock(static_cast<std::uint8_t>(property), kNoSub,
                               static_cast<std::uint8_t>(size), buffer));
}

inline std::string SetWord(int item, int value) {
  return TextOf(Call::SetWord(kBoxGroup, static_cast<std::uint32_t>(item),
                              static_cast<std::uint32_t>(value)));
}

inline std::string GetBlock(int property, int length = 2) {
  return TextOf(Call::GetBlock(static_cast<std::uint8_t>(property), kNoSub,
                               static_cast<std::uint8_t>(length)));
}

inline std::string GetWord(int item) {
  return TextOf(Call::GetWord(kBoxGroup, static_cast<std::uint32_t>(item)));
}

}  // namespace panelora::testing
