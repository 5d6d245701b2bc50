// The options of Video settings: lists, last choices, and which box keeps which of them where.
//
// Models: of box type 26 all is the box's own. Of the other types most lists and last choices are
// known, and that some keep input source, output format, output source and aspect ratio in blocks
// 3, 4, 5 and 15; the remaining addresses are chosen, type by type, among those that the page is
// known to use and that the type needs for nothing else.
#pragma once

#include "catalogue/kept.h"

namespace panelora::video {

enum Option : std::uint8_t {
  kInputSource,
  kOutputLevel,
  kAspectRatio,
  kOutputFormat,
  kOutputMode,
  kOutputColour,
  kOutputSource,
  kHdmiEq,
  kSdi0Eq,
  kSdi1Eq,
  kErrorLed,
  kGpiMode,
  kGenlockMode,
  kIreLevel,
  kEdgeEnhance,
  kColourUpFilter,
  kSdiType,
  kSecondOutputLevel,
  kSdiOutputColour,
  kHdmiOutputMode,
  kImageMirror,
  kReclock,
  kOptionCount,
};

// The value of the analogue VGA input, for types with many inputs and a sampling phase to adjust.
constexpr std::uint8_t kVgaInput = 2;

const OptionGroup& Options();

// The greatest index that ">>" reaches, of lists whose length differs by box.
std::uint8_t LastIndex(Option option, const Identity& identity, std::uint32_t firmware);

// How many sub-pages the options of a box take.
int SubPages(const Identity& identity);

// Types that are told a request to pass their input through, in one block.
inline constexpr BoxTypes kPassThrough = {20, 24, 30, 33, 34, 43};
constexpr Address kPassThroughRequest = Block(8);
// Those of them whose output is told by two items: whether the input passes, and the format code.
inline constexpr BoxTypes kReportsOutput = {20, 33};
constexpr Address kPassThroughReport = Word(17);
constexpr Address kOutputFormatReport = Word(1);

// Types with many inputs: they adjust the sampling phase of an analogue one when told so.
inline constexpr BoxTypes kWithAutoPhase = {23, 25, 29, 42};
constexpr Address kAutoPhase = Block(13);

// Types with a freeze button; block 19 is the genlock mode, the region or a label of the others.
inline constexpr BoxTypes kWithFreeze = kAllTypes.Except({13, 15, 20, 30, 33, 43});
// What freezes the picture, or lets it go on; in this order.
std::span<const Command> FreezeCommands();

}  // namespace panelora::video
