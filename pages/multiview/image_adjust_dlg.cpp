#include "pages/multiview/image_adjust_dlg.h"

#include <algorithm>
#include <iterator>

#include "pages/caption.h"

namespace panelora {

namespace {

constexpr int kUpperFrame = 1099;
constexpr int kLowerFrame = 1100;
constexpr int kReason = 1101;

constexpr int kMaxHorizontal = 600;
constexpr int kMaxVertical = 100;
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

}  // namespace

void CImageAdjustDlg::Init() {
  for (const RowControls& row : kRows) {
    SetCaption(Window(), row.caption, row.text);
    SetCaption(Window(), row.up, "+");
    SetCaption(Window(), row.down, "-");
  }
  SetCaption(Window(), kReason, "");
  Window().PlaceControl(kReason, {45, 284, 390, 20});
  Window().SetFont(kUpperFrame, ui::kCaptionFont);
  Window().SetFont(kLowerFrame, ui::kCaptionFont);
}

void CImageAdjustDlg::Open() {
  TakeHandle();
  Send(image::Opening());
  Refresh(serialHandle);
}

void CImageAdjustDlg::Refresh(ui::SerialHandle serial) {
  serialHandle = serial;
  LayOut();
  ReadEnabling();
  const image::Store* store = image::Find(panel.identity);
  if (store == nullptr) return;
  BlockBuffer bytes{};
  if (Read(store->size, bytes)) size = DecodeImageSize(bytes);
  if (store->position.kind == Address::Kind::kNone) return;
  if (Read(store->position, bytes)) position = DecodeImagePosition(bytes);
}

void CImageAdjustDlg::LayOut() {
  const bool oneFrame = image::kOneFrame.Has(panel.identity.boxType);
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
  bool always = true;
  for (const image::Enabling& row : image::Enablings()) {
    if (!row.types.Has(panel.identity.boxType)) continue;
    always = false;
    if (row.when != nullptr && !row.when(panel.identity, panel.firmwareVersion)) continue;
    std::uint8_t told = 0;
    const bool never = row.at.kind == Address::Kind::kNone;
    if (never || Read(row.at, told)) Enable(row.what, !never && told == row.value, !never);
  }
  if (always) {
    Enable(image::Adjusts::kPosition, true);
    Enable(image::Adjusts::kSize, true);
  }
  ShowReason();
}

// Below the frames, where a place is free.
void CImageAdjustDlg::ShowReason() {
  std::string reason = whyNoPosition;
  if (!reason.empty() && *whyNoSize != 0) reason += "  ";
  reason += whyNoSize;
  Window().SetText(kReason, reason);
  Window().ShowControl(kReason, !reason.empty());
}

// Positions can be adjusted on the analogue input alone, sizes with the aspect ratio that leaves
// room; a model that `ever` can has a way to come there.
void CImageAdjustDlg::Enable(image::Adjusts what, bool enabled, bool ever) {
  const bool sizes = what == image::Adjusts::kSize;
  if (sizes) {
    whyNoSize = enabled ? "" : "Size needs UnderScan.";
  } else {
    whyNoPosition = enabled ? ""
                    : ever  ? "Position needs the VGA input."
                            : "Position can't be adjusted here.";
  }
  for (const RowControls& row : {kRows[sizes ? 2 : 0], kRows[sizes ? 3 : 1]}) {
    Window().EnableControl(row.up, enabled);
    Window().EnableControl(row.down, enabled);
  }
}

void CImageAdjustDlg::OnCommand(int control, ui::Notification what) {
  if (what != ui::Notification::kClicked) return;
  for (std::size_t i = 0; i < std::size(kRows); ++i) {
    if (control == kRows[i].up) Step(i, 1);
    if (control == kRows[i].down) Step(i, -1);
  }
}

void CImageAdjustDlg::Step(std::size_t row, int step) {
  switch (row) {
    case 0:
      return StepPosition(position.horizontal, step, kMaxHorizontal);
    case 1:
      return StepPosition(position.vertical, step, kMaxVertical);
    case 2:
      return StepSize(size.horizontal, step);
    default:
      return StepSize(size.vertical, step);
  }
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
  if (const image::Store* store = image::Find(panel.identity)) {
    Write(store->position, EncodeImagePosition(position));
  }
}

void CImageAdjustDlg::WriteSizes() {
  if (const image::Store* store = image::Find(panel.identity)) {
    Write(store->size, EncodeImageSize(size));
  }
}

}  // namespace panelora
