// The Video menu page (template 104): one large button for each video page that the box has. It
// writes nothing; a press opens the page.
//
// Models: the buttons of box type 26 are the box's own; those of the other models follow from the
// pages that know them, stacked in one column (kLayouts of video_menu_dlg.cpp, which names what is
// an exception).
#pragma once

#include "pages/page.h"
#include "pages/video/video_pages.h"

namespace panelora {

class CVideoMenuDlg final : public Page {
 public:
  CVideoMenuDlg(PanelContext context, VideoPages& thePages);

  // Takes the device handle, keeps the serial handle, loads the pictures, and places and shows the
  // buttons of the box type. Box types 13 and 15 are asked for their multi-view block.
  void Init(ui::SerialHandle serial);

  // The operator is back from a page: the keyboard goes to the button that led there.
  void FocusLastButton() { Window().Focus(lastButton); }

  void OnCommand(int control, ui::Notification what) override;

 private:
  void OnVideoSettings() { pages.ShowVideoSettings(); }
  void OnDisplayMode() { pages.ShowDisplayMode(); }
  void OnTvWall() { pages.ShowTvWall(); }
  void OnPip() { pages.ShowPip(); }
  void OnGenlock() { pages.ShowGenlock(); }
  void OnImageAdjust() { pages.ShowImageAdjust(); }
  void OnRoi() { pages.ShowRoi(); }

  void LayOut();

  VideoPages& pages;
  int lastButton = 0;  // pressed last
};

}  // namespace panelora
