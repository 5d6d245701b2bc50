// What the probe in the program's process and the test outside agree on.
#pragma once

namespace panelora::testing::end_to_end {

// A message that, posted to a window, has it described.
constexpr char kDescribeWindow[] = "Panelora.DescribeWindow";

// The name of the memory that takes the description: this and the process id, in decimal.
constexpr char kProbeMemoryName[] = "Local\\PaneloraProbe.";

// The same for what the program took from its queue since the test set the probe.
constexpr char kProbeInputName[] = "Local\\PaneloraInput.";

struct ProbeInput {
  long releases;  // of keys, and of the left mouse button
};

// A library that no part of the program asks for.
constexpr char kPlantedLibrary[] = "panelora_planted.dll";

struct ProbeMemory {
  long described;            // 1 = the rest is complete
  bool plantedLibraryLoads;  // by its name alone
  bool bigIcon;              // the window has them
  bool smallIcon;
  char systemMenu[1024];  // a line an item: "id text", or "-" for a separator
};

}  // namespace panelora::testing::end_to_end
