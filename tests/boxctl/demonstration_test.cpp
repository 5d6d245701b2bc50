// A demonstration that boxctl plays alone, beside a panel and its operator.
//
// The script below is a recipe: run it with `boxctl script demonstration.txt` while the panel shows
// the simulated box. It brings the box where the demonstration begins, waits for the operator, and
// checks what came of it. It ends with 0 when all went as it should, with 1 and the line of `diff`
// when the operator did something else, and with 3 when he did nothing in time.
#include <memory>
#include <string>
#include <string_view>

#include "app/main_dlg.h"
#include "app/navigation.h"
#include "res/dialog_templates.h"
#include "tests/boxctl/boxctl_desk.h"
#include "tests/support/desk.h"
#include "tests/support/information_controls.h"
#include "tests/support/video_settings_controls.h"

namespace panelora::boxctl {
namespace {

using panelora::testing::Desk;
using panelora::testing::kFormatValue;
using panelora::testing::kInput;
using panelora::testing::kPage;

constexpr std::string_view kScript =
    "# What the box is to keep in the end.\n"
    "reset\n"
    "set \"Input Source\" SDI\n"
    "save \"demonstration.json\"\n"
    "# Where it begins: as it left the factory, with a signal that all can see.\n"
    "reset\n"
    "input 720x576i50\n"
    "# The operator goes to Video, Video Setting, chooses SDI and presses Apply.\n"
    "wait-for-write \"Input Source\" --timeout 60\n"
    "# All that he set, and nothing else.\n"
    "diff \"demonstration.json\"\n"
    "read \"Input Format\"\n";

class Demonstration : public BoxctlTest {
 protected:
  Demonstration() {
    panel->Init();
    panel->Show();
    desk.Settle();
    Put(File("demonstration.txt"), Script());
  }

  // With its file in the folder of the test.
  std::string Script() const {
    constexpr std::string_view kFile = "demonstration.json";
    std::string script(kScript);
    for (std::size_t at = script.find(kFile); at != std::string::npos;) {
      const std::string file = File(std::string(kFile));
      script.replace(at, kFile.size(), file);
      at = script.find(kFile, at + file.size());
    }
    return script;
  }

  // What the operator does while the script waits: so many steps of the input source, and Apply.
  void LetTheOperatorStep(int steps) {
    host.whenSleeping = [this, steps](int sleep) {
      if (sleep != 5) return;
      desk.Press(res::kMain, kVideoButton);
      desk.Press(res::kVideoMenu, 1002);
      for (int i = 0; i < steps; ++i) {
        desk.Press(kPage, kInput.next);
      }
      desk.Press(res::kMain, kApplyButton);
    };
  }

  Ran Play() { return Run({"script", File("demonstration.txt")}); }

  simulator::BenchedBox box{*host.desk, host, simulator::By::kPanel};
  Desk desk;
  std::vector<std::uint8_t> admitted = {26};
  std::unique_ptr<CMainDlg> panel = std::make_unique<CMainDlg>(box, desk.Toolkit(), admitted);
};

TEST_F(Demonstration, EndsWellWhenTheOperatorDoesHisPart) {
  LetTheOperatorStep(1);
  const Ran ran = Play();
  EXPECT_EQ(ran.code, 0);
  EXPECT_EQ(ran.err, "");
  EXPECT_TRUE(
      ran.out.ends_with("input: 720x576  50.00i\n.\n"
                        "Input Source: SDI\n.\n"
                        ".\n"
                        "Input Format: 720x576  50.00i\n.\n"))
      << ran.out;
  EXPECT_EQ(host.sleeps, 6);
  desk.Press(res::kMain, kReturnButton);
  desk.Press(res::kMain, kReturnButton);
  EXPECT_EQ(desk.Text(res::kInformation, kFormatValue), "720x576  50.00i");
}

TEST_F(Demonstration, NamesWhatTheOperatorDidOtherwise) {
  LetTheOperatorStep(2);
  const Ran ran = Play();
  EXPECT_EQ(ran.code, 1);
  EXPECT_TRUE(ran.out.ends_with("Input Source: SDI -> VGA\n! there are differences\n")) << ran.out;
  EXPECT_EQ(ran.err, "boxctl: " + File("demonstration.txt") + " line 11: there are differences\n");
}

TEST_F(Demonstration, WaitsNoLongerThanItMay) {
  const Ran ran = Play();
  EXPECT_EQ(ran.code, 3);
  EXPECT_EQ(ran.err, "boxctl: " + File("demonstration.txt") +
                         " line 9: nobody wrote Input Source within 60 s\n");
}

}  // namespace
}  // namespace panelora::boxctl
