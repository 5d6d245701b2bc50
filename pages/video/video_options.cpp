#include "pages/video/video_options.h"

#include "pages/option_table.h"

namespace panelora {

namespace {

bool Serves(const OptionRow& row, std::uint8_t boxType) {
  return row.caption != nullptr && (row.boxType == kEveryBoxType || row.boxType == boxType);
}

}  // namespace

const OptionRow* FindOption(const OptionRow* table, std::uint8_t boxType, std::uint8_t index) {
  return FindRow(table, &OptionRow::index,
                 [&](const OptionRow& row) { return Serves(row, boxType) && row.index == index; });
}

const OptionRow* FindOptionValue(const OptionRow* table, std::uint8_t boxType, std::uint8_t value) {
  return FindRow(table, &OptionRow::index, [&](const OptionRow& row) {
    return row.index != kTableEnd && Serves(row, boxType) && row.value == value;
  });
}

const OptionRow kInputSources[] = {
    {26, 0, "VGA", 2},
    {26, 1, "HDMI", 1},
    {26, 2, "SDI", 4},
    {50, 0, "VGA", 2},
    {50, 1, "HDMI", 1},
    {50, 2, "SDI", 4},
    {24, 0, "SDI", 0},
    {24, 1, "HDMI", 1},
    {34, 0, "SDI", 0},
    {34, 1, "HDMI", 1},
    {48, 0, "SDI 1", 0},
    {48, 1, "SDI 2", 1},
    {49, 0, "SDI 1", 0},
    {49, 1, "SDI 2", 1},
    {27, 0, "CH 1", 0},
    {27, 1, "CH 2", 1},
    {25, 0, "DVI-D (HDMI)", 1},
    {25, 1, "DVI-A (VGA)", 2},
    {25, 2, "Component (YPbPr)", 3},
    {25, 3, "Composite (CVBS)", 4},
    {25, 4, "S-Video (YC)", 5},
    {29, 0, "DVI-D (HDMI)", 1},
    {29, 1, "DVI-A (VGA)", 2},
    {29, 2, "Component (YPbPr)", 3},
    {29, 3, "Composite (CVBS)", 4},
    {29, 4, "S-Video (YC)", 5},
    {23, 0, "HDMI", 0},
    {23, 1, "DVI-D", 1},
    {23, 2, "DVI-A", 2},
    {23, 3, "YPbPr", 3},
    {23, 4, "SDI", 4},
    {23, 5, "CVBS", 5},
    {23, 6, "S-VIDEO", 6},
    {42, 0, "HDMI", 0},
    {42, 1, "DVI-D", 1},
    {42, 2, "DVI-A", 2},
    {42, 3, "YPbPr", 3},
    {42, 4, "SDI", 4},
    {42, 5, "CVBS", 5},
    {42, 6, "S-VIDEO", 6},
    {kEveryBoxType, kTableEnd},
};

// 1080p from the highest rate down, then 1080i, 720p, 480p and 576p, 480i and 576i: not the order
// of the codes, on purpose. Index 0 is left out: the buttons never reach it.
const OptionRow kOutputFormats[] = {
    {kEveryBoxType, 1, "1920x1080 60.00p", 15},  {kEveryBoxType, 2, "1920x1080 59.94p", 16},
    {kEveryBoxType, 3, "1920x1080 50.00p", 17},  {kEveryBoxType, 4, "1920x1080 30.00p", 18},
    {kEveryBoxType, 5, "1920x1080 29.97p", 19},  {kEveryBoxType, 6, "1920x1080 25.00p", 20},
    {kEveryBoxType, 7, "1920x1080 24.00p", 21},  {kEveryBoxType, 8, "1920x1080 23.98p", 22},
    {kEveryBoxType, 9, "1920x1080 60.00i", 12},  {kEveryBoxType, 10, "1920x1080 59.94i", 13},
    {kEveryBoxType, 11, "1920x1080 50.00i", 14}, {kEveryBoxType, 12, "1280x720 60.00p", 6},
    {kEveryBoxType, 13, "1280x720 59.94p", 7},   {kEveryBoxType, 14, "1280x720 50.00p", 8},
    {kEveryBoxType, 15, "720x480 60.00p", 3},    {kEveryBoxType, 16, "720x480 59.94p", 4},
    {kEveryBoxType, 17, "720x576 50.00p", 5},    {kEveryBoxType, 18, "720x480 59.94i", 1},
    {kEveryBoxType, 19, "720x576 50.00i", 2},    {kEveryBoxType, kTableEnd},
};

// First match: the rows of all types come after those of their own.
const OptionRow kAspectRatios[] = {
    {26, 0, "Keep Aspect Ratio", 0},
    {26, 1, "Full Screen (16:9)", 1},
    {26, 2, "Dot By Dot", 2},
    {26, 3, "4 : 3", 3},
    {26, 4, "14 : 9", 4},
    {26, 5, "UnderScan", 5},
    {26, 6, "Pan Scan 16 : 9", 6},
    {50, 0, "Keep Aspect Ratio", 0},
    {50, 1, "Full Screen (16:9)", 1},
    {50, 2, "Dot By Dot", 2},
    {50, 3, "4 : 3", 3},
    {50, 4, "14 : 9", 4},
    {50, 5, "UnderScan", 5},
    {50, 6, "Pan Scan 16 : 9", 6},
    {kEveryBoxType, 0, "16 : 9", 0},
    {kEveryBoxType, 1, "4 : 3", 1},
    {kEveryBoxType, 2, "Dot By Dot", 2},
    {kEveryBoxType, 3, "Keep Aspect Ratio", 3},
    {kEveryBoxType, 4, "Full Screen", 4},
    {kEveryBoxType, kTableEnd},
};

// In the order in which the box keeps them.
const OptionRow kHdmiEqs[] = {
    {26, 2, "LOW", 2},
    {26, 0, "MIDDLE", 0},
    {26, 1, "HIGH", 1},
    {kEveryBoxType, kTableEnd},
};

const OptionRow kOutputLevels[] = {
    {26, 0, "Limit Range", 0},
    {26, 1, "Full Range", 1},
    {kEveryBoxType, kTableEnd},
};

// There is no value 2, on purpose.
const OptionRow kOutputColours[] = {
    {26, 0, "RGB444", 0},
    {26, 1, "YUV444", 1},
    {26, 2, "YUV422", 3},
    {kEveryBoxType, kTableEnd},
};

const OptionRow kEdgeEnhances[] = {
    {kEveryBoxType, 0, "Disable", 0},    {kEveryBoxType, 1, "Min", 1},
    {kEveryBoxType, 2, "Mid", 2},        {kEveryBoxType, 3, "Max", 3},
    {kEveryBoxType, kTableEnd, "Error"},
};

const OptionRow kColourUpFilters[] = {
    {kEveryBoxType, 0, "Disable", 0},
    {kEveryBoxType, 1, "Enable", 1},
    {kEveryBoxType, kTableEnd, "Error"},
};

const OptionRow kSdiTypes[] = {
    {kEveryBoxType, 0, "SD", 1},   {kEveryBoxType, 1, "HD", 4}, {kEveryBoxType, 2, "3GA", 9},
    {kEveryBoxType, 3, "3GB", 10}, {kEveryBoxType, kTableEnd},
};

const OptionRow kSecondOutputLevels[] = {
    {kEveryBoxType, 1, "Full Range", 1},
    {kEveryBoxType, 0, "Limit Range", 0},
    {kEveryBoxType, kTableEnd},
};

const OptionRow kSdiOutputColours[] = {
    {kEveryBoxType, 0, "RGB444", 0},
    {kEveryBoxType, 1, "YUV444", 1},
    {kEveryBoxType, 2, "YUV422", 3},
    {kEveryBoxType, kTableEnd},
};

const OptionRow kHdmiOutputModes[] = {
    {kEveryBoxType, 1, "HDMI", 1},
    {kEveryBoxType, 0, "DVI", 0},
    {kEveryBoxType, kTableEnd},
};

const OptionRow kImageMirrors[] = {
    {kEveryBoxType, 0, "Disable", 0}, {kEveryBoxType, 1, "Hor.", 1},
    {kEveryBoxType, 2, "Ver.", 2},    {kEveryBoxType, 3, "Hor. + Ver.", 3},
    {kEveryBoxType, kTableEnd},
};

const OptionRow kReclocks[] = {
    {kEveryBoxType, 0, "Disable", 0},
    {kEveryBoxType, 1, "Enable", 1},
    {kEveryBoxType, kTableEnd},
};

const OptionRow kSdiEqs[] = {
    {24, 0, "DISABLE", 0}, {24, 1, "SMALL", 1},   {24, 2, "MEDIUM", 2},
    {24, 3, "LARGE", 3},   {34, 0, "DISABLE", 0}, {34, 1, "SMALL", 1},
    {34, 2, "MEDIUM", 2},  {34, 3, "LARGE", 3},   {kEveryBoxType, kTableEnd},
};

const OptionRow kGpiModes[] = {
    {24, 0, "Pulse", 0}, {24, 1, "Level", 1},        {34, 0, "Pulse", 0},
    {34, 1, "Level", 1}, {kEveryBoxType, kTableEnd},
};

const OptionRow kErrorLeds[] = {
    {24, 0, "OFF", 0}, {24, 1, "ON", 1},           {34, 0, "OFF", 0},
    {34, 1, "ON", 1},  {kEveryBoxType, kTableEnd},
};

const OptionRow kGenlockModes[] = {
    {30, 0, "Free-Run", 0}, {30, 1, "External", 1},     {43, 0, "Free-Run", 0},
    {43, 1, "External", 1}, {46, 0, "Free-Run", 0},     {46, 1, "External", 1},
    {47, 0, "Free-Run", 0}, {47, 1, "External", 1},     {50, 0, "Free-Run", 0},
    {50, 1, "External", 1}, {39, 0, "Free-Run", 0},     {39, 1, "SDI-In", 1},
    {39, 2, "Ref-In", 2},   {40, 0, "Free-Run", 0},     {40, 1, "SDI-In", 1},
    {40, 2, "Ref-In", 2},   {48, 0, "Free-Run", 0},     {48, 1, "SDI-In", 1},
    {48, 2, "Ref-In", 2},   {49, 0, "Free-Run", 0},     {49, 1, "SDI-In", 1},
    {49, 2, "Ref-In", 2},   {kEveryBoxType, kTableEnd},
};

const OptionRow kIreLevels[] = {
    {23, 0, "0   IRE", 0}, {23, 1, "7.5 IRE", 1}, {42, 0, "0   IRE", 0},
    {42, 1, "7.5 IRE", 1}, {25, 0, "7.5 IRE", 0}, {25, 1, "0   IRE", 1},
    {29, 0, "7.5 IRE", 0}, {29, 1, "0   IRE", 1}, {kEveryBoxType, kTableEnd},
};

const OptionRow kOutputSources[] = {
    {kEveryBoxType, 0, "VGA + HDMI", 0},
    {kEveryBoxType, kTableEnd},
};

const OptionRow kNoOptions[] = {
    {kEveryBoxType, kTableEnd},
};

}  // namespace panelora
