#include "catalogue/information.h"

#include <iterator>

#include "base/text.h"

namespace panelora::information {

namespace {

constexpr FormatSource kSources[] = {
    {{26}, FormatKind::kBigBlock, Block(1, 30)},
    {{14, 36, 51}, FormatKind::kLittleBlock, Block(3, 30)},
    {kAllTypes, FormatKind::kCode, Word(3)},
};

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
};

// Box type 19 has formats only below this code.
constexpr BoxTypes kWithFewFormats = {19};
constexpr std::uint8_t kFirstMissingCode = 92;

}  // namespace

// Item 8 is the wall size, the function button or the reset of these.
constexpr BoxTypes kFirmwareIn4 = {17, 18, 19, 20, 21, 27, 30, 32, 33, 43};

Address FirmwareOf(std::uint8_t boxType) {
  if (kShippedType.Has(boxType)) return Word(5);
  return Word(kFirmwareIn4.Has(boxType) ? 4 : 8);
}

const FormatSource& FormatSourceOf(std::uint8_t boxType) {
  const FormatSource* row = FirstOf(kSources, boxType);
  return row != nullptr ? *row : *std::rbegin(kSources);
}

std::string InputFormatName(std::uint8_t boxType, std::uint8_t code, bool divided) {
  if (kWithFewFormats.Has(boxType) && code >= kFirstMissingCode) return kNoSignalText;
  for (const FormatNameRow& row : kFormatNames) {
    if (row.code == code) return divided ? row.dividedName : row.name;
  }
  return kNoSignalText;
}

std::string FirmwareText(std::uint32_t version) {
  return Format("%X.%X.%X.%X", (version >> 12) & 0xF, (version >> 8) & 0xF, (version >> 4) & 0xF,
                version & 0xF);
}

}  // namespace panelora::information
