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

}  // namespace
}  // namespace panelora::boxbench::testing
