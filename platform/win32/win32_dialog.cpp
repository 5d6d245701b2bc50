#include <algorithm>

#include "platform/win32/dpi.h"
#include "platform/win32/speaking.h"
#include "platform/win32/tab_order.h"
#include "platform/win32/win32_toolkit.h"

namespace panelora::win32 {

namespace {

constexpr int kBigIcon = 32;
constexpr int kSmallIcon = 16;

// What a slider moves by Page Up, or by a press beside its thumb: little, since it writes at once.
constexpr int kSliderPage = 8;

std::string WindowText(HWND window) {
  const int length = GetWindowTextLengthA(window);
  std::string text(static_cast<std::size_t>(length) + 1, '\0');
  text.resize(static_cast<std::size_t>(GetWindowTextA(window, text.data(), length + 1)));
  return text;
}

}  // namespace

Win32Dialog::Win32Dialog(Win32Toolkit& theToolkit, const ui::DialogTemplate& theSource,
                         ui::DialogEvents& theEvents, Win32Dialog* theParent)
    : toolkit(theToolkit),
      source(theSource),
      events(theEvents),
      parent(theParent),
      rect(ui::PixelsFromUnits(theSource.units)) {
  toolkit.dialogs.push_back(this);
  window = CreateDialogParamA(toolkit.Instance(), MAKEINTRESOURCEA(source.number),
                              parent != nullptr ? parent->window : nullptr, Procedure,
                              reinterpret_cast<LPARAM>(this));
  live = window != nullptr;
}

Win32Dialog::~Win32Dialog() {
  Close();
  std::erase(toolkit.dialogs, this);
}

void Win32Dialog::Close() {
  if (window == nullptr) return;
  toolkit.usableChanged = true;
  // A disabled owner gets the input back before its modal dialog goes, so that it is activated
  // next.
  if (source.framed && parent != nullptr) EnableWindow(parent->window, TRUE);
  DestroyWindow(window);
}

// Nothing may leave it: what called it is the system, which knows no exceptions.
INT_PTR CALLBACK Win32Dialog::Procedure(HWND handle, UINT message, WPARAM wParam,
                                        LPARAM lParam) noexcept {
  if (message == WM_INITDIALOG) {
    SetWindowLongPtrA(handle, DWLP_USER, lParam);
    Win32Dialog* dialog = reinterpret_cast<Win32Dialog*>(lParam);
    dialog->window = handle;
    dialog->AdoptControls();
    return dialog->source.framed ? TRUE : FALSE;  // a page leaves the focus where it is
  }
  Win32Dialog* dialog = reinterpret_cast<Win32Dialog*>(GetWindowLongPtrA(handle, DWLP_USER));
  return dialog != nullptr ? dialog->OnMessage(message, wParam, lParam) : FALSE;
}

// Takes over the controls that the template made, at exact 96-dpi places: the system's own dialog
// units depend on the font that it finds.
void Win32Dialog::AdoptControls() {
  LeaveScalingToProgram(window);
  dpi = DpiOf(window);
  SetWindowLongPtrA(window, GWLP_ID, source.framed ? 0 : source.number);
  for (const ui::ControlTemplate& row : source.controls) {
    Win32Control control;
    control.id = row.id;
    control.kind = row.kind;
    control.text = row.text;
    control.rect = ui::PixelsFromUnits(row.units);
    controls.emplace(row.id, std::move(control));
  }
  if (source.framed) {
    SizeForClient(rect.width, rect.height, SWP_NOMOVE | SWP_NOZORDER);
  } else {
    const RECT place = Scaled(rect);
    SetWindowPos(window, nullptr, 0, 0, place.right - place.left, place.bottom - place.top,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  }
}

INT_PTR Win32Dialog::Answer(LRESULT result) {
  SetWindowLongPtrA(window, DWLP_MSGRESULT, static_cast<LONG_PTR>(result));
  return TRUE;
}

INT_PTR Win32Dialog::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_DESTROY:
      if (live) events.OnDestroy();
      live = false;
      return FALSE;
    case WM_NCDESTROY:
      SetWindowLongPtrA(window, DWLP_USER, 0);
      window = nullptr;
      controls.clear();
      toolkit.timersLeftRunning += static_cast<int>(timers.size());
      timers.clear();
      // Wakes a loop that waits for this dialog: the message that closed it may have been sent.
      if (source.framed) PostThreadMessageA(GetCurrentThreadId(), WM_NULL, 0, 0);
      return FALSE;
    case WM_WINDOWPOSCHANGING:  // however it is shown
      if ((reinterpret_cast<const WINDOWPOS*>(lParam)->flags & SWP_SHOWWINDOW) != 0) LayOutSeen();
      return FALSE;
    case WM_DRAWITEM:
      DrawControl(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
      return TRUE;
    case WM_ERASEBKGND:
      return EraseWithReadouts(reinterpret_cast<HDC>(wParam)) ? Answer(1) : FALSE;
    case WM_SYSCOLORCHANGE:
    case WM_SETTINGCHANGE:
      if (!source.framed) return FALSE;
      toolkit.TakeSystemColours();
      PaintAnew();
      return FALSE;
    case WM_CTLCOLORDLG:
      if (const auto colour = events.BackgroundColour()) {
        return reinterpret_cast<INT_PTR>(toolkit.Gdi().BrushFor(*colour));
      }
      return FALSE;
    case WM_PAINT:
      return PaintMinimised() ? TRUE : FALSE;
    case WM_QUERYDRAGICON:
      return reinterpret_cast<INT_PTR>(bigIcon);  // one of the messages answered directly
    case WM_ACTIVATE:
      if (!source.framed) return FALSE;
      if (LOWORD(wParam) != WA_INACTIVE) {
        toolkit.KeepFocusUsable();
      } else if (IsChild(window, GetFocus())) {
        focus = GetFocus();
      }
      return TRUE;  // the system would remember a control that can be hidden meanwhile
    case WM_SETFOCUS:
      if (toolkit.depth == 0) toolkit.KeepFocusUsable();
      return TRUE;  // the system would choose among hidden controls too
    case WM_COMMAND:
    case WM_NOTIFY:
    case WM_HSCROLL:
    case WM_VSCROLL:
    case WM_TIMER:
    case WM_SYSCOMMAND:
    case WM_CLOSE:
    case kDpiChanged:
      return live ? OnEvent(message, wParam, lParam) : FALSE;
    default:
      return FALSE;
  }
}

INT_PTR Win32Dialog::OnEvent(UINT message, WPARAM wParam, LPARAM lParam) {
  const Win32Toolkit::Handling handling(toolkit, message);
  switch (message) {
    case WM_COMMAND:
      OnCommandMessage(LOWORD(wParam), HIWORD(wParam));
      return TRUE;
    case WM_NOTIFY:
      return OnNotify(*reinterpret_cast<const NMHDR*>(lParam));
    case WM_HSCROLL:  // a key moved a slider and was let go; a mouse has told so before
    case WM_VSCROLL:
      if (LOWORD(wParam) == TB_ENDTRACK && lParam != 0) {
        events.OnSliderReleased(GetDlgCtrlID(reinterpret_cast<HWND>(lParam)));
      }
      return FALSE;
    case WM_TIMER:
      events.OnTimer(static_cast<int>(wParam));
      return FALSE;
    case WM_SYSCOMMAND:
      return events.OnSystemCommand(static_cast<int>(wParam & 0xFFF0)) ? TRUE : FALSE;
    case WM_CLOSE:
      events.OnCloseRequest();
      return TRUE;
    case kDpiChanged:
      OnDpiChanged(LOWORD(wParam), *reinterpret_cast<const RECT*>(lParam));
      return TRUE;
    default:
      return FALSE;
  }
}

void Win32Dialog::OnCommandMessage(int control, UINT code) {
  const Win32Control* found = Find(control);
  if (found == nullptr) return;
  switch (found->kind) {
    case ui::ControlKind::kButton:
    case ui::ControlKind::kPictureButton:
      // The second press of a quick pair arrives as a double click, which leaves the focus where it
      // was.
      if (code == BN_DOUBLECLICKED) Focus(control);
      if (code == BN_CLICKED || code == BN_DOUBLECLICKED) {
        events.OnCommand(control, ui::Notification::kClicked);
      }
      break;
    case ui::ControlKind::kDefaultButton:
      if (code == BN_CLICKED) events.OnCommand(control, ui::Notification::kClicked);
      break;
    case ui::ControlKind::kCombo:
      if (code == CBN_SELCHANGE) events.OnCommand(control, ui::Notification::kSelectionChanged);
      break;
    case ui::ControlKind::kEdit:
      if (code == EN_CHANGE && !showsText) events.OnCommand(control, ui::Notification::kTyped);
      break;
    default:
      break;
  }
}

INT_PTR Win32Dialog::OnNotify(const NMHDR& header) {
  const int control = static_cast<int>(header.idFrom);
  const Win32Control* found = Find(control);
  if (found == nullptr || found->kind != ui::ControlKind::kSlider) return FALSE;
  if (header.code == static_cast<UINT>(NM_CUSTOMDRAW)) {
    const auto& draw = reinterpret_cast<const NMCUSTOMDRAW&>(header);
    if (draw.dwDrawStage == CDDS_PREPAINT) events.OnSliderRepainted(control);
    return Answer(DrawSlider(draw));
  }
  if (header.code == static_cast<UINT>(NM_RELEASEDCAPTURE)) events.OnSliderReleased(control);
  return FALSE;
}

// To look one up is a talk with the system, and most controls of a start nobody sees.
HWND Win32Dialog::WindowOf(const Win32Control& control) const {
  if (control.window != nullptr) return control.window;
  control.window = GetDlgItem(window, control.id);
  if (control.window == nullptr) return nullptr;
  LetSpeak(control.window, control.kind);
  if (control.kind == ui::ControlKind::kProgress) {
    SetWindowSubclass(control.window, &BarProcedure, 0, reinterpret_cast<DWORD_PTR>(&toolkit));
  }
  return control.window;
}

const Win32Control* Win32Dialog::Find(int control) const {
  const auto found = controls.find(control);
  return found == controls.end() ? nullptr : &found->second;
}

HWND Win32Dialog::ControlWindow(int control) const {
  const Win32Control* found = Find(control);
  return found != nullptr ? WindowOf(*found) : nullptr;
}

void Win32Dialog::Show(bool shown) {
  toolkit.usableChanged = true;
  if (source.framed) {
    toolkit.Settle();
    ShowWindow(window, shown ? SW_SHOW : SW_HIDE);
  } else {
    pageShown = shown;
    OnChange();
  }
}

bool Win32Dialog::IsShown() const {
  return source.framed ? IsSeen() : window != nullptr && pageShown;
}

void Win32Dialog::Place(const ui::Rect& place, int behindParentControl) {
  rect = place;
  behind = behindParentControl;
  const RECT scaled = Scaled(rect);
  const HWND after = parent != nullptr ? parent->ControlWindow(behind) : nullptr;
  SetWindowPos(window, after, scaled.left, scaled.top, scaled.right - scaled.left,
               scaled.bottom - scaled.top, SWP_NOACTIVATE);
}

void Win32Dialog::ResizeClient(int width, int height) {
  rect = {0, 0, width, height};
  SizeForClient(width, height, SWP_NOMOVE);
}

void Win32Dialog::PlaceOver(const ui::Dialog& other, ui::Point offset) {
  RECT base;
  GetWindowRect(static_cast<const Win32Dialog&>(other).window, &base);
  SetWindowPos(window, nullptr, base.left + Scaled(offset.x), base.top + Scaled(offset.y), 0, 0,
               SWP_NOSIZE | SWP_NOZORDER);
}

void Win32Dialog::SetTitle(std::string_view title) {
  SetWindowTextA(window, std::string(title).c_str());
}

void Win32Dialog::SetIcon(int icon) {
  iconNumber = icon;
  const auto load = [&](int size) {
    return static_cast<HICON>(LoadImageA(toolkit.Instance(), MAKEINTRESOURCEA(icon), IMAGE_ICON,
                                         Scaled(size), Scaled(size), LR_SHARED));
  };
  bigIcon = load(kBigIcon);
  SendMessageA(window, WM_SETICON, ICON_BIG, reinterpret_cast<LPARAM>(bigIcon));
  SendMessageA(window, WM_SETICON, ICON_SMALL, reinterpret_cast<LPARAM>(load(kSmallIcon)));
}

void Win32Dialog::AddSystemMenuItem(int command, std::string_view text) {
  const HMENU menu = GetSystemMenu(window, FALSE);
  if (menu == nullptr) return;
  AppendMenuA(menu, MF_SEPARATOR, 0, nullptr);
  AppendMenuA(menu, MF_STRING, static_cast<UINT_PTR>(command), std::string(text).c_str());
}

bool Win32Dialog::StartTimer(int timer, int milliseconds) {
  if (SetTimer(window, static_cast<UINT_PTR>(timer), static_cast<UINT>(milliseconds), nullptr) ==
      0) {
    return false;
  }
  timers[timer] = milliseconds;
  return true;
}

void Win32Dialog::StopTimer(int timer) {
  KillTimer(window, static_cast<UINT_PTR>(timer));
  timers.erase(timer);
}

std::string Win32Dialog::Text(int control) const {
  const Win32Control* found = Find(control);
  if (found == nullptr) return "";
  return found->HasOwnText() ? WindowText(WindowOf(*found)) : found->text;
}

void Win32Dialog::ShowText(Win32Control& control) {
  control.textChanged = false;
  if (WindowText(WindowOf(control)) == control.text) return;  // an equal text would only flicker
  showsText = true;
  SetWindowTextA(WindowOf(control), control.text.c_str());
  showsText = false;
  if (control.kind == ui::ControlKind::kLabel) Repaint(control);
}

void Win32Dialog::SetText(int control, std::string_view text) {
  const auto found = controls.find(control);
  if (found == controls.end()) return;
  Win32Control& changed = found->second;
  if (Text(control) == text) return;
  changed.text = text;
  if (changed.HasOwnText()) {
    ShowText(changed);
    return;
  }
  changed.textChanged = true;
  OnChange(changed);
}

void Win32Dialog::ShowControl(int control, bool shown) {
  const auto found = controls.find(control);
  if (found == controls.end()) return;
  if (found->second.shown == shown) return;
  found->second.shown = shown;
  OnChange(found->second);
}

void Win32Dialog::EnableControl(int control, bool enabled) {
  const HWND found = ControlWindow(control);
  if (found == nullptr) return;
  toolkit.usableChanged = true;
  EnableWindow(found, enabled ? TRUE : FALSE);
}

void Win32Dialog::PlaceControl(int control, const ui::Rect& place) {
  const auto found = controls.find(control);
  if (found == controls.end()) return;
  if (found->second.rect == place) return;
  found->second.rect = place;
  OnChange(found->second);
}

void Win32Dialog::SetFont(int control, const ui::Font& font) {
  const auto found = controls.find(control);
  if (found == controls.end()) return;
  if (found->second.fontSet && found->second.font == font) return;
  found->second.font = font;
  found->second.fontSet = true;
  OnChange(found->second);
}

void Win32Dialog::SetMark(int control, ui::Mark mark) {
  const auto found = controls.find(control);
  if (found == controls.end() || found->second.mark == mark) return;
  found->second.mark = mark;
  if (found->second.IsReadout()) {
    RepaintReadout(found->second);
  } else if (found->second.kind == ui::ControlKind::kEdit) {
    const RECT bar = BarOfEdit(found->second);
    if (IsSeen()) PaintAnew(&bar);
  } else {
    Repaint(found->second);
  }
}

bool Win32Dialog::PressIfShown(int control) {
  const Win32Control* found = Find(control);
  if (found == nullptr || !found->shown || !IsWindowEnabled(WindowOf(*found))) return false;
  events.OnCommand(control, ui::Notification::kClicked);
  return true;
}

bool Win32Dialog::Focus(int control) {
  const HWND found = ControlWindow(control);
  toolkit.Settle();
  return found != nullptr && toolkit.GiveFocus(found);
}

bool Win32Dialog::FocusFirst() {
  toolkit.Settle();
  const std::vector<HWND> stops = TabStops(nullptr);
  return !stops.empty() && toolkit.GiveFocus(stops.front());
}

void Win32Dialog::SetPictures(int control, std::string_view up, std::string_view down) {
  const auto found = controls.find(control);
  if (found == controls.end()) return;
  Win32Control& changed = found->second;
  if (changed.upPicture == up && changed.downPicture == down) return;
  changed.upPicture = up;
  changed.downPicture = down;
  Repaint(changed);
}

void Win32Dialog::SetTextLimit(int control, int characters) {
  SendMessageA(ControlWindow(control), EM_SETLIMITTEXT, static_cast<WPARAM>(characters), 0);
}

void Win32Dialog::SetSliderRange(int control, int minimum, int maximum) {
  const HWND slider = ControlWindow(control);
  const int top = std::max(minimum, maximum);
  if (SendMessageA(slider, TBM_GETRANGEMIN, 0, 0) != minimum ||
      SendMessageA(slider, TBM_GETRANGEMAX, 0, 0) != top) {  // else there is nothing to repaint
    SendMessageA(slider, TBM_SETRANGEMIN, FALSE, minimum);
    SendMessageA(slider, TBM_SETRANGEMAX, TRUE, top);
  }
  SendMessageA(slider, TBM_SETPAGESIZE, 0, kSliderPage);  // some systems derive it from the range
}

void Win32Dialog::SetSliderPosition(int control, int position) {
  SendMessageA(ControlWindow(control), TBM_SETPOS, TRUE, position);
}

int Win32Dialog::SliderPosition(int control) const {
  return static_cast<int>(SendMessageA(ControlWindow(control), TBM_GETPOS, 0, 0));
}

void Win32Dialog::SetProgressRange(int control, int minimum, int maximum) {
  SendMessageA(ControlWindow(control), PBM_SETRANGE32, static_cast<WPARAM>(minimum), maximum);
}

void Win32Dialog::SetProgressPosition(int control, int position) {
  SendMessageA(ControlWindow(control), PBM_SETPOS, static_cast<WPARAM>(position), 0);
}

void Win32Dialog::ClearItems(int control) {
  SendMessageA(ControlWindow(control), CB_RESETCONTENT, 0, 0);
}

void Win32Dialog::AddItem(int control, std::string_view text) {
  SendMessageA(ControlWindow(control), CB_ADDSTRING, 0,
               reinterpret_cast<LPARAM>(std::string(text).c_str()));
}

void Win32Dialog::SelectItem(int control, int index) {
  SendMessageA(ControlWindow(control), CB_SETCURSEL, static_cast<WPARAM>(index), 0);
}

int Win32Dialog::SelectedItem(int control) const {
  return static_cast<int>(SendMessageA(ControlWindow(control), CB_GETCURSEL, 0, 0));
}

std::string Win32Dialog::ItemText(int control, int index) const {
  const HWND combo = ControlWindow(control);
  const LRESULT length = SendMessageA(combo, CB_GETLBTEXTLEN, static_cast<WPARAM>(index), 0);
  if (length < 0) return "";
  std::string text(static_cast<std::size_t>(length) + 1, '\0');
  SendMessageA(combo, CB_GETLBTEXT, static_cast<WPARAM>(index),
               reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<std::size_t>(length));
  return text;
}

}  // namespace panelora::win32
