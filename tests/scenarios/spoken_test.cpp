// What a screen reader says of the controls.
#include <iterator>
#include <map>
#include <string>

#include "tests/support/model_walk.h"
#include "tests/support/spoken.h"

namespace panelora::testing {
namespace {

class SpokenTest : public ModelWalk {
 protected:
  res::Spoken Spoken(int dialog, int control) { return SpokenOn(desk, dialog)[control]; }
  std::string NameOf(int dialog, int control) { return Spoken(dialog, control).name; }
  std::string ValueOf(int dialog, int control) { return Spoken(dialog, control).value; }

  // All that is shown has a name, which nothing else has that is shown beside it.
  void ExpectNames() {
    std::map<std::string, std::pair<int, int>> given;
    std::vector<int> dialogs = ShownPages();
    dialogs.insert(dialogs.begin(), res::kMain);
    for (const int dialog : dialogs) {
      const std::map<int, res::Spoken> spoken = SpokenOn(desk, dialog);
      for (const ui::ControlTemplate& control : res::FindDialog(dialog)->controls) {
        if (!desk.Shows(dialog, control.id)) continue;
        const auto its = spoken.find(control.id);
        ASSERT_NE(its, spoken.end()) << dialog << " " << control.id;
        const std::string& name = its->second.name;
        ASSERT_NE(name, "") << dialog << " " << control.id;
        ASSERT_FALSE(name.starts_with("Picture")) << desk.Picture(dialog, control.id);
        const auto [other, isNew] = given.emplace(name, std::pair(dialog, control.id));
        ASSERT_TRUE(isNew) << name << ": " << dialog << " " << control.id << " and "
                           << other->second.first << " " << other->second.second;
        ++named;
      }
    }
  }

  void WalkOpenPage() {
    const int subPages = desk.Shows(res::kMain, kPageUpButton) ? 3 : 1;
    for (int subPage = 0; subPage < subPages; ++subPage) {
      ASSERT_NO_FATAL_FAILURE(ExpectNames()) << "sub-page " << subPage;
      if (subPages > 1) Press(kPageUpButton);
    }
    Press(kReturnButton);
  }

  void Walk(const Identity& identity) {
    SCOPED_TRACE(Named(identity));
    StartAs(identity);
    ASSERT_NO_FATAL_FAILURE(ExpectNames());
    for (const int button : {kAudioButton, kSettingButton, kProcAmpButton}) {
      if (!desk.Shows(res::kMain, button)) continue;
      Press(button);
      ASSERT_NO_FATAL_FAILURE(WalkOpenPage());
    }
    for (int entry = 1002; entry <= 1008; ++entry) {
      Press(kVideoButton);
      ASSERT_NO_FATAL_FAILURE(ExpectNames());
      if (!desk.Shows(res::kVideoMenu, entry)) {
        Press(kReturnButton);
        continue;
      }
      desk.Press(res::kVideoMenu, entry);
      ASSERT_NO_FATAL_FAILURE(WalkOpenPage()) << "entry " << entry;
    }
    panel->OpenPage(PageCode::kTextLabels);
    desk.Settle();
    ASSERT_NO_FATAL_FAILURE(WalkOpenPage());
  }

  int named = 0;
};

#ifdef _WIN32
TEST_F(SpokenTest, EveryControlOfFourTypesHasANameOfItsOwn) {
  for (const int type : {13, 24, 26, 39}) Walk(Box(type, type == 13 || type == 24 ? 2 : 0));
  EXPECT_GT(named, 400);
}
#else
TEST_F(SpokenTest, EveryControlOfEveryTypeHasANameOfItsOwn) {
  for (const int type : kTypes) {
    for (const int brand : {0, 2, 12}) Walk(Box(type, brand));
  }
  EXPECT_GT(named, 10000);
}
#endif

TEST_F(SpokenTest, StepButtonTellsWhatItStepsAndWhereItStands) {
  StartWith(0x0126);
  panel->OpenPage(PageCode::kVideoSettings);
  const std::string input = desk.Text(res::kVideoSettings, 1019);
  EXPECT_EQ(NameOf(res::kVideoSettings, 1018), "Input Source, " + input + ", next");
  EXPECT_EQ(ValueOf(res::kVideoSettings, 1018), input);
  EXPECT_EQ(NameOf(res::kVideoSettings, 1020), "Input Source");
  EXPECT_EQ(NameOf(res::kVideoSettings, 1019), "Input Source, " + input);
  EXPECT_EQ(NameOf(res::kVideoSettings, 1017), "Input Source, setting");
  const std::string format = desk.Text(res::kVideoSettings, 1028);
  EXPECT_EQ(NameOf(res::kVideoSettings, 1033), "Output Format, " + format + ", previous");
  EXPECT_EQ(NameOf(res::kVideoSettings, 1029), "Output Format, " + format + ", next");
}

TEST_F(SpokenTest, WhatIsNotAppliedYetIsSaid) {
  StartWith(0x0126);
  Press(kAudioButton);
  EXPECT_EQ(NameOf(res::kMain, kApplyButton), "Apply");
  EXPECT_EQ(Spoken(res::kAudio, 1024).description, "");
  desk.Press(res::kAudio, 1024);
  const std::string mute = desk.Text(res::kAudio, 1025);
  EXPECT_EQ(NameOf(res::kMain, kApplyButton), "Apply, changes pending");
  EXPECT_EQ(NameOf(res::kAudio, 1025), "Audio Mute, " + mute + ", not applied yet");
  EXPECT_EQ(Spoken(res::kAudio, 1024),
            (res::Spoken{"Audio Mute, " + mute + ", next", mute, "Not applied yet"}));
  EXPECT_EQ(Spoken(res::kAudio, 1023).description, "Not applied yet");
  Press(kApplyButton);
  EXPECT_EQ(NameOf(res::kMain, kApplyButton), "Apply");
}

TEST_F(SpokenTest, FrontSaysWhichConverterItIs) {
  StartWith(0x0126);
  EXPECT_EQ(NameOf(res::kMain, kPictureButton),
            "Front of the converter: RXC-9 CENTER, Video converter");
  EXPECT_EQ(NameOf(res::kMain, kInformationButton), "Information, current");
  EXPECT_EQ(NameOf(res::kMain, kVideoButton), "Video");
  box.SetPresent(false);
  Tick();
  EXPECT_EQ(NameOf(res::kMain, kPictureButton), "Front of the converter: no converter found");
}

TEST_F(SpokenTest, RailSaysWhichPageIsShown) {
  StartWith(0x0126);
  EXPECT_EQ(NameOf(res::kMain, kPageMark), "Page: Information");
  Press(kProcAmpButton);
  EXPECT_EQ(NameOf(res::kMain, kPageMark), "Page: Proc Amp");
  EXPECT_EQ(NameOf(res::kMain, kSubPageDots), "Sub-page 1 of 2");
  Press(kPageUpButton);
  EXPECT_EQ(NameOf(res::kMain, kSubPageDots), "Sub-page 2 of 2");
}

TEST_F(SpokenTest, SlidersOfPipAreThoseOfTheirInset) {
  StartAs(Box(13, 2));
  panel->OpenPage(PageCode::kPip);
  EXPECT_EQ(NameOf(res::kPip, 1055), "Inset 1, horizontal position");
  EXPECT_EQ(NameOf(res::kPip, 1076), "Inset 1, horizontal position, number");
  EXPECT_EQ(NameOf(res::kPip, 1051), "Inset 1, horizontal position, caption");
  EXPECT_EQ(NameOf(res::kPip, 1058), "Inset 1, vertical size");
  EXPECT_EQ(NameOf(res::kPip, 1050), "Inset 1");
}

TEST_F(SpokenTest, TileSaysItsNumberAndWhetherItIsChosen) {
  StartAs(Box(26));
  panel->OpenPage(PageCode::kTvWall);
  Press(kWall4Button);
  EXPECT_EQ(NameOf(res::kTvWall, 1026), "Tile 6 of 16");
  desk.PressMouse(res::kTvWall, 1026);
  EXPECT_EQ(NameOf(res::kTvWall, 1026), "Tile 6 of 16, chosen");
  EXPECT_EQ(NameOf(res::kTvWall, 1025), "Tile 5 of 16");
  EXPECT_EQ(NameOf(res::kMain, kWall4Button), "Wall of 4 by 4, current");
  EXPECT_EQ(NameOf(res::kMain, kWall1Button), "Wall of 1 by 1");
}

// They stay as they are on the screen.
TEST_F(SpokenTest, MisspeltCaptionsAreSpokenRightly) {
  StartAs(Box(13));
  Press(kVideoButton);
  EXPECT_EQ(desk.Text(res::kVideoMenu, 1007), "Image Adjsut");
  panel->OpenPage(PageCode::kDisplayMode);
  EXPECT_EQ(desk.Text(res::kDisplayMode, 1044), "Dispalye Mode");
  EXPECT_EQ(NameOf(res::kDisplayMode, 1044), "Display Mode");
  Press(kPageUpButton);
  EXPECT_EQ(desk.Text(res::kDisplayMode, 1060), "Input Lebels");
  EXPECT_EQ(NameOf(res::kDisplayMode, 1060), "Input Labels");
  StartAs(Box(26));
  Press(kVideoButton);
  EXPECT_EQ(NameOf(res::kVideoMenu, 1007), "Image Adjust");
}

TEST_F(SpokenTest, AboutHasNamesToo) {
  StartWith(0x0126);
  desk.WhileModal([&] {
    EXPECT_EQ(NameOf(res::kAbout, 1200), "Icon of Panelora");
    EXPECT_EQ(NameOf(res::kAbout, 1201), "Panelora Version 1.0");
    EXPECT_EQ(NameOf(res::kAbout, 1), "OK");
    desk.Press(res::kAbout, 1);
  });
  desk.ChooseSystemMenu(res::kMain, 16);
  EXPECT_FALSE(desk.IsOpen(res::kAbout));
}

}  // namespace
}  // namespace panelora::testing
