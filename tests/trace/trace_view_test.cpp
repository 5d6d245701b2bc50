// What of a trace is shown, and as which test.
#include "trace/trace_view.h"

#include <fstream>
#include <iterator>
#include <sstream>

#include "tests/support/audio_controls.h"
#include "tests/support/scenario.h"

namespace panelora::trace {
namespace {

constexpr std::uint64_t kTime = 1'763'804'939'123'456;  // 2025-11-22 09:48:59.123456
constexpr std::uint64_t kSecond = 1'000'000;

std::string Shown(const Trace& trace, const ViewOptions& options = {}) {
  std::ostringstream out;
  TraceView(options, out).Show(trace);
  return out.str();
}

std::string AsTest(const Trace& trace) {
  std::ostringstream out;
  ShowAsTest(trace, out);
  return out.str();
}

Call Answered(Call call, std::vector<std::uint8_t> bytes, WordBuffer words = {}) {
  call.result = kSuccess;
  call.bytes = std::move(bytes);
  call.words = words;
  return call;
}

Call Told(Call call) {
  call.result = kSuccess;
  return call;
}

Call Identified(std::uint8_t type) {
  std::vector<std::uint8_t> bytes(20);
  bytes[0] = type;
  return Answered(Call::GetBlock(254, 0, 20), std::move(bytes));
}

// A call each second from the start on, the first of which took a millisecond, the next two...
Trace TraceOf(const std::vector<Call>& calls) {
  Trace trace;
  for (const Call& call : calls) {
    const std::uint64_t i = trace.calls.size();
    trace.calls.push_back(
        {kTime + i * kSecond, static_cast<std::uint32_t>(1000 * (i + 1)), call, i + 1});
  }
  return trace;
}

TEST(TraceView, ShowsACallALine) {
  const Trace trace = TraceOf({Answered(Call::Open(2), {}, {65537, 0}), Identified(26),
                               Answered(Call::GetWord(0, 5), {}, {0x26, 1}),
                               Told(Call::SetWord(0, 11, 1)), Call::SetWord(0, 11, 0)});
  EXPECT_EQ(Shown(trace),
            "2025-11-22 (UTC)\n"
            "      1  09:48:59.123     1.000 ms  Open: a box\n"
            "      2  09:49:00.123     2.000 ms  Identity: type 26 brand 0\n"
            "      3  09:49:01.123     3.000 ms  Firmware: 0.1.2.6\n"
            "      4  09:49:02.123     4.000 ms  Audio Mute: ON\n"
            "      5  09:49:03.123     5.000 ms  Audio Mute: OFF  failed: 0\n");
}

TEST(TraceView, SpeaksOfTheBoxThatTheTraceTellsOf) {
  const Call mode = Told(Call::SetWord(0, 3, 1));
  const Trace trace = TraceOf({mode, Identified(26), mode, Identified(20), mode});
  std::vector<std::string> words;
  std::istringstream shown(Shown(trace));
  for (std::string line; std::getline(shown, line);) {
    if (line.find("Identity") == std::string::npos)
      words.push_back(line.substr(line.find("ms") + 2));
  }
  ASSERT_EQ(words.size(), 4U);
  EXPECT_NE(words[1], words[2]);
  EXPECT_NE(words[2], words[3]);
}

TEST(TraceView, ShowsWhatIsAskedFor) {
  const Trace trace = TraceOf({Identified(26), Told(Call::SetWord(0, 11, 1)), Call::GetWord(0, 11),
                               Told(Call::SetWord(0, 11, 0))});
  const auto numbers = [&](const ViewOptions& options) {
    std::vector<int> shown;
    std::istringstream lines(Shown(trace, options));
    std::string line;
    std::getline(lines, line);
    while (std::getline(lines, line)) shown.push_back(std::stoi(line));
    return shown;
  };
  EXPECT_EQ(numbers({}), (std::vector<int>{1, 2, 3, 4}));
  EXPECT_EQ(numbers({.writesOnly = true}), (std::vector<int>{2, 4}));
  EXPECT_EQ(numbers({.slowerThan = 2}), (std::vector<int>{3, 4}));
  EXPECT_EQ(numbers({.writesOnly = true, .slowerThan = 3}), std::vector<int>{4});
  EXPECT_EQ(Shown(trace, {.slowerThan = 4}), "");
  EXPECT_EQ(Shown({}), "");
}

TEST(TraceView, ShowsWhatIsLostAndWhenADayBegins) {
  Trace trace = TraceOf({Call::Open(2), Call::Open(2)});
  trace.firstNumber = 3;
  trace.calls[0].number = 5;
  trace.calls[1].number = 9;
  trace.calls[1].time += 86'400 * kSecond;
  trace.lost = 9;
  EXPECT_EQ(Shown(trace),
            "         (2 lost)\n"
            "2025-11-22 (UTC)\n"
            "      5  09:48:59.123     1.000 ms  Open?  failed: 0\n"
            "         (3 lost)\n"
            "2025-11-23 (UTC)\n"
            "      9  09:49:00.123     2.000 ms  Open?  failed: 0\n"
            "         (4 lost)\n");
}

// What a trace is shown as does not hang on where it is taken apart.
TEST(TraceView, GoesOnWithWhatFollows) {
  const Call mode = Told(Call::SetWord(0, 3, 1));
  const Trace whole = TraceOf({Identified(20), mode, mode, mode});
  Trace first = whole;
  Trace second = whole;
  first.calls.resize(2);
  second.calls.erase(second.calls.begin(), second.calls.begin() + 2);
  second.firstNumber = 3;
  const auto shown = [](const std::vector<Trace>& parts) {
    std::ostringstream out;
    TraceView view({}, out);
    for (const Trace& part : parts) view.Show(part);
    return out.str();
  };
  EXPECT_EQ(shown({first, second}), Shown(whole));
  // Calls that neither part has.
  second.calls.erase(second.calls.begin());
  second.firstNumber = 4;
  EXPECT_NE(shown({first, second}).find("\n         (1 lost)\n      4  "), std::string::npos);
  // Another run, of another box.
  const Trace other = TraceOf({mode});
  EXPECT_EQ(shown({whole, other}), Shown(whole) + Shown(other).substr(Shown(other).find('\n') + 1));
}

Call PictureRead(int result) {
  Call call = Answered(Call::GetPicture(), {1, 2, 3, 4});
  call.result = result;
  return call;
}

// Of two calls nobody knows what their result says.
TEST(TraceView, TakesNoResultOfPictureValuesForAFailure) {
  const std::string shown = Shown(TraceOf(
      {Identified(26), PictureRead(0), Call::SetProcAmp(0, proc_amp::kHue, 9), PictureRead(1)}));
  EXPECT_NE(shown.find("  Picture values: brightness 1, contrast 2, hue 3, saturation 4  result: "
                       "0\n"),
            std::string::npos)
      << shown;
  EXPECT_NE(shown.find("  Hue: 9  result: 0\n"), std::string::npos) << shown;
  EXPECT_NE(shown.find("saturation 4\n"), std::string::npos) << shown;
}

TEST(TraceView, SpeaksOfTheBoxThatTheFilesBeforeToldOf) {
  const Trace whole = TraceOf({Identified(20), Told(Call::SetWord(0, 3, 1))});
  Trace second = whole;
  second.before = {whole.calls[0].call};
  second.calls.erase(second.calls.begin());
  second.firstNumber = 2;
  const std::string shown = Shown(second);
  EXPECT_EQ(shown.substr(shown.find('\n') + 1),
            Shown(whole).substr(Shown(whole).find("      2  ")));
}

// A box may hold whatever it likes in its labels.
TEST(TraceView, ShowsOneLineWhateverABoxTells) {
  for (int type = 0; type < 255; ++type) {
    for (const std::uint8_t property : std::vector<std::uint8_t>{2, 3, 14, 254}) {
      std::vector<std::uint8_t> bytes(40, '\n');
      bytes[0] = static_cast<std::uint8_t>(type);
      bytes[20] = 0x80;
      const Call call = Answered(Call::GetBlock(property, 0, 40), bytes);
      const std::string shown = Shown(TraceOf({Identified(static_cast<std::uint8_t>(type)), call}));
      EXPECT_EQ(std::count(shown.begin(), shown.end(), '\n'), 3) << shown;
    }
  }
}

// The panel, with each of its calls a millisecond after the one before.
class TraceOfPanel : public testing::Scenario {
 protected:
  // The calls since the last time are of one press, some seconds later.
  void Note() {
    time += 3 * kSecond;
    for (Call& call : device.TakeMade()) {
      if (call.operation == Call::Operation::kOpen && call.Succeeded()) {
        call.words[0] = simulator::BoxModel::kHandle;
      }
      const std::uint64_t number = trace.calls.size() + 1;
      trace.calls.push_back({time, 400, std::move(call), number});
      time += 1000;
    }
  }
  void PressAndNote(int button) {
    Press(button);
    Note();
  }

  Trace trace;
  std::uint64_t time = kTime;
};

// panel_as_test.txt is what an engineer gets of it; it is compiled, too.
TEST_F(TraceOfPanel, BecomesATestOfThisProject) {
  admitted = {14, 26};
  box.Word(11) = {1, 0};
  Start();
  Note();
  PressAndNote(kAudioButton);
  desk.Press(res::kAudio, testing::kMute.next);
  Note();
  PressAndNote(kApplyButton);
  for (const bool isThere : {true, false, true}) {
    if (isThere) box.Become({14, 0, 0, 0, 0}, 0x0110);
    box.SetPresent(isThere);
    for (int tick = 0; tick < 3; ++tick) {  // a press silences two
      Tick();
      Note();
    }
  }
  device.Fail("get block 6,0,2");
  PressAndNote(kAudioButton);
  std::ifstream file(std::string(PANELORA_SOURCE_DIR) + "/tests/trace/panel_as_test.txt",
                     std::ios::binary);
  const std::string expected(std::istreambuf_iterator<char>(file), {});
  EXPECT_EQ(AsTest(trace), expected);
}

TEST(TraceAsTest, SaysWhatTheTraceDoesNotTell) {
  Trace trace = TraceOf({Call::GetWord(0, 5)});
  trace.firstNumber = 7;
  trace.lost = 2;
  const std::string test = AsTest(trace);
  EXPECT_NE(test.find("  // The trace does not tell which box it was: box.Become here.\n"
                      "  // 2 calls were lost.\n"
                      "  // The trace begins in the middle: bring the panel first to where it "
                      "was.\n"),
            std::string::npos)
      << test;
}

TEST(TraceAsTest, HasPictureValuesWhateverTheirResult) {
  Trace trace = TraceOf({Identified(26), PictureRead(0), Call::SetProcAmp(0, proc_amp::kHue, 9)});
  for (TracedCall& each : trace.calls) each.time = kTime;
  const std::string test = AsTest(trace);
  EXPECT_NE(test.find("  box.Picture() = {1, 2, 3, 4};\n"), std::string::npos) << test;
  EXPECT_EQ(test.find("device.Fail("), std::string::npos) << test;
}

TEST(TraceAsTest, HasTheBoxThatTheFilesBeforeToldOf) {
  Trace trace = TraceOf({Told(Call::SetWord(0, 3, 1))});
  trace.firstNumber = 7;
  trace.before = {Identified(15), Answered(Call::GetWord(0, 8), {}, {0x12, 1})};
  const std::string test = AsTest(trace);
  EXPECT_NE(test.find("  admitted = {15};\n"), std::string::npos) << test;
  EXPECT_NE(test.find("  box.Become({15, 0, 0, 0, 0}, 0x0112);\n"), std::string::npos) << test;
}

TEST(TraceAsTest, LeavesNoCommentOpen) {
  std::vector<std::uint8_t> bytes(20, '\\');
  const std::string test =
      AsTest(TraceOf({Identified(15), Answered(Call::GetBlock(3, 0, 20), bytes)}));
  EXPECT_EQ(test.find("\\\n"), std::string::npos) << test;
}

}  // namespace
}  // namespace panelora::trace
