// Writes the calls of a ring into files of limited size.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>
#include <string_view>

#include "trace/call_ring.h"
#include "trace/told_records.h"

namespace panelora::trace {

// Where a trace is written.
class TraceDisk {
 public:
  // Starts a new file. The one before becomes the older one, in whose place it comes. False when
  // there can be none now; then nothing is lost of the one before, which may be gone on with.
  virtual bool Begin() noexcept = 0;
  // Puts bytes where the file is so long; false when not all of them could be written.
  virtual bool Write(std::uint64_t at, std::string_view bytes) noexcept = 0;

 protected:
  constexpr TraceDisk() = default;
  TraceDisk(const TraceDisk&) = default;
  TraceDisk& operator=(const TraceDisk&) = default;
  ~TraceDisk() = default;
};

// It needs no memory and no locks of the system, so that it can write while a process ends.
class TraceWriter {
 public:
  static constexpr std::uint64_t kMostBytes = std::uint64_t{16} * 1024 * 1024;  // of a file
  // Of one in whose place no new one can come, since somebody has it open.
  static constexpr std::uint64_t kMostBytesOfKept = 4 * kMostBytes;

  // Both outlive it.
  constexpr TraceWriter(CallRing& theRing, TraceDisk& theDisk) : ring(theRing), disk(theDisk) {}

  // Begins the file at once, when nobody minds a disk that is slow: otherwise the first call that
  // is written does.
  void Begin() noexcept;

  // Writes all that waits. What the disk does not take waits for the next time.
  //
  // One at a time. When a thread was ended within it, another one goes on where that had got to:
  // what it had begun is written once more, in the same place.
  void WriteWaiting() noexcept;

 private:
  static constexpr std::size_t kBatchBytes = std::size_t{32} * 1024;

  struct Progress {
    std::uint32_t place = 0;   // of the ring, that is written next
    std::uint32_t lost = 0;    // calls before it that are not told yet
    std::uint64_t number = 1;  // of the next call
    std::uint64_t size = 0;    // of the file
    bool isBegun = false;      // there is a file
    ToldRecords told;          // by the calls before it
  };

  const Progress& Reached() const { return progress[which.load(std::memory_order_acquire)]; }
  void Reach(const Progress& next);
  bool IsAnythingLeft();
  bool HasFile();
  bool WriteBatch();
  void Fill(Progress& next);
  void AddHead(const Progress& next);
  void Add(const Line& line);

  CallRing& ring;
  TraceDisk& disk;
  // The one that is not reached is being changed.
  std::array<Progress, 2> progress = {};
  std::atomic<std::uint32_t> which = 0;
  std::array<char, kBatchBytes> batch = {};
  std::size_t batchSize = 0;
};

}  // namespace panelora::trace
