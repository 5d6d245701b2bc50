#include "catalogue/multiview.h"

#include "catalogue/picture.h"

namespace panelora {

namespace {

bool IsBrand2(const Identity& box, std::uint32_t /*firmware*/) { return box.brandCode == 2; }
bool IsNotBrand2(const Identity& box, std::uint32_t /*firmware*/) { return box.brandCode != 2; }

}  // namespace

namespace multiview {

Address PipOptionOf(std::uint8_t boxType) { return kByBlock.Has(boxType) ? Block(5, 20) : Word(5); }
Address OutputFormatOf(std::uint8_t boxType) {
  return kByBlock.Has(boxType) ? Block(6, 20) : Word(6);
}

std::span<const Command> OpeningOfDisplayMode() {
  static constexpr Command kOpening[] = {{kAllTypes, Word(10), 3}};
  return kOpening;
}

std::span<const Command> OpeningOfPip() {
  static constexpr Command kOpening[] = {{kByWord, Word(10), 2}};
  return kOpening;
}

std::span<const Command> OpeningOfTextLabels() {
  static constexpr Command kOpening[] = {{kAllTypes, kBoxMenu, 3}};
  return kOpening;
}

Choices ModeNames() {
  static constexpr Choice kNames[] = {
      {kModels, 1, "Mode 1", 1},       {kModels, 2, "Mode 2", 2},
      {kModels, 3, "Mode 3\t\t\t", 3}, {kModels, 4, "Mode 4\t\t\t", 4},
      {kByWord, 5, "Mode 5\t\t\t", 5}, {{13}, 6, "Mode 6", 6},
      {{13}, 7, "Mode 7", 7},          {{15}, 6, "Mode 6\t\t\t", 6},
      {{15}, 7, "Mode 7\t\t\t", 7},    {kByWord, 8, "Mode 8\t\t\t", 8},
      {kByWord, 9, "Mode 9\t\t\t", 9},
  };
  static_assert(EveryRowCounts(kNames));
  return kNames;
}

Choices InputLabelStates() {
  static constexpr Choice kStates[] = {
      {kAllTypes, 0, "OFF", 0}, {kAllTypes, 1, "ON", 1}, {kAllTypes, 2, "Default Labels", 2}};
  static_assert(EveryRowCounts(kStates));
  return kStates;
}

Choices TextLabelStates() {
  static constexpr Choice kStates[] = {{kAllTypes, 0, "Disable", 0},
                                       {kAllTypes, 1, "Enable", 1},
                                       {kAllTypes, 2, "Default Labels", 2}};
  static_assert(EveryRowCounts(kStates));
  return kStates;
}

}  // namespace multiview

namespace genlock {

namespace {

// The value 2 of type 50 has no name.
constexpr Choice kModeNames[] = {
    {{20, 30, 33, 39, 40, 43, 46, 47, 48, 49, 50}, 0, "Free-Run", 0},
    {{20, 33, 39, 40, 48, 49}, 1, "SDI Input", 1},
    {{30, 43, 46, 47, 50}, 1, "External", 1},
    {{20, 33}, 2, "HDMI Input", 2},
    {{39, 40, 48, 49}, 2, "Ref Input", 2},
};
constexpr Choice kSyncNames[] = {
    {{30, 39, 40, 43}, 0, "75 ohms termination", 0},
    {{30, 39, 40, 43}, 1, "Open termination", 1},
};
static_assert(EveryRowCounts(kModeNames));
static_assert(EveryRowCounts(kSyncNames));

// What the models with a menu have in common.
constexpr Model OfMenu(const BoxTypes& types, std::uint8_t function, std::uint8_t lastMode) {
  return {types,        Block(25, 30), Block(26, 4),
          Block(27, 4), Block(46),     false,
          Block(38),    Block(4),      {types, kBoxMenu, function},
          lastMode,     false};
}

// Type 50 counts to 2 although it has no name for it.
constexpr Model kModels[] = {
    OfMenu({50}, 4, 2),
    OfMenu({46, 47}, 2, 1),
    OfMenu({39, 40, 48, 49}, 2, 2),
    {{20, 33},
     Block(21, 30),
     Block(19, 4),
     Block(20, 4),
     {},
     false,
     {},
     {},
     {{20, 33}, Word(4), 3},
     2,
     true},
    {{30, 43},
     Block(18, 30),
     Block(15, 4),
     Block(16, 4),
     Block(22),
     true,
     {},
     {},
     {{30, 43}, Word(4), 2},
     1,
     false},
};

}  // namespace

const Model* Find(std::uint8_t boxType) { return FirstOf(kModels, boxType); }

Choices ModeNames() { return kModeNames; }
Choices SyncNames() { return kSyncNames; }

}  // namespace genlock

namespace image {

namespace {

constexpr Store kStores[] = {
    {{50}, Block(31, 4), Block(24)},     {{26}, Block(17, 4), Block(18)},
    {{23, 42}, Block(13, 4), Block(12)}, {{25, 29}, Block(18, 4), Block(9)},
    {{24, 34}, {}, Block(24), IsBrand2}, {{24, 34}, {}, Block(14)},
};

constexpr Command kOpening[] = {
    {{24, 34}, kBoxMenu, 2, IsBrand2},
    {{24, 34}, Word(5), 2, IsNotBrand2},
    {{50}, kBoxMenu, 3},
    {{26}, command::kAt, command::kImageRestore},
    {{23, 42}, Word(7), 2},
    {{25, 29}, Word(4), 2},
};

// In the order in which they are asked for.
constexpr Enabling kEnablings[] = {
    {{24, 34}, Adjusts::kPosition, {}},
    {{24, 34}, Adjusts::kSize, Block(15), 3, IsBrand2},
    {{24, 34}, Adjusts::kSize, Word(11), 3, IsNotBrand2},
    {{50}, Adjusts::kPosition, Block(3), 2},
    {{50}, Adjusts::kSize, Block(15), 5},
    {{26}, Adjusts::kPosition, Word(4), 2},
    {{26}, Adjusts::kSize, Word(7), 5},
};

}  // namespace

const Store* Find(const Identity& identity) { return FirstOf(kStores, identity); }

std::span<const Command> Opening() { return kOpening; }
std::span<const Enabling> Enablings() { return kEnablings; }

}  // namespace image

namespace region {

namespace {

bool IsByDipOrBrand2(const Identity& box, std::uint32_t /*firmware*/) {
  return box.inputDipFlag == 1 || box.brandCode == 2;
}

constexpr Store kStores[] = {
    {{39, 40, 46, 47, 48, 49}, Block(18, 30), Block(4)},
    {{35}, Block(14, 30), Word(4)},
    {{32}, Block(18, 30), Word(2)},
    {{23, 42}, Block(14, 30), Word(5)},
    {{30, 43}, Block(19, 30), Word(2)},
    {{24, 34}, Block(18, 30), Block(6), IsByDipOrBrand2},
    {{24, 34}, Block(15, 30), Word(2)},
    {{33}, {}, Word(1)},
    {{14, 36}, Block(14, 30), Word(1)},
    {{25, 29}, Block(18, 30), Word(1)},
};

}  // namespace

const Store* Find(const Identity& identity) { return FirstOf(kStores, identity); }

std::span<const Command> Opening() {
  static constexpr Command kOpening[] = {{{39, 40}, kBoxMenu, 4}};
  return kOpening;
}

Choices ModeNames() {
  static constexpr Choice kNames[] = {{kAllTypes, 2, "Disable", 2},
                                      {kAllTypes, 1, "Full Screen", 1},
                                      {kAllTypes, 0, "Dot by Dot", 0}};
  static_assert(EveryRowCounts(kNames));
  return kNames;
}

}  // namespace region

}  // namespace panelora
