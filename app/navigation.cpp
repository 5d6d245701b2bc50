// The navigation bar: which page each button shows, with which buttons, and what Apply, Default,
// Refresh and Page Up do on it.
#include "app/navigation.h"

#include <algorithm>
#include <iterator>

#include "app/main_dlg.h"
#include "device/box_types.h"
#include "device/properties.h"
#include "pages/multiview/wall_store.h"

namespace panelora {

namespace {

constexpr std::uint16_t kSkipAfterRefresh = 2;
constexpr std::uint16_t kSkipAfterApply = 5;

// Firmware from which the Video button stays on the Video menu.
constexpr std::uint32_t kVideoMenuFirmware = 274;
// Firmware from which the Setting page has something to apply.
constexpr std::uint32_t kSettingApplyFirmware = 281;

// Models whose Information look lacks a button.
constexpr BoxTypes kWithoutAudio = {5, 19, 27};
constexpr BoxTypes kWithoutProcAmp = {5, 6, 7, 27, 52, 53, 54, 55};

// Models that report the four picture values one by one.
constexpr BoxTypes kSingleProcAmp = {13, 14, 15, 17, 18, 19, 20, 30, 32, 33, 35, 36, 43, 48, 49};
// Models that are not asked for their picture values, which stand in the middle; 5 and 27 are asked
// and have none either.
constexpr BoxTypes kUnaskedProcAmp = {6, 7};

constexpr BoxTypes kThreeVideoSubPagesOfBrand2 = {24, 34};
constexpr BoxTypes kThreeVideoSubPagesOfOthers = {37, 38};

bool HasThreeVideoSubPages(const Identity& identity) {
  const BoxTypes& types =
      identity.brandCode == 2 ? kThreeVideoSubPagesOfBrand2 : kThreeVideoSubPagesOfOthers;
  return types.Has(identity.boxType);
}

}  // namespace

void CMainDlg::OnCommand(int control, ui::Notification what) {
  static constexpr CommandRow<CMainDlg> kCommands[] = {
      {kInformationButton, &CMainDlg::OnInformation},
      {kVideoButton, &CMainDlg::OnVideo},
      {kAudioButton, &CMainDlg::OnAudio},
      {kProcAmpButton, &CMainDlg::OnProcAmp},
      {kSettingButton, &CMainDlg::OnSetting},
      {kReturnButton, &CMainDlg::OnReturn},
      {kApplyButton, &CMainDlg::OnApply},
      {kDefaultButton, &CMainDlg::OnDefault},
      {kRefreshButton, &CMainDlg::OnRefresh},
      {kPictureButton, &CMainDlg::OnRefresh},
      {kPageUpButton, &CMainDlg::OnPageUp},
      {kWall1Button, &CMainDlg::OnWall1},
      {kWall2Button, &CMainDlg::OnWall2},
      {kWall3Button, &CMainDlg::OnWall3},
      {kWall4Button, &CMainDlg::OnWall4},
      {kPortList, &CMainDlg::OnPortChosen, ui::Notification::kSelectionChanged},
  };
  const bool leads = std::any_of(
      std::begin(kNavigationButtons), std::end(kNavigationButtons),
      [&](const NavigationButton& row) { return row.control == control && row.shownAtStart; });
  if (leads) lastHomeButton = control;
  DispatchCommand(*this, kCommands, control, what);
}

Page& CMainDlg::PageOf(PageCode code) {
  switch (code) {
    case PageCode::kInformation:
      return information;
    case PageCode::kVideoMenu:
      return videoMenu;
    case PageCode::kAudio:
      return audio;
    case PageCode::kProcAmp:
      return procAmp;
    case PageCode::kSetting:
      return setting;
    case PageCode::kTvWall:
      return tvWall;
    case PageCode::kDisplayMode:
      return displayMode;
    case PageCode::kVideoSettings:
      return videoSettings;
    case PageCode::kPip:
      return pip;
    case PageCode::kGenlock:
      return genlock;
    case PageCode::kImageAdjust:
      return imageAdjust;
    case PageCode::kRoi:
      return roi;
    case PageCode::kTextLabels:
      return textLabels;
  }
  return information;
}

void CMainDlg::HideAllButtons() {
  for (const NavigationButton& button : kNavigationButtons) ShowButton(button.control, false);
}

void CMainDlg::HideAllPages() {
  for (int code = 0; code <= static_cast<int>(PageCode::kTextLabels); ++code) {
    PageOf(static_cast<PageCode>(code)).Show(false);
  }
}

void CMainDlg::MoveButton(int control, int y) {
  window->PlaceControl(control, {0, y, kButtonWidth, kButtonHeight});
}

void CMainDlg::ShowButtonAt(int control, int y) {
  MoveButton(control, y);
  ShowButton(control);
}

// The five buttons of the Information look, as far as the model has them.
void CMainDlg::ShowHomeButtons() {
  ShowButton(kInformationButton);
  ShowButton(kVideoButton);
  ShowButton(kAudioButton, !kWithoutAudio.Has(panel.identity.boxType));
  ShowButton(kProcAmpButton, !kWithoutProcAmp.Has(panel.identity.boxType));
  ShowButton(kSettingButton);
}

void CMainDlg::OnInformation() {
  pageCode = PageCode::kInformation;
  ResetSubPages();
  information.Refresh(panel.serialHandle);
  ShowHomeButtons();
  ShowButton(kReturnButton, false);
  ShowButton(kDefaultButton, false);
  // The pages of templates 104 to 110; the others keep their state.
  Page* const hidden[] = {&videoMenu,     &audio,       &procAmp, &setting,
                          &videoSettings, &displayMode, &tvWall};
  for (Page* page : hidden) page->Show(false);
  information.Show(true);
}

void CMainDlg::EnterPage(PageCode code) {
  pageCode = code;
  HideAllButtons();
  HideAllPages();
}

void CMainDlg::OnVideo() {
  pageCode = PageCode::kVideoMenu;
  videoMenu.Init(panel.serialHandle);
  HideAllButtons();
  HideAllPages();
  ShowButton(kReturnButton);
  videoMenu.Show(true);
  videoMenu.FocusFirst();
  if (!IsModel26()) return;
  if (panel.firmwareVersion >= kVideoMenuFirmware) {
    MoveButton(kReturnButton, 65);
  } else {
    ShowVideoSettings();
  }
}

void CMainDlg::OnAudio() {
  EnterPage(PageCode::kAudio);
  audio.Init();
  ShowButtonAt(kApplyButton, 65);
  MoveButton(kReturnButton, 105);
  audio.Refresh(panel.serialHandle);
  ShowButton(kReturnButton);
  audio.Show(true);
  audio.FocusFirst();
}

void CMainDlg::OnProcAmp() {
  OpenProcAmp();
  procAmp.FocusFirst();
}

void CMainDlg::OpenProcAmp() {
  pageCode = PageCode::kProcAmp;
  ReadProcAmpCache();
  HideAllButtons();
  HideAllPages();
  procAmp.Init(panel.serialHandle, panel.procAmpCache);
  ShowButtonAt(kDefaultButton, 65);
  int next = 105;
  if (panel.identity.brandCode == 2) {
    ShowButtonAt(kApplyButton, next);
    next += kButtonHeight;
  }
  ShowButtonAt(kReturnButton, next);
  // Without Page Up the RGB view of model 26 could not be reached.
  if (IsModel26()) ShowButtonAt(kPageUpButton, next + kButtonHeight);
  procAmp.Show(true);
}

// Values that the box does not tell are 128, the second RGB offset 0; the bytes behind those read
// keep their earlier values.
void CMainDlg::ReadProcAmpCache() {
  ProcAmpCache& cache = panel.procAmpCache;
  const std::uint8_t boxType = panel.identity.boxType;
  ProcAmpBytes picture;
  if (kSingleProcAmp.Has(boxType)) {
    const auto read = [&](std::uint32_t control, std::uint8_t& value) {
      WordBuffer words{};
      if (device.GetVideoProcAmp(panel.deviceHandle, kBoxGroup, control, words) == kSuccess) {
        value = static_cast<std::uint8_t>(words[0] & 0xFF);
      }
    };
    read(proc_amp::kBrightness, picture.brightness);
    read(proc_amp::kContrast, picture.contrast);
    read(proc_amp::kHue, picture.hue);
    read(proc_amp::kSaturation, picture.saturation);
  } else if (!kUnaskedProcAmp.Has(boxType)) {
    device.GetKiraboxProcAmp(panel.deviceHandle, picture);
  }
  cache[0] = picture.brightness;
  cache[1] = picture.contrast;
  cache[2] = picture.hue;
  cache[3] = picture.saturation;
  if (!IsModel26()) return;

  constexpr std::uint8_t kRgbStart[] = {128, 128, 0};
  BlockBuffer rgb{};
  const bool read =
      device.GetKiraboxProperty(panel.deviceHandle, block::kRgb, kNoSub, 3, rgb) == kSuccess;
  for (std::size_t i = 0; i < 3; ++i) cache[4 + i] = read ? rgb[i] : kRgbStart[i];
}

void CMainDlg::OnSetting() {
  EnterPage(PageCode::kSetting);
  setting.Init();
  setting.Refresh(panel.serialHandle);
  ShowButton(kReturnButton);
  // Below that firmware model 26 has nothing to apply, and Return stays where it was last.
  if (!IsModel26() || panel.firmwareVersion >= kSettingApplyFirmware) {
    ShowButtonAt(kApplyButton, 65);
    MoveButton(kReturnButton, 105);
  }
  setting.Show(true);
  setting.FocusFirst();
}

void CMainDlg::OnReturn() {
  HideAllButtons();
  HideAllPages();
  const PageCode left = pageCode;
  LeaveCurrentPage();
  if (left <= PageCode::kSetting || left == PageCode::kTextLabels) {
    ReturnToInformation();
  } else {
    ReturnFromVideoPage();
  }
  ResetSubPages();
}

void CMainDlg::LeaveCurrentPage() {
  switch (pageCode) {
    case PageCode::kVideoSettings:
      videoSettings.StopTimer();
      break;
    case PageCode::kProcAmp:
      procAmp.Leave();
      break;
    case PageCode::kAudio:
      audio.Leave();
      break;
    case PageCode::kGenlock:
      genlock.RestoreDelays();
      break;
    default:
      break;
  }
}

void CMainDlg::ReturnToInformation() {
  information.Refresh(panel.serialHandle);
  MoveButton(kReturnButton, 65);
  ShowHomeButtons();
  information.Show(true);
  window->Focus(lastHomeButton);
  pageCode = PageCode::kInformation;
  if (ChoosePicture(panel.identity, false).showsRefresh) ShowButton(kRefreshButton);
}

void CMainDlg::ReturnFromVideoPage() {
  if (IsModel26() && panel.firmwareVersion < kVideoMenuFirmware) {
    information.Refresh(panel.serialHandle);
    information.Show(true);
    ShowHomeButtons();
    window->Focus(lastHomeButton);
    MoveButton(kReturnButton, 105);
    MoveButton(kApplyButton, 65);
    MoveButton(kPageUpButton, 145);
    pageCode = PageCode::kInformation;
    return;
  }
  ShowButtonAt(kReturnButton, 65);
  videoMenu.Show(true);
  videoMenu.FocusLastButton();
  pageCode = PageCode::kVideoMenu;
}

// Back on Information or the Video menu, so that Page Up is never out of step with what is shown.
void CMainDlg::ResetSubPages() {
  panel.cycleState = 0;
  videoSettings.SetSubPage(0);
  procAmp.SetViewMode(0);
  displayMode.ResetView();
}

void CMainDlg::OnApply() {
  PageOf(pageCode).Apply();
  panel.tickSkip = kSkipAfterApply;
}

void CMainDlg::OnDefault() {
  panel.tickSkip = kSkipAfterRefresh;
  switch (pageCode) {
    case PageCode::kPip:
      pip.RestoreDefaults();
      OnRefresh();
      break;
    case PageCode::kGenlock:
    case PageCode::kRoi:
    case PageCode::kImageAdjust:
    case PageCode::kSetting:
    case PageCode::kDisplayMode:
    case PageCode::kAudio:
    case PageCode::kTextLabels:
      PageOf(pageCode).RestoreDefaults();
      break;
    default:
      procAmp.RestoreDefaults();  // deliberate: Default on any other page acts on the proc amp
      break;
  }
}

void CMainDlg::OnRefresh() {
  switch (pageCode) {
    case PageCode::kVideoMenu:
    case PageCode::kTextLabels:
      break;
    case PageCode::kProcAmp:
      OpenProcAmp();  // the keyboard stays where it is
      break;
    case PageCode::kTvWall:
      OpenTvWall();
      break;
    default:
      PageOf(pageCode).Refresh(panel.serialHandle);
      break;
  }
  panel.tickSkip = kSkipAfterRefresh;
}

void CMainDlg::OnPageUp() {
  switch (pageCode) {
    case PageCode::kDisplayMode:
      panel.cycleState = panel.cycleState == 0 ? 1 : 0;
      displayMode.ShowView(panel.cycleState);
      displayMode.Refresh(panel.serialHandle);
      break;
    case PageCode::kProcAmp:
      panel.cycleState = panel.cycleState == 0 ? 1 : 0;
      procAmp.SetViewMode(panel.cycleState);
      break;
    case PageCode::kVideoSettings:
      panel.cycleState = (panel.cycleState + 1) % (HasThreeVideoSubPages(panel.identity) ? 3 : 2);
      videoSettings.SetSubPage(panel.cycleState);
      videoSettings.Refresh(panel.serialHandle);
      break;
    default:
      break;
  }
}

void CMainDlg::ChooseWall(std::uint8_t size) {
  panel.wallSize = size;
  panel.tilePosition = 0;
  tvWall.Layout();
}

void CMainDlg::ShowVideoSettings() {
  EnterPage(PageCode::kVideoSettings);
  panel.cycleState = 0;
  videoSettings.SetSubPage(0);
  videoSettings.Refresh(panel.serialHandle);
  ShowButtonAt(kPageUpButton, 65);
  ShowButtonAt(kApplyButton, 105);
  ShowButtonAt(kReturnButton, 145);
  videoSettings.Show(true);
  videoSettings.FocusFirst();
}

// What the pages with defaults of their own have in common.
void CMainDlg::ShowSubPageButtons() {
  ShowButtonAt(kApplyButton, 65);
  ShowButtonAt(kDefaultButton, 105);
  ShowButtonAt(kReturnButton, 145);
}

void CMainDlg::ShowTvWall() {
  OpenTvWall();
  tvWall.FocusFirst();
}

void CMainDlg::OpenTvWall() {
  EnterPage(PageCode::kTvWall);
  ReadWallLayout();
  tvWall.Init();
  for (const int button : {kWall1Button, kWall2Button, kWall3Button, kWall4Button}) {
    ShowButton(button);
  }
  ShowButtonAt(kReturnButton, 225);
  tvWall.Show(true);
}

// A failed read keeps the earlier layout, and so does a size that no wall has: what is shown can
// still be pressed.
void CMainDlg::ReadWallLayout() {
  const WallStore* store = FindWallStore(panel.identity.boxType);
  if (store == nullptr) return;
  const Box box(device, panel.deviceHandle);
  std::uint8_t size = panel.wallSize;
  std::uint8_t tile = panel.tilePosition;
  if (store->block != 0) {
    BlockBuffer wall{};
    if (box.Read(Block(store->block, 20), wall)) {
      size = wall[0];
      tile = wall[1];
    }
  } else {
    box.Read(Word(store->sizeItem), size);
    box.Read(Word(store->tileItem), tile);
  }
  if (size < 1 || size > kMaxWallSize) return;
  panel.wallSize = size;
  panel.tilePosition = tile;
}

template <class SubPage>
void CMainDlg::OpenSubPage(PageCode code, SubPage& page) {
  EnterPage(code);
  page.OnShowFromMenu();
  ShowSubPageButtons();
  page.Show(true);
  page.FocusFirst();
}

void CMainDlg::ShowDisplayMode() {
  OpenSubPage(PageCode::kDisplayMode, displayMode);
  ShowButtonAt(kPageUpButton, 185);
}

void CMainDlg::ShowPip() { OpenSubPage(PageCode::kPip, pip); }

void CMainDlg::ShowGenlock() { OpenSubPage(PageCode::kGenlock, genlock); }

void CMainDlg::ShowImageAdjust() { OpenSubPage(PageCode::kImageAdjust, imageAdjust); }

void CMainDlg::ShowRoi() { OpenSubPage(PageCode::kRoi, roi); }

void CMainDlg::ShowTextLabels() { OpenSubPage(PageCode::kTextLabels, textLabels); }

// The port is bound to the pages; nothing is sent to or read from it.
void CMainDlg::OnPortChosen() {
  const std::string name = window->ItemText(kPortList, window->SelectedItem(kPortList));
  if (panel.serialHandle != ui::kInvalidSerial) toolkit.CloseSerial(panel.serialHandle);
  panel.serialHandle = toolkit.OpenSerial(name);
  if (panel.serialHandle == ui::kInvalidSerial) return;
  window->ShowControl(kSerialPicture, false);
  OnInformation();
  displayMode.Init(panel.serialHandle);
}

}  // namespace panelora
