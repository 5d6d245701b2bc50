#include "boxctl/trace_commands.h"

#include <algorithm>
#include <sstream>

#include "base/text.h"
#include "boxctl/files.h"
#include "trace/told_box.h"
#include "trace/trace_view.h"
#include "trace/words.h"

namespace panelora::boxctl {

namespace {

using trace::Trace;
using trace::TracedCall;

constexpr std::uint32_t kPeriod = 500;  // ms from look to look

Trace TraceOf(const std::string& path) {
  std::ifstream file = OpenFile(path);
  std::string error;
  std::optional<Trace> read = trace::ReadTrace(file, error);
  if (!read) throw Failure(Exit::kBadInput, Printable(path) + ": " + Printable(error));
  return std::move(*read);
}

// A call a line, and one for each place where some are missing.
std::string JsonLines(const Trace& shown, const trace::ViewOptions& options) {
  std::string lines;
  const auto onCall = [&](const trace::ToldBox& box, std::uint64_t number, const TracedCall& each) {
    if (!IsShown(each, options)) return;
    const Json json = {{"number", number},          {"time", each.time},
                       {"duration", each.duration}, {"write", each.call.IsWrite()},
                       {"call", TextOf(each.call)}, {"words", trace::InWords(box, each.call)},
                       {"result", each.call.result}};
    lines += LineOf(json) + "\n";
  };
  const auto onLost = [&](std::uint64_t number, std::uint64_t count) {
    lines += LineOf({{"number", number}, {"lost", count}}) + "\n";
  };
  trace::TraceWalk(onCall, onLost).Take(shown);
  return lines;
}

std::string TextOfCalls(const Trace& shown, const TraceOptions& options, bool isJson) {
  const trace::ViewOptions view = {options.writes, options.slow};
  if (isJson) return JsonLines(shown, view);
  std::ostringstream lines;
  trace::TraceView(view, lines).Show(shown);
  return lines.str();
}

}  // namespace

void ShowTrace(Session& session, const std::string& path, const TraceOptions& options) {
  if (options.asTest) {
    if (session.IsJson()) {
      throw Failure(Exit::kBadInput, "a test is no JSON: leave out --json or --as-test");
    }
    trace::ShowAsTest(TraceOf(path), session.Out());
    return;
  }
  std::string before;
  std::uint64_t size = 0;
  do {
    const std::uint64_t now = SizeOf(path);
    if (before.empty() || now != size) {
      const std::string lines = TextOfCalls(TraceOf(path), options, session.IsJson());
      // A trace that was begun anew is shown from its beginning.
      const bool goesOn = lines.starts_with(before);
      session.Out() << lines.substr(goesOn ? before.size() : 0) << std::flush;
      before = lines;
      size = now;
    }
    if (options.follow) session.System().Sleep(kPeriod);
  } while (options.follow && !session.System().IsStopped());
}

void Replay(Session& session, const std::string& path) {
  simulator::BoxControl control = session.Control();
  const Trace read = TraceOf(path);
  trace::ToldBox box;
  for (const Call& call : read.before) box.Hear(call);
  std::vector<Call> calls(read.calls.size());
  std::transform(read.calls.begin(), read.calls.end(), calls.begin(), [&](const TracedCall& each) {
    box.Hear(each.call);
    return each.call;
  });
  const auto recorded = simulator::ReplayOf(calls);
  if (recorded == nullptr) {
    throw Failure(Exit::kBadInput, Printable(path) + " has more than " +
                                       std::to_string(simulator::Replay::kQuestions) +
                                       " different questions or " +
                                       std::to_string(simulator::Replay::kAnswers) +
                                       " different answers: replay a shorter trace");
  }
  if (box.TheIdentity().boxType != kNoBoxType) {
    Require(control.Become(box.TheIdentity(), box.Firmware()));
  }
  Require(control.Play(*recorded));
  const std::string count = std::to_string(calls.size());
  session.Say("the box answers as in these " + count + " calls, until it becomes another one\n",
              {{"calls", calls.size()}, {"model", box.TheIdentity().boxType}});
}

}  // namespace panelora::boxctl
