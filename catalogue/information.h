// What the Information page is told, by model.
//
// Models: 26 is complete. Which source of the input format belongs to which of the others is
// chosen.
#pragma once

#include "catalogue/codecs.h"
#include "catalogue/kept.h"

namespace panelora::information {

// Whose number is read: two words, see DecodeFirmware.
Address FirmwareOf(std::uint8_t boxType);

// The input format as a block, in an order by model; or as a code.
enum class FormatKind : std::uint8_t { kBigBlock, kLittleBlock, kCode };
struct FormatSource {
  BoxTypes types;
  FormatKind kind;
  Address at;
};
// Of any type but no box.
const FormatSource& FormatSourceOf(std::uint8_t boxType);

// The name of an input format code; `divided` = the rate is 1/1.001 of the nominal one, which is
// blank where there is no such format. The no-signal text when the code has no name.
std::string InputFormatName(std::uint8_t boxType, std::uint8_t code, bool divided);

// "0.1.1.2" from 0x0112: four hexadecimal digits, most significant first.
std::string FirmwareText(std::uint32_t version);

// Models whose first input has a number.
inline constexpr BoxTypes kNumbersInputs = {13, 15};

}  // namespace panelora::information
