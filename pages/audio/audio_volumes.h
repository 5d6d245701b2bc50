// The volumes of a box, without their window: what they are, how they step, and what is shown.
#pragma once

#include <string>

#include "catalogue/audio.h"
#include "device/box.h"

namespace panelora {

// What a volume shows: a bar from 0 to `maximum`, a caption, and where it has one a short label.
struct VolumeBar {
  int maximum;
  int position;
  std::string caption;
  std::string label;
  const char* ruler = nullptr;  // null = as it was
};

class AudioVolumes {
 public:
  audio::VolumeKind KindOf(const Identity& box) const { return audio::VolumesOf(box.boxType).kind; }

  // Whether levels can be chosen by name.
  bool HasLevels(const Identity& box) const;

  // False when the box has no volume or did not answer; nothing changes then.
  bool Read(const Box& link, const Identity& box);
  void Write(const Box& link, const Identity& box) const;

  // What the first bar shows, by the source whose volume it is; the second is of attenuations.
  VolumeBar First(const Identity& box, std::uint8_t source) const;
  VolumeBar Second() const;

  // One step louder (1) or less (-1); all values stop at their ends.
  void Step(const Identity& box, std::uint8_t source, int louder);
  void StepSecond(int louder);

  // An entry of LevelsOf the kind; false for one that there is not.
  bool Choose(const Identity& box, int entry);

 private:
  VolumeBar OutputLevel() const;
  VolumeBar InputLevel() const;

  std::uint8_t volume = 0;        // 0 to 100; raw 0 to 80 where the input level is shown
  std::uint8_t volume2 = 0;       // 0 to 100: of the second source, or of the embedded audio
  std::uint8_t extra = 0;         // told behind the input volumes; nobody knows what it says
  std::uint8_t outputLevel = 62;  // raw 0 to 112, half decibels around 62
};

}  // namespace panelora
