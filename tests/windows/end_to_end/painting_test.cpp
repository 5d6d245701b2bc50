// What is really on the screen.
#include <set>

#include "tests/windows/end_to_end/program_test.h"

namespace panelora::testing::end_to_end {

namespace {

using PaintingTest = ProgramTest;

bool HasManyColours(const std::vector<COLORREF>& pixels) {
  return std::set<COLORREF>(pixels.begin(), pixels.end()).size() > 8;
}

TEST_F(PaintingTest, PictureButtonsShowTheirPicturesReleasedAndPressed) {
  PanelProcess& panel = Start();
  for (const int button : {kInformationButton, kVideoButton, kAudioButton, kProcAmpButton,
                           kSettingButton, kRefreshButton}) {
    SCOPED_TRACE(button);
    std::vector<COLORREF> released;
    panel.Await("a picture", [&] {
      released = panel.Pixels(button);
      return HasManyColours(released);
    });
    panel.Send(panel.Control(res::kMain, button), BM_SETSTATE, TRUE);
    std::vector<COLORREF> pressed;
    panel.Await("the pressed picture", [&] {
      pressed = panel.Pixels(button);
      return pressed != released;
    });
    EXPECT_TRUE(HasManyColours(pressed));
    panel.Send(panel.Control(res::kMain, button), BM_SETSTATE, FALSE);
    panel.Await("the released picture", [&] { return panel.Pixels(button) == released; });
  }
}

TEST_F(PaintingTest, DevicePictureChangesWithTheConnection) {
  PanelProcess& panel = Start();
  std::vector<COLORREF> device;
  panel.Await("the device picture", [&] {
    device = panel.Pixels(kPictureButton);
    return HasManyColours(device);
  });
  EXPECT_EQ(device.size(), 600U * 65U);
  panel.Plug(false);
  panel.Tick();
  panel.Await("the picture of no box", [&] {
    const std::vector<COLORREF> none = panel.Pixels(kPictureButton);
    const std::vector<COLORREF> top(none.begin(), none.begin() + 600 * 65);
    return none.size() == 600U * 375U && HasManyColours(none) && top != device;
  });
  panel.Plug(true);
  panel.Tick();
  panel.Await("the device picture again", [&] { return panel.Pixels(kPictureButton) == device; });
}

}  // namespace

}  // namespace panelora::testing::end_to_end
