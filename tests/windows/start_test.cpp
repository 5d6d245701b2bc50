// What the operator finds when the program has started.
#include "device_calls.h"
#include "panel_test.h"

namespace panelora::end_to_end {

namespace {

using StartTest = PanelTest;

TEST_F(StartTest, FindsTheBoxAndShowsItsState) {
  PanelProcess& panel = Start();
  EXPECT_EQ(panel.TakeCalls(), Joined({kOpen, kIdentify, kInitialisePages}));

  EXPECT_EQ(panel.Text(panel.Main()), "Corvane RXC-9 Center ( 1.0.2.6 )");
  RECT client{};
  GetClientRect(panel.Main(), &client);
  EXPECT_EQ(client.right, 600);
  EXPECT_EQ(client.bottom, 375);

  EXPECT_EQ(panel.CurrentLook(), HomeLook());
  EXPECT_EQ(panel.Text(kInformationPage, 1007), "1920x1080  59.94p");
  EXPECT_EQ(panel.Text(kInformationPage, 1014), "0.1.2.6");
}

TEST_F(StartTest, PagesStandRightBehindTheDevicePictureAtOnePlace) {
  PanelProcess& panel = Start();
  EXPECT_EQ(panel.Pages(),
            (std::vector<int>{115, 114, 113, 112, 111, 110, 109, 108, 107, 106, 105, 104, 103}));
  for (const int page : panel.Pages()) {
    SCOPED_TRACE(page);
    EXPECT_EQ(panel.PlaceOf(panel.Page(page)), (ui::Rect{110, 65, 540, 335}));
    EXPECT_EQ(panel.IsShown(panel.Page(page)), page == kInformationPage);
  }
  EXPECT_EQ(GetWindow(panel.Main(), GW_CHILD), panel.Control(kMain, kPicture));
  EXPECT_EQ(GetWindow(panel.Control(kMain, kPicture), GW_HWNDNEXT), panel.Page(kTextLabelsPage));
}

TEST_F(StartTest, NavigationButtonsHaveTheirCaptionsAndHomePlaces) {
  struct Button {
    int control;
    const char* caption;
    ui::Rect home;
  };
  const Button buttons[] = {
      {kPicture, "Logo", {0, 0, 600, 65}},       {kInformation, "Information", {0, 65, 110, 40}},
      {kVideo, "Video", {0, 105, 110, 40}},      {kAudio, "Audio", {0, 145, 110, 40}},
      {kProcAmp, "Proc Amp", {0, 185, 110, 40}}, {kSetting, "Setting", {0, 225, 110, 40}},
      {kReturn, "Return", {0, 65, 110, 40}},     {kApply, "Apply", {0, 65, 110, 40}},
      {kDefault, "Default", {0, 65, 110, 40}},   {kPageUp, "Page Up", {0, 340, 110, 45}},
      {kRefresh, "Refresh", {0, 340, 110, 45}},  {kWall1, "1X1", {0, 65, 110, 40}},
      {kWall2, "2X2", {0, 105, 110, 40}},        {kWall3, "3X3", {0, 145, 110, 40}},
      {kWall4, "4X4", {0, 185, 110, 40}},        {1013, "Logo", {110, 65, 490, 310}},
  };
  PanelProcess& panel = Start();
  for (const Button& button : buttons) {
    SCOPED_TRACE(button.control);
    EXPECT_EQ(panel.Text(kMain, button.control), button.caption);
    EXPECT_EQ(panel.PlaceOf(panel.Control(kMain, button.control)), button.home);
  }
  // The port list: a closed combo box is as high as its font.
  const ui::Rect ports = panel.PlaceOf(panel.Control(kMain, 1048));
  EXPECT_EQ(ports.x, 500);
  EXPECT_EQ(ports.y, 20);
  EXPECT_EQ(ports.width, 80);
  EXPECT_EQ(panel.Text(kMain, 1048), "");
}

TEST_F(StartTest, InformationPageShowsTheRowsOfModel26) {
  PanelProcess& panel = Start();
  const Places rows = {{1016, {55, 20, 390, 260}}, {1003, {80, 60, 110, 20}},
                       {1007, {200, 60, 150, 20}}, {1013, {80, 90, 110, 30}},
                       {1014, {200, 90, 150, 30}}, {1015, {180, 250, 200, 30}}};
  EXPECT_EQ(panel.ShownControls(kInformationPage), rows);
  EXPECT_EQ(panel.Text(kInformationPage, 1016), "Information");
  EXPECT_EQ(panel.Text(kInformationPage, 1003), "Input Format    :");
  EXPECT_EQ(panel.Text(kInformationPage, 1013), "F/W Version     :");
}

TEST_F(StartTest, WindowHasIconsAndASystemMenuWithAboutBehindASeparator) {
  const ProbeMemory description = Start().Description();
  EXPECT_TRUE(description.bigIcon);
  EXPECT_TRUE(description.smallIcon);
  const std::string menu = description.systemMenu;
  const std::string about = "-\n16 &About Panelora...\n";
  ASSERT_GE(menu.size(), about.size());
  EXPECT_EQ(menu.substr(menu.size() - about.size()), about) << menu;
  EXPECT_NE(menu.find(std::to_string(SC_CLOSE) + " "), std::string::npos) << menu;
}

TEST_F(StartTest, UnpluggedBoxShowsTheDisconnectedLook) {
  PanelProcess& panel = Start({.plugged = false});
  EXPECT_EQ(panel.TakeCalls(), Joined({kOpen, kIdentify, kInitialisePagesWithoutBox}));
  EXPECT_EQ(panel.CurrentLook(), DisconnectedLook());
  EXPECT_EQ(panel.Text(panel.Main()), "Corvane RXC-9 Center ( 1.0.2.6 )");
}

TEST_F(StartTest, BoxOfAnotherTypeShowsTheDisconnectedLook) {
  PanelProcess& panel = Start({.identity = {15, 2, 1, 1, 1}});
  EXPECT_EQ(panel.TakeCalls(), Joined({kOpen, kIdentify, kInitialisePagesWithoutBox}));
  EXPECT_EQ(panel.CurrentLook(), DisconnectedLook());
}

}  // namespace

}  // namespace panelora::end_to_end
