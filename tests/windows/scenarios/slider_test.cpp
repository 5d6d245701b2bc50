// The real trackbar under the operator's hands.
#include "tests/support/scenario.h"
#include "tests/support/windows_of.h"

namespace panelora::testing {
namespace {

class Slider : public Scenario {
 protected:
  HWND WindowOf(int control) { return WindowsOf(desk).Find(res::kProcAmp)->ControlWindow(control); }
};

TEST_F(Slider, KeysFrom10To200SendEachValueOnce) {
  StartWith(0x0126);
  box.Picture() = {10, 20, 30, 40};
  Press(kProcAmpButton);
  TakeCalls();
  Calls expected;
  for (int value = 11; value <= 200; ++value) {
    SendMessageA(WindowOf(1032), WM_KEYDOWN, VK_RIGHT, 1);
    SendMessageA(WindowOf(1032), WM_KEYUP, VK_RIGHT, 1);
    desk.Settle();
    expected.push_back("set proc amp 0,2 = " + std::to_string(value));
  }
  EXPECT_EQ(TakeCalls(), expected);
  EXPECT_EQ(desk.SliderPosition(res::kProcAmp, 1032), 200);
  desk.Settle();
  EXPECT_EQ(TakeCalls(), Calls{});
}

// A press beside the thumb and Page Up write at once, and must not jump on a live picture.
TEST_F(Slider, UpAndPageUpIncreaseByOneAndByEight) {
  StartWith(0x0126);
  Press(kProcAmpButton);
  const auto after = [&](WPARAM key) {
    SendMessageA(WindowOf(1032), WM_KEYDOWN, key, 1);
    SendMessageA(WindowOf(1032), WM_KEYUP, key, 1);
    desk.Settle();
    return desk.SliderPosition(res::kProcAmp, 1032);
  };
  EXPECT_EQ(after(VK_UP), 129);
  EXPECT_EQ(after(VK_DOWN), 128);
  EXPECT_EQ(after(VK_RIGHT), 129);
  EXPECT_EQ(after(VK_LEFT), 128);
  EXPECT_EQ(after(VK_PRIOR), 136);
  EXPECT_EQ(after(VK_NEXT), 128);
  TakeCalls();
  EXPECT_EQ(after(VK_END), 255);
  EXPECT_EQ(after(VK_HOME), 0);
  EXPECT_EQ(TakeCalls(), (Calls{"set proc amp 0,2 = 255", "set proc amp 0,2 = 0"}));
}

TEST_F(Slider, WheelMovesByOneAndOnlyWhereTheFocusIs) {
  StartWith(0x0126);
  Press(kProcAmpButton);
  const auto turn = [&](int slider, int delta) {
    MSG message{};
    message.hwnd = WindowOf(slider);
    message.message = WM_MOUSEWHEEL;
    message.wParam = MAKEWPARAM(0, delta);
    WindowsOf(desk).Handle(message);
    desk.Settle();
  };
  TakeCalls();
  desk.GiveFocus(res::kProcAmp, 1035);
  turn(1032, WHEEL_DELTA);
  EXPECT_EQ(TakeCalls(), Calls{});
  turn(1035, WHEEL_DELTA);
  turn(1035, 3 * WHEEL_DELTA);
  turn(1035, -WHEEL_DELTA);
  EXPECT_EQ(TakeCalls(),
            (Calls{"set proc amp 0,3 = 129", "set proc amp 0,3 = 130", "set proc amp 0,3 = 129"}));
}

// The thumb is held and moved: no value is sent twice in a row, and the last one is where it was
// let go.
TEST_F(Slider, DraggedThumbSendsEveryNewValueOnce) {
  StartWith(0x0126);
  box.Picture() = {10, 20, 30, 40};
  Press(kProcAmpButton);
  TakeCalls();
  const HWND slider = WindowOf(1032);
  RECT thumb;
  SendMessageA(slider, TBM_GETTHUMBRECT, 0, reinterpret_cast<LPARAM>(&thumb));
  const int y = (thumb.top + thumb.bottom) / 2;
  int x = (thumb.left + thumb.right) / 2;
  SendMessageA(slider, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(x, y));
  for (int i = 0; i < 60; ++i) {
    x += 2;
    SendMessageA(slider, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(x, y));
    desk.Settle();
  }
  SendMessageA(slider, WM_LBUTTONUP, 0, MAKELPARAM(x, y));
  desk.Settle();
  const Calls sent = TakeCalls();
  ASSERT_GT(sent.size(), 10U);
  for (std::size_t i = 1; i < sent.size(); ++i) EXPECT_NE(sent[i], sent[i - 1]);
  EXPECT_EQ(sent.back(),
            "set proc amp 0,2 = " + std::to_string(desk.SliderPosition(res::kProcAmp, 1032)));
  EXPECT_GT(desk.SliderPosition(res::kProcAmp, 1032), 100);
}

}  // namespace
}  // namespace panelora::testing
