// Where the guide is looked for.
#include "platform/win32/guide.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "platform/win32/windows_headers.h"

namespace panelora::win32 {
namespace {

TEST(Guide, IsTheFileBesideTheProgramAndNothingElse) {
  const std::filesystem::path folder = std::filesystem::temp_directory_path() /
                                       ("panelora_guide_" + std::to_string(GetCurrentProcessId()));
  const std::wstring beside = folder.wstring() + L"\\";
  EXPECT_EQ(GuideBeside(beside), L"");
  std::filesystem::create_directories(folder / "guide" / "index.html");  // a folder of that name
  EXPECT_EQ(GuideBeside(beside), L"");
  std::filesystem::remove(folder / "guide" / "index.html");
  std::ofstream(folder / "guide" / "index.html") << "<html>";
  EXPECT_EQ(GuideBeside(beside), beside + L"guide\\index.html");
  std::filesystem::remove_all(folder);
}

// A file that the system knows to open, as it does a page of the guide: a batch file, which writes.
TEST(Guide, IsOpenedByTheSystem) {
  const std::filesystem::path folder =
      std::filesystem::temp_directory_path() /
      (L"panelora guide " + std::to_wstring(GetCurrentProcessId()));
  std::filesystem::create_directories(folder);
  const std::filesystem::path opened = folder / "opened.txt";
  std::ofstream(folder / "open.bat") << "@echo opened>\"%~dp0opened.txt\"\r\n";
  EXPECT_FALSE(ShowFile((folder / "none.bat").wstring()));
  EXPECT_TRUE(ShowFile((folder / "open.bat").wstring()));
  while (!std::filesystem::exists(opened)) Sleep(10);
  std::error_code inUse;
  while (std::filesystem::remove_all(folder, inUse) == static_cast<std::uintmax_t>(-1)) Sleep(10);
}

TEST(Guide, LiesInTheFolderOfTheProgram) {
  wchar_t program[MAX_PATH] = L"";
  GetModuleFileNameW(nullptr, program, MAX_PATH);
  EXPECT_EQ(std::wstring(program).rfind(ProgramFolder(), 0), 0U);
  EXPECT_EQ(ProgramFolder().back(), L'\\');
}

}  // namespace
}  // namespace panelora::win32
