// The desk over real windows: everything goes through window messages.
#include <cstdlib>
#include <deque>

#include "platform/win32/win32_toolkit.h"
#include "res/dialog_templates.h"
#include "tests/support/desk.h"

namespace panelora::testing {

using win32::Win32Control;
using win32::Win32Dialog;

namespace {

// What is pressed for a key, and whether Ctrl is held.
struct Pressed {
  WPARAM key;
  bool withCtrl;
};
Pressed PressedFor(ui::Key key) {
  switch (key) {
    case ui::Key::kEnter:
      return {VK_RETURN, false};
    case ui::Key::kEscape:
      return {VK_ESCAPE, false};
    case ui::Key::kBack:  // with Alt
      return {VK_LEFT, false};
    case ui::Key::kApply:
      return {VK_RETURN, true};
    case ui::Key::kRefresh:
      return {VK_F5, false};
    case ui::Key::kNextPage:
      return {VK_PRIOR, true};
    case ui::Key::kHelp:
      return {VK_F1, false};
  }
  return {0, false};
}

void HoldCtrl(bool held) {
  BYTE keys[256] = {};
  GetKeyboardState(keys);
  keys[VK_CONTROL] = held ? 0x80 : 0;
  SetKeyboardState(keys);
}

}  // namespace

struct Desk::Inside {
  win32::Win32Toolkit toolkit{GetModuleHandleA(nullptr)};
  std::vector<std::string> debugOutput;
  std::deque<int> randomNumbers;
  bool hasGuide = false;
  int guidesOpened = 0;

  Win32Dialog& At(int dialog) {
    Win32Dialog* found = toolkit.Find(dialog);
    if (found == nullptr) std::abort();         // a scenario asks for a dialog that is not open
    if (!found->IsShown()) found->LayOutAll();  // a scenario may look at what nobody sees
    return *found;
  }
  const Win32Control& At(int dialog, int control) {
    const Win32Control* found = At(dialog).Find(control);
    if (found == nullptr) std::abort();  // a scenario asks for a control that is not there
    return *found;
  }
  HWND Window(int dialog, int control) { return At(dialog).WindowOf(At(dialog, control)); }
  bool TakesInput(int dialog, int control) {
    return IsWindowEnabled(Window(dialog, control)) != FALSE;
  }
};

Desk::Desk() : inside(std::make_unique<Inside>()) {
  inside->toolkit.onDebugOutput = [this](std::string_view text) {
    inside->debugOutput.emplace_back(text);
  };
  inside->toolkit.onGuide = [this] {
    if (inside->hasGuide) ++inside->guidesOpened;
    return inside->hasGuide;
  };
  inside->toolkit.onRandom = [this] {
    if (inside->randomNumbers.empty()) return 1;
    const int number = inside->randomNumbers.front();
    inside->randomNumbers.pop_front();
    return number;
  };
}

Desk::~Desk() = default;

ui::Toolkit& Desk::Toolkit() { return inside->toolkit; }

// What shows the focus is painted before anything is typed or pressed there.
void Desk::GiveFocus(int dialog, int control) {
  inside->At(dialog).Focus(control);
  Settle();
}

void Desk::Press(int dialog, int control) {
  if (!inside->TakesInput(dialog, control)) return;
  GiveFocus(dialog, control);
  SendMessageA(inside->Window(dialog, control), BM_CLICK, 0, 0);
  Settle();
}

void Desk::Type(int dialog, int control, std::string_view text) {
  if (!inside->TakesInput(dialog, control)) return;
  GiveFocus(dialog, control);
  const HWND edit = inside->Window(dialog, control);
  SendMessageA(edit, EM_SETSEL, 0, -1);
  SendMessageA(edit, WM_CLEAR, 0, 0);
  for (const char character : text) {
    SendMessageA(edit, WM_CHAR, static_cast<unsigned char>(character), 1);
  }
}

void Desk::Drag(int dialog, int control, int position) {
  if (!inside->TakesInput(dialog, control)) return;
  SendMessageA(inside->Window(dialog, control), TBM_SETPOS, TRUE, position);
  Settle();
}

void Desk::Release(int dialog, int control) {
  if (!inside->TakesInput(dialog, control)) return;
  const HWND slider = inside->Window(dialog, control);
  NMHDR released{slider, static_cast<UINT_PTR>(control), static_cast<UINT>(NM_RELEASEDCAPTURE)};
  SendMessageA(GetParent(slider), WM_NOTIFY, released.idFrom, reinterpret_cast<LPARAM>(&released));
  Settle();
}

void Desk::Choose(int dialog, int control, int index) {
  if (!inside->TakesInput(dialog, control)) return;
  const HWND combo = inside->Window(dialog, control);
  SendMessageA(combo, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
  SendMessageA(GetParent(combo), WM_COMMAND, MAKEWPARAM(static_cast<WORD>(control), CBN_SELCHANGE),
               reinterpret_cast<LPARAM>(combo));
  Settle();
}

void Desk::PressKey(int dialog, int control, ui::Key key) {
  GiveFocus(dialog, control);
  MSG message{};
  message.hwnd = inside->Window(dialog, control);
  const Pressed pressed = PressedFor(key);
  message.message = key == ui::Key::kBack ? WM_SYSKEYDOWN : WM_KEYDOWN;
  message.wParam = pressed.key;
  message.lParam = 1;
  HoldCtrl(pressed.withCtrl);
  inside->toolkit.Handle(message);
  HoldCtrl(false);
  Settle();
}

ui::Mark Desk::MarkOf(int dialog, int control) { return inside->At(dialog, control).mark; }

void Desk::PressMouse(int dialog, int control) {
  const HWND window = inside->Window(dialog, control);
  MSG message{};
  message.hwnd = window;
  message.message = WM_LBUTTONDOWN;
  message.wParam = MK_LBUTTON;
  message.lParam = MAKELPARAM(2, 2);
  if (IsWindowEnabled(window) && (GetWindowLongPtrA(window, GWL_STYLE) & WS_VISIBLE) != 0) {
    inside->toolkit.Handle(message);
  }
  // The button goes up again outside, which is no click.
  SendMessageA(window, WM_CANCELMODE, 0, 0);
  if (GetCapture() == window) ReleaseCapture();
  Settle();
}

void Desk::ChooseSystemMenu(int dialog, int command) {
  SendMessageA(inside->At(dialog).Handle(), WM_SYSCOMMAND, static_cast<WPARAM>(command), 0);
}

void Desk::RequestClose(int dialog) { SendMessageA(inside->At(dialog).Handle(), WM_CLOSE, 0, 0); }

void Desk::WhileModal(std::function<void()> action) {
  inside->toolkit.onIdle = [this, action = std::move(action)] {
    const auto once = action;
    inside->toolkit.onIdle = nullptr;
    once();
  };
}

void Desk::Tick(int dialog, int timer) {
  SendMessageA(inside->At(dialog).Handle(), WM_TIMER, static_cast<WPARAM>(timer), 0);
  Settle();
}

void Desk::Settle() {
  inside->toolkit.HandleWaiting();
  // By what the toolkit knows: to walk the whole screen costs more than what is painted.
  for (const ui::DialogTemplate& dialog : res::Dialogs()) {
    const Win32Dialog* frame = dialog.framed ? inside->toolkit.Find(dialog.number) : nullptr;
    if (frame != nullptr) {
      RedrawWindow(frame->Handle(), nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    }
  }
}

void Desk::Repaint(int dialog) {
  RedrawWindow(inside->At(dialog).Handle(), nullptr, nullptr,
               RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
  Settle();
}

bool Desk::IsOpen(int dialog) { return inside->toolkit.Find(dialog) != nullptr; }
// By its window's own style, whatever the toolkit says.
bool Desk::IsShown(int dialog) {
  if (!IsOpen(dialog)) return false;
  return (GetWindowLongPtrA(inside->At(dialog).Handle(), GWL_STYLE) & WS_VISIBLE) != 0;
}

namespace {

std::string TextOf(HWND window) {
  char text[512] = "";
  GetWindowTextA(window, text, sizeof text);
  return text;
}

ui::Rect PlaceIn(HWND window, HWND parent) {
  RECT rect;
  GetWindowRect(window, &rect);
  MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&rect), 2);
  return {rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top};
}

}  // namespace

std::string Desk::Title(int dialog) { return TextOf(inside->At(dialog).Handle()); }

ui::Rect Desk::PlaceOf(int dialog) {
  const HWND window = inside->At(dialog).Handle();
  return PlaceIn(window, GetParent(window));
}

ui::Point Desk::ScreenPosition(int dialog) {
  RECT rect;
  GetWindowRect(inside->At(dialog).Handle(), &rect);
  return {rect.left, rect.top};
}

ui::Rect Desk::ClientSize(int dialog) {
  RECT rect;
  GetClientRect(inside->At(dialog).Handle(), &rect);
  return {0, 0, rect.right, rect.bottom};
}

std::string Desk::Text(int dialog, int control) { return TextOf(inside->Window(dialog, control)); }

bool Desk::Shows(int dialog, int control) {
  return (GetWindowLongPtrA(inside->Window(dialog, control), GWL_STYLE) & WS_VISIBLE) != 0;
}

bool Desk::Enables(int dialog, int control) { return inside->TakesInput(dialog, control); }

ui::Rect Desk::PlaceOf(int dialog, int control) {
  const HWND window = inside->Window(dialog, control);
  return PlaceIn(window, GetParent(window));
}

std::string Desk::Picture(int dialog, int control) { return inside->At(dialog, control).upPicture; }

std::string Desk::PressedPicture(int dialog, int control) {
  return inside->At(dialog, control).downPicture;
}

// What the control really draws with; points from pixels at 96 dpi.
ui::Font Desk::FontOf(int dialog, int control) {
  inside->At(dialog).LayOutAll();  // a control gets its font when it is seen
  const Win32Control& found = inside->At(dialog, control);
  if (!found.fontSet) return {"", 0};
  LOGFONTA font{};
  const HGDIOBJ handle =
      reinterpret_cast<HGDIOBJ>(SendMessageA(inside->Window(dialog, control), WM_GETFONT, 0, 0));
  GetObjectA(handle, sizeof font, &font);
  const bool same = font.lfHeight == -MulDiv(found.font.tenths, 96, 720) &&
                    std::string(font.lfFaceName) == found.font.face;
  return same ? found.font : ui::Font{"", 0};
}

std::pair<int, int> Desk::Focus(int dialog) {
  Win32Dialog& frame = inside->At(dialog).Frame();
  const HWND focus = GetActiveWindow() == frame.Handle() ? GetFocus() : frame.focus;
  const Win32Dialog* owner = inside->toolkit.DialogOf(focus);
  if (owner == nullptr || owner->Handle() == focus) return {frame.Number(), 0};
  return {owner->Number(), GetDlgCtrlID(focus)};
}

int Desk::SliderPosition(int dialog, int control) {
  return static_cast<int>(SendMessageA(inside->Window(dialog, control), TBM_GETPOS, 0, 0));
}

std::pair<int, int> Desk::SliderRange(int dialog, int control) {
  const HWND slider = inside->Window(dialog, control);
  return {static_cast<int>(SendMessageA(slider, TBM_GETRANGEMIN, 0, 0)),
          static_cast<int>(SendMessageA(slider, TBM_GETRANGEMAX, 0, 0))};
}

int Desk::ProgressPosition(int dialog, int control) {
  return static_cast<int>(SendMessageA(inside->Window(dialog, control), PBM_GETPOS, 0, 0));
}

std::pair<int, int> Desk::ProgressRange(int dialog, int control) {
  const HWND bar = inside->Window(dialog, control);
  return {static_cast<int>(SendMessageA(bar, PBM_GETRANGE, TRUE, 0)),
          static_cast<int>(SendMessageA(bar, PBM_GETRANGE, FALSE, 0))};
}

std::vector<std::string> Desk::Items(int dialog, int control) {
  std::vector<std::string> items;
  const int count =
      static_cast<int>(SendMessageA(inside->Window(dialog, control), CB_GETCOUNT, 0, 0));
  for (int i = 0; i < count; ++i) items.push_back(inside->At(dialog).ItemText(control, i));
  return items;
}

std::vector<std::pair<int, std::string>> Desk::SystemMenu(int dialog) {
  std::vector<std::pair<int, std::string>> added;
  const HMENU menu = GetSystemMenu(inside->At(dialog).Handle(), FALSE);
  const int count = GetMenuItemCount(menu);
  for (int i = 0; i < count; ++i) {
    const UINT id = GetMenuItemID(menu, i);
    char text[256] = "";
    GetMenuStringA(menu, static_cast<UINT>(i), text, sizeof text, MF_BYPOSITION);
    if (id > 0 && id < 0xF000) added.emplace_back(static_cast<int>(id), text);
  }
  return added;
}

int Desk::TimerPeriod(int dialog, int timer) {
  const auto& timers = inside->At(dialog).Timers();
  const auto found = timers.find(timer);
  return found == timers.end() ? 0 : found->second;
}

int Desk::TimersLeftRunning() { return inside->toolkit.timersLeftRunning; }

std::vector<std::string> Desk::DebugOutput() { return inside->debugOutput; }

void Desk::LayGuide(bool there) { inside->hasGuide = there; }

int Desk::GuidesOpened() { return inside->guidesOpened; }

void Desk::DrawNext(std::vector<int> numbers) {
  inside->randomNumbers.insert(inside->randomNumbers.end(), numbers.begin(), numbers.end());
}

int TriedStep() { return 4; }

}  // namespace panelora::testing
