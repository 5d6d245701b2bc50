// Where the windows of a dialog stand, in which font and whether they are seen: given to them in
// one go.
#include "platform/win32/win32_toolkit.h"

namespace panelora::win32 {

namespace {

constexpr int kDropDownHeight = 180;
constexpr int kAboveThumb = 3;  // and below it

// The font of the dialog templates.
constexpr ui::Font kDialogFont{"MS Shell Dlg", 80};

bool HasStyle(HWND window, LONG_PTR style) {
  return (GetWindowLongPtrA(window, GWL_STYLE) & style) != 0;
}

}  // namespace

int Win32Dialog::Scaled(int value) const { return ScaleForDpi(value, dpi); }

// Edges are scaled, not sizes, so that what touches at 96 dpi touches at every dpi.
RECT Win32Dialog::Scaled(const ui::Rect& place) const {
  return {Scaled(place.x), Scaled(place.y), Scaled(place.x + place.width),
          Scaled(place.y + place.height)};
}

// What a handler asks for is done when it ends, all in one go and each window once: pages and
// buttons are hidden and shown again, and captions set twice, on the way to a page. Outside of
// handlers it is done at once.
void Win32Dialog::OnChange() {
  toolkit.unsettled = true;
  unsettled = true;
  if (toolkit.depth == 0) toolkit.Settle();
}

void Win32Dialog::OnChange(Win32Control& control) {
  control.changed = true;
  OnChange();
}

bool Win32Dialog::IsSeen() const { return window != nullptr && HasStyle(window, WS_VISIBLE); }

// The controls of a dialog that nobody sees get what was asked for them when it is shown, and the
// font even later, when they are seen themselves: most are placed, hidden and given a font at the
// start, and many are never seen. Only their texts stand at once.
void Win32Dialog::Settle() {
  if (!unsettled || window == nullptr) return;
  unsettled = false;
  const bool seen = IsSeen();
  const bool appears = pageShown && !seen;
  const auto settle = [&](bool shown) {
    for (auto& [id, control] : controls) {
      if (control.shown != shown) continue;
      if (control.textChanged) ShowText(control);
      if (appears || (control.changed && seen)) ShowNow(control);
    }
  };
  settle(false);
  settle(true);
  if (appears) ShowWindow(window, SW_SHOW);
}

void Win32Dialog::HideWhenAsked() {
  if (!source.framed && !pageShown && IsSeen()) ShowWindow(window, SW_HIDE);
}

// A part of the dialog, or all of it, with its controls.
void Win32Dialog::PaintAnew(const RECT* part) {
  RedrawWindow(window, part, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

// What is not seen is painted when it is shown.
void Win32Dialog::Repaint(const Win32Control& control) {
  if (IsSeen() && IsWindowVisible(WindowOf(control))) {
    InvalidateRect(WindowOf(control), nullptr, FALSE);
  }
}

void Win32Dialog::ShowNow(Win32Control& control) {
  const bool seen = HasStyle(WindowOf(control), WS_VISIBLE);
  if (control.shown != seen) toolkit.usableChanged = true;
  if (control.IsReadout() && (control.changed || control.shown != seen)) {
    if (!control.limited) SetWindowRgn(WindowOf(control), CreateRectRgn(0, 0, 0, 0), FALSE);
    control.limited = true;  // its dialog paints it
    RepaintReadout(control);
  }
  // Moved and shown or hidden at once: each costs a talk with the system.
  if (!control.shown) {
    const bool moved = control.changed && MoveToPlace(control, seen ? SWP_HIDEWINDOW : 0);
    if (seen && !moved) ShowWindow(WindowOf(control), SW_HIDE);
    return;
  }
  const bool moved = control.changed && LayOutControl(control, seen ? 0 : SWP_SHOWWINDOW);
  if (!seen && !moved) ShowWindow(WindowOf(control), SW_SHOW);
}

void Win32Dialog::LayOutSeen() {
  for (auto& [id, control] : controls) ShowNow(control);
}

void Win32Dialog::LayOutAll() {
  for (auto& [id, control] : controls) {
    if (control.changed) LayOutControl(control);
  }
  LayOutSeen();
}

// True when the control was not yet where it belongs, and was moved, with the flags of
// SetWindowPos.
bool Win32Dialog::LayOutControl(Win32Control& control, UINT flags) {
  control.changed = false;
  const bool moved = MoveToPlace(control, flags);
  if (control.fontSet) UseFont(control);
  return moved;
}

bool Win32Dialog::MoveToPlace(Win32Control& control, UINT flags) {
  RECT place = Scaled(control.rect);
  // A combo box is as high as its open list; closed it takes the height of its font, so that it
  // never stands where it was placed.
  if (control.kind == ui::ControlKind::kCombo) place.bottom += Scaled(kDropDownHeight);
  if (EqualRect(&control.placed, &place)) return false;
  if (control.IsReadout()) {  // where it was, and where it comes
    PaintAnew(&control.placed);
    PaintAnew(&place);
  }
  control.placed = place;
  RECT now;
  GetWindowRect(WindowOf(control), &now);
  MapWindowPoints(nullptr, window, reinterpret_cast<POINT*>(&now), 2);
  if (EqualRect(&now, &place)) return false;
  SetWindowPos(WindowOf(control), nullptr, place.left, place.top, place.right - place.left,
               place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE | flags);
  if (control.kind == ui::ControlKind::kSlider) {
    // As high as it is drawn, so that it is held wherever it is seen.
    SendMessageA(WindowOf(control), TBM_SETTHUMBLENGTH,
                 static_cast<WPARAM>(place.bottom - place.top - 2 * Scaled(kAboveThumb)), 0);
  }
  return true;
}

// A caption that is wider than its place is drawn in narrower letters instead of being cut.
void Win32Dialog::UseFont(Win32Control& control) {
  const bool fits = control.kind == ui::ControlKind::kLabel;
  const HFONT font =
      fits ? toolkit.Gdi().FontToFit(control.font, dpi, control.text, Scaled(control.rect.width))
           : toolkit.Gdi().FontFor(control.font, dpi);
  if (fits) LimitToLine(control, font);
  const LRESULT used = SendMessageA(WindowOf(control), WM_GETFONT, 0, 0);
  if (used == reinterpret_cast<LRESULT>(font)) return;
  SendMessageA(WindowOf(control), WM_SETFONT, reinterpret_cast<WPARAM>(font),
               IsWindowVisible(WindowOf(control)));
}

// A label that is higher than its one line paints the line only, so that it leaves a frame that
// runs through its place whole.
void Win32Dialog::LimitToLine(Win32Control& control, HFONT font) {
  const int height = Scaled(control.rect.y + control.rect.height) - Scaled(control.rect.y);
  const int line = toolkit.Gdi().LineHeight(font);
  const int top = (height - line) / 2;
  // A letter may hang one pixel below the line of its font.
  const RECT visible = {0, top, Scaled(control.rect.width) + 1, top + line + 1};
  const bool limits = line < height;
  if (limits == control.limited && (!limits || EqualRect(&visible, &control.visible))) return;
  control.limited = limits;
  control.visible = visible;
  SetWindowRgn(WindowOf(control), limits ? CreateRectRgnIndirect(&visible) : nullptr,
               IsWindowVisible(WindowOf(control)));
}

void Win32Dialog::SizeForClient(int width, int height, UINT flags) {
  RECT outer;
  RECT client;
  GetWindowRect(window, &outer);
  GetClientRect(window, &client);
  SetWindowPos(window, HWND_TOP, 0, 0, (outer.right - outer.left) - client.right + Scaled(width),
               (outer.bottom - outer.top) - client.bottom + Scaled(height), flags);
}

void Win32Dialog::Rescale(int newDpi) {
  dpi = newDpi;
  for (auto& [id, control] : controls) {
    OnChange(control);
    if (!control.fontSet) {  // has the dialog's own font, made for another dpi
      SendMessageA(WindowOf(control), WM_SETFONT,
                   reinterpret_cast<WPARAM>(toolkit.Gdi().FontFor(kDialogFont, dpi)), TRUE);
    }
  }
  if (iconNumber != 0) SetIcon(iconNumber);
  if (!source.framed) {
    const RECT place = Scaled(rect);
    SetWindowPos(window, nullptr, place.left, place.top, place.right - place.left,
                 place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
  }
  InvalidateRect(window, nullptr, TRUE);
}

void Win32Dialog::OnDpiChanged(int newDpi, const RECT& suggested) {
  SetWindowPos(window, nullptr, suggested.left, suggested.top, suggested.right - suggested.left,
               suggested.bottom - suggested.top, SWP_NOZORDER | SWP_NOACTIVATE);
  Rescale(newDpi);
  SizeForClient(rect.width, rect.height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  for (Win32Dialog* page : toolkit.dialogs) {
    if (page->parent == this && !page->source.framed && page->IsOpen()) page->Rescale(newDpi);
  }
}

}  // namespace panelora::win32
