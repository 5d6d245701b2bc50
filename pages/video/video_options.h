// The option tables of the Video settings page, and the two searches in them.
//
// The blocks of box types 26 and 50 are the boxes' own, as are the rows of the other types' blocks;
// which of these types has which of them is a choice of this table: "SDI"/"HDMI" 24 and 34, "SDI
// 1"/ "SDI 2" 48 and 49, "CH 1"/"CH 2" 27, five inputs 25 and 29, seven inputs 23 and 42;
// equalisers, CRC error lamp and GPI mode 24 and 34; IRE level 23, 42, 25 and 29; genlock modes by
// the types that the Genlock page knows; SDI output colours those of HDMI. Output format
// codes are those of the whole family, so that one block serves every type; aspect ratios of the
// other types are named as their DIP switch 8 names them, and those above 4 have no name. Output
// source has the one row that is known, output mode none; the remaining types have no names for
// their inputs.
#pragma once

#include <cstdint>

namespace panelora {

// A row that serves every box type.
constexpr std::uint8_t kEveryBoxType = 0;

// A table ends at the row whose index is 255; its caption, when it has one, is shown for a reported
// index of 255.
struct OptionRow {
  std::uint8_t boxType;
  std::uint8_t index;
  const char* caption = nullptr;
  std::uint8_t value = 0;  // what the box is told and reports
};

// The first row of `boxType` with that index, or with that value; null when there is none.
const OptionRow* FindOption(const OptionRow* table, std::uint8_t boxType, std::uint8_t index);
const OptionRow* FindOptionValue(const OptionRow* table, std::uint8_t boxType, std::uint8_t value);

extern const OptionRow kInputSources[];
extern const OptionRow kOutputFormats[];
extern const OptionRow kAspectRatios[];
extern const OptionRow kHdmiEqs[];
extern const OptionRow kOutputLevels[];
extern const OptionRow kOutputColours[];
extern const OptionRow kEdgeEnhances[];
extern const OptionRow kColourUpFilters[];
extern const OptionRow kSdiTypes[];
extern const OptionRow kSecondOutputLevels[];
extern const OptionRow kSdiOutputColours[];
extern const OptionRow kHdmiOutputModes[];
extern const OptionRow kImageMirrors[];
extern const OptionRow kReclocks[];
extern const OptionRow kSdiEqs[];
extern const OptionRow kGpiModes[];
extern const OptionRow kErrorLeds[];
extern const OptionRow kGenlockModes[];
extern const OptionRow kIreLevels[];
extern const OptionRow kOutputSources[];
extern const OptionRow kNoOptions[];

}  // namespace panelora
