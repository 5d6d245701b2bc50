// The colour label as a window of its own.
#pragma once

#include "platform/win32/windows_headers.h"

#include "app/colour_label.h"
#include "platform/win32/gdi_cache.h"

namespace panelora::win32 {

// A child window that draws a ColourLabelLook over what its parent painted, in the colours of its
// state (EnableWindow). No page owns one.
class CColourLabel {
 public:
  // The label uses the fonts of the cache, at that dpi; the cache outlives it.
  CColourLabel(GdiCache& theGdi, int theDpi) : gdi(theGdi), dpi(theDpi) {}
  ~CColourLabel();
  CColourLabel(const CColourLabel&) = delete;
  CColourLabel& operator=(const CColourLabel&) = delete;

  // False when there is a window already or the system can't make one.
  bool Create(HWND parent, int id, const RECT& place);
  HWND Handle() const { return window; }

  void SetLook(const ColourLabelLook& newLook);
  const ColourLabelLook& Look() const { return look; }

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam,
                                    LPARAM lParam) noexcept;
  LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
  void Paint(HDC context);
  void DrawCaption(HDC context, const std::string& text, const ui::Rect& place);
  void PaintAnew();

  GdiCache& gdi;
  int dpi;
  HWND window = nullptr;
  ColourLabelLook look;
};

}  // namespace panelora::win32
