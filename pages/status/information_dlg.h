// The Information page (template 103): what the box receives, and which firmware it runs. Its
// refresh is the one place where the firmware version is read; every other page compares with it.
//
// Models: which rows each shows, and where it tells them, stands in catalogue/information.h.
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
  void PlaceRow(int row, int top);
  void ShowWebAddress();
  // Asks for what a row shows; a failed read keeps the text, and so does what has no name.
  void RefreshRow(const information::Told& told);
  void RefreshFormats(const information::Told& told, const Address& at);
  void RefreshFormatCode(const information::Told& told, const Address& at);
  void ReadFirmware();
  void ShowValue(int row, const std::string& text);
  Address AddressOf(const information::Told& told) const {
    return information::AddressOf(told, panel.identity, panel.firmwareVersion);
  }

  std::uint32_t firmwareVersion = 0;  // the last version read, as PanelState::firmwareVersion
  BlockBuffer inputFormat{};          // the last answer; a failed read shows it again
};

}  // namespace panelora
