// A trace in words, and as a scenario of the project's tests.
#pragma once

#include <cstdint>
#include <functional>
#include <ostream>
#include <utility>

#include "trace/told_box.h"
#include "trace/trace_file.h"

namespace panelora::trace {

struct ViewOptions {
  bool writesOnly = false;       // only what the box was told
  std::uint32_t slowerThan = 0;  // only calls that took longer, in ms; 0 = all
};

bool IsShown(const TracedCall& traced, const ViewOptions& options);

// Goes through a trace, and on with what follows it: each call, and where calls were lost.
class TraceWalk {
 public:
  // The box is the one that the trace itself has told of so far.
  using OnCall =
      std::function<void(const ToldBox& box, std::uint64_t number, const TracedCall& traced)>;
  using OnLost = std::function<void(std::uint64_t firstNumber, std::uint64_t count)>;

  TraceWalk(OnCall theOnCall, OnLost theOnLost)
      : onCall(std::move(theOnCall)), onLost(std::move(theOnLost)) {}

  // A part whose calls count from a smaller number again is of another run. What lies between two
  // parts of a run is lost.
  void Take(const Trace& part);

 private:
  // The calls before this one, which is next, are not there.
  void SkipTo(std::uint64_t number);

  OnCall onCall;
  OnLost onLost;
  ToldBox box;
  std::uint64_t next = 0;  // number of the call that follows; 0 = nothing was taken yet
};

// A call a line: number, time of day (UTC), duration, what it asked or told in words, and the
// result where it failed.
class TraceView {
 public:
  // The stream outlives it.
  TraceView(const ViewOptions& theOptions, std::ostream& theOut);
  TraceView(const TraceView&) = delete;
  TraceView& operator=(const TraceView&) = delete;

  void Show(const Trace& part) { walk.Take(part); }

 private:
  void ShowCall(const ToldBox& box, std::uint64_t number, const TracedCall& traced);

  ViewOptions options;
  std::ostream& out;
  TraceWalk walk;
  std::uint64_t day = 0;  // since 1970, of the call shown last
};

// A source file with one test: it gives the simulated box what the trace's reads tell, and expects
// the writes. Calls without a pause between them are taken for what came of one press. What was
// pressed no trace tells: comments say where it is to be filled in.
void ShowAsTest(const Trace& trace, std::ostream& out);

}  // namespace panelora::trace
