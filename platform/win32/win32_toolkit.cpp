#include "platform/win32/win32_toolkit.h"

#include <cstdlib>
#include <optional>
#include <utility>

#include "platform/win32/guide.h"
#include "platform/win32/tab_order.h"
#include "res/dialog_templates.h"

namespace panelora::win32 {

namespace {

bool IsDown(int key) { return (GetKeyState(key) & 0x8000) != 0; }

// Where Backspace deletes.
bool TakesText(const Win32Control* control) { return control != nullptr && control->HasOwnText(); }

// What a key that goes down means; none for keys of the control.
std::optional<ui::Key> KeyOf(const MSG& message, const Win32Control* control) {
  const bool ctrl = IsDown(VK_CONTROL);
  if (message.message == WM_SYSKEYDOWN) {
    if (message.wParam == VK_LEFT && !ctrl) return ui::Key::kBack;
    return std::nullopt;
  }
  switch (message.wParam) {
    case VK_RETURN:
      return ctrl ? ui::Key::kApply : ui::Key::kEnter;
    case VK_ESCAPE:
      return ui::Key::kEscape;
    case VK_F5:
      return ui::Key::kRefresh;
    case VK_F1:
      return ui::Key::kHelp;
    case VK_PRIOR:
      if (ctrl) return ui::Key::kNextPage;
      return std::nullopt;
    case VK_BACK:
      if (!TakesText(control)) return ui::Key::kBack;
      return std::nullopt;
    default:
      return std::nullopt;
  }
}

}  // namespace

Win32Toolkit::Win32Toolkit(HINSTANCE theInstance) : instance(theInstance), gdi(theInstance) {
  INITCOMMONCONTROLSEX classes{sizeof classes,
                               ICC_BAR_CLASSES | ICC_PROGRESS_CLASS | ICC_STANDARD_CLASSES};
  InitCommonControlsEx(&classes);
}

Win32Toolkit::~Win32Toolkit() = default;

std::unique_ptr<ui::Dialog> Win32Toolkit::CreateDialogFrom(int number, ui::DialogEvents& events,
                                                           ui::Dialog* parent) {
  return std::make_unique<Win32Dialog>(*this, *res::FindDialog(number), events,
                                       static_cast<Win32Dialog*>(parent));
}

// A loop of its own instead of the system's, so that keys reach the dialog's events as everywhere.
void Win32Toolkit::RunModal(int number, ui::DialogEvents& events, ui::Dialog& owner,
                            ui::Dialog*& opened) {
  Win32Dialog& ownerDialog = static_cast<Win32Dialog&>(owner);
  Win32Dialog dialog(*this, *res::FindDialog(number), events, &ownerDialog);
  if (!dialog.IsOpen()) return;
  opened = &dialog;
  Settle();
  EnableWindow(ownerDialog.Handle(), FALSE);
  dialog.Show(true);
  const int within = std::exchange(depth, 0);  // what comes meanwhile ends before the dialog does
  RunUntilClosed(dialog);
  depth = within;
  EnableWindow(ownerDialog.Handle(), TRUE);
  opened = nullptr;
}

std::string Win32Toolkit::String(int number) const {
  char text[256] = "";
  LoadStringA(instance, static_cast<UINT>(number), text, sizeof text);
  return text;
}

void Win32Toolkit::DebugOutput(std::string_view text) {
  const std::string line(text);
  OutputDebugStringA(line.c_str());
  if (onDebugOutput) onDebugOutput(line);
}

bool Win32Toolkit::OpenGuide() {
  if (onGuide) return onGuide();
  const std::wstring guide = GuideBeside(ProgramFolder());
  return !guide.empty() && ShowFile(guide);
}

int Win32Toolkit::Random() { return onRandom ? onRandom() : std::rand(); }

Win32Dialog* Win32Toolkit::Find(int number) const {
  for (auto dialog = dialogs.rbegin(); dialog != dialogs.rend(); ++dialog) {
    if ((*dialog)->IsOpen() && (*dialog)->Number() == number) return *dialog;
  }
  return nullptr;
}

Win32Dialog* Win32Toolkit::DialogOf(HWND window) const {
  while (window != nullptr) {
    for (Win32Dialog* dialog : dialogs) {
      if (dialog->Handle() == window) return dialog;
    }
    if ((GetWindowLongPtrA(window, GWL_STYLE) & WS_CHILD) == 0) return nullptr;
    window = GetParent(window);
  }
  return nullptr;
}

// Gives the windows what was asked for since the last time. What goes, goes first, so that it is
// never seen beside what comes.
void Win32Toolkit::Settle() {
  ++depth;  // the focus is looked after when all is done
  while (unsettled) {
    unsettled = false;
    // By number: what is sent to a window on the way may open or close another one.
    for (std::size_t i = 0; i < dialogs.size(); ++i) dialogs[i]->HideWhenAsked();
    for (std::size_t i = 0; i < dialogs.size(); ++i) dialogs[i]->Settle();
  }
  --depth;
  if (hot != nullptr && !IsWindowVisible(hot)) hot = nullptr;  // it went from under the mouse
}

// Messages that wait behind the one that closes the dialog are left to the loop above.
void Win32Toolkit::RunUntilClosed(const ui::Dialog& dialog) {
  while (dialog.IsOpen()) {
    MSG message;
    if (!PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
      if (onIdle) onIdle();
      if (!dialog.IsOpen()) return;
      if (GetMessageA(&message, nullptr, 0, 0) == -1) return;
    }
    if (message.message ==
        WM_QUIT) {  // the thread is asked to end: so is every loop above this one
      PostQuitMessage(static_cast<int>(message.wParam));
      return;
    }
    Handle(message);
  }
}

void Win32Toolkit::HandleWaiting() {
  MSG message;
  while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (message.message == WM_QUIT) {
      PostQuitMessage(static_cast<int>(message.wParam));
      return;
    }
    Handle(message);
  }
}

void Win32Toolkit::Handle(MSG& message) {
  const Handling handling(*this, message.message);
  FollowMouse(message);
  if (!MayMoveFocus(message.message)) {
    DispatchMessageA(&message);
    return;
  }
  KeepFocusUsable();  // a message that was sent may have hidden what has the focus
  const bool isKey = message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST;
  const bool isOurs = DialogOf(message.hwnd) != nullptr;
  if (isKey && isOurs && !IsUsable(message.hwnd)) return;  // was hidden while the key was underway
  if (PreTranslate(message)) return;
  Settle();
  KeepFocusUsable();
  // The dialog's own keyboard handling looks for the next control from the one that has the focus
  // until it comes back to it: from a control that can't be seen it would search for ever.
  const HWND focus = GetFocus();
  const bool canSearch = focus == nullptr || IsWindowVisible(focus);
  const HWND root = GetAncestor(message.hwnd, GA_ROOT);
  if (isOurs && (!isKey || canSearch) && IsDialogMessageA(root, &message)) return;
  TranslateMessage(&message);
  DispatchMessageA(&message);
}

// A button shows that the mouse is over it.
void Win32Toolkit::FollowMouse(const MSG& message) {
  if (message.message == WM_MOUSELEAVE && message.hwnd == hot) SetHot(nullptr);
  if (message.message != WM_MOUSEMOVE || message.hwnd == hot) return;
  const Win32Dialog* dialog = DialogOf(message.hwnd);
  const Win32Control* control =
      dialog != nullptr ? dialog->Find(GetDlgCtrlID(message.hwnd)) : nullptr;
  const bool isButton = control != nullptr && (control->kind == ui::ControlKind::kButton ||
                                               control->kind == ui::ControlKind::kPictureButton);
  SetHot(isButton ? message.hwnd : nullptr);
  if (!isButton) return;
  TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, message.hwnd, 0};
  TrackMouseEvent(&track);
}

void Win32Toolkit::SetHot(HWND button) {
  const HWND before = hot;
  hot = button;
  for (const HWND changed : {before, button}) {
    if (changed != nullptr) InvalidateRect(changed, nullptr, FALSE);
  }
}

// Offers keys and mouse presses to the dialog before the control sees them. True = consumed.
bool Win32Toolkit::PreTranslate(const MSG& message) {
  Win32Dialog* dialog = DialogOf(message.hwnd);
  if (dialog == nullptr) return false;
  if (message.message == WM_LBUTTONDOWN && message.hwnd != dialog->Handle()) {
    dialog->Events().OnMousePress(GetDlgCtrlID(message.hwnd));
    return false;
  }
  if (message.message == WM_MOUSEWHEEL) return OnWheel(message, *dialog);
  if (message.message != WM_KEYDOWN && message.message != WM_SYSKEYDOWN) return false;
  return OnKeyDown(message, *dialog);
}

// A slider writes at once: it moves by one, and only when the operator is at it.
bool Win32Toolkit::OnWheel(const MSG& message, const Win32Dialog& dialog) {
  const Win32Control* control = dialog.Find(GetDlgCtrlID(message.hwnd));
  if (control == nullptr || control->kind != ui::ControlKind::kSlider) return false;
  if (GetFocus() != message.hwnd) return true;
  const WPARAM key = GET_WHEEL_DELTA_WPARAM(message.wParam) > 0 ? VK_RIGHT : VK_LEFT;
  SendMessageA(message.hwnd, WM_KEYDOWN, key, 1);
  SendMessageA(message.hwnd, WM_KEYUP, key, 1);
  return true;
}

bool Win32Toolkit::OnKeyDown(const MSG& message, Win32Dialog& dialog) {
  if (!marksFocus && message.message == WM_KEYDOWN) {
    marksFocus = true;
    InvalidateRect(message.hwnd, nullptr, FALSE);
  }
  if (message.message == WM_KEYDOWN && message.wParam == VK_TAB && !IsDown(VK_CONTROL)) {
    dialog.Frame().MoveByTab(message.hwnd, IsDown(VK_SHIFT));
    return true;
  }
  const auto key = KeyOf(message, dialog.Find(GetDlgCtrlID(message.hwnd)));
  if (!key) return false;
  // An open drop-down list keeps its keys for itself.
  if (SendMessageA(message.hwnd, CB_GETDROPPEDSTATE, 0, 0) != 0) return false;
  // A key that is held repeats itself; what it writes goes to the box once.
  const bool repeats = (HIWORD(message.lParam) & KF_REPEAT) != 0;
  if (repeats && *key != ui::Key::kEscape) return true;
  Win32Dialog& asked = IsOfWindow(*key) ? dialog.Frame() : dialog;
  const bool consumed = asked.Events().OnKey(*key);
  Settle();
  if (*key == ui::Key::kEnter && !consumed) PressFocusedButton(message.hwnd);
  return true;  // none of the keys ever closes the main window or a page
}

void Win32Toolkit::PressFocusedButton(HWND button) {
  const Win32Dialog* dialog = DialogOf(button);
  if (dialog == nullptr) return;  // the key closed it
  const Win32Control* control = dialog->Find(GetDlgCtrlID(button));
  if (control == nullptr || !IsUsable(button)) return;
  switch (control->kind) {
    case ui::ControlKind::kButton:
    case ui::ControlKind::kDefaultButton:
    case ui::ControlKind::kPictureButton:
      SendMessageA(button, BM_CLICK, 0, 0);
      break;
    default:
      break;
  }
}

// False when the control takes no focus. A window that is not active keeps it for when it is.
bool Win32Toolkit::GiveFocus(HWND control) {
  Win32Dialog* dialog = DialogOf(control);
  if (dialog == nullptr || !TakesFocus(control)) return false;
  Win32Dialog& frame = dialog->Frame();
  frame.focus = control;
  if (GetActiveWindow() == frame.Handle()) SetFocus(control);
  return true;
}

// Holds after every message: the focus is on a control that is seen and enabled, or, where there is
// none, on the window itself. A control that has the focus can be hidden or disabled by what it
// did, by a tick, or by a message from outside.
void Win32Toolkit::KeepFocusUsable() {
  usableChanged = false;
  const HWND focus = GetFocus();
  Win32Dialog* dialog = DialogOf(focus != nullptr ? focus : GetActiveWindow());
  if (dialog == nullptr) return;
  Win32Dialog& frame = dialog->Frame();
  if (focus != nullptr && TakesFocus(focus)) {
    frame.focus = focus;
    return;
  }
  const HWND window = frame.Handle();
  if (!IsUsable(window) || IsIconic(window)) return;
  const bool known = frame.focus != nullptr && IsChild(window, frame.focus);
  HWND next = known && TakesFocus(frame.focus) ? frame.focus
                                               : frame.NextUsable(known ? frame.focus : nullptr);
  if (next == nullptr) next = window;
  if (next != focus) SetFocus(next);
}

}  // namespace panelora::win32
