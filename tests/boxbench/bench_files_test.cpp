// What leaves BoxBench: calls that are copied, and the log that is saved.
#include <gtest/gtest.h>

#include "tests/boxbench/bench_process.h"

namespace panelora::boxbench::testing {
namespace {

using namespace control;  // NOLINT: every line names some

TEST_F(BenchTest, SaysThatNothingIsCopiedWhileAnotherProgramKeepsTheClipboard) {
  StartBench();
  ASSERT_TRUE(OpenClipboard(nullptr));
  bench->Press(kCopy);
  CloseClipboard();
  EXPECT_EQ(Status(), "Another program keeps the clipboard: try again.");
  bench->Press(kCopy);
  EXPECT_EQ(Status(), "1 call is on the clipboard.");
}

// Whatever code page the system has: these letters are not of one together.
TEST_F(BenchTest, SavesTheLogUnderEveryName) {
  logFile.replace_filename(logFile.stem().wstring() + L" \x017E\x0436\x03B6\x3042.txt");
  StartBench();
  bench->Press(kSave);
  EXPECT_EQ(Status().find("1 call is saved in "), 0U) << Status();
  EXPECT_NE(SavedLog().find("Open: a box"), std::string::npos);
}

TEST_F(BenchTest, SaysThatTheLogCanNotBeWritten) {
  logFile = logFile.parent_path() / desk / "calls.txt";
  StartBench();
  bench->Press(kSave);
  EXPECT_EQ(Status(),
            "The log can't be written to " + logFile.string() + ": choose another place.");
}

}  // namespace
}  // namespace panelora::boxbench::testing
