// The Video settings page (template 108): input source, aspect ratio, output format and whatever
// else a box does with its video signal. ">>" and "<<" change only the selection and its caption;
// Apply writes what the visible sub-page shows. "AUTO PHASE" and "Video Freeze" act at once.
//
// Models: box type 26 is complete, on two sub-pages. Other types read and write input source,
// output format, output source and aspect ratio as one-byte blocks, on one sub-page, and "Video
// Freeze" stands on the next; their remaining controls cycle through their options but are neither
// shown nor written, since where and in which order each type has them is not known, and the third
// sub-page that some types have is empty. That 24, 34, 30, 43, 20 and 33 are the types that can
// pass their input through (kPassThroughTypes) is a choice of this page.
#pragma once

#include <optional>

#include "pages/page.h"
#include "pages/video/video_options.h"

namespace panelora {

class CVideoSettingsDlg final : public Page {
 public:
  explicit CVideoSettingsDlg(PanelContext context);

  // Copies the device handle, gives every control its font and first text, and lays out the
  // sub-page of the panel state.
  void Init();

  // Hides every control, then places and shows those of the sub-page (0, 1 or 2).
  void SetSubPage(int number);

  // Reads what the panel state's sub-page shows. A failed read keeps selection and text (output
  // colour falls back to value 0); a value without a row keeps the text and is not written back.
  void Refresh(ui::SerialHandle serial) override;

  // Writes the selections of the visible sub-page that have a row.
  void Apply() override;

  // Stops the refresh timer, which Apply starts on boxes that can pass their input through.
  void StopTimer();

  void OnCommand(int control, ui::Notification what) override;
  void OnTimer(int timer) override;

  // The cycling controls, in the order of their rows in kControls of video_settings_dlg.cpp.
  enum Option {
    kInputSource,
    kOutputLevel,
    kAspectRatio,
    kOutputFormat,
    kOutputMode,
    kOutputColour,
    kOutputSource,
    kHdmiEq,
    kSdi0Eq,
    kSdi1Eq,
    kErrorLed,
    kGpiMode,
    kGenlockMode,
    kIreLevel,
    kEdgeEnhance,
    kColourUpFilter,
    kSdiType,
    kSecondOutputLevel,
    kSdiOutputColour,
    kHdmiOutputMode,
    kImageMirror,
    kReclock,
    kOptionCount,
    // Groups without options: their ">>" does nothing.
    kYcCvbs = kOptionCount,
    kPatternMode,
    kControlInterface,
    kGroupCount,
  };

 private:
  template <Option option>
  void OnNext() {
    Next(option);
  }
  void OnNextInputSource();
  void OnNextOutputFormat();
  void OnPreviousOutputFormat();
  void OnNextGenlockMode();
  void OnNextHdmiOutputMode();
  void OnAutoPhase();
  void OnVideoFreeze();

  void Next(Option option);
  int LastIndex(Option option) const;
  int LastAspectRatio() const;
  const OptionRow* Selected(Option option) const;
  void ShowSelected(Option option);
  void SelectValue(Option option, std::uint8_t value);
  void SelectIndex(Option option, std::uint8_t index);
  void ShowAutoPhase();

  void RefreshWord(Option option, std::uint32_t item);
  void RefreshBlock(Option option, std::uint8_t property);
  void ApplyWord(Option option, std::uint32_t item);
  void ApplyBlock(Option option, std::uint8_t property);
  void RefreshOtherTypes();
  void ApplyOtherTypes();
  void ShowFormatReport();
  bool IsModel26() const { return panel.identity.boxType == 26; }
  bool HasEdgeEnhance() const;

  int subPage = 0;
  std::uint8_t selection[kOptionCount] = {};  // row indices; 255 = a value without a row
  std::uint8_t lastFormatCode = 0;            // output format code last read
  // The request that the box holds, which goes back to it; none until it was read.
  std::optional<std::uint8_t> passThrough;
  bool timerRuns = false;
};

}  // namespace panelora
