// The Image adjustment page (template 113): moves and scales the output picture in single steps.
// Each press changes one value by one and writes the pair that it belongs to at once; no numbers
// are shown.
//
// Models: see catalogue/multiview.h.
#pragma once

#include "catalogue/codecs.h"
#include "catalogue/multiview.h"
#include "pages/page.h"
#include "res/dialog_templates.h"

namespace panelora {

class CImageAdjustDlg final : public Page {
 public:
  explicit CImageAdjustDlg(PanelContext context) : Page(res::kImageAdjust, context) {}

  // Copies the device handle, sets fonts and captions.
  void Init();

  // Takes the handle of the box, since a connection change does not initialise this page; opens the
  // function on the box (on box type 26 this restores position and size), then refreshes.
  void Open() override;

  // Lays the page out for the box type and reads values and enabling. A failed read keeps both.
  void Refresh(ui::SerialHandle serial) override;

  void RestoreDefaults() override { Open(); }

  void OnCommand(int control, ui::Notification what) override;

 private:
  void Step(std::size_t row, int step);
  void StepPosition(std::uint16_t& value, int step, int maximum);
  void StepSize(std::uint8_t& value, int step);
  void WritePositions();
  void WriteSizes();
  void LayOut();
  void ReadEnabling();
  void Enable(image::Adjusts what, bool enabled, bool ever = true);
  void ShowReason();

  ImagePosition position;
  ImageSize size;
  const char* whyNoPosition = "";  // what is said of buttons that are disabled
  const char* whyNoSize = "";
};

}  // namespace panelora
