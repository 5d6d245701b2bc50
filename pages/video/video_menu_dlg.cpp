#include "pages/video/video_menu_dlg.h"

#include "res/dialog_templates.h"

namespace panelora {

namespace {

constexpr int kFrame = 1047;
constexpr int kVideoSettings = 1002;
constexpr int kDisplayMode = 1003;
constexpr int kTvWall = 1004;
constexpr int kPip = 1005;
constexpr int kGenlock = 1006;
constexpr int kImageAdjust = 1007;
constexpr int kRoi = 1008;

struct ButtonRow {
  int control;
  const char* up;
  const char* down;
};

constexpr ButtonRow kButtons[] = {
    {kVideoSettings, "VIDEO_SET_BTU_U", "VIDEO_SET_BTU_D"},
    {kDisplayMode, "DISPLAY_SET_BTU_U", "DISPLAY_SET_BTU_D"},
    {kTvWall, "TVWALL_SET_BTU_U", "TVWALL_SET_BTU_D"},
    {kPip, "PIP_SETTING_U", "PIP_SETTING_D"},
    {kGenlock, "GENLOCK_U", "GENLOCK_D"},
    {kImageAdjust, "IMAGEADJUST_U", "IMAGEADJUST_D"},
    // The other way round on purpose: ROI_D is drawn as the released picture.
    {kRoi, "ROI_D", "ROI_U"},
};

constexpr int kAnyBrand = -1;
constexpr std::uint8_t kAnyType = 255;

// A button and the top of its place.
struct ButtonPlace {
  int control = 0;
  int y = 0;
};

struct LayoutRow {
  std::uint8_t boxType;
  int brandCode;
  ButtonPlace places[4];
};

// First match by box type and brand. A model has the buttons of the pages that know it; but 20 and
// 33 never have TV Wall and Genlock at once, 33 has no ROI, and that the layout without ROI is that
// of 40 is a choice.
constexpr LayoutRow kLayouts[] = {
    {26, kAnyBrand, {{kVideoSettings, 85}, {kImageAdjust, 170}}},
    {50, kAnyBrand, {{kVideoSettings, 60}, {kGenlock, 130}, {kImageAdjust, 200}}},
    {13, kAnyBrand, {{kVideoSettings, 60}, {kDisplayMode, 130}, {kPip, 200}}},
    {15, kAnyBrand, {{kVideoSettings, 60}, {kDisplayMode, 130}, {kPip, 200}}},
    {51, kAnyBrand, {{kVideoSettings, 60}, {kDisplayMode, 130}, {kPip, 200}}},
    {14, kAnyBrand, {{kVideoSettings, 60}, {kTvWall, 140}, {kRoi, 210}}},
    {32, kAnyBrand, {{kVideoSettings, 60}, {kTvWall, 140}, {kRoi, 210}}},
    {35, kAnyBrand, {{kVideoSettings, 60}, {kTvWall, 140}, {kRoi, 210}}},
    {36, kAnyBrand, {{kVideoSettings, 60}, {kTvWall, 140}, {kRoi, 210}}},
    {17, kAnyBrand, {{kVideoSettings, 85}, {kTvWall, 170}}},
    {18, kAnyBrand, {{kVideoSettings, 85}, {kTvWall, 170}}},
    {37, kAnyBrand, {{kVideoSettings, 85}, {kTvWall, 170}}},
    {38, kAnyBrand, {{kVideoSettings, 85}, {kTvWall, 170}}},
    {20, 1, {{kVideoSettings, 90}, {kGenlock, 180}}},
    {33, 1, {{kVideoSettings, 90}, {kGenlock, 180}}},
    {20, kAnyBrand, {{kVideoSettings, 85}, {kTvWall, 170}}},
    {33, kAnyBrand, {{kVideoSettings, 85}, {kTvWall, 170}}},
    {30, kAnyBrand, {{kVideoSettings, 45}, {kTvWall, 105}, {kGenlock, 165}, {kRoi, 225}}},
    {43, kAnyBrand, {{kVideoSettings, 45}, {kTvWall, 105}, {kGenlock, 165}, {kRoi, 225}}},
    {39, kAnyBrand, {{kVideoSettings, 45}, {kTvWall, 105}, {kGenlock, 165}, {kRoi, 225}}},
    {40, kAnyBrand, {{kVideoSettings, 60}, {kTvWall, 130}, {kGenlock, 200}}},
    {46, kAnyBrand, {{kVideoSettings, 45}, {kTvWall, 105}, {kGenlock, 165}, {kRoi, 225}}},
    {47, kAnyBrand, {{kVideoSettings, 45}, {kTvWall, 105}, {kGenlock, 165}, {kRoi, 225}}},
    {48, kAnyBrand, {{kVideoSettings, 45}, {kTvWall, 105}, {kGenlock, 165}, {kRoi, 225}}},
    {49, kAnyBrand, {{kVideoSettings, 45}, {kTvWall, 105}, {kGenlock, 165}, {kRoi, 225}}},
    {23, kAnyBrand, {{kVideoSettings, 60}, {kImageAdjust, 130}, {kRoi, 200}}},
    {24, kAnyBrand, {{kVideoSettings, 60}, {kImageAdjust, 130}, {kRoi, 200}}},
    {25, kAnyBrand, {{kVideoSettings, 60}, {kImageAdjust, 130}, {kRoi, 200}}},
    {29, kAnyBrand, {{kVideoSettings, 60}, {kImageAdjust, 130}, {kRoi, 200}}},
    {34, kAnyBrand, {{kVideoSettings, 60}, {kImageAdjust, 130}, {kRoi, 200}}},
    {42, kAnyBrand, {{kVideoSettings, 60}, {kImageAdjust, 130}, {kRoi, 200}}},
    {kAnyType, kAnyBrand, {{kVideoSettings, 125}}},
};

const LayoutRow& LayoutOf(const Identity& identity) {
  const LayoutRow* row = kLayouts;
  while (row->boxType != kAnyType &&
         (row->boxType != identity.boxType ||
          (row->brandCode != kAnyBrand && row->brandCode != identity.brandCode))) {
    ++row;
  }
  return *row;
}

}  // namespace

CVideoMenuDlg::CVideoMenuDlg(PanelContext context, VideoPages& thePages)
    : Page(res::kVideoMenu, context), pages(thePages) {}

void CVideoMenuDlg::Init(ui::SerialHandle serial) {
  TakeHandle();
  serialHandle = serial;
  for (const ButtonRow& row : kButtons) Window().SetPictures(row.control, row.up, row.down);
  const std::uint8_t boxType = panel.identity.boxType;
  if (boxType == 13 || boxType == 15) {
    BlockBuffer
        multiView{};  // asked for when the menu is prepared; the menu itself uses none of it
    Read(Block(block::kMultiView, 20), multiView);
  }
  LayOut();
}

void CVideoMenuDlg::LayOut() {
  for (const ButtonRow& row : kButtons) Window().ShowControl(row.control, false);
  Window().PlaceControl(kFrame, {45, 30, 390, 250});
  for (const ButtonPlace& place : LayoutOf(panel.identity).places) {
    if (place.control == 0) continue;
    Window().PlaceControl(place.control, {60, place.y, 360, 50});
    Window().ShowControl(place.control, true);
  }
}

void CVideoMenuDlg::OnCommand(int control, ui::Notification what) {
  static constexpr CommandRow<CVideoMenuDlg> kCommands[] = {
      {kVideoSettings, &CVideoMenuDlg::OnVideoSettings},
      {kDisplayMode, &CVideoMenuDlg::OnDisplayMode},
      {kTvWall, &CVideoMenuDlg::OnTvWall},
      {kPip, &CVideoMenuDlg::OnPip},
      {kGenlock, &CVideoMenuDlg::OnGenlock},
      {kImageAdjust, &CVideoMenuDlg::OnImageAdjust},
      {kRoi, &CVideoMenuDlg::OnRoi},
  };
  lastButton = control;
  DispatchCommand(*this, kCommands, control, what);
}

}  // namespace panelora
