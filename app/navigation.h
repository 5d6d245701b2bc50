// The controls of the main window and the navigation buttons' home places.
#pragma once

#include "ui/geometry.h"

namespace panelora {

constexpr int kPictureButton = 1000;  // the device picture; a press refreshes like kRefresh
constexpr int kVideoButton = 1001;
constexpr int kInformationButton = 1002;
constexpr int kAudioButton = 1003;
constexpr int kProcAmpButton = 1004;
constexpr int kSettingButton = 1005;
constexpr int kReturnButton = 1006;
constexpr int kApplyButton = 1007;
constexpr int kWall1Button = 1008;
constexpr int kWall2Button = 1009;
constexpr int kWall3Button = 1010;
constexpr int kWall4Button = 1011;
constexpr int kDefaultButton = 1012;
constexpr int kSerialPicture = 1013;
constexpr int kPageUpButton = 1014;
constexpr int kRefreshButton = 1015;
constexpr int kPageMark = 1016;     // on the rail: which page is shown
constexpr int kSubPageDots = 1017;  // and which of its sub-pages
constexpr int kRail = 1018;         // behind the navigation buttons
constexpr int kPortList = 1048;

constexpr int kButtonWidth = 110;
constexpr int kButtonHeight = 40;

struct NavigationButton {
  int control;
  const char* caption;  // null = keeps the template's
  const char* up;
  const char* down;
  ui::Rect home;
  bool shownAtStart;
};

constexpr NavigationButton kNavigationButtons[] = {
    {kInformationButton, "Information", "INFO_BTU_U", "INFO_BTU_D", {0, 65, 110, 40}, true},
    {kVideoButton, "Video", "VIDEO_BTU_U", "VIDEO_BTU_D", {0, 105, 110, 40}, true},
    {kAudioButton, "Audio", "AUDIO_BTU_U", "AUDIO_BTU_D", {0, 145, 110, 40}, true},
    {kProcAmpButton, "Proc Amp", "PROC_BTU_U", "PROC_BTU_D", {0, 185, 110, 40}, true},
    {kSettingButton, "Setting", "SET_BTU_U", "SET_BTU_D", {0, 225, 110, 40}, true},
    {kReturnButton, "Return", "RETURN_BTU_U", "RETURN_BTU_D", {0, 65, 110, 40}, false},
    {kApplyButton, "Apply", "APPLY_BTU_U", "APPLY_BTU_D", {0, 65, 110, 40}, false},
    {kDefaultButton, "Default", "DEFAULT_BTU_U", "DEFAULT_BTU_D", {0, 65, 110, 40}, false},
    {kPageUpButton, nullptr, "PAGE_UP_U", "PAGE_UP_D", {0, 340, 110, 45}, false},
    {kRefreshButton, "Refresh", "REFRESH_BTU_U", "REFRESH_BTU_D", {0, 340, 110, 45}, false},
    {kWall1Button, nullptr, "1X1_U", "1X1_D", {0, 65, 110, 40}, false},
    {kWall2Button, nullptr, "2X2_U", "2X2_D", {0, 105, 110, 40}, false},
    {kWall3Button, nullptr, "3X3_U", "3X3_D", {0, 145, 110, 40}, false},
    {kWall4Button, nullptr, "4X4_U", "4X4_D", {0, 185, 110, 40}, false},
};

}  // namespace panelora
