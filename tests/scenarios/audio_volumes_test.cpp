// The volumes and levels of the Audio page, on every box type that has them.
#include <cmath>

#include "tests/support/audio_models.h"

namespace panelora::testing::audio_models {
namespace {

using AudioVolumes = AudioModels;

TEST_F(AudioVolumes, EveryAttenuationIsShownUpsideDownAndStepped) {
  for (const int type : {46, 47, 48, 49, 52}) {
    for (const int brand : {0, 2}) {
      const Identity identity = Box(type, brand);
      SCOPED_TRACE(Named(identity));
      OpenAs(identity);
      for (const int raw : {0, 1, 2, 50, 98, 99, 100}) {
        Held held;
        held.volume = raw;
        held.volume2 = 100 - raw;
        const auto expectShown = [&] {
          const int first = 100 - held.volume;
          const int second = 100 - held.volume2;
          EXPECT_EQ(desk.ProgressRange(kPage, kVolumeBar), std::make_pair(0, 100));
          EXPECT_EQ(desk.ProgressRange(kPage, kHdmiBar), std::make_pair(0, 100));
          EXPECT_EQ(desk.ProgressPosition(kPage, kVolumeBar), first);
          EXPECT_EQ(desk.ProgressPosition(kPage, kHdmiBar), second);
          EXPECT_EQ(TextOf(kVolumeText), "L/R Audio Volume ( " + std::to_string(first) + " )");
          EXPECT_EQ(TextOf(kHdmiText), "Embedded Audio Volume ( " + std::to_string(second) + " )");
          EXPECT_EQ(CallsOf(kApplyButton), Writes(identity, held));
        };
        Read(identity, held);
        expectShown();
        const auto press = [&](int button, int Held::*field, int step) {
          EXPECT_EQ(CallsOnPage(kPage, button), Calls{});
          held.*field = std::clamp(held.*field + step, 0, 100);
          expectShown();
        };
        press(kSofter, &Held::volume, 1);
        press(kHdmiSofter, &Held::volume2, 1);
        press(kLouder, &Held::volume, -1);
        press(kLouder, &Held::volume, -1);
        press(kHdmiLouder, &Held::volume2, -1);
        press(kHdmiLouder, &Held::volume2, -1);
        ASSERT_FALSE(HasFailure()) << raw;
      }
    }
  }
}

std::string Decibels(double value) {
  const int half = static_cast<int>(std::lround(std::fabs(value) * 2));
  return std::to_string(half / 2) + (half % 2 == 0 ? ".0" : ".5");
}

TEST_F(AudioVolumes, EveryOutputLevelIsShownSteppedAndSent) {
  for (const int type : {24, 34}) {
    for (const int brand : {0, 2}) {
      const Identity identity = Box(type, brand);
      SCOPED_TRACE(Named(identity));
      OpenAs(identity);
      for (const int raw : {0, 1, 2, 60, 61, 62, 63, 64, 110, 111, 112}) {
        Held held;
        held.level = raw;
        const auto expectShown = [&] {
          const double level = (held.level - 62) / 2.0;
          const std::string sign = level < 0 ? "-" : "+";
          EXPECT_EQ(TextOf(kVolumeText),
                    " Analog L/R Audio Output Level ( " + sign + " " + Decibels(level) + " )");
          EXPECT_EQ(TextOf(kLevelText), " " + sign + Decibels(level));
          EXPECT_EQ(TextOf(kRuler), "|_____|_____|_____|_____|_____|__|");
          EXPECT_EQ(desk.ProgressRange(kPage, kVolumeBar), std::make_pair(0, 112));
          EXPECT_EQ(desk.ProgressPosition(kPage, kVolumeBar), held.level);
          EXPECT_EQ(CallsOf(kApplyButton), Writes(identity, held));
        };
        Read(identity, held);
        expectShown();
        const auto press = [&](int button, int step) {
          EXPECT_EQ(CallsOnPage(kPage, button), Calls{});
          held.level = std::clamp(held.level + step, 0, 112);
          expectShown();
        };
        press(kSofter, -1);
        press(kLouder, 1);
        press(kLouder, 1);
        for (const int button : {kHdmiSofter, kHdmiLouder}) {  // belong to other types
          EXPECT_EQ(CallsOnPage(kPage, button), Calls{});
        }
        expectShown();
        ASSERT_FALSE(HasFailure()) << raw;
      }
    }
  }
}

// Source 1 turns the first volume, source 2 the second; with brand 2 the first is an input level.
TEST_F(AudioVolumes, EveryInputVolumeIsShownSteppedAndSentAtOnce) {
  for (const int type : {25, 29}) {
    for (const int brand : {0, 1, 2, 3}) {
      const Identity identity = Box(type, brand);
      OpenAs(identity);
      for (const int source : {0, 1, 2}) {
        const bool isLevel = brand == 2 && source != 2;
        const int last = isLevel ? 80 : 100;
        for (const int raw : {0, 1, 2, 18, 19, 20, 21, 22, 75, 76, 77, 78, 79, 80, 99, 100}) {
          if (raw > last) break;
          SCOPED_TRACE(Named(identity) + " source " + std::to_string(source) + " raw " +
                       std::to_string(raw));
          Held held;
          held.source = source;
          int Held::*const field = source == 2 ? &Held::volume2 : &Held::volume;
          held.volume = 55;
          held.volume2 = 66;
          held.*field = raw;
          const auto expectShown = [&] {
            const int value = held.*field;
            if (!isLevel) {
              EXPECT_EQ(desk.ProgressRange(kPage, kVolumeBar), std::make_pair(0, 100));
              EXPECT_EQ(desk.ProgressPosition(kPage, kVolumeBar), value);
              EXPECT_EQ(TextOf(kVolumeText), "Audio Volume ( " + std::to_string(value) + " )");
              EXPECT_EQ(TextOf(kLevelText), "");
              return;
            }
            const double level = (20 - value) / 2.0;
            const std::string sign = level < 0 ? "-" : "+";
            EXPECT_EQ(TextOf(kVolumeText), (value == 20 ? " " : "") +
                                               ("Analog L/R Audio Input Level ( " + sign) + " " +
                                               Decibels(level) + " )");
            EXPECT_EQ(TextOf(kLevelText), sign + Decibels(level));
            EXPECT_EQ(TextOf(kRuler), "  |______|_______|_______|_______|");
            EXPECT_EQ(desk.ProgressRange(kPage, kVolumeBar), std::make_pair(0, 80));
            EXPECT_EQ(desk.ProgressPosition(kPage, kVolumeBar), 80 - value);
          };
          Read(identity, held);
          expectShown();
          const auto press = [&](int button, int step) {
            const Calls sent = CallsOnPage(kPage, button);
            const int top = isLevel ? 77 : 100;
            if (source != 0) {  // a level beyond the end comes back to it when it is turned further
              held.*field =
                  step > 0 ? std::min(held.*field + 1, top) : std::max(held.*field - 1, 0);
            }
            EXPECT_EQ(sent, Calls{SetBlock(19, {held.volume, held.volume2})});
            expectShown();
          };
          press(kSofter, isLevel ? 1 : -1);
          press(kLouder, isLevel ? -1 : 1);
          press(kLouder, isLevel ? -1 : 1);
          // Apply has no volume to send: it went out with the press.
          EXPECT_EQ(CallsOf(kApplyButton), Writes(identity, held));
          ASSERT_FALSE(HasFailure());
        }
      }
    }
  }
}

TEST_F(AudioVolumes, EveryEntryOfTheLevelComboIsSentAtOnce) {
  struct Entry {
    const char* text;
    int raw;
  };
  const Entry outputs[] = {{" +24.0", 110}, {" +20.0", 102}, {" +10.0", 82}, {" +4.0", 70},
                           {" +0.0", 62},   {" -10.0", 42},  {" -20.0", 22}, {" -30.0", 2}};
  const Entry inputs[] = {{" +10.0", 0}, {" +6.0", 8},   {" +4.0", 12},  {" +0.0", 20},
                          {" -6.0", 32}, {" -10.0", 40}, {" -20.0", 60}, {" -28.5", 77}};
  for (const int type : {24, 34, 25, 29}) {
    const bool output = type == 24 || type == 34;
    SCOPED_TRACE(type);
    const Identity identity = Box(type, 2);
    StartAs(identity);
    for (const int property : {19, 44}) box.Block(static_cast<std::uint8_t>(property)).clear();
    Press(kAudioButton);
    // No volume was read: the scale stands there as it was filled.
    EXPECT_EQ(TextOf(kScale),
              output ? "   -30     -20       -10        0       +10     +20+24 [dBu]"
                     : "   -28         -20           -10             0           +10 [dBV]");
    EXPECT_EQ(TextOf(kRuler),
              output ? "|_____|_____|_____|_____|_____|__|" : "|______|_______|_______|_______|");
    Held held;
    held.source = 1;
    held.volume2 = 9;
    Read(identity, held);
    for (int i = 0; i < 8; ++i) {
      const Entry& entry = output ? outputs[i] : inputs[i];
      ASSERT_EQ(desk.Items(kPage, kCombo).at(static_cast<std::size_t>(i)), entry.text);
      TakeCalls();
      desk.Choose(kPage, kCombo, i);
      EXPECT_EQ(TakeCalls(),
                Calls{output ? SetBlock(44, {entry.raw, 0}) : SetBlock(19, {entry.raw, 9})});
      EXPECT_EQ(desk.ProgressRange(kPage, kVolumeBar), std::make_pair(0, output ? 112 : 80));
      EXPECT_EQ(desk.ProgressPosition(kPage, kVolumeBar), output ? entry.raw : 80 - entry.raw);
      EXPECT_EQ((output ? "" : " ") + TextOf(kLevelText), entry.text);
    }
    TakeCalls();
    desk.Choose(kPage, kCombo, -1);  // none
    EXPECT_EQ(TakeCalls(), Calls{});
    EXPECT_EQ(desk.Items(kPage, kCombo).size(), 8U);
    Press(kAudioButton);  // filled anew, and not once more
    EXPECT_EQ(desk.Items(kPage, kCombo).size(), 8U);
  }
}

}  // namespace
}  // namespace panelora::testing::audio_models
