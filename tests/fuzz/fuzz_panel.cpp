#include "tests/fuzz/fuzz_panel.h"

#include <algorithm>
#include <array>
#include <map>
#include <numeric>
#include <unordered_set>

#include "app/navigation.h"
#include "base/text.h"
#include "res/dialog_templates.h"
#include "tests/fuzz/captions.h"
#include "tests/fuzz/rules.h"

namespace panelora::fuzz {

namespace {

using memory::MemoryControl;
using memory::MemoryDialog;

constexpr int kMonitorTimer = 1;
constexpr int kPageTimer = 1;
constexpr int kMonitorPeriod = 3000;  // ms
constexpr int kGreatestSkip = 5;
constexpr int kAboutCommand = 16;

bool IsButton(ui::ControlKind kind) {
  return kind == ui::ControlKind::kButton || kind == ui::ControlKind::kDefaultButton ||
         kind == ui::ControlKind::kPictureButton;
}

bool IsCaption(ui::ControlKind kind) {
  return kind == ui::ControlKind::kLabel || kind == ui::ControlKind::kGroup || IsButton(kind);
}

// The texts of every control when the program has just started: what no rule speaks of stays so.
const std::map<std::pair<int, int>, std::string>& FirstTexts() {
  static const auto texts = [] {
    std::map<std::pair<int, int>, std::string> all;
    FuzzPanel panel;
    for (const ui::DialogTemplate& dialog : res::Dialogs()) {
      const MemoryDialog* open = panel.Toolkit().Find(dialog.number);
      for (const ui::ControlTemplate& control : dialog.controls) {
        if (open != nullptr) all[{dialog.number, control.id}] = open->Text(control.id);
      }
    }
    return all;
  }();
  return texts;
}

// By the button, or by the timer of the page that reads again while its format settles.
bool IsRefresh(const Step& step) {
  if (step.act == Act::kPageTick) return true;
  if (step.act == Act::kKey) return static_cast<ui::Key>(step.numbers[0]) == ui::Key::kRefresh;
  const bool presses =
      step.act == Act::kPress || step.act == Act::kClick || step.act == Act::kEnter;
  return presses && step.dialog == res::kMain &&
         (step.control == kRefreshButton || step.control == kPictureButton);
}

}  // namespace

int DialogOf(PageCode page) {
  constexpr int kDialogs[] = {
      res::kInformation, res::kVideoMenu,   res::kAudio,         res::kProcAmp, res::kSetting,
      res::kTvWall,      res::kDisplayMode, res::kVideoSettings, res::kPip,     res::kGenlock,
      res::kImageAdjust, res::kRoi,         res::kTextLabels};
  return kDialogs[static_cast<int>(page)];
}

std::span<const std::uint8_t> EveryBoxType() {
  static const auto types = [] {
    std::array<std::uint8_t, 255> all{};
    std::iota(all.begin(), all.end(), std::uint8_t{0});
    return all;
  }();
  return types;
}

bool Surroundings::Do(const Step& step) {
  switch (step.act) {
    case Act::kTick:
      now += kMonitorPeriod;
      return false;
    case Act::kUnplug:
      model.SetPresent(false);
      return true;
    case Act::kPlug:
      model.SetPresent(true);
      return true;
    case Act::kTurn: {
      const auto value = static_cast<std::uint8_t>(step.numbers[3]);
      if (step.numbers[0] == 0) {
        model.Word(static_cast<std::uint32_t>(step.numbers[1]))[0] = value;
        return true;
      }
      auto& bytes = model.Block(static_cast<std::uint8_t>(step.numbers[1]));
      const auto at = static_cast<std::size_t>(step.numbers[2]);
      if (at < bytes.size()) bytes[at] = value;
      return true;
    }
    case Act::kBecome: {
      const auto byte = [&](std::size_t i) { return static_cast<std::uint8_t>(step.numbers[i]); };
      model.Become({byte(0), byte(1), byte(2), byte(3), byte(4)},
                   static_cast<std::uint32_t>(step.numbers[5]));
      return true;
    }
    case Act::kMood:
      box.SetMood(static_cast<Mood>(step.numbers[0]), static_cast<std::uint32_t>(step.numbers[1]));
      return true;
    default:
      return false;
  }
}

FuzzPanel::FuzzPanel() : panel(room.Box(), toolkit, EveryBoxType()) {
  panel.Init();
  panel.Show();
  for (int page = res::kInformation; page <= res::kTextLabels; ++page) {
    pages.push_back(toolkit.Find(page));
  }
  Settle();
  room.Box().TakeCalls();
  identitiesOfPage = {panel.Panel().identity};
}

FuzzPanel::~FuzzPanel() = default;

Situation FuzzPanel::Now() const {
  const PanelState& state = panel.Panel();
  return {.connected = panel.IsConnected(),
          .page = panel.CurrentPage(),
          .identity = state.identity,
          .firmware = state.firmwareVersion,
          .cycleState = state.cycleState,
          .tickSkip = state.tickSkip,
          .wallSize = static_cast<int>(state.wallSize),
          .focus = toolkit.Find(res::kMain)->FocusedControl()};
}

// The button of the window that a key stands for; 0 = the step is no key, or the button is not
// there.
int FuzzPanel::PressedByKey(const Step& step) const {
  if (step.act != Act::kKey) return 0;
  const MemoryDialog& window = *toolkit.Find(res::kMain);
  const auto ifShown = [&](int button) { return window.Find(button)->shown ? button : 0; };
  switch (static_cast<ui::Key>(step.numbers[0])) {
    case ui::Key::kBack:
      return ifShown(kReturnButton);
    case ui::Key::kApply:
      return ifShown(kApplyButton);
    case ui::Key::kNextPage:
      return ifShown(kPageUpButton);
    case ui::Key::kHelp:
      return 0;
    default:
      return ifShown(kRefreshButton) != 0 ? kRefreshButton : kPictureButton;
  }
}

bool FuzzPanel::CanDo(const Step& step) const {
  if (step.act == Act::kPageTick) {
    const MemoryDialog* page = toolkit.Find(res::kVideoSettings);
    return page != nullptr && page->Timers().contains(kPageTimer);
  }
  if (step.act == Act::kRepaint) return toolkit.Find(step.dialog) != nullptr;
  if (step.act >= Act::kTick) return true;
  const MemoryDialog* dialog = toolkit.Find(step.dialog);
  const MemoryControl* control = dialog == nullptr ? nullptr : dialog->Find(step.control);
  if (control == nullptr || !dialog->IsShown() || !control->shown || !control->enabled) {
    return false;
  }
  switch (step.act) {
    case Act::kPress:
    case Act::kClick:
      return IsButton(control->kind);
    case Act::kDrag:
    case Act::kRelease:
      return control->kind == ui::ControlKind::kSlider;
    case Act::kType:
      return control->kind == ui::ControlKind::kEdit;
    case Act::kChoose:
      return control->kind == ui::ControlKind::kCombo &&
             step.numbers[0] < static_cast<int>(control->items.size());
    default:
      return !IsCaption(control->kind) || IsButton(control->kind);
  }
}

void FuzzPanel::Settle() {
  for (MemoryDialog* page : pages) {
    if (page->IsShown()) page->Paint();
  }
}

void FuzzPanel::Do(const Step& step) {
  broken.clear();
  calls.clear();
  if (!CanDo(step)) return;
  Situation before = Now();
  before.keyPresses = PressedByKey(step);
  if (IsRefresh(step)) textsBefore = KeptTexts(before);
  Act(step);
  Settle();
  calls = room.Box().TakeCalls();
  Check(step, before);
  toolkit.debugOutput.clear();
}

void FuzzPanel::Act(const Step& step) {
  if (room.Do(step)) return;
  MemoryDialog* dialog = toolkit.Find(step.dialog);
  switch (step.act) {
    case Act::kPress:
      dialog->Press(step.control);
      break;
    case Act::kMouse:
      dialog->PressMouse(step.control);
      break;
    case Act::kClick:
      dialog->PressMouse(step.control);
      dialog->Press(step.control);
      break;
    case Act::kDrag:
      dialog->Drag(step.control, step.numbers[0]);
      break;
    case Act::kRelease:
      dialog->Release(step.control);
      break;
    case Act::kType:
      dialog->Type(step.control, step.text);
      break;
    case Act::kChoose:
      dialog->Choose(step.control, step.numbers[0]);
      break;
    case Act::kEnter: {
      const bool button = IsButton(dialog->Find(step.control)->kind);
      if (!dialog->PressKey(step.control, ui::Key::kEnter) && button) dialog->Press(step.control);
      break;
    }
    case Act::kEscape:
      dialog->PressKey(step.control, ui::Key::kEscape);
      break;
    case Act::kKey:
      dialog->PressKey(step.control, static_cast<ui::Key>(step.numbers[0]));
      break;
    case Act::kTick:
      toolkit.Find(res::kMain)->Tick(kMonitorTimer);
      break;
    case Act::kPageTick:
      toolkit.Find(res::kVideoSettings)->Tick(kPageTimer);
      break;
    case Act::kRepaint:
      dialog->Uncover();
      break;
    case Act::kAbout:
      toolkit.onModal = [this] {
        if (MemoryDialog* about = toolkit.Find(res::kAbout)) about->RequestClose();
      };
      toolkit.Find(res::kMain)->ChooseSystemMenu(kAboutCommand);
      toolkit.onModal = nullptr;
      break;
    default:
      break;
  }
}

void FuzzPanel::Break(const std::string& what) {
  if (broken.empty()) broken = what;
}

void FuzzPanel::Check(const Step& step, const Situation& before) {
  const MemoryDialog* window = toolkit.Find(res::kMain);
  if (window == nullptr || !window->IsShown()) {
    Break("the window is gone");
    return;
  }
  const auto timer = window->Timers().find(kMonitorTimer);
  if (timer == window->Timers().end() || timer->second != kMonitorPeriod) {
    Break("the monitor does not run");
  }
  if (panel.Panel().tickSkip > kGreatestSkip) Break("more ticks are skipped than any button asks");
  if (toolkit.timersLeftRunning > 0) Break("a window that went left a timer running");
  CheckWrites(step, before);
  CheckOpens(step, before);
  NoteIdentity(before);
  CheckPagesAndButtons();
  CheckCaptions();
  CheckFocus();
  if (IsRefresh(step)) CheckKeptTexts(step, before);
}

void FuzzPanel::CheckWrites(const Step& step, const Situation& before) {
  std::vector<Call> writes;
  for (const Call& call : calls) {
    if (call.IsWrite()) writes.push_back(call);
  }
  const std::string wrong = Compare(writes, WritesOf(step, before));
  if (!wrong.empty()) Break(wrong);
}

// One with every tick that is not skipped, before anything else, and none besides.
void FuzzPanel::CheckOpens(const Step& step, const Situation& before) {
  const auto opens = std::count_if(calls.begin(), calls.end(), [](const Call& call) {
    return call.operation == Call::Operation::kOpen;
  });
  if (step.act != Act::kTick) {
    if (opens != 0) Break("the device was opened without a tick");
    return;
  }
  if (before.tickSkip > 0) {
    if (!calls.empty()) Break("a tick that is skipped asked the box");
    if (panel.Panel().tickSkip != before.tickSkip - 1) Break("a skipped tick was not counted");
    return;
  }
  if (opens != 1 || calls.front().operation != Call::Operation::kOpen) {
    Break("a tick opened the device other than once");
  }
}

void FuzzPanel::NoteIdentity(const Situation& before) {
  const Situation after = Now();
  if (before.page != after.page || before.connected != after.connected) identitiesOfPage.clear();
  auto& all = identitiesOfPage;
  if (std::find(all.begin(), all.end(), after.identity) == all.end()) all.push_back(after.identity);
}

void FuzzPanel::CheckPagesAndButtons() {
  std::vector<int> shown;
  for (const MemoryDialog* page : pages) {
    if (page->IsShown()) shown.push_back(page->Number());
  }
  std::vector<int> wanted;
  if (panel.IsConnected()) wanted.push_back(DialogOf(panel.CurrentPage()));
  if (shown != wanted) {
    std::string text = "shown pages:";
    for (const int page : shown) text += Format(" %d", page);
    Break(text);
  }
  std::set<int> buttons;
  const MemoryDialog& window = *toolkit.Find(res::kMain);
  for (const NavigationButton& button : kNavigationButtons) {
    if (window.Find(button.control)->shown) buttons.insert(button.control);
  }
  const bool stated =
      std::any_of(identitiesOfPage.begin(), identitiesOfPage.end(), [&](const Identity& identity) {
        Situation situation = Now();
        situation.identity = identity;
        return ButtonSetsOf(situation).contains(buttons);
      });
  if (!stated) {
    std::string text = "shown buttons:";
    for (const int button : buttons) text += Format(" %d", button);
    Break(text);
  }
}

void FuzzPanel::CheckCaptions() {
  // What was found right before need not be looked up again.
  static std::map<std::pair<int, int>, std::unordered_set<std::string>> known;
  for (const ui::DialogTemplate& dialog : res::Dialogs()) {
    const MemoryDialog* open = toolkit.Find(dialog.number);
    if (open == nullptr || !open->IsShown()) continue;
    for (const ui::ControlTemplate& control : dialog.controls) {
      const MemoryControl& state = *open->Find(control.id);
      if (!state.shown) continue;
      if (control.kind == ui::ControlKind::kSlider &&
          (state.position < state.minimum || state.position > state.maximum)) {
        Break(Format("slider %d of %d stands outside", control.id, dialog.number));
      }
      if (!IsCaption(control.kind)) continue;
      const std::pair key(dialog.number, control.id);
      auto& texts = known[key];
      if (texts.contains(state.text)) continue;
      const auto first = FirstTexts().find(key);
      const bool same =
          first == FirstTexts().end() ? state.text == control.text : state.text == first->second;
      if (!same && !MayRead(dialog.number, control.id, state.text)) {
        Break(
            Format("control %d of %d reads \"%s\"", control.id, dialog.number, state.text.c_str()));
        return;
      }
      texts.insert(state.text);
    }
  }
}

// On a control that can be seen and used, or on the window itself.
void FuzzPanel::CheckFocus() {
  const auto [number, control] = toolkit.Find(res::kMain)->FocusedControl();
  if (control == 0) {
    if (number != res::kMain && number != 0) Break("the focus is on a page that takes no keys");
    return;
  }
  const MemoryDialog* dialog = toolkit.Find(number);
  const MemoryControl* state = dialog == nullptr ? nullptr : dialog->Find(control);
  if (state == nullptr || !dialog->IsShown() || !state->shown || !state->enabled) {
    Break(Format("the focus is on control %d of %d", control, number));
  }
}

// Of the page that stands, in the order of its template; a line feed behind a number is not seen.
// No edits: what was typed and not applied makes place for the page's own numbers.
std::vector<std::string> FuzzPanel::KeptTexts(const Situation& situation) {
  std::vector<std::string> texts;
  const int number = DialogOf(situation.page);
  const MemoryDialog* page = toolkit.Find(number);
  for (const ui::ControlTemplate& control : res::FindDialog(number)->controls) {
    if (!IsCaption(control.kind) || !page->Find(control.id)->shown) continue;
    if (ChangesOnFailure(number, control.id, situation.identity)) continue;
    std::string text = page->Text(control.id);
    if (!text.empty() && text.back() == '\n') text.pop_back();
    texts.push_back(text);
  }
  return texts;
}

void FuzzPanel::CheckKeptTexts(const Step& /*step*/, const Situation& before) {
  const bool read = std::any_of(calls.begin(), calls.end(),
                                [](const Call& call) { return call.IsRead() && call.Succeeded(); });
  const bool another = identitiesOfPage.size() > 1;  // whose page is laid out anew
  if (!read && !another && KeptTexts(before) != textsBefore)
    Break("a failed refresh changed a text");
}

std::optional<Breach> Replay(const Steps& steps) {
  FuzzPanel panel;
  for (std::size_t i = 0; i < steps.size(); ++i) {
    panel.Do(steps[i]);
    if (!panel.Broken().empty()) return Breach{i + 1, panel.Broken()};
  }
  return std::nullopt;
}

// Leaves out ever smaller pieces, until no single step can be missed.
Steps Shorten(Steps steps, const std::function<std::optional<Breach>(const Steps&)>& replay) {
  if (const auto breach = replay(steps)) steps.resize(breach->steps);
  for (std::size_t piece = steps.size() / 2;;) {
    piece = std::max<std::size_t>(std::min(piece, steps.size()), 1);
    bool shorter = false;
    for (std::size_t from = 0; from < steps.size();) {
      Steps rest = steps;
      const auto first = rest.begin() + static_cast<std::ptrdiff_t>(from);
      rest.erase(first, first + static_cast<std::ptrdiff_t>(std::min(piece, rest.size() - from)));
      if (const auto breach = replay(rest)) {
        rest.resize(breach->steps);
        steps = std::move(rest);
        shorter = true;
      } else {
        from += piece;
      }
    }
    if (shorter) continue;
    if (piece == 1) return steps;
    piece /= 2;
  }
}

std::string Report(const Breach& breach, const Steps& shortened) {
  return breach.what + "\nThe steps, to be kept in tests/fuzz/replays:\n" + TextOf(shortened);
}

}  // namespace panelora::fuzz
