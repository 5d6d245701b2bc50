// Looking for DEVLNK.dll while the program runs.
#include "platform/win32/devlnk_loader.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "platform/win32/win32_toolkit.h"

namespace panelora::win32 {
namespace {

class DevlnkFinderTest : public ::testing::Test {
 protected:
  DevlnkFinderTest() {
    std::filesystem::create_directories(file.parent_path());
    toolkit.onDebugOutput = [this](std::string_view line) { lines.emplace_back(line); };
  }
  ~DevlnkFinderTest() override {
    std::error_code ignored;
    std::filesystem::remove_all(file.parent_path(), ignored);
  }
  void Put(const std::string& bytes) {
    std::ofstream(file, std::ios::binary)
        .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  }
  // A DLL of the system, which has none of the exports.
  void PutForeignLibrary() {
    char folder[MAX_PATH] = "";
    GetSystemDirectoryA(folder, MAX_PATH);
    std::filesystem::remove(file);
    std::filesystem::copy_file(std::filesystem::path(folder) / "version.dll", file);
  }

  std::filesystem::path file = std::filesystem::temp_directory_path() /
                               ("panelora_finder_" + std::to_string(GetCurrentProcessId())) /
                               "DEVLNK.dll";
  Win32Toolkit toolkit{GetModuleHandleA(nullptr)};
  std::vector<std::string> lines;
  DevlnkFinder finder{toolkit, file.wstring()};
};

TEST_F(DevlnkFinderTest, SaysOnceWhatIsWrongForAsLongAsItIs) {
  for (int i = 0; i < 3; ++i) EXPECT_FALSE(finder.Find());
  EXPECT_EQ(lines.size(), 1U);
  Put("no library");
  for (int i = 0; i < 3; ++i) EXPECT_FALSE(finder.Find());
  EXPECT_EQ(lines.size(), 2U);
  std::filesystem::remove(file);
  EXPECT_FALSE(finder.Find());
  ASSERT_EQ(lines.size(), 3U);
  EXPECT_EQ(lines[2], lines[0]);
  EXPECT_NE(lines[1], lines[0]);
}

TEST_F(DevlnkFinderTest, LibraryWithoutTheExportsIsLetGoAndNotTriedTwice) {
  PutForeignLibrary();
  EXPECT_FALSE(finder.Find());
  ASSERT_EQ(lines.size(), 1U);
  EXPECT_NE(lines[0].find("lacks DEVLNK_OPEN"), std::string::npos) << lines[0];
  EXPECT_EQ(GetModuleHandleW(file.c_str()), nullptr);
  EXPECT_FALSE(finder.Find());
  EXPECT_EQ(lines.size(), 1U);
  std::filesystem::remove(file);  // possible, since it is not loaded
  EXPECT_FALSE(finder.Find());
  EXPECT_EQ(lines.size(), 2U);
}

TEST_F(DevlnkFinderTest, ErrorModeIsLeftAsItWas) {
  for (const UINT mode : {0U, UINT{SEM_NOGPFAULTERRORBOX}}) {
    const UINT before = SetErrorMode(mode);
    for (const char* bytes : {"", "no library"}) {
      Put(bytes);
      EXPECT_FALSE(finder.Find());
      EXPECT_EQ(GetErrorMode(), mode);
    }
    PutForeignLibrary();
    EXPECT_FALSE(finder.Find());
    EXPECT_EQ(GetErrorMode(), mode);
    SetErrorMode(before);
  }
}

}  // namespace
}  // namespace panelora::win32
