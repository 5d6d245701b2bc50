// A file of settings: what a box kept when it was saved.
#pragma once

#include <string>
#include <vector>

#include "boxctl/attached_box.h"
#include "boxctl/json.h"
#include "boxctl/settings.h"

namespace panelora::boxctl {

struct KeptSetting {
  Setting setting;
  Bytes kept;
};

// The settings of a box, which was asked for one after the other.
struct Snapshot {
  Identity identity;
  std::uint32_t firmware = 0;
  std::vector<KeptSetting> settings;
  std::vector<LeftOut> leftOut;
};

// What a box keeps now; what it does not tell is left out. A failure when it goes meanwhile, or
// does not tell its firmware version, on which its settings hang.
Snapshot SnapshotOf(const AttachedBox& box);

// As a file holds it.
Json ToJson(const Snapshot& snapshot);
// A failure when the file is no such file, or damaged.
Snapshot ReadSnapshot(const std::string& path);

// Whether the model has the setting, though the snapshot may have none of it.
bool IsKeptBy(const Snapshot& snapshot, const Setting& setting);

// Null when the snapshot has none of that name and place.
const KeptSetting* FindIn(const Snapshot& snapshot, const Setting& setting);

// A setting that two snapshots have differently; null = one has none.
struct Difference {
  const KeptSetting* left;
  const KeptSetting* right;
};
// In the order of the left one, with what only the right one has behind it. Both outlive it.
std::vector<Difference> DifferencesOf(const Snapshot& left, const Snapshot& right);

}  // namespace panelora::boxctl
