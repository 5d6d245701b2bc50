#include "boxbench/fault_form.h"

#include <algorithm>
#include <limits>

#include "base/text.h"
#include "catalogue/describe.h"

namespace panelora::boxbench {

namespace {

using simulator::Faults;

std::string OrdinalOf(std::uint32_t number) {
  const std::uint32_t ones = number % 10;
  const bool isTeen = number / 10 % 10 == 1;
  const char* ending = "th";
  if (!isTeen && ones == 1) ending = "st";
  if (!isTeen && ones == 2) ending = "nd";
  if (!isTeen && ones == 3) ending = "rd";
  return CountText(number) + ending;
}

std::string KindsOf(const Faults& faults) {
  if (faults.reads && faults.writes && faults.opens) return "call";
  std::string text;
  const auto add = [&text](bool isMeant, const char* name) {
    if (isMeant) text += (text.empty() ? "" : " or ") + std::string(name);
  };
  add(faults.reads, "read");
  add(faults.writes, "write");
  add(faults.opens, "open");
  return text;
}

std::string AnswerOf(const Faults& faults) {
  switch (faults.answer) {
    case Faults::Answer::kFailure:
      return "fails";
    case Faults::Answer::kResult:
      return Format("is answered with result %d", faults.result);
    case Faults::Answer::kRandom:
      return "is answered with random bytes";
  }
  return "";
}

bool GoesWrong(const Faults& faults) {
  return faults.every != 0 && (faults.reads || faults.writes || faults.opens);
}

std::optional<std::int32_t> ParseResult(const std::string& text) {
  const std::string tidied = Tidied(text);
  const bool isNegative = tidied.starts_with('-');
  const auto size =
      ParseWhole(isNegative ? tidied.substr(1) : tidied, std::numeric_limits<std::int32_t>::max());
  if (!size) return std::nullopt;
  const auto number = static_cast<std::int32_t>(*size);
  return isNegative ? -number : number;
}

}  // namespace

Typed<Faults> FaultsOf(const FaultForm& form) {
  constexpr std::uint32_t kMostNth = 1000000;
  Faults faults{};
  if (form.how == FaultForm::kEveryCall) faults.every = 1;
  if (form.how == FaultForm::kEveryNth) {
    const auto nth = ParseWhole(form.nth, kMostNth);
    if (!nth || *nth == 0) return {{}, "every how many calls: type a number from 1 to 1000000"};
    faults.every = *nth;
  }
  if (form.how != FaultForm::kNever && !form.reads && !form.writes && !form.opens) {
    return {{}, "no call goes wrong: tick reads, writes or opens"};
  }
  faults.reads = form.reads;
  faults.writes = form.writes;
  faults.opens = form.opens;
  faults.oneAddress = form.only.has_value();
  if (form.only) faults.address = *form.only;
  faults.answer = static_cast<Faults::Answer>(std::clamp(form.answer, 0, 2));
  if (faults.answer == Faults::Answer::kResult) {
    const auto result = ParseResult(form.result);
    if (!result) return {{}, "the result is a whole number, like 2 or -1"};
    faults.result = *result;
  }
  faults.latency = std::min(form.latency, Faults::kMostLatency);
  faults.vanishOnWrite = form.vanishes;
  faults.fillsWhatWasAsked = form.fills;
  return {faults};
}

FaultForm FormOf(const Faults& faults, const FaultForm& before) {
  FaultForm form = before;
  form.how = faults.every == 0   ? FaultForm::kNever
             : faults.every == 1 ? FaultForm::kEveryCall
                                 : FaultForm::kEveryNth;
  // "Every 1st" stays as it was chosen.
  if (faults.every == 1 && before.how == FaultForm::kEveryNth && before.nth == "1") {
    form.how = FaultForm::kEveryNth;
  }
  if (faults.every > 1) form.nth = Format("%u", faults.every);
  if (faults.every != 0) {
    form.reads = faults.reads;
    form.writes = faults.writes;
    form.opens = faults.opens;
    form.only = faults.oneAddress ? std::optional(faults.address) : std::nullopt;
    form.answer = static_cast<int>(faults.answer);
    if (faults.answer == Faults::Answer::kResult) form.result = Format("%d", faults.result);
  }
  form.latency = faults.latency;
  form.vanishes = faults.vanishOnWrite;
  form.fills = faults.fillsWhatWasAsked;
  return form;
}

void Choose(Faults& faults, const Faults& chosen) {
  const Faults before = faults;
  faults = chosen;
  faults.cutUntil = before.cutUntil;
  faults.random = before.random;
}

bool IsSameChoice(const Faults& left, const Faults& right) {
  return left.every == right.every && left.reads == right.reads && left.writes == right.writes &&
         left.opens == right.opens && left.oneAddress == right.oneAddress &&
         (!left.oneAddress || IsSamePlace(left.address, right.address)) &&
         left.answer == right.answer && left.result == right.result &&
         left.latency == right.latency && left.vanishOnWrite == right.vanishOnWrite &&
         left.fillsWhatWasAsked == right.fillsWhatWasAsked;
}

std::string FaultsInWords(const Faults& faults) {
  std::string text;
  const auto add = [&text](const std::string& sentence) {
    text += (text.empty() ? "" : "; ") + sentence;
  };
  if (GoesWrong(faults)) {
    std::string what = faults.every == 1 ? "every " : "every " + OrdinalOf(faults.every) + " ";
    what += KindsOf(faults);
    if (faults.oneAddress) what += " of " + TextOf(faults.address);
    add(what + " " + AnswerOf(faults));
  }
  if (faults.latency != 0) add(Format("every call takes %u ms", faults.latency));
  if (faults.vanishOnWrite) add("the box vanishes on the next write");
  if (faults.fillsWhatWasAsked) add("blocks are answered with FF");
  if (!text.empty() && text[0] == 'e') text[0] = 'E';
  if (!text.empty() && text[0] == 't') text[0] = 'T';
  if (!text.empty() && text[0] == 'b') text[0] = 'B';
  return text;
}

}  // namespace panelora::boxbench
