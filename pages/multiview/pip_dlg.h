// The picture-in-picture page (template 111): position and size of the inset of the display mode
// (CH 1), and of the second inset of display mode 6 (CH 2). A slider takes effect on the page when
// it is let go; Apply reads the edits and writes.
//
// Models: see catalogue/multiview.h.
#pragma once

#include "catalogue/codecs.h"
#include "catalogue/multiview.h"
#include "pages/page.h"
#include "res/dialog_templates.h"

namespace panelora {

class CPIPDlg final : public Page {
 public:
  explicit CPIPDlg(PanelContext context) : Page(res::kPip, context) {}

  // Copies the device handle and keeps the serial handle, sets fonts and captions. The display mode
  // of the last refresh stays.
  void Init(ui::SerialHandle serial);

  // Opens the function on the box, which puts the insets back in their first place, by the display
  // mode of the last refresh; then refreshes.
  void Open() override;

  // Reads the box and lays the page out. What could not be read keeps its earlier value, and an
  // output format without a frame keeps the earlier frame.
  void Refresh(ui::SerialHandle serial) override;

  // Reads the edits, limits sizes and positions to the frame and to 0 and writes the insets. An
  // edit without a number ends it there, with the channel before it written.
  void Apply() override;

  void RestoreDefaults() override { Open(); }

  void OnSliderReleased(int slider) override;

 private:
  struct Side;
  struct Channel;

  bool HasPip() const { return multiview::kModels.Has(panel.identity.boxType); }
  // The mode may be that of another box before.
  bool HasInset() const {
    return HasPip() && (displayMode == 4 || displayMode == 6 || displayMode == 7);
  }
  bool HasSecondInset() const { return HasPip() && displayMode == 6; }

  void ReadBox();
  void ReadInsets();
  void ChooseFrame();
  void LayOut();
  void PlaceChannel(const Channel& channel, int top, int height, int firstRow, int rowDistance);
  void ShowChannel(const Channel& channel, bool shown);
  void ShowValues(const Channel& channel, const PipWindow& inset);
  void ShowSliders(const Side& side, const PipWindow& inset);
  void TakePosition(const Side& side, PipWindow& inset);
  void TakeSize(const Side& side, PipWindow& inset);
  bool TakeEdits(const Channel& channel, PipWindow& inset);
  void LimitAndStore(const Side& side, PipWindow& inset, int position, int size);
  int FrameOf(const Side& side) const;
  static int MinimumOf(const Side& side);
  int ScaleOf(const Side& side) const;

  static const Channel kChannels[2];

  std::uint8_t displayMode = 0;   // 1 to 9; 4, 6 and 7 have an inset, 6 a second one
  std::uint8_t pipOption = 0;     // 2 = another list of output formats
  std::uint8_t outputFormat = 0;  // of the list of the type, brand and option
  std::uint16_t frameWidth = 1920;
  std::uint16_t frameHeight = 1080;
  PipWindow ch1;
  PipWindow ch2;
};

}  // namespace panelora
