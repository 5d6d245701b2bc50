// The dialogs of res/dialogs/ as data; the resource compiler reads the same files (panelora.rc).
#pragma once

#include <span>
#include <string>

#include "ui/dialog_template.h"

namespace panelora::res {

// Template numbers.
constexpr int kAbout = 100;
constexpr int kMain = 102;
constexpr int kInformation = 103;
constexpr int kVideoMenu = 104;
constexpr int kAudio = 105;
constexpr int kProcAmp = 106;
constexpr int kSetting = 107;
constexpr int kVideoSettings = 108;
constexpr int kDisplayMode = 109;
constexpr int kTvWall = 110;
constexpr int kPip = 111;
constexpr int kGenlock = 112;
constexpr int kImageAdjust = 113;
constexpr int kRoi = 114;
constexpr int kTextLabels = 115;
constexpr int kCaution = 116;

// The program's icon.
constexpr int kIcon = 128;

// String table.
constexpr int kAboutMenuText = 101;

// Every template, by number.
std::span<const ui::DialogTemplate> Dialogs();

// The template of that number, or null.
const ui::DialogTemplate* FindDialog(int number);

// The control of that id, or null.
const ui::ControlTemplate* FindControl(const ui::DialogTemplate& dialog, int id);

// The string of that number, empty when there is none.
const char* FindString(int number);

}  // namespace panelora::res
