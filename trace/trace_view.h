// A trace in words, and as a scenario of the project's tests.
#pragma once

#include <cstdint>
#include <ostream>

#include "trace/trace_file.h"

namespace panelora::trace {

struct ViewOptions {
  bool writesOnly = false;       // only what the box was told
  std::uint32_t slowerThan = 0;  // only calls that took longer, in ms; 0 = all
};

// A call a line: number, time of day (UTC), duration, what it asked or told in words, and the
// result where it failed. The words are those of the box that the trace itself has told of so far.
void ShowTrace(const Trace& trace, const ViewOptions& options, std::ostream& out);

// A source file with one test: it gives the simulated box what the trace's reads tell, and expects
// the writes. Calls without a pause between them are taken for what came of one press. What was
// pressed no trace tells: comments say where it is to be filled in.
void ShowAsTest(const Trace& trace, std::ostream& out);

}  // namespace panelora::trace
