#include "platform/win32/colour_label_window.h"

#include <olectl.h>

namespace panelora::win32 {

namespace {

constexpr char kClassName[] = "PaneloraColourLabel";

COLORREF ColourOf(const ui::Colour& colour) { return RGB(colour.red, colour.green, colour.blue); }

// Solid, of that width, with square ends.
HPEN MakePen(const ui::Colour& colour, int width) {
  const LOGBRUSH brush{BS_SOLID, ColourOf(colour), 0};
  return ExtCreatePen(PS_GEOMETRIC | PS_SOLID | PS_ENDCAP_SQUARE, static_cast<DWORD>(width), &brush,
                      0, nullptr);
}

void Draw(HDC context, const Outline& outline, HPEN pen) {
  SelectObject(context, pen);
  POINT points[std::tuple_size_v<Outline>];
  for (std::size_t i = 0; i < outline.size(); ++i) points[i] = {outline[i].x, outline[i].y};
  Polyline(context, points, static_cast<int>(outline.size()));
}

bool IsReflectedColourRequest(UINT message) {
  return message >= OCM__BASE + WM_CTLCOLORMSGBOX && message <= OCM__BASE + WM_CTLCOLORSTATIC;
}

}  // namespace

CColourLabel::~CColourLabel() {
  if (window != nullptr) DestroyWindow(window);
}

bool CColourLabel::Create(HWND parent, int id, const RECT& place) {
  if (window != nullptr) return false;
  WNDCLASSA windowClass{};
  windowClass.lpfnWndProc = Procedure;
  windowClass.hInstance = GetModuleHandleA(nullptr);
  windowClass.lpszClassName = kClassName;
  RegisterClassA(&windowClass);  // fails when it is registered already
  // Transparent: what stands in the frame is painted first.
  return CreateWindowExA(WS_EX_TRANSPARENT, kClassName, "", WS_CHILD | WS_VISIBLE, place.left,
                         place.top, place.right - place.left, place.bottom - place.top, parent,
                         reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), windowClass.hInstance,
                         this) != nullptr;
}

void CColourLabel::SetLook(const ColourLabelLook& newLook) {
  look = newLook;
  PaintAnew();
}

// What was drawn goes with the parent's background.
void CColourLabel::PaintAnew() {
  if (window == nullptr) return;
  const HWND parent = GetParent(window);
  RECT place;
  GetWindowRect(window, &place);
  MapWindowPoints(nullptr, parent, reinterpret_cast<POINT*>(&place), 2);
  InvalidateRect(parent, &place, TRUE);
  InvalidateRect(window, nullptr, FALSE);
}

LRESULT CALLBACK CColourLabel::Procedure(HWND window, UINT message, WPARAM wParam,
                                         LPARAM lParam) noexcept {
  if (message == WM_NCCREATE) {
    auto* created =
        static_cast<CColourLabel*>(reinterpret_cast<CREATESTRUCTA*>(lParam)->lpCreateParams);
    created->window = window;
    SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(created));
  }
  auto* label = reinterpret_cast<CColourLabel*>(GetWindowLongPtrA(window, GWLP_USERDATA));
  if (label == nullptr) return DefWindowProcA(window, message, wParam, lParam);
  return label->OnMessage(message, wParam, lParam);
}

LRESULT CColourLabel::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  if (IsReflectedColourRequest(message)) {
    InvalidateRect(GetParent(window), nullptr, TRUE);
    return 0;  // no brush
  }
  switch (message) {
    case WM_ERASEBKGND:
      return 1;  // the parent did
    case WM_PAINT: {
      PAINTSTRUCT paint;
      Paint(BeginPaint(window, &paint));
      EndPaint(window, &paint);
      return 0;
    }
    case WM_PRINTCLIENT:
      Paint(reinterpret_cast<HDC>(wParam));
      return 0;
    case WM_ENABLE:
      PaintAnew();
      return 0;
    case WM_NCHITTEST:
      return HTTRANSPARENT;  // what stands in the frame takes the mouse
    case WM_NCDESTROY: {
      const HWND gone = window;
      SetWindowLongPtrA(gone, GWLP_USERDATA, 0);
      window = nullptr;
      return DefWindowProcA(gone, message, wParam, lParam);
    }
    default:
      return DefWindowProcA(window, message, wParam, lParam);
  }
}

void CColourLabel::Paint(HDC context) {
  const int saved = SaveDC(context);
  SelectObject(context, gdi.FontFor(look.font, dpi));
  const std::string text = CaptionText(look);
  SIZE size{};
  GetTextExtentPoint32A(context, text.c_str(), static_cast<int>(text.size()), &size);
  const ColourLabelGeometry geometry = LayOutColourLabel(look, {size.cx, size.cy});

  const bool enabled = IsWindowEnabled(window) != FALSE;
  const HPEN first = MakePen(enabled ? look.line : look.disabledLine, look.penWidth);
  const HPEN second = MakePen(enabled ? look.secondLine : look.disabledSecondLine, look.penWidth);
  Draw(context, geometry.outline, first);
  if (geometry.secondOutline) Draw(context, *geometry.secondOutline, second);
  if (!look.caption.empty()) DrawCaption(context, text, geometry.caption);

  RestoreDC(context, saved);
  DeleteObject(first);
  DeleteObject(second);
}

// Disabled captions are embossed.
void CColourLabel::DrawCaption(HDC context, const std::string& text, const ui::Rect& place) {
  SetBkMode(context, TRANSPARENT);
  SetTextColor(context, ColourOf(look.text));
  const int length = static_cast<int>(text.size());
  if (IsWindowEnabled(window)) {
    RECT rect{place.x, place.y, place.x + place.width, place.y + place.height};
    DrawTextA(context, text.c_str(), length, &rect, DT_SINGLELINE | DT_VCENTER | DT_NOCLIP);
  } else {
    DrawStateA(context, nullptr, nullptr, reinterpret_cast<LPARAM>(text.c_str()),
               static_cast<WPARAM>(length), place.x, place.y, place.width, place.height,
               DST_PREFIXTEXT | DSS_DISABLED);
  }
}

}  // namespace panelora::win32
