// Panel and boxctl at one box: what the operator changes in the one, the other names and restores.
#include <algorithm>
#include <map>
#include <memory>
#include <sstream>

#include "app/main_dlg.h"
#include "app/navigation.h"
#include "res/dialog_templates.h"
#include "tests/boxctl/boxctl_desk.h"
#include "tests/support/desk.h"

namespace panelora::boxctl {
namespace {

using panelora::testing::Desk;
using Names = std::vector<std::string>;

constexpr int kCardinal = 10;

class PanelSettings : public BoxctlTest, public ::testing::WithParamInterface<int> {
 protected:
  PanelSettings() {
    const auto type = static_cast<std::uint8_t>(GetParam());
    Control().Become({type, 0, 0, 0, 0}, 0x0126);
    admitted = {type};
    panel = std::make_unique<CMainDlg>(box, desk.Toolkit(), admitted);
    panel->Init();
    panel->Show();
    desk.Settle();
  }

  void Press(int button) { desk.Press(res::kMain, button); }

  // The texts that are shown on a page.
  std::map<int, std::string> TextsOn(int page) {
    std::map<int, std::string> texts;
    for (const ui::ControlTemplate& control : res::FindDialog(page)->controls) {
      if (desk.Shows(page, control.id)) texts[control.id] = desk.Text(page, control.id);
    }
    return texts;
  }

  // What stands above a value.
  std::string CaptionOf(int page, int value) {
    const ui::Rect place = desk.PlaceOf(page, value);
    std::string caption;
    int nearest = 0;
    for (const ui::ControlTemplate& control : res::FindDialog(page)->controls) {
      if (control.kind != ui::ControlKind::kLabel || !desk.Shows(page, control.id)) continue;
      const ui::Rect its = desk.PlaceOf(page, control.id);
      const bool isAbove = its.y < place.y && its.x <= place.x && place.x < its.x + its.width;
      if (control.id == value || !isAbove || its.y < nearest) continue;
      nearest = its.y;
      caption = desk.Text(page, control.id);
    }
    return caption;
  }

  // Steps the options of the open page and applies them, until enough are changed.
  void ChangeOn(int page) {
    for (const auto& [control, text] : TextsOn(page)) {
      if (changed.size() == kCardinal) break;
      if (text != ">>" || !desk.Enables(page, control)) continue;
      const auto before = TextsOn(page);
      desk.Press(page, control);
      for (const auto& [value, shown] : TextsOn(page)) {
        const auto was = before.find(value);
        if (was == before.end() || was->second == shown) continue;
        changed.push_back(CaptionOf(page, value));
        break;
      }
    }
    Press(kApplyButton);
    if (desk.IsOpen(res::kCaution)) desk.RequestClose(res::kCaution);
    Press(kReturnButton);
  }

  void ChangeTen() {
    Press(kProcAmpButton);
    const std::pair<int, const char*> sliders[] = {
        {1032, "Brightness"}, {1033, "Contrast"}, {1034, "Hue"}, {1035, "Saturation"}};
    for (const auto& [slider, name] : sliders) {
      desk.Drag(res::kProcAmp, slider, 77);
      desk.Release(res::kProcAmp, slider);
      changed.push_back(name);
    }
    Press(kReturnButton);
    Press(kAudioButton);
    ChangeOn(res::kAudio);
    Press(kVideoButton);
    desk.Press(res::kVideoMenu, 1002);
    ChangeOn(res::kVideoSettings);
    Press(kReturnButton);
    Press(kSettingButton);
    ChangeOn(res::kSetting);
  }

  // The names of the settings that differ from a file.
  Names DifferFrom(const std::string& file) {
    const Ran diff = Run({"diff", file});
    EXPECT_EQ(diff.err, "");
    Names names;
    std::istringstream lines(diff.out);
    for (std::string line; std::getline(lines, line);) {
      names.push_back(line.substr(0, line.find(": ")));
    }
    EXPECT_EQ(diff.code, names.empty() ? 0 : 1);
    return names;
  }

  simulator::BenchedBox box{*host.desk, host, simulator::By::kPanel};
  Desk desk;
  std::vector<std::uint8_t> admitted;
  std::unique_ptr<CMainDlg> panel;
  Names changed;
};

TEST_P(PanelSettings, TenThatTheOperatorChangedAreNamedAndRestored) {
  const std::string file = File("settings.json");
  ASSERT_EQ(Run({"save", file}).code, 0);
  ChangeTen();
  ASSERT_EQ(changed.size(), std::size_t{kCardinal});
  Names named = DifferFrom(file);
  std::sort(named.begin(), named.end());
  std::sort(changed.begin(), changed.end());
  EXPECT_EQ(named, changed);
  EXPECT_EQ(Run({"restore", "--yes", file}).code, 0);
  EXPECT_EQ(DifferFrom(file), Names());
}

INSTANTIATE_TEST_SUITE_P(Models, PanelSettings,
                         ::testing::Values(13, 14, 17, 24, 25, 26, 30, 34, 46, 51));

}  // namespace
}  // namespace panelora::boxctl
