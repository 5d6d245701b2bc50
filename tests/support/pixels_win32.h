// What is really on the screen.
#pragma once

#include <windows.h>

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "base/text.h"
#include "ui/geometry.h"

namespace panelora::testing {

// The pixels of a place in a window's client area, with what its controls paint there, row by row
// from the top.
inline std::vector<COLORREF> PixelsOf(HWND window, const ui::Rect& place) {
  BITMAPINFO info{};
  info.bmiHeader = {
      sizeof info.bmiHeader, place.width, -place.height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  const HDC source = GetDC(window);
  const HDC copy = CreateCompatibleDC(source);
  void* bits = nullptr;
  const HBITMAP bitmap = CreateDIBSection(copy, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
  const HGDIOBJ before = SelectObject(copy, bitmap);
  BitBlt(copy, 0, 0, place.width, place.height, source, place.x, place.y, SRCCOPY);
  GdiFlush();
  std::vector<COLORREF> pixels(static_cast<std::size_t>(place.width * place.height));
  std::memcpy(pixels.data(), bits, pixels.size() * sizeof(COLORREF));
  for (COLORREF& pixel : pixels) pixel &= 0xFFFFFF;
  SelectObject(copy, before);
  DeleteObject(bitmap);
  DeleteDC(copy);
  ReleaseDC(window, source);
  return pixels;
}

// What another painting of all of a window would change: what an earlier look left behind, or what
// was not painted. Empty = nothing.
inline std::string StalePixels(HWND window) {
  RECT client;
  GetClientRect(window, &client);
  const ui::Rect all{0, 0, client.right, client.bottom};
  HideCaret(nullptr);  // it blinks
  const std::vector<COLORREF> seen = PixelsOf(window, all);
  RedrawWindow(window, nullptr, nullptr,
               RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_UPDATENOW | RDW_ALLCHILDREN);
  const std::vector<COLORREF> painted = PixelsOf(window, all);
  ShowCaret(nullptr);
  const auto first = std::mismatch(seen.begin(), seen.end(), painted.begin()).first;
  if (first == seen.end()) return "";
  const auto at = static_cast<int>(first - seen.begin());
  int count = 0;
  for (std::size_t i = 0; i < seen.size(); ++i) count += seen[i] != painted[i] ? 1 : 0;
  return Format("%d stale pixels, the first at (%d, %d)", count, at % all.width, at / all.width);
}

}  // namespace panelora::testing
