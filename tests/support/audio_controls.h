// The controls of the Audio page.
#pragma once

#include "res/dialog_templates.h"
#include "tests/support/controls.h"

namespace panelora::testing {

constexpr int kPage = res::kAudio;

constexpr Group kMute = {1026, 1023, 1025, 1024};
constexpr Group kSource = {1030, 1027, 1028, 1029};
constexpr Group kStandard = {1035, 1036, 1037, 1038};
constexpr Group kXlrLevel = {1055, 1039, 1040, 1041};
constexpr Group kImpedance = {1056, 1042, 1043, 1044};
constexpr Group kChannel = {1057, 1047, 1048, 1049};
constexpr int kVolumeText = 1058;
constexpr int kVolumeFrame = 1060;
constexpr int kVolumeBar = 1103;
constexpr int kLevelText = 1059;
constexpr int kSofter = 1045;
constexpr int kLouder = 1046;
constexpr int kHdmiText = 1052;
constexpr int kHdmiFrame = 1061;
constexpr int kHdmiBar = 1104;
constexpr int kHdmiSofter = 1053;
constexpr int kHdmiLouder = 1054;
constexpr int kScale = 1050;
constexpr int kRuler = 1051;
constexpr int kComboCaption = 1062;
constexpr int kCombo = 1108;

}  // namespace panelora::testing
