// The Information page.
#include "tests/support/information_controls.h"
#include "tests/support/scenario.h"

namespace panelora::testing {
namespace {

constexpr int kPage = res::kInformation;

class Information : public Scenario {
 protected:
  void Receive(std::vector<std::uint8_t> format) {
    format.resize(30);
    box.Block(1) = format;
  }
  std::string ShownFormat() {
    Press(kRefreshButton);
    return desk.Text(kPage, kFormatValue);
  }
};

TEST_F(Information, LaysOutModel26) {
  Start();
  const std::pair<int, Rect> shown[] = {{1016, {55, 20, 390, 260}}, {1003, {80, 60, 110, 20}},
                                        {1007, {200, 60, 150, 20}}, {1013, {80, 90, 110, 30}},
                                        {1014, {200, 90, 150, 30}}, {1015, {180, 250, 200, 30}}};
  for (const ui::ControlTemplate& control : res::FindDialog(kPage)->controls) {
    bool expected = false;
    for (const auto& [id, place] : shown) {
      if (id != control.id) continue;
      expected = true;
      EXPECT_EQ(desk.PlaceOf(kPage, id), place) << id;
    }
    EXPECT_EQ(desk.Shows(kPage, control.id), expected) << control.id;
    EXPECT_EQ(desk.FontOf(kPage, control.id), (ui::Font{"Arial", 120})) << control.id;
  }
  EXPECT_EQ(desk.Text(kPage, 1016), "Information");
  EXPECT_EQ(desk.Text(kPage, 1003), "Input Format    :");
  EXPECT_EQ(desk.Text(kPage, 1013), "F/W Version     :");
}

TEST_F(Information, HiddenRowsHaveTheirPlaces) {
  Start();
  const std::pair<int, Rect> rows[] = {{1004, {80, 90, 110, 20}},  {1008, {200, 90, 150, 20}},
                                       {1005, {80, 120, 110, 20}}, {1009, {200, 120, 150, 20}},
                                       {1006, {80, 150, 110, 20}}, {1010, {200, 150, 150, 20}}};
  for (const auto& [id, place] : rows) EXPECT_EQ(desk.PlaceOf(kPage, id), place) << id;
}

TEST_F(Information, FirstTextsReplaceTheTemplates) {
  device.FailEverything();
  Start();
  const std::pair<int, const char*> texts[] = {{1004, "Input Format 2 :"},
                                               {1008, "1920x1080 60.00p"},
                                               {1005, "Input Format 3 :"},
                                               {1006, "Input Format 4 :"},
                                               {1011, "Input Color       :"},
                                               {1012, "RGB444"},
                                               {1030, "Output Color    :"},
                                               {1026, "RGB444"},
                                               {1028, "Output Format :"},
                                               {1022, "1920x1080 p60.00"},
                                               {1029, "Input Source    :"},
                                               {1025, "DVI-D (HDMI)"},
                                               {1032, "Output Mode    :"},
                                               {1031, "AV ( CEA-861)"},
                                               {1024, "Aspect Ratio   :"},
                                               {1021, "Full Screen"},
                                               {1027, "Audio Source  :"},
                                               {1035, "Analog Audio Output Level :"},
                                               {1036, "24dBu"},
                                               {1037, "Genlock Format  :"},
                                               {1038, "1920x1080 60.00p"},
                                               {1039, "Genlock Mode  :"},
                                               {1079, "Free Run"}};
  for (const auto& [id, text] : texts) EXPECT_EQ(desk.Text(kPage, id), text) << id;
}

TEST_F(Information, ShowsTheInputFormat) {
  Start();
  Receive({0x07, 0x80, 0x04, 0x38, 59, 94, 0});
  EXPECT_EQ(ShownFormat(), "1920x1080  59.94p");
  Receive({0x07, 0x80, 0x04, 0x38, 50, 0, 1});
  EXPECT_EQ(ShownFormat(), "1920x1080  50.00i");
  Receive({0x02, 0xD0, 0x02, 0x40, 50, 5, 255});
  EXPECT_EQ(ShownFormat(), "720x576  50.05i");
  Receive({0x07, 0x80, 0x04, 0x38, 99, 99, 0});
  EXPECT_EQ(ShownFormat(), "1920x1080  99.99p");
  Receive({0x07, 0x80, 0x04, 0x38, 100, 50, 0});
  EXPECT_EQ(ShownFormat(), "1920x1080  100.0p");
  Receive({0x07, 0x80, 0x04, 0x38, 120, 0, 0});
  EXPECT_EQ(ShownFormat(), "1920x1080  120.0p");
  Receive({0x07, 0x80, 0x04, 0x38, 5, 0, 0});
  EXPECT_EQ(ShownFormat(), "1920x1080   5.00p");
  Receive({0xFF, 0xFF, 0xFF, 0xFF, 255, 255, 255});
  EXPECT_EQ(ShownFormat(), "65535x65535  255.0i");
}

TEST_F(Information, NoSignalWithoutWidthOrHeight) {
  Start();
  Receive({0, 0, 0x04, 0x38, 59, 94, 0});
  EXPECT_EQ(ShownFormat(), "-  NO SIGNAL  -");
  Receive({0x07, 0x80, 0, 0, 59, 94, 0});
  EXPECT_EQ(ShownFormat(), "-  NO SIGNAL  -");
  Receive({0, 1, 0, 1, 1, 1, 0});
  EXPECT_EQ(ShownFormat(), "1x1   1.01p");
}

TEST_F(Information, FailedFormatReadShowsTheEarlierAnswer) {
  Start();
  EXPECT_EQ(desk.Text(kPage, kFormatValue), "1920x1080  59.94p");
  Receive({0x05, 0x00, 0x02, 0xD0, 60, 0, 0});
  device.Fail("get block 1,0,30");
  EXPECT_EQ(ShownFormat(), "1920x1080  59.94p");
  device.FailNothing();
  EXPECT_EQ(ShownFormat(), "1280x720  60.00p");
}

TEST_F(Information, FormatReadThatNeverSucceededShowsNoSignal) {
  device.Fail("get block 1,0,30");
  Start();
  EXPECT_EQ(desk.Text(kPage, kFormatValue), "-  NO SIGNAL  -");
}

TEST_F(Information, ShowsAndPublishesTheFirmwareVersion) {
  const std::pair<WordBuffer, std::pair<std::uint32_t, const char*>> rows[] = {
      {{0x12, 0x01}, {0x0112, "0.1.1.2"}},
      {{0x06, 0x02}, {518, "0.2.0.6"}},
      {{0xFF, 0xAB}, {0xABFF, "A.B.F.F"}},
      {{0xFFFFFF34, 0xFFFFFF12}, {0x1234, "1.2.3.4"}},  // only the low bytes count
      {{0, 0}, {0, "0.0.0.0"}}};
  Start();
  for (const auto& [words, expected] : rows) {
    box.Word(5) = words;
    Press(kInformationButton);
    EXPECT_EQ(panel->Panel().firmwareVersion, expected.first);
    EXPECT_EQ(desk.Text(kPage, kFirmwareValue), expected.second);
  }
}

TEST_F(Information, FailedFirmwareReadPublishesTheOldNumberAgain) {
  Start();
  device.Fail("get word 0,5");
  box.Word(5) = {0x30, 0x02};
  const_cast<PanelState&>(panel->Panel()).firmwareVersion = 0;
  Press(kRefreshButton);
  EXPECT_EQ(panel->Panel().firmwareVersion, 0x0126U);
  EXPECT_EQ(desk.Text(kPage, kFirmwareValue), "0.1.2.6");
}

TEST_F(Information, VersionIsZeroUntilItWasRead) {
  device.Fail("get word 0,5");
  Start();
  EXPECT_EQ(panel->Panel().firmwareVersion, 0U);
  EXPECT_EQ(desk.Text(kPage, kFirmwareValue), "0.0.0.0");
}

TEST_F(Information, KeepsTheVersionWhileTheBoxIsAway) {
  Start();
  box.SetPresent(false);
  Tick();
  EXPECT_EQ(panel->Panel().firmwareVersion, 0x0126U);
}

TEST_F(Information, Model26ShowsTheAddressOfBrand3) {
  for (const std::uint8_t brand : Bytes{0, 1, 2, 3, 4, 8, 9}) {
    StartWith(0x0126, {26, brand, 0, 0, 0});
    EXPECT_EQ(desk.Text(kPage, 1015), CInformationDlg::WebAddress(3));
    panel.reset();
  }
}

TEST_F(Information, OtherModelsShowTheAddressOfTheirBrand) {
  admitted = {20};
  for (const std::uint8_t brand : Bytes{0, 1, 2, 3, 4, 8, 9, 5, 255}) {
    StartWith(0x0126, {20, brand, 0, 0, 0});
    EXPECT_EQ(desk.Text(kPage, 1015), CInformationDlg::WebAddress(brand));
    EXPECT_EQ(desk.PlaceOf(kPage, 1015), (Rect{180, 255, 200, 20}));
    panel.reset();
  }
}

TEST_F(Information, BrandsHaveAddressesOfTheirOwn) {
  std::set<std::string> addresses;
  for (const std::uint8_t brand : Bytes{0, 1, 2, 3, 4, 8, 9}) {
    addresses.insert(CInformationDlg::WebAddress(brand));
  }
  EXPECT_EQ(addresses.size(), 7U);
  for (const std::uint8_t brand : Bytes{5, 6, 7, 10, 255}) {
    EXPECT_STREQ(CInformationDlg::WebAddress(brand), CInformationDlg::WebAddress(0));
  }
}

TEST_F(Information, TwoMultiViewersNumberTheirFirstInput) {
  admitted = {13, 15, 20};
  for (const std::uint8_t type : admitted) {
    StartWith(0x0126, {type, 0, 0, 0, 0});
    EXPECT_EQ(desk.Text(kPage, 1003), type == 20 ? "Input Format    :" : "Input Format 1 :");
    panel.reset();
  }
}

TEST_F(Information, CodeModelsNameTheirFormat) {
  const std::pair<std::uint8_t, Calls> rows[] = {
      {20, {"get word 0,3", "get block 4,0,2", "get word 0,6", "get word 0,5", "get word 0,4"}},
      {50,
       {"get word 0,3", "get block 3,0,2", "get block 5,0,2", "get block 7,0,2",
        "get block 25,0,30", "get word 0,8"}},
      {0, {"get word 0,3", "get block 4,0,2", "get block 15,0,2", "get word 0,8"}}};
  for (const auto& [type, reads] : rows) {
    StartWith(Identity{type, 0, 0, 0, 0});
    box.Word(3) = {4, 1};
    Press(kPictureButton);
    EXPECT_EQ(desk.Text(kPage, kFormatValue), "1280x720 59.94p");
    EXPECT_EQ(desk.Text(kPage, kFirmwareValue), "0.1.2.6");
    EXPECT_EQ(TakeCalls(), reads) << int{type};
    panel.reset();
  }
}

TEST_F(Information, RateThatAFormatDoesNotHaveIsBlank) {
  admitted = {20};
  StartWith(0x0126, {20, 0, 0, 0, 0});
  box.Word(3) = {4, 1};
  Press(kPictureButton);
  box.Word(3) = {1, 1};
  Press(kPictureButton);
  EXPECT_EQ(desk.Text(kPage, kFormatValue), "");
  device.Fail("get word 0,3");
  box.Word(3) = {4, 0};
  Press(kPictureButton);
  EXPECT_EQ(desk.Text(kPage, kFormatValue), "");
}

TEST_F(Information, LittleEndianModelsHaveThreeScans) {
  admitted = {51, 14, 36};
  const std::pair<std::uint8_t, const char*> scans[] = {{std::uint8_t{1}, "p"},
                                                        {std::uint8_t{2}, "s"},
                                                        {std::uint8_t{0}, "i"},
                                                        {std::uint8_t{9}, "i"}};
  for (const std::uint8_t type : admitted) {
    StartWith(0x0126, {type, 0, 0, 0, 0});
    for (const auto& [scan, letter] : scans) {
      box.Block(3) = {0x80, 0x07, 0x38, 0x04, 50, 5, scan};
      TakeCalls();
      Press(kPictureButton);
      EXPECT_EQ(TakeCalls().front(), "get block 3,0,30");
      EXPECT_EQ(desk.Text(kPage, kFormatValue), std::string("1920x1080  50.05") + letter);
    }
    panel.reset();
  }
}

// The result is not tested on type 26 alone: what these show of a failed read is what they showed.
TEST_F(Information, FailedFormatReadOfLittleEndianModelsKeepsTheText) {
  for (const std::uint8_t type : Bytes{14, 36, 51}) {
    admitted = {type};
    device.Fail("get block 3,0,30");
    StartWith(0x0126, {type, 0, 0, 0, 0});
    EXPECT_EQ(desk.Text(kPage, kFormatValue), "1920x1080 60.00p") << int{type};  // the first text
    device.FailNothing();
    box.Block(3) = {0x00, 0x05, 0xD0, 0x02, 60, 0, 1};
    Press(kPictureButton);
    EXPECT_EQ(desk.Text(kPage, kFormatValue), "1280x720  60.00p");
    box.Block(3) = {0x80, 0x07, 0x38, 0x04, 50, 0, 1};
    device.FillAndAnswer("get block 3,0,30", 2);
    Press(kPictureButton);
    EXPECT_EQ(desk.Text(kPage, kFormatValue), "1280x720  60.00p");
    device.FailNothing();
    panel.reset();
  }
}

TEST_F(Information, WithoutBoxNothingIsAsked) {
  box.SetPresent(false);
  Start();
  TakeCalls();
  Press(kPictureButton);
  EXPECT_EQ(TakeCalls(), Calls{});
}

}  // namespace
}  // namespace panelora::testing
