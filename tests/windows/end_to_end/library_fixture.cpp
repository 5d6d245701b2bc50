#include "tests/windows/end_to_end/library_fixture.h"

#include <windows.h>

#include <commctrl.h>

#include <fstream>
#include <iterator>

#include "tests/support/information_controls.h"
#include "tests/support/video_menu_controls.h"

namespace panelora::testing::end_to_end {

std::string LibraryTest::LibraryBytes() {
  std::ifstream file(TheParts().box, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string LibraryTest::LibraryWith(const std::string& name, const std::string& other) {
  std::string bytes = LibraryBytes();
  const std::string old = '\0' + name;
  std::size_t count = 0;
  for (std::size_t at = bytes.find(old); at != std::string::npos; at = bytes.find(old, at + 1)) {
    const char end = bytes[at + old.size()];
    if (end != '\0' && end != '@') continue;
    bytes.replace(at + 1, other.size(), other);
    ++count;
  }
  EXPECT_EQ(name.size(), other.size());
  EXPECT_GT(count, 0U) << name;
  return bytes;
}

std::string LibraryTest::LibraryOfTheOtherBitness() {
  std::string bytes = LibraryBytes();
  const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(bytes.data());
  const std::size_t machine = static_cast<std::size_t>(dos->e_lfanew) +
                              offsetof(IMAGE_NT_HEADERS, FileHeader) +
                              offsetof(IMAGE_FILE_HEADER, Machine);
  const WORD other = sizeof(void*) == 8 ? IMAGE_FILE_MACHINE_I386 : IMAGE_FILE_MACHINE_AMD64;
  bytes[machine] = static_cast<char>(other & 0xFF);
  bytes[machine + 1] = static_cast<char>(other >> 8);
  return bytes;
}

std::filesystem::path LibraryTest::FileWith(const std::string& bytes) {
  made = std::filesystem::temp_directory_path() /
         ("panelora_" + std::to_string(GetCurrentProcessId()) + ".dll");
  std::ofstream(made, std::ios::binary)
      .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  return made;
}

PanelProcess& LibraryTest::ExpectUnusable(const std::filesystem::path& library,
                                          const std::vector<std::string>& words) {
  PanelProcess& panel = Start({.library = library, .debugged = true});
  EXPECT_EQ(panel.DebuggerLines().size(), 1U);
  for (const std::string& line : panel.DebuggerLines()) {
    for (const std::string& word : words) EXPECT_NE(line.find(word), std::string::npos) << line;
    EXPECT_EQ(line.find('\n'), line.size() - 1) << line;
  }
  ExpectDisconnectedForGood(panel);
  return panel;
}

void LibraryTest::ExpectDisconnectedForGood(PanelProcess& panel) {
  EXPECT_EQ(panel.CurrentLook(), DisconnectedLook());
  for (int tick = 0; tick < 3; ++tick) panel.Tick();
  panel.Press(res::kMain, kPictureButton);
  for (int tick = 0; tick < 3; ++tick) panel.Tick();
  EXPECT_EQ(panel.CurrentLook(), DisconnectedLook());
}

void LibraryTest::ExpectWholeLibraryIsFound(PanelProcess& panel) {
  panel.PutLibrary(TheParts().box);
  EXPECT_EQ(panel.CurrentLook(), DisconnectedLook());
  panel.Tick();
  panel.Tick();
  panel.Tick();  // two were silenced by the press on the picture
  EXPECT_EQ(panel.CurrentLook(), HomeLook());
  EXPECT_EQ(panel.Text(res::kInformation, kFormatValue), "1920x1080  59.94p");
}

void LibraryTest::UseEverythingOnThePage(PanelProcess& panel) {
  for (const int page : panel.CurrentLook().pages) {
    for (const auto& [control, place] : panel.ShownControls(page)) {
      const HWND window = panel.Control(page, control);
      if (!IsWindowVisible(window) || !IsWindowEnabled(window)) continue;
      char kind[32] = "";
      GetClassNameA(window, kind, sizeof kind);
      const std::string name = kind;
      const LONG_PTR style = GetWindowLongPtrA(window, GWL_STYLE) & BS_TYPEMASK;
      if (name == "Button" && style != BS_GROUPBOX) {
        panel.Press(page, control);
      } else if (name == "Edit") {
        panel.Send(window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>("65535"));
      } else if (name == "ComboBox") {
        panel.PostKey(window, VK_DOWN);
      } else if (name == TRACKBAR_CLASSA) {
        panel.PostKey(window, VK_NEXT);
      }
    }
  }
  panel.Send(panel.Main(), WM_NULL);
}

void LibraryTest::OperateEverything(PanelProcess& panel) {
  for (int button = kPictureButton; button <= kRefreshButton; ++button) {
    if (button == kSerialPicture) continue;
    SCOPED_TRACE(button);
    panel.Command(res::kMain, button);
    UseEverythingOnThePage(panel);
    panel.Tick();
    panel.Command(res::kMain, kApplyButton);
    panel.Command(res::kMain, kDefaultButton);
    panel.Command(res::kMain, kReturnButton);
  }
  for (int button = kVideoSettingsButton; button <= kRoiButton; ++button) {
    SCOPED_TRACE(button);
    panel.Command(res::kVideoMenu, button);
    UseEverythingOnThePage(panel);
    panel.Tick();
    panel.Command(res::kMain, kPageUpButton);
    UseEverythingOnThePage(panel);
    panel.Command(res::kMain, kApplyButton);
    panel.Command(res::kMain, kDefaultButton);
    panel.Command(res::kMain, kRefreshButton);
    panel.Command(res::kMain, kReturnButton);
  }
}

void LibraryTest::TearDown() {
  ProgramTest::TearDown();
  std::error_code ignored;
  if (!made.empty()) std::filesystem::remove(made, ignored);
}

}  // namespace panelora::testing::end_to_end
