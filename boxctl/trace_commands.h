// The commands for traces of what a program asked and told its box.
#pragma once

#include <cstdint>
#include <string>

#include "boxctl/session.h"

namespace panelora::boxctl {

struct TraceOptions {
  bool follow = false;     // goes on with what is written to it, until the operator wants an end
  bool writes = false;     // these alone
  std::uint32_t slow = 0;  // only calls that took longer, in ms
  bool asTest = false;     // as a scenario of the project's tests
};
void ShowTrace(Session& session, const std::string& path, const TraceOptions& options);

// From now on the simulated box is of the traced one's kind, and answers as that did.
void Replay(Session& session, const std::string& path);

}  // namespace panelora::boxctl
