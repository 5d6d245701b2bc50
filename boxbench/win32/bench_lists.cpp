// The right side of the window: what the box keeps, and the calls that were made.
#include "boxbench/win32/bench_window.h"

// commdlg.h needs what the one before it includes.
// clang-format off
#include <commdlg.h>
// clang-format on

#include <algorithm>
#include <cstring>

#include "base/text.h"
#include "boxbench/edit_value.h"
#include "boxbench/save_text.h"

namespace panelora::boxbench {

namespace {

using namespace control;  // NOLINT: nearly every line names some

// Widths at 96 dpi; one column of each list takes what the others leave.
struct Column {
  const char* title;
  int width;
};
constexpr Column kPropertyColumns[] = {{"Number", 68}, {"Name", 150},      {"Bytes", 104},
                                       {"Value", 130}, {"Written by", 72}, {"When", 84}};
constexpr int kCallColumns[] = {54, 84, 50, 64, 200, 52, 70, 190};
constexpr int kRowHeight = 19;
constexpr int kScrollBar = 22;
constexpr DWORD kLongestPath = 32768;  // letters, with the end

std::size_t CountOf(HWND list) {
  return static_cast<std::size_t>(SendMessageA(list, LVM_GETITEMCOUNT, 0, 0));
}

void SetCount(HWND list, std::size_t count) {
  SendMessageA(list, LVM_SETITEMCOUNT, count, LVSICF_NOINVALIDATEALL | LVSICF_NOSCROLL);
}

int Selected(HWND list, int after = -1) {
  return static_cast<int>(SendMessageA(list, LVM_GETNEXTITEM, static_cast<WPARAM>(after),
                                       MAKELPARAM(LVNI_SELECTED, 0)));
}

void AddColumn(HWND list, int index, const char* title) {
  LVCOLUMNA column{};
  column.mask = LVCF_TEXT | LVCF_FMT;
  column.fmt = LVCFMT_LEFT;
  column.pszText = const_cast<char*>(title);
  SendMessageA(list, LVM_INSERTCOLUMNA, static_cast<WPARAM>(index),
               reinterpret_cast<LPARAM>(&column));
}

}  // namespace

void BenchWindow::MakeColumns() {
  int index = 0;
  for (const Column& column : kPropertyColumns) {
    AddColumn(Control(kProperties), index++, column.title);
  }
  for (index = 0; index < CallLog::kColumnCount; ++index) {
    AddColumn(Control(kLog), index, CallLog::Title(index));
  }
  constexpr LPARAM kStyle =
      LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER | LVS_EX_LABELTIP | LVS_EX_HEADERDRAGDROP;
  for (const Id list : {kProperties, kLog}) {
    SendMessageA(Control(list), LVM_SETEXTENDEDLISTVIEWSTYLE, 0, kStyle);
  }
}

// Widths that the operator chose hold until the scale changes. Rows are as high as their pictures,
// of which there are none.
void BenchWindow::ScaleColumns() {
  const auto set = [this](Id list, int column, int width) {
    SendMessageA(Control(list), LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(column), Scaled(width));
  };
  int index = 0;
  for (const Column& column : kPropertyColumns) set(kProperties, index++, column.width);
  for (index = 0; index < CallLog::kColumnCount; ++index) set(kLog, index, kCallColumns[index]);
  for (const Id list : {kProperties, kLog}) {
    const HIMAGELIST pictures = ImageList_Create(1, Scaled(kRowHeight), ILC_COLOR, 0, 1);
    const LRESULT before = SendMessageA(Control(list), LVM_SETIMAGELIST, LVSIL_SMALL,
                                        reinterpret_cast<LPARAM>(pictures));
    if (before != 0) ImageList_Destroy(reinterpret_cast<HIMAGELIST>(before));
  }
}

// `width` is that of both lists, in pixels at 96 dpi.
void BenchWindow::FillColumns(int width) {
  int properties96 = width - kScrollBar;
  for (const Column& column : kPropertyColumns) properties96 -= column.width;
  properties96 += kPropertyColumns[PropertyList::kWords].width;
  int log96 = width - kScrollBar;
  for (const int column : kCallColumns) log96 -= column;
  log96 += kCallColumns[CallLog::kWords];
  const auto fill = [this](Id list, int column, int wanted, int least) {
    SendMessageA(Control(list), LVM_SETCOLUMNWIDTH, static_cast<WPARAM>(column),
                 Scaled(std::max(wanted, least)));
  };
  fill(kProperties, PropertyList::kWords, properties96,
       kPropertyColumns[PropertyList::kWords].width);
  fill(kLog, CallLog::kWords, log96, kCallColumns[CallLog::kWords]);
}

void BenchWindow::ShowProperties() {
  const HWND list = Control(kProperties);
  if (CountOf(list) != properties.Shown()) {
    SetCount(list, properties.Shown());
    InvalidateRect(list, nullptr, TRUE);
  }
  SelectEdited();
  std::size_t now = 0;
  for (std::size_t i = 0; i < properties.Shown(); ++i) {
    now += properties.IsFlashing(i, desk->Milliseconds() + 1) ? 1 : 0;
  }
  if (now != flashing) InvalidateRect(list, nullptr, FALSE);
  flashing = now;
  SetText(kPropertyCounts, properties.Counts());
}

// The list knows rows by their places, which a filter changes.
void BenchWindow::SelectEdited() {
  const HWND list = Control(kProperties);
  const auto index = edited ? properties.IndexOf(*edited) : std::nullopt;
  const int wanted = index ? static_cast<int>(*index) : -1;
  if (Selected(list) == wanted) return;
  isFilling = true;
  LVITEMA item{};
  item.stateMask = LVIS_SELECTED | LVIS_FOCUSED;
  SendMessageA(list, LVM_SETITEMSTATE, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&item));
  item.state = item.stateMask;
  if (wanted >= 0) {
    SendMessageA(list, LVM_SETITEMSTATE, static_cast<WPARAM>(wanted),
                 reinterpret_cast<LPARAM>(&item));
  }
  isFilling = false;
}

// Also when there is none.
bool BenchWindow::IsLogAtEnd() const {
  const HWND list = Control(kLog);
  const auto top = static_cast<std::size_t>(SendMessageA(list, LVM_GETTOPINDEX, 0, 0));
  const auto page = static_cast<std::size_t>(SendMessageA(list, LVM_GETCOUNTPERPAGE, 0, 0));
  return top + page >= CountOf(list);
}

void BenchWindow::ShowNewestCall() {
  const std::size_t count = CountOf(Control(kLog));
  if (count > 0) SendMessageA(Control(kLog), LVM_ENSUREVISIBLE, count - 1, FALSE);
}

// Stays at the newest call when that was to be seen.
void BenchWindow::ShowLog() {
  const HWND list = Control(kLog);
  const std::size_t before = CountOf(list);
  const std::size_t count = log.Shown();
  const bool wasAtEnd = IsLogAtEnd();
  if (count != before) SetCount(list, count);
  if (count < before || log.Dropped() != listedDropped) InvalidateRect(list, nullptr, TRUE);
  listedDropped = log.Dropped();
  if (count > before) {
    if (wasAtEnd) ShowNewestCall();
    InvalidateRect(list, nullptr, FALSE);
  }
  SetText(kLogCounts, log.Counts());
}

LRESULT BenchWindow::Notify(const NMHDR& header, LPARAM lParam) {
  const auto id = static_cast<Id>(header.idFrom);
  if (id != kProperties && id != kLog) return 0;
  switch (header.code) {
    case LVN_GETDISPINFOA:
      GiveText(*reinterpret_cast<NMLVDISPINFOA*>(lParam));
      return 0;
    case NM_CUSTOMDRAW:
      if (desk == nullptr) return CDRF_DODEFAULT;
      return DrawRow(*reinterpret_cast<const NMLVCUSTOMDRAW*>(lParam), lParam);
    case LVN_KEYDOWN:
      KeyInList(id, reinterpret_cast<const NMLVKEYDOWN*>(lParam)->wVKey);
      return 0;
    case LVN_ITEMCHANGED: {
      const auto& changed = *reinterpret_cast<const NMLISTVIEW*>(lParam);
      const bool isNew =
          (changed.uNewState & LVIS_SELECTED) != 0 && (changed.uOldState & LVIS_SELECTED) == 0;
      if (id == kProperties && isNew && changed.iItem >= 0 && !isFilling) {
        edited = properties.Row(static_cast<std::size_t>(changed.iItem)).at;
        ShowValue();
      }
      return 0;
    }
    case NM_DBLCLK:
      if (id == kProperties) EditValue();
      return 0;
    default:
      return 0;
  }
}

void BenchWindow::GiveText(NMLVDISPINFOA& wanted) {
  LVITEMA& item = wanted.item;
  if ((item.mask & LVIF_TEXT) == 0 || item.cchTextMax <= 0) return;
  const auto row = static_cast<std::size_t>(item.iItem);
  const std::string text = wanted.hdr.idFrom == kLog ? log.Cell(row, item.iSubItem, toLocal)
                                                     : properties.Cell(row, item.iSubItem, toLocal);
  const std::size_t room = static_cast<std::size_t>(item.cchTextMax) - 1;
  const std::size_t length = std::min(room, text.size());
  std::memcpy(item.pszText, text.data(), length);
  item.pszText[length] = '\0';
}

void BenchWindow::KeyInList(Id list, UINT key) {
  const bool isControl = GetKeyState(VK_CONTROL) < 0;
  const bool isLog = list == kLog;
  if (isControl && key == 'C') return isLog ? Copy() : CopyProperty();
  if (isControl && key == 'A' && isLog) {
    LVITEMA all{};
    all.stateMask = all.state = LVIS_SELECTED;
    SendMessageA(Control(kLog), LVM_SETITEMSTATE, static_cast<WPARAM>(-1),
                 reinterpret_cast<LPARAM>(&all));
  } else if (key == VK_DELETE) {
    isLog ? Clear() : ResetValue();
  } else if (key == VK_F2 && !isLog) {
    EditValue();
  }
}

// The field below the list has what the chosen row says; nothing without one.
void BenchWindow::ShowValue() {
  const PropertyRow* row = edited ? properties.Find(*edited) : nullptr;
  if (row == nullptr) edited.reset();
  isFilling = true;
  EnableControls();
  SendMessageA(Control(kValue), CB_RESETCONTENT, 0, 0);
  if (row != nullptr) {
    SetText(kValueLabel, row->name + ", " + row->number + ":");
    const bool asBytes = IsChecked(kAsBytes);
    if (!asBytes) OfferValues(*row);
    SetWindowTextA(Control(kValue), (asBytes ? row->HexBytes() : row->words).c_str());
  } else {
    SetText(kValueLabel, "No property chosen");
    SetWindowTextA(Control(kValue), "");
  }
  isFilling = false;
}

void BenchWindow::OfferValues(const PropertyRow& row) {
  for (const std::string& text : ValuesOffered(shownBox->identity, row)) {
    SendMessageA(Control(kValue), CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
  }
}

void BenchWindow::EditValue() {
  if (!edited) return Refuse("choose a property first");
  ShowValue();
  Focus(kValue);
}

void BenchWindow::SetValue() {
  const PropertyRow* row = edited ? properties.Find(*edited) : nullptr;
  if (row == nullptr || !shownBox) return Refuse("choose a property first");
  const std::string text = Text(kValue);
  const auto bytes =
      IsChecked(kAsBytes) ? ParseBytes(*row, text) : ParseWords(shownBox->identity, *row, text);
  if (!bytes.value) return Refuse(bytes.problem);
  Store(row->at, *bytes.value);
}

// The address may be that of a row: the look at the box moves the rows away.
void BenchWindow::Store(Address at, std::span<const std::uint8_t> bytes) {
  const std::string problem = StoreValue(*box, at, bytes);
  if (!problem.empty()) return Refuse(problem);
  Poll();
  const PropertyRow* row = properties.Find(at);
  if (row == nullptr) return;
  Say(row->name + ", " + row->number + ", is " + row->HexBytes() +
      (row->words.empty() ? "." : " now: " + row->words + "."));
  ShowValue();
}

void BenchWindow::ResetValue() {
  const PropertyRow* row = edited ? properties.Find(*edited) : nullptr;
  if (row == nullptr || !shownBox) return Refuse("choose a property first");
  const auto bytes = FactoryValue(shownBox->identity, shownBox->firmware, *row);
  if (bytes.empty()) return Refuse(row->name + " has no default: the box says it itself");
  Store(row->at, bytes);
}

void BenchWindow::FilterLog() {
  log.SetFilter(static_cast<CallLog::Kind>(std::max(Chosen(kLogKind), 0)), Text(kLogFilter));
  InvalidateRect(Control(kLog), nullptr, TRUE);
  ShowLog();
}

void BenchWindow::Pause() {
  log.Pause(!log.IsPaused());
  SetText(kPause, log.IsPaused() ? "Un&pause" : "&Pause");
  Say(log.IsPaused() ? "The log stands still; calls are counted on."
                     : "The log goes on, with all that came meanwhile.");
  ShowLog();
}

void BenchWindow::Clear() {
  log.Clear();
  InvalidateRect(Control(kLog), nullptr, TRUE);
  ShowLog();
  Say("The log is empty. Its numbers go on.");
}

std::vector<std::size_t> BenchWindow::SelectedCalls() const {
  std::vector<std::size_t> rows;
  for (int row = Selected(Control(kLog)); row >= 0; row = Selected(Control(kLog), row)) {
    rows.push_back(static_cast<std::size_t>(row));
  }
  return rows;
}

void BenchWindow::Copy() {
  const std::vector<std::size_t> rows = SelectedCalls();
  if (!PutOnClipboard(rows.empty() ? log.AllText(toLocal) : log.Text(rows, toLocal))) return;
  const std::size_t count = rows.empty() ? log.Shown() : rows.size();
  Say(CountText(count, "call is", "calls are") + " on the clipboard.");
}

void BenchWindow::CopyProperty() {
  const int row = Selected(Control(kProperties));
  if (row < 0) return Refuse("choose a property first");
  std::string text;
  for (int column = 0; column < PropertyList::kColumnCount; ++column) {
    text +=
        (column == 0 ? "" : "\t") + properties.Cell(static_cast<std::size_t>(row), column, toLocal);
  }
  if (PutOnClipboard(text + "\r\n")) Say("The property is on the clipboard.");
}

bool BenchWindow::PutOnClipboard(const std::string& text) {
  const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, text.size() + 1);
  void* copy = memory != nullptr ? GlobalLock(memory) : nullptr;
  if (copy == nullptr) {
    if (memory != nullptr) GlobalFree(memory);
    Refuse("there is no memory for so many calls: select fewer");
    return false;
  }
  std::memcpy(copy, text.c_str(), text.size() + 1);
  GlobalUnlock(memory);
  if (!OpenClipboard(window)) {
    GlobalFree(memory);
    Refuse("another program keeps the clipboard: try again");
    return false;
  }
  EmptyClipboard();
  const bool isTaken = SetClipboardData(CF_TEXT, memory) != nullptr;
  const DWORD error = GetLastError();
  CloseClipboard();
  if (isTaken) return true;
  GlobalFree(memory);
  Refuse(Format("the clipboard does not take it: error %lu", error));
  return false;
}

std::filesystem::path BenchWindow::AskForLogFile() {
  std::wstring chosen = L"calls.txt";
  chosen.resize(kLongestPath);
  OPENFILENAMEW ask{};
  ask.lStructSize = sizeof ask;
  ask.hwndOwner = window;
  ask.lpstrFilter = L"Text, tab separated (*.txt)\0*.txt\0All files\0*.*\0";
  ask.lpstrFile = chosen.data();
  ask.nMaxFile = kLongestPath;
  ask.lpstrDefExt = L"txt";
  ask.Flags = OFN_OVERWRITEPROMPT | OFN_HIDEREADONLY | OFN_NOCHANGEDIR | OFN_PATHMUSTEXIST;
  if (GetSaveFileNameW(&ask)) return chosen.c_str();
  const DWORD error = CommDlgExtendedError();
  if (error != 0)
    Refuse(Format("the log can't be saved: no file can be asked for, error %lu", error));
  return {};
}

// Names are not of the system's code page alone.
void BenchWindow::Save() {
  const std::filesystem::path file = logFile.empty() ? AskForLogFile() : logFile;
  if (file.empty()) return;
  const std::wstring name = file.wstring();
  if (!SaveText(file, log.AllText(toLocal))) {
    Say(L"The log can't be written to " + name + L": choose another place.");
    MessageBeep(MB_ICONWARNING);
    return;
  }
  const std::string count = CountText(log.Shown(), "call is", "calls are");
  Say(std::wstring(count.begin(), count.end()) + L" saved in " + name + L".");
}

}  // namespace panelora::boxbench
