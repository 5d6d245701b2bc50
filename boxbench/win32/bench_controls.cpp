// The controls of the window, in the order in which Tab goes through them.
#include <array>

#include "boxbench/input_signal.h"
#include "boxbench/win32/bench_window.h"

namespace panelora::boxbench {

namespace {

using namespace control;  // NOLINT: every row names one

constexpr char kLabel[] = "STATIC";
constexpr char kButton[] = "BUTTON";
constexpr char kEdit[] = "EDIT";
constexpr char kCombo[] = "COMBOBOX";

constexpr DWORD kStop = WS_TABSTOP;
constexpr DWORD kLabelStyle = SS_LEFT | SS_CENTERIMAGE | SS_ENDELLIPSIS;
constexpr DWORD kRightLabel = SS_RIGHT | SS_CENTERIMAGE;
constexpr DWORD kPush = BS_OWNERDRAW | kStop;
constexpr DWORD kTick = BS_AUTOCHECKBOX | kStop;
constexpr DWORD kSwitch = BS_AUTORADIOBUTTON | BS_PUSHLIKE;
constexpr DWORD kField = ES_AUTOHSCROLL | kStop;
constexpr DWORD kListOf = CBS_DROPDOWNLIST | WS_VSCROLL | kStop;
constexpr DWORD kFieldOf = CBS_DROPDOWN | CBS_AUTOHSCROLL | WS_VSCROLL | kStop;
constexpr DWORD kVirtualList = LVS_REPORT | LVS_OWNERDATA | LVS_SHOWSELALWAYS | kStop;

// The label of a field stands before it: that is its name for screen readers.
struct ControlRow {
  Id id;
  const char* kind;
  const char* text;
  DWORD style;
};
constexpr ControlRow kControls[] = {
    {kTitle, kLabel, "", kLabelStyle},
    {kSubtitle, kLabel, "", kLabelStyle},
    {kFaultBand, kLabel, "", kLabelStyle},
    {kDeskError, kLabel, "", SS_LEFT},
    {kTryAgain, kButton, "&Try again", kPush},

    {kShowBox, kButton, "&Box", kSwitch | WS_GROUP | kStop},
    {kShowFaults, kButton, "Fa&ults", kSwitch},

    {kConnectionHeading, kLabel, "Connection", kLabelStyle | WS_GROUP},
    {kPower, kButton, "Po&wer", kTick},
    {kCable, kButton, "C&able", kTick},
    {kCut, kButton, "Cut cable for &10 s", kPush},
    {kModelHeading, kLabel, "Model", kLabelStyle},
    {kTypeLabel, kLabel, "&Type:", kLabelStyle},
    {kType, kCombo, "", kListOf},
    {kPages, kLabel, "", SS_LEFT | SS_NOPREFIX},
    {kBrandLabel, kLabel, "Bran&d:", kLabelStyle},
    {kBrand, kEdit, "", kField | ES_NUMBER},
    {kSubModelLabel, kLabel, "Sub-&model:", kRightLabel},
    {kSubModel, kEdit, "", kField | ES_NUMBER},
    {kInputDip, kButton, "&Input DIP", kTick},
    {kOutputDip, kButton, "&Output DIP", kTick},
    {kFirmwareLabel, kLabel, "Firmwar&e:", kLabelStyle},
    {kFirmware, kEdit, "", kField | ES_UPPERCASE},
    {kFirmwareHint, kLabel, "", kLabelStyle},
    {kBecome, kButton, "Make it t&his box", kPush},
    {kReset, kButton, "&Reset to defaults", kPush},
    {kSignalHeading, kLabel, "Input signal", kLabelStyle},
    {kSignalLabel, kLabel, "Si&gnal:", kLabelStyle},
    {kSignal, kCombo, "", kFieldOf},
    {kSetSignal, kButton, "Set sig&nal", kPush},

    {kWrongHeading, kLabel, "Calls that go wrong", kLabelStyle},
    {kHowLabel, kLabel, "&How often:", kLabelStyle},
    {kHow, kCombo, "", kListOf},
    {kNthLabel, kLabel, "&n:", kRightLabel},
    {kNth, kEdit, "3", kField | ES_NUMBER},
    {kWhichLabel, kLabel, "Which:", kLabelStyle},
    {kReads, kButton, "&Reads", kTick},
    {kWrites, kButton, "&Writes", kTick},
    {kOpens, kButton, "&Opens", kTick},
    {kOnlyLabel, kLabel, "Onl&y of:", kLabelStyle},
    {kOnly, kCombo, "", kListOf},
    {kAnswerLabel, kLabel, "&Answer:", kLabelStyle},
    {kAnswer, kCombo, "", kListOf},
    {kResultLabel, kLabel, "R&esult:", kLabelStyle},
    {kResult, kEdit, "2", kField},
    {kAllHeading, kLabel, "All calls", kLabelStyle},
    {kLatencyLabel, kLabel, "Latency:", kLabelStyle},
    {kLatency, TRACKBAR_CLASSA, "Latency", TBS_HORZ | TBS_NOTICKS | TBS_TOOLTIPS | kStop},
    {kLatencyValue, kLabel, "0 ms", kLabelStyle},
    {kVanish, kButton, "Van&ish on the next write", kTick},
    {kFill, kButton, "Answer blocks with FF throu&ghout", kTick},
    {kNoFaults, kButton, "No faul&ts", kPush},

    {kPropertiesHeading, kLabel, "Properties", kLabelStyle},
    {kPropertyCounts, kLabel, "", kLabelStyle},
    {kPropertyFilterLabel, kLabel, "&Filter:", kRightLabel},
    {kPropertyFilter, kEdit, "", kField},
    {kProperties, WC_LISTVIEWA, "Properties", kVirtualList | LVS_SINGLESEL},
    {kValueLabel, kLabel, "&Value:", kLabelStyle | SS_NOPREFIX},
    {kValue, kCombo, "", kFieldOf},
    {kAsWords, kButton, "Words", BS_AUTORADIOBUTTON | WS_GROUP | kStop},
    {kAsBytes, kButton, "Bytes", BS_AUTORADIOBUTTON},
    {kSetValue, kButton, "Set value", kPush | WS_GROUP},

    {kLogHeading, kLabel, "Call log", kLabelStyle},
    {kLogCounts, kLabel, "", kLabelStyle},
    {kLogKindLabel, kLabel, "&Kind:", kLabelStyle},
    {kLogKind, kCombo, "", kListOf},
    {kLogFilterLabel, kLabel, "Fi&lter:", kRightLabel},
    {kLogFilter, kEdit, "", kField},
    {kPause, kButton, "&Pause", kPush},
    {kClear, kButton, "Clear", kPush},
    {kCopy, kButton, "&Copy", kPush},
    {kSave, kButton, "&Save...", kPush},
    {kLog, WC_LISTVIEWA, "Call log", kVirtualList},

    {kStatus, STATUSCLASSNAMEA, "", SBARS_SIZEGRIP},
};

bool IsFramed(const ControlRow& row) {
  return row.kind == kEdit || std::string(row.kind) == WC_LISTVIEWA;
}

}  // namespace

void BenchWindow::MakeControls() {
  isFilling = true;
  for (const ControlRow& row : kControls) {
    const DWORD frame = IsFramed(row) ? WS_EX_CLIENTEDGE : 0;
    const HWND made =
        CreateWindowExA(frame, row.kind, row.text, WS_CHILD | row.style, 0, 0, 10, 10, window,
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(row.id)), instance, nullptr);
    const bool isPush = row.kind == kButton && (row.style & BS_TYPEMASK) == BS_OWNERDRAW;
    if (isPush) {
      SetWindowSubclass(made, ButtonProcedure, 0, reinterpret_cast<DWORD_PTR>(this));
    }
  }
  FillChoices();
  MakeColumns();
  isFilling = false;
}

// The system finds the letters of what is hidden too: what nobody sees is disabled, and a label,
// which leads to the control behind it even then, has no letter.
void BenchWindow::EnableControls() {
  for (const ControlRow& row : kControls) {
    const HWND handle = Control(row.id);
    const auto style = static_cast<DWORD>(GetWindowLongPtrA(handle, GWL_STYLE));
    const bool isShown = (style & WS_VISIBLE) != 0;
    EnableWindow(handle, isShown && IsOfUse(row.id));
    if (row.kind != kLabel) continue;
    const DWORD letters = isShown ? row.style & SS_NOPREFIX : SS_NOPREFIX;
    const auto before = static_cast<DWORD>(GetWindowLongPtrA(handle, GWL_STYLE));
    const DWORD wanted = (before & ~DWORD{SS_NOPREFIX}) | letters;
    if (wanted != before) SetWindowLongPtrA(handle, GWL_STYLE, static_cast<LONG_PTR>(wanted));
  }
}

bool BenchWindow::IsOfUse(int id) const {
  switch (id) {
    case kNthLabel:
    case kNth:
      return Chosen(kHow) == FaultForm::kEveryNth;
    case kResultLabel:
    case kResult:
      return Chosen(kAnswer) == static_cast<int>(simulator::Faults::Answer::kResult);
    case kValue:
    case kAsWords:
    case kAsBytes:
    case kSetValue:
      return edited.has_value();
    default:
      return true;
  }
}

void BenchWindow::FillChoices() {
  const auto add = [this](Id id, const char* text) {
    SendMessageA(Control(id), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text));
  };
  for (const Model& model : Models()) AddType(model);
  for (const char* signal : UsualSignals()) add(kSignal, signal);
  SetWindowTextA(Control(kSignal), UsualSignals().front());
  for (const char* text : {"No call", "Every call", "Every nth call"}) add(kHow, text);
  for (const char* text : {"The call fails", "Another result", "Random bytes"}) add(kAnswer, text);
  for (const char* text : {"All calls", "Reads", "Writes", "Opens", "Failed"}) add(kLogKind, text);
  ChooseItem(kLogKind, 0);
  Check(kShowBox, true);
  Check(kAsWords, true);
  Check(kPower, true);
  Check(kCable, true);
  constexpr int kLine = 10;
  constexpr int kStep = 50;
  SendMessageA(Control(kLatency), TBM_SETRANGE, TRUE,
               MAKELPARAM(0, simulator::Faults::kMostLatency));
  SendMessageA(Control(kLatency), TBM_SETLINESIZE, 0, kLine);
  SendMessageA(Control(kLatency), TBM_SETPAGESIZE, 0, kStep);
  for (const Id id : {kBrand, kSubModel}) SendMessageA(Control(id), EM_SETLIMITTEXT, 3, 0);
  SendMessageA(Control(kFirmware), EM_SETLIMITTEXT, 6, 0);
}

HWND BenchWindow::Control(Id id) const { return GetDlgItem(window, id); }

std::string BenchWindow::Text(Id id) const {
  const HWND handle = Control(id);
  std::string text(static_cast<std::size_t>(GetWindowTextLengthA(handle)) + 1, '\0');
  const int length = GetWindowTextA(handle, text.data(), static_cast<int>(text.size()));
  text.resize(static_cast<std::size_t>(length));
  return text;
}

void BenchWindow::SetText(Id id, const std::string& text) {
  if (Text(id) != text) SetWindowTextA(Control(id), text.c_str());
}

bool BenchWindow::IsChecked(Id id) const {
  return SendMessageA(Control(id), BM_GETCHECK, 0, 0) == BST_CHECKED;
}

void BenchWindow::Check(Id id, bool checked) {
  if (IsChecked(id) == checked) return;
  SendMessageA(Control(id), BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED, 0);
}

int BenchWindow::Chosen(Id id) const {
  return static_cast<int>(SendMessageA(Control(id), CB_GETCURSEL, 0, 0));
}

void BenchWindow::ChooseItem(Id id, int index) {
  if (Chosen(id) != index) {
    SendMessageA(Control(id), CB_SETCURSEL, static_cast<WPARAM>(index), 0);
  }
}

bool BenchWindow::HasFocus(Id id) const {
  const HWND focus = GetFocus();
  const HWND handle = Control(id);
  return focus != nullptr && (focus == handle || IsChild(handle, focus));
}

void BenchWindow::Focus(Id id) {
  SetFocus(Control(id));
  if (HasFocus(id)) SendMessageA(GetFocus(), EM_SETSEL, 0, -1);
}

void BenchWindow::FocusFirst() { Focus(box != nullptr ? kType : kTryAgain); }

}  // namespace panelora::boxbench
