// Keys, and the ways in which the program does and does not end.
#include <algorithm>
#include <set>

#include "tests/support/information_controls.h"
#include "tests/support/video_menu_controls.h"
#include "tests/windows/end_to_end/program_test.h"

namespace panelora::testing::end_to_end {

namespace {

class KeyboardTest : public ProgramTest {
 protected:
  // Waits until the program has taken every message that was posted to it.
  void Settle(PanelProcess& panel) { panel.Description(); }

  HWND AwaitFocus(PanelProcess& panel) {
    panel.Await("the focus", [&] { return panel.Focus() != nullptr; });
    return panel.Focus();
  }

  // The controls that Tab visits until it comes back to where it was.
  std::vector<int> TabOrder(PanelProcess& panel) {
    std::vector<int> order;
    const HWND first = AwaitFocus(panel);
    HWND focus = first;
    do {
      order.push_back(GetDlgCtrlID(focus));
      EXPECT_TRUE(IsWindowVisible(focus)) << order.back();
      panel.PostKey(focus, VK_TAB);
      Settle(panel);
      focus = panel.Focus();
    } while (focus != first && order.size() < 100);
    std::sort(order.begin(), order.end());
    return order;
  }

  void TabTo(PanelProcess& panel, int control) {
    for (int i = 0; i < 100 && GetDlgCtrlID(AwaitFocus(panel)) != control; ++i) {
      panel.PostKey(panel.Focus(), VK_TAB);
      Settle(panel);
    }
    ASSERT_EQ(GetDlgCtrlID(panel.Focus()), control);
  }
};

TEST_F(KeyboardTest, TabVisitsTheVisibleButtonsOnly) {
  PanelProcess& panel = Start();
  EXPECT_EQ(TabOrder(panel),
            (std::vector<int>{kPictureButton, kVideoButton, kInformationButton, kAudioButton,
                              kProcAmpButton, kSettingButton, kRefreshButton}));
  panel.Press(res::kMain, kVideoButton);
  EXPECT_EQ(TabOrder(panel), (std::vector<int>{kPictureButton, kVideoSettingsButton, kReturnButton,
                                               kImageAdjustButton}));
  panel.Plug(false);
  panel.Tick();
  EXPECT_EQ(TabOrder(panel), std::vector<int>{kPictureButton});
}

TEST_F(KeyboardTest, EnterAndSpacePressTheFocusedButton) {
  PanelProcess& panel = Start();
  TabTo(panel, kVideoButton);
  panel.PostKey(panel.Focus(), VK_RETURN);
  Settle(panel);
  EXPECT_EQ(panel.CurrentLook().pages, std::vector<int>{res::kVideoMenu});
  TabTo(panel, kReturnButton);
  panel.PostKey(panel.Focus(), VK_SPACE);
  Settle(panel);
  EXPECT_EQ(panel.CurrentLook(), HomeLook());
}

// A key that is held repeats itself; what it presses goes to the box once.
TEST_F(KeyboardTest, HeldEnterPressesOnce) {
  PanelProcess& panel = Start();
  panel.Press(res::kMain, kAudioButton);
  TabTo(panel, kApplyButton);
  panel.TakeCalls();
  const HWND apply = panel.Focus();
  constexpr LPARAM kRepeated = 0x40000001;
  panel.Post(apply, WM_KEYDOWN, VK_RETURN, 1);
  for (int i = 0; i < 20; ++i) panel.Post(apply, WM_KEYDOWN, VK_RETURN, kRepeated);
  panel.Post(apply, WM_KEYUP, VK_RETURN, static_cast<LPARAM>(0xC0000001));
  Settle(panel);
  const Calls once = {"set word 0,6 = 1", "set word 0,11 = 0", "set word 0,16 = 0"};
  EXPECT_EQ(panel.TakeCalls(), once);
  // Pressed again it counts again.
  panel.PostKey(apply, VK_RETURN);
  Settle(panel);
  EXPECT_EQ(panel.TakeCalls(), once);
}

TEST_F(KeyboardTest, FocusLeavesAButtonThatIsHidden) {
  PanelProcess& panel = Start();
  for (const int button : {kVideoButton, kAudioButton, kProcAmpButton, kSettingButton}) {
    SCOPED_TRACE(button);
    TabTo(panel, button);
    panel.PostKey(panel.Focus(), VK_RETURN);
    Settle(panel);
    const HWND focus = AwaitFocus(panel);
    EXPECT_TRUE(IsWindowVisible(focus));
    EXPECT_NE(focus, panel.Main());
    TabTo(panel, kReturnButton);
    panel.PostKey(panel.Focus(), VK_RETURN);
    Settle(panel);
    ASSERT_EQ(panel.CurrentLook(), HomeLook());
  }
}

TEST_F(KeyboardTest, EnterAndEscapeNeverCloseTheWindowOrAPage) {
  PanelProcess& panel = Start();
  for (const int button :
       {kInformationButton, kVideoButton, kAudioButton, kProcAmpButton, kSettingButton}) {
    SCOPED_TRACE(button);
    panel.Command(res::kMain, kReturnButton);
    panel.Command(res::kMain, button);
    const Look look = panel.CurrentLook();
    const HWND page = panel.Page(look.pages.front());
    // The page gets the keys itself and through the command that dialogs make of them.
    for (const HWND window : {panel.Main(), page}) {
      panel.PostKey(window, VK_ESCAPE);
      panel.PostKey(window, VK_RETURN);
      panel.Send(window, WM_COMMAND, IDCANCEL);
      panel.Send(window, WM_COMMAND, IDOK);
      Settle(panel);
      EXPECT_EQ(panel.CurrentLook(), look);
      EXPECT_TRUE(IsWindowVisible(panel.Main()));
    }
    panel.PostKey(AwaitFocus(panel), VK_ESCAPE);
    Settle(panel);
    EXPECT_EQ(panel.CurrentLook(), look);
  }
  EXPECT_TRUE(panel.IsRunning());
}

TEST_F(KeyboardTest, EnterAndEscapeDoNotCloseTheDisconnectedWindow) {
  PanelProcess& panel = Start({.plugged = false});
  const HWND focus = AwaitFocus(panel);
  panel.PostKey(focus, VK_ESCAPE);
  panel.PostKey(focus, VK_RETURN);
  Settle(panel);
  EXPECT_EQ(panel.CurrentLook(), DisconnectedLook());
}

// The keys of the display alone, as somebody without a mouse works: the output format is changed
// and applied, the picture reset, the firmware read, the audio muted, and the program left.
TEST_F(KeyboardTest, WholeVisitNeedsNoMouse) {
  PanelProcess& panel = Start();
  AwaitFocus(panel);
  const auto focus = [&] { return GetDlgCtrlID(panel.Focus()); };
  ASSERT_EQ(focus(), kInformationButton);
  panel.TakeCalls();

  panel.TypeKeys({"Tab", "Return", "Return"});  // Video, Video Setting
  EXPECT_EQ(panel.CurrentLook().pages, std::vector<int>{res::kVideoSettings});
  EXPECT_EQ(panel.Text(res::kVideoSettings, 1028), "1920x1080 60.00p");
  panel.TypeKeys({"Tab", "Tab", "Tab", "Tab", "space"});  // past "<<"
  EXPECT_EQ(panel.Text(res::kVideoSettings, 1028), "1920x1080 59.94p");
  panel.TakeCalls();
  panel.TypeKeys({"ctrl+Return"});
  EXPECT_EQ(panel.TakeCalls(), (Calls{"set word 0,4 = 1", "set word 0,2 = 16", "set word 0,7 = 1",
                                      "set word 0,12 = 2"}));
  panel.TypeKeys({"alt+Left", "alt+Left"});
  EXPECT_EQ(panel.CurrentLook(), HomeLook());
  EXPECT_EQ(focus(), kVideoButton);

  panel.TypeKeys({"Tab", "Tab", "Return"});
  EXPECT_EQ(panel.CurrentLook().pages, std::vector<int>{res::kProcAmp});
  panel.TypeKeys({"Right", "Right", "Right"});  // on the first slider
  EXPECT_EQ(panel.Text(res::kProcAmp, 1036), "131");
  panel.TypeKeys({"shift+Tab", "shift+Tab", "shift+Tab"});
  ASSERT_EQ(focus(), kDefaultButton);
  panel.TypeKeys({"Return"});
  EXPECT_EQ(panel.Text(res::kProcAmp, 1036), "128");
  panel.TypeKeys({"BackSpace", "F5"});
  EXPECT_EQ(panel.Text(res::kInformation, kFirmwareValue), "0.1.2.6");

  ASSERT_EQ(focus(), kProcAmpButton);
  panel.TypeKeys({"shift+Tab", "Return", "space"});
  EXPECT_EQ(panel.CurrentLook().pages, std::vector<int>{res::kAudio});
  EXPECT_EQ(panel.Text(res::kAudio, 1025), "ON");
  panel.TakeCalls();
  panel.TypeKeys({"ctrl+Return"});
  EXPECT_EQ(panel.TakeCalls(),
            (Calls{"set word 0,6 = 1", "set word 0,11 = 1", "set word 0,16 = 0"}));
  panel.Post(panel.Main(), WM_SYSKEYDOWN, VK_F4, 0x20000001);  // no window manager sees Alt+F4 here
  EXPECT_EQ(panel.WaitForEnd(), 0U);
}

TEST_F(KeyboardTest, SystemMenuCloseEndsTheProgram) {
  PanelProcess& panel = Start();
  panel.Post(panel.Main(), WM_SYSCOMMAND, SC_CLOSE);
  EXPECT_EQ(panel.WaitForEnd(), 0U);
}

TEST_F(KeyboardTest, CloseBoxEndsTheProgramInBothLooks) {
  Start();
  CloseAndCheck();
  Start({.plugged = false});
  CloseAndCheck();
}

}  // namespace

}  // namespace panelora::testing::end_to_end
