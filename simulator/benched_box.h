// The shared box as the device link sees it: the calls of a program go through faults, replay and
// box, and are kept in the journal.
#pragma once

#include "device/device_link.h"
#include "simulator/box_model.h"
#include "simulator/shared_box.h"

namespace panelora::simulator {

class BenchedBox final : public DeviceLink {
 public:
  // Both outlive it.
  BenchedBox(SharedBox& theShared, BoxHost& theHost, By theCaller);

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

  // Whether a word item is answered with two words.
  bool HasTwoWords(std::uint32_t item) const { return box.HasTwoWords(item); }

 private:
  // Makes a call of the handle and writes down what came of it.
  Entry Make(const Call& call, DeviceHandle handle);
  void Answer(Entry& entry, DeviceHandle handle);
  void AskBox(Entry& entry, DeviceHandle handle);
  bool AskReplay(Entry& entry);
  bool GoesWrong(const Entry& entry);
  void FillAtRandom(Entry& entry);

  SharedBox& shared;
  BoxHost& host;
  By caller;
  BoxModel box;
};

}  // namespace panelora::simulator
