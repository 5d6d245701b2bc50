// The colour label in a window of the tests: every style and alignment, enabled and disabled, pixel
// by pixel. PANELORA_PICTURES=DIR keeps a picture of the window there.
#include "platform/win32/colour_label_window.h"

#include <gtest/gtest.h>
#include <olectl.h>

#include <cstdlib>
#include <fstream>
#include <memory>
#include <set>
#include <vector>

#include "base/text.h"

namespace panelora::win32 {
namespace {

constexpr COLORREF kBackground = RGB(240, 240, 240);
constexpr ui::Colour kLine{200, 0, 0};
constexpr ui::Colour kSecondLine{0, 160, 0};
constexpr ui::Colour kDisabledLine{0, 0, 200};
constexpr ui::Colour kDisabledSecondLine{200, 0, 200};
constexpr ui::Colour kText{0, 120, 160};

COLORREF ColourOf(const ui::Colour& colour) { return RGB(colour.red, colour.green, colour.blue); }

class ColourLabelWindow : public ::testing::Test {
 protected:
  static constexpr int kWidth = 190;
  static constexpr int kHeight = 80;
  static constexpr int kColumns = 4;
  static constexpr int kRows = 6;

  ColourLabelWindow() {
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = ParentProcedure;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.hbrBackground = background;
    windowClass.lpszClassName = "PaneloraColourLabelTest";
    RegisterClassA(&windowClass);
    parent = CreateWindowExA(0, windowClass.lpszClassName, "", WS_POPUP | WS_VISIBLE, 0, 0,
                             kWidth * kColumns, kHeight * kRows, nullptr, nullptr,
                             windowClass.hInstance, nullptr);
  }
  ~ColourLabelWindow() override {
    labels.clear();
    DestroyWindow(parent);
    UnregisterClassA("PaneloraColourLabelTest", GetModuleHandleA(nullptr));  // frees the brush
  }

  static ColourLabelLook Look(int alignment, int frameStyle, const std::string& caption) {
    ColourLabelLook look;
    look.line = kLine;
    look.secondLine = kSecondLine;
    look.disabledLine = kDisabledLine;
    look.disabledSecondLine = kDisabledSecondLine;
    look.text = kText;
    look.caption = caption;
    look.alignment = alignment;
    look.frameStyle = frameStyle;
    look.margin = 12;
    look.left = 6;
    look.top = 4;
    look.right = kWidth - 8;
    look.bottom = kHeight - 10;
    return look;
  }
  // The next label, row by row.
  CColourLabel& Add(const ColourLabelLook& look, bool enabled = true) {
    const int index = static_cast<int>(labels.size());
    const int x = index % kColumns * kWidth;
    const int y = index / kColumns * kHeight;
    labels.push_back(std::make_unique<CColourLabel>(gdi, 96));
    CColourLabel& label = *labels.back();
    EXPECT_TRUE(label.Create(parent, 1000 + index, {x, y, x + kWidth, y + kHeight}));
    label.SetLook(look);
    EnableWindow(label.Handle(), enabled);
    return label;
  }
  bool ErasesWithNextPaint() {
    PAINTSTRUCT paint;
    eraseRequests = 0;
    BeginPaint(parent, &paint);
    EndPaint(parent, &paint);
    return eraseRequests > 0;
  }
  static LRESULT CALLBACK ParentProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_ERASEBKGND) ++eraseRequests;
    return DefWindowProcA(window, message, wParam, lParam);
  }
  void Paint() {
    RedrawWindow(parent, nullptr, nullptr, RDW_ERASENOW | RDW_UPDATENOW | RDW_ALLCHILDREN);
    GdiFlush();
  }
  COLORREF Pixel(const CColourLabel& label, int x, int y) {
    const HDC dc = GetDC(label.Handle());
    const COLORREF pixel = GetPixel(dc, x, y);
    ReleaseDC(label.Handle(), dc);
    return pixel;
  }
  std::set<COLORREF> Colours(const CColourLabel& label, const ui::Rect& place) {
    std::set<COLORREF> found;
    const HDC dc = GetDC(label.Handle());
    for (int y = place.y; y < place.y + place.height; ++y) {
      for (int x = place.x; x < place.x + place.width; ++x) found.insert(GetPixel(dc, x, y));
    }
    ReleaseDC(label.Handle(), dc);
    return found;
  }
  // Where the label should have drawn, with the caption's size as the system measures it.
  ColourLabelGeometry Expected(const CColourLabel& label) {
    const HDC dc = GetDC(label.Handle());
    const HGDIOBJ before = SelectObject(dc, gdi.FontFor(label.Look().font, 96));
    const std::string text = CaptionText(label.Look());
    SIZE size{};
    GetTextExtentPoint32A(dc, text.c_str(), static_cast<int>(text.size()), &size);
    SelectObject(dc, before);
    ReleaseDC(label.Handle(), dc);
    return LayOutColourLabel(label.Look(), {size.cx, size.cy});
  }

  // Each side of an outline in the middle, and the top line on both sides of the gap.
  void ExpectOutline(const CColourLabel& label, const Outline& outline, COLORREF colour) {
    for (std::size_t side = 1; side <= 3; ++side) {
      const ui::Point from = outline[side];
      const ui::Point to = outline[side + 1];
      EXPECT_EQ(Pixel(label, (from.x + to.x) / 2, (from.y + to.y) / 2), colour) << side;
    }
    EXPECT_EQ(Pixel(label, outline[1].x - 2, outline[1].y), colour) << "right of the gap";
    EXPECT_EQ(Pixel(label, outline[4].x + 1, outline[4].y), colour) << "left of the gap";
  }
  void ExpectDrawn(const CColourLabel& label) {
    const ColourLabelLook& look = label.Look();
    const bool enabled = IsWindowEnabled(label.Handle()) != FALSE;
    const COLORREF first = ColourOf(enabled ? kLine : kDisabledLine);
    const COLORREF second = ColourOf(enabled ? kSecondLine : kDisabledSecondLine);
    const ColourLabelGeometry geometry = Expected(label);
    ExpectOutline(label, geometry.outline, first);
    if (geometry.secondOutline) ExpectOutline(label, *geometry.secondOutline, second);

    std::set<COLORREF> whole = Colours(label, {0, 0, kWidth, kHeight});
    EXPECT_EQ(whole.contains(second), geometry.secondOutline.has_value());
    EXPECT_FALSE(whole.contains(ColourOf(enabled ? kDisabledLine : kLine)));
    EXPECT_FALSE(whole.contains(ColourOf(enabled ? kDisabledSecondLine : kSecondLine)));

    // Nothing of the frame in the gap, beside its square ends.
    if (geometry.gapEnd > geometry.gapStart) {
      const ui::Rect gap{geometry.gapStart + 2, geometry.lineY - 2,
                         geometry.gapEnd - geometry.gapStart - 4, 5};
      EXPECT_FALSE(Colours(label, gap).contains(first));
      EXPECT_FALSE(Colours(label, gap).contains(second));
    }
    const std::set<COLORREF> caption = Colours(label, geometry.caption);
    const bool drawsText = enabled && !look.caption.empty();
    EXPECT_EQ(caption.contains(ColourOf(kText)), drawsText);
    if (!enabled && !look.caption.empty()) {
      EXPECT_TRUE(caption.contains(GetSysColor(COLOR_3DSHADOW)));
      EXPECT_TRUE(caption.contains(GetSysColor(COLOR_3DHILIGHT)));
    }
  }

  // As a 24-bit bitmap file, when somebody wants to see it.
  void KeepPicture(const char* name) {
    const char* folder = std::getenv("PANELORA_PICTURES");
    if (folder == nullptr) return;
    const int width = kWidth * kColumns;
    const int height = kHeight * kRows;
    const HDC dc = GetDC(parent);
    const HDC memory = CreateCompatibleDC(dc);
    const HBITMAP bitmap = CreateCompatibleBitmap(dc, width, height);
    const HGDIOBJ before = SelectObject(memory, bitmap);
    BitBlt(memory, 0, 0, width, height, dc, 0, 0, SRCCOPY);
    SelectObject(memory, before);
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 24;
    std::vector<char> pixels(static_cast<std::size_t>(width * 3) * height);
    GetDIBits(memory, bitmap, 0, height, pixels.data(), &info, DIB_RGB_COLORS);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(parent, dc);
    BITMAPFILEHEADER header{};
    header.bfType = 0x4D42;
    header.bfOffBits = sizeof header + sizeof info.bmiHeader;
    header.bfSize = static_cast<DWORD>(header.bfOffBits + pixels.size());
    std::ofstream file(std::string(folder) + "/" + name, std::ios::binary);
    file.write(reinterpret_cast<const char*>(&header), sizeof header);
    file.write(reinterpret_cast<const char*>(&info.bmiHeader), sizeof info.bmiHeader);
    file.write(pixels.data(), static_cast<std::streamsize>(pixels.size()));
  }

  static inline int eraseRequests = 0;
  HBRUSH background = CreateSolidBrush(kBackground);
  HWND parent = nullptr;
  GdiCache gdi{GetModuleHandleA(nullptr)};
  std::vector<std::unique_ptr<CColourLabel>> labels;
};

TEST_F(ColourLabelWindow, DrawsEveryStyleAndAlignmentInBothStates) {
  const std::pair<int, const char*> styles[] = {
      {kFrameFlat, "Flat"}, {kFrameRaised, "Raised"}, {kFrameEtched, "Etched"}};
  const std::pair<int, const char*> alignments[] = {
      {kCaptionLeft, "left"}, {kCaptionCentred, "centred"}, {kCaptionRight, "right"}, {0, "other"}};
  for (const auto& [style, styleName] : styles) {
    for (const bool enabled : {true, false}) {
      for (const auto& [alignment, alignmentName] : alignments) {
        Add(Look(alignment, style, Format("%s %s", styleName, alignmentName)), enabled);
      }
    }
  }
  Paint();
  KeepPicture("colour_label.bmp");
  for (const auto& label : labels) {
    SCOPED_TRACE(label->Look().caption + (IsWindowEnabled(label->Handle()) ? "" : " disabled"));
    ExpectDrawn(*label);
  }
}

TEST_F(ColourLabelWindow, EmptyCaptionDrawsAClosedFrame) {
  for (const int alignment : {kCaptionLeft, kCaptionRight, kCaptionCentred, 0}) {
    for (const int style : {kFrameFlat, kFrameRaised, kFrameEtched}) {
      Add(Look(alignment, style, ""));
    }
    Add(Look(alignment, kFrameFlat, ""), false);
  }
  Paint();
  for (const auto& label : labels) {
    const ColourLabelGeometry geometry = Expected(*label);
    const bool enabled = IsWindowEnabled(label->Handle()) != FALSE;
    for (int x = label->Look().left; x <= label->Look().right; ++x) {
      ASSERT_EQ(Pixel(*label, x, geometry.lineY), ColourOf(enabled ? kLine : kDisabledLine)) << x;
    }
  }
}

TEST_F(ColourLabelWindow, FontAndDpiAreTheLabels) {
  ColourLabelLook look = Look(kCaptionLeft, kFrameFlat, "Caption");
  CColourLabel& small = Add(look);
  look.font.tenths = 240;
  CColourLabel& large = Add(look);
  Paint();
  // The larger caption reaches further into the frame, and its gap further to the right.
  const ColourLabelGeometry smallPlace = Expected(small);
  const ColourLabelGeometry largePlace = Expected(large);
  EXPECT_GT(largePlace.gapEnd, smallPlace.gapEnd + 10);
  EXPECT_EQ(Pixel(small, smallPlace.gapEnd + 4, smallPlace.lineY), ColourOf(kLine));
  EXPECT_NE(Pixel(large, smallPlace.gapEnd + 4, largePlace.lineY), ColourOf(kLine));
  EXPECT_EQ(Pixel(large, largePlace.gapEnd + 4, largePlace.lineY), ColourOf(kLine));
}

TEST_F(ColourLabelWindow, PensHaveTheirWidth) {
  ColourLabelLook look = Look(kCaptionLeft, kFrameFlat, "Wide");
  look.penWidth = 5;
  CColourLabel& label = Add(look);
  Paint();
  int thickness = 0;
  for (int y = look.bottom - 6; y <= look.bottom + 6; ++y) {
    if (Pixel(label, kWidth / 2, y) == ColourOf(kLine)) ++thickness;
  }
  EXPECT_EQ(thickness, 5);
  // Square ends stand out by half the width into the gap.
  const ColourLabelGeometry geometry = Expected(label);
  for (const int y : {geometry.lineY - 2, geometry.lineY, geometry.lineY + 2}) {
    EXPECT_EQ(Pixel(label, geometry.gapStart + 1, y), ColourOf(kLine)) << y;
    EXPECT_EQ(Pixel(label, geometry.gapEnd - 1, y), ColourOf(kLine)) << y;
  }
}

TEST_F(ColourLabelWindow, CaptionIsMovedDown) {
  ColourLabelLook look = Look(kCaptionLeft, kFrameFlat, "Caption");
  CColourLabel& straight = Add(look);
  look.captionOffset = 20;
  CColourLabel& moved = Add(look);
  Paint();
  const ui::Rect place = Expected(straight).caption;
  const ui::Rect below{place.x, place.y + 20, place.width, place.height};
  EXPECT_TRUE(Colours(straight, place).contains(ColourOf(kText)));
  EXPECT_FALSE(Colours(moved, place).contains(ColourOf(kText)));
  EXPECT_TRUE(Colours(moved, below).contains(ColourOf(kText)));
}

TEST_F(ColourLabelWindow, ChangesOfStateAndLookArePaintedAnew) {
  CColourLabel& label = Add(Look(kCaptionLeft, kFrameEtched, "First"));
  Paint();
  ExpectDrawn(label);
  EnableWindow(label.Handle(), FALSE);
  Paint();
  ExpectDrawn(label);
  label.SetLook(Look(kCaptionRight, kFrameFlat, "Second"));
  EnableWindow(label.Handle(), TRUE);
  Paint();
  ExpectDrawn(label);
}

// What the parent asks of its control comes back to it as a request to paint itself.
// Captions are drawn like those of every control: "&&" is one ampersand, in both states.
TEST_F(ColourLabelWindow, CaptionsHaveTheirPrefixesHandled) {
  for (const bool enabled : {true, false}) {
    const ColourLabelLook look = Look(kCaptionLeft, kFrameFlat, "A && B");
    const CColourLabel& label = Add(look, enabled);
    Paint();
    const ui::Rect place = Expected(label).caption;
    const HDC dc = GetDC(label.Handle());
    const HDC copy = CreateCompatibleDC(dc);
    const HBITMAP bitmap = CreateCompatibleBitmap(dc, kWidth, kHeight);
    const HGDIOBJ before = SelectObject(copy, bitmap);
    RECT all{0, 0, kWidth, kHeight};
    FillRect(copy, &all, reinterpret_cast<HBRUSH>(GetClassLongPtrA(parent, GCLP_HBRBACKGROUND)));
    SelectObject(copy, gdi.FontFor(look.font, 96));
    SetBkMode(copy, TRANSPARENT);
    SetTextColor(copy, ColourOf(look.text));
    RECT rect{place.x, place.y, place.x + place.width, place.y + place.height};
    if (enabled) {
      DrawTextA(copy, " A & B ", -1, &rect, DT_SINGLELINE | DT_VCENTER | DT_NOCLIP | DT_NOPREFIX);
    } else {
      DrawStateA(copy, nullptr, nullptr, reinterpret_cast<LPARAM>(" A & B "), 7, place.x, place.y,
                 place.width, place.height, DST_TEXT | DSS_DISABLED);
    }
    int drawn = 0;
    // Where the frame leaves the gap open.
    for (int y = place.y; y < place.y + place.height; ++y) {
      for (int x = place.x + 2; x < place.x + place.width - 2; ++x) {
        ASSERT_EQ(GetPixel(dc, x, y), GetPixel(copy, x, y)) << x << ", " << y << " " << enabled;
        drawn += GetPixel(copy, x, y) != GetPixel(copy, kWidth - 1, kHeight - 1) ? 1 : 0;
      }
    }
    EXPECT_GT(drawn, 20);
    SelectObject(copy, before);
    DeleteObject(bitmap);
    DeleteDC(copy);
    ReleaseDC(label.Handle(), dc);
  }
}

TEST_F(ColourLabelWindow, ReflectedColourRequestsRepaintTheParent) {
  CColourLabel& label = Add(Look(kCaptionLeft, kFrameFlat, "Caption"));
  for (UINT message = OCM__BASE + WM_CTLCOLORMSGBOX; message <= OCM__BASE + WM_CTLCOLORSTATIC;
       ++message) {
    Paint();
    ASSERT_FALSE(GetUpdateRect(parent, nullptr, FALSE));
    EXPECT_EQ(SendMessageA(label.Handle(), message, 0, 0), 0);
    RECT dirty{};
    EXPECT_TRUE(GetUpdateRect(parent, &dirty, FALSE));
    EXPECT_TRUE(ErasesWithNextPaint());
    EXPECT_EQ(dirty.right, kWidth * kColumns);
    EXPECT_EQ(dirty.bottom, kHeight * kRows);
  }
  Paint();
  EXPECT_FALSE(GetUpdateRect(parent, nullptr, FALSE));
  SendMessageA(label.Handle(), OCM__BASE + WM_COMMAND, 0, 0);
  EXPECT_FALSE(GetUpdateRect(parent, nullptr, FALSE));
}

TEST_F(ColourLabelWindow, PaintingLeavesTheDeviceContextAsItWas) {
  CColourLabel& label = Add(Look(kCaptionLeft, kFrameEtched, "Caption"));
  const HDC dc = GetDC(parent);
  const HGDIOBJ font = GetCurrentObject(dc, OBJ_FONT);
  const HGDIOBJ pen = GetCurrentObject(dc, OBJ_PEN);
  const int mode = GetBkMode(dc);
  const COLORREF text = GetTextColor(dc);
  for (const BOOL enabled : {TRUE, FALSE}) {
    EnableWindow(label.Handle(), enabled);
    SendMessageA(label.Handle(), WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc), PRF_CLIENT);
    EXPECT_EQ(GetCurrentObject(dc, OBJ_FONT), font);
    EXPECT_EQ(GetCurrentObject(dc, OBJ_PEN), pen);
    EXPECT_EQ(GetBkMode(dc), mode);
    EXPECT_EQ(GetTextColor(dc), text);
  }
  ReleaseDC(parent, dc);
}

// A leak of one object a paint runs out of the 65,536 that there are.
TEST_F(ColourLabelWindow, PaintingForAYearLeavesNothingBehind) {
  CColourLabel& label = Add(Look(kCaptionLeft, kFrameEtched, "Caption"));
  Paint();
  const HDC dc = GetDC(parent);
  const std::size_t before = gdi.Count();
  for (int i = 0; i < 70000; ++i) {
    SendMessageA(label.Handle(), WM_PRINTCLIENT, reinterpret_cast<WPARAM>(dc), PRF_CLIENT);
  }
  ReleaseDC(parent, dc);
  EXPECT_EQ(gdi.Count(), before);
  InvalidateRect(parent, nullptr, TRUE);
  Paint();
  ExpectDrawn(label);
}

TEST_F(ColourLabelWindow, LabelKnowsThatItsWindowIsGone) {
  CColourLabel& label = Add(Look(kCaptionLeft, kFrameEtched, "Caption"));
  DestroyWindow(label.Handle());
  EXPECT_EQ(label.Handle(), nullptr);
  label.SetLook(Look(kCaptionLeft, kFrameFlat, "Later"));
  EXPECT_EQ(label.Look().caption, "Later");
  // With its parent.
  CColourLabel& other = Add(Look(kCaptionLeft, kFrameEtched, "Other"));
  EXPECT_FALSE(other.Create(parent, 1, {0, 0, 10, 10}));  // it has a window already
  DestroyWindow(parent);
  EXPECT_EQ(other.Handle(), nullptr);
  other.SetLook(Look(kCaptionLeft, kFrameFlat, "Later"));
}

}  // namespace
}  // namespace panelora::win32
