// The simulated box with every call written down, and with calls that fail when a test says so.
#pragma once

#include <map>
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

  // From now on the call of this text fails: it answers 0 and fills nothing.
  void Fail(const std::string& call) { failing.insert(call); }
  void FailEverything() { failsAll = true; }
  void FailNothing() {
    failing.clear();
    failsAll = false;
    results.clear();
  }
  // From now on a read of this text fills what it is given, and answers something else than
  // success.
  void FillAndAnswer(const std::string& call, int result) { results[call] = result; }
  // Or it answers success and fills nothing.
  void FillNothing(const std::string& call) { empty.insert(call); }
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
    return Read(simulator::GetBlockText(property, sub, length),
                [&] { return box.GetKiraboxProperty(Known(used), property, sub, length, out); });
  }
  int SetKiraboxProperty(DeviceHandle used, std::uint8_t property, std::uint8_t sub,
                         std::uint8_t length, const BlockBuffer& bytes) override {
    if (Fails(simulator::SetBlockText(property, sub, length, bytes))) return 0;
    return box.SetKiraboxProperty(Known(used), property, sub, length, bytes);
  }
  int GetBoxProperty(DeviceHandle used, std::uint32_t group, std::uint32_t item,
                     WordBuffer& out) override {
    return Read(simulator::GetWordText(group, item),
                [&] { return box.GetBoxProperty(Known(used), group, item, out); });
  }
  int SetBoxProperty(DeviceHandle used, std::uint32_t group, std::uint32_t item,
                     std::uint32_t value) override {
    if (Fails(simulator::SetWordText(group, item, value))) return 0;
    return box.SetBoxProperty(Known(used), group, item, value);
  }
  int GetKiraboxProcAmp(DeviceHandle used, ProcAmpBytes& out) override {
    return Read(simulator::GetProcAmpText(),
                [&] { return box.GetKiraboxProcAmp(Known(used), out); });
  }
  int GetVideoProcAmp(DeviceHandle used, std::uint32_t group, std::uint32_t control,
                      WordBuffer& out) override {
    return Read(simulator::GetProcAmpText(group, control),
                [&] { return box.GetVideoProcAmp(Known(used), group, control, out); });
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
  template <class Action>
  int Read(const std::string& call, Action read) {
    if (Fails(call)) return 0;
    if (empty.contains(call)) return kSuccess;
    const int result = read();
    const auto other = results.find(call);
    return other == results.end() ? result : other->second;
  }
  DeviceHandle Known(DeviceHandle used) const {
    return used == handle ? simulator::BoxModel::kHandle : kNoBox;
  }

  simulator::BoxModel& box;
  Calls calls;
  std::set<std::string> failing;
  std::set<std::string> empty;
  std::map<std::string, int> results;
  bool failsAll = false;
  DeviceHandle handle = simulator::BoxModel::kHandle;
};

}  // namespace panelora::testing
