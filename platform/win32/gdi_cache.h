// Fonts, bitmaps and brushes: each is made once and freed with the cache, so that the number of
// handles does not grow with use.
#pragma once

#include "platform/win32/windows_headers.h"

#include <functional>
#include <map>
#include <string>
#include <tuple>

#include "ui/geometry.h"

namespace panelora::win32 {

// A value of 96-dpi pixels at another dpi, rounded as the system rounds.
int ScaleForDpi(int value, int dpi);

class GdiCache {
 public:
  explicit GdiCache(HINSTANCE theInstance) : instance(theInstance) {}
  ~GdiCache();
  GdiCache(const GdiCache&) = delete;
  GdiCache& operator=(const GdiCache&) = delete;

  // `widthPercent` below 100 makes the letters narrower at the same height.
  HFONT FontFor(const ui::Font& font, int dpi, int widthPercent = 100);
  // The font in its own width, or as much narrower as `text` needs to fit `width` pixels, down to
  // 70 %; a text that is wider still is cut.
  HFONT FontToFit(const ui::Font& font, int dpi, const std::string& text, int width);
  // The height of a line in pixels.
  int LineHeight(HFONT font);
  HBRUSH BrushFor(const ui::Colour& colour) {
    return BrushFor(RGB(colour.red, colour.green, colour.blue));
  }
  HBRUSH BrushFor(COLORREF colour);
  HPEN PenFor(COLORREF colour, int width);

  // With corners of a radius of half `round` pixels, and a rim of one pixel inside of `place`.
  void DrawRounded(HDC context, const RECT& place, COLORREF fill, COLORREF rim, int round);
  // What `draw` draws shows only within such corners.
  static void Within(HDC context, const RECT& place, int round, const std::function<void()>& draw);
  // Tints what is there, within such corners. `strength` 0 to 255.
  static void Wash(HDC context, const RECT& place, COLORREF colour, BYTE strength, int round);

  // Draws a picture of the resources by name, stretched to `place`; above 96 dpi the drawing of
  // twice the size is used, and above 192 dpi that of three times. `strength` below 255 lets what
  // is there shine through. False when there is no such picture.
  bool Draw(HDC context, const RECT& place, const std::string& name, int dpi, BYTE strength = 255);

  // Pictures are made anew from now on, for the colours that the system has.
  void ForgetPictures();

  // How many fonts, brushes and bitmaps the cache has tried to make.
  std::size_t Count() const { return fonts.size() + brushes.size() + pens.size() + bitmaps.size(); }

 private:
  // A device context with the font, for measuring texts.
  HDC MeasureWith(HFONT font);
  // The drawing of `scale` times the size at 96 dpi, 1 to 3; null when there is none.
  HBITMAP BitmapFor(const std::string& name, int scale);
  HBITMAP LoadPlain(const std::string& name);
  HBITMAP LoadFine(const std::string& name, int scale);
  static void MatchSurround(HBITMAP bitmap);
  void StartGdiplus();

  HINSTANCE instance;
  std::map<std::tuple<std::string, int, int, int>, HFONT> fonts;
  std::map<COLORREF, HBRUSH> brushes;
  std::map<std::pair<COLORREF, int>, HPEN> pens;
  std::map<std::pair<std::string, int>, HBITMAP> bitmaps;
  std::map<HFONT, int> lineHeights;
  HDC measuring = nullptr;
  HMODULE gdiplus = nullptr;
  ULONG_PTR gdiplusToken = 0;
  ULONG_PTR gdiplusHook = 0;
  void(WINAPI* gdiplusUnhook)(ULONG_PTR) = nullptr;
  bool gdiplusTried = false;
};

}  // namespace panelora::win32
