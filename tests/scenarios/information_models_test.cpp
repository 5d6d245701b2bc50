// The Information page, the Video menu and the navigation bar at home of every box type, against
// lists of their own.
#include "tests/support/model_walk.h"

namespace panelora::testing {
namespace {

using InformationModels = ModelWalk;

constexpr int kPage = res::kInformation;
constexpr int kFormat = 1007;
constexpr int kFirmware = 1014;
constexpr int kAddress = 1015;

bool TellsByBlock(int type) { return Has({14, 36, 51}, type); }

int FirmwareItemOf(int type) {
  if (type == 26) return 5;
  return Has({17, 18, 19, 20, 21, 27, 30, 32, 33, 43}, type) ? 4 : 8;
}

Calls ReadsOf(int type) {
  if (type == 26) return {GetBlock(1, 30), GetWord(5)};
  return {TellsByBlock(type) ? GetBlock(3, 30) : GetWord(3), GetWord(FirmwareItemOf(type))};
}

TEST_F(InformationModels, EveryTypeShowsItsInputAndItsFirmware) {
  for (const int type : kTypes) {
    SCOPED_TRACE(Named(Box(type)));
    StartAs(Box(type));
    Places expected = {{1016, {55, 20, 390, 260}},
                       {1003, {80, 60, 110, 20}},
                       {kFormat, {200, 60, 150, 20}},
                       {1013, {80, 90, 110, 30}},
                       {kFirmware, {200, 90, 150, 30}}};
    expected[kAddress] = type == 26 ? Rect{180, 250, 200, 30} : Rect{180, 255, 200, 20};
    ASSERT_EQ(ShownOn(kPage), expected);
    const bool numbered = type == 13 || type == 15;
    EXPECT_EQ(desk.Text(kPage, 1003), numbered ? "Input Format 1 :" : "Input Format    :");
    EXPECT_EQ(desk.Text(kPage, 1016), "Information");
    EXPECT_EQ(desk.Text(kPage, 1013), "F/W Version     :");
    EXPECT_EQ(desk.Text(kPage, kFirmware), "0.1.2.6");
    for (const ui::ControlTemplate& control : res::FindDialog(kPage)->controls) {
      ASSERT_EQ(desk.FontOf(kPage, control.id), (ui::Font{"Arial", 120})) << control.id;
    }
    EXPECT_EQ(CallsOf(kPictureButton), ReadsOf(type));
    EXPECT_EQ(CallsOf(kInformationButton), ReadsOf(type));
  }
}

TEST_F(InformationModels, FirstTextsOfEveryRow) {
  device.FailEverything();
  Start();
  const std::map<int, std::string> texts = {{1003, "Input Format    :"},
                                            {1004, "Input Format 2 :"},
                                            {1008, "1920x1080 60.00p"},
                                            {1005, "Input Format 3 :"},
                                            {1009, "1920x1080 60.00p"},
                                            {1006, "Input Format 4 :"},
                                            {1010, "1920x1080 60.00p"},
                                            {1017, "Control Interface :"},
                                            {1018, "DipSwitch"},
                                            {1019, "L/R Audio"},
                                            {1020, "OFF"},
                                            {1023, "Audio Mute     :"},
                                            {1033, "Output Source  :"},
                                            {1034, "VGA + HDMI"}};
  for (const auto& [control, text] : texts) EXPECT_EQ(desk.Text(kPage, control), text) << control;
}

TEST_F(InformationModels, EveryTypeNamesItsInputFromItsOwnSource) {
  for (const int type : kTypes) {
    SCOPED_TRACE(Named(Box(type)));
    StartAs(Box(type));
    // All three sources tell something else.
    Report(1, {0x05, 0x00, 0x02, 0xD0, 50, 0, 0});
    Report(3, {0x80, 0x07, 0x38, 0x04, 59, 94, 1});
    box.Word(3) = {45, 0};
    Reread();
    EXPECT_EQ(desk.Text(kPage, kFormat), type == 26           ? "1280x720  50.00p"
                                         : TellsByBlock(type) ? "1920x1080  59.94p"
                                                              : "1920x1080 30.00p");
    if (type == 26 || TellsByBlock(type)) continue;
    // The second name goes with the flag 1 alone, and of the code the low byte counts.
    box.Word(3) = {45, 1};
    Reread();
    EXPECT_EQ(desk.Text(kPage, kFormat), "1920x1080 29.97p");
    for (const std::uint32_t flag : {2U, 0x101U}) {
      box.Word(3) = {0xAB00 + 10, flag};
      Reread();
      EXPECT_EQ(desk.Text(kPage, kFormat), "1920x1080 60.00p") << flag;
    }
    box.Word(3) = {93, 0};
    Reread();
    EXPECT_EQ(desk.Text(kPage, kFormat), type == 19 ? "-  NO SIGNAL  -" : "1920x1080 24.00s");
    box.Word(3) = {91, 0};
    Reread();
    EXPECT_EQ(desk.Text(kPage, kFormat), "-  NO  SIGNAL  -");
  }
}

TEST_F(InformationModels, EveryTypeTellsItsFirmwareInItsOwnItem) {
  for (const int type : kTypes) {
    SCOPED_TRACE(Named(Box(type)));
    StartAs(Box(type));
    const auto item = static_cast<std::uint32_t>(FirmwareItemOf(type));
    for (const std::uint32_t other : {4U, 5U, 8U}) box.Word(other) = {0xABCD12, 0xABCD34};
    box.Word(item) = {0xABCD56, 0xABCD78};
    Reread();
    EXPECT_EQ(desk.Text(kPage, kFirmware), "7.8.5.6");
    EXPECT_EQ(panel->Panel().firmwareVersion, 0x7856U);
    // Filled, but answered with something else than success.
    const std::string call = ReadsOf(type).back();
    device.FillAndAnswer(call, 2);
    box.Word(item) = {1, 1};
    Reread();
    EXPECT_EQ(desk.Text(kPage, kFirmware), "7.8.5.6");
    EXPECT_EQ(panel->Panel().firmwareVersion, 0x7856U);
    device.FailNothing();
    if (type == 26) continue;
    const std::string shown = desk.Text(kPage, kFormat);
    device.FillAndAnswer(ReadsOf(type).front(), 2);
    box.Word(3) = {82, 0};
    Report(3, {0x00, 0x05, 0xD0, 0x02, 60, 0, 1});
    Reread();
    EXPECT_EQ(desk.Text(kPage, kFormat), shown);
    device.FailNothing();
  }
}

// Every refresh passes the number on, also one that reads nothing because there is no box.
TEST_F(InformationModels, RefreshWithoutBoxPassesTheOldNumberOn) {
  StartAs(Box(26));
  box.SetPresent(false);
  Tick();
  const_cast<PanelState&>(panel->Panel()).firmwareVersion = 0;
  TakeCalls();
  Press(kPictureButton);
  EXPECT_EQ(TakeCalls(), Calls{});
  EXPECT_EQ(panel->Panel().firmwareVersion, 0x0126U);
}

TEST_F(InformationModels, EveryBrandHasItsWebAddress) {
  const std::map<int, std::string> addresses = {
      {1, "www.telvero.example"},  {2, "www.brightmoor.example"}, {3, "www.corvane-pro.example"},
      {4, "www.quintrel.example"}, {8, "www.lumexa.example"},     {9, "www.pandrel.example"}};
  for (const int type : {26, 50}) {
    for (const int brand : {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 254, 255}) {
      StartAs(Box(type, brand));
      const int shown = type == 26 ? 3 : brand;
      EXPECT_EQ(desk.Text(kPage, kAddress),
                addresses.contains(shown) ? addresses.at(shown) : "www.corvane.example")
          << Named(Box(type, brand));
    }
  }
}

// The Video menu.

using VideoMenuModels = ModelWalk;

constexpr int kMenu = res::kVideoMenu;
constexpr int kSettings = 1002;
constexpr int kDisplayMode = 1003;
constexpr int kTvWall = 1004;
constexpr int kPip = 1005;
constexpr int kGenlock = 1006;
constexpr int kImageAdjust = 1007;
constexpr int kRoi = 1008;

// The tops of the buttons.
std::map<int, int> MenuOf(int type, int brand) {
  if (type == 26) return {{kSettings, 85}, {kImageAdjust, 170}};
  if (type == 50) return {{kSettings, 60}, {kGenlock, 130}, {kImageAdjust, 200}};
  if (Has({13, 15, 51}, type)) return {{kSettings, 60}, {kDisplayMode, 130}, {kPip, 200}};
  if (Has({14, 32, 35, 36}, type)) return {{kSettings, 60}, {kTvWall, 140}, {kRoi, 210}};
  if (Has({17, 18, 37, 38}, type)) return {{kSettings, 85}, {kTvWall, 170}};
  if (Has({20, 33}, type)) {
    if (brand == 1) return {{kSettings, 90}, {kGenlock, 180}};
    return {{kSettings, 85}, {kTvWall, 170}};
  }
  if (type == 40) return {{kSettings, 60}, {kTvWall, 130}, {kGenlock, 200}};
  if (Has({30, 39, 43, 46, 47, 48, 49}, type)) {
    return {{kSettings, 45}, {kTvWall, 105}, {kGenlock, 165}, {kRoi, 225}};
  }
  if (Has({23, 24, 25, 29, 34, 42}, type)) {
    return {{kSettings, 60}, {kImageAdjust, 130}, {kRoi, 200}};
  }
  return {{kSettings, 125}};
}

TEST_F(VideoMenuModels, EveryIdentityHasItsButtonsInOneColumn) {
  for (const int type : kTypes) {
    for (const int brand : {0, 1, 2, 8}) {
      if (brand > 1 && !Has({20, 24, 26, 33}, type)) continue;
      const Identity identity = Box(type, brand);
      StartAs(identity);
      const Calls asked = type == 13 || type == 15 ? Calls{GetBlock(1, 20)} : Calls{};
      ASSERT_EQ(CallsOf(kVideoButton), asked) << Named(identity);
      Places expected = {{1047, {45, 30, 390, 250}}};
      for (const auto& [button, top] : MenuOf(type, brand)) expected[button] = {60, top, 360, 50};
      ASSERT_EQ(ShownOn(kMenu), expected) << Named(identity);
    }
  }
}

TEST_F(VideoMenuModels, CaptionsOfTheButtons) {
  Start();
  const std::map<int, std::string> captions = {{kSettings, "Video Setting"},
                                               {kDisplayMode, "Display Mode"},
                                               {kTvWall, "TV WALL"},
                                               {kPip, "PIP Setting"},
                                               {kGenlock, "Genlock"},
                                               {kImageAdjust, "Image Adjsut"},
                                               {kRoi, "ROI"},
                                               {1047, ""}};
  for (const auto& [control, caption] : captions) {
    EXPECT_EQ(desk.Text(kMenu, control), caption) << control;
  }
}

// Another box may be connected while the window is open: nothing of the first one's menu stays.
TEST_F(VideoMenuModels, MenuFollowsTheBoxThatIsConnected) {
  const std::vector<std::uint8_t> all = {26, 50, 13, 14, 46, 20, 40, 23, 52};
  admitted = all;
  StartWith(0x0126, Box(26));
  for (const std::uint8_t type : all) {
    box.SetPresent(false);
    for (int i = 0; i < 6; ++i) Tick();
    box.Become(Box(type), 0x0126);
    box.SetPresent(true);
    Tick();
    Places expected = {{1047, {45, 30, 390, 250}}};
    for (const auto& [button, top] : MenuOf(type, 0)) expected[button] = {60, top, 360, 50};
    EXPECT_EQ(ShownOn(kMenu), expected) << int{type};
  }
}

// The navigation bar at home, and the device picture, of every box type.

using HomeModels = ModelWalk;

std::vector<std::string> HomeOf(int type) {
  std::vector<std::string> buttons = {"Information 65", "Video 105"};
  if (Has({5, 27}, type)) {
    buttons.push_back("Setting 145");
  } else if (type == 19) {
    buttons.insert(buttons.end(), {"Proc Amp 145", "Setting 185"});
  } else if (Has({6, 7, 52, 53, 54, 55}, type)) {
    buttons.insert(buttons.end(), {"Audio 145", "Setting 185"});
  } else {
    buttons.insert(buttons.end(), {"Audio 145", "Proc Amp 185", "Setting 225"});
  }
  if (Has({19, 26, 27, 50}, type)) buttons.push_back("Refresh 340/45");
  return buttons;
}

// Where a button waits that the type does not have.
Places HiddenPlacesOf(int type) {
  if (Has({5, 27}, type)) {
    return {{kProcAmpButton, {0, 185, 110, 40}}, {kAudioButton, {0, 225, 110, 40}}};
  }
  if (type == 19) return {{kAudioButton, {0, 225, 110, 40}}};
  if (Has({6, 7, 52, 53, 54, 55}, type)) return {{kProcAmpButton, {0, 225, 110, 40}}};
  return {};
}

TEST_F(HomeModels, EveryTypeHasItsButtonsAtStartAndAfterEveryWayBack) {
  for (const int type : kTypes) {
    SCOPED_TRACE(Named(Box(type)));
    StartAs(Box(type));
    EXPECT_EQ(Buttons(), HomeOf(type));
    Press(kInformationButton);
    EXPECT_EQ(Buttons(), HomeOf(type));
    for (const int button : {kSettingButton, kAudioButton, kProcAmpButton, kVideoButton}) {
      Press(button);
      Press(kReturnButton);
      EXPECT_EQ(Buttons(), HomeOf(type)) << button;
    }
    for (const auto& [button, place] : HiddenPlacesOf(type)) {
      EXPECT_EQ(desk.PlaceOf(res::kMain, button), place) << button;
    }
  }
}

// Another connection puts every button back before the new box moves it.
TEST_F(HomeModels, ButtonsAreThoseOfTheBoxThatIsConnected) {
  const std::vector<std::uint8_t> all = {26, 27, 50, 5, 26, 19, 20, 52, 26};
  admitted = all;
  StartWith(0x0126, Box(26));
  for (const std::uint8_t type : all) {
    box.SetPresent(false);
    for (int i = 0; i < 6; ++i) Tick();
    box.Become(Box(type), 0x0126);
    box.SetPresent(true);
    Tick();
    EXPECT_EQ(Buttons(), HomeOf(type)) << int{type};
  }
}

TEST_F(HomeModels, EveryTypeHasAPictureOrThatOfNoBox) {
  for (const int type : kTypes) {
    StartAs(Box(type));
    const bool none = type < 5 || type > 55 || Has({8, 9, 10, 11, 12, 16, 22, 28, 31, 41}, type);
    EXPECT_EQ(Picture() == "NULL_BOX", none) << type;
    EXPECT_EQ(PictureRect(), (Rect{0, 0, 600, 65})) << type;
  }
}

}  // namespace
}  // namespace panelora::testing
