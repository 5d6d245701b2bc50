// The audio options and volumes, and which box keeps which of them where.
//
// Models: box types 26 and 50 share all of it. Of the other types the texts and ranges are known,
// where the volumes are kept, and the properties that they use between them; which type has which
// sources, and where it keeps mute and source, is chosen.
#pragma once

#include "catalogue/kept.h"

namespace panelora::audio {

enum Option : std::uint8_t {
  kMute,
  kSource,  // its choices hang on the video input too: see FindSource
  kStandard,
  kXlrLevel,
  kXlrImpedance,
  kChannel,
  kOptionCount,
};

const OptionGroup& Options();

// The sources by the code of the video input that the box shows; those of any input come last.
struct Sources {
  int input;
  Choices choices;
};
constexpr int kAnyInput = -1;
constexpr std::uint8_t kNoInput = 255;  // of models whose sources don't hang on the input
std::span<const Sources> AllSources();

// The first choice of a source for the type and its video input; null when there is none.
const Choice* FindSource(std::uint8_t boxType, std::uint8_t input, std::uint8_t index);

// Where a box tells its video input; none where its sources don't hang on it.
Address InputOf(std::uint8_t boxType);

// Where a model tells in two bytes whether it has a source to choose, and a volume; none = it has
// what its rows say.
Address FittedOf(std::uint8_t boxType);

enum class VolumeKind : std::uint8_t {
  kNone,
  kAttenuation,  // two bytes: of L/R and of the embedded audio, 0 to 100
  kInput,        // two bytes: 0 to 100, or on brand 2 the first an attenuation in half decibels;
                 // a third is told and not known
  kOutputLevel,  // one byte: 0 to 112, half decibels around 62
};

struct Volumes {
  BoxTypes types;
  VolumeKind kind;
  Address at;
};
const Volumes& VolumesOf(std::uint8_t boxType);

// The levels that the operator can choose by name, for kInput and kOutputLevel.
Choices LevelsOf(VolumeKind kind);

}  // namespace panelora::audio
