// The finished program, driven from outside as the operator and the system drive it: a process of
// its own in a fresh folder, real window messages, and a simulated box of its own.
//
// Dialogs are named by their template numbers, controls by their ids. Whatever does not happen
// within a minute throws, which fails the test.
#pragma once

#include <windows.h>

#include <array>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <iosfwd>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "app/navigation.h"
#include "res/dialog_templates.h"
#include "simulator/box_control.h"
#include "simulator/mapped_box.h"
#include "tests/support/controls.h"
#include "tests/support/device_calls.h"
#include "tests/windows/probe/panel_probe.h"
#include "ui/geometry.h"

namespace panelora::testing::end_to_end {

// Where the parts under test are.
struct Parts {
  std::filesystem::path program;     // Panelora.exe
  std::filesystem::path box;         // the simulated DEVLNK.dll
  std::filesystem::path everyModel;  // Panelora.exe with every box type admitted
  std::filesystem::path tests;       // the folder of the test program and its libraries
  std::filesystem::path boxctl;      // boxctl.exe
  std::filesystem::path tracer;      // the DEVLNK.dll that traces, which is to stand between
                                     // program and box; empty = none does
};
Parts& TheParts();

// What of the main window is to be seen.
struct Look {
  std::vector<int> pages;  // template numbers
  Places controls;

  bool operator==(const Look&) const = default;
};
void PrintTo(const Look& look, std::ostream* out);

// The connected look on the Information page, and the look without a box.
Look HomeLook();
Look DisconnectedLook();
// The look of a page with its navigation buttons, below the device picture.
Look PageLook(int page, Places buttons);
// The place of a navigation button that is `y` down.
constexpr ui::Rect ButtonAt(int y) { return {0, y, 110, 40}; }

using IdentityBytes = std::array<std::uint8_t, 5>;

// How a program ended that shows no window.
struct Ending {
  DWORD code;
  std::vector<std::string> debuggerLines;
};

class PanelProcess {
 public:
  struct Setup {
    std::filesystem::path program = TheParts().program;
    std::filesystem::path library = TheParts().box;  // becomes DEVLNK.dll; empty = none
    IdentityBytes identity = {26, 0, 0, 0, 0};
    std::uint32_t firmware = 0x0126;
    bool plugged = true;
    bool holdsClock = true;  // only the ticks that the test sends count
    bool debugged = false;   // collects what goes to the debugger up to the first look
    std::filesystem::path workingFolder = {};  // empty = the program's own
    std::string boxName = {};                  // of the desk; empty = one of its own
    int show = -1;  // how the system asks for the window (SW_...); -1 = it does not
  };

  // Starts the program and waits for its window.
  explicit PanelProcess(const Setup& setup);
  // Ends the program by force.
  void Kill();
  // The same if it still runs.
  ~PanelProcess();
  PanelProcess(const PanelProcess&) = delete;
  PanelProcess& operator=(const PanelProcess&) = delete;

  // Starts a program that ends by itself, and waits for that.
  static Ending RunToItsEnd(const std::filesystem::path& program);

  // Waits for the end of the process; its exit code.
  DWORD WaitForEnd();
  // The same after WM_CLOSE.
  DWORD Close();
  bool IsRunning() const;

  // What the operator does. A press does not return before the program has dealt with it.
  void Press(int dialog, int control);
  // As a press, but also on what is hidden.
  void Command(int dialog, int control);
  void PostKey(HWND window, WPARAM key);
  // The same with the mouse and the keyboard of the display, which only it can tell from an
  // operator's. They return when the program has taken the press from its queue; a key by its name
  // in X.
  void Click(HWND window);
  void TypeKeys(const std::vector<std::string>& keys);
  // What the system does.
  void Tick();
  LRESULT Send(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
  void Post(HWND window, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);

  // Waits until the condition holds.
  void Await(const char* what, const std::function<bool()>& condition);

  // What is to be seen.
  HWND Main() const { return main; }
  HWND Page(int number) const;  // null = none
  HWND OwnedDialog() const;     // an open dialog over the main window; null = none
  HWND Control(int dialog, int control) const;
  std::vector<int> Pages() const;  // from front to back
  Look CurrentLook() const;
  Places ShownControls(int dialog) const;
  ui::Rect PlaceOf(HWND window) const;  // in the parent's client area
  bool IsShown(HWND window) const;      // by its own style, whatever its parent's
  std::string Text(HWND window);
  std::string Text(int dialog, int control) { return Text(Control(dialog, control)); }
  HWND Focus() const;
  std::vector<COLORREF> Pixels(int control);  // of a control of the main window, as drawn
  // What can only be seen from inside the process. Everything posted before has been handled then.
  ProbeMemory Description();
  // The program's lines on the debugger's output stream.
  const std::vector<std::string>& DebuggerLines() const { return debuggerLines; }

  // After its end: the calls that it made by the trace, where one is written, and by the box.
  bool IsTraced() const { return traced; }
  Calls TracedCalls() const;
  Calls JournaledCalls() const;

  // Where the program looks for its library.
  std::filesystem::path LibraryFile() const { return folder / "DEVLNK.dll"; }
  // Copies a library there, in the place of what stands there.
  void PutLibrary(const std::filesystem::path& library);

  // The simulated box.
  Calls TakeCalls();  // since the last time
  void Plug(bool plugged);
  void FailCalls(bool failing);                // every call but open
  void FillAnswers(bool filling);              // block reads answer 0xFF throughout
  void SlowCalls(std::uint32_t milliseconds);  // every call takes so long
  void Become(const IdentityBytes& identity, std::uint32_t firmware = 0x0126);

 private:
  void CleanUp();
  void MakeFolder(const Setup& setup);
  void StartSuspended(const Setup& setup);
  void PrepareBox(const Setup& setup);
  void FindMain();
  void HoldTheClock();
  void UseDisplay(const std::string& commands, long releases);
  std::vector<HWND> TopWindows() const;

  std::filesystem::path folder;
  bool traced = false;
  PROCESS_INFORMATION process{};
  HANDLE job = nullptr;
  std::string boxName;
  std::unique_ptr<simulator::MappedBox> mapped;
  std::unique_ptr<simulator::BoxControl> box;
  std::uint64_t taken = 0;  // the last call that was taken from the journal
  HANDLE inputMemory = nullptr;
  ProbeInput* input = nullptr;
  bool debugging = false;
  std::vector<std::string> debuggerLines;
  HWND main = nullptr;
  HHOOK hook = nullptr;
};

}  // namespace panelora::testing::end_to_end
