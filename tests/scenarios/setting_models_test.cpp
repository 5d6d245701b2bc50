// The Setting page of every box type, against a list of its own: what is shown where, what every
// value that a box can report shows, and exactly what is read and written.
#include "tests/support/model_walk.h"
#include "tests/support/one_page.h"
#include "tests/support/setting_controls.h"

namespace panelora::testing {
namespace {

using Names = std::map<int, std::string>;

const Names kLocks = {{1, "Locked"}, {0, "Un-Locked"}};
const Names kOsds = {{1, "Enable"}, {0, "Disable"}};
const Names kNoSignals = {{1, "Blue Screen"}, {0, "Black Screen"}, {2, "Disable Output"}};
const Names kPatterns = {{0, "Disable"},   {1, "White"},   {2, "Cross"},     {3, "Hatch"},
                         {4, "Color Bar"}, {5, "Gray"},    {6, "Window"},    {7, "H Ramp"},
                         {8, "WH Ramp"},   {9, "WV Ramp"}, {10, "Diagonal"}, {11, "Red"},
                         {12, "Green"},    {13, "Blue"}};
const Names kDip8Of26 = {{0, "Keep Aspect Ratio"},
                         {1, "Full Screen (16:9)"},
                         {2, "Dot By Dot"},
                         {3, "4 : 3"},
                         {4, "14 : 9"},
                         {5, "UnderScan"},
                         {6, "Pan Scan 16 : 9"}};
const Names kDip8Of = {
    {4, "Full Screen"}, {0, "16 : 9"}, {1, "4 : 3"}, {2, "Dot By Dot"}, {3, "Keep Aspect Ratio"}};

// Where a setting is kept: word item or block property.
struct Place {
  bool isWord;
  int number;
};
constexpr Place W(int item) { return {true, item}; }
constexpr Place B(int property) { return {false, property}; }

// One of the settings that a type has.
struct Setting {
  Group group;
  Names names;
  int last;
  Place at;
};
Setting Lock(Place at) { return {kLock, kLocks, 1, at}; }
Setting Pattern(Place at) { return {kPattern, kPatterns, 13, at}; }
Setting Osd(Place at) { return {kOsd, kOsds, 1, at}; }
Setting NoSignal(Place at) { return {kNoSignal, kNoSignals, 2, at}; }
Setting Dip8(Place at) { return {kDip8, kDip8Of, 4, at}; }
Setting SevenDip8(Place at) { return {kDip8, kDip8Of26, 6, at}; }

// Top to bottom, as they are shown; which is the order of the reads of all types but 26.
std::vector<Setting> SettingsOf(int type) {
  if (type == 26) return {SevenDip8(B(23)), Osd(W(21)), NoSignal(B(22))};
  if (type == 50) return {SevenDip8(B(17)), Osd(B(21)), NoSignal(B(22))};
  if (Has({14, 36, 37, 38, 39, 40, 46, 47, 48, 49, 51}, type)) {
    return {Dip8(B(15)), Osd(B(21)), NoSignal(B(22))};
  }
  if (Has({13, 15, 17, 18, 21, 32, 35}, type)) return {Dip8(B(17)), Lock(W(12)), Pattern(W(13))};
  if (Has({20, 24, 30, 33, 34, 43}, type)) return {Dip8(B(17)), Osd(W(21)), NoSignal(W(16))};
  if (Has({23, 25, 29, 42}, type)) return {Dip8(B(17)), Pattern(W(13)), NoSignal(W(17))};
  if (type == 19 || type == 27) return {Lock(W(8)), Pattern(W(10)), NoSignal(W(5))};
  return {Lock(W(12)), Pattern(W(13)), NoSignal(W(17))};
}
bool HasSevenModes(int type) { return type == 26 || type == 50; }

Calls ReadsOf(int type) {
  if (type == 26) return {GetBlock(23), GetBlock(22), GetWord(21)};
  Calls calls;
  for (const Setting& setting : SettingsOf(type)) {
    calls.push_back(setting.at.isWord ? GetWord(setting.at.number) : GetBlock(setting.at.number));
  }
  return calls;
}

// What Apply sends of the three, the DIP 8 mode last; `extra` is the byte that 26 keeps beside it.
Calls WritesOf(int type, const std::vector<int>& v, int extra) {
  if (type == 26) return {SetWord(21, v[1]), SetBlock(22, {v[2]}), SetBlock(23, {v[0], extra})};
  const std::vector<Setting> settings = SettingsOf(type);
  Calls calls;
  std::string last;
  for (std::size_t i = 0; i < settings.size(); ++i) {
    const Place& at = settings[i].at;
    const std::string call = at.isWord ? SetWord(at.number, v[i]) : SetBlock(at.number, {v[i]});
    if (settings[i].group.next == kDip8.next) {
      last = call;
    } else {
      calls.push_back(call);
    }
  }
  if (!last.empty()) calls.push_back(last);
  return calls;
}

constexpr int kExtra = 0x5A;

class SettingModels : public OnePage<kPage, ModelWalk> {
 protected:
  void Report(int type, const std::vector<int>& v) {
    const std::vector<Setting> settings = SettingsOf(type);
    for (std::size_t i = 0; i < settings.size(); ++i) {
      const Place& at = settings[i].at;
      const std::uint8_t second = type == 26 && i == 0 ? kExtra : 0x77;
      if (at.isWord) {
        ReportWord(at.number, v[i]);
      } else {
        ModelWalk::Report(at.number, {static_cast<std::uint8_t>(v[i]), second});
      }
    }
  }
  void OpenAs(const Identity& identity, std::uint32_t firmware = 0x0126) {
    StartAs(identity, firmware);
    Press(kSettingButton);
    TakeCalls();
  }
};

TEST_F(SettingModels, EveryOtherTypeShowsItsThreeSettings) {
  for (const int type : kTypes) {
    if (type == 26) continue;
    for (const std::uint32_t firmware : {0U, 0x0126U}) {
      if (firmware == 0 && !Has({0, 20, 50}, type)) continue;
      OpenAs(Box(type), firmware);
      Places expected;
      int top = 15;
      for (const Setting& setting : SettingsOf(type)) {
        PlaceFour(expected, setting.group, {55, top}, 375);
        top += 70;
      }
      expected[kReset] = {55, 235, 360, 50};
      ASSERT_EQ(ShownOn(kPage), expected) << type << " firmware " << firmware;
    }
  }
}

TEST_F(SettingModels, EveryControlHasItsCaptionAndFont) {
  for (const int type : {26, 46, 20}) {
    OpenAs(Box(type));
    const Names captions = {{1040, "Function Button"},
                            {1042, "OSD Hide Mode"},
                            {1050, "Pattern Mode"},
                            {1046, "No Signal Mode"},
                            {1051, "DipSwitch 8(1) Mode"}};
    for (const auto& [control, caption] : captions) {
      EXPECT_EQ(desk.Text(kPage, control), caption);
    }
    for (const Group& group : {kLock, kOsd, kPattern, kNoSignal, kDip8}) {
      EXPECT_EQ(desk.Text(kPage, group.frame), "") << group.frame;
      EXPECT_EQ(desk.Text(kPage, group.next), ">>") << group.next;
    }
    for (const ui::ControlTemplate& control : res::FindDialog(kPage)->controls) {
      EXPECT_EQ(desk.FontOf(kPage, control.id), (ui::Font{"Arial", 120})) << control.id;
    }
  }
}

TEST_F(SettingModels, EveryValueIsShownSentAndSteppedFrom) {
  for (const int type : kTypes) {
    SCOPED_TRACE(Named(Box(type)));
    OpenAs(Box(type), 294);
    const std::vector<Setting> settings = SettingsOf(type);
    std::vector<int> values = {1, 1, 1};
    Report(type, values);
    ASSERT_EQ(CallsOf(kSettingButton), ReadsOf(type));
    ASSERT_EQ(CallsOf(kPictureButton), ReadsOf(type));
    ASSERT_EQ(CallsOf(kDefaultButton), ReadsOf(type));
    for (std::size_t i = 0; i < settings.size(); ++i) {
      const Setting& setting = settings[i];
      std::string shown = setting.names.at(1);
      for (const int value : {0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 254, 255}) {
        SCOPED_TRACE("setting " + std::to_string(i) + " value " + std::to_string(value));
        values = {1, 1, 1};
        values[i] = value;
        Report(type, values);
        Reread();
        const auto expect = [&] {
          if (setting.names.contains(values[i])) shown = setting.names.at(values[i]);
          ASSERT_EQ(TextOf(setting.group), shown);
          ASSERT_EQ(CallsOf(kApplyButton), WritesOf(type, values, kExtra));
        };
        ASSERT_NO_FATAL_FAILURE(expect());
        ASSERT_FALSE(desk.IsOpen(res::kCaution));
        ASSERT_EQ(CallsOnPage(kPage, setting.group.next), Calls{});
        values[i] = value + 1 > setting.last ? 0 : value + 1;
        // Of seven modes the first and the last alone are offered, and 26 warns of a change.
        const bool isSeven = HasSevenModes(type) && i == 0;
        if (isSeven) values[i] = value < 6 ? 6 : 0;
        ASSERT_NO_FATAL_FAILURE(expect());
        ASSERT_EQ(desk.IsOpen(res::kCaution), isSeven && type == 26);
        if (isSeven && type == 26) desk.RequestClose(res::kCaution);
      }
    }
  }
}

// From 0, which is pending while nothing is read, through all names; nothing is sent.
TEST_F(SettingModels, EverySettingStepsOnEveryType) {
  for (const int type : kTypes) {
    StartAs(Box(type));
    device.FailEverything();
    Press(kSettingButton);
    TakeCalls();
    for (const Setting& setting : {Lock(W(0)), Osd(W(0)), Pattern(W(0)), NoSignal(W(0))}) {
      for (int i = 1; i <= 2 * setting.last + 2; ++i) {
        desk.Press(kPage, setting.group.next);
        ASSERT_EQ(TextOf(setting.group), setting.names.at(i % (setting.last + 1)))
            << type << " " << setting.group.next;
      }
    }
    const bool hasDip8 = SettingsOf(type).front().group.next == kDip8.next;
    for (int i = 1; i <= 10; ++i) {
      desk.Press(kPage, kDip8.next);
      std::string expected = "FULL SCREEN";  // a type without modes keeps the first text
      if (hasDip8) expected = HasSevenModes(type) ? kDip8Of26.at(i % 2 * 6) : kDip8Of.at(i % 5);
      ASSERT_EQ(TextOf(kDip8), expected) << type;
    }
    ASSERT_EQ(TakeCalls(), Calls{});
    device.FailNothing();
  }
}

// Filled and answered with something else than success, each read on its own.
TEST_F(SettingModels, OneFailedReadKeepsItsValueAlone) {
  for (const int type : {26, 46, 14, 50, 20, 24, 13, 23, 19, 0}) {
    const Calls reads = ReadsOf(type);
    // Which of the three each read is for: 26 reads the last two the other way round.
    const std::vector<std::size_t> order =
        type == 26 ? std::vector<std::size_t>{0, 2, 1} : std::vector<std::size_t>{0, 1, 2};
    for (std::size_t i = 0; i < reads.size(); ++i) {
      SCOPED_TRACE(Named(Box(type)) + " " + reads[i]);
      OpenAs(Box(type));
      Report(type, {0, 0, 0});
      Reread();
      Report(type, {1, 1, 1});
      device.FillAndAnswer(reads[i], 2);
      ASSERT_EQ(CallsOf(kPictureButton), reads);
      device.FailNothing();
      std::vector<int> expected = {1, 1, 1};
      expected[order[i]] = 0;
      const std::vector<Setting> settings = SettingsOf(type);
      for (std::size_t s = 0; s < settings.size(); ++s) {
        EXPECT_EQ(TextOf(settings[s].group), settings[s].names.at(expected[s])) << s;
      }
      EXPECT_EQ(CallsOf(kApplyButton), WritesOf(type, expected, kExtra));
    }
  }
}

TEST_F(SettingModels, FailedReadConfirmsNoModeAndKeepsTheExtraByte) {
  OpenAs(Box(26));
  Report(26, {0, 1, 1});
  Reread();
  desk.Press(kPage, kDip8.next);
  device.Fail(GetBlock(23));
  Reread();
  EXPECT_EQ(CallsOf(kApplyButton), WritesOf(26, {6, 1, 1}, kExtra));
  EXPECT_TRUE(desk.IsOpen(res::kCaution));
}

TEST_F(SettingModels, HardwareResetOfEveryType) {
  struct Row {
    std::initializer_list<int> types;
    std::string call;
  };
  const Row rows[] = {{{20, 21, 25, 29, 30, 33, 43}, SetWord(4, 1)},
                      {{24, 34}, SetWord(5, 1)},
                      {{18, 32}, SetWord(6, 1)},
                      {{23, 42}, SetWord(7, 1)},
                      {{13, 15}, SetWord(10, 1)},
                      {{17, 35}, SetWord(8, 0)},
                      {{37, 38, 39, 40, 46, 47, 48, 49, 50, 51}, SetBlock(1, {1})},
                      {{14, 36}, SetBlock(10, {1})}};
  for (const int type : kTypes) {
    std::string call = SetWord(3, 1);
    for (const Row& row : rows) {
      if (Has(row.types, type)) call = row.call;
    }
    OpenAs(Box(type));
    EXPECT_EQ(CallsOnPage(kPage, kReset), Calls{call}) << type;
  }
}

// A box that answers another handle is asked by the old one until the page is opened again.
TEST_F(SettingModels, HandleIsThatOfTheOpening) {
  OpenAs(Box(26));
  Report(26, {0, 1, 1});
  Reread();
  device.AnswerHandle(0x1234);
  for (int i = 0; i < 6; ++i) Tick();
  Report(26, {0, 0, 1});
  Reread();
  EXPECT_EQ(TextOf(kOsd), "Enable");
  Press(kSettingButton);
  EXPECT_EQ(TextOf(kOsd), "Disable");
}

// What was never read is sent as 0.
TEST_F(SettingModels, FirstValuesOfEveryType) {
  for (const int type : kTypes) {
    StartAs(Box(type));
    device.FailEverything();
    Press(kSettingButton);
    device.FailNothing();
    EXPECT_EQ(CallsOf(kApplyButton), WritesOf(type, {0, 0, 0}, 0)) << type;
  }
}

TEST_F(SettingModels, WithoutBoxNothingIsAskedAndNoResetIsSent) {
  box.SetPresent(false);
  Start();
  EXPECT_EQ(CallsOf(kSettingButton), Calls{});
  EXPECT_EQ(CallsOnPage(kPage, kReset), Calls{});
}

// The page is set up anew whenever it is opened; what was stepped stays pending.
TEST_F(SettingModels, OpeningTakesTheHandleAndTheFirstTextsAgain) {
  OpenAs(Box(26), 280);  // reads none of it
  desk.Press(kPage, kDip8.next);
  ASSERT_EQ(TextOf(kDip8), "Pan Scan 16 : 9");
  device.AnswerHandle(0x1234);
  Press(kReturnButton);
  for (int i = 0; i < 6; ++i) Tick();  // takes the new handle
  Press(kSettingButton);
  EXPECT_EQ(TextOf(kDip8), "FULL SCREEN");
  EXPECT_EQ(CallsOf(kApplyButton).back(), SetBlock(23, {6, 0}));
  EXPECT_EQ(box.Block(23), (Bytes{6, 0}));  // the box took it
}

}  // namespace
}  // namespace panelora::testing
