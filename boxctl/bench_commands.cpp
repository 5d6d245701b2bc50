#include "boxctl/bench_commands.h"

#include <limits>

#include "base/text.h"
#include "boxctl/box_file.h"
#include "boxctl/files.h"
#include "boxctl/names.h"
#include "catalogue/codecs.h"
#include "catalogue/describe.h"
#include "catalogue/information.h"

namespace panelora::boxctl {

namespace {

using simulator::Faults;

constexpr double kMillisecondsPerSecond = 1000;

struct Signal {
  VideoFormat format;
  bool isInterlaced = false;
};

// The text up to the first of the letters, which both go from it.
std::string Cutoff(std::string& text, const char* letters) {
  const std::size_t at = text.find_first_of(letters);
  std::string head = text.substr(0, at);
  text = at == std::string::npos ? "" : text.substr(at + 1);
  return head;
}

// Hundredths as they are written: "94", or "5" for 50.
std::optional<std::uint32_t> HundredthsOf(std::string text) {
  if (text.empty() || text.size() > 2) return std::nullopt;
  text.resize(2, '0');
  return NumberOf(text, 0, 99);
}

std::optional<Signal> SignalOf(const std::string& typed) {
  std::string text = Folded(typed);
  if (text == "none") return Signal{};
  const bool isInterlaced = text.find('i') != std::string::npos;
  const bool hasPoint = text.find('.') != std::string::npos;
  const auto width = NumberOf(Cutoff(text, "x"), 1, std::numeric_limits<std::uint16_t>::max());
  const auto height = NumberOf(Cutoff(text, "ip"), 1, std::numeric_limits<std::uint16_t>::max());
  const auto rate = NumberOf(Cutoff(text, "."), 1, std::numeric_limits<std::uint8_t>::max());
  const auto hundredths = hasPoint ? HundredthsOf(text) : std::optional<std::uint32_t>(0);
  if (!width || !height || !rate || !hundredths) return std::nullopt;
  return Signal{{static_cast<std::uint16_t>(*width), static_cast<std::uint16_t>(*height),
                 static_cast<std::uint8_t>(*rate), static_cast<std::uint8_t>(*hundredths), 0},
                isInterlaced};
}

Faults::Answer AnswerOf(const FailOptions& options) {
  if (options.random) return Faults::Answer::kRandom;
  return options.result ? Faults::Answer::kResult : Faults::Answer::kFailure;
}

std::string KindsOf(const Faults& faults) {
  std::vector<std::string> kinds;
  if (faults.reads) kinds.emplace_back("reads");
  if (faults.writes) kinds.emplace_back("writes");
  if (faults.opens) kinds.emplace_back("opens");
  return Joined(kinds);
}

void SayFaults(Session& session) {
  const Faults faults = session.Look().faults;
  std::string line = "no call fails";
  if (faults.every != 0) {
    line = faults.every == 1 ? "every call" : Format("one call in %u", faults.every);
    line += " goes wrong: " + KindsOf(faults);
    if (faults.oneAddress) line += " of " + TextOf(faults.address);
    if (faults.answer == Faults::Answer::kRandom) line += ", with random bytes";
    if (faults.answer == Faults::Answer::kResult) line += Format(", with %d", faults.result);
  }
  if (faults.vanishOnWrite) line += "; the next write pulls the plug";
  if (faults.fillsWhatWasAsked) line += "; blocks are answered with FF";
  session.Say(line + "\n", {{"every", faults.every},
                            {"reads", faults.reads},
                            {"writes", faults.writes},
                            {"opens", faults.opens},
                            {"address", faults.oneAddress ? TextOf(faults.address) : ""},
                            {"random", faults.answer == Faults::Answer::kRandom},
                            {"result", faults.result},
                            {"vanish", faults.vanishOnWrite},
                            {"fill", faults.fillsWhatWasAsked}});
}

}  // namespace

void Plug(Session& session, bool plugged) {
  Require(session.Control().Plug(plugged));
  session.Say(plugged ? "plugged in\n" : "unplugged\n", {{"plugged", plugged}});
}

void Cut(Session& session, double seconds) {
  const auto milliseconds = static_cast<std::uint32_t>(seconds * kMillisecondsPerSecond);
  Require(session.Control().Cut(milliseconds));
  session.Say(Format("the cable is cut for %g s\n", seconds), {{"cut", seconds}});
}

void Reset(Session& session) {
  Require(session.Control().Reset());
  session.Say("as it left the factory\n", {{"reset", true}});
}

void Become(Session& session, const BecomeOptions& options) {
  std::uint32_t firmware = simulator::BoxModel::kDefaultFirmware;
  if (!options.firmware.empty()) {
    const auto typed = FirmwareOfText(options.firmware);
    if (!typed) {
      throw Failure(Exit::kBadInput, "\"" + Printable(options.firmware) +
                                         "\" is no firmware: type one like 0x0112 or 0.1.1.2");
    }
    firmware = *typed;
  }
  const Identity identity = {static_cast<std::uint8_t>(options.type),
                             static_cast<std::uint8_t>(options.brand),
                             static_cast<std::uint8_t>(options.subModel),
                             static_cast<std::uint8_t>(options.inputDip ? 1 : 0),
                             static_cast<std::uint8_t>(options.outputDip ? 1 : 0)};
  Require(session.Control().Become(identity, firmware));
  session.Say(
      Format("model %u, firmware ", options.type) + information::FirmwareText(firmware) + "\n",
      {{"model", options.type}, {"firmware", Format("0x%04X", firmware)}});
}

void Input(Session& session, const std::string& format) {
  const std::optional<Signal> signal = SignalOf(format);
  if (!signal) {
    throw Failure(Exit::kBadInput, "\"" + Printable(format) +
                                       "\" is no signal: type one like 1920x1080i50, "
                                       "1280x720p59.94 or none");
  }
  simulator::BoxControl control = session.Control();
  const int model = session.Look().box.identity.boxType;
  if (!control.SetInput(signal->format, signal->isInterlaced)) {
    Require(control.LookAt().has_value());
    throw Failure(Exit::kDiffers,
                  Format("model %d tells no such input: try a common format", model));
  }
  const std::string text = TextOf(signal->format, signal->isInterlaced ? "i" : "p");
  session.Say("input: " + text + "\n", {{"input", text}});
}

void Fail(Session& session, const FailOptions& options) {
  simulator::BoxControl control = session.Control();
  Address address;
  if (!options.property.empty()) {
    const auto box = session.Look().box;
    address = FindOne(AllOf(box.identity, box.firmware), options.property).property.at;
  }
  const bool anyKind = !options.reads && !options.writes && !options.opens;
  Require(control.SetFaults([&](Faults& faults) {
    if (options.vanish) {
      faults.vanishOnWrite = true;
      return;
    }
    faults.every = options.never ? 0 : options.every;
    faults.meant = faults.random = 0;
    if (options.never) {
      faults.vanishOnWrite = faults.fillsWhatWasAsked = false;
      return;
    }
    faults.reads = options.reads || anyKind;
    faults.writes = options.writes || anyKind;
    faults.opens = options.opens || (anyKind && options.property.empty());
    faults.oneAddress = !options.property.empty();
    faults.address = address;
    faults.answer = AnswerOf(options);
    faults.result = options.result.value_or(0);
  }));
  SayFaults(session);
}

void Latency(Session& session, std::uint32_t milliseconds) {
  Require(session.Control().SetFaults([&](Faults& faults) { faults.latency = milliseconds; }));
  session.Say(Format("every call takes %u ms\n", milliseconds), {{"latency", milliseconds}});
}

void Dump(Session& session, const std::string& path) {
  WriteFile(path, JsonOfBox(session.Look().box).dump(1) + "\n");
  session.Say("dumped all that the box keeps\n", {{"dumped", true}});
}

void Load(Session& session, const std::string& path) {
  simulator::BoxControl control = session.Control();
  const auto box = ReadBox(path);
  Require(control.Load(*box));
  session.Say(Format("loaded a box of model %d\n", box->identity.boxType),
              {{"model", box->identity.boxType}});
}

}  // namespace panelora::boxctl
