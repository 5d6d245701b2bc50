#include "simulator/model_defaults.h"

#include <string>

#include "device/properties.h"

namespace panelora::simulator {

namespace {

const BlockDefault kBlockDefaults[] = {
    {{14, 36, 51},
     block::kInputFormatLittle,
     {0x80, 0x07, 0x38, 0x04, 50, 0, 1}},  // 1920x1080 50.00p
    {{13, 15, 51}, block::kMultiView, {1, 1, 1}},
    // Video settings: input and aspect ratio 1 as the type numbers them, 1080p60, the first output
    // source, no pass-through
    {{17, 18, 19, 20, 21, 23, 24, 25, 27, 29, 30, 32, 33,
      34, 35, 37, 38, 39, 40, 42, 43, 46, 47, 48, 49},
     block::kVideoInputSource,
     {1, 0}},
    {{50}, block::kImageInput50, {2, 0}},
    {{}, block::kVideoOutputFormat, {15, 0}},
    {{}, block::kVideoOutputSource, {0, 0}},
    {{}, block::kVideoAspectRatio, {1, 0}},
    {{24, 34, 30, 43, 20, 33}, block::kVideoPassThrough, {0, 0}},
    // Image adjustment
    {{50}, block::kImagePosition50, {0x01, 0x2C, 0x00, 0x32}},
    {{50, 24, 34}, block::kImageSize50, {100, 100}},
    {{23, 42}, block::kImagePosition23, {0x01, 0x2C, 0x00, 0x32}},
    {{23, 42}, block::kImageSize23, {100, 100}},
    {{25, 29}, block::kImageSize25, {100, 100}},  // their position is that of the region
    {{24, 34}, block::kImageSize24, {100, 100}},
    // Audio: not muted, the second source, first level and channel, volumes in the middle
    {{14, 17, 18, 20, 21, 23, 24, 25, 29, 30, 32, 33, 34, 35, 36, 42, 43, 46, 47, 48, 49, 52},
     block::kAudioMute,
     {0, 0}},
    {{17, 18, 20, 23, 24, 25, 29, 30, 32, 33, 34, 35, 42, 43, 46, 47, 48, 49, 52},
     block::kAudioOption10,
     {1, 0}},
    {{14, 36}, block::kAudioOption9, {1, 0}},
    {{14, 24, 34, 36}, block::kAudioOption7, {0, 0}},
    {{18, 29, 32}, block::kAudioOption32, {2, 0}},
    {{14}, block::kAudioOption32, {0, 0}},
    {{46, 47, 48, 49, 52}, block::kAudioVolumes, {50, 50}},
    {{25, 29}, block::kAudioInputVolumes, {50, 50, 0}},
    {{24, 34}, block::kAudioOutputLevel, {62, 0}},
    // Unit settings of the models that take their commands by block
    {{14, 36, 37, 38, 39, 40, 46, 47, 48, 49, 50, 51}, block::kSetting21, {1, 0}},
    {{14, 36, 37, 38, 39, 40, 46, 47, 48, 49, 50, 51}, block::kNoSignal, {1, 0}},
    // TV wall: 2 by 2, the first screen
    {{37, 38, 39, 40, 46, 47, 48, 49}, block::kWall, {2, 0}},
    {{14, 36}, block::kWallInput, {2, 0}},
    // Multi-view: the first combination of every mode, labels off, a 1080p output
    {{13, 15, 51}, block::kChannelCodes, {1, 1, 1, 1, 1, 1, 1, 1, 1, 1}},
    {{13, 15, 51}, block::kInputLabelsState, {0, 0}},
    {{51}, block::kPipOption, {0, 0}},
    {{51}, block::kPipOutputFormat, {4, 0}},
    // Genlock: locked to a 1080p60 reference, with delays
    {{39, 40, 46, 47, 48, 49, 50}, block::kGenlockReference1, {0x80, 0x07, 0x38, 0x04, 60, 0, 1}},
    {{39, 40, 46, 47, 48, 49, 50}, block::kGenlockMode1, {1, 10, 0, 0}},
    {{39, 40, 46, 47, 48, 49, 50}, block::kGenlockDelays1, {100, 0, 200, 0}},
    {{39, 40, 46, 47, 48, 49, 50}, block::kGenlockLocked, {0, 0}},
    {{39, 40, 46, 47, 48, 49, 50}, block::kSyncMode1, {0, 0}},
    {{20, 33}, block::kGenlockReference2, {0x80, 0x07, 0x38, 0x04, 60, 0, 1}},
    {{20, 33}, block::kGenlockMode2, {2, 10, 0, 15}},
    {{20, 33}, block::kGenlockDelays2, {100, 0, 200, 0}},
    {{30, 43}, block::kGenlockReference3, {0x80, 0x07, 0x38, 0x04, 60, 0, 1}},
    {{30, 43}, block::kGenlockMode3, {1, 10, 0, 15}},
    {{30, 43}, block::kGenlockDelays3, {100, 0, 200, 0}},
    {{30, 43}, block::kSyncMode3, {0, 0}},
    {{25, 29, 32, 39, 40, 46, 47, 48, 49}, block::kRegion18, Region()},
    {{14, 23, 35, 36, 42}, block::kRegion14, Region()},
    {{30, 43}, block::kRegion19, Region()},
    {{}, block::kTextLabel, TextLabel()},
};

const WordDefault kWordDefaults[] = {
    {{}, word::kFormatCode, 10},
    {{}, word::kOutputFormatReport, 15},
    {{24, 34, 30, 43, 20, 33}, word::kPassThroughReport, 0},
    {{24, 34}, word::kImageAspect, 3},
    // The size of these stands where other models have their firmware version.
    {{18, 20, 30, 32, 33, 43}, word::kWallTile, 0},
    {{17, 35}, word::kWallSizeInput, 2},
    {{17, 35}, word::kWallTileInput, 0},
    {{24, 30, 34, 43}, word::kRegionInput2, 15},
    {{32, 35}, word::kRegionInput4, 15},
    {{23, 42}, word::kRegionInput5, 15},
    {{13, 15}, word::kPipOption, 1},
    {{13, 15}, word::kPipOutputFormat, 4},
};

}  // namespace

std::vector<std::uint8_t> Region() { return {1, 0x2C, 0, 50, 3, 0xC0, 2, 0x1C, 1, 1}; }

std::vector<std::uint8_t> TextLabel() {
  const std::string block =
      "\x01"
      "      CAMERA 1      ";
  return {block.begin(), block.end()};
}

std::span<const BlockDefault> BlockDefaults() { return kBlockDefaults; }
std::span<const WordDefault> WordDefaults() { return kWordDefaults; }

}  // namespace panelora::simulator
