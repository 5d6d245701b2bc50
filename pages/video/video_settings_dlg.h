// The Video settings page (template 108): input source, aspect ratio, output format and whatever
// else a box does with its video signal. ">>" and "<<" change only the selection and its caption;
// Apply writes what the visible sub-page shows. "AUTO PHASE" and "Video Freeze" act at once.
//
// Models: which box has which option where stands in catalogue/video.h.
#pragma once

#include <optional>

#include "catalogue/video.h"
#include "pages/option_page.h"

namespace panelora {

class CVideoSettingsDlg final : public OptionPage {
 public:
  explicit CVideoSettingsDlg(PanelContext context);

  // Copies the device handle, gives every control its font and first text, and lays out the
  // sub-page of the panel state.
  void Init() override;

  // Shows the first sub-page as the box has it; the handle is that of Init.
  void Open() override;

  // Hides every control, then places and shows those of the sub-page (0, 1 or 2).
  void SetSubPage(int number) override;
  int SubPages() const override { return video::SubPages(panel.identity); }

  // Reads what the panel state's sub-page shows. A failed read keeps selection and text (output
  // colour falls back to value 0); a value without a row keeps the text and is not written back.
  void Refresh(ui::SerialHandle serial) override;

  // Writes the selections of the visible sub-page that have a row.
  void Apply() override;

  // Stops the refresh timer, which Apply starts on boxes that can pass their input through.
  void StopTimer();
  void Leave() override { StopTimer(); }

  void OnCommand(int control, ui::Notification what) override;
  void OnTimer(int timer) override;

 private:
  int LastIndex(int option) const override;
  bool IsShown(const Kept& kept) const { return kept.subPage == subPage && Serves(kept); }
  bool HasFreeze() const;
  void PlaceOptions();
  void PlaceOutputFormat(int top);
  void ShowConsequences(int option);
  void ShowFormatReport();

  int subPage = 0;
  // The request that the box holds, which goes back to it; none until it was read.
  std::optional<std::uint8_t> passThrough;
  bool timerRuns = false;
};

}  // namespace panelora
