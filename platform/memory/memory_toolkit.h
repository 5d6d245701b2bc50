// The toolkit in memory: dialogs without a screen, for tests, fuzzers and anything that only needs
// the program's behaviour. It keeps the rules of real windows that the pages can notice: typed
// texts obey their limits, positions their ranges, disabled controls take no input, sliders report
// a repaint after they changed or were uncovered, and after every event the focus is on a control
// that can be seen.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "ui/dialog_template.h"
#include "ui/toolkit.h"

namespace panelora::memory {

class MemoryToolkit;

// A control as it stands.
struct MemoryControl {
  ui::ControlKind kind = ui::ControlKind::kLabel;
  std::string text;
  ui::Rect rect;
  ui::Mark mark = ui::Mark::kNone;
  ui::Font font;
  bool fontSet = false;
  bool shown = true;
  bool enabled = true;
  std::string upPicture;
  std::string downPicture;
  int textLimit = 30000;
  int minimum = 0;
  int maximum = 100;
  int position = 0;
  bool needsPaint = true;  // sliders
  std::vector<std::string> items;
  int selected = -1;
};

class MemoryDialog final : public ui::Dialog {
 public:
  MemoryDialog(MemoryToolkit& theToolkit, const ui::DialogTemplate& theSource,
               ui::DialogEvents& theEvents, MemoryDialog* theParent);
  ~MemoryDialog() override;

  bool IsOpen() const override { return open; }
  void Close() override;
  void Show(bool nowShown) override;
  bool IsShown() const override { return shown; }
  void Place(const ui::Rect& place, int behindParentControl) override;
  void ResizeClient(int width, int height) override;
  void PlaceOver(const ui::Dialog& other, ui::Point offset) override;
  void SetTitle(std::string_view text) override { title = text; }
  void SetIcon(int number) override { icon = number; }
  void AddSystemMenuItem(int command, std::string_view text) override;
  bool StartTimer(int timer, int milliseconds) override;
  void StopTimer(int timer) override { timers.erase(timer); }
  std::string Text(int control) const override;
  void SetText(int control, std::string_view text) override;
  void ShowControl(int control, bool nowShown) override;
  void EnableControl(int control, bool enabled) override;
  void PlaceControl(int control, const ui::Rect& place) override;
  void SetFont(int control, const ui::Font& font) override;
  void SetMark(int control, ui::Mark mark) override;
  bool PressIfShown(int control) override;
  bool Focus(int control) override;
  bool FocusFirst() override;
  void SetPictures(int control, std::string_view up, std::string_view down) override;
  void SetTextLimit(int control, int characters) override;
  void SetSliderRange(int control, int minimum, int maximum) override;
  void SetSliderPosition(int control, int position) override;
  int SliderPosition(int control) const override;
  void SetProgressRange(int control, int minimum, int maximum) override;
  void SetProgressPosition(int control, int position) override;
  void ClearItems(int control) override;
  void AddItem(int control, std::string_view text) override;
  void SelectItem(int control, int index) override;
  int SelectedItem(int control) const override;
  std::string ItemText(int control, int index) const override;

  // What the operator and the system do. Input to a disabled control does nothing; a hidden one can
  // still be pressed, as window messages from outside can.
  void Press(int control);
  void Type(int control, std::string_view text);
  void Drag(int control, int position);
  void Release(int control);
  void Choose(int control, int index);
  bool PressKey(int control, ui::Key key);  // with the focus on the control
  void PressMouse(int control);
  void Tick(int timer);
  void ChooseSystemMenu(int command);
  void RequestClose();
  // The dialog was covered and is seen again: all of it wants to be painted.
  void Uncover();
  // Delivers the repaints of sliders that can be seen.
  void Paint();

  int Number() const { return source.number; }
  const MemoryControl* Find(int control) const;
  const std::string& Title() const { return title; }
  int Icon() const { return icon; }
  const ui::Rect& Client() const { return rect; }
  const std::map<int, int>& Timers() const { return timers; }
  const std::vector<std::pair<int, std::string>>& SystemMenu() const { return systemMenu; }
  int BehindParentControl() const { return behind; }
  ui::DialogEvents& Events() { return events; }
  ui::Point ScreenPosition() const;
  // The captioned window that the dialog is or lies in.
  MemoryDialog& Frame() { return source.framed ? *this : parent->Frame(); }
  const MemoryDialog& Frame() const { return source.framed ? *this : parent->Frame(); }
  // The control of the window that has the focus: its dialog's number and its id, 0 = the window.
  std::pair<int, int> FocusedControl() const { return focus; }

 private:
  // A control of the window or of one of its pages.
  struct TabStop {
    const MemoryDialog* dialog;
    int control;
  };

  MemoryControl* FindForChange(int control);
  bool IsVisible() const;
  bool IsUsable(int control) const;
  std::vector<TabStop> TabStops() const;
  void KeepFocusUsable();
  void MoveFocus(std::pair<int, int> to);  // of a window
  void FocusAndPaint(int control);
  std::vector<MemoryDialog*> InWindow();  // it and its pages, or what it is one of
  bool TakesInput(const MemoryControl* control) const;
  bool TakesFocus(const MemoryControl* control) const;

  MemoryToolkit& toolkit;
  const ui::DialogTemplate& source;
  ui::DialogEvents& events;
  MemoryDialog* parent;
  bool open = true;
  bool shown = false;
  ui::Rect rect;  // the client area; in the parent's client area for a page, else on the screen
  int behind = 0;
  std::string title;
  int icon = 0;
  std::map<int, MemoryControl> controls;
  std::map<int, int> timers;  // period in ms by number
  std::vector<std::pair<int, std::string>> systemMenu;
  std::pair<int, int> focus;  // of a window: dialog number and control
};

class MemoryToolkit final : public ui::Toolkit {
 public:
  std::unique_ptr<ui::Dialog> CreateDialogFrom(int number, ui::DialogEvents& events,
                                               ui::Dialog* parent) override;
  void RunModal(int number, ui::DialogEvents& events, ui::Dialog& owner,
                ui::Dialog*& opened) override;
  std::string String(int number) const override;
  void DebugOutput(std::string_view text) override { debugOutput.emplace_back(text); }
  ui::SerialHandle OpenSerial(const std::string& name) override;
  void CloseSerial(ui::SerialHandle port) override { closedPorts.push_back(port); }
  bool OpenGuide() override {
    if (hasGuide) ++guidesOpened;
    return hasGuide;
  }
  int Random() override;

  // The open dialog of a template, the one opened last first; null when there is none.
  MemoryDialog* Find(int number) const;
  // All that were made and not given back, open or closed.
  const std::vector<MemoryDialog*>& Dialogs() const { return dialogs; }

  // What a test decides and reads.
  std::function<void()> onModal;                  // the operator, while a modal dialog is open
  std::map<std::string, ui::SerialHandle> ports;  // the serial ports that can be opened
  std::vector<int> randomNumbers;                 // drawn in order, then 1 for ever
  std::vector<std::string> debugOutput;
  std::vector<std::string> openedPorts;
  std::vector<ui::SerialHandle> closedPorts;
  bool hasGuide = false;
  int guidesOpened = 0;
  int timersLeftRunning = 0;  // that no dialog stopped before it went

 private:
  friend class MemoryDialog;

  std::vector<MemoryDialog*> dialogs;
  std::size_t drawn = 0;
};

}  // namespace panelora::memory
