// The commands for any box, simulated or real. What they write stands with them; the others write
// nothing. All end with a Failure when something is wrong.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "boxctl/session.h"

namespace panelora::boxctl {

void Status(Session& session);
void Read(Session& session, const std::vector<std::string>& names);

// Tells one property, and reads it back.
void Set(Session& session, const std::string& name, const std::string& value);

struct WatchOptions {
  std::vector<std::string> names;      // none = all that can be read
  std::optional<std::uint32_t> count;  // changes until it ends
  std::uint32_t every = 250;           // ms from look to look
};
void Watch(Session& session, const WatchOptions& options);

void Save(Session& session, const std::string& path);
// File against box, or two files. Exit::kDiffers when they differ.
Exit Diff(Session& session, const std::string& left, const std::string& right);
// Writes nothing unless `isMeant`.
void Restore(Session& session, const std::string& path, bool isMeant);

}  // namespace panelora::boxctl
