#include "pages/multiview/display_mode_dlg.h"

#include "pages/caption.h"
#include "pages/cycling_group.h"
#include "pages/multiview/channel_rules.h"
#include "res/dialog_templates.h"

namespace panelora {

namespace {

using namespace multiview;

constexpr CyclingGroup kMode = {1044, 1003, 1045, 1046};
constexpr CyclingGroup kMain = {1047, 1004, 1048, 1049};
constexpr CyclingGroup kSub = {1050, 1005, 1051, 1052};
constexpr CyclingGroup kSub2 = {1053, 1006, 1054, 1055};
constexpr CyclingGroup kLabels = {1060, 1007, 1061, 1062};

constexpr int kLeft = 70;
constexpr int kNextX = 380;

struct LabelRow {
  std::uint8_t sub;
  int caption;
  int edit;
  const char* text;
  int top;
};
constexpr LabelRow kLabelRows[] = {
    {0, 1056, 1109, "Input 1 Labels :", 105},
    {1, 1057, 1110, "Input 2 Labels :", 155},
    {2, 1058, 1111, "Input 3 Labels :", 205},
    {3, 1059, 1112, "Input 4 Labels :", 255},
};

// Brand 8 calls mode 9 its fifth.
constexpr std::uint8_t kBrandOfModes1To4And9 = 8;
constexpr char kMode9OfBrand8[] = "Mode 5\t\t\t";

// Firmware above which brands other than 2 take labels.
constexpr std::uint32_t kLabelsFirmware = 288;

}  // namespace

CDisplayModeDlg::CDisplayModeDlg(PanelContext context) : Page(res::kDisplayMode, context) {}

// On brand 8 the box's mode 5 is held as mode 9.
std::uint8_t CDisplayModeDlg::ModeOfBox(std::uint8_t reported) const {
  const bool held = IsToldByWord() && panel.identity.brandCode == kBrandOfModes1To4And9;
  return held && reported == 5 ? std::uint8_t{9} : reported;
}

// What was last used in the mode; 0 for none.
std::uint8_t CDisplayModeDlg::CodeOf(std::uint8_t ofMode) const {
  return ofMode >= 1 && ofMode <= kCodesHeld ? codeByMode[ofMode - 1U] : std::uint8_t{0};
}

void CDisplayModeDlg::Init(ui::SerialHandle serial) {
  TakeHandle();
  serialHandle = serial;
  nineModes = 0;
  BlockBuffer bytes{};
  if (Read(kModes, bytes)) {
    mode = toldMode = bytes[0];
    nineModes = bytes[1];
  }
  SetUpGroup(Window(), kMode, "Dispalye Mode", "Mode 1");  // the captions are deliberate
  SetUpGroup(Window(), kMain, "Main Channel", "Channel 1");
  SetUpGroup(Window(), kSub, "Sub Channel 1", "Channel 1");
  SetUpGroup(Window(), kSub2, "Sub Channel 2", "Channel 2");
  SetUpGroup(Window(), kLabels, "Input Lebels", "OFF");
  for (const CyclingGroup& group : {kMode, kMain, kSub, kSub2, kLabels}) {
    Window().SetFont(group.value, ui::kValueFont);
  }
  for (const LabelRow& row : kLabelRows) {
    SetCaption(Window(), row.caption, row.text);
    SetCaption(Window(), row.edit, "");
    Window().SetTextLimit(row.edit, static_cast<int>(kLabelLength));
  }
  toldLabels = {};
  ResetView();
}

// Brand 12 has room for the second sub picture whatever the number of modes.
void CDisplayModeDlg::ResetView() {
  HideEverything();
  PlaceModeView(nineModes == 1 || panel.identity.brandCode == kBrandOfThreeChannels);
  view = 0;
}

void CDisplayModeDlg::SetSubPage(int number) {
  HideEverything();
  if (number == 0) PlaceModeView(nineModes == 1);
  if (number == 1) PlaceLabelsView();
  view = number;
}

void CDisplayModeDlg::HideEverything() {
  for (const CyclingGroup& group : {kMode, kMain, kSub, kSub2, kLabels}) {
    ShowGroup(Window(), group, false);
  }
  for (const LabelRow& row : kLabelRows) {
    Window().ShowControl(row.caption, false);
    Window().ShowControl(row.edit, false);
  }
}

void CDisplayModeDlg::PlaceModeView(bool withSub2) {
  constexpr int kThreeTops[] = {35, 115, 195};
  constexpr int kFourTops[] = {15, 85, 155, 225};
  const int* top = withSub2 ? kFourTops : kThreeTops;
  const auto place = [&](const CyclingGroup& group) {
    PlaceGroup(Window(), group, {kLeft, *top++}, kNextX);
    ShowGroup(Window(), group, true);
  };
  place(kMode);
  place(kMain);
  place(kSub);
  if (withSub2) place(kSub2);
}

void CDisplayModeDlg::PlaceLabelsView() {
  PlaceGroup(Window(), kLabels, {kLeft, 15}, kNextX);
  ShowGroup(Window(), kLabels, true);
  for (const LabelRow& row : kLabelRows) {
    Window().PlaceControl(row.caption, {kLeft, row.top, 110, 20});
    Window().PlaceControl(row.edit, {180, row.top - 2, 240, 25});
    Window().ShowControl(row.caption, true);
    Window().ShowControl(row.edit, true);
  }
}

void CDisplayModeDlg::Open() {
  Send(OpeningOfDisplayMode());
  Refresh(serialHandle);
}

void CDisplayModeDlg::Refresh(ui::SerialHandle serial) {
  serialHandle = serial;
  bool modeRead = false;
  if (IsToldByBlock()) {
    modeRead = ReadModeAndCodes();
  } else if (IsToldByWord()) {
    const bool modeAlone = panel.identity.brandCode == 2 && !HasInputLabels();
    if (modeAlone || view == 0) {
      modeRead = ReadModeAndCodes();
    } else if (view == 1) {
      ReadLabels();
    }
  } else {
    return;
  }
  ShowMode();
  ShowChannelsOfCode();
  if (modeRead) {
    SettleMode();
  } else {
    ShowPending();
  }
}

// True when both were read.
bool CDisplayModeDlg::ReadModeAndCodes() {
  BlockBuffer bytes{};
  const bool modeRead = Read(kModes, bytes);
  if (modeRead) {
    mode = ModeOfBox(bytes[0]);
    lastMode = mode;
  }
  if (!Read(kCodes, bytes)) return false;
  for (std::size_t i = 0; i < kCodesHeld; ++i) codeByMode[i] = bytes[i];
  code = CodeOf(mode);
  lastCode = code;
  return modeRead;
}

void CDisplayModeDlg::ReadLabels() {
  BlockBuffer bytes{};
  if (Read(multiview::kLabelsState, bytes)) {
    labelsState = toldState = bytes[0];
    ShowLabelsState();
  }
  for (std::size_t i = 0; i < std::size(kLabelRows); ++i) {
    const LabelRow& row = kLabelRows[i];
    if (Read(InputLabel(row.sub), bytes)) {
      Window().SetText(row.edit, TextOfLabel(std::span(bytes).first<kLabelLength>()));
      toldLabels[i] = Window().Text(row.edit);
    }
  }
}

// Of what Apply would send from this view.
void CDisplayModeDlg::ShowPending() {
  const bool sends = WritesMode() && (IsToldByBlock() || IsToldByWord());
  MarkPending({{kMode.frame, sends && mode != toldMode},
               {kMain.frame, sends && channels.main != toldChannels.main},
               {kSub.frame, sends && channels.sub != toldChannels.sub},
               {kSub2.frame, sends && channels.sub2 != toldChannels.sub2},
               {kLabels.frame, WritesLabels() && labelsState != toldState},
               {kLabelRows[0].edit, IsTyped(0)},
               {kLabelRows[1].edit, IsTyped(1)},
               {kLabelRows[2].edit, IsTyped(2)},
               {kLabelRows[3].edit, IsTyped(3)}});
}

// Labels are sent with the state that shows them.
bool CDisplayModeDlg::IsTyped(std::size_t row) {
  return WritesLabels() && labelsState == 1 &&
         Window().Text(kLabelRows[row].edit) != toldLabels[row];
}

void CDisplayModeDlg::ShowMode() {
  if (IsToldByWord() && panel.identity.brandCode == kBrandOfModes1To4And9 && mode == 9) {
    Window().SetText(kMode.value, kMode9OfBrand8);
    return;
  }
  ShowChoice(kMode.value, ModeNames(), mode);
}

void CDisplayModeDlg::ShowLabelsState() {
  ShowChoice(kLabels.value, InputLabelStates(), labelsState);
}

void CDisplayModeDlg::ShowNames(const ChannelChoice& choice) {
  Window().SetText(kMain.value, ChannelName(choice.shown.main));
  Window().SetText(kSub.value, ChannelName(choice.shown.sub));
  Window().SetText(kSub2.value, ChannelName(choice.shown.sub2));
}

void CDisplayModeDlg::ShowChannelsOfCode() {
  const auto choice = FindByCode(panel.identity.brandCode, panel.identity.boxType, mode, code);
  if (!choice) return;
  ShowNames(*choice);
  channels = choice->channels;
}

// A combination that the table does not have keeps names and code; the numbers stay changed.
void CDisplayModeDlg::ShowCodeOfChannels() {
  const auto choice =
      FindByChannels(panel.identity.brandCode, panel.identity.boxType, mode, channels);
  if (choice) {
    ShowNames(*choice);
    code = choice->code;
  }
  ShowPending();
}

void CDisplayModeDlg::OnCommand(int control, ui::Notification what) {
  static constexpr CommandRow<CDisplayModeDlg> kCommands[] = {
      {kMode.next, &CDisplayModeDlg::OnNextMode},
      {kMain.next, &CDisplayModeDlg::OnNextMain},
      {kSub.next, &CDisplayModeDlg::OnNextSub},
      {kSub2.next, &CDisplayModeDlg::OnNextSub2},
      {kLabels.next, &CDisplayModeDlg::OnNextLabelsState},
      {kLabelRows[0].edit, &CDisplayModeDlg::ShowPending, ui::Notification::kTyped},
      {kLabelRows[1].edit, &CDisplayModeDlg::ShowPending, ui::Notification::kTyped},
      {kLabelRows[2].edit, &CDisplayModeDlg::ShowPending, ui::Notification::kTyped},
      {kLabelRows[3].edit, &CDisplayModeDlg::ShowPending, ui::Notification::kTyped},
  };
  DispatchCommand(*this, kCommands, control, what);
}

std::uint8_t CDisplayModeDlg::NextMode() const {
  const auto next = static_cast<std::uint8_t>(mode + 1);
  if (IsToldByBlock()) return next > 4 ? 1 : next;
  if (!IsToldByWord()) return next;
  if (panel.identity.brandCode == kBrandOfModes1To4And9) {
    if (next == 5) return 9;
    return next > 9 ? 1 : next;
  }
  return next > (nineModes == 1 ? 9 : 5) ? 1 : next;
}

void CDisplayModeDlg::OnNextMode() {
  mode = NextMode();
  if (!IsToldByBlock() && !IsToldByWord()) return;
  ShowMode();
  code = CodeOf(mode);
  if (IsToldByBlock() && code == 0) code = 1;
  ShowChannelsOfCode();
  ShowPending();
}

void CDisplayModeDlg::OnNextMain() {
  StepMain(channels, mode, panel.identity.brandCode);
  ShowCodeOfChannels();
}

void CDisplayModeDlg::OnNextSub() {
  StepSub(channels, mode, panel.identity.brandCode);
  ShowCodeOfChannels();
}

void CDisplayModeDlg::OnNextSub2() {
  StepSub2(channels, mode, panel.identity.brandCode);
  ShowCodeOfChannels();
}

// The default labels are shown when the box reports them, but can't be chosen.
void CDisplayModeDlg::OnNextLabelsState() {
  labelsState = labelsState == 0 ? 1 : 0;
  ShowLabelsState();
  EnableLabels(labelsState == 1);
  ShowPending();
}

void CDisplayModeDlg::EnableLabels(bool enabled) {
  for (const LabelRow& row : kLabelRows) Window().EnableControl(row.edit, enabled);
}

bool CDisplayModeDlg::WritesByView() const {
  if (panel.identity.brandCode == 2) return HasInputLabels();
  return panel.firmwareVersion > kLabelsFirmware;
}

void CDisplayModeDlg::Apply() {
  if (IsToldByBlock()) {
    Write(kModes, {mode});
    Write(kCodes, {code});
    SettleMode();
    return;  // what is remembered stays as it was read
  }
  if (!IsToldByWord()) return;
  if (WritesMode()) {
    WriteModeAndCode();
    SettleMode();
  } else if (WritesLabels()) {
    WriteLabels();
    toldState = labelsState;
    ShowPending();
  }
  // The slot is that of the mode before, on purpose.
  if (lastMode >= 1 && lastMode <= kCodesHeld) codeByMode[lastMode - 1U] = code;
  lastCode = code;
  lastMode = mode;
}

void CDisplayModeDlg::SettleMode() {
  toldMode = mode;
  toldChannels = channels;
  ShowPending();
}

void CDisplayModeDlg::WriteModeAndCode() {
  Write(kModeWord, {mode});
  Write(kCodeWord, {code});
}

void CDisplayModeDlg::WriteLabels() {
  std::array<std::uint8_t, 20> state = {labelsState};  // the other bytes carry no meaning
  Write(multiview::kLabelsState, state);
  if (labelsState == 0) EnableLabels(false);
  if (labelsState != 1) return;
  EnableLabels(true);
  for (std::size_t i = 0; i < std::size(kLabelRows); ++i) {
    toldLabels[i] = Window().Text(kLabelRows[i].edit);
    Write(InputLabel(kLabelRows[i].sub), CentredLabel(toldLabels[i]));
  }
}

void CDisplayModeDlg::OnTimer(int /*timer*/) {
  const int count = nineModes == 1 ? 9 : 5;  // never drawn itself
  do {
    mode = static_cast<std::uint8_t>(toolkit.Random() % count);
  } while (mode == 0);
  Write(kModeWord, {mode});
}

}  // namespace panelora
