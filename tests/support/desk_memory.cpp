// The desk over the toolkit in memory.
#include <cstdlib>

#include "platform/memory/memory_toolkit.h"
#include "res/dialog_templates.h"
#include "tests/support/desk.h"

namespace panelora::testing {

using memory::MemoryControl;
using memory::MemoryDialog;

struct Desk::Inside {
  memory::MemoryToolkit toolkit;

  MemoryDialog& At(int dialog) {
    MemoryDialog* found = toolkit.Find(dialog);
    if (found == nullptr) std::abort();  // a scenario asks for a dialog that is not open
    return *found;
  }
  const MemoryControl& At(int dialog, int control) {
    const MemoryControl* found = At(dialog).Find(control);
    if (found == nullptr) std::abort();  // a scenario asks for a control that is not there
    return *found;
  }
};

Desk::Desk() : inside(std::make_unique<Inside>()) { inside->toolkit.ports["NUL"] = 7; }
Desk::~Desk() = default;

ui::Toolkit& Desk::Toolkit() { return inside->toolkit; }

void Desk::GiveFocus(int dialog, int control) {
  inside->At(dialog).Focus(control);
  Settle();
}

void Desk::Press(int dialog, int control) {
  inside->At(dialog).Press(control);
  Settle();
}

void Desk::Type(int dialog, int control, std::string_view text) {
  inside->At(dialog).Type(control, text);
}

void Desk::Drag(int dialog, int control, int position) {
  inside->At(dialog).Drag(control, position);
  Settle();
}

void Desk::Release(int dialog, int control) {
  inside->At(dialog).Release(control);
  Settle();
}

void Desk::Choose(int dialog, int control, int index) {
  inside->At(dialog).Choose(control, index);
  Settle();
}

void Desk::PressKey(int dialog, int control, ui::Key key) {
  const ui::ControlKind kind = inside->At(dialog, control).kind;
  const bool isButton = kind == ui::ControlKind::kButton ||
                        kind == ui::ControlKind::kDefaultButton ||
                        kind == ui::ControlKind::kPictureButton;
  const bool consumed = inside->At(dialog).PressKey(control, key);
  if (!consumed && isButton && key == ui::Key::kEnter) Press(dialog, control);
  Settle();
}

ui::Mark Desk::MarkOf(int dialog, int control) { return inside->At(dialog, control).mark; }

void Desk::PressMouse(int dialog, int control) { inside->At(dialog).PressMouse(control); }

void Desk::ChooseSystemMenu(int dialog, int command) {
  inside->At(dialog).ChooseSystemMenu(command);
}

void Desk::RequestClose(int dialog) { inside->At(dialog).RequestClose(); }

void Desk::WhileModal(std::function<void()> action) { inside->toolkit.onModal = std::move(action); }

void Desk::Tick(int dialog, int timer) {
  inside->At(dialog).Tick(timer);
  Settle();
}

void Desk::Settle() {
  for (const ui::DialogTemplate& dialog : res::Dialogs()) {
    if (MemoryDialog* found = inside->toolkit.Find(dialog.number)) found->Paint();
  }
}

void Desk::Repaint(int dialog) {
  inside->At(dialog).Uncover();
  Settle();
}

bool Desk::IsOpen(int dialog) { return inside->toolkit.Find(dialog) != nullptr; }
bool Desk::IsShown(int dialog) { return IsOpen(dialog) && inside->At(dialog).IsShown(); }
std::string Desk::Title(int dialog) { return inside->At(dialog).Title(); }
ui::Rect Desk::PlaceOf(int dialog) { return inside->At(dialog).Client(); }
ui::Point Desk::ScreenPosition(int dialog) { return inside->At(dialog).ScreenPosition(); }

ui::Rect Desk::ClientSize(int dialog) {
  const ui::Rect client = inside->At(dialog).Client();
  return {0, 0, client.width, client.height};
}

std::string Desk::Text(int dialog, int control) { return inside->At(dialog, control).text; }
bool Desk::Shows(int dialog, int control) { return inside->At(dialog, control).shown; }
bool Desk::Enables(int dialog, int control) { return inside->At(dialog, control).enabled; }
ui::Rect Desk::PlaceOf(int dialog, int control) { return inside->At(dialog, control).rect; }

std::string Desk::Picture(int dialog, int control) { return inside->At(dialog, control).upPicture; }

std::string Desk::PressedPicture(int dialog, int control) {
  return inside->At(dialog, control).downPicture;
}

ui::Font Desk::FontOf(int dialog, int control) {
  const MemoryControl& found = inside->At(dialog, control);
  return found.fontSet ? found.font : ui::Font{"", 0};
}

std::pair<int, int> Desk::Focus(int dialog) { return inside->At(dialog).Frame().FocusedControl(); }

int Desk::SliderPosition(int dialog, int control) { return inside->At(dialog, control).position; }

std::pair<int, int> Desk::SliderRange(int dialog, int control) {
  const MemoryControl& found = inside->At(dialog, control);
  return {found.minimum, found.maximum};
}

int Desk::ProgressPosition(int dialog, int control) { return SliderPosition(dialog, control); }

std::pair<int, int> Desk::ProgressRange(int dialog, int control) {
  return SliderRange(dialog, control);
}

std::vector<std::string> Desk::Items(int dialog, int control) {
  return inside->At(dialog, control).items;
}

std::vector<std::pair<int, std::string>> Desk::SystemMenu(int dialog) {
  return inside->At(dialog).SystemMenu();
}

int Desk::TimerPeriod(int dialog, int timer) {
  const auto& timers = inside->At(dialog).Timers();
  const auto found = timers.find(timer);
  return found == timers.end() ? 0 : found->second;
}

int Desk::TimersLeftRunning() { return inside->toolkit.timersLeftRunning; }

std::vector<std::string> Desk::DebugOutput() { return inside->toolkit.debugOutput; }

void Desk::LayGuide(bool there) { inside->toolkit.hasGuide = there; }

int Desk::GuidesOpened() { return inside->toolkit.guidesOpened; }

void Desk::DrawNext(std::vector<int> numbers) {
  auto& all = inside->toolkit.randomNumbers;
  all.insert(all.end(), numbers.begin(), numbers.end());
}

int TriedStep() { return 1; }

}  // namespace panelora::testing
