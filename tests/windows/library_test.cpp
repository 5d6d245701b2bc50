// Every way in which DEVLNK.dll can be wrong.
#include <fstream>
#include <iterator>

#include "device_calls.h"
#include "panel_test.h"

namespace panelora::end_to_end {

namespace {

class LibraryTest : public PanelTest {
 protected:
  std::filesystem::path Fake(const char* name) { return TheParts().tests / name; }

  // A file that is to become the library; gone with the test.
  std::filesystem::path FileWith(const std::string& bytes) {
    made = std::filesystem::temp_directory_path() /
           ("panelora_" + std::to_string(GetCurrentProcessId()) + ".dll");
    std::ofstream(made, std::ios::binary)
        .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return made;
  }

  // Starts with the library under a debugger; checks the look, now and at the next ticks, and that
  // there is exactly one line about it, which names each of `words`.
  void ExpectUnusable(const std::filesystem::path& library, const std::vector<std::string>& words) {
    PanelProcess& panel = Start({.library = library, .debugged = true});
    ASSERT_EQ(panel.DebuggerLines().size(), 1U);
    const std::string& line = panel.DebuggerLines().front();
    for (const std::string& word : words) EXPECT_NE(line.find(word), std::string::npos) << line;
    EXPECT_EQ(line.find('\n'), line.size() - 1) << line;
    ExpectDisconnectedForGood(panel);
  }

  void ExpectDisconnectedForGood(PanelProcess& panel) {
    EXPECT_EQ(panel.CurrentLook(), DisconnectedLook());
    for (int tick = 0; tick < 3; ++tick) panel.Tick();
    panel.Press(kMain, kPicture);
    for (int tick = 0; tick < 3; ++tick) panel.Tick();
    EXPECT_EQ(panel.CurrentLook(), DisconnectedLook());
  }

  void TearDown() override {
    PanelTest::TearDown();
    std::error_code ignored;
    if (!made.empty()) std::filesystem::remove(made, ignored);
  }

 private:
  std::filesystem::path made;
};

TEST_F(LibraryTest, AbsentLibraryShowsTheDisconnectedLook) {
  ExpectUnusable({}, {"DEVLNK.dll", "not beside the program"});
}

// The operator copies it in while the program runs; what the empty look says of it comes true.
TEST_F(LibraryTest, LibraryThatArrivesLaterIsFoundAtTheNextTick) {
  PanelProcess& panel = Start({.library = {}});
  ExpectDisconnectedForGood(panel);
  EXPECT_EQ(panel.TakeCalls(), kNothing);
  panel.PutLibrary(TheParts().box);
  EXPECT_EQ(panel.CurrentLook(), DisconnectedLook());
  panel.Tick();
  panel.Tick();
  panel.Tick();  // two were silenced by the press on the picture
  EXPECT_EQ(panel.CurrentLook(), HomeLook());
  EXPECT_EQ(panel.Text(kInformationPage, 1007), "1920x1080  59.94p");
}

TEST_F(LibraryTest, WholeLibraryTakesThePlaceOfABrokenOne) {
  for (const std::filesystem::path& broken :
       {FileWith("This is no library.\n"), Fake("fake_lacks_export.dll")}) {
    PanelProcess& panel = Start({.library = broken});
    panel.Tick();
    EXPECT_EQ(panel.CurrentLook(), DisconnectedLook());
    panel.PutLibrary(TheParts().box);
    panel.Tick();
    EXPECT_EQ(panel.CurrentLook(), HomeLook());
    CloseAndCheck();
  }
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
  EXPECT_EQ(panel.TakeCalls(), kNothing);
}

TEST_F(LibraryTest, LibraryThatLacksAnExportShowsTheDisconnectedLook) {
  ExpectUnusable(Fake("fake_lacks_export.dll"), {"DEVLNK.dll", "DEVLNK_SET_VIDEO_PROC_AMP"});
}

TEST_F(LibraryTest, LibraryOfTheWrongBitnessNamesTheBuildToUse) {
  std::ifstream file(TheParts().box, std::ios::binary);
  std::string bytes(std::istreambuf_iterator<char>(file), {});
  const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(bytes.data());
  const std::size_t machine = static_cast<std::size_t>(dos->e_lfanew) +
                              offsetof(IMAGE_NT_HEADERS, FileHeader) +
                              offsetof(IMAGE_FILE_HEADER, Machine);
  const bool is64 = sizeof(void*) == 8;
  const WORD other = is64 ? IMAGE_FILE_MACHINE_I386 : IMAGE_FILE_MACHINE_AMD64;
  bytes[machine] = static_cast<char>(other & 0xFF);
  bytes[machine + 1] = static_cast<char>(other >> 8);
  const std::string bits = is64 ? "32-bit" : "64-bit";
  ExpectUnusable(FileWith(bytes), {"DEVLNK.dll", "use the " + bits + " build"});
}

TEST_F(LibraryTest, FileThatIsNoLibraryShowsTheDisconnectedLook) {
  ExpectUnusable(FileWith("This is no library.\n"), {"DEVLNK.dll", "can't be loaded"});
}

TEST_F(LibraryTest, EmptyFileShowsTheDisconnectedLook) {
  ExpectUnusable(FileWith(""), {"DEVLNK.dll", "can't be loaded"});
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

// Presses every button that the operator can see on the page that is shown.
void PressEverythingOnThePage(PanelProcess& panel) {
  for (const int page : panel.CurrentLook().pages) {
    for (const auto& [control, place] : panel.ShownControls(page)) {
      const HWND window = panel.Control(page, control);
      char kind[16] = "";
      GetClassNameA(window, kind, sizeof kind);
      const LONG_PTR style = GetWindowLongPtrA(window, GWL_STYLE) & BS_TYPEMASK;
      if (std::string(kind) != "Button" || style == BS_GROUPBOX) continue;
      if (IsWindowVisible(window) && IsWindowEnabled(window)) panel.Press(page, control);
    }
  }
}

TEST_F(LibraryTest, NoAnswerWhateverItHoldsHarmsThePanel) {
  PanelProcess& panel = Start({.library = Fake("fake_fills_answers.dll")});
  EXPECT_EQ(panel.CurrentLook(), HomeLook());  // handle 0 is a handle
  EXPECT_EQ(panel.Text(kInformationPage, 1007), "65535x65535  255.0i");
  EXPECT_EQ(panel.Text(kInformationPage, 1014), "F.F.F.F");
  for (int round = 0; round < 2; ++round) {
    for (int button = kPicture; button <= kRefresh; ++button) {
      if (button == 1013) continue;
      SCOPED_TRACE(button);
      panel.Command(kMain, button);
      PressEverythingOnThePage(panel);
      panel.Tick();
      panel.Command(kMain, kApply);
      panel.Command(kMain, kDefault);
      panel.Command(kMain, kReturn);
    }
    for (int button = 1002; button <= 1008; ++button) {
      SCOPED_TRACE(button);
      panel.Command(kVideoMenuPage, button);
      PressEverythingOnThePage(panel);
      panel.Command(kMain, kPageUp);
      panel.Command(kMain, kApply);
      panel.Command(kMain, kDefault);
      panel.Command(kMain, kRefresh);
      panel.Command(kMain, kReturn);
    }
  }
  EXPECT_TRUE(panel.IsRunning());
}

}  // namespace

}  // namespace panelora::end_to_end
