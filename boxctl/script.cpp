#include "boxctl/script.h"

#include <sstream>
#include <string>

#include "boxctl/files.h"

namespace panelora::boxctl {

namespace {

Outcome ExecuteLine(const std::string& line, const Executor& execute) {
  try {
    return execute(WordsOf(line));
  } catch (const Failure& failure) {
    return {failure.Code(), failure.what()};
  }
}

std::string AnswerOf(const Outcome& outcome) {
  if (outcome.code == Exit::kDone) return ".";
  return "! " + (outcome.message.empty() ? "there are differences" : outcome.message);
}

Exit RunLines(Session& session, std::istream& lines, bool goesOn, const Executor& execute) {
  for (std::string line; std::getline(lines, line);) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    const std::size_t begin = line.find_first_not_of(" \t");
    if (begin == std::string::npos || line[begin] == '#') continue;
    const Outcome outcome = ExecuteLine(line, execute);
    session.Out() << AnswerOf(outcome) << std::endl;
    if (outcome.code != Exit::kDone && !goesOn) return outcome.code;
  }
  return Exit::kDone;
}

}  // namespace

std::vector<std::string> WordsOf(const std::string& line) {
  std::vector<std::string> words;
  bool isQuoted = false;
  bool isWord = false;
  for (const char letter : line) {
    const bool isBlank = letter == ' ' || letter == '\t';
    if (letter == '"') {
      isQuoted = !isQuoted;
    } else if (isBlank && !isQuoted) {
      isWord = false;
      continue;
    }
    if (!isWord) words.emplace_back();
    isWord = true;
    if (letter != '"') words.back() += letter;
  }
  if (isQuoted) throw Failure(Exit::kBadInput, "a quote is never closed: put a \" behind the word");
  return words;
}

Exit RunScript(Session& session, const std::string& path, const Executor& execute) {
  if (path == "-") return RunLines(session, session.In(), true, execute);
  std::istringstream lines(ReadFile(path));
  return RunLines(session, lines, false, execute);
}

}  // namespace panelora::boxctl
