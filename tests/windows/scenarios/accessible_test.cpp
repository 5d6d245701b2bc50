// What only the system's interface can tell of the controls: roles, states, actions, and what is
// told of changes.
#include <string>
#include <utility>
#include <vector>

#include "tests/support/accessible_win32.h"
#include "tests/support/scenario.h"
#include "tests/support/windows_of.h"

namespace panelora::testing {
namespace {

constexpr int kMuteValue = 1025;
constexpr int kMuteNext = 1024;

class AccessibleTest : public Scenario {
 protected:
  using NumberGetter = HRESULT (STDMETHODCALLTYPE IAccessible::*)(VARIANT, VARIANT*);

  ~AccessibleTest() override {
    if (hook != nullptr) UnhookWinEvent(hook);
    watching = nullptr;
  }

  HWND WindowOf(int dialog, int control) {
    return WindowsOf(desk).Find(dialog)->ControlWindow(control);
  }
  AccessiblePtr Object(int dialog, int control) { return AccessibleOf(WindowOf(dialog, control)); }

  static long NumberFrom(IAccessible& object, NumberGetter get) {
    VARIANT told{};
    EXPECT_EQ((object.*get)(Self(), &told), S_OK);
    EXPECT_EQ(told.vt, VT_I4);
    return told.lVal;
  }
  long StateOf(int dialog, int control) {
    return NumberFrom(*Object(dialog, control), &IAccessible::get_accState);
  }
  long RoleOf(int dialog, int control) {
    return NumberFrom(*Object(dialog, control), &IAccessible::get_accRole);
  }

  // From now on: "name" or "value" and the control's id, in order.
  void Watch() {
    watching = this;
    hook = SetWinEventHook(EVENT_OBJECT_NAMECHANGE, EVENT_OBJECT_VALUECHANGE, nullptr, OnEvent,
                           GetCurrentProcessId(), GetCurrentThreadId(), WINEVENT_OUTOFCONTEXT);
    ASSERT_NE(hook, nullptr);
  }
  std::vector<std::string> Heard() {
    desk.Settle();
    return std::exchange(heard, {});
  }

 private:
  static void CALLBACK OnEvent(HWINEVENTHOOK, DWORD event, HWND window, LONG object, LONG child,
                               DWORD, DWORD) noexcept {
    if (object != OBJID_CLIENT || child != CHILDID_SELF) return;
    const std::string what = event == EVENT_OBJECT_NAMECHANGE    ? "name "
                             : event == EVENT_OBJECT_VALUECHANGE ? "value "
                                                                 : "";
    if (!what.empty()) watching->heard.push_back(what + std::to_string(GetDlgCtrlID(window)));
  }

  static inline AccessibleTest* watching = nullptr;
  HWINEVENTHOOK hook = nullptr;
  std::vector<std::string> heard;
};

TEST_F(AccessibleTest, RolesAreThoseOfTheKinds) {
  StartWith(0x0126);
  Press(kProcAmpButton);
  EXPECT_EQ(RoleOf(res::kMain, kReturnButton), ROLE_SYSTEM_PUSHBUTTON);
  EXPECT_EQ(RoleOf(res::kProcAmp, 1028), ROLE_SYSTEM_STATICTEXT);
  EXPECT_EQ(RoleOf(res::kProcAmp, 1027), ROLE_SYSTEM_GROUPING);
  EXPECT_EQ(RoleOf(res::kProcAmp, 1032), ROLE_SYSTEM_SLIDER);
  EXPECT_EQ(RoleOf(res::kProcAmp, 1049), ROLE_SYSTEM_TEXT);
  EXPECT_EQ(RoleOf(res::kAudio, 1103), ROLE_SYSTEM_PROGRESSBAR);
  EXPECT_EQ(RoleOf(res::kAudio, 1108), ROLE_SYSTEM_COMBOBOX);
}

TEST_F(AccessibleTest, StatesAreThoseOfTheControls) {
  StartWith(0x0126);
  EXPECT_NE(StateOf(res::kMain, kInformationButton) & STATE_SYSTEM_SELECTED, 0);
  EXPECT_EQ(StateOf(res::kMain, kVideoButton) & STATE_SYSTEM_SELECTED, 0);
  EXPECT_NE(StateOf(res::kMain, kReturnButton) & STATE_SYSTEM_INVISIBLE, 0);
  Press(kAudioButton);
  desk.GiveFocus(res::kAudio, kMuteNext);
  const long usual = StateOf(res::kAudio, kMuteNext);
  EXPECT_NE(usual & STATE_SYSTEM_FOCUSABLE, 0);
  EXPECT_EQ(usual & (STATE_SYSTEM_UNAVAILABLE | STATE_SYSTEM_PRESSED | STATE_SYSTEM_INVISIBLE), 0);
  if (GetFocus() == WindowOf(res::kAudio, kMuteNext)) {
    EXPECT_NE(usual & STATE_SYSTEM_FOCUSED, 0);
  }
  SendMessageA(WindowOf(res::kAudio, kMuteNext), BM_SETSTATE, TRUE, 0);
  EXPECT_NE(StateOf(res::kAudio, kMuteNext) & STATE_SYSTEM_PRESSED, 0);
  SendMessageA(WindowOf(res::kAudio, kMuteNext), BM_SETSTATE, FALSE, 0);
  WindowsOf(desk).Find(res::kAudio)->EnableControl(kMuteNext, false);
  EXPECT_NE(StateOf(res::kAudio, kMuteNext) & STATE_SYSTEM_UNAVAILABLE, 0);
  EXPECT_EQ(StateOf(res::kAudio, kMuteNext) & STATE_SYSTEM_FOCUSABLE, 0);
}

TEST_F(AccessibleTest, DefaultActionPresses) {
  StartWith(0x0126);
  Press(kAudioButton);
  const std::string before = desk.Text(res::kAudio, kMuteValue);
  const AccessiblePtr next = Object(res::kAudio, kMuteNext);
  EXPECT_EQ(TextFrom(*next, &IAccessible::get_accDefaultAction), "Press");
  EXPECT_EQ(next->accDoDefaultAction(Self()), S_OK);
  desk.Settle();
  EXPECT_NE(desk.Text(res::kAudio, kMuteValue), before);
  const AccessiblePtr caption = Object(res::kAudio, kMuteValue);
  EXPECT_NE(TextFrom(*caption, &IAccessible::get_accDefaultAction), "Press");
}

// What nobody can press is not pressed.
TEST_F(AccessibleTest, DefaultActionOfAHiddenOrDisabledButtonDoesNothing) {
  StartWith(0x0126);
  EXPECT_NE(Object(res::kMain, kApplyButton)->accDoDefaultAction(Self()), S_OK);
  Press(kAudioButton);
  WindowsOf(desk).Find(res::kAudio)->EnableControl(kMuteNext, false);
  EXPECT_NE(Object(res::kAudio, kMuteNext)->accDoDefaultAction(Self()), S_OK);
  desk.Settle();
  EXPECT_EQ(TakeCalls(), (Calls{"get word 0,11", "get word 0,4", "get word 0,6", "get word 0,16"}));
}

// What lies behind a modal dialog takes no input.
TEST_F(AccessibleTest, DefaultActionBehindAModalDialogDoesNothing) {
  StartWith(0x0126);
  const AccessiblePtr audio = Object(res::kMain, kAudioButton);
  desk.WhileModal([&] {
    EXPECT_NE(audio->accDoDefaultAction(Self()), S_OK);
    desk.Settle();
    EXPECT_EQ(ShownPages(), std::vector<int>{res::kInformation});
    desk.Press(res::kAbout, 1);
  });
  desk.ChooseSystemMenu(res::kMain, 16);
  EXPECT_EQ(audio->accDoDefaultAction(Self()), S_OK);
  desk.Settle();
  EXPECT_EQ(ShownPages(), std::vector<int>{res::kAudio});
}

// A tile takes the press of the mouse, and no click.
TEST_F(AccessibleTest, DefaultActionChoosesATile) {
  StartWith(0x0126);
  panel->OpenPage(PageCode::kTvWall);
  Press(kWall2Button);
  EXPECT_EQ(Object(res::kTvWall, 1022)->accDoDefaultAction(Self()), S_OK);
  desk.Settle();
  EXPECT_EQ(TextFrom(*Object(res::kTvWall, 1022), &IAccessible::get_accName),
            "Tile 2 of 4, chosen");
}

TEST_F(AccessibleTest, WhereAControlIsTheSystemTells) {
  StartWith(0x0126);
  const HWND window = WindowOf(res::kMain, kVideoButton);
  RECT place;
  GetWindowRect(window, &place);
  LONG left = 0;
  LONG top = 0;
  LONG width = 0;
  LONG height = 0;
  const AccessiblePtr object = AccessibleOf(window);
  EXPECT_EQ(object->accLocation(&left, &top, &width, &height, Self()), S_OK);
  EXPECT_EQ(left, place.left);
  EXPECT_EQ(top, place.top);
  EXPECT_EQ(width, place.right - place.left);
  EXPECT_EQ(height, place.bottom - place.top);
  HWND its = nullptr;
  EXPECT_EQ(WindowFromAccessibleObject(object.get(), &its), S_OK);
  EXPECT_EQ(its, window);
}

TEST_F(AccessibleTest, ObjectOutlivesItsWindowWithoutHarm) {
  StartWith(0x0126);
  AccessiblePtr object = Object(res::kMain, kVideoButton);
  const AccessiblePtr slider = Object(res::kProcAmp, 1032);
  object->AddRef();
  EXPECT_EQ(object->Release(), 1U);
  panel.reset();
  desk.Settle();
  BSTR name = nullptr;
  EXPECT_EQ(object->get_accName(Self(), &name), CO_E_OBJNOTCONNECTED);
  VARIANT state{};
  EXPECT_EQ(object->get_accState(Self(), &state), CO_E_OBJNOTCONNECTED);
  EXPECT_EQ(object->accDoDefaultAction(Self()), CO_E_OBJNOTCONNECTED);
  LONG place[4] = {};
  EXPECT_EQ(object->accLocation(&place[0], &place[1], &place[2], &place[3], Self()),
            CO_E_OBJNOTCONNECTED);
  EXPECT_EQ(slider->get_accName(Self(), &name), CO_E_OBJNOTCONNECTED);
  EXPECT_EQ(name, nullptr);
  EXPECT_EQ(object.release()->Release(), 0U);
}

TEST_F(AccessibleTest, InterfacesOfAnObjectAreOneObject) {
  StartWith(0x0126);
  const AccessiblePtr object = Object(res::kMain, kVideoButton);
  void* whole = nullptr;
  ASSERT_EQ(object->QueryInterface(__uuidof(IOleWindow), &whole), S_OK);
  auto* const window = static_cast<IOleWindow*>(whole);
  void* first = nullptr;
  void* second = nullptr;
  ASSERT_EQ(window->QueryInterface(__uuidof(IUnknown), &first), S_OK);
  ASSERT_EQ(object->QueryInterface(__uuidof(IUnknown), &second), S_OK);
  EXPECT_EQ(first, second);
  void* none = nullptr;
  EXPECT_EQ(object->QueryInterface(__uuidof(IEnumVARIANT), &none), E_NOINTERFACE);
  EXPECT_EQ(none, nullptr);
  for (void* each : {whole, first, second}) static_cast<IUnknown*>(each)->Release();
}

// Nobody listens before he has asked for a control.
TEST_F(AccessibleTest, ChangesAreToldOnceSomebodyListens) {
  StartWith(0x0126);
  Press(kAudioButton);
  Watch();
  desk.Press(res::kAudio, kMuteNext);
  EXPECT_EQ(Heard(), (std::vector<std::string>{}));
  EXPECT_NE(Object(res::kAudio, kMuteNext), nullptr);
  EXPECT_NE(TextFrom(*Object(res::kAudio, kMuteNext), &IAccessible::get_accName), "");
  Heard();
  desk.Press(res::kAudio, kMuteNext);
  EXPECT_EQ(Heard(), (std::vector<std::string>{"name 1007", "name 1024", "value 1024", "name 1025",
                                               "value 1025"}));
  Tick();
  EXPECT_EQ(Heard(), (std::vector<std::string>{}));
}

// What a page shows the reader finds himself; the mark on the rail is there before and after.
TEST_F(AccessibleTest, OfAPageThatOpensTheMarkAloneIsTold) {
  StartWith(0x0126);
  EXPECT_NE(TextFrom(*Object(res::kMain, kVideoButton), &IAccessible::get_accName), "");
  Watch();
  Press(kAudioButton);
  EXPECT_EQ(Heard(), (std::vector<std::string>{"name 1016"}));
}

TEST_F(AccessibleTest, SliderTellsWhereItWasMovedTo) {
  StartWith(0x0126);
  Press(kProcAmpButton);
  const AccessiblePtr slider = Object(res::kProcAmp, 1032);
  EXPECT_EQ(TextFrom(*slider, &IAccessible::get_accName), "Brightness");
  Watch();
  desk.Drag(res::kProcAmp, 1032, 77);
  desk.Release(res::kProcAmp, 1032);
  const std::vector<std::string> told = Heard();
  EXPECT_EQ(std::count(told.begin(), told.end(), "value 1032"), 1);
  EXPECT_EQ(TextFrom(*slider, &IAccessible::get_accValue), "77");
}

}  // namespace
}  // namespace panelora::testing
