// The simulated box with every call written down, and with calls that fail when a test says so.
#pragma once

#include <map>
#include <set>
#include <string>
#include <utility>

#include "device/call.h"
#include "simulator/box_model.h"
#include "tests/support/device_calls.h"

namespace panelora::testing {

class RecordedBox final : public DeviceLink {
 public:
  explicit RecordedBox(simulator::BoxModel& theBox) : box(theBox) {}

  // The calls since the last time, in order.
  std::vector<Call> TakeMade() { return std::exchange(calls, {}); }
  // The same as TextOf writes them.
  Calls TakeCalls() {
    Calls texts;
    for (const Call& call : TakeMade()) texts.push_back(TextOf(call));
    return texts;
  }

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
    Call call = Call::Open(mode);
    const DeviceHandle opened = box.Open(mode);
    const bool found = opened != kNoBox && !IsIn(failing, call);
    call.result = found ? kSuccess : 0;
    calls.push_back(std::move(call));
    return found ? handle : kNoBox;
  }
  int GetKiraboxProperty(DeviceHandle used, std::uint8_t property, std::uint8_t sub,
                         std::uint8_t length, BlockBuffer& out) override {
    return Read(Call::GetBlock(property, sub, length), out,
                [&] { return box.GetKiraboxProperty(Known(used), property, sub, length, out); });
  }
  int SetKiraboxProperty(DeviceHandle used, std::uint8_t property, std::uint8_t sub,
                         std::uint8_t length, const BlockBuffer& bytes) override {
    return Write(Call::SetBlock(property, sub, length, bytes),
                 [&] { return box.SetKiraboxProperty(Known(used), property, sub, length, bytes); });
  }
  int GetBoxProperty(DeviceHandle used, std::uint32_t group, std::uint32_t item,
                     WordBuffer& out) override {
    return Read(Call::GetWord(group, item), out,
                [&] { return box.GetBoxProperty(Known(used), group, item, out); });
  }
  int SetBoxProperty(DeviceHandle used, std::uint32_t group, std::uint32_t item,
                     std::uint32_t value) override {
    return Write(Call::SetWord(group, item, value),
                 [&] { return box.SetBoxProperty(Known(used), group, item, value); });
  }
  int GetKiraboxProcAmp(DeviceHandle used, ProcAmpBytes& out) override {
    return Read(Call::GetPicture(), out, [&] { return box.GetKiraboxProcAmp(Known(used), out); });
  }
  int GetVideoProcAmp(DeviceHandle used, std::uint32_t group, std::uint32_t control,
                      WordBuffer& out) override {
    return Read(Call::GetProcAmp(group, control), out,
                [&] { return box.GetVideoProcAmp(Known(used), group, control, out); });
  }
  int SetVideoProcAmp(DeviceHandle used, std::uint32_t group, std::uint32_t control,
                      std::uint32_t value) override {
    return Write(Call::SetProcAmp(group, control, value),
                 [&] { return box.SetVideoProcAmp(Known(used), group, control, value); });
  }

 private:
  static bool IsIn(const std::set<std::string>& texts, const Call& call) {
    return !texts.empty() && texts.contains(TextOf(call));
  }
  bool Fails(const Call& call) const { return failsAll || IsIn(failing, call); }
  template <class Action>
  int ResultOfRead(const Call& call, Action read) {
    if (Fails(call)) return 0;
    if (IsIn(empty, call)) return kSuccess;
    const int result = read();
    if (results.empty()) return result;
    const auto other = results.find(TextOf(call));
    return other == results.end() ? result : other->second;
  }
  template <class Out, class Action>
  int Read(Call call, const Out& out, Action read) {
    call.result = ResultOfRead(call, read);
    if (call.Succeeded()) call.Take(out);
    calls.push_back(std::move(call));
    return calls.back().result;
  }
  template <class Action>
  int Write(Call call, Action write) {
    call.result = Fails(call) ? 0 : write();
    calls.push_back(std::move(call));
    return calls.back().result;
  }
  DeviceHandle Known(DeviceHandle used) const {
    return used == handle ? simulator::BoxModel::kHandle : kNoBox;
  }

  simulator::BoxModel& box;
  std::vector<Call> calls;
  std::set<std::string> failing;
  std::set<std::string> empty;
  std::map<std::string, int> results;
  bool failsAll = false;
  DeviceHandle handle = simulator::BoxModel::kHandle;
};

}  // namespace panelora::testing
