// A replay has the same texts on all pages: the panel at a box, and once more at one that answers
// as the trace of the first says.
#include <map>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "app/main_dlg.h"
#include "app/navigation.h"
#include "res/dialog_templates.h"
#include "tests/boxctl/boxctl_desk.h"
#include "tests/support/desk.h"
#include "tests/trace/record_of.h"

namespace panelora::boxctl {
namespace {

using panelora::testing::Desk;

// What an operator sees: the texts of all controls of the page that is open, once for each step.
struct Seen {
  int page;
  std::map<int, std::string> texts;

  bool operator==(const Seen&) const = default;
};

std::ostream& operator<<(std::ostream& to, const Seen& seen) {
  to << "page " << seen.page;
  for (const auto& [control, text] : seen.texts) to << "\n  " << control << ": " << text;
  return to;
}

// A panel at the box of the desk, and a walk through all its pages, the same each time.
class PanelWalk {
 public:
  PanelWalk(TestHost& host, std::uint8_t type)
      : box(*host.desk, host, simulator::By::kPanel), admitted{type} {}

  std::vector<Seen> Walk() {
    panel = std::make_unique<CMainDlg>(box, desk.Toolkit(), admitted);
    panel->Init();
    panel->Show();
    desk.Settle();
    Note();
    for (const int button : {kInformationButton, kAudioButton, kSettingButton, kProcAmpButton}) {
      if (!desk.Shows(res::kMain, button)) continue;
      Press(button);
      WalkOpenPage();
    }
    for (int entry = 1002; entry <= 1008; ++entry) {
      Press(kVideoButton);
      Note();
      if (desk.Shows(res::kVideoMenu, entry)) {
        desk.Press(res::kVideoMenu, entry);
        WalkOpenPage();
      } else {
        Press(kReturnButton);
      }
    }
    panel->OpenPage(PageCode::kTextLabels);  // no button leads there
    WalkOpenPage();
    for (int tick = 0; tick < 8; ++tick) desk.Tick(res::kMain, 1);
    Note();
    return seen;
  }

 private:
  void Press(int button) { desk.Press(res::kMain, button); }

  // The page that is open and its sub-pages, each as it is, with every option one step on, applied,
  // read again, and with its defaults.
  void WalkOpenPage() {
    const bool hasMore = desk.Shows(res::kMain, kPageUpButton);
    for (int subPage = 0; subPage < (hasMore ? 3 : 1); ++subPage) {
      Note();
      StepAll();
      Note();
      for (const int button : {kApplyButton, kPictureButton, kDefaultButton}) {
        if (!desk.Shows(res::kMain, button)) continue;
        Press(button);
        if (desk.IsOpen(res::kCaution)) desk.RequestClose(res::kCaution);
        Note();
      }
      if (hasMore) Press(kPageUpButton);
    }
    if (desk.Shows(res::kMain, kReturnButton)) Press(kReturnButton);
  }

  void StepAll() {
    for (int page = res::kInformation; page <= res::kTextLabels; ++page) {
      if (!desk.IsShown(page)) continue;
      for (const ui::ControlTemplate& control : res::FindDialog(page)->controls) {
        const bool isStep = desk.Shows(page, control.id) && desk.Enables(page, control.id) &&
                            desk.Text(page, control.id) == ">>";
        if (isStep) desk.Press(page, control.id);
      }
    }
  }

  // All texts of the pages that are shown, and of the main window.
  void Note() {
    for (int page = res::kMain; page <= res::kTextLabels; ++page) {
      if (res::FindDialog(page) == nullptr || !desk.IsShown(page)) continue;
      Seen now = {page, {}};
      for (const ui::ControlTemplate& control : res::FindDialog(page)->controls) {
        now.texts[control.id] =
            (desk.Shows(page, control.id) ? "" : "(hidden) ") + desk.Text(page, control.id);
      }
      seen.push_back(now);
    }
  }

  simulator::BenchedBox box;
  Desk desk;
  std::vector<std::uint8_t> admitted;
  std::unique_ptr<CMainDlg> panel;
  std::vector<Seen> seen;
};

// A type, and the pages that the walk shows of it.
struct Model {
  int type;
  std::set<int> pages;

  friend std::ostream& operator<<(std::ostream& to, const Model& model) { return to << model.type; }
};

class Replayed : public BoxctlTest, public ::testing::WithParamInterface<Model> {
 protected:
  std::uint8_t Type() const { return static_cast<std::uint8_t>(GetParam().type); }

  // The calls of the panel at the desk's box so far, as the tracing library writes them.
  void Record(const std::string& path) {
    const auto made = Control().CallsFrom(1);
    EXPECT_EQ(made->lost, 0U);
    std::string text(trace::Line::First(1).Text());
    std::uint64_t number = 0;
    for (const simulator::Entry& entry : made->entries) {
      if (entry.by != simulator::By::kPanel) continue;
      const trace::TracedCall traced = {entry.time, entry.duration, CallOf(entry)};
      text += trace::Line::OfCall(++number, trace::RecordOf(traced)).Text();
    }
    Put(path, text);
  }

  static std::set<int> PagesOf(const std::vector<Seen>& seen) {
    std::set<int> pages;
    for (const Seen& each : seen) pages.insert(each.page);
    return pages;
  }

  // A box of which hardly a value is the one that it left the factory with.
  void Disturb() {
    simulator::BoxMemory& box = host.desk->box;
    std::uint8_t value = 0;
    for (std::size_t number = 0; number < simulator::BoxMemory::kNumbers; ++number) {
      if (number == 254) continue;  // the identity
      for (std::uint8_t& byte : box.blocks[number]) byte = static_cast<std::uint8_t>(++value % 4);
    }
    box.picture = {11, 22, 33, 44};
    Control().SetInput({1280, 720, 59, 94, 0}, false);
  }
};

TEST_P(Replayed, HasTheSameTextsOnAllPages) {
  Control().Become({Type(), 0, 0, 0, 0}, 0x0126);
  Disturb();
  // Now and then a read fails, and the page has to do without.
  Control().SetFaults([](simulator::Faults& faults) {
    faults.every = 7;
    faults.reads = true;
  });
  const std::vector<Seen> recorded = PanelWalk(host, Type()).Walk();
  EXPECT_EQ(PagesOf(recorded), GetParam().pages);
  const std::uint64_t calls = host.desk->journal.last;
  Record(File("trace.txt"));
  Control().SetFaults([](simulator::Faults& faults) { faults = {}; });

  // At a box as it left the factory, they read otherwise.
  Control().Become({Type(), 0, 0, 0, 0}, 0x0126);
  EXPECT_NE(PanelWalk(host, Type()).Walk(), recorded);
  const Ran replay = Run({"replay", File("trace.txt")});
  ASSERT_EQ(replay.code, 0) << replay.err;
  const std::uint64_t before = host.desk->journal.last;
  const std::vector<Seen> replayed = PanelWalk(host, Type()).Walk();
  ASSERT_EQ(replayed.size(), recorded.size());
  for (std::size_t i = 0; i < recorded.size(); ++i) EXPECT_EQ(replayed[i], recorded[i]) << i;
  // Call by call.
  const auto first = Control().CallsFrom(1)->entries;
  ASSERT_EQ(first.size(), before + calls);
  for (std::size_t i = 0; i < calls; ++i) {
    EXPECT_EQ(CallOf(first[before + i]), CallOf(first[i])) << i << ": " << TextOf(CallOf(first[i]));
  }
}

// Those that every model has.
std::set<int> With(std::set<int> pages) {
  pages.insert({res::kMain, res::kInformation, res::kVideoMenu, res::kAudio, res::kProcAmp,
                res::kSetting, res::kVideoSettings, res::kTextLabels});
  return pages;
}

INSTANTIATE_TEST_SUITE_P(
    Models, Replayed,
    ::testing::Values(Model{13, With({res::kDisplayMode, res::kPip})},
                      Model{17, With({res::kTvWall})},
                      Model{24, With({res::kImageAdjust, res::kRoi})},
                      Model{26, With({res::kImageAdjust})},
                      Model{30, With({res::kTvWall, res::kGenlock, res::kRoi})},
                      Model{46, With({res::kTvWall, res::kGenlock, res::kRoi})},
                      Model{51, With({res::kDisplayMode, res::kPip})}));

}  // namespace
}  // namespace panelora::boxctl
