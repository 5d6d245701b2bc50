// The Display Mode page (template 109): how the output is composed of the four inputs, and on boxes
// that have them the input labels. The ">>" buttons change the page alone; Apply writes.
//
// Models: see catalogue/multiview.h. Boxes without the function are only asked for their modes and
// told that the page is open.
#pragma once

#include <array>
#include <string>

#include "catalogue/channel_table.h"
#include "catalogue/codecs.h"
#include "catalogue/multiview.h"
#include "pages/page.h"

namespace panelora {

class CDisplayModeDlg final : public Page {
 public:
  explicit CDisplayModeDlg(PanelContext context);

  // Copies the device handle, keeps the serial handle, reads mode and number of modes, sets fonts
  // and captions and lays the page out for the brand and the modes.
  void Init(ui::SerialHandle serial);

  // Opens the function on the box, then refreshes.
  void Open() override;

  // Reads what the view shows. A failed read keeps field and text; a mode, state or combination
  // without a row keeps the texts.
  void Refresh(ui::SerialHandle serial) override;

  // Writes mode and code, or the labels in their view, and remembers the code.
  void Apply() override;

  // Opening the function is the box's only restore.
  void RestoreDefaults() override { Open(); }

  // 0 shows the display mode, 1 the input labels, anything else nothing.
  void SetSubPage(int number) override;
  int SubPages() const override { return 2; }

  // Back to view 0 as Init laid it out.
  void ResetView();

  void OnCommand(int control, ui::Notification what) override;

  // Any timer: shows a random mode on the box. Nothing starts one.
  void OnTimer(int timer) override;

 private:
  void OnNextMode();
  void OnNextMain();
  void OnNextSub();
  void OnNextSub2();
  void OnNextLabelsState();

  bool IsToldByBlock() const { return multiview::kByBlock.Has(panel.identity.boxType); }
  bool IsToldByWord() const { return multiview::kByWord.Has(panel.identity.boxType); }
  bool HasInputLabels() const { return panel.fittedOption == 1; }
  bool WritesByView() const;
  bool WritesLabels() const { return WritesByView() && view == 1; }
  bool WritesMode() const { return IsToldByBlock() || !WritesByView() || view == 0; }
  std::uint8_t NextMode() const;
  std::uint8_t ModeOfBox(std::uint8_t reported) const;
  std::uint8_t CodeOf(std::uint8_t ofMode) const;

  void HideEverything();
  void PlaceModeView(bool withSub2);
  void PlaceLabelsView();
  bool ReadModeAndCodes();
  void ReadLabels();
  void SettleMode();
  void ShowPending();
  void ShowMode();
  void ShowLabelsState();
  void ShowChannelsOfCode();
  void ShowCodeOfChannels();
  bool IsTyped(std::size_t row);
  void ShowNames(const ChannelChoice& choice);
  void EnableLabels(bool enabled);
  void WriteModeAndCode();
  void WriteLabels();

  static constexpr std::size_t kCodesHeld = 10;

  std::uint8_t mode = 1;         // 1 to 9
  std::uint8_t nineModes = 0;    // 1 = modes 1 to 9, anything else 1 to 5
  std::uint8_t lastMode = 1;     // as last read from or written to the box
  std::uint8_t lastCode = 1;     // the same; nothing reads it
  std::uint8_t code = 1;         // combination code of the channels, 1 to 12
  std::uint8_t labelsState = 0;  // 0 off, 1 on, 2 the box's default labels
  Channels channels;
  // What the box told, or was told.
  std::uint8_t toldMode = 1;
  Channels toldChannels;
  std::uint8_t toldState = 0;
  std::array<std::string, 4> toldLabels;                 // as they are in the edits then
  std::array<std::uint8_t, kCodesHeld> codeByMode = {};  // of modes 1 to 10; 0 = none
  int view = 0;  // 0 display mode, 1 input labels, else nothing
};

}  // namespace panelora
