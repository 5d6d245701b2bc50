// The Video settings page of every box type, against a list of its own: what each sub-page shows
// where, what every value that a box can report shows, and exactly what is read and written.
#include <optional>

#include "tests/support/model_walk.h"

namespace panelora::testing {
namespace {

constexpr int kPage = res::kVideoSettings;

constexpr Group kInput = {1020, 1017, 1019, 1018};
constexpr Group kAspect = {1031, 1024, 1025, 1026};
constexpr Group kFormat = {1032, 1027, 1028, 1029};
constexpr Group kOutputSource = {1043, 1042, 1044, 1045};
constexpr Group kColour = {1034, 1035, 1036, 1037};
constexpr Group kLevel = {1030, 1021, 1023, 1022};
constexpr Group kEq = {1046, 1047, 1048, 1049};
constexpr Group kEdge = {1083, 1116, 1084, 1085};
constexpr int kFormatBack = 1033;
constexpr int kAutoPhase = 1066;
constexpr int kFreeze = 1075;

struct Option {
  int index;
  const char* text;
  int value;
};
using Options = std::vector<Option>;

const Options kFormats = {
    {1, "1920x1080 60.00p", 15},  {2, "1920x1080 59.94p", 16},  {3, "1920x1080 50.00p", 17},
    {4, "1920x1080 30.00p", 18},  {5, "1920x1080 29.97p", 19},  {6, "1920x1080 25.00p", 20},
    {7, "1920x1080 24.00p", 21},  {8, "1920x1080 23.98p", 22},  {9, "1920x1080 60.00i", 12},
    {10, "1920x1080 59.94i", 13}, {11, "1920x1080 50.00i", 14}, {12, "1280x720 60.00p", 6},
    {13, "1280x720 59.94p", 7},   {14, "1280x720 50.00p", 8},   {15, "720x480 60.00p", 3},
    {16, "720x480 59.94p", 4},    {17, "720x576 50.00p", 5},    {18, "720x480 59.94i", 1},
    {19, "720x576 50.00i", 2}};

Options InputsOf(int type) {
  switch (type) {
    case 26:
    case 50:
      return {{0, "VGA", 2}, {1, "HDMI", 1}, {2, "SDI", 4}};
    case 24:
    case 34:
      return {{0, "SDI", 0}, {1, "HDMI", 1}};
    case 48:
    case 49:
      return {{0, "SDI 1", 0}, {1, "SDI 2", 1}};
    case 27:
      return {{0, "CH 1", 0}, {1, "CH 2", 1}};
    case 25:
    case 29:
      return {{0, "DVI-D (HDMI)", 1},
              {1, "DVI-A (VGA)", 2},
              {2, "Component (YPbPr)", 3},
              {3, "Composite (CVBS)", 4},
              {4, "S-Video (YC)", 5}};
    case 23:
    case 42:
      return {{0, "HDMI", 0}, {1, "DVI-D", 1}, {2, "DVI-A", 2},  {3, "YPbPr", 3},
              {4, "SDI", 4},  {5, "CVBS", 5},  {6, "S-VIDEO", 6}};
    default:
      return {};
  }
}
int LastInput(int type) {
  if (type == 26 || type == 50) return 2;
  if (type == 23 || type == 42) return 6;
  return type == 25 || type == 29 ? 4 : 1;
}

Options AspectsOf(int type) {
  if (type == 26 || type == 50) {
    return {{0, "Keep Aspect Ratio", 0},
            {1, "Full Screen (16:9)", 1},
            {2, "Dot By Dot", 2},
            {3, "4 : 3", 3},
            {4, "14 : 9", 4},
            {5, "UnderScan", 5},
            {6, "Pan Scan 16 : 9", 6}};
  }
  return {{0, "16 : 9", 0},
          {1, "4 : 3", 1},
          {2, "Dot By Dot", 2},
          {3, "Keep Aspect Ratio", 3},
          {4, "Full Screen", 4}};
}
int LastAspect(const Identity& box, std::uint32_t firmware) {
  const int type = box.boxType;
  const int brand = box.brandCode;
  if (type == 26) return firmware < 278 ? 5 : 6;
  if (type == 50) return 6;
  if (Has({23, 42, 30, 43}, type)) return 3;
  if (Has({21, 46, 47, 48, 49, 39, 40, 37, 38}, type)) return 4;
  if (Has({20, 33}, type) && brand == 2 && firmware >= 290) return 4;
  if (Has({18, 32}, type) && brand == 2 && firmware >= 294) return 4;
  if (Has({24, 34}, type)) return box.inputDipFlag == 1 && brand != 2 ? 3 : 5;
  if (Has({25, 29}, type) && brand == 0 && firmware >= 265) return 7;
  if (type == 29 && brand == 2) return 7;
  if (type == 29 && brand == 1 && box.outputDipFlag == 1) return 7;
  return 2;
}

bool PassesThrough(int type) { return Has({24, 34, 30, 43, 20, 33}, type); }
bool HasPhase(int type) { return Has({23, 42, 25, 29}, type); }

// A setting that is read, stepped and written: word item (26) or block.
struct Setting {
  Group group;
  int address;
  Options options;
  bool readsIndex;  // of what is read, the index of the row and not its value
  int last;
  int first = 0;
};

using Settings = std::vector<Setting>;

// In the order in which they are read and written.
Settings SettingsOf(const Identity& box, std::uint32_t firmware, int subPage) {
  const int type = box.boxType;
  const Setting input = {kInput, type == 26 ? 4 : 3, InputsOf(type), false, LastInput(type)};
  const Setting format = {kFormat, type == 26 ? 2 : 4, kFormats, false, 19, 1};
  const Setting aspect = {kAspect, type == 26 ? 7 : 15, AspectsOf(type), true,
                          LastAspect(box, firmware)};
  if (type != 26) {
    if (subPage != 0) return {};
    return {input, format, {kOutputSource, 5, {{0, "VGA + HDMI", 0}}, false, 0}, aspect};
  }
  if (subPage == 0) {
    return {input,
            format,
            aspect,
            {kEq, 12, {{2, "LOW", 2}, {0, "MIDDLE", 0}, {1, "HIGH", 1}}, true, 2}};
  }
  Settings settings = {
      {kColour, 10, {{0, "RGB444", 0}, {1, "YUV444", 1}, {2, "YUV422", 3}}, false, 2},
      {kLevel, 15, {{0, "Limit Range", 0}, {1, "Full Range", 1}}, true, 1}};
  if (firmware >= 278) {
    settings.push_back(
        {kEdge, 19, {{0, "Disable", 0}, {1, "Min", 1}, {2, "Mid", 2}, {3, "Max", 3}}, true, 3});
  }
  return settings;
}

const Option* At(const Options& options, int index) {
  for (const Option& option : options) {
    if (option.index == index) return &option;
  }
  return nullptr;
}

// What is selected after a read.
int Selected(const Setting& setting, int read) {
  if (setting.readsIndex) return read;
  for (const Option& option : setting.options) {
    if (option.value == read) return option.index;
  }
  return 255;
}

void PlaceFour(Places& places, const Group& group, int top) {
  places[group.label] = {50, top, 300, 20};
  places[group.frame] = {50, top + 15, 300, 48};
  places[group.value] = {60, top + 30, 250, 30};
  places[group.next] = {360, top + 23, 40, 39};
}

// Of the types other than 26; `phase`: the analogue input is selected.
Places ExpectedPlaces(int type, int subPage, bool phase) {
  Places places;
  if (subPage == 1) places[kFreeze] = {50, 35, 300, 40};
  if (subPage != 0) return places;
  PlaceFour(places, kInput, 15);
  PlaceFour(places, kAspect, 85);
  PlaceFour(places, kOutputSource, 155);
  PlaceFour(places, kFormat, 225);
  places[kFormat.value] = {60, 255, 260, 30};
  places[kFormatBack] = {360, 248, 40, 39};
  places[kFormat.next] = {410, 248, 40, 39};
  if (phase && HasPhase(type)) places[kAutoPhase] = {410, 38, 70, 39};
  return places;
}

class VideoTables : public ModelWalk {
 protected:
  void OpenAs(const Identity& identity, std::uint32_t firmware = 0x0126, int subPage = 0) {
    StartAs(identity, firmware);
    panel->OpenPage(PageCode::kVideoSettings);
    for (int i = 0; i < subPage; ++i) Press(kPageUpButton);
    TakeCalls();
  }
  void ReportTo(const Identity& identity, int address, int value) {
    if (identity.boxType == 26) {
      ReportWord(address, value);
    } else {
      Report(address, {static_cast<std::uint8_t>(value), 0x77});
    }
  }
  static Calls Reads(const Identity& identity, const Settings& settings) {
    Calls calls;
    for (const Setting& setting : settings) {
      calls.push_back(identity.boxType == 26 ? GetWord(setting.address)
                                             : GetBlock(setting.address));
    }
    if (PassesThrough(identity.boxType) && !settings.empty()) calls.push_back(GetBlock(8));
    return calls;
  }
  static Calls Writes(const Identity& identity, const Settings& settings,
                      const std::vector<int>& selected) {
    Calls calls;
    for (std::size_t i = 0; i < settings.size(); ++i) {
      const Option* option = At(settings[i].options, selected[i]);
      if (option == nullptr) continue;
      calls.push_back(identity.boxType == 26 ? SetWord(settings[i].address, option->value)
                                             : SetBlock(settings[i].address, {option->value}));
    }
    if (PassesThrough(identity.boxType) && !settings.empty()) calls.push_back(SetBlock(8, {0}));
    return calls;
  }
  std::string TextOf(const Group& group) { return desk.Text(kPage, group.value); }

  // Every value of each setting, and a step from there: text, Apply's calls, nothing else written.
  void Walk(const Identity& identity, std::uint32_t firmware, int subPage,
            const std::vector<int>& values) {
    OpenAs(identity, firmware, subPage);
    const Settings settings = SettingsOf(identity, firmware, subPage);
    std::vector<int> selected;
    for (const Setting& setting : settings) {
      const int start = setting.options.empty() ? 0 : setting.options.front().value;
      ReportTo(identity, setting.address, start);
      selected.push_back(Selected(setting, start));
    }
    ASSERT_EQ(CallsOf(kPictureButton), Reads(identity, settings));
    for (std::size_t i = 0; i < settings.size(); ++i) {
      const Setting& setting = settings[i];
      const int start = selected[i];
      std::string shown = TextOf(setting.group);
      ASSERT_TRUE(setting.options.empty() || shown == setting.options.front().text);
      const auto expect = [&](int index) {
        selected[i] = index;
        const Option* option = At(setting.options, index);
        if (option != nullptr) shown = option->text;
        if (setting.group.next == kEdge.next && index == 255) shown = "Error";
        ASSERT_EQ(TextOf(setting.group), shown);
        ASSERT_EQ(CallsOf(kApplyButton), Writes(identity, settings, selected));
      };
      for (const int value : values) {
        SCOPED_TRACE("address " + std::to_string(setting.address) + " value " +
                     std::to_string(value));
        ReportTo(identity, setting.address, value);
        ASSERT_EQ(CallsOf(kPictureButton), Reads(identity, settings));
        const int read = Selected(setting, value);
        ASSERT_NO_FATAL_FAILURE(expect(read));
        ASSERT_EQ(CallsOnPage(kPage, setting.group.next), Calls{});
        ASSERT_NO_FATAL_FAILURE(expect(read + 1 > setting.last ? setting.first : read + 1));
        if (setting.group.next != kFormat.next) continue;
        ReportTo(identity, setting.address, value);
        Reread();
        ASSERT_NO_FATAL_FAILURE(expect(read));
        ASSERT_EQ(CallsOnPage(kPage, kFormatBack), Calls{});
        ASSERT_NO_FATAL_FAILURE(expect(read <= 1 || read > 20 ? 19 : read - 1));
      }
      // Back to where the walk began.
      const Option* option = At(setting.options, start);
      ReportTo(identity, setting.address, option == nullptr ? 0 : option->value);
      Reread();
      selected[i] = option == nullptr ? 255 : start;
    }
  }
};

std::vector<int> UpTo(int last) {
  std::vector<int> values;
  for (int value = 0; value <= last; ++value) values.push_back(value);
  values.push_back(254);
  values.push_back(255);
  return values;
}

TEST_F(VideoTables, EveryValueOfModel26IsShownSteppedAndWritten) {
  for (const std::uint32_t firmware : {0U, 277U, 278U, 400U}) {
    for (const int subPage : {0, 1}) {
      SCOPED_TRACE("firmware " + std::to_string(firmware) + " sub-page " + std::to_string(subPage));
      Walk(Box(26), firmware, subPage, UpTo(24));
      if (HasFatalFailure()) return;
    }
  }
}

TEST_F(VideoTables, EveryValueOfEveryOtherTypeIsShownSteppedAndWritten) {
  for (const int type : kTypes) {
    if (type == 26) continue;
    SCOPED_TRACE(Named(Box(type)));
    const bool named = !InputsOf(type).empty();
    Walk(Box(type), 0x0126, 0, named ? UpTo(23) : std::vector<int>{0, 1, 4, 5, 15, 22, 23, 255});
    if (HasFatalFailure()) return;
  }
}

// By how many presses the first name comes back, also through indices that have none.
TEST_F(VideoTables, AspectRatioOfEveryIdentityWrapsAtItsLastIndex) {
  const auto expectWrap = [&](const Identity& identity, std::uint32_t firmware) {
    OpenAs(identity, firmware);
    ReportTo(identity, identity.boxType == 26 ? 7 : 15, 0);
    Reread();
    const Options options = AspectsOf(identity.boxType);
    const int last = LastAspect(identity, firmware);
    for (int index = 1; index <= last; ++index) {
      desk.Press(kPage, kAspect.next);
      const auto named = std::min<std::size_t>(static_cast<std::size_t>(index), options.size() - 1);
      ASSERT_EQ(TextOf(kAspect), options[named].text)
          << Named(identity) << " firmware " << firmware << " index " << index;
    }
    desk.Press(kPage, kAspect.next);
    ASSERT_EQ(TextOf(kAspect), options[0].text) << Named(identity) << " firmware " << firmware;
  };
  for (const int type : kTypes) {
    ASSERT_NO_FATAL_FAILURE(expectWrap(Box(type, 1), 0x0126));
  }
  for (const int type : {18, 20, 32, 33}) {
    for (const int brand : {1, 2}) {
      for (const std::uint32_t firmware : {289U, 290U, 293U, 294U}) {
        ASSERT_NO_FATAL_FAILURE(expectWrap(Box(type, brand), firmware));
      }
    }
  }
  for (const int brand : {0, 1, 2}) {
    for (const int dip : {0, 1, 2}) {
      for (const int type : {24, 34}) {
        ASSERT_NO_FATAL_FAILURE(expectWrap(Box(type, brand, dip, 0), 265));
      }
      for (const int type : {25, 29}) {
        ASSERT_NO_FATAL_FAILURE(expectWrap(Box(type, brand, 0, dip), 265));
        ASSERT_NO_FATAL_FAILURE(expectWrap(Box(type, brand, 1, dip), 264));
      }
    }
  }
}

TEST_F(VideoTables, SubPagesOfEveryOtherType) {
  for (const int type : kTypes) {
    if (type == 26) continue;
    for (const int brand : {0, 2}) {
      if (brand == 2 && !Has({20, 24, 34, 37, 38}, type)) continue;
      const Identity identity = Box(type, brand);
      SCOPED_TRACE(Named(identity));
      OpenAs(identity);
      Report(3, {2, 0});
      Reread();
      TakeCalls();
      const bool three = (Has({24, 34}, type) && brand == 2) || (Has({37, 38}, type) && brand != 2);
      const int count = three ? 3 : 2;
      for (int i = 0; i <= count; ++i) {
        const int subPage = i % count;
        ASSERT_EQ(ShownOn(kPage), ExpectedPlaces(type, subPage, true)) << subPage;
        if (subPage != 0) {  // has nothing to tell
          ASSERT_EQ(CallsOf(kApplyButton), Calls{});
          ASSERT_EQ(desk.TimerPeriod(kPage, 1), 0);
          ASSERT_EQ(CallsOf(kPictureButton), Calls{});
        }
        Press(kPageUpButton);
      }
      Press(kReturnButton);  // the first sub-page comes back
      panel->OpenPage(PageCode::kVideoSettings);
      Report(3, {1, 0});
      Reread();
      ASSERT_EQ(ShownOn(kPage), ExpectedPlaces(type, 0, false));
      Report(3, {2, 0});
      Reread();
      ASSERT_EQ(ShownOn(kPage), ExpectedPlaces(type, 0, true));
    }
  }
}

// A setting that steps through its names and is neither read nor written on the types shown here.
struct Stepped {
  int next;
  int text;
  std::vector<int> types;  // none: all of them
  Texts names;             // from index 0, which is selected at the start

  bool Serves(int type) const {
    return types.empty() || std::find(types.begin(), types.end(), type) != types.end();
  }
};
const Stepped kStepped[] = {{1053, 1052, {24, 34}, {"DISABLE", "SMALL", "MEDIUM", "LARGE"}},
                            {1057, 1056, {24, 34}, {"DISABLE", "SMALL", "MEDIUM", "LARGE"}},
                            {1065, 1064, {24, 34}, {"OFF", "ON"}},
                            {1070, 1069, {24, 34}, {"Pulse", "Level"}},
                            {1082, 1080, {23, 42}, {"0   IRE", "7.5 IRE"}},
                            {1082, 1080, {25, 29}, {"7.5 IRE", "0   IRE"}},
                            {1079, 1077, {30, 43, 46, 47, 50}, {"Free-Run", "External"}},
                            {1079, 1077, {39, 40, 48, 49}, {"Free-Run", "SDI-In"}},
                            {1022, 1023, {26}, {"Limit Range", "Full Range"}},
                            {1037, 1036, {26}, {"RGB444", "YUV444", "YUV422"}},
                            {1085, 1084, {}, {"Disable", "Min", "Mid", "Max"}},
                            {1088, 1087, {}, {"Disable", "Enable"}},
                            {1091, 1090, {}, {"SD", "HD", "3GA", "3GB"}},
                            {1098, 1097, {}, {"Limit Range", "Full Range"}},
                            {1101, 1100, {}, {"RGB444", "YUV444", "YUV422"}},
                            {1109, 1108, {}, {"Disable", "Hor.", "Ver.", "Hor. + Ver."}},
                            {1113, 1112, {}, {"Disable", "Enable"}},
                            {1105, 1104, {}, {"DVI", "HDMI"}}};
// They have the names of no type.
const std::pair<int, int> kNameless[] = {{1041, 1040}, {1061, 1060}, {1074, 1073}, {1094, 1093}};

TEST_F(VideoTables, SettingsThatAreNotWrittenStepThroughTheirNames) {
  for (const int type : kTypes) {
    SCOPED_TRACE(Named(Box(type)));
    OpenAs(Box(type));
    const Calls before = CallsOf(kApplyButton);
    std::map<int, Texts> namesOf;
    std::map<int, int> textOf(std::begin(kNameless), std::end(kNameless));
    if (type != 26) textOf[1049] = 1048;  // which reads and writes it
    for (const Stepped& each : kStepped) {
      textOf[each.next] = each.text;
      if (each.Serves(type)) namesOf[each.next] = each.names;
    }
    for (const auto& [next, text] : textOf) {
      const Texts& names = namesOf[next];
      const std::string first = desk.Text(kPage, text);
      for (std::size_t i = 1; i <= 9; ++i) {
        desk.Press(kPage, next);
        ASSERT_EQ(desk.Text(kPage, text), names.empty() ? first : names[i % names.size()])
            << next << " press " << i;
      }
    }
    ASSERT_EQ(CallsOf(kApplyButton), before);
  }
}

TEST_F(VideoTables, GenlockModeLocksTheFormatButtonsOfEveryType) {
  for (const int type : kTypes) {
    OpenAs(Box(type));
    for (const bool freeRun : {false, true, false}) {
      desk.Press(kPage, 1079);
      ASSERT_EQ(desk.Enables(kPage, kFormat.next), freeRun) << type;
      ASSERT_EQ(desk.Enables(kPage, kFormatBack), freeRun) << type;
    }
  }
}

TEST_F(VideoTables, ImmediateButtonsOfEveryIdentity) {
  for (const int type : kTypes) {
    for (const int brand : {0, 2}) {
      for (const int dip : {0, 1, 2}) {
        if (dip + brand != 0 && !Has({20, 24, 34, 25, 29}, type)) continue;
        const Identity identity = Box(type, brand, dip, 1);
        SCOPED_TRACE(Named(identity));
        OpenAs(identity);
        EXPECT_EQ(CallsOnPage(kPage, kAutoPhase), Calls{SetBlock(13, {1})});
        Calls freeze = {SetBlock(19, {1})};
        if (Has({24, 34}, type) && dip != 1 && brand != 2) freeze = {SetWord(19, 11)};
        if (Has({25, 29}, type)) freeze.push_back(SetWord(23, 11));
        EXPECT_EQ(CallsOnPage(kPage, kFreeze), freeze);
      }
    }
  }
}

TEST_F(VideoTables, PassThroughRequestGoesBackAndStartsTheTimer) {
  for (const int type : kTypes) {
    SCOPED_TRACE(Named(Box(type)));
    OpenAs(Box(type));
    for (const int request : {0, 1, 2, 255}) {
      Report(8, {static_cast<std::uint8_t>(request), 0x77});
      Reread();
      const Calls sent = CallsOf(kApplyButton);
      const std::string call = SetBlock(8, {request});
      ASSERT_EQ(!sent.empty() && sent.back() == call, PassesThrough(type)) << request;
      ASSERT_EQ(std::count(sent.begin(), sent.end(), call), PassesThrough(type) ? 1 : 0);
      ASSERT_EQ(desk.TimerPeriod(kPage, 1), PassesThrough(type) ? 5000 : 0);
    }
  }
}

TEST_F(VideoTables, TimerTellsOfEveryFormatOnTypesThatReportIt) {
  for (const int type : {20, 33}) {
    OpenAs(Box(type));
    std::string caption = "Output Format";
    std::string text = TextOf(kFormat);
    for (const int report : {0, 1, 2, 255}) {
      for (const int code : UpTo(24)) {
        SCOPED_TRACE(Named(Box(type)) + " report " + std::to_string(report) + " code " +
                     std::to_string(code));
        Press(kApplyButton);
        ReportWord(17, report);
        ReportWord(1, code);
        TakeCalls();
        desk.Tick(kPage, 1);
        ASSERT_EQ(TakeCalls(), (Calls{GetWord(17), GetWord(1)}));
        const char* name = nullptr;
        for (const Option& option : kFormats) {
          if (option.value == code) name = option.text;
        }
        if (report == 1) {
          if (name != nullptr) caption = std::string("Output Format ( ") + name + ")";
          text = "Pass Through";
        } else {
          caption = "Output Format ";
          if (name != nullptr) text = name;
        }
        ASSERT_EQ(desk.Text(kPage, kFormat.label), caption);
        ASSERT_EQ(TextOf(kFormat), text);
        ASSERT_EQ(desk.TimerPeriod(kPage, 1), 0);
      }
    }
  }
}

TEST_F(VideoTables, Brand3CallsTheRangeOfEveryTypeHdmiOutputRange) {
  for (const int type : kTypes) {
    for (const int brand : {0, 2, 3, 4}) {
      if (!Has({0, 20, 24, 26, 50, 51}, type)) continue;
      StartAs(Box(type, brand));
      EXPECT_EQ(desk.Text(kPage, kLevel.label),
                brand == 3 ? "HDMI Output Range" : "Video Output Range")
          << Named(Box(type, brand));
    }
  }
  // Also when another box is connected.
  StartAs(Box(26, 3));
  box.SetPresent(false);
  Tick();
  box.Become(Box(26, 1), 0x0126);
  box.SetPresent(true);
  Tick();
  EXPECT_EQ(desk.Text(kPage, kLevel.label), "Video Output Range");
}

TEST_F(VideoTables, ButtonsOutsideTheGroupsHaveTheirFont) {
  StartAs(Box(24));
  for (const int control : {kFormatBack, kAutoPhase, kFreeze}) {
    EXPECT_EQ(desk.FontOf(kPage, control), (ui::Font{"Arial", 120})) << control;
  }
}

// Initialising puts the output level back and no other selection.
TEST_F(VideoTables, SelectionsOutliveAConnectionChange) {
  OpenAs(Box(26));
  ReportWord(4, 4);
  ReportWord(2, 7);
  ReportWord(7, 3);
  ReportWord(12, 1);
  Reread();
  const Calls chosen = CallsOf(kApplyButton);
  ASSERT_EQ(chosen, (Calls{SetWord(4, 4), SetWord(2, 7), SetWord(7, 3), SetWord(12, 1)}));
  box.SetPresent(false);
  for (int i = 0; i < 6; ++i) Tick();
  box.SetPresent(true);
  Tick();
  device.FailEverything();
  panel->OpenPage(PageCode::kVideoSettings);
  device.FailNothing();
  EXPECT_EQ(CallsOf(kApplyButton), chosen);
}

// Filled and answered with something else than success, each read on its own.
TEST_F(VideoTables, OneFailedReadKeepsItsSelectionAlone) {
  struct Case {
    int type;
    int subPage;
  };
  for (const Case& each : {Case{26, 0}, Case{26, 1}, Case{50, 0}, Case{24, 0}, Case{25, 0}}) {
    const Identity identity = Box(each.type);
    const Settings settings = SettingsOf(identity, 0x0126, each.subPage);
    for (std::size_t failing = 0; failing < settings.size(); ++failing) {
      SCOPED_TRACE(Named(identity) + " address " + std::to_string(settings[failing].address));
      OpenAs(identity, 0x0126, each.subPage);
      for (const Setting& setting : settings) {
        ReportTo(identity, setting.address, setting.options.back().value);
      }
      Reread();
      for (const Setting& setting : settings) {
        ReportTo(identity, setting.address, setting.options.front().value);
      }
      const std::string call = Reads(identity, settings)[failing];
      device.FillAndAnswer(call, 2);
      Reread();
      device.FailNothing();
      std::vector<int> selected;
      for (std::size_t i = 0; i < settings.size(); ++i) {
        const Setting& setting = settings[i];
        // The output colour alone falls back, to RGB444.
        const bool kept = i == failing && setting.group.next != kColour.next;
        const Option& option = kept ? setting.options.back() : setting.options.front();
        EXPECT_EQ(TextOf(setting.group), option.text);
        selected.push_back(option.index);
      }
      EXPECT_EQ(CallsOf(kApplyButton), Writes(identity, settings, selected));
    }
  }
}

// A box that answers another handle is asked by the old one until the page is initialised again.
TEST_F(VideoTables, HandleIsThatOfTheLastConnection) {
  OpenAs(Box(26));
  Press(kReturnButton);
  device.AnswerHandle(0x1234);
  for (int i = 0; i < 6; ++i) Tick();
  ReportWord(4, 4);
  panel->OpenPage(PageCode::kVideoSettings);
  EXPECT_EQ(TextOf(kInput), "HDMI");
  Press(kReturnButton);
  box.SetPresent(false);
  for (int i = 0; i < 6; ++i) Tick();
  box.SetPresent(true);
  Tick();
  panel->OpenPage(PageCode::kVideoSettings);
  EXPECT_EQ(TextOf(kInput), "SDI");
}

// What was never read is sent as its first row; there is none for the output format.
TEST_F(VideoTables, FirstSelectionsOfEveryType) {
  for (const int type : kTypes) {
    StartAs(Box(type));
    device.FailEverything();
    panel->OpenPage(PageCode::kVideoSettings);
    device.FailNothing();
    Calls expected;
    for (const Setting& setting : SettingsOf(Box(type), 0x0126, 0)) {
      const Option* option = At(setting.options, 0);
      if (option == nullptr) continue;
      expected.push_back(type == 26 ? SetWord(setting.address, option->value)
                                    : SetBlock(setting.address, {option->value}));
    }
    EXPECT_EQ(CallsOf(kApplyButton), expected) << type;  // and no pass-through
  }
}

TEST_F(VideoTables, WithoutBoxTheFirstTextsStandAndNothingIsAsked) {
  box.SetPresent(false);
  Start();
  TakeCalls();
  panel->OpenPage(PageCode::kVideoSettings);
  EXPECT_EQ(TakeCalls(), Calls{});
  EXPECT_EQ(TextOf(kInput), "HDMI");
}

}  // namespace
}  // namespace panelora::testing
