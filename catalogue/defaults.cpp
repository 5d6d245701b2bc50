#include "catalogue/defaults.h"

#include <algorithm>

#include "catalogue/audio.h"
#include "catalogue/codecs.h"
#include "catalogue/information.h"
#include "catalogue/multiview.h"
#include "catalogue/picture.h"
#include "catalogue/setting.h"
#include "catalogue/video.h"
#include "catalogue/wall.h"

namespace panelora {

namespace {

using Bytes = std::vector<std::uint8_t>;

constexpr VideoFormat kReference = {1920, 1080, 60, 0, 1};
constexpr VideoFormat kInput = {1920, 1080, 50, 0, 1};
constexpr PipWindow kInset1 = {100, 100, 640, 360};
constexpr PipWindow kInset2 = {1100, 100, 640, 360};
constexpr Region kRegion = {300, 50, 960, 540, 1, 1};
constexpr ImagePosition kPosition = {300, 50};
constexpr ImageSize kSize = {100, 100};
constexpr Delays kDelays = {100, 200};
constexpr std::uint8_t kOutput1080p60 = 10;  // as Genlock counts formats
constexpr std::uint8_t kInput1080p60 = 15;   // as regions and references do

template <class Array>
Bytes ToBytes(const Array& bytes) {
  return Bytes(bytes.begin(), bytes.end());
}

class Collector {
 public:
  Collector(const Identity& theIdentity, std::uint32_t theFirmware)
      : identity(theIdentity), firmware(theFirmware) {}

  void Add(const Address& at, Bytes bytes) {
    if (at.kind != Address::Kind::kNone) all.push_back({at, std::move(bytes)});
  }

  bool Has(const Address& at) const {
    return std::any_of(all.begin(), all.end(), [&](const Default& each) { return each.at == at; });
  }

  // The first choice of an option that is chosen so often, or whichever the type has.
  void AddOptions(const OptionGroup& group) {
    for (const Kept& kept : group.kept) {
      if (!kept.types.Has(identity.boxType) || kept.access == Access::kWriteOnly) continue;
      const OptionList& list = group.options[kept.option];
      const Choice* choice = FindIndex(list.choices, identity.boxType, list.factory);
      const std::uint8_t value = choice != nullptr ? choice->value : list.factory;
      Add(kept.at, {kept.reads == Reads::kValue ? value : list.factory, 0});
    }
  }

  void AddStatus() {
    for (const information::Told& told : information::Rows()) {
      const Address at = information::AddressOf(told, identity, firmware);
      if (told.tells == information::Tells::kFormatCode) Add(at, {10});
      if (told.tells == information::Tells::kLittleFormat && !Has(at)) {
        Bytes formats;
        for (int input = 0; input < told.inputs; ++input) {
          const Bytes format = ToBytes(EncodeFormat(kInput, ByteOrder::kLittle));
          formats.insert(formats.end(), format.begin(), format.end());
        }
        Add(at, formats);
      }
      if (told.row == information::kInputColour) Add(at, {0});
    }
    Bytes label = {1};
    const LabelField text = CentredLabel("CAMERA 1");
    label.insert(label.end(), text.begin(), text.end());
    Add(multiview::kTextLabel, label);
  }

  void AddVideo() {
    if (video::kPassThrough.Has(identity.boxType)) {
      Add(video::kPassThroughRequest, {0, 0});
      Add(video::kPassThroughReport, {0});
    }
    if (!kShippedType.Has(identity.boxType)) Add(video::kOutputFormatReport, {kInput1080p60});
  }

  void AddAudio() {
    const audio::Volumes& volumes = audio::VolumesOf(identity.boxType);
    if (volumes.kind == audio::VolumeKind::kOutputLevel) Add(volumes.at, {62, 0});
    if (volumes.kind == audio::VolumeKind::kAttenuation) Add(volumes.at, {50, 50});
    if (volumes.kind == audio::VolumeKind::kInput) Add(volumes.at, {50, 50, 0});
    Add(audio::FittedOf(identity.boxType), {1, 1});
    const Address input = audio::InputOf(identity.boxType);
    if (!Has(input)) Add(input, {1});
  }

  void AddImage() {
    for (const image::Enabling& row : image::Enablings()) {
      const bool serves =
          row.types.Has(identity.boxType) && (row.when == nullptr || row.when(identity, firmware));
      if (serves && !kShippedType.Has(identity.boxType)) Add(row.at, {row.value, 0});
    }
    if (const image::Store* store = image::Find(identity)) {
      Add(store->size, ToBytes(EncodeImageSize(kSize)));
      Add(store->position, ToBytes(EncodeImagePosition(kPosition)));
    }
  }

  void AddGenlock() {
    const genlock::Model* model = genlock::Find(identity.boxType);
    if (model == nullptr) return;
    Add(model->reference, ToBytes(EncodeFormat(kReference, ByteOrder::kLittle)));
    const std::uint8_t mode = model->skipsMode1 ? 2 : 1;
    Add(model->mode, {mode, kOutput1080p60, 0, kInput1080p60});
    Add(model->delays, ToBytes(EncodeToldDelays(kDelays)));
    Add(model->locked, {0, 0});
    Add(model->sync, {0, 0});
    Add(model->input, {kInput1080p60, 0});
  }

  void AddRegion() {
    const region::Store* store = region::Find(identity);
    if (store == nullptr) return;
    Add(store->input, {kInput1080p60, 0});
    Add(store->region, ToBytes(EncodeRegion(kRegion)));
  }

  void AddWall() {
    const wall::Store* store = wall::Find(identity.boxType);
    if (store == nullptr) return;
    Add(store->size, {2, 0});
    Add(store->tile, {0});
  }

  void AddMultiView() {
    if (!multiview::kModels.Has(identity.boxType)) return;
    Add(multiview::kModes, {1, 1, 1});
    Add(multiview::kCodes, Bytes(10, 1));
    Add(multiview::kLabelsState, {0, 0});
    Add(multiview::PipOptionOf(identity.boxType),
        {static_cast<std::uint8_t>(multiview::kByWord.Has(identity.boxType) ? 1 : 0), 0});
    Add(multiview::OutputFormatOf(identity.boxType), {4, 0});
    Add(multiview::kInset1, FirstInset1());
    Add(multiview::kInset2, FirstInset2());
    for (std::uint8_t input = 0; input < 4; ++input) {
      Bytes label = ToBytes(CentredLabel("INPUT 1"));
      label[12] = static_cast<std::uint8_t>('1' + input);
      label.resize(multiview::InputLabel(input).readLength);
      Add(multiview::InputLabel(input), label);
    }
  }

  std::vector<Default> all;

 private:
  const Identity& identity;
  std::uint32_t firmware;
};

}  // namespace

std::vector<std::uint8_t> FirstInset1() {
  return ToBytes(EncodePipWindow(kInset1, ByteOrder::kLittle));
}
std::vector<std::uint8_t> FirstInset2() {
  return ToBytes(EncodePipWindow(kInset2, ByteOrder::kBig));
}

std::vector<Default> DefaultsOf(const Identity& identity, std::uint32_t firmware) {
  Collector defaults(identity, firmware);
  if (identity.boxType == kNoBoxType) return {};
  for (const OptionGroup* group : {&setting::Options(), &audio::Options(), &video::Options()}) {
    defaults.AddOptions(*group);
  }
  defaults.AddVideo();
  defaults.AddAudio();
  defaults.AddWall();
  defaults.AddMultiView();
  defaults.AddImage();
  defaults.AddGenlock();
  defaults.AddRegion();
  defaults.AddStatus();
  if (kShippedType.Has(identity.boxType)) defaults.Add(picture::kRgb, {128, 128, 0});
  return defaults.all;
}

}  // namespace panelora
