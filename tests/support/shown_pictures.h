// A walk over all that the panel shows of a box, which notes the pictures.
#pragma once

#include <set>
#include <string>

#include "tests/support/model_walk.h"
#include "tests/support/setting_controls.h"

namespace panelora::testing {

class ShownPictures : public ModelWalk {
 protected:
  // Every page that a button leads to with every sub-page and wall, the caution, and no box.
  std::set<std::string> PicturesOf(const Identity& identity) {
    seen.clear();
    StartAs(identity);
    Note();
    for (const int button : {kAudioButton, kProcAmpButton, kSettingButton}) {
      if (!desk.Shows(res::kMain, button)) continue;
      Press(button);
      NoteOpenPage();
    }
    Press(kVideoButton);
    Note();
    Press(kReturnButton);
    for (int entry = 1002; entry <= 1008; ++entry) {
      Press(kVideoButton);
      if (desk.Shows(res::kVideoMenu, entry)) {
        desk.Press(res::kVideoMenu, entry);
        NoteOpenPage();
      } else {
        Press(kReturnButton);
      }
    }
    box.SetPresent(false);
    for (int tick = 0; tick < 10; ++tick) Tick();
    ExpectEmptyLook();
    Note();
    box.SetPresent(true);
    seen.erase("");
    return seen;
  }

 private:
  void Note() {
    NoteOn(res::kMain);
    for (const int page : ShownPages()) NoteOn(page);
    if (desk.IsOpen(res::kCaution)) NoteOn(res::kCaution);
  }

  void NoteOn(int dialog) {
    for (const ui::ControlTemplate& control : res::FindDialog(dialog)->controls) {
      if (!desk.Shows(dialog, control.id)) continue;
      seen.insert(desk.Picture(dialog, control.id));
      seen.insert(desk.PressedPicture(dialog, control.id));
    }
  }

  void NoteOpenPage() {
    Note();
    for (const int button :
         {kWall1Button, kWall2Button, kWall3Button, kWall4Button, kPageUpButton, kPageUpButton}) {
      if (!desk.Shows(res::kMain, button)) continue;
      Press(button);
      Note();
    }
    if (desk.IsShown(res::kSetting) && desk.Shows(res::kSetting, kDip8.next)) {
      desk.Press(res::kSetting, kDip8.next);
      if (desk.Shows(res::kMain, kApplyButton)) Press(kApplyButton);
      Note();
      if (desk.IsOpen(res::kCaution)) desk.RequestClose(res::kCaution);
    }
    Press(kReturnButton);
  }

  std::set<std::string> seen;
};

}  // namespace panelora::testing
