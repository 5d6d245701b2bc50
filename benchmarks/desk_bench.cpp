// Measures the bench beside a panel. Prints a line for each figure:
//
//   bench_start RATIO...  its start against that of bare windows, by turns | ms of both
//   shown MS...           from a call of the panel's to its row in the log
//   beside US...          what a call takes more beside the bench, at ten thousand calls a second
//
//   desk_bench BENCH_EXE BARE_EXE
#include <windows.h>

#include <commctrl.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "boxbench/controls.h"
#include "simulator/benched_box.h"
#include "simulator/mapped_box.h"

namespace {

using namespace panelora;

constexpr int kRounds = 15;
constexpr DWORD kPatience = 60000;  // ms

[[noreturn]] void Fail(const std::string& what) {
  std::fprintf(stderr, "desk_bench: %s\n", what.c_str());
  std::exit(1);
}

double Milliseconds() {
  LARGE_INTEGER count;
  LARGE_INTEGER perSecond;
  QueryPerformanceCounter(&count);
  QueryPerformanceFrequency(&perSecond);
  return static_cast<double>(count.QuadPart) * 1e3 / static_cast<double>(perSecond.QuadPart);
}

// A program from its start until it has nothing more to do. Ends it by force.
class Program {
 public:
  explicit Program(const std::string& path) {
    std::string command = "\"" + path + "\"";
    STARTUPINFOA start{};
    start.cb = sizeof start;
    const double begin = Milliseconds();
    if (!CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                        &start, &process)) {
      Fail("can't start " + path);
    }
    if (WaitForInputIdle(process.hProcess, kPatience) != 0) Fail(path + " shows no window");
    took = Milliseconds() - begin;
  }
  ~Program() {
    TerminateProcess(process.hProcess, 0);
    WaitForSingleObject(process.hProcess, kPatience);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
  }
  Program(const Program&) = delete;
  Program& operator=(const Program&) = delete;

  double Took() const { return took; }

 private:
  PROCESS_INFORMATION process{};
  double took = 0;
};

void CompareStarts(const std::string& bench, const std::string& bare) {
  double sums[2] = {0, 0};
  std::printf("bench_start");
  for (int round = -1; round < kRounds; ++round) {
    const double least = Program(bare).Took();
    const double ours = Program(bench).Took();
    if (round < 0) continue;  // in the first the system loads what both need
    std::printf(" %.4f", ours / least);
    sums[0] += ours;
    sums[1] += least;
  }
  std::printf(" | %.2f %.2f\n", sums[0] / kRounds, sums[1] / kRounds);
}

// Microseconds of a call, when a hundred are made every ten milliseconds.
double TimeOfACall(simulator::BenchedBox& panel, DeviceHandle handle) {
  constexpr int kBursts = 30;
  constexpr int kCalls = 100;
  double sum = 0;
  for (int burst = 0; burst < kBursts; ++burst) {
    const double begin = Milliseconds();
    for (int call = 0; call < kCalls; ++call) {
      WordBuffer words{};
      panel.GetBoxProperty(handle, kBoxGroup, 5, words);
    }
    sum += Milliseconds() - begin;
    Sleep(10);
  }
  return sum * 1000 / (kBursts * kCalls);
}

void MeasureBeside(const std::string& path) {
  simulator::MappedBox mapped;
  if (!mapped.IsOpen()) Fail(mapped.Error());
  simulator::BenchedBox panel(mapped.Shared(), mapped, simulator::By::kPanel);
  const DeviceHandle handle = panel.Open(kOpenMode);
  std::printf("beside");
  for (int round = 0; round < kRounds / 3; ++round) {
    const double alone = TimeOfACall(panel, handle);
    const Program bench(path);
    std::printf(" %.3f", TimeOfACall(panel, handle) - alone);
  }
  std::printf("\n");
}

void MeasureShowing(const std::string& path) {
  simulator::MappedBox mapped;
  if (!mapped.IsOpen()) Fail(mapped.Error());
  simulator::BenchedBox panel(mapped.Shared(), mapped, simulator::By::kPanel);
  const DeviceHandle handle = panel.Open(kOpenMode);
  const Program bench(path);
  const HWND window = FindWindowA(boxbench::kWindowClass, nullptr);
  const HWND log = GetDlgItem(window, boxbench::control::kLog);
  if (log == nullptr) Fail("the bench shows no log");
  const auto rows = [log] { return SendMessageA(log, LVM_GETITEMCOUNT, 0, 0); };
  std::printf("shown");
  LRESULT before = rows();
  for (int round = 0; round < kRounds; ++round) {
    Sleep(static_cast<DWORD>(300 + 17 * round));  // at another moment between two of its looks
    before = rows();
    const double begin = Milliseconds();
    panel.SetVideoProcAmp(handle, kBoxGroup, 4, static_cast<std::uint32_t>(round));
    while (rows() == before) {
      if (Milliseconds() - begin > kPatience) Fail("the bench does not show a call");
      Sleep(1);
    }
    std::printf(" %.2f", Milliseconds() - begin);
  }
  std::printf("\n");
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 3) Fail("two arguments are needed; ./bench gives them");
  CompareStarts(arguments[1], arguments[2]);
  MeasureShowing(arguments[1]);
  MeasureBeside(arguments[1]);
  return 0;
}
