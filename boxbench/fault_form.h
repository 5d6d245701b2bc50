// The faults of the box as they are chosen, and in words.
#pragma once

#include <optional>
#include <string>

#include "boxbench/words.h"
#include "simulator/shared_box.h"

namespace panelora::boxbench {

struct FaultForm {
  enum How : int { kNever, kEveryCall, kEveryNth };

  int how = kNever;
  std::string nth = "3";
  bool reads = true;
  bool writes = true;
  bool opens = false;
  std::optional<Address> only = {};
  int answer = 0;  // a Faults::Answer
  std::string result = "2";
  std::uint32_t latency = 0;  // ms
  bool vanishes = false;      // on the next write
  bool fills = false;         // block answers with 0xFF

  bool operator==(const FaultForm&) const = default;
};

// The faults that are chosen, with nothing counted yet and no cable cut; or what is wrong with a
// number, and that no call is meant.
Typed<simulator::Faults> FaultsOf(const FaultForm& form);
// What can't be seen in the faults is as `before` has it.
FaultForm FormOf(const simulator::Faults& faults, const FaultForm& before);
// Changes what can be chosen, and begins to count anew.
void Choose(simulator::Faults& faults, const simulator::Faults& chosen);
// Whether what can be chosen is the same.
bool IsSameChoice(const simulator::Faults& left, const simulator::Faults& right);

// "Every 3rd read of block 14 fails; every call takes 120 ms"; nothing when there are none.
std::string FaultsInWords(const simulator::Faults& faults);

}  // namespace panelora::boxbench
