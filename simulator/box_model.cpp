#include "simulator/box_model.h"

#include <algorithm>
#include <string>

#include "device/properties.h"
#include "simulator/model_defaults.h"

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

constexpr std::size_t kFormatLength = 30;

bool Has(const std::vector<std::uint8_t>& types, std::uint8_t boxType) {
  return types.empty() || std::find(types.begin(), types.end(), boxType) != types.end();
}

bool HoldsGenlockDelays(std::uint8_t property) {
  return property == block::kGenlockDelays1 || property == block::kGenlockDelays2 ||
         property == block::kGenlockDelays3;
}

// The multi-viewers. Their insets as they leave the factory: positions and sizes of 16 bits, the
// first little-endian as it is read, the second big-endian.
const std::vector<std::uint8_t> kFirstInset = {0x64, 0, 0x64, 0, 0x80, 0x02, 0x68, 0x01};
const std::vector<std::uint8_t> kSecondInset = {0x04, 0x4C, 0, 0x64, 0x02, 0x80, 0x01, 0x68};
constexpr std::size_t kLabelLength = 20;
constexpr std::size_t kLabelBlockLength = 60;

bool TakesModeByWord(std::uint8_t boxType) { return boxType == 13 || boxType == 15; }

bool IsMultiViewer(std::uint8_t boxType) { return TakesModeByWord(boxType) || boxType == 51; }

// The panel of brand 8 calls mode 9 what the box calls mode 5.
constexpr std::uint8_t kBrandOfMode9As5 = 8;

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
  Block(block::kTextLabel) = TextLabel();
  Block(block::kNoSignal) = {1, 0};
  Block(block::kDip8Mode) = {0, 0};
  RestoreRgb();
  RestoreImage();
  ReportInputFormat();
}

void BoxModel::RestoreOtherModel() {
  for (const BlockDefault& row : BlockDefaults()) {
    if (Has(row.types, identity.boxType)) Block(row.property) = row.bytes;
  }
  for (const WordDefault& row : WordDefaults()) {
    if (Has(row.types, identity.boxType)) Word(row.item) = {row.value, 0};
  }
  if (IsMultiViewer(identity.boxType)) RestoreMultiViewer();
  // With DIP switches and of brand 2 these keep their region elsewhere.
  if (identity.boxType == 24 || identity.boxType == 34) {
    const bool elsewhere = identity.inputDipFlag == 1 || identity.brandCode == 2;
    Block(elsewhere ? block::kRegion18 : block::kRegion15) = Region();
  }
}

void BoxModel::RestoreMultiViewer() {
  Block(block::kPipWindow1) = kFirstInset;
  Block(block::kPipWindow2) = kSecondInset;
  for (std::uint8_t input = 0; input < 4; ++input) {
    std::string label = "      INPUT 1       ";
    label[12] = static_cast<char>('1' + input);
    std::vector<std::uint8_t>& stored = Block(block::kInputLabel, input);
    stored.assign(kLabelBlockLength, 0);
    std::copy_n(label.begin(), kLabelLength, stored.begin());
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
  if (IsMultiViewer(identity.boxType) && StoreMultiView(property, length, bytes)) return kSuccess;
  std::vector<std::uint8_t>& stored = Block(property, sub);
  if (HoldsGenlockDelays(property) && length == 5) {
    // Taken big-endian, told little-endian; a preview acts like the final value.
    stored = {bytes[1], bytes[0], bytes[3], bytes[2]};
    return kSuccess;
  }
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
  if (TakesModeByWord(identity.boxType) && item == word::kDisplayMode) {
    const bool asMode5 = identity.brandCode == kBrandOfMode9As5 && value == 9;
    std::vector<std::uint8_t>& multiView = Block(block::kMultiView);
    if (!multiView.empty()) multiView[0] = static_cast<std::uint8_t>(asMode5 ? 5 : value);
    return kSuccess;
  }
  if (TakesModeByWord(identity.boxType) && item == word::kChannelCode) {
    StoreChannelCode(static_cast<std::uint8_t>(value));
    return kSuccess;
  }
  Word(item)[0] = value;  // not the second: word 8 holds wall size and firmware version at once
  if (identity.boxType == 26 && item == word::kInputSource) ReportInputFormat();
  return kSuccess;
}

// True for what a multi-viewer does not keep as it was sent.
bool BoxModel::StoreMultiView(std::uint8_t property, std::uint8_t length,
                              const BlockBuffer& bytes) {
  if (property == block::kChannelCodes && length == 1) {
    StoreChannelCode(bytes[0]);
    return true;
  }
  const bool isInset1 = property == block::kPipWindow1;
  if (!isInset1 && property != block::kPipWindow2) return false;
  // All ones put an inset back in its first place.
  if (std::all_of(bytes.begin(), bytes.begin() + length, [](auto byte) { return byte == 0xFF; })) {
    Block(property) = isInset1 ? kFirstInset : kSecondInset;
    return true;
  }
  if (!isInset1 || !TakesModeByWord(identity.boxType)) return false;
  // Taken big-endian, told little-endian.
  std::vector<std::uint8_t>& stored = Block(property);
  for (std::size_t i = 0; i + 1 < std::min<std::size_t>(length, stored.size()); i += 2) {
    stored[i] = bytes[i + 1];
    stored[i + 1] = bytes[i];
  }
  return true;
}

// Each mode remembers the combination that was last used in it.
void BoxModel::StoreChannelCode(std::uint8_t code) {
  const std::vector<std::uint8_t>& multiView = Block(block::kMultiView);
  const std::uint8_t reported = multiView.empty() ? std::uint8_t{0} : multiView[0];
  const bool isMode9 = identity.brandCode == kBrandOfMode9As5 && reported == 5;
  const std::size_t slot = isMode9 ? 9 : reported;
  std::vector<std::uint8_t>& codes = Block(block::kChannelCodes);
  if (slot >= 1 && slot <= codes.size()) codes[slot - 1] = code;
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
