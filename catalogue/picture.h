// Who keeps the picture values of the Proc Amp page how.
//
// Models: which types are asked one by one is known; by what the others select the channel that is
// read back, and which store what they were sent only when told so, is chosen.
#pragma once

#include "catalogue/kept.h"

namespace panelora {

// What a box of type 26 is told to do.
namespace command {
constexpr Address kAt = Word(3);
constexpr std::uint8_t kProcAmpDefaults = 0;  // brightness, contrast, hue, saturation
constexpr std::uint8_t kHardwareReset = 1;    // the box vanishes for some seconds
constexpr std::uint8_t kRgbDefaults = 2;      // RGB gain and both offsets
constexpr std::uint8_t kImageRestore = 3;     // image position and size
}  // namespace command

namespace picture {

// Models that tell the four picture values one by one.
inline constexpr BoxTypes kToldOneByOne = {13, 14, 15, 17, 18, 19, 20, 30,
                                           32, 33, 35, 36, 43, 48, 49};
// Models that are not asked for them; 5 and 27 are asked, and have none either.
inline constexpr BoxTypes kNotAsked = {6, 7};
inline constexpr BoxTypes kWithoutValues = {5, 6, 7, 27};

// RGB gain 0 to 255, offset 0 to 255, offset 2 0 to 64: of box type 26.
constexpr Address kRgb = Block(14, 3);

// What takes the value 0 before a model is asked for the values that it has restored.
Address ChannelOf(std::uint8_t boxType);

// Models that store what they were sent only when they are told so.
bool Commits(const Identity& identity, std::uint32_t firmware);

}  // namespace picture

}  // namespace panelora
