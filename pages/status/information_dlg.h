// The Information page (template 103): what the box receives, and which firmware it runs. Its
// refresh is the one place where the firmware version is read; every other page compares with it.
//
// Models: what each tells stands in catalogue/information.h. Other models than 26 show one input
// row: the rows of second to fourth inputs stay hidden rather than show what nobody read.
#pragma once

#include "catalogue/information.h"
#include "pages/page.h"

namespace panelora {

class CInformationDlg final : public Page {
 public:
  explicit CInformationDlg(PanelContext context);

  // Copies the device handle, sets texts, places and visibility for the box type.
  void Init();

  // Shows the input format and the firmware version, and stores the version in the panel state (the
  // old one when it can't be read).
  void Refresh(ui::SerialHandle serial) override;

  // The brand's web address; codes without a reseller give the maker's.
  static const char* WebAddress(std::uint8_t brandCode);

 private:
  void LayOut();
  void ShowWebAddress();
  void RefreshInputFormat();
  void ReadFirmware();

  std::uint32_t firmwareVersion = 0;  // the last version read, as PanelState::firmwareVersion
  BlockBuffer inputFormat{};          // the last answer; a failed read shows it again
};

}  // namespace panelora
