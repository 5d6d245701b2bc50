#include "tests/fuzz/step.h"

#include <sstream>
#include <stdexcept>

#include "base/text.h"

namespace panelora::fuzz {

namespace {

constexpr const char* kNames[kActs] = {"press", "click",     "mouse",   "drag",   "release",
                                       "type",  "choose",    "enter",   "escape", "key",
                                       "tick",  "page-tick", "repaint", "unplug", "plug",
                                       "turn",  "become",    "mood",    "about"};

// How many numbers of the step count, behind dialog and control.
int NumbersOf(Act act) {
  switch (act) {
    case Act::kDrag:
    case Act::kChoose:
    case Act::kKey:
      return 1;
    case Act::kMood:
      return 2;
    case Act::kTurn:
      return 4;
    case Act::kBecome:
      return 6;
    default:
      return 0;
  }
}

bool HasControl(Act act) { return act < Act::kTick; }
bool HasDialog(Act act) { return HasControl(act) || act == Act::kRepaint; }

}  // namespace

// Typed text stands in hexadecimal: it may be anything.
std::string TextOf(const Step& step) {
  std::string line = kNames[static_cast<int>(step.act)];
  const auto add = [&](int number) { line += Format(" %d", number); };
  if (HasDialog(step.act)) add(step.dialog);
  if (HasControl(step.act)) add(step.control);
  for (int i = 0; i < NumbersOf(step.act); ++i) add(step.numbers[static_cast<std::size_t>(i)]);
  if (step.act == Act::kType) {
    line += " =";
    for (const char byte : step.text) line += Format("%02X", static_cast<unsigned char>(byte));
  }
  return line;
}

std::string TextOf(const Steps& steps) {
  std::string text;
  for (const Step& step : steps) text += TextOf(step) + "\n";
  return text;
}

Steps StepsFrom(const std::string& text) {
  Steps steps;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    if (line.empty() || line[0] == '#') continue;
    const std::runtime_error unknown("no step: " + line);
    std::istringstream words(line);
    std::string name;
    words >> name;
    Step step;
    int act = 0;
    while (act < kActs && name != kNames[act]) ++act;
    if (act == kActs) throw unknown;
    step.act = static_cast<Act>(act);
    if (HasDialog(step.act)) words >> step.dialog;
    if (HasControl(step.act)) words >> step.control;
    for (int i = 0; i < NumbersOf(step.act); ++i)
      words >> step.numbers[static_cast<std::size_t>(i)];
    if (!words) throw unknown;
    if (step.act == Act::kType) {
      std::string typed;
      words >> typed;
      if (typed.empty() || typed[0] != '=' || typed.size() % 2 == 0) throw unknown;
      for (std::size_t i = 1; i < typed.size(); i += 2) {
        step.text += static_cast<char>(std::stoi(typed.substr(i, 2), nullptr, 16));
      }
    }
    steps.push_back(step);
  }
  return steps;
}

}  // namespace panelora::fuzz
