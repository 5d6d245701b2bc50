// A text that is saved: as it is, and never half.
#include "boxbench/save_text.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>
#include <iterator>

namespace panelora::boxbench {
namespace {

namespace fs = std::filesystem;

class SaveTextTest : public ::testing::Test {
 protected:
  SaveTextTest() { fs::create_directories(folder); }
  ~SaveTextTest() override { fs::remove_all(folder); }
  std::string Saved() const {
    std::ifstream saved(file, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(saved), {});
  }
  std::size_t FilesInFolder() const {
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
  }

  fs::path folder =
      fs::temp_directory_path() / ("boxbench-save-" + std::to_string(static_cast<int>(getpid())));
  fs::path file = folder / u8"\u043A\u043E \u043B.txt";
};

TEST_F(SaveTextTest, IsTheFileAsItIsAndNothingBeside) {
  EXPECT_TRUE(SaveText(file, "a\tb\r\n"));
  EXPECT_EQ(Saved(), "a\tb\r\n");
  EXPECT_TRUE(SaveText(file, "c"));
  EXPECT_EQ(Saved(), "c");
  EXPECT_EQ(FilesInFolder(), 1U);
}

TEST_F(SaveTextTest, WhatCanNotBeWrittenLeavesTheFileThatWasThere) {
  SaveText(file, "before");
  fs::path beside = file;
  beside += ".boxbench-new";
  fs::create_directories(beside / "full");
  EXPECT_FALSE(SaveText(file, "after"));
  EXPECT_EQ(Saved(), "before");
}

TEST_F(SaveTextTest, IsNothingWhereNoFileCanBe) {
  EXPECT_FALSE(SaveText(folder / "missing" / "calls.txt", "a"));
  fs::create_directories(file / "full");
  EXPECT_FALSE(SaveText(file, "a"));
  EXPECT_EQ(FilesInFolder(), 1U);
}

}  // namespace
}  // namespace panelora::boxbench
