// Measures what a call costs: of the box in process, of the box that programs share, and of the
// same with the trace library before it. Prints a line for each: name, then the microseconds that a
// call takes more than the one before, of every round.
//
//   call_bench DEVLNK_DLL TRACE_DLL
//
// TRACE_DLL has the shared box's library as DEVLNK.box.dll beside it. Without it only the first
// line is printed.
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "device/devlnk_library.h"
#include "simulator/box_model.h"

namespace {

using namespace panelora;

constexpr int kRounds = 15;
constexpr int kCalls = 2000;

[[noreturn]] void Fail(const std::string& what) {
  std::fprintf(stderr, "call_bench: %s\n", what.c_str());
  std::exit(1);
}

double Microseconds() {
  LARGE_INTEGER count;
  LARGE_INTEGER perSecond;
  QueryPerformanceCounter(&count);
  QueryPerformanceFrequency(&perSecond);
  return static_cast<double>(count.QuadPart) * 1e6 / static_cast<double>(perSecond.QuadPart);
}

// Reads and writes by turns, as the panel makes them.
double TimeOfACall(DeviceLink& box, DeviceHandle handle) {
  const double begin = Microseconds();
  for (int i = 0; i < kCalls / 4; ++i) {
    BlockBuffer bytes{};
    WordBuffer words{};
    bool good = box.GetKiraboxProperty(handle, 254, 0, 20, bytes) == kSuccess;
    good &= box.GetBoxProperty(handle, kBoxGroup, 4, words) == kSuccess;
    good &= box.SetBoxProperty(handle, kBoxGroup, 4, words[0]) == kSuccess;
    good &= box.GetBoxProperty(handle, kBoxGroup, 5, words) == kSuccess;
    if (!good) Fail("a call failed");
  }
  return (Microseconds() - begin) / kCalls;
}

DevlnkLibrary Load(const char* path) {
  const HMODULE module = LoadLibraryA(path);
  if (module == nullptr) Fail(std::string("can't load ") + path);
  return DevlnkLibrary(
      [module](const char* name) { return reinterpret_cast<void*>(GetProcAddress(module, name)); });
}

void Print(const char* name, const std::vector<double>& values) {
  std::printf("%s", name);
  for (const double value : values) std::printf(" %.3f", value);
  std::printf("\n");
}

}  // namespace

int main(int count, char** arguments) {
  if (count < 2) Fail("an argument is needed; ./bench gives it");
  simulator::BoxModel model;
  DevlnkLibrary shared = Load(arguments[1]);
  DevlnkLibrary traced = count > 2 ? Load(arguments[2]) : DevlnkLibrary();
  const DeviceHandle modelHandle = model.Open(kOpenMode);
  const DeviceHandle sharedHandle = shared.Open(kOpenMode);
  const DeviceHandle tracedHandle = traced.Open(kOpenMode);
  if (sharedHandle == kNoBox || (count > 2 && tracedHandle == kNoBox)) Fail("there is no box");
  std::vector<double> moreShared;
  std::vector<double> moreTraced;
  for (int round = 0; round < kRounds; ++round) {
    const double alone = TimeOfACall(model, modelHandle);
    const double together = TimeOfACall(shared, sharedHandle);
    moreShared.push_back(together - alone);
    if (count > 2) moreTraced.push_back(TimeOfACall(traced, tracedHandle) - together);
  }
  Print("shared_call", moreShared);
  if (count > 2) Print("traced_call", moreTraced);
  return 0;
}
