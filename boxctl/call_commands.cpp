#include "boxctl/call_commands.h"

#include <algorithm>

#include "base/text.h"
#include "boxctl/attached_box.h"
#include "boxctl/names.h"
#include "boxctl/texts.h"
#include "catalogue/describe.h"
#include "trace/words.h"

namespace panelora::boxctl {

namespace {

using simulator::BoxControl;
using simulator::By;
using simulator::Entry;

constexpr std::uint32_t kPeriod = 20;  // ms from look to look
constexpr double kMillisecondsPerSecond = 1000;

const char* NameOf(By by) {
  switch (by) {
    case By::kPanel:
      return "panel";
    case By::kBench:
      return "bench";
    case By::kBoxctl:
      return "boxctl";
    case By::kBox:
      return "box";
  }
  return "?";
}

std::string Words(const BoxControl::Look& look, const Entry& entry) {
  return Printable(Describe(look.box.identity, look.box.firmware, CallOf(entry)));
}

std::string LineOfCall(const BoxControl::Look& look, const Entry& entry) {
  const std::string number = std::to_string(entry.number);
  const std::string failed = entry.result == kSuccess ? "" : Format("  failed (%d)", entry.result);
  return Format("%6s  %s  %-6s  %6u us  ", number.c_str(), trace::TimeOfDay(entry.time).c_str(),
                NameOf(entry.by), entry.duration) +
         Words(look, entry) + failed + "\n";
}

Json JsonOf(const BoxControl::Look& look, const Entry& entry) {
  const Call call = CallOf(entry);
  return {{"number", entry.number},   {"time", entry.time},          {"by", NameOf(entry.by)},
          {"process", entry.process}, {"duration", entry.duration},  {"write", call.IsWrite()},
          {"call", TextOf(call)},     {"words", Words(look, entry)}, {"result", entry.result}};
}

// A write to the place of the property, whatever its length: what is put there from outside counts.
// Of a command its value alone.
bool IsWriteOf(const Property& property, const Call& call) {
  if (!call.IsWrite()) return false;
  if (property.command != Property::kAnyValue) return property.Fits(call);
  const Bytes none = {0};
  const Call like = WriteTo(property.at, none);
  return like.operation == call.operation && like.group == call.group &&
         like.number == call.number && like.sub == call.sub;
}

BoxControl::Calls CallsFrom(Session& session, std::uint64_t first) {
  auto calls = session.Control().CallsFrom(first);
  Require(calls.has_value());
  return std::move(*calls);
}

void SayLost(Session& session, std::uint64_t lost) {
  if (lost == 0) return;
  session.Say("        " + std::to_string(lost) + " calls are no longer kept\n", {{"lost", lost}});
}

}  // namespace

void Calls(Session& session, const CallsOptions& options) {
  std::uint64_t next = 0;  // the oldest that is kept
  for (;;) {
    const BoxControl::Look look = session.Look();
    const BoxControl::Calls calls = CallsFrom(session, next);
    SayLost(session, calls.lost);
    for (const Entry& entry : calls.entries) {
      next = entry.number + 1;
      if (options.writes && !CallOf(entry).IsWrite()) continue;
      session.Say(LineOfCall(look, entry), JsonOf(look, entry));
    }
    if (next == 0) next = 1;
    if (!options.follow || session.System().IsStopped()) return;
    session.System().Sleep(kPeriod);
  }
}

void WaitForWrite(Session& session, const std::string& name, std::optional<double> timeout) {
  const BoxControl::Look begin = session.Look();
  const std::vector<Named> meant = Find(AllOf(begin.box.identity, begin.box.firmware), name);
  const std::uint64_t start = session.System().Milliseconds();
  std::uint64_t next = begin.last + 1;
  for (;;) {
    const BoxControl::Look look = session.Look();
    for (const Entry& entry : CallsFrom(session, next).entries) {
      next = entry.number + 1;
      const Call call = CallOf(entry);
      const bool isMeant =
          call.Succeeded() && std::any_of(meant.begin(), meant.end(), [&](const Named& each) {
            return IsWriteOf(each.property, call);
          });
      if (!isMeant) continue;
      session.Say(Words(look, entry) + "\n", JsonOf(look, entry));
      return;
    }
    if (session.System().IsStopped()) {
      throw Failure(Exit::kTimeout, "nobody wrote " + Printable(name) + " until it was stopped");
    }
    const auto waited = static_cast<double>(session.System().Milliseconds() - start);
    if (timeout && waited >= *timeout * kMillisecondsPerSecond) {
      throw Failure(Exit::kTimeout,
                    "nobody wrote " + Printable(name) + Format(" within %g s", *timeout));
    }
    session.System().Sleep(kPeriod);
  }
}

}  // namespace panelora::boxctl
