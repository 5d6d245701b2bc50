#include "pages/status/information_dlg.h"

#include "base/byte_order.h"
#include "base/text.h"
#include "pages/format_text.h"
#include "pages/option_table.h"
#include "res/dialog_templates.h"

namespace panelora {

namespace {

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

// Where a model reports its input format, and its firmware version.
enum class FormatSource { kBlockBig, kBlockLittle, kCode };

struct ModelRow {
  std::uint8_t boxType;
  FormatSource source;
  std::uint32_t firmwareItem;
};

// Models that differ from the last row, which serves all the others.
constexpr ModelRow kModels[] = {
    {26, FormatSource::kBlockBig, word::kFirmware},
    {14, FormatSource::kBlockLittle, word::kFirmwareOther},
    {36, FormatSource::kBlockLittle, word::kFirmwareOther},
    {51, FormatSource::kBlockLittle, word::kFirmwareOther},
    {kTableEnd, FormatSource::kCode, word::kFirmwareOther},
};

const ModelRow& ModelOf(std::uint8_t boxType) {
  const ModelRow* row = kModels;
  while (row->boxType != kTableEnd && row->boxType != boxType) ++row;
  return *row;
}

struct FormatNameRow {
  std::uint8_t code;
  const char* name;
  const char* dividedName;  // at 1/1.001 of the rate; blank where there is no such format
};

constexpr FormatNameRow kFormatNames[] = {
    {0, "720x480 59.94i", "720x480 59.94i"},
    {89, "720x480 59.94i", "720x480 59.94i"},
    {1, "720x576 50.00i", ""},
    {2, "720x480 60.00p", "720x480 59.94p"},
    {3, "720x576 50.00p", ""},
    {4, "1280x720 60.00p", "1280x720 59.94p"},
    {5, "1280x720 59.94p", ""},
    {6, "1280x720 50.00p", ""},
    {7, "1920x1080 60.00i", "1920x1080 59.94i"},
    {8, "1920x1080 59.94i", ""},
    {9, "1920x1080 50.00i", ""},
    {10, "1920x1080 60.00p", "1920x1080 59.94p"},
    {11, "1920x1080 59.94p", ""},
    {12, "1920x1080 50.00p", ""},
    {43, "1920x1080 24.00p", "1920x1080 23.98p"},
    {44, "1920x1080 25.00p", ""},
    {45, "1920x1080 30.00p", "1920x1080 29.97p"},
    {81, "1280x720 30.00p", "1280x720 29.97p"},
    {82, "1280x720 25.00p", ""},
    {83, "1280x720 24.00p", "1280x720 23.98p"},
    {93, "1920x1080 24.00s", "1920x1080 23.98s"},
    {92, "1920x1035 60.00i", "1920x1035 59.94i"},
    // Two different spellings, both deliberate.
    {91, "-  NO  SIGNAL  -", "-  NO SIGNAL  - "},
    {kTableEnd, "", ""},
};

// Box type 19 has formats only below this code.
constexpr std::uint8_t kFirstMissingCode19 = 92;

struct AddressRow {
  std::uint8_t brandCode;
  const char* address;
};

constexpr AddressRow kWebAddresses[] = {
    {1, "www.telvero.example"},         {2, "www.brightmoor.example"},
    {3, "www.corvane-pro.example"},     {4, "www.quintrel.example"},
    {8, "www.lumexa.example"},          {9, "www.pandrel.example"},
    {kTableEnd, "www.corvane.example"},
};

// Box type 26 shows the address of this brand whatever its own brand is.
constexpr std::uint8_t kAddressBrand26 = 3;

}  // namespace

std::string FirmwareText(std::uint32_t version) {
  return Format("%X.%X.%X.%X", (version >> 12) & 0xF, (version >> 8) & 0xF, (version >> 4) & 0xF,
                version & 0xF);
}

std::string InputFormatName(std::uint8_t boxType, std::uint8_t code, bool divided) {
  if (boxType == 19 && code >= kFirstMissingCode19) return kNoSignalText;
  const FormatNameRow* row = FindRow(
      kFormatNames, &FormatNameRow::code,
      [&](const FormatNameRow& each) { return each.code == code && each.code != kTableEnd; });
  if (row == nullptr) return kNoSignalText;
  return divided ? row->dividedName : row->name;
}

CInformationDlg::CInformationDlg(PanelContext context) : Page(res::kInformation, context) {}

const char* CInformationDlg::WebAddress(std::uint8_t brandCode) {
  const AddressRow* row = kWebAddresses;
  while (row->brandCode != kTableEnd && row->brandCode != brandCode) ++row;
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
  const std::uint8_t boxType = panel.identity.boxType;
  if (boxType == 13 || boxType == 15) Window().SetText(kFormatCaption, "Input Format 1 :");
  // The firmware row takes the place of input row 2.
  Window().PlaceControl(kFirmwareCaption, {80, 90, 110, 30});
  Window().PlaceControl(kFirmwareValue, {200, 90, 150, 30});
  ShowWebAddress();
}

void CInformationDlg::ShowWebAddress() {
  if (panel.identity.boxType == 26) {
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
  switch (ModelOf(panel.identity.boxType).source) {
    case FormatSource::kBlockBig:
      Window().SetText(kFormatValue, FormatFromBigBlock());
      break;
    case FormatSource::kBlockLittle:
      if (const auto format = FormatFromLittleBlock()) Window().SetText(kFormatValue, *format);
      break;
    case FormatSource::kCode:
      if (const auto name = FormatFromCode()) Window().SetText(kFormatValue, *name);
      break;
  }
}

// The result of this read is not tested: after a failure the buffer's earlier contents are shown.
std::string CInformationDlg::FormatFromBigBlock() {
  Read(Block(block::kInputFormat, 30), inputFormat);
  const BlockBuffer& b = inputFormat;
  return FormatText(BigEndian(b[0], b[1]), BigEndian(b[2], b[3]), b[4], b[5],
                    b[6] != 0 ? "i" : "p");
}

// None when the box did not answer.
std::optional<std::string> CInformationDlg::FormatFromLittleBlock() {
  BlockBuffer b{};
  if (!Read(Block(block::kInputFormatLittle, 30), b)) return std::nullopt;
  const char* scan = b[6] == 1 ? "p" : b[6] == 2 ? "s" : "i";
  return FormatText(LittleEndian(b[0], b[1]), LittleEndian(b[2], b[3]), b[4], b[5], scan);
}

// None when the box did not answer; blank for a rate that the format does not have.
std::optional<std::string> CInformationDlg::FormatFromCode() {
  WordBuffer words{};
  if (!Read(Word(word::kFormatCode), words)) return std::nullopt;
  return InputFormatName(panel.identity.boxType, static_cast<std::uint8_t>(words[0] & 0xFF),
                         words[1] == 1);
}

void CInformationDlg::ReadFirmware() {
  WordBuffer words{};
  const std::uint32_t item = ModelOf(panel.identity.boxType).firmwareItem;
  if (Read(Word(item), words)) {
    firmwareVersion = (words[1] & 0xFF) * 256 + (words[0] & 0xFF);
  }
}

}  // namespace panelora
