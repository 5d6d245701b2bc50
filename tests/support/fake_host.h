// A host of the shared box for tests: its clocks stand until they are moved.
#pragma once

#include <functional>
#include <memory>

#include "simulator/box_control.h"
#include "simulator/shared_box.h"

namespace panelora::testing {

class FakeHost final : public simulator::BoxHost {
 public:
  bool Lock() override {
    if (refuses || locked) return false;
    locked = true;
    ++locks;
    return true;
  }
  void Unlock() override { locked = false; }
  std::uint64_t Milliseconds() const override { return now; }
  std::uint64_t Microseconds() const override { return now * 1000; }
  std::uint64_t Time() const override { return 1'700'000'000'000'000 + now * 1000; }
  void Sleep(std::uint32_t milliseconds) override {
    sleptLocked |= locked;
    now += milliseconds;
    if (whileSleeping) whileSleeping();
  }
  std::uint32_t Process() const override { return 4711; }

  std::uint64_t now = 1;  // ms
  bool refuses = false;   // another one keeps the box
  bool locked = false;
  bool sleptLocked = false;
  int locks = 0;
  std::function<void()> whileSleeping;
};

// An untouched box in memory of its own.
inline std::unique_ptr<simulator::SharedBox> NewSharedBox() {
  auto shared = std::make_unique<simulator::SharedBox>();
  simulator::MakeBox(*shared);
  return shared;
}

}  // namespace panelora::testing
