#include "platform/win32/gdi_cache.h"

// gdiplus.h needs the one before it.
// clang-format off
#include <objidl.h>
#include <gdiplus.h>
#include <shlwapi.h>
// clang-format on

#include <algorithm>
#include <set>

#include "platform/win32/system_library.h"

namespace panelora::win32 {

namespace {

// The narrowest that letters get, in percent of their own width.
constexpr int kNarrowest = 70;
constexpr int kNarrowStep = 5;

}  // namespace

int ScaleForDpi(int value, int dpi) { return MulDiv(value, dpi, 96); }

GdiCache::~GdiCache() {
  if (measuring != nullptr) DeleteDC(measuring);
  for (const auto& [key, font] : fonts) DeleteObject(font);
  for (const auto& [key, brush] : brushes) DeleteObject(brush);
  for (const auto& [key, pen] : pens) DeleteObject(pen);
  ForgetPictures();
  if (gdiplusUnhook != nullptr) gdiplusUnhook(gdiplusHook);
  if (gdiplusToken != 0) {
    const auto shutdown = Bind<void(WINAPI*)(ULONG_PTR)>(gdiplus, "GdiplusShutdown");
    if (shutdown != nullptr) shutdown(gdiplusToken);
  }
  if (gdiplus != nullptr) FreeLibrary(gdiplus);
}

HFONT GdiCache::FontFor(const ui::Font& font, int dpi, int widthPercent) {
  const std::string face(font.face);
  HFONT& made = fonts[{face, font.tenths, dpi, widthPercent}];
  if (made != nullptr) return made;
  int width = 0;  // the font's own
  if (widthPercent < 100) {
    TEXTMETRICA metrics{};
    GetTextMetricsA(MeasureWith(FontFor(font, dpi)), &metrics);
    width = static_cast<int>(metrics.tmAveCharWidth) * widthPercent / 100;
  }
  made = CreateFontA(-MulDiv(font.tenths, dpi, 720), width, 0, 0, FW_NORMAL, FALSE, FALSE, FALSE,
                     DEFAULT_CHARSET, OUT_DEFAULT_PRECIS, CLIP_DEFAULT_PRECIS, DEFAULT_QUALITY,
                     DEFAULT_PITCH | FF_SWISS, face.c_str());
  return made;
}

HFONT GdiCache::FontToFit(const ui::Font& font, int dpi, const std::string& text, int width) {
  // What sticks out by a pixel or two is the blank edge of the last letter.
  const int limit = width + ScaleForDpi(2, dpi);
  for (int percent = 100;; percent -= kNarrowStep) {
    const HFONT candidate = FontFor(font, dpi, percent);
    SIZE size{};
    GetTextExtentPoint32A(MeasureWith(candidate), text.c_str(), static_cast<int>(text.size()),
                          &size);
    if (size.cx <= limit || percent - kNarrowStep < kNarrowest) return candidate;
  }
}

int GdiCache::LineHeight(HFONT font) {
  int& height = lineHeights[font];
  if (height == 0) {
    TEXTMETRICA metrics{};
    GetTextMetricsA(MeasureWith(font), &metrics);
    height = metrics.tmHeight;
  }
  return height;
}

HDC GdiCache::MeasureWith(HFONT font) {
  if (measuring == nullptr) measuring = CreateCompatibleDC(nullptr);
  if (GetCurrentObject(measuring, OBJ_FONT) != font) SelectObject(measuring, font);
  return measuring;
}

HBRUSH GdiCache::BrushFor(COLORREF colour) {
  HBRUSH& made = brushes[colour];
  if (made == nullptr) made = CreateSolidBrush(colour);
  return made;
}

HPEN GdiCache::PenFor(COLORREF colour, int width) {
  HPEN& made = pens[{colour, width}];
  if (made == nullptr) made = CreatePen(PS_INSIDEFRAME, width, colour);
  return made;
}

void GdiCache::DrawRounded(HDC context, const RECT& place, COLORREF fill, COLORREF rim, int round) {
  SelectObject(context, PenFor(rim, 1));
  SelectObject(context, BrushFor(fill));
  RoundRect(context, place.left, place.top, place.right, place.bottom, round, round);
}

void GdiCache::Within(HDC context, const RECT& place, int round,
                      const std::function<void()>& draw) {
  const int saved = SaveDC(context);
  const HRGN inside =
      CreateRoundRectRgn(place.left, place.top, place.right + 1, place.bottom + 1, round, round);
  ExtSelectClipRgn(context, inside, RGN_AND);
  draw();
  RestoreDC(context, saved);
  DeleteObject(inside);
}

void GdiCache::Wash(HDC context, const RECT& place, COLORREF colour, BYTE strength, int round) {
  const HDC source = CreateCompatibleDC(context);
  const HBITMAP pixel = CreateCompatibleBitmap(context, 1, 1);
  const HGDIOBJ before = SelectObject(source, pixel);
  SetPixel(source, 0, 0, colour);
  const BLENDFUNCTION blend = {AC_SRC_OVER, 0, strength, 0};
  Within(context, place, round, [&] {
    GdiAlphaBlend(context, place.left, place.top, place.right - place.left,
                  place.bottom - place.top, source, 0, 0, 1, 1, blend);
  });
  SelectObject(source, before);
  DeleteObject(pixel);
  DeleteDC(source);
}

HBITMAP GdiCache::BitmapFor(const std::string& name, int scale) {
  const auto key = std::make_pair(name, scale);
  const auto found = bitmaps.find(key);
  if (found != bitmaps.end()) return found->second;
  const HBITMAP bitmap = scale > 1 ? LoadFine(name, scale) : LoadPlain(name);
  if (bitmap != nullptr) MatchSurround(bitmap);
  bitmaps[key] = bitmap;
  return bitmap;
}

void GdiCache::ForgetPictures() {
  for (const auto& [key, bitmap] : bitmaps) {
    if (bitmap != nullptr) DeleteObject(bitmap);
  }
  bitmaps.clear();
}

// Pictures that stand on pages are drawn on the usual colour of dialogs. From each edge up to what
// is drawn, and with its smoothed rim, that becomes the colour that dialogs have.
void GdiCache::MatchSurround(HBITMAP bitmap) {
  constexpr int kUsual = 0xF0;
  const COLORREF face = GetSysColor(COLOR_3DFACE);
  DIBSECTION section{};
  if (face == RGB(kUsual, kUsual, kUsual) ||
      GetObjectA(bitmap, sizeof section, &section) != sizeof section) {
    return;
  }
  const BITMAP& info = section.dsBm;
  const int bytes = info.bmBitsPixel / 8;
  const auto pixel = [&](std::ptrdiff_t x, std::ptrdiff_t y) {
    return static_cast<BYTE*>(info.bmBits) + y * info.bmWidthBytes + x * bytes;
  };
  const auto isSurround = [&](int x, int y) {
    const BYTE* at = pixel(x, y);
    return std::all_of(at, at + 3, [](BYTE part) { return part == kUsual; });
  };
  const int right = info.bmWidth - 1;
  const int bottom = info.bmHeight - 1;
  if (!isSurround(0, 0) || !isSurround(right, 0) || !isSurround(0, bottom) ||
      !isSurround(right, bottom)) {
    return;
  }
  std::set<std::pair<int, int>> matched;
  const auto walk = [&](int x, int y, int stepX, int stepY) {
    for (bool outside = true; outside && x >= 0 && y >= 0 && x <= right && y <= bottom;
         x += stepX, y += stepY) {
      outside = isSurround(x, y);
      matched.emplace(x, y);
    }
  };
  for (int x = 0; x <= right; ++x) {
    walk(x, 0, 0, 1);
    walk(x, bottom, 0, -1);
  }
  for (int y = 0; y <= bottom; ++y) {
    walk(0, y, 1, 0);
    walk(right, y, -1, 0);
  }
  const BYTE parts[] = {GetBValue(face), GetGValue(face), GetRValue(face)};
  for (const auto& [x, y] : matched) {
    BYTE* at = pixel(x, y);
    for (int i = 0; i < 3; ++i) at[i] = static_cast<BYTE>(std::min(at[i] * parts[i] / kUsual, 255));
  }
}

// Some are packed, with a palette: the system unpacks them into a bitmap of true colours, which can
// be drawn in every way.
HBITMAP GdiCache::LoadPlain(const std::string& name) {
  const HRSRC resource = FindResourceA(instance, name.c_str(), RT_BITMAP);
  if (resource == nullptr) return nullptr;
  const HGLOBAL loaded = LoadResource(instance, resource);
  const auto* kept = static_cast<const BITMAPINFO*>(LockResource(loaded));
  const BITMAPINFOHEADER& head = kept->bmiHeader;
  DWORD colours = head.biClrUsed;
  if (colours == 0 && head.biBitCount <= 8) colours = 1U << head.biBitCount;
  const BYTE* pixels =
      reinterpret_cast<const BYTE*>(kept) + head.biSize + colours * sizeof(RGBQUAD);

  BITMAPINFO plain{};
  plain.bmiHeader.biSize = sizeof plain.bmiHeader;
  plain.bmiHeader.biWidth = head.biWidth;
  plain.bmiHeader.biHeight = head.biHeight;
  plain.bmiHeader.biPlanes = 1;
  plain.bmiHeader.biBitCount = 24;
  void* bits = nullptr;
  const HBITMAP bitmap = CreateDIBSection(nullptr, &plain, DIB_RGB_COLORS, &bits, nullptr, 0);
  if (bitmap == nullptr) return nullptr;
  const HDC context = CreateCompatibleDC(nullptr);
  SetDIBits(context, bitmap, 0, static_cast<UINT>(head.biHeight), pixels, kept, DIB_RGB_COLORS);
  DeleteDC(context);
  return bitmap;
}

// The system's picture decoder, when the first fine picture is drawn: at 96 dpi it is never loaded.
// Without the thread of its own that it would start: the program has one.
void GdiCache::StartGdiplus() {
  gdiplus = LoadFromSystem(L"gdiplus.dll");
  if (gdiplus == nullptr) return;
  using Startup =
      int(WINAPI*)(ULONG_PTR*, const Gdiplus::GdiplusStartupInput*, Gdiplus::GdiplusStartupOutput*);
  const auto startup = Bind<Startup>(gdiplus, "GdiplusStartup");
  Gdiplus::GdiplusStartupInput input;
  input.SuppressBackgroundThread = TRUE;
  Gdiplus::GdiplusStartupOutput output{};
  if (startup == nullptr || startup(&gdiplusToken, &input, &output) != 0) {
    gdiplusToken = 0;
    return;
  }
  if (output.NotificationHook != nullptr && output.NotificationHook(&gdiplusHook) == Gdiplus::Ok) {
    gdiplusUnhook = output.NotificationUnhook;
  }
}

// A drawing of twice or three times the size, or null when it can't be had.
HBITMAP GdiCache::LoadFine(const std::string& name, int scale) {
  if (!gdiplusTried) {
    gdiplusTried = true;
    StartGdiplus();
  }
  if (gdiplusToken == 0) return nullptr;

  const HRSRC resource = FindResourceA(instance, name.c_str(), scale == 2 ? "PNG2X" : "PNG3X");
  if (resource == nullptr) return nullptr;
  const HGLOBAL loaded = LoadResource(instance, resource);
  const DWORD size = SizeofResource(instance, resource);
  IStream* stream = SHCreateMemStream(static_cast<const BYTE*>(LockResource(loaded)), size);
  if (stream == nullptr) return nullptr;

  using FromStream = int(WINAPI*)(IStream*, void**);
  using ToBitmap = int(WINAPI*)(void*, HBITMAP*, DWORD);
  using Dispose = int(WINAPI*)(void*);
  const auto fromStream = Bind<FromStream>(gdiplus, "GdipCreateBitmapFromStream");
  const auto toBitmap = Bind<ToBitmap>(gdiplus, "GdipCreateHBITMAPFromBitmap");
  const auto dispose = Bind<Dispose>(gdiplus, "GdipDisposeImage");
  HBITMAP bitmap = nullptr;
  void* image = nullptr;
  if (fromStream != nullptr && toBitmap != nullptr && dispose != nullptr &&
      fromStream(stream, &image) == 0) {
    if (toBitmap(image, &bitmap, 0xFF000000) != 0) bitmap = nullptr;
    dispose(image);
  }
  stream->Release();
  return bitmap;
}

bool GdiCache::Draw(HDC context, const RECT& place, const std::string& name, int dpi,
                    BYTE strength) {
  HBITMAP bitmap = nullptr;
  for (int scale = dpi > 192 ? 3 : dpi > 96 ? 2 : 1; scale > 0 && bitmap == nullptr; --scale) {
    bitmap = BitmapFor(name, scale);
  }
  if (bitmap == nullptr) return false;
  BITMAP info{};
  GetObjectA(bitmap, sizeof info, &info);
  const HDC source = CreateCompatibleDC(context);
  const HGDIOBJ before = SelectObject(source, bitmap);
  const int width = place.right - place.left;
  const int height = place.bottom - place.top;
  if (strength < 255) {
    const BLENDFUNCTION blend = {AC_SRC_OVER, 0, strength, 0};
    GdiAlphaBlend(context, place.left, place.top, width, height, source, 0, 0, info.bmWidth,
                  info.bmHeight, blend);
  } else if (width == info.bmWidth && height == info.bmHeight) {
    BitBlt(context, place.left, place.top, width, height, source, 0, 0, SRCCOPY);
  } else {
    POINT origin;
    const int mode = SetStretchBltMode(context, HALFTONE);
    SetBrushOrgEx(context, 0, 0, &origin);
    StretchBlt(context, place.left, place.top, width, height, source, 0, 0, info.bmWidth,
               info.bmHeight, SRCCOPY);
    SetStretchBltMode(context, mode);
    SetBrushOrgEx(context, origin.x, origin.y, nullptr);
  }
  SelectObject(source, before);
  DeleteDC(source);
  return true;
}

}  // namespace panelora::win32
