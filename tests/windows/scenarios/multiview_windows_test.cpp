// What only real windows show of the multi-view pages.
#include "platform/win32/win32_toolkit.h"
#include "tests/support/scenario.h"
#include "tests/support/windows_of.h"

namespace panelora::testing {
namespace {

class MultiViewWindows : public Scenario {
 protected:
  win32::Win32Dialog& Page(int number) { return *WindowsOf(desk).Find(number); }
  // The brush that the page gives for its own background.
  HBRUSH Background(int number) {
    const HWND page = Page(number).Handle();
    const HDC dc = GetDC(page);
    const LRESULT brush = SendMessageA(page, WM_CTLCOLORDLG, reinterpret_cast<WPARAM>(dc),
                                       reinterpret_cast<LPARAM>(page));
    ReleaseDC(page, dc);
    return reinterpret_cast<HBRUSH>(brush);
  }
};

TEST_F(MultiViewWindows, WallStandsOnBlackWithOneBrush) {
  StartWith({14, 0, 0, 0, 0});
  panel->OpenPage(PageCode::kTvWall);
  desk.Settle();
  const HBRUSH brush = Background(res::kTvWall);
  LOGBRUSH black{};
  ASSERT_NE(GetObjectA(brush, sizeof black, &black), 0);
  EXPECT_EQ(black.lbStyle, static_cast<UINT>(BS_SOLID));
  EXPECT_EQ(black.lbColor, RGB(0, 0, 0));
  for (int i = 0; i < 100; ++i) EXPECT_EQ(Background(res::kTvWall), brush);
  EXPECT_NE(Background(res::kPip), brush);
  // Below the tiles and beside them.
  const HDC dc = GetDC(Page(res::kTvWall).Handle());
  EXPECT_EQ(GetPixel(dc, 1, 1), RGB(0, 0, 0));
  EXPECT_EQ(GetPixel(dc, 487, 150), RGB(0, 0, 0));
  EXPECT_NE(GetPixel(dc, 100, 100), RGB(0, 0, 0));
  ReleaseDC(Page(res::kTvWall).Handle(), dc);
}

TEST_F(MultiViewWindows, ChosenTileStaysDrawnAsChosen) {
  StartWith({14, 0, 0, 0, 0});
  panel->OpenPage(PageCode::kTvWall);
  Press(kWall4Button);
  const auto pixels = [&] {
    std::vector<COLORREF> found;
    const HDC dc = GetDC(Page(res::kTvWall).Handle());
    for (int y = 82; y < 153; y += 3) {
      for (int x = 126; x < 242; x += 3) found.push_back(GetPixel(dc, x, y));
    }
    ReleaseDC(Page(res::kTvWall).Handle(), dc);
    return found;
  };
  desk.Settle();
  const auto before = pixels();
  desk.PressMouse(res::kTvWall, 1026);
  const auto chosen = pixels();
  EXPECT_NE(chosen, before);
  desk.Repaint(res::kTvWall);
  EXPECT_EQ(pixels(), chosen);
  desk.PressMouse(res::kTvWall, 1027);
  EXPECT_EQ(pixels(), before);
}

// The thumb is dragged with the mouse: the page takes the position when it is let go, not before.
TEST_F(MultiViewWindows, PipSliderIsTakenWhenItIsLetGo) {
  StartWith({51, 0, 0, 0, 0});
  box.Block(1)[0] = 4;
  panel->OpenPage(PageCode::kPip);
  desk.Settle();
  TakeCalls();
  const HWND slider = Page(res::kPip).ControlWindow(1055);
  RECT thumb;
  SendMessageA(slider, TBM_GETTHUMBRECT, 0, reinterpret_cast<LPARAM>(&thumb));
  const int y = (thumb.top + thumb.bottom) / 2;
  const int x = (thumb.left + thumb.right) / 2;
  SendMessageA(slider, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
  SendMessageA(slider, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(x + 60, y));
  desk.Settle();
  EXPECT_EQ(desk.Text(res::kPip, 1076), "0100");
  SendMessageA(slider, WM_LBUTTONUP, 0, MAKELPARAM(x + 60, y));
  desk.Settle();
  const int position = desk.SliderPosition(res::kPip, 1055);
  EXPECT_GT(position, 200);
  EXPECT_EQ(desk.Text(res::kPip, 1076), Format("%04d", position));
  EXPECT_EQ(TakeCalls(), Calls{});
}

// The page is told of the press first, and the button gets it all the same.
TEST_F(MultiViewWindows, PressedTileIsPressedAsAButtonToo) {
  StartWith({14, 0, 0, 0, 0});
  panel->OpenPage(PageCode::kTvWall);
  const HWND tile = Page(res::kTvWall).ControlWindow(1023);
  MSG message{};
  message.hwnd = tile;
  message.message = WM_LBUTTONDOWN;
  message.wParam = MK_LBUTTON;
  message.lParam = MAKELPARAM(5, 5);
  WindowsOf(desk).Handle(message);
  EXPECT_EQ(GetCapture(), tile);
  EXPECT_NE(SendMessageA(tile, BM_GETSTATE, 0, 0) & BST_PUSHED, 0);
  EXPECT_EQ(panel->Panel().tilePosition, 2U);
  message.message = WM_LBUTTONUP;
  message.wParam = 0;
  WindowsOf(desk).Handle(message);
  EXPECT_EQ(GetCapture(), nullptr);
}

// What a slider puts behind its value is in the text and not on the screen.
TEST_F(MultiViewWindows, LineFeedBehindAValueIsNotSeen) {
  StartWith({46, 0, 0, 0, 0});
  panel->OpenPage(PageCode::kRoi);
  desk.Drag(res::kRoi, 1057, 300);
  desk.Release(res::kRoi, 1057);
  ASSERT_EQ(desk.Text(res::kRoi, 1061), "600\n");
  win32::Win32Dialog& page = Page(res::kRoi);
  const auto pixels = [&] {
    desk.Repaint(res::kRoi);
    const HDC dc = GetDC(page.ControlWindow(1061));
    std::vector<COLORREF> found;
    for (int y = 0; y < 20; ++y) {
      for (int x = 0; x < 60; ++x) found.push_back(GetPixel(dc, x, y));
    }
    ReleaseDC(page.ControlWindow(1061), dc);
    return found;
  };
  const std::vector<COLORREF> withFeed = pixels();
  page.SetText(1061, "600");
  EXPECT_EQ(pixels(), withFeed);
  page.SetText(1061, "600x");
  EXPECT_NE(pixels(), withFeed);
  page.SetText(1061, "600\nx");  // one line is drawn
  EXPECT_EQ(pixels(), withFeed);
  page.SetText(1061, "");
  EXPECT_NE(pixels(), withFeed);
}

// Drawing takes a device context as it is and leaves it so.
TEST_F(MultiViewWindows, DrawingLeavesTheDeviceContextAsItWas) {
  StartWith({14, 0, 0, 0, 0});
  panel->OpenPage(PageCode::kTvWall);
  desk.PressKey(res::kTvWall, 1021, ui::Key::kEscape);  // from now on the focus is marked
  struct Drawn {
    int dialog;
    int control;
    UINT type;
  };
  for (const Drawn& drawn :
       {Drawn{res::kTvWall, 1021, ODT_BUTTON}, Drawn{res::kMain, kPictureButton, ODT_BUTTON},
        Drawn{res::kMain, kPageUpButton, ODT_BUTTON}, Drawn{res::kRoi, 1061, ODT_STATIC}}) {
    SCOPED_TRACE(drawn.control);
    win32::Win32Dialog& dialog = Page(drawn.dialog);
    const HWND window = dialog.ControlWindow(drawn.control);
    const HDC screen = GetDC(nullptr);
    const HDC dc = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateCompatibleBitmap(screen, 600, 400);
    ReleaseDC(nullptr, screen);
    const HGDIOBJ before = SelectObject(dc, bitmap);
    SetTextColor(dc, RGB(1, 2, 3));
    SetBkColor(dc, RGB(4, 5, 6));
    SetBkMode(dc, OPAQUE);
    SetStretchBltMode(dc, BLACKONWHITE);
    SetBrushOrgEx(dc, 3, 4, nullptr);
    const auto state = [&] {
      POINT origin;
      GetBrushOrgEx(dc, &origin);
      return std::make_tuple(GetTextColor(dc), GetBkColor(dc), GetBkMode(dc), GetStretchBltMode(dc),
                             origin.x, origin.y, GetCurrentObject(dc, OBJ_FONT),
                             GetCurrentObject(dc, OBJ_BRUSH), GetCurrentObject(dc, OBJ_BITMAP));
    };
    const auto untouched = state();
    DRAWITEMSTRUCT item{};
    item.CtlType = drawn.type;
    item.CtlID = static_cast<UINT>(drawn.control);
    item.itemAction = ODA_DRAWENTIRE;
    item.itemState = ODS_FOCUS;
    item.hwndItem = window;
    item.hDC = dc;
    item.rcItem = {0, 0, 333, 77};  // another size than the picture's, so that it is stretched
    SendMessageA(dialog.Handle(), WM_DRAWITEM, item.CtlID, reinterpret_cast<LPARAM>(&item));
    EXPECT_EQ(state(), untouched);
    SelectObject(dc, before);
    DeleteObject(bitmap);
    DeleteDC(dc);
  }
}

// The arrow keys count when they are let go.
TEST_F(MultiViewWindows, SlidersAreTakenFromTheKeyboardToo) {
  StartWith({46, 0, 0, 0, 0});
  panel->OpenPage(PageCode::kGenlock);
  desk.Settle();
  TakeCalls();
  const HWND slider = Page(res::kGenlock).ControlWindow(1086);
  SendMessageA(slider, WM_KEYDOWN, VK_RIGHT, 1);
  SendMessageA(slider, WM_KEYDOWN, VK_RIGHT, 1);
  desk.Settle();
  EXPECT_EQ(TakeCalls(), Calls{});
  SendMessageA(slider, WM_KEYUP, VK_RIGHT, 1);
  desk.Settle();
  EXPECT_EQ(TakeCalls(), Calls{"set block 27,0,5: 00 66 00 C8 00"});
}

}  // namespace
}  // namespace panelora::testing
