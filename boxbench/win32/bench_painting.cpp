// What the window draws itself: its head, the fault band, its buttons and the colours of rows.
#include <string>

#include "app/device_picture.h"
#include "boxbench/win32/bench_metrics.h"
#include "boxbench/win32/bench_window.h"

namespace panelora::boxbench {

namespace {

using namespace control;  // NOLINT: nearly every line names some

constexpr COLORREF kThere = RGB(0x4F, 0xC3, 0x8A);
constexpr COLORREF kAway = RGB(0xE8, 0x7A, 0x5D);
constexpr COLORREF kQuietInk = RGB(0xC8, 0xD2, 0xDB);
constexpr COLORREF kBand = RGB(0xF6, 0xC3, 0x4B);
constexpr COLORREF kBandInk = RGB(0x3A, 0x2A, 0x00);
constexpr COLORREF kFlash = RGB(0xCF, 0xEE, 0xF1);
constexpr COLORREF kFailed = RGB(0xB0, 0x2A, 0x1E);
constexpr COLORREF kWritten = RGB(0x0A, 0x5E, 0x9B);

// At 96 dpi.
constexpr int kPictureWidth = 360;
constexpr int kPictureHeight = 39;
constexpr int kFineDpi = 192;  // there are pictures of that scale alone

bool IsHeading(int id) {
  return id == kConnectionHeading || id == kModelHeading || id == kSignalHeading ||
         id == kWrongHeading || id == kAllHeading || id == kPropertiesHeading || id == kLogHeading;
}

bool IsQuiet(int id) {
  return id == kPages || id == kFirmwareHint || id == kPropertyCounts || id == kLogCounts;
}

}  // namespace

void BenchWindow::UseSystemLook() {
  look = win32::LookOf(win32::IsHighContrast());
  gdi.ForgetPictures();
  if (window == nullptr) return;
  RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void BenchWindow::DrawHead() {
  RECT head{};
  GetClientRect(window, &head);
  head.bottom = Scaled(kHeadHeight);
  InvalidateRect(window, &head, FALSE);
}

void BenchWindow::Paint() {
  PAINTSTRUCT painting;
  const HDC context = BeginPaint(window, &painting);
  RECT head{};
  GetClientRect(window, &head);
  const int width = MulDiv(head.right, 96, dpi);
  head.bottom = Scaled(kHeadHeight);
  FillRect(context, &head, gdi.BrushFor(look.face));
  if (box != nullptr) {
    const RECT lamp = {Scaled(14), Scaled(14), Scaled(28), Scaled(28)};
    gdi.DrawRounded(context, lamp, isThere ? kThere : kAway, look.ink, Scaled(14));
    if (width >= kLeastWidthForPicture && shownBox) {
      const int right = head.right - Scaled(kMargin);
      const int top = (head.bottom - Scaled(kPictureHeight)) / 2;
      gdi.Draw(context, {right - Scaled(kPictureWidth), top, right, top + Scaled(kPictureHeight)},
               FrontOf(shownBox->identity), kFineDpi);
    }
  }
  EndPaint(window, &painting);
}

LRESULT BenchWindow::ColourOf(HDC context, HWND child) {
  const int id = GetDlgCtrlID(child);
  const bool isPlain = win32::IsHighContrast();
  if (id == kTitle || id == kSubtitle) {
    SetTextColor(context, id == kSubtitle && !isPlain ? kQuietInk : look.ink);
    SetBkColor(context, look.face);
    return reinterpret_cast<LRESULT>(gdi.BrushFor(look.face));
  }
  COLORREF back = GetSysColor(COLOR_3DFACE);
  COLORREF ink = GetSysColor(COLOR_BTNTEXT);
  if (id == kFaultBand) {
    back = isPlain ? GetSysColor(COLOR_HIGHLIGHT) : kBand;
    ink = isPlain ? GetSysColor(COLOR_HIGHLIGHTTEXT) : kBandInk;
  } else if (!isPlain && IsHeading(id)) {
    ink = look.face;
  } else if (!isPlain && IsQuiet(id)) {
    ink = RGB(0x5A, 0x66, 0x72);
  }
  SetTextColor(context, ink);
  SetBkColor(context, back);
  return reinterpret_cast<LRESULT>(gdi.BrushFor(back));
}

void BenchWindow::DrawButton(const DRAWITEMSTRUCT& item) {
  const HDC context = item.hDC;
  const bool isDisabled = (item.itemState & ODS_DISABLED) != 0;
  const bool isPressed = (item.itemState & ODS_SELECTED) != 0;
  const bool isOn = item.CtlID == kPause && log.IsPaused();
  COLORREF fill = hot == item.hwndItem ? look.hot : look.face;
  if (isOn) fill = look.accent;
  if (isPressed) fill = look.pressed;
  if (isDisabled) fill = look.disabled;
  FillRect(context, &item.rcItem, GetSysColorBrush(COLOR_3DFACE));
  gdi.DrawRounded(context, item.rcItem, fill, isDisabled ? look.disabled : look.rim, Scaled(6));
  char text[64] = "";
  GetWindowTextA(item.hwndItem, text, sizeof text);
  SetBkMode(context, TRANSPARENT);
  SetTextColor(context, isDisabled ? look.disabledInk : look.ink);
  SelectObject(context, font);
  RECT place = item.rcItem;
  const UINT hidden = (item.itemState & ODS_NOACCEL) != 0 ? DT_HIDEPREFIX : 0;
  DrawTextA(context, text, -1, &place, DT_CENTER | DT_VCENTER | DT_SINGLELINE | hidden);
  if ((item.itemState & ODS_FOCUS) == 0 || (item.itemState & ODS_NOFOCUSRECT) != 0) return;
  InflateRect(&place, -Scaled(3), -Scaled(3));
  SetTextColor(context, look.ink);
  SetBkColor(context, fill);
  DrawFocusRect(context, &place);
}

// Tells the button under the mouse from the others.
LRESULT CALLBACK BenchWindow::ButtonProcedure(HWND button, UINT message, WPARAM wParam,
                                              LPARAM lParam, UINT_PTR id, DWORD_PTR self) noexcept {
  auto& bench = *reinterpret_cast<BenchWindow*>(self);
  if (message == WM_MOUSEMOVE && bench.hot != button) {
    bench.hot = button;
    TRACKMOUSEEVENT leaving{sizeof leaving, TME_LEAVE, button, 0};
    TrackMouseEvent(&leaving);
    InvalidateRect(button, nullptr, FALSE);
  } else if (message == WM_MOUSELEAVE) {
    if (bench.hot == button) bench.hot = nullptr;  // it may be told late, after the next one's move
    InvalidateRect(button, nullptr, FALSE);
  } else if (message == WM_NCDESTROY) {
    RemoveWindowSubclass(button, ButtonProcedure, id);
  }
  return DefSubclassProc(button, message, wParam, lParam);
}

LRESULT BenchWindow::DrawRow(const NMLVCUSTOMDRAW& drawing, LPARAM lParam) {
  if (drawing.nmcd.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
  if (drawing.nmcd.dwDrawStage != CDDS_ITEMPREPAINT || win32::IsHighContrast()) {
    return CDRF_DODEFAULT;
  }
  auto& row = *reinterpret_cast<NMLVCUSTOMDRAW*>(lParam);
  const auto index = static_cast<std::size_t>(row.nmcd.dwItemSpec);
  if (row.nmcd.hdr.idFrom == kProperties) {
    if (properties.IsFlashing(index, desk->Milliseconds() + 1)) row.clrTextBk = kFlash;
  } else if (log.HasFailed(index)) {
    row.clrText = kFailed;
  } else if (log.IsWrite(index)) {
    row.clrText = kWritten;
  }
  return CDRF_NEWFONT;
}

}  // namespace panelora::boxbench
