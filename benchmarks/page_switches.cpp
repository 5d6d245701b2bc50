#include "benchmarks/page_switches.h"

#include <cstring>

#include "res/dialog_templates.h"

namespace panelora::benchmarks {

namespace {

RECT PlaceOf(HWND window) {
  RECT place;
  GetWindowRect(window, &place);
  MapWindowPoints(nullptr, GetParent(window), reinterpret_cast<POINT*>(&place), 2);
  return place;
}

Look LookOf(int dialog, int control, HWND window) {
  char text[256] = "";
  GetWindowTextA(window, text, sizeof text);
  const bool visible = (GetWindowLongPtrA(window, GWL_STYLE) & WS_VISIBLE) != 0;
  Look look{dialog, control, visible, PlaceOf(window), text, "", GetFocus() == window, {}};
  const LRESULT font = SendMessageA(window, WM_GETFONT, 0, 0);
  GetObjectA(reinterpret_cast<HGDIOBJ>(font), sizeof look.font, &look.font);
  return look;
}

}  // namespace

std::vector<Look> LookAt(win32::Win32Toolkit& toolkit) {
  std::vector<Look> looks;
  for (const ui::DialogTemplate& row : res::Dialogs()) {
    win32::Win32Dialog* dialog = toolkit.Find(row.number);
    if (dialog == nullptr) continue;
    if (!row.framed) looks.push_back(LookOf(row.number, 0, dialog->Handle()));
    for (const ui::ControlTemplate& control : row.controls) {
      looks.push_back(LookOf(row.number, control.id, dialog->ControlWindow(control.id)));
      looks.back().picture = dialog->Find(control.id)->upPicture;
    }
  }
  return looks;
}

std::vector<Change> ChangesBetween(const std::vector<Look>& before,
                                   const std::vector<Look>& after) {
  std::vector<Change> changes;
  for (std::size_t i = 0; i < after.size(); ++i) {
    const Look& old = before[i];
    const Look& now = after[i];
    const Change change{now,
                        old.visible != now.visible,
                        EqualRect(&old.place, &now.place) == FALSE,
                        old.text != now.text,
                        old.picture != now.picture,
                        !old.focused && now.focused,
                        std::memcmp(&old.font, &now.font, sizeof old.font) != 0};
    if (change.visibility || change.place || change.text || change.picture || change.focus ||
        change.font) {
      changes.push_back(change);
    }
  }
  return changes;
}

void Apply(const std::vector<Change>& changes, BareWindows& windows) {
  const auto find = [&](const Change& change) {
    return windows.Find(change.after.dialog, change.after.control);
  };
  for (const Change& change : changes) {
    if (change.visibility && !change.after.visible) ShowWindow(find(change), SW_HIDE);
  }
  for (const Change& change : changes) {
    const Look& after = change.after;
    const HWND window = find(change);
    if (change.font) windows.UseFont(window, after.font);
    if (change.text) SetWindowTextA(window, after.text.c_str());
    if (change.picture) windows.ShowPicture(after.dialog, after.control, after.picture);
    if (change.place) {
      SetWindowPos(window, nullptr, after.place.left, after.place.top,
                   after.place.right - after.place.left, after.place.bottom - after.place.top,
                   SWP_NOZORDER | SWP_NOACTIVATE);
    }
  }
  for (const Change& change : changes) {
    if (change.visibility && change.after.visible) ShowWindow(find(change), SW_SHOW);
    if (change.focus) SetFocus(find(change));
  }
}

}  // namespace panelora::benchmarks
