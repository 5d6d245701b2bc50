#include "pages/audio/audio_options.h"

#include "pages/option_table.h"

namespace panelora {

const AudioSourceRow* FindAudioSource(std::uint8_t boxType, std::uint8_t input,
                                      std::uint8_t index) {
  return FindRow(kAudioSources, &AudioSourceRow::index, [&](const AudioSourceRow& row) {
    return row.index != kTableEnd && row.boxType == boxType && row.index == index &&
           (row.input == input || row.input == kEveryInput);
  });
}

const AudioOptionRow* FindAudioOption(const AudioOptionRow* table, std::uint8_t boxType,
                                      std::uint8_t value) {
  return FindRow(table, &AudioOptionRow::value, [&](const AudioOptionRow& row) {
    return row.value != kTableEnd && row.value == value &&
           (row.boxType == 0 || row.boxType == boxType);
  });
}

const AudioOptionRow kAudioMutes[] = {{0, 0, "OFF"}, {0, 1, "ON"}, {0, kTableEnd, ""}};

const AudioOptionRow kAudioStandards[] = {{50, 0, "SMPTE(USA)"},
                                          {50, 1, "EBU(Europe)"},
                                          {26, 0, "SMPTE(USA)"},
                                          {26, 1, "EBU(Europe)"},
                                          {0, kTableEnd, ""}};

const AudioOptionRow kOutputChannels[] = {
    {29, 2, "2.0 Channel"}, {29, 3, "3.1 Channel"}, {29, 6, "5.1 Channel"}, {29, 7, "6.1 Channel"},
    {29, 8, "7.1 Channel"}, {18, 2, "2.0 Channel"}, {18, 3, "3.1 Channel"}, {18, 6, "5.1 Channel"},
    {18, 7, "6.1 Channel"}, {18, 8, "7.1 Channel"}, {32, 2, "2.0 Channel"}, {32, 3, "3.1 Channel"},
    {32, 6, "5.1 Channel"}, {32, 7, "6.1 Channel"}, {32, 8, "7.1 Channel"}, {0, kTableEnd, ""}};

const AudioOptionRow kXlrLevels[] = {
    {24, 0, "10 dB"}, {24, 1, "24 dB"},  {34, 0, "10 dB"},  {34, 1, "24 dB"},  {14, 0, "0 dBu"},
    {14, 1, "6 dBu"}, {14, 2, "12 dBu"}, {14, 3, "18 dBu"}, {14, 4, "24 dBu"}, {36, 0, "0 dBu"},
    {36, 1, "6 dBu"}, {36, 2, "12 dBu"}, {36, 3, "18 dBu"}, {36, 4, "24 dBu"}, {0, kTableEnd, ""}};

const AudioOptionRow kXlrImpedances[] = {{14, 0, "High"}, {14, 1, "Low"}, {0, kTableEnd, ""}};

const AudioSourceRow kAudioSources[] = {
    {26, 2, 0, "L/R Audio", 0},
    {26, 2, 1, "Internal (Mute)", 1},
    {26, 2, 2, "SDI", 3},
    {26, 1, 0, "L/R Audio", 0},
    {26, 1, 1, "Internal (HDMI)", 1},
    {26, 1, 2, "SDI", 3},
    {26, 4, 0, "L/R Audio", 0},
    {26, 4, 1, "Internal (SDI)", 1},
    {26, 4, 2, "HDMI", 2},
    {50, 2, 0, "L/R Audio", 0},
    {50, 2, 1, "Internal (Mute)", 1},
    {50, 2, 2, "SDI", 3},
    {50, 1, 0, "L/R Audio", 0},
    {50, 1, 1, "Internal (HDMI)", 1},
    {50, 1, 2, "SDI", 3},
    {50, 4, 0, "L/R Audio", 0},
    {50, 4, 1, "Internal (SDI)", 1},
    {50, 4, 2, "HDMI", 2},
    {24, 0, 0, "Default ( SDI )", 0},
    {24, 1, 0, "Default ( HDMI )", 0},
    {24, kEveryInput, 1, "L/R Audio", 1},
    {24, kEveryInput, 2, "XLR Audio", 2},
    {34, 0, 0, "Default ( SDI )", 0},
    {34, 1, 0, "Default ( HDMI )", 0},
    {34, kEveryInput, 1, "L/R Audio", 1},
    {34, kEveryInput, 2, "XLR Audio", 2},
    {25, kEveryInput, 0, "Default", 0},
    {25, kEveryInput, 1, "L/R Audio", 1},
    {25, kEveryInput, 2, "Embedded Audio", 2},
    {29, kEveryInput, 0, "Default", 0},
    {29, kEveryInput, 1, "L/R Audio", 1},
    {29, kEveryInput, 2, "Embedded Audio", 2},
    {46, kEveryInput, 0, "Embedded Audio", 0},
    {46, kEveryInput, 1, "L/R Audio", 1},
    {46, kEveryInput, 2, "Mix Audio", 2},
    {47, kEveryInput, 0, "Embedded Audio", 0},
    {47, kEveryInput, 1, "L/R Audio", 1},
    {47, kEveryInput, 2, "Mix Audio", 2},
    {48, kEveryInput, 0, "Embedded Audio", 0},
    {48, kEveryInput, 1, "L/R Audio", 1},
    {48, kEveryInput, 2, "Mix Audio", 2},
    {49, kEveryInput, 0, "Embedded Audio", 0},
    {49, kEveryInput, 1, "L/R Audio", 1},
    {49, kEveryInput, 2, "Mix Audio", 2},
    {52, kEveryInput, 0, "Embedded Audio", 0},
    {52, kEveryInput, 1, "L/R Audio", 1},
    {52, kEveryInput, 2, "Mix Audio", 2},
    {14, kEveryInput, 0, "Internal", 0},
    {14, kEveryInput, 1, "XLR Audio", 1},
    {14, kEveryInput, 2, "AES-3", 2},
    {36, kEveryInput, 0, "Internal", 0},
    {36, kEveryInput, 1, "XLR Audio", 1},
    {36, kEveryInput, 2, "AES-3", 2},
    {13, kEveryInput, 0, "Channel 1", 0},
    {13, kEveryInput, 1, "Channel 2", 1},
    {13, kEveryInput, 2, "Channel 3", 2},
    {13, kEveryInput, 3, "Channel 4", 3},
    {15, kEveryInput, 0, "Channel 1", 0},
    {15, kEveryInput, 1, "Channel 2", 1},
    {15, kEveryInput, 2, "Channel 3", 2},
    {15, kEveryInput, 3, "Channel 4", 3},
    {51, kEveryInput, 0, "Line In 1", 0},
    {51, kEveryInput, 1, "Line In 2", 1},
    {51, kEveryInput, 2, "Line In 3", 2},
    {51, kEveryInput, 3, "Line In 4", 3},
    {23, kEveryInput, 0, "Internal( HDMI )", 0},
    {23, kEveryInput, 1, "SPDIF", 1},
    {23, kEveryInput, 2, "MicroPhone", 2},
    {42, kEveryInput, 0, "Internal( HDMI )", 0},
    {42, kEveryInput, 1, "SPDIF", 1},
    {42, kEveryInput, 2, "MicroPhone", 2},
    {30, kEveryInput, 0, "Embedded( SDI )", 0},
    {30, kEveryInput, 1, "Analog L/R Audio", 1},
    {30, kEveryInput, 2, "Mix ( SDI + L/R )", 2},
    {43, kEveryInput, 0, "Embedded( SDI )", 0},
    {43, kEveryInput, 1, "Analog L/R Audio", 1},
    {43, kEveryInput, 2, "Mix ( SDI + L/R )", 2},
    {20, kEveryInput, 0, "L(Aud) + R( Dig )", 0},
    {20, kEveryInput, 1, "R(Aud) + L( Dig )", 1},
    {33, kEveryInput, 0, "L(Aud) + R( Dig )", 0},
    {33, kEveryInput, 1, "R(Aud) + L( Dig )", 1},
    {17, kEveryInput, 0, "SDI", 0},
    {17, kEveryInput, 1, "HDMI", 1},
    {35, kEveryInput, 0, "SDI", 0},
    {35, kEveryInput, 1, "HDMI", 1},
    {18, kEveryInput, 0, "Nono", 0},
    {18, kEveryInput, 1, "LAnalog L/R Audio", 1},
    {18, kEveryInput, 2, "L/R Ear Phone", 2},
    {32, kEveryInput, 0, "Nono", 0},
    {32, kEveryInput, 1, "LAnalog L/R Audio", 1},
    {32, kEveryInput, 2, "L/R Ear Phone", 2},
    {0, 0, kTableEnd, "", 0},
};

}  // namespace panelora
