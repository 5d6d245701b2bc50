// BoxBench.exe driven from outside, as an operator and a screen reader do, on a desk of its own
// with a panel's calls through the simulated DEVLNK.dll. Whatever does not happen within a minute
// throws.
#pragma once

#include "platform/win32/windows_headers.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "boxbench/controls.h"
#include "device/devlnk_library.h"
#include "simulator/box_control.h"
#include "simulator/mapped_box.h"
#include "ui/geometry.h"

namespace panelora::boxbench::testing {

// Where the parts under test are.
struct Parts {
  std::string bench;    // BoxBench.exe
  std::string library;  // the simulated DEVLNK.dll
};
Parts& TheParts();

// Waits until the condition holds.
void Await(const char* what, const std::function<bool()>& condition);

// A running BoxBench.exe.
class BenchProcess {
 public:
  using Id = control::Id;

  // Starts it on the desk that the environment names, and waits for its window.
  explicit BenchProcess(const std::filesystem::path& logFile);
  ~BenchProcess();
  BenchProcess(const BenchProcess&) = delete;
  BenchProcess& operator=(const BenchProcess&) = delete;

  // What the operator does.
  void Press(Id id);
  void Tick(Id id, bool on);
  void Type(Id id, const std::string& text);
  void Choose(Id id, const std::string& start);  // the first choice that begins so
  void Slide(Id id, int position);
  void SelectRow(Id list, int row);
  void Resize(int width, int height);
  // As the system does when the window comes to a monitor of another scale.
  void Rescale(int dpi, RECT place);
  // Keys of the display's keyboard, by their names in X. Those that the window does not get are
  // lost.
  void TypeKeys(const std::vector<std::string>& keys);
  void Close();  // and waits for the end
  void Kill();

  // What he sees.
  HWND Window() const { return window; }
  HWND Control(Id id) const { return GetDlgItem(window, id); }
  std::string Text(Id id);
  std::vector<Id> Controls() const;  // shown or not
  bool IsShown(Id id) const;
  bool IsEnabled(Id id) const;
  bool IsChecked(Id id);
  Id Focus() const;  // kNone = on none of its controls
  int RowCount(Id list);
  std::string Cell(Id list, int row, int column);
  // The first row whose cell is the text; -1 = none.
  int FindRow(Id list, int column, const std::string& text);
  // The places of the controls that are shown, in the window.
  std::vector<std::pair<int, ui::Rect>> ShownPlaces();
  ui::Rect Client() const;

 private:
  LRESULT Send(HWND handle, UINT message, WPARAM wParam = 0, LPARAM lParam = 0);
  void End();                  // of the program and of what is known of it
  void Tell(Id id, int code);  // the window that something happened
  // Sends a list a message about an item, whose bytes must be in its own process.
  std::string WithItem(Id list, UINT message, int row, LVITEMA item);

  PROCESS_INFORMATION process{};
  HWND window = nullptr;
};

// A desk with a bench, and a panel's calls.
class BenchTest : public ::testing::Test {
 protected:
  BenchTest();
  ~BenchTest() override;

  void StartBench() { bench = std::make_unique<BenchProcess>(logFile); }
  void LoadPanel();  // its library, on the desk that the environment names
  simulator::BoxControl::Look LookAt();
  // Reads word 5, the firmware; the result.
  int Read();
  int Write(std::uint32_t control, std::uint32_t value);  // a picture value; the result
  std::string SavedLog();

  // The status line after something was done.
  std::string Status() { return bench->Text(control::kStatus); }
  void AwaitText(control::Id id, const std::string& text);

  std::string desk;
  std::filesystem::path logFile;
  std::unique_ptr<simulator::MappedBox> mapped;
  std::unique_ptr<simulator::BoxControl> box;
  HMODULE library = nullptr;
  std::unique_ptr<DevlnkLibrary> panel;
  DeviceHandle handle = kNoBox;
  std::unique_ptr<BenchProcess> bench;
};

}  // namespace panelora::boxbench::testing
