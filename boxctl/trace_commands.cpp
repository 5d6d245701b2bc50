#include "boxctl/trace_commands.h"

#include <algorithm>
#include <ios>
#include <istream>
#include <ostream>

#include "base/text.h"
#include "boxctl/files.h"
#include "trace/told_box.h"
#include "trace/trace_follower.h"
#include "trace/trace_view.h"
#include "trace/words.h"

namespace panelora::boxctl {

namespace {

using trace::Trace;
using trace::TracedCall;

constexpr std::uint32_t kPeriod = 500;  // ms from look to look

// What reads a trace; what the system can't read is a failure.
template <class Action>
auto Reading(const std::string& path, const Action& read) {
  try {
    return read();
  } catch (const std::ios_base::failure&) {
    throw NotRead(path);
  }
}

Trace TraceOf(Session& session, const std::string& path) {
  RefuseFolder(path);
  const auto file = session.System().OpenShared(path, 0);
  if (file == nullptr) throw NotOpened(path);
  std::istream in(file.get());
  std::string error;
  std::optional<Trace> read = Reading(path, [&] { return trace::ReadTrace(in, error); });
  if (!read) throw Failure(Exit::kBadInput, Printable(path) + ": " + Printable(error));
  return std::move(*read);
}

// A call a line, and one for each place where some are missing.
class JsonView {
 public:
  JsonView(const trace::ViewOptions& theOptions, std::ostream& theOut)
      : options(theOptions), out(theOut) {}
  JsonView(const JsonView&) = delete;
  JsonView& operator=(const JsonView&) = delete;

  void Show(const Trace& part) { walk.Take(part); }

 private:
  void ShowCall(const trace::ToldBox& box, std::uint64_t number, const TracedCall& each) {
    if (!IsShown(each, options)) return;
    out << LineOf({{"number", number},
                   {"time", each.time},
                   {"duration", each.duration},
                   {"write", each.call.IsWrite()},
                   {"call", TextOf(each.call)},
                   {"words", trace::InWords(box, each.call)},
                   {"result", each.call.result}})
        << '\n';
  }

  trace::ViewOptions options;
  std::ostream& out;
  trace::TraceWalk walk{[this](const trace::ToldBox& box, std::uint64_t number,
                               const TracedCall& each) { ShowCall(box, number, each); },
                        [this](std::uint64_t number, std::uint64_t count) {
                          out << LineOf({{"number", number}, {"lost", count}}) << '\n';
                        }};
};

template <class View>
void Show(Session& session, const std::string& path, View& view, bool follows) {
  if (!follows) {
    view.Show(TraceOf(session, path));
    return;
  }
  RefuseFolder(path);
  trace::TraceFollower follower(path, [&](const std::string& file, std::uint64_t from) {
    return session.System().OpenShared(file, from);
  });
  for (;;) {
    std::string error;
    const bool isTrace = Reading(
        path, [&] { return follower.Look([&](const Trace& part) { view.Show(part); }, error); });
    Flush(session.Out());
    if (!isTrace) throw Failure(Exit::kBadInput, Printable(error));
    session.System().Sleep(kPeriod);
    if (session.System().IsStopped()) return;
  }
}

}  // namespace

void ShowTrace(Session& session, const std::string& path, const TraceOptions& options) {
  const trace::ViewOptions shown = {options.writes, options.slow};
  if (options.asTest && session.IsJson()) {
    throw Failure(Exit::kBadInput, "a test is no JSON: leave out --json or --as-test");
  }
  if (options.asTest) {
    trace::ShowAsTest(TraceOf(session, path), session.Out());
  } else if (session.IsJson()) {
    JsonView view(shown, session.Out());
    Show(session, path, view, options.follow);
  } else {
    trace::TraceView view(shown, session.Out());
    Show(session, path, view, options.follow);
  }
}

void Replay(Session& session, const std::string& path) {
  simulator::BoxControl control = session.Control();
  const Trace read = TraceOf(session, path);
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
