// The controls of the Video settings page.
#pragma once

#include "res/dialog_templates.h"
#include "tests/support/controls.h"

namespace panelora::testing {

constexpr int kPage = res::kVideoSettings;

constexpr Group kInput = {1020, 1017, 1019, 1018};
constexpr Group kAspect = {1031, 1024, 1025, 1026};
constexpr Group kFormat = {1032, 1027, 1028, 1029};
constexpr Group kOutputSource = {1043, 1042, 1044, 1045};
constexpr Group kColour = {1034, 1035, 1036, 1037};
constexpr Group kLevel = {1030, 1021, 1023, 1022};
constexpr Group kEq = {1046, 1047, 1048, 1049};
constexpr Group kEdge = {1083, 1116, 1084, 1085};
constexpr Group kMode = {1038, 1039, 1040, 1041};
constexpr Group kSdi0 = {1050, 1051, 1052, 1053};
constexpr Group kSdi1 = {1054, 1055, 1056, 1057};
constexpr Group kLed = {1062, 1063, 1064, 1065};
constexpr Group kGpi = {1067, 1068, 1069, 1070};
constexpr Group kGenlock = {1078, 1114, 1077, 1079};
constexpr Group kIre = {1081, 1115, 1080, 1082};
constexpr Group kUpFilter = {1086, 1117, 1087, 1088};
constexpr Group kSdiType = {1089, 1118, 1090, 1091};
constexpr Group kSecondLevel = {1076, 1096, 1097, 1098};
constexpr Group kSdiColour = {1095, 1099, 1100, 1101};
constexpr Group kHdmiMode = {1102, 1103, 1104, 1105};
constexpr Group kMirror = {1106, 1107, 1108, 1109};
constexpr Group kReclock = {1110, 1111, 1112, 1113};
constexpr int kFormatBack = 1033;
constexpr int kAutoPhase = 1066;
constexpr int kFreeze = 1075;

}  // namespace panelora::testing
