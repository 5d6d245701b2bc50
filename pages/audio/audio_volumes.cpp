#include "pages/audio/audio_volumes.h"

#include "base/text.h"
#include "catalogue/audio_levels.h"

namespace panelora {

namespace {

using audio::VolumeKind;

constexpr int kMaxVolume = 100;
constexpr int kMaxOutputLevel = 112;
constexpr int kMaxInputLevel = 77;  // of the buttons; the box reports up to 80
constexpr int kInputLevelRange = 80;

constexpr char kOutputRuler[] = "|_____|_____|_____|_____|_____|__|";
constexpr char kInputLevelRuler[] = "  |______|_______|_______|_______|";

// One step up or down that stops at the end. From a reported value beyond it a step up comes back
// to it, and a step down goes on from where the box is.
std::uint8_t Stepped(std::uint8_t value, int step, int maximum) {
  if (step > 0) return static_cast<std::uint8_t>(value >= maximum ? maximum : value + 1);
  return static_cast<std::uint8_t>(value == 0 ? 0 : value - 1);
}

VolumeBar VolumeOf(const char* caption, int shown) {
  return {kMaxVolume, shown, std::string(caption) + Format(" ( %d )", shown), ""};
}

}  // namespace

bool AudioVolumes::HasLevels(const Identity& box) const {
  const VolumeKind kind = KindOf(box);
  return box.brandCode == 2 && (kind == VolumeKind::kOutputLevel || kind == VolumeKind::kInput);
}

bool AudioVolumes::Read(const Box& link, const Identity& box) {
  BlockBuffer bytes{};
  const audio::Volumes& kept = audio::VolumesOf(box.boxType);
  if (kept.kind == VolumeKind::kNone || !link.Read(kept.at, bytes)) return false;
  if (kept.kind == VolumeKind::kOutputLevel) {
    outputLevel = bytes[0];
  } else {
    volume = bytes[0];
    volume2 = bytes[1];
    if (kept.at.readLength > 2) extra = bytes[2];
  }
  return true;
}

void AudioVolumes::Write(const Box& link, const Identity& box) const {
  const audio::Volumes& kept = audio::VolumesOf(box.boxType);
  if (kept.kind == VolumeKind::kOutputLevel) {
    link.Write(kept.at, {outputLevel, 0});
  } else if (kept.kind != VolumeKind::kNone) {
    link.Write(kept.at, {volume, volume2});
  }
}

VolumeBar AudioVolumes::First(const Identity& box, std::uint8_t source) const {
  switch (KindOf(box)) {
    case VolumeKind::kOutputLevel:
      return OutputLevel();
    case VolumeKind::kInput:
      if (box.brandCode == 2 && source != 2) return InputLevel();
      return VolumeOf("Audio Volume", source == 2 ? volume2 : volume);
    default:
      return VolumeOf("L/R Audio Volume", kMaxVolume - volume);
  }
}

VolumeBar AudioVolumes::Second() const {
  return VolumeOf("Embedded Audio Volume", kMaxVolume - volume2);
}

VolumeBar AudioVolumes::OutputLevel() const {
  const LevelTexts texts = OutputLevelTexts(outputLevel);
  return {kMaxOutputLevel, outputLevel, texts.caption, texts.shortLabel, kOutputRuler};
}

VolumeBar AudioVolumes::InputLevel() const {
  const LevelTexts texts = InputLevelTexts(volume);
  return {kInputLevelRange, kInputLevelRange - volume, texts.caption, texts.shortLabel,
          kInputLevelRuler};
}

// The input level of brand 2 is an attenuation, the rest are volumes.
void AudioVolumes::Step(const Identity& box, std::uint8_t source, int louder) {
  switch (KindOf(box)) {
    case VolumeKind::kAttenuation:
      volume = Stepped(volume, -louder, kMaxVolume);
      break;
    case VolumeKind::kInput:
      if (source == 1) {
        volume = box.brandCode == 2 ? Stepped(volume, -louder, kMaxInputLevel)
                                    : Stepped(volume, louder, kMaxVolume);
      } else if (source == 2) {
        volume2 = Stepped(volume2, louder, kMaxVolume);
      }
      break;
    case VolumeKind::kOutputLevel:
      outputLevel = Stepped(outputLevel, louder, kMaxOutputLevel);
      break;
    case VolumeKind::kNone:
      break;
  }
}

void AudioVolumes::StepSecond(int louder) { volume2 = Stepped(volume2, -louder, kMaxVolume); }

bool AudioVolumes::Choose(const Identity& box, int entry) {
  constexpr int kLoudestToo = 9;  // an index beyond the entries that the box's own panel has
  const VolumeKind kind = KindOf(box);
  std::uint8_t& chosen = kind == VolumeKind::kOutputLevel ? outputLevel : volume;
  if (kind != VolumeKind::kOutputLevel && entry == kLoudestToo) entry = 0;
  const Choices levels = audio::LevelsOf(kind);
  if (entry < 0 || entry >= static_cast<int>(levels.size())) return false;
  chosen = levels[static_cast<std::size_t>(entry)].value;
  return true;
}

}  // namespace panelora
