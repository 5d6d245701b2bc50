#include "catalogue/information.h"

#include <algorithm>
#include <iterator>

#include "base/text.h"
#include "catalogue/audio.h"
#include "catalogue/multiview.h"
#include "catalogue/video.h"

namespace panelora::information {

namespace {

constexpr BoxTypes kFourByCode = {13, 15};
constexpr BoxTypes kFourSdi = {51};
constexpr BoxTypes kFourHdmi = {52};
constexpr BoxTypes kFourByBlock = kFourSdi.With(kFourHdmi);
constexpr BoxTypes kByBlock = {14, 36};
constexpr BoxTypes kWithReference = {39, 40, 46, 47, 48, 49, 50};

constexpr Told Video(const BoxTypes& types, Row row, video::Option option, Address at = {}) {
  return {types, row, Tells::kVideoOption, at, option};
}
constexpr Told Audio(const BoxTypes& types, Row row, audio::Option option) {
  return {types, row, Tells::kAudioOption, {}, option};
}

constexpr Told kRows[] = {
    {kShippedType, kInput1, Tells::kBigFormat, Block(1, 30)},
    {kByBlock, kInput1, Tells::kLittleFormat, Block(3, 30)},
    {kFourByBlock, kInput1, Tells::kLittleFormat, Block(3, 30), 0, 4},
    {kOtherTypes.Except(kByBlock).Except(kFourByBlock), kInput1, Tells::kFormatCode, Word(3)},
    {kFourByCode, kInput2, Tells::kFormatCode, Word(7)},
    {kFourByCode, kInput3, Tells::kFormatCode, Word(14)},
    {kFourByCode, kInput4, Tells::kFormatCode, Word(18)},

    Video({23, 24, 25, 27, 29, 34, 42, 48, 49, 50}, kInputSource, video::kInputSource),
    // Named like the colours of an output.
    Video({25, 29}, kInputColour, video::kSdiOutputColour, Word(18)),
    Video(kOtherTypes, kOutputFormat, video::kOutputFormat),
    Video({23, 37, 38, 39, 40, 42, 46, 47, 50}, kOutputColour, video::kOutputColour),
    Video({23, 42}, kOutputMode, video::kOutputMode),
    Video({25, 29}, kOutputSource, video::kOutputSource),
    Video(kOtherTypes.Except(kFourByCode)
              .Except(kFourByBlock)
              .Except(kWithReference)
              .Except({18, 20, 23, 25, 29, 30, 32, 33, 37, 38, 42, 43}),
          kAspectRatio, video::kAspectRatio),
    Audio({17, 18, 20, 30, 32, 33, 35, 37, 38, 39, 40, 43, 46, 47, 48, 49}, kAudioSource,
          audio::kSource),
    Audio({14, 18, 20, 21, 32, 33, 36}, kAudioMute, audio::kMute),
    {{24, 34}, kAnalogLevel, Tells::kOutputLevel},
    {kWithReference.With({30, 43}), kGenlockFormat, Tells::kReference},
    Video({30, 43}, kGenlockMode, video::kGenlockMode),
};

struct FormatNameRow {
  std::uint8_t code;
  const char* name;
  const char* dividedName;  // at 1/1.001 of the rate; blank where there is no such format
};

constexpr std::uint8_t kNoSignalCode = 91;

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
    {kNoSignalCode, "-  NO  SIGNAL  -", "-  NO SIGNAL  - "},
};

// Box type 19 has formats only below this code.
constexpr BoxTypes kWithFewFormats = {19};
constexpr std::uint8_t kFirstMissingCode = 92;

// Item 8 is the wall size, the function button or the reset of these.
constexpr BoxTypes kFirmwareIn4 = {17, 18, 19, 20, 21, 27, 30, 32, 33, 43};

const OptionGroup& GroupOf(const Told& told) {
  return told.tells == Tells::kVideoOption ? video::Options() : audio::Options();
}

// The row by which a box keeps the option; null when it does not.
const Kept* KeptOf(const Told& told, const Identity& identity, std::uint32_t firmware) {
  for (const Kept& kept : GroupOf(told).kept) {
    const bool isTold = kept.option == told.option && kept.access != Access::kWriteOnly;
    if (isTold && kept.Serves(identity, firmware)) return &kept;
  }
  return nullptr;
}

}  // namespace

std::span<const Told> Rows() { return kRows; }

Address AddressOf(const Told& told, const Identity& identity, std::uint32_t firmware) {
  if (!told.types.Has(identity.boxType)) return {};
  if (told.at.kind != Address::Kind::kNone) return told.at;
  if (told.tells == Tells::kReference) return genlock::Find(identity.boxType)->reference;
  if (told.tells == Tells::kOutputLevel) return audio::VolumesOf(identity.boxType).at;
  const Kept* kept = KeptOf(told, identity, firmware);
  return kept != nullptr ? kept->at : Address{};
}

const char* OptionName(const Told& told, const Identity& identity, std::uint32_t firmware,
                       std::uint8_t value) {
  const std::uint8_t type = identity.boxType;
  const Kept* kept = KeptOf(told, identity, firmware);
  const bool byIndex = kept != nullptr && kept->reads == Reads::kIndex;
  const Choices choices = GroupOf(told).options[told.option].choices;
  const Choice* choice =
      byIndex ? FindIndex(choices, type, value) : FindValue(choices, type, value);
  if (told.tells == Tells::kAudioOption && told.option == audio::kSource) {
    choice = audio::FindSource(type, audio::kNoInput, value);
  }
  return choice != nullptr ? choice->text : nullptr;
}

const char* InputCaption(std::uint8_t boxType, Row row) {
  static constexpr const char* kSdi[] = {"SDI CH 1 :", "SDI CH 2 :", "SDI CH 3 :", "SDI CH 4 :"};
  static constexpr const char* kHdmi[] = {
      "HDMI CH 1 :", "HDMI CH 2 :", "HDMI CH 3 :", "HDMI CH 4 :"};
  if (row > kInput4) return nullptr;
  if (kFourSdi.Has(boxType)) return kSdi[row];
  if (kFourHdmi.Has(boxType)) return kHdmi[row];
  return kFourByCode.Has(boxType) && row == kInput1 ? "Input Format 1 :" : nullptr;
}

std::string InputFormatName(std::uint8_t boxType, std::uint8_t code, bool divided) {
  if (kWithFewFormats.Has(boxType) && code >= kFirstMissingCode) return kNoSignalText;
  for (const FormatNameRow& row : kFormatNames) {
    if (row.code == code) return divided ? row.dividedName : row.name;
  }
  return kNoSignalText;
}

std::optional<WordBuffer> InputFormatCode(std::uint8_t boxType, const std::string& name) {
  if (name.empty()) return WordBuffer{kNoSignalCode, 0};
  for (const FormatNameRow& row : kFormatNames) {
    if (row.code == kNoSignalCode) continue;
    if (kWithFewFormats.Has(boxType) && row.code >= kFirstMissingCode) continue;
    if (row.name == name) return WordBuffer{row.code, 0};
    if (row.dividedName == name) return WordBuffer{row.code, 1};
  }
  return std::nullopt;
}

Address FirmwareOf(std::uint8_t boxType) {
  if (kShippedType.Has(boxType)) return Word(5);
  return Word(kFirmwareIn4.Has(boxType) ? 4 : 8);
}

bool HasTwoWords(std::uint8_t boxType, std::uint32_t item) {
  if (item == FirmwareOf(boxType).number) return true;
  return std::any_of(std::begin(kRows), std::end(kRows), [&](const Told& told) {
    return told.tells == Tells::kFormatCode && told.types.Has(boxType) && told.at.number == item;
  });
}

bool MayHaveTwoWords(std::uint32_t item) {
  for (std::uint8_t boxType = 0; boxType != kNoBoxType; ++boxType) {
    if (HasTwoWords(boxType, item)) return true;
  }
  return false;
}

std::string FirmwareText(std::uint32_t version) {
  return Format("%X.%X.%X.%X", (version >> 12) & 0xF, (version >> 8) & 0xF, (version >> 4) & 0xF,
                version & 0xF);
}

}  // namespace panelora::information
