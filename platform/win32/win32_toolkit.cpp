#include "platform/win32/win32_toolkit.h"

#include <algorithm>
#include <cstdlib>

#include "res/dialog_templates.h"

namespace panelora::win32 {

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
  EnableWindow(ownerDialog.Handle(), FALSE);
  dialog.Show(true);
  RunUntilClosed(dialog);
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
  KeepFocusUsable();  // a message that was sent may have hidden what has the focus
  if (!PreTranslate(message)) {
    Win32Dialog* dialog = DialogOf(message.hwnd);
    const HWND root = dialog != nullptr ? GetAncestor(dialog->Handle(), GA_ROOT) : nullptr;
    if (root == nullptr || !IsDialogMessageA(root, &message)) {
      TranslateMessage(&message);
      DispatchMessageA(&message);
    }
  }
  KeepFocusUsable();
}

// Offers keys and mouse presses to the dialog before the control sees them. True = consumed.
bool Win32Toolkit::PreTranslate(const MSG& message) {
  Win32Dialog* dialog = DialogOf(message.hwnd);
  if (dialog == nullptr) return false;
  if (message.message == WM_LBUTTONDOWN && message.hwnd != dialog->Handle()) {
    dialog->Events().OnMousePress(GetDlgCtrlID(message.hwnd));
    return false;
  }
  if (message.message != WM_KEYDOWN) return false;
  if (!marksFocus) {
    marksFocus = true;
    InvalidateRect(message.hwnd, nullptr, FALSE);
  }
  if (message.wParam != VK_RETURN && message.wParam != VK_ESCAPE) return false;
  // An open drop-down list keeps both keys for itself.
  if (SendMessageA(message.hwnd, CB_GETDROPPEDSTATE, 0, 0) != 0) return false;
  const bool enter = message.wParam == VK_RETURN;
  const bool consumed = dialog->Events().OnKey(enter ? ui::Key::kEnter : ui::Key::kEscape);
  if (enter && !consumed) PressFocusedButton(message.hwnd);
  return true;  // neither key ever closes the main window or a page
}

void Win32Toolkit::PressFocusedButton(HWND focus) {
  const Win32Dialog* dialog = DialogOf(focus);
  if (dialog == nullptr) return;  // the key closed it
  const Win32Control* control = dialog->Find(GetDlgCtrlID(focus));
  if (control == nullptr || !IsWindowVisible(focus) || !IsWindowEnabled(focus)) return;
  switch (control->kind) {
    case ui::ControlKind::kButton:
    case ui::ControlKind::kDefaultButton:
    case ui::ControlKind::kPictureButton:
      SendMessageA(focus, BM_CLICK, 0, 0);
      break;
    default:
      break;
  }
}

// A control that has the focus can be hidden or disabled by what it did. The focus then goes to the
// next control that takes it, so that the keyboard always has somewhere to go on from.
void Win32Toolkit::KeepFocusUsable() {
  const HWND focus = GetFocus();
  const Win32Dialog* dialog = DialogOf(focus != nullptr ? focus : GetActiveWindow());
  if (dialog == nullptr) return;
  if (focus != nullptr && focus != dialog->Handle() && IsWindowVisible(focus) &&
      IsWindowEnabled(focus)) {
    lastFocus = focus;
    return;
  }
  const HWND root = GetAncestor(dialog->Handle(), GA_ROOT);
  if (!IsWindowVisible(root) || !IsWindowEnabled(root) || IsIconic(root)) return;
  const HWND from = IsChild(root, lastFocus) ? lastFocus : nullptr;
  const HWND next = GetNextDlgTabItem(root, from, FALSE);
  if (next != nullptr && next != focus && IsWindowVisible(next) && IsWindowEnabled(next)) {
    SetFocus(next);
  }
}

}  // namespace panelora::win32
