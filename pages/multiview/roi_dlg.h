// The region of interest page (template 114): how the input picture is mapped onto the output, and
// which region of it is used. A slider writes when it is let go; the mode is written by Apply.
//
// Models: see catalogue/multiview.h.
#pragma once

#include "catalogue/codecs.h"
#include "catalogue/multiview.h"
#include "pages/page.h"
#include "res/dialog_templates.h"

namespace panelora {

struct RoiRow;

class CROIDlg final : public Page {
 public:
  explicit CROIDlg(PanelContext context) : Page(res::kRoi, context) {}

  // Copies the device handle, sets fonts and captions.
  void Init();

  // Takes the handle of the box, since a connection change does not initialise this page; switches
  // the region off on the box, then refreshes.
  void Open() override;

  // Reads input format and region; a region without a size is set to half the input and written. A
  // failed read keeps what was shown.
  void Refresh(ui::SerialHandle serial) override;

  // Writes region and mode, and switches the region on; brand 2 can switch it off.
  void Apply() override;

  void RestoreDefaults() override { Open(); }

  // Writes the region alone, with switch and mode zero.
  void WriteRegion() { WriteAs(0, 0); }

  void OnCommand(int control, ui::Notification what) override;
  void OnSliderReleased(int slider) override;

 private:
  void OnNextMode();

  void ReadInputCode(const region::Store& store);
  void ReadRegion(const region::Store& store);
  void ShowMode();
  void ShowPending();
  void ShowRegion();
  void EnableSliders();
  void TakePosition(const RoiRow& row, std::uint16_t& position);
  void TakeSize(const RoiRow& row, std::uint16_t& size, const RoiRow& positionRow,
                std::uint16_t& position, int frame);
  void WriteAs(std::uint8_t use, std::uint8_t mode);

  std::uint8_t inputCode = 0;       // input format
  std::uint16_t frameWidth = 1920;  // pixels of the input
  std::uint16_t frameHeight = 1080;
  Region region{.mode = 1};
  std::uint8_t toldMode = 1;  // the one that the box told, or was told
};

}  // namespace panelora
