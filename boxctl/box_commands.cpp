#include "boxctl/box_commands.h"

#include <algorithm>

#include "base/text.h"
#include "boxctl/names.h"
#include "boxctl/settings.h"
#include "boxctl/texts.h"
#include "boxctl/values.h"
#include "catalogue/audio.h"
#include "catalogue/describe.h"
#include "catalogue/information.h"

namespace panelora::boxctl {

namespace {

constexpr std::string_view kInput = "Input Format";
constexpr char kNotTold[] = "not told";

// The bytes of what a box answered.
Bytes BytesOf(const Call& call) {
  if (call.operation == Call::Operation::kGetBlock) return call.bytes;
  return {static_cast<std::uint8_t>(call.words[0] & 0xFF)};
}

Json ToJson(const AttachedBox& box, const Named& named, const Call& answer) {
  Json json = {{"name", named.name}, {"address", TextOf(named.property.at)}};
  if (!answer.Succeeded()) return json;
  json["value"] = ValueText(box.Who(), named.property, answer);
  json["bytes"] = HexOf(BytesOf(answer));
  return json;
}

struct State {
  Identity identity;
  std::optional<std::uint32_t> firmware;
  std::vector<std::string> inputs;
  bool isPlugged = true;
};

void Show(Session& session, const State& state) {
  const Identity& who = state.identity;
  const std::string inputs = Joined(state.inputs);
  std::string lines = Format("Model:     %d\nBrand:     %d\nSub-model: %d\n", who.boxType,
                             who.brandCode, who.subModel);
  if (who.inputDipFlag == 1) lines += "DIP:       input side\n";
  if (who.outputDipFlag == 1) lines += "DIP:       output side\n";
  const std::string firmware =
      state.firmware ? information::FirmwareText(*state.firmware) : kNotTold;
  lines += "Firmware:  " + firmware + "\n";
  lines += "Input:     " + (inputs.empty() ? kNotTold : inputs) + "\n";
  lines += std::string("Plugged:   ") + (state.isPlugged ? "yes" : "no") + "\n";
  session.Say(lines, {{"model", who.boxType},
                      {"brand", who.brandCode},
                      {"subModel", who.subModel},
                      {"inputDip", who.inputDipFlag},
                      {"outputDip", who.outputDipFlag},
                      {"firmware", state.firmware ? Format("0x%04X", *state.firmware) : ""},
                      {"inputs", state.inputs},
                      {"plugged", state.isPlugged}});
}

// The video input on which audio sources hang; none where they don't.
std::optional<std::uint8_t> InputOf(const AttachedBox& box) {
  const Address at = audio::InputOf(box.Who().boxType);
  if (at.kind == Address::Kind::kNone) return std::nullopt;
  const Call answer = box.Ask(at);
  if (!answer.Succeeded()) return std::nullopt;
  return BytesOf(answer).front();
}

// The setting that the property is told for; null when the box does not report what it was told.
const Setting* SettingOf(const std::vector<Setting>& settings, const Property& told) {
  const auto found = std::find_if(settings.begin(), settings.end(), [&](const Setting& each) {
    return each.told.at == told.at && std::string_view(each.told.name) == told.name;
  });
  return found != settings.end() ? &*found : nullptr;
}

void Tell(const AttachedBox& box, const Property& property, const Bytes& bytes,
          const std::string& name) {
  if (!box.Tell(property.at, bytes)) throw Failure(Exit::kDiffers, "the box refused " + name);
  if (property.at.kind == Address::Kind::kProcAmp) box.KeepPicture();
}

// What the box reports after it was told; a failure when that is something else.
std::string ReadBack(const AttachedBox& box, const Setting& setting, const Bytes& told) {
  const Call answer = box.Ask(setting.reported.at);
  if (!answer.Succeeded()) {
    throw Failure(Exit::kDiffers, setting.name + " was told, but the box does not tell it back");
  }
  const Bytes kept = KeptOf(setting, answer);
  std::string caption = CaptionOf(setting, box.Who(), kept);
  if (ToldOf(setting, kept) == told) return caption;
  throw Failure(Exit::kDiffers, setting.name + " did not take it: the box reports " + caption);
}

// What stands in a watch, by name.
struct Watched {
  Named named;
  Call answer;
};

class Watcher {
 public:
  Watcher(Session& theSession, const WatchOptions& theOptions)
      : session(theSession), options(theOptions) {}

  void Run() {
    Begin();
    while (!IsOver()) {
      session.System().Sleep(options.every);
      if (session.System().IsStopped()) return;
      if (box && box->IsThere()) {
        LookAgain();
      } else {
        Find();
      }
    }
  }

 private:
  bool IsOver() const { return options.count && changes >= *options.count; }

  void Begin() {
    box.emplace(session.Attach());
    watched.clear();
    const std::vector<Named> all = ReadableOf(box->Who(), box->Firmware());
    std::vector<Named> wanted = options.names.empty() ? all : std::vector<Named>();
    for (const std::string& name : options.names) {
      for (const Named& each : boxctl::Find(all, name)) wanted.push_back(each);
    }
    for (const Named& each : wanted) watched.push_back({each, box->Ask(each.property.at)});
  }

  // The box was taken away; perhaps it, or another one, is back.
  void Find() {
    if (box) Print("Box", "there", "gone", {});
    box.reset();
    try {
      Begin();
    } catch (const Failure& failure) {
      if (failure.Code() == Exit::kNoBox) return;
      throw;
    }
    Print("Box", "gone", Format("model %d", box->Who().boxType), {});
  }

  void LookAgain() {
    for (Watched& each : watched) {
      if (IsOver()) return;
      const Call answer = box->Ask(each.named.property.at);
      if (answer == each.answer) continue;
      if (!answer.Succeeded() && !box->IsThere()) return;  // it is said that the box went
      const std::string before = TextOf(each.named, each.answer);
      const std::string now = TextOf(each.named, answer);
      each.answer = answer;
      Print(each.named.name, before, now, answer.Succeeded() ? BytesOf(answer) : Bytes());
    }
  }

  std::string TextOf(const Named& named, const Call& answer) const {
    return answer.Succeeded() ? ValueText(box->Who(), named.property, answer) : kNotTold;
  }

  void Print(const std::string& name, const std::string& before, const std::string& now,
             const Bytes& bytes) {
    ++changes;
    session.Say(name + ": " + before + " -> " + now + "\n",
                {{"name", name}, {"from", before}, {"to", now}, {"bytes", HexOf(bytes)}});
  }

  Session& session;
  const WatchOptions& options;
  std::optional<AttachedBox> box;
  std::vector<Watched> watched;
  std::uint32_t changes = 0;
};

}  // namespace

void Status(Session& session) {
  if (session.IsSimulated()) {
    const auto look = session.Look();
    if (!look.isPlugged) {
      Show(session, {look.box.identity, look.box.firmware, {}, false});
      throw Failure(Exit::kNoBox, "the simulated box is not plugged in: boxctl plug");
    }
  }
  const AttachedBox box = session.Attach();
  State state = {box.Who(), {}, {}, true};
  if (box.TellsFirmware()) state.firmware = box.Firmware();
  for (const Named& each : ReadableOf(box.Who(), box.Firmware())) {
    if (!std::string_view(each.property.name).starts_with(kInput)) continue;
    const Call answer = box.Ask(each.property.at);
    if (answer.Succeeded()) state.inputs.push_back(ValueText(box.Who(), each.property, answer));
  }
  Show(session, state);
}

void Read(Session& session, const std::vector<std::string>& names) {
  const AttachedBox box = session.Attach();
  const std::vector<Named> all = ReadableOf(box.Who(), box.Firmware());
  std::vector<Named> wanted = names.empty() ? all : std::vector<Named>();
  for (const std::string& name : names) {
    for (const Named& each : Find(all, name)) wanted.push_back(each);
  }
  std::string lines;
  Json json = Json::array();
  std::string untold;
  for (const Named& each : wanted) {
    const Call answer = box.Ask(each.property.at);
    const bool isTold = answer.Succeeded();
    if (!isTold && untold.empty()) untold = each.name;
    lines += each.name + ": ";
    lines += (isTold ? ValueText(box.Who(), each.property, answer) : kNotTold) + "\n";
    json.push_back(ToJson(box, each, answer));
  }
  session.Say(lines, json);
  if (!names.empty() && !untold.empty()) {
    throw Failure(Exit::kDiffers, "the box does not tell " + untold);
  }
}

void Set(Session& session, const std::string& name, const std::string& value) {
  const AttachedBox box = session.Attach();
  if (IsCommand(AllOf(box.Who(), box.Firmware()), name)) {
    throw Failure(Exit::kBadInput, Printable(name) + " is a command of the panel, not a setting");
  }
  const Named named = FindOne(WritableOf(box.Who(), box.Firmware()), name);
  const Bytes told = BytesOfValue(named, box.Who(), InputOf(box), value);
  Tell(box, named.property, told, named.name);
  const std::vector<Setting> settings = SettingsOf(box.Who(), box.Firmware());
  const Setting* setting = SettingOf(settings, named.property);
  const std::string caption =
      setting != nullptr ? ReadBack(box, *setting, told)
                         : ValueText(box.Who(), named.property, WriteTo(named.property.at, told));
  session.Say(named.name + ": " + caption + "\n", {{"name", named.name},
                                                   {"address", TextOf(named.property.at)},
                                                   {"value", caption},
                                                   {"bytes", HexOf(told)}});
}

void Watch(Session& session, const WatchOptions& options) { Watcher(session, options).Run(); }

}  // namespace panelora::boxctl
