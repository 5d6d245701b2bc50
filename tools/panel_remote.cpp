// Works a running Panelora.exe from outside with plain window messages: presses its buttons, reads
// its texts. For the tour, and for whoever tries something.
//
// With `follow` it takes its commands from the standard input, a line of them at a time, and
// answers each line with what they print and then a line of its own: "." or "! " and what went
// wrong.
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <iostream>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

constexpr char kTitleStart[] = "Corvane RXC-9 Center";
constexpr char kPageClass[] = "#32770";
constexpr int kFirstPage = 103;  // template numbers, which the pages carry as their window ids
constexpr int kLastPage = 115;
constexpr int kMonitorTimer = 1;
constexpr int kAboutCommand = 16;
constexpr int kMostTicks =
    10;  // that an operator's press can keep the monitor from looking, and some

constexpr ULONGLONG kPatience = 60000;  // ms, for a window to come or go
constexpr UINT kAnswerTime = 30000;     // ms, for one message
constexpr DWORD kPollPeriod = 20;       // ms

constexpr char kHelp[] =
    "usage: PanelRemote COMMAND...\n"
    "  wait            until the main window is there and shown\n"
    "  click ID        press a control of the main window\n"
    "  page-click ID   press a control of the page that is shown\n"
    "  hold ID         press a control of the main window and keep it pressed\n"
    "  let-go ID       end that\n"
    "  middle ID       print where the middle of a control of the main window is on the screen\n"
    "  tab             the Tab key, to what has the focus\n"
    "  text ID         print the text of a control of the main window\n"
    "  page-text ID    print the text of a control of the page that is shown\n"
    "  pages           print the template numbers of the pages that are shown\n"
    "  expect NUMBER   fail unless the page of that template is shown, and no other\n"
    "  rect            print the main window's x y width height on the screen\n"
    "  tick            one tick of the connection monitor\n"
    "  lost            tick until the program shows that there is no box\n"
    "  found           tick until the program shows a page\n"
    "  about           open the About dialog and wait for it\n"
    "  dialog          wait for a dialog over the main window\n"
    "  dialog-close    close it\n"
    "  close           close the program and wait for its end\n"
    "  follow          take lines of commands from the standard input\n";

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
  HWND owner = nullptr;  // null = any
};

BOOL CALLBACK Look(HWND window, LPARAM parameter) {
  Search& search = *reinterpret_cast<Search*>(parameter);
  DWORD process = 0;
  GetWindowThreadProcessId(window, &process);
  if (search.process != 0 && process != search.process) return TRUE;
  if (!TitleOf(window).starts_with(search.titleStart)) return TRUE;
  if (search.shown && !IsWindowVisible(window)) return TRUE;
  if (search.owner != nullptr && GetWindow(window, GW_OWNER) != search.owner) return TRUE;
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

// An open dialog over the main window; null = none.
HWND FindDialog(HWND mainWindow) {
  Search search{ProcessOf(mainWindow), "", true, nullptr, mainWindow};
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

HWND UsableControlOf(HWND dialog, int id) {
  const HWND control = ControlOf(dialog, id);
  if (!IsWindowVisible(control)) throw Failure("control " + std::to_string(id) + " is not shown");
  if (!IsWindowEnabled(control)) throw Failure("control " + std::to_string(id) + " is disabled");
  return control;
}

void Click(HWND mainWindow, HWND dialog, int id) {
  Send(UsableControlOf(dialog, id), BM_CLICK);
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

void Hold(int id) {
  const HWND window = MainWindow();
  Send(UsableControlOf(window, id), BM_SETSTATE, TRUE);
  Settle(window);
}

void LetGo(int id) {
  const HWND window = MainWindow();
  Send(ControlOf(window, id), BM_SETSTATE, FALSE);
  Settle(window);
}

void PrintMiddle(int id) {
  RECT place;
  GetWindowRect(UsableControlOf(MainWindow(), id), &place);
  std::printf("%ld %ld\n", (place.left + place.right) / 2, (place.top + place.bottom) / 2);
}

// Posted, since only a key from the queue is a key to the program.
void PostTab(int) {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  GetGUIThreadInfo(GetWindowThreadProcessId(MainWindow(), nullptr), &info);
  if (info.hwndFocus == nullptr) throw Failure("nothing has the focus");
  PostMessageA(info.hwndFocus, WM_KEYDOWN, VK_TAB, 1);
  PostMessageA(info.hwndFocus, WM_KEYUP, VK_TAB, static_cast<LPARAM>(0xC0000001));
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

void Expect(int page) {
  const std::vector<HWND> pages = ShownPages(MainWindow());
  if (pages.size() == 1 && GetDlgCtrlID(pages.front()) == page) return;
  std::string words = "shown is ";
  for (const HWND shown : pages) words += "page " + std::to_string(GetDlgCtrlID(shown)) + " ";
  throw Failure(words + (pages.empty() ? "no page" : "and not that page alone"));
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

// Until the condition holds; what an operator pressed may have silenced some ticks.
void TickUntil(const char* what, const std::function<bool()>& condition) {
  for (int tick = 0; tick < kMostTicks; ++tick) {
    Tick(0);
    if (condition()) return;
  }
  throw Failure(what);
}

void AwaitLoss(int) {
  TickUntil("the program goes on showing a page", [] { return ShownPages(MainWindow()).empty(); });
}

void AwaitBox(int) {
  TickUntil("the program shows no page", [] { return !ShownPages(MainWindow()).empty(); });
}

void AwaitDialog(int) {
  const HWND window = MainWindow();
  HWND dialog = nullptr;
  if (!Until([&] { return (dialog = FindDialog(window)) != nullptr; })) {
    throw Failure("no dialog opened");
  }
  Settle(dialog);
  Settle(window);
}

void OpenAbout(int) {
  PostMessageA(MainWindow(), WM_SYSCOMMAND, kAboutCommand, 0);
  AwaitDialog(0);
}

void CloseDialog(int) {
  const HWND window = MainWindow();
  const HWND dialog = FindDialog(window);
  if (dialog == nullptr) throw Failure("no dialog is open");
  PostMessageA(dialog, WM_CLOSE, 0, 0);
  if (!Until([&] { return !IsWindow(dialog); })) throw Failure("the dialog did not close");
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
    {"hold", true, Hold},
    {"let-go", true, LetGo},
    {"middle", true, PrintMiddle},
    {"tab", false, PostTab},
    {"text", true, PrintMainText},
    {"page-text", true, PrintPageText},
    {"pages", false, PrintPages},
    {"expect", true, Expect},
    {"rect", false, PrintRect},
    {"tick", false, Tick},
    {"lost", false, AwaitLoss},
    {"found", false, AwaitBox},
    {"about", false, OpenAbout},
    {"dialog", false, AwaitDialog},
    {"dialog-close", false, CloseDialog},
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

// Runs the commands until one fails; then says which, and why.
void Run(const std::vector<std::string>& words) {
  for (std::size_t i = 0; i < words.size(); ++i) {
    std::string said = words[i];
    try {
      const Command& command = FindCommand(words[i]);
      int number = 0;
      if (command.takesNumber) {
        if (++i == words.size()) throw Failure("its number is missing");
        said += " " + words[i];
        number = NumberOf(words[i]);
      }
      command.run(number);
    } catch (const Failure& failure) {
      throw Failure(said + ": " + failure.what());
    }
  }
}

void Follow() {
  for (std::string line; std::getline(std::cin, line);) {
    std::istringstream text(line);
    try {
      Run({std::istream_iterator<std::string>(text), std::istream_iterator<std::string>()});
      std::puts(".");
    } catch (const Failure& failure) {
      std::printf("! %s\n", failure.what());
    }
    std::fflush(stdout);
  }
}

}  // namespace

int main(int count, char** arguments) {
  SetProcessDPIAware();  // rectangles in real pixels
  const std::vector<std::string> words(arguments + 1, arguments + count);
  if (words.empty()) {
    std::fputs(kHelp, stderr);
    return 1;
  }
  if (words.front() == "follow") {
    Follow();
    return 0;
  }
  try {
    Run(words);
  } catch (const Failure& failure) {
    std::fprintf(stderr, "PanelRemote: %s\n", failure.what());
    return 1;
  }
  return 0;
}
