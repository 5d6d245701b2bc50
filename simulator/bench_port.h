// The bench port of the simulated DEVLNK.dll: a piece of shared memory through which another
// program unplugs the box, makes it another one, lets calls fail, and reads which calls were made.
// The panel knows nothing of it.
#pragma once

#include <cstdint>

namespace panelora::simulator {

// The name of the memory: this and the process id of the panel, in decimal.
constexpr char kBenchPortName[] = "Local\\PaneloraBox.";

constexpr std::uint32_t kBenchPortMagic = 0x4C4E4150;

struct BenchPort {
  std::uint32_t magic;
  std::uint32_t present;     // 0 = unplugged
  std::uint8_t identity[8];  // bytes 0 to 4 of the identity block, then unused
  std::uint32_t firmware;
  std::uint32_t change;      // raise by one to make the box the one of `identity` and `firmware`
  std::uint32_t failing;     // 1 = every call but open fails
  std::uint32_t lengthFull;  // 1 = block reads but the identity's are filled with 0xFF
  std::uint32_t delay;       // ms that every call takes
  std::uint32_t logBytes;    // how much of `log` is used
  char log[65536];           // a call a line; what does not fit any more is left out
};

}  // namespace panelora::simulator
