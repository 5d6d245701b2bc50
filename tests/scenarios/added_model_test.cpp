// A build in which an invented type stands beside 46 in the rows of the catalogue and in the list
// of pictures: nothing tells the two apart.
#include "tests/support/model_walk.h"
#include "tests/support/tireless_operator.h"

namespace panelora::testing {
namespace {

constexpr int kLike = 46;
constexpr int kAdded = PANELORA_ADDED_TYPE;
constexpr int kUnknown = kAdded + 1;

class AddedModel : public ModelWalk {
 protected:
  // All that is shown, asked and told from the start through every page.
  Calls Trace(const Identity& identity) {
    Calls trace;
    StartAs(identity);
    trace.push_back(Picture());
    TirelessOperator hand(desk, *panel);
    hand.afterwards = [&] {
      for (const int page : ShownPages()) {
        for (const auto& [control, place] : ShownOn(page)) {
          trace.push_back(std::to_string(control) + ui::TextOf(place) + desk.Text(page, control));
        }
      }
      for (const std::string& call : TakeCalls()) trace.push_back(call);
    };
    hand.UseEveryPage();
    return trace;
  }
};

TEST_F(AddedModel, IsShownAskedAndToldLikeTheOneItStandsBeside) {
  for (const int brand : {0, 1, 2, 3, 12}) {
    for (const int dip : {0, 1}) {
      SCOPED_TRACE(Named(Box(kLike, brand, dip, dip)));
      const Calls like = Trace(Box(kLike, brand, dip, dip));
      const Calls added = Trace(Box(kAdded, brand, dip, dip));
      ASSERT_GT(like.size(), 300U);
      EXPECT_EQ(added, like);
      EXPECT_NE(Trace(Box(kUnknown, brand, dip, dip)), like);
    }
  }
}

}  // namespace
}  // namespace panelora::testing
