#include "boxbench/models.h"

#include <string_view>
#include <utility>

#include "app/device_picture.h"
#include "base/text.h"
#include "catalogue/information.h"
#include "catalogue/menu.h"
#include "device/box_types.h"

namespace panelora::boxbench {

namespace {

constexpr std::uint8_t kMostByte = 255;
constexpr char kFirmwareProblem[] = "the firmware is four hexadecimal digits, like 0126";

const char* NameOfPage(PageCode page) {
  switch (page) {
    case PageCode::kVideoSettings:
      return "Video settings";
    case PageCode::kTvWall:
      return "TV Wall";
    case PageCode::kDisplayMode:
      return "Display Mode";
    case PageCode::kPip:
      return "PIP";
    case PageCode::kGenlock:
      return "Genlock";
    case PageCode::kImageAdjust:
      return "Image Adjust";
    case PageCode::kRoi:
      return "ROI";
    default:
      return nullptr;
  }
}

std::optional<std::uint32_t> ParseFirmware(const std::string& text) {
  std::string digits = Tidied(text);
  if (digits.starts_with("0x") || digits.starts_with("0X")) digits.erase(0, 2);
  constexpr std::size_t kDigits = 4;
  if (digits.empty() || digits.size() > kDigits ||
      digits.find_first_not_of("0123456789abcdefABCDEF") != std::string::npos) {
    return std::nullopt;
  }
  return static_cast<std::uint32_t>(std::stoul(digits, nullptr, 16));
}

bool HasFront(std::uint8_t type) {
  return std::string_view(FrontOf({type, 0, 0, 0, 0})) != kNullBoxPicture;
}

// The first code that has a front, and the last one.
std::pair<std::uint8_t, std::uint8_t> FindFamily() {
  std::uint8_t first = 0;
  std::uint8_t last = kNoBoxType - 1;
  while (first < last && !HasFront(first)) ++first;
  while (last > first && !HasFront(last)) --last;
  return {first, last};
}

const std::pair<std::uint8_t, std::uint8_t>& Family() {
  static const auto family = FindFamily();
  return family;
}

std::vector<Model> MakeModels() {
  std::vector<Model> models;
  for (int code = Family().first; code <= Family().second; ++code) {
    const auto type = static_cast<std::uint8_t>(code);
    models.push_back({type, ModelText(type)});
  }
  return models;
}

}  // namespace

const std::vector<Model>& Models() {
  static const std::vector<Model> models = MakeModels();
  return models;
}

std::string ModelText(std::uint8_t type) {
  const char* known = "pages as rows say";
  if (type < Family().first || type > Family().second) {
    known = "not of the family";
  } else if (!HasFront(type)) {
    known = "no front, pages as rows say";
  } else if (kShippedType.Has(type)) {
    known = "complete";
  }
  return Format("%d - %s", type, known);
}

std::string PagesText(const Identity& identity) {
  std::string text = "Information";
  for (const menu::Place& place : menu::LayoutOf(identity).places) {
    if (const char* name = NameOfPage(place.page)) text += std::string(", ") + name;
  }
  if (!menu::kWithoutAudio.Has(identity.boxType)) text += ", Audio";
  if (!menu::kWithoutProcAmp.Has(identity.boxType)) text += ", Proc Amp";
  return text + ", Setting";
}

const char* FrontOf(const Identity& identity) { return ChoosePicture(identity, false).picture; }

Typed<WantedBox> WantedBoxOf(const BoxForm& form) {
  const auto brand = ParseWhole(form.brand, kMostByte);
  if (!brand) return {{}, "the brand is a number from 0 to 255; 0 is the maker's"};
  const auto subModel = ParseWhole(form.subModel, kMostByte);
  if (!subModel) return {{}, "the sub-model is a number from 0 to 255; mostly it is 0"};
  const auto firmware = ParseFirmware(form.firmware);
  if (!firmware) return {{}, kFirmwareProblem};
  return {
      WantedBox{{form.type, static_cast<std::uint8_t>(*brand), static_cast<std::uint8_t>(*subModel),
                 std::uint8_t{form.inputDip}, std::uint8_t{form.outputDip}},
                *firmware}};
}

BoxForm FormOf(const Identity& identity, std::uint32_t firmware) {
  return {
      identity.boxType,           Format("%d", identity.brandCode), Format("%d", identity.subModel),
      identity.inputDipFlag == 1, identity.outputDipFlag == 1,      Format("%04X", firmware)};
}

std::string FirmwareHint(const std::string& firmware) {
  const auto version = ParseFirmware(firmware);
  return version ? "shown as " + information::FirmwareText(*version) : "four digits, 0 to F";
}

}  // namespace panelora::boxbench
