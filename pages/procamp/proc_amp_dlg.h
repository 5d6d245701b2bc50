// The processing amplifier page (template 106): brightness, contrast, hue and saturation, and in
// its second view RGB gain and two RGB offsets. A slider writes as soon as it repaints with another
// value.
//
// Models: box type 26 is complete. Other types show the picture controls only; the properties that
// select the channel before their values are read back (kChannels of proc_amp_dlg.cpp) are those by
// which they take their commands, and committing with control 255 is taken to belong to 24 and 34
// from firmware 262, 25 and 29 from 265, and 20 and 33: a choice of this page.
#pragma once

#include <optional>

#include "pages/page.h"

namespace panelora {

class CProcAmpDlg final : public Page {
 public:
  explicit CProcAmpDlg(PanelContext context);

  // Copies the device handle, keeps the serial handle, takes the values of `cache` over and shows
  // them. Types without picture values get 128 in the first four bytes of the cache.
  void Init(ui::SerialHandle serial, ProcAmpCache& cache);

  // 0 = the picture controls, 1 = the RGB controls.
  void SetViewMode(int mode);

  // Takes the four edits over, one after the other, and sends what changed; ends at the first text
  // that is no number. Numbers above 255, and negative ones, become 255.
  void Apply() override;

  // The operator leaves by Return: on brand 2 the stored values are sent again where an edit shows
  // another number, and the edits are forgotten.
  void Leave();

  // Has a box of type 26 restore the values of the view and reads them back, all but the second RGB
  // offset; selects the channel of another type and reads its picture values.
  void RestoreDefaults() override;

  void OnSliderRepainted(int slider) override;
  // Enter and Escape never close the page.
  bool OnKey(ui::Key key) override;

 private:
  void ShowView();
  void ShowValues();
  void SendPicture(std::size_t index);
  void SendRgb();
  std::optional<int> Typed(std::size_t index);
  void ReadDefaults26();
  void ReadDefaultsOneByOne();
  bool Commits() const;
  bool HasEdits() const { return panel.identity.brandCode == 2; }
  bool IsModel26() const { return panel.identity.boxType == 26; }

  // Brightness, contrast, hue, saturation, RGB gain, RGB offset (0 to 255 each), RGB offset 2 (0 to
  // 64) and three spare bytes.
  ProcAmpCache values = kProcAmpStart;
  int viewMode = 0;
};

}  // namespace panelora
