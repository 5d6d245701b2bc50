// What the Information page is told, by model.
//
// Models: 26 is complete. Of the others the rows, their texts and the properties that the page asks
// for are known; which model shows which of them, and from which property, is chosen.
#pragma once

#include <optional>
#include <string>

#include "catalogue/codecs.h"
#include "catalogue/kept.h"

namespace panelora::information {

// Whose number is read: two words, see DecodeFirmware.
Address FirmwareOf(std::uint8_t boxType);

// Whether an item is answered with two words: the firmware version and the codes of formats are.
bool HasTwoWords(std::uint8_t boxType, std::uint32_t item);
// Whether it is on any model.
bool MayHaveTwoWords(std::uint32_t item);

// The rows of the page, each a caption and a value; the firmware version stands below them.
enum Row : std::uint8_t {
  kInput1,
  kInput2,
  kInput3,
  kInput4,
  kInputSource,
  kInputColour,
  kOutputFormat,
  kOutputColour,
  kOutputMode,
  kOutputSource,
  kAspectRatio,
  kAudioSource,
  kAudioMute,
  kAnalogLevel,
  kGenlockFormat,
  kGenlockMode,
  kRowCount,
};

// What is read for a row.
enum class Tells : std::uint8_t {
  kBigFormat,     // a format block, big-endian
  kLittleFormat,  // the same, little-endian; seven bytes for each of `inputs` rows from this one on
  kFormatCode,    // two words: the code, and whether the rate is 1/1.001 of the nominal one
  kReference,     // the reference format of Genlock
  kVideoOption,   // an option of Video settings
  kAudioOption,   // an option of Audio
  kOutputLevel,   // the volume of Audio
};

struct Told {
  BoxTypes types;
  Row row;
  Tells tells;
  Address at = {};  // none = where the page of the option has it
  std::uint8_t option = 0;
  std::uint8_t inputs = 1;
};

// In the order in which a box is asked, and from top to bottom; five rows at the most.
std::span<const Told> Rows();

// Where a box tells it; none when it does not.
Address AddressOf(const Told& told, const Identity& identity, std::uint32_t firmware);

// What an option is called whose byte was read; null when that has no name.
const char* OptionName(const Told& told, const Identity& identity, std::uint32_t firmware,
                       std::uint8_t value);

// The caption of an input row where it is not the usual one; null elsewhere.
const char* InputCaption(std::uint8_t boxType, Row row);

// The name of an input format code; `divided` = the rate is 1/1.001 of the nominal one, which is
// blank where there is no such format. The no-signal text when the code has no name.
std::string InputFormatName(std::uint8_t boxType, std::uint8_t code, bool divided);

// The two words that tell an input format of that name ("1920x1080 59.94i"; empty = no signal);
// nothing when it has no code on that type.
std::optional<WordBuffer> InputFormatCode(std::uint8_t boxType, const std::string& name);

// "0.1.1.2" from 0x0112: four hexadecimal digits, most significant first.
std::string FirmwareText(std::uint32_t version);

}  // namespace panelora::information
