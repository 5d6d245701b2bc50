// The multi-view and sync functions: which models have them, where they keep what, and what opens
// them on a box.
//
// Models: as the boxes have it, but for some of the properties that tell the input format of a
// region (word 1 of 14, 25, 29, 33 and 36 is known, the others are chosen from those that tell
// formats), the region of 39 and 40, which is taken to be where 46 to 49 have it, and the
// conditions of Image Adjust on 23, 25, 29 and 42.
#pragma once

#include "catalogue/kept.h"

namespace panelora {

// What a box with a menu shows is told there: one byte, which only 51 keeps.
constexpr Address kBoxMenu = Block(1);

namespace multiview {

// Display Mode and PIP: told their mode by word, or by block.
inline constexpr BoxTypes kByWord = {13, 15};
inline constexpr BoxTypes kByBlock = {51};
inline constexpr BoxTypes kModels = kByWord.With(kByBlock);

// Display mode 1 to 9, 1 = nine modes, 1 = input labels.
constexpr Address kModes = Block(1, 20);
constexpr Address kModeWord = Word(1);
constexpr Address kCodeWord = Word(2);
// The combination code last used in modes 1 to 10.
constexpr Address kCodes = Block(2, 20);
constexpr Address kLabelsState = Block(20);
constexpr Address InputLabel(std::uint8_t input) { return Block(19, 60, input); }

constexpr Address kInset1 = Block(13, 8);
constexpr Address kInset2 = Block(14, 8);
Address PipOptionOf(std::uint8_t boxType);
Address OutputFormatOf(std::uint8_t boxType);

std::span<const Command> OpeningOfDisplayMode();
std::span<const Command> OpeningOfPip();

// 1 to 9; the tabs are the box's own.
Choices ModeNames();

// Of the input labels, and of the label of all boxes.
Choices InputLabelStates();
Choices TextLabelStates();

constexpr Address kTextLabel = Block(41, 60);
std::span<const Command> OpeningOfTextLabels();

}  // namespace multiview

namespace genlock {

struct Model {
  BoxTypes types;
  Address reference;  // format, little-endian
  Address mode;       // mode, output code, unused, further code
  Address delays;
  Address sync;     // termination; none = the model has none
  bool takesSync;   // with every write of delays
  Address locked;   // 1 = the mode can't be changed; none = it always can
  Address input;    // format code of the reference; none = with the mode
  Command opening;  // what opens the function on the box
  std::uint8_t lastMode;
  bool skipsMode1;
};
// Null for types that can't be genlocked.
const Model* Find(std::uint8_t boxType);

Choices ModeNames();
Choices SyncNames();

}  // namespace genlock

namespace image {

struct Store {
  BoxTypes types;
  Address position;  // none = the model has none
  Address size;
  Condition when = nullptr;
};
// Null for models that do not adjust their picture.
const Store* Find(const Identity& identity);

// One frame round all four rows of the page; the others have one for positions and one for sizes.
inline constexpr BoxTypes kOneFrame = {26, 50};

std::span<const Command> Opening();

// What must be told for positions or sizes to be adjustable; of models without a row they always
// are. An address of none = never.
enum class Adjusts : std::uint8_t { kPosition, kSize };
struct Enabling {
  BoxTypes types;
  Adjusts what;
  Address at;
  std::uint8_t value = 0;
  Condition when = nullptr;
};
std::span<const Enabling> Enablings();

}  // namespace image

namespace region {

struct Store {
  BoxTypes types;
  Address region;  // none = not known: the input is read, and nothing is written
  Address input;   // input format code
  Condition when = nullptr;
};
// Null for models without a region.
const Store* Find(const Identity& identity);

std::span<const Command> Opening();

Choices ModeNames();

}  // namespace region

}  // namespace panelora
