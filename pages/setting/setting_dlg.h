// The Setting page (template 107): unit-wide options and the hardware reset. ">>" steps the pending
// values, Apply writes them; "Hardware Reset" acts at once.
//
// Models: box type 26 is complete. Of the others the texts are known, and the properties that they
// use between them; which type uses which (kResets of setting_dlg.cpp) is a choice of
// this page: types that take their commands by block keep OSD in block 21, no-signal in 22 and DIP
// 8 in 15; the others keep lock, pattern and no-signal in word items 12, 13 and 17. A reset is the
// value 1 on the property by which the type takes its commands, or 0 on 17 and 35; a type without a
// row takes them by word item 3.
#pragma once

#include "pages/page.h"
#include "pages/setting/caution_dlg.h"

namespace panelora {

class CSettingDlg final : public Page {
 public:
  explicit CSettingDlg(PanelContext context);

  // Copies the device handle, sets texts and fonts, and shows the options that model and firmware
  // have.
  void Init();

  // Reads the options that the firmware has. A failed read keeps value and text; a value without a
  // row keeps the text.
  void Refresh(ui::SerialHandle serial) override;

  // Writes every option of model 26, whatever is shown, and warns once when the DIP 8 mode changed.
  void Apply() override;

  // There are no defaults to restore: the page is read again.
  void RestoreDefaults() override { Refresh(serialHandle); }

  void OnCommand(int control, ui::Notification what) override;

 private:
  void OnNextLock();
  void OnNextOsd();
  void OnNextPattern();
  void OnNextNoSignal();
  void OnNextDip8();
  void OnHardwareReset();

  void LayOut();
  void ShowDip8();
  void RefreshModel26();
  bool TakesBlocks() const;
  void RefreshOtherTypes();
  void ApplyOtherTypes();
  void WarnOfChangedDip8();
  bool IsModel26() const { return panel.identity.boxType == 26; }

  std::uint8_t lock = 0;           // 1 = the front panel's buttons are locked
  std::uint8_t pattern = 0;        // test pattern 0 to 13
  std::uint8_t osd = 0;            // 1 = the on-screen display is hidden
  std::uint8_t noSignal = 0;       // 0 black, 1 blue screen, 2 output disabled
  std::uint8_t dip8 = 0;           // what DIP switch 8 does
  std::uint8_t dip8Confirmed = 0;  // the mode last read from the box or warned of
  std::uint8_t dip8Extra = 0;      // goes back to the box as it came
  CCautionDlg caution;
};

}  // namespace panelora
