// The rows of every list of options: what the panel calls a value, and what the box calls it.
#pragma once

#include <cstdint>
#include <span>

#include "device/box_types.h"

namespace panelora {

// The index of a value that has no row. A row may have it, too: its text is shown for a box that
// reports the index, and it can be neither chosen nor written.
constexpr std::uint8_t kNoIndex = 255;

struct Choice {
  BoxTypes types;
  std::uint8_t index;  // position in the operator's list, from 0
  const char* text;
  std::uint8_t value = 0;  // what the box is told and reports
};

// In the order in which they are looked through: the first row that fits counts.
using Choices = std::span<const Choice>;

// The first row of the type with the index; null when there is none.
constexpr const Choice* FindIndex(Choices choices, std::uint8_t boxType, std::uint8_t index) {
  for (const Choice& choice : choices) {
    if (choice.index == index && choice.types.Has(boxType)) return &choice;
  }
  return nullptr;
}

// The first row of the type with the value, among those that can be chosen; null when there is
// none.
constexpr const Choice* FindValue(Choices choices, std::uint8_t boxType, std::uint8_t value) {
  for (const Choice& choice : choices) {
    if (choice.index != kNoIndex && choice.value == value && choice.types.Has(boxType)) {
      return &choice;
    }
  }
  return nullptr;
}

// Whether there is no row that is never found, because those before it serve all of its types.
// Every list is checked with it when it is compiled.
constexpr bool EveryRowCounts(Choices choices) {
  for (std::size_t i = 0; i < choices.size(); ++i) {
    BoxTypes byIndex = choices[i].types;
    BoxTypes byValue = choices[i].index == kNoIndex ? BoxTypes() : choices[i].types;
    for (std::size_t j = 0; j < i; ++j) {
      if (choices[j].index == choices[i].index) byIndex = byIndex.Except(choices[j].types);
      if (choices[j].index == kNoIndex) continue;
      if (choices[j].value == choices[i].value) byValue = byValue.Except(choices[j].types);
    }
    if (byIndex.IsEmpty() && byValue.IsEmpty()) return false;
  }
  return true;
}

}  // namespace panelora
