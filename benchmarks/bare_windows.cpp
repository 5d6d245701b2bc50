#include "benchmarks/bare_windows.h"

#include <algorithm>

namespace panelora::benchmarks {

namespace {

constexpr int kMain = 102;
constexpr int kFirstPage = 103;
constexpr int kLastPage = 115;
constexpr int kPictureButton = 1000;
constexpr int kHidden[] = {1006, 1007, 1008, 1009, 1010, 1011, 1012, 1013, 1014, 1048};

// What the first page's main window shows of a box of type 26.
constexpr std::pair<int, const char*> kPictures[] = {{kPictureButton, "PANEL_BMP_17"},
                                                     {1001, "VIDEO_BTU_U"},
                                                     {1002, "INFO_BTU_U"},
                                                     {1003, "AUDIO_BTU_U"},
                                                     {1004, "PROC_BTU_U"},
                                                     {1005, "SET_BTU_U"},
                                                     {1015, "REFRESH_BTU_U"}};

}  // namespace

BareWindows::BareWindows(HINSTANCE theInstance) : instance(theInstance) {
  INITCOMMONCONTROLSEX classes{sizeof classes,
                               ICC_BAR_CLASSES | ICC_PROGRESS_CLASS | ICC_STANDARD_CLASSES};
  InitCommonControlsEx(&classes);
}

BareWindows::~BareWindows() {
  if (window != nullptr) DestroyWindow(window);
  for (const auto& [name, bitmap] : loaded) DeleteObject(bitmap);
  for (const auto& [description, font] : fonts) DeleteObject(font);
}

HWND BareWindows::Create() {
  const auto self = reinterpret_cast<LPARAM>(this);
  window = CreateDialogParamA(instance, MAKEINTRESOURCEA(kMain), nullptr, Procedure, self);
  dialogs[kMain] = window;
  for (const auto& [control, name] : kPictures) shown[{kMain, control}] = name;
  for (const int control : kHidden) ShowWindow(GetDlgItem(window, control), SW_HIDE);
  const HWND picture = GetDlgItem(window, kPictureButton);
  for (int number = kFirstPage; number <= kLastPage; ++number) {
    const HWND page =
        CreateDialogParamA(instance, MAKEINTRESOURCEA(number), window, Procedure, self);
    dialogs[number] = page;
    SetWindowPos(page, picture, 110, 65, 540, 335, SWP_NOACTIVATE);
    if (number == kFirstPage) ShowWindow(page, SW_SHOW);
  }
  ShowWindow(window, SW_SHOW);
  return window;
}

HWND BareWindows::Find(int dialog, int control) {
  const auto owner = dialogs.find(dialog);
  if (owner == dialogs.end() || control == 0)
    return owner == dialogs.end() ? nullptr : owner->second;
  HWND& found = controls[{dialog, control}];
  if (found == nullptr) found = GetDlgItem(owner->second, control);
  return found;
}

void BareWindows::ShowPicture(int dialog, int control, const std::string& name) {
  shown[{dialog, control}] = name;
  InvalidateRect(Find(dialog, control), nullptr, FALSE);
}

void BareWindows::UseFont(HWND control, const LOGFONTA& font) {
  HFONT& made = fonts[std::string(reinterpret_cast<const char*>(&font), sizeof font)];
  if (made == nullptr) made = CreateFontIndirectA(&font);
  SendMessageA(control, WM_SETFONT, reinterpret_cast<WPARAM>(made), IsWindowVisible(control));
}

INT_PTR CALLBACK BareWindows::Procedure(HWND window, UINT message, WPARAM, LPARAM lParam) {
  if (message == WM_INITDIALOG) SetWindowLongPtrA(window, DWLP_USER, lParam);
  auto* self = reinterpret_cast<BareWindows*>(GetWindowLongPtrA(window, DWLP_USER));
  if (message == WM_DRAWITEM && self != nullptr) {
    self->Draw(window, *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
    return TRUE;
  }
  if (message == WM_CLOSE && self != nullptr && window == self->window) {
    self->window = nullptr;
    DestroyWindow(window);
    PostQuitMessage(0);
    return TRUE;
  }
  return FALSE;
}

void BareWindows::Draw(HWND dialog, const DRAWITEMSTRUCT& item) {
  const int control = static_cast<int>(item.CtlID);
  const auto number = std::find_if(dialogs.begin(), dialogs.end(),
                                   [&](const auto& row) { return row.second == dialog; });
  const auto picture = number == dialogs.end() ? shown.end() : shown.find({number->first, control});
  if (picture == shown.end()) {
    char text[256] = "";
    GetWindowTextA(item.hwndItem, text, sizeof text);
    RECT place = item.rcItem;
    DrawTextA(item.hDC, text, -1, &place, DT_LEFT | DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
    return;
  }
  HBITMAP& bitmap = loaded[picture->second];
  if (bitmap == nullptr) {
    bitmap = static_cast<HBITMAP>(
        LoadImageA(instance, picture->second.c_str(), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION));
  }
  const HDC source = CreateCompatibleDC(item.hDC);
  const HGDIOBJ before = SelectObject(source, bitmap);
  BitBlt(item.hDC, 0, 0, item.rcItem.right, item.rcItem.bottom, source, 0, 0, SRCCOPY);
  SelectObject(source, before);
  DeleteDC(source);
}

void HandleWaiting(HWND dialog) {
  MSG message;
  while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
    if (IsDialogMessageA(dialog, &message)) continue;
    TranslateMessage(&message);
    DispatchMessageA(&message);
  }
}

}  // namespace panelora::benchmarks
