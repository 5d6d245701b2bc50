// The commands for the simulated box alone: its plug, its kind, its faults, all that it keeps.
// With a library each of them is a Failure, and so is a box that another program keeps: then
// nothing of it has changed.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "boxctl/session.h"

namespace panelora::boxctl {

void Plug(Session& session, bool plugged);
// The cable comes back by itself; up to a day.
void Cut(Session& session, double seconds);
// The same box with its defaults; a replay ends.
void Reset(Session& session);

struct BecomeOptions {
  std::uint32_t type = 0;
  std::uint32_t brand = 0;
  std::uint32_t subModel = 0;
  std::string firmware;  // empty = the newest that is known
  bool inputDip = false;
  bool outputDip = false;
};
// Another box with its defaults; a replay ends.
void Become(Session& session, const BecomeOptions& options);

// What all inputs receive: "1920x1080i50", "1280x720p59.94" or "none". Exit::kDiffers for a signal
// that the model can't tell.
void Input(Session& session, const std::string& format);

// Which calls go wrong, and how; without a kind all are meant. The bench's latency, cut, vanishing
// and FF stay, the last two until `never`.
struct FailOptions {
  std::uint32_t every = 1;
  bool reads = false;
  bool writes = false;
  bool opens = false;
  std::string property;                // empty = any
  std::optional<std::int32_t> result;  // instead of a plain failure
  bool random = false;                 // answers of random bytes
  bool never = false;                  // an end to all of it
  bool vanish = false;                 // the next write pulls the plug
};
void Fail(Session& session, const FailOptions& options);
// How long every call takes from now on, 0 to Faults::kMostLatency.
void Latency(Session& session, std::uint32_t milliseconds);

// All that the box keeps, into a file that is replaced when it is there.
void Dump(Session& session, const std::string& path);
// From a file that Dump wrote: the box is that one, plugged in as that was, and a replay ends. One
// that is damaged changes nothing: Exit::kBadInput.
void Load(Session& session, const std::string& path);

}  // namespace panelora::boxctl
