#include "boxbench/plug_switches.h"

#include "base/text.h"

namespace panelora::boxbench {

Connection ConnectionOf(const simulator::BoxControl::Look& look, const PlugSwitches& switches,
                        std::uint64_t now) {
  constexpr std::uint64_t kSecond = 1000;
  if (!switches.power) return {false, "the power is off"};
  if (!switches.cable) return {false, "the cable is out"};
  const std::uint64_t cut = look.faults.cutUntil;
  if (cut > now) {
    const auto seconds = static_cast<unsigned>((cut - now + kSecond - 1) / kSecond);
    return {false, Format("the cable is cut for %u s more", seconds)};
  }
  if (!look.isPlugged) return {false, "the box is restarting"};
  return {true, look.isReplayed ? "connected, a recorded box answers" : "connected"};
}

}  // namespace panelora::boxbench
