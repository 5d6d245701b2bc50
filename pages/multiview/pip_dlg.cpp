#include "pages/multiview/pip_dlg.h"

#include <algorithm>
#include <optional>

#include "base/text.h"
#include "pages/caption.h"

namespace panelora {

namespace {

using namespace multiview;

// A value: its slider, its edit, and the label that the page keeps hidden.
struct Row {
  int caption;
  const char* text;
  int slider;
  int edit;
  int label;
};

// Which of the lists of output formats a box goes by.
enum class FormatList { kType51, kOption2, kOption2Brand2, kOther };

struct FrameRow {
  FormatList list;
  std::uint8_t first;  // output format codes from `first` to `last`
  std::uint8_t last;
  std::uint16_t width;  // pixels, as the one below
  std::uint16_t height;
};
constexpr FrameRow kFrames[] = {
    {FormatList::kType51, 0, 7, 1920, 1080},        {FormatList::kType51, 11, 11, 1920, 1080},
    {FormatList::kType51, 8, 10, 1280, 720},        {FormatList::kOption2, 0, 1, 1120, 480},
    {FormatList::kOption2, 2, 3, 720, 480},         {FormatList::kOption2, 4, 5, 1280, 720},
    {FormatList::kOption2, 6, 9, 1920, 1080},       {FormatList::kOption2Brand2, 0, 0, 1120, 480},
    {FormatList::kOption2Brand2, 1, 1, 720, 480},   {FormatList::kOption2Brand2, 2, 2, 1920, 1080},
    {FormatList::kOption2Brand2, 4, 4, 1920, 1080}, {FormatList::kOption2Brand2, 3, 3, 1280, 720},
    {FormatList::kOther, 0, 0, 800, 600},           {FormatList::kOther, 1, 1, 1024, 768},
    {FormatList::kOther, 2, 2, 1280, 1024},         {FormatList::kOther, 3, 3, 1600, 1200},
    {FormatList::kOther, 4, 4, 1920, 1080},
};

// The smallest inset, whatever the output format: deliberate.
constexpr int kMinWidth = 204;
constexpr int kMinHeight = 160;

}  // namespace

// Position and size along one side of the frame.
struct CPIPDlg::Side {
  bool horizontal;
  Row position;
  Row size;
  std::uint16_t PipWindow::*positionField;
  std::uint16_t PipWindow::*sizeField;
};

struct CPIPDlg::Channel {
  int frame;
  const char* title;
  Side sides[2];

  // In the order in which they stand, and in which the edits are read.
  std::array<const Row*, 4> Rows() const {
    return {&sides[0].position, &sides[1].position, &sides[0].size, &sides[1].size};
  }
};

const CPIPDlg::Channel CPIPDlg::kChannels[2] = {
    {1050,
     "CH 1",
     {{true,
       {1051, "H. Position", 1055, 1076, 1059},
       {1053, "H. Size", 1057, 1078, 1061},
       &PipWindow::hPos,
       &PipWindow::hSize},
      {false,
       {1052, "V. Position", 1056, 1077, 1060},
       {1054, "V. Size", 1058, 1079, 1062},
       &PipWindow::vPos,
       &PipWindow::vSize}}},
    {1063,
     "CH 2",
     {{true,
       {1064, "H. Position", 1072, 1080, 1068},
       {1066, "H. Size", 1074, 1082, 1070},
       &PipWindow::hPos,
       &PipWindow::hSize},
      {false,
       {1065, "V. Position", 1073, 1081, 1069},
       {1067, "V. Size", 1075, 1083, 1071},
       &PipWindow::vPos,
       &PipWindow::vSize}}},
};

int CPIPDlg::FrameOf(const Side& side) const { return side.horizontal ? frameWidth : frameHeight; }

int CPIPDlg::MinimumOf(const Side& side) { return side.horizontal ? kMinWidth : kMinHeight; }

// In display mode 7 the box keeps half of the width.
int CPIPDlg::ScaleOf(const Side& side) const { return side.horizontal && displayMode == 7 ? 2 : 1; }

void CPIPDlg::Init(ui::SerialHandle serial) {
  TakeHandle();
  serialHandle = serial;
  for (const Channel& channel : kChannels) {
    SetCaption(Window(), channel.frame, channel.title);
    for (const Row* row : channel.Rows()) {
      SetCaption(Window(), row->caption, row->text);
      Window().SetFont(row->edit, ui::kCaptionFont);
      Window().SetFont(row->label, ui::kCaptionFont);
    }
  }
}

void CPIPDlg::Open() {
  Bytes8 firstPlace;
  firstPlace.fill(0xFF);
  if (HasPip()) {
    Write(kInset1, firstPlace);
    Send(OpeningOfPip());
    if (HasSecondInset()) Write(kInset2, firstPlace);
  }
  Refresh(serialHandle);
}

void CPIPDlg::Refresh(ui::SerialHandle serial) {
  serialHandle = serial;
  ReadBox();
  LayOut();
  ReadInsets();
  ChooseFrame();
  ShowValues(kChannels[0], ch1);
  if (HasSecondInset()) ShowValues(kChannels[1], ch2);
}

void CPIPDlg::ReadBox() {
  if (!HasPip()) return;
  Read(multiview::kModes, displayMode);
  Read(PipOptionOf(panel.identity.boxType), pipOption);
  Read(OutputFormatOf(panel.identity.boxType), outputFormat);
}

// The first inset is read little-endian on every type and the second big-endian: the box's own way.
void CPIPDlg::ReadInsets() {
  for (const Row* row : kChannels[0].Rows()) Window().EnableControl(row->slider, HasInset());
  if (!HasInset()) {
    ch1 = PipWindow{};
    return;
  }
  BlockBuffer bytes{};
  if (Read(kInset1, bytes)) ch1 = DecodePipWindow(bytes, ByteOrder::kLittle);
  if (HasSecondInset() && Read(kInset2, bytes)) {
    ch2 = DecodePipWindow(bytes, ByteOrder::kBig);
  }
}

void CPIPDlg::ChooseFrame() {
  FormatList list = FormatList::kType51;
  if (kByWord.Has(panel.identity.boxType)) {
    list = FormatList::kOther;
    if (pipOption == 2) {
      list = panel.identity.brandCode == 2 ? FormatList::kOption2Brand2 : FormatList::kOption2;
    }
  } else if (!HasPip()) {
    return;
  }
  for (const FrameRow& row : kFrames) {
    if (row.list != list || outputFormat < row.first || outputFormat > row.last) continue;
    frameWidth = row.width;
    frameHeight = row.height;
  }
}

void CPIPDlg::LayOut() {
  if (HasSecondInset()) {
    PlaceChannel(kChannels[0], 5, 150, 30, 30);
    PlaceChannel(kChannels[1], 155, 150, 180, 30);
  } else {
    PlaceChannel(kChannels[0], 30, 240, 70, 50);
  }
  ShowChannel(kChannels[0], true);
  ShowChannel(kChannels[1], HasSecondInset());
}

void CPIPDlg::PlaceChannel(const Channel& channel, int top, int height, int firstRow,
                           int rowDistance) {
  Window().PlaceControl(channel.frame, {60, top, 375, height});
  int y = firstRow;
  for (const Row* row : channel.Rows()) {
    Window().PlaceControl(row->caption, {80, y, 80, 20});
    Window().PlaceControl(row->slider, {170, y - 3, 200, 25});
    Window().PlaceControl(row->edit, {380, y, 50, 20});
    y += rowDistance;
  }
}

void CPIPDlg::ShowChannel(const Channel& channel, bool shown) {
  Window().ShowControl(channel.frame, shown);
  for (const Row* row : channel.Rows()) {
    for (const int control : {row->caption, row->slider, row->edit}) {
      Window().ShowControl(control, shown);
    }
    Window().ShowControl(row->label, false);
  }
}

void CPIPDlg::ShowValues(const Channel& channel, const PipWindow& inset) {
  for (const Side& side : channel.sides) {
    ShowSliders(side, inset);
    const auto show = [&](const Row& row, int value) {
      Window().SetText(row.edit, Format("%04d", value));
      Window().SetText(row.label, Format("%d", value));
    };
    show(side.position, inset.*side.positionField);
    show(side.size, ScaleOf(side) * (inset.*side.sizeField));
  }
}

void CPIPDlg::ShowSliders(const Side& side, const PipWindow& inset) {
  const int scale = ScaleOf(side);
  const int size = inset.*side.sizeField;
  Window().SetSliderRange(side.position.slider, 0, FrameOf(side) - scale * size);
  Window().SetSliderPosition(side.position.slider, inset.*side.positionField);
  Window().SetSliderRange(side.size.slider, MinimumOf(side), FrameOf(side) / scale);
  Window().SetSliderPosition(side.size.slider, size);
}

void CPIPDlg::OnSliderReleased(int slider) {
  for (const Channel& channel : kChannels) {
    PipWindow& inset = &channel == kChannels ? ch1 : ch2;
    for (const Side& side : channel.sides) {
      if (slider == side.position.slider) TakePosition(side, inset);
      if (slider == side.size.slider) TakeSize(side, inset);
    }
  }
}

void CPIPDlg::TakePosition(const Side& side, PipWindow& inset) {
  const int position = Window().SliderPosition(side.position.slider);
  Window().SetText(side.position.label, Format("%d", position));
  if (position == inset.*side.positionField) return;
  inset.*side.positionField = static_cast<std::uint16_t>(position);
  Window().SetText(side.position.edit, Format("%04d", position));
}

// A size that leaves the frame pushes the position back.
void CPIPDlg::TakeSize(const Side& side, PipWindow& inset) {
  const int size = Window().SliderPosition(side.size.slider);
  const int shown = ScaleOf(side) * size;
  Window().SetText(side.size.label, Format("%d", shown));
  if (size == inset.*side.sizeField) return;
  const int greatest = FrameOf(side) - shown;
  if (inset.*side.positionField > greatest) {
    inset.*side.positionField = static_cast<std::uint16_t>(greatest);
    Window().SetText(side.position.edit, Format("%04d", greatest));
  }
  inset.*side.sizeField = static_cast<std::uint16_t>(size);
  Window().SetSliderRange(side.position.slider, 0, greatest);
  Window().SetSliderPosition(side.position.slider, inset.*side.positionField);
  Window().SetText(side.size.edit, Format("%04d", shown));
  Window().SetText(side.position.label, Format("%d\n", greatest));
}

// The first inset is written big-endian on the types that are told their mode by word, although it
// is read little-endian: the box's own way.
void CPIPDlg::Apply() {
  if (!HasPip() || !TakeEdits(kChannels[0], ch1)) return;
  const bool isBig = kByWord.Has(panel.identity.boxType);
  Write(kInset1, EncodePipWindow(ch1, isBig ? ByteOrder::kBig : ByteOrder::kLittle));
  if (!HasSecondInset() || !TakeEdits(kChannels[1], ch2)) return;
  Write(kInset2, EncodePipWindow(ch2, ByteOrder::kBig));
}

// False when an edit holds no number; nothing is stored then.
bool CPIPDlg::TakeEdits(const Channel& channel, PipWindow& inset) {
  std::array<int, 4> typed{};
  for (std::size_t i = 0; i < typed.size(); ++i) {
    const std::optional<int> number = ParseNumber(Window().Text(channel.Rows()[i]->edit));
    if (!number) return false;
    typed[i] = *number;
  }
  LimitAndStore(channel.sides[0], inset, typed[0], typed[2]);
  LimitAndStore(channel.sides[1], inset, typed[1], typed[3]);
  return true;
}

// The size to the frame, the position to what the size leaves, and both to 0; a small size is never
// raised. An edit whose number was limited shows the value from before, not the one that is stored:
// deliberate.
void CPIPDlg::LimitAndStore(const Side& side, PipWindow& inset, int position, int size) {
  const int scale = ScaleOf(side);
  const auto store = [&](std::uint16_t& value, int typed, int greatest, int edit, int shown) {
    const int limited = std::clamp(typed, 0, greatest);
    if (limited != typed) Window().SetText(edit, Format("%04d", shown));
    value = static_cast<std::uint16_t>(limited);
  };
  std::uint16_t& storedSize = inset.*side.sizeField;
  std::uint16_t& storedPosition = inset.*side.positionField;
  store(storedSize, size / scale, FrameOf(side) / scale, side.size.edit, scale * storedSize);
  store(storedPosition, position, FrameOf(side) - scale * storedSize, side.position.edit,
        storedPosition);
  ShowSliders(side, inset);
}

}  // namespace panelora
