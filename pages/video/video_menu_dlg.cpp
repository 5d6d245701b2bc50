#include "pages/video/video_menu_dlg.h"

#include "catalogue/menu.h"
#include "catalogue/multiview.h"
#include "res/dialog_templates.h"

namespace panelora {

namespace {

using enum PageCode;

constexpr int kFrame = 1047;

struct ButtonRow {
  int control;
  PageCode page;
  const char* up;
  const char* down;
};

constexpr ButtonRow kButtons[] = {
    {1002, kVideoSettings, "VIDEO_SET_BTU_U", "VIDEO_SET_BTU_D"},
    {1003, kDisplayMode, "DISPLAY_SET_BTU_U", "DISPLAY_SET_BTU_D"},
    {1004, kTvWall, "TVWALL_SET_BTU_U", "TVWALL_SET_BTU_D"},
    {1005, kPip, "PIP_SETTING_U", "PIP_SETTING_D"},
    {1006, kGenlock, "GENLOCK_U", "GENLOCK_D"},
    {1007, kImageAdjust, "IMAGEADJUST_U", "IMAGEADJUST_D"},
    // The other way round on purpose: ROI_D is drawn as the released picture.
    {1008, kRoi, "ROI_D", "ROI_U"},
};

}  // namespace

CVideoMenuDlg::CVideoMenuDlg(PanelContext context, PageOpener& theOpener)
    : Page(res::kVideoMenu, context), opener(theOpener) {}

void CVideoMenuDlg::Init(ui::SerialHandle serial) {
  TakeHandle();
  serialHandle = serial;
  for (const ButtonRow& row : kButtons) Window().SetPictures(row.control, row.up, row.down);
  if (menu::kAskedForMultiView.Has(panel.identity.boxType)) {
    BlockBuffer unused{};
    Read(multiview::kModes, unused);
  }
  LayOut();
}

void CVideoMenuDlg::LayOut() {
  Window().PlaceControl(kFrame, {45, 30, 390, 250});
  for (const ButtonRow& row : kButtons) {
    Window().ShowControl(row.control, false);
    for (const menu::Place& place : menu::LayoutOf(panel.identity).places) {
      if (place.page != row.page) continue;
      Window().PlaceControl(row.control, {60, place.y, 360, 50});
      Window().ShowControl(row.control, true);
    }
  }
}

void CVideoMenuDlg::OnCommand(int control, ui::Notification /*what*/) {
  lastButton = control;
  for (const ButtonRow& row : kButtons) {
    if (row.control == control) opener.OpenPage(row.page);
  }
}

}  // namespace panelora
