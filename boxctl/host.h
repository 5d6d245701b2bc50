// What boxctl needs of the system it runs on.
#pragma once

#include <cstdint>
#include <memory>
#include <streambuf>
#include <string>

#include "device/device_link.h"
#include "simulator/shared_box.h"

namespace panelora::boxctl {

class Host {
 public:
  // The simulated box of the desk; both outlive the host's users.
  struct Desk {
    simulator::SharedBox* shared = nullptr;  // null = there is none
    simulator::BoxHost* host = nullptr;
  };

  virtual ~Host() = default;

  // None with the reason in `error`.
  virtual Desk OpenDesk(std::string& error) = 0;
  // A device library by its path, in UTF-8; null with the reason in `error`.
  virtual DeviceLink* OpenLibrary(const std::string& path, std::string& error) = 0;
  // A file by its path, in UTF-8, from a place on; null when it can't be opened. Whoever writes it
  // may move it meanwhile. Reading it throws std::ios_base::failure where the system can't.
  virtual std::unique_ptr<std::streambuf> OpenShared(const std::string& path,
                                                     std::uint64_t from) = 0;
  virtual std::uint64_t Milliseconds() const = 0;  // since any moment
  virtual void Sleep(std::uint32_t milliseconds) = 0;
  // Whether the operator wants an end (Ctrl+C).
  virtual bool IsStopped() const = 0;

 protected:
  Host() = default;
  Host(const Host&) = default;
  Host& operator=(const Host&) = default;
};

}  // namespace panelora::boxctl
