#include "pages/status/information_dlg.h"

#include "res/dialog_templates.h"

namespace panelora {

namespace {

using namespace information;

constexpr int kGroup = 1016;
constexpr int kFormatCaption = 1003;
constexpr int kFormatValue = 1007;
constexpr int kFirmwareCaption = 1013;
constexpr int kFirmwareValue = 1014;
constexpr int kWebAddress = 1015;

struct TextRow {
  int control;
  const char* text;
};

// The first text of every caption and value.
constexpr TextRow kTexts[] = {
    {kGroup, "Information"},
    {1003, "Input Format    :"},
    {1007, "1920x1080 60.00p"},
    {1004, "Input Format 2 :"},
    {1008, "1920x1080 60.00p"},
    {1005, "Input Format 3 :"},
    {1009, "1920x1080 60.00p"},
    {1006, "Input Format 4 :"},
    {1010, "1920x1080 60.00p"},
    {kFirmwareCaption, "F/W Version     :"},
    {kFirmwareValue, "0.1.0.1"},
    {1011, "Input Color       :"},
    {1012, "RGB444"},
    {1030, "Output Color    :"},
    {1026, "RGB444"},
    {1028, "Output Format :"},
    {1022, "1920x1080 p60.00"},
    {1029, "Input Source    :"},
    {1025, "DVI-D (HDMI)"},
    {1032, "Output Mode    :"},
    {1031, "AV ( CEA-861)"},
    {1024, "Aspect Ratio   :"},
    {1021, "Full Screen"},
    {1027, "Audio Source  :"},
    {1019, "L/R Audio"},
    {1023, "Audio Mute     :"},
    {1020, "OFF"},
    {1017, "Control Interface :"},
    {1018, "DipSwitch"},
    {1033, "Output Source  :"},
    {1034, "VGA + HDMI"},
    {1035, "Analog Audio Output Level :"},
    {1036, "24dBu"},
    {1037, "Genlock Format  :"},
    {1038, "1920x1080 60.00p"},
    {1039, "Genlock Mode  :"},
    {1079, "Free Run"},
};

struct PlaceRow {
  int control;
  ui::Rect rect;
};

constexpr PlaceRow kPlaces[] = {
    {kGroup, {55, 20, 390, 260}}, {1003, {80, 60, 110, 20}},  {1007, {200, 60, 150, 20}},
    {1004, {80, 90, 110, 20}},    {1008, {200, 90, 150, 20}}, {1005, {80, 120, 110, 20}},
    {1009, {200, 120, 150, 20}},  {1006, {80, 150, 110, 20}}, {1010, {200, 150, 150, 20}},
};

// Rows of boxes with more inputs or more to tell: input rows 2 to 4, input colour, and the rest.
constexpr int kHiddenRows[] = {1004, 1008, 1005, 1009, 1006, 1010, 1011, 1012, 1030, 1026, 1028,
                               1022, 1029, 1025, 1032, 1031, 1024, 1021, 1027, 1019, 1023, 1020,
                               1017, 1018, 1033, 1034, 1035, 1036, 1037, 1038, 1039, 1079};

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
  for (const TextRow& row : kTexts) {
    Window().SetFont(row.control, ui::kCaptionFont);
    Window().SetText(row.control, row.text);
  }
  Window().SetFont(kWebAddress, ui::kCaptionFont);
  for (const PlaceRow& row : kPlaces) Window().PlaceControl(row.control, row.rect);
  for (const int control : kHiddenRows) Window().ShowControl(control, false);
  LayOut();
}

void CInformationDlg::LayOut() {
  if (information::kNumbersInputs.Has(panel.identity.boxType)) {
    Window().SetText(kFormatCaption, "Input Format 1 :");
  }
  // The firmware row takes the place of input row 2.
  Window().PlaceControl(kFirmwareCaption, {80, 90, 110, 30});
  Window().PlaceControl(kFirmwareValue, {200, 90, 150, 30});
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
  if (present) RefreshInputFormat();
  if (present) ReadFirmware();
  panel.firmwareVersion = firmwareVersion;  // on every refresh, whether or not the read succeeded
  Window().SetText(kFirmwareValue, FirmwareText(firmwareVersion));
}

void CInformationDlg::RefreshInputFormat() {
  const FormatSource& source = FormatSourceOf(panel.identity.boxType);
  if (source.kind == FormatKind::kCode) {
    WordBuffer words{};
    if (!Read(source.at, words)) return;
    const auto code = static_cast<std::uint8_t>(words[0] & 0xFF);
    Window().SetText(kFormatValue, InputFormatName(panel.identity.boxType, code, words[1] == 1));
    return;
  }
  // The result of the read from model 26 is not tested: after a failure the buffer's earlier
  // contents are shown.
  const bool isBig = source.kind == FormatKind::kBigBlock;
  if (!Read(source.at, inputFormat) && !isBig) return;
  const VideoFormat format =
      DecodeFormat(inputFormat, isBig ? ByteOrder::kBig : ByteOrder::kLittle);
  const char* little = format.scan == 1 ? "p" : format.scan == 2 ? "s" : "i";
  const char* big = format.scan != 0 ? "i" : "p";
  Window().SetText(kFormatValue, TextOf(format, isBig ? big : little));
}

void CInformationDlg::ReadFirmware() {
  WordBuffer words{};
  if (Read(FirmwareOf(panel.identity.boxType), words)) firmwareVersion = DecodeFirmware(words);
}

}  // namespace panelora
