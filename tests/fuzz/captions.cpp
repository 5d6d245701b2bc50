#include "tests/fuzz/captions.h"

#include <algorithm>
#include <initializer_list>
#include <string>
#include <vector>

#include "base/text.h"
#include "catalogue/audio.h"
#include "catalogue/video.h"
#include "res/dialog_templates.h"

namespace panelora::fuzz {

namespace {

// What a caption may read; see Matches.
struct ReadingRow {
  int dialog;
  int control;
  std::vector<std::string> patterns;
};

std::vector<std::string> Options(Choices choices) {
  std::vector<std::string> texts;
  for (const Choice& choice : choices) texts.emplace_back(choice.text);
  return texts;
}
std::vector<std::string> Options(video::Option option) {
  return Options(video::Options().options[option].choices);
}
std::vector<std::string> Options(audio::Option option) {
  return Options(audio::Options().options[option].choices);
}
std::vector<std::string> Sources() {
  std::vector<std::string> texts;
  for (const audio::Sources& each : audio::AllSources()) {
    for (const Choice& choice : each.choices) texts.emplace_back(choice.text);
  }
  return texts;
}
std::vector<std::string> And(std::vector<std::string> texts,
                             std::initializer_list<const char*> more) {
  texts.insert(texts.end(), more.begin(), more.end());
  return texts;
}

std::vector<std::string> FormatLabels() {
  std::vector<std::string> labels = {"Output Format "};
  for (const std::string& format : Options(video::kOutputFormat)) {
    labels.push_back("Output Format ( " + format + ")");
  }
  return labels;
}

const std::vector<std::string> kNumber = {"#"};
const std::vector<std::string> kNumberThenLine = {"#", "#\n"};
const std::vector<std::string> kFormats = {"#x# #.#p", "#x# #.#i", "#x# #.#s", "-  NO  SIGNAL  -",
                                           "-  NO SIGNAL  -"};
const std::vector<std::string> kModes = {
    "Mode 1",       "Mode 2", "Mode 3\t\t\t", "Mode 4\t\t\t", "Mode 5\t\t\t", "Mode 6",
    "Mode 6\t\t\t", "Mode 7", "Mode 7\t\t\t", "Mode 8\t\t\t", "Mode 9\t\t\t"};
const std::vector<std::string> kChannels = {"Channel #", ""};

const std::vector<ReadingRow>& Readings() {
  static const std::vector<ReadingRow> rows = {
      {res::kInformation, 1003, {"Input Format 1 :", "SDI CH 1 :", "HDMI CH 1 :"}},
      {res::kInformation, 1004, {"SDI CH 2 :", "HDMI CH 2 :"}},
      {res::kInformation, 1005, {"SDI CH 3 :", "HDMI CH 3 :"}},
      {res::kInformation, 1006, {"SDI CH 4 :", "HDMI CH 4 :"}},
      {res::kInformation, 1007, And(kFormats, {"", "-  NO SIGNAL  - "})},
      {res::kInformation, 1008, And(kFormats, {"", "-  NO SIGNAL  - "})},
      {res::kInformation, 1009, And(kFormats, {"", "-  NO SIGNAL  - "})},
      {res::kInformation, 1010, And(kFormats, {"", "-  NO SIGNAL  - "})},
      {res::kInformation, 1012, Options(video::kSdiOutputColour)},
      {res::kInformation, 1019, Sources()},
      {res::kInformation, 1020, Options(audio::kMute)},
      {res::kInformation, 1021, Options(video::kAspectRatio)},
      {res::kInformation, 1022, Options(video::kOutputFormat)},
      {res::kInformation, 1025, Options(video::kInputSource)},
      {res::kInformation, 1026, Options(video::kOutputColour)},
      {res::kInformation, 1031, Options(video::kOutputMode)},
      {res::kInformation, 1034, Options(video::kOutputSource)},
      {res::kInformation, 1036, {"+#.#dBu", "-#.#dBu"}},
      {res::kInformation, 1038, kFormats},
      {res::kInformation, 1079, Options(video::kGenlockMode)},
      {res::kInformation, 1014, {"%.%.%.%"}},
      {res::kInformation,
       1015,
       {"www.telvero.example", "www.brightmoor.example", "www.corvane-pro.example",
        "www.quintrel.example", "www.lumexa.example", "www.pandrel.example",
        "www.corvane.example"}},
      {res::kAudio, 1025, Options(audio::kMute)},
      {res::kAudio, 1028, Sources()},
      {res::kAudio, 1037, Options(audio::kStandard)},
      {res::kAudio, 1055, {"L/R Audio Level"}},
      {res::kAudio, 1040, Options(audio::kXlrLevel)},
      {res::kAudio, 1043, Options(audio::kXlrImpedance)},
      {res::kAudio, 1048, Options(audio::kChannel)},
      {res::kAudio,
       1058,
       {"L/R Audio Volume ( $ )", "Audio Volume ( # )", " Analog L/R Audio Output Level ( + #.# )",
        " Analog L/R Audio Output Level ( - #.# )", "Analog L/R Audio Input Level ( - #.# )",
        " Analog L/R Audio Input Level ( + #.# )", "Analog L/R Audio Input Level ( + #.# )"}},
      {res::kAudio, 1052, {"Embedded Audio Volume ( $ )"}},
      {res::kAudio, 1059, {"", " +#.#", " -#.#", "+#.#", "-#.#"}},
      {res::kAudio,
       1050,
       {"   -30     -20       -10        0       +10     +20+24 [dBu]",
        "   -28         -20           -10             0           +10 [dBV]"}},
      {res::kAudio,
       1051,
       {"|_____|_____|_____|_____|_____|__|", "|______|_______|_______|_______|",
        "  |______|_______|_______|_______|"}},
      {res::kProcAmp, 1036, kNumber},
      {res::kProcAmp, 1037, kNumber},
      {res::kProcAmp, 1038, kNumber},
      {res::kProcAmp, 1039, kNumber},
      {res::kProcAmp, 1042, kNumber},
      {res::kProcAmp, 1045, kNumber},
      {res::kProcAmp, 1048, kNumber},
      {res::kSetting, 1038, {"Locked", "Un-Locked"}},
      {res::kSetting, 1044, {"Enable", "Disable"}},
      {res::kSetting, 1048, {"Blue Screen", "Black Screen", "Disable Output"}},
      {res::kSetting,
       1052,
       {"Disable", "White", "Cross", "Hatch", "Color Bar", "Gray", "Window", "H Ramp", "WH Ramp",
        "WV Ramp", "Diagonal", "Red", "Green", "Blue"}},
      {res::kSetting,
       1055,
       {"Keep Aspect Ratio", "Full Screen (16:9)", "Dot By Dot", "4 : 3", "14 : 9", "UnderScan",
        "Pan Scan 16 : 9", "Full Screen", "16 : 9"}},
      {res::kVideoSettings, 1019, Options(video::kInputSource)},
      {res::kVideoSettings, 1023, Options(video::kOutputLevel)},
      {res::kVideoSettings, 1025, Options(video::kAspectRatio)},
      {res::kVideoSettings, 1028, And(Options(video::kOutputFormat), {"Pass Through"})},
      {res::kVideoSettings, 1030, {"HDMI Output Range"}},
      {res::kVideoSettings, 1032, FormatLabels()},
      {res::kVideoSettings, 1035, Options(video::kOutputColour)},
      {res::kVideoSettings, 1036, Options(video::kOutputColour)},
      {res::kVideoSettings, 1044, Options(video::kOutputSource)},
      {res::kVideoSettings, 1042, Options(video::kOutputSource)},
      {res::kVideoSettings, 1047, Options(video::kHdmiEq)},
      {res::kVideoSettings, 1048, Options(video::kHdmiEq)},
      {res::kVideoSettings, 1040, Options(video::kOutputMode)},
      {res::kVideoSettings, 1052, Options(video::kSdi0Eq)},
      {res::kVideoSettings, 1056, Options(video::kSdi1Eq)},
      {res::kVideoSettings, 1064, Options(video::kErrorLed)},
      {res::kVideoSettings, 1069, Options(video::kGpiMode)},
      {res::kVideoSettings, 1077, Options(video::kGenlockMode)},
      {res::kVideoSettings, 1080, Options(video::kIreLevel)},
      {res::kVideoSettings, 1087, Options(video::kColourUpFilter)},
      {res::kVideoSettings, 1090, Options(video::kSdiType)},
      {res::kVideoSettings, 1097, Options(video::kSecondOutputLevel)},
      {res::kVideoSettings, 1100, Options(video::kSdiOutputColour)},
      {res::kVideoSettings, 1104, Options(video::kHdmiOutputMode)},
      {res::kVideoSettings, 1108, Options(video::kImageMirror)},
      {res::kVideoSettings, 1112, Options(video::kReclock)},
      {res::kVideoSettings, 1084, Options(video::kEdgeEnhance)},
      {res::kDisplayMode, 1045, kModes},
      {res::kDisplayMode, 1048, kChannels},
      {res::kDisplayMode, 1051, kChannels},
      {res::kDisplayMode, 1054, kChannels},
      {res::kDisplayMode, 1061, {"OFF", "ON", "Default Labels"}},
      {res::kGenlock, 1079, {"Free-Run", "SDI Input", "HDMI Input", "Ref Input", "External"}},
      {res::kGenlock, 1094, {"75 ohms termination", "Open termination"}},
      {res::kGenlock, 1083, kFormats},
      {res::kGenlock, 1088, kNumber},
      {res::kGenlock, 1089, kNumber},
      {res::kImageAdjust, 1099, {"Image Adjust", "Position Adjust(VGA only)"}},
      {res::kImageAdjust,
       1101,
       {"Position needs the VGA input.", "Position needs the VGA input.  Size needs UnderScan.",
        "Position can't be adjusted here.",
        "Position can't be adjusted here.  Size needs UnderScan.", "Size needs UnderScan."}},
      {res::kRoi, 1045, {"Disable", "Full Screen", "Dot by Dot"}},
      {res::kRoi, 1059, kNumberThenLine},
      {res::kRoi, 1060, kNumberThenLine},
      {res::kRoi, 1061, kNumberThenLine},
      {res::kRoi, 1062, kNumberThenLine},
  };
  return rows;
}

bool IsDigit(char c) { return c >= '0' && c <= '9'; }
bool IsHex(char c) { return IsDigit(c) || (c >= 'A' && c <= 'F'); }

}  // namespace

bool Matches(std::string_view pattern, std::string_view text) {
  std::size_t at = 0;
  const auto digits = [&] {
    const std::size_t from = at;
    while (at < text.size() && IsDigit(text[at])) ++at;
    return at > from;
  };
  for (const char wanted : pattern) {
    if (wanted == '#' || wanted == '$') {
      while (wanted == '#' && at < text.size() && text[at] == ' ') ++at;
      if (wanted == '$' && at < text.size() && text[at] == '-') ++at;
      if (!digits()) return false;
    } else if (at == text.size() || (wanted == '%' ? !IsHex(text[at]) : text[at] != wanted)) {
      return false;
    } else {
      ++at;
    }
  }
  return at == text.size();
}

bool MayRead(int dialog, int control, std::string_view text) {
  for (const ReadingRow& row : Readings()) {
    if (row.dialog != dialog || row.control != control) continue;
    return std::any_of(row.patterns.begin(), row.patterns.end(),
                       [&](const std::string& pattern) { return Matches(pattern, text); });
  }
  return false;
}

bool ChangesOnFailure(int dialog, int control, const Identity& identity) {
  if (dialog == res::kProcAmp) return true;             // is opened anew, with values in the middle
  if (dialog == res::kGenlock) return control == 1083;  // a reference that can't be read is none
  if (dialog == res::kVideoSettings) return control == 1036;  // falls back to RGB444
  if (identity.boxType != 26) return false;
  return dialog == res::kInformation && control == 1007;  // shows what the buffer holds
}

}  // namespace panelora::fuzz
