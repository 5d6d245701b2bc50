// The random operator on real windows and in memory at once, with mouse and keyboard: after every
// step both show the same, and the box was asked and told the same.
#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <initializer_list>
#include <mutex>
#include <string>
#include <thread>

#include "base/text.h"
#include "platform/win32/tab_order.h"
#include "platform/win32/win32_toolkit.h"
#include "res/dialog_templates.h"
#include "tests/fuzz/kept_files.h"
#include "tests/fuzz/operator.h"
#include "tests/support/controls.h"
#include "tests/support/desk.h"
#include "tests/support/pixels_win32.h"
#include "tests/support/windows_of.h"

namespace panelora::fuzz {
namespace {

using memory::MemoryControl;
using memory::MemoryDialog;
using testing::Desk;

// Ends a run that hangs, with what it did: nothing else could tell of it.
class Watchdog {
 public:
  Watchdog() : thread([this] { Watch(); }) {}
  ~Watchdog() {
    ended = true;
    thread.join();
  }
  void Begin(const Step& step) {
    const std::lock_guard lock(mutex);
    done.push_back(step);
    quiet = 0;
  }
  void Forget() {
    const std::lock_guard lock(mutex);
    done.clear();
    quiet = 0;
  }

 private:
  static constexpr int kPatience = 600;  // looks of 100 ms each without an answer

  void Watch() {
    while (!ended) {
      Sleep(100);
      const std::lock_guard lock(mutex);
      if (++quiet < kPatience) continue;
      std::printf("The last step was not answered:\n%s", TextOf(done).c_str());
      std::fflush(stdout);
      TerminateProcess(GetCurrentProcess(), 3);
    }
  }

  std::mutex mutex;
  Steps done;
  int quiet = 0;
  std::atomic<bool> ended = false;
  std::thread thread;
};

// What the system took out of this thread's queue: whether real input came to the program at all. A
// display without a window manager may give the keys away when a window goes.
class Arrivals {
 public:
  Arrivals() : hook(SetWindowsHookExA(WH_GETMESSAGE, &Note, nullptr, GetCurrentThreadId())) {}
  ~Arrivals() { UnhookWindowsHookEx(hook); }
  Arrivals(const Arrivals&) = delete;
  Arrivals& operator=(const Arrivals&) = delete;

  static void Forget() { arrived.clear(); }
  static bool Has(UINT message) {
    return std::find(arrived.begin(), arrived.end(), message) != arrived.end();
  }

 private:
  static LRESULT CALLBACK Note(int code, WPARAM removed, LPARAM message) {
    if (code == HC_ACTION && removed == PM_REMOVE) {
      arrived.push_back(reinterpret_cast<const MSG*>(message)->message);
    }
    return CallNextHookEx(nullptr, code, removed, message);
  }

  HHOOK hook;
  static inline std::vector<UINT> arrived;
};

// How often something could be looked at, or done by the real mouse, and how often not.
struct Shares {
  int focusSeen = 0;
  int focusUnseen = 0;  // another window was active
  int clicked = 0;
  int clickedByMessage = 0;  // a window lay over the control
  int repainted = 0;
};
Shares shares;

// The panel on real windows, with a box of its own that does what the other one does.
class RealPanel {
 public:
  RealPanel() : panel(room.Box(), desk.Toolkit(), EveryBoxType()) {
    panel.Init();
    panel.Show();
    SetForegroundWindow(Dialog(res::kMain).Handle());
    SetCaretBlinkTime(INFINITE);  // what is seen hangs on the steps alone
    StopClocks();
    desk.Settle();
    room.Box().TakeCalls();
  }

  // A step that can be done; buttons and Enter by real mouse and keys wherever these reach them.
  void Do(const Step& step) {
    if (!room.Do(step)) OnScreen(step);
    StopClocks();
    desk.Settle();
  }

  Desk& Hand() { return desk; }
  const std::string& Broken() const { return broken; }  // by what cannot be seen in memory
  std::vector<Call> TakeCalls() { return room.Box().TakeCalls(); }

 private:
  win32::Win32Dialog& Dialog(int number) { return *WindowsOf(desk).Find(number); }

  // The steps alone say when a timer is due.
  void StopClocks() {
    for (const int number : {res::kMain, res::kVideoSettings}) {
      KillTimer(Dialog(number).Handle(), 1);
    }
  }

  void OnScreen(const Step& step) {
    switch (step.act) {
      case Act::kPress:
        Strike(step, VK_SPACE);
        break;
      case Act::kClick:
        Click(step);
        break;
      case Act::kEnter:
        Strike(step, VK_RETURN);
        break;
      case Act::kEscape:
        Strike(step, VK_ESCAPE);
        break;
      case Act::kKey:
        desk.PressKey(step.dialog, step.control, static_cast<ui::Key>(step.numbers[0]));
        break;
      case Act::kMouse:
        desk.PressMouse(step.dialog, step.control);
        break;
      case Act::kDrag:
        desk.Drag(step.dialog, step.control, step.numbers[0]);
        break;
      case Act::kRelease:
        desk.Release(step.dialog, step.control);
        break;
      case Act::kType:
        Type(step);
        break;
      case Act::kChoose:
        desk.Choose(step.dialog, step.control, step.numbers[0]);
        break;
      case Act::kTick:
        desk.Tick(res::kMain, 1);
        break;
      case Act::kPageTick:
        desk.Tick(res::kVideoSettings, 1);
        break;
      case Act::kRepaint:
        Repaint(step.dialog);
        break;
      case Act::kAbout:
        desk.WhileModal([this] { desk.RequestClose(res::kAbout); });
        desk.ChooseSystemMenu(res::kMain, 16);
        break;
      default:
        break;
    }
  }

  // What is seen must not change.
  void Repaint(int number) {
    const HWND window = Dialog(number).Handle();
    if (!IsWindowVisible(window)) return desk.Repaint(number);
    ++shares.repainted;
    const std::string stale = testing::StalePixels(window);
    if (!stale.empty()) broken = stale + " of " + std::to_string(number);
  }

  // Key by key, where a keyboard has the characters.
  void Type(const Step& step) {
    win32::Win32Dialog& dialog = Dialog(step.dialog);
    const HWND window = dialog.Frame().Handle();
    SetActiveWindow(window);
    desk.GiveFocus(step.dialog, step.control);
    const auto isOnKeyboard = [](char character) { return character >= ' ' && character <= '~'; };
    if (!std::all_of(step.text.begin(), step.text.end(), isOnKeyboard)) {
      desk.Type(step.dialog, step.control, step.text);
      return;
    }
    const HWND edit = dialog.ControlWindow(step.control);
    SendMessageA(edit, EM_SETSEL, 0, -1);
    SendMessageA(edit, WM_CLEAR, 0, 0);
    for (const char character : step.text) {
      const auto key = static_cast<WORD>(VkKeyScanA(character));
      const bool shifted = (HIBYTE(key) & 1) != 0;
      INPUT shift{};
      shift.type = INPUT_KEYBOARD;
      shift.ki.wVk = VK_SHIFT;
      if (shifted) SendInput(1, &shift, sizeof shift);
      Stroke(window, LOBYTE(key));
      shift.ki.dwFlags = KEYEVENTF_KEYUP;
      if (shifted) SendInput(1, &shift, sizeof shift);
    }
  }

  // With the focus on the control; now and then it is led there by the keyboard alone.
  void Strike(const Step& step, WORD key) {
    constexpr int kStrikesByTab = 8;
    win32::Win32Dialog& dialog = Dialog(step.dialog);
    const HWND window = dialog.Frame().Handle();
    SetActiveWindow(window);
    const HWND control = dialog.ControlWindow(step.control);
    if (++strikes % kStrikesByTab == 0 && IsChild(window, GetFocus()) &&
        win32::TakesFocus(control)) {
      TabTo(window, control);
    } else {
      desk.GiveFocus(step.dialog, step.control);
    }
    Stroke(window, key);
  }

  // Every control that takes keys is a stop of the Tab key.
  void TabTo(HWND window, HWND control) {
    constexpr int kMostStops = 100;
    for (int i = 0; i < kMostStops && GetFocus() != control; ++i) Stroke(window, VK_TAB);
    EXPECT_EQ(GetFocus(), control) << "Tab does not come to control " << GetDlgCtrlID(control);
  }

  // A key down and up. Where it went astray it is struck again, with the focus where it was.
  void Stroke(HWND window, WORD key) {
    INPUT down{};
    down.type = INPUT_KEYBOARD;
    down.ki.wVk = key;
    INPUT up = down;
    up.ki.dwFlags = KEYEVENTF_KEYUP;
    const HWND focus = GetFocus();
    const auto holdFocus = [&] {
      if (GetForegroundWindow() == window) return;
      SetForegroundWindow(window);
      if (focus != nullptr) SetFocus(focus);
    };
    for (int i = 0; i < kTrials; ++i) {
      holdFocus();
      const bool came = Arrives(down, {WM_KEYDOWN, WM_SYSKEYDOWN});
      for (int j = 0; !Arrives(up, {WM_KEYUP, WM_SYSKEYUP}) && came && j < kTrials; ++j) {
        SetForegroundWindow(Dialog(res::kMain).Handle());
      }
      if (came) return;
    }
    ADD_FAILURE() << "no key comes to the window";
  }

  bool Arrives(INPUT input, std::initializer_list<UINT> messages) {
    Arrivals::Forget();
    SendInput(1, &input, sizeof input);
    desk.Settle();
    return std::any_of(messages.begin(), messages.end(), &Arrivals::Has);
  }

  // With the real mouse where the control can be hit; a window may lie over it.
  void Click(const Step& step) {
    const HWND control = Dialog(step.dialog).ControlWindow(step.control);
    RECT place;
    GetWindowRect(control, &place);
    const POINT middle{(place.left + place.right) / 2, (place.top + place.bottom) / 2};
    if (WindowFromPoint(middle) != control) {
      ++shares.clickedByMessage;
      desk.PressMouse(step.dialog, step.control);
      desk.Press(step.dialog, step.control);
      return;
    }
    ++shares.clicked;
    SetCursorPos(middle.x, middle.y);
    INPUT down{};
    down.type = INPUT_MOUSE;
    down.mi.dwFlags = MOUSEEVENTF_LEFTDOWN;
    INPUT up = down;
    up.mi.dwFlags = MOUSEEVENTF_LEFTUP;
    EXPECT_TRUE(Arrives(down, {WM_LBUTTONDOWN, WM_LBUTTONDBLCLK})) << "no click comes";
    EXPECT_TRUE(Arrives(up, {WM_LBUTTONUP})) << "no release comes";
  }

  static constexpr int kTrials = 5;

  Desk desk;
  Surroundings room;
  CMainDlg panel;
  Arrivals arrivals;
  int strikes = 0;
  std::string broken;
};

// The first difference in what a dialog shows; empty = none.
std::string DifferenceIn(const MemoryDialog& dialog, Desk& desk) {
  const int number = dialog.Number();
  const auto differs = [&](int control, const char* what, const std::string& in,
                           const std::string& on) {
    return Format("%s of control %d of %d: \"%s\" in memory, \"%s\" on windows", what, control,
                  number, in.c_str(), on.c_str());
  };
  if (desk.IsShown(number) != dialog.IsShown()) return Format("only one shows %d", number);
  for (const ui::ControlTemplate& row : res::FindDialog(number)->controls) {
    const int id = row.id;
    const MemoryControl& control = *dialog.Find(id);
    if (desk.Shows(number, id) != control.shown) return differs(id, "visibility", "", "");
    if (desk.Enables(number, id) != control.enabled) return differs(id, "enabling", "", "");
    ui::Rect place = desk.PlaceOf(number, id);
    switch (control.kind) {
      case ui::ControlKind::kSlider:
        if (desk.SliderPosition(number, id) != control.position ||
            desk.SliderRange(number, id) != std::pair(control.minimum, control.maximum)) {
          return differs(id, "position", std::to_string(control.position),
                         std::to_string(desk.SliderPosition(number, id)));
        }
        break;
      case ui::ControlKind::kProgress:
        if (desk.ProgressPosition(number, id) != control.position) {
          return differs(id, "position", std::to_string(control.position),
                         std::to_string(desk.ProgressPosition(number, id)));
        }
        break;
      case ui::ControlKind::kCombo:
        if (desk.Items(number, id) != control.items) return differs(id, "items", "", "");
        place.height = control.rect.height;  // of a real one with its list
        break;
      case ui::ControlKind::kIcon:
        continue;
      default:
        if (desk.Text(number, id) != control.text) {
          return differs(id, "text", control.text, desk.Text(number, id));
        }
        if (desk.Picture(number, id) != control.upPicture ||
            desk.PressedPicture(number, id) != control.downPicture) {
          return differs(id, "picture", control.upPicture, desk.Picture(number, id));
        }
    }
    if (place != control.rect) return differs(id, "place", TextOf(control.rect), TextOf(place));
  }
  return "";
}

// Of everything that can be seen, or of every window that is open.
std::string Difference(FuzzPanel& inMemory, Desk& desk, bool everything) {
  for (const ui::DialogTemplate& row : res::Dialogs()) {
    const MemoryDialog* dialog = inMemory.Toolkit().Find(row.number);
    if (desk.IsOpen(row.number) != (dialog != nullptr)) {
      return Format("only one has %d", row.number);
    }
    if (dialog == nullptr || (!everything && !dialog->IsShown())) continue;
    const std::string difference = DifferenceIn(*dialog, desk);
    if (!difference.empty()) return difference;
  }
  // A window that is not active looks after its focus when it becomes so.
  auto& windows = WindowsOf(desk);
  if (GetActiveWindow() != windows.Find(res::kMain)->Handle()) {
    ++shares.focusUnseen;
    return "";
  }
  ++shares.focusSeen;
  const auto focus = inMemory.Toolkit().Find(res::kMain)->FocusedControl();
  const auto real = desk.Focus(res::kMain);
  if (focus.second != real.second || (focus.second != 0 && focus.first != real.first)) {
    return Format("focus: %d of %d in memory, %d of %d on windows", focus.second, focus.first,
                  real.second, real.first);
  }
  return "";
}

std::string DifferenceOfCalls(const std::vector<Call>& inMemory, const std::vector<Call>& real) {
  std::string texts[2];
  for (const Call& call : inMemory) texts[0] += TextOf(call) + "; ";
  for (const Call& call : real) texts[1] += TextOf(call) + "; ";
  return texts[0] == texts[1] ? "" : "in memory: " + texts[0] + "\non windows: " + texts[1];
}

class BothToolkitsTest : public ::testing::Test {
 protected:
  // The first difference that a sequence brings to light.
  std::optional<Breach> Compare(const std::function<std::optional<Step>(FuzzPanel&)>& next) {
    FuzzPanel inMemory;
    RealPanel real;
    constexpr std::size_t kLooksAtAll = 50;
    watchdog.Forget();
    for (std::size_t i = 1;; ++i) {
      const std::optional<Step> step = next(inMemory);
      if (!step) return std::nullopt;
      if (!inMemory.CanDo(*step)) continue;
      watchdog.Begin(*step);
      inMemory.Do(*step);
      if (!inMemory.Broken().empty()) return Breach{i, inMemory.Broken()};
      real.Do(*step);
      std::string what = DifferenceOfCalls(inMemory.Calls(), real.TakeCalls());
      if (what.empty()) what = Difference(inMemory, real.Hand(), i % kLooksAtAll == 0);
      if (what.empty()) what = real.Broken();
      if (!what.empty()) return Breach{i, what};
    }
  }

  std::optional<Breach> Compare(const Steps& steps) {
    std::size_t done = 0;
    return Compare([&](FuzzPanel&) {
      return done < steps.size() ? std::optional(steps[done++]) : std::nullopt;
    });
  }

  Watchdog watchdog;
};

// PANELORA_SOAK_STEPS asks for more steps than usual.
TEST_F(BothToolkitsTest, ShowAndSayTheSameAfterEveryStep) {
  constexpr int kStepsOfAPanel = 500;
  const char* soak = std::getenv("PANELORA_SOAK_STEPS");
  const int wanted = soak == nullptr ? 5000 : std::atoi(soak);
  const int panels = (wanted + kStepsOfAPanel - 1) / kStepsOfAPanel;
  for (int seed = 1; seed <= panels; ++seed) {
    RandomChoices choices(static_cast<std::uint32_t>(seed));
    Operator hand(choices);
    Steps done;
    Step step;
    const auto breach = Compare([&](FuzzPanel& panel) -> std::optional<Step> {
      if (done.size() == kStepsOfAPanel) return std::nullopt;
      do {
        step = hand.Choose(panel);
      } while (!panel.CanDo(step));
      done.push_back(step);
      return step;
    });
    if (!breach) continue;
    // Shortening takes its time: whoever ends it knows this much.
    std::printf("seed %d, step %zu: %s\n", seed, breach->steps, breach->what.c_str());
    std::fflush(stdout);
    const Steps shortened = Shorten(done, [&](const Steps& steps) { return Compare(steps); });
    FAIL() << "seed " << seed << ": " << Report(*breach, shortened);
  }
  std::printf("focus seen %d times, unseen %d; %d clicks by mouse, %d by message; %d repaints\n",
              shares.focusSeen, shares.focusUnseen, shares.clicked, shares.clickedByMessage,
              shares.repainted);
  EXPECT_GT(shares.focusSeen, 9 * shares.focusUnseen);
  EXPECT_GT(shares.clicked, 9 * shares.clickedByMessage);
}

TEST_F(BothToolkitsTest, DoAllKeptSequencesAlike) {
  const auto files = KeptFilesIn("replays");
  ASSERT_FALSE(files.empty());
  for (const KeptFile& file : files) {
    const auto breach = Compare(StepsFrom(file.content));
    EXPECT_FALSE(breach) << file.name << " after step " << breach->steps << ": " << breach->what;
  }
}

}  // namespace
}  // namespace panelora::fuzz
