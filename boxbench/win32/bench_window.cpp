#include "boxbench/win32/bench_window.h"

#include <algorithm>
#include <array>
#include <iterator>

#include "base/text.h"
#include "platform/win32/dpi.h"

namespace panelora::boxbench {

namespace {

constexpr char kTitle[] = "Panelora BoxBench";
constexpr int kIconResource = 128;
constexpr UINT_PTR kPollTimer = 1;
// ms: a journal of so many calls runs over in no less, however quick the calls are.
constexpr UINT kPollPeriod = 15;
// What is shown changes with each third look.
constexpr unsigned kLooksPerShow = 3;
constexpr std::uint64_t kPauseWhenBusy = 1000;  // ms

// Of the whole window, at 96 dpi.
constexpr int kFirstWidth = 1000;
constexpr int kFirstHeight = 700;
constexpr int kLeastWidth = 800;
constexpr int kLeastHeight = 560;

// Microseconds from UTC to the operator's clock, as it is now.
std::int64_t UtcToLocal() {
  FILETIME utc;
  FILETIME local;
  GetSystemTimeAsFileTime(&utc);
  FileTimeToLocalFileTime(&utc, &local);
  const auto tenths = [](const FILETIME& time) {
    return (static_cast<std::int64_t>(time.dwHighDateTime) << 32) | time.dwLowDateTime;
  };
  return (tenths(local) - tenths(utc)) / 10;
}

std::string Capitalised(std::string text) {
  if (text[0] >= 'a' && text[0] <= 'z') text[0] = static_cast<char>(text[0] - 'a' + 'A');
  return text;
}

// What the taskbar and its like leave free of the window's monitor.
RECT WorkAreaOf(HWND window) {
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoA(MonitorFromWindow(window, MONITOR_DEFAULTTONEAREST), &monitor);
  return monitor.rcWork;
}

SIZE SizeOf(const RECT& place) { return {place.right - place.left, place.bottom - place.top}; }

constexpr std::array<ACCEL, 4> kKeys = {{
    {FVIRTKEY, VK_F5, control::kRefresh},
    {FVIRTKEY | FCONTROL, 'F', control::kFind},
    {FVIRTKEY | FCONTROL, 'S', control::kSave},
    {FVIRTKEY | FCONTROL, 'P', control::kPause},
}};

HACCEL MakeKeys() {
  std::array<ACCEL, kKeys.size()> keys = kKeys;
  return CreateAcceleratorTableA(keys.data(), static_cast<int>(keys.size()));
}

bool IsKeyOfWindow(WPARAM key) {
  const bool hasControl = GetKeyState(VK_CONTROL) < 0;
  return std::any_of(kKeys.begin(), kKeys.end(), [&](const ACCEL& each) {
    return each.key == key && ((each.fVirt & FCONTROL) != 0) == hasControl;
  });
}

// A key that is held repeats itself, and what it commands is meant once: else the cable is pulled
// and plugged in as often as the system repeats.
bool IsHeldCommand(const MSG& message) {
  if ((HIWORD(message.lParam) & KF_REPEAT) == 0) return false;
  switch (message.message) {
    case WM_KEYDOWN:
      return message.wParam == VK_RETURN || IsKeyOfWindow(message.wParam);
    case WM_SYSCHAR:
      return true;
    case WM_CHAR:  // where nothing can be typed, letters work without Alt
      return (SendMessageA(message.hwnd, WM_GETDLGCODE, 0, 0) & DLGC_WANTCHARS) == 0;
    default:
      return false;
  }
}

}  // namespace

BenchWindow::BenchWindow(HINSTANCE theInstance, std::filesystem::path theLogFile)
    : instance(theInstance),
      logFile(std::move(theLogFile)),
      deskName(simulator::BoxName()),
      gdi(theInstance),
      keys(MakeKeys()),
      toLocal(UtcToLocal()) {}

BenchWindow::~BenchWindow() {
  for (const HFONT each : {font, boldFont, titleFont}) {
    if (each != nullptr) DeleteObject(each);
  }
  if (keys != nullptr) DestroyAcceleratorTable(keys);
}

bool BenchWindow::Make(int show) {
  INITCOMMONCONTROLSEX controls{sizeof controls,
                                ICC_LISTVIEW_CLASSES | ICC_BAR_CLASSES | ICC_STANDARD_CLASSES};
  InitCommonControlsEx(&controls);
  WNDCLASSEXA kind{};
  kind.cbSize = sizeof kind;
  kind.lpfnWndProc = Procedure;
  kind.hInstance = instance;
  kind.hIcon = LoadIconA(instance, MAKEINTRESOURCEA(kIconResource));
  kind.hCursor = LoadCursor(nullptr, IDC_ARROW);
  kind.hbrBackground = GetSysColorBrush(COLOR_3DFACE);
  kind.lpszClassName = kWindowClass;
  if (RegisterClassExA(&kind) == 0) return false;
  const std::string title = deskName == "desk" ? kTitle : kTitle + (" - " + deskName);
  UseSystemLook();
  window = CreateWindowExA(WS_EX_CONTROLPARENT, kWindowClass, title.c_str(),
                           WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CW_USEDEFAULT, CW_USEDEFAULT,
                           kFirstWidth, kFirstHeight, nullptr, nullptr, instance, this);
  if (window == nullptr) return false;
  MakeControls();
  UseDpi(win32::DpiOf(window));
  const SIZE most = SizeOf(WorkAreaOf(window));
  SetWindowPos(window, nullptr, 0, 0, std::min<int>(Scaled(kFirstWidth), most.cx),
               std::min<int>(Scaled(kFirstHeight), most.cy), SWP_NOMOVE | SWP_NOZORDER);
  OpenDesk();
  ShowWindow(window, show);
  FocusFirst();
  SetTimer(window, kPollTimer, kPollPeriod, nullptr);
  return true;
}

int BenchWindow::Run() {
  MSG message;
  while (GetMessageA(&message, nullptr, 0, 0) > 0) {
    if (TakeKeyboard(message)) continue;
    TranslateMessage(&message);
    DispatchMessageA(&message);
  }
  return 0;
}

bool BenchWindow::TakeKeyboard(const MSG& message) {
  MSG copy = message;
  if (window == nullptr) return false;
  if (IsHeldCommand(message)) return true;
  return TranslateAcceleratorA(window, keys, &copy) != 0 || IsDialogMessageA(window, &copy) != 0;
}

LRESULT CALLBACK BenchWindow::Procedure(HWND handle, UINT message, WPARAM wParam,
                                        LPARAM lParam) noexcept {
  if (message == WM_NCCREATE) {
    const auto* made = reinterpret_cast<const CREATESTRUCTA*>(lParam);
    auto* self = static_cast<BenchWindow*>(made->lpCreateParams);
    self->window = handle;
    SetWindowLongPtrA(handle, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
  }
  auto* self = reinterpret_cast<BenchWindow*>(GetWindowLongPtrA(handle, GWLP_USERDATA));
  if (self == nullptr) return DefWindowProcA(handle, message, wParam, lParam);
  return self->Handle(handle, message, wParam, lParam);
}

LRESULT BenchWindow::Handle(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_TIMER:
      Tick();
      return 0;
    case WM_COMMAND:
      Command(LOWORD(wParam), HIWORD(wParam));
      return 0;
    case WM_HSCROLL:
      if (box != nullptr && reinterpret_cast<HWND>(lParam) == Control(control::kLatency)) {
        FaultsChanged();
      }
      return 0;
    case WM_NEXTDLGCTL: {  // by which the letter of a label leads to its field; a dialog knows it
      const bool isNamed = LOWORD(lParam) != 0;
      SetFocus(isNamed ? reinterpret_cast<HWND>(wParam)
                       : GetNextDlgTabItem(window, GetFocus(), wParam != 0));
      return 0;
    }
    case WM_NOTIFY:
      return Notify(*reinterpret_cast<const NMHDR*>(lParam), lParam);
    case WM_DRAWITEM:
      DrawButton(*reinterpret_cast<const DRAWITEMSTRUCT*>(lParam));
      return TRUE;
    case WM_CTLCOLORSTATIC:
      return ColourOf(reinterpret_cast<HDC>(wParam), reinterpret_cast<HWND>(lParam));
    case WM_PAINT:
      Paint();
      return 0;
    case WM_SIZE:
      if (wParam != SIZE_MINIMIZED) Layout();
      return 0;
    case WM_GETMINMAXINFO: {
      const SIZE most = SizeOf(WorkAreaOf(window));
      reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {
          std::min<LONG>(Scaled(kLeastWidth), most.cx),
          std::min<LONG>(Scaled(kLeastHeight), most.cy)};
      return 0;
    }
    case win32::kDpiChanged: {
      const RECT& place = *reinterpret_cast<const RECT*>(lParam);
      UseDpi(HIWORD(wParam));
      SetWindowPos(window, nullptr, place.left, place.top, place.right - place.left,
                   place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
      Layout();
      return 0;
    }
    case WM_SETTINGCHANGE:
    case WM_SYSCOLORCHANGE:
    case WM_THEMECHANGED:
      UseSystemLook();
      return 0;
    case WM_TIMECHANGE:
      toLocal = UtcToLocal();
      return 0;
    case WM_DESTROY:
      KillTimer(window, kPollTimer);
      window = nullptr;
      PostQuitMessage(0);
      return 0;
    default:
      return DefWindowProcA(handle, message, wParam, lParam);
  }
}

void BenchWindow::OpenDesk() {
  // A desk that can't be used goes first: as long as it is held, no other one can be made.
  box.reset();
  desk.reset();
  desk = std::make_unique<simulator::MappedBox>(deskName);
  if (desk->IsOpen()) {
    box = std::make_unique<simulator::BoxControl>(desk->Shared(), *desk, simulator::By::kBench);
    Say("The box of this desk is open.");
  } else {
    SetText(control::kDeskError, "There is no box to show: " + desk->Error() + ".");
    Say("The box can't be opened.");
  }
  ShowSections();
  Layout();
  Poll();
}

// What had the focus may be hidden now.
void BenchWindow::TryAgain() {
  OpenDesk();
  FocusFirst();
}

void BenchWindow::Tick() {
  if (box == nullptr || desk->Milliseconds() < nextLook) return;
  if (!TakeCalls()) return ShowBusy();
  if (++looks % kLooksPerShow == 0) Poll();
}

// Calls are taken more often than they are shown: the journal holds only so many. They are named as
// those of the box that was there when it was looked at last.
bool BenchWindow::TakeCalls() {
  if (!shownBox) return true;
  auto calls = box->CallsFrom(log.Next());
  if (!calls) return false;
  log.Add(*calls, shownBox->identity, shownBox->firmware);
  std::copy_if(calls->entries.begin(), calls->entries.end(), std::back_inserter(writes),
               [](const simulator::Entry& entry) { return CallOf(entry).IsWrite(); });
  return true;
}

// The calls come first: what they changed is then in the box that is looked at, and never the other
// way round, in which nobody would have changed it.
bool BenchWindow::Poll() {
  if (box == nullptr) return false;
  if (!shownBox) {
    if (const auto first = box->LookAt()) ShowBox(*first);
  }
  const auto seen = shownBox && TakeCalls() ? box->LookAt() : std::nullopt;
  if (!seen) {
    ShowBusy();
    return false;
  }
  const std::size_t rows = properties.Count();
  const bool isOther = rows == 0 || shownBox->identity != seen->box.identity ||
                       shownBox->firmware != seen->box.firmware;
  if (properties.Update(*seen, writes, desk->Time(), desk->Milliseconds() + 1)) {
    InvalidateRect(Control(control::kProperties), nullptr, FALSE);
  }
  writes.clear();
  ShowBox(*seen);
  if (isOther || properties.Count() != rows) {
    FillOnly();
    ShowValue();
  }
  ShowFaults(seen->faults);
  ShowProperties();
  ShowLog();
  return true;
}

// Each look at a box that another program keeps takes a second, in which the window stands still
// and the panel waits behind it: the next one is not made at once.
void BenchWindow::ShowBusy() {
  nextLook = desk->Milliseconds() + kPauseWhenBusy;
  ShowConnection({false, shownBox ? Format("Type %d: ", shownBox->identity.boxType) + kBusy
                                  : Capitalised(kBusy)});
}

void BenchWindow::Say(const std::string& text) {
  SendMessageA(Control(control::kStatus), SB_SETTEXTA, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

void BenchWindow::Say(const std::wstring& text) {
  SendMessageA(Control(control::kStatus), SB_SETTEXTW, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

void BenchWindow::Refuse(const std::string& text) {
  Say(Capitalised(text) + ".");
  MessageBeep(MB_ICONWARNING);
}

void BenchWindow::Command(int id, int code) {
  if (isFilling) return;
  const bool needsNoBox = id == control::kTryAgain || id == IDOK || id == IDCANCEL;
  if (box == nullptr && !needsNoBox) return;
  const bool isEdited = code == EN_CHANGE;
  // While a list is open its choice may still be taken back.
  const bool isChosen = code == CBN_CLOSEUP ||
                        (code == CBN_SELCHANGE && SendMessageA(Control(static_cast<Id>(id)),
                                                               CB_GETDROPPEDSTATE, 0, 0) == FALSE);
  switch (id) {
    case IDOK:
      return Confirm();
    case IDCANCEL:
      return Cancel();
    case control::kTryAgain:
      if (box == nullptr) TryAgain();
      return;
    case control::kShowBox:
    case control::kShowFaults:
      showsFaults = id == control::kShowFaults;
      return ShowSections();
    case control::kPower:
    case control::kCable:
      return SwitchPlug();
    case control::kCut:
      return Cut();
    case control::kType:
      if (isChosen) FormChanged();
      return;
    case control::kBrand:
    case control::kFirmware:
      if (isEdited) FormChanged();
      return;
    case control::kBecome:
      return Become();
    case control::kReset:
      return Reset();
    case control::kSetSignal:
      return SetInput();
    case control::kHow:
    case control::kOnly:
    case control::kAnswer:
      if (isChosen) FaultsChanged();
      return;
    case control::kNth:
    case control::kResult:
      if (isEdited) FaultsChanged();
      return;
    case control::kReads:
    case control::kWrites:
    case control::kOpens:
    case control::kVanish:
    case control::kFill:
      return FaultsChanged();
    case control::kNoFaults:
      return NoFaults();
    case control::kPropertyFilter:
      if (!isEdited) return;
      properties.SetFilter(Text(control::kPropertyFilter));
      InvalidateRect(Control(control::kProperties), nullptr, TRUE);
      return ShowProperties();
    case control::kAsWords:
    case control::kAsBytes:
      return ShowValue();
    case control::kSetValue:
      return SetValue();
    case control::kLogKind:
      if (isChosen) FilterLog();
      return;
    case control::kLogFilter:
      if (isEdited) FilterLog();
      return;
    case control::kPause:
      return Pause();
    case control::kClear:
      return Clear();
    case control::kCopy:
      return Copy();
    case control::kSave:
      return Save();
    case control::kRefresh:
      return Poll() ? Say("Read anew.") : Refuse(kBusy);
    case control::kFind:
      return Find();
    default:
      return;
  }
}

void BenchWindow::Confirm() {
  if (box == nullptr) return TryAgain();
  if (HasFocus(control::kProperties)) return EditValue();
  if (HasFocus(control::kValue)) return SetValue();
  if (HasFocus(control::kSignal)) return SetInput();
  for (const Id id : {control::kType, control::kBrand, control::kSubModel, control::kFirmware,
                      control::kInputDip, control::kOutputDip}) {
    if (HasFocus(id)) return Become();
  }
  // Enter on a button presses it.
  const HWND focus = GetFocus();
  const auto style = static_cast<UINT>(GetWindowLongPtrA(focus, GWL_STYLE));
  if (focus != nullptr && (SendMessageA(focus, WM_GETDLGCODE, 0, 0) & DLGC_BUTTON) != 0 &&
      (style & BS_TYPEMASK) == BS_OWNERDRAW) {
    SendMessageA(focus, BM_CLICK, 0, 0);
  }
}

void BenchWindow::Cancel() {
  if (HasFocus(control::kValue)) {
    ShowValue();
    return Focus(control::kProperties);
  }
  const bool isAtLog = HasFocus(control::kLogFilter) || HasFocus(control::kLog);
  SetText(isAtLog ? control::kLogFilter : control::kPropertyFilter, "");
}

void BenchWindow::Find() {
  const bool isAtLog = HasFocus(control::kLog) || HasFocus(control::kLogFilter);
  Focus(isAtLog ? control::kLogFilter : control::kPropertyFilter);
}

}  // namespace panelora::boxbench
