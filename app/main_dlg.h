// The main window (template 102): the one window of the program. It owns the device handle, the
// identity of the box, the thirteen pages and the navigation bar, and watches every three seconds
// whether the box is there.
#pragma once

#include <array>
#include <memory>
#include <span>

#include "app/about_dlg.h"
#include "app/device_picture.h"
#include "app/navigation.h"
#include "catalogue/page_code.h"
#include "pages/audio/audio_dlg.h"
#include "pages/multiview/display_mode_dlg.h"
#include "pages/multiview/genlock_dlg.h"
#include "pages/multiview/image_adjust_dlg.h"
#include "pages/multiview/pip_dlg.h"
#include "pages/multiview/roi_dlg.h"
#include "pages/multiview/text_labels_dlg.h"
#include "pages/multiview/tv_wall_dlg.h"
#include "pages/page_opener.h"
#include "pages/procamp/proc_amp_dlg.h"
#include "pages/setting/setting_dlg.h"
#include "pages/status/information_dlg.h"
#include "pages/video/video_menu_dlg.h"
#include "pages/video/video_settings_dlg.h"

namespace panelora {

// The box types that this build treats as a box, from PANELORA_ADMITTED_BOX_TYPES.
std::span<const std::uint8_t> AdmittedBoxTypes();

class CMainDlg final : public ui::DialogEvents, public PageOpener, public PendingLight {
 public:
  // Every box type that is not admitted is treated as no box.
  CMainDlg(DeviceLink& theDevice, ui::Toolkit& theToolkit,
           std::span<const std::uint8_t> theAdmittedTypes = AdmittedBoxTypes());
  ~CMainDlg() override;

  // Opens the device, identifies the box, builds the window and its pages and starts the monitor.
  // The window is hidden until Show. False when the system can't make one of the windows.
  bool Init();
  void Show() {
    window->Show(true);
    TakeKeyboard();
  }
  // Puts the keyboard on Information, which is what is shown first, however the window was shown.
  void TakeKeyboard() {
    if (connected) window->Focus(kInformationButton);
  }
  bool IsOpen() const { return window != nullptr && window->IsOpen(); }
  ui::Dialog& Window() { return *window; }

  const PanelState& Panel() const { return panel; }
  bool IsConnected() const { return connected; }
  PageCode CurrentPage() const { return pageCode; }

  // Hides everything else, opens the page's function on the box where it has one, reads the box and
  // shows the page with its navigation buttons; the keyboard goes to its first control. No button
  // leads to Text Labels, and Information is shown otherwise.
  void OpenPage(PageCode code) override;

  void ShowPending(bool pending) override;

  void OnCommand(int control, ui::Notification what) override;
  bool OnKey(ui::Key key) override;
  void OnTimer(int timer) override;
  bool OnSystemCommand(int command) override;
  void OnCloseRequest() override;
  void OnDestroy() override;

 private:
  // main_dlg.cpp: start, monitor and looks
  bool CreatePages();
  void InitPages();
  void SetFirstTexts();
  bool ReadIdentity();
  bool IsAdmitted(std::uint8_t boxType) const;
  void ChangeConnection();
  void ShowDisconnectedLook();
  void PlaceButtonsAtHome();
  void ApplyDevicePicture();
  void ChangeNavigation(NavigationChange change);

  // navigation.cpp: the buttons
  void OnInformation();
  void OnVideo();
  void OnAudio() { OpenPage(PageCode::kAudio); }
  void OnProcAmp() { OpenPage(PageCode::kProcAmp); }
  void OnSetting() { OpenPage(PageCode::kSetting); }
  void OnReturn();
  void OnApply();
  void OnDefault();
  void OnRefresh();
  void OnPageUp();
  void OnWall1() { ChooseWall(1); }
  void OnWall2() { ChooseWall(2); }
  void OnWall3() { ChooseWall(3); }
  void OnWall4() { ChooseWall(4); }
  void OnPortChosen();

  void HideAllButtons();
  void HideAllPages();
  void ShowButton(int control, bool shown = true) { window->ShowControl(control, shown); }
  void ShowButtonAt(int control, int y);
  void MoveButton(int control, int y);
  void ShowHomeButtons();
  void ReopenPage(PageCode code);
  bool HasPageUp(PageCode code) const;
  void ShowPlaceOnRail();
  void ShowRail(bool shown);
  void PlaceButtonsOf(PageCode code);
  void ReturnToInformation();
  void ReturnFromVideoPage();
  void ResetSubPages();
  void ChooseWall(std::uint8_t size);
  void MarkWallButtons();
  bool IsModel26() const { return kShippedType.Has(panel.identity.boxType); }
  Page& PageOf(PageCode code) { return *pages[static_cast<std::size_t>(code)]; }

  DeviceLink& device;
  ui::Toolkit& toolkit;
  std::span<const std::uint8_t> admittedTypes;
  PanelState panel;
  bool connected = false;
  PageCode pageCode = PageCode::kInformation;
  bool timerRuns = false;
  int lastHomeButton = 0;  // of the Information look, pressed last

  std::unique_ptr<ui::Dialog> window;
  PanelContext context{panel, device, toolkit, *this};
  CInformationDlg information{context};
  CVideoMenuDlg videoMenu{context, *this};
  CAudioDlg audio{context};
  CProcAmpDlg procAmp{context};
  CSettingDlg setting{context};
  CVideoSettingsDlg videoSettings{context};
  CDisplayModeDlg displayMode{context};
  CTVWallDlg tvWall{context};
  CPIPDlg pip{context};
  CGenlockDlg genlock{context};
  CImageAdjustDlg imageAdjust{context};
  CROIDlg roi{context};
  CTextLabelsDlg textLabels{context};
  // By their codes.
  std::array<Page*, 13> pages = {&information, &videoMenu,   &audio,         &procAmp, &setting,
                                 &tvWall,      &displayMode, &videoSettings, &pip,     &genlock,
                                 &imageAdjust, &roi,         &textLabels};
  CAboutDlg about;
};

}  // namespace panelora
