// The shared box of a desk: a named piece of memory and a named mutex. Whoever comes first makes
// it; it is there as long as somebody has it open.
//
// The mutex guards the making, and lets those who have to wait come one after the other. Whoever is
// at the box says so in its memory, since to take a mutex for every call would cost more than all
// else that a call does.
#pragma once

#include <windows.h>

#include <string>

#include "simulator/shared_box.h"

namespace panelora::simulator {

// The name of the desk's box: what PANELORA_BOX says, or "desk".
std::string BoxName();

class MappedBox final : public BoxHost {
 public:
  // Opens the box of that name or makes it, of the shipped model and plugged in.
  explicit MappedBox(const std::string& name = BoxName());
  ~MappedBox() override;
  MappedBox(const MappedBox&) = delete;
  MappedBox& operator=(const MappedBox&) = delete;

  bool IsOpen() const { return shared != nullptr; }
  // Why it is not open, in one line.
  const std::string& Error() const { return error; }
  // Only of an open one.
  SharedBox& Shared() { return *shared; }

  // A program that died at the box leaves it to the next one. False when another one stays there
  // for a second, however many wait for it, since the panel must not stand for it.
  bool Lock() override;
  void Unlock() override;
  std::uint64_t Milliseconds() const override;
  std::uint64_t Microseconds() const override;
  std::uint64_t Time() const override;
  void Sleep(std::uint32_t milliseconds) override;
  std::uint32_t Process() const override;

 private:
  void Open();
  void Map();
  void Close();
  template <class Queue>
  friend bool WaitForBox(Queue& queue, std::uint32_t patience);
  bool TakeTurn(std::uint32_t patience);  // ms
  void EndTurn();
  bool TryBox();
  bool TryLock(std::uint32_t from);
  bool IsAlive(std::uint32_t process) const;
  std::string LifeOf(std::uint32_t process) const;

  std::string path;
  HANDLE mutex = nullptr;
  HANDLE memory = nullptr;
  HANDLE life = nullptr;  // is there as long as this process is
  SharedBox* shared = nullptr;
  std::string error;
};

}  // namespace panelora::simulator
