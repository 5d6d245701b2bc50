#include "device/devlnk_library.h"

#include "base/text.h"

namespace panelora {

namespace {

constexpr int kFailure = 0;

// Stores the export under its plain or its decorated name; false when the library has neither.
template <class Function>
bool BindExport(const DevlnkLibrary::Resolver& resolve, const char* name, int argumentBytes,
                Function& function) {
  void* address = resolve(name);
  if (address == nullptr) {
    const std::string decorated = Format("_%s@%d", name, argumentBytes);
    address = resolve(decorated.c_str());
    if (address == nullptr) address = resolve(decorated.c_str() + 1);
  }
  function = reinterpret_cast<Function>(address);
  return address != nullptr;
}

}  // namespace

std::string DevlnkLibrary::Bind(const Resolver& resolve, DevlnkExports& found) {
  std::string missing;
  const auto bind = [&](const char* name, int argumentBytes, auto& function) {
    if (!BindExport(resolve, name, argumentBytes, function) && missing.empty()) missing = name;
  };
  bind("DEVLNK_OPEN", 4, found.open);
  bind("DEVLNK_GET_KIRABOX_PROPERTY", 20, found.getKiraboxProperty);
  bind("DEVLNK_SET_KIRABOX_PROPERTY", 20, found.setKiraboxProperty);
  bind("DEVLNK_GET_BOX_PROPERTY", 16, found.getBoxProperty);
  bind("DEVLNK_SET_BOX_PROPERTY", 16, found.setBoxProperty);
  bind("DEVLNK_GET_KIRABOX_PROC_AMP", 20, found.getKiraboxProcAmp);
  bind("DEVLNK_GET_VIDEO_PROC_AMP", 16, found.getVideoProcAmp);
  bind("DEVLNK_SET_VIDEO_PROC_AMP", 16, found.setVideoProcAmp);
  return missing;
}

DeviceHandle DevlnkLibrary::Open(std::uint32_t mode) {
  if (!IsUsable() && find) {
    if (const Resolver resolve = find()) missing = Bind(resolve, exports);
  }
  return IsUsable() ? exports.open(mode) : kNoBox;
}

int DevlnkLibrary::GetKiraboxProperty(DeviceHandle handle, std::uint8_t property, std::uint8_t sub,
                                      std::uint8_t length, BlockBuffer& out) {
  if (!IsUsable()) return kFailure;
  return exports.getKiraboxProperty(handle, property, sub, length, out.data());
}

int DevlnkLibrary::SetKiraboxProperty(DeviceHandle handle, std::uint8_t property, std::uint8_t sub,
                                      std::uint8_t length, const BlockBuffer& bytes) {
  if (!IsUsable()) return kFailure;
  BlockBuffer sent = bytes;  // the library takes a pointer to bytes that it may change
  return exports.setKiraboxProperty(handle, property, sub, length, sent.data());
}

int DevlnkLibrary::GetBoxProperty(DeviceHandle handle, std::uint32_t group, std::uint32_t item,
                                  WordBuffer& out) {
  if (!IsUsable()) return kFailure;
  return exports.getBoxProperty(handle, group, item, out.data());
}

int DevlnkLibrary::SetBoxProperty(DeviceHandle handle, std::uint32_t group, std::uint32_t item,
                                  std::uint32_t value) {
  return IsUsable() ? exports.setBoxProperty(handle, group, item, value) : kFailure;
}

int DevlnkLibrary::GetKiraboxProcAmp(DeviceHandle handle, ProcAmpBytes& out) {
  if (!IsUsable()) return kFailure;
  // Each value gets a buffer of its own, so that a library that stores a whole word does no harm.
  std::array<std::array<std::uint8_t, 64>, 4> bytes = {
      {{out.brightness}, {out.contrast}, {out.hue}, {out.saturation}}};
  const int result = exports.getKiraboxProcAmp(handle, bytes[0].data(), bytes[1].data(),
                                               bytes[2].data(), bytes[3].data());
  out = {bytes[0][0], bytes[1][0], bytes[2][0], bytes[3][0]};
  return result;
}

int DevlnkLibrary::GetVideoProcAmp(DeviceHandle handle, std::uint32_t group, std::uint32_t control,
                                   WordBuffer& out) {
  if (!IsUsable()) return kFailure;
  return exports.getVideoProcAmp(handle, group, control, out.data());
}

int DevlnkLibrary::SetVideoProcAmp(DeviceHandle handle, std::uint32_t group, std::uint32_t control,
                                   std::uint32_t value) {
  return IsUsable() ? exports.setVideoProcAmp(handle, group, control, value) : kFailure;
}

}  // namespace panelora
