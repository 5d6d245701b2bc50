// Follows a trace while it is written, from file to file.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <streambuf>
#include <string>
#include <utility>

#include "trace/trace_file.h"

namespace panelora::trace {

// The file in which a trace stands that went on in a new one: "x.trace.txt" was "x.trace.old.txt".
std::string OlderOf(const std::string& path);

class TraceFollower {
 public:
  // Opens a file from a place on, in a way that lets it be moved meanwhile; null when there is
  // none.
  using Open =
      std::function<std::unique_ptr<std::streambuf>(const std::string& path, std::uint64_t from)>;
  using OnPart = std::function<void(const Trace& part)>;

  TraceFollower(std::string thePath, Open theOpen)
      : path(std::move(thePath)), open(std::move(theOpen)) {}

  // Tells what was written since the last look. What went into the older file meanwhile comes
  // first; a file that is not there, or empty, is waited for. False when a file is no trace:
  // `error` says in one line which and where.
  bool Look(const OnPart& onPart, std::string& error);

 private:
  // Reads on in a file; nothing when it is not there, or another one. A failure is in `error`.
  std::optional<Trace> ReadOn(GrowingTrace& trace, const std::string& file, std::string& error);

  std::string path;
  Open open;
  GrowingTrace growing;
};

}  // namespace panelora::trace
