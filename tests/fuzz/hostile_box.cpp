#include "tests/fuzz/hostile_box.h"

#include <algorithm>

#include "simulator/call_text.h"

namespace panelora::fuzz {

std::string TextOf(const Call& call) {
  switch (call.kind) {
    case Call::Kind::kOpen:
      return simulator::OpenText(call.number);
    case Call::Kind::kGetBlock:
      return simulator::GetBlockText(static_cast<int>(call.number), call.sub, call.length);
    case Call::Kind::kSetBlock: {
      BlockBuffer bytes{};
      std::copy(call.bytes.begin(), call.bytes.end(), bytes.begin());
      return simulator::SetBlockText(static_cast<int>(call.number), call.sub, call.length, bytes);
    }
    case Call::Kind::kGetWord:
      return simulator::GetWordText(0, call.number);
    case Call::Kind::kSetWord:
      return simulator::SetWordText(0, call.number, call.value);
    case Call::Kind::kGetPicture:
      return simulator::GetProcAmpText();
    case Call::Kind::kGetProcAmp:
      return simulator::GetProcAmpText(0, call.number);
    case Call::Kind::kSetProcAmp:
      return simulator::SetProcAmpText(0, call.number, call.value);
  }
  return "";
}

void HostileBox::SetMood(Mood nowMood, std::uint32_t seed) {
  mood = nowMood;
  random.seed(seed);
}

Mood HostileBox::MoodOfCall() {
  return mood == Mood::kChangesItsMind ? static_cast<Mood>(Random(kMoods - 1)) : mood;
}

template <class Right, class Fill>
int HostileBox::Read(Call call, Right right, Fill fill) {
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
  call.succeeded = result == kSuccess;
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
  call.succeeded = result == kSuccess;
  calls.push_back(std::move(call));
  return result;
}

// Even a box in a bad mood is there or not: a failing open is a box that was unplugged.
DeviceHandle HostileBox::Open(std::uint32_t mode) {
  const DeviceHandle handle = model.Open(mode);
  calls.push_back({.kind = Call::Kind::kOpen, .number = mode, .succeeded = handle != kNoBox});
  return handle;
}

int HostileBox::GetKiraboxProperty(DeviceHandle handle, std::uint8_t property, std::uint8_t sub,
                                   std::uint8_t length, BlockBuffer& out) {
  return Read(
      {.kind = Call::Kind::kGetBlock, .number = property, .sub = sub, .length = length},
      [&] { return model.GetKiraboxProperty(handle, property, sub, length, out); },
      [&] {
        std::generate_n(out.begin(), length, [&] { return static_cast<std::uint8_t>(random()); });
      });
}

int HostileBox::SetKiraboxProperty(DeviceHandle handle, std::uint8_t property, std::uint8_t sub,
                                   std::uint8_t length, const BlockBuffer& bytes) {
  return Write({.kind = Call::Kind::kSetBlock,
                .number = property,
                .sub = sub,
                .length = length,
                .bytes = {bytes.begin(), bytes.begin() + length}},
               [&] { return model.SetKiraboxProperty(handle, property, sub, length, bytes); });
}

int HostileBox::GetBoxProperty(DeviceHandle handle, std::uint32_t group, std::uint32_t item,
                               WordBuffer& out) {
  return Read(
      {.kind = Call::Kind::kGetWord, .number = item},
      [&] { return model.GetBoxProperty(handle, group, item, out); },
      [&] {
        for (std::uint32_t& word : out) word = static_cast<std::uint32_t>(random());
      });
}

int HostileBox::SetBoxProperty(DeviceHandle handle, std::uint32_t group, std::uint32_t item,
                               std::uint32_t value) {
  return Write({.kind = Call::Kind::kSetWord, .number = item, .value = value},
               [&] { return model.SetBoxProperty(handle, group, item, value); });
}

int HostileBox::GetKiraboxProcAmp(DeviceHandle handle, ProcAmpBytes& out) {
  const auto byte = [&] { return static_cast<std::uint8_t>(random()); };
  return Read(
      {.kind = Call::Kind::kGetPicture}, [&] { return model.GetKiraboxProcAmp(handle, out); },
      [&] {
        out = {byte(), byte(), byte(), byte()};
      });
}

int HostileBox::GetVideoProcAmp(DeviceHandle handle, std::uint32_t group, std::uint32_t control,
                                WordBuffer& out) {
  return Read(
      {.kind = Call::Kind::kGetProcAmp, .number = control},
      [&] { return model.GetVideoProcAmp(handle, group, control, out); },
      [&] { out[0] = static_cast<std::uint32_t>(random()); });
}

int HostileBox::SetVideoProcAmp(DeviceHandle handle, std::uint32_t group, std::uint32_t control,
                                std::uint32_t value) {
  return Write({.kind = Call::Kind::kSetProcAmp, .number = control, .value = value},
               [&] { return model.SetVideoProcAmp(handle, group, control, value); });
}

}  // namespace panelora::fuzz
