// The option tables of the Audio page.
//
// The rows of box types 26 and 50 are the boxes' own. The source texts of the other types are the
// boxes' own too; which type has which of them is a choice of this table.
#pragma once

#include <cstdint>

namespace panelora {

// A key that stands for every input code.
constexpr std::uint8_t kEveryInput = 254;

struct AudioSourceRow {
  std::uint8_t boxType;
  std::uint8_t input;  // video input code of the box, or kEveryInput
  std::uint8_t index;  // what the page steps through and shows; 255 ends the table
  const char* text;
  std::uint8_t deviceCode;  // what the box is sent
};

struct AudioOptionRow {
  std::uint8_t boxType;  // 0 = every type
  std::uint8_t value;    // 255 ends the table
  const char* text;
};

extern const AudioSourceRow kAudioSources[];
extern const AudioOptionRow kAudioMutes[];
extern const AudioOptionRow kAudioStandards[];
extern const AudioOptionRow kOutputChannels[];
extern const AudioOptionRow kXlrLevels[];
extern const AudioOptionRow kXlrImpedances[];

// The first row of the type, input and index; null when there is none.
const AudioSourceRow* FindAudioSource(std::uint8_t boxType, std::uint8_t input, std::uint8_t index);

// The first row of the type with that value; null when there is none.
const AudioOptionRow* FindAudioOption(const AudioOptionRow* table, std::uint8_t boxType,
                                      std::uint8_t value);

}  // namespace panelora
