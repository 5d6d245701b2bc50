#include "pages/setting/setting_dlg.h"

#include <algorithm>
#include <iterator>

#include "res/dialog_templates.h"

namespace panelora {

namespace {

using namespace setting;

constexpr int kHardwareReset = 1041;

constexpr OptionControls kControls[] = {
    {{1051, 1054, 1055, 1056}, "FULL SCREEN"}, {{1040, 1037, 1038, 1039}, "Un-Locked"},
    {{1050, 1072, 1052, 1053}, "Disable"},     {{1042, 1043, 1044, 1045}, "Hide"},
    {{1046, 1047, 1048, 1049}, "Blue Screen"},
};
static_assert(std::size(kControls) == kOptionCount);

constexpr int kLeft = 55;
constexpr int kNextX = 375;

// How so many options stand: the top of the first, how far apart, ">>" below the top, and the top
// of the reset button.
struct LayoutRow {
  int top;
  int apart;
  int next;
  int reset;
};
constexpr LayoutRow kLayouts[] = {
    {0, 0, 0, 125}, {65, 0, 23, 165}, {30, 85, 22, 215}, {15, 70, 23, 235}};

}  // namespace

CSettingDlg::CSettingDlg(PanelContext context)
    : OptionPage(res::kSetting, context, setting::Options(), kControls), caution(context.toolkit) {}

void CSettingDlg::Init() {
  TakeHandle();
  SetUpOptions(ui::kCaptionFont);
  Window().SetFont(kHardwareReset, ui::kCaptionFont);
  Window().SetPictures(kHardwareReset, "RESET_BTU_U", "RESET_BTU_D");
  LayOut();
}

void CSettingDlg::LayOut() {
  bool shown[kOptionCount] = {};
  for (const Kept& kept : group.kept) shown[kept.option] |= Serves(kept);
  const LayoutRow& row = kLayouts[std::count(std::begin(shown), std::end(shown), true)];
  int top = row.top;
  for (int option = 0; option < kOptionCount; ++option) {
    if (!shown[option]) continue;
    ShowOption(option, {kLeft, top}, kNextX);
    Window().PlaceControl(kControls[option].group.next, {kNextX, top + row.next, 40, 39});
    top += row.apart;
  }
  Window().PlaceControl(kHardwareReset, {kLeft, row.reset, 360, 50});
}

void CSettingDlg::Refresh(ui::SerialHandle serial) {
  serialHandle = serial;
  if (IsModel26()) selection[kLock] = 0;
  patternAvailable = osdAvailable = false;
  for (const Kept& kept : group.kept) {
    if (!Serves(kept)) continue;
    patternAvailable |= kept.option == kPattern;
    osdAvailable |= kept.option == kOsd;
    if (kept.option == kDip8) {
      ReadDip8(kept);
    } else {
      ReadOption(kept);
    }
  }
  Select(kLock, selection[kLock]);
}

void CSettingDlg::ReadDip8(const Kept& kept) {
  BlockBuffer bytes{};
  if (!Read(kept.at, bytes)) return;
  TakeReported(kept, bytes[0]);
  dip8Confirmed = bytes[0];
  if (kept.at == kDip8AndExtra) dip8Extra = bytes[1];
}

void CSettingDlg::Apply() {
  const Kept* dip8 = nullptr;
  for (int option = 0; option < kOptionCount; ++option) {
    for (const Kept& kept : group.kept) {
      if (kept.option != option || !kept.types.Has(panel.identity.boxType)) continue;
      if (option == kDip8) {
        dip8 = &kept;
      } else if (IsWritten(option)) {
        WriteSelection(kept);
      }
    }
  }
  if (dip8 != nullptr) WriteDip8(*dip8);
}

// Model 26 is sent what it has, whatever its firmware shows; the others what a refresh has found.
bool CSettingDlg::IsWritten(int option) const {
  if (IsModel26()) return true;
  return option == kPattern ? patternAvailable : option != kOsd || osdAvailable;
}

// Warns once per change.
void CSettingDlg::WriteDip8(const Kept& kept) {
  if (kept.at == kDip8AndExtra) {
    Write(kept.at, {selection[kDip8], dip8Extra});
    Settle(kDip8);
  } else {
    WriteSelection(kept);
  }
  if (!IsModel26() || selection[kDip8] == dip8Confirmed) return;
  caution.Open(Window());
  dip8Confirmed = selection[kDip8];
}

int CSettingDlg::LastIndex(int option) const {
  return option == kDip8 ? LastDip8(panel.identity.boxType) : OptionPage::LastIndex(option);
}

void CSettingDlg::OnCommand(int control, ui::Notification what) {
  if (what != ui::Notification::kClicked) return;
  if (control == kHardwareReset) OnHardwareReset();
  const std::optional<int> option = OptionOf(control);
  if (!option) return;
  if (*option == kDip8) {
    OnNextDip8();
  } else {
    Next(*option);
  }
}

// Of seven modes the first and the last alone are offered.
void CSettingDlg::OnNextDip8() {
  const int last = LastIndex(kDip8);
  do {
    Next(kDip8);
  } while (last == kLastOfSevenModes && selection[kDip8] != 0 && selection[kDip8] != last);
}

// Acts at once: the box restarts, and the next tick of the monitor shows it as absent.
void CSettingDlg::OnHardwareReset() {
  panel.tickSkip = 0;
  panel.forceDisconnect = true;
  if (panel.identity.boxType == kNoBoxType) return;
  const Reset& reset = ResetOf(panel.identity.boxType);
  Write(reset.at, {reset.value});
}

}  // namespace panelora
