// An operator's desk: what somebody in front of the panel can do and see. The same class stands
// over both toolkits (desk_memory.cpp, desk_win32.cpp), so that a scenario is written once. Dialogs
// are named by their template numbers, controls by their ids.
#pragma once

#include <functional>
#include <iterator>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

#include "ui/toolkit.h"

namespace panelora::testing {

class Desk {
 public:
  Desk();
  ~Desk();
  Desk(const Desk&) = delete;
  Desk& operator=(const Desk&) = delete;

  ui::Toolkit& Toolkit();

  // What the operator does. A disabled control takes nothing.
  void GiveFocus(int dialog, int control);
  void Press(int dialog, int control);
  void Type(int dialog, int control, std::string_view text);  // instead of what stands there
  void Drag(int dialog, int control, int position);           // a slider, held
  void Release(int dialog, int control);                      // the slider is let go
  void Choose(int dialog, int control, int index);            // an item of a combo box
  void PressKey(int dialog, int control, ui::Key key);        // with the focus on the control
  void PressMouse(int dialog, int control);                   // the left button goes down
  void ChooseSystemMenu(int dialog, int command);
  void RequestClose(int dialog);
  // What the operator does while the next modal dialog is open; it must close it.
  void WhileModal(std::function<void()> action);

  // What the system does.
  void Tick(int dialog, int timer);
  void Settle();             // everything that waits is painted and handled
  void Repaint(int dialog);  // the dialog was covered and is seen again

  // What the operator sees. A page is shown or hidden as a whole; a control's own state is told
  // apart from its page's.
  bool IsOpen(int dialog);
  bool IsShown(int dialog);
  std::string Title(int dialog);
  ui::Rect PlaceOf(int dialog);          // of a page in the main window's client area
  ui::Point ScreenPosition(int dialog);  // of the window's top left corner
  ui::Rect ClientSize(int dialog);       // at (0, 0)
  std::string Text(int dialog, int control);
  bool Shows(int dialog, int control);
  bool Enables(int dialog, int control);
  ui::Mark MarkOf(int dialog, int control);
  ui::Rect PlaceOf(int dialog, int control);
  std::string Picture(int dialog, int control);  // released
  std::string PressedPicture(int dialog, int control);
  ui::Font FontOf(int dialog, int control);
  // The control that has the focus in the window of a dialog: its own dialog and id; 0 = the
  // window.
  std::pair<int, int> Focus(int dialog);
  int SliderPosition(int dialog, int control);
  std::pair<int, int> SliderRange(int dialog, int control);
  int ProgressPosition(int dialog, int control);
  std::pair<int, int> ProgressRange(int dialog, int control);
  std::vector<std::string> Items(int dialog, int control);
  std::vector<std::pair<int, std::string>> SystemMenu(int dialog);  // what the program added
  int TimerPeriod(int dialog, int timer);                           // ms; 0 = does not run
  int TimersLeftRunning();  // how many the windows that went did not stop

  // What the program told or asked the system.
  std::vector<std::string> DebugOutput();
  void DrawNext(std::vector<int> numbers);  // the next random numbers
  // Whether the guide lies beside the program, and how often it was opened.
  void LayGuide(bool there);
  int GuidesOpened();

 private:
  struct Inside;
  std::unique_ptr<Inside> inside;
};

// In memory every row that a scenario is given; on real windows, where a panel takes 0.2 s to make,
// each fourth: what differs by row is the same code there.
int TriedStep();
template <class Rows>
auto Tried(const Rows& rows) {
  std::vector<std::remove_cvref_t<decltype(*std::begin(rows))>> tried;
  int index = 0;
  for (const auto& row : rows) {
    if (index++ % TriedStep() == 0) tried.push_back(row);
  }
  return tried;
}

}  // namespace panelora::testing
