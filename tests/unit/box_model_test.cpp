// The simulated box.
#include "simulator/box_model.h"

#include <gtest/gtest.h>

#include "catalogue/picture.h"

namespace panelora::simulator {
namespace {

using Bytes = std::vector<std::uint8_t>;

class BoxModelTest : public ::testing::Test {
 protected:
  std::uint64_t now = 0;
  BoxModel box{BoxModel::kDefaultIdentity, BoxModel::kDefaultFirmware, [this] { return now; }};
  DeviceHandle handle = box.Open(kOpenMode);

  std::uint32_t ReadWord(std::uint32_t item) {
    WordBuffer words{};
    EXPECT_EQ(box.GetBoxProperty(handle, kBoxGroup, item, words), kSuccess) << item;
    return words[0];
  }
  BlockBuffer ReadBlock(std::uint8_t property, std::uint8_t length) {
    BlockBuffer bytes{};
    EXPECT_EQ(box.GetKiraboxProperty(handle, property, 0, length, bytes), kSuccess)
        << int{property};
    return bytes;
  }
};

TEST_F(BoxModelTest, AnswersEverythingThatThePagesOfModel26Read) {
  for (const std::uint32_t item : {4U, 2U, 7U, 12U, 10U, 15U, 19U, 11U, 6U, 16U, 21U, 5U})
    ReadWord(item);
  for (const std::uint8_t property : Bytes{254, 1, 14, 17, 18, 22, 23}) ReadBlock(property, 4);
  ProcAmpBytes picture;
  EXPECT_EQ(box.GetKiraboxProcAmp(handle, picture), kSuccess);
}

TEST_F(BoxModelTest, AnswersNothingToAnotherHandleOrWhenUnplugged) {
  BlockBuffer bytes{};
  WordBuffer words{};
  ProcAmpBytes picture;
  const auto expectSilence = [&](DeviceHandle used) {
    EXPECT_NE(box.GetKiraboxProperty(used, 254, 0, 20, bytes), kSuccess);
    EXPECT_NE(box.SetKiraboxProperty(used, 22, 0, 1, bytes), kSuccess);
    EXPECT_NE(box.GetBoxProperty(used, 0, 5, words), kSuccess);
    EXPECT_NE(box.SetBoxProperty(used, 0, 4, 2), kSuccess);
    EXPECT_NE(box.GetKiraboxProcAmp(used, picture), kSuccess);
    EXPECT_NE(box.GetVideoProcAmp(used, 0, 2, words), kSuccess);
    EXPECT_NE(box.SetVideoProcAmp(used, 0, 2, 1), kSuccess);
  };
  expectSilence(kNoBox);
  expectSilence(handle + 1);
  box.SetPresent(false);
  expectSilence(handle);
  EXPECT_EQ(box.Open(kOpenMode), kNoBox);
  box.SetPresent(true);
  EXPECT_EQ(box.Open(kOpenMode), handle);
}

TEST_F(BoxModelTest, AnswersGroup0AndTheFourPictureControlsAlone) {
  WordBuffer words{7, 7};
  EXPECT_NE(box.GetBoxProperty(handle, 1, 5, words), kSuccess);
  EXPECT_NE(box.SetBoxProperty(handle, 1, 21, 0), kSuccess);
  EXPECT_NE(box.GetVideoProcAmp(handle, 1, proc_amp::kHue, words), kSuccess);
  EXPECT_NE(box.SetVideoProcAmp(handle, 1, proc_amp::kHue, 1), kSuccess);
  EXPECT_NE(box.GetVideoProcAmp(handle, 0, proc_amp::kCommit, words), kSuccess);
  EXPECT_EQ(words[0], 7U);
  EXPECT_EQ(ReadWord(21), 1U);
  ProcAmpBytes picture;
  box.GetKiraboxProcAmp(handle, picture);
  EXPECT_EQ(picture.hue, 128);
  // The commit is taken and stores nothing that could be read back.
  EXPECT_EQ(box.SetVideoProcAmp(handle, 0, proc_amp::kCommit, 1), kSuccess);
}

TEST_F(BoxModelTest, OpensInMode2Alone) {
  EXPECT_EQ(box.Open(1), kNoBox);
  EXPECT_EQ(box.Open(kOpenMode), handle);
}

TEST_F(BoxModelTest, UnknownCommandChangesNothing) {
  box.SetVideoProcAmp(handle, 0, proc_amp::kHue, 1);
  EXPECT_EQ(box.SetBoxProperty(handle, 0, 3, 99), kSuccess);
  ProcAmpBytes picture;
  box.GetKiraboxProcAmp(handle, picture);
  EXPECT_EQ(picture.hue, 1);
  EXPECT_EQ(box.Open(kOpenMode), handle);
}

TEST_F(BoxModelTest, InputFormatFollowsTheInputSource) {
  EXPECT_EQ(ReadBlock(1, 30)[0], 0x07);  // HDMI: 1920 wide
  box.SetBoxProperty(handle, 0, 4, 2);
  EXPECT_EQ(ReadBlock(1, 30)[0], 0x04);  // VGA: 1024
  box.SetBoxProperty(handle, 0, 4, 4);
  EXPECT_EQ(ReadBlock(1, 30)[6], 1);  // SDI: interlaced
  box.SetBoxProperty(handle, 0, 4, 9);
  EXPECT_EQ(ReadBlock(1, 30)[0], 0);  // nothing there: no signal
}

TEST_F(BoxModelTest, KeepsWhatIsWritten) {
  box.SetBoxProperty(handle, 0, 21, 0);
  EXPECT_EQ(ReadWord(21), 0U);
  box.SetKiraboxProperty(handle, 23, 0, 2, {6, 9});
  EXPECT_EQ(ReadBlock(23, 2)[0], 6);
  EXPECT_EQ(ReadBlock(23, 2)[1], 9);
  box.SetVideoProcAmp(handle, 0, proc_amp::kHue, 200);
  WordBuffer words{};
  EXPECT_EQ(box.GetVideoProcAmp(handle, 0, proc_amp::kHue, words), kSuccess);
  EXPECT_EQ(words[0], 200U);
}

TEST_F(BoxModelTest, CommandsRestoreTheirOwnDefaultsOnly) {
  const auto spoil = [&] {
    box.SetVideoProcAmp(handle, 0, proc_amp::kBrightness, 1);
    box.SetKiraboxProperty(handle, 14, 0, 3, {1, 2, 3});
    box.SetKiraboxProperty(handle, 18, 0, 2, {90, 91});
    box.SetKiraboxProperty(handle, 17, 0, 4, {1, 1, 1, 1});
  };
  ProcAmpBytes picture;
  spoil();
  box.SetBoxProperty(handle, 0, 3, command::kProcAmpDefaults);
  box.GetKiraboxProcAmp(handle, picture);
  EXPECT_EQ(picture.brightness, 128);
  EXPECT_EQ(ReadBlock(14, 3)[0], 1);
  spoil();
  box.SetBoxProperty(handle, 0, 3, command::kRgbDefaults);
  box.GetKiraboxProcAmp(handle, picture);
  EXPECT_EQ(picture.brightness, 1);
  EXPECT_EQ(ReadBlock(14, 3)[0], 128);
  spoil();
  box.SetBoxProperty(handle, 0, 3, command::kImageRestore);
  EXPECT_EQ(ReadBlock(18, 2)[0], 100);
  EXPECT_EQ(ReadBlock(17, 4)[1], 0x2C);
  EXPECT_EQ(ReadBlock(14, 3)[0], 1);
}

TEST_F(BoxModelTest, HardwareResetMakesItVanishAndComeBackWithDefaults) {
  box.SetBoxProperty(handle, 0, 4, 4);
  box.SetBoxProperty(handle, 0, 3, command::kHardwareReset);
  EXPECT_EQ(box.Open(kOpenMode), kNoBox);
  now += BoxModel::kRestartTime - 1;
  EXPECT_EQ(box.Open(kOpenMode), kNoBox);
  now += 1;
  EXPECT_EQ(box.Open(kOpenMode), handle);
  EXPECT_EQ(ReadWord(4), 1U);
}

TEST_F(BoxModelTest, BlocksAreFilledUpWithZerosToTheLengthAskedFor) {
  BlockBuffer bytes;
  bytes.fill(0xAA);
  EXPECT_EQ(box.GetKiraboxProperty(handle, 14, 0, 30, bytes), kSuccess);
  EXPECT_EQ(bytes[0], 128);
  EXPECT_EQ(bytes[3], 0);
  EXPECT_EQ(bytes[29], 0);
  EXPECT_EQ(bytes[30], 0xAA);
}

// A caller has room for two words only where it expects them.
TEST_F(BoxModelTest, SecondWordsAreOfFirmwareAndFormatCodes) {
  const std::pair<std::uint8_t, std::vector<std::uint32_t>> rows[] = {
      {26, {5}}, {0, {3, 8}}, {20, {3, 4}}, {13, {3, 7, 8, 14, 18}}, {14, {8}}};
  for (const auto& [type, items] : rows) {
    box.Become({type, 0, 0, 0, 0}, 0x0126);
    std::vector<std::uint32_t> two;
    for (std::uint32_t item = 0; item < 30; ++item) {
      if (box.HasTwoWords(item)) two.push_back(item);
    }
    EXPECT_EQ(two, items) << int{type};
  }
}

}  // namespace
}  // namespace panelora::simulator
