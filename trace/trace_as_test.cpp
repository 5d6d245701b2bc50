// A trace as a scenario of the project's tests.
#include <algorithm>
#include <map>
#include <set>
#include <span>
#include <string>
#include <utility>

#include "base/text.h"
#include "trace/trace_view.h"
#include "trace/words.h"

namespace panelora::trace {

namespace {

using Calls = std::span<const TracedCall>;
using Bytes = std::vector<std::uint8_t>;

// A program makes the calls of one press without such a pause; nobody presses as fast.
constexpr std::uint64_t kPause = 100'000;  // microseconds

constexpr char kBeginning[] =
    "// What a panel told its box, from a trace.\n"
    "#include \"tests/support/scenario.h\"\n\n"
    "namespace panelora::testing {\n"
    "namespace {\n\n"
    "class TracedPanel : public Scenario {\n"
    " protected:\n"
    "  // What the box was told since the last time, in order.\n"
    "  Calls TakeWrites() {\n"
    "    Calls writes;\n"
    "    for (const Call& call : device.TakeMade()) {\n"
    "      if (call.IsWrite()) writes.push_back(TextOf(call));\n"
    "    }\n"
    "    return writes;\n"
    "  }\n"
    "};\n\n"
    "TEST_F(TracedPanel, TellsTheBoxTheSame) {\n";

constexpr char kEnd[] =
    "}\n\n"
    "}  // namespace\n"
    "}  // namespace panelora::testing\n";

// "1, 2, 3", broken where a line would become too long.
std::string Listed(const Bytes& bytes) {
  constexpr std::size_t kPerLine = 16;
  std::string text;
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    if (i != 0) text += i % kPerLine == 0 ? ",\n      " : ", ";
    text += std::to_string(bytes[i]);
  }
  return text;
}

// How many calls from the first on have no pause between them.
std::size_t LengthOfSection(Calls calls) {
  std::size_t length = 1;
  for (; length < calls.size(); ++length) {
    const TracedCall& before = calls[length - 1];
    if (calls[length].time > before.time + before.duration + kPause) break;
  }
  return length;
}

// What the test gives the simulated box so that it tells what the trace's box told.
class TestBox {
 public:
  // What is to be changed for this answer; nothing when the box tells it already. The firmware is
  // that of the box whose identity is read.
  std::string ChangesFor(const Call& call, std::uint32_t firmware) {
    if (call.operation == Call::Operation::kOpen) return Plugged(call.Succeeded());
    if (call.TellsResult() ? !call.Succeeded() : !isPlugged) return "";
    switch (call.operation) {
      case Call::Operation::kGetBlock:
        return IdentityAndBlock(call, firmware);
      case Call::Operation::kGetWord:
        return Word(call);
      case Call::Operation::kGetPicture:
        return Picture(call);
      case Call::Operation::kGetProcAmp:
        return PictureValue(call);
      default:
        return "";
    }
  }

  // What it tells from now on because it was told, without a change by the test.
  void Hear(const Call& call) {
    if (!call.IsWrite()) {
      ChangesFor(call, identity.second);
    } else if ((call.TellsResult() && !call.Succeeded()) || call.group != kBoxGroup) {
      return;
    } else if (call.operation == Call::Operation::kSetWord) {
      words[call.number] = {call.words[0], 0};
    } else if (call.operation == Call::Operation::kSetProcAmp) {
      picture[call.number] = static_cast<std::uint8_t>(call.words[0]);
    } else {
      Bytes& bytes = blocks[{call.number, call.sub}];
      if (bytes.size() < call.bytes.size()) bytes.resize(call.bytes.size());
      std::copy(call.bytes.begin(), call.bytes.end(), bytes.begin());
    }
  }

  bool IsPlugged() const { return isPlugged; }

 private:
  std::string Plugged(bool nowPlugged) {
    if (nowPlugged == std::exchange(isPlugged, nowPlugged)) return "";
    return nowPlugged ? "  box.SetPresent(true);\n" : "  box.SetPresent(false);\n";
  }

  std::string IdentityAndBlock(const Call& call, std::uint32_t firmware) {
    std::string changes = Identified(call, firmware);  // changes what its block is known to be
    return changes += Block(call);
  }

  std::string Identified(const Call& call, std::uint32_t firmware) {
    ToldBox told;
    told.Hear(call);
    if (!AsksIdentity(call) || identity == std::pair(told.TheIdentity(), firmware)) return "";
    identity = {told.TheIdentity(), firmware};
    const Identity& box = identity.first;
    const auto block = EncodeIdentity(box);
    blocks = {{{kIdentityBlock.number, kNoSub}, {block.begin(), block.end()}}};
    words = {{information::FirmwareOf(box.boxType).number, EncodeFirmware(firmware)}};
    picture.clear();
    return Format("  box.Become({%d, %d, %d, %d, %d}, 0x%04X);\n", box.boxType, box.brandCode,
                  box.subModel, box.inputDipFlag, box.outputDipFlag, firmware);
  }

  std::string Block(const Call& call) {
    Bytes& known = blocks[{call.number, call.sub}];
    const std::size_t both = std::min(known.size(), call.bytes.size());
    const bool isSame = std::equal(known.begin(), known.begin() + static_cast<std::ptrdiff_t>(both),
                                   call.bytes.begin());
    if (isSame && call.bytes.size() <= known.size()) return "";
    known = call.bytes;
    const std::string at = call.sub == kNoSub
                               ? Format("  box.Block(%u)", call.number)
                               : Format("  box.Block(%u, %d)", call.number, call.sub);
    return at + " = {" + Listed(known) + "};\n";
  }

  std::string Word(const Call& call) {
    const auto known = words.find(call.number);
    if (call.group != kBoxGroup || (known != words.end() && known->second == call.words)) return "";
    words[call.number] = call.words;
    return Format("  box.Word(%u) = {%u, %u};\n", call.number, call.words[0], call.words[1]);
  }

  std::string Picture(const Call& call) {
    std::map<std::uint32_t, std::uint8_t> told;
    for (std::uint32_t i = 0; i < call.bytes.size(); ++i) {
      told[proc_amp::kBrightness + i] = call.bytes[i];
    }
    if (std::all_of(told.begin(), told.end(), [&](const auto& each) {
          const auto known = picture.find(each.first);
          return known != picture.end() && known->second == each.second;
        })) {
      return "";
    }
    for (const auto& [control, value] : told) picture[control] = value;
    return "  box.Picture() = {" + Listed(call.bytes) + "};\n";
  }

  std::string PictureValue(const Call& call) {
    constexpr const char* kNames[] = {"brightness", "contrast", "hue", "saturation"};
    const std::size_t index = call.number - proc_amp::kBrightness;
    const auto value = static_cast<std::uint8_t>(call.words[0]);
    const auto known = picture.find(call.number);
    if (index >= std::size(kNames) || call.group != kBoxGroup) return "";
    if (known != picture.end() && known->second == value) return "";
    picture[call.number] = value;
    return Format("  box.Picture().%s = %d;\n", kNames[index], value);
  }

  bool isPlugged = true;
  std::pair<Identity, std::uint32_t> identity;
  std::map<std::pair<std::uint32_t, std::uint8_t>, Bytes> blocks;
  std::map<std::uint32_t, WordBuffer> words;
  std::map<std::uint32_t, std::uint8_t> picture;  // by control
};

class TestWriter {
 public:
  TestWriter(const Trace& theTrace, std::ostream& theOut) : trace(theTrace), out(theOut) {}

  void Write() {
    out << kBeginning;
    WriteAdmitted();
    if (trace.lost != 0) out << "  // " << trace.lost << " calls were lost.\n";
    if (trace.firstNumber != 1) {
      out << "  // The trace begins in the middle: bring the panel first to where it was.\n";
    }
    WriteBox();
    const Calls calls = trace.calls;
    bool isStarted = false;
    for (std::size_t first = 0; first < calls.size();) {
      const std::size_t length = LengthOfSection(calls.subspan(first));
      WriteSection(first, calls.subspan(first, length), isStarted);
      isStarted = true;
      first += length;
    }
    if (!isStarted) out << "  Start();\n";
    out << kEnd;
  }

 private:
  // The types that the panel has to take for boxes.
  void WriteAdmitted() {
    std::set<int> types;
    const auto add = [&](const Call& call) {
      ToldBox one;
      one.Hear(call);
      if (one.TheIdentity().boxType != kNoBoxType) types.insert(one.TheIdentity().boxType);
    };
    for (const Call& call : trace.before) add(call);
    for (const TracedCall& traced : trace.calls) add(traced.call);
    if (types.empty()) {
      out << "  // The trace does not tell which box it was: box.Become here.\n";
    } else if (types.size() > 1 || !kShippedType.Has(static_cast<std::uint8_t>(*types.begin()))) {
      out << "  admitted = {" << Listed({types.begin(), types.end()}) << "};\n";
    }
  }

  // What the box is that the trace does not ask once more what it is.
  void WriteBox() {
    for (const Call& call : trace.before) told.Hear(call);
    for (const Call& call : trace.before) {
      if (AsksIdentity(call)) out << box.ChangesFor(call, told.Firmware());
    }
  }

  // Of the box whose identity is the answer of a call; 0 when the trace does not tell it.
  std::uint32_t FirmwareFrom(std::size_t index) const {
    ToldBox one;
    one.Hear(trace.calls[index].call);
    const Identity identity = one.TheIdentity();
    for (; index < trace.calls.size(); ++index) {
      one.Hear(trace.calls[index].call);
      if (one.TheIdentity() != identity) return 0;
      if (one.Firmware() != 0) return one.Firmware();
    }
    return 0;
  }

  void WriteSection(std::size_t first, Calls calls, bool isStarted) {
    std::string changes;
    bool isTold = false;  // something was told to the box
    for (std::size_t i = 0; i < calls.size(); ++i) {
      const Call& call = calls[i].call;
      isTold = isTold || call.IsWrite();
      if (isTold) {
        box.Hear(call);
      } else {
        const bool tellsIdentity = AsksIdentity(call) && call.Succeeded();
        changes += box.ChangesFor(call, tellsIdentity ? FirmwareFrom(first + i) : 0);
      }
    }
    const std::string failures = Failures(calls);
    const bool isTick = std::all_of(calls.begin(), calls.end(), [](const TracedCall& traced) {
      return traced.call.operation == Call::Operation::kOpen || AsksIdentity(traced.call);
    });
    if (isStarted && isTick && changes.empty() && failures.empty()) {
      Hear(calls);
      return;
    }
    WriteHead(calls, isStarted);
    out << changes << failures;
    const bool hasOpen = std::any_of(calls.begin(), calls.end(), [](const TracedCall& traced) {
      return traced.call.operation == Call::Operation::kOpen;
    });
    if (!isStarted) {
      out << "  Start();\n";
    } else if (hasOpen && !changes.empty()) {
      out << "  Tick();  // as often as it takes\n";
    } else {
      out << "  // Press here what led to this.\n";
    }
    WriteTold(calls);
    if (!failures.empty()) out << "  device.FailNothing();\n";
  }

  // When it was, which calls they are, and how much later than the section before.
  void WriteHead(Calls calls, bool isStarted) {
    if (isStarted) out << '\n';
    out << "  // " << TimeOfDay(calls.front().time);
    if (calls.front().number != 0) {
      out << ", calls " << calls.front().number << " to " << calls.back().number;
    }
    out << '\n';
    const std::uint64_t time = calls.front().time;
    if (isStarted && time >= shownUntil + 1000) {
      out << "  now += " << (time - shownUntil) / 1000 << ";\n";
    }
    shownUntil = std::max(shownUntil, time);
  }

  // Calls that failed although there is a box. It fails what it does not have by itself, but not
  // what it was told.
  std::string Failures(Calls calls) const {
    std::set<std::string> failed;
    for (const TracedCall& traced : calls) {
      const bool isOpen = traced.call.operation == Call::Operation::kOpen;
      if (isOpen || !traced.call.TellsResult() || !box.IsPlugged()) continue;
      if (!traced.call.Succeeded()) failed.insert(TextOf(traced.call));
    }
    for (const TracedCall& traced : calls) {
      if (traced.call.Succeeded()) failed.erase(TextOf(traced.call));
    }
    std::string lines;
    for (const std::string& text : failed) lines += "  device.Fail(\"" + text + "\");\n";
    return lines;
  }

  void Hear(Calls calls) {
    for (const TracedCall& traced : calls) told.Hear(traced.call);
  }

  // What was asked in a comment, and what was told as what the test expects.
  void WriteTold(Calls calls) {
    std::string expected;
    std::string asked;
    for (const TracedCall& traced : calls) {
      told.Hear(traced.call);
      const std::string words = InWords(told, traced.call);
      if (traced.call.IsWrite()) {
        out << "  // Told: " << Harmless(words) << '\n';
        if (!expected.empty()) expected += ",\n                                ";
        expected += '"' + TextOf(traced.call) + '"';
      } else if (traced.call.operation != Call::Operation::kOpen) {
        asked += "  // Asked: " + Harmless(words) + '\n';
      }
    }
    if (expected.empty()) {
      out << asked << "  EXPECT_EQ(TakeWrites(), Calls{});\n";
    } else {
      out << "  EXPECT_EQ(TakeWrites(), (Calls{" << expected << "}));\n";
    }
  }

  // A comment must not take the next line in.
  static std::string Harmless(std::string words) {
    std::replace(words.begin(), words.end(), '\\', '/');
    return words;
  }

  const Trace& trace;
  std::ostream& out;
  ToldBox told;
  TestBox box;
  std::uint64_t shownUntil = 0;
};

}  // namespace

void ShowAsTest(const Trace& trace, std::ostream& out) { TestWriter(trace, out).Write(); }

}  // namespace panelora::trace
