#include "app/main_dlg.h"

#include <algorithm>

#include "app/navigation.h"
#include "catalogue/codecs.h"
#include "catalogue/multiview.h"
#include "pages/caption.h"
#include "res/dialog_templates.h"

namespace panelora {

namespace {

constexpr char kTitle[] = "Corvane RXC-9 Center ( 1.0.2.6 )";
constexpr char kLogo[] = "Logo";

constexpr int kMonitorTimer = 1;
constexpr int kMonitorPeriod = 3000;  // ms

constexpr int kAboutCommand = 16;

constexpr int kClientWidth = 600;
constexpr int kClientHeight = 375;
constexpr ui::Rect kPictureStrip = {0, 0, 600, 65};
constexpr ui::Rect kWholeClient = {0, 0, kClientWidth, kClientHeight};
constexpr ui::Rect kPageArea = {110, 65, 540, 335};
// Below the last navigation button, above Refresh.
constexpr ui::Rect kRailPlace = {0, 65, 110, 310};
constexpr ui::Rect kMarkPlace = {0, 270, 110, 48};
constexpr ui::Rect kDotsPlace = {0, 320, 110, 14};

}  // namespace

CMainDlg::CMainDlg(DeviceLink& theDevice, ui::Toolkit& theToolkit,
                   std::span<const std::uint8_t> theAdmittedTypes)
    : device(theDevice), toolkit(theToolkit), admittedTypes(theAdmittedTypes), about(theToolkit) {}

CMainDlg::~CMainDlg() {
  // While everything that hears of it still exists.
  if (window != nullptr) window->Close();
  for (Page* page : pages) page->Destroy();
}

bool CMainDlg::IsAdmitted(std::uint8_t boxType) const {
  return std::find(admittedTypes.begin(), admittedTypes.end(), boxType) != admittedTypes.end();
}

bool CMainDlg::Init() {
  window = toolkit.CreateDialogFrom(res::kMain, *this, nullptr);
  if (!window->IsOpen()) return false;
  const std::string aboutText = toolkit.String(res::kAboutMenuText);
  if (!aboutText.empty()) window->AddSystemMenuItem(kAboutCommand, aboutText);
  window->SetIcon(res::kIcon);

  panel.identity.boxType = kNoBoxType;
  panel.deviceHandle = device.Open(kOpenMode);
  connected = panel.deviceHandle != kNoBox;
  ReadIdentity();
  if (!IsAdmitted(panel.identity.boxType)) {
    connected = false;
    panel.identity.boxType = kNoBoxType;
  }

  window->ResizeClient(kClientWidth, kClientHeight);
  window->SetTitle(kTitle);
  if (!CreatePages()) return false;
  SetFirstTexts();
  PlaceButtonsAtHome();
  for (const NavigationButton& button : kNavigationButtons) {
    window->SetPictures(button.control, button.up, button.down);
    ShowButton(button.control, button.shownAtStart);
  }
  ApplyDevicePicture();
  pageCode = PageCode::kInformation;
  ShowPlaceOnRail();
  if (!connected) ShowDisconnectedLook();
  timerRuns = window->StartTimer(kMonitorTimer, kMonitorPeriod);
  return true;
}

// True when the box answered. The bytes are stored only when byte 0 is another box type than the
// one that is known, on purpose: while a model stays known its other bytes keep. A lost box is not:
// its type is 255 by then.
bool CMainDlg::ReadIdentity() {
  BlockBuffer bytes{};
  if (!Box(device, panel.deviceHandle).Read(kIdentityBlock, bytes)) return false;
  const Identity told = DecodeIdentity(bytes);
  if (told.boxType != panel.identity.boxType) {
    panel.identity = told;
    panel.identityPair = {told.boxType, told.brandCode};
  }
  return true;
}

bool CMainDlg::CreatePages() {
  // In the order of their templates, all in the same place; only the first stays shown.
  Page* const byTemplate[] = {&information,   &videoMenu,   &audio,     &procAmp, &setting,
                              &videoSettings, &displayMode, &tvWall,    &pip,     &genlock,
                              &imageAdjust,   &roi,         &textLabels};
  for (Page* page : byTemplate) {
    if (!page->Create(*window)) return false;
    page->Place(kPageArea, kPictureButton);
  }
  InitPages();
  imageAdjust.Init();
  roi.Init();
  textLabels.Init();
  for (Page* page : pages) page->Show(page == &information);
  return true;
}

// The initialisations that the start and every connection change have in common.
void CMainDlg::InitPages() {
  information.Init();
  information.Refresh(panel.serialHandle);
  videoMenu.Init(panel.serialHandle);
  audio.Init();
  panel.procAmpCache = kProcAmpStart;
  procAmp.Init(panel.serialHandle, panel.procAmpCache);
  setting.Init();
  videoSettings.Init();
  displayMode.Init(0);  // no serial port
  pip.Init(panel.serialHandle);
  genlock.Init();
}

void CMainDlg::SetFirstTexts() {
  SetCaption(*window, kPictureButton, kLogo);
  window->PlaceControl(kPictureButton, kPictureStrip);
  SetCaption(*window, kSerialPicture, kLogo);
  window->PlaceControl(kSerialPicture, {110, 65, 490, 310});
  window->SetPictures(kSerialPicture, "NULL_RS485", "NULL_RS485");
  window->ShowControl(kSerialPicture, false);
  SetCaption(*window, kPortList, "");
  window->PlaceControl(kPortList, {500, 20, 80, 20});
  window->ShowControl(kPortList, false);
  for (const NavigationButton& button : kNavigationButtons) {
    if (button.caption != nullptr) SetCaption(*window, button.control, button.caption);
  }
  window->SetPictures(kRail, "RAIL", "RAIL");
  window->PlaceControl(kRail, kRailPlace);
  window->PlaceControl(kPageMark, kMarkPlace);
  window->PlaceControl(kSubPageDots, kDotsPlace);
  // The buttons of the other pages are shown beside it on Information alone.
  window->SetMark(kInformationButton, ui::Mark::kCurrent);
}

void CMainDlg::PlaceButtonsAtHome() {
  for (const NavigationButton& button : kNavigationButtons) {
    window->PlaceControl(button.control, button.home);
  }
}

void CMainDlg::ApplyDevicePicture() {
  bool pipMark = false;
  if (PictureNeedsMultiViewBlock(panel.identity)) {
    BlockBuffer multiView{};
    if (Box(device, panel.deviceHandle).Read(multiview::kModes, multiView)) {
      panel.fittedOption = multiView[2];
      pipMark = multiView[1] == 1;
    }
  }
  const PictureChoice choice = ChoosePicture(panel.identity, pipMark);
  if (choice.newSubModel) panel.identity.subModel = *choice.newSubModel;
  window->SetPictures(kPictureButton, choice.picture, choice.picture);
  ChangeNavigation(choice.change);
  if (choice.showsRefresh) ShowButton(kRefreshButton);
}

void CMainDlg::ChangeNavigation(NavigationChange change) {
  switch (change) {
    case NavigationChange::kNone:
      break;
    case NavigationChange::kNoProcAmp:
      MoveButton(kSettingButton, 185);
      ShowButton(kProcAmpButton, false);
      MoveButton(kProcAmpButton, 225);
      break;
    case NavigationChange::kNoProcAmpNoAudio:
      MoveButton(kSettingButton, 145);
      ShowButton(kProcAmpButton, false);
      MoveButton(kProcAmpButton, 185);
      ShowButton(kAudioButton, false);
      MoveButton(kAudioButton, 225);
      break;
    case NavigationChange::kNoAudio:
      ShowButtonAt(kProcAmpButton, 145);
      MoveButton(kSettingButton, 185);
      ShowButton(kAudioButton, false);
      MoveButton(kAudioButton, 225);
      break;
  }
}

void CMainDlg::OnTimer(int /*timer*/) {
  if (panel.tickSkip > 0) {
    --panel.tickSkip;
    return;
  }
  panel.deviceHandle = device.Open(kOpenMode);
  const bool found = panel.deviceHandle != kNoBox;
  // A disconnection that was forced while there was no box waits for the tick that finds one.
  const bool changes = connected ? !found || panel.forceDisconnect : found;
  if (!changes) return;

  if (panel.forceDisconnect) {
    panel.forceDisconnect = false;
    panel.identity.boxType = kNoBoxType;
  } else if (!ReadIdentity()) {
    panel.identity.boxType = kNoBoxType;
  }
  const bool nowConnected = IsAdmitted(panel.identity.boxType);  // no box is not
  if (!nowConnected) panel.identity.boxType = kNoBoxType;
  if (nowConnected == connected) return;
  connected = nowConnected;
  ChangeConnection();
}

void CMainDlg::ChangeConnection() {
  PlaceButtonsAtHome();
  ResetSubPages();
  InitPages();
  window->PlaceControl(kPictureButton, kPictureStrip);
  HideAllPages();
  for (const NavigationButton& button : kNavigationButtons) {
    if (button.shownAtStart) ShowButton(button.control);
  }
  information.Show(true);
  ApplyDevicePicture();
  pageCode = PageCode::kInformation;
  if (connected) {
    ShowRail(true);
    OnInformation();
  } else {
    ShowDisconnectedLook();
  }
}

// The picture of "no box" covers the whole client area, also at a start whose open failed although
// the box told its identity.
void CMainDlg::ShowDisconnectedLook() {
  information.Show(false);
  HideAllButtons();
  ShowRail(false);
  window->SetPictures(kPictureButton, kNullBoxPicture, kNullBoxPicture);
  window->PlaceControl(kPictureButton, kWholeClient);
}

bool CMainDlg::OnSystemCommand(int command) {
  if (command != kAboutCommand) return false;
  about.Run(*window);
  return true;
}

void CMainDlg::OnCloseRequest() { window->Close(); }

void CMainDlg::OnDestroy() {
  if (timerRuns) window->StopTimer(kMonitorTimer);
  timerRuns = false;
  if (videoSettings.IsOpen()) videoSettings.StopTimer();  // the start may have ended before it
}

}  // namespace panelora
