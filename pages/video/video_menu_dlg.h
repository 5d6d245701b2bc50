// The Video menu page (template 104): one large button for each video page that the box has. It
// writes nothing; a press opens the page.
//
// Models: which pages a box has, and where their buttons stand, is in catalogue/menu.h.
#pragma once

#include "pages/page.h"
#include "pages/page_opener.h"

namespace panelora {

class CVideoMenuDlg final : public Page {
 public:
  CVideoMenuDlg(PanelContext context, PageOpener& theOpener);

  // Takes the device handle, keeps the serial handle, loads the pictures, and places and shows the
  // buttons of the box type. Some types are asked for their multi-view block.
  void Init(ui::SerialHandle serial);
  void Open() override { Init(panel.serialHandle); }

  // The operator is back from a page: the keyboard goes to the button that led there.
  void FocusLastButton() { Window().Focus(lastButton); }

  void OnCommand(int control, ui::Notification what) override;

 private:
  void LayOut();

  PageOpener& opener;
  int lastButton = 0;  // pressed last
};

}  // namespace panelora
