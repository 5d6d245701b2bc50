// The index of the box's properties: which number each name stands for. The same number means
// different things on different models.
#include "device/properties.h"

#include <gtest/gtest.h>

#include <vector>

namespace panelora {
namespace {

// A number with the names of its uses.
struct Numbered {
  std::uint32_t number;
  std::vector<std::uint32_t> names;
};

void ExpectNumbers(const std::vector<Numbered>& index) {
  for (const Numbered& row : index) {
    for (std::size_t i = 0; i < row.names.size(); ++i) {
      EXPECT_EQ(row.names[i], row.number) << "use " << i + 1 << " of " << row.number;
    }
  }
}

TEST(Properties, BlocksHaveTheNumbersOfTheBox) {
  using namespace block;
  ExpectNumbers({
      {0, {kStatus}},
      {1, {kInputFormat, kBoxMenu, kMultiView, kDisplayMode}},
      {2, {kInputFormat2, kChannelCodes, kVideoPassThroughState}},
      {3, {kInputFormatLittle, kImageInput50, kVideoInputSource, kAudioInput}},
      {4,
       {kInformationFirst, kGenlockInputCode, kRegionInput4, kVideoOutputFormat, kAudioSource,
        kSetting4}},
      {5, {kPipOption, kVideoOutputSource}},
      {6, {kPipOutputFormat, kVideoOutputMode, kAudioMute}},
      {7, {kVideoOutputColour, kAudioOption7}},
      {8, {kWallInput, kVideoPassThrough}},
      {9, {kImageSize25, kVideoSdiEq, kAudioOption9}},
      {10, {kInformation10, kAudioOption10, kSetting10}},
      {11, {kVideoGpiMode, kAudioVolumes, kSetting11}},
      {12, {kInformation12, kImageSize23}},
      {13, {kInformation13, kPipWindow1, kImagePosition23, kVideoAutoPhase}},
      {14, {kPipWindow2, kImageSize24, kRegion14, kRgb}},
      {15, {kInformation15, kGenlockMode3, kImageAspect, kRegion15, kVideoAspectRatio, kSetting15}},
      {16, {kWall, kGenlockDelays3, kProcAmpExtra}},
      {17, {kImagePosition26, kSetting17}},
      {18,
       {kInformation18, kGenlockReference3, kImageSize26, kImagePosition25, kRegion18,
        kVideoIreLevel}},
      {19, {kInputLabel, kGenlockMode2, kRegion19, kVideoFreeze, kAudioInputVolumes}},
      {20, {kInformation20, kInputLabelsState, kGenlockDelays2, kVideoOutputLevel}},
      {21, {kGenlockReference2, kSetting21}},
      {22, {kSyncMode3, kVideoErrorLed, kNoSignal}},
      {23, {kDip8Mode}},
      {24, {kImageSize50}},
      {25, {kInformation25, kGenlockReference1, kVideoEdgeEnhance}},
      {26, {kInformation26, kGenlockMode1, kVideoGenlockMode}},
      {27, {kGenlockDelays1}},
      {29, {kVideoColourUpFilter}},
      {30, {kVideoSdiType}},
      {31, {kImagePosition50}},
      {32, {kAudioOption32}},
      {33, {kVideoHdmiRange}},
      {38, {kInformation38, kGenlockLocked, kVideoHdmiLocked, kAudioOption38}},
      {40, {kVideoSdiColour}},
      {41, {kTextLabel}},
      {42, {kInformation42, kVideoHdmiMode}},
      {44, {kInformation44, kAudioOutputLevel}},
      {45, {kVideoMirror}},
      {46, {kSyncMode1}},
      {49, {kVideoReclock}},
      {50, {kVideoSignalReport}},
      {254, {kIdentity}},
  });
}

TEST(Properties, WordsHaveTheItemsOfTheBox) {
  using namespace word;
  ExpectNumbers({
      {0, {kInformation0}},
      {1, {kOutputFormatReport, kDisplayMode, kRegionInput1}},
      {2, {kOutputFormat, kChannelCode, kRegionInput2}},
      {3, {kFormatCode, kCommand}},
      {4, {kInputSource, kBoxMenu4, kRegionInput4}},
      {5, {kFirmware, kBoxMenu5, kPipOption, kRegionInput5, kSetting5}},
      {6, {kAudioSource, kPipOutputFormat, kSetting6}},
      {7, {kAspectRatio, kBoxMenu7}},
      {8, {kFirmwareOther, kWallSize, kSetting8}},
      {9, {kWallTile, kSetting9}},
      {10, {kOutputColour, kBoxMenu10, kWallSizeInput, kSetting10}},
      {11, {kAudioMute, kImageAspect, kWallTileInput, kSetting11}},
      {12, {kHdmiEq, kSetting12}},
      {13, {kSetting13}},
      {14, {kSetting14}},
      {15, {kOutputLevel, kSetting15}},
      {16, {kAudioStandard, kSetting16}},
      {17, {kPassThroughReport, kSetting17}},
      {18, {kInformation18}},
      {19, {kEdgeEnhance, kFreeze}},
      {20, {kInformation20, kSetting20}},
      {21, {kOsd, kSetting21}},
      {23, {kFreezeSecond}},
      {24, {kInformation24}},
  });
}

TEST(Properties, CommandsAndProcAmpControlsHaveTheNumbersOfTheBox) {
  ExpectNumbers({
      {0, {kBoxGroup, kNoSub, command::kProcAmpDefaults}},
      {1, {command::kHardwareReset}},
      {2, {command::kRgbDefaults, proc_amp::kBrightness}},
      {3, {command::kImageRestore, proc_amp::kContrast}},
      {4, {proc_amp::kHue}},
      {5, {proc_amp::kSaturation}},
      {255, {proc_amp::kCommit}},
  });
}

}  // namespace
}  // namespace panelora
