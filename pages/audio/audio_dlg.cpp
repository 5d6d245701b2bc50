#include "pages/audio/audio_dlg.h"

#include <iterator>

#include "pages/audio/audio_levels.h"
#include "pages/audio/audio_options.h"
#include "res/dialog_templates.h"
#include "ui/text.h"

namespace panelora {

namespace {

constexpr CyclingGroup kMute = {1026, 1023, 1025, 1024};
constexpr CyclingGroup kSource = {1030, 1027, 1028, 1029};
constexpr CyclingGroup kStandard = {1035, 1036, 1037, 1038};
constexpr CyclingGroup kXlrLevel = {1055, 1039, 1040, 1041};
constexpr CyclingGroup kXlrImpedance = {1056, 1042, 1043, 1044};
constexpr CyclingGroup kChannel = {1057, 1047, 1048, 1049};

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

// What turns the volume buttons of a type.
enum class Volume { kNone, kAttenuation, kInput, kOutputLevel };

struct ModelRow {
  std::uint8_t boxType;
  bool channel;
  bool xlrLevel;
  bool impedance;
  Volume volume;
};
constexpr ModelRow kModels[] = {
    {29, true, false, false, Volume::kInput},
    {25, false, false, false, Volume::kInput},
    {18, true, false, false, Volume::kNone},
    {32, true, false, false, Volume::kNone},
    {24, false, true, false, Volume::kOutputLevel},
    {34, false, true, false, Volume::kOutputLevel},
    {14, false, true, true, Volume::kNone},
    {36, false, true, false, Volume::kNone},
    {46, false, false, false, Volume::kAttenuation},
    {47, false, false, false, Volume::kAttenuation},
    {48, false, false, false, Volume::kAttenuation},
    {49, false, false, false, Volume::kAttenuation},
    {52, false, false, false, Volume::kAttenuation},
    {kNoBoxType, false, false, false, Volume::kNone},
};

const ModelRow& ModelOf(std::uint8_t boxType) {
  const ModelRow* row = kModels;
  while (row->boxType != kNoBoxType && row->boxType != boxType) ++row;
  return *row;
}

// Blocks that mean something else on the type are left alone: 9 is the image size of 25 and 29, 10
// the reset of 14 and 36, 6 the PIP output format of 51.
std::uint8_t SourceProperty(std::uint8_t boxType) {
  return boxType == 14 || boxType == 36 ? block::kAudioOption9 : block::kAudioOption10;
}
bool CanMute(std::uint8_t boxType) { return boxType != 51 && boxType != kNoBoxType; }

bool HasStandard(std::uint8_t boxType) { return boxType == 26 || boxType == 50; }

constexpr int kMaxVolume = 100;
constexpr int kMaxOutputLevel = 112;
constexpr int kMaxInputLevel = 77;  // of the buttons; the box reports up to 80
constexpr int kInputLevelRange = 80;

// The entries of the level combo and the raw values that they choose.
struct LevelChoice {
  const char* text;
  std::uint8_t raw;
};
constexpr LevelChoice kOutputLevels[] = {{"+24.0", 110}, {"+20.0", 102}, {"+10.0", 82},
                                         {"+4.0", 70},   {"+0.0", 62},   {"-10.0", 42},
                                         {"-20.0", 22},  {"-30.0", 2}};
constexpr LevelChoice kInputLevels[] = {{"+10.0", 0}, {"+6.0", 8},   {"+4.0", 12},  {"+0.0", 20},
                                        {"-6.0", 32}, {"-10.0", 40}, {"-20.0", 60}, {"-28.5", 77}};

constexpr char kOutputScale[] = "   -30     -20       -10        0       +10     +20+24 [dBu]";
constexpr char kOutputRuler[] = "|_____|_____|_____|_____|_____|__|";
constexpr char kInputScale[] = "   -28         -20           -10             0           +10 [dBV]";
constexpr char kInputRuler[] = "|______|_______|_______|_______|";
constexpr char kInputLevelRuler[] = "  |______|_______|_______|_______|";

// One step up or down that stops at the end. From a reported value beyond it a step up comes back
// to it, and a step down goes on from where the box is.
std::uint8_t Step(std::uint8_t value, int step, int maximum) {
  if (step > 0) return static_cast<std::uint8_t>(value >= maximum ? maximum : value + 1);
  return static_cast<std::uint8_t>(value == 0 ? 0 : value - 1);
}

}  // namespace

CAudioDlg::CAudioDlg(PanelContext context) : Page(res::kAudio, context) {}

void CAudioDlg::Init() {
  TakeHandle();
  for (const ui::ControlTemplate& control : res::FindDialog(res::kAudio)->controls) {
    Window().SetFont(control.id, ui::kCaptionFont);
    Window().ShowControl(control.id, false);
  }
  SetUpGroup(Window(), kMute, "Audio Mute", "ON");
  SetUpGroup(Window(), kSource, "Audio Source", "Internal");
  SetUpGroup(Window(), kStandard, "Audio Level", "Internal");  // the caption is deliberate
  SetUpGroup(Window(), kXlrLevel, "XLR Level", "0 dBu");
  SetUpGroup(Window(), kXlrImpedance, "XLR Impedance", "High");
  SetUpGroup(Window(), kChannel, "Output Channel", "2.0 Channel");
  for (const int control : {kVolumeDown, kHdmiDown}) Window().SetText(control, "-");
  for (const int control : {kVolumeUp, kHdmiUp}) Window().SetText(control, "+");
  Window().SetText(kVolumeFrame, "");
  Window().SetText(kHdmiFrame, "");
  Window().SetText(kLevelCaption, "Audio Level");
  LayOut();
}

bool CAudioDlg::HasLevelCombo() const {
  const Volume volumeKind = ModelOf(panel.identity.boxType).volume;
  return panel.identity.brandCode == 2 &&
         (volumeKind == Volume::kOutputLevel || volumeKind == Volume::kInput);
}

bool CAudioDlg::ShowsMute() const {
  const std::uint8_t boxType = panel.identity.boxType;
  if (!CanMute(boxType)) return false;
  const ModelRow& model = ModelOf(boxType);
  if (model.volume == Volume::kNone) return !model.impedance;
  return model.volume != Volume::kAttenuation && !HasLevelCombo();
}

void CAudioDlg::LayOut() {
  const Identity& id = panel.identity;
  if (id.boxType == kNoBoxType) return;
  const ModelRow& model = ModelOf(id.boxType);
  // With volumes there is more to show, closer together.
  const bool isTight = model.volume != Volume::kNone;
  const int apart = isTight ? 68 : 80;
  int top = isTight ? 5 : 35;
  const auto place = [&](const CyclingGroup& group) {
    PlaceGroup(Window(), group, {kLeft, top}, kNextX);
    top += apart;
    ShowGroup(Window(), group, true);
  };
  if (HasStandard(id.boxType)) {
    place(kMute);
    place(kSource);
    place(kStandard);
    return;
  }
  if (model.channel) place(kChannel);
  if (model.xlrLevel) {
    const bool byDip = (id.boxType == 24 || id.boxType == 34) && id.inputDipFlag == 1;
    if (byDip) Window().SetText(kXlrLevel.label, "L/R Audio Level");
    place(kXlrLevel);
  }
  if (model.impedance) place(kXlrImpedance);
  place(kSource);
  if (ShowsMute()) place(kMute);
  if (model.volume == Volume::kNone) return;
  PlaceVolume(top, HasLevelCombo());
  if (model.volume == Volume::kAttenuation) PlaceHdmiVolume(top + apart);
}

void CAudioDlg::PlaceVolume(int top, bool hasScale) {
  Window().PlaceControl(kVolumeCaption, {kLeft, top, 330, 20});
  Window().PlaceControl(kVolumeFrame, {kLeft, top + 15, 300, 48});
  Window().PlaceControl(kVolumeBar, {kLeft + 10, top + 33, 230, 16});
  Window().PlaceControl(kLevelLabel, {kLeft + 245, top + 31, 50, 20});
  Window().PlaceControl(kVolumeDown, {kNextX, top + 23, 40, 39});
  Window().PlaceControl(kVolumeUp, {kNextX + 45, top + 23, 40, 39});
  for (const int control :
       {kVolumeCaption, kVolumeFrame, kVolumeBar, kLevelLabel, kVolumeDown, kVolumeUp}) {
    Window().ShowControl(control, true);
  }
  if (ModelOf(panel.identity.boxType).volume == Volume::kAttenuation) {
    Window().ShowControl(kLevelLabel, false);
  }
  if (!hasScale) return;
  Window().PlaceControl(kScale, {kLeft, top + 68, 370, 20});
  Window().PlaceControl(kRuler, {kLeft + 15, top + 88, 355, 20});
  Window().PlaceControl(kLevelCaption, {kLeft, top + 118, 100, 20});
  Window().PlaceControl(kLevelCombo, {kLeft + 110, top + 116, 110, 24});
  for (const int control : {kScale, kRuler, kLevelCaption, kLevelCombo}) {
    Window().ShowControl(control, true);
  }
  FillLevels();
}

void CAudioDlg::PlaceHdmiVolume(int top) {
  Window().PlaceControl(kHdmiCaption, {kLeft, top, 330, 20});
  Window().PlaceControl(kHdmiFrame, {kLeft, top + 15, 300, 48});
  Window().PlaceControl(kHdmiBar, {kLeft + 10, top + 33, 280, 16});
  Window().PlaceControl(kHdmiDown, {kNextX, top + 23, 40, 39});
  Window().PlaceControl(kHdmiUp, {kNextX + 45, top + 23, 40, 39});
  for (const int control : {kHdmiCaption, kHdmiFrame, kHdmiBar, kHdmiDown, kHdmiUp}) {
    Window().ShowControl(control, true);
  }
}

void CAudioDlg::FillLevels() {
  const bool output = ModelOf(panel.identity.boxType).volume == Volume::kOutputLevel;
  Window().ClearItems(kLevelCombo);
  for (const LevelChoice& choice : output ? kOutputLevels : kInputLevels) {
    Window().AddItem(kLevelCombo, ui::Format(" %s", choice.text));
  }
  Window().SetText(kScale, output ? kOutputScale : kInputScale);
  Window().SetText(kRuler, output ? kOutputRuler : kInputRuler);
}

void CAudioDlg::ShowMute() {
  const AudioOptionRow* row = FindAudioOption(kAudioMutes, panel.identity.boxType, mute);
  if (row != nullptr) Window().SetText(kMute.value, row->text);
}

void CAudioDlg::ShowSource() {
  const AudioSourceRow* row = FindAudioSource(panel.identity.boxType, input, source);
  if (row != nullptr) Window().SetText(kSource.value, row->text);
}

void CAudioDlg::ShowStandard() {
  const AudioOptionRow* row = FindAudioOption(kAudioStandards, panel.identity.boxType, standard);
  if (row != nullptr) Window().SetText(kStandard.value, row->text);
}

void CAudioDlg::Refresh(ui::SerialHandle serial) {
  serialHandle = serial;
  if (HasStandard(panel.identity.boxType)) {
    RefreshModel26();
  } else if (panel.identity.boxType != kNoBoxType) {
    RefreshOtherTypes();
  }
}

void CAudioDlg::RefreshModel26() {
  if (ReadWord(word::kAudioMute, mute)) ShowMute();
  ReadWord(word::kInputSource, input);
  // What is read is shown as an index although the device code is what is written: a reported code
  // 3 has no row. Deliberate.
  if (ReadWord(word::kAudioSource, source)) ShowSource();
  if (ReadWord(word::kAudioStandard, standard)) ShowStandard();
}

bool CAudioDlg::ReadByte(std::uint8_t property, std::uint8_t& value) {
  BlockBuffer bytes{};
  if (!ReadBlock(property, 2, bytes)) return false;
  value = bytes[0];
  return true;
}

void CAudioDlg::RefreshOtherTypes() {
  const ModelRow& model = ModelOf(panel.identity.boxType);
  const auto refresh = [&](const CyclingGroup& group, std::uint8_t property, std::uint8_t& value,
                           const AudioOptionRow* table) {
    if (!ReadByte(property, value)) return;
    const AudioOptionRow* row = FindAudioOption(table, panel.identity.boxType, value);
    if (row != nullptr) Window().SetText(group.value, row->text);
  };
  if (CanMute(panel.identity.boxType)) refresh(kMute, block::kAudioMute, mute, kAudioMutes);
  ReadByte(block::kAudioInput, input);
  if (ReadByte(SourceProperty(panel.identity.boxType), source)) ShowSource();
  if (model.xlrLevel) refresh(kXlrLevel, block::kAudioOption7, xlrLevel, kXlrLevels);
  if (model.impedance) {
    refresh(kXlrImpedance, block::kAudioOption32, xlrImpedance, kXlrImpedances);
  }
  if (model.channel) refresh(kChannel, block::kAudioOption32, channel, kOutputChannels);
  if (ReadVolumes()) ShowVolumes();
}

// False when the box did not answer, or has no volume.
bool CAudioDlg::ReadVolumes() {
  BlockBuffer bytes{};
  switch (ModelOf(panel.identity.boxType).volume) {
    case Volume::kAttenuation:
      if (!ReadBlock(block::kAudioVolumes, 2, bytes)) return false;
      volume = bytes[0];
      volume2 = bytes[1];
      return true;
    case Volume::kInput:
      if (!ReadBlock(block::kAudioInputVolumes, 3, bytes)) return false;
      volume = bytes[0];
      volume2 = bytes[1];
      return true;
    case Volume::kOutputLevel:
      if (!ReadBlock(block::kAudioOutputLevel, 2, bytes)) return false;
      outputLevel = bytes[0];
      return true;
    case Volume::kNone:
      break;
  }
  return false;
}

void CAudioDlg::ShowVolumes() {
  switch (ModelOf(panel.identity.boxType).volume) {
    case Volume::kAttenuation:
      Window().SetProgressRange(kVolumeBar, 0, kMaxVolume);
      Window().SetProgressPosition(kVolumeBar, kMaxVolume - volume);
      Window().SetText(kVolumeCaption, ui::Format("L/R Audio Volume ( %d )", kMaxVolume - volume));
      Window().SetProgressRange(kHdmiBar, 0, kMaxVolume);
      Window().SetProgressPosition(kHdmiBar, kMaxVolume - volume2);
      Window().SetText(kHdmiCaption,
                       ui::Format("Embedded Audio Volume ( %d )", kMaxVolume - volume2));
      break;
    case Volume::kInput:
      if (panel.identity.brandCode == 2 && source != 2) {
        ShowInputLevel();
      } else {
        const int shown = source == 2 ? volume2 : volume;
        Window().SetProgressRange(kVolumeBar, 0, kMaxVolume);
        Window().SetProgressPosition(kVolumeBar, shown);
        Window().SetText(kVolumeCaption, ui::Format("Audio Volume ( %d )", shown));
        Window().SetText(kLevelLabel, "");
      }
      break;
    case Volume::kOutputLevel:
      ShowOutputLevel();
      break;
    case Volume::kNone:
      break;
  }
}

void CAudioDlg::ShowOutputLevel() {
  const LevelTexts texts = OutputLevelTexts(outputLevel);
  Window().SetProgressRange(kVolumeBar, 0, kMaxOutputLevel);
  Window().SetProgressPosition(kVolumeBar, outputLevel);
  Window().SetText(kVolumeCaption, texts.caption);
  Window().SetText(kLevelLabel, texts.shortLabel);
  Window().SetText(kRuler, kOutputRuler);
}

void CAudioDlg::ShowInputLevel() {
  const LevelTexts texts = InputLevelTexts(volume);
  Window().SetProgressRange(kVolumeBar, 0, kInputLevelRange);
  Window().SetProgressPosition(kVolumeBar, kInputLevelRange - volume);
  Window().SetText(kVolumeCaption, texts.caption);
  Window().SetText(kLevelLabel, texts.shortLabel);
  Window().SetText(kRuler, kInputLevelRuler);
}

void CAudioDlg::OnCommand(int control, ui::Notification what) {
  using Dlg = CAudioDlg;
  static constexpr CommandRow<CAudioDlg> kCommands[] = {
      {1024, &Dlg::OnNextMute},
      {1029, &Dlg::OnNextSource},
      {1038, &Dlg::OnNextStandard},
      {1041, &Dlg::OnNextXlrLevel},
      {1044, &Dlg::OnNextXlrImpedance},
      {kVolumeDown, &Dlg::OnVolumeDown},
      {kVolumeUp, &Dlg::OnVolumeUp},
      {1049, &Dlg::OnNextChannel},
      {kHdmiDown, &Dlg::OnHdmiVolumeDown},
      {kHdmiUp, &Dlg::OnHdmiVolumeUp},
      {kLevelCombo, &Dlg::OnLevelChosen, ui::Notification::kSelectionChanged},
  };
  DispatchCommand(*this, kCommands, control, what);
}

void CAudioDlg::OnNextMute() {
  mute = static_cast<std::uint8_t>(mute + 1);
  if (mute >= 2) mute = 0;
  ShowMute();
}

// The index of the type's last source row.
int CAudioDlg::LastSource() const {
  if (HasStandard(panel.identity.boxType)) return 2;
  int last = 0;
  while (FindAudioSource(panel.identity.boxType, input, static_cast<std::uint8_t>(last + 1)) !=
         nullptr) {
    ++last;
  }
  return last;
}

void CAudioDlg::OnNextSource() {
  source = static_cast<std::uint8_t>(source + 1 > LastSource() ? 0 : source + 1);
  ShowSource();
  ShowVolumes();
}

void CAudioDlg::OnNextStandard() {
  standard = static_cast<std::uint8_t>(standard + 1 > 1 ? 0 : standard + 1);
  ShowStandard();
}

void CAudioDlg::OnNextXlrLevel() {
  const Identity& id = panel.identity;
  const bool byDip = (id.boxType == 24 || id.boxType == 34) && id.inputDipFlag == 1;
  const int last = byDip ? 1 : 4;
  xlrLevel = static_cast<std::uint8_t>(xlrLevel + 1 > last ? 0 : xlrLevel + 1);
  const auto* row = FindAudioOption(kXlrLevels, id.boxType, xlrLevel);
  if (row != nullptr) Window().SetText(kXlrLevel.value, row->text);
}

void CAudioDlg::OnNextXlrImpedance() {
  xlrImpedance = static_cast<std::uint8_t>(xlrImpedance + 1 > 1 ? 0 : xlrImpedance + 1);
  const auto* row = FindAudioOption(kXlrImpedances, panel.identity.boxType, xlrImpedance);
  if (row != nullptr) Window().SetText(kXlrImpedance.value, row->text);
}

// Through the type's rows, in their order.
void CAudioDlg::OnNextChannel() {
  const std::uint8_t boxType = panel.identity.boxType;
  const AudioOptionRow* first = nullptr;
  const AudioOptionRow* next = nullptr;
  bool passed = false;
  for (const AudioOptionRow* row = kOutputChannels; row->value != 255; ++row) {
    if (row->boxType != boxType) continue;
    if (first == nullptr) first = row;
    if (passed && next == nullptr) next = row;
    if (row->value == channel) passed = true;
  }
  if (next == nullptr) next = first;
  if (next == nullptr) return;
  channel = next->value;
  Window().SetText(kChannel.value, next->text);
}

// All values stop at their ends.
void CAudioDlg::StepVolume(int louder) {
  switch (ModelOf(panel.identity.boxType).volume) {
    case Volume::kAttenuation:
      volume = Step(volume, -louder, kMaxVolume);
      ShowVolumes();
      break;
    case Volume::kInput:
      StepInputVolume(louder);
      break;
    case Volume::kOutputLevel:
      outputLevel = Step(outputLevel, louder, kMaxOutputLevel);
      ShowOutputLevel();
      break;
    case Volume::kNone:
      break;
  }
}

// Every press is sent at once. The input level of brand 2 is an attenuation, the rest are volumes.
void CAudioDlg::StepInputVolume(int louder) {
  if (source == 1) {
    volume = panel.identity.brandCode == 2 ? Step(volume, -louder, kMaxInputLevel)
                                           : Step(volume, louder, kMaxVolume);
  } else if (source == 2) {
    volume2 = Step(volume2, louder, kMaxVolume);
  }
  ShowVolumes();
  SendInputVolumes();
}

void CAudioDlg::StepHdmiVolume(int louder) {
  if (ModelOf(panel.identity.boxType).volume != Volume::kAttenuation) return;
  volume2 = Step(volume2, -louder, kMaxVolume);
  ShowVolumes();
}

// The combo writes at once, unlike the ">>" buttons.
void CAudioDlg::OnLevelChosen() {
  const int chosen = Window().SelectedItem(kLevelCombo);
  if (ModelOf(panel.identity.boxType).volume == Volume::kOutputLevel) {
    if (chosen < 0 || chosen >= static_cast<int>(std::size(kOutputLevels))) return;
    outputLevel = kOutputLevels[chosen].raw;
    ShowOutputLevel();
    SendOutputLevel();
    return;
  }
  constexpr int kLoudestToo = 9;  // an index beyond the entries that the box's own panel has
  if (chosen == kLoudestToo) {
    volume = 0;
  } else if (chosen >= 0 && chosen < static_cast<int>(std::size(kInputLevels))) {
    volume = kInputLevels[chosen].raw;
  } else {
    return;
  }
  ShowInputLevel();
  SendInputVolumes();
}

void CAudioDlg::SendInputVolumes() { WriteBlock(block::kAudioInputVolumes, {volume, volume2}); }

void CAudioDlg::SendOutputLevel() { WriteBlock(block::kAudioOutputLevel, {outputLevel, 0}); }

void CAudioDlg::Apply() {
  if (!HasStandard(panel.identity.boxType)) {
    ApplyOtherTypes();
    return;
  }
  const AudioSourceRow* row = FindAudioSource(panel.identity.boxType, input, source);
  if (row != nullptr) WriteWord(word::kAudioSource, row->deviceCode);
  WriteWord(word::kAudioMute, mute);
  WriteWord(word::kAudioStandard, standard);
  pendingVolume = volume;
}

void CAudioDlg::ApplyOtherTypes() {
  const ModelRow& model = ModelOf(panel.identity.boxType);
  const AudioSourceRow* row = FindAudioSource(panel.identity.boxType, input, source);
  if (row != nullptr) {
    WriteBlock(SourceProperty(panel.identity.boxType), {row->deviceCode});
  }
  if (ShowsMute()) WriteBlock(block::kAudioMute, {mute});
  if (model.xlrLevel) WriteBlock(block::kAudioOption7, {xlrLevel});
  if (model.impedance) WriteBlock(block::kAudioOption32, {xlrImpedance});
  if (model.channel) WriteBlock(block::kAudioOption32, {channel});
  if (model.volume == Volume::kAttenuation) WriteBlock(block::kAudioVolumes, {volume, volume2});
  if (model.volume == Volume::kOutputLevel) SendOutputLevel();
  pendingVolume = volume;
}

}  // namespace panelora
