#include "trace/trace_view.h"

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

bool IsShown(const TracedCall& traced, const ViewOptions& options) {
  if (options.writesOnly && !traced.call.IsWrite()) return false;
  return options.slowerThan == 0 || traced.duration > std::uint64_t{options.slowerThan} * 1000;
}

}  // namespace

void ShowTrace(const Trace& trace, const ViewOptions& options, std::ostream& out) {
  ToldBox box;
  std::uint64_t number = trace.firstNumber - 1;
  std::uint64_t day = 0;
  std::uint64_t lost = 0;
  const auto showLost = [&](std::uint64_t count) {
    out << Format("%9s(%llu lost)\n", "", static_cast<unsigned long long>(count));
    lost += count;
  };
  for (const TracedCall& traced : trace.calls) {
    const std::uint64_t before = number;
    number = traced.number != 0 ? traced.number : before + 1;
    if (number > before + 1) showLost(number - before - 1);
    box.Hear(traced.call);
    if (!IsShown(traced, options)) continue;
    if (traced.time / kDay != day) {
      day = traced.time / kDay;
      out << DateOf(day) << " (UTC)\n";
    }
    out << Format("%7llu  ", static_cast<unsigned long long>(number)) << TimeOfDay(traced.time)
        << Format("  %11s  ", Milliseconds(traced.duration).c_str()) << InWords(box, traced.call)
        << '\n';
  }
  if (trace.lost > lost) showLost(trace.lost - lost);
}

}  // namespace panelora::trace
