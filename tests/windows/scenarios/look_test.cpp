// What is drawn, by its pixels: the states of a button, the marks, and the colours of the system.
#include <algorithm>
#include <utility>

#include "tests/support/audio_controls.h"
#include "tests/support/pixels_win32.h"
#include "tests/support/scenario.h"
#include "tests/support/windows_of.h"

namespace panelora::testing {
namespace {

using Pixels = std::vector<COLORREF>;

constexpr COLORREF kAccent = RGB(0x12, 0x8C, 0x9C);
constexpr int kHardwareReset = 1041;

class LookTest : public Scenario {
 protected:
  ~LookTest() override {
    for (const auto& [index, colour] : before) SetSysColors(1, &index, &colour);
  }

  // Of a control, as it stands on the screen.
  Pixels PixelsOfControl(int dialog, int control) {
    desk.Settle();
    const HWND window = WindowsOf(desk).Find(dialog)->Handle();
    Pixels pixels = PixelsOf(window, desk.PlaceOf(dialog, control));
    for (COLORREF& pixel : pixels) {  // a bitmap has its bytes the other way round
      pixel = RGB(GetBValue(pixel), GetGValue(pixel), GetRValue(pixel));
    }
    return pixels;
  }
  static bool Has(const Pixels& pixels, COLORREF colour) {
    return std::find(pixels.begin(), pixels.end(), colour) != pixels.end();
  }

  // Gives the desktop these colours until the test ends.
  void UseColours(std::initializer_list<std::pair<int, COLORREF>> colours, bool highContrast) {
    for (const auto& [index, colour] : colours) {
      before.emplace_back(index, GetSysColor(index));
      SetSysColors(1, &index, &colour);
    }
    for (const int dialog : {res::kMain, kPage}) {
      SendMessageA(WindowsOf(desk).Find(dialog)->Handle(), WM_SYSCOLORCHANGE, 0, 0);
    }
    WindowsOf(desk).TakeSystemColours(highContrast);
    desk.Repaint(res::kMain);
  }

 private:
  std::vector<std::pair<int, COLORREF>> before;
};

// None of them looks like another.
TEST_F(LookTest, ButtonHasFiveStates) {
  StartWith(0x0126);
  Press(kAudioButton);
  const HWND apply = WindowsOf(desk).Find(res::kMain)->ControlWindow(kApplyButton);
  const auto look = [&] { return PixelsOfControl(res::kMain, kApplyButton); };
  std::vector<Pixels> states = {look()};
  SendMessageA(apply, BM_SETSTATE, TRUE, 0);
  states.push_back(look());
  SendMessageA(apply, BM_SETSTATE, FALSE, 0);
  MSG over{};
  over.hwnd = apply;
  over.message = WM_MOUSEMOVE;
  WindowsOf(desk).Handle(over);
  states.push_back(look());
  over.message = WM_MOUSELEAVE;
  WindowsOf(desk).Handle(over);
  EXPECT_EQ(look(), states[0]);
  desk.Press(kPage, kMute.next);
  states.push_back(look());  // there is something to apply
  desk.Press(kPage, kMute.next);
  EXPECT_EQ(look(), states[0]);
  desk.PressKey(res::kMain, kApplyButton, ui::Key::kEscape);  // from now on the focus is marked
  states.push_back(look());
  for (std::size_t i = 0; i < states.size(); ++i) {
    for (std::size_t j = i + 1; j < states.size(); ++j) EXPECT_NE(states[i], states[j]) << i << j;
  }
}

// The same of a step button, which is drawn; and it may be disabled.
TEST_F(LookTest, StepButtonHasFiveStates) {
  StartWith(0x0126);
  Press(kAudioButton);
  const HWND next = WindowsOf(desk).Find(kPage)->ControlWindow(kMute.next);
  const auto look = [&] { return PixelsOfControl(kPage, kMute.next); };
  std::vector<Pixels> states = {look()};
  SendMessageA(next, BM_SETSTATE, TRUE, 0);
  states.push_back(look());
  SendMessageA(next, BM_SETSTATE, FALSE, 0);
  MSG over{};
  over.hwnd = next;
  over.message = WM_MOUSEMOVE;
  WindowsOf(desk).Handle(over);
  states.push_back(look());
  over.message = WM_MOUSELEAVE;
  WindowsOf(desk).Handle(over);
  EnableWindow(next, FALSE);
  states.push_back(look());
  EnableWindow(next, TRUE);
  EXPECT_EQ(look(), states[0]);
  WindowsOf(desk).Find(kPage)->Focus(kMute.next);
  desk.PressKey(kPage, kMute.next, ui::Key::kEscape);  // from now on the focus is marked
  states.push_back(look());
  for (std::size_t i = 0; i < states.size(); ++i) {
    for (std::size_t j = i + 1; j < states.size(); ++j) EXPECT_NE(states[i], states[j]) << i << j;
  }
}

// The mouse stands where the button was, and has not moved.
TEST_F(LookTest, ButtonThatWentComesBackAsItIsElsewhere) {
  StartWith(0x0126);
  const Pixels plain = PixelsOfControl(res::kMain, kAudioButton);
  MSG over{};
  over.hwnd = WindowsOf(desk).Find(res::kMain)->ControlWindow(kAudioButton);
  over.message = WM_MOUSEMOVE;
  WindowsOf(desk).Handle(over);
  EXPECT_NE(PixelsOfControl(res::kMain, kAudioButton), plain);
  Press(kVideoButton);
  Press(kReturnButton);
  EXPECT_EQ(PixelsOfControl(res::kMain, kAudioButton), plain);
}

TEST_F(LookTest, PendingValueHasAnAccentOnItsFrame) {
  StartWith(0x0126);
  Press(kAudioButton);
  EXPECT_FALSE(Has(PixelsOfControl(kPage, kMute.frame), kAccent));
  desk.Press(kPage, kMute.next);
  EXPECT_TRUE(Has(PixelsOfControl(kPage, kMute.frame), kAccent));
  EXPECT_FALSE(Has(PixelsOfControl(kPage, kSource.frame), kAccent));
  Press(kApplyButton);
  EXPECT_FALSE(Has(PixelsOfControl(kPage, kMute.frame), kAccent));
}

constexpr COLORREF kInk = RGB(0xFA, 0xF0, 0x0A);
constexpr COLORREF kBehindValues = RGB(0x01, 0x02, 0x03);
constexpr COLORREF kText = RGB(0x0B, 0xFC, 0x0D);
constexpr COLORREF kFace = RGB(0x21, 0x22, 0x23);

// Values follow the colours of windows, all else those of dialogs: a desktop may have one dark and
// the other light.
TEST_F(LookTest, TextsFollowTheSystemsColours) {
  StartWith(0x0126);
  Press(kAudioButton);
  for (const bool highContrast : {false, true}) {
    UseColours({{COLOR_WINDOW, kBehindValues},
                {COLOR_WINDOWTEXT, kInk},
                {COLOR_3DFACE, kFace},
                {COLOR_BTNTEXT, kText}},
               highContrast);
    const Pixels value = PixelsOfControl(kPage, kMute.value);
    EXPECT_EQ(value.front(), kBehindValues);
    EXPECT_TRUE(Has(value, kInk));
    EXPECT_FALSE(Has(value, kFace));
    const Pixels caption = PixelsOfControl(kPage, kMute.label);
    EXPECT_EQ(caption.front(), kFace);
    EXPECT_TRUE(Has(caption, kText));
    EXPECT_FALSE(Has(caption, kInk));
  }
}

// Step buttons are the system's there; pictures stay what they are.
TEST_F(LookTest, HighContrastTakesTheSystemsButtons) {
  StartWith(0x0126);
  Press(kAudioButton);
  const Pixels picture = PixelsOfControl(res::kMain, kApplyButton);
  UseColours({{COLOR_3DFACE, kFace}, {COLOR_BTNTEXT, kText}, {COLOR_HIGHLIGHT, kInk}}, true);
  const Pixels step = PixelsOfControl(kPage, kMute.next);
  EXPECT_TRUE(Has(step, kText));
  for (const COLORREF pixel : step) EXPECT_TRUE(pixel == kText || pixel == kFace) << pixel;
  desk.Press(kPage, kMute.next);
  EXPECT_TRUE(Has(PixelsOfControl(kPage, kMute.frame), kInk));
  desk.Press(kPage, kMute.next);
  EXPECT_EQ(PixelsOfControl(res::kMain, kApplyButton), picture);
}

// Pictures on pages are drawn for the usual colour of dialogs.
TEST_F(LookTest, PictureOnAPageHasTheDialogsColourAtItsCorners) {
  StartWith(0x0126);
  Press(kSettingButton);
  const auto corners = [&] {
    const Pixels pixels = PixelsOfControl(res::kSetting, kHardwareReset);
    const auto width = static_cast<std::size_t>(desk.PlaceOf(res::kSetting, kHardwareReset).width);
    const std::size_t last = pixels.size() - 1;
    Pixels found;
    for (const std::size_t corner : {std::size_t{0}, width - 1, last - width + 1, last}) {
      found.push_back(pixels[corner]);
    }
    return found;
  };
  const auto brightest = [&] {  // of the first line, with the smoothed rim of the button
    const Pixels pixels = PixelsOfControl(res::kSetting, kHardwareReset);
    const auto width = desk.PlaceOf(res::kSetting, kHardwareReset).width;
    int most = 0;
    for (int i = 0; i < 2 * width; ++i) {
      most = std::max<int>(most, GetGValue(pixels[static_cast<std::size_t>(i)]));
    }
    return most;
  };
  for (const COLORREF face : {kFace, RGB(0xF0, 0xF0, 0xF0), RGB(0xFF, 0xE0, 0xC0)}) {
    UseColours({{COLOR_3DFACE, face}}, false);
    EXPECT_EQ(corners(), Pixels(4, face)) << face;
    EXPECT_LE(brightest(), GetGValue(face));
  }
}

// A level is told by a bar in the same colours as a slider.
TEST_F(LookTest, BarIsFilledUpToItsLevel) {
  StartWith(Identity{46, 0, 0, 0, 0});
  Press(kAudioButton);
  constexpr int kBar = 1103;
  constexpr int kUp = 1046;
  const auto filled = [&] {
    const Pixels pixels = PixelsOfControl(kPage, kBar);
    return std::count(pixels.begin(), pixels.end(), kAccent);
  };
  const auto first = filled();
  EXPECT_GT(first, 0);
  desk.Press(kPage, kUp);
  EXPECT_GT(filled(), first);
}

// Beside the edit, which the system draws.
TEST_F(LookTest, TypedTextHasAnAccentBesideIt) {
  StartWith(Identity{46, 0, 0, 0, 0});
  box.Block(41) = {1};
  panel->OpenPage(PageCode::kTextLabels);
  constexpr int kLabel = 1115;
  const auto marked = [&] {
    desk.Settle();
    ui::Rect beside = desk.PlaceOf(res::kTextLabels, kLabel);
    beside.x -= 8;
    beside.width = 8;
    const HWND window = WindowsOf(desk).Find(res::kTextLabels)->Handle();
    return Has(PixelsOf(window, beside),
               RGB(GetBValue(kAccent), GetGValue(kAccent), GetRValue(kAccent)));
  };
  EXPECT_FALSE(marked());
  desk.Type(res::kTextLabels, kLabel, "ON AIR");
  EXPECT_TRUE(marked());
  Press(kApplyButton);
  EXPECT_FALSE(marked());
}

// A slider's thumb is held wherever it is seen, and its track is filled up to it.
TEST_F(LookTest, SliderIsFilledUpToItsThumb) {
  StartWith(0x0126);
  box.Picture() = {0, 128, 255, 128};
  Press(kProcAmpButton);
  const auto filled = [&](int slider) {
    const Pixels pixels = PixelsOfControl(res::kProcAmp, slider);
    return std::count(pixels.begin(), pixels.end(), kAccent);
  };
  EXPECT_LT(filled(1032), filled(1035));
  EXPECT_LT(filled(1035), filled(1034));
  const auto first = filled(1035);
  desk.Drag(res::kProcAmp, 1035, 200);
  EXPECT_GT(filled(1035), first);
  EXPECT_EQ(StalePixels(WindowsOf(desk).Find(res::kMain)->Handle()), "");
}

}  // namespace
}  // namespace panelora::testing
