// How one waits for a box that another one is at.
#pragma once

#include <cstdint>

namespace panelora::simulator {

// Waits for one's turn, since those who wait come one after the other, and then until the other one
// is gone: both together for so many ms at most. Whether the box is had; the turn is over in any
// case.
template <class Queue>
bool WaitForBox(Queue& queue, std::uint32_t patience) {
  const std::uint64_t begin = queue.Milliseconds();
  if (!queue.TakeTurn(patience)) return false;
  bool taken = false;
  do {
    taken = queue.TryBox();
    if (!taken) queue.Sleep(0);
  } while (!taken && queue.Milliseconds() - begin < patience);
  queue.EndTurn();
  return taken;
}

}  // namespace panelora::simulator
