#include "simulator/box_model.h"

#include <algorithm>
#include <atomic>
#include <string>

#include "catalogue/audio.h"
#include "catalogue/information.h"
#include "catalogue/multiview.h"
#include "catalogue/picture.h"
#include "catalogue/video.h"

namespace panelora::simulator {

namespace {

constexpr int kFailure = 0;

// What each input of model 26 receives; scan 0 is progressive.
struct InputRow {
  std::uint8_t source;
  VideoFormat format;
};

constexpr InputRow kInputs[] = {
    {1, {1920, 1080, 59, 94, 0}},  // HDMI
    {2, {1024, 768, 60, 0, 0}},    // VGA
    {4, {1920, 1080, 50, 0, 1}},   // SDI
};

constexpr Address kInputSource = Word(4);
constexpr Address kInputFormat = Block(1, 30);

// The panel of brand 8 calls mode 9 what the box calls mode 5.
constexpr std::uint8_t kBrandOfMode9As5 = 8;

}  // namespace

std::uint8_t* PictureValue(ProcAmpBytes& picture, std::uint32_t control) {
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

BoxModel::BoxModel(const Identity& theIdentity, std::uint32_t theFirmware, Clock theClock)
    : clock(std::move(theClock)), own(std::make_unique<BoxMemory>()), memory(*own) {
  memory.present = true;
  Become(theIdentity, theFirmware);
}

// The fences keep the compiler from moving what is made out from between the two.
void BoxModel::SetBeingMade(bool isBeingMade) {
  std::atomic_signal_fence(std::memory_order_seq_cst);
  memory.beingMade = isBeingMade;
  std::atomic_signal_fence(std::memory_order_seq_cst);
}

void BoxModel::Become(const Identity& newIdentity, std::uint32_t newFirmware) {
  SetBeingMade(true);
  memory.identity = newIdentity;
  memory.firmware = newFirmware;
  memory.restarting = false;
  memory.inputIsGiven = false;
  RestoreEverything();
}

void BoxModel::Load(const BoxMemory& kept) {
  BoxMemory whole = kept;
  whole.beingMade = true;
  SetBeingMade(true);
  memory = whole;
  SetBeingMade(false);
}

bool BoxModel::CanHave(std::uint8_t property, std::uint8_t sub) {
  const bool isLabel = property == multiview::InputLabel(sub).number && sub < BoxMemory::kSubs;
  return sub == kNoSub || isLabel;
}

KeptBlock& BoxModel::Block(std::uint8_t property, std::uint8_t sub) {
  if (CanHave(property, sub)) {
    return sub == kNoSub ? memory.blocks[property] : memory.labels[sub - 1U];
  }
  noBlock.resize(0);
  return noBlock;
}

WordBuffer& BoxModel::Word(std::uint32_t item) {
  if (item >= BoxMemory::kNumbers) return noWord;
  memory.words[item].held = true;
  return memory.words[item].words;
}

void BoxModel::RestoreEverything() {
  SetBeingMade(true);
  const KeptBlock received = Block(kInputFormat.number);
  memory.blocks = {};
  memory.labels = {};
  memory.words = {};
  const auto identityBlock = EncodeIdentity(memory.identity);
  Block(kIdentityBlock.number).assign(identityBlock.begin(), identityBlock.end());
  Word(information::FirmwareOf(memory.identity.boxType).number) = EncodeFirmware(memory.firmware);
  RestoreProcAmp();
  for (const Default& each : DefaultsOf(memory.identity, memory.firmware)) Store(each);
  if (IsModel26()) ReportInputFormat();
  if (IsModel26() && memory.inputIsGiven) Block(kInputFormat.number) = received;
  SetBeingMade(false);
}

void BoxModel::Store(const Default& value) {
  if (value.at.kind == Address::Kind::kBlock) {
    Block(value.at.number, value.at.sub) = value.bytes;
  } else {
    Word(value.at.number) = {value.bytes.front(), 0};
  }
}

void BoxModel::RestoreProcAmp() { memory.picture = ProcAmpBytes{}; }

// What a command restores; the rest stays.
void BoxModel::Restore(std::initializer_list<Address> addresses) {
  for (const Default& each : DefaultsOf(memory.identity, memory.firmware)) {
    if (std::find(addresses.begin(), addresses.end(), each.at) != addresses.end()) Store(each);
  }
}

void BoxModel::ReportInputFormat() {
  if (memory.inputIsGiven) return;
  KeptBlock& told = Block(kInputFormat.number);
  told.assign(kInputFormat.readLength, 0);
  for (const InputRow& row : kInputs) {
    if (row.source != Word(kInputSource.number)[0]) continue;
    const auto format = EncodeFormat(row.format, ByteOrder::kBig);
    std::copy(format.begin(), format.end(), told.begin());
  }
}

bool BoxModel::HasTwoWords(std::uint32_t item) const {
  return information::HasTwoWords(memory.identity.boxType, item);
}

bool BoxModel::IsRestarting() const {
  return memory.restarting && Now() - memory.restartedAt < kRestartTime;
}

DeviceHandle BoxModel::Open(std::uint32_t mode) {
  if (mode != kOpenMode || !IsPresent()) return kNoBox;
  memory.restarting = false;
  return kHandle;
}

int BoxModel::GetKiraboxProperty(DeviceHandle handle, std::uint8_t property, std::uint8_t sub,
                                 std::uint8_t length, BlockBuffer& out) {
  const KeptBlock& found = Block(property, sub);
  if (!Answers(handle) || found.empty()) return kFailure;
  std::fill_n(out.begin(), length, std::uint8_t{0});
  std::copy_n(found.begin(), std::min<std::size_t>(length, found.size()), out.begin());
  return kSuccess;
}

int BoxModel::SetKiraboxProperty(DeviceHandle handle, std::uint8_t property, std::uint8_t sub,
                                 std::uint8_t length, const BlockBuffer& bytes) {
  if (!Answers(handle)) return kFailure;
  if (StoreToldElsewhere(panelora::Block(property), bytes[0])) return kSuccess;
  // One byte on that property opens a function of the box; only type 51 keeps its display mode
  // there.
  const bool keepsMode = multiview::kByBlock.Has(memory.identity.boxType);
  if (property == kBoxMenu.number && length == 1 && !keepsMode) return kSuccess;
  if (multiview::kModels.Has(memory.identity.boxType) && StoreMultiView(property, length, bytes)) {
    return kSuccess;
  }
  KeptBlock& stored = Block(property, sub);
  const genlock::Model* model = genlock::Find(memory.identity.boxType);
  if (model != nullptr && property == model->delays.number && length == 5) {
    // A preview acts like the final value.
    const Bytes4 told = EncodeToldDelays(DecodeTakenDelays(bytes));
    stored.assign(told.begin(), told.end());
    return kSuccess;
  }
  if (stored.size() < length) stored.resize(length);
  std::copy_n(bytes.begin(), length, stored.begin());
  if (!IsModel26()) ReportOutput(property, bytes[0]);
  return kSuccess;
}

int BoxModel::GetBoxProperty(DeviceHandle handle, std::uint32_t group, std::uint32_t item,
                             WordBuffer& out) {
  if (!Answers(handle) || group != kBoxGroup || item >= BoxMemory::kNumbers) return kFailure;
  if (!memory.words[item].held) return kFailure;
  out = memory.words[item].words;
  return kSuccess;
}

int BoxModel::SetBoxProperty(DeviceHandle handle, std::uint32_t group, std::uint32_t item,
                             std::uint32_t value) {
  if (!Answers(handle) || group != kBoxGroup) return kFailure;
  if (IsModel26() && item == command::kAt.number) {
    RunCommand(value);
    return kSuccess;
  }
  if (multiview::kByWord.Has(memory.identity.boxType) && item == multiview::kModeWord.number) {
    const bool asMode5 = memory.identity.brandCode == kBrandOfMode9As5 && value == 9;
    KeptBlock& multiView = Block(multiview::kModes.number);
    if (!multiView.empty()) multiView[0] = static_cast<std::uint8_t>(asMode5 ? 5 : value);
    return kSuccess;
  }
  if (multiview::kByWord.Has(memory.identity.boxType) && item == multiview::kCodeWord.number) {
    StoreChannelCode(static_cast<std::uint8_t>(value));
    return kSuccess;
  }
  // What is told to the item of the firmware version is a command: the version stays.
  if (item == information::FirmwareOf(memory.identity.boxType).number) return kSuccess;
  Word(item) = {value, 0};
  if (IsModel26() && item == kInputSource.number) ReportInputFormat();
  return kSuccess;
}

// True for what a multi-viewer does not keep as it was sent.
bool BoxModel::StoreMultiView(std::uint8_t property, std::uint8_t length,
                              const BlockBuffer& bytes) {
  if (property == multiview::kCodes.number && length == 1) {
    StoreChannelCode(bytes[0]);
    return true;
  }
  const bool isInset1 = property == multiview::kInset1.number;
  if (!isInset1 && property != multiview::kInset2.number) return false;
  // All ones put an inset back in its first place.
  if (std::all_of(bytes.begin(), bytes.begin() + length, [](auto byte) { return byte == 0xFF; })) {
    Block(property) = isInset1 ? FirstInset1() : FirstInset2();
    return true;
  }
  if (!isInset1 || !multiview::kByWord.Has(memory.identity.boxType)) return false;
  const PipWindow inset = DecodePipWindow(bytes, ByteOrder::kBig);
  const Bytes8 told = EncodePipWindow(inset, ByteOrder::kLittle);
  Block(property).assign(told.begin(), told.end());
  return true;
}

// Each mode remembers the combination that was last used in it.
void BoxModel::StoreChannelCode(std::uint8_t code) {
  const KeptBlock& multiView = Block(multiview::kModes.number);
  const std::uint8_t reported = multiView.empty() ? std::uint8_t{0} : multiView[0];
  const bool isMode9 = memory.identity.brandCode == kBrandOfMode9As5 && reported == 5;
  const std::size_t slot = isMode9 ? 9 : reported;
  KeptBlock& codes = Block(multiview::kCodes.number);
  if (slot >= 1 && slot <= codes.size()) codes[slot - 1] = code;
}

// An option that is told in one place and reported in another; false when it is none.
bool BoxModel::StoreToldElsewhere(const Address& at, std::uint8_t value) {
  for (const Kept& told : audio::Options().kept) {
    if (told.access != Access::kWriteOnly || told.at != at ||
        !told.Serves(memory.identity, memory.firmware)) {
      continue;
    }
    for (const Kept& kept : audio::Options().kept) {
      if (kept.option != told.option || kept.access != Access::kReadOnly) continue;
      if (kept.Serves(memory.identity, memory.firmware)) Store({kept.at, {value}});
    }
    return true;
  }
  return false;
}

// What models with pass-through report of their output after it was set.
void BoxModel::ReportOutput(std::uint8_t property, std::uint8_t value) {
  if (!video::kPassThrough.Has(memory.identity.boxType)) return;
  for (const Kept& kept : video::Options().kept) {
    const bool isFormat =
        kept.option == video::kOutputFormat && kept.types.Has(memory.identity.boxType);
    if (isFormat && kept.at == panelora::Block(property)) {
      Word(video::kOutputFormatReport.number) = {value, 0};
    }
  }
  if (property == video::kPassThroughRequest.number) {
    Word(video::kPassThroughReport.number) = {value, 0};
  }
}

void BoxModel::RunCommand(std::uint32_t number) {
  switch (number) {
    case command::kProcAmpDefaults:
      RestoreProcAmp();
      break;
    case command::kRgbDefaults:
      Restore({picture::kRgb});
      break;
    case command::kImageRestore:
      Restore({image::Find(memory.identity)->position, image::Find(memory.identity)->size});
      break;
    case command::kHardwareReset:
      RestoreEverything();
      memory.restarting = true;
      memory.restartedAt = Now();
      break;
    default:
      break;
  }
}

int BoxModel::GetKiraboxProcAmp(DeviceHandle handle, ProcAmpBytes& out) {
  if (!Answers(handle)) return kFailure;
  out = memory.picture;
  return kSuccess;
}

int BoxModel::GetVideoProcAmp(DeviceHandle handle, std::uint32_t group, std::uint32_t control,
                              WordBuffer& out) {
  const std::uint8_t* value = PictureValue(memory.picture, control);
  if (!Answers(handle) || group != kBoxGroup || value == nullptr) return kFailure;
  out[0] = *value;
  return kSuccess;
}

int BoxModel::SetVideoProcAmp(DeviceHandle handle, std::uint32_t group, std::uint32_t control,
                              std::uint32_t value) {
  if (!Answers(handle) || group != kBoxGroup) return kFailure;
  std::uint8_t* stored = PictureValue(memory.picture, control);
  if (stored != nullptr) *stored = static_cast<std::uint8_t>(value & 0xFF);
  return kSuccess;
}

}  // namespace panelora::simulator
