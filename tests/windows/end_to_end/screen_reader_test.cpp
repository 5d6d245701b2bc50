// The finished program as a screen reader in a process of its own finds it.
#include "tests/support/accessible_win32.h"
#include "tests/windows/end_to_end/program_test.h"

namespace panelora::testing::end_to_end {

namespace {

class ScreenReaderTest : public ProgramTest {
 protected:
  ScreenReaderTest() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
  ~ScreenReaderTest() override { CoUninitialize(); }

  static std::string NameOf(HWND control) {
    const AccessiblePtr object = AccessibleOf(control);
    return object != nullptr ? TextFrom(*object, &IAccessible::get_accName) : "nothing";
  }

  // The control that is seen and has this name; null for none.
  static HWND Named(PanelProcess& panel, const std::string& name) {
    Search search = {name, nullptr};
    EnumChildWindows(panel.Main(), Look, reinterpret_cast<LPARAM>(&search));
    return search.found;
  }

  // Does what the control of this name does.
  static void Do(PanelProcess& panel, const std::string& name) {
    const HWND control = Named(panel, name);
    ASSERT_NE(control, nullptr) << name;
    EXPECT_EQ(AccessibleOf(control)->accDoDefaultAction(Self()), S_OK) << name;
    panel.Description();  // the press is posted
  }

 private:
  struct Search {
    const std::string& name;
    HWND found;
  };

  // No lambda: in 32 bits those have another way of being called.
  static BOOL CALLBACK Look(HWND window, LPARAM wanted) {
    auto& search = *reinterpret_cast<Search*>(wanted);
    if (IsWindowVisible(window) && NameOf(window) == search.name) search.found = window;
    return search.found == nullptr;
  }
};

TEST_F(ScreenReaderTest, ReadsTheControlsAndPressesThem) {
  PanelProcess& panel = Start();
  EXPECT_EQ(NameOf(panel.Control(res::kMain, kPictureButton)),
            "Front of the converter: RXC-9 CENTER, Video converter");
  {
    const AccessiblePtr audio = AccessibleOf(panel.Control(res::kMain, kAudioButton));
    ASSERT_NE(audio, nullptr);
    EXPECT_EQ(TextFrom(*audio, &IAccessible::get_accName), "Audio");
    EXPECT_EQ(audio->accDoDefaultAction(Self()), S_OK);
  }
  panel.Await("the audio page", [&] { return panel.IsShown(panel.Page(res::kAudio)); });
  const HWND next = panel.Control(res::kAudio, 1024);
  const std::string mute = panel.Text(res::kAudio, 1025);
  EXPECT_EQ(NameOf(next), "Audio Mute, " + mute + ", next");
}

// By names alone, as somebody works who hears the program: the output format is changed and
// applied, the picture reset, the firmware read, and the audio muted.
TEST_F(ScreenReaderTest, WholeVisitNeedsNamesAlone) {
  PanelProcess& panel = Start();
  Do(panel, "Video");
  Do(panel, "Video Setting");
  Do(panel, "Output Format, 1920x1080 60.00p, next");
  EXPECT_NE(Named(panel, "Output Format, 1920x1080 59.94p, next"), nullptr);
  panel.TakeCalls();
  Do(panel, "Apply, changes pending");
  EXPECT_EQ(panel.TakeCalls(), (Calls{"set word 0,4 = 1", "set word 0,2 = 16", "set word 0,7 = 1",
                                      "set word 0,12 = 2"}));
  EXPECT_NE(Named(panel, "Apply"), nullptr);
  Do(panel, "Return");
  Do(panel, "Return");

  Do(panel, "Proc Amp");
  EXPECT_NE(Named(panel, "Brightness"), nullptr);
  Do(panel, "Default");
  EXPECT_FALSE(panel.TakeCalls().empty());
  Do(panel, "Return");
  EXPECT_NE(Named(panel, "Firmware version, 0.1.2.6"), nullptr);

  Do(panel, "Audio");
  Do(panel, "Audio Mute, OFF, next");
  panel.TakeCalls();
  Do(panel, "Apply, changes pending");
  EXPECT_EQ(panel.TakeCalls(),
            (Calls{"set word 0,6 = 1", "set word 0,11 = 1", "set word 0,16 = 0"}));
}

// The program ends, and the reader holds what he has got.
TEST_F(ScreenReaderTest, IsNotInTheWayOfTheEnd) {
  PanelProcess& panel = Start();
  const AccessiblePtr audio = AccessibleOf(panel.Control(res::kMain, kAudioButton));
  ASSERT_NE(audio, nullptr);
  EXPECT_EQ(panel.Close(), 0U);
  BSTR name = nullptr;
  EXPECT_TRUE(FAILED(audio->get_accName(Self(), &name)));
}

}  // namespace
}  // namespace panelora::testing::end_to_end
