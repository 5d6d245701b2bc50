#include "catalogue/picture.h"

namespace panelora::picture {

Address ChannelOf(std::uint8_t boxType) {
  static constexpr BoxTypes kByBlock = {37, 38, 39, 40, 46, 47, 48, 49, 50, 51};
  static constexpr BoxTypes kByWord5 = {24, 34};
  static constexpr BoxTypes kByWord7 = {23, 42};
  static constexpr BoxTypes kByWord10 = {13, 15};
  static constexpr BoxTypes kByBlock16 = {14, 36};
  if (kByBlock.Has(boxType)) return Block(1);
  if (kByBlock16.Has(boxType)) return Block(16);
  if (kByWord5.Has(boxType)) return Word(5);
  if (kByWord10.Has(boxType)) return Word(10);
  return Word(kByWord7.Has(boxType) ? 7 : 4);
}

bool Commits(const Identity& identity, std::uint32_t firmware) {
  static constexpr BoxTypes kFrom262 = {24, 34};
  static constexpr BoxTypes kFrom265 = {25, 29};
  static constexpr BoxTypes kAlways = {20, 33};
  if (identity.brandCode != 2) return false;
  return (kFrom262.Has(identity.boxType) && firmware >= 262) ||
         (kFrom265.Has(identity.boxType) && firmware >= 265) || kAlways.Has(identity.boxType);
}

}  // namespace panelora::picture
