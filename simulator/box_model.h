// The simulated box: answers like a box of a given model and keeps what is written. Type 26
// restores defaults and resets when told to; what makes another type do so is kept like any other
// value. Deterministic; it has no clock but the one that it is given.
#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>
#include <vector>

#include "catalogue/defaults.h"
#include "device/box_types.h"
#include "device/device_link.h"
#include "device/identity.h"
#include "simulator/box_memory.h"

namespace panelora::simulator {

// The value of a picture control; null where the control has none.
std::uint8_t* PictureValue(ProcAmpBytes& picture, std::uint32_t control);

class BoxModel final : public DeviceLink {
 public:
  // Milliseconds since any fixed moment.
  using Clock = std::function<std::uint64_t()>;

  static constexpr Identity kDefaultIdentity = {26, 0, 0, 0, 0};
  static constexpr std::uint32_t kDefaultFirmware = 0x0126;  // every option of model 26 shows
  static constexpr DeviceHandle kHandle = 0x00010001;
  static constexpr std::uint64_t kRestartTime = 5000;  // ms that a hardware reset takes

  explicit BoxModel(const Identity& theIdentity = kDefaultIdentity,
                    std::uint32_t theFirmware = kDefaultFirmware, Clock theClock = {});

  // The box that `theMemory` holds, which outlives this; it stays as it is.
  BoxModel(BoxMemory& theMemory, Clock theClock) : clock(std::move(theClock)), memory(theMemory) {}

  // Unplugs the box and plugs it in again; it keeps its settings.
  void SetPresent(bool nowPresent) { memory.present = nowPresent; }
  bool IsPresent() const { return memory.present && !IsRestarting(); }
  // Makes the box another one, with that one's defaults.
  void Become(const Identity& newIdentity, std::uint32_t newFirmware);
  // Makes it the box that was kept.
  void Load(const BoxMemory& kept);
  // Where a program died while it made the box, gives it its defaults: half a box is none.
  void Mend() {
    if (memory.beingMade) Reset();
  }
  // What the inputs are told to receive stays whatever source is chosen, until it becomes another
  // box or is reset.
  void KeepInput() { memory.inputIsGiven = true; }
  // As the maker's defaults have it, and at once.
  void Reset() { Become(memory.identity, memory.firmware); }

  // The box's memory: what reads answer. A block that the model does not have is empty and its
  // reads fail; one that no box can have is empty whatever is put there.
  KeptBlock& Block(std::uint8_t property, std::uint8_t sub = 0);
  // Whether a box can have such a block.
  static bool CanHave(std::uint8_t property, std::uint8_t sub);
  WordBuffer& Word(std::uint32_t item);  // has the item from now on
  ProcAmpBytes& Picture() { return memory.picture; }
  // The items of which a library fills two words; of the others one.
  bool HasTwoWords(std::uint32_t item) const;

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
  bool Answers(DeviceHandle handle) const { return handle == kHandle && IsPresent(); }
  bool IsRestarting() const;
  void SetBeingMade(bool isBeingMade);
  bool IsModel26() const { return kShippedType.Has(memory.identity.boxType); }
  std::uint64_t Now() const { return clock ? clock() : 0; }
  void RestoreEverything();
  void Store(const Default& value);
  void Restore(std::initializer_list<Address> addresses);
  void RestoreProcAmp();
  void ReportInputFormat();
  bool StoreToldElsewhere(const Address& at, std::uint8_t value);
  bool StoreMultiView(std::uint8_t property, std::uint8_t length, const BlockBuffer& bytes);
  void StoreChannelCode(std::uint8_t code);
  void ReportOutput(std::uint8_t property, std::uint8_t value);
  void RunCommand(std::uint32_t number);

  Clock clock;
  std::unique_ptr<BoxMemory> own;  // where it is this object's alone
  BoxMemory& memory;
  KeptBlock noBlock{};
  WordBuffer noWord{};
};

}  // namespace panelora::simulator
