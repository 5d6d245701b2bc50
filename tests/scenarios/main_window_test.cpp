// The main window: start, connection monitor, looks, system menu, end.
#include "tests/support/scenario.h"

namespace panelora::testing {
namespace {

using MainWindow = Scenario;

const Calls kStartCalls = Join({kOpenCall, kIdentityCall, kInformationCalls, kMultiViewCall});
const Calls kNoBoxCalls = Join({kOpenCall, kIdentityCall, kMultiViewCall});
// The pages are initialised, then the Information button's procedure reads once more.
const Calls kConnectCalls = Join({kStartCalls, kInformationCalls});

TEST_F(MainWindow, StartsConnectedWithTitleSizeAndPages) {
  Start();
  EXPECT_EQ(desk.Title(res::kMain), "Corvane RXC-9 Center ( 1.0.2.6 )");
  EXPECT_EQ(desk.ClientSize(res::kMain), (Rect{0, 0, 600, 375}));
  for (int page = res::kInformation; page <= res::kTextLabels; ++page) {
    EXPECT_EQ(desk.PlaceOf(page), (Rect{110, 65, 540, 335})) << page;
  }
  ExpectConnectedLook();
  EXPECT_EQ(desk.TimerPeriod(res::kMain, 1), 3000);
  EXPECT_EQ(TakeCalls(), kStartCalls);
}

TEST_F(MainWindow, SystemMenuEndsWithAbout) {
  Start();
  const std::vector<std::pair<int, std::string>> menu = {{16, "&About Panelora..."}};
  EXPECT_EQ(desk.SystemMenu(res::kMain), menu);
}

TEST_F(MainWindow, ControlsHaveTheirFirstTextsPlacesAndFonts) {
  Start();
  EXPECT_EQ(desk.Text(res::kMain, kPictureButton), "Logo");
  EXPECT_EQ(desk.Text(res::kMain, kSerialPicture), "Logo");
  EXPECT_EQ(desk.PlaceOf(res::kMain, kSerialPicture), (Rect{110, 65, 490, 310}));
  EXPECT_EQ(desk.Picture(res::kMain, kSerialPicture), "NULL_RS485");
  EXPECT_EQ(desk.PressedPicture(res::kMain, kSerialPicture), "NULL_RS485");
  EXPECT_FALSE(desk.Shows(res::kMain, kSerialPicture));
  EXPECT_EQ(desk.Text(res::kMain, kPortList), "");
  EXPECT_EQ(desk.PlaceOf(res::kMain, kPortList).x, 500);
  EXPECT_EQ(desk.PlaceOf(res::kMain, kPortList).y, 20);
  EXPECT_EQ(desk.PlaceOf(res::kMain, kPortList).width, 80);
  EXPECT_FALSE(desk.Shows(res::kMain, kPortList));
  EXPECT_TRUE(desk.Items(res::kMain, kPortList).empty());
  for (const int control :
       {1000, 1001, 1002, 1003, 1004, 1005, 1006, 1007, 1012, 1013, 1015, 1048}) {
    EXPECT_EQ(desk.FontOf(res::kMain, control), (ui::Font{"Arial", 120})) << control;
  }
}

struct HomePlace {
  int control;
  const char* caption;
  const char* up;
  const char* down;
  Rect place;
};

const HomePlace kHomePlaces[] = {
    {1002, "Information", "INFO_BTU_U", "INFO_BTU_D", {0, 65, 110, 40}},
    {1001, "Video", "VIDEO_BTU_U", "VIDEO_BTU_D", {0, 105, 110, 40}},
    {1003, "Audio", "AUDIO_BTU_U", "AUDIO_BTU_D", {0, 145, 110, 40}},
    {1004, "Proc Amp", "PROC_BTU_U", "PROC_BTU_D", {0, 185, 110, 40}},
    {1005, "Setting", "SET_BTU_U", "SET_BTU_D", {0, 225, 110, 40}},
    {1006, "Return", "RETURN_BTU_U", "RETURN_BTU_D", {0, 65, 110, 40}},
    {1007, "Apply", "APPLY_BTU_U", "APPLY_BTU_D", {0, 65, 110, 40}},
    {1012, "Default", "DEFAULT_BTU_U", "DEFAULT_BTU_D", {0, 65, 110, 40}},
    {1014, "Page Up", "PAGE_UP_U", "PAGE_UP_D", {0, 340, 110, 45}},
    {1015, "Refresh", "REFRESH_BTU_U", "REFRESH_BTU_D", {0, 340, 110, 45}},
    {1008, "1X1", "1X1_U", "1X1_D", {0, 65, 110, 40}},
    {1009, "2X2", "2X2_U", "2X2_D", {0, 105, 110, 40}},
    {1010, "3X3", "3X3_U", "3X3_D", {0, 145, 110, 40}},
    {1011, "4X4", "4X4_U", "4X4_D", {0, 185, 110, 40}},
};

TEST_F(MainWindow, NavigationButtonsStandAtHomeWithTheirPictures) {
  Start();
  for (const HomePlace& row : kHomePlaces) {
    EXPECT_EQ(desk.Text(res::kMain, row.control), row.caption);
    EXPECT_EQ(desk.Picture(res::kMain, row.control), row.up);
    EXPECT_EQ(desk.PressedPicture(res::kMain, row.control), row.down);
    EXPECT_EQ(desk.PlaceOf(res::kMain, row.control), row.place) << row.caption;
  }
}

TEST_F(MainWindow, ConnectionChangePutsEveryButtonBackHome) {
  Start();
  Press(kVideoButton);
  desk.Press(res::kVideoMenu, 1002);  // moves Page Up, Apply and Return
  box.SetPresent(false);
  Tick();
  for (const HomePlace& row : kHomePlaces) {
    EXPECT_EQ(desk.PlaceOf(res::kMain, row.control), row.place) << row.caption;
  }
}

TEST_F(MainWindow, WithoutBoxStartsDisconnectedAndTheFirstTickThatFindsItConnects) {
  box.SetPresent(false);
  Start();
  ExpectDisconnectedLook();
  EXPECT_EQ(TakeCalls(), kNoBoxCalls);
  Tick();
  Tick();
  EXPECT_EQ(TakeCalls(), Join({kOpenCall, kOpenCall}));
  ExpectDisconnectedLook();
  box.SetPresent(true);
  Tick();
  ExpectConnectedLook();
  EXPECT_EQ(TakeCalls(), kConnectCalls);
}

TEST_F(MainWindow, UnpluggedBoxTurnsToTheDisconnectedLook) {
  Start();
  TakeCalls();
  Tick();
  EXPECT_EQ(TakeCalls(), kOpenCall);  // nothing changed: the identity is not read again
  box.SetPresent(false);
  Tick();
  ExpectDisconnectedLook();
  EXPECT_EQ(TakeCalls(), kNoBoxCalls);
  Tick();
  EXPECT_EQ(TakeCalls(), kOpenCall);
}

TEST_F(MainWindow, OtherModelIsTreatedAsAbsentAndAskedAgainOnEveryTick) {
  box.Become({0, 1, 2, 1, 1}, 0x0126);
  Start();
  ExpectDisconnectedLook();
  EXPECT_EQ(TakeCalls(), kNoBoxCalls);
  for (int type = 0; type <= 255; ++type) {
    if (type == 26) continue;
    box.Become({static_cast<std::uint8_t>(type), 1, 2, 1, 1}, 0x0126);
    Tick();
    Tick();
    EXPECT_EQ(TakeCalls(), Join({kOpenCall, kIdentityCall, kOpenCall, kIdentityCall})) << type;
    ExpectDisconnectedLook();
  }
}

TEST_F(MainWindow, BoxThatBecomesAnotherModelWhileConnectedGoesOnUntilItVanishes) {
  Start();
  box.Become({20, 0, 0, 0, 0}, 0x0126);
  Tick();
  ExpectConnectedLook();  // the identity is not read again while the box stays present
  box.SetPresent(false);
  Tick();
  ExpectDisconnectedLook();
  box.SetPresent(true);
  Tick();
  ExpectDisconnectedLook();
}

TEST_F(MainWindow, OnlyOneHandleMeansAbsent) {
  for (const DeviceHandle handle : {0x0U, 0xFFFFFFFFU, 0x80000001U, 0x7FFFFFFFU}) {
    device.AnswerHandle(handle);
    Start();
    EXPECT_TRUE(panel->IsConnected()) << handle;
    EXPECT_EQ(panel->Panel().deviceHandle, handle);
    panel.reset();
  }
  device.AnswerHandle(kNoBox);
  Start();
  EXPECT_FALSE(panel->IsConnected());
}

TEST_F(MainWindow, StartWhoseOpenFailsKeepsTheIdentityThatAnswers) {
  box.Become({26, 1, 2, 1, 1}, 0x0126);
  device.AnswerHandle(kNoBox);
  Start();
  EXPECT_FALSE(panel->IsConnected());
  EXPECT_EQ(panel->Panel().identity, (Identity{26, 1, 2, 1, 1}));
  EXPECT_EQ(TakeCalls(), kStartCalls);
  ExpectEmptyLook();
  Tick();
  EXPECT_EQ(TakeCalls(), kOpenCall);
  EXPECT_EQ(panel->Panel().identity.boxType, 26);
  // The same model: the stored bytes stay as they are.
  box.Block(254) = {26, 3, 0, 0, 0};
  device.AnswerHandle(simulator::BoxModel::kHandle);
  Tick();
  ExpectConnectedLook();
  EXPECT_EQ(TakeCalls(), kConnectCalls);
  EXPECT_EQ(panel->Panel().identity, (Identity{26, 1, 2, 1, 1}));
}

TEST_F(MainWindow, StartWhoseOpenFailsForgetsAnIdentityThatIsNotAdmitted) {
  box.Become({20, 1, 2, 1, 1}, 0x0126);
  device.AnswerHandle(kNoBox);
  Start();
  ExpectDisconnectedLook();
  EXPECT_EQ(TakeCalls(), kNoBoxCalls);
}

TEST_F(MainWindow, FailedIdentityReadIsAnAbsentBox) {
  device.Fail(kIdentityCall[0]);
  Start();
  ExpectDisconnectedLook();
  Tick();
  ExpectDisconnectedLook();
  device.FailNothing();
  Tick();
  ExpectConnectedLook();
}

TEST_F(MainWindow, IdentityIsStoredAnewAfterTheBoxWasAway) {
  box.Become({26, 1, 0, 0, 0}, 0x0126);
  Start();
  EXPECT_EQ(panel->Panel().identity, (Identity{26, 1, 0, 0, 0}));
  box.SetPresent(false);
  Tick();
  box.Become({26, 2, 3, 1, 1}, 0x0126);
  box.SetPresent(true);
  Tick();
  EXPECT_EQ(panel->Panel().identity, (Identity{26, 2, 3, 1, 1}));
  EXPECT_EQ(panel->Panel().identityPair, (std::array<std::uint8_t, 2>{26, 2}));
}

// The open fails but the identity can still be read: the same model keeps the stored bytes.
TEST_F(MainWindow, SameModelWithOtherBytesKeepsTheStoredOnes) {
  box.Become({26, 1, 0, 0, 0}, 0x0126);
  Start();
  box.Block(254) = {26, 2, 3, 1, 1};
  device.AnswerHandle(kNoBox);
  Tick();
  EXPECT_TRUE(panel->IsConnected());
  EXPECT_EQ(panel->Panel().identity, (Identity{26, 1, 0, 0, 0}));
}

TEST_F(MainWindow, TickSkipSilencesTheMonitor) {
  Start();
  Press(kApplyButton);  // writes nothing on the Information page, and is quiet for five ticks
  TakeCalls();
  for (int i = 0; i < 5; ++i) Tick();
  EXPECT_EQ(TakeCalls(), Calls{});
  Tick();
  EXPECT_EQ(TakeCalls(), kOpenCall);
}

TEST_F(MainWindow, PictureAndRefreshRereadTheInformationAndSilenceTwoTicks) {
  Start();
  for (const int control : {kPictureButton, kRefreshButton}) {
    TakeCalls();
    Press(control);
    EXPECT_EQ(TakeCalls(), kInformationCalls);
    Tick();
    Tick();
    EXPECT_EQ(TakeCalls(), Calls{});
    Tick();
    EXPECT_EQ(TakeCalls(), kOpenCall);
  }
}

TEST_F(MainWindow, DeviceHandleIsReplacedOnEveryTickAndPagesKeepTheirsUntilInitialised) {
  Start();
  device.AnswerHandle(0x1234);
  Tick();
  EXPECT_EQ(panel->Panel().deviceHandle, 0x1234U);
  // The page asks with the old handle, which the box does not know any more; its text stays.
  box.Word(5) = {0x30, 0x02};
  Press(kRefreshButton);
  EXPECT_EQ(desk.Text(res::kInformation, 1014), "0.1.2.6");
}

TEST_F(MainWindow, EnterAndEscapeNeverCloseIt) {
  Start();
  for (const ui::Key key : {ui::Key::kEnter, ui::Key::kEscape}) {
    desk.PressKey(res::kMain, kRefreshButton, key);
    desk.PressKey(res::kInformation, 1014, key);
    EXPECT_TRUE(desk.IsOpen(res::kMain));
    EXPECT_TRUE(desk.IsShown(res::kInformation));
  }
}

TEST_F(MainWindow, EnterPressesTheButtonThatHasTheFocus) {
  Start();
  desk.PressKey(res::kMain, kAudioButton, ui::Key::kEnter);
  EXPECT_EQ(ShownPages(), std::vector<int>{res::kAudio});
}

TEST_F(MainWindow, CloseBoxEndsIt) {
  Start();
  desk.RequestClose(res::kMain);
  EXPECT_FALSE(panel->IsOpen());
  EXPECT_FALSE(desk.IsOpen(res::kMain));
}

TEST_F(MainWindow, AboutOpensFromTheSystemMenuAndClosesWithOk) {
  Start();
  bool opened = false;
  desk.WhileModal([&] {
    opened = desk.IsShown(res::kAbout);
    EXPECT_EQ(desk.Title(res::kAbout), "About Panelora");
    EXPECT_EQ(desk.Text(res::kAbout, 1201), "Panelora Version 1.0");
    EXPECT_EQ(desk.Text(res::kAbout, 1), "OK");
    desk.Press(res::kAbout, 1);
    EXPECT_FALSE(desk.IsOpen(res::kAbout));
  });
  desk.ChooseSystemMenu(res::kMain, 16);
  EXPECT_TRUE(opened);
  EXPECT_FALSE(desk.IsOpen(res::kAbout));
}

TEST_F(MainWindow, AboutIgnoresTheLowFourBitsOfTheCommand) {
  Start();
  int opened = 0;
  for (int command = 16; command < 32; ++command) {
    desk.WhileModal([&] {
      ++opened;
      desk.PressKey(res::kAbout, 1, opened % 2 == 0 ? ui::Key::kEnter : ui::Key::kEscape);
    });
    desk.ChooseSystemMenu(res::kMain, command);
  }
  EXPECT_EQ(opened, 16);
}

TEST_F(MainWindow, HardwareResetForcesTheDisconnectedLookAndTheNextTickConnectsAgain) {
  Start();
  Press(kApplyButton);  // silences the monitor, which the reset takes back
  TakeCalls();
  desk.Press(res::kSetting, 1041);
  EXPECT_EQ(TakeCalls(), Calls{"set word 0,3 = 1"});
  now += simulator::BoxModel::kRestartTime;  // the box answers again before the tick
  Tick();
  ExpectDisconnectedLook();
  EXPECT_EQ(TakeCalls(), Join({kOpenCall, kMultiViewCall}));  // the identity is not read
  Tick();
  ExpectConnectedLook();
  EXPECT_EQ(TakeCalls(), kConnectCalls);
}

TEST_F(MainWindow, AfterAHardwareResetASilentBoxStaysDisconnected) {
  Start();
  desk.Press(res::kSetting, 1041);
  Tick();
  Tick();
  Tick();
  ExpectDisconnectedLook();
  now += simulator::BoxModel::kRestartTime;
  Tick();
  ExpectConnectedLook();
}

TEST_F(MainWindow, ForceDisconnectSetInTheDisconnectedLookWaitsForTheTickThatFindsABox) {
  box.SetPresent(false);
  Start();
  TakeCalls();
  desk.Press(res::kSetting, 1041);
  EXPECT_EQ(TakeCalls(), Calls{});  // no box, no command
  for (int i = 0; i < 3; ++i) Tick();
  EXPECT_EQ(TakeCalls(), Join({kOpenCall, kOpenCall, kOpenCall}));
  EXPECT_TRUE(panel->Panel().forceDisconnect);
  box.SetPresent(true);
  Tick();  // clears the flag and does nothing else
  ExpectDisconnectedLook();
  EXPECT_EQ(TakeCalls(), kOpenCall);
  EXPECT_FALSE(panel->Panel().forceDisconnect);
  Tick();
  ExpectConnectedLook();
  EXPECT_EQ(TakeCalls(), kConnectCalls);
}

TEST_F(MainWindow, EveryIdentityByteIsTaken) {
  for (const int value : {0, 1, 2, 3, 4, 8, 9, 26, 127, 128, 254, 255}) {
    const auto byte = static_cast<std::uint8_t>(value);
    box.Become({26, byte, byte, byte, byte}, 0x0126);
    Start();
    ExpectConnectedLook();
    EXPECT_EQ(panel->Panel().identity, (Identity{26, byte, byte, byte, byte}));
    panel.reset();
  }
}

TEST_F(MainWindow, AdmitsTheTypesOfTheBuild) {
  admitted = {26, 15};
  box.Become({15, 0, 0, 0, 0}, 0x0126);
  Start();
  EXPECT_TRUE(panel->IsConnected());
  EXPECT_EQ(Picture(), "PANEL_BMP_13");
}

// The tests are built like the program that is shipped.
TEST_F(MainWindow, ShippedBuildAdmitsType26Alone) {
  const auto types = AdmittedBoxTypes();
  EXPECT_EQ(std::vector<std::uint8_t>(types.begin(), types.end()), std::vector<std::uint8_t>{26});
}

}  // namespace
}  // namespace panelora::testing
