// What the main window knows of the box and the pages read of it.
#pragma once

#include <array>
#include <cstdint>

#include "device/device_link.h"
#include "device/identity.h"
#include "ui/toolkit.h"

namespace panelora {

// The cached proc-amp values: brightness, contrast, hue, saturation, RGB gain, RGB offset, RGB
// offset 2 and three spare bytes.
using ProcAmpCache = std::array<std::uint8_t, 10>;
constexpr ProcAmpCache kProcAmpStart = {128, 128, 128, 128, 128, 128, 128, 128, 128, 128};

// Owned by the main window, given to each page by reference. Pages write only `tickSkip`,
// `forceDisconnect`, (the Information page) `firmwareVersion`, (the TV Wall page) `wallSize` and
// `tilePosition`, (Video settings, when it is opened) `cycleState` and (the Proc Amp page, on types
// without picture values) `procAmpCache`.
struct PanelState {
  DeviceHandle deviceHandle = kNoBox;  // the live handle, of which pages keep copies
  Identity identity;
  // boxType and brandCode as last stored; kept when the box is lost, and read by no page.
  std::array<std::uint8_t, 2> identityPair = {255, 255};
  // (major × 256) + minor: 0x0112 is shown as 0.1.1.2. 0 until the Information page has read it.
  std::uint32_t firmwareVersion = 0;
  // How many coming ticks of the connection monitor to ignore (3 s each).
  std::uint16_t tickSkip = 0;
  // Set by a hardware reset: the next tick shows the box as absent. Set while it is absent, it
  // keeps the first tick that finds a box from connecting.
  bool forceDisconnect = false;
  // TV wall: screens along each side (1 to 4; 0 = not known) and this box's tile, by rows from 0.
  std::uint8_t wallSize = 0;
  std::uint8_t tilePosition = 0;
  // Byte 2 of multiview::kModes: 1 = the box has input labels.
  std::uint8_t fittedOption = 0;
  // Which of its sub-pages or views the current page shows; Page Up steps it.
  int cycleState = 0;
  ui::SerialHandle serialHandle = ui::kInvalidSerial;
  ProcAmpCache procAmpCache = kProcAmpStart;
};

}  // namespace panelora
