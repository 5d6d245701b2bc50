#include "pages/video/video_settings_dlg.h"

#include "pages/cycling_group.h"
#include "pages/option_table.h"
#include "res/dialog_templates.h"
#include "ui/text.h"

namespace panelora {

namespace {

using Option = CVideoSettingsDlg::Option;

constexpr int kPreviousFormat = 1033;
constexpr int kAutoPhase = 1066;
constexpr int kVideoFreeze = 1075;

constexpr int kRefreshTimer = 1;
constexpr int kRefreshDelay = 5000;  // ms: how long a box takes to change its output

constexpr std::uint32_t kEdgeEnhanceFirmware = 278;
constexpr int kByType = -1;

// A cycling control: its four controls, its texts, its options, and its last index.
struct ControlRow {
  CyclingGroup group;
  const char* caption;
  const char* firstText;
  const OptionRow* options;
  int lastIndex = 0;
};

constexpr ControlRow kControls[Option::kGroupCount] = {
    {{1020, 1017, 1019, 1018}, "Input Source", "HDMI", kInputSources, kByType},
    {{1030, 1021, 1023, 1022}, "Video Output Range", "Full Range", kOutputLevels, 1},
    {{1031, 1024, 1025, 1026}, "Aspect Ratio", "Full Screen", kAspectRatios, kByType},
    {{1032, 1027, 1028, 1029}, "Output Format", "1920x1080 p60.00", kOutputFormats, 19},
    {{1038, 1039, 1040, 1041}, "Output Mode", "AV", kNoOptions, 0},
    {{1034, 1035, 1036, 1037}, "HDMI Output Color", "RGB444", kOutputColours, 2},
    {{1043, 1042, 1044, 1045}, "Output Source", "VGA + HDMI", kOutputSources, 0},
    {{1046, 1047, 1048, 1049}, "HDMI Input EQ", "LOW", kHdmiEqs, 2},
    {{1050, 1051, 1052, 1053}, "SDI 0 EQ", "LOW", kSdiEqs, 3},
    {{1054, 1055, 1056, 1057}, "SDI 1 EQ", "LOW", kSdiEqs, 3},
    {{1062, 1063, 1064, 1065}, "CRC Error", "OFF", kErrorLeds, 1},
    {{1067, 1068, 1069, 1070}, "GPI Mode", "MODE 1", kGpiModes, 1},
    {{1078, 1114, 1077, 1079}, "Genlock Mode", "Free Run", kGenlockModes, 1},
    {{1081, 1115, 1080, 1082}, "Composite Setup Level", "0 IRE", kIreLevels, 1},
    {{1083, 1116, 1084, 1085}, "Edge Enhance", "Disable", kEdgeEnhances, 3},
    {{1086, 1117, 1087, 1088}, "Color Up Filter", "Disable", kColourUpFilters, 1},
    {{1089, 1118, 1090, 1091}, "SDI Standard", "SD", kSdiTypes, 3},
    {{1076, 1096, 1097, 1098}, "HDMI Output Range", "Full Range", kSecondOutputLevels, 1},
    {{1095, 1099, 1100, 1101}, "SDI Output Color", "RGB444", kSdiOutputColours, 2},
    {{1102, 1103, 1104, 1105}, "HDMI Output Mode", "HDMI", kHdmiOutputModes, 1},
    {{1106, 1107, 1108, 1109}, "Image Mirror", "Hor.", kImageMirrors, 3},
    {{1110, 1111, 1112, 1113}, "SDI Re-Clock", "Enable", kReclocks, 1},
    {{1058, 1059, 1060, 1061}, "YC/CVBS Format", "PAL", kNoOptions},
    // The same texts as the GPI mode, on purpose.
    {{1071, 1072, 1073, 1074}, "GPI Mode", "MODE 1", kNoOptions},
    {{1092, 1119, 1093, 1094}, "Control Mode", "DipSwitch", kNoOptions, 0},
};

const CyclingGroup& GroupOf(Option option) { return kControls[option].group; }

// Which groups a sub-page shows, with the top of their captions.
struct PlaceRow {
  bool model26;
  int subPage;
  Option option;
  int y;
};

constexpr PlaceRow kPlaces[] = {
    {true, 0, Option::kInputSource, 15},    {true, 0, Option::kAspectRatio, 85},
    {true, 0, Option::kHdmiEq, 155},        {true, 0, Option::kOutputFormat, 225},
    {true, 1, Option::kOutputColour, 35},   {true, 1, Option::kOutputLevel, 115},
    {true, 1, Option::kEdgeEnhance, 195},   {false, 0, Option::kInputSource, 15},
    {false, 0, Option::kAspectRatio, 85},   {false, 0, Option::kOutputSource, 155},
    {false, 0, Option::kOutputFormat, 225},
};

constexpr int kLeft = 50;
constexpr int kNextX = 360;

// Types that can pass their input through, and how they report the change of their output.
struct PassThroughRow {
  std::uint8_t boxType;
  bool refreshesWhole;  // otherwise by word::kPassThroughReport and kOutputFormatReport
};
constexpr PassThroughRow kPassThroughTypes[] = {
    {24, true}, {34, true}, {30, true}, {43, true}, {20, false}, {33, false},
};

const PassThroughRow* FindPassThrough(std::uint8_t boxType) {
  for (const PassThroughRow& row : kPassThroughTypes) {
    if (row.boxType == boxType) return &row;
  }
  return nullptr;
}

// Types with many inputs, of which one is analogue VGA: they can adjust its sampling phase.
bool HasManyInputs(std::uint8_t boxType) {
  return boxType == 23 || boxType == 42 || boxType == 25 || boxType == 29;
}
constexpr std::uint8_t kVgaInput = 2;

}  // namespace

CVideoSettingsDlg::CVideoSettingsDlg(PanelContext context) : Page(res::kVideoSettings, context) {}

void CVideoSettingsDlg::Init() {
  TakeHandle();
  selection[kOutputLevel] = 0;
  passThrough.reset();
  for (const ControlRow& row : kControls) {
    SetUpGroup(Window(), row.group, row.caption, row.firstText);
    Window().SetFont(row.group.value, ui::kValueFont);
  }
  if (panel.identity.brandCode == 3) {
    Window().SetText(GroupOf(kOutputLevel).label, "HDMI Output Range");
  }
  const auto button = [&](int control, const char* text) {
    Window().SetFont(control, ui::kCaptionFont);
    Window().SetText(control, text);
  };
  button(kPreviousFormat, "<<");
  button(kAutoPhase, "PHASE");
  button(kVideoFreeze, "Video Freeze");
  SetSubPage(panel.cycleState);
}

void CVideoSettingsDlg::SetSubPage(int number) {
  subPage = number;
  for (const ControlRow& row : kControls) ShowGroup(Window(), row.group, false);
  for (const int control : {kPreviousFormat, kAutoPhase, kVideoFreeze}) {
    Window().ShowControl(control, false);
  }
  for (const PlaceRow& place : kPlaces) {
    if (place.model26 != IsModel26() || place.subPage != subPage) continue;
    if (place.option == kEdgeEnhance && !HasEdgeEnhance()) continue;
    const CyclingGroup& group = GroupOf(place.option);
    PlaceGroup(Window(), group, {kLeft, place.y}, kNextX);
    ShowGroup(Window(), group, true);
    if (place.option != kOutputFormat) continue;
    Window().PlaceControl(group.value, {kLeft + 10, place.y + 30, 260, 30});
    Window().PlaceControl(kPreviousFormat, {kNextX, place.y + 23, 40, 39});
    Window().PlaceControl(group.next, {kNextX + 50, place.y + 23, 40, 39});
    Window().ShowControl(kPreviousFormat, true);
  }
  if (!IsModel26()) {
    Window().PlaceControl(kAutoPhase, {kNextX + 50, 38, 70, 39});  // beside the input source
    Window().PlaceControl(kVideoFreeze, {kLeft, 35, 300, 40});
    Window().ShowControl(kVideoFreeze, subPage == 1);
  }
  ShowAutoPhase();
}

// Shown only while the analogue VGA input is selected.
void CVideoSettingsDlg::ShowAutoPhase() {
  if (!HasManyInputs(panel.identity.boxType)) return;
  const OptionRow* input = Selected(kInputSource);
  Window().ShowControl(kAutoPhase, subPage == 0 && input != nullptr && input->value == kVgaInput);
}

bool CVideoSettingsDlg::HasEdgeEnhance() const {
  return panel.firmwareVersion >= kEdgeEnhanceFirmware;
}

const OptionRow* CVideoSettingsDlg::Selected(Option option) const {
  return FindOption(kControls[option].options, panel.identity.boxType, selection[option]);
}

// A selection without a row leaves the text.
void CVideoSettingsDlg::ShowSelected(Option option) {
  const OptionRow* row = Selected(option);
  if (row != nullptr) Window().SetText(GroupOf(option).value, row->caption);
}

// A value without a row keeps the text and can't be written back.
void CVideoSettingsDlg::SelectValue(Option option, std::uint8_t value) {
  const OptionRow* row = FindOptionValue(kControls[option].options, panel.identity.boxType, value);
  selection[option] = row != nullptr ? row->index : kTableEnd;
  if (row != nullptr) Window().SetText(GroupOf(option).value, row->caption);
}

void CVideoSettingsDlg::SelectIndex(Option option, std::uint8_t index) {
  selection[option] = index;
  ShowSelected(option);
}

int CVideoSettingsDlg::LastIndex(Option option) const {
  if (kControls[option].lastIndex != kByType) return kControls[option].lastIndex;
  if (option == kAspectRatio) return LastAspectRatio();
  switch (panel.identity.boxType) {
    case 26:
    case 50:
      return 2;
    case 23:
    case 42:
      return 6;
    case 25:
    case 29:
      return 4;
    default:
      return 1;
  }
}

int CVideoSettingsDlg::LastAspectRatio() const {
  const Identity& id = panel.identity;
  const std::uint32_t firmware = panel.firmwareVersion;
  switch (id.boxType) {
    case 26:
      return firmware >= 278 ? 6 : 5;
    case 50:
      return 6;
    case 23:
    case 42:
    case 30:
    case 43:
      return 3;
    case 21:
    case 46:
    case 47:
    case 48:
    case 49:
    case 39:
    case 40:
    case 37:
    case 38:
      return 4;
    case 20:
    case 33:
      return id.brandCode == 2 && firmware > 289 ? 4 : 2;
    case 18:
    case 32:
      return id.brandCode == 2 && firmware > 293 ? 4 : 2;
    case 24:
    case 34:
      return id.inputDipFlag != 1 || id.brandCode == 2 ? 5 : 3;
    case 25:
      return id.brandCode == 0 && firmware >= 265 ? 7 : 2;
    case 29:
      return (id.brandCode == 0 && firmware >= 265) || id.brandCode == 2 ||
                     (id.brandCode == 1 && id.outputDipFlag == 1)
                 ? 7
                 : 2;
    default:
      return 2;
  }
}

void CVideoSettingsDlg::OnCommand(int control, ui::Notification what) {
  using Dlg = CVideoSettingsDlg;
  static constexpr CommandRow<CVideoSettingsDlg> kCommands[] = {
      {1018, &Dlg::OnNextInputSource},
      {1022, &Dlg::OnNext<kOutputLevel>},
      {1026, &Dlg::OnNext<kAspectRatio>},
      {1029, &Dlg::OnNextOutputFormat},
      {1033, &Dlg::OnPreviousOutputFormat},
      {1037, &Dlg::OnNext<kOutputColour>},
      {1041, &Dlg::OnNext<kOutputMode>},
      {1045, &Dlg::OnNext<kOutputSource>},
      {1049, &Dlg::OnNext<kHdmiEq>},
      {1053, &Dlg::OnNext<kSdi0Eq>},
      {1057, &Dlg::OnNext<kSdi1Eq>},
      {1065, &Dlg::OnNext<kErrorLed>},
      {kAutoPhase, &Dlg::OnAutoPhase},
      {1070, &Dlg::OnNext<kGpiMode>},
      {kVideoFreeze, &Dlg::OnVideoFreeze},
      {1079, &Dlg::OnNextGenlockMode},
      {1082, &Dlg::OnNext<kIreLevel>},
      {1085, &Dlg::OnNext<kEdgeEnhance>},
      {1088, &Dlg::OnNext<kColourUpFilter>},
      {1091, &Dlg::OnNext<kSdiType>},
      {1098, &Dlg::OnNext<kSecondOutputLevel>},
      {1101, &Dlg::OnNext<kSdiOutputColour>},
      {1105, &Dlg::OnNextHdmiOutputMode},
      {1109, &Dlg::OnNext<kImageMirror>},
      {1113, &Dlg::OnNext<kReclock>},
  };
  DispatchCommand(*this, kCommands, control, what);
}

void CVideoSettingsDlg::Next(Option option) {
  const int next = selection[option] + 1;
  selection[option] = static_cast<std::uint8_t>(next > LastIndex(option) ? 0 : next);
  ShowSelected(option);
}

void CVideoSettingsDlg::OnNextInputSource() {
  Next(kInputSource);
  ShowAutoPhase();
}

// Steps 1 to 19 and back to 1: index 0 is never reached.
void CVideoSettingsDlg::OnNextOutputFormat() {
  const int next = selection[kOutputFormat] + 1;
  SelectIndex(kOutputFormat, static_cast<std::uint8_t>(next > LastIndex(kOutputFormat) ? 1 : next));
}

void CVideoSettingsDlg::OnPreviousOutputFormat() {
  const int last = LastIndex(kOutputFormat);
  const int next = selection[kOutputFormat] - 1;
  SelectIndex(kOutputFormat, static_cast<std::uint8_t>(next < 1 || next > last ? last : next));
}

// Only a free-running box lets its output format be chosen.
void CVideoSettingsDlg::OnNextGenlockMode() {
  Next(kGenlockMode);
  const bool freeRun = selection[kGenlockMode] == 0;
  Window().EnableControl(GroupOf(kOutputFormat).next, freeRun);
  Window().EnableControl(kPreviousFormat, freeRun);
}

// DVI carries RGB only.
void CVideoSettingsDlg::OnNextHdmiOutputMode() {
  Next(kHdmiOutputMode);
  const bool hdmi = selection[kHdmiOutputMode] == 1;
  const CyclingGroup& colour = GroupOf(kOutputColour);
  Window().EnableControl(colour.next, hdmi);
  if (hdmi) {
    ShowSelected(kOutputColour);
  } else {
    Window().SetText(colour.value, "RGB444");
  }
}

void CVideoSettingsDlg::OnAutoPhase() { WriteBlock(block::kVideoAutoPhase, {1}); }

void CVideoSettingsDlg::OnVideoFreeze() {
  constexpr std::uint32_t kToggle = 11;
  const Identity& id = panel.identity;
  const bool scaler = id.boxType == 24 || id.boxType == 34;
  if (scaler && id.inputDipFlag != 1 && id.brandCode != 2) {
    WriteWord(word::kFreeze, kToggle);
    return;
  }
  WriteBlock(block::kVideoFreeze, {1});
  if (id.boxType == 25 || id.boxType == 29) WriteWord(word::kFreezeSecond, kToggle);
}

// A control whose value is its index.
void CVideoSettingsDlg::RefreshWord(Option option, std::uint32_t item) {
  std::uint8_t index = 0;
  if (ReadWord(item, index)) SelectIndex(option, index);
}

void CVideoSettingsDlg::RefreshBlock(Option option, std::uint8_t property) {
  BlockBuffer bytes{};
  if (ReadBlock(property, 2, bytes)) SelectValue(option, bytes[0]);
}

void CVideoSettingsDlg::Refresh(ui::SerialHandle serial) {
  serialHandle = serial;
  subPage = panel.cycleState;
  if (!IsModel26()) {
    RefreshOtherTypes();
    return;
  }
  std::uint8_t value = 0;
  if (subPage == 0) {
    if (ReadWord(word::kInputSource, value)) SelectValue(kInputSource, value);
    if (ReadWord(word::kOutputFormat, value)) {
      lastFormatCode = value;
      SelectValue(kOutputFormat, value);
    }
    RefreshWord(kAspectRatio, word::kAspectRatio);
    RefreshWord(kHdmiEq, word::kHdmiEq);
  } else if (subPage == 1) {
    value = 0;
    if (!ReadWord(word::kOutputColour, value)) value = 0;  // a failed read falls back to RGB444
    SelectValue(kOutputColour, value);
    RefreshWord(kOutputLevel, word::kOutputLevel);
    if (HasEdgeEnhance()) RefreshWord(kEdgeEnhance, word::kEdgeEnhance);
  }
}

void CVideoSettingsDlg::ApplyWord(Option option, std::uint32_t item) {
  const OptionRow* row = Selected(option);
  if (row != nullptr && row->index != kTableEnd) WriteWord(item, row->value);
}

void CVideoSettingsDlg::ApplyBlock(Option option, std::uint8_t property) {
  const OptionRow* row = Selected(option);
  if (row != nullptr && row->index != kTableEnd) WriteBlock(property, {row->value});
}

void CVideoSettingsDlg::Apply() {
  if (!IsModel26()) {
    ApplyOtherTypes();
    return;
  }
  if (subPage == 0) {
    ApplyWord(kInputSource, word::kInputSource);
    ApplyWord(kOutputFormat, word::kOutputFormat);
    ApplyWord(kAspectRatio, word::kAspectRatio);
    ApplyWord(kHdmiEq, word::kHdmiEq);
  } else if (subPage == 1) {
    ApplyWord(kOutputColour, word::kOutputColour);
    ApplyWord(kOutputLevel, word::kOutputLevel);
    if (HasEdgeEnhance()) ApplyWord(kEdgeEnhance, word::kEdgeEnhance);
  }
}

void CVideoSettingsDlg::RefreshOtherTypes() {
  if (subPage != 0 || panel.identity.boxType == kNoBoxType) return;
  RefreshBlock(kInputSource, block::kVideoInputSource);
  BlockBuffer bytes{};
  if (ReadBlock(block::kVideoOutputFormat, 2, bytes)) {
    lastFormatCode = bytes[0];
    SelectValue(kOutputFormat, lastFormatCode);
  }
  RefreshBlock(kOutputSource, block::kVideoOutputSource);
  if (ReadBlock(block::kVideoAspectRatio, 2, bytes)) SelectIndex(kAspectRatio, bytes[0]);
  if (FindPassThrough(panel.identity.boxType) != nullptr &&
      ReadBlock(block::kVideoPassThrough, 2, bytes)) {
    passThrough = bytes[0];
  }
  ShowAutoPhase();
}

void CVideoSettingsDlg::ApplyOtherTypes() {
  if (subPage != 0) return;
  ApplyBlock(kInputSource, block::kVideoInputSource);
  ApplyBlock(kOutputFormat, block::kVideoOutputFormat);
  ApplyBlock(kOutputSource, block::kVideoOutputSource);
  ApplyBlock(kAspectRatio, block::kVideoAspectRatio);
  if (FindPassThrough(panel.identity.boxType) == nullptr) return;
  if (!passThrough) return;  // was never read: nobody knows what to write
  WriteBlock(block::kVideoPassThrough, {*passThrough});
  timerRuns = Window().StartTimer(kRefreshTimer, kRefreshDelay);
}

// What the box puts out now: its input's format passed through, or a format of its own. A failed
// read changes nothing, and a format without a row is not named.
void CVideoSettingsDlg::ShowFormatReport() {
  std::uint8_t reported = 0;
  std::uint8_t code = 0;
  const bool told = ReadWord(word::kPassThroughReport, reported);
  if (!ReadWord(word::kOutputFormatReport, code) || !told) return;
  const OptionRow* format = FindOptionValue(kOutputFormats, panel.identity.boxType, code);
  const CyclingGroup& group = GroupOf(kOutputFormat);
  if (reported == 1) {
    if (format != nullptr) {
      Window().SetText(group.label, ui::Format("Output Format ( %s)", format->caption));
    }
    Window().SetText(group.value, "Pass Through");
    return;
  }
  lastFormatCode = code;
  Window().SetText(group.label, "Output Format ");
  if (format != nullptr) SelectIndex(kOutputFormat, format->index);
}

// Some seconds after Apply: what the box made of it.
void CVideoSettingsDlg::OnTimer(int /*timer*/) {
  toolkit.DebugOutput("START VIDEO SETTING TIMER !!\n");
  const PassThroughRow* row = FindPassThrough(panel.identity.boxType);
  if (row != nullptr && row->refreshesWhole) {
    Refresh(serialHandle);
  } else {
    ShowFormatReport();
  }
  if (timerRuns) StopTimer();
}

void CVideoSettingsDlg::StopTimer() {
  Window().StopTimer(kRefreshTimer);
  timerRuns = false;
}

}  // namespace panelora
