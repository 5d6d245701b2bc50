#include "pages/setting/setting_dlg.h"

#include "pages/cycling_group.h"
#include "pages/option_table.h"
#include "res/dialog_templates.h"

namespace panelora {

namespace {

constexpr int kHardwareReset = 1041;

constexpr CyclingGroup kLockGroup = {1040, 1037, 1038, 1039};
constexpr CyclingGroup kOsdGroup = {1042, 1043, 1044, 1045};
constexpr CyclingGroup kPatternGroup = {1050, 1072, 1052, 1053};
constexpr CyclingGroup kNoSignalGroup = {1046, 1047, 1048, 1049};
constexpr CyclingGroup kDip8Group = {1051, 1054, 1055, 1056};

struct TextRow {
  const CyclingGroup& group;
  const char* caption;
  const char* firstValue;
};
constexpr TextRow kTexts[] = {
    {kLockGroup, "Function Button", "Un-Locked"},
    {kOsdGroup, "OSD Hide Mode", "Hide"},
    {kPatternGroup, "Pattern Mode", "Disable"},
    {kNoSignalGroup, "No Signal Mode", "Blue Screen"},
    {kDip8Group, "DipSwitch 8(1) Mode", "FULL SCREEN"},
};

struct OptionText {
  std::uint8_t value;
  const char* text;
};
constexpr OptionText kLocks[] = {{1, "Locked"}, {0, "Un-Locked"}, {kTableEnd, nullptr}};
constexpr OptionText kOsds[] = {{1, "Enable"}, {0, "Disable"}, {kTableEnd, nullptr}};
constexpr OptionText kNoSignals[] = {
    {1, "Blue Screen"}, {0, "Black Screen"}, {2, "Disable Output"}, {kTableEnd, nullptr}};
constexpr OptionText kPatterns[] = {
    {0, "Disable"},   {1, "White"},  {2, "Cross"},  {3, "Hatch"},   {4, "Color Bar"},
    {5, "Gray"},      {6, "Window"}, {7, "H Ramp"}, {8, "WH Ramp"}, {9, "WV Ramp"},
    {10, "Diagonal"}, {11, "Red"},   {12, "Green"}, {13, "Blue"},   {kTableEnd, nullptr}};
constexpr OptionText kDip8Modes26[] = {{0, "Keep Aspect Ratio"},
                                       {1, "Full Screen (16:9)"},
                                       {2, "Dot By Dot"},
                                       {3, "4 : 3"},
                                       {4, "14 : 9"},
                                       {5, "UnderScan"},
                                       {6, "Pan Scan 16 : 9"},
                                       {kTableEnd, nullptr}};
constexpr OptionText kDip8Modes[] = {
    {4, "Full Screen"},       {0, "16 : 9"},       {1, "4 : 3"}, {2, "Dot By Dot"},
    {3, "Keep Aspect Ratio"}, {kTableEnd, nullptr}};

constexpr int kLastLock = 1;
constexpr int kLastOsd = 1;
constexpr int kLastPattern = 13;
constexpr int kLastNoSignal = 2;
constexpr int kLastDip8Mode26 = 6;
constexpr int kLastDip8Mode = 4;

constexpr int kLeft = 55;
constexpr int kNextX = 375;

// A shown option: the top of its caption and of its ">>".
struct OptionPlace {
  const CyclingGroup* group = nullptr;
  int y = 0;
  int nextY = 0;
};

// What model 26 shows from which firmware on.
struct FirmwareRow {
  std::uint32_t firmware;
  OptionPlace places[3];
  int resetY;
};
constexpr FirmwareRow kFirmwares[] = {
    {294, {{&kDip8Group, 15, 38}, {&kOsdGroup, 85, 108}, {&kNoSignalGroup, 155, 178}}, 235},
    {293, {{&kOsdGroup, 30, 52}, {&kNoSignalGroup, 115, 137}, {}}, 215},
    {281, {{&kOsdGroup, 65, 88}, {}, {}}, 165},
    {0, {{}, {}, {}}, 125},
};
constexpr std::uint32_t kDip8Firmware = 294;
constexpr std::uint32_t kNoSignalFirmware = 293;
constexpr std::uint32_t kOsdFirmware = 281;

// How a type takes its commands; the value 1 resets it, but for kWordZero, which is reset by 0.
enum class By { kWord, kBlock, kWordZero };
struct ResetRow {
  std::uint8_t boxType;
  By by;
  std::uint8_t number;
};
// The last row serves every other type.
constexpr ResetRow kResets[] = {
    {20, By::kWord, 4},     {21, By::kWord, 4},         {33, By::kWord, 4},  {30, By::kWord, 4},
    {43, By::kWord, 4},     {25, By::kWord, 4},         {29, By::kWord, 4},  {24, By::kWord, 5},
    {34, By::kWord, 5},     {18, By::kWord, 6},         {32, By::kWord, 6},  {23, By::kWord, 7},
    {42, By::kWord, 7},     {13, By::kWord, 10},        {15, By::kWord, 10}, {17, By::kWordZero, 8},
    {35, By::kWordZero, 8}, {37, By::kBlock, 1},        {38, By::kBlock, 1}, {39, By::kBlock, 1},
    {40, By::kBlock, 1},    {46, By::kBlock, 1},        {47, By::kBlock, 1}, {48, By::kBlock, 1},
    {49, By::kBlock, 1},    {50, By::kBlock, 1},        {51, By::kBlock, 1}, {14, By::kBlock, 10},
    {36, By::kBlock, 10},   {kNoBoxType, By::kWord, 3},
};

const ResetRow& ResetOf(std::uint8_t boxType) {
  const ResetRow* row = kResets;
  while (row->boxType != boxType && row->boxType != kNoBoxType) ++row;
  return *row;
}

std::uint8_t Next(std::uint8_t value, int last) {
  return static_cast<std::uint8_t>(value + 1 > last ? 0 : value + 1);
}

// A value without a row leaves the text.
void ShowOption(ui::Dialog& dialog, const CyclingGroup& group, const OptionText* table,
                std::uint8_t value) {
  const OptionText* row = FindRow(table, &OptionText::value, [&](const OptionText& each) {
    return each.text != nullptr && each.value == value;
  });
  if (row != nullptr) dialog.SetText(group.value, row->text);
}

}  // namespace

CSettingDlg::CSettingDlg(PanelContext context)
    : Page(res::kSetting, context), caution(context.toolkit) {}

void CSettingDlg::Init() {
  TakeHandle();
  for (const TextRow& row : kTexts) {
    SetUpGroup(Window(), row.group, row.caption, row.firstValue);
    Window().SetFont(row.group.value, ui::kCaptionFont);
  }
  Window().SetFont(kHardwareReset, ui::kCaptionFont);
  Window().SetPictures(kHardwareReset, "RESET_BTU_U", "RESET_BTU_D");
  LayOut();
}

void CSettingDlg::LayOut() {
  static constexpr FirmwareRow kByBlock = {
      0, {{&kDip8Group, 15, 38}, {&kOsdGroup, 85, 108}, {&kNoSignalGroup, 155, 178}}, 235};
  static constexpr FirmwareRow kByWord = {
      0, {{&kLockGroup, 15, 38}, {&kPatternGroup, 85, 108}, {&kNoSignalGroup, 155, 178}}, 235};
  const FirmwareRow* row = kFirmwares;
  if (IsModel26()) {
    while (panel.firmwareVersion < row->firmware) ++row;
  } else {
    row = TakesBlocks() ? &kByBlock : &kByWord;
  }
  for (const TextRow& text : kTexts) ShowGroup(Window(), text.group, false);
  for (const OptionPlace& place : row->places) {
    if (place.group == nullptr) continue;
    PlaceGroup(Window(), *place.group, {kLeft, place.y}, kNextX);
    Window().PlaceControl(place.group->next, {kNextX, place.nextY, 40, 39});
    ShowGroup(Window(), *place.group, true);
  }
  Window().PlaceControl(kHardwareReset, {kLeft, row->resetY, 360, 50});
}

void CSettingDlg::ShowDip8() {
  ShowOption(Window(), kDip8Group, IsModel26() ? kDip8Modes26 : kDip8Modes, dip8);
}

void CSettingDlg::Refresh(ui::SerialHandle serial) {
  serialHandle = serial;
  if (IsModel26()) {
    RefreshModel26();
  } else if (panel.identity.boxType != kNoBoxType) {
    RefreshOtherTypes();
  }
  ShowOption(Window(), kLockGroup, kLocks, lock);
}

void CSettingDlg::RefreshModel26() {
  lock = 0;
  BlockBuffer bytes{};
  if (panel.firmwareVersion >= kDip8Firmware && ReadBlock(block::kDip8Mode, 2, bytes)) {
    dip8 = bytes[0];
    dip8Confirmed = dip8;
    ShowDip8();
    dip8Extra = bytes[1];
  }
  if (panel.firmwareVersion >= kNoSignalFirmware && ReadBlock(block::kNoSignal, 2, bytes)) {
    noSignal = bytes[0];
    ShowOption(Window(), kNoSignalGroup, kNoSignals, noSignal);
  }
  if (panel.firmwareVersion >= kOsdFirmware && ReadWord(word::kOsd, osd)) {
    ShowOption(Window(), kOsdGroup, kOsds, osd);
  }
}

bool CSettingDlg::TakesBlocks() const { return ResetOf(panel.identity.boxType).by == By::kBlock; }

void CSettingDlg::RefreshOtherTypes() {
  if (TakesBlocks()) {
    BlockBuffer bytes{};
    if (ReadBlock(block::kSetting15, 2, bytes)) {
      dip8 = bytes[0];
      dip8Confirmed = dip8;
      ShowDip8();
    }
    if (ReadBlock(block::kSetting21, 2, bytes)) {
      osd = bytes[0];
      ShowOption(Window(), kOsdGroup, kOsds, osd);
    }
    if (ReadBlock(block::kNoSignal, 2, bytes)) {
      noSignal = bytes[0];
      ShowOption(Window(), kNoSignalGroup, kNoSignals, noSignal);
    }
    return;
  }
  ReadWord(word::kSetting12, lock);
  if (ReadWord(word::kSetting13, pattern)) {
    ShowOption(Window(), kPatternGroup, kPatterns, pattern);
  }
  if (ReadWord(word::kSetting17, noSignal)) {
    ShowOption(Window(), kNoSignalGroup, kNoSignals, noSignal);
  }
}

// Model 26 is sent every option, even those that its firmware hides.
void CSettingDlg::Apply() {
  if (!IsModel26()) {
    ApplyOtherTypes();
    return;
  }
  WriteWord(word::kOsd, osd);
  WriteBlock(block::kNoSignal, {noSignal});
  WriteBlock(block::kDip8Mode, {dip8, dip8Extra});
  WarnOfChangedDip8();
}

void CSettingDlg::ApplyOtherTypes() {
  if (TakesBlocks()) {
    WriteBlock(block::kSetting21, {osd});
    WriteBlock(block::kNoSignal, {noSignal});
    WriteBlock(block::kSetting15, {dip8});
    return;
  }
  WriteWord(word::kSetting12, lock);
  WriteWord(word::kSetting13, pattern);
  WriteWord(word::kSetting17, noSignal);
}

// Once per change.
void CSettingDlg::WarnOfChangedDip8() {
  if (dip8 == dip8Confirmed) return;
  caution.Open(Window());
  dip8Confirmed = dip8;
}

void CSettingDlg::OnCommand(int control, ui::Notification what) {
  static constexpr CommandRow<CSettingDlg> kCommands[] = {
      {1039, &CSettingDlg::OnNextLock},    {1045, &CSettingDlg::OnNextOsd},
      {1053, &CSettingDlg::OnNextPattern}, {1049, &CSettingDlg::OnNextNoSignal},
      {1056, &CSettingDlg::OnNextDip8},    {kHardwareReset, &CSettingDlg::OnHardwareReset},
  };
  DispatchCommand(*this, kCommands, control, what);
}

void CSettingDlg::OnNextLock() {
  lock = Next(lock, kLastLock);
  ShowOption(Window(), kLockGroup, kLocks, lock);
}

void CSettingDlg::OnNextOsd() {
  osd = Next(osd, kLastOsd);
  ShowOption(Window(), kOsdGroup, kOsds, osd);
}

void CSettingDlg::OnNextPattern() {
  pattern = Next(pattern, kLastPattern);
  ShowOption(Window(), kPatternGroup, kPatterns, pattern);
}

void CSettingDlg::OnNextNoSignal() {
  noSignal = Next(noSignal, kLastNoSignal);
  ShowOption(Window(), kNoSignalGroup, kNoSignals, noSignal);
}

// Model 26 is only ever offered 0 and 6, though its table holds more: deliberate.
void CSettingDlg::OnNextDip8() {
  if (IsModel26()) {
    do {
      dip8 = Next(dip8, kLastDip8Mode26);
    } while (dip8 != 0 && dip8 != kLastDip8Mode26);
  } else {
    dip8 = Next(dip8, kLastDip8Mode);
  }
  ShowDip8();
}

// Acts at once: the box restarts, and the next tick of the monitor shows it as absent.
void CSettingDlg::OnHardwareReset() {
  panel.tickSkip = 0;
  panel.forceDisconnect = true;
  if (panel.identity.boxType == kNoBoxType) return;
  const ResetRow& row = ResetOf(panel.identity.boxType);
  switch (row.by) {
    case By::kWord:
      WriteWord(row.number, command::kHardwareReset);
      break;
    case By::kWordZero:
      WriteWord(row.number, 0);
      break;
    case By::kBlock:
      WriteBlock(row.number, {1});
      break;
  }
}

}  // namespace panelora
