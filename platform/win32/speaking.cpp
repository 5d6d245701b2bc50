// What screen readers are told of the controls, and what they are told of changes. The names are
// made in res/spoken_names.h.
#include "platform/win32/speaking.h"

// oleacc.h needs the one before it.
// clang-format off
#include <ole2.h>
#include <oleacc.h>
// clang-format on

#include <array>
#include <cstddef>

#include "platform/win32/accessible.h"
#include "platform/win32/tab_order.h"
#include "platform/win32/win32_toolkit.h"

namespace panelora::win32 {

namespace {

using ui::ControlKind;

// The class of a kind's windows.
enum Class { kButtonClass, kStaticClass, kEditClass, kSliderClass, kProgressClass, kComboClass };

Class ClassOf(ControlKind kind) {
  switch (kind) {
    case ControlKind::kLabel:
    case ControlKind::kPicture:
    case ControlKind::kIcon:
      return kStaticClass;
    case ControlKind::kEdit:
      return kEditClass;
    case ControlKind::kSlider:
      return kSliderClass;
    case ControlKind::kProgress:
      return kProgressClass;
    case ControlKind::kCombo:
      return kComboClass;
    default:
      return kButtonClass;
  }
}

long RoleOf(ControlKind kind) {
  switch (kind) {
    case ControlKind::kLabel:
      return ROLE_SYSTEM_STATICTEXT;
    case ControlKind::kGroup:
      return ROLE_SYSTEM_GROUPING;
    case ControlKind::kEdit:
      return ROLE_SYSTEM_TEXT;
    case ControlKind::kSlider:
      return ROLE_SYSTEM_SLIDER;
    case ControlKind::kProgress:
      return ROLE_SYSTEM_PROGRESSBAR;
    case ControlKind::kCombo:
      return ROLE_SYSTEM_COMBOBOX;
    case ControlKind::kPicture:
    case ControlKind::kIcon:
      return ROLE_SYSTEM_GRAPHIC;
    default:
      return ROLE_SYSTEM_PUSHBUTTON;
  }
}

bool IsPressed(const Win32Control& control) {
  return RoleOf(control.kind) == ROLE_SYSTEM_PUSHBUTTON &&
         (SendMessageA(control.window, BM_GETSTATE, 0, 0) & BST_PUSHED) != 0;
}

long StateOf(const Win32Control& control) {
  const HWND window = control.window;
  long state = 0;
  if (!IsWindowEnabled(window)) state |= STATE_SYSTEM_UNAVAILABLE;
  if (!IsWindowVisible(window)) state |= STATE_SYSTEM_INVISIBLE;
  if (TakesFocus(window)) state |= STATE_SYSTEM_FOCUSABLE;
  if (GetFocus() == window) state |= STATE_SYSTEM_FOCUSED;
  if (IsPressed(control)) state |= STATE_SYSTEM_PRESSED;
  if (control.mark == ui::Mark::kCurrent) state |= STATE_SYSTEM_SELECTED;
  return state;
}

std::optional<Told> TellOf(HWND control) {
  const HWND parent = GetParent(control);
  auto* dialog = reinterpret_cast<Win32Dialog*>(GetWindowLongPtrA(parent, DWLP_USER));
  return dialog != nullptr ? dialog->Tell(control) : std::nullopt;
}

// In front of the procedure that all windows of a class have in common.
template <Class which>
struct Speaking {
  static inline WNDPROC before = nullptr;
  static inline bool wide = false;

  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam,
                                    LPARAM lParam) noexcept {
    if (message == WM_GETOBJECT && static_cast<LONG>(lParam) == OBJID_CLIENT) {
      const LRESULT answer = AnswerAccessible(window, wParam, TellOf);
      if (answer != 0) return answer;
    }
    if (message == WM_NCDESTROY) ForgetAccessible(window);
    return wide ? CallWindowProcW(before, window, message, wParam, lParam)
                : CallWindowProcA(before, window, message, wParam, lParam);
  }

  // In the letters that the window has, narrow or wide. One that somebody has put a procedure of
  // his own before stays as it is.
  static void PutBefore(HWND window) {
    const auto get = IsWindowUnicode(window) ? GetWindowLongPtrW : GetWindowLongPtrA;
    const auto set = IsWindowUnicode(window) ? SetWindowLongPtrW : SetWindowLongPtrA;
    const auto now = reinterpret_cast<WNDPROC>(get(window, GWLP_WNDPROC));
    if (before == nullptr) {
      before = now;
      wide = IsWindowUnicode(window) != FALSE;
    }
    if (before == now) set(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Procedure));
  }
};

template <std::size_t... which>
constexpr auto Putters(std::index_sequence<which...>) {
  return std::array{&Speaking<static_cast<Class>(which)>::PutBefore...};
}

}  // namespace

void LetSpeak(HWND control, ControlKind kind) {
  static constexpr auto kPutters = Putters(std::make_index_sequence<kComboClass + 1>());
  kPutters[ClassOf(kind)](control);
}

std::string Win32Dialog::ValueOf(const Win32Control& control) const {
  const HWND its = WindowOf(control);
  switch (control.kind) {
    case ControlKind::kEdit:
      return Text(control.id);
    case ControlKind::kSlider:
      return std::to_string(SliderPosition(control.id));
    case ControlKind::kProgress: {
      const LRESULT range = SendMessageA(its, PBM_GETRANGE, FALSE, 0);
      const LRESULT position = SendMessageA(its, PBM_GETPOS, 0, 0);
      return std::to_string(range > 0 ? position * 100 / range : 0) + "%";
    }
    case ControlKind::kCombo:
      return res::Said(ItemText(control.id, SelectedItem(control.id)));
    default:
      return "";
  }
}

std::map<int, res::Spoken> Win32Dialog::Spoken() const {
  std::vector<res::SeenControl> seen;
  for (const ui::ControlTemplate& row : source.controls) {
    const Win32Control& control = *Find(row.id);
    if (!control.shown) continue;
    seen.push_back({control.id, control.kind, control.text, control.rect, true, control.mark,
                    control.upPicture, ValueOf(control)});
  }
  return res::SpokenOf(source.number, seen);
}

std::optional<Told> Win32Dialog::Tell(HWND control) {
  const Win32Control* found = Find(GetDlgCtrlID(control));
  if (found == nullptr || WindowOf(*found) != control) return std::nullopt;
  toolkit.Listen();
  const std::map<int, res::Spoken> spoken = Spoken();
  const auto its = spoken.find(found->id);
  Told told;
  if (its != spoken.end()) {
    told.name = its->second.name;
    told.value = its->second.value;
    told.description = its->second.description;
  } else {
    told.name = res::Said(found->text);
  }
  told.role = RoleOf(found->kind);
  told.state = StateOf(*found);
  told.presses = told.role == ROLE_SYSTEM_PUSHBUTTON;
  return told;
}

// What was seen before and is said otherwise now; what comes and goes the reader finds himself.
void Win32Dialog::TellChanges() {
  if (window == nullptr || !IsWindowVisible(window)) {
    said.clear();
    return;
  }
  struct Change {
    HWND control;
    DWORD event;
  };
  std::vector<Change> changes;
  std::map<int, res::Spoken> now = Spoken();
  for (const auto& [id, spoken] : now) {
    const auto before = said.find(id);
    if (before == said.end()) continue;
    const HWND control = ControlWindow(id);
    if (before->second.name != spoken.name) changes.push_back({control, EVENT_OBJECT_NAMECHANGE});
    if (before->second.value != spoken.value)
      changes.push_back({control, EVENT_OBJECT_VALUECHANGE});
  }
  said = std::move(now);
  // Who listens may ask, or act, at once.
  for (const Change& change : changes) {
    NotifyWinEvent(change.event, change.control, OBJID_CLIENT, CHILDID_SELF);
  }
}

// From the first question on changes are told: without a reader they cost nothing.
void Win32Toolkit::Listen() {
  if (listened) return;
  listened = true;
  TellChanges();
}

void Win32Toolkit::TellChanges() {
  for (std::size_t i = 0; i < dialogs.size(); ++i) dialogs[i]->TellChanges();
}

}  // namespace panelora::win32
