#include "platform/win32/look.h"

namespace panelora::win32 {

Look LookOf(bool highContrast) {
  if (highContrast) {
    const COLORREF face = GetSysColor(COLOR_BTNFACE);
    const COLORREF text = GetSysColor(COLOR_BTNTEXT);
    return {.face = face,
            .hot = face,
            .pressed = GetSysColor(COLOR_HIGHLIGHT),
            .disabled = face,
            .rim = text,
            .ink = text,
            .disabledInk = GetSysColor(COLOR_GRAYTEXT),
            .accent = GetSysColor(COLOR_HIGHLIGHT),
            .readout = GetSysColor(COLOR_WINDOW),
            .readoutRim = GetSysColor(COLOR_WINDOWTEXT)};
  }
  return {.face = RGB(0x3E, 0x4A, 0x57),
          .hot = RGB(0x50, 0x60, 0x70),
          .pressed = RGB(0x0A, 0x6E, 0x7B),
          .disabled = RGB(0xD3, 0xD8, 0xDD),
          .rim = RGB(0x27, 0x31, 0x3B),
          .ink = RGB(0xFF, 0xFF, 0xFF),
          .disabledInk = RGB(0x93, 0x9D, 0xA6),
          .accent = RGB(0x12, 0x8C, 0x9C),
          .readout = GetSysColor(COLOR_WINDOW),
          .readoutRim = RGB(0x9A, 0xA7, 0xB3)};
}

bool IsHighContrast() {
  HIGHCONTRASTA contrast{};
  contrast.cbSize = sizeof contrast;
  SystemParametersInfoA(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0);
  return (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

}  // namespace panelora::win32
