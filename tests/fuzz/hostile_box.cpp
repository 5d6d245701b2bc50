#include "tests/fuzz/hostile_box.h"

#include <algorithm>

namespace panelora::fuzz {

void HostileBox::SetMood(Mood nowMood, std::uint32_t seed) {
  mood = nowMood;
  random.seed(seed);
}

Mood HostileBox::MoodOfCall() {
  return mood == Mood::kChangesItsMind ? static_cast<Mood>(Random(kMoods - 1)) : mood;
}

template <class Out, class Right, class Fill>
int HostileBox::Read(Call call, const Out& out, Right right, Fill fill) {
  int result = 0;
  switch (MoodOfCall()) {
    case Mood::kRight:
    case Mood::kChangesItsMind:
      result = right();
      break;
    case Mood::kFails:
      break;
    case Mood::kFillsAndFails:
      fill();
      break;
    case Mood::kAnswersTwo:
      if (right() == kSuccess) result = 2;
      break;
    case Mood::kAnswersMinusOne:
      if (right() == kSuccess) result = -1;
      break;
    case Mood::kGarbage:
      fill();
      result = kSuccess;
      break;
  }
  call.result = result;
  if (call.Succeeded()) call.Take(out);
  calls.push_back(std::move(call));
  return result;
}

template <class Right>
int HostileBox::Write(Call call, Right right) {
  int result = 0;
  switch (MoodOfCall()) {
    case Mood::kRight:
    case Mood::kChangesItsMind:
      result = right();
      break;
    case Mood::kFails:
    case Mood::kFillsAndFails:
      break;
    case Mood::kAnswersTwo:
      result = 2;
      break;
    case Mood::kAnswersMinusOne:
      result = -1;
      break;
    case Mood::kGarbage:
      result = static_cast<int>(random());
      break;
  }
  call.result = result;
  calls.push_back(std::move(call));
  return result;
}

// Even a box in a bad mood is there or not: a failing open is a box that was unplugged.
DeviceHandle HostileBox::Open(std::uint32_t mode) {
  const DeviceHandle handle = model.Open(mode);
  Call call = Call::Open(mode);
  call.result = handle != kNoBox ? kSuccess : 0;
  calls.push_back(std::move(call));
  return handle;
}

int HostileBox::GetKiraboxProperty(DeviceHandle handle, std::uint8_t property, std::uint8_t sub,
                                   std::uint8_t length, BlockBuffer& out) {
  return Read(
      Call::GetBlock(property, sub, length), out,
      [&] { return model.GetKiraboxProperty(handle, property, sub, length, out); },
      [&] {
        std::generate_n(out.begin(), length, [&] { return static_cast<std::uint8_t>(random()); });
      });
}

int HostileBox::SetKiraboxProperty(DeviceHandle handle, std::uint8_t property, std::uint8_t sub,
                                   std::uint8_t length, const BlockBuffer& bytes) {
  return Write(Call::SetBlock(property, sub, length, bytes),
               [&] { return model.SetKiraboxProperty(handle, property, sub, length, bytes); });
}

int HostileBox::GetBoxProperty(DeviceHandle handle, std::uint32_t group, std::uint32_t item,
                               WordBuffer& out) {
  return Read(
      Call::GetWord(group, item), out,
      [&] { return model.GetBoxProperty(handle, group, item, out); },
      [&] {
        for (std::uint32_t& word : out) word = static_cast<std::uint32_t>(random());
      });
}

int HostileBox::SetBoxProperty(DeviceHandle handle, std::uint32_t group, std::uint32_t item,
                               std::uint32_t value) {
  return Write(Call::SetWord(group, item, value),
               [&] { return model.SetBoxProperty(handle, group, item, value); });
}

int HostileBox::GetKiraboxProcAmp(DeviceHandle handle, ProcAmpBytes& out) {
  const auto byte = [&] { return static_cast<std::uint8_t>(random()); };
  return Read(
      Call::GetPicture(), out, [&] { return model.GetKiraboxProcAmp(handle, out); },
      [&] {
        out = {byte(), byte(), byte(), byte()};
      });
}

int HostileBox::GetVideoProcAmp(DeviceHandle handle, std::uint32_t group, std::uint32_t control,
                                WordBuffer& out) {
  return Read(
      Call::GetProcAmp(group, control), out,
      [&] { return model.GetVideoProcAmp(handle, group, control, out); },
      [&] { out[0] = static_cast<std::uint32_t>(random()); });
}

int HostileBox::SetVideoProcAmp(DeviceHandle handle, std::uint32_t group, std::uint32_t control,
                                std::uint32_t value) {
  return Write(Call::SetProcAmp(group, control, value),
               [&] { return model.SetVideoProcAmp(handle, group, control, value); });
}

}  // namespace panelora::fuzz
