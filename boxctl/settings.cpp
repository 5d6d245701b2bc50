#include "boxctl/settings.h"

#include <algorithm>

#include "boxctl/attached_box.h"
#include "boxctl/names.h"
#include "catalogue/codecs.h"
#include "catalogue/describe.h"
#include "catalogue/multiview.h"
#include "catalogue/picture.h"

namespace panelora::boxctl {

namespace {

// The mode that is shown is the first of what is reported of all modes.
constexpr std::string_view kModes = "Display Modes";
constexpr std::string_view kMode = "Display Mode";
constexpr char kCombinations[] = "Channel combinations";

Setting::Form FormOf(const Property& property, const Identity& identity) {
  const genlock::Model* genlock = genlock::Find(identity.boxType);
  if (genlock != nullptr && property.at == genlock->delays) return Setting::Form::kDelays;
  const bool isInset =
      property.at == multiview::kInset1 && multiview::kByWord.Has(identity.boxType);
  return isInset ? Setting::Form::kInset : Setting::Form::kSame;
}

// Where a box takes what it reports elsewhere; null when it takes it nowhere.
const Property* TakingOf(const Property& reported, std::span<const Property> all) {
  const std::string_view name = reported.name == kModes ? kMode : reported.name;
  for (const Property& each : all) {
    const bool isTaken =
        each.access == Access::kWriteOnly && !each.isAside && each.command == Property::kAnyValue;
    if (isTaken && each.name == name) return &each;
  }
  return nullptr;
}

bool IsPictureOfNone(const Property& property, const Identity& identity) {
  return property.at.kind == Address::Kind::kProcAmp &&
         picture::kWithoutValues.Has(identity.boxType);
}

std::size_t ToldLengthOf(const Property& told) {
  return told.at.kind == Address::Kind::kBlock ? told.writeLength : std::size_t{1};
}

}  // namespace

std::vector<Setting> SettingsOf(const Identity& identity, std::uint32_t firmware) {
  const std::vector<Property> all = PropertiesOf(identity, firmware);
  std::vector<Property> reported;
  for (const Named& each : ReadableOf(identity, firmware)) {
    const bool isTaken =
        each.property.access == Access::kBoth || TakingOf(each.property, all) != nullptr;
    if (isTaken && !IsPictureOfNone(each.property, identity)) reported.push_back(each.property);
  }
  std::vector<Setting> settings;
  for (const Named& each : Distinct(reported)) {
    const Property& property = each.property;
    const Property* taking = property.access == Access::kBoth ? &property : TakingOf(property, all);
    const bool isMode = property.name == kModes;
    settings.push_back(
        {isMode ? std::string(kMode) : each.name, property, *taking, FormOf(property, identity)});
  }
  return settings;
}

std::vector<LeftOut> LeftOutOf(const Identity& identity) {
  if (!multiview::kModels.Has(identity.boxType)) return {};
  return {{kCombinations, "the box takes one only for the display mode that it shows"}};
}

std::size_t KeptLengthOf(const Setting& setting) {
  if (setting.reported.at.kind != Address::Kind::kBlock) return 1;
  const std::size_t reported = setting.reported.at.readLength;
  return std::min(reported, ToldLengthOf(setting.told));
}

Bytes KeptOf(const Setting& setting, const Call& answer) {
  if (setting.reported.at.kind != Address::Kind::kBlock) {
    return {static_cast<std::uint8_t>(answer.words[0] & 0xFF)};
  }
  Bytes kept = answer.bytes;
  kept.resize(KeptLengthOf(setting));
  return kept;
}

Bytes ToldOf(const Setting& setting, std::span<const std::uint8_t> kept) {
  Bytes told(kept.begin(), kept.end());
  if (setting.form == Setting::Form::kInset) {
    const Bytes8 inset =
        EncodePipWindow(DecodePipWindow(kept, ByteOrder::kLittle), ByteOrder::kBig);
    told.assign(inset.begin(), inset.end());
  } else if (setting.form == Setting::Form::kDelays) {
    const Bytes5 delays = EncodeTakenDelays(DecodeToldDelays(kept), true);
    told.assign(delays.begin(), delays.end());
  }
  told.resize(ToldLengthOf(setting.told));
  return told;
}

std::string ValueText(const Identity& identity, const Property& property, const Call& call) {
  return Printable(ValueOf(identity, property, call));
}

std::string CaptionOf(const Setting& setting, const Identity& identity,
                      std::span<const std::uint8_t> kept) {
  if (setting.form != Setting::Form::kDelays) {
    return ValueText(identity, setting.told, WriteTo(setting.told.at, ToldOf(setting, kept)));
  }
  Call answer = WriteTo(setting.reported.at, kept);
  answer.operation = Call::Operation::kGetBlock;
  return ValueText(identity, setting.reported, answer);
}

}  // namespace panelora::boxctl
