// A box in any mood, with what it was asked and told.
#pragma once

#include <cstdint>
#include <random>
#include <utility>
#include <vector>

#include "device/call.h"
#include "simulator/box_model.h"

namespace panelora::fuzz {

enum class Mood {
  kRight,            // like the simulated box
  kFails,            // answers 0 and fills nothing
  kFillsAndFails,    // answers 0 and fills random bytes
  kAnswersTwo,       // fills rightly and answers 2
  kAnswersMinusOne,  // fills rightly and answers -1
  kGarbage,          // fills random bytes and answers 1
  kChangesItsMind,   // any of these, with every call anew
};
constexpr int kMoods = 7;

class HostileBox final : public DeviceLink {
 public:
  explicit HostileBox(simulator::BoxModel& theModel) : model(theModel) {}

  // `seed` decides what the random moods answer.
  void SetMood(Mood nowMood, std::uint32_t seed);
  // The calls since the last time.
  std::vector<Call> TakeCalls() { return std::exchange(calls, {}); }

  DeviceHandle Open(std::uint32_t mode) override;
  int GetKiraboxProperty(DeviceHandle handle, std::uint8_t property, std::uint8_t sub,
                         std::uint8_t length, BlockBuffer& out) override;
  int SetKiraboxProperty(DeviceHandle handle, std::uint8_t property, std::uint8_t sub,
                         std::uint8_t length, const BlockBuffer& bytes) override;
  int GetBoxProperty(DeviceHandle handle, std::uint32_t group, std::uint32_t item,
                     WordBuffer& out) override;
  int SetBoxProperty(DeviceHandle handle, std::uint32_t group, std::uint32_t item,
                     std::uint32_t value) override;
  int GetKiraboxProcAmp(DeviceHandle handle, ProcAmpBytes& out) override;
  int GetVideoProcAmp(DeviceHandle handle, std::uint32_t group, std::uint32_t control,
                      WordBuffer& out) override;
  int SetVideoProcAmp(DeviceHandle handle, std::uint32_t group, std::uint32_t control,
                      std::uint32_t value) override;

 private:
  Mood MoodOfCall();
  template <class Out, class Right, class Fill>
  int Read(Call call, const Out& out, Right right, Fill fill);
  template <class Right>
  int Write(Call call, Right right);
  std::uint32_t Random(std::uint32_t bound) { return static_cast<std::uint32_t>(random()) % bound; }

  simulator::BoxModel& model;
  Mood mood = Mood::kRight;
  std::minstd_rand random;
  std::vector<Call> calls;
};

}  // namespace panelora::fuzz
