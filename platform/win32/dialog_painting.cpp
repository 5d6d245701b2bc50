// What a dialog draws itself: captions, picture buttons, and the icon that it is minimised to.
#include <algorithm>

#include "platform/win32/win32_toolkit.h"

namespace panelora::win32 {

namespace {

// Leaves a device context as it was. To save all of it is dearer than most of what is drawn.
class KeptState {
 public:
  explicit KeptState(HDC theContext) : context(theContext) {}
  ~KeptState() {
    SelectObject(context, font);
    SetTextColor(context, text);
    SetBkColor(context, background);
    SetBkMode(context, mode);
  }
  KeptState(const KeptState&) = delete;
  KeptState& operator=(const KeptState&) = delete;

 private:
  HDC context;
  HGDIOBJ font = GetCurrentObject(context, OBJ_FONT);
  COLORREF text = GetTextColor(context);
  COLORREF background = GetBkColor(context);
  int mode = GetBkMode(context);
};

}  // namespace

void Win32Dialog::DrawControl(const DRAWITEMSTRUCT& item) {
  const Win32Control* control = Find(static_cast<int>(item.CtlID));
  if (control == nullptr) return;
  const KeptState kept(item.hDC);
  if (control->kind == ui::ControlKind::kLabel) {
    DrawLabel(*control, item);
  } else {
    DrawPicture(*control, item);
  }
}

// The first line of the text, in the middle of the label's height. Its window may be limited to the
// line, but such a window is lent its parent's device context, which is not.
void Win32Dialog::DrawLabel(const Win32Control& control, const DRAWITEMSTRUCT& item) {
  RECT place = control.limited ? control.visible : item.rcItem;
  FillRect(item.hDC, &place, GetSysColorBrush(COLOR_3DFACE));
  SelectObject(item.hDC, reinterpret_cast<HGDIOBJ>(SendMessageA(item.hwndItem, WM_GETFONT, 0, 0)));
  SetBkMode(item.hDC, TRANSPARENT);
  const bool disabled = (item.itemState & ODS_DISABLED) != 0;
  SetTextColor(item.hDC, GetSysColor(disabled ? COLOR_GRAYTEXT : COLOR_WINDOWTEXT));
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
  if ((item.itemState & ODS_FOCUS) != 0 && toolkit.MarksFocus()) {
    // A light line in a dark one, to be seen on every picture.
    const int inset = Scaled(3);
    RECT mark = item.rcItem;
    InflateRect(&mark, -inset, -inset);
    FrameRect(item.hDC, &mark, toolkit.Gdi().BrushFor({255, 255, 255}));
    InflateRect(&mark, -1, -1);
    SetTextColor(item.hDC, RGB(0, 0, 0));
    SetBkColor(item.hDC, RGB(255, 255, 255));
    DrawFocusRect(item.hDC, &mark);
  }
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
