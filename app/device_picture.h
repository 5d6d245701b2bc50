// Which picture of the box the main window shows, and what a model's front panel changes in the
// navigation bar. Decided from the identity alone, apart from what one block of the box adds.
#pragma once

#include <cstdint>
#include <optional>

#include "device/identity.h"

namespace panelora {

// The picture of "no box".
constexpr char kNullBoxPicture[] = "NULL_BOX";

// What the navigation bar loses with a model whose front panel has fewer functions.
enum class NavigationChange {
  kNone,
  kNoProcAmp,         // Setting to (0, 185); Proc Amp hidden, to (0, 225)
  kNoProcAmpNoAudio,  // Setting to (0, 145); Proc Amp hidden, to (0, 185); Audio hidden, (0, 225)
  kNoAudio,           // Proc Amp shown at (0, 145); Setting to (0, 185); Audio hidden, (0, 225)
};

struct PictureChoice {
  const char* picture = kNullBoxPicture;
  NavigationChange change = NavigationChange::kNone;
  bool showsRefresh = false;
  std::optional<std::uint8_t> newSubModel;  // the sub-model to go on with
};

// Whether the choice depends on multiview::kModes (box types 13 and 15 of brand 2).
bool PictureNeedsMultiViewBlock(const Identity& identity);

// `pipMark` = byte 1 of multiview::kModes is 1; false when it was not or could not be read.
PictureChoice ChoosePicture(const Identity& identity, bool pipMark);

}  // namespace panelora
