#include "trace/trace_follower.h"

#include <istream>

namespace panelora::trace {

std::string OlderOf(const std::string& path) {
  const std::size_t name = path.find_last_of("/\\") + 1;  // 0 where there is no folder
  const std::size_t point = path.rfind('.');
  const bool hasEnding = point != std::string::npos && point > name;
  return std::string(path).insert(hasEnding ? point : path.size(), ".old");
}

bool TraceFollower::Look(const OnPart& onPart, std::string& error) {
  error.clear();
  const auto tell = [&](const std::optional<Trace>& part) {
    if (part) onPart(*part);
    return part.has_value();
  };
  if (growing.IsBegun()) {
    if (tell(ReadOn(growing, path, error)) || !error.empty()) return error.empty();
    // It went on in a new file: here is the rest of the one before.
    tell(ReadOn(growing, OlderOf(path), error));
    if (!error.empty()) return false;
  }
  GrowingTrace begun;
  const std::optional<Trace> part = ReadOn(begun, path, error);
  if (!part) return error.empty();
  const std::uint64_t next = growing.TheReached().next;
  if (growing.IsBegun() && part->firstNumber > next) {
    // A whole file was written since the last look.
    GrowingTrace skipped;
    const std::optional<Trace> whole = ReadOn(skipped, OlderOf(path), error);
    if (!error.empty()) return false;
    if (whole && whole->firstNumber >= next && whole->firstNumber < part->firstNumber) tell(whole);
  }
  growing = begun;
  return tell(part);
}

std::optional<Trace> TraceFollower::ReadOn(GrowingTrace& trace, const std::string& file,
                                           std::string& error) {
  const std::unique_ptr<std::streambuf> opened = open(file, trace.TheReached().place);
  if (opened == nullptr) return std::nullopt;
  std::istream in(opened.get());
  std::optional<Trace> part = trace.ReadOn(in, error);
  if (!error.empty()) error = file + ": " + error;
  return part;
}

}  // namespace panelora::trace
