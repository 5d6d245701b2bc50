// The simulated box: answers like a box of a given model and keeps what is written. Type 26
// restores defaults and resets when told to; what makes another type do so is kept like any other
// value. Deterministic; it has no clock but the one that it is given.
#pragma once

#include <cstdint>
#include <functional>
#include <initializer_list>
#include <map>
#include <utility>
#include <vector>

#include "catalogue/defaults.h"
#include "device/box_types.h"
#include "device/device_link.h"
#include "device/identity.h"

namespace panelora::simulator {

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

  // Unplugs the box and plugs it in again; it keeps its settings.
  void SetPresent(bool nowPresent) { present = nowPresent; }
  bool IsPresent() const { return present && !IsRestarting(); }
  // Makes the box another one, with that one's defaults.
  void Become(const Identity& newIdentity, std::uint32_t newFirmware);

  // The box's memory: what reads answer. A block that the model does not have is empty and its
  // reads fail.
  std::vector<std::uint8_t>& Block(std::uint8_t property, std::uint8_t sub = 0);
  WordBuffer& Word(std::uint32_t item);
  ProcAmpBytes& Picture() { return picture; }
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
  bool IsModel26() const { return kShippedType.Has(identity.boxType); }
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
  std::uint8_t* ProcAmpValue(std::uint32_t control);

  Identity identity;
  std::uint32_t firmware;
  Clock clock;
  bool present = true;
  bool restarting = false;
  std::uint64_t restartedAt = 0;
  std::map<std::pair<std::uint8_t, std::uint8_t>, std::vector<std::uint8_t>> blocks;
  std::map<std::uint32_t, WordBuffer> words;
  ProcAmpBytes picture;
};

}  // namespace panelora::simulator
