#include "boxctl/settings_file.h"

#include <algorithm>

#include "base/text.h"
#include "boxctl/files.h"
#include "catalogue/describe.h"

namespace panelora::boxctl {

namespace {

constexpr char kKind[] = "panelora-settings";
constexpr std::uint32_t kVersion = 1;

Json ToJson(const KeptSetting& each, const Identity& identity) {
  return {{"name", each.setting.name},
          {"caption", CaptionOf(each.setting, identity, each.kept)},
          {"address", TextOf(each.setting.reported.at)},
          {"bytes", HexOf(each.kept)}};
}

bool IsSame(const Setting& one, const Setting& other) {
  return one.name == other.name && one.reported.at == other.reported.at;
}

KeptSetting ReadSetting(const Members& saved, std::span<const Setting> known) {
  const std::string name = saved.Text("name");
  const std::string address = saved.Text("address");
  saved.Text("caption");  // for those who read the file
  const auto setting = std::find_if(known.begin(), known.end(), [&](const Setting& each) {
    return each.name == name && TextOf(each.reported.at) == address;
  });
  if (setting == known.end()) {
    throw saved.Damage("its model has no setting \"" + name + "\" in " + address);
  }
  KeptSetting read = {*setting, saved.Hex("bytes")};
  if (read.kept.size() == KeptLengthOf(*setting)) return read;
  throw saved.Damage("\"" + name + "\" must have as many bytes as " +
                     std::to_string(KeptLengthOf(*setting)));
}

}  // namespace

Snapshot SnapshotOf(const AttachedBox& box) {
  if (!box.TellsFirmware()) {
    throw Failure(
        Exit::kDiffers,
        "the box does not tell its firmware version, on which its settings hang: try again");
  }
  Snapshot snapshot = {box.Who(), box.Firmware(), {}, LeftOutOf(box.Who())};
  for (const Setting& setting : SettingsOf(box.Who(), box.Firmware())) {
    const Call answer = box.Ask(setting.reported.at);
    if (answer.Succeeded()) {
      snapshot.settings.push_back({setting, KeptOf(setting, answer)});
    } else {
      snapshot.leftOut.push_back({setting.name, "the box does not tell it"});
    }
  }
  if (!box.IsThere()) {
    throw Failure(Exit::kNoBox, "the box went while it was asked: plug it in and try again");
  }
  return snapshot;
}

Json ToJson(const Snapshot& snapshot) {
  Json settings = Json::array();
  for (const KeptSetting& each : snapshot.settings) {
    settings.push_back(ToJson(each, snapshot.identity));
  }
  Json leftOut = Json::array();
  for (const LeftOut& each : snapshot.leftOut) {
    leftOut.push_back({{"name", each.name}, {"reason", each.reason}});
  }
  return {{"format", kKind},
          {"version", kVersion},
          {"model", snapshot.identity.boxType},
          {"brand", snapshot.identity.brandCode},
          {"subModel", snapshot.identity.subModel},
          {"inputDip", snapshot.identity.inputDipFlag},
          {"outputDip", snapshot.identity.outputDipFlag},
          {"firmware", Format("0x%04X", snapshot.firmware)},
          {"settings", settings},
          {"leftOut", leftOut}};
}

Snapshot ReadSnapshot(const std::string& path) {
  const Members file = Members::OfFile(path, kKind, kVersion);
  Snapshot snapshot;
  snapshot.identity = {static_cast<std::uint8_t>(file.Number("model", kNoBoxType - 1U)),
                       file.Byte("brand"), file.Byte("subModel"), file.Byte("inputDip"),
                       file.Byte("outputDip")};
  snapshot.firmware = file.Firmware("firmware");
  const std::vector<Setting> known = SettingsOf(snapshot.identity, snapshot.firmware);
  for (const Json& each : file.Array("settings")) {
    KeptSetting read = ReadSetting(Members(path, each), known);
    if (FindIn(snapshot, read.setting) != nullptr) {
      throw file.Damage("\"" + read.setting.name + "\" stands there twice");
    }
    snapshot.settings.push_back(std::move(read));
  }
  for (const Json& each : file.Array("leftOut")) {
    const Members left(path, each);
    snapshot.leftOut.push_back({left.Text("name"), left.Text("reason")});
  }
  return snapshot;
}

bool IsKeptBy(const Snapshot& snapshot, const Setting& setting) {
  const std::vector<Setting> all = SettingsOf(snapshot.identity, snapshot.firmware);
  return std::any_of(all.begin(), all.end(),
                     [&](const Setting& each) { return IsSame(each, setting); });
}

const KeptSetting* FindIn(const Snapshot& snapshot, const Setting& setting) {
  const auto found =
      std::find_if(snapshot.settings.begin(), snapshot.settings.end(),
                   [&](const KeptSetting& each) { return IsSame(each.setting, setting); });
  return found != snapshot.settings.end() ? &*found : nullptr;
}

std::vector<Difference> DifferencesOf(const Snapshot& left, const Snapshot& right) {
  std::vector<Difference> differences;
  for (const KeptSetting& each : left.settings) {
    const KeptSetting* other = FindIn(right, each.setting);
    if (other == nullptr || other->kept != each.kept) differences.push_back({&each, other});
  }
  for (const KeptSetting& each : right.settings) {
    if (FindIn(left, each.setting) == nullptr) differences.push_back({nullptr, &each});
  }
  return differences;
}

}  // namespace panelora::boxctl
