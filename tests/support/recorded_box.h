// The simulated box with every call written down, and with calls that fail when a test says so.
#pragma once

#include <set>
#include <string>
#include <utility>
#include <vector>

#include "simulator/box_model.h"
#include "simulator/call_text.h"

namespace panelora::testing {

using Calls = std::vector<std::string>;

class RecordedBox final : public DeviceLink {
 public:
  explicit RecordedBox(simulator::BoxModel& theBox) : box(theBox) {}

  // The calls since the last time, in order, as simulator/call_text.h writes them.
  Calls TakeCalls() { return std::exchange(calls, {}); }

  // From now on the call of this text fails.
  void Fail(const std::string& call) { failing.insert(call); }
  void FailEverything() { failsAll = true; }
  void FailNothing() {
    failing.clear();
    failsAll = false;
  }
  // Open answers this handle instead of the box's own while the box is there.
  void AnswerHandle(DeviceHandle value) { handle = value; }

  DeviceHandle Open(std::uint32_t mode) override {
    const std::string call = Note(simulator::OpenText(mode));
    const DeviceHandle opened = box.Open(mode);
    if (failing.contains(call) || opened == kNoBox) return kNoBox;
    return handle;
  }
  int GetKiraboxProperty(DeviceHandle used, std::uint8_t property, std::uint8_t sub,
                         std::uint8_t length, BlockBuffer& out) override {
    if (Fails(simulator::GetBlockText(property, sub, length))) return 0;
    return box.GetKiraboxProperty(Known(used), property, sub, length, out);
  }
  int SetKiraboxProperty(DeviceHandle used, std::uint8_t property, std::uint8_t sub,
                         std::uint8_t length, const BlockBuffer& bytes) override {
    if (Fails(simulator::SetBlockText(property, sub, length, bytes))) return 0;
    return box.SetKiraboxProperty(Known(used), property, sub, length, bytes);
  }
  int GetBoxProperty(DeviceHandle used, std::uint32_t group, std::uint32_t item,
                     WordBuffer& out) override {
    if (Fails(simulator::GetWordText(group, item))) return 0;
    return box.GetBoxProperty(Known(used), group, item, out);
  }
  int SetBoxProperty(DeviceHandle used, std::uint32_t group, std::uint32_t item,
                     std::uint32_t value) override {
    if (Fails(simulator::SetWordText(group, item, value))) return 0;
    return box.SetBoxProperty(Known(used), group, item, value);
  }
  int GetKiraboxProcAmp(DeviceHandle used, ProcAmpBytes& out) override {
    if (Fails(simulator::GetProcAmpText())) return 0;
    return box.GetKiraboxProcAmp(Known(used), out);
  }
  int GetVideoProcAmp(DeviceHandle used, std::uint32_t group, std::uint32_t control,
                      WordBuffer& out) override {
    if (Fails(simulator::GetProcAmpText(group, control))) return 0;
    return box.GetVideoProcAmp(Known(used), group, control, out);
  }
  int SetVideoProcAmp(DeviceHandle used, std::uint32_t group, std::uint32_t control,
                      std::uint32_t value) override {
    if (Fails(simulator::SetProcAmpText(group, control, value))) return 0;
    return box.SetVideoProcAmp(Known(used), group, control, value);
  }

 private:
  const std::string& Note(const std::string& call) {
    calls.push_back(call);
    return calls.back();
  }
  bool Fails(const std::string& call) { return failing.contains(Note(call)) || failsAll; }
  DeviceHandle Known(DeviceHandle used) const {
    return used == handle ? simulator::BoxModel::kHandle : kNoBox;
  }

  simulator::BoxModel& box;
  Calls calls;
  std::set<std::string> failing;
  bool failsAll = false;
  DeviceHandle handle = simulator::BoxModel::kHandle;
};

}  // namespace panelora::testing
