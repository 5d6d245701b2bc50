#include "simulator/box_model.h"

#include <algorithm>

#include "device/properties.h"

namespace panelora::simulator {

namespace {

constexpr int kFailure = 0;

// What each input of model 26 receives: width and height big-endian, Hz, 1/100 Hz, scan flag.
struct InputRow {
  std::uint8_t source;
  std::vector<std::uint8_t> format;
};

const InputRow kInputs[] = {
    {1, {0x07, 0x80, 0x04, 0x38, 59, 94, 0}},  // HDMI: 1920x1080 59.94p
    {2, {0x04, 0x00, 0x03, 0x00, 60, 0, 0}},   // VGA: 1024x768 60.00p
    {4, {0x07, 0x80, 0x04, 0x38, 50, 0, 1}},   // SDI: 1920x1080 50.00i
};

struct WordRow {
  std::uint32_t item;
  std::uint32_t value;
};

// Model 26 as it leaves the factory.
constexpr WordRow kWords26[] = {
    {word::kInputSource, 1},   {word::kOutputFormat, 15}, {word::kAspectRatio, 1},
    {word::kHdmiEq, 2},        {word::kOutputColour, 0},  {word::kOutputLevel, 1},
    {word::kEdgeEnhance, 0},   {word::kAudioMute, 0},     {word::kAudioSource, 1},
    {word::kAudioStandard, 0}, {word::kOsd, 1},
};

// Other models, as far as the panel knows them. A row without types serves all of them; later rows
// win.
struct OtherBlockRow {
  std::vector<std::uint8_t> types;
  std::uint8_t property;
  std::vector<std::uint8_t> bytes;
};

const OtherBlockRow kOtherBlocks[] = {
    {{14, 36, 51},
     block::kInputFormatLittle,
     {0x80, 0x07, 0x38, 0x04, 50, 0, 1}},  // 1920x1080 50.00p
    {{13, 15, 51}, block::kMultiView, {1, 1, 1}},
    {{50}, block::kInputFormat, {0x07, 0x80, 0x04, 0x38, 50, 0, 0}},
    // Video settings: the second input, 1080p60, the first output source, full screen, no
    // pass-through
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
    {{25, 29}, block::kImagePosition25, {0x01, 0x2C, 0x00, 0x32}},
    {{25, 29}, block::kImageSize25, {100, 100}},
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
};

struct OtherWordRow {
  std::vector<std::uint8_t> types;
  std::uint32_t item;
  std::uint32_t value;
};

const OtherWordRow kOtherWords[] = {
    {{}, word::kFormatCode, 10},
    {{}, word::kOutputFormatReport, 15},
    {{24, 34, 30, 43, 20, 33}, word::kPassThroughReport, 0},
    {{24, 34}, word::kImageAspect, 3},
    {{18, 20, 30, 32, 33, 43}, word::kWallSize, 2},
    {{18, 20, 30, 32, 33, 43}, word::kWallTile, 0},
    {{17, 35}, word::kWallSizeInput, 2},
    {{17, 35}, word::kWallTileInput, 0},
};

bool Has(const std::vector<std::uint8_t>& types, std::uint8_t boxType) {
  return types.empty() || std::find(types.begin(), types.end(), boxType) != types.end();
}

constexpr std::size_t kFormatLength = 30;

}  // namespace

BoxModel::BoxModel(const Identity& theIdentity, std::uint32_t theFirmware, Clock theClock)
    : identity(theIdentity), firmware(theFirmware), clock(std::move(theClock)) {
  RestoreEverything();
}

void BoxModel::Become(const Identity& newIdentity, std::uint32_t newFirmware) {
  identity = newIdentity;
  firmware = newFirmware;
  restarting = false;
  RestoreEverything();
}

std::vector<std::uint8_t>& BoxModel::Block(std::uint8_t property, std::uint8_t sub) {
  return blocks[{property, sub}];
}

WordBuffer& BoxModel::Word(std::uint32_t item) { return words[item]; }

void BoxModel::RestoreEverything() {
  blocks.clear();
  words.clear();
  std::vector<std::uint8_t> identityBlock(20, 0);
  identityBlock[0] = identity.boxType;
  identityBlock[1] = identity.brandCode;
  identityBlock[2] = identity.subModel;
  identityBlock[3] = identity.inputDipFlag;
  identityBlock[4] = identity.outputDipFlag;
  Block(block::kIdentity) = identityBlock;

  const std::uint32_t firmwareItem =
      identity.boxType == 26 ? word::kFirmware : word::kFirmwareOther;
  Word(firmwareItem) = {firmware & 0xFF, (firmware >> 8) & 0xFF};
  RestoreProcAmp();
  if (identity.boxType != 26) {
    RestoreOtherModel();
    return;
  }

  for (const WordRow& row : kWords26) Word(row.item) = {row.value, 0};
  Block(block::kNoSignal) = {1, 0};
  Block(block::kDip8Mode) = {0, 0};
  RestoreRgb();
  RestoreImage();
  ReportInputFormat();
}

void BoxModel::RestoreOtherModel() {
  for (const OtherBlockRow& row : kOtherBlocks) {
    if (Has(row.types, identity.boxType)) Block(row.property) = row.bytes;
  }
  for (const OtherWordRow& row : kOtherWords) {
    const bool isFirmware = row.item == word::kFirmwareOther;
    if (!isFirmware && Has(row.types, identity.boxType)) Word(row.item) = {row.value, 0};
  }
}

void BoxModel::RestoreProcAmp() { picture = ProcAmpBytes{}; }

void BoxModel::RestoreRgb() { Block(block::kRgb) = {128, 128, 0}; }

// Horizontal position 300, vertical 50; both sizes 100 percent.
void BoxModel::RestoreImage() {
  Block(block::kImagePosition26) = {0x01, 0x2C, 0x00, 0x32};
  Block(block::kImageSize26) = {100, 100};
}

void BoxModel::ReportInputFormat() {
  std::vector<std::uint8_t> format(kFormatLength, 0);
  for (const InputRow& row : kInputs) {
    if (row.source == Word(word::kInputSource)[0]) {
      std::copy(row.format.begin(), row.format.end(), format.begin());
    }
  }
  Block(block::kInputFormat) = format;
}

bool BoxModel::IsRestarting() const { return restarting && Now() - restartedAt < kRestartTime; }

DeviceHandle BoxModel::Open(std::uint32_t mode) {
  if (mode != kOpenMode || !IsPresent()) return kNoBox;
  restarting = false;
  return kHandle;
}

int BoxModel::GetKiraboxProperty(DeviceHandle handle, std::uint8_t property, std::uint8_t sub,
                                 std::uint8_t length, BlockBuffer& out) {
  const auto found = blocks.find({property, sub});
  if (!Answers(handle) || found == blocks.end() || found->second.empty()) return kFailure;
  std::fill_n(out.begin(), length, std::uint8_t{0});
  const std::size_t held = std::min<std::size_t>(length, found->second.size());
  std::copy_n(found->second.begin(), held, out.begin());
  return kSuccess;
}

int BoxModel::SetKiraboxProperty(DeviceHandle handle, std::uint8_t property, std::uint8_t sub,
                                 std::uint8_t length, const BlockBuffer& bytes) {
  if (!Answers(handle)) return kFailure;
  // One byte on that property opens a function of the box; only type 51 keeps its display mode
  // there.
  if (property == block::kBoxMenu && length == 1 && identity.boxType != 51) return kSuccess;
  std::vector<std::uint8_t>& stored = Block(property, sub);
  if (stored.size() < length) stored.resize(length);
  std::copy_n(bytes.begin(), length, stored.begin());
  if (identity.boxType != 26) ReportOutput(property, bytes[0]);
  return kSuccess;
}

int BoxModel::GetBoxProperty(DeviceHandle handle, std::uint32_t group, std::uint32_t item,
                             WordBuffer& out) {
  const auto found = words.find(item);
  if (!Answers(handle) || group != kBoxGroup || found == words.end()) return kFailure;
  out = found->second;
  return kSuccess;
}

int BoxModel::SetBoxProperty(DeviceHandle handle, std::uint32_t group, std::uint32_t item,
                             std::uint32_t value) {
  if (!Answers(handle) || group != kBoxGroup) return kFailure;
  if (identity.boxType == 26 && item == word::kCommand) {
    RunCommand(value);
    return kSuccess;
  }
  Word(item) = {value, 0};
  if (identity.boxType == 26 && item == word::kInputSource) ReportInputFormat();
  return kSuccess;
}

// What models with pass-through report of their output after it was set.
void BoxModel::ReportOutput(std::uint8_t property, std::uint8_t value) {
  if (words.find(word::kPassThroughReport) == words.end()) return;
  if (property == block::kVideoOutputFormat) Word(word::kOutputFormatReport) = {value, 0};
  if (property == block::kVideoPassThrough) Word(word::kPassThroughReport) = {value, 0};
}

void BoxModel::RunCommand(std::uint32_t number) {
  switch (number) {
    case command::kProcAmpDefaults:
      RestoreProcAmp();
      break;
    case command::kRgbDefaults:
      RestoreRgb();
      break;
    case command::kImageRestore:
      RestoreImage();
      break;
    case command::kHardwareReset:
      RestoreEverything();
      restarting = true;
      restartedAt = Now();
      break;
    default:
      break;
  }
}

int BoxModel::GetKiraboxProcAmp(DeviceHandle handle, ProcAmpBytes& out) {
  if (!Answers(handle)) return kFailure;
  out = picture;
  return kSuccess;
}

std::uint8_t* BoxModel::ProcAmpValue(std::uint32_t control) {
  switch (control) {
    case proc_amp::kBrightness:
      return &picture.brightness;
    case proc_amp::kContrast:
      return &picture.contrast;
    case proc_amp::kHue:
      return &picture.hue;
    case proc_amp::kSaturation:
      return &picture.saturation;
    default:
      return nullptr;
  }
}

int BoxModel::GetVideoProcAmp(DeviceHandle handle, std::uint32_t group, std::uint32_t control,
                              WordBuffer& out) {
  const std::uint8_t* value = ProcAmpValue(control);
  if (!Answers(handle) || group != kBoxGroup || value == nullptr) return kFailure;
  out[0] = *value;
  return kSuccess;
}

int BoxModel::SetVideoProcAmp(DeviceHandle handle, std::uint32_t group, std::uint32_t control,
                              std::uint32_t value) {
  if (!Answers(handle) || group != kBoxGroup) return kFailure;
  std::uint8_t* stored = ProcAmpValue(control);
  if (stored != nullptr) *stored = static_cast<std::uint8_t>(value & 0xFF);
  return kSuccess;
}

}  // namespace panelora::simulator
