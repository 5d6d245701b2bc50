// A desk for boxctl: a simulated box whose clock is the test's, files in a folder of its own, and
// what a run of the program prints.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "boxctl/host.h"
#include "simulator/benched_box.h"
#include "simulator/box_control.h"

namespace panelora::boxctl {

// The desk's box, and one behind a library called "real.dll".
class TestHost final : public Host, public simulator::BoxHost {
 public:
  TestHost();

  Desk OpenDesk(std::string& error) override;
  DeviceLink* OpenLibrary(const std::string& path, std::string& error) override;
  std::unique_ptr<std::streambuf> OpenShared(const std::string& path, std::uint64_t from) override;
  bool IsStopped() const override { return stopped; }

  bool Lock() override {
    if (whenLocking) whenLocking(locks++);
    return !isKept;
  }
  void Unlock() override {}
  std::uint64_t Milliseconds() const override { return now; }
  std::uint64_t Microseconds() const override { return now * 1000; }
  std::uint64_t Time() const override { return kBegin + now * 1000; }
  void Sleep(std::uint32_t milliseconds) override;
  std::uint32_t Process() const override { return 7; }

  static constexpr std::uint64_t kBegin = 1000000000000000;  // 2001-09-09 01:46:40 UTC

  // What happens while the program sleeps, and how often; after the last one it is stopped.
  std::function<void(int)> whenSleeping;
  int sleeps = 0;
  // The same before a program is at the box.
  std::function<void(int)> whenLocking;
  int locks = 0;
  bool stopped = false;
  bool hasDesk = true;
  bool isKept = false;  // by another program
  std::uint64_t now = 0;
  std::uint64_t openedFrom = 0;  // the place from which a file was opened last
  std::unique_ptr<simulator::SharedBox> desk;
  std::unique_ptr<simulator::SharedBox> real;

 private:
  std::unique_ptr<simulator::BenchedBox> library;
};

class BoxctlTest : public testing::Test {
 protected:
  struct Ran {
    int code;
    std::string out;
    std::string err;

    bool operator==(const Ran&) const = default;
    friend std::ostream& operator<<(std::ostream& to, const Ran& ran) {
      return to << ran.code << "\n" << ran.out << "\n" << ran.err;
    }
  };

  BoxctlTest();
  ~BoxctlTest() override;

  Ran Run(const std::vector<std::string>& arguments, const std::string& input = "");
  // The same where no more than so many bytes of what is printed can be written.
  Ran RunWithRoom(std::size_t room, const std::vector<std::string>& arguments,
                  const std::string& input = "");
  // The path of a file of the test's.
  std::string File(const std::string& name) const { return folder + "/" + name; }
  static std::string Content(const std::string& path);
  static void Put(const std::string& path, const std::string& content);

  simulator::BoxControl Control() { return {*host.desk, host, simulator::By::kBench}; }
  // The calls of the desk's box so far, as a trace.
  std::string TraceOfDesk() const;
  // Makes it a box of the type with the newest firmware.
  void Become(std::uint8_t type, std::uint8_t brand = 0);
  // The writes to the box since this was last asked, as lines.
  std::vector<std::string> Writes() { return WritesOf(*host.desk, seen); }
  std::vector<std::string> RealWrites() { return WritesOf(*host.real, seenReal); }

  TestHost host;

 private:
  static std::vector<std::string> WritesOf(const simulator::SharedBox& box, std::uint64_t& last);

  std::string folder;
  std::uint64_t seen = 0;
  std::uint64_t seenReal = 0;
};

}  // namespace panelora::boxctl
