// The device picture in the window: what it reads, and what it moves in the navigation bar.
#include "tests/support/scenario.h"

namespace panelora::testing {
namespace {

class DevicePicture : public Scenario {
 protected:
  void StartAs(Identity identity) {
    admitted = {identity.boxType};
    box.Become(identity, 0x0126);
    if (multiView) box.Block(1) = *multiView;
    Start();
  }
  ui::Rect PlaceOf(int control) { return desk.PlaceOf(res::kMain, control); }
  std::optional<std::vector<std::uint8_t>> multiView;
};

TEST_F(DevicePicture, PipMarkComesFromTheMultiViewBlock) {
  multiView = {4, 1, 1};
  StartAs({15, 2, 0, 0, 0});
  EXPECT_EQ(Picture(), "PANEL_BMP_15");
  EXPECT_EQ(panel->Panel().fittedOption, 1);
  panel.reset();
  multiView = {4, 0, 7};
  StartAs({15, 2, 0, 0, 0});
  EXPECT_EQ(Picture(), "PANEL_BMP_14");
  EXPECT_EQ(panel->Panel().fittedOption, 7);
}

TEST_F(DevicePicture, FailedReadShowsNoMarkAndKeepsTheFittedOption) {
  multiView = {4, 1, 7};
  StartAs({13, 2, 0, 0, 0});
  EXPECT_EQ(Picture(), "PANEL_BMP_12");
  box.SetPresent(false);
  Tick();
  device.Fail("get block 1,0,20");
  box.Block(1) = {4, 1, 1};
  box.SetPresent(true);
  Tick();
  EXPECT_EQ(Picture(), "PANEL_BMP_11");
  EXPECT_EQ(panel->Panel().fittedOption, 7);
}

TEST_F(DevicePicture, Model7ChangesTheSubModelForAllLaterUsers) {
  StartAs({7, 2, 3, 0, 0});
  EXPECT_EQ(Picture(), "PANEL_BMP_30");
  EXPECT_EQ(panel->Panel().identity.subModel, 1);
}

TEST_F(DevicePicture, ModelsWithoutProcAmpMoveSettingUp) {
  StartAs({52, 0, 0, 0, 0});
  EXPECT_FALSE(desk.Shows(res::kMain, kProcAmpButton));
  EXPECT_EQ(PlaceOf(kSettingButton), (Rect{0, 185, 110, 40}));
  EXPECT_EQ(PlaceOf(kProcAmpButton), (Rect{0, 225, 110, 40}));
}

TEST_F(DevicePicture, ModelsWithoutProcAmpAndAudioMoveSettingFurther) {
  StartAs({27, 0, 0, 0, 0});
  EXPECT_FALSE(desk.Shows(res::kMain, kProcAmpButton));
  EXPECT_FALSE(desk.Shows(res::kMain, kAudioButton));
  EXPECT_TRUE(desk.Shows(res::kMain, kRefreshButton));
  EXPECT_EQ(PlaceOf(kSettingButton), (Rect{0, 145, 110, 40}));
  EXPECT_EQ(PlaceOf(kProcAmpButton), (Rect{0, 185, 110, 40}));
  EXPECT_EQ(PlaceOf(kAudioButton), (Rect{0, 225, 110, 40}));
}

TEST_F(DevicePicture, Model19HasProcAmpInThePlaceOfAudio) {
  StartAs({19, 0, 0, 0, 0});
  EXPECT_EQ(Buttons(), (std::vector<std::string>{"Information 65", "Video 105", "Proc Amp 145",
                                                 "Setting 185", "Refresh 340/45"}));
  EXPECT_EQ(PlaceOf(kAudioButton), (Rect{0, 225, 110, 40}));
}

TEST_F(DevicePicture, MovesAreUndoneByTheNextConnectionChange) {
  StartAs({27, 0, 0, 0, 0});
  box.SetPresent(false);
  Tick();
  EXPECT_EQ(PlaceOf(kSettingButton), (Rect{0, 225, 110, 40}));
  EXPECT_EQ(Picture(), "NULL_BOX");
  box.SetPresent(true);
  Tick();
  EXPECT_EQ(PlaceOf(kSettingButton), (Rect{0, 145, 110, 40}));
  EXPECT_FALSE(desk.Shows(res::kMain, kAudioButton));
}

TEST_F(DevicePicture, ShowsTheSamePictureReleasedAndPressed) {
  Start();
  EXPECT_EQ(desk.PressedPicture(res::kMain, kPictureButton), "PANEL_BMP_17");
  box.SetPresent(false);
  Tick();
  EXPECT_EQ(desk.PressedPicture(res::kMain, kPictureButton), "NULL_BOX");
}

}  // namespace
}  // namespace panelora::testing
