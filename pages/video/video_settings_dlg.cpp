#include "pages/video/video_settings_dlg.h"

#include <algorithm>
#include <iterator>

#include "base/text.h"
#include "pages/caption.h"
#include "res/dialog_templates.h"

namespace panelora {

namespace {

using namespace video;

constexpr int kPreviousFormat = 1033;
constexpr int kAutoPhaseButton = 1066;
constexpr int kVideoFreeze = 1075;

constexpr int kRefreshTimer = 1;
constexpr int kRefreshDelay = 5000;  // ms: how long a box takes to change its output

constexpr OptionControls kControls[] = {
    {{1020, 1017, 1019, 1018}, "HDMI"},        {{1030, 1021, 1023, 1022}, "Full Range"},
    {{1031, 1024, 1025, 1026}, "Full Screen"}, {{1032, 1027, 1028, 1029}, "1920x1080 p60.00"},
    {{1038, 1039, 1040, 1041}, "AV"},          {{1034, 1035, 1036, 1037}, "RGB444"},
    {{1043, 1042, 1044, 1045}, "VGA + HDMI"},  {{1046, 1047, 1048, 1049}, "LOW"},
    {{1050, 1051, 1052, 1053}, "LOW"},         {{1054, 1055, 1056, 1057}, "LOW"},
    {{1062, 1063, 1064, 1065}, "OFF"},         {{1067, 1068, 1069, 1070}, "MODE 1"},
    {{1078, 1114, 1077, 1079}, "Free Run"},    {{1081, 1115, 1080, 1082}, "0 IRE"},
    {{1083, 1116, 1084, 1085}, "Disable"},     {{1086, 1117, 1087, 1088}, "Disable"},
    {{1089, 1118, 1090, 1091}, "SD"},          {{1076, 1096, 1097, 1098}, "Full Range"},
    {{1095, 1099, 1100, 1101}, "RGB444"},      {{1102, 1103, 1104, 1105}, "HDMI"},
    {{1106, 1107, 1108, 1109}, "Hor."},        {{1110, 1111, 1112, 1113}, "Enable"},
};
static_assert(std::size(kControls) == kOptionCount);

// Groups without options: they are never shown, and their ">>" does nothing.
struct IdleGroup {
  CyclingGroup group;
  const char* caption;
  const char* firstText;
};
constexpr IdleGroup kIdleGroups[] = {
    {{1058, 1059, 1060, 1061}, "YC/CVBS Format", "PAL"},
    {{1071, 1072, 1073, 1074}, "GPI Mode", "MODE 1"},  // as the GPI mode, on purpose
    {{1092, 1119, 1093, 1094}, "Control Mode", "DipSwitch"},
};

constexpr int kLeft = 50;
constexpr int kNextX = 360;

const CyclingGroup& GroupOf(int option) { return kControls[option].group; }

}  // namespace

CVideoSettingsDlg::CVideoSettingsDlg(PanelContext context)
    : OptionPage(res::kVideoSettings, context, video::Options(), kControls) {}

void CVideoSettingsDlg::Init() {
  TakeHandle();
  selection[kOutputLevel] = 0;
  Settle(kOutputLevel);
  passThrough.reset();
  SetUpOptions(ui::kValueFont);
  for (const IdleGroup& row : kIdleGroups) {
    SetUpGroup(Window(), row.group, row.caption, row.firstText);
    Window().SetFont(row.group.value, ui::kValueFont);
    ShowGroup(Window(), row.group, false);
  }
  if (panel.identity.brandCode == 3) {
    Window().SetText(GroupOf(kOutputLevel).label, "HDMI Output Range");
  }
  SetCaption(Window(), kPreviousFormat, "<<");
  SetCaption(Window(), kAutoPhaseButton, "PHASE");
  SetCaption(Window(), kVideoFreeze, "Video Freeze");
  // What another box made of them counts no more.
  for (const int control :
       {GroupOf(kOutputFormat).next, kPreviousFormat, GroupOf(kOutputColour).next}) {
    Window().EnableControl(control, true);
  }
  SetSubPage(panel.cycleState);
}

void CVideoSettingsDlg::Open() {
  panel.cycleState = 0;
  SetSubPage(0);
  Refresh(panel.serialHandle);
}

void CVideoSettingsDlg::SetSubPage(int number) {
  subPage = number;
  HideOptions();
  for (const int control : {kPreviousFormat, kAutoPhaseButton, kVideoFreeze}) {
    Window().ShowControl(control, false);
  }
  PlaceOptions();
  Window().PlaceControl(kAutoPhaseButton, {kNextX + 50, 38, 70, 39});  // beside the input source
  Window().PlaceControl(kVideoFreeze, {kLeft, 255, 300, 40});
  Window().ShowControl(kVideoFreeze, HasFreeze());
  ShowConsequences(kInputSource);
}

// Below the options of the second sub-page; the shipped type has none.
bool CVideoSettingsDlg::HasFreeze() const {
  return subPage == 1 && kWithFreeze.Except(kShippedType).Has(panel.identity.boxType);
}

// One below the other, output source and format last; closer together where there is more.
void CVideoSettingsDlg::PlaceOptions() {
  const auto shown = std::count_if(group.kept.begin(), group.kept.end(),
                                   [this](const Kept& kept) { return IsShown(kept); });
  const bool isTight = subPage == 0 || shown > 3 || HasFreeze();
  int top = isTight ? 15 : 35;
  const auto place = [&](auto belongs) {
    for (const Kept& kept : group.kept) {
      if (!IsShown(kept) || !belongs(kept.option)) continue;
      if (kept.option == kOutputFormat) {
        PlaceOutputFormat(top);
      } else {
        ShowOption(kept.option, {kLeft, top}, kNextX);
      }
      top += isTight ? 70 : 80;
    }
  };
  place([](int option) { return option != kOutputSource && option != kOutputFormat; });
  place([](int option) { return option == kOutputSource; });
  place([](int option) { return option == kOutputFormat; });
}

void CVideoSettingsDlg::PlaceOutputFormat(int top) {
  const CyclingGroup& format = GroupOf(kOutputFormat);
  ShowOption(kOutputFormat, {kLeft, top}, kNextX + 50);
  Window().PlaceControl(format.value, {kLeft + 10, top + 30, 260, 30});
  Window().PlaceControl(kPreviousFormat, {kNextX, top + 23, 40, 39});
  Window().ShowControl(kPreviousFormat, true);
}

int CVideoSettingsDlg::LastIndex(int option) const {
  return video::LastIndex(static_cast<video::Option>(option), panel.identity,
                          panel.firmwareVersion);
}

// What the choice of an option makes of other controls.
void CVideoSettingsDlg::ShowConsequences(int option) {
  const CyclingGroup& colour = GroupOf(kOutputColour);
  switch (option) {
    case kInputSource:  // only an analogue input has a phase
      if (kWithAutoPhase.Has(panel.identity.boxType)) {
        const Choice* input = Selected(kInputSource);
        Window().ShowControl(kAutoPhaseButton,
                             subPage == 0 && input != nullptr && input->value == kVgaInput);
      }
      break;
    case kGenlockMode:  // only a free-running box lets its output format be chosen
      for (const int control : {GroupOf(kOutputFormat).next, kPreviousFormat}) {
        Window().EnableControl(control, selection[kGenlockMode] == 0);
      }
      break;
    case kHdmiOutputMode:  // DVI carries RGB only
      Window().EnableControl(colour.next, selection[kHdmiOutputMode] == 1);
      if (selection[kHdmiOutputMode] == 1) {
        Select(kOutputColour, selection[kOutputColour]);
      } else {
        Window().SetText(colour.value, "RGB444");
      }
      break;
    default:
      break;
  }
}

void CVideoSettingsDlg::OnCommand(int control, ui::Notification what) {
  if (what != ui::Notification::kClicked) return;
  if (control == kPreviousFormat) Previous(kOutputFormat);
  if (control == kAutoPhaseButton) Write(video::kAutoPhase, {1});
  if (control == kVideoFreeze) Send(FreezeCommands());
  const std::optional<int> option = OptionOf(control);
  if (!option) return;
  Next(*option);
  ShowConsequences(*option);
}

void CVideoSettingsDlg::Refresh(ui::SerialHandle serial) {
  serialHandle = serial;
  subPage = panel.cycleState;
  for (const Kept& kept : group.kept) {
    if (!IsShown(kept)) continue;
    const bool told = ReadOption(kept);
    if (told || kept.option != kOutputColour) continue;
    SelectValue(kOutputColour, 0);
    Settle(kOutputColour);
  }
  std::uint8_t request = 0;
  if (subPage == 0 && kPassThrough.Has(panel.identity.boxType) &&
      Read(kPassThroughRequest, request)) {
    passThrough = request;
  }
  for (const Kept& kept : group.kept) {
    if (IsShown(kept)) ShowConsequences(kept.option);
  }
}

void CVideoSettingsDlg::Apply() {
  for (const Kept& kept : group.kept) {
    if (IsShown(kept)) WriteOption(kept);
  }
  if (subPage != 0 || !kPassThrough.Has(panel.identity.boxType)) return;
  if (!passThrough) return;  // was never read: nobody knows what to write
  Write(kPassThroughRequest, {*passThrough});
  timerRuns = Window().StartTimer(kRefreshTimer, kRefreshDelay);
}

// What the box puts out now: its input's format passed through, or a format of its own. A failed
// read changes nothing, and a format without a row is not named.
void CVideoSettingsDlg::ShowFormatReport() {
  std::uint8_t reported = 0;
  std::uint8_t code = 0;
  const bool told = Read(kPassThroughReport, reported);
  if (!Read(kOutputFormatReport, code) || !told) return;
  const Choice* format =
      FindValue(group.options[kOutputFormat].choices, panel.identity.boxType, code);
  const CyclingGroup& controlsOfFormat = GroupOf(kOutputFormat);
  if (reported == 1) {
    if (format != nullptr) {
      Window().SetText(controlsOfFormat.label, Format("Output Format ( %s)", format->text));
    }
    Window().SetText(controlsOfFormat.value, "Pass Through");
    return;
  }
  Window().SetText(controlsOfFormat.label, "Output Format ");
  if (format != nullptr) Select(kOutputFormat, format->index);
}

// Some seconds after Apply: what the box made of it.
void CVideoSettingsDlg::OnTimer(int /*timer*/) {
  toolkit.DebugOutput("START VIDEO SETTING TIMER !!\n");
  if (kPassThrough.Except(kReportsOutput).Has(panel.identity.boxType)) {
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
