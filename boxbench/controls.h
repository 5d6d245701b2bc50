// The numbers of the window's controls, by which tests and tools work it.
#pragma once

namespace panelora::boxbench {

constexpr char kWindowClass[] = "PaneloraBoxBench";

namespace control {

enum Id : int {
  kNone = 0,

  // The head of the window, and what stands below it.
  kTitle = 2000,  // "Type 26: connected"
  kSubtitle,      // brand, firmware
  kFaultBand,     // the faults in words; hidden when there are none
  kStatus,        // what happened last
  kDeskError,     // why the box can't be opened; hidden when it is open
  kTryAgain,

  // Which of the two sections is shown on the left.
  kShowBox = 2020,
  kShowFaults,

  // The box.
  kConnectionHeading = 2040,
  kPower,
  kCable,
  kCut,
  kModelHeading,
  kTypeLabel,
  kType,
  kPages,
  kBrandLabel,
  kBrand,
  kSubModelLabel,
  kSubModel,
  kInputDip,
  kOutputDip,
  kFirmwareLabel,
  kFirmware,
  kFirmwareHint,
  kBecome,
  kReset,
  kSignalHeading,
  kSignalLabel,
  kSignal,
  kSetSignal,

  // Its faults.
  kWrongHeading = 2080,
  kHowLabel,
  kHow,
  kNthLabel,
  kNth,
  kWhichLabel,
  kReads,
  kWrites,
  kOpens,
  kOnlyLabel,
  kOnly,
  kAnswerLabel,
  kAnswer,
  kResultLabel,
  kResult,
  kAllHeading,
  kLatencyLabel,
  kLatency,
  kLatencyValue,
  kVanish,
  kFill,
  kNoFaults,

  // What it keeps.
  kPropertiesHeading = 2120,
  kPropertyCounts,
  kPropertyFilterLabel,
  kPropertyFilter,
  kProperties,
  kValueLabel,
  kValue,
  kAsWords,
  kAsBytes,
  kSetValue,

  // The calls that were made.
  kLogHeading = 2160,
  kLogCounts,
  kLogKindLabel,
  kLogKind,
  kLogFilterLabel,
  kLogFilter,
  kPause,
  kClear,
  kCopy,
  kSave,
  kLog,

  // Keys alone.
  kRefresh = 2200,
  kFind,
};

}  // namespace control

}  // namespace panelora::boxbench
