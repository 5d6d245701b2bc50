// Settings in files: saving, comparing, restoring.
#include "base/text.h"
#include "boxctl/box_commands.h"
#include "boxctl/files.h"
#include "boxctl/settings_file.h"
#include "catalogue/describe.h"

namespace panelora::boxctl {

namespace {

constexpr char kNone[] = "not there";

std::string CaptionIn(const Snapshot& snapshot, const KeptSetting* each) {
  return each != nullptr ? CaptionOf(each->setting, snapshot.identity, each->kept) : kNone;
}

std::string HexIn(const KeptSetting* each) { return each != nullptr ? HexOf(each->kept) : ""; }

const Setting& SettingOf(const Difference& difference) {
  return difference.left != nullptr ? difference.left->setting : difference.right->setting;
}

// Where both are called the same, their bytes tell them apart.
std::string LineOfDifference(const Snapshot& left, const Snapshot& right,
                             const Difference& difference) {
  std::string before = CaptionIn(left, difference.left);
  std::string after = CaptionIn(right, difference.right);
  if (before == after) {
    before += " [" + HexIn(difference.left) + "]";
    after += " [" + HexIn(difference.right) + "]";
  }
  return SettingOf(difference).name + ": " + before + " -> " + after + "\n";
}

Json JsonOf(const Snapshot& left, const Snapshot& right, const Difference& difference) {
  const Setting& setting = SettingOf(difference);
  return {{"name", setting.name},
          {"address", TextOf(setting.reported.at)},
          {"from", CaptionIn(left, difference.left)},
          {"to", CaptionIn(right, difference.right)},
          {"fromBytes", HexIn(difference.left)},
          {"toBytes", HexIn(difference.right)}};
}

void RequireSameModel(const Snapshot& left, const std::string& path, const Snapshot& right,
                      const std::string& other) {
  const int model = left.identity.boxType;
  const int otherModel = right.identity.boxType;
  if (model == otherModel) return;
  throw Failure(Exit::kBadInput,
                Printable(path) + Format(" is of model %d, and ", model) + Printable(other) +
                    Format(" of model %d: their settings differ in kind", otherModel));
}

struct Restoring {
  std::vector<Difference> changes;  // from the box to the file
  // Settings of the file that the box has not, and that it has but does not tell.
  std::vector<std::string> unknown;
  std::vector<std::string> untold;
};

Restoring RestoringOf(const Snapshot& box, const Snapshot& file) {
  Restoring restoring;
  for (const Difference& each : DifferencesOf(box, file)) {
    if (each.left != nullptr && each.right != nullptr) restoring.changes.push_back(each);
    if (each.left != nullptr) continue;
    const Setting& setting = each.right->setting;
    (IsKeptBy(box, setting) ? restoring.untold : restoring.unknown).push_back(setting.name);
  }
  return restoring;
}

// The names of the settings that the box refused, or reports otherwise after all were written.
std::vector<std::string> Write(const AttachedBox& box, const std::vector<Difference>& changes) {
  bool hasPicture = false;
  for (const Difference& each : changes) {
    const Setting& setting = each.left->setting;
    box.Tell(setting.told.at, ToldOf(setting, each.right->kept));
    hasPicture |= setting.told.at.kind == Address::Kind::kProcAmp;
  }
  if (hasPicture) box.KeepPicture();
  std::vector<std::string> untaken;
  for (const Difference& each : changes) {
    const Setting& setting = each.left->setting;
    const Call answer = box.Ask(setting.reported.at);
    const bool isTaken = answer.Succeeded() && KeptOf(setting, answer) == each.right->kept;
    if (!isTaken) untaken.push_back(setting.name);
  }
  return untaken;
}

std::string Counted(std::size_t count) {
  return std::to_string(count) + (count == 1 ? " setting" : " settings");
}

}  // namespace

void Save(Session& session, const std::string& path) {
  const Snapshot snapshot = SnapshotOf(session.Attach());
  const Json json = ToJson(snapshot);
  if (snapshot.settings.empty()) {
    throw Failure(Exit::kDiffers, "the box tells none of its settings: nothing was saved");
  }
  WriteFile(path, json.dump(2, ' ', false, Json::error_handler_t::replace) + "\n");
  std::string lines = "saved " + Counted(snapshot.settings.size()) + "\n";
  for (const LeftOut& each : snapshot.leftOut) {
    lines += "left out " + each.name + ": " + each.reason + "\n";
  }
  session.Say(lines, {{"saved", snapshot.settings.size()}, {"leftOut", json["leftOut"]}});
}

Exit Diff(Session& session, const std::string& left, const std::string& right) {
  const Snapshot one = ReadSnapshot(left);
  const Snapshot other = right.empty() ? SnapshotOf(session.Attach()) : ReadSnapshot(right);
  RequireSameModel(one, left, other, right.empty() ? "the box" : right);
  std::string lines;
  Json json = Json::array();
  for (const Difference& each : DifferencesOf(one, other)) {
    lines += LineOfDifference(one, other, each);
    json.push_back(JsonOf(one, other, each));
  }
  session.Say(lines, json);
  return lines.empty() ? Exit::kDone : Exit::kDiffers;
}

void Restore(Session& session, const std::string& path, bool isMeant) {
  const Snapshot file = ReadSnapshot(path);
  const AttachedBox box = session.Attach();
  const Snapshot now = SnapshotOf(box);
  RequireSameModel(file, path, now, "the box");
  const auto [changes, unknown, untold] = RestoringOf(now, file);
  std::string lines;
  Json json = {
      {"changes", Json::array()}, {"leftOut", unknown}, {"untold", untold}, {"written", isMeant}};
  for (const Difference& each : changes) {
    lines += LineOfDifference(now, file, each);
    json["changes"].push_back(JsonOf(now, file, each));
  }
  for (const std::string& name : unknown) lines += "left out " + name + ": the box has none\n";
  for (const std::string& name : untold) {
    lines += "left out " + name + ": the box does not tell it\n";
  }
  const std::vector<std::string> untaken =
      isMeant ? Write(box, changes) : std::vector<std::string>();
  json["untaken"] = untaken;
  if (changes.empty()) {
    lines += "nothing to restore\n";
  } else if (isMeant) {
    lines += "restored " + Counted(changes.size() - untaken.size()) + "\n";
  } else {
    lines += "nothing was written: add --yes to write " + Counted(changes.size()) + "\n";
  }
  session.Say(lines, json);
  if (untaken.empty() && untold.empty()) return;
  std::string why;
  if (!untaken.empty()) why = "did not take " + Joined(untaken);
  if (!untold.empty()) why += (why.empty() ? "" : ", and ") + ("does not tell " + Joined(untold));
  throw Failure(Exit::kDiffers, "the box " + why);
}

}  // namespace panelora::boxctl
