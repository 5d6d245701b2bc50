// The Setting page (template 107): unit-wide options and the hardware reset. ">>" steps the pending
// values, Apply writes them; "Hardware Reset" acts at once.
//
// Models: which box has which option where, and what resets it, stands in catalogue/setting.h.
#pragma once

#include "catalogue/setting.h"
#include "pages/option_page.h"
#include "pages/setting/caution_dlg.h"

namespace panelora {

class CSettingDlg final : public OptionPage {
 public:
  explicit CSettingDlg(PanelContext context);

  void Init() override;

  // Reads the options that the firmware has. A failed read keeps value and text; a value without a
  // row keeps the text.
  void Refresh(ui::SerialHandle serial) override;

  // Writes every option of the model, whatever its firmware shows, and warns once when the DIP 8
  // mode changed.
  void Apply() override;

  void OnCommand(int control, ui::Notification what) override;

 private:
  int LastIndex(int option) const override;
  void LayOut();
  bool IsWritten(int option) const;
  void ReadDip8(const Kept& kept);
  void WriteDip8(const Kept& kept);
  void OnNextDip8();
  void OnHardwareReset();
  bool IsModel26() const { return kShippedType.Has(panel.identity.boxType); }

  bool patternAvailable = false;  // of the box that was refreshed last
  bool osdAvailable = false;
  std::uint8_t dip8Confirmed = 0;  // the mode last read from the box or warned of
  std::uint8_t dip8Extra = 0;      // goes back to the box as it came
  CCautionDlg caution;
};

}  // namespace panelora
