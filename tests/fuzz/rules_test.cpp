// The watchman watched: the rules of the random operator are broken here.
#include <gtest/gtest.h>

#include <stdexcept>

#include "app/navigation.h"
#include "res/dialog_templates.h"
#include "tests/fuzz/captions.h"
#include "tests/fuzz/fuzz_panel.h"
#include "tests/fuzz/rules.h"

namespace panelora::fuzz {
namespace {

const Step kTick{.act = Act::kTick};

Step Press(int dialog, int control) {
  return {.act = Act::kPress, .dialog = dialog, .control = control};
}

Call WordWrite(std::uint32_t item, std::uint32_t value) {
  return Call::SetWord(kBoxGroup, item, value);
}

Call BlockWrite(std::uint32_t property, std::vector<std::uint8_t> bytes) {
  Call call{.operation = Call::Operation::kSetBlock, .number = property};
  call.length = static_cast<std::uint8_t>(bytes.size());
  call.bytes = std::move(bytes);
  return call;
}

Situation On(PageCode page, std::uint8_t boxType, std::uint8_t brand = 0) {
  return {.connected = true, .page = page, .identity = {boxType, brand, 0, 0, 0}};
}

TEST(FuzzRulesTest, WritesAreAllowedByWhatWasPressed) {
  const auto compare = [](const Step& step, const Situation& situation,
                          const std::vector<Call>& writes) {
    return Compare(writes, WritesOf(step, situation));
  };
  const Step apply = Press(res::kMain, kApplyButton);
  const Situation setting = On(PageCode::kSetting, 26);
  const std::vector<Call> right = {WordWrite(21, 1), BlockWrite(22, {1}), BlockWrite(23, {0, 0})};
  EXPECT_EQ(compare(apply, setting, right), "");
  EXPECT_EQ(compare(apply, setting, {right[0], right[1]}), "a write to 23 is missing");
  EXPECT_EQ(compare(apply, setting, {right[1], right[0], right[2]}),
            "a write to 21 is missing before set block 22,0,1: 01");
  EXPECT_EQ(compare(apply, setting, {right[0], right[1], right[2], WordWrite(3, 1)}),
            "nobody asked for: set word 0,3 = 1");
  EXPECT_EQ(compare(apply, setting, {right[0], BlockWrite(22, {1, 0}), right[2]}),
            "a write to 22 is missing before set block 22,0,2: 01 00");
  EXPECT_EQ(compare(kTick, setting, {WordWrite(21, 1)}), "nobody asked for: set word 0,21 = 1");
  Situation lost = setting;
  lost.connected = false;
  EXPECT_EQ(compare(apply, lost, {right[0]}), "nobody asked for: set word 0,21 = 1");

  // Values that the button itself decides.
  const Step reset = Press(res::kSetting, 1041);
  EXPECT_EQ(compare(reset, setting, {WordWrite(3, 1)}), "");
  EXPECT_EQ(compare(reset, setting, {WordWrite(3, 2)}),
            "a write to 3 is missing before set word 0,3 = 2");
  const Step up = Press(res::kGenlock, 1107);
  const Situation genlock = On(PageCode::kGenlock, 46);
  EXPECT_EQ(compare(up, genlock, {BlockWrite(27, {0, 1, 0, 0, 0})}), "");
  EXPECT_NE(compare(up, genlock, {BlockWrite(27, {0, 1, 0, 0, 1})}), "");

  // Repaints send the picture values of brand 2 again, in any order, and nothing else.
  const Step repaint{.act = Act::kRepaint, .dialog = res::kProcAmp};
  const Call hue = Call::SetProcAmp(kBoxGroup, 4, 9);
  const Call brightness = Call::SetProcAmp(kBoxGroup, 2, 9);
  EXPECT_EQ(compare(repaint, On(PageCode::kProcAmp, 24, 2), {hue, brightness}), "");
  EXPECT_NE(compare(repaint, On(PageCode::kProcAmp, 24), {hue}), "");
  EXPECT_EQ(compare(repaint, On(PageCode::kProcAmp, 24, 2), {WordWrite(5, 0)}),
            "nobody asked for: set word 0,5 = 0");

  // So does the slider that loses the focus, and the one that gets it.
  Situation slider = On(PageCode::kProcAmp, 24, 2);
  slider.focus = {res::kProcAmp, 1034};
  const Step leave = Press(res::kMain, kSettingButton);
  EXPECT_EQ(compare(leave, slider, {hue}), "");
  EXPECT_NE(compare(leave, slider, {brightness}), "");
  const Step next{.act = Act::kEscape, .dialog = res::kProcAmp, .control = 1032};
  EXPECT_EQ(compare(next, slider, {brightness, hue}), "");
  slider.focus = {res::kMain, kSettingButton};
  EXPECT_NE(compare(leave, slider, {hue}), "");
}

TEST(FuzzRulesTest, PatternsMatchWholeTexts) {
  EXPECT_TRUE(Matches("#x# #.#p", "1920x1080  59.94p"));
  EXPECT_FALSE(Matches("#x# #.#p", "1920x1080  59.94i"));
  EXPECT_FALSE(Matches("#x# #.#p", "1920x1080 59.94pp"));
  EXPECT_FALSE(Matches("#", ""));
  EXPECT_FALSE(Matches("#", "-1"));
  EXPECT_TRUE(Matches("( $ )", "( -28 )"));
  EXPECT_FALSE(Matches("( $ )", "( - )"));
  EXPECT_TRUE(Matches("%.%", "F.0"));
  EXPECT_FALSE(Matches("%.%", "G.0"));
  EXPECT_TRUE(MayRead(res::kSetting, 1038, "Locked"));
  EXPECT_FALSE(MayRead(res::kSetting, 1038, "locked"));
  EXPECT_FALSE(MayRead(res::kSetting, 1, "Locked"));
}

// Spoils what a rule speaks of and lets a tick pass.
class FuzzPanelTest : public ::testing::Test {
 protected:
  memory::MemoryDialog& Dialog(int number) { return *panel.Toolkit().Find(number); }
  std::string AfterTick() {
    panel.Do(kTick);
    return panel.Broken();
  }

  PanelState& State() { return const_cast<PanelState&>(panel.Main().Panel()); }

  FuzzPanel panel;
};

TEST_F(FuzzPanelTest, HoldsWhenNothingIsSpoiled) { EXPECT_EQ(AfterTick(), ""); }

TEST_F(FuzzPanelTest, SeesACaptionThatIsNone) {
  Dialog(res::kInformation).SetText(1007, "garbage");
  EXPECT_EQ(AfterTick(), "control 1007 of 103 reads \"garbage\"");
}

TEST_F(FuzzPanelTest, SeesACaptionThatNeverChanges) {
  Dialog(res::kMain).SetText(kVideoButton, "Radio");
  EXPECT_EQ(AfterTick(), "control 1001 of 102 reads \"Radio\"");
}

TEST_F(FuzzPanelTest, SeesASecondPage) {
  Dialog(res::kAudio).Show(true);
  EXPECT_EQ(AfterTick(), "shown pages: 103 105");
}

TEST_F(FuzzPanelTest, SeesAButtonTooMany) {
  Dialog(res::kMain).ShowControl(kApplyButton, true);
  EXPECT_EQ(AfterTick(), "shown buttons: 1001 1002 1003 1004 1005 1007 1015");
}

TEST_F(FuzzPanelTest, SeesTheMonitorStop) {
  Dialog(res::kMain).StopTimer(1);
  EXPECT_EQ(AfterTick(), "the monitor does not run");
}

TEST_F(FuzzPanelTest, SeesTheWindowGo) {
  Dialog(res::kMain).Show(false);
  EXPECT_EQ(AfterTick(), "the window is gone");
}

TEST_F(FuzzPanelTest, SeesASliderOutside) {
  panel.Do(Press(res::kMain, kProcAmpButton));
  ASSERT_EQ(panel.Broken(), "");
  const_cast<memory::MemoryControl*>(Dialog(res::kProcAmp).Find(1032))->position = 256;
  EXPECT_EQ(AfterTick(), "slider 1032 of 106 stands outside");
}

TEST_F(FuzzPanelTest, SeesTheFocusOnWhatIsHidden) {
  panel.Do(Press(res::kMain, kAudioButton));
  ASSERT_EQ(Dialog(res::kMain).FocusedControl(), std::pair(res::kAudio, 1024));
  const_cast<memory::MemoryControl*>(Dialog(res::kAudio).Find(1024))->shown = false;
  // A tick would give the focus away.
  panel.Do({.act = Act::kUnplug});
  EXPECT_EQ(panel.Broken(), "the focus is on control 1024 of 105");
}

// A tick that no step asked for leaves its call behind.
TEST_F(FuzzPanelTest, SeesTheDeviceOpenedWithoutATick) {
  Dialog(res::kMain).Tick(1);
  panel.Do({.act = Act::kRepaint, .dialog = res::kMain});
  EXPECT_EQ(panel.Broken(), "the device was opened without a tick");
}

TEST_F(FuzzPanelTest, SeesTheDeviceOpenedTwice) {
  Dialog(res::kMain).Tick(1);
  EXPECT_EQ(AfterTick(), "a tick opened the device other than once");
}

TEST_F(FuzzPanelTest, SeesASkippedTickThatAsks) {
  Dialog(res::kMain).Tick(1);
  State().tickSkip = 1;
  EXPECT_EQ(AfterTick(), "a tick that is skipped asked the box");
}

TEST_F(FuzzPanelTest, SeesTooManyTicksSkipped) {
  State().tickSkip = 100;
  EXPECT_EQ(AfterTick(), "more ticks are skipped than any button asks");
}

TEST_F(FuzzPanelTest, SeesATimerThatIsLeftRunning) {
  panel.Toolkit().timersLeftRunning = 1;
  EXPECT_EQ(AfterTick(), "a window that went left a timer running");
}

TEST(FuzzStepsTest, AreWrittenDownAndReadAgain) {
  const Steps steps = {Press(102, 1001),
                       {.act = Act::kMouse, .dialog = 110, .control = 1021},
                       {.act = Act::kDrag, .dialog = 106, .control = 1032, .numbers = {-5}},
                       {.act = Act::kType, .dialog = 111, .control = 1076, .text = "\xFF =1\n"},
                       {.act = Act::kType, .dialog = 111, .control = 1076},
                       {.act = Act::kRepaint, .dialog = 106},
                       {.act = Act::kTurn, .numbers = {1, 2, 3, 4}},
                       {.act = Act::kBecome, .numbers = {26, 2, 3, 1, 0, 294}},
                       {.act = Act::kMood, .numbers = {5, 77}},
                       kTick};
  EXPECT_EQ(StepsFrom(TextOf(steps)), steps);
  EXPECT_EQ(StepsFrom("# a remark\n\ntick\n"), Steps{kTick});
  EXPECT_THROW(StepsFrom("jump 1"), std::runtime_error);
  EXPECT_THROW(StepsFrom("press 102"), std::runtime_error);
  EXPECT_THROW(StepsFrom("type 111 1076 =1"), std::runtime_error);
}

TEST(FuzzStepsTest, AreShortenedToWhatIsNeeded) {
  Steps steps(100, kTick);
  steps[17] = Press(1, 17);
  steps[60] = Press(1, 60);
  const auto replay = [](const Steps& tried) -> std::optional<Breach> {
    bool first = false;
    for (std::size_t i = 0; i < tried.size(); ++i) {
      if (tried[i].control == 17) first = true;
      if (tried[i].control == 60 && first) return Breach{i + 1, "both"};
    }
    return std::nullopt;
  };
  EXPECT_EQ(Shorten(steps, replay), (Steps{Press(1, 17), Press(1, 60)}));
}

}  // namespace
}  // namespace panelora::fuzz
