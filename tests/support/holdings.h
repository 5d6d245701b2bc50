// What a panel holds: of the system where its windows are real, of the toolkit in memory elsewhere.
// holdings_memory.cpp and holdings_win32.cpp stand behind it.
#pragma once

#include <map>
#include <string>

#include "tests/support/desk.h"

namespace panelora::testing {

// How many of each kind.
using Holdings = std::map<std::string, long>;

// The holdings of this moment. On real windows only what the program makes after the first call is
// known by kind.
Holdings CountHoldings(Desk& desk);

// The memory that the process uses, in bytes.
struct MemoryUse {
  std::size_t bytes;
  double tolerance;  // which part of it may come and go with the system's own doings
};
MemoryUse MeasureMemory();

}  // namespace panelora::testing
