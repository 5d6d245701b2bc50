// The Audio page of every box type: what is shown where, sources and settings, what is read and
// written. The volumes have a file of their own.
#include "tests/support/audio_models.h"

namespace panelora::testing::audio_models {
namespace {

TEST_F(AudioModels, EveryTypeShowsItsPartsInOneColumn) {
  for (const int type : kTypes) {
    for (const int brand : {0, 2}) {
      const Identity identity = Box(type, brand);
      OpenAs(identity);
      ASSERT_EQ(ShownOn(kPage), ExpectedPlaces(identity)) << Named(identity);
    }
  }
}

TEST_F(AudioModels, EveryControlHasItsCaptionAndFont) {
  const std::map<int, std::string> texts = {{1026, "Audio Mute"},
                                            {1023, ""},
                                            {1024, ">>"},
                                            {1030, "Audio Source"},
                                            {1027, ""},
                                            {1029, ">>"},
                                            {1035, "Audio Level"},
                                            {1036, ""},
                                            {1038, ">>"},
                                            {1056, "XLR Impedance"},
                                            {1042, ""},
                                            {1044, ">>"},
                                            {1057, "Output Channel"},
                                            {1047, ""},
                                            {1049, ">>"},
                                            {1039, ""},
                                            {1041, ">>"},
                                            {1060, ""},
                                            {1061, ""},
                                            {1045, "-"},
                                            {1046, "+"},
                                            {1053, "-"},
                                            {1054, "+"},
                                            {1062, "Audio Level"}};
  for (const auto& column : kColumns) {
    for (const int type : column.types) {
      OpenAs(Box(type));
      for (const auto& [control, text] : texts) {
        EXPECT_EQ(TextOf(control), text) << control << " of " << type;
      }
      EXPECT_EQ(TextOf(kXlrLevel.label), "XLR Level") << type;
      for (const ui::ControlTemplate& control : res::FindDialog(kPage)->controls) {
        EXPECT_EQ(desk.FontOf(kPage, control.id), (ui::Font{"Arial", 120})) << control.id;
      }
    }
  }
}

TEST_F(AudioModels, FirstTextsOfOtherModels) {
  device.FailEverything();
  StartAs(Box(26));
  const std::map<int, std::string> texts = {{1040, "0 dBu"}, {1043, "High"}, {1048, "2.0 Channel"}};
  for (const auto& [control, text] : texts) EXPECT_EQ(TextOf(control), text) << control;
}

TEST_F(AudioModels, EveryTypeReadsAndWritesWhatItHas) {
  for (const int type : kTypes) {
    for (const int brand : {0, 2}) {
      const Identity identity = Box(type, brand);
      SCOPED_TRACE(Named(identity));
      Held held;
      held.mute = 1;
      held.input = type == 26 || type == 50 ? 4 : 1;
      held.source = 1;
      held.standard = 1;
      held.xlrLevel = 1;
      held.option32 = type == 14 ? 1 : 7;
      held.volume = 31;
      held.volume2 = 32;
      held.level = 33;
      StartAs(identity);
      Hold(identity, held);
      ASSERT_EQ(CallsOf(kAudioButton), Reads(identity));
      ASSERT_EQ(CallsOf(kPictureButton), Reads(identity));
      ASSERT_EQ(CallsOf(kDefaultButton), Reads(identity));
      ASSERT_EQ(CallsOf(kApplyButton), Writes(identity, held));
    }
  }
}

TEST_F(AudioModels, EverySourceIsShownSentAndSteppedFrom) {
  for (const int type : kTypes) {
    const Identity identity = Box(type);
    OpenAs(identity);
    std::string shown = TextOf(kSource);
    for (const int input : {0, 1, 2, 3, 4, 254, 255}) {
      const auto count = static_cast<int>(SourcesOf(type, input).size());
      for (const int source : {0, 1, 2, 3, 4, 255}) {
        SCOPED_TRACE(Named(identity) + " input " + std::to_string(input) + " source " +
                     std::to_string(source));
        Held held;
        held.input = input;
        held.source = source;
        Read(identity, held);
        if (const auto row = SourceOf(type, input, source)) shown = row->text;
        ASSERT_EQ(TextOf(kSource), shown);
        ASSERT_EQ(CallsOf(kApplyButton), Writes(identity, held));
        const Calls sent = CallsOnPage(kPage, kSource.next);
        ASSERT_EQ(sent, Calls{});
        // The types of words always count to 2, the others to the last source of the input.
        const int last = TakesWords(type) ? 2 : std::max(count - 1, 0);
        held.source = source + 1 > last ? 0 : source + 1;
        if (const auto row = SourceOf(type, input, held.source)) shown = row->text;
        ASSERT_EQ(TextOf(kSource), shown);
        ASSERT_EQ(CallsOf(kApplyButton), Writes(identity, held));
      }
    }
  }
}

TEST_F(AudioModels, EveryMuteIsShownSentAndSteppedFrom) {
  for (const int type : kTypes) {
    if (type == 51) continue;  // is not asked for it
    const Identity identity = Box(type);
    SCOPED_TRACE(Named(identity));
    OpenAs(identity);
    WalkSetting(identity, kMute, &Held::mute, {{0, "OFF"}, {1, "ON"}}, 1);
    if (HasFatalFailure()) return;
  }
  OpenAs(Box(51));
  Held held;
  held.mute = 1;
  Read(Box(51), held);
  EXPECT_EQ(TextOf(kMute), "ON");  // the first text
  held.mute = 0;
  Read(Box(51), held);
  EXPECT_EQ(TextOf(kMute), "ON");
}

TEST_F(AudioModels, EveryStandardIsShownSentAndSteppedFrom) {
  for (const int type : {26, 50}) {
    const Identity identity = Box(type);
    SCOPED_TRACE(Named(identity));
    OpenAs(identity);
    WalkSetting(identity, kStandard, &Held::standard, {{0, "SMPTE(USA)"}, {1, "EBU(Europe)"}}, 1);
  }
}

TEST_F(AudioModels, EveryXlrLevelIsShownSentAndSteppedFrom) {
  const std::map<int, std::string> scaler = {{0, "10 dB"}, {1, "24 dB"}};
  const std::map<int, std::string> converter = {
      {0, "0 dBu"}, {1, "6 dBu"}, {2, "12 dBu"}, {3, "18 dBu"}, {4, "24 dBu"}};
  for (const int type : {24, 34, 14, 36}) {
    for (const int brand : {0, 2}) {
      for (const int dip : {0, 1, 2}) {
        const Identity identity = Box(type, brand, dip, 1);
        SCOPED_TRACE(Named(identity));
        const bool isScaler = type == 24 || type == 34;
        const bool byDip = isScaler && dip == 1;
        OpenAs(identity);
        EXPECT_EQ(TextOf(kXlrLevel.label), byDip ? "L/R Audio Level" : "XLR Level");
        WalkSetting(identity, kXlrLevel, &Held::xlrLevel, isScaler ? scaler : converter,
                    byDip ? 1 : 4);
        if (HasFatalFailure()) return;
      }
    }
  }
}

TEST_F(AudioModels, EveryImpedanceIsShownSentAndSteppedFrom) {
  const Identity identity = Box(14);
  OpenAs(identity);
  WalkSetting(identity, kImpedance, &Held::option32, {{0, "High"}, {1, "Low"}}, 1);
}

TEST_F(AudioModels, EveryChannelIsShownSentAndSteppedFrom) {
  const std::vector<std::pair<int, std::string>> channels = {{2, "2.0 Channel"},
                                                             {3, "3.1 Channel"},
                                                             {6, "5.1 Channel"},
                                                             {7, "6.1 Channel"},
                                                             {8, "7.1 Channel"}};
  for (const int type : {29, 18, 32}) {
    for (const int brand : {0, 2}) {
      const Identity identity = Box(type, brand);
      SCOPED_TRACE(Named(identity));
      OpenAs(identity);
      std::string shown = TextOf(kChannel);
      for (const int value : {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 255}) {
        Held held;
        held.option32 = value;
        Read(identity, held);
        std::size_t next = 0;  // a value without a row goes on with the first
        for (std::size_t i = 0; i < channels.size(); ++i) {
          if (channels[i].first != value) continue;
          shown = channels[i].second;
          next = (i + 1) % channels.size();
        }
        ASSERT_EQ(TextOf(kChannel), shown) << value;
        ASSERT_EQ(CallsOf(kApplyButton), Writes(identity, held)) << value;
        ASSERT_EQ(CallsOnPage(kPage, kChannel.next), Calls{});
        held.option32 = channels[next].first;
        shown = channels[next].second;
        ASSERT_EQ(TextOf(kChannel), shown) << value;
        ASSERT_EQ(CallsOf(kApplyButton), Writes(identity, held)) << value;
      }
    }
  }
}

// What a type does not have is not moved by buttons that it does not show.
TEST_F(AudioModels, ButtonsOfOtherTypesTellTheBoxNothing) {
  for (const int type : kTypes) {
    const Identity identity = Box(type);
    const Volume volume = VolumeOf(type);
    OpenAs(identity);
    Held held;
    held.source = 1;
    held.input = 1;
    Read(identity, held);
    const Calls before = CallsOf(kApplyButton);
    for (const Group& group : {kStandard, kXlrLevel, kImpedance, kChannel}) {
      if (!ExpectedPlaces(identity).contains(group.next)) {
        EXPECT_EQ(CallsOnPage(kPage, group.next), Calls{}) << group.next;
      }
    }
    for (const int button : {kSofter, kLouder, kHdmiSofter, kHdmiLouder}) {
      if (volume != Volume::kNone) continue;
      EXPECT_EQ(CallsOnPage(kPage, button), Calls{}) << button;
    }
    EXPECT_EQ(CallsOf(kApplyButton), before) << Named(identity);
  }
}

// Each read on its own: the others are shown all the same, and what was read before is sent back.
TEST_F(AudioModels, OneFailedReadKeepsItsValueAlone) {
  for (const int type : {26, 50, 14, 36, 18, 24, 25, 29, 46, 52, 13, 21, 17, 20, 23, 37}) {
    const Identity identity = Box(type);
    OpenAs(identity);
    Held first;
    first.input = 1;
    first.source = 1;
    first.option32 = type == 14 ? 0 : 2;
    first.volume = 10;
    first.volume2 = 20;
    first.level = 30;
    Held second = {1, 4, 0, 1, 1, type == 14 ? 1 : 3, 40, 50, 60};
    if (!TakesWords(type)) second.input = 0;
    struct Row {
      std::string call;
      std::vector<int Held::*> kept;
    };
    Row rows[] = {{MuteOf(type).Get(), {&Held::mute}},
                  {InputOf(type).Get(), {&Held::input}},
                  {SourceOf(type).Get(), {&Held::source}},
                  {GetBlock(7), {&Held::xlrLevel}},
                  {GetBlock(32), {&Held::option32}},
                  {GetBlock(11), {&Held::volume, &Held::volume2}},
                  {GetBlock(44), {&Held::level}},
                  {GetBlock(19, 3), {&Held::volume, &Held::volume2}}};
    std::vector<Row> all(std::begin(rows), std::end(rows));
    if (HasPart(identity, 't')) all.push_back({GetWord(16), {&Held::standard}});
    for (const Row& row : all) {
      SCOPED_TRACE(Named(identity) + " " + row.call);
      Read(identity, first);
      device.FillAndAnswer(row.call, 2);  // filled, and no success
      Read(identity, second);
      device.FailNothing();
      Held expected = second;
      const Calls reads = Reads(identity);
      if (std::find(reads.begin(), reads.end(), row.call) == reads.end()) continue;
      for (int Held::*field : row.kept) expected.*field = first.*field;
      EXPECT_EQ(CallsOf(kApplyButton), Writes(identity, expected));
      if (HasPart(identity, 'm')) {
        EXPECT_EQ(TextOf(kMute), expected.mute == 1 ? "ON" : "OFF");
      }
      // The text of a source that was not read stays, whatever the input is now.
      const bool sourceRead = row.kept.front() != &Held::source;
      const int input = sourceRead ? expected.input : first.input;
      if (const auto source = SourceOf(type, input, expected.source)) {
        EXPECT_EQ(TextOf(kSource), source->text);
      }
    }
  }
}

// A box that answers another handle is asked by the old one until the page is opened again.
TEST_F(AudioModels, HandleIsThatOfTheOpening) {
  OpenAs(Box(26));
  device.AnswerHandle(0x1234);
  for (int i = 0; i < 6; ++i) Tick();
  ReportWord(11, 1);
  Reread();
  EXPECT_EQ(TextOf(kMute), "OFF");
  Press(kAudioButton);
  EXPECT_EQ(TextOf(kMute), "ON");
}

// What was never read is sent as it was at the start.
TEST_F(AudioModels, FirstValuesOfEveryType) {
  for (const int type : kTypes) {
    const Identity identity = Box(type);
    StartAs(identity);
    device.FailEverything();
    Press(kAudioButton);
    device.FailNothing();
    Held first;
    first.level = 62;                                // 0 dB
    if (HasPart(identity, 'c')) first.option32 = 2;  // the first channel
    EXPECT_EQ(CallsOf(kApplyButton), Writes(identity, first)) << type;
  }
}

TEST_F(AudioModels, WithoutBoxNothingIsShownOrAsked) {
  box.SetPresent(false);
  Start();
  EXPECT_EQ(ShownOn(kPage), Places{});
  EXPECT_EQ(CallsOf(kAudioButton), Calls{});
  EXPECT_EQ(ShownOn(kPage), Places{});
}

// The page is set up anew whenever it is opened.
TEST_F(AudioModels, OpeningTakesTheHandleAndTheFirstTextsAgain) {
  OpenAs(Box(26));
  ASSERT_EQ(TextOf(kMute), "OFF");
  device.AnswerHandle(0x1234);
  Press(kReturnButton);
  for (int i = 0; i < 6; ++i) Tick();  // takes the new handle
  ReportWord(11, 9);
  Press(kAudioButton);
  EXPECT_EQ(TextOf(kMute), "ON");  // the first text: 9 has no row
  ReportWord(11, 0);
  Reread();
  EXPECT_EQ(TextOf(kMute), "OFF");
}

}  // namespace
}  // namespace panelora::testing::audio_models
