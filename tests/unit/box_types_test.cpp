#include "device/box_types.h"

#include <gtest/gtest.h>

namespace panelora {
namespace {

constexpr BoxTypes kTwo = {13, 15};

int CountOf(const BoxTypes& types) {
  int count = 0;
  for (int code = 0; code < 256; ++code) count += types.Has(static_cast<std::uint8_t>(code));
  return count;
}

TEST(BoxTypes, HasWhatItWasMadeOf) {
  EXPECT_TRUE(kTwo.Has(13));
  EXPECT_TRUE(kTwo.Has(15));
  EXPECT_EQ(CountOf(kTwo), 2);
  constexpr BoxTypes kEdges = {0, 63, 64, 127, 128, 191, 192, 254};
  for (const int code : {0, 63, 64, 127, 128, 191, 192, 254}) {
    EXPECT_TRUE(kEdges.Has(static_cast<std::uint8_t>(code))) << code;
  }
  EXPECT_EQ(CountOf(kEdges), 8);
}

TEST(BoxTypes, NoBoxIsInNoSet) {
  EXPECT_EQ(CountOf(BoxTypes::All()), 255);
  EXPECT_FALSE(BoxTypes::All().Has(kNoBoxType));
  EXPECT_EQ(CountOf(BoxTypes()), 0);
  EXPECT_TRUE(BoxTypes().IsEmpty());
  EXPECT_FALSE(kTwo.IsEmpty());
}

TEST(BoxTypes, AreJoinedAndTakenAway) {
  EXPECT_EQ(kTwo.With({15, 200}), (BoxTypes{13, 15, 200}));
  EXPECT_EQ(kTwo.Except({15, 200}), BoxTypes{13});
  EXPECT_TRUE(kTwo.Except(kTwo).IsEmpty());
  EXPECT_EQ(kOtherTypes.With(kShippedType), BoxTypes::All());
  EXPECT_FALSE(kOtherTypes.Has(26));
}

}  // namespace
}  // namespace panelora
