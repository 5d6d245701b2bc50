// What a number of a box means: nothing else, but for what the family is known to share.
#include "catalogue/properties.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <set>
#include <string>
#include <tuple>

namespace panelora {
namespace {

constexpr std::uint32_t kNewest = 0xFFFF;

using Key = std::tuple<Address::Kind, int, int>;

// The names that a number of the box has besides those of what it does at once.
std::map<Key, std::set<std::string>> NamesOf(const Identity& box) {
  std::map<Key, std::set<std::string>> names;
  for (const Property& property : PropertiesOf(box, kNewest)) {
    if (property.isAside || property.command != Property::kAnyValue) continue;
    names[{property.at.kind, property.at.number, property.at.sub}].insert(property.name);
  }
  return names;
}

struct Shared {
  BoxTypes types;
  Address at;
  std::set<std::string> names;
};

const Shared kShared[] = {
    {{25, 29}, Block(18), {"Image Position", "Region"}},
    {{33}, Word(1), {"Output Format", "Region Input Format"}},
    {{39, 40, 46, 47, 48, 49}, Block(4), {"Region Input Format", "Sync Input Format"}},
    // One thing, told as one and reported with more.
    {{51}, Block(1), {"Display Mode", "Display Modes"}},
    {{51}, Block(2), {"Channel combination", "Channel combinations"}},
    // Display Mode asks every box for its modes while it is set up.
    {{26}, Block(1), {"Display Modes", "Input Format"}},
    {{21}, Block(1), {"Audio Mute", "Display Modes"}},
};

bool IsShared(std::uint8_t type, const Key& key, const std::set<std::string>& names) {
  return std::any_of(std::begin(kShared), std::end(kShared), [&](const Shared& row) {
    return row.types.Has(type) && Key{row.at.kind, row.at.number, row.at.sub} == key &&
           row.names == names;
  });
}

TEST(Properties, NoNumberMeansTwoThings) {
  for (int type = 0; type < kNoBoxType; ++type) {
    for (const int brand : {0, 2}) {
      for (const int dip : {0, 1}) {
        const Identity box = {static_cast<std::uint8_t>(type), static_cast<std::uint8_t>(brand), 0,
                              static_cast<std::uint8_t>(dip), 0};
        for (const auto& [key, names] : NamesOf(box)) {
          if (names.size() < 2 || IsShared(box.boxType, key, names)) continue;
          std::string all;
          for (const std::string& name : names) all += name + " / ";
          ADD_FAILURE() << type << " brand " << brand << " DIP " << dip << ": "
                        << (std::get<0>(key) == Address::Kind::kWord ? "word " : "block ")
                        << std::get<1>(key) << ": " << all;
        }
      }
    }
  }
}

}  // namespace
}  // namespace panelora
