// A panel that stays open for months holds no more than one that was opened today.
#include <cstdlib>
#include <functional>
#include <iostream>

#include "tests/support/holdings.h"
#include "tests/support/scenario.h"

namespace panelora::testing {
namespace {

// How often each thing is done; PANELORA_CYCLES says otherwise. A cycle through all pages takes
// real windows half a second and a reconnection a twentieth, so that they go through fewer here.
#ifdef _WIN32
constexpr int kPageCycles = 20;
constexpr int kReconnections = 100;
constexpr int kPanels = 10;
#else
constexpr int kPageCycles = 1000;
constexpr int kReconnections = 1000;
constexpr int kPanels = 100;
#endif
constexpr int kDialogs = 100;

class Endurance : public Scenario {
 protected:
  Endurance() { CountHoldings(desk); }  // the counting begins before anything is made

  // Does it once, and then again until it was done `times` times: what is held stays the same.
  void ExpectLevel(int times, const std::function<void()>& once) {
    if (const char* cycles = std::getenv("PANELORA_CYCLES")) times = std::atoi(cycles);
    const auto doIt = [&] {
      once();
      TakeCalls();
    };
    doIt();
    const Holdings first = CountHoldings(desk);
    MemoryUse memory{};
    for (int done = 1; done < times; ++done) {
      if (done == times / 10) memory = MeasureMemory();
      doIt();
    }
    // Seen in the output: what the equality is about.
    for (const auto& [kind, count] : first) std::cout << kind << " " << count << ", ";
    EXPECT_EQ(CountHoldings(desk), first);
    const MemoryUse last = MeasureMemory();
    std::cout << memory.bytes << " bytes, then " << last.bytes << "\n";
    EXPECT_GT(memory.bytes, 0U);
    EXPECT_NEAR(static_cast<double>(last.bytes), static_cast<double>(memory.bytes),
                static_cast<double>(memory.bytes) * memory.tolerance);
  }
};

TEST_F(Endurance, PagesThatAreOpenedAndLeft) {
  StartWith(0x0126);
  const PageCode pages[] = {
      PageCode::kVideoSettings, PageCode::kDisplayMode, PageCode::kTvWall, PageCode::kPip,
      PageCode::kGenlock,       PageCode::kImageAdjust, PageCode::kRoi,    PageCode::kTextLabels};
  ExpectLevel(kPageCycles, [&] {
    for (const int button :
         {kInformationButton, kVideoButton, kAudioButton, kProcAmpButton, kSettingButton}) {
      Press(button);
      if (desk.Shows(res::kMain, kPageUpButton)) Press(kPageUpButton);
      if (desk.Shows(res::kMain, kReturnButton)) Press(kReturnButton);
    }
    for (const PageCode code : pages) {
      panel->OpenPage(code);
      if (desk.Shows(res::kMain, kPageUpButton)) Press(kPageUpButton);
      Press(kReturnButton);
    }
    Press(kReturnButton);
  });
}

TEST_F(Endurance, BoxThatIsUnpluggedAndPluggedInAgain) {
  StartWith(0x0126);
  ExpectLevel(kReconnections, [&] {
    box.SetPresent(false);
    Tick();
    ASSERT_FALSE(panel->IsConnected());
    box.SetPresent(true);
    Tick();
    ASSERT_TRUE(panel->IsConnected());
  });
}

// Every other one is closed, the others give way to the next.
TEST_F(Endurance, CautionsThatAreShown) {
  StartWith(0x0126);
  Press(kSettingButton);
  ExpectLevel(kDialogs, [&] {
    for (const bool closed : {false, true}) {
      desk.Press(res::kSetting, 1056);
      Press(kApplyButton);
      ASSERT_TRUE(desk.IsShown(res::kCaution));
      if (closed) desk.RequestClose(res::kCaution);
    }
  });
}

TEST_F(Endurance, AboutDialogsThatAreShown) {
  Start();
  ExpectLevel(kDialogs, [&] {
    desk.WhileModal([&] { desk.RequestClose(res::kAbout); });
    desk.ChooseSystemMenu(res::kMain, 16);
  });
}

// The panel as a whole, as often as somebody starts it.
TEST_F(Endurance, PanelsThatAreOpenedAndClosed) {
  ExpectLevel(kPanels, [&] {
    Start();
    panel.reset();
  });
}

// What the other tests rely on: a dialog too many is seen, and that it went.
TEST_F(Endurance, OneDialogTooManyIsSeen) {
  Start();
  const Holdings before = CountHoldings(desk);
  ui::DialogEvents nobody;
  std::unique_ptr<ui::Dialog> kept =
      desk.Toolkit().CreateDialogFrom(res::kCaution, nobody, &panel->Window());
  EXPECT_NE(CountHoldings(desk), before);
  kept.reset();
  EXPECT_EQ(CountHoldings(desk), before);
}

}  // namespace
}  // namespace panelora::testing
