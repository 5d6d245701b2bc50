// What the ">>" buttons of the Display Mode page do to the channel numbers, before the table of
// combinations is asked for their names and code.
#pragma once

#include <cstdint>

#include "catalogue/channel_table.h"

namespace panelora {

// Each advances its own number by one and brings the others in line, by display mode and brand.
// Numbers that no rule covers (main picture 0, for one) are advanced and no more.
void StepMain(Channels& channels, std::uint8_t mode, std::uint8_t brandCode);
void StepSub(Channels& channels, std::uint8_t mode, std::uint8_t brandCode);
void StepSub2(Channels& channels, std::uint8_t mode, std::uint8_t brandCode);

}  // namespace panelora
