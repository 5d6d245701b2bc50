// The option tables of the Video settings page, row by row, against a list of their
// own.
#include "catalogue/video.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace panelora {
namespace {

struct Row {
  int index;
  std::string caption;
  int value;
};
struct Block {
  std::vector<int> types;  // none: the rows of every type without a block of its own
  std::vector<Row> rows;
};
struct Table {
  const char* name;
  video::Option option;
  std::vector<Block> blocks;
  std::string endCaption;  // of the end row, which a reported index of 255 finds
};

const std::vector<Row> kScalerInputs = {{0, "SDI", 0}, {1, "HDMI", 1}};
const std::vector<Row> kAspects = {{0, "Keep Aspect Ratio", 0},
                                   {1, "Full Screen (16:9)", 1},
                                   {2, "Dot By Dot", 2},
                                   {3, "4 : 3", 3},
                                   {4, "14 : 9", 4},
                                   {5, "UnderScan", 5},
                                   {6, "Pan Scan 16 : 9", 6}};
const std::vector<Row> kColours = {{0, "RGB444", 0}, {1, "YUV444", 1}, {2, "YUV422", 3}};
const std::vector<Row> kOffOn = {{0, "Disable", 0}, {1, "Enable", 1}};

const Table kTables[] = {
    {"input source",
     video::kInputSource,
     {{{26, 50}, {{0, "VGA", 2}, {1, "HDMI", 1}, {2, "SDI", 4}}},
      {{24, 34}, kScalerInputs},
      {{48, 49}, {{0, "SDI 1", 0}, {1, "SDI 2", 1}}},
      {{27}, {{0, "CH 1", 0}, {1, "CH 2", 1}}},
      {{25, 29},
       {{0, "DVI-D (HDMI)", 1},
        {1, "DVI-A (VGA)", 2},
        {2, "Component (YPbPr)", 3},
        {3, "Composite (CVBS)", 4},
        {4, "S-Video (YC)", 5}}},
      {{23, 42},
       {{0, "HDMI", 0},
        {1, "DVI-D", 1},
        {2, "DVI-A", 2},
        {3, "YPbPr", 3},
        {4, "SDI", 4},
        {5, "CVBS", 5},
        {6, "S-VIDEO", 6}}}},
     ""},
    {"output format",
     video::kOutputFormat,
     {{{},
       {{1, "1920x1080 60.00p", 15},
        {2, "1920x1080 59.94p", 16},
        {3, "1920x1080 50.00p", 17},
        {4, "1920x1080 30.00p", 18},
        {5, "1920x1080 29.97p", 19},
        {6, "1920x1080 25.00p", 20},
        {7, "1920x1080 24.00p", 21},
        {8, "1920x1080 23.98p", 22},
        {9, "1920x1080 60.00i", 12},
        {10, "1920x1080 59.94i", 13},
        {11, "1920x1080 50.00i", 14},
        {12, "1280x720 60.00p", 6},
        {13, "1280x720 59.94p", 7},
        {14, "1280x720 50.00p", 8},
        {15, "720x480 60.00p", 3},
        {16, "720x480 59.94p", 4},
        {17, "720x576 50.00p", 5},
        {18, "720x480 59.94i", 1},
        {19, "720x576 50.00i", 2}}}},
     ""},
    {"aspect ratio",
     video::kAspectRatio,
     {{{26, 50}, kAspects},
      {{24, 34}, {{3, "UnderScan", 3}, {4, "Keep Aspect Ratio", 4}, {5, "Full Screen", 5}}},
      {{25, 29}, {{5, "14 : 9", 5}, {6, "UnderScan", 6}, {7, "Pan Scan 16 : 9", 7}}},
      {{},
       {{0, "16 : 9", 0},
        {1, "4 : 3", 1},
        {2, "Dot By Dot", 2},
        {3, "Keep Aspect Ratio", 3},
        {4, "Full Screen", 4}}}},
     ""},
    {"HDMI EQ", video::kHdmiEq, {{{26}, {{2, "LOW", 2}, {0, "MIDDLE", 0}, {1, "HIGH", 1}}}}, ""},
    {"output level",
     video::kOutputLevel,
     {{{26}, {{0, "Limit Range", 0}, {1, "Full Range", 1}}}},
     ""},
    {"output colour",
     video::kOutputColour,
     {{{23, 26, 37, 38, 39, 40, 42, 46, 47, 48, 49, 50}, kColours}},
     ""},
    {"edge enhance",
     video::kEdgeEnhance,
     {{{}, {{0, "Disable", 0}, {1, "Min", 1}, {2, "Mid", 2}, {3, "Max", 3}}}},
     "Error"},
    {"colour up filter", video::kColourUpFilter, {{{}, kOffOn}}, "Error"},
    {"SDI type",
     video::kSdiType,
     {{{}, {{0, "SD", 1}, {1, "HD", 4}, {2, "3GA", 9}, {3, "3GB", 10}}}},
     ""},
    {"second output level",
     video::kSecondOutputLevel,
     {{{}, {{1, "Full Range", 1}, {0, "Limit Range", 0}}}},
     ""},
    {"SDI output colour", video::kSdiOutputColour, {{{}, kColours}}, ""},
    {"HDMI output mode", video::kHdmiOutputMode, {{{}, {{1, "HDMI", 1}, {0, "DVI", 0}}}}, ""},
    {"image mirror",
     video::kImageMirror,
     {{{}, {{0, "Disable", 0}, {1, "Hor.", 1}, {2, "Ver.", 2}, {3, "Hor. + Ver.", 3}}}},
     ""},
    {"re-clock", video::kReclock, {{{}, kOffOn}}, ""},
    {"SDI EQ",
     video::kSdi0Eq,
     {{{24, 34}, {{0, "DISABLE", 0}, {1, "SMALL", 1}, {2, "MEDIUM", 2}, {3, "LARGE", 3}}}},
     ""},
    {"GPI mode", video::kGpiMode, {{{24, 34}, {{0, "Pulse", 0}, {1, "Level", 1}}}}, ""},
    {"error LED", video::kErrorLed, {{{24, 34}, {{0, "OFF", 0}, {1, "ON", 1}}}}, ""},
    {"genlock mode",
     video::kGenlockMode,
     {{{30, 43}, {{0, "Free-Run", 0}, {1, "External", 1}}},
      {{20, 33}, {{0, "Free-Run", 0}, {1, "SDI-In", 1}, {2, "Ref-In", 2}}}},
     ""},
    {"IRE level",
     video::kIreLevel,
     {{{23, 42}, {{0, "0   IRE", 0}, {1, "7.5 IRE", 1}}},
      {{25, 29}, {{0, "7.5 IRE", 0}, {1, "0   IRE", 1}}}},
     ""},
    {"output source", video::kOutputSource, {{{25, 29}, {{0, "VGA + HDMI", 0}}}}, ""},
    {"output mode", video::kOutputMode, {{{23, 42}, {{0, "AV", 0}}}}, ""},
};

const std::vector<Row>& RowsOf(const Table& table, int type) {
  static const std::vector<Row> none;
  for (const Block& block : table.blocks) {
    const bool named = std::find(block.types.begin(), block.types.end(), type) != block.types.end();
    if (named || block.types.empty()) return block.rows;
  }
  return none;
}

// The rows of every type when some have a block of their own: both kinds are found, the own first.
std::vector<Row> AllRowsOf(const Table& table, int type) {
  std::vector<Row> rows = RowsOf(table, type);
  for (const Block& block : table.blocks) {
    if (!block.types.empty()) continue;
    if (&block.rows == &RowsOf(table, type)) continue;
    for (const Row& row : block.rows) {
      const bool known = std::any_of(rows.begin(), rows.end(),
                                     [&](const Row& each) { return each.index == row.index; });
      if (!known) rows.push_back(row);
    }
  }
  return rows;
}

TEST(VideoOptions, EveryIndexAndValueOfEveryTypeFindsItsRow) {
  for (const Table& table : kTables) {
    for (int type = 0; type <= 58; ++type) {
      const std::vector<Row> rows = AllRowsOf(table, type);
      for (int key = 0; key <= 255; key += key == 24 ? 230 : 1) {
        const auto what = [&] {
          return std::string(table.name) + " of " + std::to_string(type) + ", " +
                 std::to_string(key);
        };
        const auto byte = [](int value) { return static_cast<std::uint8_t>(value); };
        const auto hasIndex = [&](const Row& row) { return row.index == key; };
        const auto hasValue = [&](const Row& row) { return row.value == key; };
        const auto byIndex = std::find_if(rows.begin(), rows.end(), hasIndex);
        const Choices choices = video::Options().options[table.option].choices;
        const Choice* found = FindIndex(choices, byte(type), byte(key));
        if (key == 255 && !table.endCaption.empty()) {
          ASSERT_NE(found, nullptr) << what();
          ASSERT_EQ(found->text, table.endCaption) << what();
        } else if (byIndex == rows.end()) {
          ASSERT_EQ(found, nullptr) << what();
        } else {
          ASSERT_NE(found, nullptr) << what();
          ASSERT_EQ(found->text, byIndex->caption) << what();
          ASSERT_EQ(found->value, byIndex->value) << what();
        }
        const auto byValue = std::find_if(rows.begin(), rows.end(), hasValue);
        found = FindValue(choices, byte(type), byte(key));
        ASSERT_EQ(found != nullptr, byValue != rows.end()) << what();
        ASSERT_TRUE(found == nullptr || found->index == byValue->index) << what();
      }
    }
  }
}

}  // namespace
}  // namespace panelora
