#include "trace/words.h"

#include "base/text.h"
#include "catalogue/describe.h"

namespace panelora::trace {

std::string TimeOfDay(std::uint64_t time) {
  const std::uint64_t milliseconds = time / 1000;
  const auto seconds = static_cast<int>(milliseconds / 1000 % 86'400);
  return Format("%02d:%02d:%02d.%03d", seconds / 3600, seconds / 60 % 60, seconds % 60,
                static_cast<int>(milliseconds % 1000));
}

std::string InWords(const ToldBox& box, const Call& call) {
  std::string words = Describe(box.TheIdentity(), box.Firmware(), call);
  // A box may hold anything in its labels.
  for (char& letter : words) {
    if (letter < ' ' || letter > '~') letter = '.';
  }
  if (call.Succeeded()) return words;
  words += call.TellsResult() ? "  failed" : "  result";
  words += Format(": %d", call.result);
  return words;
}

}  // namespace panelora::trace
