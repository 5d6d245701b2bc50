// Commands from a file or a pipe, one a line.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "boxctl/failure.h"
#include "boxctl/json.h"
#include "boxctl/session.h"

namespace panelora::boxctl {

// How a command ended; the message is empty when there is nothing to say.
struct Outcome {
  Exit code = Exit::kDone;
  std::string message;
};
// {"exit": 2, "error": "..."}, without an error when there is none.
Json ToJson(const Outcome& outcome);

using Executor = std::function<Outcome(const std::vector<std::string>& arguments)>;

// The words of a line; blanks within double quotes are part of a word. A failure when a quote is
// never closed.
std::vector<std::string> WordsOf(const std::string& line);

// Executes each line and answers it with what it prints and a line of its own: "." or "! " and
// what went wrong, or how it ended as JSON. Empty lines and those that begin with # are left out. A
// file ends with its first failure, which is that of the script; the standard input, which is
// called "-", goes on. Where the operator wants an end no further line is executed: Exit::kTimeout.
void RunScript(Session& session, const std::string& path, const Executor& execute);

}  // namespace panelora::boxctl
