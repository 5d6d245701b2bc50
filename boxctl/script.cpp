#include "boxctl/script.h"

#include <sstream>
#include <string>
#include <string_view>

#include "base/text.h"
#include "boxctl/files.h"

namespace panelora::boxctl {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";  // some editors and shells begin so

Outcome ExecuteLine(const std::string& line, const Executor& execute) {
  try {
    return execute(WordsOf(line));
  } catch (const Failure& failure) {
    return {failure.Code(), failure.what()};
  }
}

std::string ReasonOf(const Outcome& outcome) {
  return outcome.message.empty() ? "there are differences" : outcome.message;
}

void Answer(Session& session, const Outcome& outcome) {
  if (session.IsJson()) {
    session.Out() << LineOf(ToJson(outcome)) << '\n';
  } else {
    session.Out() << (outcome.code == Exit::kDone ? "." : "! " + ReasonOf(outcome)) << '\n';
  }
  Flush(session.Out());
}

}  // namespace

Json ToJson(const Outcome& outcome) {
  Json json = {{"exit", static_cast<int>(outcome.code)}};
  if (outcome.code != Exit::kDone) json["error"] = ReasonOf(outcome);
  return json;
}

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

void RunScript(Session& session, const std::string& path, const Executor& execute) {
  const bool isFile = path != "-";
  std::istringstream file(isFile ? ReadFile(path) : "");
  std::istream& lines = isFile ? file : session.In();
  const std::string name = isFile ? Printable(path) : "the standard input";
  int number = 0;
  const auto requireNoStop = [&] {
    if (!session.System().IsStopped()) return;
    throw Failure(Exit::kTimeout, name + Format(" line %d: stopped", number));
  };
  for (std::string line; std::getline(lines, line);) {
    ++number;
    requireNoStop();  // the line may have been waited for
    if (number == 1 && line.starts_with(kByteOrderMark)) line.erase(0, kByteOrderMark.size());
    if (!line.empty() && line.back() == '\r') line.pop_back();
    const std::size_t begin = line.find_first_not_of(" \t");
    if (begin == std::string::npos || line[begin] == '#') continue;
    const Outcome outcome = ExecuteLine(line, execute);
    Answer(session, outcome);
    if (outcome.code != Exit::kDone && isFile) {
      throw Failure(outcome.code, name + Format(" line %d: ", number) + ReasonOf(outcome));
    }
    requireNoStop();  // what waits ends well then
  }
}

}  // namespace panelora::boxctl
