#include "pages/multiview/roi_dlg.h"

#include "base/text.h"
#include "pages/caption.h"
#include "pages/cycling_group.h"

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

}  // namespace

void CROIDlg::Init() {
  SetUpGroup(Window(), kMode, "Display Mode", "Full Screen");
  Window().SetFont(kMode.value, ui::kValueFont);
  SetCaption(Window(), kFrame, "adjust ROI");
  for (const RoiRow& row : {kHPos, kVPos, kHSize, kVSize}) {
    SetCaption(Window(), row.caption, row.text);
    Window().SetFont(row.label, ui::kCaptionFont);
  }
}

void CROIDlg::Open() {
  TakeHandle();
  Send(region::Opening());
  if (const region::Store* store = region::Find(panel.identity)) {
    Write(store->region, EncodeRegion({.use = 2}));
  }
  Refresh(serialHandle);
}

void CROIDlg::Refresh(ui::SerialHandle serial) {
  serialHandle = serial;
  const region::Store* store = region::Find(panel.identity);
  if (store == nullptr) return;
  ReadInputCode(*store);
  if (store->region.kind != Address::Kind::kNone) ReadRegion(*store);
  ShowPending();
}

void CROIDlg::ShowPending() { MarkPending({{kMode.frame, region.mode != toldMode}}); }

// A failed read and a format without a row keep the frame.
void CROIDlg::ReadInputCode(const region::Store& store) {
  if (!Read(store.input, inputCode)) return;
  for (const FrameRow& row : kFrames) {
    if (inputCode < row.first || inputCode > row.last) continue;
    frameWidth = row.width;
    frameHeight = row.height;
  }
}

void CROIDlg::ReadRegion(const region::Store& store) {
  BlockBuffer bytes{};
  if (Read(store.region, bytes)) {
    region = DecodeRegion(bytes);
    toldMode = region.mode;
    if (region.width == 0 && region.height == 0) {
      region.width = frameWidth / 2;
      region.height = frameHeight / 2;
      WriteRegion();
    }
  }
  ShowMode();
  EnableSliders();
  ShowRegion();
}

void CROIDlg::ShowMode() { ShowChoice(kMode.value, region::ModeNames(), region.mode); }

void CROIDlg::EnableSliders() {
  for (const RoiRow& row : {kHPos, kVPos, kHSize, kVSize}) {
    Window().EnableControl(row.slider, region.mode != kDisabled);
  }
}

void CROIDlg::ShowRegion() {
  const auto show = [&](const RoiRow& row, int maximum, int position, int value) {
    Window().SetSliderRange(row.slider, 0, maximum);
    Window().SetSliderPosition(row.slider, position);
    Window().SetText(row.label, Format("%d", value));
  };
  show(kHPos, frameWidth - region.width, region.x, region.x);
  show(kVPos, frameHeight - region.height, region.y, region.y);
  show(kHSize, frameWidth / kSizeStep, region.width / kSizeStep, region.width);
  show(kVSize, frameHeight / kSizeStep, region.height / kSizeStep, region.height);
}

void CROIDlg::OnCommand(int control, ui::Notification what) {
  static constexpr CommandRow<CROIDlg> kCommands[] = {{kMode.next, &CROIDlg::OnNextMode}};
  DispatchCommand(*this, kCommands, control, what);
}

// Only brand 2 can be told to do without a region; another brand that reports it keeps it until
// here.
void CROIDlg::OnNextMode() {
  const int modes = panel.identity.brandCode == 2 ? 3 : 2;
  region.mode = static_cast<std::uint8_t>(region.mode + 1 >= modes ? 0 : region.mode + 1);
  ShowMode();
  EnableSliders();
  ShowPending();
}

void CROIDlg::OnSliderReleased(int slider) {
  if (slider == kHPos.slider) TakePosition(kHPos, region.x);
  if (slider == kVPos.slider) TakePosition(kVPos, region.y);
  if (slider == kHSize.slider) TakeSize(kHSize, region.width, kHPos, region.x, frameWidth);
  if (slider == kVSize.slider) TakeSize(kVSize, region.height, kVPos, region.y, frameHeight);
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
  const bool off = region.mode == kDisabled && panel.identity.brandCode == 2;
  WriteAs(off ? 2 : 1, off ? std::uint8_t{0} : region.mode);
  toldMode = region.mode;
  ShowPending();
}

void CROIDlg::WriteAs(std::uint8_t use, std::uint8_t mode) {
  const region::Store* store = region::Find(panel.identity);
  if (store == nullptr) return;
  Region written = region;
  written.use = use;
  written.mode = mode;
  Write(store->region, EncodeRegion(written));
}

}  // namespace panelora
