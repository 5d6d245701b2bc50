// The keyboard on every page of the finished program: whatever is pressed, the focus is on a
// control that is seen and enabled, or on the window itself, and the program answers. With keys
// that are posted, and with those of the display, which find the focus themselves.
#include <algorithm>
#include <functional>
#include <random>

#include "tests/support/video_menu_controls.h"
#include "tests/windows/end_to_end/program_test.h"

namespace panelora::testing::end_to_end {

namespace {

constexpr int kNoMenu = 0;

// A page, and how the operator comes there.
struct Way {
  IdentityBytes identity;
  int button;
  int menuButton;
  int page;
};
const Way kWays[] = {
    {{26, 0, 0, 0, 0}, kInformationButton, kNoMenu, res::kInformation},
    {{26, 0, 0, 0, 0}, kVideoButton, kNoMenu, res::kVideoMenu},
    {{26, 0, 0, 0, 0}, kVideoButton, kVideoSettingsButton, res::kVideoSettings},
    {{26, 0, 0, 0, 0}, kVideoButton, kImageAdjustButton, res::kImageAdjust},
    {{26, 0, 0, 0, 0}, kAudioButton, kNoMenu, res::kAudio},
    {{26, 0, 0, 0, 0}, kProcAmpButton, kNoMenu, res::kProcAmp},
    {{26, 2, 0, 0, 0}, kProcAmpButton, kNoMenu, res::kProcAmp},
    {{26, 0, 0, 0, 0}, kSettingButton, kNoMenu, res::kSetting},
    {{24, 2, 0, 0, 0}, kAudioButton, kNoMenu, res::kAudio},
    {{15, 0, 0, 0, 0}, kVideoButton, kDisplayModeButton, res::kDisplayMode},
    {{15, 0, 0, 0, 0}, kVideoButton, kPipButton, res::kPip},
    {{14, 0, 0, 0, 0}, kVideoButton, kTvWallButton, res::kTvWall},
    {{46, 0, 0, 0, 0}, kVideoButton, kGenlockButton, res::kGenlock},
    {{46, 0, 0, 0, 0}, kVideoButton, kRoiButton, res::kRoi},
};

std::vector<WPARAM> EveryKey() {
  std::vector<WPARAM> keys = {VK_BACK, VK_TAB,    VK_SPACE,  VK_PRIOR,  VK_NEXT,
                              VK_END,  VK_HOME,   VK_LEFT,   VK_UP,     VK_RIGHT,
                              VK_DOWN, VK_INSERT, VK_DELETE, VK_ESCAPE, VK_APPS,
                              VK_HELP, VK_ADD,    VK_RETURN, VK_CLEAR,  VK_OEM_PLUS};
  for (WPARAM key = 'A'; key <= 'Z'; ++key) keys.push_back(key);
  for (WPARAM key = '0'; key <= '9'; ++key) keys.push_back(key);
  for (WPARAM key = VK_F1; key <= VK_F12; ++key) {
    if (key != VK_F10) keys.push_back(key);  // opens the window's menu
  }
  return keys;
}

// The keys of the display that lead to no other page, and those that may.
const std::vector<std::string> kQuietKeys = {
    "a",    "g",  "p",    "s",     "z",  "0",     "7",   "minus",  "plus", "period", "Left",
    "Home", "Up", "Down", "Right", "F1", "Prior", "End", "Insert", "Next", "Delete"};
const std::vector<std::string> kPressingKeys = {"space",       "Return",    "Tab",      "shift+Tab",
                                                "Escape",      "BackSpace", "alt+Left", "F5",
                                                "ctrl+Return", "ctrl+Prior"};

class FocusTest : public ProgramTest {
 protected:
  PanelProcess& StartFor(const Way& way) {
    return Start({.program = TheParts().everyModel, .identity = way.identity});
  }

  void ExpectUsableFocus(PanelProcess& panel) {
    // A look from outside may fall into the moment in which a dialog goes.
    HWND focus = nullptr;
    panel.Await("the focus on what is seen", [&] {
      panel.Send(panel.Main(), WM_NULL);
      focus = panel.Focus();
      return focus != nullptr && IsWindowVisible(focus);
    });
    EXPECT_TRUE(IsWindowEnabled(focus)) << GetDlgCtrlID(focus);
    const HWND page = GetParent(focus);
    const bool isControl = (GetWindowLongPtrA(focus, GWL_STYLE) & WS_TABSTOP) != 0;
    EXPECT_TRUE(isControl || focus == panel.Main() || focus == panel.OwnedDialog())
        << GetDlgCtrlID(focus) << " of " << GetDlgCtrlID(page);
    EXPECT_TRUE(page == nullptr || IsWindowVisible(page));
  }

  void Open(PanelProcess& panel, const Way& way, const std::function<void(int, int)>& press) {
    press(res::kMain, way.button);
    if (way.menuButton != kNoMenu) press(res::kVideoMenu, way.menuButton);
    ASSERT_EQ(panel.CurrentLook().pages, std::vector<int>{way.page});
  }

  // Back to the Information page from wherever it is.
  void GoHome(PanelProcess& panel) {
    for (int i = 0; i < 4 && IsWindowVisible(panel.Control(res::kMain, kReturnButton)); ++i) {
      panel.Press(res::kMain, kReturnButton);
    }
  }

  std::function<void(int, int)> ByMessage(PanelProcess& panel) {
    return [&panel](int dialog, int control) { panel.Press(dialog, control); };
  }
  std::function<void(int, int)> ByMouse(PanelProcess& panel) {
    return [&panel](int dialog, int control) { panel.Click(panel.Control(dialog, control)); };
  }

  // Posts every key to the control that has the focus, and to one that had it before.
  void PostEveryKey(PanelProcess& panel, HWND before, const std::function<void()>& open) {
    for (const WPARAM key : EveryKey()) {
      SCOPED_TRACE("key " + std::to_string(key));
      if (before != nullptr) panel.PostKey(before, key);
      panel.PostKey(panel.Focus(), key);
      panel.Description();  // everything posted is handled
      ExpectUsableFocus(panel);
      if (::testing::Test::HasFailure()) return;
      open();
    }
  }
};

class EveryWay : public FocusTest, public ::testing::WithParamInterface<std::size_t> {};

TEST_P(EveryWay, AnswersToEveryPostedKey) {
  const Way& way = kWays[GetParam()];
  PanelProcess& panel = StartFor(way);
  HWND before = panel.Control(res::kMain, way.button);
  const auto open = [&] {
    if (panel.CurrentLook().pages == std::vector<int>{way.page}) return;
    GoHome(panel);
    before = way.menuButton != kNoMenu ? panel.Control(res::kVideoMenu, way.menuButton)
                                       : panel.Control(res::kMain, way.button);
    Open(panel, way, ByMessage(panel));
    ExpectUsableFocus(panel);
  };
  open();
  PostEveryKey(panel, before, open);
}

TEST_P(EveryWay, AnswersToMouseAndKeysOfTheDisplay) {
  const Way& way = kWays[GetParam()];
  PanelProcess& panel = StartFor(way);
  Open(panel, way, ByMouse(panel));
  ExpectUsableFocus(panel);
  panel.TypeKeys(kQuietKeys);
  ExpectUsableFocus(panel);
  for (const std::string& key : kPressingKeys) {
    SCOPED_TRACE(key);
    panel.TypeKeys({key});
    ExpectUsableFocus(panel);
    panel.TypeKeys({"b", "Left"});
    ExpectUsableFocus(panel);
    if (HasFailure()) return;
    GoHome(panel);
    Open(panel, way, ByMouse(panel));
  }
}

// Left with the focus in the page, by Return, and by the plug.
TEST_P(EveryWay, AnswersAfterThePageIsGone) {
  const Way& way = kWays[GetParam()];
  PanelProcess& panel = StartFor(way);
  Open(panel, way, ByMouse(panel));
  const HWND inPage = panel.Focus();
  if (IsWindowVisible(panel.Control(res::kMain, kReturnButton))) {
    panel.Click(panel.Control(res::kMain, kReturnButton));
    EXPECT_EQ(panel.Focus(), way.menuButton != kNoMenu
                                 ? panel.Control(res::kVideoMenu, way.menuButton)
                                 : panel.Control(res::kMain, way.button));
    panel.TypeKeys({"x", "space", "Right"});
    ExpectUsableFocus(panel);
    GoHome(panel);
    Open(panel, way, ByMouse(panel));
  }
  panel.Plug(false);
  for (int i = 0; i < 6 && panel.CurrentLook() != DisconnectedLook(); ++i) panel.Tick();
  ASSERT_EQ(panel.CurrentLook(), DisconnectedLook());
  ExpectUsableFocus(panel);
  panel.TypeKeys({"space", "x", "Tab", "Down"});
  for (const WPARAM key : {WPARAM{VK_SPACE}, WPARAM{'X'}, WPARAM{VK_TAB}, WPARAM{VK_DOWN}}) {
    panel.PostKey(inPage, key);
  }
  panel.Description();
  ExpectUsableFocus(panel);
  panel.Plug(true);
  for (int i = 0; i < 6 && panel.CurrentLook() == DisconnectedLook(); ++i) panel.Tick();
  EXPECT_EQ(panel.CurrentLook().pages, std::vector<int>{res::kInformation});
  panel.TypeKeys({"q", "Tab"});
  ExpectUsableFocus(panel);
}

INSTANTIATE_TEST_SUITE_P(Pages, EveryWay, ::testing::Range(std::size_t{0}, std::size(kWays)),
                         [](const auto& index) {
                           const Way& way = kWays[index.param];
                           return "Page" + std::to_string(way.page) + "Type" +
                                  std::to_string(way.identity[0]) + "Brand" +
                                  std::to_string(way.identity[1]);
                         });

TEST_F(FocusTest, AnswersWithAboutOpen) {
  PanelProcess& panel = Start();
  const HWND before = panel.Focus();
  for (const char* key : {"x", "Tab", "Left", "space"}) {
    SCOPED_TRACE(key);
    panel.Post(panel.Main(), WM_SYSCOMMAND, 16);
    panel.Await("the About dialog", [&] { return panel.OwnedDialog() != nullptr; });
    ExpectUsableFocus(panel);
    panel.PostKey(before, 'X');
    panel.PostKey(panel.Main(), VK_TAB);
    panel.TypeKeys({key});
    ExpectUsableFocus(panel);
    if (panel.OwnedDialog() != nullptr) panel.TypeKeys({"Escape"});
    panel.Await("the end of the About dialog", [&] { return panel.OwnedDialog() == nullptr; });
    ExpectUsableFocus(panel);
  }
}

TEST_F(FocusTest, AnswersWithCautionOpen) {
  PanelProcess& panel = Start();
  for (const char* key : {"x", "Tab", "Left", "space"}) {
    SCOPED_TRACE(key);
    panel.Click(panel.Control(res::kMain, kSettingButton));
    panel.Click(panel.Control(res::kSetting, 1056));
    panel.Click(panel.Control(res::kMain, kApplyButton));
    const HWND inPage = panel.Control(res::kSetting, 1056);
    ASSERT_NE(panel.OwnedDialog(), nullptr);
    ExpectUsableFocus(panel);
    panel.TypeKeys({key});
    ExpectUsableFocus(panel);
    panel.Press(res::kMain, kReturnButton);
    panel.PostKey(inPage, 'X');
    panel.PostKey(panel.Focus(), VK_ESCAPE);
    panel.Description();
    panel.TypeKeys({key});
    ExpectUsableFocus(panel);
    if (panel.OwnedDialog() != nullptr) {
      panel.Post(panel.OwnedDialog(), WM_CLOSE);
      panel.Await("the end of the warning", [&] { return panel.OwnedDialog() == nullptr; });
    }
    GoHome(panel);
  }
}

// An impatient operator: clicks on whatever can be seen and keys, in turn, and now and then the box
// goes or comes. The seeds are fixed, so that a walk that fails can be walked again.
class Walk : public FocusTest, public ::testing::WithParamInterface<unsigned> {
 protected:
  std::vector<HWND> Clickable(PanelProcess& panel) {
    std::vector<HWND> found;
    const auto collect = [&](int dialog) {
      for (const auto& [id, place] : panel.ShownControls(dialog)) {
        const HWND control = panel.Control(dialog, id);
        if (IsWindowEnabled(control)) found.push_back(control);
      }
    };
    collect(res::kMain);
    for (const int page : panel.CurrentLook().pages) collect(page);
    return found;
  }
};

TEST_P(Walk, OfMouseAndKeysMixedIsAnswered) {
  constexpr int kSteps = 120;
  std::mt19937 random(GetParam());
  const auto draw = [&](std::size_t count) { return random() % count; };
  const std::size_t way = draw(std::size(kWays));
  PanelProcess& panel = StartFor(kWays[way]);
  bool plugged = true;
  for (int step = 0; step < kSteps; ++step) {
    SCOPED_TRACE("step " + std::to_string(step));
    switch (draw(8)) {
      case 0:
        panel.TypeKeys({kPressingKeys[draw(kPressingKeys.size())]});
        break;
      case 1:
      case 2:
        panel.TypeKeys({kQuietKeys[draw(kQuietKeys.size())]});
        break;
      case 3:
        if (draw(5) == 0) panel.Plug(plugged = !plugged);
        for (int tick = 0; tick < 6; ++tick) panel.Tick();
        break;
      default: {
        const std::vector<HWND> clickable = Clickable(panel);
        panel.Click(clickable[draw(clickable.size())]);
        break;
      }
    }
    ExpectUsableFocus(panel);
    if (HasFailure()) return;
  }
}

INSTANTIATE_TEST_SUITE_P(Seeds, Walk, ::testing::Values(1U, 2U, 3U, 4U));

}  // namespace

}  // namespace panelora::testing::end_to_end
