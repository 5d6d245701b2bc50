// The fixture of the tests of the finished program: starts the program, and at the end closes it
// and checks that it ended well, and where a trace is written, that it has the calls that reached
// the box.
#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "tests/windows/end_to_end/panel_process.h"

namespace panelora::testing::end_to_end {

class ProgramTest : public ::testing::Test {
 protected:
  PanelProcess& Start(const PanelProcess::Setup& setup = {}) {
    running = std::make_unique<PanelProcess>(setup);
    return *running;
  }

  void CloseAndCheck() {
    EXPECT_EQ(running->Close(), 0U);
    running.reset();
  }

  void TearDown() override {
    if (running != nullptr && !HasFailure()) {
      const bool asked = running->IsRunning();
      EXPECT_EQ(asked ? running->Close() : running->WaitForEnd(), 0U)
          << (asked ? "" : "it ended before the test did");
      if (running->IsTraced()) {
        EXPECT_EQ(running->TracedCalls(), running->JournaledCalls());
      }
    }
    running.reset();
  }

 private:
  std::unique_ptr<PanelProcess> running;
};

}  // namespace panelora::testing::end_to_end
