#include "pages/procamp/proc_amp_dlg.h"

#include <algorithm>
#include <iterator>

#include "res/dialog_templates.h"
#include "ui/text.h"

namespace panelora {

namespace {

constexpr std::uint16_t kSkipAfterChange = 2;
constexpr int kNoEdit = 0;
constexpr int kFrame = 1027;
constexpr ui::Font kFrameFont{"Arial", 130};
constexpr int kEditCharacters = 3;

// A value of the page, in the order of the cache: its controls, its greatest value, and by which
// control it is sent (RGB values are sent together).
struct ValueRow {
  int caption;
  const char* text;
  int slider;
  int label;
  int edit;
  int maximum;
  std::uint32_t control = 0;
  const char* failure = nullptr;
};

constexpr std::size_t kPictureValues = 4;
constexpr std::size_t kGain = 4;
constexpr std::size_t kOffset = 5;
constexpr std::size_t kOffset2 = 6;

constexpr ValueRow kValues[] = {
    {1028, "Brightness", 1032, 1036, 1049, 255, proc_amp::kBrightness,
     "GET VIDEO PROC AMP ERROR ( BRIGHTNESS )!!"},
    {1029, "Contrast", 1035, 1037, 1050, 255, proc_amp::kContrast,
     "GET VIDEO PROC AMP ERROR ( CONTRAST )!!"},
    {1030, "Hue", 1034, 1038, 1051, 255, proc_amp::kHue, "GET VIDEO PROC AMP ERROR ( HUE )!!"},
    {1031, "Saturation", 1033, 1039, 1052, 255, proc_amp::kSaturation,
     "GET VIDEO PROC AMP ERROR ( SATURATION )!!"},
    {1040, "RGB Gain", 1041, 1042, kNoEdit, 255},
    {1043, "RGB Offset", 1044, 1045, kNoEdit, 255},
    {1046, "RGB Offset", 1047, 1048, kNoEdit, 64},
};

bool HasNoPictureValues(std::uint8_t boxType) {
  return boxType == 5 || boxType == 27 || boxType == 6 || boxType == 7;
}

// How other models select the channel whose values are read back: the value 0 on the property by
// which they take their commands. Types without a row take word::kBoxMenu4.
struct ChannelRow {
  std::uint8_t boxType;
  std::uint32_t item;  // kByBlock = block::kBoxMenu instead
};
constexpr std::uint32_t kByBlock = 0;
constexpr ChannelRow kChannels[] = {
    {24, word::kBoxMenu5}, {34, word::kBoxMenu5}, {23, word::kBoxMenu7}, {42, word::kBoxMenu7},
    {37, kByBlock},        {38, kByBlock},        {39, kByBlock},        {40, kByBlock},
    {46, kByBlock},        {47, kByBlock},        {48, kByBlock},        {49, kByBlock},
    {50, kByBlock},        {51, kByBlock},
};

std::uint32_t ChannelItem(std::uint8_t boxType) {
  for (const ChannelRow& row : kChannels) {
    if (row.boxType == boxType) return row.item;
  }
  return word::kBoxMenu4;
}

// Models that store what Apply sent only when they are told to, and from which firmware.
struct CommitRow {
  std::uint8_t boxType;
  std::uint32_t firmware;
};
constexpr CommitRow kCommits[] = {{24, 262}, {34, 262}, {25, 265}, {29, 265}, {20, 0}, {33, 0}};

}  // namespace

CProcAmpDlg::CProcAmpDlg(PanelContext context) : Page(res::kProcAmp, context) {}

void CProcAmpDlg::Init(ui::SerialHandle serial, ProcAmpCache& cache) {
  TakeHandle();
  serialHandle = serial;
  Window().SetFont(kFrame, kFrameFont);
  Window().SetText(kFrame, "Proc Amp");
  Window().PlaceControl(kFrame, {50, 30, 375, 240});
  for (const ValueRow& row : kValues) {
    for (const int control : {row.caption, row.label}) {
      Window().SetFont(control, ui::kCaptionFont);
    }
    Window().SetText(row.caption, row.text);
    Window().SetSliderRange(row.slider, 0, row.maximum);
    if (row.edit == kNoEdit) continue;
    Window().SetFont(row.edit, ui::kCaptionFont);
    Window().SetTextLimit(row.edit, kEditCharacters);
  }
  const bool adjustable = !HasNoPictureValues(panel.identity.boxType);
  if (!adjustable) std::fill_n(cache.begin(), kPictureValues, std::uint8_t{128});
  for (std::size_t i = 0; i < kPictureValues; ++i) {
    Window().EnableControl(kValues[i].slider, adjustable);
  }
  values = cache;
  // What the slider can't hold must not come back from it as a change.
  values[kOffset2] = std::min<std::uint8_t>(values[kOffset2], 64);
  ShowValues();
  ShowView();
}

void CProcAmpDlg::ShowValues() {
  for (std::size_t i = 0; i < std::size(kValues); ++i) {
    const ValueRow& row = kValues[i];
    Window().SetSliderPosition(row.slider, values[i]);
    Window().SetText(row.label, ui::Format("%d", values[i]));
    if (row.edit != kNoEdit && HasEdits()) {
      Window().SetText(row.edit, ui::Format("%03d", values[i]));
    }
  }
}

void CProcAmpDlg::SetViewMode(int mode) {
  viewMode = mode;
  ShowView();
}

// Other models have the picture controls alone, whatever the mode.
void CProcAmpDlg::ShowView() {
  const bool showsRgb = IsModel26() && viewMode == 1;
  for (const ValueRow& row : kValues) {
    const bool isRgb = row.edit == kNoEdit;
    const bool shown = isRgb == showsRgb;
    Window().ShowControl(row.caption, shown);
    Window().ShowControl(row.slider, shown);
    Window().ShowControl(row.label, shown && (isRgb || !HasEdits()));
    if (!isRgb) Window().ShowControl(row.edit, shown && HasEdits());
  }
}

// Runs whenever a slider repaints, while it is dragged too.
void CProcAmpDlg::OnSliderRepainted(int slider) {
  for (std::size_t i = 0; i < std::size(kValues); ++i) {
    const ValueRow& row = kValues[i];
    if (row.slider != slider) continue;
    panel.tickSkip = kSkipAfterChange;
    const auto position = static_cast<std::uint8_t>(Window().SliderPosition(slider));
    Window().SetText(row.label, ui::Format("%d", position));
    if (row.edit != kNoEdit && HasEdits()) {
      Window().SetText(row.edit, ui::Format("%03d", position));
    }
    if (position == values[i]) return;
    if (row.edit == kNoEdit) {
      values[i] = position;
      SendRgb();
      return;
    }
    Write(ProcAmp(row.control), {position});
    // Brand 2 keeps the old value, so that every later repaint sends again: deliberate.
    if (!HasEdits()) values[i] = position;
    return;
  }
}

void CProcAmpDlg::SendPicture(std::size_t index) {
  Window().SetSliderPosition(kValues[index].slider, values[index]);
  Write(ProcAmp(kValues[index].control), {values[index]});
}

void CProcAmpDlg::SendRgb() {
  Write(Block(block::kRgb), {values[kGain], values[kOffset], values[kOffset2]});
}

std::optional<int> CProcAmpDlg::Typed(std::size_t index) {
  return ui::ParseNumber(Window().Text(kValues[index].edit));
}

bool CProcAmpDlg::Commits() const {
  if (panel.identity.brandCode != 2) return false;
  for (const CommitRow& row : kCommits) {
    if (row.boxType == panel.identity.boxType) return panel.firmwareVersion >= row.firmware;
  }
  return false;
}

void CProcAmpDlg::Apply() {
  panel.tickSkip = kSkipAfterChange;
  for (std::size_t i = 0; i < kPictureValues; ++i) {
    const std::optional<int> typed = Typed(i);
    if (!typed) return;
    // Compared without a sign, so that a negative number becomes 255 too.
    const auto value =
        static_cast<std::uint8_t>(std::min<unsigned>(static_cast<std::uint16_t>(*typed), 255));
    if (value == values[i]) continue;
    values[i] = value;
    SendPicture(i);
  }
  if (Commits()) Write(ProcAmp(proc_amp::kCommit), {1});
}

void CProcAmpDlg::Leave() {
  if (panel.identity.brandCode != 2) return;
  panel.tickSkip = kSkipAfterChange;
  int typed[kPictureValues] = {};
  for (std::size_t i = 0; i < kPictureValues; ++i) {
    const std::optional<int> number = Typed(i);
    if (!number) return;
    typed[i] = std::min(*number, 255);
  }
  for (std::size_t i = 0; i < kPictureValues; ++i) {
    if (typed[i] != values[i]) SendPicture(i);  // what is stored, not what was typed: deliberate
  }
}

bool CProcAmpDlg::OnKey(ui::Key key) {
  if (key == ui::Key::kEnter && Commits()) {
    Apply();
    Write(ProcAmp(proc_amp::kCommit), {0});
  }
  return true;
}

void CProcAmpDlg::RestoreDefaults() {
  if (IsModel26()) {
    ReadDefaults26();
  } else if (panel.identity.boxType != kNoBoxType) {
    ReadDefaultsOneByOne();
  }
  ProcAmpCache own = values;
  Init(serialHandle, own);
}

void CProcAmpDlg::ReadDefaults26() {
  values[kGain] = 128;
  values[kOffset] = 128;
  Write(Word(word::kCommand), {viewMode == 0 ? command::kProcAmpDefaults : command::kRgbDefaults});
  // The result of this call is not tested: what it does not fill keeps its value.
  ProcAmpBytes picture{values[0], values[1], values[2], values[3]};
  box.Read(picture);
  values[0] = picture.brightness;
  values[1] = picture.contrast;
  values[2] = picture.hue;
  values[3] = picture.saturation;
  BlockBuffer rgb{};
  if (Read(Block(block::kRgb, 3), rgb)) {
    values[kGain] = rgb[0];
    values[kOffset] = rgb[1];
  }
}

void CProcAmpDlg::ReadDefaultsOneByOne() {
  const std::uint32_t item = ChannelItem(panel.identity.boxType);
  if (item == kByBlock) {
    Write(Block(block::kBoxMenu), {0});
  } else {
    Write(Word(item), {0});
  }
  for (std::size_t i = 0; i < kPictureValues; ++i) {
    const bool told = Read(ProcAmp(kValues[i].control), values[i]);
    if (!told) toolkit.DebugOutput(kValues[i].failure);
  }
}

}  // namespace panelora
