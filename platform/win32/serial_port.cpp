// The serial port: opened and configured, never read from or written to.
#include "platform/win32/win32_toolkit.h"

namespace panelora::win32 {

namespace {

constexpr DWORD kQueueBytes = 4096;

HANDLE HandleOf(ui::SerialHandle port) {
  // Handles of the system fit 32 bits and are sign-extended.
  return reinterpret_cast<HANDLE>(static_cast<INT_PTR>(static_cast<INT32>(port)));
}

}  // namespace

ui::SerialHandle Win32Toolkit::OpenSerial(const std::string& name) {
  const HANDLE port = CreateFileA(name.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                  OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (port == INVALID_HANDLE_VALUE) return ui::kInvalidSerial;
  SetupComm(port, kQueueBytes, kQueueBytes);
  PurgeComm(port, PURGE_TXABORT | PURGE_RXABORT | PURGE_TXCLEAR | PURGE_RXCLEAR);
  DCB line{};
  line.DCBlength = sizeof line;
  GetCommState(port, &line);
  line.BaudRate = CBR_115200;
  line.ByteSize = 8;
  line.Parity = NOPARITY;
  line.StopBits = ONESTOPBIT;
  line.fBinary = TRUE;
  line.fParity = FALSE;
  SetCommState(port, &line);
  return static_cast<ui::SerialHandle>(reinterpret_cast<INT_PTR>(port) & 0xFFFFFFFF);
}

void Win32Toolkit::CloseSerial(ui::SerialHandle port) { CloseHandle(HandleOf(port)); }

}  // namespace panelora::win32
