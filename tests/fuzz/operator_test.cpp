// Random operators against hostile boxes. PANELORA_SOAK_STEPS asks for more of them than usual.
#include "tests/fuzz/operator.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "res/dialog_templates.h"
#include "tests/fuzz/kept_files.h"

namespace panelora::fuzz {
namespace {

constexpr int kStepsOfAPanel = 1000;
constexpr int kSteps = 500'000;

using Controls = std::set<std::pair<int, int>>;  // dialog and control

int StepsToDo() {
  const char* soak = std::getenv("PANELORA_SOAK_STEPS");
  return soak == nullptr ? kSteps : std::stoi(soak);
}

// Everything that takes input but these, which no box shows.
Controls Usable() {
  const Controls never = {{res::kAbout, 1},  // is read and closed in one step
                          {res::kMain, 1013},
                          {res::kMain, 1048},
                          {res::kTextLabels, 1113},
                          {res::kTextLabels, 1115}};
  // Of the Video settings, the ">>" of options that no layout has.
  const std::set<int> neverSet = {1041, 1053, 1057, 1061, 1065, 1070, 1074, 1079, 1082,
                                  1088, 1091, 1094, 1098, 1101, 1105, 1109, 1113};
  Controls controls;
  for (const ui::DialogTemplate& dialog : res::Dialogs()) {
    for (const ui::ControlTemplate& control : dialog.controls) {
      switch (control.kind) {
        case ui::ControlKind::kLabel:
        case ui::ControlKind::kPicture:
        case ui::ControlKind::kGroup:
        case ui::ControlKind::kProgress:
        case ui::ControlKind::kIcon:
          break;
        default:
          controls.emplace(dialog.number, control.id);
      }
    }
  }
  for (const auto& control : never) controls.erase(control);
  for (const int control : neverSet) controls.erase({res::kVideoSettings, control});
  return controls;
}

// And with its usual steps the operator comes everywhere, without which the rest would say little.
TEST(OperatorTest, NoRuleIsBrokenWhateverIsDone) {
  const int panels = (StepsToDo() + kStepsOfAPanel - 1) / kStepsOfAPanel;
  Controls unused = Usable();
  for (int seed = 1; seed <= panels; ++seed) {
    RandomChoices choices(static_cast<std::uint32_t>(seed));
    Steps done;
    if (Operate(choices, kStepsOfAPanel, done)) {
      const Steps shortened = Shorten(done);
      FAIL() << "seed " << seed << ": " << Report(*Replay(shortened), shortened);
    }
    for (const Step& step : done) unused.erase({step.dialog, step.control});
  }
  if (panels >= kSteps / kStepsOfAPanel) {
    EXPECT_EQ(unused, Controls{});
  }
}

// What once broke a rule, or was taken for it.
TEST(OperatorTest, NoKeptSequenceBreaksARule) {
  const auto files = KeptFilesIn("replays");
  ASSERT_FALSE(files.empty());
  for (const KeptFile& file : files) {
    const auto breach = Replay(StepsFrom(file.content));
    EXPECT_FALSE(breach) << file.name << " after step " << breach->steps << ": " << breach->what;
  }
}

// What the fuzzer kept, because each goes a way through the program that no other goes.
TEST(OperatorTest, NothingInTheCorpusBreaksARule) {
  const auto files = KeptFilesIn("corpus");
  ASSERT_FALSE(files.empty());
  for (const KeptFile& file : files) {
    ByteChoices choices(reinterpret_cast<const std::uint8_t*>(file.content.data()),
                        file.content.size());
    Steps done;
    const auto breach = Operate(choices, kStepsOfAPanel, done);
    EXPECT_FALSE(breach) << file.name << ": " << Report(*breach, done);
  }
}

}  // namespace
}  // namespace panelora::fuzz
