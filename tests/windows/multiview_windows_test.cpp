// What only real windows show of the multi-view pages.
#include "platform/win32/win32_toolkit.h"
#include "tests/support/panel_test.h"

namespace panelora::testing {
namespace {

class MultiViewWindows : public PanelTest {
 protected:
  win32::Win32Dialog& Page(int number) {
    return *static_cast<win32::Win32Toolkit&>(desk.Toolkit()).Find(number);
  }
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
  panel->ShowTvWall();
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
  panel->ShowTvWall();
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
  panel->ShowPip();
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
  EXPECT_EQ(desk.Text(res::kPip, 1076), ui::Format("%04d", position));
  EXPECT_EQ(TakeCalls(), Calls{});
}

// The page is told of the press first, and the button gets it all the same.
TEST_F(MultiViewWindows, PressedTileIsPressedAsAButtonToo) {
  StartWith({14, 0, 0, 0, 0});
  panel->ShowTvWall();
  const HWND tile = Page(res::kTvWall).ControlWindow(1023);
  MSG message{};
  message.hwnd = tile;
  message.message = WM_LBUTTONDOWN;
  message.wParam = MK_LBUTTON;
  message.lParam = MAKELPARAM(5, 5);
  static_cast<win32::Win32Toolkit&>(desk.Toolkit()).Handle(message);
  EXPECT_EQ(GetCapture(), tile);
  EXPECT_NE(SendMessageA(tile, BM_GETSTATE, 0, 0) & BST_PUSHED, 0);
  EXPECT_EQ(panel->Panel().tilePosition, 2U);
  message.message = WM_LBUTTONUP;
  message.wParam = 0;
  static_cast<win32::Win32Toolkit&>(desk.Toolkit()).Handle(message);
  EXPECT_EQ(GetCapture(), nullptr);
}

// The arrow keys count when they are let go.
TEST_F(MultiViewWindows, SlidersAreTakenFromTheKeyboardToo) {
  StartWith({46, 0, 0, 0, 0});
  panel->ShowGenlock();
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
