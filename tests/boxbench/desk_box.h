// A simulated box in memory with a panel's calls and the bench's hand on it.
#pragma once

#include <memory>

#include "simulator/benched_box.h"
#include "simulator/box_control.h"

namespace panelora::boxbench::testing {

// Time stands still unless a test moves it.
class StillHost final : public simulator::BoxHost {
 public:
  bool Lock() override { return !isKept; }
  void Unlock() override {}
  std::uint64_t Milliseconds() const override { return milliseconds; }
  std::uint64_t Microseconds() const override { return milliseconds * 1000; }
  std::uint64_t Time() const override { return time; }
  void Sleep(std::uint32_t much) override { milliseconds += much; }
  std::uint32_t Process() const override { return 7; }

  bool isKept = false;  // by another program
  std::uint64_t milliseconds = 1000;
  std::uint64_t time = 1000000;  // a second after midnight
};

class DeskBox {
 public:
  explicit DeskBox(const Identity& identity = simulator::BoxModel::kDefaultIdentity) {
    simulator::MakeBox(*shared, identity);
    handle = panel.Open(kOpenMode);
  }

  // The panel's calls.
  int Write(std::uint32_t item, std::uint32_t value) {
    return panel.SetBoxProperty(handle, kBoxGroup, item, value);
  }
  int Read(std::uint32_t item) {
    WordBuffer words{};
    return panel.GetBoxProperty(handle, kBoxGroup, item, words);
  }

 private:
  // Too large for a stack.
  std::unique_ptr<simulator::SharedBox> shared = std::make_unique<simulator::SharedBox>();

 public:
  StillHost host;
  simulator::BenchedBox panel{*shared, host, simulator::By::kPanel};
  simulator::BoxControl control{*shared, host, simulator::By::kBench};
  DeviceHandle handle = kNoBox;
  // Another hand than the bench's.
  simulator::BoxControl ControlBy(simulator::By hand) { return {*shared, host, hand}; }
};

}  // namespace panelora::boxbench::testing
