// The navigation bar: which page each button shows, with which buttons, and what Apply, Default,
// Refresh and Page Up do on it.
#include "app/navigation.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "app/main_dlg.h"
#include "catalogue/menu.h"

namespace panelora {

namespace {

constexpr std::uint16_t kSkipAfterRefresh = 2;
constexpr std::uint16_t kSkipAfterApply = 5;

// Firmware from which the Video button stays on the Video menu.
constexpr std::uint32_t kVideoMenuFirmware = 274;
// Firmware from which the Setting page has something to apply.
constexpr std::uint32_t kSettingApplyFirmware = 281;

// What Default does on a page, and what Refresh does.
enum class DefaultDoes : std::uint8_t { kProcAmp, kOwn, kOwnThenRefresh };
enum class RefreshDoes : std::uint8_t { kRead, kReopen, kNothing };

// A button that a page shows, and its top; or where it stood last.
constexpr int kStays = -1;
struct ButtonPlace {
  int control = 0;
  int y = kStays;
};

struct PageRow {
  DefaultDoes onDefault;
  RefreshDoes onRefresh;
  const char* mark;
  std::array<ButtonPlace, 5> buttons;
};

using enum DefaultDoes;
using enum RefreshDoes;

constexpr std::array<ButtonPlace, 5> kThreeButtons = {
    {{kApplyButton, 65}, {kDefaultButton, 105}, {kReturnButton, 145}}};

// By page code. That Default acts on the proc amp on pages without a default is deliberate. What
// the model, its brand or its firmware adds or moves is code: see PlaceButtonsOf and OnVideo.
constexpr PageRow kPages[] = {
    /* Information   */ {kProcAmp, kRead, "MARK_INFORMATION", {}},
    /* Video menu    */ {kProcAmp, kNothing, "MARK_VIDEO", {{{kReturnButton}}}},
    /* Audio         */ {kOwn, kRead, "MARK_AUDIO", {{{kApplyButton, 65}, {kReturnButton, 105}}}},
    /* Proc Amp      */ {kProcAmp, kReopen, "MARK_PROC_AMP", {{{kDefaultButton, 65}}}},
    /* Setting       */ {kOwn, kRead, "MARK_SETTING", {{{kReturnButton}}}},
    /* TV Wall       */
    {kProcAmp,
     kReopen,
     "MARK_TV_WALL",
     {{{kWall1Button}, {kWall2Button}, {kWall3Button}, {kWall4Button}, {kReturnButton, 225}}}},
    /* Display Mode  */
    {kOwn,
     kRead,
     "MARK_DISPLAY_MODE",
     {{{kApplyButton, 65}, {kDefaultButton, 105}, {kReturnButton, 145}, {kPageUpButton, 185}}}},
    /* Video settings */
    {kProcAmp,
     kRead,
     "MARK_VIDEO_SETTINGS",
     {{{kPageUpButton, 65}, {kApplyButton, 105}, {kReturnButton, 145}}}},
    /* PIP           */ {kOwnThenRefresh, kRead, "MARK_PIP", kThreeButtons},
    /* Genlock       */ {kOwn, kRead, "MARK_GENLOCK", kThreeButtons},
    /* Image Adjust  */ {kOwn, kRead, "MARK_IMAGE_ADJUST", kThreeButtons},
    /* ROI           */ {kOwn, kRead, "MARK_ROI", kThreeButtons},
    /* Text Labels   */ {kOwn, kNothing, "MARK_TEXT_LABELS", kThreeButtons},
};

const PageRow& RowOf(PageCode code) { return kPages[static_cast<std::size_t>(code)]; }

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

// Keys press what is there to be pressed: a page without Apply has nothing to apply.
bool CMainDlg::OnKey(ui::Key key) {
  switch (key) {
    case ui::Key::kBack:
      return window->PressIfShown(kReturnButton);
    case ui::Key::kApply:
      return window->PressIfShown(kApplyButton);
    case ui::Key::kNextPage:
      return window->PressIfShown(kPageUpButton);
    case ui::Key::kRefresh:  // the picture refreshes where there is no button for it
      return window->PressIfShown(kRefreshButton) || window->PressIfShown(kPictureButton);
    case ui::Key::kHelp:
      return toolkit.OpenGuide();
    default:
      return false;
  }
}

void CMainDlg::HideAllButtons() {
  for (const NavigationButton& button : kNavigationButtons) ShowButton(button.control, false);
}

void CMainDlg::HideAllPages() {
  for (Page* page : pages) page->Show(false);
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
  ShowButton(kAudioButton, !menu::kWithoutAudio.Has(panel.identity.boxType));
  ShowButton(kProcAmpButton, !menu::kWithoutProcAmp.Has(panel.identity.boxType));
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
  ShowPlaceOnRail();
}

void CMainDlg::OpenPage(PageCode code) {
  ReopenPage(code);
  PageOf(code).FocusFirst();
}

// The keyboard stays where it is.
void CMainDlg::ReopenPage(PageCode code) {
  pageCode = code;
  HideAllButtons();
  HideAllPages();
  ShowPending(false);  // until the page says otherwise
  PageOf(code).Open();
  if (code == PageCode::kTvWall) MarkWallButtons();
  PlaceButtonsOf(code);
  PageOf(code).Show(true);
  ShowPlaceOnRail();
}

void CMainDlg::PlaceButtonsOf(PageCode code) {
  for (const ButtonPlace& place : RowOf(code).buttons) {
    if (place.control == 0) continue;
    if (place.y != kStays) MoveButton(place.control, place.y);
    ShowButton(place.control);
  }
  if (code == PageCode::kProcAmp) {
    // Brand 2 has edits to apply, and without Page Up the RGB view of model 26 could not be
    // reached.
    int next = 105;
    if (panel.identity.brandCode == 2) {
      ShowButtonAt(kApplyButton, next);
      next += kButtonHeight;
    }
    ShowButtonAt(kReturnButton, next);
    if (IsModel26()) ShowButtonAt(kPageUpButton, next + kButtonHeight);
  }
  // Below that firmware model 26 has nothing to apply, and Return stays where it was last.
  if (code == PageCode::kSetting &&
      (!IsModel26() || panel.firmwareVersion >= kSettingApplyFirmware)) {
    ShowButtonAt(kApplyButton, 65);
    MoveButton(kReturnButton, 105);
  }
}

bool CMainDlg::HasPageUp(PageCode code) const {
  const auto& buttons = RowOf(code).buttons;
  return (code == PageCode::kProcAmp && IsModel26()) ||
         std::any_of(buttons.begin(), buttons.end(),
                     [](const ButtonPlace& each) { return each.control == kPageUpButton; });
}

// The mark of the page, and a dot for each sub-page that Page Up leads to.
void CMainDlg::ShowPlaceOnRail() {
  constexpr int kMost = 3;
  static constexpr const char* kDots[kMost][kMost] = {
      {}, {"DOTS_1_OF_2", "DOTS_2_OF_2"}, {"DOTS_1_OF_3", "DOTS_2_OF_3", "DOTS_3_OF_3"}};
  const char* mark = RowOf(pageCode).mark;
  window->SetPictures(kPageMark, mark, mark);
  const int subPages = HasPageUp(pageCode) ? PageOf(pageCode).SubPages() : 1;
  window->ShowControl(kSubPageDots, subPages > 1);
  if (subPages < 2) return;
  const char* dots = kDots[subPages - 1][panel.cycleState];
  window->SetPictures(kSubPageDots, dots, dots);
}

void CMainDlg::ShowRail(bool shown) {
  window->ShowControl(kRail, shown);
  window->ShowControl(kPageMark, shown);
  if (shown) {
    ShowPlaceOnRail();
  } else {
    window->ShowControl(kSubPageDots, false);
  }
}

void CMainDlg::OnVideo() {
  OpenPage(PageCode::kVideoMenu);
  if (!IsModel26()) return;
  if (panel.firmwareVersion >= kVideoMenuFirmware) {
    MoveButton(kReturnButton, 65);
  } else {
    OpenPage(PageCode::kVideoSettings);
  }
}

void CMainDlg::OnReturn() {
  HideAllButtons();
  HideAllPages();
  const PageCode left = pageCode;
  PageOf(left).Leave();
  if (left <= PageCode::kSetting || left == PageCode::kTextLabels) {
    ReturnToInformation();
  } else {
    ReturnFromVideoPage();
  }
  ResetSubPages();
  ShowPlaceOnRail();
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
  procAmp.SetSubPage(0);
  displayMode.ResetView();
}

void CMainDlg::OnApply() {
  PageOf(pageCode).Apply();
  panel.tickSkip = kSkipAfterApply;
}

void CMainDlg::OnDefault() {
  panel.tickSkip = kSkipAfterRefresh;
  const DefaultDoes what = RowOf(pageCode).onDefault;
  Page& page = what == kProcAmp ? procAmp : PageOf(pageCode);
  page.RestoreDefaults();
  if (what == kOwnThenRefresh) OnRefresh();
}

void CMainDlg::OnRefresh() {
  switch (RowOf(pageCode).onRefresh) {
    case kRead:
      PageOf(pageCode).Refresh(panel.serialHandle);
      break;
    case kReopen:
      ReopenPage(pageCode);
      break;
    case kNothing:
      break;
  }
  panel.tickSkip = kSkipAfterRefresh;
}

void CMainDlg::OnPageUp() {
  Page& page = PageOf(pageCode);
  if (page.SubPages() < 2) return;
  panel.cycleState = (panel.cycleState + 1) % page.SubPages();
  page.SetSubPage(panel.cycleState);
  page.Refresh(panel.serialHandle);
  ShowPlaceOnRail();
}

void CMainDlg::ChooseWall(std::uint8_t size) {
  panel.wallSize = size;
  panel.tilePosition = 0;
  tvWall.Layout();
  MarkWallButtons();
}

// The grid that is in force.
void CMainDlg::MarkWallButtons() {
  int size = 1;
  for (const int button : {kWall1Button, kWall2Button, kWall3Button, kWall4Button}) {
    window->SetMark(button, size == panel.wallSize ? ui::Mark::kCurrent : ui::Mark::kNone);
    ++size;
  }
}

void CMainDlg::ShowPending(bool pending) {
  window->SetMark(kApplyButton, pending ? ui::Mark::kPending : ui::Mark::kNone);
}

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
