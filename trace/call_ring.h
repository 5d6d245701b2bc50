// Calls on their way from those who make them to the one who writes them down.
#pragma once

#include <array>
#include <atomic>
#include <cstdint>

#include "trace/trace_line.h"

namespace panelora::trace {

// Callers, in any number of threads, never wait: what finds no room is counted and lost. There is
// one reader at a time; another may take its place at any moment, also when the first was ended in
// the middle of anything.
class CallRing {
 public:
  static constexpr std::uint32_t kHeld = 8192;  // a power of two

  struct Place {
    std::uint32_t lostBefore;  // calls since the place before, which found no room
    Record record;
  };

  using Places = std::array<Place, kHeld>;

  // The places outlive it, and are nobody else's.
  explicit constexpr CallRing(Places& thePlaces) : places(thePlaces) {}

  // False when the call was lost.
  bool Put(const Record& record) {
    if (!Lock()) {
      lost.fetch_add(1, std::memory_order_relaxed);
      return false;
    }
    const std::uint32_t at = end.load(std::memory_order_relaxed);
    const bool fits = at - begin.load(std::memory_order_acquire) < kHeld;
    if (fits) {
      Place& place = places[at % kHeld];
      place.lostBefore = lost.exchange(0, std::memory_order_relaxed);
      place.record = record;
      end.store(at + 1, std::memory_order_release);
    } else {
      lost.fetch_add(1, std::memory_order_relaxed);
    }
    locked.clear(std::memory_order_release);
    return fits;
  }

  // How many places are in use.
  std::uint32_t Waiting() const {
    return end.load(std::memory_order_relaxed) - begin.load(std::memory_order_relaxed);
  }

  // For the reader. Places are counted from 0, and over again from 0 behind the greatest number.
  std::uint32_t End() const { return end.load(std::memory_order_acquire); }
  const Place& At(std::uint32_t place) const { return places[place % kHeld]; }
  // The places before this one are free from now on.
  void Release(std::uint32_t place) { begin.store(place, std::memory_order_release); }
  // The calls that were lost since the last place; they are the reader's to tell from now on.
  std::uint32_t TakeLost() { return lost.exchange(0, std::memory_order_relaxed); }

 private:
  // What is done under the lock is short; whoever does not give it back was ended with it.
  static constexpr int kPatience = 1000;

  bool Lock() {
    for (int i = 0; i < kPatience; ++i) {
      if (!locked.test_and_set(std::memory_order_acquire)) return true;
    }
    return false;
  }

  Places& places;
  std::atomic_flag locked = ATOMIC_FLAG_INIT;
  std::atomic<std::uint32_t> begin = 0;
  std::atomic<std::uint32_t> end = 0;
  std::atomic<std::uint32_t> lost = 0;
};

}  // namespace panelora::trace
