// What is compared as a whole differs when any part of it does.
#include <gtest/gtest.h>

#include <vector>

#include "device/address.h"
#include "device/identity.h"
#include "res/spoken_names.h"
#include "ui/geometry.h"

namespace panelora {
namespace {

template <class Type>
void ExpectDifferent(const Type& one, const std::vector<Type>& others) {
  EXPECT_TRUE(one == Type(one));
  for (std::size_t i = 0; i < others.size(); ++i) EXPECT_FALSE(one == others[i]) << i;
}

TEST(Equality, EachPartOfAPlaceOrLookCounts) {
  ExpectDifferent<ui::Point>({1, 2}, {{0, 2}, {1, 0}});
  ExpectDifferent<ui::Rect>({1, 2, 3, 4}, {{0, 2, 3, 4}, {1, 0, 3, 4}, {1, 2, 0, 4}, {1, 2, 3, 0}});
  ExpectDifferent<ui::Colour>({1, 2, 3}, {{0, 2, 3}, {1, 0, 3}, {1, 2, 0}});
  ExpectDifferent<ui::Font>({"Arial", 120}, {{"Courier", 120}, {"Arial", 182}});
}

TEST(Equality, EachPartOfAnIdentityCounts) {
  ExpectDifferent<Identity>(
      {1, 2, 3, 4, 5},
      {{0, 2, 3, 4, 5}, {1, 0, 3, 4, 5}, {1, 2, 0, 4, 5}, {1, 2, 3, 0, 5}, {1, 2, 3, 4, 0}});
}

TEST(Equality, EachPartOfAnAddressCounts) {
  ExpectDifferent<Address>(Block(1, 2, 3),
                           {ProcAmp(1), Block(0, 2, 3), Block(1, 0, 3), Block(1, 2, 0)});
  EXPECT_FALSE(Word(1) == ProcAmp(1));
}

TEST(Equality, EachPartOfWhatIsSpokenCounts) {
  ExpectDifferent<res::Spoken>({"a", "b", "c"}, {{"", "b", "c"}, {"a", "", "c"}, {"a", "b", ""}});
}

}  // namespace
}  // namespace panelora
