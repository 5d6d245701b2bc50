// The commands for any box, simulated or real. What they write stands with them; the others write
// nothing. All end with a Failure when something is wrong.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "boxctl/session.h"

namespace panelora::boxctl {

// Which box it is and what it receives. One without its plug is Exit::kNoBox behind what is known.
void Status(Session& session);
// Of no names all that can be read. What was named and is not told is Exit::kDiffers.
void Read(Session& session, const std::vector<std::string>& names);

// Tells one property, and reads it back; Exit::kDiffers when the box refuses it or reports another
// value.
void Set(Session& session, const std::string& name, const std::string& value);

struct WatchOptions {
  std::vector<std::string> names;      // none = all that can be read
  std::optional<std::uint32_t> count;  // changes until it ends
  std::uint32_t every = 250;           // ms from look to look
};
// Prints each change until there were `count`, or the operator wants an end. A box that goes, and
// one that comes back, is a change too.
void Watch(Session& session, const WatchOptions& options);

// All settings of the box into a file, which is replaced when it is there; those that the box does
// not tell are left out and named. Without any there is no file: Exit::kDiffers.
void Save(Session& session, const std::string& path);
// File against box, or two files. Exit::kDiffers when they differ.
Exit Diff(Session& session, const std::string& left, const std::string& right);
// Says what the file would change, and changes it if that `isMeant`. Exit::kDiffers when the box
// did not take all of it, or does not tell what it has.
void Restore(Session& session, const std::string& path, bool isMeant);

}  // namespace panelora::boxctl
