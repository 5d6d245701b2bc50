// The Text Labels page (template 115): the on-screen text label and whether it is shown. Apply
// writes both.
#pragma once

#include <string>

#include "pages/page.h"
#include "res/dialog_templates.h"

namespace panelora {

class CTextLabelsDlg final : public Page {
 public:
  explicit CTextLabelsDlg(PanelContext context) : Page(res::kTextLabels, context) {}

  // Copies the device handle, sets fonts, captions and places.
  void Init();

  // Takes the handle of the box, since a connection change does not initialise this page; opens the
  // function on the box, whatever its type, then refreshes.
  void Open() override;

  // Reads the label; a failed read changes nothing.
  void Refresh(ui::SerialHandle serial) override;

  void Apply() override;

  void RestoreDefaults() override { Open(); }

  void OnCommand(int control, ui::Notification what) override;

 private:
  void OnNextState();
  void ShowState();
  void EnableLabel();
  void ShowPending();

  std::uint8_t labelState = 0;  // 0 off, 1 on, 2 the box's default label
  std::uint8_t toldState = 0;   // the one that the box told, or was told
  std::string toldLabel;        // the text that is in the edit then
};

}  // namespace panelora
