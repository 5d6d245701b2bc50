// The dpi of the monitor changes: every place is scaled, and comes back exactly.
#include <algorithm>

#include "platform/win32/dpi.h"
#include "tests/support/scenario.h"
#include "tests/support/windows_of.h"

namespace panelora::testing {
namespace {

class Scaling : public Scenario {
 protected:
  void ChangeDpi(int dpi) {
    auto& toolkit = WindowsOf(desk);
    const HWND window = toolkit.Find(res::kMain)->Handle();
    RECT suggested;
    GetWindowRect(window, &suggested);
    SendMessageA(window, win32::kDpiChanged, MAKEWPARAM(dpi, dpi),
                 reinterpret_cast<LPARAM>(&suggested));
    desk.Settle();
  }
};

TEST_F(Scaling, DpiChangeScalesWindowPagesAndControls) {
  Start();
  Press(kVideoButton);
  desk.Press(res::kVideoMenu, 1002);
  ChangeDpi(192);
  EXPECT_EQ(desk.ClientSize(res::kMain), (Rect{0, 0, 1200, 750}));
  EXPECT_EQ(PictureRect(), (Rect{0, 0, 1200, 130}));
  EXPECT_EQ(desk.PlaceOf(res::kMain, kApplyButton), (Rect{0, 210, 220, 80}));
  for (int page = res::kInformation; page <= res::kTextLabels; ++page) {
    EXPECT_EQ(desk.PlaceOf(page), (Rect{220, 130, 1080, 670})) << page;
  }
  EXPECT_EQ(desk.PlaceOf(res::kVideoSettings, 1019), (Rect{120, 90, 500, 60}));
  // What is placed from now on is scaled too.
  Press(kPageUpButton);
  EXPECT_EQ(desk.PlaceOf(res::kVideoSettings, 1037), (Rect{720, 116, 80, 78}));
  ChangeDpi(144);
  EXPECT_EQ(desk.ClientSize(res::kMain), (Rect{0, 0, 900, 563}));
  ChangeDpi(96);
  EXPECT_EQ(desk.ClientSize(res::kMain), (Rect{0, 0, 600, 375}));
  EXPECT_EQ(desk.PlaceOf(res::kVideoSettings, 1019), (Rect{60, 45, 250, 30}));
  EXPECT_EQ(desk.FontOf(res::kVideoSettings, 1019), (ui::Font{"Arial", 182}));
}

// How wide the first line of a label is, in the font in which it is drawn.
int WidthOf(HWND label, const std::string& text) {
  const HDC context = GetDC(label);
  const HGDIOBJ before =
      SelectObject(context, reinterpret_cast<HGDIOBJ>(SendMessageA(label, WM_GETFONT, 0, 0)));
  RECT line{};
  const auto length = static_cast<int>(std::min(text.find('\n'), text.size()));
  DrawTextA(context, text.c_str(), length, &line,
            DT_SINGLELINE | DT_NOPREFIX | DT_EXPANDTABS | DT_CALCRECT);
  SelectObject(context, before);
  ReleaseDC(label, context);
  return line.right;
}

TEST_F(Scaling, NoCaptionIsCutAtAnyScale) {
  for (const std::uint8_t type : Bytes{26, 15}) {
    panel.reset();
    StartWith(Identity{type, 0, 0, 0, 0});
    for (const int dpi : {96, 120, 288}) {
      ChangeDpi(dpi);
      for (int code = 0; code <= static_cast<int>(PageCode::kTextLabels); ++code) {
        panel->OpenPage(static_cast<PageCode>(code));
        desk.Settle();
        const int page = ShownPages().front();
        const auto* dialog = WindowsOf(desk).Find(page);
        for (const ui::ControlTemplate& control : res::FindDialog(page)->controls) {
          const bool isSeen = desk.Shows(page, control.id);
          if (control.kind != ui::ControlKind::kLabel || !isSeen) continue;
          const std::string text = desk.Text(page, control.id);
          // Tabs behind a text reach out of its place, and show nothing.
          const std::string seen = text.substr(0, text.find_last_not_of('\t') + 1);
          EXPECT_LE(
              WidthOf(dialog->ControlWindow(control.id), seen),
              desk.PlaceOf(page, control.id).width + 2 * dpi / 96)  // the last letter's blank edge
              << int{type} << " " << dpi << " " << page << ": " << text;
        }
      }
    }
  }
}

// Fonts, bitmaps and brushes are made once: using the window again makes no new ones.
TEST_F(Scaling, HandlesDoNotGrowWithUse) {
  auto& toolkit = WindowsOf(desk);
  Start();
  const auto walk = [&] {
    for (const int button :
         {kVideoButton, kReturnButton, kAudioButton, kReturnButton, kProcAmpButton, kPageUpButton,
          kReturnButton, kSettingButton, kReturnButton}) {
      Press(button);
    }
    box.SetPresent(false);
    for (int i = 0; i < 4; ++i) Tick();
    box.SetPresent(true);
    Tick();
  };
  walk();
  const std::size_t handles = toolkit.Gdi().Count();
  for (int i = 0; i < 10; ++i) walk();
  EXPECT_EQ(toolkit.Gdi().Count(), handles);
}

}  // namespace
}  // namespace panelora::testing
