// What bench and boxctl do with the shared box beside calling it: pull its plug, make it another
// one, change what it keeps, make calls go wrong, look at the calls that were made.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "catalogue/codecs.h"
#include "simulator/box_model.h"
#include "simulator/shared_box.h"

namespace panelora::simulator {

// Puts an entry into the journal and gives it its number. Under the lock of the box.
void Add(Journal& journal, Entry& entry);

// An untouched box: of the given type, plugged in, with the defaults, without faults. What others
// find there from then on; the magic comes last.
void MakeBox(SharedBox& shared, const Identity& identity = BoxModel::kDefaultIdentity,
             std::uint32_t firmware = BoxModel::kDefaultFirmware);

// What a recorded box answered to these calls; null when that is more than can be kept.
std::unique_ptr<Replay> ReplayOf(std::span<const Call> calls);

class BoxControl {
 public:
  // Both outlive it.
  BoxControl(SharedBox& theShared, BoxHost& theHost, By theHand);

  // The box as it is, in one moment; nothing when it can't be had.
  struct Look {
    BoxMemory box;
    Faults faults;
    Change change;
    bool isPlugged;      // and not cut, and not restarting
    bool isReplayed;     // a recorded box answers
    std::uint64_t last;  // number of the journal's last entry
  };
  std::optional<Look> LookAt();

  // What follows is done at once or, when the box can't be had, not at all (false).
  bool Plug(bool plugged);  // plugging in ends a cut
  // Pulls the plug for so long.
  bool Cut(std::uint32_t milliseconds);
  // Another box with its defaults; it keeps its plug, its faults and the journal, and ends a
  // replay.
  bool Become(const Identity& identity, std::uint32_t firmware);
  // The same box with its defaults.
  bool Reset();
  // Changes the faults.
  bool SetFaults(const std::function<void(Faults&)>& change);
  // What all inputs receive; width or height 0 = no signal. `isInterlaced` goes before the format's
  // own scan. Nothing changes (false) when the type does not tell such a format.
  bool SetInput(const VideoFormat& format, bool isInterlaced);
  // Puts a value where it is kept, past every rule of the box, and into the journal as a write of
  // its own. A word takes its first two words, little-endian. False, too, where no box keeps one.
  bool Store(const Address& at, std::span<const std::uint8_t> bytes);
  // Everything that it keeps; no replay from then on.
  bool Load(const BoxMemory& box);

  // From now on the box answers as a recorded one did, call by call; what that was not asked, the
  // box answers. Nothing ends it but Become, Reset, Load or a replay of no calls.
  bool Play(const Replay& recorded);

  // The entries from number `first` on, oldest first, and how many of them are gone for good.
  struct Calls {
    std::vector<Entry> entries;
    std::uint64_t lost = 0;
  };
  std::optional<Calls> CallsFrom(std::uint64_t first);

 private:
  bool Do(const std::function<bool(BoxModel&)>& what);
  // Writes down that this hand changed the box, or made it what it is.
  void NoteChange();
  void NoteMaking();

  SharedBox& shared;
  BoxHost& host;
  By hand;
};

// The bytes that a box keeps at an address: of a block all, of a word eight, of a picture control
// one. None where it has none.
std::vector<std::uint8_t> BytesAt(const BoxMemory& box, const Address& at);

}  // namespace panelora::simulator
