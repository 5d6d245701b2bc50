// The Information page, the Video menu and the navigation bar at home of every box type, against
// lists of their own.
#include "tests/support/information_controls.h"
#include "tests/support/model_walk.h"
#include "tests/support/video_menu_controls.h"

namespace panelora::testing {
namespace {

using InformationModels = ModelWalk;

constexpr int kPage = res::kInformation;

// Where a box tells something, and how it is named.
struct Place {
  bool isWord;
  int number;
  int length = 2;

  std::string Get() const { return isWord ? GetWord(number) : GetBlock(number, length); }
};
constexpr Place W(int item) { return {true, item}; }
constexpr Place B(int property, int length = 2) { return {false, property, length}; }

// A row of the page: its two controls, where it is told, two values and their names.
struct Row {
  int caption;
  int value;
  Place at;
  std::vector<std::pair<int, std::string>> names = {};
};
using Rows = std::vector<Row>;

bool TellsByBlock(int type) { return Has({14, 36, 51, 52}, type); }
bool HasReference(int type) { return Has({39, 40, 46, 47, 48, 49, 50}, type); }
bool HasFour(int type) { return Has({13, 15, 51, 52}, type); }

Place FirmwareOf(int type) {
  if (type == 26) return W(5);
  return Has({17, 18, 19, 20, 21, 27, 30, 32, 33, 43}, type) ? W(4) : W(8);
}

Row InputSourceOf(int type) {
  if (Has({24, 34}, type)) return {1029, 1025, B(3), {{0, "SDI"}, {1, "HDMI"}}};
  if (Has({48, 49}, type)) return {1029, 1025, B(3), {{0, "SDI 1"}, {1, "SDI 2"}}};
  if (type == 27) return {1029, 1025, B(3), {{0, "CH 1"}, {1, "CH 2"}}};
  if (type == 50) return {1029, 1025, B(3), {{2, "VGA"}, {4, "SDI"}}};
  if (Has({25, 29}, type))
    return {1029, 1025, B(3), {{4, "Composite (CVBS)"}, {5, "S-Video (YC)"}}};
  return {1029, 1025, B(3), {{3, "YPbPr"}, {6, "S-VIDEO"}}};
}
Row AspectOf(int type) {
  Row row = {1024, 1021, B(15), {{1, "4 : 3"}, {2, "Dot By Dot"}}};
  if (Has({14, 36}, type)) row.at = B(20);
  if (type == 21) row.at = W(7);
  if (Has({24, 34}, type)) row.at = W(11);
  return row;
}
Row AudioSourceOf(int type) {
  if (Has({20, 33}, type)) {
    return {1027, 1019, W(6), {{0, "L(Aud) + R( Dig )"}, {1, "R(Aud) + L( Dig )"}}};
  }
  if (Has({18, 32}, type)) return {1027, 1019, W(7), {{0, "Nono"}, {2, "L/R Ear Phone"}}};
  if (Has({17, 35}, type)) return {1027, 1019, B(3), {{0, "SDI"}, {1, "HDMI"}}};
  if (Has({30, 43}, type)) {
    return {1027, 1019, B(10), {{0, "Embedded( SDI )"}, {2, "Mix ( SDI + L/R )"}}};
  }
  return {1027, 1019, B(10), {{0, "Embedded Audio"}, {2, "Mix Audio"}}};
}
Row MuteOf(int type) {
  Row row = {1023, 1020, B(6), {{1, "ON"}, {0, "OFF"}}};
  if (Has({20, 33}, type)) row.at = W(5);
  if (Has({18, 32}, type)) row.at = W(11);
  if (type == 36) row.at = W(3);
  if (type == 21) row.at = W(24);
  return row;
}

// Below the input formats, from top to bottom.
Rows RowsOf(int type) {
  if (type == 26) return {};
  Rows rows;
  const bool hasSource = Has({23, 24, 25, 27, 29, 34, 42, 48, 49, 50}, type);
  if (hasSource) rows.push_back(InputSourceOf(type));
  if (Has({25, 29}, type)) rows.push_back({1011, 1012, W(18), {{1, "YUV444"}, {3, "YUV422"}}});
  const Place format = HasReference(type) ? B(5) : type == 21 ? W(2) : B(4);
  rows.push_back({1028, 1022, format, {{21, "1920x1080 24.00p"}, {1, "720x480 59.94i"}}});
  if (Has({23, 37, 38, 39, 40, 42, 46, 47, 50}, type)) {
    rows.push_back({1030, 1026, B(7), {{0, "RGB444"}, {3, "YUV422"}}});
  }
  if (Has({23, 42}, type)) rows.push_back({1032, 1031, B(5), {{0, "AV"}}});
  if (Has({25, 29}, type)) rows.push_back({1033, 1034, B(5), {{0, "VGA + HDMI"}}});
  const bool noAspect = Has({18, 20, 23, 25, 29, 30, 32, 33, 37, 38, 42, 43}, type);
  if (!noAspect && !HasReference(type) && !HasFour(type)) rows.push_back(AspectOf(type));
  if (Has({17, 18, 20, 30, 32, 33, 35, 37, 38, 39, 40, 43, 46, 47, 48, 49}, type)) {
    rows.push_back(AudioSourceOf(type));
  }
  if (Has({14, 18, 20, 21, 32, 33, 36}, type)) rows.push_back(MuteOf(type));
  if (Has({24, 34}, type)) {
    rows.push_back({1035, 1036, B(44), {{62, "+0.0dBu"}, {21, "-20.5dBu"}}});
  }
  if (HasReference(type)) rows.push_back({1037, 1038, B(25, 30)});
  if (Has({30, 43}, type)) {
    rows.push_back({1037, 1038, B(18, 30)});
    rows.push_back({1039, 1079, B(15), {{0, "Free-Run"}, {1, "External"}}});
  }
  return rows;
}

std::vector<Place> InputsOf(int type) {
  if (type == 26) return {B(1, 30)};
  if (TellsByBlock(type)) return {B(3, 30)};
  if (Has({13, 15}, type)) return {W(3), W(7), W(14), W(18)};
  return {W(3)};
}

Calls ReadsOf(int type) {
  Calls calls;
  for (const Place& place : InputsOf(type)) calls.push_back(place.Get());
  for (const Row& row : RowsOf(type)) calls.push_back(row.at.Get());
  calls.push_back(FirmwareOf(type).Get());
  return calls;
}

std::string InputCaption(int type, int input) {
  const std::string number = std::to_string(input + 1);
  if (type == 51) return "SDI CH " + number + " :";
  if (type == 52) return "HDMI CH " + number + " :";
  if (input > 0 || type == 13 || type == 15) return "Input Format " + number + " :";
  return "Input Format    :";
}

TEST_F(InformationModels, EveryTypeShowsItsRowsAndItsFirmware) {
  for (const int type : kTypes) {
    SCOPED_TRACE(Named(Box(type)));
    StartAs(Box(type));
    Places expected = {{1016, {55, 20, 390, 260}}};
    int top = 60;
    for (int input = 0; input < (HasFour(type) ? 4 : 1); ++input) {
      expected[1003 + input] = {80, top, 110, 20};
      expected[1007 + input] = {200, top, 150, 20};
      EXPECT_EQ(desk.Text(kPage, 1003 + input), InputCaption(type, input));
      top += 30;
    }
    for (const Row& row : RowsOf(type)) {
      const bool isWide = row.caption == 1035;
      expected[row.caption] = {80, top, isWide ? 200 : 118, 20};
      expected[row.value] = {isWide ? 290 : 200, top, 150, 20};
      top += 30;
    }
    expected[1013] = {80, top, 110, 30};
    expected[kFirmwareValue] = {200, top, 150, 30};
    expected[kWebAddress] = type == 26 ? Rect{180, 250, 200, 30} : Rect{180, 255, 200, 20};
    ASSERT_EQ(ShownOn(kPage), expected);
    EXPECT_LE(top, 210);  // above the address
    EXPECT_EQ(desk.Text(kPage, 1016), "Information");
    EXPECT_EQ(desk.Text(kPage, 1013), "F/W Version     :");
    EXPECT_EQ(desk.Text(kPage, kFirmwareValue), "0.1.2.6");
    for (const ui::ControlTemplate& control : res::FindDialog(kPage)->controls) {
      ASSERT_EQ(desk.FontOf(kPage, control.id), (ui::Font{"Arial", 120})) << control.id;
    }
    EXPECT_EQ(CallsOf(kPictureButton), ReadsOf(type));
    EXPECT_EQ(CallsOf(kInformationButton), ReadsOf(type));
  }
}

TEST_F(InformationModels, EveryRowNamesWhatItIsToldAndKeepsItOtherwise) {
  for (const int type : kTypes) {
    StartAs(Box(type));
    for (const Row& row : RowsOf(type)) {
      SCOPED_TRACE(Named(Box(type)) + " caption " + std::to_string(row.caption));
      const auto tell = [&](int value) {
        if (row.at.isWord) {
          ReportWord(row.at.number, value);
        } else {
          Report(row.at.number, {static_cast<std::uint8_t>(value), 0x77});
        }
        Reread();
      };
      for (const auto& [value, name] : row.names) {
        tell(value);
        EXPECT_EQ(desk.Text(kPage, row.value), name);
      }
      if (row.names.empty()) continue;
      const std::string shown = desk.Text(kPage, row.value);
      if (row.caption != 1035) tell(200);  // every level has a name
      device.FillAndAnswer(row.at.Get(), 2);
      tell(row.names.front().first);
      device.FailNothing();
      EXPECT_EQ(desk.Text(kPage, row.value), shown);
    }
  }
}

TEST_F(InformationModels, ReferenceFormatIsNamed) {
  for (const int type : {30, 43, 39, 40, 46, 47, 48, 49, 50}) {
    StartAs(Box(type));
    Report(HasReference(type) ? 25 : 18, {0x00, 0x05, 0xD0, 0x02, 50, 0, 1});
    Reread();
    EXPECT_EQ(desk.Text(kPage, 1038), "1280x720  50.00p") << type;
  }
}

TEST_F(InformationModels, FourInputsAreToldInOneBlockOrInAWordEach) {
  for (const int type : {51, 52}) {
    StartAs(Box(type));
    Bytes told;
    for (const std::uint8_t rate : Bytes{24, 25, 30, 50}) {
      const Bytes format = {0x80, 0x07, 0x38, 0x04, rate, 0, 1};
      told.insert(told.end(), format.begin(), format.end());
    }
    told[21] = 0;
    told[22] = 0;  // the fourth has no width
    Report(3, told);
    Reread();
    EXPECT_EQ(desk.Text(kPage, 1007), "1920x1080  24.00p");
    EXPECT_EQ(desk.Text(kPage, 1008), "1920x1080  25.00p");
    EXPECT_EQ(desk.Text(kPage, 1009), "1920x1080  30.00p");
    EXPECT_EQ(desk.Text(kPage, 1010), "-  NO SIGNAL  -");
  }
  for (const int type : {13, 15}) {
    StartAs(Box(type));
    ReportWord(3, 4);
    ReportWord(7, 44);
    ReportWord(14, 91);
    ReportWord(18, 12);
    Reread();
    EXPECT_EQ(desk.Text(kPage, 1007), "1280x720 60.00p");
    EXPECT_EQ(desk.Text(kPage, 1008), "1920x1080 25.00p");
    EXPECT_EQ(desk.Text(kPage, 1009), "-  NO  SIGNAL  -");
    EXPECT_EQ(desk.Text(kPage, 1010), "1920x1080 50.00p");
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
    EXPECT_EQ(desk.Text(kPage, kFormatValue), type == 26           ? "1280x720  50.00p"
                                              : TellsByBlock(type) ? "1920x1080  59.94p"
                                                                   : "1920x1080 30.00p");
    if (type == 26 || TellsByBlock(type)) continue;
    // The second name goes with the flag 1 alone, and of the code the low byte counts.
    box.Word(3) = {45, 1};
    Reread();
    EXPECT_EQ(desk.Text(kPage, kFormatValue), "1920x1080 29.97p");
    for (const std::uint32_t flag : {2U, 0x101U}) {
      box.Word(3) = {0xAB00 + 10, flag};
      Reread();
      EXPECT_EQ(desk.Text(kPage, kFormatValue), "1920x1080 60.00p") << flag;
    }
    box.Word(3) = {93, 0};
    Reread();
    EXPECT_EQ(desk.Text(kPage, kFormatValue), type == 19 ? "-  NO SIGNAL  -" : "1920x1080 24.00s");
    box.Word(3) = {91, 0};
    Reread();
    EXPECT_EQ(desk.Text(kPage, kFormatValue), "-  NO  SIGNAL  -");
  }
}

TEST_F(InformationModels, EveryTypeTellsItsFirmwareInItsOwnItem) {
  for (const int type : kTypes) {
    SCOPED_TRACE(Named(Box(type)));
    StartAs(Box(type));
    const int item = FirmwareOf(type).number;
    for (const std::uint32_t other : {4U, 5U, 8U}) box.Word(other) = {0xABCD12, 0xABCD34};
    box.Word(static_cast<std::uint32_t>(item)) = {0xABCD56, 0xABCD78};
    Reread();
    EXPECT_EQ(desk.Text(kPage, kFirmwareValue), "7.8.5.6");
    EXPECT_EQ(panel->Panel().firmwareVersion, 0x7856U);
    // Filled, but answered with something else than success.
    const std::string call = ReadsOf(type).back();
    device.FillAndAnswer(call, 2);
    box.Word(static_cast<std::uint32_t>(item)) = {1, 1};
    Reread();
    EXPECT_EQ(desk.Text(kPage, kFirmwareValue), "7.8.5.6");
    EXPECT_EQ(panel->Panel().firmwareVersion, 0x7856U);
    device.FailNothing();
    if (type == 26) continue;
    const std::string shown = desk.Text(kPage, kFormatValue);
    device.FillAndAnswer(ReadsOf(type).front(), 2);
    box.Word(3) = {82, 0};
    Report(3, {0x00, 0x05, 0xD0, 0x02, 60, 0, 1});
    Reread();
    EXPECT_EQ(desk.Text(kPage, kFormatValue), shown);
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
      EXPECT_EQ(desk.Text(kPage, kWebAddress),
                addresses.contains(shown) ? addresses.at(shown) : "www.corvane.example")
          << Named(Box(type, brand));
    }
  }
}

// The Video menu.

using VideoMenuModels = ModelWalk;

constexpr int kMenu = res::kVideoMenu;

// The tops of the buttons.
std::map<int, int> MenuOf(int type, int brand) {
  if (type == 26) return {{kVideoSettingsButton, 85}, {kImageAdjustButton, 170}};
  if (type == 50) {
    return {{kVideoSettingsButton, 60}, {kGenlockButton, 130}, {kImageAdjustButton, 200}};
  }
  if (Has({13, 15, 51}, type)) {
    return {{kVideoSettingsButton, 60}, {kDisplayModeButton, 130}, {kPipButton, 200}};
  }
  if (Has({14, 32, 35, 36}, type)) {
    return {{kVideoSettingsButton, 60}, {kTvWallButton, 140}, {kRoiButton, 210}};
  }
  if (Has({17, 18, 37, 38}, type)) return {{kVideoSettingsButton, 85}, {kTvWallButton, 170}};
  if (Has({20, 33}, type)) {
    if (brand == 1) return {{kVideoSettingsButton, 90}, {kGenlockButton, 180}};
    return {{kVideoSettingsButton, 85}, {kTvWallButton, 170}};
  }
  if (type == 40) return {{kVideoSettingsButton, 60}, {kTvWallButton, 130}, {kGenlockButton, 200}};
  if (Has({30, 39, 43, 46, 47, 48, 49}, type)) {
    return {
        {kVideoSettingsButton, 45}, {kTvWallButton, 105}, {kGenlockButton, 165}, {kRoiButton, 225}};
  }
  if (Has({23, 24, 25, 29, 34, 42}, type)) {
    return {{kVideoSettingsButton, 60}, {kImageAdjustButton, 130}, {kRoiButton, 200}};
  }
  return {{kVideoSettingsButton, 125}};
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
  const std::map<int, std::string> captions = {{kVideoSettingsButton, "Video Setting"},
                                               {kDisplayModeButton, "Display Mode"},
                                               {kTvWallButton, "TV WALL"},
                                               {kPipButton, "PIP Setting"},
                                               {kGenlockButton, "Genlock"},
                                               {kImageAdjustButton, "Image Adjsut"},
                                               {kRoiButton, "ROI"},
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
