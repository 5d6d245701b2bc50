// Works a running Panelora.exe from outside with plain window messages: presses its buttons, reads
// its texts, pulls the plug of the simulated box. For the tour, and for whoever tries
// something.
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

#include "simulator/bench_port.h"

namespace {

using panelora::simulator::BenchPort;

constexpr char kTitleStart[] = "Corvane RXC-9 Center";
constexpr char kAboutTitle[] = "About Panelora";
constexpr char kPageClass[] = "#32770";
constexpr int kFirstPage = 103;  // template numbers, which the pages carry as their window ids
constexpr int kLastPage = 115;
constexpr int kMonitorTimer = 1;
constexpr int kAboutCommand = 16;

constexpr ULONGLONG kPatience = 60000;  // ms, for a window to come or go
constexpr UINT kAnswerTime = 30000;     // ms, for one message
constexpr DWORD kPollPeriod = 20;       // ms

constexpr char kHelp[] =
    "usage: PanelRemote COMMAND...\n"
    "  wait            until the main window is there and shown\n"
    "  click ID        press a control of the main window\n"
    "  page-click ID   press a control of the page that is shown\n"
    "  text ID         print the text of a control of the main window\n"
    "  page-text ID    print the text of a control of the page that is shown\n"
    "  pages           print the template numbers of the pages that are shown\n"
    "  rect            print the main window's x y width height on the screen\n"
    "  tick            one tick of the connection monitor\n"
    "  unplug, plug    take the simulated box away, bring it back\n"
    "  box TYPE        make it a box of another type\n"
    "  about           open the About dialog and wait for it\n"
    "  about-close     close it\n"
    "  close           close the program and wait for its end\n";

struct Failure : std::runtime_error {
  using std::runtime_error::runtime_error;
};

std::string TitleOf(HWND window) {
  char title[256] = "";
  GetWindowTextA(window, title, sizeof title);
  return title;
}

// Waits until `done`; false when patience ran out.
bool Until(const std::function<bool()>& done) {
  const ULONGLONG start = GetTickCount64();
  while (!done()) {
    if (GetTickCount64() - start > kPatience) return false;
    Sleep(kPollPeriod);
  }
  return true;
}

LRESULT Send(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
  DWORD_PTR result = 0;
  if (SendMessageTimeoutA(window, message, wParam, lParam, SMTO_NORMAL, kAnswerTime, &result) ==
      0) {
    throw Failure("the program does not answer");
  }
  return static_cast<LRESULT>(result);
}

// Returns when the program has handled what was sent and everything is painted.
void Settle(HWND window) {
  Send(window, WM_NULL);
  RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
  // What is painted reaches the screen when the program waits again. The second answer comes from
  // that wait.
  Send(window, WM_NULL);
  Send(window, WM_NULL);
}

struct Search {
  DWORD process;  // 0 = any
  std::string titleStart;
  bool shown;
  HWND found;
};

BOOL CALLBACK Look(HWND window, LPARAM parameter) {
  Search& search = *reinterpret_cast<Search*>(parameter);
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  if (search.process != 0 && process != search.process) return TRUE;
  if (!TitleOf(window).starts_with(search.titleStart)) return TRUE;
  if (search.shown && !IsWindowVisible(window)) return TRUE;
  search.found = window;
  return FALSE;
}

BOOL CALLBACK AddName(LPSTR name, LPARAM parameter) {
  reinterpret_cast<std::vector<std::string>*>(parameter)->emplace_back(name);
  return TRUE;
}

// The program may stand on another desktop than this one (the tour gives it a virtual one): this
// thread moves from one to the next, because whether a window is shown can only be told from its
// own desktop, and stays where it finds the window.
HWND FindOnAnyDesktop(Search search) {
  std::vector<std::string> names;
  EnumDesktopsA(GetProcessWindowStation(), AddName, reinterpret_cast<LPARAM>(&names));
  for (const std::string& name : names) {
    const HDESK desktop = OpenDesktopA(
        name.c_str(), 0, FALSE, DESKTOP_ENUMERATE | DESKTOP_READOBJECTS | DESKTOP_WRITEOBJECTS);
    if (desktop == nullptr) continue;
    const HDESK left = GetThreadDesktop(GetCurrentThreadId());
    if (!SetThreadDesktop(desktop)) {
      CloseDesktop(desktop);
      continue;
    }
    if (left != desktop) CloseDesktop(left);
    EnumWindows(Look, reinterpret_cast<LPARAM>(&search));
    if (search.found != nullptr) return search.found;
  }
  return nullptr;
}

HWND MainWindow() {
  const HWND window = FindOnAnyDesktop({0, kTitleStart, true, nullptr});
  if (window == nullptr) throw Failure("the program's window is not there");
  return window;
}

DWORD ProcessOf(HWND window) {
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  return process;
}

HWND FindAbout(HWND mainWindow) {
  Search search{ProcessOf(mainWindow), kAboutTitle, true, nullptr};
  EnumWindows(Look, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

std::vector<HWND> ShownPages(HWND mainWindow) {
  std::vector<HWND> pages;
  HWND page = nullptr;
  while ((page = FindWindowExA(mainWindow, page, kPageClass, nullptr)) != nullptr) {
    const int number = GetDlgCtrlID(page);
    if (number >= kFirstPage && number <= kLastPage && IsWindowVisible(page)) {
      pages.push_back(page);
    }
  }
  return pages;
}

HWND ShownPage(HWND mainWindow) {
  const std::vector<HWND> pages = ShownPages(mainWindow);
  if (pages.empty()) throw Failure("no page is shown");
  return pages.front();
}

HWND ControlOf(HWND dialog, int id) {
  const HWND control = GetDlgItem(dialog, id);
  if (control == nullptr) throw Failure("control " + std::to_string(id) + " is not there");
  return control;
}

void Click(HWND mainWindow, HWND dialog, int id) {
  const HWND control = ControlOf(dialog, id);
  if (!IsWindowVisible(control)) throw Failure("control " + std::to_string(id) + " is not shown");
  if (!IsWindowEnabled(control)) throw Failure("control " + std::to_string(id) + " is disabled");
  Send(control, BM_CLICK);
  Settle(mainWindow);
}

void PrintText(HWND control) {
  char text[512] = "";
  Send(control, WM_GETTEXT, sizeof text, reinterpret_cast<LPARAM>(text));
  std::printf("%s\n", text);
}

void Wait(int) {
  HWND window = nullptr;
  if (!Until([&] {
        window = FindOnAnyDesktop({0, kTitleStart, true, nullptr});
        return window != nullptr;
      })) {
    throw Failure("the program showed no window within 60 seconds");
  }
  Settle(window);
}

void ClickMain(int id) {
  const HWND window = MainWindow();
  Click(window, window, id);
}

void ClickPage(int id) {
  const HWND window = MainWindow();
  Click(window, ShownPage(window), id);
}

void PrintMainText(int id) { PrintText(ControlOf(MainWindow(), id)); }

void PrintPageText(int id) { PrintText(ControlOf(ShownPage(MainWindow()), id)); }

void PrintPages(int) {
  const char* separator = "";
  for (const HWND page : ShownPages(MainWindow())) {
    std::printf("%s%d", separator, GetDlgCtrlID(page));
    separator = " ";
  }
  std::printf("\n");
}

void PrintRect(int) {
  RECT rect;
  GetWindowRect(MainWindow(), &rect);
  std::printf("%ld %ld %ld %ld\n", rect.left, rect.top, rect.right - rect.left,
              rect.bottom - rect.top);
}

void Tick(int) {
  const HWND window = MainWindow();
  Send(window, WM_TIMER, kMonitorTimer);
  Settle(window);
}

// Changes the simulated box of the running program.
void ChangeBox(const std::function<void(BenchPort&)>& change) {
  const std::string name =
      panelora::simulator::kBenchPortName + std::to_string(ProcessOf(MainWindow()));
  const HANDLE memory = OpenFileMappingA(FILE_MAP_ALL_ACCESS, FALSE, name.c_str());
  if (memory == nullptr) throw Failure("the program does not use the simulated box");
  auto* port =
      static_cast<BenchPort*>(MapViewOfFile(memory, FILE_MAP_ALL_ACCESS, 0, 0, sizeof(BenchPort)));
  const bool known = port != nullptr && port->magic == panelora::simulator::kBenchPortMagic;
  if (known) change(*port);
  if (port != nullptr) UnmapViewOfFile(port);
  CloseHandle(memory);
  if (!known) throw Failure("the simulated box is of another build");
}

void Unplug(int) {
  ChangeBox([](BenchPort& port) { port.present = 0; });
}

void Plug(int) {
  ChangeBox([](BenchPort& port) { port.present = 1; });
}

// Of the maker's own brand, without DIP switches.
void MakeBox(int boxType) {
  if (boxType > 255) throw Failure("not a box type: " + std::to_string(boxType));
  ChangeBox([boxType](BenchPort& port) {
    std::fill(std::begin(port.identity), std::end(port.identity), std::uint8_t{0});
    port.identity[0] = static_cast<std::uint8_t>(boxType);
    ++port.change;
  });
}

void OpenAbout(int) {
  const HWND window = MainWindow();
  PostMessageA(window, WM_SYSCOMMAND, kAboutCommand, 0);
  HWND about = nullptr;
  if (!Until([&] { return (about = FindAbout(window)) != nullptr; })) {
    throw Failure("the About dialog did not open");
  }
  Settle(about);
  Settle(window);
}

void CloseAbout(int) {
  const HWND window = MainWindow();
  const HWND about = FindAbout(window);
  if (about == nullptr) throw Failure("the About dialog is not open");
  PostMessageA(about, WM_CLOSE, 0, 0);
  if (!Until([&] { return !IsWindow(about); })) throw Failure("the About dialog did not close");
  Settle(window);
}

void Close(int) {
  const HWND window = MainWindow();
  const HANDLE process = OpenProcess(SYNCHRONIZE, FALSE, ProcessOf(window));
  PostMessageA(window, WM_CLOSE, 0, 0);
  if (!Until([&] { return !IsWindow(window); })) throw Failure("the window did not close");
  if (process == nullptr) return;
  const DWORD ended = WaitForSingleObject(process, static_cast<DWORD>(kPatience));
  CloseHandle(process);
  if (ended != WAIT_OBJECT_0) throw Failure("the program did not end");
}

struct Command {
  const char* name;
  bool takesNumber;
  void (*run)(int number);
};

constexpr Command kCommands[] = {
    {"wait", false, Wait},
    {"click", true, ClickMain},
    {"page-click", true, ClickPage},
    {"text", true, PrintMainText},
    {"page-text", true, PrintPageText},
    {"pages", false, PrintPages},
    {"rect", false, PrintRect},
    {"tick", false, Tick},
    {"unplug", false, Unplug},
    {"plug", false, Plug},
    {"box", true, MakeBox},
    {"about", false, OpenAbout},
    {"about-close", false, CloseAbout},
    {"close", false, Close},
};

const Command& FindCommand(const std::string& name) {
  for (const Command& command : kCommands) {
    if (name == command.name) return command;
  }
  throw Failure("no such command");
}

int NumberOf(const std::string& text) {
  char* end = nullptr;
  const long number = std::strtol(text.c_str(), &end, 10);
  if (text.empty() || *end != '\0' || number < 1 || number > 0xFFFF) {
    throw Failure("not a number: " + text);
  }
  return static_cast<int>(number);
}

}  // namespace

int main(int count, char** arguments) {
  SetProcessDPIAware();  // rectangles in real pixels
  if (count < 2) {
    std::fputs(kHelp, stderr);
    return 1;
  }
  for (int i = 1; i < count; ++i) {
    std::string words = arguments[i];
    try {
      const Command& command = FindCommand(words);
      int number = 0;
      if (command.takesNumber) {
        if (++i == count) throw Failure("its number is missing");
        words += std::string(" ") + arguments[i];
        number = NumberOf(arguments[i]);
      }
      command.run(number);
      std::fflush(stdout);
    } catch (const Failure& failure) {
      std::fprintf(stderr, "PanelRemote: %s: %s\n", words.c_str(), failure.what());
      return 1;
    }
  }
  return 0;
}
