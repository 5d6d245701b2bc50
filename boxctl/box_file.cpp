#include "boxctl/box_file.h"

#include <algorithm>
#include <limits>

#include "base/text.h"
#include "boxctl/files.h"

namespace panelora::boxctl {

namespace {

using simulator::BoxMemory;
using simulator::KeptBlock;
using simulator::KeptWord;

constexpr char kKindOfBoxes[] = "panelora-box";
constexpr std::uint32_t kVersionOfBoxes = 1;

std::string HexOf(const KeptBlock& block) {
  return boxctl::HexOf(std::span(block.begin(), block.size()));
}

// Which of them a member is by its name, from `first` to before `end`.
std::size_t NumberOfMember(const Members& file, const std::string& name, std::size_t first,
                           std::size_t end) {
  const auto number =
      NumberOf(name, static_cast<std::uint32_t>(first), static_cast<std::uint32_t>(end - 1));
  const bool isPlain = number && std::to_string(*number) == name;
  if (!isPlain) throw file.Damage("no number of a box is \"" + name + "\"");
  return *number;
}

KeptWord WordOf(const Members& file, const Json& json) {
  KeptWord word = {true, {}};
  bool isGood = json.is_array() && json.size() == word.words.size();
  for (std::size_t i = 0; isGood && i < word.words.size(); ++i) {
    isGood = json[i].is_number_unsigned() &&
             json[i].get<std::uint64_t>() <= std::numeric_limits<std::uint32_t>::max();
    if (isGood) word.words[i] = json[i].get<std::uint32_t>();
  }
  if (!isGood) throw file.Damage("a word must be a list of two numbers");
  return word;
}

void ReadBlocks(const Members& file, BoxMemory& box) {
  const Json& blocks = file.Object("blocks");
  const Members held(file.Path(), blocks);
  for (const auto& each : blocks.items()) {
    const std::size_t number = NumberOfMember(file, each.key(), 0, BoxMemory::kNumbers);
    box.blocks[number] = held.Hex(each.key().c_str());
  }
  const Json& labels = file.Object("labels");
  const Members heldLabels(file.Path(), labels);
  for (const auto& each : labels.items()) {
    const std::size_t sub = NumberOfMember(file, each.key(), 1, BoxMemory::kSubs);
    box.labels[sub - 1] = heldLabels.Hex(each.key().c_str());
  }
}

}  // namespace

Json JsonOfBox(const BoxMemory& box) {
  Json blocks = Json::object();
  Json words = Json::object();
  for (std::size_t i = 0; i < BoxMemory::kNumbers; ++i) {
    if (!box.blocks[i].empty()) blocks[std::to_string(i)] = HexOf(box.blocks[i]);
    if (box.words[i].held) words[std::to_string(i)] = box.words[i].words;
  }
  Json labels = Json::object();
  for (std::size_t i = 0; i < box.labels.size(); ++i) {
    if (!box.labels[i].empty()) labels[std::to_string(i + 1)] = HexOf(box.labels[i]);
  }
  const Json picture = {{"brightness", box.picture.brightness},
                        {"contrast", box.picture.contrast},
                        {"hue", box.picture.hue},
                        {"saturation", box.picture.saturation}};
  return {{"format", kKindOfBoxes},
          {"version", kVersionOfBoxes},
          {"model", box.identity.boxType},
          {"brand", box.identity.brandCode},
          {"subModel", box.identity.subModel},
          {"inputDip", box.identity.inputDipFlag},
          {"outputDip", box.identity.outputDipFlag},
          {"firmware", Format("0x%04X", box.firmware)},
          {"plugged", box.present},
          {"inputGiven", box.inputIsGiven},
          {"picture", picture},
          {"words", words},
          {"blocks", blocks},
          {"labels", labels}};
}

std::unique_ptr<BoxMemory> ReadBox(const std::string& path) {
  const Members file = Members::OfFile(path, kKindOfBoxes, kVersionOfBoxes);
  auto box = std::make_unique<BoxMemory>();
  box->identity = {static_cast<std::uint8_t>(file.Number("model", kNoBoxType - 1U)),
                   file.Byte("brand"), file.Byte("subModel"), file.Byte("inputDip"),
                   file.Byte("outputDip")};
  box->firmware = file.Firmware("firmware");
  box->present = file.Flag("plugged");
  box->inputIsGiven = file.Flag("inputGiven", false);  // files of earlier programs have none
  const Members picture(path, file.Object("picture"));
  box->picture = {picture.Byte("brightness"), picture.Byte("contrast"), picture.Byte("hue"),
                  picture.Byte("saturation")};
  for (const auto& each : file.Object("words").items()) {
    box->words[NumberOfMember(file, each.key(), 0, BoxMemory::kNumbers)] =
        WordOf(file, each.value());
  }
  ReadBlocks(file, *box);
  return box;
}

}  // namespace panelora::boxctl
