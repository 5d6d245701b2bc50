// Every box of the family on every page that leads somewhere: each option steps through all its
// captions and comes back, and what is applied is what the box is read to have.
#include <algorithm>
#include <iterator>
#include <map>
#include <set>

#include "tests/support/model_walk.h"

namespace panelora::testing {
namespace {

using Captions = std::map<int, std::string>;

class EveryBox : public ModelWalk {
 protected:
  // A control of a page that steps an option, and the text that it steps.
  struct Stepper {
    int button;
    int text;
    std::string first;
    std::string applied = {};
    std::set<std::string> seen = {};
  };

  static constexpr int kMostCaptions = 40;

  static bool IsNumber(const std::string& text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
  }

  // The texts of what is shown on a page.
  Captions CaptionsOn(int page) {
    Captions captions;
    for (const ui::ControlTemplate& control : res::FindDialog(page)->controls) {
      if (desk.Shows(page, control.id)) captions[control.id] = desk.Text(page, control.id);
    }
    return captions;
  }

  // A step that changes a text tells which; an option with a single caption has none to tell.
  std::vector<Stepper> SteppersOn(int page) {
    std::vector<Stepper> steppers;
    for (const auto& [control, caption] : CaptionsOn(page)) {
      if (caption != ">>" || !desk.Enables(page, control)) continue;
      const Captions before = CaptionsOn(page);
      desk.Press(page, control);
      for (const auto& [text, shown] : CaptionsOn(page)) {
        const auto was = before.find(text);
        if (was == before.end() || was->second == shown) continue;
        if (IsNumber(shown)) break;  // a delay counts, and has no captions
        steppers.push_back({control, text, shown});
        break;
      }
    }
    return steppers;
  }

  // A region that is switched off is told without its mode, and 39 and 40 never of their sync mode.
  std::string ToldOf(int page, const std::string& applied) {
    if (page == res::kRoi && applied == "Disable") return "Dot by Dot";
    const bool isSync = page == res::kGenlock && applied == "Open termination";
    return isSync && Has({39, 40}, panel->Panel().identity.boxType) ? "75 ohms termination"
                                                                    : applied;
  }

  // Steps each option from its caption back to it, by as many presses as it has captions; applies
  // each on the way, and reads it back.
  void WalkPage(int page) {
    std::vector<Stepper> steppers = SteppersOn(page);
    options += steppers.size();
    const bool applies = desk.Shows(res::kMain, kApplyButton);
    for (int presses = 1; !steppers.empty(); ++presses) {
      ASSERT_LT(presses, kMostCaptions) << "page " << page << ", button " << steppers[0].button;
      for (Stepper& stepper : steppers) {
        desk.Press(page, stepper.button);
        stepper.applied = desk.Text(page, stepper.text);
      }
      if (applies) {
        Press(kApplyButton);
        if (desk.IsOpen(res::kCaution)) desk.RequestClose(res::kCaution);
        Reread();
      }
      for (Stepper& stepper : steppers) {
        if (applies) {
          ASSERT_EQ(desk.Text(page, stepper.text), ToldOf(page, stepper.applied))
              << "page " << page << ", button " << stepper.button;
        }
        stepper.seen.insert(stepper.applied);
        if (stepper.applied != stepper.first) continue;
        ASSERT_EQ(static_cast<int>(stepper.seen.size()), presses) << stepper.button;
        stepper.button = 0;
      }
      std::erase_if(steppers, [](const Stepper& each) { return each.button == 0; });
    }
  }

  // The page that is open, and its sub-pages.
  void WalkOpenPage() {
    const std::vector<int> pages = ShownPages();
    ASSERT_EQ(pages.size(), 1U);
    const bool hasMore = desk.Shows(res::kMain, kPageUpButton);
    for (int subPage = 0; subPage < (hasMore ? 3 : 1); ++subPage) {
      ASSERT_NO_FATAL_FAILURE(WalkPage(pages.front())) << "sub-page " << subPage;
      if (hasMore) Press(kPageUpButton);
    }
    Press(kReturnButton);
  }

  void Walk(const Identity& identity) {
    SCOPED_TRACE(Named(identity));
    StartAs(identity);
    for (const int button : {kAudioButton, kSettingButton, kProcAmpButton}) {
      if (!desk.Shows(res::kMain, button)) continue;
      Press(button);
      ASSERT_NO_FATAL_FAILURE(WalkOpenPage());
    }
    for (int entry = 1002; entry <= 1008; ++entry) {
      Press(kVideoButton);
      if (desk.Shows(res::kVideoMenu, entry)) {
        desk.Press(res::kVideoMenu, entry);
        ASSERT_NO_FATAL_FAILURE(WalkOpenPage());
      } else {
        Press(kReturnButton);
      }
    }
  }

  std::size_t options = 0;
};

#ifdef _WIN32
TEST_F(EveryBox, OfTenTypesStepsAppliesAndReadsBackEveryCaption) {
  for (const int type : {13, 14, 17, 20, 24, 25, 26, 30, 42, 50}) Walk(Box(type));
  EXPECT_GT(options, 100U);
}
#else
// The DIP switches of both sides.
class EveryBoxWithDip : public EveryBox, public ::testing::WithParamInterface<int> {};

// Types of which no rule speaks, and there are many, take every brand without DIP switches, and
// every DIP switch without a brand.
TEST_P(EveryBoxWithDip, StepsAppliesAndReadsBackEveryCaption) {
  for (int type = 0; type < kNoBoxType; ++type) {
    const bool isNamed = std::find(std::begin(kTypes), std::end(kTypes), type) != std::end(kTypes);
    for (int brand = 0; brand <= 12; ++brand) {
      if (!isNamed && brand != 0 && GetParam() != 0) break;
      ASSERT_NO_FATAL_FAILURE(Walk(Box(type, brand, GetParam() & 1, GetParam() >> 1)));
    }
  }
  EXPECT_GT(options, 10U * (kNoBoxType + 12U * std::size(kTypes)));
}

INSTANTIATE_TEST_SUITE_P(Dip, EveryBoxWithDip, ::testing::Values(0, 1, 2, 3));
#endif

}  // namespace
}  // namespace panelora::testing
