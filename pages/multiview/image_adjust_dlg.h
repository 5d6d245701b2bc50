// The Image adjustment page (template 113): moves and scales the output picture in single steps.
// Each press changes one value by one and writes the pair that it belongs to at once; no numbers
// are shown.
//
// Models: 50, 26, 24 and 34 as the boxes have it. Types 23, 42, 25 and 29 read their values from
// the properties that they write, and their buttons are always enabled: their conditions are not
// known.
#pragma once

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
  void OnHorizontalPositionUp() { StepPosition(hPosition, 1, kMaxHorizontal); }
  void OnHorizontalPositionDown() { StepPosition(hPosition, -1, kMaxHorizontal); }
  void OnVerticalPositionUp() { StepPosition(vPosition, 1, kMaxVertical); }
  void OnVerticalPositionDown() { StepPosition(vPosition, -1, kMaxVertical); }
  void OnHorizontalSizeUp() { StepSize(hSizePercent, 1); }
  void OnHorizontalSizeDown() { StepSize(hSizePercent, -1); }
  void OnVerticalSizeUp() { StepSize(vSizePercent, 1); }
  void OnVerticalSizeDown() { StepSize(vSizePercent, -1); }

  static constexpr int kMaxHorizontal = 600;
  static constexpr int kMaxVertical = 100;

  void StepPosition(std::uint16_t& value, int step, int maximum);
  void StepSize(std::uint8_t& value, int step);
  void WritePositions();
  void WriteSizes();
  void LayOut();
  void ReadEnabling();
  void ReadPositions(std::uint8_t property);
  void ReadSizes(std::uint8_t property);
  void EnablePositions(bool enabled);
  void EnableSizes(bool enabled);

  std::uint16_t hPosition = 5;      // 5 to 600
  std::uint16_t vPosition = 5;      // 5 to 100
  std::uint8_t hSizePercent = 100;  // 80 to 100
  std::uint8_t vSizePercent = 100;  // 80 to 100
};

}  // namespace panelora
