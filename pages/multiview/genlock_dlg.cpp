#include "pages/multiview/genlock_dlg.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "base/text.h"
#include "pages/caption.h"
#include "pages/cycling_group.h"

namespace panelora {

struct DelayControls {
  int caption;
  const char* text;
  int slider;
  int down;
  int up;
  int edit;
  int label;
  int unit;
  const char* unitText;
};

namespace {

constexpr CyclingGroup kGenlockMode = {1077, 1078, 1079, 1080};
constexpr CyclingGroup kSyncMode = {1092, 1093, 1094, 1095};
constexpr int kInfoFrame = 1081;
constexpr int kFormatCaption = 1082;
constexpr int kFormat = 1083;

// An output format: its size in time, and the reference formats that allow a horizontal delay.
struct RangeRow {
  std::uint8_t outputCode;
  std::uint16_t lines;   // a frame
  std::uint16_t clocks;  // a line
  std::uint8_t firstInput;
  std::uint8_t lastInput;
};
constexpr RangeRow kRanges[] = {
    {0, 525, 1716, 0, 1},     {1, 625, 1728, 2, 2},     {4, 750, 1650, 6, 7},
    {6, 750, 1980, 8, 8},     {7, 1125, 2200, 12, 13},  {9, 1125, 2640, 14, 14},
    {10, 1125, 2200, 15, 16}, {12, 1125, 2640, 17, 17}, {45, 1125, 2200, 18, 19},
};

// The row of an output code; null when there is none.
const RangeRow* FindRange(std::uint8_t outputCode) {
  for (const RangeRow& row : kRanges) {
    if (row.outputCode == outputCode) return &row;
  }
  return nullptr;
}

constexpr DelayControls kVertical = {1084, "V Sync Delay :", 1086, 1108, 1107, 1105, 1088, 1090,
                                     "H"};
constexpr DelayControls kHorizontal = {1085, "H Sync Delay :", 1087, 1110, 1109, 1106, 1089,
                                       1091, "Clock"};

}  // namespace

void CGenlockDlg::Init() {
  TakeHandle();
  SetUpGroup(Window(), kGenlockMode, "Genlock Mode", "Free-Run");
  SetUpGroup(Window(), kSyncMode, "Sync Mode", "75 ohms termination");
  for (const CyclingGroup& group : {kGenlockMode, kSyncMode}) {
    Window().SetFont(group.value, ui::kValueFont);
  }
  SetCaption(Window(), kInfoFrame, "Info");
  SetCaption(Window(), kFormatCaption, "Sync Input Format :");
  SetCaption(Window(), kFormat, kNoSignalText);
  for (const DelayControls& delay : {kVertical, kHorizontal}) {
    SetCaption(Window(), delay.caption, delay.text);
    SetCaption(Window(), delay.down, "<<");
    SetCaption(Window(), delay.up, ">>");
    SetCaption(Window(), delay.edit, "0");
    SetCaption(Window(), delay.label, "0");
    SetCaption(Window(), delay.unit, delay.unitText);
  }
  const bool hasSync = FindIndex(genlock::SyncNames(), panel.identity.boxType, 0) != nullptr;
  ShowGroup(Window(), kSyncMode, hasSync);
  Window().EnableControl(kGenlockMode.next, true);
  // Nothing of the box before.
  genlockMode = syncMode = toldMode = toldSync = 0;
  outputCode = inputCode = kNoCode;
  lines = clocks = 0;
  delays = applied = {};
  previewed = false;
  ReadBox();
}

// What the box has now is what leaving the page goes back to.
void CGenlockDlg::Open() {
  previewed = false;
  OpenOnBox();
}

void CGenlockDlg::OpenOnBox() {
  if (const genlock::Model* model = genlock::Find(panel.identity.boxType)) {
    Write(model->opening.at, {model->opening.value});
  }
  Refresh(serialHandle);
}

void CGenlockDlg::Refresh(ui::SerialHandle serial) {
  serialHandle = serial;
  ReadBox();
}

void CGenlockDlg::ReadBox() {
  const genlock::Model* model = genlock::Find(panel.identity.boxType);
  if (model == nullptr) return;
  BlockBuffer format{};  // a format that can't be read is none
  Read(model->reference, format);
  ReadMode(*model);
  ReadLockAndInput(*model);
  ChooseRanges();
  ReadDelays(*model);
  if (hDelayAllowed == 0) delays.clocks = 0;
  if (Read(model->sync, syncMode)) toldSync = syncMode;
  const VideoFormat reference = DecodeFormat(format, ByteOrder::kLittle);
  Window().SetText(kFormat, TextOf(reference, reference.scan == 1 ? "p" : "i"));
  ShowGenlockMode();
  ShowSyncMode();
  EnableDelays();
  ShowDelays();
  ShowPending();
}

// A preview is on the box, but not for good.
void CGenlockDlg::ShowPending() {
  MarkPending(
      {{kGenlockMode.frame, genlockMode != toldMode}, {kSyncMode.frame, syncMode != toldSync}},
      previewed && delays != applied);
}

void CGenlockDlg::ReadMode(const genlock::Model& model) {
  BlockBuffer bytes{};
  if (!Read(model.mode, bytes)) return;
  genlockMode = toldMode = bytes[0];
  outputCode = bytes[1];
  if (model.input.kind == Address::Kind::kNone) inputCode = bytes[3];
}

void CGenlockDlg::ReadLockAndInput(const genlock::Model& model) {
  std::uint8_t locked = 0;
  if (Read(model.locked, locked) && locked <= 1) {
    Window().EnableControl(kGenlockMode.next, locked == 0);
  }
  Read(model.input, inputCode);
}

// What is read while a preview is out is that preview, and not what leaving the page has to go back
// to.
void CGenlockDlg::ReadDelays(const genlock::Model& model) {
  BlockBuffer bytes{};
  if (!Read(model.delays, bytes)) return;
  delays = DecodeToldDelays(bytes);
  if (!previewed) applied = delays;
}

// An output code without a row keeps the sizes and allows no horizontal delay.
void CGenlockDlg::ChooseRanges() {
  const RangeRow* row = FindRange(outputCode);
  hDelayAllowed = 0;
  if (row == nullptr) return;
  lines = row->lines;
  clocks = row->clocks;
  if (inputCode >= row->firstInput && inputCode <= row->lastInput) hDelayAllowed = 1;
}

void CGenlockDlg::EnableDelays() {
  const bool locks = genlockMode != 0;
  const bool horizontal = locks && hDelayAllowed == 1;
  vDelayMax = locks ? lines : std::uint16_t{0};
  hDelayMax = horizontal ? clocks : std::uint16_t{0};
  const auto enable = [&](const DelayControls& delay, bool enabled) {
    for (const int control : {delay.slider, delay.down, delay.up, delay.edit}) {
      Window().EnableControl(control, enabled);
    }
  };
  enable(kVertical, locks);
  enable(kHorizontal, horizontal);
  for (const int control :
       {kHorizontal.caption, kHorizontal.slider, kHorizontal.down, kHorizontal.up, kHorizontal.edit,
        kHorizontal.label, kHorizontal.unit}) {
    Window().ShowControl(control, hDelayAllowed == 1);
  }
}

void CGenlockDlg::ShowGenlockMode() {
  ShowChoice(kGenlockMode.value, genlock::ModeNames(), genlockMode);
}

void CGenlockDlg::ShowSyncMode() { ShowChoice(kSyncMode.value, genlock::SyncNames(), syncMode); }

void CGenlockDlg::ShowSliders() {
  Window().SetSliderRange(kVertical.slider, 0, vDelayMax);
  Window().SetSliderPosition(kVertical.slider, delays.lines);
  Window().SetSliderRange(kHorizontal.slider, 0, hDelayMax);
  Window().SetSliderPosition(kHorizontal.slider, delays.clocks);
}

void CGenlockDlg::ShowDelays() {
  ShowSliders();
  ShowNumber(kVertical, delays.lines);
  ShowNumber(kHorizontal, delays.clocks);
}

void CGenlockDlg::ShowNumber(const DelayControls& delay, std::uint16_t value) {
  Window().SetText(delay.edit, Format("%d", value));
  Window().SetText(delay.label, Format("%d", value));
}

void CGenlockDlg::OnCommand(int control, ui::Notification what) {
  static constexpr CommandRow<CGenlockDlg> kCommands[] = {
      {kGenlockMode.next, &CGenlockDlg::OnNextGenlockMode},
      {kSyncMode.next, &CGenlockDlg::OnNextSyncMode},
      {kVertical.up, &CGenlockDlg::OnVerticalUp},
      {kVertical.down, &CGenlockDlg::OnVerticalDown},
      {kHorizontal.up, &CGenlockDlg::OnHorizontalUp},
      {kHorizontal.down, &CGenlockDlg::OnHorizontalDown},
  };
  DispatchCommand(*this, kCommands, control, what);
}

void CGenlockDlg::OnNextGenlockMode() {
  const genlock::Model* model = genlock::Find(panel.identity.boxType);
  if (model == nullptr) return;
  ++genlockMode;
  if (genlockMode == 1 && model->skipsMode1) ++genlockMode;
  if (genlockMode > model->lastMode) genlockMode = 0;
  ShowGenlockMode();
  EnableDelays();
  ShowSliders();
  ShowPending();
}

void CGenlockDlg::OnNextSyncMode() {
  syncMode = syncMode == 0 ? 1 : 0;
  ShowSyncMode();
  ShowPending();
}

void CGenlockDlg::StepUp(std::uint16_t& value, std::uint16_t maximum) {
  value = static_cast<std::uint16_t>(std::min(value + 1, int{maximum}));
  SendDelays(false);
}

void CGenlockDlg::StepDown(std::uint16_t& value) {
  if (value != 0) --value;
  SendDelays(false);
}

void CGenlockDlg::OnSliderReleased(int slider) {
  if (slider == kVertical.slider) TakeSlider(kVertical, delays.lines);
  if (slider == kHorizontal.slider) TakeSlider(kHorizontal, delays.clocks);
}

void CGenlockDlg::TakeSlider(const DelayControls& delay, std::uint16_t& value) {
  const auto position = static_cast<std::uint16_t>(Window().SliderPosition(delay.slider));
  ShowNumber(delay, position);
  if (position == value) return;
  value = position;
  SendDelays(false);
}

// False when an edit holds no number; both delays are kept then.
bool CGenlockDlg::TakeEdits() {
  const std::optional<int> vertical = ParseNumber(Window().Text(kVertical.edit));
  const std::optional<int> horizontal = ParseNumber(Window().Text(kHorizontal.edit));
  if (!vertical || !horizontal) return false;
  delays.lines = static_cast<std::uint16_t>(std::clamp<int>(*vertical, 0, vDelayMax));
  delays.clocks = static_cast<std::uint16_t>(std::clamp<int>(*horizontal, 0, hDelayMax));
  return true;
}

bool CGenlockDlg::OnKey(ui::Key key) {
  if (key == ui::Key::kEnter && TakeEdits()) SendDelays(false);
  return true;
}

void CGenlockDlg::Apply() {
  const genlock::Model* model = genlock::Find(panel.identity.boxType);
  if (model != nullptr) Write(model->mode, {genlockMode});
  toldMode = genlockMode;
  ShowPending();
  if (!TakeEdits()) return;
  applied = delays;
  SendDelays(true);
}

void CGenlockDlg::SendDelays(bool final) {
  previewed = !final;
  if (const genlock::Model* model = genlock::Find(panel.identity.boxType)) {
    Write(model->delays, EncodeTakenDelays(delays, final));
    if (model->takesSync) {
      Write(model->sync, {syncMode});
      toldSync = syncMode;
    }
  }
  ShowDelays();
  ShowPending();
}

void CGenlockDlg::Leave() {
  const bool changed = delays != applied;
  if (!std::exchange(previewed, false) || !changed) return;
  delays = applied;
  SendDelays(false);
  previewed = false;
}

}  // namespace panelora
