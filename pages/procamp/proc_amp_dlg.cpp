#include "pages/procamp/proc_amp_dlg.h"

#include <algorithm>
#include <iterator>

#include "base/text.h"
#include "res/dialog_templates.h"

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

}  // namespace

CProcAmpDlg::CProcAmpDlg(PanelContext context) : Page(res::kProcAmp, context) {}

void CProcAmpDlg::Open() {
  TakeHandle();
  ReadCache();
  Init(panel.serialHandle, panel.procAmpCache);
}

// Values that the box does not tell are 128, the second RGB offset 0; the bytes behind those read
// keep their earlier values.
void CProcAmpDlg::ReadCache() {
  ProcAmpBytes told;
  if (picture::kToldOneByOne.Has(panel.identity.boxType)) {
    Read(ProcAmp(proc_amp::kBrightness), told.brightness);
    Read(ProcAmp(proc_amp::kContrast), told.contrast);
    Read(ProcAmp(proc_amp::kHue), told.hue);
    Read(ProcAmp(proc_amp::kSaturation), told.saturation);
  } else if (!picture::kNotAsked.Has(panel.identity.boxType)) {
    box.Read(told);
  }
  ProcAmpCache& cache = panel.procAmpCache;
  cache[0] = told.brightness;
  cache[1] = told.contrast;
  cache[2] = told.hue;
  cache[3] = told.saturation;
  if (!IsModel26()) return;

  BlockBuffer rgb{};
  if (!Read(picture::kRgb, rgb)) rgb = {128, 128, 0};
  std::copy_n(rgb.begin(), 3, cache.begin() + kGain);
}

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
  const bool adjustable = !picture::kWithoutValues.Has(panel.identity.boxType);
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
    Window().SetText(row.label, Format("%d", values[i]));
    if (row.edit != kNoEdit && HasEdits()) {
      Window().SetText(row.edit, Format("%03d", values[i]));
    }
  }
}

void CProcAmpDlg::SetSubPage(int number) {
  viewMode = number;
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
    Window().SetText(row.label, Format("%d", position));
    if (row.edit != kNoEdit && HasEdits()) {
      Window().SetText(row.edit, Format("%03d", position));
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
  Write(picture::kRgb, {values[kGain], values[kOffset], values[kOffset2]});
}

std::optional<int> CProcAmpDlg::Typed(std::size_t index) {
  return ParseNumber(Window().Text(kValues[index].edit));
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
  Write(command::kAt, {viewMode == 0 ? command::kProcAmpDefaults : command::kRgbDefaults});
  // The result of this call is not tested: what it does not fill keeps its value.
  ProcAmpBytes told{values[0], values[1], values[2], values[3]};
  box.Read(told);
  values[0] = told.brightness;
  values[1] = told.contrast;
  values[2] = told.hue;
  values[3] = told.saturation;
  BlockBuffer rgb{};
  if (Read(picture::kRgb, rgb)) {
    values[kGain] = rgb[0];
    values[kOffset] = rgb[1];
  }
}

void CProcAmpDlg::ReadDefaultsOneByOne() {
  Write(picture::ChannelOf(panel.identity.boxType), {0});
  for (std::size_t i = 0; i < kPictureValues; ++i) {
    const bool told = Read(ProcAmp(kValues[i].control), values[i]);
    if (!told) toolkit.DebugOutput(kValues[i].failure);
  }
}

}  // namespace panelora
