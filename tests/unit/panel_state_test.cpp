// What the main window knows before the first box: nothing, and picture values in the middle.
#include "pages/panel_state.h"

#include <gtest/gtest.h>

namespace panelora {
namespace {

TEST(PanelState, StartsWithoutABox) {
  const PanelState state;
  EXPECT_EQ(state.deviceHandle, 0x80000000U);
  EXPECT_EQ(state.identity.boxType, 255);
  EXPECT_EQ(state.identity.brandCode, 255);
  EXPECT_EQ(state.identity.subModel, 255);
  EXPECT_EQ(state.identity.inputDipFlag, 255);
  EXPECT_EQ(state.identity.outputDipFlag, 255);
  EXPECT_EQ(state.identityPair, (std::array<std::uint8_t, 2>{255, 255}));
  EXPECT_EQ(state.firmwareVersion, 0U);
  EXPECT_EQ(state.fittedOption, 0);
}

TEST(PanelState, StartsWithAWatchfulMonitor) {
  const PanelState state;
  EXPECT_EQ(state.tickSkip, 0);
  EXPECT_FALSE(state.forceDisconnect);
}

TEST(PanelState, StartsWithoutAWallAPortOrASecondView) {
  const PanelState state;
  EXPECT_EQ(state.wallSize, 0U);
  EXPECT_EQ(state.tilePosition, 0U);
  EXPECT_EQ(state.cycleState, 0);
  EXPECT_EQ(state.serialHandle, ui::kInvalidSerial);
}

TEST(PanelState, StartsWithTenBytesOf128) {
  const PanelState state;
  ASSERT_EQ(state.procAmpCache.size(), 10U);
  for (const std::uint8_t value : state.procAmpCache) EXPECT_EQ(value, 128);
}

TEST(PanelState, PictureValuesThatTheBoxDoesNotTellAre128) {
  const ProcAmpBytes picture;
  EXPECT_EQ(picture.brightness, 128);
  EXPECT_EQ(picture.contrast, 128);
  EXPECT_EQ(picture.hue, 128);
  EXPECT_EQ(picture.saturation, 128);
}

}  // namespace
}  // namespace panelora
