// What the operator finds when the program has started.
#include <fstream>

#include "tests/support/information_controls.h"
#include "tests/windows/end_to_end/program_test.h"

namespace panelora::testing::end_to_end {

namespace {

using StartTest = ProgramTest;

TEST_F(StartTest, FindsTheBoxAndShowsItsState) {
  PanelProcess& panel = Start();
  EXPECT_EQ(panel.TakeCalls(), Join({kOpenCall, kIdentityCall, kInitialiseCalls}));

  EXPECT_EQ(panel.Text(panel.Main()), "Corvane RXC-9 Center ( 1.0.2.6 )");
  RECT client{};
  GetClientRect(panel.Main(), &client);
  EXPECT_EQ(client.right, 600);
  EXPECT_EQ(client.bottom, 375);

  EXPECT_EQ(panel.CurrentLook(), HomeLook());
  EXPECT_EQ(panel.Text(res::kInformation, kFormatValue), "1920x1080  59.94p");
  EXPECT_EQ(panel.Text(res::kInformation, kFirmwareValue), "0.1.2.6");
}

TEST_F(StartTest, PagesStandRightBehindTheDevicePictureAtOnePlace) {
  PanelProcess& panel = Start();
  EXPECT_EQ(panel.Pages(),
            (std::vector<int>{115, 114, 113, 112, 111, 110, 109, 108, 107, 106, 105, 104, 103}));
  for (const int page : panel.Pages()) {
    SCOPED_TRACE(page);
    EXPECT_EQ(panel.PlaceOf(panel.Page(page)), (ui::Rect{110, 65, 540, 335}));
    EXPECT_EQ(panel.IsShown(panel.Page(page)), page == res::kInformation);
  }
  EXPECT_EQ(GetWindow(panel.Main(), GW_CHILD), panel.Control(res::kMain, kPictureButton));
  EXPECT_EQ(GetWindow(panel.Control(res::kMain, kPictureButton), GW_HWNDNEXT),
            panel.Page(res::kTextLabels));
}

TEST_F(StartTest, NavigationButtonsHaveTheirCaptionsAndHomePlaces) {
  struct Button {
    int control;
    const char* caption;
    ui::Rect home;
  };
  const Button buttons[] = {
      {kPictureButton, "Logo", {0, 0, 600, 65}},
      {kInformationButton, "Information", {0, 65, 110, 40}},
      {kVideoButton, "Video", {0, 105, 110, 40}},
      {kAudioButton, "Audio", {0, 145, 110, 40}},
      {kProcAmpButton, "Proc Amp", {0, 185, 110, 40}},
      {kSettingButton, "Setting", {0, 225, 110, 40}},
      {kReturnButton, "Return", {0, 65, 110, 40}},
      {kApplyButton, "Apply", {0, 65, 110, 40}},
      {kDefaultButton, "Default", {0, 65, 110, 40}},
      {kPageUpButton, "Page Up", {0, 340, 110, 45}},
      {kRefreshButton, "Refresh", {0, 340, 110, 45}},
      {kWall1Button, "1X1", {0, 65, 110, 40}},
      {kWall2Button, "2X2", {0, 105, 110, 40}},
      {kWall3Button, "3X3", {0, 145, 110, 40}},
      {kWall4Button, "4X4", {0, 185, 110, 40}},
      {kSerialPicture, "Logo", {110, 65, 490, 310}},
  };
  PanelProcess& panel = Start();
  for (const Button& button : buttons) {
    SCOPED_TRACE(button.control);
    EXPECT_EQ(panel.Text(res::kMain, button.control), button.caption);
    EXPECT_EQ(panel.PlaceOf(panel.Control(res::kMain, button.control)), button.home);
  }
  // The port list: a closed combo box is as high as its font.
  const ui::Rect ports = panel.PlaceOf(panel.Control(res::kMain, kPortList));
  EXPECT_EQ(ports.x, 500);
  EXPECT_EQ(ports.y, 20);
  EXPECT_EQ(ports.width, 80);
  EXPECT_EQ(panel.Text(res::kMain, kPortList), "");
}

TEST_F(StartTest, InformationPageShowsTheRowsOfModel26) {
  PanelProcess& panel = Start();
  const Places rows = {{1016, {55, 20, 390, 260}}, {1003, {80, 60, 110, 20}},
                       {1007, {200, 60, 150, 20}}, {1013, {80, 90, 110, 30}},
                       {1014, {200, 90, 150, 30}}, {1015, {180, 250, 200, 30}}};
  EXPECT_EQ(panel.ShownControls(res::kInformation), rows);
  EXPECT_EQ(panel.Text(res::kInformation, 1016), "Information");
  EXPECT_EQ(panel.Text(res::kInformation, 1003), "Input Format    :");
  EXPECT_EQ(panel.Text(res::kInformation, 1013), "F/W Version     :");
}

TEST_F(StartTest, WindowHasIconsAndASystemMenuWithAboutBehindASeparator) {
  const ProbeMemory description = Start().Description();
  EXPECT_TRUE(description.bigIcon);
  EXPECT_TRUE(description.smallIcon);
  const std::string menu = description.systemMenu;
  const std::string about = "-\n16 &About Panelora...\n";
  ASSERT_GE(menu.size(), about.size());
  EXPECT_EQ(menu.substr(menu.size() - about.size()), about) << menu;
  EXPECT_NE(menu.find(std::to_string(SC_CLOSE) + " "), std::string::npos) << menu;
}

TEST_F(StartTest, WindowIsShownAsTheSystemAsksForIt) {
  EXPECT_FALSE(IsIconic(Start().Main()));
  CloseAndCheck();
  PanelProcess& panel = Start({.show = SW_SHOWMINNOACTIVE});
  EXPECT_TRUE(IsIconic(panel.Main()));
  panel.Plug(false);
  panel.Tick();
  panel.Plug(true);
  panel.Tick();
  EXPECT_TRUE(IsIconic(panel.Main()));  // a box that comes does not bring the window up
  panel.Send(panel.Main(), WM_SYSCOMMAND, SC_RESTORE);
  EXPECT_FALSE(IsIconic(panel.Main()));
  EXPECT_EQ(panel.CurrentLook(), HomeLook());
}

BOOL CALLBACK AddLanguage(HMODULE, LPCSTR, LPCSTR, WORD language, LONG_PTR languages) {
  reinterpret_cast<std::vector<WORD>*>(languages)->push_back(language);
  return TRUE;
}

// Makes a dialog of a program's resources one of a window class that there is not.
void SpoilDialog(const std::filesystem::path& program, int number) {
  const LPCSTR name = MAKEINTRESOURCEA(number);
  std::vector<WORD> languages;
  const HMODULE image = LoadLibraryExW(program.c_str(), nullptr, LOAD_LIBRARY_AS_DATAFILE);
  EnumResourceLanguagesA(image, RT_DIALOG, name, AddLanguage,
                         reinterpret_cast<LONG_PTR>(&languages));
  FreeLibrary(image);
  ASSERT_FALSE(languages.empty());
  // Style (two words), extended style, no controls, place, no menu, class, no title.
  std::vector<WORD> dialog = {0, HIWORD(WS_POPUP), 0, 0, 0, 0, 0, 9, 9, 0};
  for (const wchar_t letter : L"NoSuchClass") dialog.push_back(static_cast<WORD>(letter));
  dialog.push_back(0);
  const HANDLE update = BeginUpdateResourceW(program.c_str(), FALSE);
  for (const WORD language : languages) {
    ASSERT_TRUE(UpdateResourceA(update, RT_DIALOG, name, language, dialog.data(),
                                static_cast<DWORD>(dialog.size() * sizeof(WORD))));
  }
  ASSERT_TRUE(EndUpdateResourceW(update, FALSE));
}

// A program that can't make one of its dialogs ends at once, with a line for whoever looks for the
// reason.
TEST_F(StartTest, WindowThatCantBeMadeEndsTheProgram) {
  const std::filesystem::path broken =
      std::filesystem::temp_directory_path() /
      ("panelora_broken_" + std::to_string(GetCurrentProcessId()) + ".exe");
  for (const int missing : {res::kMain, res::kVideoSettings, res::kTextLabels}) {
    SCOPED_TRACE(missing);
    std::filesystem::copy_file(TheParts().program, broken);
    SpoilDialog(broken, missing);
    const Ending ending = PanelProcess::RunToItsEnd(broken);
    EXPECT_EQ(ending.code, 1U);
    ASSERT_FALSE(ending.debuggerLines.empty());
    EXPECT_EQ(ending.debuggerLines.back(), "Panelora: a window can't be made.\n");
    std::filesystem::remove(broken);
  }
}

// What the system's loader is asked for: another place in memory with every start, out of the whole
// range, and no code in data.
TEST_F(StartTest, ProgramAndLibraryAskForTheLoadersProtection) {
  for (const std::filesystem::path& path : {TheParts().program, TheParts().box}) {
    SCOPED_TRACE(path.string());
    std::ifstream file(path, std::ios::binary);
    std::string bytes(0x1000, '\0');
    file.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(bytes.data());
    const auto* nt = reinterpret_cast<const IMAGE_NT_HEADERS*>(bytes.data() + dos->e_lfanew);
    const WORD flags = nt->OptionalHeader.DllCharacteristics;
    EXPECT_NE(flags & IMAGE_DLLCHARACTERISTICS_DYNAMIC_BASE, 0);
    EXPECT_NE(flags & IMAGE_DLLCHARACTERISTICS_NX_COMPAT, 0);
    // Without these the place could not change.
    EXPECT_EQ(nt->FileHeader.Characteristics & IMAGE_FILE_RELOCS_STRIPPED, 0);
    EXPECT_GT(nt->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_BASERELOC].Size, 0U);
    if (sizeof(void*) == 8) {
      EXPECT_NE(flags & 0x0020, 0);  // high-entropy addresses
      EXPECT_NE(nt->FileHeader.Characteristics & IMAGE_FILE_LARGE_ADDRESS_AWARE, 0);
    }
  }
}

TEST_F(StartTest, UnpluggedBoxShowsTheDisconnectedLook) {
  PanelProcess& panel = Start({.plugged = false});
  EXPECT_EQ(panel.TakeCalls(), Join({kOpenCall, kIdentityCall, kInitialiseCallsWithoutBox}));
  EXPECT_EQ(panel.CurrentLook(), DisconnectedLook());
  EXPECT_EQ(panel.Text(panel.Main()), "Corvane RXC-9 Center ( 1.0.2.6 )");
}

TEST_F(StartTest, BoxOfAnotherTypeShowsTheDisconnectedLook) {
  PanelProcess& panel = Start({.identity = {15, 2, 1, 1, 1}});
  EXPECT_EQ(panel.TakeCalls(), Join({kOpenCall, kIdentityCall, kInitialiseCallsWithoutBox}));
  EXPECT_EQ(panel.CurrentLook(), DisconnectedLook());
}

}  // namespace

}  // namespace panelora::testing::end_to_end
