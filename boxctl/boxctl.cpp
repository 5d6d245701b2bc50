#include "boxctl/boxctl.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <functional>
#include <limits>

#include "base/text.h"
#include "boxctl/bench_commands.h"
#include "boxctl/box_commands.h"
#include "boxctl/call_commands.h"
#include "boxctl/names.h"
#include "boxctl/script.h"
#include "boxctl/texts.h"
#include "boxctl/trace_commands.h"

namespace panelora::boxctl {

namespace {

constexpr char kAbout[] =
    "boxctl reads, sets, saves and restores the settings of a box, and works the simulated box\n"
    "that the programs of a desk share; that box is there as long as one of them is running.\n"
    "Names and values are those that the panel shows.";
constexpr char kExits[] =
    "Exit codes: 0 done, 1 different, not found or refused by the box, 2 bad input, 3 timeout\n"
    "or stopped, 4 no box.";
constexpr char kOfSimulated[] = "Simulated box";
constexpr char kOfAny[] = "Any box";
constexpr char kOfTraces[] = "Traces";

constexpr std::uint32_t kMostByte = 255;
constexpr std::uint32_t kMostLatency = simulator::Faults::kMostLatency;
constexpr std::uint32_t kMostPeriod = 60000;
constexpr double kMostSeconds = 86400;

// What is no number lies in no range, but CLI::Range lets it through.
std::string RefuseNoNumber(const std::string& typed) {
  return std::isnan(std::strtod(typed.c_str(), nullptr)) ? typed + " is no number" : "";
}

// What all commands have in common.
struct Common {
  std::string library;
  bool json = false;
  bool isLine = false;  // of a script, which may have no script in it
};

// One line of arguments.
class Program {
 public:
  Program(Host& theHost, const Session::Streams& theStreams, const Common& theCommon)
      : host(theHost), streams(theStreams), common(theCommon) {
    app.name("boxctl");
    app.footer(kExits);
    app.require_subcommand(1);
    app.allow_windows_style_options(false);
    AddCommon(app);
    AddReading();
    AddSettings();
    AddBench();
    AddFaults();
    AddFiles();
    AddCalls();
    AddTraces();
    if (!common.isLine) AddScript();
  }

  Outcome Execute(std::vector<std::string> arguments) {
    std::reverse(arguments.begin(), arguments.end());  // the order that the parser takes
    try {
      app.parse(arguments);
      Session session(host, streams, common.library, common.json);
      return {command(session), ""};
    } catch (const CLI::Success& asked) {  // for help
      app.exit(asked, streams.out, streams.out);
      return {};
    } catch (const CLI::ParseError& error) {
      return {Exit::kBadInput, WhyNot(error)};
    } catch (const Failure& failure) {
      return {failure.Code(), failure.what()};
    } catch (const std::exception& error) {
      return {Exit::kBadInput, Printable(error.what())};
    }
  }

 private:
  using Command = std::function<Exit(Session&)>;

  std::string WhyNot(const CLI::ParseError& error) {
    if (!app.get_subcommands().empty()) {
      return Printable(error.what()) + " (boxctl --help says more)";
    }
    const std::vector<std::string> rest = app.remaining();
    if (rest.empty()) return "say what to do: boxctl --help lists the commands";
    std::vector<std::string> commands;
    for (const CLI::App* each : app.get_subcommands({})) commands.push_back(each->get_name());
    const std::string near = NearOf(commands, rest.front());
    return "\"" + Printable(rest.front()) + "\" is no command: " +
           (near.empty() ? "boxctl --help lists them" : "do you mean " + near + "?");
  }

  void AddCommon(CLI::App& to) {
    to.add_flag("--json", common.json, "answer with JSON, and say so what is wrong");
    to.add_option("--library", common.library,
                  "a device library to talk through, instead of the simulated box")
        ->type_name("PATH");
  }

  // A command that ends well unless it fails.
  CLI::App& Add(const char* called, const char* about, const char* examples, const char* group,
                std::function<void(Session&)> run) {
    return AddWithExit(called, about, examples, group, [run = std::move(run)](Session& session) {
      run(session);
      return Exit::kDone;
    });
  }
  CLI::App& AddWithExit(const char* called, const char* about, const char* examples,
                        const char* group, Command run) {
    CLI::App& added = *app.add_subcommand(called, about);
    added.footer(std::string("Examples:\n") + examples);
    added.group(group);
    AddCommon(added);
    added.callback([this, run = std::move(run)] { command = run; });
    return added;
  }

  void AddReading() {
    Add("status", "say which box it is, and what it receives", "  boxctl status", kOfAny,
        [](Session& session) { Status(session); });
    CLI::App& read =
        Add("read", "read properties, or all of them",
            "  boxctl read\n  boxctl read \"Input Source\" Brightness\n  boxctl read \"word 4\"",
            kOfAny, [this](Session& session) { Read(session, names); });
    read.add_option("NAME", names, "as the panel captions it, or its address");
    CLI::App& set =
        Add("set", "change a property",
            "  boxctl set \"Input Source\" VGA\n  boxctl set Brightness 140\n"
            "  boxctl set \"Image Size\" hex:5A5A\n  boxctl set \"Input 1 Label\" \"CAMERA 1\"",
            kOfAny, [this](Session& session) { Set(session, name, value); });
    set.add_option("NAME", name, "as the panel captions it, or its address")->required();
    set.add_option("VALUE", value, "a choice as the panel shows it, a number, or hex: and bytes")
        ->required();
    CLI::App& watched = Add("watch", "print what changes, until Ctrl+C",
                            "  boxctl watch\n  boxctl watch \"Input Format\" --count 1", kOfAny,
                            [this](Session& session) { Watch(session, watch); });
    watched.add_option("NAME", watch.names, "what to watch; all when none is named");
    watched.add_option("--count", watch.count, "end after so many changes");
    watched.add_option("--every", watch.every, "ms from look to look")
        ->check(CLI::Range(1U, kMostPeriod))
        ->capture_default_str();
  }

  void AddSettings() {
    CLI::App& save = Add("save", "save all settings of the box", "  boxctl save studio.json",
                         kOfAny, [this](Session& session) { Save(session, file); });
    save.add_option("FILE", file, "is replaced when it is there")->required();
    CLI::App& diff =
        AddWithExit("diff", "compare saved settings with the box, or with others",
                    "  boxctl diff studio.json\n  boxctl diff studio.json truck.json", kOfAny,
                    [this](Session& session) { return Diff(session, file, otherFile); });
    diff.add_option("FILE", file, "saved settings")->required();
    diff.add_option("OTHER", otherFile, "saved settings to compare with; else the box");
    CLI::App& restore = Add("restore", "show what saved settings would change, or change it",
                            "  boxctl restore studio.json\n  boxctl restore studio.json --yes",
                            kOfAny, [this](Session& session) { Restore(session, file, isMeant); });
    restore.add_option("FILE", file, "saved settings")->required();
    restore.add_flag("--yes", isMeant, "write it");
  }

  void AddBench() {
    Add("plug", "plug the box in", "  boxctl plug", kOfSimulated,
        [](Session& session) { Plug(session, true); });
    Add("unplug", "pull its plug", "  boxctl unplug", kOfSimulated,
        [](Session& session) { Plug(session, false); });
    CLI::App& cut = Add("cut", "cut its cable for some time", "  boxctl cut 10", kOfSimulated,
                        [this](Session& session) { Cut(session, seconds); });
    cut.add_option("SECONDS", seconds)
        ->required()
        ->check(CLI::Range(0.001, kMostSeconds))
        ->check(RefuseNoNumber);
    Add("reset", "set it as it left the factory", "  boxctl reset", kOfSimulated,
        [](Session& session) { Reset(session); });
    CLI::App& other = Add("become", "make it another box, with that one's defaults",
                          "  boxctl become 24 --brand 2 --firmware 0x0112\n"
                          "  boxctl become 30 --dip-out",
                          kOfSimulated, [this](Session& session) { Become(session, become); });
    other.add_option("TYPE", become.type, "the model's number, 0 to 254")
        ->required()
        ->check(CLI::Range(0U, kNoBoxType - 1U));
    other.add_option("--brand", become.brand)->check(CLI::Range(0U, kMostByte));
    other.add_option("--sub-model", become.subModel)->check(CLI::Range(0U, kMostByte));
    other.add_option("--firmware", become.firmware, "0x0112 is shown as 0.1.1.2");
    other.add_flag("--dip-in", become.inputDip, "configured by DIP switches on the input side");
    other.add_flag("--dip-out", become.outputDip, "the same on the output side");
    CLI::App& input =
        Add("input", "what all its inputs receive",
            "  boxctl input 1920x1080i50\n  boxctl input 1280x720p59.94\n  boxctl input none",
            kOfSimulated, [this](Session& session) { Input(session, format); });
    input.add_option("FORMAT", format)->required();
  }

  void AddFaults() {
    CLI::App& failing =
        Add("fail", "let calls go wrong; without a kind, all of them",
            "  boxctl fail --every 3 --reads\n  boxctl fail --writes --property \"Input Source\"\n"
            "  boxctl fail --result 5\n  boxctl fail --never",
            kOfSimulated, [this](Session& session) { Fail(session, fail); });
    CLI::Option* never = failing.add_flag("--never", fail.never, "an end to all of it");
    CLI::Option* vanish =
        failing.add_flag("--vanish", fail.vanish, "the next write pulls the plug")->excludes(never);
    // Which calls go wrong otherwise, and how.
    const auto other = [&](CLI::Option* option) {
      return option->excludes(never)->excludes(vanish);
    };
    other(failing.add_option("--every", fail.every, "each nth of the calls that are meant"))
        ->check(CLI::Range(1U, std::numeric_limits<std::uint32_t>::max()));
    other(failing.add_flag("--reads", fail.reads));
    other(failing.add_flag("--writes", fail.writes));
    other(failing.add_flag("--opens", fail.opens));
    other(failing.add_option("--property", fail.property, "only calls of this one"))
        ->type_name("NAME");
    CLI::Option* result =
        other(failing.add_option("--result", fail.result, "the result that calls have then"));
    other(failing.add_flag("--random", fail.random, "answers of random bytes"))->excludes(result);
    CLI::App& slow = Add("latency", "how long every call takes", "  boxctl latency 200",
                         kOfSimulated, [this](Session& session) { Latency(session, latency); });
    slow.add_option("MS", latency, Format("0 to %u", kMostLatency))
        ->required()
        ->check(CLI::Range(0U, kMostLatency));
  }

  void AddFiles() {
    CLI::App& dump = Add("dump", "save all that the simulated box keeps", "  boxctl dump box.json",
                         kOfSimulated, [this](Session& session) { Dump(session, file); });
    dump.add_option("FILE", file, "is replaced when it is there")->required();
    CLI::App& load = Add("load", "make it the box that was saved", "  boxctl load box.json",
                         kOfSimulated, [this](Session& session) { Load(session, file); });
    load.add_option("FILE", file)->required();
  }

  void AddCalls() {
    CLI::App& listed = Add("calls", "the calls that were made, in words",
                           "  boxctl calls --writes\n  boxctl calls --follow", kOfSimulated,
                           [this](Session& session) { Calls(session, calls); });
    listed.add_flag("--follow", calls.follow, "and those that are made, until Ctrl+C");
    listed.add_flag("--writes", calls.writes, "these alone");
    CLI::App& wait = Add("wait-for-write", "wait until somebody writes a property",
                         "  boxctl wait-for-write \"Input Source\" --timeout 10", kOfSimulated,
                         [this](Session& session) { WaitForWrite(session, name, timeout); });
    wait.add_option("NAME", name, "as the panel captions it, or its address")->required();
    wait.add_option("--timeout", timeout, "seconds")
        ->check(CLI::Range(0.0, kMostSeconds))
        ->check(RefuseNoNumber);
  }

  void AddTraces() {
    CLI::App& shown = Add("trace", "show a recorded trace in words",
                          "  boxctl trace DEVLNK.trace.txt --writes\n"
                          "  boxctl trace DEVLNK.trace.txt --slow 50 --follow\n"
                          "  boxctl trace DEVLNK.trace.txt --as-test",
                          kOfTraces, [this](Session& session) { ShowTrace(session, file, trace); });
    shown.add_option("FILE", file)->required();
    shown.add_flag("--follow", trace.follow, "and what is written to it, until Ctrl+C");
    shown.add_flag("--writes", trace.writes, "these alone");
    shown.add_option("--slow", trace.slow, "only calls that took longer, in ms")->type_name("MS");
    shown.add_flag("--as-test", trace.asTest, "as a scenario of the project's tests");
    CLI::App& replay = Add("replay", "let the simulated box answer as a recorded one did",
                           "  boxctl replay DEVLNK.trace.txt", kOfSimulated,
                           [this](Session& session) { Replay(session, file); });
    replay.add_option("FILE", file)->required();
  }

  void AddScript() {
    CLI::App& script = Add("script", "commands from a file, one a line, or from the standard input",
                           "  boxctl script test.txt\n  boxctl script -", kOfAny,
                           [this](Session& session) { RunScript(session, file, Line()); });
    script.add_option("FILE", file, "- is the standard input")->required();
  }

  // What executes a line of a script: it has the options of the script where it has none.
  Executor Line() {
    return [this](const std::vector<std::string>& arguments) {
      return Program(host, streams, {common.library, common.json, true}).Execute(arguments);
    };
  }

  Host& host;
  Session::Streams streams;
  CLI::App app{kAbout};
  Command command;

  // What was typed.
  Common common;
  std::vector<std::string> names;
  std::string name;
  std::string value;
  std::string file;
  std::string otherFile;
  std::string format;
  bool isMeant = false;
  double seconds = 0;
  std::uint32_t latency = 0;
  std::optional<double> timeout;
  WatchOptions watch;
  BecomeOptions become;
  FailOptions fail;
  CallsOptions calls;
  TraceOptions trace;
};

// Also where the rest can't be understood.
bool IsJsonWanted(const std::vector<std::string>& arguments) {
  const auto end = std::find(arguments.begin(), arguments.end(), "--");
  return std::find(arguments.begin(), end, "--json") != end;
}

}  // namespace

int Run(const std::vector<std::string>& arguments, Host& host, std::istream& in, std::ostream& out,
        std::ostream& err) {
  Outcome outcome = Program(host, {in, out}, {}).Execute(arguments);
  try {
    Flush(out);
  } catch (const Failure& failure) {
    if (outcome.message.empty()) outcome = {failure.Code(), failure.what()};
  }
  if (!outcome.message.empty()) {
    err << (IsJsonWanted(arguments) ? LineOf(ToJson(outcome)) : "boxctl: " + outcome.message)
        << std::endl;
  }
  return static_cast<int>(outcome.code);
}

}  // namespace panelora::boxctl
