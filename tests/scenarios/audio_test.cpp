// The Audio page.
#include <algorithm>
#include <map>
#include <tuple>

#include "tests/support/audio_controls.h"
#include "tests/support/one_page.h"

namespace panelora::testing {
namespace {

class Audio : public OnePage<kPage> {
 protected:
  void Open(Identity identity = {26, 0, 0, 0, 0}) {
    StartWith(identity);
    Press(kAudioButton);
    TakeCalls();
  }
  // Opens with these blocks in the box.
  void OpenWith(Identity identity, std::map<int, Bytes> blocks) {
    StartWith(identity);
    for (const auto& [property, bytes] : blocks) {
      box.Block(static_cast<std::uint8_t>(property)) = bytes;
    }
    Press(kAudioButton);
    TakeCalls();
  }
};

TEST_F(Audio, LaysOutThreeGroupsOnModels26And50) {
  for (const std::uint8_t type : Bytes{26, 50}) {
    Open({type, 0, 0, 0, 0});
    const std::map<int, Rect> expected = {
        {1026, {50, 35, 300, 20}},  {1023, {50, 50, 300, 48}},  {1025, {60, 65, 250, 30}},
        {1024, {370, 58, 40, 39}},  {1030, {50, 115, 300, 20}}, {1027, {50, 130, 300, 48}},
        {1028, {60, 145, 250, 30}}, {1029, {370, 138, 40, 39}}, {1035, {50, 195, 300, 20}},
        {1036, {50, 210, 300, 48}}, {1037, {60, 225, 250, 30}}, {1038, {370, 218, 40, 39}}};
    std::map<int, Rect> shown;
    for (const ui::ControlTemplate& control : res::FindDialog(kPage)->controls) {
      if (desk.Shows(kPage, control.id)) shown[control.id] = desk.PlaceOf(kPage, control.id);
      EXPECT_EQ(desk.FontOf(kPage, control.id), (ui::Font{"Arial", 120})) << control.id;
    }
    EXPECT_EQ(shown, expected);
    panel.reset();
  }
}

TEST_F(Audio, FirstTexts) {
  box.SetPresent(false);
  Start();
  const std::pair<int, const char*> texts[] = {{1026, "Audio Mute"},
                                               {1025, "ON"},
                                               {1024, ">>"},
                                               {1030, "Audio Source"},
                                               {1028, "Internal"},
                                               {1029, ">>"},
                                               {1035, "Audio Level"},
                                               {1037, "Internal"},
                                               {1038, ">>"},
                                               {1023, ""},
                                               {1027, ""},
                                               {1036, ""}};
  for (const auto& [id, text] : texts) EXPECT_EQ(TextOf(id), text) << id;
}

TEST_F(Audio, ReadsInOrderAndShows) {
  StartWith(0x0126);
  Press(kAudioButton);
  EXPECT_EQ(TakeCalls(), (Calls{"get word 0,11", "get word 0,4", "get word 0,6", "get word 0,16"}));
  EXPECT_EQ(TextOf(kMute), "OFF");
  EXPECT_EQ(TextOf(kSource), "Internal (HDMI)");
  EXPECT_EQ(TextOf(kStandard), "SMPTE(USA)");
  box.Word(11) = {1, 0};
  box.Word(4) = {4, 0};
  box.Word(6) = {2, 0};
  box.Word(16) = {1, 0};
  Press(kPictureButton);
  EXPECT_EQ(TextOf(kMute), "ON");
  EXPECT_EQ(TextOf(kSource), "HDMI");
  EXPECT_EQ(TextOf(kStandard), "EBU(Europe)");
}

TEST_F(Audio, MuteTogglesFromAnyValue) {
  Open();
  EXPECT_EQ(Cycle(kMute, 3), (Texts{"ON", "OFF", "ON"}));
  for (const std::uint32_t reported : {5U, 255U, 2U}) {
    box.Word(11) = {1, 0};
    Press(kPictureButton);
    box.Word(11) = {reported, 0};
    Press(kPictureButton);
    EXPECT_EQ(TextOf(kMute), "ON");  // a value without a row keeps the text
    EXPECT_EQ(Cycle(kMute, 1), Texts{"OFF"}) << reported;
  }
}

TEST_F(Audio, SourceStepsThroughTheRowsOfTheInput) {
  const std::pair<std::uint32_t, Texts> rows[] = {{1, {"Internal (HDMI)", "SDI", "L/R Audio"}},
                                                  {2, {"Internal (Mute)", "SDI", "L/R Audio"}},
                                                  {4, {"Internal (SDI)", "HDMI", "L/R Audio"}}};
  for (const auto& [input, texts] : rows) {
    Open();
    box.Word(4) = {input, 0};
    box.Word(6) = {0, 0};
    Press(kPictureButton);
    EXPECT_EQ(TextOf(kSource), "L/R Audio");
    EXPECT_EQ(Cycle(kSource, 3), texts) << input;
    panel.reset();
  }
}

TEST_F(Audio, SourceIsSentAsItsDeviceCode) {
  const std::pair<std::uint32_t, std::vector<int>> rows[] = {
      {1, {0, 1, 3}}, {2, {0, 1, 3}}, {4, {0, 1, 2}}};
  for (const auto& [input, codes] : rows) {
    Open();
    for (std::uint32_t index = 0; index < 3; ++index) {
      box.Word(4) = {input, 0};
      box.Word(6) = {index, 0};
      Press(kPictureButton);
      EXPECT_EQ(CallsOf(kApplyButton), (Calls{"set word 0,6 = " + std::to_string(codes[index]),
                                              "set word 0,11 = 0", "set word 0,16 = 0"}));
    }
    panel.reset();
  }
}

// Read as an index, written as a device code: the box's code 3 has no row.
TEST_F(Audio, ReportedCode3KeepsTheText) {
  Open();
  box.Word(6) = {3, 0};
  Press(kPictureButton);
  EXPECT_EQ(TextOf(kSource), "Internal (HDMI)");
  EXPECT_EQ(CallsOf(kApplyButton), (Calls{"set word 0,11 = 0", "set word 0,16 = 0"}));
  EXPECT_EQ(Cycle(kSource, 1), Texts{"L/R Audio"});
}

TEST_F(Audio, UnknownInputKeepsTheTextAndSendsNoSource) {
  Open();
  box.Word(4) = {3, 0};
  Press(kPictureButton);
  EXPECT_EQ(Cycle(kSource, 2), (Texts{"Internal (HDMI)", "Internal (HDMI)"}));
  EXPECT_EQ(CallsOf(kApplyButton), (Calls{"set word 0,11 = 0", "set word 0,16 = 0"}));
}

TEST_F(Audio, StandardToggles) {
  Open();
  EXPECT_EQ(Cycle(kStandard, 3), (Texts{"EBU(Europe)", "SMPTE(USA)", "EBU(Europe)"}));
  EXPECT_EQ(CallsOf(kApplyButton).back(), "set word 0,16 = 1");
}

TEST_F(Audio, NothingIsWrittenBeforeApply) {
  Open();
  for (const int button : {1024, 1029, 1038}) EXPECT_EQ(CallsOfPress(button), Calls{});
  Press(kReturnButton);
  EXPECT_EQ(TakeCalls(), kInformationCalls);
}

TEST_F(Audio, FailedReadsKeepFieldAndText) {
  Open();
  box.Word(11) = {1, 0};
  box.Word(6) = {0, 0};
  box.Word(16) = {1, 0};
  device.FailEverything();
  Press(kPictureButton);
  EXPECT_EQ(TextOf(kMute), "OFF");
  EXPECT_EQ(TextOf(kSource), "Internal (HDMI)");
  EXPECT_EQ(TextOf(kStandard), "SMPTE(USA)");
  device.FailNothing();
  EXPECT_EQ(CallsOf(kApplyButton),
            (Calls{"set word 0,6 = 1", "set word 0,11 = 0", "set word 0,16 = 0"}));
}

TEST_F(Audio, DefaultOnlyReads) {
  Open();
  Press(kDefaultButton);
  EXPECT_EQ(TakeCalls(), (Calls{"get word 0,11", "get word 0,4", "get word 0,6", "get word 0,16"}));
}

TEST_F(Audio, AttenuationIsShownUpsideDownAndSentAtApply) {
  for (const std::uint8_t type : Bytes{52, 46, 47, 48, 49}) {
    OpenWith({type, 0, 0, 0, 0}, {{11, {98, 1}}});
    EXPECT_EQ(TextOf(1058), "L/R Audio Volume ( 2 )");
    EXPECT_EQ(TextOf(1052), "Embedded Audio Volume ( 99 )");
    EXPECT_EQ(desk.ProgressRange(kPage, 1103), std::make_pair(0, 100));
    EXPECT_EQ(desk.ProgressPosition(kPage, 1103), 2);
    EXPECT_EQ(desk.ProgressPosition(kPage, 1104), 99);
    EXPECT_EQ(CallsOfPress(1045, 5), Calls{});  // softer, down to nothing
    EXPECT_EQ(TextOf(1058), "L/R Audio Volume ( 0 )");
    EXPECT_EQ(CallsOfPress(1054, 5), Calls{});  // HDMI louder, up to all
    EXPECT_EQ(TextOf(1052), "Embedded Audio Volume ( 100 )");
    Calls sent = CallsOf(kApplyButton);
    EXPECT_EQ(sent.back(), "set block 11,0,2: 64 00") << int{type};
    desk.Press(kPage, 1046);
    desk.Press(kPage, 1053);
    EXPECT_EQ(TextOf(1058), "L/R Audio Volume ( 1 )");
    EXPECT_EQ(TextOf(1052), "Embedded Audio Volume ( 99 )");
    panel.reset();
  }
}

TEST_F(Audio, InputVolumesAreSentWithEveryPress) {
  for (const std::uint8_t type : Bytes{25, 29}) {
    OpenWith({type, 0, 0, 0, 0}, {{10, {1, 0}}, {19, {99, 1}}});
    EXPECT_EQ(TextOf(1058), "Audio Volume ( 99 )");
    EXPECT_EQ(CallsOfPress(1046, 2), (Calls{"set block 19,0,2: 64 01", "set block 19,0,2: 64 01"}));
    EXPECT_EQ(CallsOfPress(1045), Calls{"set block 19,0,2: 63 01"});
    desk.Press(kPage, 1029);  // the second source
    EXPECT_EQ(TextOf(1058), "Audio Volume ( 1 )");
    EXPECT_EQ(CallsOfPress(1045, 2), (Calls{"set block 19,0,2: 63 00", "set block 19,0,2: 63 00"}));
    EXPECT_EQ(CallsOfPress(1046), Calls{"set block 19,0,2: 63 01"});
    desk.Press(kPage, 1029);  // neither
    EXPECT_EQ(CallsOfPress(1046), Calls{"set block 19,0,2: 63 01"});
    panel.reset();
  }
}

TEST_F(Audio, InputLevelOfBrand2IsAnAttenuation) {
  OpenWith({25, 2, 0, 0, 0}, {{10, {1, 0}}, {19, {76, 5}}});
  EXPECT_EQ(TextOf(1058), "Analog L/R Audio Input Level ( - 28.0 )");
  EXPECT_EQ(desk.ProgressRange(kPage, 1103), std::make_pair(0, 80));
  EXPECT_EQ(desk.ProgressPosition(kPage, 1103), 4);
  EXPECT_EQ(CallsOfPress(1045, 2), (Calls{"set block 19,0,2: 4D 05", "set block 19,0,2: 4D 05"}));
  EXPECT_EQ(TextOf(1059), "-28.5");
  EXPECT_EQ(TextOf(1051), "  |______|_______|_______|_______|");
  EXPECT_EQ(CallsOfPress(1046), Calls{"set block 19,0,2: 4C 05"});
}

// A reported value beyond the end is stepped back from where it is, and never away from the end.
TEST_F(Audio, ValuesBeyondTheButtonsEndComeBackToIt) {
  OpenWith({25, 2, 0, 0, 0}, {{10, {1, 0}}, {19, {80, 0}}});
  EXPECT_EQ(CallsOfPress(1046), Calls{"set block 19,0,2: 4F 00"});
  EXPECT_EQ(CallsOfPress(1045), Calls{"set block 19,0,2: 4D 00"});
  panel.reset();
  OpenWith({46, 0, 0, 0, 0}, {{11, {150, 200}}});
  desk.Press(kPage, 1045);
  desk.Press(kPage, 1053);
  EXPECT_EQ(CallsOf(kApplyButton).back(), "set block 11,0,2: 64 64");
  panel.reset();
  OpenWith({24, 0, 0, 0, 0}, {{44, {200, 0}}});
  desk.Press(kPage, 1046);
  EXPECT_EQ(CallsOf(kApplyButton).back(), "set block 44,0,2: 70 00");
}

TEST_F(Audio, ModelsWithVolumesShowTheirSource) {
  for (const std::uint8_t type : Tried(Bytes{24, 34, 25, 29, 46, 52})) {
    for (const std::uint8_t brand : Bytes{0, 2}) {
      Open({type, brand, 0, 0, 0});
      EXPECT_TRUE(desk.Shows(kPage, 1029)) << int{type};
      EXPECT_TRUE(desk.Shows(kPage, 1045)) << int{type};
      panel.reset();
    }
  }
}

TEST_F(Audio, FailedReadsOfOtherModelsKeepTheTexts) {
  admitted = {24};
  StartWith(0x0126, {24, 0, 0, 0, 0});
  device.FailEverything();
  Press(kAudioButton);
  EXPECT_EQ(TextOf(kMute), "ON");
  EXPECT_EQ(TextOf(kSource), "Internal");
  EXPECT_EQ(TextOf(kXlrLevel), "0 dBu");
}

TEST_F(Audio, FailedReadsKeepTheVolumesThatAreShown) {
  struct Row {
    Identity identity;
    int property;
    const char* read;
    Bytes bytes;
  };
  const Row rows[] = {{{46, 0, 0, 0, 0}, 11, "get block 11,0,2", {40, 30}},
                      {{25, 0, 0, 0, 0}, 19, "get block 19,0,3", {40, 30, 0}},
                      {{29, 2, 0, 0, 0}, 19, "get block 19,0,3", {40, 30, 0}},
                      {{24, 0, 0, 0, 0}, 44, "get block 44,0,2", {40, 0}}};
  for (const Row& row : rows) {
    SCOPED_TRACE(row.read);
    admitted = {row.identity.boxType};
    StartWith(0x0126, row.identity);
    const auto seen = [&] {
      return std::make_tuple(TextOf(1058), TextOf(1052), TextOf(1059), TextOf(1051),
                             desk.ProgressRange(kPage, 1103), desk.ProgressPosition(kPage, 1103));
    };
    const auto first = seen();
    device.Fail(row.read);
    Press(kAudioButton);
    EXPECT_EQ(seen(), first);  // never read: nothing is made up
    device.FailNothing();
    box.Block(static_cast<std::uint8_t>(row.property)) = row.bytes;
    Press(kPictureButton);
    const auto told = seen();
    EXPECT_NE(told, first);
    device.Fail(row.read);
    Press(kPictureButton);
    EXPECT_EQ(seen(), told);
    device.FailNothing();
    panel.reset();
  }
}

TEST_F(Audio, MuteIsWrittenOnlyWhereItIsShown) {
  int shown = 0;
  const auto isMute = [](std::uint8_t type, const std::string& call) {
    const char* mute = type == 24 ? "set word 0,7 =" : type == 36 ? "set word 0,3 =" : nullptr;
    if (mute != nullptr) return call.rfind(mute, 0) == 0;
    return call.rfind("set block 6,0,1", 0) == 0 || call.rfind("set word 0,11 =", 0) == 0;
  };
  for (const std::uint8_t type : Bytes{26, 50, 13, 14, 18, 24, 25, 36, 46, 51, 52}) {
    for (const std::uint8_t brand : Bytes{0, 2}) {
      SCOPED_TRACE("type " + std::to_string(type) + " brand " + std::to_string(int{brand}));
      Open({type, brand, 0, 0, 0});
      const Calls sent = CallsOf(kApplyButton);
      const bool writes = std::any_of(sent.begin(), sent.end(),
                                      [&](const std::string& call) { return isMute(type, call); });
      EXPECT_EQ(writes, desk.Shows(kPage, 1024));
      if (writes) ++shown;
      panel.reset();
    }
  }
  EXPECT_EQ(shown, 12);
}

TEST_F(Audio, OutputLevelIsSentAtApply) {
  OpenWith({24, 0, 0, 0, 0}, {{44, {111, 0}}});
  EXPECT_EQ(TextOf(1058), " Analog L/R Audio Output Level ( + 24.5 )");
  EXPECT_EQ(desk.ProgressRange(kPage, 1103), std::make_pair(0, 112));
  EXPECT_EQ(CallsOfPress(1046, 3), Calls{});
  EXPECT_EQ(desk.ProgressPosition(kPage, 1103), 112);
  EXPECT_EQ(TextOf(1059), " +25.0");
  EXPECT_EQ(CallsOf(kApplyButton).back(), "set block 44,0,2: 70 00");
  CallsOfPress(1045, 113);
  EXPECT_EQ(TextOf(1059), " -31.0");
  EXPECT_EQ(TextOf(1051), "|_____|_____|_____|_____|_____|__|");
}

TEST_F(Audio, LevelComboOfTheOutputWritesAtOnce) {
  for (const std::uint8_t type : Bytes{24, 34}) {
    Open({type, 2, 0, 0, 0});
    EXPECT_TRUE(desk.Shows(kPage, 1108));
    EXPECT_EQ(desk.Items(kPage, 1108), (Texts{" +24.0", " +20.0", " +10.0", " +4.0", " +0.0",
                                              " -10.0", " -20.0", " -30.0"}));
    EXPECT_EQ(TextOf(1050), "   -30     -20       -10        0       +10     +20+24 [dBu]");
    const int raws[] = {110, 102, 82, 70, 62, 42, 22, 2};
    for (int i = 0; i < 8; ++i) {
      TakeCalls();
      desk.Choose(kPage, 1108, i);
      EXPECT_EQ(TakeCalls(), Calls{Format("set block 44,0,2: %02X 00", raws[i])});
      EXPECT_EQ(desk.ProgressPosition(kPage, 1103), raws[i]);
      // The label of the entry is the level that is shown.
      EXPECT_EQ(TextOf(1059), desk.Items(kPage, 1108)[static_cast<std::size_t>(i)]);
    }
    panel.reset();
  }
}

TEST_F(Audio, LevelComboOfTheInputWritesAtOnce) {
  OpenWith({29, 2, 0, 0, 0}, {{10, {1, 0}}, {19, {33, 7}}});
  EXPECT_EQ(desk.Items(kPage, 1108),
            (Texts{" +10.0", " +6.0", " +4.0", " +0.0", " -6.0", " -10.0", " -20.0", " -28.5"}));
  EXPECT_EQ(TextOf(1050), "   -28         -20           -10             0           +10 [dBV]");
  const int raws[] = {0, 8, 12, 20, 32, 40, 60, 77};
  for (int i = 0; i < 8; ++i) {
    TakeCalls();
    desk.Choose(kPage, 1108, i);
    EXPECT_EQ(TakeCalls(), Calls{Format("set block 19,0,2: %02X 07", raws[i])});
    EXPECT_EQ(" " + TextOf(1059), desk.Items(kPage, 1108)[static_cast<std::size_t>(i)]);
  }
}

TEST_F(Audio, LevelComboBelongsToBrand2) {
  for (const std::uint8_t type : Bytes{24, 34, 25, 29}) {
    Open({type, 1, 0, 0, 0});
    EXPECT_FALSE(desk.Shows(kPage, 1108)) << int{type};
    panel.reset();
  }
}

TEST_F(Audio, OutputChannelsStepInTheOrderOfTheirRows) {
  for (const std::uint8_t type : Bytes{29, 18, 32}) {
    OpenWith({type, 0, 0, 0, 0}, {{32, {2, 0}}});
    EXPECT_EQ(TextOf(kChannel), "2.0 Channel");
    EXPECT_EQ(Cycle(kChannel, 5),
              (Texts{"3.1 Channel", "5.1 Channel", "6.1 Channel", "7.1 Channel", "2.0 Channel"}));
    desk.Press(kPage, 1049);
    const Calls sent = CallsOf(kApplyButton);
    EXPECT_NE(std::find(sent.begin(), sent.end(), "set block 32,0,1: 03"), sent.end());
    panel.reset();
  }
}

TEST_F(Audio, XlrLevelAndImpedance) {
  OpenWith({14, 0, 0, 0, 0}, {{7, {0, 0}}, {32, {0, 0}}});
  EXPECT_EQ(TextOf(1055), "XLR Level");
  EXPECT_EQ(Cycle(kXlrLevel, 5), (Texts{"6 dBu", "12 dBu", "18 dBu", "24 dBu", "0 dBu"}));
  EXPECT_EQ(Cycle(kImpedance, 3), (Texts{"Low", "High", "Low"}));
  const Calls sent = CallsOf(kApplyButton);
  EXPECT_NE(std::find(sent.begin(), sent.end(), "set block 32,0,1: 01"), sent.end());
  panel.reset();
  OpenWith({24, 0, 0, 1, 0}, {{7, {0, 0}}});
  EXPECT_EQ(TextOf(1055), "L/R Audio Level");
  EXPECT_EQ(Cycle(kXlrLevel, 3), (Texts{"24 dB", "10 dB", "24 dB"}));
  panel.reset();
  OpenWith({34, 0, 0, 0, 0}, {{7, {0, 0}}});
  EXPECT_EQ(TextOf(1055), "XLR Level");
  EXPECT_EQ(Cycle(kXlrLevel, 5), (Texts{"24 dB", "24 dB", "24 dB", "24 dB", "10 dB"}));
}

// What these blocks are on other pages of the same model must not change with the audio.
TEST_F(Audio, ApplyLeavesBlocksOfOtherPagesAlone) {
  const std::pair<std::uint8_t, int> rows[] = {{std::uint8_t{25}, 9},
                                               {std::uint8_t{29}, 9},
                                               {std::uint8_t{14}, 10},
                                               {std::uint8_t{36}, 10},
                                               {std::uint8_t{51}, 6}};
  for (const auto& [type, property] : Tried(rows)) {
    Open({type, 0, 0, 0, 0});
    desk.Press(kPage, 1029);
    const std::string call = "set block " + std::to_string(property) + ",";
    const Calls writes = CallsOf(kApplyButton);
    EXPECT_FALSE(writes.empty());
    for (const std::string& sent : writes) EXPECT_NE(sent.rfind(call, 0), 0U) << sent;
    panel.reset();
  }
}

TEST_F(Audio, DefaultSourceOfTheScalersFollowsTheInput) {
  for (const std::uint8_t input : Bytes{0, 1}) {
    OpenWith({24, 0, 0, 0, 0}, {{3, {input, 0}}, {10, {0, 0}}});
    EXPECT_EQ(TextOf(kSource), input == 0 ? "Default ( SDI )" : "Default ( HDMI )");
    panel.reset();
  }
}

}  // namespace
}  // namespace panelora::testing
