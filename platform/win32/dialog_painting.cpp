// What a dialog draws itself: captions, picture buttons, and the icon that it is minimised to.
#include <algorithm>

#include "platform/win32/win32_toolkit.h"

namespace panelora::win32 {

namespace {

// To select a font is dear, also one that is selected.
void SelectFontOnce(HDC context, HGDIOBJ font) {
  if (GetCurrentObject(context, OBJ_FONT) != font) SelectObject(context, font);
}

HGDIOBJ FontOf(HWND control) {
  return reinterpret_cast<HGDIOBJ>(SendMessageA(control, WM_GETFONT, 0, 0));
}

// Leaves a device context as it was. To save all of it is dearer than most of what is drawn.
class KeptState {
 public:
  explicit KeptState(HDC theContext) : context(theContext) {}
  ~KeptState() {
    SelectFontOnce(context, font);
    SelectObject(context, pen);
    SelectObject(context, brush);
    SetTextColor(context, text);
    SetBkColor(context, background);
    SetBkMode(context, mode);
  }
  KeptState(const KeptState&) = delete;
  KeptState& operator=(const KeptState&) = delete;

 private:
  HDC context;
  HGDIOBJ font = GetCurrentObject(context, OBJ_FONT);
  HGDIOBJ pen = GetCurrentObject(context, OBJ_PEN);
  HGDIOBJ brush = GetCurrentObject(context, OBJ_BRUSH);
  COLORREF text = GetTextColor(context);
  COLORREF background = GetBkColor(context);
  int mode = GetBkMode(context);
};

}  // namespace

void Win32Dialog::DrawControl(const DRAWITEMSTRUCT& item) {
  const Win32Control* control = Find(static_cast<int>(item.CtlID));
  if (control == nullptr) return;
  const KeptState kept(item.hDC);
  switch (control->kind) {
    case ui::ControlKind::kLabel:
      DrawLabel(*control, item);
      break;
    case ui::ControlKind::kButton:
      DrawButton(*control, item);
      break;
    default:
      DrawPicture(*control, item);
      break;
  }
}

// The first line of the text, in the middle of the label's height. Its window may be limited to the
// line, but such a window is lent its parent's device context, which is not.
void Win32Dialog::DrawLabel(const Win32Control& control, const DRAWITEMSTRUCT& item) {
  RECT place = control.limited ? control.visible : item.rcItem;
  const bool isValue = LiesInReadout(control);
  FillRect(
      item.hDC, &place,
      isValue ? toolkit.Gdi().BrushFor(toolkit.Colours().readout) : GetSysColorBrush(COLOR_3DFACE));
  SelectFontOnce(item.hDC, FontOf(item.hwndItem));
  SetBkMode(item.hDC, TRANSPARENT);
  const bool disabled = (item.itemState & ODS_DISABLED) != 0;
  SetTextColor(item.hDC, GetSysColor(disabled  ? COLOR_GRAYTEXT
                                     : isValue ? COLOR_WINDOWTEXT
                                               : COLOR_BTNTEXT));
  const std::string& text = control.text;
  DrawTextA(item.hDC, text.c_str(), static_cast<int>(std::min(text.find('\n'), text.size())),
            &place, DT_LEFT | DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_EXPANDTABS);
}

void Win32Dialog::DrawPicture(const Win32Control& control, const DRAWITEMSTRUCT& item) {
  const bool pressed = (item.itemState & ODS_SELECTED) != 0;
  const std::string& name = pressed ? control.downPicture : control.upPicture;
  RECT place = item.rcItem;
  if (name.empty() || !toolkit.Gdi().Draw(item.hDC, place, name, dpi)) {
    // No picture yet: an ordinary button with its text.
    DrawFrameControl(item.hDC, &place, DFC_BUTTON,
                     static_cast<UINT>(DFCS_BUTTONPUSH | (pressed ? DFCS_PUSHED : 0)));
    SetBkMode(item.hDC, TRANSPARENT);
    DrawTextA(item.hDC, control.text.c_str(), -1, &place,
              DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
  }
  if (control.mark != ui::Mark::kNone && !pressed) {
    // In the colours of a button that is held, which is drawn over it. There the caption stands a
    // pixel lower.
    RECT held = place;
    OffsetRect(&held, 0, -Scaled(1));
    RECT inside = SeenPart(item);
    InflateRect(&inside, -Scaled(3), -Scaled(3));
    toolkit.Gdi().Within(item.hDC, inside, Scaled(6), [&] {
      toolkit.Gdi().Draw(item.hDC, held, control.downPicture, dpi,
                         control.mark == ui::Mark::kPending ? 200 : 150);
    });
    const RECT bar = {Scaled(2), Scaled(8), Scaled(6), SeenPart(item).bottom - Scaled(8)};
    FillRect(item.hDC, &bar, toolkit.Gdi().BrushFor(toolkit.Colours().ink));
  }
  if (item.hwndItem == toolkit.Hot() && !pressed) {
    RECT inside = SeenPart(item);
    InflateRect(&inside, -Scaled(2), -Scaled(2));
    toolkit.Gdi().Wash(item.hDC, inside, RGB(0xFF, 0xFF, 0xFF), 28, Scaled(9));
  }
  DrawFocus(item);
}

// A button at the lower edge may reach below the window.
RECT Win32Dialog::SeenPart(const DRAWITEMSTRUCT& item) const {
  RECT client;
  GetClientRect(window, &client);
  MapWindowPoints(window, item.hwndItem, reinterpret_cast<POINT*>(&client), 2);
  RECT seen;
  IntersectRect(&seen, &item.rcItem, &client);
  return seen;
}

// Fits into the rounded button: a light line in a dark one, to be seen on every picture.
void Win32Dialog::DrawFocus(const DRAWITEMSTRUCT& item) {
  if ((item.itemState & ODS_FOCUS) == 0 || !toolkit.MarksFocus()) return;
  const RECT seen = SeenPart(item);
  const auto ring = [&](int inset, COLORREF colour) {
    RECT mark = seen;
    InflateRect(&mark, -inset, -inset);
    SelectObject(item.hDC, toolkit.Gdi().PenFor(colour, Scaled(1)));
    SelectObject(item.hDC, GetStockObject(NULL_BRUSH));
    RoundRect(item.hDC, mark.left, mark.top, mark.right, mark.bottom, Scaled(6), Scaled(6));
  };
  ring(Scaled(4), RGB(0xFF, 0xFF, 0xFF));
  ring(Scaled(5), RGB(0, 0, 0));
}

namespace {

// A chevron whose tip is at `x`, pointing right or left, of lines at 45 degrees that need no
// smoothing.
void DrawChevron(HDC context, int x, int middle, int reach, int thick, bool right) {
  const int side = right ? -1 : 1;
  for (int i = 0; i < thick; ++i) {
    const POINT points[] = {{x + side * (reach + i), middle - reach},
                            {x + side * i, middle},
                            {x + side * (reach + i + 1), middle + reach + 1}};
    Polyline(context, points, 3);
  }
}

}  // namespace

// Step buttons have signs in place of their texts.
void Win32Dialog::DrawButton(const Win32Control& control, const DRAWITEMSTRUCT& item) {
  const Look& look = toolkit.Colours();
  const bool pressed = (item.itemState & ODS_SELECTED) != 0;
  const bool disabled = (item.itemState & ODS_DISABLED) != 0;
  const bool hot = item.hwndItem == toolkit.Hot();
  const COLORREF ink = disabled ? look.disabledInk : look.ink;
  const RECT& place = item.rcItem;
  FillRect(item.hDC, &place, GetSysColorBrush(COLOR_3DFACE));
  GdiCache& gdi = toolkit.Gdi();
  const COLORREF face = disabled  ? look.disabled
                        : pressed ? look.pressed
                        : hot     ? look.hot
                                  : look.face;
  gdi.DrawRounded(item.hDC, place, face, disabled ? look.disabled : look.rim, Scaled(8));

  const int x = (place.left + place.right) / 2;
  const int y = (place.top + place.bottom) / 2 + (pressed ? Scaled(1) : 0);
  const int reach = std::min(Scaled(5), static_cast<int>(place.bottom - place.top) / 5);
  const int thick = Scaled(2);
  SelectObject(item.hDC, gdi.PenFor(ink, 1));
  if (control.text == ">>") {
    DrawChevron(item.hDC, x + reach + thick, y, reach, thick, true);
    DrawChevron(item.hDC, x, y, reach, thick, true);
  } else if (control.text == "<<") {
    DrawChevron(item.hDC, x - reach - thick, y, reach, thick, false);
    DrawChevron(item.hDC, x, y, reach, thick, false);
  } else if (control.text == "+" || control.text == "-") {
    const RECT across = {x - reach, y - thick / 2, x + reach, y - thick / 2 + thick};
    FillRect(item.hDC, &across, gdi.BrushFor(ink));
    const RECT upright = {x - thick / 2, y - reach, x - thick / 2 + thick, y + reach};
    if (control.text == "+") FillRect(item.hDC, &upright, gdi.BrushFor(ink));
  } else {
    RECT text = {place.left, place.top + y - (place.top + place.bottom) / 2, place.right,
                 place.bottom};
    SelectFontOnce(item.hDC, FontOf(item.hwndItem));
    SetBkMode(item.hDC, TRANSPARENT);
    SetTextColor(item.hDC, ink);
    DrawTextA(item.hDC, control.text.c_str(), -1, &text,
              DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_NOPREFIX);
  }
  DrawFocus(item);
}

// A track in the middle, filled up to the thumb. The trackbar says where its thumb is, and has
// painted what is behind. When the thumb moves it paints only where that was and is, but the filled
// part of the track changes with it: the rest of the track is drawn past what is to be painted.
LRESULT Win32Dialog::DrawSlider(const NMCUSTOMDRAW& draw) {
  if (draw.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
  if (draw.dwDrawStage != CDDS_ITEMPREPAINT) return CDRF_DODEFAULT;
  const HWND slider = draw.hdr.hwndFrom;
  RECT thumb;
  SendMessageA(slider, TBM_GETTHUMBRECT, 0, reinterpret_cast<LPARAM>(&thumb));
  if (draw.dwItemSpec == TBCD_THUMB) {
    DrawThumb(draw, thumb);
  } else if (draw.dwItemSpec == TBCD_CHANNEL) {
    DrawTrack(draw.hdc, slider, thumb);
    if (const HDC whole = GetDC(slider)) {
      ExcludeClipRect(whole, thumb.left, thumb.top, thumb.right, thumb.bottom);
      DrawTrack(whole, slider, thumb);
      ReleaseDC(slider, whole);
    }
  }
  return CDRF_SKIPDEFAULT;  // there are no ticks
}

void Win32Dialog::DrawTrack(HDC context, HWND slider, const RECT& thumb) {
  const KeptState kept(context);
  const Look& look = toolkit.Colours();
  RECT client;
  GetClientRect(slider, &client);
  const int middle = (thumb.top + thumb.bottom) / 2;
  const int half = std::max(Scaled(3), 2);
  RECT track = {client.left + Scaled(6), middle - half, client.right - Scaled(6), middle + half};
  toolkit.Gdi().DrawRounded(context, track, look.readout, look.readoutRim, 2 * half);
  track.right = (thumb.left + thumb.right) / 2;
  const bool filled = IsWindowEnabled(slider) != FALSE && track.right - track.left > 2 * half;
  if (filled) toolkit.Gdi().DrawRounded(context, track, look.accent, look.accent, 2 * half);
}

// A bar looks as the track of a slider does. The system would draw its own in a colour of its own.
LRESULT CALLBACK Win32Dialog::BarProcedure(HWND bar, UINT message, WPARAM wParam, LPARAM lParam,
                                           UINT_PTR /*number*/, DWORD_PTR toolkit) noexcept {
  if (message == WM_ERASEBKGND) return 1;
  if (message != WM_PAINT) return DefSubclassProc(bar, message, wParam, lParam);
  auto& its = *reinterpret_cast<Win32Toolkit*>(toolkit);
  const Look& look = its.Colours();
  PAINTSTRUCT paint;
  const HDC context = BeginPaint(bar, &paint);
  RECT track;
  GetClientRect(bar, &track);
  FillRect(context, &track, its.Gdi().BrushFor(look.readout));
  const int round = (track.bottom - track.top) / 2;
  its.Gdi().DrawRounded(context, track, look.readout, look.readoutRim, round);
  const auto range = static_cast<int>(DefSubclassProc(bar, PBM_GETRANGE, FALSE, 0));
  const auto position = static_cast<int>(DefSubclassProc(bar, PBM_GETPOS, 0, 0));
  const int width = range > 0 ? MulDiv(track.right - track.left, position, range) : 0;
  track.right = track.left + width;
  if (width > round) its.Gdi().DrawRounded(context, track, look.accent, look.accent, round);
  EndPaint(bar, &paint);
  return 0;
}

void Win32Dialog::DrawThumb(const NMCUSTOMDRAW& draw, const RECT& thumb) {
  const KeptState kept(draw.hdc);
  const Look& look = toolkit.Colours();
  const HWND slider = draw.hdr.hwndFrom;
  const bool enabled = IsWindowEnabled(slider) != FALSE;
  const bool held = (draw.uItemState & CDIS_SELECTED) != 0;
  const bool marked = GetFocus() == slider && toolkit.MarksFocus();
  const COLORREF face = !enabled ? look.disabled : held ? look.pressed : look.face;
  toolkit.Gdi().DrawRounded(draw.hdc, thumb, face, enabled ? look.rim : look.readoutRim, Scaled(6));
  if (marked) {
    RECT inside = thumb;
    InflateRect(&inside, -Scaled(1), -Scaled(1));
    toolkit.Gdi().DrawRounded(draw.hdc, inside, look.accent, look.ink, Scaled(5));
  }
  const int x = (thumb.left + thumb.right) / 2;
  const int reach = static_cast<int>(thumb.bottom - thumb.top) / 4;
  const int thick = std::max(Scaled(1) / 2, 1);
  const RECT notch = {x - thick, thumb.top + reach, x + thick, thumb.bottom - reach};
  FillRect(draw.hdc, &notch, toolkit.Gdi().BrushFor(enabled ? look.ink : look.disabledInk));
}

// The frame of a value stands where the group box would draw its lines.
RECT Win32Dialog::ReadoutOf(const Win32Control& control) const {
  constexpr int kAbove = 8;
  constexpr int kBelow = 1;
  const ui::Rect& place = control.rect;
  return Scaled({place.x, place.y + kAbove, place.width, place.height - kAbove - kBelow});
}

// Where an edit whose text is to be applied is marked, left of it.
RECT Win32Dialog::BarOfEdit(const Win32Control& control) const {
  constexpr int kWidth = 4;
  const ui::Rect& place = control.rect;
  return Scaled({place.x - 2 - kWidth, place.y, kWidth, place.height});
}

bool Win32Dialog::LiesInReadout(const Win32Control& control) const {
  const RECT place = Scaled(control.rect);
  const POINT middle = {(place.left + place.right) / 2, (place.top + place.bottom) / 2};
  return std::any_of(controls.begin(), controls.end(), [&](const auto& each) {
    if (!each.second.IsReadout() || !each.second.shown) return false;
    const RECT readout = ReadoutOf(each.second);
    return PtInRect(&readout, middle) != FALSE;
  });
}

void Win32Dialog::RepaintReadout(const Win32Control& control) {
  if (!IsSeen()) return;
  const RECT readout = ReadoutOf(control);
  PaintAnew(&readout);
}

// False for dialogs whose background is nobody's but the system's.
bool Win32Dialog::EraseWithReadouts(HDC context) {
  if (source.framed || events.BackgroundColour()) return false;
  const KeptState kept(context);
  const Look& look = toolkit.Colours();
  RECT client;
  GetClientRect(window, &client);
  FillRect(context, &client, GetSysColorBrush(COLOR_3DFACE));
  for (const auto& [id, control] : controls) {
    const bool pending = control.mark == ui::Mark::kPending;
    if (control.shown && pending && control.kind == ui::ControlKind::kEdit) {
      const RECT bar = BarOfEdit(control);
      FillRect(context, &bar, toolkit.Gdi().BrushFor(look.accent));
    }
    if (!control.shown || !control.IsReadout()) continue;
    const RECT place = ReadoutOf(control);
    toolkit.Gdi().DrawRounded(context, place, look.readout, pending ? look.accent : look.readoutRim,
                              Scaled(5));
    if (!pending) continue;
    const RECT edge = {place.left, place.top + Scaled(2), place.left + Scaled(4),
                       place.bottom - Scaled(2)};
    FillRect(context, &edge, toolkit.Gdi().BrushFor(look.accent));
  }
  return true;
}

bool Win32Dialog::PaintMinimised() {
  if (!IsIconic(window) || bigIcon == nullptr) return false;
  PAINTSTRUCT paint;
  const HDC context = BeginPaint(window, &paint);
  SendMessageA(window, WM_ICONERASEBKGND, reinterpret_cast<WPARAM>(context), 0);
  RECT client;
  GetClientRect(window, &client);
  const int x = (client.right - GetSystemMetrics(SM_CXICON) + 1) / 2;
  const int y = (client.bottom - GetSystemMetrics(SM_CYICON) + 1) / 2;
  DrawIcon(context, x, y, bigIcon);
  EndPaint(window, &paint);
  return true;
}

}  // namespace panelora::win32
