// An operator who tries everything that a panel offers, in an order that is always the same.
#pragma once

#include <functional>
#include <string>
#include <utility>

#include "app/main_dlg.h"
#include "app/navigation.h"
#include "res/dialog_templates.h"
#include "tests/support/desk.h"

namespace panelora::testing {

class TirelessOperator {
 public:
  TirelessOperator(Desk& theDesk, CMainDlg& thePanel) : desk(theDesk), panel(thePanel) {}

  // Runs after everything that the operator did.
  std::function<void()> afterwards = [] {};

  // Opens each page, uses all that is on it, goes on to its next sub-page and uses that, applies,
  // takes back, and leaves it. A box that went meanwhile is not noticed before a tick.
  void UseEveryPage() {
    const PageCode pages[] = {
        PageCode::kVideoSettings, PageCode::kDisplayMode, PageCode::kTvWall, PageCode::kPip,
        PageCode::kGenlock,       PageCode::kImageAdjust, PageCode::kRoi,    PageCode::kTextLabels};
    for (const int button : {kInformationButton, kVideoButton, kAudioButton, kProcAmpButton,
                             kSettingButton, kPictureButton}) {
      Press(res::kMain, button);
      UseThePage();
    }
    for (const PageCode code : pages) {
      panel.OpenPage(code);
      afterwards();
      UseThePage();
    }
  }

  // Uses every control that is shown on the page that is shown.
  void UseTheControls() {
    for (int page = res::kInformation; page <= res::kTextLabels; ++page) {
      for (const ui::ControlTemplate& control : res::FindDialog(page)->controls) {
        if (!desk.IsShown(page) || !desk.Shows(page, control.id)) continue;
        Use(page, control);
      }
    }
  }

 private:
  void UseThePage() {
    UseTheControls();
    Press(res::kMain, kPageUpButton);
    UseTheControls();
    for (const int button : {kWall4Button, kWall1Button, kRefreshButton, kApplyButton,
                             kDefaultButton, kPageUpButton, kApplyButton, kReturnButton}) {
      Press(res::kMain, button);
    }
  }

  void Press(int dialog, int control) {
    if (desk.Shows(dialog, control)) desk.Press(dialog, control);
    afterwards();
  }

  void Use(int page, const ui::ControlTemplate& control) {
    switch (control.kind) {
      case ui::ControlKind::kButton:
      case ui::ControlKind::kDefaultButton:
      case ui::ControlKind::kPictureButton:
        desk.Press(page, control.id);
        break;
      case ui::ControlKind::kEdit:
        desk.Type(page, control.id, typed = typed == "65535" ? "-1x" : "65535");
        desk.PressKey(page, control.id, ui::Key::kEnter);
        break;
      case ui::ControlKind::kSlider: {
        const auto [first, last] = desk.SliderRange(page, control.id);
        desk.Drag(page, control.id, desk.SliderPosition(page, control.id) == last ? first : last);
        desk.Release(page, control.id);
        break;
      }
      case ui::ControlKind::kCombo: {
        const int count = static_cast<int>(desk.Items(page, control.id).size());
        if (count > 0) desk.Choose(page, control.id, ++chosen % count);
        break;
      }
      default:
        return;
    }
    afterwards();
  }

  Desk& desk;
  CMainDlg& panel;
  std::string typed;
  int chosen = 0;
};

}  // namespace panelora::testing
