// Tab follows the eye: the navigation from top to bottom, then the page.
#include "tests/support/scenario.h"
#include "tests/support/windows_of.h"

namespace panelora::testing {
namespace {

using Stops = std::vector<int>;

class TabOrder : public Scenario {
 protected:
  void Tab(bool back) {
    MSG message{};
    message.hwnd = GetFocus();
    message.message = WM_KEYDOWN;
    message.wParam = VK_TAB;
    message.lParam = 1;
    BYTE keys[256] = {};
    keys[VK_SHIFT] = back ? 0x80 : 0;
    SetKeyboardState(keys);
    WindowsOf(desk).Handle(message);
    keys[VK_SHIFT] = 0;
    SetKeyboardState(keys);
    desk.Settle();
  }
  // From the control that has the focus round to it.
  Stops Round(bool back = false) {
    const auto first = desk.Focus(res::kMain);
    Stops stops;
    do {
      stops.push_back(desk.Focus(res::kMain).second);
      Tab(back);
    } while (desk.Focus(res::kMain) != first && stops.size() < 50);
    return stops;
  }
};

TEST_F(TabOrder, GoesDownTheNavigationAndThenThePage) {
  StartWith(0x0126);
  EXPECT_EQ(Round(), (Stops{kInformationButton, kVideoButton, kAudioButton, kProcAmpButton,
                            kSettingButton, kRefreshButton, kPictureButton}));
  Press(kSettingButton);
  EXPECT_EQ(Round(), (Stops{1056, 1045, 1049, 1041, kPictureButton, kApplyButton, kReturnButton}));
  EXPECT_EQ(Round(true),
            (Stops{1056, kReturnButton, kApplyButton, kPictureButton, 1041, 1049, 1045}));
}

TEST_F(TabOrder, GoesOverEachRowFromLeftToRight) {
  StartWith(0x0126);
  panel->OpenPage(PageCode::kVideoSettings);
  EXPECT_EQ(Round(), (Stops{1018, 1026, 1049, 1033, 1029, kPictureButton, kPageUpButton,
                            kApplyButton, kReturnButton}));
  panel.reset();
  StartWith(Identity{46, 0, 0, 0, 0});
  panel->OpenPage(PageCode::kGenlock);
  EXPECT_EQ(Round(), (Stops{1080, 1108, 1086, 1107, 1105, 1110, 1087, 1109, 1106, kPictureButton,
                            kApplyButton, kDefaultButton, kReturnButton}));
}

}  // namespace
}  // namespace panelora::testing
