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

  // What a caller gets that may have room for one word where no second one is answered.
  struct WordAnswer {
    int result;
    std::size_t count;  // of the words that are answered: 0 to 2
    WordBuffer words;
  };
  // The same read, with as many words as the box has there that answers it: another program may
  // make it another box at any moment.
  WordAnswer ReadWords(DeviceHandle handle, std::uint32_t group, std::uint32_t item);

 private:
  // A call of the handle, and how many words an item has of the box that was asked.
  struct Made : Entry {
    std::size_t wordCount;
  };
  // Makes a call and writes down what came of it.
  Made Make(const Call& call, DeviceHandle handle);
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
