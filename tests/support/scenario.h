// The fixture of every scenario: the panel on a desk, with a recorded simulated box.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include "app/main_dlg.h"
#include "app/navigation.h"
#include "res/dialog_templates.h"
#include "tests/support/controls.h"
#include "tests/support/desk.h"
#include "tests/support/device_calls.h"
#include "tests/support/recorded_box.h"

namespace panelora::testing {

using ui::Rect;
using Bytes = std::vector<std::uint8_t>;

class Scenario : public ::testing::Test {
 protected:
  // Starts the panel. What it asked the box is in TakeCalls afterwards.
  void Start() {
    panel = std::make_unique<CMainDlg>(device, desk.Toolkit(), admitted);
    panel->Init();
    panel->Show();
    desk.Settle();
  }

  // Starts the panel with a box of this firmware and forgets the calls of the start.
  void StartWith(std::uint32_t firmware,
                 Identity identity = simulator::BoxModel::kDefaultIdentity) {
    box.Become(identity, firmware);
    Start();
    device.TakeCalls();
  }

  // The same with a box of any type, which is admitted.
  void StartWith(Identity identity, std::uint32_t firmware = 0x0126) {
    admitted = {identity.boxType};
    StartWith(firmware, identity);
  }

  void Press(int control) { desk.Press(res::kMain, control); }
  void Tick() { desk.Tick(res::kMain, 1); }
  Calls TakeCalls() { return device.TakeCalls(); }
  // What a button of the main window, or of a page, makes the panel ask and tell.
  Calls CallsOf(int button) {
    TakeCalls();
    Press(button);
    return TakeCalls();
  }
  Calls CallsOnPage(int page, int button, int presses = 1) {
    TakeCalls();
    for (int i = 0; i < presses; ++i) desk.Press(page, button);
    return TakeCalls();
  }

  // The template numbers of the pages that are shown.
  std::vector<int> ShownPages() {
    std::vector<int> shown;
    for (int page = res::kInformation; page <= res::kTextLabels; ++page) {
      if (desk.IsShown(page)) shown.push_back(page);
    }
    return shown;
  }

  // The controls of a page that are shown.
  Places ShownOn(int page) {
    Places shown;
    for (const ui::ControlTemplate& control : res::FindDialog(page)->controls) {
      if (desk.Shows(page, control.id)) shown[control.id] = desk.PlaceOf(page, control.id);
    }
    return shown;
  }

  // The navigation buttons that are shown, as "Caption y" (or "Caption y/height"), top to bottom.
  std::vector<std::string> Buttons() {
    std::vector<std::pair<int, std::string>> shown;
    for (const NavigationButton& button : kNavigationButtons) {
      if (!desk.Shows(res::kMain, button.control)) continue;
      const Rect place = desk.PlaceOf(res::kMain, button.control);
      EXPECT_EQ(place.x, 0) << button.control;
      EXPECT_EQ(place.width, 110) << button.control;
      std::string text = desk.Text(res::kMain, button.control) + " " + std::to_string(place.y);
      if (place.height != 40) text += "/" + std::to_string(place.height);
      shown.emplace_back(place.y, text);
    }
    std::stable_sort(shown.begin(), shown.end(),
                     [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<std::string> texts;
    for (const auto& [y, text] : shown) texts.push_back(text);
    return texts;
  }

  Rect PictureRect() { return desk.PlaceOf(res::kMain, kPictureButton); }
  std::string Picture() { return desk.Picture(res::kMain, kPictureButton); }

  // No page, no button, and the picture of no box over the whole window.
  void ExpectEmptyLook() {
    EXPECT_EQ(ShownPages(), std::vector<int>{});
    EXPECT_EQ(Buttons(), std::vector<std::string>{});
    EXPECT_EQ(PictureRect(), (Rect{0, 0, 600, 375}));
    EXPECT_EQ(Picture(), "NULL_BOX");
  }

  void ExpectDisconnectedLook() {
    ExpectEmptyLook();
    EXPECT_EQ(panel->Panel().identity.boxType, kNoBoxType);
    EXPECT_FALSE(panel->IsConnected());
  }

  void ExpectConnectedLook() {
    EXPECT_EQ(ShownPages(), std::vector<int>{res::kInformation});
    EXPECT_EQ(Buttons(), kHomeButtons);
    EXPECT_EQ(PictureRect(), (Rect{0, 0, 600, 65}));
    EXPECT_EQ(Picture(), "PANEL_BMP_17");
    EXPECT_EQ(panel->CurrentPage(), PageCode::kInformation);
    EXPECT_TRUE(panel->IsConnected());
  }

  static inline const std::vector<std::string> kHomeButtons = {
      "Information 65", "Video 105", "Audio 145", "Proc Amp 185", "Setting 225", "Refresh 340/45"};

  std::uint64_t now = 0;  // ms of the box's clock
  std::vector<std::uint8_t> admitted = {26};
  Desk desk;
  simulator::BoxModel box{simulator::BoxModel::kDefaultIdentity,
                          simulator::BoxModel::kDefaultFirmware, [this] { return now; }};
  RecordedBox device{box};
  std::unique_ptr<CMainDlg> panel;
};

}  // namespace panelora::testing
