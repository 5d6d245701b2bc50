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
