#include "pages/audio/audio_dlg.h"

#include <iterator>

#include "base/text.h"
#include "res/dialog_templates.h"

namespace panelora {

namespace {

using namespace audio;

constexpr OptionControls kControls[] = {
    {{1026, 1023, 1025, 1024}, "ON"},       {{1030, 1027, 1028, 1029}, "Internal"},
    {{1035, 1036, 1037, 1038}, "Internal"}, {{1055, 1039, 1040, 1041}, "0 dBu"},
    {{1056, 1042, 1043, 1044}, "High"},     {{1057, 1047, 1048, 1049}, "2.0 Channel"},
};
static_assert(std::size(kControls) == kOptionCount);

constexpr int kVolumeCaption = 1058;
constexpr int kVolumeFrame = 1060;
constexpr int kVolumeBar = 1103;
constexpr int kVolumeDown = 1045;
constexpr int kVolumeUp = 1046;
constexpr int kLevelLabel = 1059;
constexpr int kScale = 1050;
constexpr int kRuler = 1051;
constexpr int kLevelCaption = 1062;
constexpr int kLevelCombo = 1108;
constexpr int kHdmiCaption = 1052;
constexpr int kHdmiFrame = 1061;
constexpr int kHdmiBar = 1104;
constexpr int kHdmiDown = 1053;
constexpr int kHdmiUp = 1054;

constexpr int kLeft = 50;
constexpr int kNextX = 370;

constexpr char kOutputScale[] = "   -30     -20       -10        0       +10     +20+24 [dBu]";
constexpr char kOutputRuler[] = "|_____|_____|_____|_____|_____|__|";
constexpr char kInputScale[] = "   -28         -20           -10             0           +10 [dBV]";
constexpr char kInputRuler[] = "|______|_______|_______|_______|";

struct Placed {
  int control;
  ui::Rect rect;
};

void ShowAt(ui::Dialog& dialog, std::initializer_list<Placed> controls) {
  for (const Placed& each : controls) {
    dialog.PlaceControl(each.control, each.rect);
    dialog.ShowControl(each.control, true);
  }
}

}  // namespace

CAudioDlg::CAudioDlg(PanelContext context)
    : OptionPage(res::kAudio, context, audio::Options(), kControls) {}

void CAudioDlg::Init() {
  TakeHandle();
  for (const ui::ControlTemplate& control : res::FindDialog(res::kAudio)->controls) {
    Window().SetFont(control.id, ui::kCaptionFont);
  }
  SetUpOptions(ui::kCaptionFont);
  for (const int control : {kVolumeDown, kHdmiDown}) Window().SetText(control, "-");
  for (const int control : {kVolumeUp, kHdmiUp}) Window().SetText(control, "+");
  Window().SetText(kVolumeFrame, "");
  Window().SetText(kHdmiFrame, "");
  Window().SetText(kLevelCaption, "Audio Level");
  hasSource = hasVolume = true;
  LayOut();
}

bool CAudioDlg::Has(int option) const {
  if (option == kSource && !hasSource) return false;
  for (const Kept& kept : group.kept) {
    if (kept.option == option && Serves(kept)) return true;
  }
  return false;
}

// Where volumes or an impedance leave it no place, mute is not shown.
bool CAudioDlg::ShowsMute() const {
  if (!Has(kMute) || Has(kXlrImpedance)) return false;
  return Kind() != VolumeKind::kAttenuation && !volumes.HasLevels(panel.identity);
}

bool CAudioDlg::IsLevelByDip() const {
  return Kind() == VolumeKind::kOutputLevel && panel.identity.inputDipFlag == 1;
}

void CAudioDlg::LayOut() {
  for (const ui::ControlTemplate& control : res::FindDialog(res::kAudio)->controls) {
    Window().ShowControl(control.id, false);
  }
  HideOptions();
  // With volumes there is more to show, closer together.
  const bool isTight = Kind() != VolumeKind::kNone;
  const int apart = isTight ? 68 : 80;
  int top = isTight ? 5 : 35;
  const auto place = [&](int option) {
    if (!Has(option) || (option == kMute && !ShowsMute())) return;
    ShowOption(option, {kLeft, top}, kNextX);
    top += apart;
  };
  if (IsLevelByDip()) Window().SetText(kControls[kXlrLevel].group.label, "L/R Audio Level");
  if (Has(kStandard)) {
    for (const int option : {kMute, kSource, kStandard}) place(option);
  } else {
    for (const int option : {kChannel, kXlrLevel, kXlrImpedance, kSource, kMute}) place(option);
  }
  if (!isTight) return;
  PlaceVolume(top);
  if (volumes.HasLevels(panel.identity)) PlaceLevels(top + apart);
  if (Kind() == VolumeKind::kAttenuation) PlaceHdmiVolume(top + apart);
}

void CAudioDlg::PlaceVolume(int top) {
  ShowAt(Window(), {{kVolumeCaption, {kLeft, top, 330, 20}},
                    {kVolumeFrame, {kLeft, top + 15, 300, 48}},
                    {kVolumeBar, {kLeft + 10, top + 33, 230, 16}},
                    {kVolumeDown, {kNextX, top + 23, 40, 39}},
                    {kVolumeUp, {kNextX + 45, top + 23, 40, 39}},
                    {kLevelLabel, {kLeft + 245, top + 31, 50, 20}}});
  Window().ShowControl(kLevelLabel, Kind() != VolumeKind::kAttenuation);
}

void CAudioDlg::PlaceLevels(int top) {
  ShowAt(Window(), {{kScale, {kLeft, top, 370, 20}},
                    {kRuler, {kLeft + 15, top + 20, 355, 20}},
                    {kLevelCaption, {kLeft, top + 50, 100, 20}},
                    {kLevelCombo, {kLeft + 110, top + 48, 110, 24}}});
  const bool output = Kind() == VolumeKind::kOutputLevel;
  Window().ClearItems(kLevelCombo);
  for (const Choice& level : LevelsOf(Kind())) {
    Window().AddItem(kLevelCombo, Format(" %s", level.text));
  }
  Window().SetText(kScale, output ? kOutputScale : kInputScale);
  Window().SetText(kRuler, output ? kOutputRuler : kInputRuler);
}

void CAudioDlg::PlaceHdmiVolume(int top) {
  ShowAt(Window(), {{kHdmiCaption, {kLeft, top, 330, 20}},
                    {kHdmiFrame, {kLeft, top + 15, 300, 48}},
                    {kHdmiBar, {kLeft + 10, top + 33, 280, 16}},
                    {kHdmiDown, {kNextX, top + 23, 40, 39}},
                    {kHdmiUp, {kNextX + 45, top + 23, 40, 39}}});
}

void CAudioDlg::Refresh(ui::SerialHandle serial) {
  serialHandle = serial;
  ReadFitted();
  for (const Kept& kept : group.kept) {
    if (!Serves(kept) || !Has(kept.option) || kept.access == Access::kWriteOnly) continue;
    if (kept.option == kSource) Read(InputOf(panel.identity.boxType), input);
    ReadOption(kept);
  }
  if (Kind() == VolumeKind::kNone) return;
  if (volumes.Read(box, panel.identity)) ShowVolumes(selection[kSource]);
}

// A box that can't tell keeps what it was known to have.
void CAudioDlg::ReadFitted() {
  const Address at = FittedOf(panel.identity.boxType);
  BlockBuffer bytes{};
  if (at.kind == Address::Kind::kNone || !Read(at, bytes)) return;
  const bool source = bytes[0] != 0;
  const bool volume = bytes[1] != 0;
  if (source == hasSource && volume == hasVolume) return;
  hasSource = source;
  hasVolume = volume;
  LayOut();
}

void CAudioDlg::ShowBar(const VolumeBar& bar, int control, int caption) {
  Window().SetProgressRange(control, 0, bar.maximum);
  Window().SetProgressPosition(control, bar.position);
  Window().SetText(caption, bar.caption);
}

void CAudioDlg::ShowVolumes(std::uint8_t source) {
  if (Kind() == VolumeKind::kNone) return;
  const VolumeBar bar = volumes.First(panel.identity, source);
  ShowBar(bar, kVolumeBar, kVolumeCaption);
  if (Kind() == VolumeKind::kAttenuation) {
    ShowBar(volumes.Second(), kHdmiBar, kHdmiCaption);
    return;
  }
  Window().SetText(kLevelLabel, bar.label);
  if (bar.ruler != nullptr) Window().SetText(kRuler, bar.ruler);
}

const Choice* CAudioDlg::Find(int option, std::uint8_t index) const {
  return option == kSource ? FindSource(panel.identity.boxType, input, index)
                           : OptionPage::Find(option, index);
}

// The sources of an input, and of 24 and 34 the levels with DIP switches, are as many as they are.
int CAudioDlg::LastIndex(int option) const {
  if (option == kXlrLevel && IsLevelByDip()) return 1;
  if (option != kSource) return OptionPage::LastIndex(option);
  if (Has(kStandard)) return 2;
  int last = 0;
  while (Find(kSource, static_cast<std::uint8_t>(last + 1)) != nullptr) ++last;
  return last;
}

void CAudioDlg::OnCommand(int control, ui::Notification what) {
  if (what == ui::Notification::kSelectionChanged) {
    if (control == kLevelCombo) OnLevelChosen();
    return;
  }
  if (control == kVolumeDown) OnVolume(-1);
  if (control == kVolumeUp) OnVolume(1);
  if ((control == kHdmiDown || control == kHdmiUp) && Kind() == VolumeKind::kAttenuation) {
    volumes.StepSecond(control == kHdmiUp ? 1 : -1);
    ShowVolumes(selection[kSource]);
  }
  const std::optional<int> option = OptionOf(control);
  if (!option) return;
  Next(*option);
  if (*option == kSource) ShowVolumes(selection[kSource]);
}

// Input volumes are sent at once, the others by Apply.
void CAudioDlg::OnVolume(int louder) {
  volumes.Step(panel.identity, selection[kSource], louder);
  ShowVolumes(selection[kSource]);
  if (Kind() == VolumeKind::kInput) volumes.Write(box, panel.identity);
}

// The combo writes at once, unlike the ">>" buttons. What it sets is shown, whatever the source is.
void CAudioDlg::OnLevelChosen() {
  if (!volumes.Choose(panel.identity, Window().SelectedItem(kLevelCombo))) return;
  ShowVolumes(0);
  volumes.Write(box, panel.identity);
}

// Whether the box is told the option there.
bool CAudioDlg::Tells(const Kept& kept) const {
  return Serves(kept) && Has(kept.option) && kept.access != Access::kReadOnly;
}

void CAudioDlg::Apply() {
  for (const Kept& kept : group.kept) {
    if (kept.option == kSource && Tells(kept)) WriteOption(kept);
  }
  for (const Kept& kept : group.kept) {
    if (!Tells(kept) || kept.option == kSource || (kept.option == kMute && !ShowsMute())) continue;
    if (kept.reads == Reads::kIndex) {
      WriteSelection(kept);
    } else {
      WriteOption(kept);
    }
  }
  const bool sentByApply = Kind() != VolumeKind::kInput && Kind() != VolumeKind::kNone;
  if (sentByApply) volumes.Write(box, panel.identity);
}

}  // namespace panelora
