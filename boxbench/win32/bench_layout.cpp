// Where the controls of the window stand: a head, a column for the box or its faults, and two
// lists.
#include <algorithm>

#include "boxbench/win32/bench_metrics.h"
#include "boxbench/win32/bench_window.h"

namespace panelora::boxbench {

namespace {

using namespace control;  // NOLINT: nearly every line names some

// In pixels at 96 dpi.
constexpr int kBandHeight = 28;
constexpr int kGap = 8;
constexpr int kNarrow = 4;
constexpr int kColumn = 296;
constexpr int kRow = 24;
constexpr int kLabelWidth = 72;
constexpr int kDropHeight = 320;
constexpr int kFieldFrame = 4;  // above and below, at every scale
constexpr int kPointsOfText = 9;
constexpr int kPointsOfTitle = 12;

constexpr Id kFirstOfBox = kConnectionHeading;
constexpr Id kLastOfBox = kSetSignal;
constexpr Id kFirstOfFaults = kWrongHeading;
constexpr Id kLastOfFaults = kNoFaults;

int LineHeightOf(HWND window, HFONT font) {
  const HDC context = GetDC(window);
  const HGDIOBJ before = SelectObject(context, font);
  TEXTMETRICA metrics{};
  GetTextMetricsA(context, &metrics);
  SelectObject(context, before);
  ReleaseDC(window, context);
  return metrics.tmHeight;
}

bool IsOf(int id, Id first, Id last) { return id >= first && id <= last; }

bool IsEdit(Id id) {
  return id == kBrand || id == kSubModel || id == kFirmware || id == kNth || id == kResult ||
         id == kPropertyFilter || id == kLogFilter;
}

// Places controls in pixels at 96 dpi, all at once.
class Placer {
 public:
  // Fields are `theFieldHeight` pixels high, in the middle of their rows.
  Placer(HWND theWindow, int theDpi, int theFieldHeight)
      : window(theWindow),
        dpi(theDpi),
        fieldHeight(theFieldHeight),
        moves(BeginDeferWindowPos(90)) {}
  ~Placer() { Finish(); }
  Placer(const Placer&) = delete;
  Placer& operator=(const Placer&) = delete;

  void Finish() {
    if (moves != nullptr) EndDeferWindowPos(moves);
    moves = nullptr;
  }

  void Put(Id id, int x, int y, int width, int height) {
    const HWND handle = GetDlgItem(window, id);
    if (handle == nullptr || moves == nullptr) return;
    const int row = Scaled(std::max(height, 0));
    const int high = IsEdit(id) ? fieldHeight : row;
    const int top = Scaled(y) + (IsEdit(id) ? (row - high) / 2 : 0);
    moves = DeferWindowPos(moves, handle, nullptr, Scaled(x), top, Scaled(std::max(width, 0)), high,
                           SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOCOPYBITS);
  }

 private:
  int Scaled(int value) const { return win32::ScaleForDpi(value, dpi); }

  HWND window;
  int dpi;
  int fieldHeight;
  HDWP moves;
};

void PlaceBox(Placer& placer, int x, int y) {
  const int right = x + kColumn;
  const int field = x + kLabelWidth;
  placer.Put(kConnectionHeading, x, y, kColumn, 20);
  y += 24;
  placer.Put(kPower, x, y + 1, 66, kRow);
  placer.Put(kCable, x + kLabelWidth, y + 1, 66, kRow);
  placer.Put(kCut, right - 140, y, 140, 26);
  y += 26 + kMargin;
  placer.Put(kModelHeading, x, y, kColumn, 20);
  y += 24;
  placer.Put(kTypeLabel, x, y, kLabelWidth, kRow);
  placer.Put(kType, field, y, kColumn - kLabelWidth, kDropHeight);
  y += kRow + 6;
  placer.Put(kPages, field, y, kColumn - kLabelWidth, 30);
  y += 30 + 6;
  placer.Put(kBrandLabel, x, y, kLabelWidth, kRow);
  placer.Put(kBrand, field, y, 64, kRow);
  placer.Put(kSubModelLabel, field + 64, y, right - 64 - field - 64 - 6, kRow);
  placer.Put(kSubModel, right - 64, y, 64, kRow);
  y += kRow + 4;
  placer.Put(kInputDip, field, y, 100, kRow);
  placer.Put(kOutputDip, right - 110, y, 110, kRow);
  y += kRow + 4;
  placer.Put(kFirmwareLabel, x, y, kLabelWidth, kRow);
  placer.Put(kFirmware, field, y, 64, kRow);
  placer.Put(kFirmwareHint, field + 64 + kGap, y, kColumn - kLabelWidth - 64 - kGap, kRow);
  y += kRow + kGap;
  placer.Put(kBecome, x, y, (kColumn - kGap) / 2, 26);
  placer.Put(kReset, x + (kColumn + kGap) / 2, y, (kColumn - kGap) / 2, 26);
  y += 26 + kMargin;
  placer.Put(kSignalHeading, x, y, kColumn, 20);
  y += 24;
  placer.Put(kSignalLabel, x, y, kLabelWidth, kRow);
  placer.Put(kSignal, field, y, kColumn - kLabelWidth - 84 - kGap, kDropHeight);
  placer.Put(kSetSignal, right - 84, y - 1, 84, 26);
}

void PlaceFaults(Placer& placer, int x, int y) {
  const int right = x + kColumn;
  const int field = x + kLabelWidth;
  const int small = 56;
  placer.Put(kWrongHeading, x, y, kColumn, 20);
  y += 24;
  placer.Put(kHowLabel, x, y, kLabelWidth, kRow);
  placer.Put(kHow, field, y, kColumn - kLabelWidth - small - 30, kDropHeight);
  placer.Put(kNthLabel, right - small - 26, y, 22, kRow);
  placer.Put(kNth, right - small, y, small, kRow);
  y += kRow + 6;
  placer.Put(kWhichLabel, x, y, kLabelWidth, kRow);
  placer.Put(kReads, field, y, 72, kRow);
  placer.Put(kWrites, field + 78, y, 72, kRow);
  placer.Put(kOpens, field + 156, y, 72, kRow);
  y += kRow + 6;
  placer.Put(kOnlyLabel, x, y, kLabelWidth, kRow);
  placer.Put(kOnly, field, y, kColumn - kLabelWidth, kDropHeight);
  y += kRow + 6;
  placer.Put(kAnswerLabel, x, y, kLabelWidth, kRow);
  placer.Put(kAnswer, field, y, kColumn - kLabelWidth, kDropHeight);
  y += kRow + 6;
  placer.Put(kResultLabel, x, y, kLabelWidth, kRow);
  placer.Put(kResult, field, y, small + 20, kRow);
  y += kRow + kMargin;
  placer.Put(kAllHeading, x, y, kColumn, 20);
  y += 24;
  placer.Put(kLatencyLabel, x, y, kLabelWidth - 6, kRow);
  placer.Put(kLatency, field - 6, y, kColumn - kLabelWidth - 50, 26);
  placer.Put(kLatencyValue, right - 52, y, 52, kRow);
  y += 26 + 4;
  placer.Put(kVanish, x, y, kColumn, kRow);
  y += kRow + 2;
  placer.Put(kFill, x, y, kColumn, kRow);
  y += kRow + kGap;
  placer.Put(kNoFaults, x, y, (kColumn - kGap) / 2, 26);
}

void PlaceProperties(Placer& placer, int x, int y, int width, int height) {
  const int right = x + width;
  const int filter = std::min(200, width / 3);
  placer.Put(kPropertiesHeading, x, y, 84, kRow);
  placer.Put(kPropertyCounts, x + 84, y, width - 84 - filter - 50, kRow);
  placer.Put(kPropertyFilterLabel, right - filter - 46, y, 40, kRow);
  placer.Put(kPropertyFilter, right - filter, y, filter, kRow);
  const int bottom = y + height;
  placer.Put(kProperties, x, y + kRow + 6, width, height - 2 * kRow - 14);
  const int label = std::min(210, width * 3 / 10);
  constexpr int kRadio = 60;
  constexpr int kSet = 76;
  const int line = bottom - kRow;
  placer.Put(kValueLabel, x, line, label, kRow);
  const int value = x + label + kNarrow;
  const int after = right - kSet - kGap - 2 * kRadio;
  placer.Put(kValue, value, line, after - kGap - value, kDropHeight);
  placer.Put(kAsWords, after, line, kRadio, kRow);
  placer.Put(kAsBytes, after + kRadio, line, kRadio, kRow);
  placer.Put(kSetValue, right - kSet, line - 1, kSet, 26);
}

void PlaceLog(Placer& placer, int x, int y, int width, int height) {
  const int right = x + width;
  placer.Put(kLogHeading, x, y, 84, 20);
  placer.Put(kLogCounts, x + 84, y, width - 84, 20);
  y += 24;
  height -= 24;
  constexpr int kButton = 52;
  int button = right;
  for (const Id id : {kSave, kCopy, kClear, kPause}) {
    placer.Put(id, button - kButton, y - 1, kButton, 26);
    button -= kButton + kNarrow;
  }
  placer.Put(kLogKindLabel, x, y, 36, kRow);
  placer.Put(kLogKind, x + 36, y, 82, kDropHeight);
  placer.Put(kLogFilterLabel, x + 118, y, 40, kRow);
  const int filter = x + 164;
  placer.Put(kLogFilter, filter, y, button - kNarrow - filter, kRow);
  placer.Put(kLog, x, y + kRow + 6, width, height - kRow - 6);
}

}  // namespace

void BenchWindow::UseDpi(int newDpi) {
  dpi = newDpi;
  for (HFONT* each : {&font, &boldFont, &titleFont}) {
    if (*each != nullptr) DeleteObject(*each);
  }
  NONCLIENTMETRICSA metrics{};
  metrics.cbSize = sizeof metrics;
  SystemParametersInfoA(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  LOGFONTA kind = metrics.lfMessageFont;
  constexpr int kPointsPerInch = 72;
  kind.lfHeight = -MulDiv(kPointsOfText, dpi, kPointsPerInch);
  kind.lfWidth = 0;
  font = CreateFontIndirectA(&kind);
  lineHeight = LineHeightOf(window, font);
  kind.lfWeight = FW_BOLD;
  boldFont = CreateFontIndirectA(&kind);
  kind.lfHeight = -MulDiv(kPointsOfTitle, dpi, kPointsPerInch);
  titleFont = CreateFontIndirectA(&kind);
  for (HWND child = GetWindow(window, GW_CHILD); child != nullptr;
       child = GetWindow(child, GW_HWNDNEXT)) {
    HFONT own = font;
    switch (GetDlgCtrlID(child)) {
      case kTitle:
        own = titleFont;
        break;
      case kFaultBand:
      case kConnectionHeading:
      case kModelHeading:
      case kSignalHeading:
      case kWrongHeading:
      case kAllHeading:
      case kPropertiesHeading:
      case kLogHeading:
        own = boldFont;
        break;
      default:
        break;
    }
    SendMessageA(child, WM_SETFONT, reinterpret_cast<WPARAM>(own), TRUE);
  }
  for (const Id id : {kType, kSignal, kHow, kOnly, kAnswer, kValue, kLogKind}) {
    // The row of an edit, without the frame of the combo box.
    SendMessageA(Control(id), CB_SETITEMHEIGHT, static_cast<WPARAM>(-1), Scaled(kRow) - 6);
  }
  ScaleColumns();
}

void BenchWindow::Layout() {
  if (window == nullptr || Control(kStatus) == nullptr) return;
  const bool isAtEnd = IsLogAtEnd();
  RECT client{};
  GetClientRect(window, &client);
  SendMessageA(Control(kStatus), WM_SIZE, 0, 0);
  RECT status{};
  GetWindowRect(Control(kStatus), &status);
  const int parts[] = {static_cast<int>(client.right) - Scaled(240), -1};
  SendMessageA(Control(kStatus), SB_SETPARTS, 2, reinterpret_cast<LPARAM>(parts));
  const int width = MulDiv(client.right, 96, dpi);
  const int height = MulDiv(client.bottom - (status.bottom - status.top), 96, dpi);

  Placer placer(window, dpi, lineHeight + Scaled(3) + kFieldFrame);
  const int titleWidth = width < kLeastWidthForPicture ? width - 2 * kMargin - 26 : width - 400;
  placer.Put(kTitle, kMargin + 26, 8, titleWidth, 24);
  placer.Put(kSubtitle, kMargin + 26, 33, titleWidth, 20);
  int top = kHeadHeight;
  if (!Text(kFaultBand).empty()) {
    placer.Put(kFaultBand, 0, top, width + 1, kBandHeight);
    top += kBandHeight;
  }
  top += kMargin;
  placer.Put(kDeskError, kMargin, top, width - 2 * kMargin, 48);
  placer.Put(kTryAgain, kMargin, top + 56, 120, 26);
  placer.Put(kShowBox, kMargin, top, kColumn / 2, 28);
  placer.Put(kShowFaults, kMargin + kColumn / 2, top, kColumn / 2, 28);
  PlaceBox(placer, kMargin, top + 28 + 10);
  PlaceFaults(placer, kMargin, top + 28 + 10);
  const int x = kMargin + kColumn + 16;
  const int listWidth = width - x - kMargin;
  const int listHeight = height - top - kMargin;
  const int upper = (listHeight - kMargin) / 2;
  PlaceProperties(placer, x, top, listWidth, upper);
  PlaceLog(placer, x, top + upper + kMargin, listWidth, listHeight - upper - kMargin);
  FillColumns(listWidth);
  placer.Finish();
  if (isAtEnd) ShowNewestCall();
  RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
}

void BenchWindow::ShowSections() {
  Check(kShowBox, !showsFaults);
  Check(kShowFaults, showsFaults);
  const bool isOpen = box != nullptr;
  for (HWND child = GetWindow(window, GW_CHILD); child != nullptr;
       child = GetWindow(child, GW_HWNDNEXT)) {
    const int id = GetDlgCtrlID(child);
    bool shown = isOpen;
    if (IsOf(id, kFirstOfBox, kLastOfBox)) shown = isOpen && !showsFaults;
    if (IsOf(id, kFirstOfFaults, kLastOfFaults)) shown = isOpen && showsFaults;
    if (id == kDeskError || id == kTryAgain) shown = !isOpen;
    if (id == kFaultBand) shown = isOpen && !Text(kFaultBand).empty();
    if (id == kTitle || id == kSubtitle || id == kStatus) shown = true;
    ShowWindow(child, shown ? SW_SHOWNA : SW_HIDE);
  }
  EnableControls();
}

}  // namespace panelora::boxbench
