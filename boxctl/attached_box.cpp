#include "boxctl/attached_box.h"

#include <algorithm>
#include <array>

#include "boxctl/failure.h"
#include "catalogue/codecs.h"
#include "catalogue/information.h"
#include "catalogue/picture.h"

namespace panelora::boxctl {

AttachedBox::AttachedBox(DeviceLink& theLink) : link(theLink), handle(theLink.Open(kOpenMode)) {
  if (handle == kNoBox) {
    throw Failure(Exit::kNoBox, "no box answers: plug it in and switch it on");
  }
  const Call told = AskBlock(kIdentityBlock);
  if (!told.Succeeded()) {
    throw Failure(Exit::kNoBox, "the box does not tell what it is: unplug it and plug it in again");
  }
  identity = DecodeIdentity(told.bytes);
  const Call version = Ask(information::FirmwareOf(identity.boxType));
  if (version.Succeeded()) firmware = DecodeFirmware(version.words);
}

bool AttachedBox::IsThere() const {
  const Call told = AskBlock(kIdentityBlock);
  return told.Succeeded() && DecodeIdentity(told.bytes) == identity;
}

Call AttachedBox::AskBlock(const Address& at) const {
  Call call = Call::GetBlock(at.number, at.sub, at.readLength);
  BlockBuffer bytes{};
  call.result = link.GetKiraboxProperty(handle, at.number, at.sub, at.readLength, bytes);
  call.Take(bytes);
  return call;
}

Call AttachedBox::AskPicture(const Address& at) const {
  Call call = Call::GetProcAmp(kBoxGroup, at.number);
  WordBuffer words{};
  if (picture::kToldOneByOne.Has(identity.boxType)) {
    call.result = link.GetVideoProcAmp(handle, kBoxGroup, at.number, words);
  } else {
    // What its result says is not known: it has answered where it filled something.
    constexpr ProcAmpBytes kUntouched = {0xA5, 0x5A, 0xC3, 0x3C};
    ProcAmpBytes all = kUntouched;
    call.result = link.GetKiraboxProcAmp(handle, all);
    if (all != kUntouched) call.result = kSuccess;
    switch (at.number) {
      case proc_amp::kBrightness:
        words[0] = all.brightness;
        break;
      case proc_amp::kContrast:
        words[0] = all.contrast;
        break;
      case proc_amp::kHue:
        words[0] = all.hue;
        break;
      default:
        words[0] = all.saturation;
        break;
    }
  }
  call.Take(words);
  return call;
}

Call AttachedBox::Ask(const Address& at) const {
  if (at.kind == Address::Kind::kBlock) return AskBlock(at);
  if (at.kind == Address::Kind::kProcAmp) return AskPicture(at);
  Call call = Call::GetWord(kBoxGroup, at.number);
  WordBuffer words{};
  call.result = link.GetBoxProperty(handle, kBoxGroup, at.number, words);
  call.Take(words);
  return call;
}

bool AttachedBox::TellsBack(const Address& picture, std::uint8_t value) const {
  const Call answer = AskPicture(picture);
  return answer.Succeeded() && answer.words[0] == value;
}

bool AttachedBox::Tell(const Address& at, std::span<const std::uint8_t> bytes) const {
  switch (at.kind) {
    case Address::Kind::kBlock: {
      BlockBuffer buffer{};
      std::copy(bytes.begin(), bytes.end(), buffer.begin());
      const auto length = static_cast<std::uint8_t>(bytes.size());
      return link.SetKiraboxProperty(handle, at.number, at.sub, length, buffer) == kSuccess;
    }
    case Address::Kind::kWord:
      return link.SetBoxProperty(handle, kBoxGroup, at.number, bytes.front()) == kSuccess;
    case Address::Kind::kProcAmp:
      // The same here: it has taken the value that it tells back.
      if (link.SetVideoProcAmp(handle, kBoxGroup, at.number, bytes.front()) == kSuccess)
        return true;
      return TellsBack(at, bytes.front());
    case Address::Kind::kNone:
      break;
  }
  return false;
}

void AttachedBox::KeepPicture() const {
  constexpr std::array<std::uint8_t, 1> kStored = {1};
  if (picture::Commits(identity, Firmware())) Tell(ProcAmp(proc_amp::kCommit), kStored);
}

Call WriteTo(const Address& at, std::span<const std::uint8_t> bytes) {
  if (at.kind == Address::Kind::kBlock) {
    BlockBuffer buffer{};
    std::copy(bytes.begin(), bytes.end(), buffer.begin());
    return Call::SetBlock(at.number, at.sub, static_cast<std::uint8_t>(bytes.size()), buffer);
  }
  if (at.kind == Address::Kind::kProcAmp) {
    return Call::SetProcAmp(kBoxGroup, at.number, bytes.front());
  }
  return Call::SetWord(kBoxGroup, at.number, bytes.front());
}

}  // namespace panelora::boxctl
