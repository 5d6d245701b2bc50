#include "trace/trace_view.h"

#include <algorithm>
#include <chrono>
#include <string>

#include "base/text.h"
#include "trace/words.h"

namespace panelora::trace {

namespace {

constexpr std::uint64_t kDay = 86'400'000'000;  // microseconds

std::string DateOf(std::uint64_t day) {
  const std::chrono::days since1970(day);
  const std::chrono::year_month_day date{std::chrono::sys_days(since1970)};
  return Format("%04d-%02u-%02u", static_cast<int>(date.year()),
                static_cast<unsigned>(date.month()), static_cast<unsigned>(date.day()));
}

std::string Milliseconds(std::uint32_t duration) {
  return Format("%u.%03u ms", duration / 1000, duration % 1000);
}

}  // namespace

bool IsShown(const TracedCall& traced, const ViewOptions& options) {
  if (options.writesOnly && !traced.call.IsWrite()) return false;
  return options.slowerThan == 0 || traced.duration > std::uint64_t{options.slowerThan} * 1000;
}

void TraceWalk::Take(const Trace& part) {
  if (next == 0 || part.firstNumber < next) {
    box = {};
    next = part.firstNumber;
  }
  for (const Call& call : part.before) box.Hear(call);
  SkipTo(part.firstNumber);
  std::uint64_t end = part.firstNumber + part.lost;
  for (const TracedCall& traced : part.calls) {
    if (traced.number != 0) SkipTo(traced.number);
    box.Hear(traced.call);
    onCall(box, next++, traced);
    ++end;
  }
  SkipTo(end);
}

void TraceWalk::SkipTo(std::uint64_t number) {
  if (number > next) onLost(next, number - next);
  next = std::max(next, number);
}

TraceView::TraceView(const ViewOptions& theOptions, std::ostream& theOut)
    : options(theOptions),
      out(theOut),
      walk([this](const ToldBox& box, std::uint64_t number,
                  const TracedCall& traced) { ShowCall(box, number, traced); },
           [this](std::uint64_t, std::uint64_t count) {
             out << Format("%9s(%llu lost)\n", "", static_cast<unsigned long long>(count));
           }) {}

void TraceView::ShowCall(const ToldBox& box, std::uint64_t number, const TracedCall& traced) {
  if (!IsShown(traced, options)) return;
  if (traced.time / kDay != day) {
    day = traced.time / kDay;
    out << DateOf(day) << " (UTC)\n";
  }
  out << Format("%7llu  ", static_cast<unsigned long long>(number)) << TimeOfDay(traced.time)
      << Format("  %11s  ", Milliseconds(traced.duration).c_str()) << InWords(box, traced.call)
      << '\n';
}

}  // namespace panelora::trace
