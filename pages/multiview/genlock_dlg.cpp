#include "pages/multiview/genlock_dlg.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "base/byte_order.h"
#include "base/text.h"
#include "pages/cycling_group.h"
#include "pages/format_text.h"
#include "pages/option_table.h"

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

struct NameRow {
  std::uint8_t boxType;
  std::uint8_t value;  // 255 ends the table
  const char* name;
};
constexpr NameRow kGenlockNames[] = {
    {33, 0, "Free-Run"},  {33, 1, "SDI Input"},  {33, 2, "HDMI Input"}, {20, 0, "Free-Run"},
    {20, 1, "SDI Input"}, {20, 2, "HDMI Input"}, {30, 0, "Free-Run"},   {30, 1, "External"},
    {43, 0, "Free-Run"},  {43, 1, "External"},   {46, 0, "Free-Run"},   {46, 1, "External"},
    {47, 0, "Free-Run"},  {47, 1, "External"},   {50, 0, "Free-Run"},   {50, 1, "External"},
    {39, 0, "Free-Run"},  {39, 1, "SDI Input"},  {39, 2, "Ref Input"},  {40, 0, "Free-Run"},
    {40, 1, "SDI Input"}, {40, 2, "Ref Input"},  {48, 0, "Free-Run"},   {48, 1, "SDI Input"},
    {48, 2, "Ref Input"}, {49, 0, "Free-Run"},   {49, 1, "SDI Input"},  {49, 2, "Ref Input"},
    {0, kTableEnd, ""},
};
constexpr NameRow kSyncNames[] = {
    {30, 0, "75 ohms termination"}, {30, 1, "Open termination"},    {43, 0, "75 ohms termination"},
    {43, 1, "Open termination"},    {39, 0, "75 ohms termination"}, {39, 1, "Open termination"},
    {40, 0, "75 ohms termination"}, {40, 1, "Open termination"},    {0, kTableEnd, ""},
};

// The search ends at the table's end: some boxes report values that have no name.
const char* FindName(const NameRow* table, std::uint8_t boxType, std::uint8_t value) {
  const NameRow* row = FindRow(table, &NameRow::value, [&](const NameRow& each) {
    return each.boxType == boxType && each.value == value;
  });
  return row == nullptr || row->value == kTableEnd ? nullptr : row->name;
}

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

constexpr std::uint8_t kNone = 0;

}  // namespace

// The properties of a group of models.
struct GenlockGroup {
  std::uint8_t reference;
  std::uint8_t mode;
  std::uint8_t delays;
  std::uint8_t syncMode;   // kNone = the group has none
  bool takesSyncMode;      // with every write of delays
  bool tellsLockAndInput;  // whether the mode can be changed, and the reference's code, by
                           // themselves
};

namespace {

constexpr GenlockGroup kGroup1 = {block::kGenlockReference1,
                                  block::kGenlockMode1,
                                  block::kGenlockDelays1,
                                  block::kSyncMode1,
                                  false,
                                  true};
constexpr GenlockGroup kGroup2 = {
    block::kGenlockReference2, block::kGenlockMode2, block::kGenlockDelays2, kNone, false, false};
constexpr GenlockGroup kGroup3 = {block::kGenlockReference3,
                                  block::kGenlockMode3,
                                  block::kGenlockDelays3,
                                  block::kSyncMode3,
                                  true,
                                  false};

struct ModelRow {
  std::uint8_t boxType;
  const GenlockGroup* group;
  std::uint8_t menuBlock;  // what opens the function on the box, to block::kBoxMenu
  std::uint8_t menuWord;   // or to word::kBoxMenu4; kNone = the other
  std::uint8_t lastMode;   // the greatest genlock mode
  bool skipsMode1;
};
// Type 50 counts to 2 although it has no name for it.
constexpr ModelRow kModels[] = {
    {50, &kGroup1, 4, kNone, 2, false}, {46, &kGroup1, 2, kNone, 1, false},
    {47, &kGroup1, 2, kNone, 1, false}, {48, &kGroup1, 2, kNone, 2, false},
    {49, &kGroup1, 2, kNone, 2, false}, {39, &kGroup1, 2, kNone, 2, false},
    {40, &kGroup1, 2, kNone, 2, false}, {20, &kGroup2, kNone, 3, 2, true},
    {33, &kGroup2, kNone, 3, 2, true},  {30, &kGroup3, kNone, 2, 1, false},
    {43, &kGroup3, kNone, 2, 1, false},
};

// Null for types that can't be genlocked.
const ModelRow* FindModel(std::uint8_t boxType) {
  for (const ModelRow& row : kModels) {
    if (row.boxType == boxType) return &row;
  }
  return nullptr;
}

}  // namespace

void CGenlockDlg::Init() {
  TakeHandle();
  SetUpGroup(Window(), kGenlockMode, "Genlock Mode", "Free-Run");
  SetUpGroup(Window(), kSyncMode, "Sync Mode", "75 ohms termination");
  for (const CyclingGroup& group : {kGenlockMode, kSyncMode}) {
    Window().SetFont(group.value, ui::kValueFont);
  }
  const auto set = [&](int control, const char* text) {
    Window().SetFont(control, ui::kCaptionFont);
    Window().SetText(control, text);
  };
  set(kInfoFrame, "Info");
  set(kFormatCaption, "Sync Input Format :");
  set(kFormat, kNoSignalText);
  for (const DelayControls& delay : {kVertical, kHorizontal}) {
    set(delay.caption, delay.text);
    set(delay.down, "<<");
    set(delay.up, ">>");
    set(delay.edit, "0");
    set(delay.label, "0");
    set(delay.unit, delay.unitText);
  }
  ShowGroup(Window(), kSyncMode, FindName(kSyncNames, panel.identity.boxType, 0) != nullptr);
  Window().EnableControl(kGenlockMode.next, true);
  // Nothing of the box before.
  genlockMode = syncMode = 0;
  outputCode = inputCode = kNoCode;
  lines = clocks = 0;
  vDelay = vDelayApplied = 0;
  hDelay = hDelayApplied = 0;
  previewed = false;
  ReadBox();
}

// What the box has now is what leaving the page goes back to.
void CGenlockDlg::Open() {
  previewed = false;
  OpenOnBox();
}

void CGenlockDlg::OpenOnBox() {
  if (const ModelRow* model = FindModel(panel.identity.boxType)) {
    if (model->menuBlock != kNone) Write(Block(block::kBoxMenu), {model->menuBlock});
    if (model->menuWord != kNone) Write(Word(word::kBoxMenu4), {model->menuWord});
  }
  Refresh(serialHandle);
}

void CGenlockDlg::Refresh(ui::SerialHandle serial) {
  serialHandle = serial;
  ReadBox();
}

void CGenlockDlg::ReadBox() {
  const ModelRow* model = FindModel(panel.identity.boxType);
  if (model == nullptr) return;
  const GenlockGroup& group = *model->group;
  BlockBuffer format{};  // a format that can't be read is none
  Read(Block(group.reference, 30), format);
  ReadMode(group);
  if (group.tellsLockAndInput) ReadLockAndInput();
  ChooseRanges();
  ReadDelays(group);
  if (hDelayAllowed == 0) hDelay = 0;
  BlockBuffer sync{};
  if (group.syncMode != kNone && Read(Block(group.syncMode, 2), sync)) syncMode = sync[0];
  Window().SetText(
      kFormat, FormatText(LittleEndian(format[0], format[1]), LittleEndian(format[2], format[3]),
                          format[4], format[5], format[6] == 1 ? "p" : "i"));
  ShowGenlockMode();
  ShowSyncMode();
  EnableDelays();
  ShowDelays();
}

void CGenlockDlg::ReadMode(const GenlockGroup& group) {
  BlockBuffer bytes{};
  if (!Read(Block(group.mode, 4), bytes)) return;
  genlockMode = bytes[0];
  outputCode = bytes[1];
  if (!group.tellsLockAndInput) inputCode = bytes[3];
}

void CGenlockDlg::ReadLockAndInput() {
  BlockBuffer bytes{};
  if (Read(Block(block::kGenlockLocked, 2), bytes) && bytes[0] <= 1) {
    Window().EnableControl(kGenlockMode.next, bytes[0] == 0);
  }
  if (Read(Block(block::kGenlockInputCode, 2), bytes)) inputCode = bytes[0];
}

// Told little-endian, although they are taken big-endian: the box's own way. What is read while a
// preview is out is that preview, and not what leaving the page has to go back to.
void CGenlockDlg::ReadDelays(const GenlockGroup& group) {
  BlockBuffer bytes{};
  if (!Read(Block(group.delays, 4), bytes)) return;
  vDelay = LittleEndian(bytes[0], bytes[1]);
  hDelay = LittleEndian(bytes[2], bytes[3]);
  if (previewed) return;
  vDelayApplied = vDelay;
  hDelayApplied = hDelay;
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
  const char* name = FindName(kGenlockNames, panel.identity.boxType, genlockMode);
  if (name != nullptr) Window().SetText(kGenlockMode.value, name);
}

void CGenlockDlg::ShowSyncMode() {
  const char* name = FindName(kSyncNames, panel.identity.boxType, syncMode);
  if (name != nullptr) Window().SetText(kSyncMode.value, name);
}

void CGenlockDlg::ShowSliders() {
  Window().SetSliderRange(kVertical.slider, 0, vDelayMax);
  Window().SetSliderPosition(kVertical.slider, vDelay);
  Window().SetSliderRange(kHorizontal.slider, 0, hDelayMax);
  Window().SetSliderPosition(kHorizontal.slider, hDelay);
}

void CGenlockDlg::ShowDelays() {
  ShowSliders();
  ShowNumber(kVertical, vDelay);
  ShowNumber(kHorizontal, hDelay);
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
  const ModelRow* model = FindModel(panel.identity.boxType);
  if (model == nullptr) return;
  ++genlockMode;
  if (genlockMode == 1 && model->skipsMode1) ++genlockMode;
  if (genlockMode > model->lastMode) genlockMode = 0;
  ShowGenlockMode();
  EnableDelays();
  ShowSliders();
}

void CGenlockDlg::OnNextSyncMode() {
  syncMode = syncMode == 0 ? 1 : 0;
  ShowSyncMode();
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
  if (slider == kVertical.slider) TakeSlider(kVertical, vDelay);
  if (slider == kHorizontal.slider) TakeSlider(kHorizontal, hDelay);
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
  vDelay = static_cast<std::uint16_t>(std::clamp<int>(*vertical, 0, vDelayMax));
  hDelay = static_cast<std::uint16_t>(std::clamp<int>(*horizontal, 0, hDelayMax));
  return true;
}

bool CGenlockDlg::OnKey(ui::Key key) {
  if (key == ui::Key::kEnter && TakeEdits()) SendDelays(false);
  return true;
}

void CGenlockDlg::Apply() {
  const ModelRow* model = FindModel(panel.identity.boxType);
  if (model != nullptr) Write(Block(model->group->mode), {genlockMode});
  if (!TakeEdits()) return;
  vDelayApplied = vDelay;
  hDelayApplied = hDelay;
  SendDelays(true);
}

// Big-endian, although they are read little-endian: the box's own way.
void CGenlockDlg::SendDelays(bool final) {
  previewed = !final;
  if (const ModelRow* model = FindModel(panel.identity.boxType)) {
    Write(Block(model->group->delays), {HighByte(vDelay), LowByte(vDelay), HighByte(hDelay),
                                        LowByte(hDelay), static_cast<std::uint8_t>(final ? 1 : 0)});
    if (model->group->takesSyncMode) Write(Block(model->group->syncMode), {syncMode});
  }
  ShowDelays();
}

void CGenlockDlg::Leave() {
  const bool changed = vDelay != vDelayApplied || hDelay != hDelayApplied;
  if (!std::exchange(previewed, false) || !changed) return;
  vDelay = vDelayApplied;
  hDelay = hDelayApplied;
  SendDelays(false);
  previewed = false;
}

}  // namespace panelora
