#include "pages/multiview/image_adjust_dlg.h"

#include <algorithm>
#include <iterator>

#include "base/byte_order.h"

namespace panelora {

namespace {

constexpr int kUpperFrame = 1099;
constexpr int kLowerFrame = 1100;

constexpr int kMinPosition = 5;
constexpr int kMinSize = 80;
constexpr int kMaxSize = 100;

// A row of the page: a caption and two buttons.
struct RowControls {
  int caption;
  const char* text;
  int up;
  int down;
};
constexpr RowControls kRows[] = {
    {1087, "Horizontal Position", 1091, 1092},
    {1088, "Vertical Position", 1093, 1094},
    {1089, "Horizontal Size", 1095, 1096},
    {1090, "Vertical Size", 1097, 1098},
};

// The tops of the rows: in one frame, or two and two in their own.
constexpr int kRowTops[] = {45, 105, 165, 225};
constexpr int kRowTopsInTwoFrames[] = {35, 85, 170, 225};

constexpr std::uint8_t kNone = 0;

// Where a model keeps the two pairs; both are read and written there.
struct ModelRow {
  std::uint8_t boxType;
  std::uint8_t position;  // kNone = the model has none
  std::uint8_t size;
  std::uint8_t sizeOfBrand2;
};
constexpr ModelRow kModels[] = {
    {50, block::kImagePosition50, block::kImageSize50, block::kImageSize50},
    {26, block::kImagePosition26, block::kImageSize26, block::kImageSize26},
    {23, block::kImagePosition23, block::kImageSize23, block::kImageSize23},
    {42, block::kImagePosition23, block::kImageSize23, block::kImageSize23},
    {25, block::kImagePosition25, block::kImageSize25, block::kImageSize25},
    {29, block::kImagePosition25, block::kImageSize25, block::kImageSize25},
    {24, kNone, block::kImageSize24, block::kImageSize50},
    {34, kNone, block::kImageSize24, block::kImageSize50},
    {kNoBoxType, kNone, kNone, kNone},
};

const ModelRow& ModelOf(std::uint8_t boxType) {
  const ModelRow* row = kModels;
  while (row->boxType != kNoBoxType && row->boxType != boxType) ++row;
  return *row;
}

std::uint8_t SizeProperty(const Identity& identity) {
  const ModelRow& model = ModelOf(identity.boxType);
  return identity.brandCode == 2 ? model.sizeOfBrand2 : model.size;
}

// One frame round all four rows; the others have one for positions and one for sizes.
bool HasOneFrame(std::uint8_t boxType) { return boxType == 50 || boxType == 26; }

}  // namespace

void CImageAdjustDlg::Init() {
  const auto set = [&](int control, const char* text) {
    Window().SetFont(control, ui::kCaptionFont);
    Window().SetText(control, text);
  };
  for (const RowControls& row : kRows) {
    set(row.caption, row.text);
    set(row.up, "+");
    set(row.down, "-");
  }
  Window().SetFont(kUpperFrame, ui::kCaptionFont);
  Window().SetFont(kLowerFrame, ui::kCaptionFont);
}

void CImageAdjustDlg::Open() {
  TakeHandle();
  switch (panel.identity.boxType) {
    case 24:
    case 34:
      if (panel.identity.brandCode == 2) {
        Write(Block(block::kBoxMenu), {2});
      } else {
        Write(Word(word::kBoxMenu5), {2});
      }
      break;
    case 50:
      Write(Block(block::kBoxMenu), {3});
      break;
    case 26:
      Write(Word(word::kCommand), {command::kImageRestore});
      break;
    case 23:
    case 42:
      Write(Word(word::kBoxMenu7), {2});
      break;
    case 25:
    case 29:
      Write(Word(word::kBoxMenu4), {2});
      break;
    default:
      break;
  }
  Refresh(serialHandle);
}

void CImageAdjustDlg::Refresh(ui::SerialHandle serial) {
  serialHandle = serial;
  LayOut();
  ReadEnabling();
  const ModelRow& model = ModelOf(panel.identity.boxType);
  const std::uint8_t size = SizeProperty(panel.identity);
  if (size != kNone) ReadSizes(size);
  if (model.position != kNone) ReadPositions(model.position);
}

void CImageAdjustDlg::LayOut() {
  const bool oneFrame = HasOneFrame(panel.identity.boxType);
  for (std::size_t i = 0; i < std::size(kRows); ++i) {
    const int top = oneFrame ? kRowTops[i] : kRowTopsInTwoFrames[i];
    Window().PlaceControl(kRows[i].caption, {80, top, 200, 40});
    Window().PlaceControl(kRows[i].up, {310, top, 40, 40});
    Window().PlaceControl(kRows[i].down, {360, top, 40, 40});
  }
  Window().ShowControl(kLowerFrame, !oneFrame);
  if (oneFrame) {
    Window().SetText(kUpperFrame, "Image Adjust");
    Window().PlaceControl(kUpperFrame, {45, 15, 390, 265});
    return;
  }
  Window().SetText(kUpperFrame, "Position Adjust(VGA only)");
  Window().PlaceControl(kUpperFrame, {45, 5, 390, 135});
  Window().PlaceControl(kLowerFrame, {45, 140, 390, 140});
}

// A successful read of another value disables; a failed one leaves the state.
void CImageAdjustDlg::ReadEnabling() {
  std::uint8_t value = 0;
  BlockBuffer bytes{};
  switch (panel.identity.boxType) {
    case 24:
    case 34:
      EnablePositions(false);
      if (panel.identity.brandCode == 2) {
        if (Read(Block(block::kImageAspect, 2), bytes)) EnableSizes(bytes[0] == 3);
      } else {
        if (Read(Word(word::kImageAspect), value)) EnableSizes(value == 3);
      }
      break;
    case 50:
      if (Read(Block(block::kImageInput50, 2), bytes)) EnablePositions(bytes[0] == 2);
      if (Read(Block(block::kImageAspect, 2), bytes)) EnableSizes(bytes[0] == 5);
      break;
    case 26:
      if (Read(Word(word::kInputSource), value)) EnablePositions(value == 2);
      if (Read(Word(word::kAspectRatio), value)) EnableSizes(value == 5);
      break;
    default:
      EnablePositions(true);
      EnableSizes(true);
      break;
  }
}

void CImageAdjustDlg::ReadSizes(std::uint8_t property) {
  BlockBuffer bytes{};
  if (!Read(Block(property, 2), bytes)) return;
  hSizePercent = bytes[0];
  vSizePercent = bytes[1];
}

void CImageAdjustDlg::ReadPositions(std::uint8_t property) {
  BlockBuffer bytes{};
  if (!Read(Block(property, 4), bytes)) return;
  hPosition = BigEndian(bytes[0], bytes[1]);
  vPosition = BigEndian(bytes[2], bytes[3]);
}

void CImageAdjustDlg::EnablePositions(bool enabled) {
  for (const int control : {1091, 1092, 1093, 1094}) Window().EnableControl(control, enabled);
}

void CImageAdjustDlg::EnableSizes(bool enabled) {
  for (const int control : {1095, 1096, 1097, 1098}) Window().EnableControl(control, enabled);
}

void CImageAdjustDlg::OnCommand(int control, ui::Notification what) {
  using Dlg = CImageAdjustDlg;
  static constexpr CommandRow<CImageAdjustDlg> kCommands[] = {
      {1091, &Dlg::OnHorizontalPositionUp}, {1092, &Dlg::OnHorizontalPositionDown},
      {1093, &Dlg::OnVerticalPositionUp},   {1094, &Dlg::OnVerticalPositionDown},
      {1095, &Dlg::OnHorizontalSizeUp},     {1096, &Dlg::OnHorizontalSizeDown},
      {1097, &Dlg::OnVerticalSizeUp},       {1098, &Dlg::OnVerticalSizeDown},
  };
  DispatchCommand(*this, kCommands, control, what);
}

// Positions stop at their ends; sizes, deliberately otherwise, wrap round.
void CImageAdjustDlg::StepPosition(std::uint16_t& value, int step, int maximum) {
  const int next =
      step > 0 ? std::min(value + step, maximum) : std::max(value + step, kMinPosition);
  value = static_cast<std::uint16_t>(next);
  WritePositions();
}

void CImageAdjustDlg::StepSize(std::uint8_t& value, int step) {
  int next = value + step;
  if (step > 0 && next > kMaxSize) next = kMinSize;
  if (step < 0 && next < kMinSize) next = kMaxSize;
  value = static_cast<std::uint8_t>(next);
  WriteSizes();
}

void CImageAdjustDlg::WritePositions() {
  const std::uint8_t property = ModelOf(panel.identity.boxType).position;
  if (property == kNone) return;
  Write(Block(property),
        {HighByte(hPosition), LowByte(hPosition), HighByte(vPosition), LowByte(vPosition)});
}

void CImageAdjustDlg::WriteSizes() {
  const std::uint8_t property = SizeProperty(panel.identity);
  if (property != kNone) Write(Block(property), {hSizePercent, vSizePercent});
}

}  // namespace panelora
