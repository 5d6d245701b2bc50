// The controls of the Setting page.
#pragma once

#include "res/dialog_templates.h"
#include "tests/support/controls.h"

namespace panelora::testing {

constexpr int kPage = res::kSetting;
constexpr int kReset = 1041;

constexpr Group kLock = {1040, 1037, 1038, 1039};
constexpr Group kOsd = {1042, 1043, 1044, 1045};
constexpr Group kPattern = {1050, 1072, 1052, 1053};
constexpr Group kNoSignal = {1046, 1047, 1048, 1049};
constexpr Group kDip8 = {1051, 1054, 1055, 1056};

}  // namespace panelora::testing
