// The commands for the simulated box alone: its plug, its kind, its faults, all that it keeps.
// With a library each of them is a Failure.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "boxctl/session.h"

namespace panelora::boxctl {

void Plug(Session& session, bool plugged);
void Cut(Session& session, double seconds);
void Reset(Session& session);

struct BecomeOptions {
  std::uint32_t type = 0;
  std::uint32_t brand = 0;
  std::uint32_t subModel = 0;
  std::string firmware;  // empty = the newest that is known
  bool inputDip = false;
  bool outputDip = false;
};
void Become(Session& session, const BecomeOptions& options);

// "1920x1080i50", "1280x720p59.94" or "none".
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
void Latency(Session& session, std::uint32_t milliseconds);

// All that the box keeps.
void Dump(Session& session, const std::string& path);
void Load(Session& session, const std::string& path);

}  // namespace panelora::boxctl
