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
