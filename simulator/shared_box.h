// The simulated box with what stands around it: the faults that it is given, the calls that were
// made, and the answers of a recorded one. One piece of memory without pointers, which the panel's
// library, the bench and boxctl share; everything in it is read and changed under its lock.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <type_traits>

#include "device/address.h"
#include "device/call.h"
#include "simulator/box_memory.h"

namespace panelora::simulator {

// Who made a call or changed the box.
enum class By : std::uint8_t {
  kPanel,   // through the library, whoever loaded it
  kBench,   // BoxBench
  kBoxctl,  // boxctl
  kBox,     // nobody but the box
};

// How calls go wrong. A call that is meant by the members before `answer` goes wrong as that says;
// what stands behind `result` does not hang on them.
struct Faults {
  enum class Answer : std::uint8_t {
    kFailure,  // result 0
    kResult,   // `result`, with the box's answer in the buffer
    kRandom,   // success with random bytes; writes are not told to the box
  };
  static constexpr std::uint32_t kMostLatency = 500;  // ms

  std::uint32_t every;  // 0 = no call, 1 = each, n = each nth of those that are meant
  bool opens;
  bool reads;
  bool writes;
  bool oneAddress;  // only calls of `address`
  Address address;
  Answer answer;
  std::int32_t result;
  std::uint32_t latency;   // ms that every call takes, 0 to kMostLatency
  bool vanishOnWrite;      // the next write pulls the plug and fails
  bool fillsWhatWasAsked;  // block reads but the identity's are filled with 0xFF
  std::uint64_t cutUntil;  // ms of the host's clock until which the cable is cut; 0 = is not
  std::uint64_t meant;     // calls so far that were meant
  std::uint64_t random;    // state of the random bytes
};

// A call as the journal keeps it: what was asked or told, and what came of it.
struct Entry {
  std::uint64_t number;    // from 1, without a gap
  std::uint64_t time;      // when it was made, in microseconds since 1970 (UTC)
  std::uint32_t duration;  // microseconds
  std::uint32_t process;   // that made it
  By by;
  Call::Operation operation;
  std::uint8_t sub;
  std::uint8_t length;
  std::uint32_t group;
  std::uint32_t item;  // property, item or control; the mode of an open
  std::int32_t result;
  WordBuffer words;
  std::uint32_t byteCount;
  std::array<std::uint8_t, 256> bytes;
};

// The call that it was, with as many bytes as the entry has.
Call CallOf(const Entry& entry);
// Of a call, without what is the journal's: number, time, duration, process and who made it.
Entry EntryOf(const Call& call);

// The calls last made, in a ring.
struct Journal {
  static constexpr std::size_t kHeld = 16384;

  std::uint64_t last;                // number of the entry that was added last, 0 = none yet
  std::array<Entry, kHeld> entries;  // number n stands at n % kHeld
};

// What bench or boxctl changed of what the box keeps, without a call: the last time.
struct Change {
  std::uint64_t count;  // of all so far
  std::uint64_t time;   // microseconds since 1970 (UTC)
  // Number of the journal's last entry when the box became what it is: what was written before that
  // is gone.
  std::uint64_t made;
  By by;
};

// What a recorded box answered: for each different question its answers in their order, of which
// the last one is given from then on.
struct Replay {
  static constexpr std::size_t kQuestions = 512;
  static constexpr std::size_t kAnswers = 4096;

  struct Question {
    Call::Operation operation;
    std::uint8_t sub;
    std::uint8_t length;
    std::uint32_t group;
    std::uint32_t item;
    std::uint32_t current;  // its answer that is given next
  };
  struct Answer {
    std::int32_t result;
    WordBuffer words;
    std::uint32_t byteCount;  // 0 = the caller's buffer was left as it was
    std::array<std::uint8_t, 256> bytes;
    std::uint32_t next;  // the one after it; itself = none
    std::uint32_t left;  // how often it is still given before that one
  };

  std::uint32_t questionCount;  // 0 = no replay, the box answers
  std::uint32_t answerCount;
  std::array<Question, kQuestions> questions;
  std::array<Answer, kAnswers> answers;
};

struct SharedBox {
  static constexpr std::uint32_t kMagic = 0x584F4250;  // "PBOX"
  static constexpr std::uint32_t kLayout = 3;          // raised with every change of what is here

  // Of every layout. The magic is written last.
  std::uint32_t magic;
  std::uint32_t layout;
  std::uint32_t size;

  std::uint32_t owner;  // the process that is at the box, 0 = none; the host's alone
  BoxMemory box;
  Faults faults;
  Change change;
  Replay replay;
  Journal journal;
};

static_assert(std::is_trivially_copyable_v<SharedBox>);

// Programs of 32 and of 64 bits share it: every compiler must put everything in the same place.
// Whoever changes one of these raises kLayout.
static_assert(offsetof(BoxMemory, restartedAt) == 16 && offsetof(BoxMemory, blocks) == 24);
static_assert(offsetof(BoxMemory, words) == 66588 && sizeof(BoxMemory) == 69664);
static_assert(offsetof(Faults, cutUntil) == 32 && sizeof(Faults) == 56);
static_assert(sizeof(Change) == 32);
static_assert(sizeof(Replay) == 1155080);
static_assert(offsetof(Entry, words) == 40 && offsetof(Entry, bytes) == 52 && sizeof(Entry) == 312);
static_assert(offsetof(Journal, entries) == 8);
static_assert(offsetof(SharedBox, box) == 16 && offsetof(SharedBox, faults) == 69680);
static_assert(offsetof(SharedBox, change) == 69736 && offsetof(SharedBox, replay) == 69768);
static_assert(offsetof(SharedBox, journal) == offsetof(SharedBox, replay) + sizeof(Replay));
static_assert(sizeof(SharedBox) == offsetof(SharedBox, journal) + sizeof(Journal));

// What the shared box needs of the system it runs on.
class BoxHost {
 public:
  virtual ~BoxHost() = default;

  // Nobody else is at the box between the two. False when the box can't be had; then nothing of it
  // may be touched, and Unlock is not called.
  virtual bool Lock() = 0;
  virtual void Unlock() = 0;
  virtual std::uint64_t Milliseconds() const = 0;  // since any moment, the same for all processes
  virtual std::uint64_t Microseconds() const = 0;  // since any moment
  virtual std::uint64_t Time() const = 0;          // microseconds since 1970 (UTC)
  virtual void Sleep(std::uint32_t milliseconds) = 0;
  virtual std::uint32_t Process() const = 0;

 protected:
  BoxHost() = default;
  BoxHost(const BoxHost&) = default;
  BoxHost& operator=(const BoxHost&) = default;
};

// Locks while it lives, where the box can be had.
class BoxLock {
 public:
  explicit BoxLock(BoxHost& theHost) : host(theHost), held(theHost.Lock()) {}
  ~BoxLock() {
    if (held) host.Unlock();
  }
  BoxLock(const BoxLock&) = delete;
  BoxLock& operator=(const BoxLock&) = delete;
  explicit operator bool() const { return held; }

 private:
  BoxHost& host;
  bool held;
};

}  // namespace panelora::simulator
