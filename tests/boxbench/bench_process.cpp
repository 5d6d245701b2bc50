#include "tests/boxbench/bench_process.h"

#include <fstream>
#include <iterator>
#include <stdexcept>
#include <system_error>

#include "base/text.h"
#include "platform/win32/dpi.h"
#include "tests/support/start_win32.h"

namespace panelora::boxbench::testing {

namespace {

constexpr ULONGLONG kPatience = 60000;  // ms
constexpr DWORD kPoll = 10;             // ms
constexpr std::size_t kTextRoom = 512;

struct Search {
  DWORD process;
  HWND found;
};

BOOL CALLBACK FindWindowOf(HWND window, LPARAM parameter) {
  Search& search = *reinterpret_cast<Search*>(parameter);
  DWORD owner = 0;
  GetWindowThreadProcessId(window, &owner);
  char name[64] = "";
  GetClassNameA(window, name, sizeof name);
  if (owner != search.process || std::string(name) != kWindowClass) return TRUE;
  if (!IsWindowVisible(window)) return TRUE;
  search.found = window;
  return FALSE;
}

ui::Rect PlaceIn(HWND parent, HWND child) {
  RECT place{};
  GetWindowRect(child, &place);
  POINT corner = {place.left, place.top};
  ScreenToClient(parent, &corner);
  return {static_cast<int>(corner.x), static_cast<int>(corner.y),
          static_cast<int>(place.right - place.left), static_cast<int>(place.bottom - place.top)};
}

}  // namespace

Parts& TheParts() {
  static Parts parts;
  return parts;
}

void Await(const char* what, const std::function<bool()>& condition) {
  const ULONGLONG start = GetTickCount64();
  while (!condition()) {
    if (GetTickCount64() - start > kPatience) throw std::runtime_error(std::string("no ") + what);
    Sleep(kPoll);
  }
}

BenchProcess::BenchProcess(const std::filesystem::path& logFile) {
  const std::filesystem::path bench = TheParts().bench;
  process = panelora::testing::StartByLine(L"\"" + bench.wstring() + L"\" \"" + logFile.wstring() +
                                           L"\"");
  try {
    Await("window of BoxBench", [this] {
      Search search{process.dwProcessId, nullptr};
      EnumWindows(FindWindowOf, reinterpret_cast<LPARAM>(&search));
      window = search.found;
      return window != nullptr;
    });
  } catch (...) {  // what is not wholly made is not unmade
    End();
    throw;
  }
}

BenchProcess::~BenchProcess() { End(); }

void BenchProcess::End() {
  Kill();
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
}

void BenchProcess::Kill() {
  TerminateProcess(process.hProcess, 1);
  WaitForSingleObject(process.hProcess, INFINITE);
}

void BenchProcess::Close() {
  PostMessageA(window, WM_CLOSE, 0, 0);
  Await("end of BoxBench",
        [this] { return WaitForSingleObject(process.hProcess, 0) == WAIT_OBJECT_0; });
}

LRESULT BenchProcess::Send(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
  DWORD_PTR result = 0;
  if (SendMessageTimeoutA(handle, message, wParam, lParam, SMTO_NORMAL, kPatience, &result) == 0) {
    throw std::runtime_error("BoxBench does not answer");
  }
  return static_cast<LRESULT>(result);
}

void BenchProcess::Tell(Id id, int code) {
  Send(window, WM_COMMAND, MAKEWPARAM(id, code), reinterpret_cast<LPARAM>(Control(id)));
}

void BenchProcess::Press(Id id) { Tell(id, BN_CLICKED); }

void BenchProcess::Tick(Id id, bool on) {
  Send(Control(id), BM_SETCHECK, on ? BST_CHECKED : BST_UNCHECKED);
  Tell(id, BN_CLICKED);
}

// The field itself says that it was changed; that of a combo box needs no word.
void BenchProcess::Type(Id id, const std::string& text) {
  Send(Control(id), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

void BenchProcess::Choose(Id id, const std::string& start) {
  const LRESULT index = Send(Control(id), CB_FINDSTRING, static_cast<WPARAM>(-1),
                             reinterpret_cast<LPARAM>(start.c_str()));
  if (index < 0) throw std::runtime_error("no choice " + start);
  Send(Control(id), CB_SETCURSEL, static_cast<WPARAM>(index));
  Tell(id, CBN_SELCHANGE);
}

void BenchProcess::Slide(Id id, int position) {
  Send(Control(id), TBM_SETPOS, TRUE, position);
  Send(window, WM_HSCROLL, MAKEWPARAM(TB_THUMBPOSITION, position),
       reinterpret_cast<LPARAM>(Control(id)));
}

void BenchProcess::Resize(int width, int height) {
  SetWindowPos(window, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
  Send(window, WM_NULL);
}

void BenchProcess::Rescale(int dpi, RECT place) {
  void* there = VirtualAllocEx(process.hProcess, nullptr, sizeof place, MEM_COMMIT, PAGE_READWRITE);
  if (there == nullptr) throw std::runtime_error("no memory in BoxBench");
  WriteProcessMemory(process.hProcess, there, &place, sizeof place, nullptr);
  Send(window, win32::kDpiChanged, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(there));
  VirtualFreeEx(process.hProcess, there, 0, MEM_RELEASE);
}

// Wine starts the display's own tool like a program of its own, but tells nothing of its end.
void BenchProcess::TypeKeys(const std::vector<std::string>& keys) {
  // Those before may still hold one that would change what these mean. What a program has asked of
  // the keys Wine tells it again for 50 ms.
  Sleep(60);
  for (const int held : {VK_CONTROL, VK_MENU, VK_SHIFT}) {
    Await("key that is let go", [held] { return GetAsyncKeyState(held) >= 0; });
  }
  std::string line = "xdotool key --delay 20";
  for (const std::string& key : keys) line += " " + key;
  STARTUPINFOA start{};
  start.cb = sizeof start;
  PROCESS_INFORMATION tool{};
  if (!CreateProcessA("Z:\\usr\\bin\\xdotool", line.data(), nullptr, nullptr, FALSE, 0, nullptr,
                      nullptr, &start, &tool)) {
    throw std::runtime_error("xdotool can't be started: install the package xdotool");
  }
  CloseHandle(tool.hThread);
  CloseHandle(tool.hProcess);
}

control::Id BenchProcess::Focus() const {
  GUITHREADINFO info{};
  info.cbSize = sizeof info;
  GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &info);
  // The edit of a combo box is its child.
  HWND focus = info.hwndFocus;
  while (focus != nullptr && GetParent(focus) != window) focus = GetParent(focus);
  return focus != nullptr ? static_cast<Id>(GetDlgCtrlID(focus)) : control::kNone;
}

std::string BenchProcess::Text(Id id) {
  const HWND handle = Control(id);
  std::string text(static_cast<std::size_t>(Send(handle, WM_GETTEXTLENGTH)) + 1, '\0');
  const LRESULT length =
      Send(handle, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(text.data()));
  text.resize(static_cast<std::size_t>(length));
  return text;
}

std::vector<control::Id> BenchProcess::Controls() const {
  std::vector<Id> ids;
  for (HWND child = GetWindow(window, GW_CHILD); child != nullptr;
       child = GetWindow(child, GW_HWNDNEXT)) {
    ids.push_back(static_cast<Id>(GetDlgCtrlID(child)));
  }
  return ids;
}

bool BenchProcess::IsShown(Id id) const {
  return (GetWindowLongPtrA(Control(id), GWL_STYLE) & WS_VISIBLE) != 0;
}

bool BenchProcess::IsEnabled(Id id) const { return IsWindowEnabled(Control(id)) != FALSE; }

bool BenchProcess::IsChecked(Id id) { return Send(Control(id), BM_GETCHECK) == BST_CHECKED; }

int BenchProcess::RowCount(Id list) {
  return static_cast<int>(Send(Control(list), LVM_GETITEMCOUNT));
}

std::string BenchProcess::WithItem(Id list, UINT message, int row, LVITEMA item) {
  auto* there = static_cast<char*>(VirtualAllocEx(
      process.hProcess, nullptr, sizeof item + kTextRoom, MEM_COMMIT, PAGE_READWRITE));
  if (there == nullptr) throw std::runtime_error("no memory in BoxBench");
  item.pszText = there + sizeof item;
  item.cchTextMax = kTextRoom;
  WriteProcessMemory(process.hProcess, there, &item, sizeof item, nullptr);
  Send(Control(list), message, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(there));
  char text[kTextRoom] = "";
  ReadProcessMemory(process.hProcess, there + sizeof item, text, sizeof text - 1, nullptr);
  VirtualFreeEx(process.hProcess, there, 0, MEM_RELEASE);
  return text;
}

std::string BenchProcess::Cell(Id list, int row, int column) {
  LVITEMA item{};
  item.mask = LVIF_TEXT;
  item.iItem = row;
  item.iSubItem = column;
  return WithItem(list, LVM_GETITEMTEXTA, row, item);
}

void BenchProcess::SelectRow(Id list, int row) {
  LVITEMA item{};
  item.stateMask = item.state = LVIS_SELECTED | LVIS_FOCUSED;
  WithItem(list, LVM_SETITEMSTATE, row, item);
}

int BenchProcess::FindRow(Id list, int column, const std::string& text) {
  for (int row = 0; row < RowCount(list); ++row) {
    if (Cell(list, row, column) == text) return row;
  }
  return -1;
}

std::vector<std::pair<int, ui::Rect>> BenchProcess::ShownPlaces() {
  std::vector<std::pair<int, ui::Rect>> places;
  for (HWND child = GetWindow(window, GW_CHILD); child != nullptr;
       child = GetWindow(child, GW_HWNDNEXT)) {
    if ((GetWindowLongPtrA(child, GWL_STYLE) & WS_VISIBLE) == 0) continue;
    places.emplace_back(GetDlgCtrlID(child), PlaceIn(window, child));
  }
  return places;
}

ui::Rect BenchProcess::Client() const {
  RECT client{};
  GetClientRect(window, &client);
  return {0, 0, static_cast<int>(client.right), static_cast<int>(client.bottom)};
}

BenchTest::BenchTest() {
  static int desks = 0;
  desk = Format("bench-test-%lu-%d", GetCurrentProcessId(), ++desks);
  SetEnvironmentVariableA("PANELORA_BOX", desk.c_str());
  logFile = std::filesystem::temp_directory_path() / (desk + ".txt");
  mapped = std::make_unique<simulator::MappedBox>(desk);
  if (!mapped->IsOpen()) throw std::runtime_error(mapped->Error());
  box = std::make_unique<simulator::BoxControl>(mapped->Shared(), *mapped, simulator::By::kBoxctl);
  LoadPanel();
  handle = panel->Open(kOpenMode);
}

void BenchTest::LoadPanel() {
  library = LoadLibraryA(TheParts().library.c_str());
  if (library == nullptr) throw std::runtime_error("no library " + TheParts().library);
  panel = std::make_unique<DevlnkLibrary>(DevlnkLibrary::Resolver(
      [this](const char* name) { return reinterpret_cast<void*>(GetProcAddress(library, name)); }));
}

// The library goes with its desk: the next test has one of its own.
BenchTest::~BenchTest() {
  bench.reset();
  panel.reset();
  FreeLibrary(library);
  std::error_code ignored;
  std::filesystem::remove(logFile, ignored);
}

simulator::BoxControl::Look BenchTest::LookAt() {
  const auto look = box->LookAt();
  if (!look) throw std::runtime_error("the box is busy");
  return *look;
}

int BenchTest::Read() {
  WordBuffer words{};
  return panel->GetBoxProperty(handle, kBoxGroup, 5, words);
}

int BenchTest::Write(std::uint32_t control, std::uint32_t value) {
  return panel->SetVideoProcAmp(handle, kBoxGroup, control, value);
}

std::string BenchTest::SavedLog() {
  std::ifstream file(logFile, std::ios::binary);
  return std::string(std::istreambuf_iterator<char>(file), {});
}

void BenchTest::AwaitText(control::Id id, const std::string& text) {
  std::string seen;
  try {
    Await(text.c_str(), [&] { return (seen = bench->Text(id)) == text; });
  } catch (const std::runtime_error& error) {
    throw std::runtime_error(std::string(error.what()) + ", but " + seen);
  }
}

}  // namespace panelora::boxbench::testing
