// In memory: the dialogs and timers of the toolkit, and every byte that is allocated.
#include <cstddef>

extern "C" std::size_t __sanitizer_get_current_allocated_bytes();  // the package lacks its header

#include "platform/memory/memory_toolkit.h"
#include "tests/support/holdings.h"

namespace panelora::testing {

Holdings CountHoldings(Desk& desk) {
  const auto& toolkit = static_cast<const memory::MemoryToolkit&>(desk.Toolkit());
  Holdings held;
  for (const memory::MemoryDialog* dialog : toolkit.Dialogs()) {
    ++held["dialogs"];
    held["open dialogs"] += dialog->IsOpen() ? 1 : 0;
    held["timers"] += static_cast<long>(dialog->Timers().size());
    held["menu items"] += static_cast<long>(dialog->SystemMenu().size());
  }
  held["timers left running"] = toolkit.timersLeftRunning;
  held["ports"] =
      static_cast<long>(toolkit.openedPorts.size()) - static_cast<long>(toolkit.closedPorts.size());
  return held;
}

MemoryUse MeasureMemory() { return {__sanitizer_get_current_allocated_bytes(), 0}; }

}  // namespace panelora::testing
