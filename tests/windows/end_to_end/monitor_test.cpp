// The monitor: the box goes and comes back while the panel is open.
#include <array>
#include <cstdint>
#include <vector>

#include "tests/support/information_controls.h"
#include "tests/windows/end_to_end/program_test.h"

namespace panelora::testing::end_to_end {

namespace {

class MonitorTest : public ProgramTest {
 protected:
  // The calls of one tick.
  Calls TickCalls(PanelProcess& panel) {
    panel.TakeCalls();
    panel.Tick();
    return panel.TakeCalls();
  }

  // The calls of the next tick that makes any: a slider that paints silences two, and when Proc
  // Amp's paint is the windows' affair.
  Calls NextTickCalls(PanelProcess& panel) {
    Calls calls;
    panel.Await("a tick that calls", [&] {
      calls = TickCalls(panel);
      return !calls.empty();
    });
    return calls;
  }
};

TEST_F(MonitorTest, TickOfAnUnchangedBoxOnlyOpens) {
  PanelProcess& panel = Start();
  for (int tick = 0; tick < 3; ++tick) EXPECT_EQ(TickCalls(panel), kOpenCall);
  EXPECT_EQ(panel.CurrentLook(), HomeLook());
}

TEST_F(MonitorTest, UnpluggedBoxTurnsToTheDisconnectedLookFromEveryPage) {
  PanelProcess& panel = Start();
  for (const int button :
       {kInformationButton, kVideoButton, kAudioButton, kProcAmpButton, kSettingButton}) {
    SCOPED_TRACE(button);
    panel.Press(res::kMain, button);
    panel.Plug(false);
    EXPECT_EQ(NextTickCalls(panel), Join({kOpenCall, kIdentityCall, kInitialiseCallsWithoutBox}));
    EXPECT_EQ(panel.CurrentLook(), DisconnectedLook());
    EXPECT_EQ(TickCalls(panel), kOpenCall);
    panel.Plug(true);
    // The pages are initialised, and the Information button's procedure reads once more.
    EXPECT_EQ(TickCalls(panel),
              Join({kOpenCall, kIdentityCall, kInitialiseCalls, kInformationCalls}));
    EXPECT_EQ(panel.CurrentLook(), HomeLook());
  }
}

TEST_F(MonitorTest, ReturnedBoxIsReadAnew) {
  PanelProcess& panel = Start();
  panel.Plug(false);
  panel.Tick();
  panel.Become({26, 2, 0, 0, 0}, 0x0206);
  panel.Plug(true);
  panel.Tick();
  EXPECT_EQ(panel.Text(res::kInformation, kFormatValue), "1920x1080  59.94p");
  EXPECT_EQ(panel.Text(res::kInformation, kFirmwareValue), "0.2.0.6");
  panel.Press(res::kMain, kProcAmpButton);
  EXPECT_TRUE(panel.IsShown(panel.Control(res::kMain, kApplyButton)));  // brand 2
}

TEST_F(MonitorTest, ConnectionChangePutsEveryButtonBackInItsHomePlace) {
  PanelProcess& panel = Start({.firmware = 0x0111});
  panel.Press(res::kMain, kVideoButton);
  panel.Plug(false);
  panel.Tick();
  EXPECT_EQ(panel.PlaceOf(panel.Control(res::kMain, kReturnButton)), ButtonAt(65));
  EXPECT_EQ(panel.PlaceOf(panel.Control(res::kMain, kApplyButton)), ButtonAt(65));
  EXPECT_EQ(panel.PlaceOf(panel.Control(res::kMain, kDefaultButton)), ButtonAt(65));
  EXPECT_EQ(panel.PlaceOf(panel.Control(res::kMain, kPageUpButton)), (ui::Rect{0, 340, 110, 45}));
}

TEST_F(MonitorTest, BoxOfAnotherTypeIsTreatedAsAbsentAndAskedAtEveryTick) {
  PanelProcess& panel = Start({.identity = {50, 0, 0, 0, 0}});
  for (int tick = 0; tick < 3; ++tick) {
    EXPECT_EQ(TickCalls(panel), Join({kOpenCall, kIdentityCall}));
    EXPECT_EQ(panel.CurrentLook(), DisconnectedLook());
  }
  panel.Become({26, 0, 0, 0, 0});
  EXPECT_EQ(TickCalls(panel),
            Join({kOpenCall, kIdentityCall, kInitialiseCalls, kInformationCalls}));
  EXPECT_EQ(panel.CurrentLook(), HomeLook());
}

TEST_F(MonitorTest, BoxThatAnswersNoIdentityIsAbsent) {
  PanelProcess& panel = Start();
  panel.FailCalls(true);
  EXPECT_EQ(TickCalls(panel), kOpenCall);  // the identity of a box that stays is not read again
  EXPECT_EQ(panel.CurrentLook(), HomeLook());
  panel.Plug(false);
  EXPECT_EQ(TickCalls(panel), Join({kOpenCall, kIdentityCall, kInitialiseCallsWithoutBox}));
  panel.Plug(true);
  for (int tick = 0; tick < 3; ++tick) {
    EXPECT_EQ(TickCalls(panel), Join({kOpenCall, kIdentityCall}));
  }
  EXPECT_EQ(panel.CurrentLook(), DisconnectedLook());
  panel.FailCalls(false);
  panel.Tick();
  EXPECT_EQ(panel.CurrentLook(), HomeLook());
}

TEST_F(MonitorTest, BoxThatChangesItsIdentityWhileConnectedIsNotAskedAgain) {
  PanelProcess& panel = Start();
  panel.Become({15, 1, 1, 1, 1});
  EXPECT_EQ(TickCalls(panel), kOpenCall);
  EXPECT_EQ(panel.CurrentLook(), HomeLook());
}

TEST_F(MonitorTest, ApplyOnInformationWritesNothingAndSilencesFiveTicks) {
  PanelProcess& panel = Start();
  panel.TakeCalls();
  panel.Command(res::kMain, kApplyButton);
  EXPECT_EQ(panel.TakeCalls(), Calls{});
  for (int tick = 1; tick <= 5; ++tick) EXPECT_EQ(TickCalls(panel), Calls{}) << tick;
  EXPECT_EQ(TickCalls(panel), kOpenCall);
  EXPECT_EQ(panel.CurrentLook(), HomeLook());
}

TEST_F(MonitorTest, RefreshReadsThePageAndSilencesTwoTicks) {
  PanelProcess& panel = Start();
  for (const int button : {kRefreshButton, kPictureButton}) {
    SCOPED_TRACE(button);
    panel.TakeCalls();
    panel.Press(res::kMain, button);
    EXPECT_EQ(panel.TakeCalls(), kInformationCalls);
    for (int tick = 1; tick <= 2; ++tick) EXPECT_EQ(TickCalls(panel), Calls{}) << tick;
    EXPECT_EQ(TickCalls(panel), kOpenCall);
  }
}

TEST_F(MonitorTest, RefreshOnTheVideoMenuOnlySilencesTwoTicks) {
  PanelProcess& panel = Start();
  panel.TakeCalls();
  panel.Press(res::kMain, kVideoButton);
  panel.Press(res::kMain, kPictureButton);
  EXPECT_EQ(panel.TakeCalls(), Calls{});
  for (int tick = 1; tick <= 2; ++tick) EXPECT_EQ(TickCalls(panel), Calls{}) << tick;
  EXPECT_EQ(TickCalls(panel), kOpenCall);
}

TEST_F(MonitorTest, SilencedTicksSeeTheUnpluggedBoxLater) {
  PanelProcess& panel = Start();
  panel.Press(res::kMain, kRefreshButton);
  panel.Plug(false);
  for (int tick = 1; tick <= 2; ++tick) {
    panel.Tick();
    EXPECT_EQ(panel.CurrentLook(), HomeLook()) << tick;
  }
  panel.Tick();
  EXPECT_EQ(panel.CurrentLook(), DisconnectedLook());
}

TEST_F(MonitorTest, FailedReadsKeepWhatInformationShows) {
  PanelProcess& panel = Start();
  panel.FailCalls(true);
  panel.Press(res::kMain, kInformationButton);
  panel.Press(res::kMain, kRefreshButton);
  EXPECT_EQ(panel.Text(res::kInformation, kFormatValue), "1920x1080  59.94p");
  EXPECT_EQ(panel.Text(res::kInformation, kFirmwareValue), "0.1.2.6");
  panel.Press(res::kMain, kVideoButton);  // the old version goes on counting
  EXPECT_EQ(panel.CurrentLook().pages, std::vector<int>{res::kVideoMenu});
}

TEST_F(MonitorTest, AnswerThatFillsTheWholeLengthIsShownAsItIs) {
  PanelProcess& panel = Start();
  panel.FillAnswers(true);
  panel.Press(res::kMain, kRefreshButton);
  EXPECT_EQ(panel.Text(res::kInformation, kFormatValue), "65535x65535  255.0i");
}

TEST_F(MonitorTest, OnlyModel26IsABox) {
  PanelProcess& panel = Start({.plugged = false});
  panel.Plug(true);
  for (int type = 0; type <= 255; ++type) {
    SCOPED_TRACE(type);
    panel.Become({static_cast<std::uint8_t>(type), 0, 0, 0, 0});
    if (type != 26) {
      ASSERT_EQ(TickCalls(panel), Join({kOpenCall, kIdentityCall}));
      ASSERT_EQ(panel.CurrentLook(), DisconnectedLook());
      continue;
    }
    panel.Tick();
    ASSERT_EQ(panel.CurrentLook(), HomeLook());
    panel.Plug(false);
    panel.Tick();
    panel.Plug(true);
  }
}

TEST_F(MonitorTest, Model26IsABoxWhateverItsOtherIdentityBytes) {
  PanelProcess& panel = Start({.plugged = false});
  // Brand, sub-model and both DIP flags: each alone, and all at once.
  std::vector<std::array<std::uint8_t, 3>> identities;
  for (const int each : {0, 1, 2, 3, 255}) {
    const auto value = static_cast<std::uint8_t>(each);
    identities.insert(identities.end(),
                      {{value, 0, 0}, {0, value, 0}, {0, 0, value}, {value, value, value}});
  }
  for (const auto& [brand, subModel, dip] : identities) {
    SCOPED_TRACE(::testing::Message() << int{brand} << " " << int{subModel} << " " << int{dip});
    Places procAmp = {{kDefaultButton, ButtonAt(65)},
                      {kReturnButton, ButtonAt(105)},
                      {kPageUpButton, ButtonAt(145)}};
    if (brand == 2) {
      procAmp = {{kDefaultButton, ButtonAt(65)},
                 {kApplyButton, ButtonAt(105)},
                 {kReturnButton, ButtonAt(145)},
                 {kPageUpButton, ButtonAt(185)}};
    }
    panel.Become({26, brand, subModel, dip, dip});
    panel.Plug(true);
    panel.Tick();
    ASSERT_EQ(panel.CurrentLook(), HomeLook());
    panel.Press(res::kMain, kProcAmpButton);
    ASSERT_EQ(panel.CurrentLook(), PageLook(res::kProcAmp, procAmp));
    panel.Plug(false);
    // A slider that paints silences two ticks, and may paint again in between.
    panel.Await("the disconnected look", [&] {
      panel.Tick();
      return panel.CurrentLook() == DisconnectedLook();
    });
  }
}

TEST_F(MonitorTest, PanelLooksForTheBoxByItself) {
  PanelProcess& panel = Start({.holdsClock = false});
  panel.Plug(false);
  panel.Await("the disconnected look", [&] { return panel.CurrentLook() == DisconnectedLook(); });
}

}  // namespace

}  // namespace panelora::testing::end_to_end
