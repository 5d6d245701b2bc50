#include "tests/windows/end_to_end/panel_process.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <ostream>
#include <sstream>
#include <stdexcept>

#include "tests/support/pixels_win32.h"
#include "trace/trace_file.h"

namespace panelora::testing::end_to_end {

namespace {

// A name of its own, for which tools/wine_env tells Wine to leave the window to the program.
constexpr wchar_t kProgramName[] = L"PaneloraTested.exe";

constexpr DWORD kPatience = 60000;  // ms
constexpr DWORD kPoll = 5;          // ms
constexpr int kStartAttempts = 5;
constexpr int kMonitorTimer = 1;

std::string ClassOf(HWND window) {
  char name[64] = "";
  GetClassNameA(window, name, sizeof name);
  return name;
}

bool IsDialog(HWND window) { return ClassOf(window) == "#32770"; }

int NumberOf(HWND window) { return static_cast<int>(GetWindowLongPtrA(window, GWLP_ID)); }

// The dialogs of a process that have no parent.
struct WindowSearch {
  DWORD process;
  std::vector<HWND> found;
};

BOOL CALLBACK CollectDialog(HWND window, LPARAM parameter) {
  WindowSearch& search = *reinterpret_cast<WindowSearch*>(parameter);
  DWORD owner = 0;
  GetWindowThreadProcessId(window, &owner);
  if (owner == search.process && IsDialog(window)) search.found.push_back(window);
  return TRUE;
}

// Takes the next event of a process that is debugged, if there is one soon.
void TakeDebugEvent(HANDLE process, std::vector<std::string>& lines) {
  DEBUG_EVENT event{};
  if (!WaitForDebugEvent(&event, kPoll)) return;
  DWORD answer = DBG_CONTINUE;
  if (event.dwDebugEventCode == OUTPUT_DEBUG_STRING_EVENT) {
    const OUTPUT_DEBUG_STRING_INFO& output = event.u.DebugString;
    std::string text(output.nDebugStringLength, '\0');
    SIZE_T read = 0;
    if (output.fUnicode == 0 &&
        ReadProcessMemory(process, output.lpDebugStringData, text.data(), text.size(), &read)) {
      text.resize(std::strlen(text.c_str()));
      if (text.starts_with("Panelora:")) lines.push_back(text);
    }
  } else if (event.dwDebugEventCode == CREATE_PROCESS_DEBUG_EVENT) {
    CloseHandle(event.u.CreateProcessInfo.hFile);
  } else if (event.dwDebugEventCode == LOAD_DLL_DEBUG_EVENT) {
    CloseHandle(event.u.LoadDll.hFile);
  } else if (event.dwDebugEventCode == EXCEPTION_DEBUG_EVENT) {
    const DWORD code = event.u.Exception.ExceptionRecord.ExceptionCode;
    if (code != EXCEPTION_BREAKPOINT) answer = DBG_EXCEPTION_NOT_HANDLED;
  }
  ContinueDebugEvent(event.dwProcessId, event.dwThreadId, answer);
}

}  // namespace

Parts& TheParts() {
  static Parts parts;
  return parts;
}

void PrintTo(const Look& look, std::ostream* out) {
  *out << "pages";
  for (const int page : look.pages) *out << " " << page;
  *out << ", controls";
  for (const auto& [id, place] : look.controls) *out << " " << id << " " << place;
}

Look PageLook(int page, Places buttons) {
  buttons[kPictureButton] = {0, 0, 600, 65};
  return {{page}, std::move(buttons)};
}

Look HomeLook() {
  return PageLook(res::kInformation, {{kInformationButton, ButtonAt(65)},
                                      {kVideoButton, ButtonAt(105)},
                                      {kAudioButton, ButtonAt(145)},
                                      {kProcAmpButton, ButtonAt(185)},
                                      {kSettingButton, ButtonAt(225)},
                                      {kRefreshButton, {0, 340, 110, 45}}});
}

Look DisconnectedLook() { return {{}, {{kPictureButton, {0, 0, 600, 375}}}}; }

PanelProcess::PanelProcess(const Setup& setup) {
  try {
    MakeFolder(setup);
    PrepareBox(setup);
    StartSuspended(setup);
    ResumeThread(process.hThread);
    Await("the main window", [this] {
      FindMain();
      return main != nullptr;
    });
    if (debugging) {
      DebugActiveProcessStop(process.dwProcessId);
      debugging = false;
    }
    if (setup.holdsClock) HoldTheClock();
    Send(main, WM_NULL);
  } catch (...) {
    CleanUp();
    throw;
  }
}

PanelProcess::~PanelProcess() { CleanUp(); }

void PanelProcess::CleanUp() {
  if (hook != nullptr) UnhookWindowsHookEx(hook);
  if (IsRunning()) {
    TerminateProcess(process.hProcess, 1);
    if (debugging) DebugActiveProcessStop(process.dwProcessId);
    WaitForSingleObject(process.hProcess, kPatience);
  }
  if (input != nullptr) UnmapViewOfFile(input);
  for (const HANDLE handle : {inputMemory, process.hThread, process.hProcess, job}) {
    if (handle != nullptr) CloseHandle(handle);
  }
  std::error_code ignored;
  std::filesystem::remove_all(folder, ignored);
}

// The folder holds what an operator's folder holds: the program and at most one library.
void PanelProcess::MakeFolder(const Setup& setup) {
  static int count = 0;
  std::ostringstream name;
  name << "panelora_" << GetCurrentProcessId() << "_" << ++count;
  folder = std::filesystem::temp_directory_path() / name.str();
  std::filesystem::remove_all(folder);  // a run that was broken off may have left it
  std::filesystem::create_directories(folder);
  const std::filesystem::path program = folder / kProgramName;
  std::error_code error;
  std::filesystem::create_hard_link(setup.program, program, error);
  if (error) std::filesystem::copy_file(setup.program, program);
  traced = !TheParts().tracer.empty() && setup.library == TheParts().box;
  if (traced) {
    std::filesystem::copy_file(TheParts().tracer, LibraryFile());
    std::filesystem::copy_file(setup.library, folder / "DEVLNK.box.dll");
  } else if (!setup.library.empty()) {
    std::filesystem::copy_file(setup.library, LibraryFile());
  }
}

void PanelProcess::StartSuspended(const Setup& setup) {
  const std::filesystem::path working = setup.workingFolder.empty() ? folder : setup.workingFolder;
  STARTUPINFOW start{};
  start.cb = sizeof start;
  if (setup.show >= 0) {
    start.dwFlags = STARTF_USESHOWWINDOW;
    start.wShowWindow = static_cast<WORD>(setup.show);
  }
  SetEnvironmentVariableA("PANELORA_BOX", boxName.c_str());
  DWORD flags = CREATE_SUSPENDED;
  if (setup.debugged) flags |= DEBUG_ONLY_THIS_PROCESS;
  // Wine has been seen to refuse a start that it grants the next moment.
  for (int attempt = 1;; ++attempt) {
    if (CreateProcessW((folder / kProgramName).c_str(), nullptr, nullptr, nullptr, FALSE, flags,
                       nullptr, working.c_str(), &start, &process)) {
      break;
    }
    const DWORD error = GetLastError();
    if (attempt == kStartAttempts) {
      throw std::runtime_error("the program can't be started: error " + std::to_string(error));
    }
    std::printf("start %d refused: error %lu\n", attempt, error);
    Sleep(kPoll);
  }
  debugging = setup.debugged;
  // A test program that is killed takes its panel along.
  job = CreateJobObjectW(nullptr, nullptr);
  JOBOBJECT_EXTENDED_LIMIT_INFORMATION limits{};
  limits.BasicLimitInformation.LimitFlags = JOB_OBJECT_LIMIT_KILL_ON_JOB_CLOSE;
  SetInformationJobObject(job, JobObjectExtendedLimitInformation, &limits, sizeof limits);
  AssignProcessToJobObject(job, process.hProcess);
}

void PanelProcess::PrepareBox(const Setup& setup) {
  boxName = setup.boxName.empty() ? folder.filename().string() : setup.boxName;
  mapped = std::make_unique<simulator::MappedBox>(boxName);
  if (!mapped->IsOpen()) throw std::runtime_error(mapped->Error());
  box = std::make_unique<simulator::BoxControl>(mapped->Shared(), *mapped, simulator::By::kBench);
  Plug(setup.plugged);
  Become(setup.identity, setup.firmware);
}

std::vector<HWND> PanelProcess::TopWindows() const {
  WindowSearch search{process.dwProcessId, {}};
  EnumWindows(CollectDialog, reinterpret_cast<LPARAM>(&search));
  return search.found;
}

void PanelProcess::FindMain() {
  for (const HWND window : TopWindows()) {
    if (GetWindow(window, GW_OWNER) == nullptr && IsWindowVisible(window)) main = window;
  }
}

// The program's own timer goes on but reaches nobody.
void PanelProcess::HoldTheClock() {
  const std::string name = kProbeInputName + std::to_string(process.dwProcessId);
  inputMemory = CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0,
                                   sizeof(ProbeInput), name.c_str());
  input = static_cast<ProbeInput*>(MapViewOfFile(inputMemory, FILE_MAP_ALL_ACCESS, 0, 0, 0));
  if (input == nullptr) throw std::runtime_error("no memory for the probe");
  static const HMODULE probe = LoadLibraryW((TheParts().tests / "panel_probe.dll").c_str());
  const FARPROC procedure = probe != nullptr ? GetProcAddress(probe, "HoldClock") : nullptr;
  if (procedure != nullptr) {
    hook = SetWindowsHookExW(WH_GETMESSAGE,
                             reinterpret_cast<HOOKPROC>(reinterpret_cast<void*>(procedure)), probe,
                             GetWindowThreadProcessId(main, nullptr));
  }
  if (hook == nullptr) throw std::runtime_error("the probe can't be set");
}

// Runs it under the debugger, since it has no window to wait for.
Ending PanelProcess::RunToItsEnd(const std::filesystem::path& program) {
  STARTUPINFOW start{};
  start.cb = sizeof start;
  PROCESS_INFORMATION process{};
  if (!CreateProcessW(program.c_str(), nullptr, nullptr, nullptr, FALSE, DEBUG_ONLY_THIS_PROCESS,
                      nullptr, nullptr, &start, &process)) {
    throw std::runtime_error("the program can't be started: error " +
                             std::to_string(GetLastError()));
  }
  Ending ending{};
  const ULONGLONG begin = GetTickCount64();
  while (WaitForSingleObject(process.hProcess, 0) == WAIT_TIMEOUT) {
    TakeDebugEvent(process.hProcess, ending.debuggerLines);
    if (GetTickCount64() - begin > kPatience) TerminateProcess(process.hProcess, 99);
  }
  GetExitCodeProcess(process.hProcess, &ending.code);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return ending;
}

DWORD PanelProcess::WaitForEnd() {
  if (WaitForSingleObject(process.hProcess, kPatience) != WAIT_OBJECT_0) {
    throw std::runtime_error("the program does not end");
  }
  DWORD code = 0;
  GetExitCodeProcess(process.hProcess, &code);
  return code;
}

DWORD PanelProcess::Close() {
  Post(main, WM_CLOSE);
  return WaitForEnd();
}

void PanelProcess::Kill() {
  TerminateProcess(process.hProcess, 1);
  WaitForEnd();
}

bool PanelProcess::IsRunning() const {
  return process.hProcess != nullptr && WaitForSingleObject(process.hProcess, 0) == WAIT_TIMEOUT;
}

LRESULT PanelProcess::Send(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  DWORD_PTR result = 0;
  if (SendMessageTimeoutA(window, message, wParam, lParam, SMTO_NORMAL, kPatience, &result) == 0) {
    std::ostringstream text;
    text << "message " << message << " was not handled"
         << (IsRunning() ? "" : ": the program has ended");
    throw std::runtime_error(text.str());
  }
  return static_cast<LRESULT>(result);
}

void PanelProcess::Post(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (!PostMessageA(window, message, wParam, lParam)) {
    throw std::runtime_error("the window takes no messages");
  }
}

void PanelProcess::Press(int dialog, int control) {
  const HWND button = Control(dialog, control);
  if (!IsWindowVisible(button)) {
    throw std::runtime_error("button " + std::to_string(control) + " can't be seen");
  }
  Send(button, BM_CLICK);
}

void PanelProcess::Command(int dialog, int control) {
  const HWND window = dialog == res::kMain ? main : Page(dialog);
  Send(window, WM_COMMAND, MAKEWPARAM(control, BN_CLICKED),
       reinterpret_cast<LPARAM>(Control(dialog, control)));
}

void PanelProcess::PostKey(HWND window, WPARAM key) {
  Post(window, WM_KEYDOWN, key, 1);
  PostMessageA(window, WM_KEYUP, key, static_cast<LPARAM>(0xC0000001));  // the press may close it
}

// Wine starts the display's own tool like a program of its own, but tells nothing of it afterwards
// (the handles that it gives are none): that the releases arrived is how its end is known.
void PanelProcess::UseDisplay(const std::string& commands, long releases) {
  const long wanted = InterlockedCompareExchange(&input->releases, 0, 0) + releases;
  STARTUPINFOA start{};
  start.cb = sizeof start;
  PROCESS_INFORMATION tool{};
  std::string line = "xdotool " + commands;
  if (!CreateProcessA("Z:\\usr\\bin\\xdotool", line.data(), nullptr, nullptr, FALSE, 0, nullptr,
                      nullptr, &start, &tool)) {
    throw std::runtime_error("xdotool can't be started: install the package xdotool");
  }
  Await("the input", [&] { return InterlockedCompareExchange(&input->releases, 0, 0) >= wanted; });
  Send(main, WM_NULL);
}

void PanelProcess::Click(HWND window) {
  RECT place{};
  GetWindowRect(window, &place);
  std::ostringstream commands;
  commands << "mousemove " << (place.left + place.right) / 2 << " "
           << (place.top + place.bottom) / 2 << " click 1";
  UseDisplay(commands.str(), 1);
}

void PanelProcess::TypeKeys(const std::vector<std::string>& keys) {
  std::string commands = "key --delay 0";
  long releases = 0;
  for (const std::string& key : keys) {
    commands += " " + key;
    releases +=
        1 + static_cast<long>(std::count(key.begin(), key.end(), '+'));  // and each modifier
  }
  UseDisplay(commands, releases);
}

void PanelProcess::Tick() { Send(main, WM_TIMER, kMonitorTimer); }

void PanelProcess::Await(const char* what, const std::function<bool()>& condition) {
  const ULONGLONG start = GetTickCount64();
  while (!condition()) {
    if (debugging) {
      TakeDebugEvent(process.hProcess, debuggerLines);
    } else {
      Sleep(kPoll);
    }
    if (!IsRunning()) {
      DWORD code = 0;
      GetExitCodeProcess(process.hProcess, &code);
      std::ostringstream text;
      text << "the program ended with " << std::hex << code << " before " << what;
      throw std::runtime_error(text.str());
    }
    if (GetTickCount64() - start > kPatience) {
      throw std::runtime_error(std::string("waited in vain for ") + what);
    }
  }
}

HWND PanelProcess::Page(int number) const {
  for (HWND child = GetWindow(main, GW_CHILD); child != nullptr;
       child = GetWindow(child, GW_HWNDNEXT)) {
    if (IsDialog(child) && NumberOf(child) == number) return child;
  }
  return nullptr;
}

HWND PanelProcess::OwnedDialog() const {
  for (const HWND window : TopWindows()) {
    if (GetWindow(window, GW_OWNER) == main && IsWindowVisible(window)) return window;
  }
  return nullptr;
}

HWND PanelProcess::Control(int dialog, int control) const {
  const HWND parent = dialog == res::kMain    ? main
                      : dialog == res::kAbout ? OwnedDialog()
                                              : Page(dialog);
  const HWND found = GetDlgItem(parent, control);
  if (found == nullptr) {
    throw std::runtime_error("no control " + std::to_string(control) + " in dialog " +
                             std::to_string(dialog));
  }
  return found;
}

std::vector<int> PanelProcess::Pages() const {
  std::vector<int> numbers;
  for (HWND child = GetWindow(main, GW_CHILD); child != nullptr;
       child = GetWindow(child, GW_HWNDNEXT)) {
    if (IsDialog(child)) numbers.push_back(NumberOf(child));
  }
  return numbers;
}

Look PanelProcess::CurrentLook() const {
  Look look;
  for (HWND child = GetWindow(main, GW_CHILD); child != nullptr;
       child = GetWindow(child, GW_HWNDNEXT)) {
    if (IsDialog(child) && IsShown(child)) look.pages.push_back(NumberOf(child));
  }
  look.controls = ShownControls(res::kMain);
  for (const int onlyLookedAt : {kPageMark, kSubPageDots, kRail}) look.controls.erase(onlyLookedAt);
  return look;
}

Places PanelProcess::ShownControls(int dialog) const {
  Places places;
  const HWND parent = dialog == res::kMain ? main : Page(dialog);
  for (HWND child = GetWindow(parent, GW_CHILD); child != nullptr;
       child = GetWindow(child, GW_HWNDNEXT)) {
    if (!IsDialog(child) && IsShown(child)) places[NumberOf(child)] = PlaceOf(child);
  }
  return places;
}

ui::Rect PanelProcess::PlaceOf(HWND window) const {
  RECT rect{};
  GetWindowRect(window, &rect);
  MapWindowPoints(nullptr, GetAncestor(window, GA_PARENT), reinterpret_cast<POINT*>(&rect), 2);
  return {rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top};
}

bool PanelProcess::IsShown(HWND window) const {
  return (GetWindowLongPtrA(window, GWL_STYLE) & WS_VISIBLE) != 0;
}

std::string PanelProcess::Text(HWND window) {
  char text[256] = "";
  Send(window, WM_GETTEXT, sizeof text, reinterpret_cast<LPARAM>(text));
  return text;
}

HWND PanelProcess::Focus() const {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  GetGUIThreadInfo(GetWindowThreadProcessId(main, nullptr), &info);
  return info.hwndFocus;
}

std::vector<COLORREF> PanelProcess::Pixels(int control) {
  const HWND window = Control(res::kMain, control);
  RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
  Send(window, WM_NULL);
  return PixelsOf(main, PlaceOf(window));
}

ProbeMemory PanelProcess::Description() {
  const std::string name = kProbeMemoryName + std::to_string(process.dwProcessId);
  const HANDLE mapping = CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0,
                                            sizeof(ProbeMemory), name.c_str());
  ProbeMemory* memory =
      static_cast<ProbeMemory*>(MapViewOfFile(mapping, FILE_MAP_ALL_ACCESS, 0, 0, 0));
  if (memory == nullptr) throw std::runtime_error("no memory for the probe");
  memory->described = 0;
  Post(main, RegisterWindowMessageA(kDescribeWindow));
  Await("the description",
        [memory] { return InterlockedCompareExchange(&memory->described, 0, 0) == 1; });
  const ProbeMemory description = *memory;
  UnmapViewOfFile(memory);
  CloseHandle(mapping);
  return description;
}

void PanelProcess::PutLibrary(const std::filesystem::path& library) {
  std::filesystem::remove(LibraryFile());
  std::filesystem::copy_file(library, LibraryFile());
}

Calls PanelProcess::TakeCalls() {
  Calls calls;
  const auto made = box->CallsFrom(taken + 1);
  if (!made || made->lost != 0) throw std::runtime_error("calls were lost");
  for (const simulator::Entry& entry : made->entries) {
    calls.push_back(TextOf(simulator::CallOf(entry)));
    taken = entry.number;
  }
  return calls;
}

Calls PanelProcess::TracedCalls() const {
  std::ifstream file(folder / "DEVLNK.trace.txt", std::ios::binary);
  std::string error;
  const auto trace = trace::ReadTrace(file, error);
  if (!trace || trace->lost != 0) throw std::runtime_error("no whole trace: " + error);
  Calls calls;
  for (const trace::TracedCall& each : trace->calls) calls.push_back(TextOf(each.call));
  return calls;
}

Calls PanelProcess::JournaledCalls() const {
  const auto made = box->CallsFrom(1);
  if (!made || made->lost != 0) throw std::runtime_error("calls were lost");
  Calls calls;
  for (const simulator::Entry& entry : made->entries) {
    if (entry.process == process.dwProcessId) calls.push_back(TextOf(simulator::CallOf(entry)));
  }
  return calls;
}

void PanelProcess::Plug(bool plugged) { box->Plug(plugged); }

void PanelProcess::FailCalls(bool failing) {
  box->SetFaults([failing](simulator::Faults& faults) {
    faults.every = failing ? 1 : 0;
    faults.reads = faults.writes = true;
  });
}

void PanelProcess::FillAnswers(bool filling) {
  box->SetFaults([filling](simulator::Faults& faults) { faults.fillsWhatWasAsked = filling; });
}

void PanelProcess::SlowCalls(std::uint32_t milliseconds) {
  box->SetFaults([milliseconds](simulator::Faults& faults) { faults.latency = milliseconds; });
}

void PanelProcess::Become(const IdentityBytes& identity, std::uint32_t firmware) {
  box->Become({identity[0], identity[1], identity[2], identity[3], identity[4]}, firmware);
}

}  // namespace panelora::testing::end_to_end
