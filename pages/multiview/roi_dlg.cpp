#include "pages/multiview/roi_dlg.h"

#include "base/byte_order.h"
#include "base/text.h"
#include "pages/cycling_group.h"
#include "pages/option_table.h"

namespace panelora {

// A value of the region: its slider and its text.
struct RoiRow {
  int caption;
  const char* text;
  int slider;
  int label;
};

namespace {

constexpr CyclingGroup kMode = {1044, 1003, 1045, 1100};
constexpr int kFrame = 1102;

constexpr RoiRow kHPos = {1051, "H. Pos", 1055, 1059};
constexpr RoiRow kVPos = {1052, "V. Pos", 1056, 1060};
constexpr RoiRow kHSize = {1053, "H. Size", 1057, 1061};
constexpr RoiRow kVSize = {1054, "V. Size", 1058, 1062};

// Sizes move in steps of that many pixels.
constexpr int kSizeStep = 2;

constexpr std::uint8_t kDisabled = 2;
constexpr NamedValue kModes[] = {
    {kDisabled, "Disable"}, {1, "Full Screen"}, {0, "Dot by Dot"}, {kTableEnd, ""}};

struct FrameRow {
  std::uint8_t first;  // input codes from `first` to `last`
  std::uint8_t last;
  std::uint16_t width;
  std::uint16_t height;
};
constexpr FrameRow kFrames[] = {
    {0, 1, 720, 480},     {2, 2, 720, 576},     {6, 8, 1280, 720},    {12, 22, 1920, 1080},
    {24, 24, 800, 600},   {26, 26, 1024, 768},  {27, 27, 1280, 800},  {28, 28, 1280, 960},
    {29, 29, 1280, 1024}, {31, 31, 1366, 768},  {33, 33, 1400, 1050}, {34, 34, 1600, 1200},
    {35, 35, 1440, 900},  {36, 36, 1440, 1050}, {37, 37, 1680, 1050},
};

// Where a model tells its input format: a block's byte 0 or a word item.
struct InputSource {
  std::uint8_t block;
  std::uint32_t item;
};
constexpr std::uint8_t kNone = 0;
constexpr InputSource kBlock4 = {block::kRegionInput4, kNone};
constexpr InputSource kWord1 = {kNone, word::kRegionInput1};
constexpr InputSource kWord2 = {kNone, word::kRegionInput2};
constexpr InputSource kWord4 = {kNone, word::kRegionInput4};
constexpr InputSource kWord5 = {kNone, word::kRegionInput5};

struct ModelRow {
  std::uint8_t boxType;
  std::uint8_t region;
  InputSource input;
  // The same with DIP switches or of brand 2.
  std::uint8_t otherRegion;
  InputSource otherInput;
};
constexpr ModelRow Plain(std::uint8_t boxType, std::uint8_t region, InputSource input) {
  return {boxType, region, input, region, input};
}
constexpr ModelRow kModels[] = {
    Plain(46, block::kRegion18, kBlock4),
    Plain(47, block::kRegion18, kBlock4),
    Plain(48, block::kRegion18, kBlock4),
    Plain(49, block::kRegion18, kBlock4),
    Plain(39, block::kRegion18, kBlock4),
    Plain(40, block::kRegion18, kBlock4),
    Plain(35, block::kRegion14, kWord4),
    Plain(32, block::kRegion18, kWord4),
    Plain(23, block::kRegion14, kWord5),
    Plain(42, block::kRegion14, kWord5),
    Plain(30, block::kRegion19, kWord2),
    Plain(43, block::kRegion19, kWord2),
    {24, block::kRegion15, kWord2, block::kRegion18, kBlock4},
    {34, block::kRegion15, kWord2, block::kRegion18, kBlock4},
    Plain(33, kNone, kWord1),
    Plain(14, block::kRegion14, kWord1),
    Plain(36, block::kRegion14, kWord1),
    Plain(25, block::kRegion18, kWord1),
    Plain(29, block::kRegion18, kWord1),
};

// Null for types that the page does not know.
const ModelRow* FindModel(std::uint8_t boxType) {
  for (const ModelRow& row : kModels) {
    if (row.boxType == boxType) return &row;
  }
  return nullptr;
}

bool IsOtherKind(const Identity& identity) {
  return identity.inputDipFlag == 1 || identity.brandCode == 2;
}

}  // namespace

void CROIDlg::Init() {
  SetUpGroup(Window(), kMode, "Display Mode", "Full Screen");
  Window().SetFont(kMode.value, ui::kValueFont);
  Window().SetFont(kFrame, ui::kCaptionFont);
  Window().SetText(kFrame, "adjust ROI");
  for (const RoiRow& row : {kHPos, kVPos, kHSize, kVSize}) {
    Window().SetFont(row.caption, ui::kCaptionFont);
    Window().SetFont(row.label, ui::kCaptionFont);
    Window().SetText(row.caption, row.text);
  }
}

std::uint8_t CROIDlg::RegionProperty() const {
  const ModelRow* model = FindModel(panel.identity.boxType);
  if (model == nullptr) return kNone;
  return IsOtherKind(panel.identity) ? model->otherRegion : model->region;
}

void CROIDlg::Open() {
  TakeHandle();
  const std::uint8_t boxType = panel.identity.boxType;
  if (boxType == 39 || boxType == 40) Write(Block(block::kBoxMenu), {4});
  if (const std::uint8_t property = RegionProperty(); property != kNone) {
    Write(Block(property), {0, 0, 0, 0, 0, 0, 0, 0, 2, 0});
  }
  Refresh(serialHandle);
}

void CROIDlg::Refresh(ui::SerialHandle serial) {
  serialHandle = serial;
  if (FindModel(panel.identity.boxType) == nullptr) return;
  ReadInputCode();
  if (RegionProperty() != kNone) ReadRegion();
}

// A failed read and a format without a row keep the frame.
void CROIDlg::ReadInputCode() {
  const ModelRow& model = *FindModel(panel.identity.boxType);
  const InputSource source = IsOtherKind(panel.identity) ? model.otherInput : model.input;
  if (source.block != kNone) {
    BlockBuffer bytes{};
    if (!Read(Block(source.block, 2), bytes)) return;
    inputCode = bytes[0];
  } else if (!Read(Word(source.item), inputCode)) {
    return;
  }
  for (const FrameRow& row : kFrames) {
    if (inputCode < row.first || inputCode > row.last) continue;
    frameWidth = row.width;
    frameHeight = row.height;
  }
}

void CROIDlg::ReadRegion() {
  BlockBuffer bytes{};
  if (Read(Block(RegionProperty(), 30), bytes)) {
    roiX = BigEndian(bytes[0], bytes[1]);
    roiY = BigEndian(bytes[2], bytes[3]);
    roiWidth = BigEndian(bytes[4], bytes[5]);
    roiHeight = BigEndian(bytes[6], bytes[7]);
    roiMode = bytes[9];
    if (roiWidth == 0 && roiHeight == 0) {
      roiWidth = frameWidth / 2;
      roiHeight = frameHeight / 2;
      WriteRegion();
    }
  }
  ShowMode();
  EnableSliders();
  ShowRegion();
}

void CROIDlg::ShowMode() {
  if (const char* name = NameOf(kModes, roiMode)) Window().SetText(kMode.value, name);
}

void CROIDlg::EnableSliders() {
  for (const RoiRow& row : {kHPos, kVPos, kHSize, kVSize}) {
    Window().EnableControl(row.slider, roiMode != kDisabled);
  }
}

void CROIDlg::ShowRegion() {
  const auto show = [&](const RoiRow& row, int maximum, int position, int value) {
    Window().SetSliderRange(row.slider, 0, maximum);
    Window().SetSliderPosition(row.slider, position);
    Window().SetText(row.label, Format("%d", value));
  };
  show(kHPos, frameWidth - roiWidth, roiX, roiX);
  show(kVPos, frameHeight - roiHeight, roiY, roiY);
  show(kHSize, frameWidth / kSizeStep, roiWidth / kSizeStep, roiWidth);
  show(kVSize, frameHeight / kSizeStep, roiHeight / kSizeStep, roiHeight);
}

void CROIDlg::OnCommand(int control, ui::Notification what) {
  static constexpr CommandRow<CROIDlg> kCommands[] = {{kMode.next, &CROIDlg::OnNextMode}};
  DispatchCommand(*this, kCommands, control, what);
}

// Only brand 2 can be told to do without a region; another brand that reports it keeps it until
// here.
void CROIDlg::OnNextMode() {
  const int modes = panel.identity.brandCode == 2 ? 3 : 2;
  roiMode = static_cast<std::uint8_t>(roiMode + 1 >= modes ? 0 : roiMode + 1);
  ShowMode();
  EnableSliders();
}

void CROIDlg::OnSliderReleased(int slider) {
  if (slider == kHPos.slider) TakePosition(kHPos, roiX);
  if (slider == kVPos.slider) TakePosition(kVPos, roiY);
  if (slider == kHSize.slider) TakeSize(kHSize, roiWidth, kHPos, roiX, frameWidth);
  if (slider == kVSize.slider) TakeSize(kVSize, roiHeight, kVPos, roiY, frameHeight);
}

void CROIDlg::TakePosition(const RoiRow& row, std::uint16_t& position) {
  const int taken = Window().SliderPosition(row.slider);
  Window().SetText(row.label, Format("%d\n", taken));
  if (taken == position) return;
  position = static_cast<std::uint16_t>(taken);
  WriteRegion();
}

// A size that leaves the frame pushes the position back.
void CROIDlg::TakeSize(const RoiRow& row, std::uint16_t& size, const RoiRow& positionRow,
                       std::uint16_t& position, int frame) {
  const int taken = kSizeStep * Window().SliderPosition(row.slider);
  Window().SetText(row.label, Format("%d\n", taken));
  if (taken == size) return;
  const int greatest = frame - taken;
  if (position > greatest) {
    position = static_cast<std::uint16_t>(greatest);
    Window().SetText(positionRow.label, Format("%d\n", greatest));
  }
  size = static_cast<std::uint16_t>(taken);
  Window().SetSliderRange(positionRow.slider, 0, greatest);
  Window().SetSliderPosition(positionRow.slider, position);
  WriteRegion();
}

void CROIDlg::Apply() {
  const bool off = roiMode == kDisabled && panel.identity.brandCode == 2;
  WriteAs(off ? 2 : 1, off ? std::uint8_t{0} : roiMode);
}

void CROIDlg::WriteAs(std::uint8_t switchByte, std::uint8_t mode) {
  const std::uint8_t property = RegionProperty();
  if (property == kNone) return;
  Write(Block(property),
        {HighByte(roiX), LowByte(roiX), HighByte(roiY), LowByte(roiY), HighByte(roiWidth),
         LowByte(roiWidth), HighByte(roiHeight), LowByte(roiHeight), switchByte, mode});
}

}  // namespace panelora
