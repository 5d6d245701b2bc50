// The About dialog.
#include "tests/windows/end_to_end/program_test.h"

namespace panelora::testing::end_to_end {

namespace {

class AboutTest : public ProgramTest {
 protected:
  HWND OpenAbout(PanelProcess& panel) {
    panel.Post(panel.Main(), WM_SYSCOMMAND, 16);
    panel.Await("the About dialog", [&] { return panel.OwnedDialog() != nullptr; });
    return panel.OwnedDialog();
  }

  // The main window works as before.
  void ExpectUsable(PanelProcess& panel) {
    panel.Await("the end of the About dialog",
                [&] { return panel.OwnedDialog() == nullptr && IsWindowEnabled(panel.Main()); });
    panel.Press(res::kMain, kVideoButton);
    EXPECT_EQ(panel.CurrentLook().pages, std::vector<int>{res::kVideoMenu});
    panel.Press(res::kMain, kReturnButton);
    EXPECT_EQ(panel.CurrentLook(), HomeLook());
  }
};

TEST_F(AboutTest, TellsTheVersionUntilOk) {
  PanelProcess& panel = Start();
  for (int round = 0; round < 2; ++round) {
    const HWND about = OpenAbout(panel);
    EXPECT_EQ(panel.Text(about), "About Panelora");
    bool tellsVersion = false;
    for (HWND child = GetWindow(about, GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT)) {
      tellsVersion = tellsVersion || panel.Text(child) == "Panelora Version 1.0";
    }
    EXPECT_TRUE(tellsVersion);
    EXPECT_EQ(panel.Text(res::kAbout, 1), "OK");
    EXPECT_FALSE(IsWindowEnabled(panel.Main()));
    panel.Post(panel.Control(res::kAbout, 1), BM_CLICK);
    ExpectUsable(panel);
  }
}

// The system uses the low four bits of a command for itself.
TEST_F(AboutTest, LowBitsOfTheCommandDoNotCount) {
  PanelProcess& panel = Start();
  panel.Post(panel.Main(), WM_SYSCOMMAND, 16 + 15);
  panel.Await("the About dialog", [&] { return panel.OwnedDialog() != nullptr; });
  panel.Post(panel.OwnedDialog(), WM_CLOSE);
  ExpectUsable(panel);
}

TEST_F(AboutTest, EnterAndEscapeClose) {
  PanelProcess& panel = Start();
  for (const WPARAM key : {WPARAM{VK_RETURN}, WPARAM{VK_ESCAPE}}) {
    SCOPED_TRACE(key);
    OpenAbout(panel);
    panel.PostKey(panel.Control(res::kAbout, 1), key);
    ExpectUsable(panel);
  }
}

TEST_F(AboutTest, MonitorGoesOnBehind) {
  PanelProcess& panel = Start();
  OpenAbout(panel);
  panel.TakeCalls();
  panel.Plug(false);
  panel.Tick();
  EXPECT_EQ(panel.TakeCalls(), Join({kOpenCall, kIdentityCall, kInitialiseCallsWithoutBox}));
  EXPECT_EQ(panel.CurrentLook(), DisconnectedLook());
  EXPECT_FALSE(IsWindowEnabled(panel.Main()));
  panel.Plug(true);
  panel.Tick();
  panel.Post(panel.Control(res::kAbout, 1), BM_CLICK);
  ExpectUsable(panel);
}

TEST_F(AboutTest, ProgramEndsWithTheDialogOpen) {
  PanelProcess& panel = Start();
  OpenAbout(panel);
  CloseAndCheck();
}

}  // namespace

}  // namespace panelora::testing::end_to_end
