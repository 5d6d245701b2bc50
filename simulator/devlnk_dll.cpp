// The drop-in DEVLNK.dll over the simulated box.
#include <windows.h>

#include <algorithm>
#include <cstring>
#include <string>

#include "device/call.h"
#include "device/devlnk_library.h"
#include "simulator/bench_port.h"
#include "simulator/box_model.h"

namespace panelora::simulator {

namespace {

constexpr int kFailure = 0;

class BenchedBox {
 public:
  BenchedBox() : box(BoxModel::kDefaultIdentity, BoxModel::kDefaultFirmware, GetTickCount64) {
    const std::string name = kBenchPortName + std::to_string(GetCurrentProcessId());
    memory = CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, sizeof(BenchPort),
                                name.c_str());
    if (memory != nullptr) {
      port = static_cast<BenchPort*>(MapViewOfFile(memory, FILE_MAP_ALL_ACCESS, 0, 0, 0));
    }
    if (port == nullptr) return;
    // A bench that was there first has filled the port in already.
    if (port->magic == kBenchPortMagic) return;
    const Identity& identity = BoxModel::kDefaultIdentity;
    port->present = 1;
    port->identity[0] = identity.boxType;
    port->identity[1] = identity.brandCode;
    port->firmware = BoxModel::kDefaultFirmware;
    port->magic = kBenchPortMagic;
  }

  ~BenchedBox() {
    if (port != nullptr) UnmapViewOfFile(port);
    if (memory != nullptr) CloseHandle(memory);
  }

  BenchedBox(const BenchedBox&) = delete;
  BenchedBox& operator=(const BenchedBox&) = delete;

  // The box as the bench wants it, after the call was noted.
  BoxModel& Called(const Call& made) {
    if (port == nullptr) return box;
    const std::string call = TextOf(made);
    const std::size_t used = port->logBytes;
    if (used + call.size() + 1 < sizeof port->log) {
      std::memcpy(port->log + used, call.data(), call.size());
      port->log[used + call.size()] = '\n';
      port->logBytes = static_cast<std::uint32_t>(used + call.size() + 1);
    }
    if (port->delay != 0) Sleep(port->delay);
    box.SetPresent(port->present != 0);
    if (port->change != change) {
      change = port->change;
      const std::uint8_t* id = port->identity;
      box.Become({id[0], id[1], id[2], id[3], id[4]}, port->firmware);
    }
    return box;
  }

  bool Fails() const { return port != nullptr && port->failing != 0; }
  bool FillsLength() const { return port != nullptr && port->lengthFull != 0; }

 private:
  BoxModel box;
  HANDLE memory = nullptr;
  BenchPort* port = nullptr;
  std::uint32_t change = 0;
};

BenchedBox& Box() {
  static BenchedBox box;
  return box;
}

}  // namespace

}  // namespace panelora::simulator

using panelora::BlockBuffer;
using panelora::Call;
using panelora::ProcAmpBytes;
using panelora::WordBuffer;
using namespace panelora::simulator;  // NOLINT: the exports stand outside every namespace

#define DEVLNK_EXPORT extern "C" __declspec(dllexport)

DEVLNK_EXPORT std::uint32_t PANELORA_DEVLNK_CALL DEVLNK_OPEN(std::uint32_t mode) {
  return Box().Called(Call::Open(mode)).Open(mode);
}

DEVLNK_EXPORT int PANELORA_DEVLNK_CALL DEVLNK_GET_KIRABOX_PROPERTY(std::uint32_t handle,
                                                                   std::uint8_t property,
                                                                   std::uint8_t sub,
                                                                   std::uint8_t length,
                                                                   std::uint8_t* out) {
  BlockBuffer answer{};
  const int result = Box()
                         .Called(Call::GetBlock(property, sub, length))
                         .GetKiraboxProperty(handle, property, sub, length, answer);
  if (Box().FillsLength() && property != 254) answer.fill(0xFF);
  if (result == panelora::kSuccess && !Box().Fails()) {
    std::copy_n(answer.begin(), length, out);
    return result;
  }
  return kFailure;
}

DEVLNK_EXPORT int PANELORA_DEVLNK_CALL DEVLNK_SET_KIRABOX_PROPERTY(std::uint32_t handle,
                                                                   std::uint8_t property,
                                                                   std::uint8_t sub,
                                                                   std::uint8_t length,
                                                                   std::uint8_t* bytes) {
  BlockBuffer sent{};
  std::copy_n(bytes, length, sent.begin());
  BoxModel& box = Box().Called(Call::SetBlock(property, sub, length, sent));
  return Box().Fails() ? kFailure : box.SetKiraboxProperty(handle, property, sub, length, sent);
}

DEVLNK_EXPORT int PANELORA_DEVLNK_CALL DEVLNK_GET_BOX_PROPERTY(std::uint32_t handle,
                                                               std::uint32_t group,
                                                               std::uint32_t item,
                                                               std::uint32_t* out) {
  WordBuffer answer{};
  BoxModel& box = Box().Called(Call::GetWord(group, item));
  const int result = box.GetBoxProperty(handle, group, item, answer);
  if (result != panelora::kSuccess || Box().Fails()) return kFailure;
  out[0] = answer[0];
  if (box.HasTwoWords(item)) out[1] = answer[1];
  return result;
}

DEVLNK_EXPORT int PANELORA_DEVLNK_CALL DEVLNK_SET_BOX_PROPERTY(std::uint32_t handle,
                                                               std::uint32_t group,
                                                               std::uint32_t item,
                                                               std::uint32_t value) {
  BoxModel& box = Box().Called(Call::SetWord(group, item, value));
  return Box().Fails() ? kFailure : box.SetBoxProperty(handle, group, item, value);
}

DEVLNK_EXPORT int PANELORA_DEVLNK_CALL DEVLNK_GET_KIRABOX_PROC_AMP(std::uint32_t handle,
                                                                   std::uint8_t* brightness,
                                                                   std::uint8_t* contrast,
                                                                   std::uint8_t* hue,
                                                                   std::uint8_t* saturation) {
  ProcAmpBytes picture;
  const int result = Box().Called(Call::GetPicture()).GetKiraboxProcAmp(handle, picture);
  if (result != panelora::kSuccess || Box().Fails()) return kFailure;
  *brightness = picture.brightness;
  *contrast = picture.contrast;
  *hue = picture.hue;
  *saturation = picture.saturation;
  return result;
}

DEVLNK_EXPORT int PANELORA_DEVLNK_CALL DEVLNK_GET_VIDEO_PROC_AMP(std::uint32_t handle,
                                                                 std::uint32_t group,
                                                                 std::uint32_t control,
                                                                 std::uint32_t* out) {
  WordBuffer answer{};
  const int result = Box()
                         .Called(Call::GetProcAmp(group, control))
                         .GetVideoProcAmp(handle, group, control, answer);
  if (result != panelora::kSuccess || Box().Fails()) return kFailure;
  out[0] = answer[0];
  return result;
}

DEVLNK_EXPORT int PANELORA_DEVLNK_CALL DEVLNK_SET_VIDEO_PROC_AMP(std::uint32_t handle,
                                                                 std::uint32_t group,
                                                                 std::uint32_t control,
                                                                 std::uint32_t value) {
  BoxModel& box = Box().Called(Call::SetProcAmp(group, control, value));
  return Box().Fails() ? kFailure : box.SetVideoProcAmp(handle, group, control, value);
}
