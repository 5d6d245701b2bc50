// What the program can do with a dialog and its controls, whichever toolkit shows them.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "ui/geometry.h"

namespace panelora::ui {

// What a control tells its dialog.
enum class Notification {
  kClicked,           // a button was pressed
  kSelectionChanged,  // another item of a combo box was chosen
  kTyped,             // the operator changed the text of an edit
};

// How a control stands out beside what it says.
enum class Mark {
  kNone,
  kCurrent,  // where the operator is
  kPending,  // chosen and not yet told to the box, or what tells it
};

// The keys that a dialog is asked about before the control that has the focus sees them: the first
// two the page that the focus is on, the others the window.
enum class Key {
  kEnter,
  kEscape,
  kBack,      // Alt+Left, and Backspace outside an edit
  kApply,     // Ctrl+Enter
  kRefresh,   // F5
  kNextPage,  // Ctrl+Page Up
  kHelp,      // F1
};
constexpr bool IsOfWindow(Key key) { return key > Key::kEscape; }

// What happens to a dialog. Every event arrives on the one user-interface thread, and only while
// the dialog exists.
class DialogEvents {
 public:
  virtual ~DialogEvents() = default;

  virtual void OnCommand(int /*control*/, Notification /*what*/) {}

  // A slider paints itself: after its position changed, while it is dragged, and whenever it was
  // covered or hidden before.
  virtual void OnSliderRepainted(int /*control*/) {}
  // The operator let go of a slider, or of the key that moved it. May be told twice.
  virtual void OnSliderReleased(int /*control*/) {}

  // A key was pressed while the focus is in the dialog. True = consumed; otherwise Enter presses
  // the button that has the focus. No other key goes on to the control.
  virtual bool OnKey(Key /*key*/) { return false; }
  // The left mouse button went down on a control, which sees the press afterwards.
  virtual void OnMousePress(int /*control*/) {}

  virtual void OnTimer(int /*timer*/) {}
  // An item of the system menu; `command` has its low four bits cleared. True = handled.
  virtual bool OnSystemCommand(int /*command*/) { return false; }

  // The colour of the dialog's background; none = the system's.
  virtual std::optional<Colour> BackgroundColour() { return std::nullopt; }

  // The close box, Alt+F4, or the system menu's Close.
  virtual void OnCloseRequest() {}
  // The window is about to go; timers can still be stopped.
  virtual void OnDestroy() {}
};

// A dialog made from a template. Controls are named by their ids; an id that the template does not
// have is ignored, and reads as empty, hidden or 0. Texts are bytes as the box and the tables hold
// them. Rectangles are pixels at 96 dpi.
class Dialog {
 public:
  virtual ~Dialog() = default;

  // The window.
  virtual bool IsOpen() const = 0;
  virtual void Close() = 0;
  virtual void Show(bool shown) = 0;
  virtual bool IsShown() const = 0;
  // Places a child dialog in its parent's client area, in the z-order directly behind a control of
  // the parent.
  virtual void Place(const Rect& rect, int behindParentControl) = 0;
  // Gives the client area a size; the position stays, and the window comes to the top.
  virtual void ResizeClient(int width, int height) = 0;
  // Places the top left corner at another dialog's on the screen, moved by `offset`; size and
  // z-order stay.
  virtual void PlaceOver(const Dialog& other, Point offset) = 0;
  virtual void SetTitle(std::string_view title) = 0;
  virtual void SetIcon(int icon) = 0;
  // Appends a separator and an item to the system menu.
  virtual void AddSystemMenuItem(int command, std::string_view text) = 0;

  // Timers by number; starting one again gives it the new period. False = none could be had.
  virtual bool StartTimer(int timer, int milliseconds) = 0;
  virtual void StopTimer(int timer) = 0;

  // Every control.
  virtual std::string Text(int control) const = 0;
  virtual void SetText(int control, std::string_view text) = 0;
  virtual void ShowControl(int control, bool shown) = 0;
  virtual void EnableControl(int control, bool enabled) = 0;
  virtual void PlaceControl(int control, const Rect& rect) = 0;
  virtual void SetFont(int control, const Font& font) = 0;

  // Texts stay as they are. Buttons, and the frames of values.
  virtual void SetMark(int control, Mark mark) = 0;

  // Presses a button that is shown and enabled; the focus stays. False = it is not.
  virtual bool PressIfShown(int control) = 0;

  // The keyboard goes to a button, edit, slider or combo box that is shown and enabled, at once or,
  // in a window that is not active, as soon as it is. False = nothing takes it; the focus stays.
  virtual bool Focus(int control) = 0;
  // The same for the first such control in the order of Tab.
  virtual bool FocusFirst() = 0;

  // Pictures and picture buttons: bitmaps by resource name, released and pressed, stretched to
  // their place.
  virtual void SetPictures(int control, std::string_view up, std::string_view down) = 0;

  // Edits: the greatest number of characters that can be typed.
  virtual void SetTextLimit(int control, int characters) = 0;

  // Sliders. A position outside the range becomes the nearest end.
  virtual void SetSliderRange(int control, int minimum, int maximum) = 0;
  virtual void SetSliderPosition(int control, int position) = 0;
  virtual int SliderPosition(int control) const = 0;

  // Progress bars.
  virtual void SetProgressRange(int control, int minimum, int maximum) = 0;
  virtual void SetProgressPosition(int control, int position) = 0;

  // Combo boxes. Selection -1 = none.
  virtual void ClearItems(int control) = 0;
  virtual void AddItem(int control, std::string_view text) = 0;
  virtual void SelectItem(int control, int index) = 0;
  virtual int SelectedItem(int control) const = 0;
  virtual std::string ItemText(int control, int index) const = 0;

 protected:
  Dialog() = default;
  Dialog(const Dialog&) = default;
  Dialog& operator=(const Dialog&) = default;
};

}  // namespace panelora::ui
