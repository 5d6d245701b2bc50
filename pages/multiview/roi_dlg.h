// The region of interest page (template 114): how the input picture is mapped onto the output, and
// which region of it is used. A slider writes when it is let go; the mode is written by Apply.
//
// Models: those of kModels in roi_dlg.cpp. That 39 and 40 keep their region where 46 to 49 do is a
// choice of this page. Of the properties that tell the input format only that of 14, 25, 29, 33 and
// 36 is known, word item 1; the others are chosen from those that tell formats: block 4 on 39, 40
// and 46 to 49, where Genlock reads the code of its input, and on 24 and 34 with DIP switches or of
// brand 2, which take their commands by block; word item 2 on the other 24 and 34 and on 30 and 43,
// 4 on 32 and 35, 5 on 23 and 42. Block 6 tells a format too and is used for none. Where type 33
// keeps its region is not known: its input is read, and nothing is written.
#pragma once

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

  std::uint8_t RegionProperty() const;
  void ReadInputCode();
  void ReadRegion();
  void ShowMode();
  void ShowRegion();
  void EnableSliders();
  void TakePosition(const RoiRow& row, std::uint16_t& position);
  void TakeSize(const RoiRow& row, std::uint16_t& size, const RoiRow& positionRow,
                std::uint16_t& position, int frame);
  void WriteAs(std::uint8_t switchByte, std::uint8_t mode);

  std::uint8_t roiMode = 1;         // 0 dot by dot, 1 full screen, 2 disabled
  std::uint8_t inputCode = 0;       // input format
  std::uint16_t frameWidth = 1920;  // pixels of the input, as all below
  std::uint16_t frameHeight = 1080;
  std::uint16_t roiX = 0;
  std::uint16_t roiY = 0;
  std::uint16_t roiWidth = 0;
  std::uint16_t roiHeight = 0;
};

}  // namespace panelora
