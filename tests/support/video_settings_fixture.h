// The Video settings page on the desk.
#pragma once

#include <map>

#include "tests/support/scenario.h"

namespace panelora::testing {

inline constexpr int kPage = res::kVideoSettings;

struct Control {
  int next;
  int text;
};
inline constexpr Control kInput{1018, 1019};
inline constexpr Control kLevel{1022, 1023};
inline constexpr Control kAspect{1026, 1025};
inline constexpr Control kFormat{1029, 1028};
inline constexpr int kFormatBack = 1033;
inline constexpr Control kColour{1037, 1036};
inline constexpr Control kEq{1049, 1048};
inline constexpr Control kEdge{1085, 1084};

using Texts = std::vector<std::string>;

class VideoSettings : public Scenario {
 protected:
  void Open(std::uint32_t firmware = 0x0126, Identity identity = {26, 0, 0, 0, 0}) {
    admitted = {identity.boxType};
    StartWith(firmware, identity);
    panel->OpenPage(PageCode::kVideoSettings);
  }
  void OpenSubPage1(std::uint32_t firmware = 0x0126) {
    Open(firmware);
    Press(kPageUpButton);
  }
  std::string TextOf(const Control& control) { return desk.Text(kPage, control.text); }
  // What stands beside the button after each of `presses` presses.
  Texts Cycle(int button, int text, int presses) {
    Texts shown;
    for (int i = 0; i < presses; ++i) {
      desk.Press(kPage, button);
      shown.push_back(desk.Text(kPage, text));
    }
    return shown;
  }
  Texts Cycle(const Control& control, int presses) {
    return Cycle(control.next, control.text, presses);
  }
  // The controls that are shown, with their places.
  std::map<int, Rect> ShownControls() {
    std::map<int, Rect> shown;
    for (const ui::ControlTemplate& control : res::FindDialog(kPage)->controls) {
      if (desk.Shows(kPage, control.id)) shown[control.id] = desk.PlaceOf(kPage, control.id);
    }
    return shown;
  }
};

}  // namespace panelora::testing
