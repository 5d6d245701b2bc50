// DEVLNK.dll where it is not, late, and with calls that fail or lie.
#include "tests/support/information_controls.h"
#include "tests/windows/end_to_end/library_fixture.h"

namespace panelora::testing::end_to_end {

namespace {

TEST_F(LibraryTest, AbsentLibraryShowsTheDisconnectedLook) {
  ExpectUnusable({}, {"DEVLNK.dll", "not beside the program"});
}

// The operator copies it in while the program runs; what the empty look says of it comes true.
TEST_F(LibraryTest, LibraryThatArrivesLaterIsFoundAtTheNextTick) {
  PanelProcess& panel = Start({.library = {}});
  ExpectDisconnectedForGood(panel);
  EXPECT_EQ(panel.TakeCalls(), Calls{});
  ExpectWholeLibraryIsFound(panel);
}

// Neither the folder that the program was started in nor the search path gives it a library.
TEST_F(LibraryTest, NothingIsLoadedFromTheWorkingFolder) {
  const std::filesystem::path planted =
      std::filesystem::temp_directory_path() /
      ("panelora_planted_" + std::to_string(GetCurrentProcessId()));
  std::filesystem::remove_all(planted);
  std::filesystem::create_directories(planted);
  std::filesystem::copy_file(Fake("fake_only_opens.dll"), planted / kPlantedLibrary);
  EXPECT_FALSE(Start({.workingFolder = planted}).Description().plantedLibraryLoads);
  CloseAndCheck();
  std::filesystem::remove_all(planted);
}

TEST_F(LibraryTest, LibraryInTheWorkingFolderIsNotTaken) {
  PanelProcess& panel = Start({.library = {}, .workingFolder = TheParts().box.parent_path()});
  EXPECT_EQ(panel.CurrentLook(), DisconnectedLook());
  EXPECT_EQ(panel.TakeCalls(), Calls{});
}

TEST_F(LibraryTest, FailingCallsShowTheDisconnectedLookWithoutAWord) {
  PanelProcess& panel = Start({.library = Fake("fake_fails_every_call.dll"), .debugged = true});
  EXPECT_EQ(panel.DebuggerLines(), std::vector<std::string>{});
  ExpectDisconnectedForGood(panel);
}

TEST_F(LibraryTest, OpenAloneDoesNotMakeABox) {
  ExpectDisconnectedForGood(Start({.library = Fake("fake_only_opens.dll")}));
}

TEST_F(LibraryTest, AnswerOfAFailedIdentityReadIsNotBelieved) {
  ExpectDisconnectedForGood(Start({.library = Fake("fake_fills_and_fails.dll")}));
}

TEST_F(LibraryTest, OnlyOneIsSuccess) {
  ExpectDisconnectedForGood(Start({.library = Fake("fake_answers_two.dll")}));
}

TEST_F(LibraryTest, NoAnswerWhateverItHoldsHarmsThePanel) {
  PanelProcess& panel = Start({.library = Fake("fake_fills_answers.dll")});
  EXPECT_EQ(panel.CurrentLook(), HomeLook());  // handle 0 is a handle
  EXPECT_EQ(panel.Text(res::kInformation, kFormatValue), "65535x65535  255.0i");
  EXPECT_EQ(panel.Text(res::kInformation, kFirmwareValue), "F.F.F.F");
  for (int round = 0; round < 2; ++round) OperateEverything(panel);
  EXPECT_TRUE(panel.IsRunning());
}

}  // namespace

}  // namespace panelora::testing::end_to_end
