// What a refresh of each page costs in the program's own code: natively, optimised, with the
// windows in memory and a box that answers at once.
#include <benchmark/benchmark.h>

#include <string>
#include <vector>

#include "app/main_dlg.h"
#include "app/navigation.h"
#include "platform/memory/memory_toolkit.h"
#include "simulator/box_model.h"

namespace panelora {
namespace {

struct Route {
  const char* page;
  Identity identity;
  void (*open)(CMainDlg& panel);
};

void Press(CMainDlg& panel, int button) {
  static_cast<ui::DialogEvents&>(panel).OnCommand(button, ui::Notification::kClicked);
}

constexpr Identity kShipped = simulator::BoxModel::kDefaultIdentity;
// Each with something to read on the page that stands beside it below.
constexpr Identity kMultiViewer = {13, 0, 0, 0, 0};
constexpr Identity kWall = {14, 0, 0, 0, 0};
constexpr Identity kGenlocked = {46, 0, 0, 0, 0};

// The two pages that a refresh does not read, the video menu and the text labels, have no row.
const Route kRoutes[] = {
    {"Information", kShipped, [](CMainDlg& panel) { Press(panel, kInformationButton); }},
    {"VideoSettings", kShipped, [](CMainDlg& panel) { panel.OpenPage(PageCode::kVideoSettings); }},
    {"Audio", kShipped, [](CMainDlg& panel) { Press(panel, kAudioButton); }},
    {"ProcAmp", kShipped, [](CMainDlg& panel) { Press(panel, kProcAmpButton); }},
    {"Setting", kShipped, [](CMainDlg& panel) { Press(panel, kSettingButton); }},
    {"ImageAdjust", kShipped, [](CMainDlg& panel) { panel.OpenPage(PageCode::kImageAdjust); }},
    {"DisplayMode", kMultiViewer, [](CMainDlg& panel) { panel.OpenPage(PageCode::kDisplayMode); }},
    {"TvWall", kWall, [](CMainDlg& panel) { panel.OpenPage(PageCode::kTvWall); }},
    {"Pip", kMultiViewer, [](CMainDlg& panel) { panel.OpenPage(PageCode::kPip); }},
    {"Genlock", kGenlocked, [](CMainDlg& panel) { panel.OpenPage(PageCode::kGenlock); }},
    {"Roi", kGenlocked, [](CMainDlg& panel) { panel.OpenPage(PageCode::kRoi); }},
};

void Refresh(::benchmark::State& state, const Route& route) {
  simulator::BoxModel box(route.identity);
  memory::MemoryToolkit toolkit;
  const std::vector<std::uint8_t> admitted = {route.identity.boxType};
  CMainDlg panel(box, toolkit, admitted);
  if (!panel.Init()) {
    state.SkipWithError("the panel does not start");
    return;
  }
  panel.Show();
  route.open(panel);
  for ([[maybe_unused]] auto _ : state) Press(panel, kPictureButton);
}

}  // namespace
}  // namespace panelora

int main(int count, char** arguments) {
  for (const auto& route : panelora::kRoutes) {
    ::benchmark::RegisterBenchmark(
        route.page, [&route](::benchmark::State& state) { panelora::Refresh(state, route); });
  }
  ::benchmark::Initialize(&count, arguments);
  if (::benchmark::ReportUnrecognizedArguments(count, arguments)) return 1;
  ::benchmark::RunSpecifiedBenchmarks();
}
