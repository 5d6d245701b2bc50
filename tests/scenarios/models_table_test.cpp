// The table of docs/models.md against the pages: on which box types each page has anything to ask.
#include <fstream>
#include <map>
#include <sstream>

#include "tests/support/scenario.h"

namespace panelora::testing {
namespace {

// Cells by column and box type.
using Column = std::map<int, std::string>;

std::string Trimmed(const std::string& text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string::npos) return "";
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::vector<std::string> Split(const std::string& text, char separator) {
  std::vector<std::string> parts;
  std::istringstream stream(text);
  for (std::string part; std::getline(stream, part, separator);) parts.push_back(Trimmed(part));
  return parts;
}

constexpr int kAllOthers = -1;

std::map<std::string, Column> ReadTable() {
  std::ifstream file(std::string(PANELORA_SOURCE_DIR) + "/docs/models.md");
  std::map<std::string, Column> table;
  std::vector<std::string> head;
  for (std::string line; std::getline(file, line);) {
    if (!line.starts_with("|") || line.starts_with("|-")) continue;
    const std::vector<std::string> cells = Split(line.substr(1), '|');
    if (head.empty()) {
      head = cells;
      continue;
    }
    for (const std::string& type : Split(cells[0], ',')) {
      const int number = type == "all others" ? kAllOthers : std::stoi(type);
      for (std::size_t i = 1; i < cells.size(); ++i) table[head[i]][number] = cells[i];
    }
  }
  return table;
}

const std::string& CellOf(const Column& column, int boxType) {
  const auto found = column.find(boxType);
  return found != column.end() ? found->second : column.at(kAllOthers);
}

class ModelsTable : public Scenario {
 protected:
  Calls Opening(PageCode code) {
    TakeCalls();
    panel->OpenPage(code);
    return TakeCalls();
  }
  static bool Asks(const Calls& calls) {
    return std::any_of(calls.begin(), calls.end(),
                       [](const std::string& call) { return call.starts_with("get "); });
  }
};

TEST_F(ModelsTable, PagesAskTheTypesThatTheTableNames) {
  const std::map<std::string, Column> table = ReadTable();
  const std::pair<const char*, PageCode> pages[] = {{"Image Adjust", PageCode::kImageAdjust},
                                                    {"Display Mode", PageCode::kDisplayMode},
                                                    {"PIP", PageCode::kPip},
                                                    {"TV Wall", PageCode::kTvWall},
                                                    {"Genlock", PageCode::kGenlock},
                                                    {"ROI", PageCode::kRoi}};
  for (int boxType = 0; boxType < 255; ++boxType) {
    panel.reset();
    StartWith({static_cast<std::uint8_t>(boxType), 0, 0, 0, 0});
    for (const auto& [name, code] : pages) {
      ASSERT_TRUE(table.contains(name)) << name;
      const bool knows = CellOf(table.at(name), boxType) != "-";
      const Calls opening = Opening(code);
      EXPECT_EQ(Asks(opening), knows) << name << " on " << boxType;
      if (knows) continue;
      // Nothing is told either, but for the one exception that is written beside the table.
      const bool isDisplayMode = name == std::string("Display Mode");
      EXPECT_EQ(opening, isDisplayMode ? Calls{"set word 0,10 = 3"} : Calls{})
          << name << " on " << boxType;
      EXPECT_EQ(CallsOf(kPictureButton), Calls{}) << name << " on " << boxType;
      EXPECT_EQ(CallsOf(kApplyButton), Calls{}) << name << " on " << boxType;
    }
    // This one is for every type.
    TakeCalls();
    panel->OpenPage(PageCode::kTextLabels);
    EXPECT_EQ(TakeCalls(), (Calls{"set block 1,0,1: 03", "get block 41,0,60"})) << boxType;
  }
}

}  // namespace
}  // namespace panelora::testing
