// The device link: the eight operations through which all traffic with the box goes.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace panelora {

// What DEVLNK_OPEN answers; first argument of every other call. There is no close: opening again
// simply gives the handle to use from then on.
using DeviceHandle = std::uint32_t;

// The only handle value that means "no box answered"; every other value is a handle.
constexpr DeviceHandle kNoBox = 0x80000000U;

// The mode that Open always gets.
constexpr std::uint32_t kOpenMode = 2;

// The result that means success; every other value is a failure.
constexpr int kSuccess = 1;

// Receives a block property. The length of a request is one byte, so a block of 256 bytes can't be
// overrun by an answer of any length that can be asked for.
using BlockBuffer = std::array<std::uint8_t, 256>;

// Receives a word property: some answer with two words, whichever item was asked for.
using WordBuffer = std::array<std::uint32_t, 2>;

// The group of every word property and of every picture control.
constexpr std::uint32_t kBoxGroup = 0;

// The sub-number of every block property but the input labels.
constexpr std::uint8_t kNoSub = 0;

// Picture controls of Get/SetVideoProcAmp.
namespace proc_amp {
constexpr std::uint32_t kBrightness = 2;  // 0 to 255, as the next three
constexpr std::uint32_t kContrast = 3;
constexpr std::uint32_t kHue = 4;
constexpr std::uint32_t kSaturation = 5;
constexpr std::uint32_t kCommit = 255;  // told: 1 store, 0 preview
}  // namespace proc_amp

// The four picture values, 0 to 255 each.
struct ProcAmpBytes {
  std::uint8_t brightness = 128;
  std::uint8_t contrast = 128;
  std::uint8_t hue = 128;
  std::uint8_t saturation = 128;

  bool operator==(const ProcAmpBytes&) const = default;
};
constexpr std::size_t kPictureBytes = sizeof(ProcAmpBytes);

// One object per program. All calls come from the user-interface thread and are synchronous. Calls
// are made with kNoBox too and must then fail without harm. Buffers keep what a failed call left in
// them; callers look at them only after kSuccess unless they say otherwise.
class DeviceLink {
 public:
  virtual ~DeviceLink() = default;

  // The device handle, or kNoBox.
  virtual DeviceHandle Open(std::uint32_t mode) = 0;

  // Block properties: `length` bytes of (property, sub-number).
  virtual int GetKiraboxProperty(DeviceHandle handle, std::uint8_t property, std::uint8_t sub,
                                 std::uint8_t length, BlockBuffer& out) = 0;
  virtual int SetKiraboxProperty(DeviceHandle handle, std::uint8_t property, std::uint8_t sub,
                                 std::uint8_t length, const BlockBuffer& bytes) = 0;

  // Word properties: one 32-bit value (for the firmware and format code items two) of (group,
  // item).
  virtual int GetBoxProperty(DeviceHandle handle, std::uint32_t group, std::uint32_t item,
                             WordBuffer& out) = 0;
  virtual int SetBoxProperty(DeviceHandle handle, std::uint32_t group, std::uint32_t item,
                             std::uint32_t value) = 0;

  // The four picture values at once; what its result says is not known.
  virtual int GetKiraboxProcAmp(DeviceHandle handle, ProcAmpBytes& out) = 0;

  // One picture value (controls 2 brightness, 3 contrast, 4 hue, 5 saturation) of (group, control).
  virtual int GetVideoProcAmp(DeviceHandle handle, std::uint32_t group, std::uint32_t control,
                              WordBuffer& out) = 0;
  virtual int SetVideoProcAmp(DeviceHandle handle, std::uint32_t group, std::uint32_t control,
                              std::uint32_t value) = 0;

 protected:
  DeviceLink() = default;
  DeviceLink(const DeviceLink&) = default;
  DeviceLink& operator=(const DeviceLink&) = default;
};

}  // namespace panelora
