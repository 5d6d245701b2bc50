#include "platform/memory/memory_toolkit.h"

#include <algorithm>
#include <utility>

#include "res/dialog_templates.h"
#include "ui/reading_order.h"

namespace panelora::memory {

MemoryDialog::MemoryDialog(MemoryToolkit& theToolkit, const ui::DialogTemplate& theSource,
                           ui::DialogEvents& theEvents, MemoryDialog* theParent)
    : toolkit(theToolkit),
      source(theSource),
      events(theEvents),
      parent(theParent),
      rect(ui::PixelsFromUnits(theSource.units)),
      title(theSource.title) {
  for (const ui::ControlTemplate& row : source.controls) {
    MemoryControl control;
    control.kind = row.kind;
    control.text = row.text;
    control.rect = ui::PixelsFromUnits(row.units);
    controls.emplace(row.id, std::move(control));
  }
  toolkit.dialogs.push_back(this);
}

MemoryDialog::~MemoryDialog() {
  Close();
  std::erase(toolkit.dialogs, this);
}

void MemoryDialog::Close() {
  if (!open) return;
  events.OnDestroy();
  open = false;
  toolkit.timersLeftRunning += static_cast<int>(timers.size());
  timers.clear();
  shown = false;
  // Its pages and the windows that it owns go with it.
  for (MemoryDialog* other : std::vector<MemoryDialog*>(toolkit.dialogs)) {
    if (other->parent == this) other->Close();
  }
}

void MemoryDialog::Show(bool nowShown) {
  if (nowShown && !shown) Uncover();
  shown = nowShown;
  if (source.framed) KeepFocusUsable();
}

void MemoryDialog::Place(const ui::Rect& place, int behindParentControl) {
  rect = place;
  behind = behindParentControl;
}

void MemoryDialog::ResizeClient(int width, int height) {
  rect.width = width;
  rect.height = height;
}

void MemoryDialog::PlaceOver(const ui::Dialog& other, ui::Point offset) {
  const ui::Point base = static_cast<const MemoryDialog&>(other).ScreenPosition();
  rect.x = base.x + offset.x;
  rect.y = base.y + offset.y;
}

ui::Point MemoryDialog::ScreenPosition() const {
  if (parent == nullptr || source.framed) return {rect.x, rect.y};
  const ui::Point base = parent->ScreenPosition();
  return {base.x + rect.x, base.y + rect.y};
}

void MemoryDialog::AddSystemMenuItem(int command, std::string_view text) {
  systemMenu.emplace_back(command, text);
}

bool MemoryDialog::StartTimer(int timer, int milliseconds) {
  timers[timer] = milliseconds;
  return true;
}

const MemoryControl* MemoryDialog::Find(int control) const {
  const auto found = controls.find(control);
  return found == controls.end() ? nullptr : &found->second;
}

MemoryControl* MemoryDialog::FindForChange(int control) {
  const auto found = controls.find(control);
  return found == controls.end() ? nullptr : &found->second;
}

std::string MemoryDialog::Text(int control) const {
  const MemoryControl* found = Find(control);
  return found != nullptr ? found->text : std::string();
}

void MemoryDialog::SetText(int control, std::string_view text) {
  if (MemoryControl* found = FindForChange(control)) found->text = text;
}

void MemoryDialog::ShowControl(int control, bool nowShown) {
  MemoryControl* found = FindForChange(control);
  if (found == nullptr) return;
  if (nowShown && !found->shown) found->needsPaint = true;
  found->shown = nowShown;
}

void MemoryDialog::EnableControl(int control, bool enabled) {
  if (MemoryControl* found = FindForChange(control)) found->enabled = enabled;
}

void MemoryDialog::PlaceControl(int control, const ui::Rect& place) {
  if (MemoryControl* found = FindForChange(control)) found->rect = place;
}

void MemoryDialog::SetFont(int control, const ui::Font& font) {
  if (MemoryControl* found = FindForChange(control)) {
    found->font = font;
    found->fontSet = true;
  }
}

void MemoryDialog::SetMark(int control, ui::Mark mark) {
  if (MemoryControl* found = FindForChange(control)) found->mark = mark;
}

bool MemoryDialog::PressIfShown(int control) {
  if (!IsUsable(control)) return false;
  events.OnCommand(control, ui::Notification::kClicked);
  return true;
}

bool MemoryDialog::Focus(int control) {
  if (!TakesFocus(Find(control)) || !IsUsable(control)) return false;
  Frame().MoveFocus({Number(), control});
  return true;
}

bool MemoryDialog::FocusFirst() {
  for (const TabStop& stop : TabStops()) {
    if (stop.dialog->IsUsable(stop.control)) return Focus(stop.control);
  }
  return false;
}

void MemoryDialog::SetPictures(int control, std::string_view up, std::string_view down) {
  if (MemoryControl* found = FindForChange(control)) {
    found->upPicture = up;
    found->downPicture = down;
  }
}

void MemoryDialog::SetTextLimit(int control, int characters) {
  if (MemoryControl* found = FindForChange(control)) found->textLimit = characters;
}

void MemoryDialog::SetSliderRange(int control, int minimum, int maximum) {
  if (MemoryControl* found = FindForChange(control)) {
    found->minimum = minimum;
    found->maximum = std::max(minimum, maximum);
    SetSliderPosition(control, found->position);
  }
}

void MemoryDialog::SetSliderPosition(int control, int position) {
  if (MemoryControl* found = FindForChange(control)) {
    const int before = found->position;
    found->position = std::clamp(position, found->minimum, found->maximum);
    if (found->position != before) found->needsPaint = true;
  }
}

int MemoryDialog::SliderPosition(int control) const {
  const MemoryControl* found = Find(control);
  return found != nullptr ? found->position : 0;
}

void MemoryDialog::SetProgressRange(int control, int minimum, int maximum) {
  SetSliderRange(control, minimum, maximum);
}

void MemoryDialog::SetProgressPosition(int control, int position) {
  SetSliderPosition(control, position);
}

void MemoryDialog::ClearItems(int control) {
  if (MemoryControl* found = FindForChange(control)) {
    found->items.clear();
    found->selected = -1;
  }
}

void MemoryDialog::AddItem(int control, std::string_view text) {
  if (MemoryControl* found = FindForChange(control)) found->items.emplace_back(text);
}

void MemoryDialog::SelectItem(int control, int index) {
  if (MemoryControl* found = FindForChange(control)) {
    const bool exists = index >= 0 && index < static_cast<int>(found->items.size());
    found->selected = exists ? index : -1;
  }
}

int MemoryDialog::SelectedItem(int control) const {
  const MemoryControl* found = Find(control);
  return found != nullptr ? found->selected : -1;
}

std::string MemoryDialog::ItemText(int control, int index) const {
  const MemoryControl* found = Find(control);
  if (found == nullptr || index < 0 || index >= static_cast<int>(found->items.size())) return "";
  return found->items[static_cast<std::size_t>(index)];
}

bool MemoryDialog::IsVisible() const {
  return open && shown && (parent == nullptr || source.framed || parent->IsVisible());
}

// Whether Tab stops at the control, when it can be seen and used.
bool MemoryDialog::TakesFocus(const MemoryControl* control) const {
  if (control == nullptr) return false;
  switch (control->kind) {
    case ui::ControlKind::kButton:
    case ui::ControlKind::kDefaultButton:
    case ui::ControlKind::kPictureButton:
    case ui::ControlKind::kEdit:
    case ui::ControlKind::kSlider:
    case ui::ControlKind::kCombo:
      return true;
    default:
      return false;
  }
}

bool MemoryDialog::TakesInput(const MemoryControl* control) const {
  return control != nullptr && open && control->enabled;
}

bool MemoryDialog::IsUsable(int control) const {
  const MemoryControl* found = Find(control);
  return TakesInput(found) && found->shown && IsVisible();
}

// The controls at which Tab stops, and the one from which the focus is lost, in the order of Tab:
// as the eye goes over the window, then over its pages, the one placed last in front.
std::vector<MemoryDialog::TabStop> MemoryDialog::TabStops() const {
  std::vector<int> found;
  std::vector<ui::Rect> places;
  for (const ui::ControlTemplate& row : source.controls) {
    const bool isLost = Frame().focus == std::pair(Number(), row.id);
    if (!TakesFocus(Find(row.id)) || (!IsUsable(row.id) && !isLost)) continue;
    found.push_back(row.id);
    places.push_back(Find(row.id)->rect);
  }
  std::vector<TabStop> stops;
  for (const std::size_t each : ui::ReadingOrder(places)) stops.push_back({this, found[each]});
  for (auto page = toolkit.dialogs.rbegin(); page != toolkit.dialogs.rend(); ++page) {
    if ((*page)->parent != this || (*page)->source.framed) continue;
    const std::vector<TabStop> own = (*page)->TabStops();
    stops.insert(stops.end(), own.begin(), own.end());
  }
  return stops;
}

// Where the focus goes from a control that can't keep it: see tab_order.h of the real windows.
void MemoryDialog::KeepFocusUsable() {
  MemoryDialog& frame = Frame();
  if (!frame.IsVisible()) return;
  const MemoryDialog* owner = toolkit.Find(frame.focus.first);
  if (owner != nullptr && owner->IsUsable(frame.focus.second)) return;
  std::vector<TabStop> stops = frame.TabStops();
  const auto from = std::find_if(stops.begin(), stops.end(), [&](const TabStop& stop) {
    return std::pair(stop.dialog->Number(), stop.control) == frame.focus;
  });
  const std::vector<TabStop> inOrder = stops;
  if (from != stops.end()) std::rotate(stops.begin(), from, stops.end());
  const auto giveTo = [&](const std::vector<TabStop>& among, const auto& wanted) {
    for (const TabStop& stop : among) {
      if (!stop.dialog->IsUsable(stop.control) || !wanted(stop)) continue;
      frame.MoveFocus({stop.dialog->Number(), stop.control});
      return true;
    }
    return false;
  };
  const int page = frame.focus.first;
  if (giveTo(stops, [&](const TabStop& stop) { return stop.dialog->Number() == page; })) return;
  if (giveTo(stops, [&](const TabStop& stop) { return stop.dialog != &frame; })) return;
  if (giveTo(inOrder, [](const TabStop&) { return true; })) return;
  frame.MoveFocus({frame.Number(), 0});
}

// A slider shows whether it has the focus.
void MemoryDialog::MoveFocus(std::pair<int, int> to) {
  if (to == focus) return;
  for (const auto& [dialog, control] : {focus, to}) {
    MemoryDialog* owner = toolkit.Find(dialog);
    MemoryControl* found = owner == nullptr ? nullptr : owner->FindForChange(control);
    if (found != nullptr) found->needsPaint = true;
  }
  focus = to;
}

// What shows the focus is painted before anything is typed or pressed there.
void MemoryDialog::FocusAndPaint(int control) {
  if (!Focus(control)) return;
  for (MemoryDialog* dialog : InWindow()) dialog->Paint();
}

void MemoryDialog::Press(int control) {
  if (!TakesInput(Find(control))) return;
  FocusAndPaint(control);
  events.OnCommand(control, ui::Notification::kClicked);
  KeepFocusUsable();
}

void MemoryDialog::Type(int control, std::string_view text) {
  MemoryControl* found = FindForChange(control);
  if (!TakesInput(found)) return;
  FocusAndPaint(control);
  const std::string before = std::exchange(found->text, {});
  for (const char character : text) {
    const bool isControl = static_cast<unsigned char>(character) < ' ' || character == 0x7F;
    if (isControl) continue;  // an edit has no place for them
    if (found->text.size() < static_cast<std::size_t>(found->textLimit)) found->text += character;
  }
  if (found->text != before) events.OnCommand(control, ui::Notification::kTyped);
}

void MemoryDialog::Drag(int control, int position) {
  if (!TakesInput(Find(control))) return;
  SetSliderPosition(control, position);
  Paint();
}

void MemoryDialog::Release(int control) {
  if (TakesInput(Find(control))) events.OnSliderReleased(control);
  KeepFocusUsable();
}

void MemoryDialog::Choose(int control, int index) {
  if (!TakesInput(Find(control))) return;
  SelectItem(control, index);
  events.OnCommand(control, ui::Notification::kSelectionChanged);
  KeepFocusUsable();
}

bool MemoryDialog::PressKey(int control, ui::Key key) {
  if (!IsUsable(control)) return true;  // no key goes to what can't be seen or is disabled
  FocusAndPaint(control);
  const bool consumed = IsOfWindow(key) ? Frame().events.OnKey(key) : events.OnKey(key);
  KeepFocusUsable();
  return consumed;
}

void MemoryDialog::PressMouse(int control) {
  const MemoryControl* found = Find(control);
  if (!TakesInput(found) || !found->shown) return;
  events.OnMousePress(control);
  Focus(control);
  KeepFocusUsable();
}

void MemoryDialog::Tick(int timer) {
  if (open) events.OnTimer(timer);
  KeepFocusUsable();
}

void MemoryDialog::ChooseSystemMenu(int command) { events.OnSystemCommand(command & ~0xF); }

void MemoryDialog::RequestClose() { events.OnCloseRequest(); }

void MemoryDialog::Uncover() {
  for (MemoryDialog* dialog : source.framed ? InWindow() : std::vector{this}) {
    for (auto& [id, control] : dialog->controls) control.needsPaint = true;
  }
}

std::vector<MemoryDialog*> MemoryDialog::InWindow() {
  std::vector<MemoryDialog*> found;
  for (MemoryDialog* dialog : toolkit.dialogs) {
    if (&dialog->Frame() == &Frame()) found.push_back(dialog);
  }
  return found;
}

void MemoryDialog::Paint() {
  if (!IsVisible()) return;
  for (auto& [id, control] : controls) {
    if (control.kind != ui::ControlKind::kSlider || !control.shown || !control.needsPaint) continue;
    control.needsPaint = false;
    events.OnSliderRepainted(id);
  }
}

std::unique_ptr<ui::Dialog> MemoryToolkit::CreateDialogFrom(int number, ui::DialogEvents& events,
                                                            ui::Dialog* parent) {
  return std::make_unique<MemoryDialog>(*this, *res::FindDialog(number), events,
                                        static_cast<MemoryDialog*>(parent));
}

void MemoryToolkit::RunModal(int number, ui::DialogEvents& events, ui::Dialog& owner,
                             ui::Dialog*& opened) {
  MemoryDialog dialog(*this, *res::FindDialog(number), events, &static_cast<MemoryDialog&>(owner));
  opened = &dialog;
  dialog.Show(true);
  if (onModal) onModal();
  opened = nullptr;
}

std::string MemoryToolkit::String(int number) const { return res::FindString(number); }

ui::SerialHandle MemoryToolkit::OpenSerial(const std::string& name) {
  openedPorts.push_back(name);
  const auto port = ports.find(name);
  return port == ports.end() ? ui::kInvalidSerial : port->second;
}

int MemoryToolkit::Random() { return drawn < randomNumbers.size() ? randomNumbers[drawn++] : 1; }

MemoryDialog* MemoryToolkit::Find(int number) const {
  // By pointers: tests look for dialogs more often than for anything else.
  MemoryDialog* const* const first = dialogs.data();
  for (MemoryDialog* const* each = first + dialogs.size(); each != first;) {
    --each;
    if ((*each)->Number() == number && (*each)->IsOpen()) return *each;
  }
  return nullptr;
}

}  // namespace panelora::memory
