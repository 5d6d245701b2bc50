// The Information page (template 103): what the box receives, and which firmware it runs. Its
// refresh is the one place where the firmware version is read; every other page compares with it.
//
// Models: 26 is complete. Other models show one input row, from the source that kModels of
// information_dlg.cpp gives each; which source and firmware item belong to which of them, and the
// rows of second to fourth inputs, wait for a box to check against, so those rows stay hidden
// rather than show what nobody read.
#pragma once

#include <optional>
#include <string>

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
  std::string FormatFromBigBlock();
  std::optional<std::string> FormatFromLittleBlock();
  std::optional<std::string> FormatFromCode();
  void ReadFirmware();

  std::uint32_t firmwareVersion = 0;  // the last version read, as PanelState::firmwareVersion
  BlockBuffer inputFormat{};          // the last answer; a failed read shows it again
};

// "0.1.1.2" from 0x0112: four hexadecimal digits, most significant first.
std::string FirmwareText(std::uint32_t version);

// The name of an input format code of `boxType`; `divided` = the rate is 1/1.001 of the nominal
// one. The no-signal text when the code has no row.
std::string InputFormatName(std::uint8_t boxType, std::uint8_t code, bool divided);

}  // namespace panelora
