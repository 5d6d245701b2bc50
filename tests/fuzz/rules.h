// What the panel may write, and which buttons it may show: the independent side of the random
// operator.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "tests/fuzz/fuzz_panel.h"

namespace panelora::fuzz {

// A write that a step may or must make.
struct AllowedWrite {
  static constexpr int kAnyValue = -1;

  Call::Operation operation;
  std::uint32_t number;
  bool needed = true;
  int length = 0;         // bytes of a block
  int value = kAnyValue;  // of a word; of a block its first byte
  int last = kAnyValue;   // the last byte of a block
  int sub = 0;
};

struct AllowedWrites {
  std::vector<AllowedWrite> writes;
  bool anyOrder = false;
};

// By what was pressed and on which box. Empty for all that only reads, shows or moves.
AllowedWrites WritesOf(const Step& step, const Situation& situation);

// Empty when the writes are allowed, otherwise what is wrong with them.
std::string Compare(const std::vector<Call>& writes, const AllowedWrites& allowed);

// The sets of navigation buttons that a page may stand with.
std::set<std::set<int>> ButtonSetsOf(const Situation& situation);

}  // namespace panelora::fuzz
