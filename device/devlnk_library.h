// Binds the eight exports of DEVLNK.dll by name.
#pragma once

#include <functional>
#include <string>
#include <utility>

#include "device/device_link.h"

#if defined(_WIN32) && !defined(_WIN64)
#define PANELORA_DEVLNK_CALL __stdcall
#else
#define PANELORA_DEVLNK_CALL
#endif

namespace panelora {

// The exports as the library declares them; its "unsigned long" has 32 bits.
struct DevlnkExports {
  std::uint32_t(PANELORA_DEVLNK_CALL* open)(std::uint32_t) = nullptr;
  int(PANELORA_DEVLNK_CALL* getKiraboxProperty)(std::uint32_t, std::uint8_t, std::uint8_t,
                                                std::uint8_t, std::uint8_t*) = nullptr;
  int(PANELORA_DEVLNK_CALL* setKiraboxProperty)(std::uint32_t, std::uint8_t, std::uint8_t,
                                                std::uint8_t, std::uint8_t*) = nullptr;
  int(PANELORA_DEVLNK_CALL* getBoxProperty)(std::uint32_t, std::uint32_t, std::uint32_t,
                                            std::uint32_t*) = nullptr;
  int(PANELORA_DEVLNK_CALL* setBoxProperty)(std::uint32_t, std::uint32_t, std::uint32_t,
                                            std::uint32_t) = nullptr;
  int(PANELORA_DEVLNK_CALL* getKiraboxProcAmp)(std::uint32_t, std::uint8_t*, std::uint8_t*,
                                               std::uint8_t*, std::uint8_t*) = nullptr;
  int(PANELORA_DEVLNK_CALL* getVideoProcAmp)(std::uint32_t, std::uint32_t, std::uint32_t,
                                             std::uint32_t*) = nullptr;
  int(PANELORA_DEVLNK_CALL* setVideoProcAmp)(std::uint32_t, std::uint32_t, std::uint32_t,
                                             std::uint32_t) = nullptr;
};

// The device link over the library. Without all eight exports it is unusable as a whole: Open
// answers kNoBox and every other call fails. A library that is looked for is looked for at every
// Open until it is found, so that it may be copied in while the program runs.
class DevlnkLibrary final : public DeviceLink {
 public:
  // Finds an export by its name; null when the library has none of that name.
  using Resolver = std::function<void*(const char* name)>;
  // Looks for the library; an empty resolver when there is none that can be used.
  using Finder = std::function<Resolver()>;

  // A library that could not be loaded: every call fails.
  DevlnkLibrary() = default;

  // Looks each name up once. Plain names come first; where they are missing, the decorated ones
  // that 32-bit tools make ("_DEVLNK_OPEN@4", "DEVLNK_OPEN@4") do as well.
  explicit DevlnkLibrary(const Resolver& resolve) : missing(Bind(resolve, exports)) {}

  // Looks at the next Open.
  explicit DevlnkLibrary(Finder theFinder) : find(std::move(theFinder)) {}

  // Looks each name up once as above. The first export that was not found; empty when none is
  // missing.
  static std::string Bind(const Resolver& resolve, DevlnkExports& found);

  bool IsUsable() const { return missing.empty() && exports.open != nullptr; }

  // The first export that was not found, empty when none is missing.
  const std::string& MissingExport() const { return missing; }

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
  Finder find;
  DevlnkExports exports;
  std::string missing;
};

}  // namespace panelora
