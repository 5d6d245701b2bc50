// A trace: the calls that a program made of its box, as a file of lines that any editor shows.
//
// The first line says the format's version and the number of the first call. Then each call has a
// line, and so has each gap where calls were lost:
//
//   Panelora trace 1, calls from 1
//   1 2026-11-22 09:48:59.123456 153us open 2 = 65537 -> 1 [0B5E2A91]
//   2 2026-11-22 09:48:59.123698 87us get word 0,5 = 38 1 -> 1 [6C19D0F3]
//   3 lost 66 [91C7730A]
//   69 2026-11-22 09:49:01.004417 90us set block 22,0,1: 06 -> 1 [E2405B1C]
//
// A file that goes on with another one repeats at its head what the box had told of itself last,
// its identity and firmware: these calls have the number 0.
//
// number, UTC, duration, the call as TextOf writes it, behind " = " what was answered (bytes in
// hexadecimal), behind " -> " the result, and in brackets a check of all that stands before it. A
// block that was told without a buffer has its length and no bytes.
#pragma once

#include <cstdint>
#include <istream>
#include <optional>
#include <string>
#include <vector>

#include "device/call.h"

namespace panelora::trace {

struct TracedCall {
  std::uint64_t time = 0;      // when it was made, in microseconds since 1970 (UTC)
  std::uint32_t duration = 0;  // microseconds
  Call call;                   // of an open, words[0] is the handle that was answered
  std::uint64_t number = 0;    // from 1, with gaps where calls were lost; 0 = it has none
};

struct Trace {
  std::vector<Call> before;  // what the box had told of itself, in the files before
  std::vector<TracedCall> calls;
  std::uint64_t firstNumber = 1;  // of its first call, also when that was lost
  std::uint64_t lost = 0;         // how many calls could not be written down
};

// The longest trace that is read, in bytes.
inline constexpr std::uint64_t kLongestTrace = 200'000'000;

// Reads a whole trace, of a stream that is open in binary mode. A last line that is cut off is left
// out: the program may have been killed while it was written. Of anything else that is wrong
// `error` says in one line where and what.
std::optional<Trace> ReadTrace(std::istream& in, std::string& error,
                               std::uint64_t longest = kLongestTrace);

// A trace that is read while it is written.
class GrowingTrace {
 public:
  // How far it was read.
  struct Reached {
    std::uint64_t place = 0;  // where the line begins that was read last
    std::uint64_t line = 0;   // its number; 0 = none was read yet
    std::uint64_t next = 0;   // number of the call behind it
    std::string text;         // the line
  };

  // The calls whose lines have become whole since the last time, of a stream that begins at
  // TheReached().place. Nothing without an error where the line that was read last is not there any
  // more, as in another file, or the first one not yet.
  std::optional<Trace> ReadOn(std::istream& in, std::string& error);

  const Reached& TheReached() const { return reached; }
  bool IsBegun() const { return reached.line != 0; }

 private:
  Reached reached;
};

}  // namespace panelora::trace
