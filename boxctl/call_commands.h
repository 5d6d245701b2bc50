// The commands that look at the calls of the simulated box.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "boxctl/session.h"

namespace panelora::boxctl {

struct CallsOptions {
  bool follow = false;  // until the operator wants an end
  bool writes = false;  // these alone
};
void Calls(Session& session, const CallsOptions& options);

// Waits until the box takes a write of a property, by whomever, from now on; Exit::kTimeout when
// that takes longer than so many seconds.
void WaitForWrite(Session& session, const std::string& name, std::optional<double> timeout);

}  // namespace panelora::boxctl
