// What a library that is broken, slow or mad does to the panel: nothing that lasts.
#include <fstream>
#include <functional>

#include "tests/support/video_menu_controls.h"
#include "tests/windows/end_to_end/library_fixture.h"

namespace panelora::testing::end_to_end {

namespace {

class MissingExportTest : public LibraryTest, public ::testing::WithParamInterface<const char*> {};

TEST_P(MissingExportTest, IsNamedAndTheLibraryOfNoUse) {
  const std::string name = GetParam();
  std::string other = name;  // sorts in the same place, since the exports are searched as sorted
  ++other.back();
  PanelProcess& panel =
      ExpectUnusable(FileWith(LibraryWith(name, other)), {"DEVLNK.dll", " lacks " + name + "."});
  EXPECT_EQ(panel.TakeCalls(), Calls{});
  ExpectWholeLibraryIsFound(panel);
}

INSTANTIATE_TEST_SUITE_P(Each, MissingExportTest,
                         ::testing::Values("DEVLNK_OPEN", "DEVLNK_GET_KIRABOX_PROPERTY",
                                           "DEVLNK_SET_KIRABOX_PROPERTY", "DEVLNK_GET_BOX_PROPERTY",
                                           "DEVLNK_SET_BOX_PROPERTY", "DEVLNK_GET_KIRABOX_PROC_AMP",
                                           "DEVLNK_GET_VIDEO_PROC_AMP",
                                           "DEVLNK_SET_VIDEO_PROC_AMP"),
                         [](const auto& each) { return std::string(each.param); });

// A file that the system does not load.
struct Unloadable {
  const char* name;
  std::function<std::string(const std::string& whole)> from;
};
void PrintTo(const Unloadable& each, std::ostream* out) { *out << each.name; }

std::string Part(const std::string& whole, std::size_t eighths) {
  return whole.substr(0, whole.size() * eighths / 8);
}

// The whole library with another place for the header that follows the old one of 64 bytes.
std::string WithHeaderAt(std::string whole, LONG place) {
  reinterpret_cast<IMAGE_DOS_HEADER*>(whole.data())->e_lfanew = place;
  return whole;
}

class UnloadableTest : public LibraryTest, public ::testing::WithParamInterface<Unloadable> {};

TEST_P(UnloadableTest, ShowsTheDisconnectedLookUntilAWholeOneIsThere) {
  PanelProcess& panel =
      ExpectUnusable(FileWith(GetParam().from(LibraryBytes())), {"DEVLNK.dll", "can't be loaded"});
  EXPECT_EQ(panel.TakeCalls(), Calls{});
  ExpectWholeLibraryIsFound(panel);
}

const Unloadable kUnloadables[] = {
    {"Empty", [](const std::string&) { return ""; }},
    {"Text", [](const std::string&) { return "This is no library.\n"; }},
    {"OneByte", [](const std::string&) { return "M"; }},
    {"OldHeaderAlone", [](const std::string& whole) { return whole.substr(0, 64); }},
    {"HeaderCutOff", [](const std::string& whole) { return whole.substr(0, 256); }},
    {"HeaderBehindTheEnd", [](const std::string& w) { return WithHeaderAt(w, 0x7FFFFFF0); }},
    {"HeaderBeforeTheStart", [](const std::string& w) { return WithHeaderAt(w, -4096); }},
    {"FirstEighth", [](const std::string& whole) { return Part(whole, 1); }},
    {"Half", [](const std::string& whole) { return Part(whole, 4); }},
    {"Most", [](const std::string& whole) { return Part(whole, 7); }},
    {"Zeros", [](const std::string& whole) { return std::string(whole.size(), '\0'); }},
};

INSTANTIATE_TEST_SUITE_P(Each, UnloadableTest, ::testing::ValuesIn(kUnloadables),
                         [](const auto& each) { return std::string(each.param.name); });

class HostileLibraryTest : public LibraryTest {};

TEST_F(HostileLibraryTest, LibraryOfTheWrongBitnessNamesTheBuildToUse) {
  const std::string bits = sizeof(void*) == 8 ? "32-bit" : "64-bit";
  PanelProcess& panel = ExpectUnusable(FileWith(LibraryOfTheOtherBitness()),
                                       {"DEVLNK.dll", "use the " + bits + " build"});
  ExpectWholeLibraryIsFound(panel);
}

// It needs a library itself that is not there.
TEST_F(HostileLibraryTest, LibraryThatLacksAnotherOneShowsTheDisconnectedLook) {
  ExpectUnusable(FileWith(LibraryWith("KERNEL32.dll", "KERNELXY.dll")),
                 {"DEVLNK.dll", "can't be loaded"});
}

TEST_F(HostileLibraryTest, LibraryThatRefusesToBeLoadedShowsTheDisconnectedLook) {
  PanelProcess& panel = ExpectUnusable(Fake("fake_refuses.dll"), {"DEVLNK.dll", "can't be loaded"});
  ExpectWholeLibraryIsFound(panel);
}

// It is being copied: nobody else may open it yet.
TEST_F(HostileLibraryTest, LibraryThatCantBeOpenedYetIsFoundWhenItCan) {
  PanelProcess& panel = Start({.library = {}});
  panel.PutLibrary(TheParts().box);
  const HANDLE writer = CreateFileW(panel.LibraryFile().c_str(), GENERIC_WRITE, 0, nullptr,
                                    OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  ASSERT_NE(writer, INVALID_HANDLE_VALUE);
  ExpectDisconnectedForGood(panel);
  EXPECT_EQ(panel.TakeCalls(), Calls{});
  CloseHandle(writer);
  for (int tick = 0; tick < 3; ++tick) panel.Tick();
  EXPECT_EQ(panel.CurrentLook(), HomeLook());
}

TEST_F(HostileLibraryTest, FolderOfThatNameIsNoLibrary) {
  PanelProcess& panel = Start({.library = {}});
  std::filesystem::create_directory(panel.LibraryFile());
  ExpectDisconnectedForGood(panel);
  ExpectWholeLibraryIsFound(panel);
}

// What a call takes is all that it costs: the panel makes the same calls, in the same order, and
// shows the same.
TEST_F(HostileLibraryTest, SlowCallsAreWaitedForAndNothingElseChanges) {
  struct Seen {
    Calls calls;
    std::vector<Look> looks;
    bool operator==(const Seen&) const = default;
  };
  const auto walk = [this](std::uint32_t delay) {
    PanelProcess& panel = Start({.plugged = false});
    panel.SlowCalls(delay);
    Seen seen;
    const auto look = [&] { seen.looks.push_back(panel.CurrentLook()); };
    const auto press = [&](int dialog, int control) {
      panel.Press(dialog, control);
      look();
    };
    look();
    for (const bool plugged : {true, false, true}) {
      panel.Plug(plugged);
      panel.Tick();
      look();
    }
    for (const int button : {kInformationButton, kAudioButton, kProcAmpButton, kSettingButton}) {
      press(res::kMain, button);
      press(res::kMain, button == kInformationButton ? kRefreshButton : kReturnButton);
    }
    press(res::kMain, kVideoButton);
    for (const int button : {kVideoSettingsButton, kImageAdjustButton}) {
      press(res::kVideoMenu, button);
      press(res::kMain, kApplyButton);
      panel.Tick();
      press(res::kMain, kReturnButton);
    }
    press(res::kMain, kReturnButton);
    seen.calls = panel.TakeCalls();
    CloseAndCheck();
    return seen;
  };
  const Seen slow = walk(50);
  const Seen quick = walk(0);
  EXPECT_GT(slow.calls.size(), 30U);
  EXPECT_EQ(slow.calls, quick.calls);
  EXPECT_EQ(slow.looks, quick.looks);
}

// And the panel is as good as new when they succeed again.
TEST_F(HostileLibraryTest, EveryCallMayFailFromAnyMomentOn) {
  PanelProcess& panel = Start();
  OperateEverything(panel);
  panel.FailCalls(true);
  OperateEverything(panel);
  panel.Plug(false);
  for (int tick = 0; tick < 8; ++tick) panel.Tick();
  panel.FailCalls(false);
  panel.Become({26, 0, 0, 0, 0});
  panel.Plug(true);
  panel.Await("the box", [&] {
    panel.Tick();
    return panel.CurrentLook() == HomeLook();
  });
}

// Bytes, results and handles by chance: boxes that come, go and change their kind at any tick.
class MadLibraryTest : public LibraryTest, public ::testing::WithParamInterface<int> {
 protected:
  void OperateFor(const std::filesystem::path& program) {
    SetEnvironmentVariableA("PANELORA_FAKE_SEED", std::to_string(GetParam()).c_str());
    PanelProcess& panel = Start({.program = program, .library = Fake("fake_random.dll")});
    SetEnvironmentVariableA("PANELORA_FAKE_SEED", nullptr);
    for (int round = 0; round < 2; ++round) OperateEverything(panel);
    EXPECT_TRUE(panel.IsRunning());
    CloseAndCheck();
  }
};

TEST_P(MadLibraryTest, HarmsNeitherTheProgramThatIsShipped) { OperateFor(TheParts().program); }

TEST_P(MadLibraryTest, NorTheOneThatAdmitsEveryBoxType) { OperateFor(TheParts().everyModel); }

INSTANTIATE_TEST_SUITE_P(Seed, MadLibraryTest, ::testing::Range(1, 4),
                         ::testing::PrintToStringParamName());

}  // namespace

}  // namespace panelora::testing::end_to_end
