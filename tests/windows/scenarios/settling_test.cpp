// In which order a press changes the windows, and how often each.
#include "tests/support/pixels_win32.h"
#include "tests/support/scenario.h"
#include "tests/support/windows_of.h"

namespace panelora::testing {
namespace {

class Settling : public Scenario {
 protected:
  ~Settling() override {
    if (hook != nullptr) UnhookWindowsHookEx(hook);
    watching = nullptr;
  }

  // What a press makes the panel ask, and the windows hide, show and say, in order.
  Calls EventsOf(int button) {
    events.clear();
    TakeCalls();
    watching = this;
    hook = SetWindowsHookExA(WH_CALLWNDPROC, Watch, nullptr, GetCurrentThreadId());
    Press(button);
    UnhookWindowsHookEx(std::exchange(hook, nullptr));
    AddCalls();
    return events;
  }

 private:
  void AddCalls() {
    for (const std::string& call : TakeCalls()) events.push_back(call);
  }

  static LRESULT CALLBACK Watch(int code, WPARAM wParam, LPARAM lParam) noexcept {
    if (code >= 0) watching->OnMessage(*reinterpret_cast<const CWPSTRUCT*>(lParam));
    return CallNextHookEx(nullptr, code, wParam, lParam);
  }

  void OnMessage(const CWPSTRUCT& sent) {
    const int id = GetDlgCtrlID(sent.hwnd);
    std::string event;
    if (sent.message == WM_WINDOWPOSCHANGING) {
      const UINT flags = reinterpret_cast<const WINDOWPOS*>(sent.lParam)->flags;
      if ((flags & SWP_HIDEWINDOW) != 0) event = "hide " + std::to_string(id);
      if ((flags & SWP_SHOWWINDOW) != 0) event = "show " + std::to_string(id);
    } else if (sent.message == WM_SETTEXT) {
      event = "text " + std::to_string(id) + ": " + reinterpret_cast<const char*>(sent.lParam);
    }
    if (event.empty()) return;
    AddCalls();
    events.push_back(event);
  }

  static inline Settling* watching = nullptr;
  HHOOK hook = nullptr;
  Calls events;
};

// The page before stays in view until the box has answered; what goes, goes before what comes.
TEST_F(Settling, PageBeforeStaysUntilTheBoxHasAnswered) {
  StartWith(0x0126);
  Press(kProcAmpButton);
  Press(kReturnButton);
  EXPECT_EQ(EventsOf(kProcAmpButton),
            (Calls{"get proc amp", "get block 14,0,3", "hide 103", "hide 1001", "hide 1002",
                   "hide 1003", "hide 1004", "hide 1005", "hide 1015", "show 1006", "show 1012",
                   "show 1014", "show 1017", "show 106"}));
}

// The page is read again, and nothing else is seen of it.
TEST_F(Settling, RefreshHidesNothing) {
  StartWith(0x0126);
  Press(kProcAmpButton);
  EXPECT_EQ(EventsOf(kPictureButton), (Calls{"get proc amp", "get block 14,0,3"}));
}

// A page is given its first captions whenever it is opened, and is read then: where both come to
// what stands there, no window is told.
TEST_F(Settling, CaptionThatComesBackIsNotSet) {
  StartWith(0x0126);
  Press(kAudioButton);
  Press(kReturnButton);
  EXPECT_EQ(EventsOf(kAudioButton),
            (Calls{"get word 0,11", "get word 0,4", "get word 0,6", "get word 0,16", "hide 103",
                   "hide 1001", "hide 1002", "hide 1003", "hide 1004", "hide 1005", "hide 1015",
                   "show 1006", "show 1007", "show 105"}));
}

// Sub-pages lie over one another: what goes leaves nothing behind.
TEST_F(Settling, NothingRemainsOfTheSubPageBefore) {
  StartWith(0x0126);
  const HWND window = WindowsOf(desk).Find(res::kMain)->Handle();
  panel->OpenPage(PageCode::kVideoSettings);
  for (const char* look : {"the second", "the first"}) {
    Press(kPageUpButton);
    EXPECT_EQ(StalePixels(window), "") << look;
  }
}

}  // namespace
}  // namespace panelora::testing
