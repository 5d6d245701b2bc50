#include "pages/status/information_dlg.h"

#include <iterator>
#include <string>

#include "catalogue/audio_levels.h"
#include "pages/caption.h"
#include "res/dialog_templates.h"

namespace panelora {

namespace {

using namespace information;

constexpr int kGroup = 1016;
constexpr int kFirmwareCaption = 1013;
constexpr int kFirmwareValue = 1014;
constexpr int kWebAddress = 1015;

// The two controls of a row, and their first texts.
struct RowControls {
  int caption;
  const char* captionText;
  int value;
  const char* firstText;
};
constexpr RowControls kControls[] = {
    {1003, "Input Format    :", 1007, "1920x1080 60.00p"},
    {1004, "Input Format 2 :", 1008, "1920x1080 60.00p"},
    {1005, "Input Format 3 :", 1009, "1920x1080 60.00p"},
    {1006, "Input Format 4 :", 1010, "1920x1080 60.00p"},
    {1029, "Input Source    :", 1025, "DVI-D (HDMI)"},
    {1011, "Input Color       :", 1012, "RGB444"},
    {1028, "Output Format :", 1022, "1920x1080 p60.00"},
    {1030, "Output Color    :", 1026, "RGB444"},
    {1032, "Output Mode    :", 1031, "AV ( CEA-861)"},
    {1033, "Output Source  :", 1034, "VGA + HDMI"},
    {1024, "Aspect Ratio   :", 1021, "Full Screen"},
    {1027, "Audio Source  :", 1019, "L/R Audio"},
    {1023, "Audio Mute     :", 1020, "OFF"},
    {1035, "Analog Audio Output Level :", 1036, "24dBu"},
    {1037, "Genlock Format  :", 1038, "1920x1080 60.00p"},
    {1039, "Genlock Mode  :", 1079, "Free Run"},
};
static_assert(std::size(kControls) == kRowCount);

// Which way a box is controlled: no model is known to tell.
constexpr RowControls kControlInterface = {1017, "Control Interface :", 1018, "DipSwitch"};

constexpr int kInputs = 4;
constexpr int kTop = 60;
constexpr int kApart = 30;
constexpr int kCaptionLeft = 80;
constexpr int kValueLeft = 200;
constexpr int kWideValueLeft = 290;  // beside the longest caption

// Closes the list: the maker's own.
constexpr std::uint8_t kAnyBrand = 255;

struct AddressRow {
  std::uint8_t brandCode;
  const char* address;
};

constexpr AddressRow kWebAddresses[] = {
    {1, "www.telvero.example"},         {2, "www.brightmoor.example"},
    {3, "www.corvane-pro.example"},     {4, "www.quintrel.example"},
    {8, "www.lumexa.example"},          {9, "www.pandrel.example"},
    {kAnyBrand, "www.corvane.example"},
};

// Box type 26 shows the address of this brand whatever its own brand is.
constexpr std::uint8_t kAddressBrand26 = 3;

}  // namespace

CInformationDlg::CInformationDlg(PanelContext context) : Page(res::kInformation, context) {}

const char* CInformationDlg::WebAddress(std::uint8_t brandCode) {
  const AddressRow* row = kWebAddresses;
  while (row->brandCode != kAnyBrand && row->brandCode != brandCode) ++row;
  return row->address;
}

void CInformationDlg::Init() {
  TakeHandle();
  const auto setUpRow = [&](const RowControls& row) {
    SetCaption(Window(), row.caption, row.captionText);
    SetCaption(Window(), row.value, row.firstText);
    Window().ShowControl(row.caption, false);
    Window().ShowControl(row.value, false);
  };
  SetCaption(Window(), kGroup, "Information");
  Window().PlaceControl(kGroup, {55, 20, 390, 260});
  SetCaption(Window(), kFirmwareCaption, "F/W Version     :");
  SetCaption(Window(), kFirmwareValue, "0.1.0.1");
  Window().SetFont(kWebAddress, ui::kCaptionFont);
  for (const RowControls& row : kControls) setUpRow(row);
  setUpRow(kControlInterface);
  for (int input = 0; input < kInputs; ++input) PlaceRow(input, kTop + input * kApart);
  LayOut();
}

void CInformationDlg::PlaceRow(int row, int top) {
  const bool isWide = row == kAnalogLevel;
  // Longer captions than those of inputs go to their values.
  const int width = isWide ? 200 : row <= kInput4 ? 110 : 118;
  Window().PlaceControl(kControls[row].caption, {kCaptionLeft, top, width, 20});
  Window().PlaceControl(kControls[row].value, {isWide ? kWideValueLeft : kValueLeft, top, 150, 20});
}

// One row below the other, the firmware version last.
void CInformationDlg::LayOut() {
  int top = kTop;
  const auto place = [&](int row) {
    const RowControls& controls = kControls[row];
    PlaceRow(row, top);
    Window().ShowControl(controls.caption, true);
    Window().ShowControl(controls.value, true);
    const char* caption = InputCaption(panel.identity.boxType, static_cast<Row>(row));
    if (caption != nullptr) Window().SetText(controls.caption, caption);
    top += kApart;
  };
  for (const Told& told : Rows()) {
    if (AddressOf(told).kind == Address::Kind::kNone) continue;
    for (int input = 0; input < told.inputs; ++input) place(told.row + input);
  }
  if (top == kTop) place(kInput1);  // without a box
  Window().PlaceControl(kFirmwareCaption, {kCaptionLeft, top, 110, 30});
  Window().PlaceControl(kFirmwareValue, {kValueLeft, top, 150, 30});
  ShowWebAddress();
}

void CInformationDlg::ShowWebAddress() {
  if (kShippedType.Has(panel.identity.boxType)) {
    Window().SetText(kWebAddress, WebAddress(kAddressBrand26));
    Window().PlaceControl(kWebAddress, {180, 250, 200, 30});
    return;
  }
  Window().SetText(kWebAddress, WebAddress(panel.identity.brandCode));
  Window().PlaceControl(kWebAddress, {180, 255, 200, 20});
}

void CInformationDlg::Refresh(ui::SerialHandle serial) {
  serialHandle = serial;
  const bool present = panel.identity.boxType != kNoBoxType;  // no model, nothing to ask for
  if (present) {
    for (const Told& told : Rows()) RefreshRow(told);
  }
  if (present) ReadFirmware();
  panel.firmwareVersion = firmwareVersion;  // on every refresh, whether or not the read succeeded
  Window().SetText(kFirmwareValue, FirmwareText(firmwareVersion));
}

void CInformationDlg::ShowValue(int row, const std::string& text) {
  Window().SetText(kControls[row].value, text);
}

void CInformationDlg::RefreshRow(const Told& told) {
  const Address at = AddressOf(told);
  if (at.kind == Address::Kind::kNone) return;
  switch (told.tells) {
    case Tells::kBigFormat:
    case Tells::kLittleFormat:
    case Tells::kReference:
      RefreshFormats(told, at);
      return;
    case Tells::kFormatCode:
      RefreshFormatCode(told, at);
      return;
    case Tells::kVideoOption:
    case Tells::kAudioOption:
    case Tells::kOutputLevel:
      break;
  }
  std::uint8_t value = 0;
  if (!Read(at, value)) return;
  if (told.tells == Tells::kOutputLevel) {
    ShowValue(told.row, OutputLevelTexts(value).shortLabel.substr(1) + "dBu");  // no blank
    return;
  }
  const char* name = OptionName(told, panel.identity, panel.firmwareVersion, value);
  if (name != nullptr) ShowValue(told.row, name);
}

// The result of the read from model 26 is not tested: after a failure the buffer's earlier contents
// are shown.
void CInformationDlg::RefreshFormats(const Told& told, const Address& at) {
  const bool isBig = told.tells == Tells::kBigFormat;
  BlockBuffer answer{};
  if (!Read(at, isBig ? inputFormat : answer) && !isBig) return;
  for (std::size_t input = 0; input < told.inputs; ++input) {
    const BlockBytes bytes = BlockBytes(isBig ? inputFormat : answer).subspan(input * kFormatBytes);
    const VideoFormat format = DecodeFormat(bytes, isBig ? ByteOrder::kBig : ByteOrder::kLittle);
    const char* little = format.scan == 1 ? "p" : format.scan == 2 ? "s" : "i";
    const char* big = format.scan != 0 ? "i" : "p";
    ShowValue(told.row + static_cast<int>(input), TextOf(format, isBig ? big : little));
  }
}

void CInformationDlg::RefreshFormatCode(const Told& told, const Address& at) {
  WordBuffer words{};
  if (!Read(at, words)) return;
  const auto code = static_cast<std::uint8_t>(words[0] & 0xFF);
  ShowValue(told.row, InputFormatName(panel.identity.boxType, code, words[1] == 1));
}

void CInformationDlg::ReadFirmware() {
  WordBuffer words{};
  if (Read(FirmwareOf(panel.identity.boxType), words)) firmwareVersion = DecodeFirmware(words);
}

}  // namespace panelora
