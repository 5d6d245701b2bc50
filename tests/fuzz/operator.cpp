#include "tests/fuzz/operator.h"

#include <algorithm>

#include "app/navigation.h"
#include "res/dialog_templates.h"

namespace panelora::fuzz {

namespace {

using memory::MemoryControl;
using memory::MemoryDialog;

// Every model that some page treats otherwise than the rest, and some that no page knows.
// The first are those with the most to set.
constexpr int kTypes[] = {26, 26, 26, 13, 13, 15, 15, 51, 51, 24, 24, 25, 25, 29, 29, 34, 14,
                          50, 39, 20, 30, 33, 5,  6,  7,  17, 18, 19, 21, 23, 27, 32, 35, 36,
                          37, 38, 40, 42, 43, 46, 47, 48, 49, 52, 53, 54, 55, 0,  99, 254};
constexpr int kBrands[] = {0, 0, 0, 1, 2, 2, 3, 4, 8, 9, 12, 255};
// On both sides of every firmware at which something changes.
constexpr int kFirmwares[] = {0x0126, 0x0112, 0,   261, 262, 264, 265, 273, 274, 277,
                              278,    280,    281, 288, 289, 290, 292, 293, 294, 0xFFFF};
constexpr const char* kTexts[] = {"",
                                  "0",
                                  "1",
                                  "12",
                                  "255",
                                  "256",
                                  "1080",
                                  "4095",
                                  "65535",
                                  "65536",
                                  "99999",
                                  "-1",
                                  "+7",
                                  " 12",
                                  "1 2",
                                  "12abc",
                                  "abc",
                                  "0x10",
                                  "-",
                                  "--5",
                                  "2147483647",
                                  "99999999999999999999",
                                  "\xE4\xF6\xFC\xFF",
                                  "\t1",
                                  "CAM 1",
                                  "a label that is longer than any box can hold"};

template <class T, std::size_t size>
T OneOf(Choices& choices, const T (&all)[size]) {
  return all[choices.Below(static_cast<int>(size))];
}

// Everything that a hand could reach now.
Steps Reachable(FuzzPanel& panel) {
  Steps steps;
  for (const ui::DialogTemplate& dialog : res::Dialogs()) {
    const MemoryDialog* open = panel.Toolkit().Find(dialog.number);
    if (open == nullptr || !open->IsShown()) continue;
    for (const ui::ControlTemplate& control : dialog.controls) {
      const MemoryControl& state = *open->Find(control.id);
      if (!state.shown || !state.enabled) continue;
      Step step{.act = Act::kPress, .dialog = dialog.number, .control = control.id};
      switch (control.kind) {
        case ui::ControlKind::kSlider:
          step.act = Act::kDrag;
          break;
        case ui::ControlKind::kEdit:
          step.act = Act::kType;
          break;
        case ui::ControlKind::kCombo:
          step.act = Act::kChoose;
          break;
        case ui::ControlKind::kButton:
        case ui::ControlKind::kDefaultButton:
        case ui::ControlKind::kPictureButton:
          break;
        default:
          continue;
      }
      steps.push_back(step);
    }
  }
  return steps;
}

int SliderPosition(Choices& choices, const MemoryControl& slider) {
  const int range = slider.maximum - slider.minimum;
  switch (choices.Below(5)) {
    case 0:
      return slider.minimum;
    case 1:
      return slider.maximum;
    case 2:
      return slider.position;
    default:
      return slider.minimum + choices.Below(range + 1);
  }
}

std::string TypedText(Choices& choices) {
  if (choices.Below(3) > 0) return OneOf(choices, kTexts);
  std::string text;
  const int length = choices.Below(24);
  for (int i = 0; i < length; ++i) text += static_cast<char>(32 + choices.Below(224));
  return text;
}

Step Become(Choices& choices) {
  return {.act = Act::kBecome,
          .numbers = {OneOf(choices, kTypes), OneOf(choices, kBrands), choices.Below(5),
                      choices.Below(2), choices.Below(2), OneOf(choices, kFirmwares)}};
}

// What pages are laid out by: half of the time the display mode, whose last ones have insets; else
// PIP option and format, input, pass-through, image aspect, genlock lock and mode.
Step Turn(Choices& choices) {
  constexpr std::pair<int, int> kKnobs[] = {{0, 1},  {0, 5},  {0, 6}, {0, 4}, {0, 17},
                                            {0, 11}, {1, 1},  {1, 5}, {1, 6}, {1, 3},
                                            {1, 15}, {1, 26}, {1, 38}};
  constexpr int kModes[] = {4, 5, 6, 6, 6, 7, 9};
  Step step{.act = Act::kTurn, .numbers = {1, 1, 0, OneOf(choices, kModes)}};
  if (choices.Below(2) == 0) return step;
  const auto [kind, number] = OneOf(choices, kKnobs);
  const bool large = choices.Below(4) == 0;
  step.numbers = {kind, number, choices.Below(4), choices.Below(large ? 256 : 10)};
  return step;
}

// What stands in the room but is not on the screen: the box, the cable, the clock.
Step AroundThePanel(Choices& choices) {
  Step step;
  switch (choices.Below(12)) {
    case 0:
      step.act = Act::kUnplug;
      break;
    case 1:
    case 2:
      step.act = Act::kPlug;
      break;
    case 3:
      return Become(choices);
    case 4:
      return Turn(choices);
    case 5:
    case 6:
      step.act = Act::kMood;
      // Half of the time the box is well.
      step.numbers = {choices.Below(2) == 0 ? 0 : choices.Below(kMoods), 1 + choices.Below(65535)};
      break;
    default:
      step.act = Act::kTick;
      break;
  }
  return step;
}

}  // namespace

int ByteChoices::Below(int bound) {
  const auto next = [&] {
    if (left == 0) return 0;
    --left;
    return static_cast<int>(*bytes++);
  };
  const int number = bound > 256 ? next() * 256 + next() : next();
  return number % bound;
}

// A box is told apart when it comes back: as long as ticks are skipped nothing is seen of it.
void Operator::ReplugAsAnother() {
  const Step tick{.act = Act::kTick};
  // Behind the Video menu there are more pages than elsewhere.
  if (choices.Below(2) == 0) {
    planned.push_back({.act = Act::kPress, .dialog = res::kMain, .control = kVideoButton});
  }
  planned.insert(planned.end(), 6, tick);
  planned.push_back({.act = Act::kPlug});
  for (int turns = choices.Below(4); turns > 0; --turns) planned.push_back(Turn(choices));
  planned.push_back(Become(choices));
  planned.insert(planned.end(), 6, tick);
  planned.push_back({.act = Act::kUnplug});
}

Step Operator::Choose(FuzzPanel& panel) {
  if (planned.empty() && choices.Below(80) == 0) ReplugAsAnother();
  if (!planned.empty()) {
    const Step step = planned.back();
    planned.pop_back();
    // A tick that would only be one more is no use.
    const bool idle = step.act == Act::kTick && !planned.empty() &&
                      planned.back().act == Act::kTick && panel.Main().Panel().tickSkip == 0;
    if (!idle) return step;
  }
  const int kind = choices.Below(64);
  if (kind < 10) return AroundThePanel(choices);
  if (kind == 10) return {.act = Act::kPageTick};
  if (kind == 11) return {.act = Act::kAbout};
  if (kind == 12) {
    const PageCode page = panel.Main().CurrentPage();
    return {.act = Act::kRepaint, .dialog = choices.Below(2) == 0 ? res::kMain : DialogOf(page)};
  }
  const Steps reachable = Reachable(panel);
  if (reachable.empty()) return {.act = Act::kTick};
  Step step =
      reachable[static_cast<std::size_t>(choices.Below(static_cast<int>(reachable.size())))];
  const MemoryControl& control = *panel.Toolkit().Find(step.dialog)->Find(step.control);
  switch (kind) {
    case 13:
    case 14:
      step.act = Act::kEnter;
      return step;
    case 15:
      step.act = Act::kEscape;
      return step;
    case 62:
      step.act = Act::kKey;
      step.numbers[0] = static_cast<int>(ui::Key::kBack) + choices.Below(4);
      return step;
    case 16:
    case 17:
      step.act = Act::kMouse;
      return step;
    case 18:
    case 19:
    case 20:
    case 21:
    case 22:
    case 23:
      if (step.act == Act::kPress) step.act = Act::kClick;
      break;
    default:
      break;
  }
  switch (step.act) {
    case Act::kDrag:
      if (choices.Below(2) == 0) {
        step.act = Act::kRelease;
      } else {
        step.numbers[0] = SliderPosition(choices, control);
      }
      break;
    case Act::kType:
      step.text = TypedText(choices);
      break;
    case Act::kChoose:
      step.numbers[0] = choices.Below(std::max<int>(static_cast<int>(control.items.size()), 1));
      break;
    default:
      break;
  }
  return step;
}

std::optional<Breach> Operate(Choices& choices, int steps, Steps& done) {
  FuzzPanel panel;
  Operator hand(choices);
  while (static_cast<int>(done.size()) < steps && !choices.IsEmpty()) {
    const Step step = hand.Choose(panel);
    if (!panel.CanDo(step)) continue;
    done.push_back(step);
    panel.Do(done.back());
    if (!panel.Broken().empty()) return Breach{done.size(), panel.Broken()};
  }
  return std::nullopt;
}

}  // namespace panelora::fuzz
