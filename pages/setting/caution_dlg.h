// The Caution dialog (template 116): a change that was just written alters the DIP-switch
// configuration. Modeless; at most one is open, and a new warning takes the place of the old one.
#pragma once

#include <memory>

#include "ui/toolkit.h"

namespace panelora {

class CCautionDlg final : public ui::DialogEvents {
 public:
  explicit CCautionDlg(ui::Toolkit& theToolkit) : toolkit(theToolkit) {}

  // Opens the dialog 40 pixels right of and 90 below the top left corner of `page`, which owns it.
  void Open(ui::Dialog& page);

  bool OnKey(ui::Key key) override;
  void OnCloseRequest() override;

 private:
  ui::Toolkit& toolkit;
  std::unique_ptr<ui::Dialog> window;
};

}  // namespace panelora
