// A desk on which all work at once: panel, bench and boxctl at one box, any of them ended by force
// at any moment.
//
// PANELORA_DESK_STEPS  how many steps the first test does
// PANELORA_DESK_KILLS  how many programs the second one ends
// PANELORA_DESK_SEED   another course of both
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <random>
#include <sstream>

#include "tests/boxbench/bench_process.h"
#include "tests/support/start_win32.h"
#include "tests/windows/end_to_end/panel_process.h"

namespace panelora::testing::end_to_end {
namespace {

using boxbench::testing::BenchProcess;
namespace control = boxbench::control;

constexpr DWORD kPatience = 60000;  // ms

unsigned FromEnvironment(const char* name, unsigned usual) {
  const char* value = std::getenv(name);
  return value != nullptr ? static_cast<unsigned>(std::strtoul(value, nullptr, 10)) : usual;
}

// A running boxctl.exe.
class BoxctlProcess {
 public:
  explicit BoxctlProcess(const std::string& arguments)
      : process(
            StartByLine("\"" + TheParts().boxctl.string() + "\" " + arguments, CREATE_NO_WINDOW)) {}
  ~BoxctlProcess() {
    Kill();
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
  }
  BoxctlProcess(const BoxctlProcess&) = delete;
  BoxctlProcess& operator=(const BoxctlProcess&) = delete;

  void Kill() {
    TerminateProcess(process.hProcess, 1);
    WaitForSingleObject(process.hProcess, kPatience);
  }
  DWORD WaitForEnd() {
    if (WaitForSingleObject(process.hProcess, kPatience) != WAIT_OBJECT_0) {
      throw std::runtime_error("boxctl does not end");
    }
    DWORD code = 0;
    GetExitCodeProcess(process.hProcess, &code);
    return code;
  }

 private:
  PROCESS_INFORMATION process;
};

class DeskTest : public ::testing::Test {
 protected:
  DeskTest()
      : name(Name()),
        logFile((std::filesystem::temp_directory_path() / (name + ".txt")).string()),
        mapped(name),
        box(mapped.Shared(), mapped, simulator::By::kBoxctl) {
    StartPanel();
    StartBench();
  }
  ~DeskTest() override {
    bench.reset();
    panel.reset();
    DeleteFileA(logFile.c_str());
  }

  void StartPanel() {
    PanelProcess::Setup setup;
    setup.boxName = name;
    setup.holdsClock = false;
    panel.reset();
    panel = std::make_unique<PanelProcess>(setup);
  }
  void StartBench() {
    bench.reset();
    bench = std::make_unique<BenchProcess>(logFile);
  }

  int Pick(int count) { return static_cast<int>(random() % static_cast<unsigned>(count)); }
  bool Toss() { return Pick(2) == 0; }

  // Presses what can be seen, without waiting for what comes of it.
  void PressSomething() {
    std::vector<HWND> buttons;
    const auto gather = [&](HWND parent) {
      for (HWND child = GetWindow(parent, GW_CHILD); child != nullptr;
           child = GetWindow(child, GW_HWNDNEXT)) {
        char kind[16] = "";
        GetClassNameA(child, kind, sizeof kind);
        const LONG_PTR type = GetWindowLongPtrA(child, GWL_STYLE) & BS_TYPEMASK;
        if (std::string(kind) == "Button" && type != BS_GROUPBOX && IsWindowVisible(child) &&
            IsWindowEnabled(child)) {
          buttons.push_back(child);
        }
      }
    };
    gather(panel->Main());
    for (const int page : panel->CurrentLook().pages) gather(panel->Page(page));
    if (buttons.empty()) return;
    PostMessageA(buttons[random() % buttons.size()], BM_CLICK, 0, 0);
  }

  void WorkTheBench() {
    switch (Pick(8)) {
      case 0:
        bench->Tick(Toss() ? control::kCable : control::kPower, Toss());
        break;
      case 1:
        bench->Press(control::kCut);
        break;
      case 2:
        bench->Choose(control::kHow, Toss() ? "Every call" : "No ");
        break;
      case 3:
        bench->Choose(control::kHow, "Every nth");
        bench->Type(control::kNth, std::to_string(2 + Pick(5)));
        break;
      case 4:
        bench->Slide(control::kLatency, Pick(40));
        break;
      case 5:
        bench->Tick(control::kVanish, Toss());
        break;
      case 6:
        bench->Resize(900 + Pick(400), 600 + Pick(300));
        break;
      default:
        bench->Press(control::kNoFaults);
        break;
    }
  }

  const char* SomeCommand() {
    static constexpr const char* kCommands[] = {
        "plug",           "unplug",       "input 1280x720p50", "input none", "reset", "set Hue 77",
        "fail --every 3", "fail --never", "latency 15",        "status",     "read",  "become 26"};
    return kCommands[random() % std::size(kCommands)];
  }

  // Both programs live and answer, and each call so far has its number.
  void CheckAll() {
    ASSERT_TRUE(panel->IsRunning());
    panel->Send(panel->Main(), WM_NULL);
    bench->Text(control::kTitle);
    const auto calls = box.CallsFrom(last + 1);
    ASSERT_TRUE(calls);
    ASSERT_EQ(calls->lost, 0U);
    for (const simulator::Entry& entry : calls->entries) ASSERT_EQ(entry.number, ++last);
  }

  // Everything in order again: the panel has its box at one of its next ticks.
  void CheckRecovery() {
    bench->Press(control::kNoFaults);
    ASSERT_TRUE(box.Become({26, 0, 0, 0, 0}, 0x0126));
    ASSERT_TRUE(box.Plug(true));
    panel->Await("the box", [this] { return !panel->CurrentLook().pages.empty(); });
    boxbench::testing::Await("the bench's title", [this] {
      return bench->Text(control::kTitle) == "Type 26: connected";
    });
  }

  const std::string name;
  const std::string logFile;
  simulator::MappedBox mapped;
  simulator::BoxControl box;
  std::unique_ptr<PanelProcess> panel;
  std::unique_ptr<BenchProcess> bench;
  std::mt19937 random{FromEnvironment("PANELORA_DESK_SEED", 1)};
  std::uint64_t last = 0;  // the last call that was checked

 private:
  static std::string Name() {
    static int desks = 0;
    return "desk-test-" + std::to_string(GetCurrentProcessId()) + "-" + std::to_string(++desks);
  }
};

// The numbers of a saved log, from its second line on.
std::vector<std::uint64_t> NumbersOf(const std::string& file) {
  std::ifstream lines(file, std::ios::binary);
  std::string line;
  std::getline(lines, line);
  std::vector<std::uint64_t> numbers;
  while (std::getline(lines, line)) {
    std::string number = line.substr(0, line.find('\t'));
    std::erase(number, ',');
    numbers.push_back(std::strtoull(number.c_str(), nullptr, 10));
  }
  return numbers;
}

TEST_F(DeskTest, WorkAtRandomLeavesAllAliveAndTheLogWithoutAGap) {
  const unsigned steps = FromEnvironment("PANELORA_DESK_STEPS", 60);
  std::unique_ptr<BoxctlProcess> boxctl;
  for (unsigned step = 0; step < steps; ++step) {
    SCOPED_TRACE(step);
    const int what = Pick(10);
    if (what < 5) {
      PressSomething();
    } else if (what == 5) {
      panel->Post(panel->Main(), WM_TIMER, 1);
    } else if (what < 9) {
      WorkTheBench();
    } else {
      if (boxctl != nullptr) {
        EXPECT_LE(boxctl->WaitForEnd(), 4U);
      }
      boxctl = std::make_unique<BoxctlProcess>(SomeCommand());
    }
    ASSERT_NO_FATAL_FAILURE(CheckAll());
  }
  if (boxctl != nullptr) {
    EXPECT_LE(boxctl->WaitForEnd(), 4U);
  }
  ASSERT_NO_FATAL_FAILURE(CheckRecovery());
  ASSERT_NO_FATAL_FAILURE(CheckAll());
  EXPECT_EQ(panel->Close(), 0U);

  const std::uint64_t all = box.LookAt()->last;
  boxbench::testing::Await("last call in the log", [&] {
    const int rows = bench->RowCount(control::kLog);
    if (rows == 0) return false;
    std::string number = bench->Cell(control::kLog, rows - 1, 0);
    std::erase(number, ',');
    return number == std::to_string(all);
  });
  bench->Press(control::kSave);
  // Of a long run the oldest calls are not kept.
  const std::vector<std::uint64_t> numbers = NumbersOf(logFile);
  ASSERT_FALSE(numbers.empty());
  EXPECT_GE(numbers.size(), std::min<std::uint64_t>(all, 100000));
  EXPECT_EQ(numbers.back(), all);
  for (std::size_t i = 1; i < numbers.size(); ++i) ASSERT_EQ(numbers[i], numbers[i - 1] + 1);
}

TEST_F(DeskTest, WhoIsKilledBlocksNobody) {
  const unsigned kills = FromEnvironment("PANELORA_DESK_KILLS", 9);
  for (unsigned kill = 0; kill < kills; ++kill) {
    SCOPED_TRACE(kill);
    BoxctlProcess boxctl(Toss() ? "watch --every 1" : SomeCommand());
    for (int press = Pick(4); press > 0; --press) PressSomething();
    panel->Post(panel->Main(), WM_TIMER, 1);
    Sleep(static_cast<DWORD>(Pick(60)));
    switch (Pick(3)) {
      case 0:
        panel->Kill();
        StartPanel();
        break;
      case 1:
        bench->Kill();
        StartBench();
        break;
      default:
        boxctl.Kill();
        break;
    }
    ASSERT_NO_FATAL_FAILURE(CheckAll());
  }
  CheckRecovery();
}

}  // namespace
}  // namespace panelora::testing::end_to_end
