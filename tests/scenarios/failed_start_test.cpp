// A start for which the system can't make what it needs. In memory alone: no real system can be
// told to fail.
#include <set>

#include "platform/memory/memory_toolkit.h"
#include "tests/support/scenario.h"

namespace panelora::testing {
namespace {

class FailingToolkit final : public ui::Toolkit {
 public:
  std::unique_ptr<ui::Dialog> CreateDialogFrom(int number, ui::DialogEvents& events,
                                               ui::Dialog* parent) override {
    std::unique_ptr<ui::Dialog> dialog = inner.CreateDialogFrom(number, events, parent);
    if (failing.contains(number)) dialog->Close();
    return dialog;
  }
  void RunModal(int number, ui::DialogEvents& events, ui::Dialog& owner,
                ui::Dialog*& opened) override {
    inner.RunModal(number, events, owner, opened);
  }
  std::string String(int number) const override { return hasTexts ? inner.String(number) : ""; }
  void DebugOutput(std::string_view text) override { inner.DebugOutput(text); }
  ui::SerialHandle OpenSerial(const std::string& name) override { return inner.OpenSerial(name); }
  void CloseSerial(ui::SerialHandle port) override { inner.CloseSerial(port); }
  bool OpenGuide() override { return inner.OpenGuide(); }
  int Random() override { return inner.Random(); }

  memory::MemoryToolkit inner;
  std::set<int> failing;  // template numbers
  bool hasTexts = true;
};

class FailedStart : public ::testing::Test {
 protected:
  bool Start() {
    panel = std::make_unique<CMainDlg>(device, toolkit, admitted);
    return panel->Init();
  }

  const std::vector<std::uint8_t> admitted = {26};
  FailingToolkit toolkit;
  simulator::BoxModel box{simulator::BoxModel::kDefaultIdentity,
                          simulator::BoxModel::kDefaultFirmware, [] { return std::uint64_t{0}; }};
  RecordedBox device{box};
  std::unique_ptr<CMainDlg> panel;
};

TEST_F(FailedStart, MainWindowThatCannotBeMadeAsksNoBox) {
  toolkit.failing = {res::kMain};
  EXPECT_FALSE(Start());
  EXPECT_EQ(device.TakeCalls(), Calls{});
}

TEST_F(FailedStart, PageThatCannotBeMadeEndsItWithoutATimer) {
  for (int page = res::kInformation; page <= res::kTextLabels; ++page) {
    toolkit.failing = {page};
    EXPECT_FALSE(Start()) << page;
    panel.reset();
    EXPECT_EQ(toolkit.inner.timersLeftRunning, 0) << page;
  }
}

TEST_F(FailedStart, SystemMenuHasNoItemWithoutAText) {
  toolkit.hasTexts = false;
  EXPECT_TRUE(Start());
  EXPECT_TRUE(toolkit.inner.Find(res::kMain)->SystemMenu().empty());
}

TEST_F(FailedStart, PanelThatWasNeverInitialisedGoesWithoutACall) {
  panel = std::make_unique<CMainDlg>(device, toolkit, admitted);
  panel.reset();
  EXPECT_EQ(device.TakeCalls(), Calls{});
}

}  // namespace
}  // namespace panelora::testing
