// By which box types tools/admitted_art has the pictures that some types alone show.
#include <array>
#include <cstdio>
#include <map>
#include <sstream>

#include "app/device_picture.h"
#include "catalogue/wall.h"
#include "tests/support/shown_pictures.h"

namespace panelora::testing {
namespace {

using TypesOfPictures = std::map<std::string, std::set<int>>;

constexpr char kScreens[] = "WND";

TypesOfPictures ReadTable() {
  const std::string command = "'" PANELORA_SOURCE_DIR "/tools/admitted_art' --table";
  std::FILE* const pipe = popen(command.c_str(), "r");
  std::string text;
  for (std::array<char, 4096> part; std::fgets(part.data(), part.size(), pipe) != nullptr;) {
    text += part.data();
  }
  EXPECT_EQ(pclose(pipe), 0);
  TypesOfPictures table;
  std::istringstream lines(text);
  for (std::string line; std::getline(lines, line);) {
    std::istringstream words(line);
    std::string picture;
    words >> picture;
    for (int type = 0; words >> type;) table[picture].insert(type);
  }
  return table;
}

// Of every identity that a rule tells from another.
TypesOfPictures PicturesThatAreChosen() {
  TypesOfPictures chosen;
  for (int type = 0; type < kNoBoxType; ++type) {
    const auto code = static_cast<std::uint8_t>(type);
    if (wall::Find(code) != nullptr) chosen[kScreens].insert(type);
    for (std::uint8_t brand = 0; brand <= 12; ++brand) {
      for (std::uint8_t subModel = 0; subModel <= 3; ++subModel) {
        for (std::uint8_t flags = 0; flags < 8; ++flags) {
          const auto flag = [flags](int bit) {
            return static_cast<std::uint8_t>(flags >> bit & 1);
          };
          const Identity identity = {code, brand, subModel, flag(0), flag(1)};
          chosen[ChoosePicture(identity, flag(2) == 1).picture].insert(type);
        }
      }
    }
  }
  chosen.erase(kNullBoxPicture);
  return chosen;
}

TEST_F(ShownPictures, AreLimitedToTheTypesForWhichTheyAreChosen) {
  EXPECT_EQ(ReadTable(), PicturesThatAreChosen());
}

TEST_F(ShownPictures, OfEachTypeAreInTheBuildsThatAdmitIt) {
  const TypesOfPictures table = ReadTable();
  for (const int type : kTypes) {
    for (int brand = 0; brand <= 3; ++brand) {
      for (const std::string& picture : PicturesOf(Box(type, brand))) {
        const auto row = table.find(picture.starts_with(kScreens) ? kScreens : picture);
        if (row != table.end()) {
          EXPECT_TRUE(row->second.contains(type)) << picture << " of type " << type;
        }
      }
    }
  }
}

}  // namespace
}  // namespace panelora::testing
