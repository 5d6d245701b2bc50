#include "catalogue/properties.h"

#include <algorithm>
#include <iterator>

#include "base/text.h"
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

constexpr Choice kOffOn[] = {{kAllTypes, 0, "OFF", 0}, {kAllTypes, 1, "ON", 1}};
constexpr Choice kNoYes[] = {{kAllTypes, 0, "no", 0}, {kAllTypes, 1, "yes", 1}};
constexpr Choice kCommits[] = {{kAllTypes, 0, "preview", 0}, {kAllTypes, 1, "stored", 1}};

// The name of a value, or else the value.
std::string NameOf(Choices choices, const Carried& carried, std::uint8_t value) {
  const Choice* choice = FindValue(choices, carried.box.boxType, value);
  return choice != nullptr ? choice->text : Format("%d", value);
}

// A format code as regions, references and output formats count them.
std::string FormatOf(const Carried& carried, std::uint8_t code) {
  const Choices formats = video::Options().options[video::kOutputFormat].choices;
  const Choice* format = FindValue(formats, carried.box.boxType, code);
  return format != nullptr ? format->text : Format("code %d", code);
}
std::string FormatCodeWords(const Carried& carried) { return FormatOf(carried, carried.value); }

std::string IdentityWords(const Carried& carried) {
  const Identity told = DecodeIdentity(carried.bytes);
  std::string text = Format("type %d brand %d", told.boxType, told.brandCode);
  if (told.subModel != 0) text += Format(" sub-model %d", told.subModel);
  if (told.inputDipFlag == 1) text += " input DIP";
  if (told.outputDipFlag == 1) text += " output DIP";
  return text;
}

std::string FirmwareWords(const Carried& carried) {
  return information::FirmwareText(DecodeFirmware(carried.words));
}

std::string BigFormatWords(const Carried& carried) {
  const VideoFormat format = DecodeFormat(carried.bytes, ByteOrder::kBig);
  return TextOf(format, format.scan != 0 ? "i" : "p");
}
std::string LittleFormatWords(const Carried& carried) {
  const VideoFormat format = DecodeFormat(carried.bytes, ByteOrder::kLittle);
  return TextOf(format, format.scan == 1 ? "p" : format.scan == 2 ? "s" : "i");
}
std::string InputCodeWords(const Carried& carried) {
  return information::InputFormatName(carried.box.boxType, carried.value, carried.words[1] == 1);
}

std::string FourFormatsWords(const Carried& carried) {
  std::string text;
  for (std::size_t input = 0; input < 4; ++input) {
    const auto bytes = std::span(carried.bytes).subspan(input * kFormatBytes);
    const VideoFormat format = DecodeFormat(bytes, ByteOrder::kLittle);
    text += (input == 0 ? "" : ", ") + TextOf(format, format.scan == 1   ? "p"
                                                      : format.scan == 2 ? "s"
                                                                         : "i");
  }
  return text;
}

// Options, levels and references have rows of their own.
Words WordsOf(const information::Told& told) {
  switch (told.tells) {
    case information::Tells::kBigFormat:
      return BigFormatWords;
    case information::Tells::kLittleFormat:
      return told.inputs == 4 ? FourFormatsWords : LittleFormatWords;
    case information::Tells::kFormatCode:
      return InputCodeWords;
    case information::Tells::kReference:
    case information::Tells::kVideoOption:
    case information::Tells::kAudioOption:
    case information::Tells::kOutputLevel:
      break;
  }
  return nullptr;
}

// Whether there is a source to choose, and a volume.
std::string FittedWords(const Carried& carried) {
  return Format("source %d, volume %d", carried.bytes[0], carried.bytes[1]);
}

// Every box is asked for its display modes, and none but the multi-viewers has any.
std::string ModesWords(const Carried& carried) {
  if (!multiview::kModels.Has(carried.box.boxType)) return "none";
  return Format("Mode %d of %d%s", carried.value, carried.bytes[1] == 1 ? 9 : 5,
                carried.bytes[2] == 1 ? ", with labels" : "");
}
std::string ModeWords(const Carried& carried) { return Format("Mode %d", carried.value); }

std::string CodesWords(const Carried& carried) {
  constexpr std::size_t kModes = 10;
  std::string text;
  for (std::size_t i = 0; i < kModes; ++i) text += Format(i == 0 ? "%d" : " %d", carried.bytes[i]);
  return text;
}

std::string LabelOf(const Carried& carried, std::size_t first) {
  return TextOfLabel(std::span(carried.bytes).subspan(first).first<kLabelLength>());
}
std::string InputLabelWords(const Carried& carried) { return LabelOf(carried, 0); }
std::string TextLabelWords(const Carried& carried) {
  return NameOf(multiview::TextLabelStates(), carried, carried.value) + ", " + LabelOf(carried, 1);
}

std::string InsetOf(const Carried& carried, ByteOrder order) {
  const auto inset = std::span(carried.bytes).first<8>();
  const bool allOnes =
      std::all_of(inset.begin(), inset.end(), [](std::uint8_t byte) { return byte == 0xFF; });
  if (carried.isWrite && allOnes) return "first place";
  const PipWindow at = DecodePipWindow(inset, order);
  return Format("%dx%d at %d, %d", at.hSize, at.vSize, at.hPos, at.vPos);
}
// Told and taken in another order, but for the models by block.
std::string Inset1Words(const Carried& carried) {
  const bool isBig = carried.isWrite && multiview::kByWord.Has(carried.box.boxType);
  return InsetOf(carried, isBig ? ByteOrder::kBig : ByteOrder::kLittle);
}
std::string Inset2Words(const Carried& carried) { return InsetOf(carried, ByteOrder::kBig); }

std::string RegionWords(const Carried& carried) {
  constexpr const char* kUses[] = {"as it was", "in use", "off"};
  const Region region = DecodeRegion(carried.bytes);
  return Format("%dx%d at %d, %d, ", region.width, region.height, region.x, region.y) +
         NameOf(region::ModeNames(), carried, region.mode) +
         Format(", %s", region.use < std::size(kUses) ? kUses[region.use] : "use unknown");
}

std::string DelaysWords(const Carried& carried) {
  const Delays delays =
      carried.isWrite ? DecodeTakenDelays(carried.bytes) : DecodeToldDelays(carried.bytes);
  const char* until = carried.bytes[4] == 1 ? ", final" : ", preview";
  return Format("%d lines, %d clocks%s", delays.lines, delays.clocks, carried.isWrite ? until : "");
}

// Output code and reference come with the mode, and are never told.
std::string GenlockModeWords(const Carried& carried) {
  std::string text = NameOf(genlock::ModeNames(), carried, carried.value);
  if (carried.isWrite) return text;
  const genlock::Model* model = genlock::Find(carried.box.boxType);
  text += Format(", output code %d", carried.bytes[1]);
  if (model != nullptr && model->input.kind == Address::Kind::kNone) {
    text += ", reference " + FormatOf(carried, carried.bytes[3]);
  }
  return text;
}

std::string PositionWords(const Carried& carried) {
  const ImagePosition position = DecodeImagePosition(carried.bytes);
  return Format("%d, %d", position.horizontal, position.vertical);
}
std::string SizeWords(const Carried& carried) {
  const ImageSize size = DecodeImageSize(carried.bytes);
  return Format("%d%% x %d%%", size.horizontal, size.vertical);
}

std::string RgbWords(const Carried& carried) {
  return Format("gain %d, offset %d, offset 2 %d", carried.bytes[0], carried.bytes[1],
                carried.bytes[2]);
}

std::string WallSizeOf(std::uint8_t size) {
  const bool isWall = size >= 1 && size <= wall::kMaxSize;
  return isWall ? Format("%dx%d", size, size) : Format("size %d", size);
}
std::string WallWords(const Carried& carried) {
  return WallSizeOf(carried.bytes[0]) + Format(", tile %d", carried.bytes[1]);
}
std::string WallSizeWords(const Carried& carried) { return WallSizeOf(carried.value); }
std::string WallTileWords(const Carried& carried) { return Format("tile %d", carried.value); }

std::string AttenuationWords(const Carried& carried) {
  return Format("L/R -%d, embedded -%d", carried.bytes[0], carried.bytes[1]);
}
std::string OutputLevelWords(const Carried& carried) {
  constexpr int kZero = 62;
  return Format("%+.1f dBu", (carried.value - kZero) / 2.0);
}
// The first is an attenuation on brand 2.
std::string InputVolumeWords(const Carried& carried) {
  constexpr int kZero = 20;
  const std::string second = Format(", embedded %d", carried.bytes[1]);
  if (carried.box.brandCode != 2) return Format("L/R %d", carried.bytes[0]) + second;
  return Format("L/R %+.1f dBV", (kZero - carried.bytes[0]) / 2.0) + second;
}

Words WordsOf(audio::VolumeKind kind) {
  switch (kind) {
    case audio::VolumeKind::kNone:
      break;
    case audio::VolumeKind::kAttenuation:
      return AttenuationWords;
    case audio::VolumeKind::kInput:
      return InputVolumeWords;
    case audio::VolumeKind::kOutputLevel:
      return OutputLevelWords;
  }
  return nullptr;
}

// All that the source may be called, since that hangs on the video input.
std::string SourceWords(const Carried& carried) {
  const std::uint8_t type = carried.box.boxType;
  std::vector<std::string> names;
  for (const audio::Sources& each : audio::AllSources()) {
    const Choice* choice = carried.isWrite ? FindValue(each.choices, type, carried.value)
                                           : FindIndex(each.choices, type, carried.value);
    if (choice == nullptr) continue;
    if (std::find(names.begin(), names.end(), choice->text) == names.end()) {
      names.emplace_back(choice->text);
    }
  }
  std::string text;
  for (const std::string& name : names) text += (text.empty() ? "" : " or ") + name;
  return names.empty() ? Format("%d", carried.value) : text;
}

constexpr Property Order(const char* name, const Address& at, std::uint8_t value) {
  return {.name = name, .at = at, .access = Access::kWriteOnly, .command = value};
}
constexpr Property Reported(const char* name, const Address& at, Words words = nullptr,
                            Choices choices = {}) {
  return {.name = name, .at = at, .access = Access::kReadOnly, .words = words, .choices = choices};
}

class Collector {
 public:
  Collector(const Identity& theIdentity, std::uint32_t theFirmware)
      : identity(theIdentity), firmware(theFirmware) {}

  // What any box has, and what is asked although none is there.
  void AddCommon() {
    Add(Reported("Identity", kIdentityBlock, IdentityWords));
    Add(Reported("Display Modes", multiview::kModes, ModesWords));
    Add({.name = "Text Label",
         .at = multiview::kTextLabel,
         .writeLength = 1 + kLabelLength,
         .words = TextLabelWords});
    Add({.name = "Brightness", .at = ProcAmp(proc_amp::kBrightness)});
    Add({.name = "Contrast", .at = ProcAmp(proc_amp::kContrast)});
    Add({.name = "Hue", .at = ProcAmp(proc_amp::kHue)});
    Add({.name = "Saturation", .at = ProcAmp(proc_amp::kSaturation)});
    Add({.name = "Picture values",
         .at = ProcAmp(proc_amp::kCommit),
         .access = Access::kWriteOnly,
         .choices = kCommits});
  }

  void AddOptions(const OptionGroup& group) {
    for (const Kept& kept : group.kept) {
      if (!Has(kept.types)) continue;
      const OptionList& list = group.options[kept.option];
      const bool isSource = &group == &audio::Options() && kept.option == audio::kSource;
      Add({.name = list.name,
           .at = kept.at,
           .access = kept.access,
           .writeLength = static_cast<std::uint8_t>(kept.at == setting::kDip8AndExtra ? 2 : 1),
           .words = isSource ? SourceWords : nullptr,
           .choices = list.choices,
           .reads = kept.reads,
           .isAside = !kept.Serves(identity, firmware)});
    }
  }

  void AddStatus() {
    static constexpr const char* kInputs[] = {"Input Format", "Input Format 2", "Input Format 3",
                                              "Input Format 4"};
    for (const information::Told& told : information::Rows()) {
      const Address at = information::AddressOf(told, identity, firmware);
      if (told.row == information::kInputColour) {
        const OptionList& colours = video::Options().options[told.option];
        Add(Reported("Input Color", at, nullptr, colours.choices));
      } else if (const Words words = WordsOf(told)) {
        Add(Reported(kInputs[told.row], at, words));
      }
    }
    Add(Reported("Firmware", information::FirmwareOf(identity.boxType), FirmwareWords));
  }

  void AddVideo() {
    if (Has(video::kPassThrough)) {
      Add({.name = "Pass Through", .at = video::kPassThroughRequest, .choices = kOffOn});
    }
    if (Has(video::kReportsOutput)) {
      Add(Reported("Pass Through", video::kPassThroughReport, nullptr, kOffOn));
      Add(Reported("Output Format", video::kOutputFormatReport, FormatCodeWords));
    }
    if (Has(video::kWithAutoPhase)) Add(Order("Auto Phase", video::kAutoPhase, 1));
    AddCommands("Freeze", video::FreezeCommands());
  }

  void AddAudio() {
    const audio::Volumes& volumes = audio::VolumesOf(identity.boxType);
    Add({.name = volumes.kind == audio::VolumeKind::kOutputLevel ? "Audio Output Level"
                                                                 : "Audio Volume",
         .at = volumes.at,
         .writeLength = 2,
         .words = WordsOf(volumes.kind)});
    Add(Reported("Audio fitted", audio::FittedOf(identity.boxType), FittedWords));
    AddAside(video::kInputSource, audio::InputOf(identity.boxType));
  }

  void AddPicture() {
    if (Has(kShippedType)) {
      Add({.name = "RGB", .at = picture::kRgb, .writeLength = 3, .words = RgbWords});
      Add(Order("Proc Amp defaults", command::kAt, command::kProcAmpDefaults));
      Add(Order("RGB defaults", command::kAt, command::kRgbDefaults));
    } else {
      Add(Order("Proc Amp defaults", picture::ChannelOf(identity.boxType), 0));
    }
  }

  void AddReset() {
    const setting::Reset& reset = setting::ResetOf(identity.boxType);
    Add(Order("Hardware Reset", reset.at, reset.value));
  }

  void AddWall() {
    const wall::Store* store = wall::Find(identity.boxType);
    if (store == nullptr) return;
    const bool oneBlock = store->tile.kind == Address::Kind::kNone;
    Add({.name = "TV Wall",
         .at = store->size,
         .writeLength = 2,
         .words = oneBlock ? WallWords : WallSizeWords});
    Add({.name = "TV Wall", .at = store->tile, .words = WallTileWords});
  }

  void AddMultiView() {
    AddCommands("Open Display Mode", multiview::OpeningOfDisplayMode());
    AddCommands("Open PIP", multiview::OpeningOfPip());
    AddCommands("Open Text Labels", multiview::OpeningOfTextLabels());
    if (!Has(multiview::kModels)) return;
    const bool byBlock = Has(multiview::kByBlock);
    const auto addTaken = [&](const char* name, const Address& at, Words words) {
      Add({.name = name, .at = at, .access = Access::kWriteOnly, .words = words});
    };
    addTaken("Display Mode", byBlock ? multiview::kModes : multiview::kModeWord, ModeWords);
    addTaken("Channel combination", byBlock ? multiview::kCodes : multiview::kCodeWord, nullptr);
    Add(Reported("Channel combinations", multiview::kCodes, CodesWords));
    Add(Reported("PIP option", multiview::PipOptionOf(identity.boxType)));
    Add(Reported("PIP output format", multiview::OutputFormatOf(identity.boxType)));
    Add({.name = "Inset 1", .at = multiview::kInset1, .writeLength = 8, .words = Inset1Words});
    Add({.name = "Inset 2", .at = multiview::kInset2, .writeLength = 8, .words = Inset2Words});
    if (byBlock) return;
    Add({.name = "Input Labels",
         .at = multiview::kLabelsState,
         .writeLength = 20,
         .choices = multiview::InputLabelStates()});
    constexpr const char* kNames[] = {"Input 1 Label", "Input 2 Label", "Input 3 Label",
                                      "Input 4 Label"};
    std::uint8_t input = 0;
    for (const char* name : kNames) {
      Add({.name = name,
           .at = multiview::InputLabel(input++),
           .writeLength = kLabelLength,
           .words = InputLabelWords});
    }
  }

  void AddGenlock() {
    const genlock::Model* model = genlock::Find(identity.boxType);
    if (model == nullptr) return;
    Add(Reported("Sync Input Format", model->reference, LittleFormatWords));
    Add({.name = "Genlock Mode", .at = model->mode, .words = GenlockModeWords});
    Add({.name = "Sync Delays", .at = model->delays, .writeLength = 5, .words = DelaysWords});
    Add({.name = "Sync Mode", .at = model->sync, .choices = genlock::SyncNames()});
    Add(Reported("Genlock Mode fixed", model->locked, nullptr, kNoYes));
    Add(Reported("Sync Input Format", model->input, FormatCodeWords));
    AddCommands("Open Genlock", std::span(&model->opening, 1));
  }

  void AddImage() {
    const bool isShipped = Has(kShippedType);
    AddCommands(isShipped ? "Image defaults" : "Open Image Adjust", image::Opening());
    if (const image::Store* store = image::Find(identity)) {
      Add({.name = "Image Position",
           .at = store->position,
           .writeLength = 4,
           .words = PositionWords});
      Add({.name = "Image Size", .at = store->size, .writeLength = 2, .words = SizeWords});
    }
    for (const image::Enabling& row : image::Enablings()) {
      const bool isPosition = row.what == image::Adjusts::kPosition;
      if (Has(row.types)) AddAside(isPosition ? video::kInputSource : video::kAspectRatio, row.at);
    }
  }

  void AddRegion() {
    AddCommands("Open ROI", region::Opening());
    const region::Store* store = region::Find(identity);
    if (store == nullptr) return;
    Add({.name = "Region", .at = store->region, .writeLength = 10, .words = RegionWords});
    Add(Reported("Region Input Format", store->input, FormatCodeWords));
  }

  std::vector<Property> all;

 private:
  bool Has(const BoxTypes& types) const { return types.Has(identity.boxType); }

  void Add(const Property& property) {
    if (property.at.kind != Address::Kind::kNone) all.push_back(property);
  }
  // An option that another page looks at.
  void AddAside(video::Option option, const Address& at) {
    const OptionList& list = video::Options().options[option];
    Property property = Reported(list.name, at, nullptr, list.choices);
    property.isAside = true;
    Add(property);
  }
  void AddCommands(const char* name, std::span<const Command> commands) {
    for (const Command& row : commands) {
      if (!Has(row.types)) continue;
      Property property = Order(name, row.at, row.value);
      property.isAside = !row.Serves(identity, firmware);
      Add(property);
    }
  }

  const Identity& identity;
  std::uint32_t firmware;
};

bool IsPlace(const Address& at, const Call& call) {
  if (call.number != at.number) return false;
  switch (call.operation) {
    case Call::Operation::kGetBlock:
    case Call::Operation::kSetBlock:
      return at.kind == Address::Kind::kBlock && call.sub == at.sub;
    case Call::Operation::kGetWord:
    case Call::Operation::kSetWord:
      return at.kind == Address::Kind::kWord && call.group == kBoxGroup;
    case Call::Operation::kGetProcAmp:
    case Call::Operation::kSetProcAmp:
      return at.kind == Address::Kind::kProcAmp && call.group == kBoxGroup;
    default:
      return false;
  }
}

}  // namespace

bool Property::Fits(const Call& call) const {
  if (!IsPlace(at, call)) return false;
  if (access == (call.IsWrite() ? Access::kReadOnly : Access::kWriteOnly)) return false;
  if (at.kind == Address::Kind::kBlock) {
    if (call.length != (call.IsWrite() ? writeLength : at.readLength)) return false;
    if (call.IsWrite() && call.bytes.size() != call.length) return false;
    return command == kAnyValue || call.bytes[0] == command;
  }
  return command == kAnyValue || call.words[0] == static_cast<std::uint32_t>(command);
}

std::vector<Property> PropertiesOf(const Identity& identity, std::uint32_t firmware) {
  Collector properties(identity, firmware);
  properties.AddCommon();
  if (identity.boxType == kNoBoxType) return properties.all;
  for (const OptionGroup* group : {&video::Options(), &audio::Options(), &setting::Options()}) {
    properties.AddOptions(*group);
  }
  properties.AddVideo();
  properties.AddAudio();
  properties.AddPicture();
  properties.AddReset();
  properties.AddWall();
  properties.AddMultiView();
  properties.AddGenlock();
  properties.AddImage();
  properties.AddRegion();
  properties.AddStatus();
  return properties.all;
}

std::vector<Property> PropertiesOf(const Identity& identity, std::uint32_t firmware,
                                   const Call& call) {
  std::vector<Property> all = PropertiesOf(identity, firmware);
  std::erase_if(all, [&](const Property& each) { return !each.Fits(call); });
  const auto isAside = [](const Property& each) { return each.isAside; };
  if (!std::all_of(all.begin(), all.end(), isAside)) std::erase_if(all, isAside);
  return all;
}

}  // namespace panelora
