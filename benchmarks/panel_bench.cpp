// Measures the panel on real windows against what its windows, its messages and its calls cost at
// least. Prints a line for each figure: name, then the ratio of every pair that was measured.
//
//   panel_bench PROGRAM_PID SERVER_PID DISPLAY_PID PANEL_EXE BARE_EXE
//
// Under Wine a start or a message is work of three processes. Their numbers are those of the Linux
// side; the time is the processor time of all three, which nobody else's work on the machine
// changes.
#include "platform/win32/windows_headers.h"

#include <psapi.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

#include "app/main_dlg.h"
#include "app/navigation.h"
#include "benchmarks/bare_windows.h"
#include "benchmarks/page_switches.h"
#include "platform/win32/win32_toolkit.h"
#include "res/dialog_templates.h"
#include "simulator/box_model.h"

namespace {

using namespace panelora;
using benchmarks::BareWindows;

constexpr int kPairs = 15;
constexpr int kTicks = 1000;
constexpr double kCallMs = 5;
constexpr int kOnce = 1;
constexpr int kStarts = 3;
constexpr int kTours = 8;

[[noreturn]] void Fail(const char* what) {
  std::fprintf(stderr, "panel_bench: %s\n", what);
  std::exit(1);
}

std::vector<std::string> measuredProcesses;

// Milliseconds of processor time that the three processes have used.
double ProcessorMs() {
  double sum = 0;
  for (const std::string& process : measuredProcesses) {
    std::FILE* file = std::fopen(("Z:\\proc\\" + process + "\\schedstat").c_str(), "rb");
    double nanoseconds = 0;
    if (file == nullptr || std::fscanf(file, "%lf", &nanoseconds) != 1) {
      Fail("no processor time: it has to run under Wine, on Linux");
    }
    std::fclose(file);
    sum += nanoseconds / 1e6;
  }
  return sum;
}

// What reading the time itself takes.
double ClockMs() {
  const double before = ProcessorMs();
  double after = before;
  for (int i = 0; i < 50; ++i) after = ProcessorMs();
  return (after - before) / 50;
}

template <class Work>
double Measure(Work work) {
  static const double clock = ClockMs();
  const double before = ProcessorMs();
  work();
  return ProcessorMs() - before - clock;
}

// The simulated box with its calls counted.
class CountedBox final : public DeviceLink {
 public:
  int calls = 0;

  DeviceHandle Open(std::uint32_t mode) override { return ++calls, box.Open(mode); }
  int GetKiraboxProperty(DeviceHandle handle, std::uint8_t property, std::uint8_t sub,
                         std::uint8_t length, BlockBuffer& out) override {
    return ++calls, box.GetKiraboxProperty(handle, property, sub, length, out);
  }
  int SetKiraboxProperty(DeviceHandle handle, std::uint8_t property, std::uint8_t sub,
                         std::uint8_t length, const BlockBuffer& bytes) override {
    return ++calls, box.SetKiraboxProperty(handle, property, sub, length, bytes);
  }
  int GetBoxProperty(DeviceHandle handle, std::uint32_t group, std::uint32_t item,
                     WordBuffer& out) override {
    return ++calls, box.GetBoxProperty(handle, group, item, out);
  }
  int SetBoxProperty(DeviceHandle handle, std::uint32_t group, std::uint32_t item,
                     std::uint32_t value) override {
    return ++calls, box.SetBoxProperty(handle, group, item, value);
  }
  int GetKiraboxProcAmp(DeviceHandle handle, ProcAmpBytes& out) override {
    return ++calls, box.GetKiraboxProcAmp(handle, out);
  }
  int GetVideoProcAmp(DeviceHandle handle, std::uint32_t group, std::uint32_t control,
                      WordBuffer& out) override {
    return ++calls, box.GetVideoProcAmp(handle, group, control, out);
  }
  int SetVideoProcAmp(DeviceHandle handle, std::uint32_t group, std::uint32_t control,
                      std::uint32_t value) override {
    return ++calls, box.SetVideoProcAmp(handle, group, control, value);
  }

 private:
  simulator::BoxModel box;
};

// The panel, from its start until everything is painted.
struct Panel {
  Panel() {
    if (!window.Init()) Fail("the panel does not start");
    window.Show();
    toolkit.HandleWaiting();
  }
  ~Panel() {
    window.Window().Close();
    toolkit.HandleWaiting();
  }
  HWND Handle() { return toolkit.Find(res::kMain)->Handle(); }
  HWND Control(int dialog, int control) { return toolkit.Find(dialog)->ControlWindow(control); }
  // What a button tells its dialog when it is pressed, until all that follows is painted.
  void Press(int dialog, int control) {
    SendMessageA(toolkit.Find(dialog)->Handle(), WM_COMMAND,
                 MAKEWPARAM(static_cast<WORD>(control), BN_CLICKED),
                 reinterpret_cast<LPARAM>(Control(dialog, control)));
    toolkit.HandleWaiting();
  }

  CountedBox box;
  win32::Win32Toolkit toolkit{GetModuleHandleA(nullptr)};
  CMainDlg window{box, toolkit};
};

struct Bare {
  Bare() : handle(windows.Create()) { benchmarks::HandleWaiting(handle); }
  BareWindows windows{GetModuleHandleA(nullptr)};
  HWND handle;
};

// Takes turns, and drops the first pair, in which the system loads what both need. A pair is the
// sum of some rounds: one round alone varies by more than what is looked for.
template <class Ours, class Least>
void Compare(const char* name, int rounds, Ours ours, Least least) {
  std::printf("%s", name);
  double sums[2] = {0, 0};
  for (int i = -1; i < kPairs; ++i) {
    double bottom = 0;
    double top = 0;
    for (int round = 0; round < rounds; ++round) {
      bottom += least() / rounds;
      top += ours() / rounds;
    }
    if (i < 0) continue;
    sums[0] += top;
    sums[1] += bottom;
    std::printf(" %.4f", top / bottom);
  }
  std::printf(" | %.2f %.2f\n", sums[0] / kPairs, sums[1] / kPairs);
  std::fflush(stdout);
}

void CompareStarts() {
  Compare(
      "start", kStarts,
      [] {
        Panel* panel = nullptr;
        const double spent = Measure([&] { panel = new Panel; });
        delete panel;
        return spent;
      },
      [] {
        Bare* bare = nullptr;
        const double spent = Measure([&] { bare = new Bare; });
        delete bare;
        return spent;
      });
}

// Through every page of the shipped model and back.
constexpr std::pair<int, int> kPresses[] = {
    {res::kMain, kVideoButton},  {res::kVideoMenu, 1002},      {res::kMain, kReturnButton},
    {res::kVideoMenu, 1007},     {res::kMain, kReturnButton},  {res::kMain, kReturnButton},
    {res::kMain, kAudioButton},  {res::kMain, kReturnButton},  {res::kMain, kProcAmpButton},
    {res::kMain, kReturnButton}, {res::kMain, kSettingButton}, {res::kMain, kReturnButton}};

// A box that takes its time leaves the processor alone, so that its part is added as a number, on
// both sides.
void ComparePages() {
  Panel panel;
  Bare bare;
  const auto press = [&] {
    for (const auto& [dialog, control] : kPresses) panel.Press(dialog, control);
  };
  press();  // what is laid out when it is first seen is
  const auto start = benchmarks::LookAt(panel.toolkit);
  std::vector<std::vector<benchmarks::Change>> switches;
  auto before = start;
  panel.box.calls = 0;
  for (const auto& [dialog, control] : kPresses) {
    panel.Press(dialog, control);
    auto after = benchmarks::LookAt(panel.toolkit);
    switches.push_back(benchmarks::ChangesBetween(before, after));
    before = std::move(after);
  }
  const double waiting = panel.box.calls * kCallMs;
  if (!benchmarks::ChangesBetween(start, before).empty()) Fail("the pages do not come back");
  // From windows that look like none of them.
  std::vector<benchmarks::Look> blank = start;
  for (benchmarks::Look& look : blank) {
    look = {
        look.dialog, look.control, !look.visible, {}, "", look.picture.empty() ? "" : "-", false,
        {}};
  }
  benchmarks::Apply(benchmarks::ChangesBetween(blank, start), bare.windows);
  benchmarks::HandleWaiting(bare.handle);
  Compare(
      "switch", kTours, [&] { return waiting + Measure(press); },
      [&] {
        return waiting + Measure([&] {
                 for (const auto& changes : switches) {
                   benchmarks::Apply(changes, bare.windows);
                   benchmarks::HandleWaiting(bare.handle);
                 }
               });
      });
  std::printf("calls %.4f\n", waiting);
  panel.box.calls = 0;
  panel.Press(res::kMain, kRefreshButton);
  const double reading = panel.box.calls * kCallMs;
  Compare(
      "refresh", kTours,
      [&] { return reading + Measure([&] { panel.Press(res::kMain, kRefreshButton); }); },
      [&] { return reading; });
}

void PostTicks(HWND window, UINT_PTR timer) {
  for (int i = 0; i < kTicks; ++i) PostMessageA(window, WM_TIMER, timer, 0);
}

CountedBox* bareBox = nullptr;
WNDPROC bareProcedure = nullptr;

// One library call a message.
LRESULT CALLBACK OnBareTimer(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_TIMER) bareBox->Open(kOpenMode);
  return CallWindowProcA(bareProcedure, window, message, wParam, lParam);
}

void DispatchWaiting() {
  MSG message;
  while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageA(&message);
}

void CompareTicks() {
  Panel panel;
  Bare bare;
  CountedBox box;
  bareBox = &box;
  bareProcedure = reinterpret_cast<WNDPROC>(GetWindowLongPtrA(bare.handle, GWLP_WNDPROC));
  SetWindowLongPtrA(bare.handle, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(OnBareTimer));
  panel.box.calls = 0;
  Compare(
      "ticks", kOnce,
      [&] {
        PostTicks(panel.Handle(), 1);
        return Measure([&] { panel.toolkit.HandleWaiting(); });
      },
      [&] {
        PostTicks(bare.handle, 2);
        return Measure(DispatchWaiting);
      });
  constexpr int kAllTicks = kTicks * (kPairs + 1) * kOnce;
  if (box.calls != kAllTicks || panel.box.calls != kAllTicks) Fail("a tick was lost");
}

// Bytes that a program holds once it has nothing to do.
double WorkingSet(const char* program) {
  STARTUPINFOA start{};
  start.cb = sizeof start;
  PROCESS_INFORMATION process{};
  std::string command = program;
  if (!CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                      &process)) {
    Fail("a program does not start");
  }
  if (WaitForInputIdle(process.hProcess, 60000) != 0) Fail("a program shows no window");
  PROCESS_MEMORY_COUNTERS counters{};
  GetProcessMemoryInfo(process.hProcess, &counters, sizeof counters);
  TerminateProcess(process.hProcess, 0);
  WaitForSingleObject(process.hProcess, INFINITE);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return static_cast<double>(counters.WorkingSetSize) / 1048576;
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 6) Fail("five arguments are needed; ./bench gives them");
  measuredProcesses.assign(arguments + 1, arguments + 4);
  CompareStarts();
  ComparePages();
  CompareTicks();
  Compare(
      "memory", kOnce, [&] { return WorkingSet(arguments[4]); },
      [&] { return WorkingSet(arguments[5]); });
}
