// The toolkit over real windows. Rectangles come in pixels at 96 dpi and are scaled here, in one
// place, to the dpi of the window's monitor; when that changes every dialog is laid out again.
#pragma once

#include "platform/win32/windows_headers.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "platform/win32/accessible.h"
#include "platform/win32/gdi_cache.h"
#include "platform/win32/look.h"
#include "res/spoken_names.h"
#include "ui/dialog_template.h"
#include "ui/toolkit.h"

namespace panelora::win32 {

class Win32Toolkit;

// A control as the program placed it, so that it can be laid out again at another dpi.
struct Win32Control {
  int id = 0;
  ui::ControlKind kind = ui::ControlKind::kLabel;
  std::string text;               // of what the operator can't change
  mutable HWND window = nullptr;  // once it was asked for
  ui::Rect rect;                  // 96 dpi
  ui::Font font;
  bool fontSet = false;
  bool shown = true;
  bool changed = true;  // its window does not have all of this yet
  bool textChanged = false;
  RECT placed{};         // where it was put last, in pixels of the dialog
  bool limited = false;  // labels: only `visible` is painted
  RECT visible{};
  ui::Mark mark = ui::Mark::kNone;
  std::string upPicture;
  std::string downPicture;

  bool IsReadout() const { return ui::IsReadout(kind, text, rect); }
  bool HasOwnText() const {
    return kind == ui::ControlKind::kEdit || kind == ui::ControlKind::kCombo;
  }
};

class Win32Dialog final : public ui::Dialog {
 public:
  Win32Dialog(Win32Toolkit& theToolkit, const ui::DialogTemplate& theSource,
              ui::DialogEvents& theEvents, Win32Dialog* theParent);
  ~Win32Dialog() override;

  bool IsOpen() const override { return window != nullptr; }
  void Close() override;
  void Show(bool shown) override;
  bool IsShown() const override;
  void Place(const ui::Rect& place, int behindParentControl) override;
  void ResizeClient(int width, int height) override;
  void PlaceOver(const ui::Dialog& other, ui::Point offset) override;
  void SetTitle(std::string_view title) override;
  void SetIcon(int icon) override;
  void AddSystemMenuItem(int command, std::string_view text) override;
  bool StartTimer(int timer, int milliseconds) override;
  void StopTimer(int timer) override;
  std::string Text(int control) const override;
  void SetText(int control, std::string_view text) override;
  void ShowControl(int control, bool shown) override;
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

  int Number() const { return source.number; }
  HWND Handle() const { return window; }
  ui::DialogEvents& Events() { return events; }
  const Win32Control* Find(int control) const;
  HWND ControlWindow(int control) const;
  HWND WindowOf(const Win32Control& control) const;
  const std::map<int, int>& Timers() const { return timers; }  // period in ms by number
  // The captioned window that the dialog is or lies in.
  Win32Dialog& Frame() { return source.framed ? *this : parent->Frame(); }
  // The controls at which Tab stops, in its order: as the eye goes over the dialog, then over its
  // pages. With the one from which the focus is lost, wherever that is.
  std::vector<HWND> TabStops(HWND lost) const;
  // Where the focus goes from a control that can't keep it.
  HWND NextUsable(HWND lost) const;
  void MoveByTab(HWND from, bool back);
  // Framed dialogs: the control that has the focus, or gets it when the window is active again.
  HWND focus = nullptr;

  // Gives the windows what was asked for and is not yet done: first the hiding of the dialog itself
  // where it is to be hidden, then all else.
  void HideWhenAsked();
  void Settle();
  // Lays the dialog and its controls out for another dpi.
  void Rescale(int newDpi);
  // Gives every control's window its place and font now, also of those that nobody sees. For tests.
  void LayOutAll();

  // What a screen reader hears of a control, by its window; none when it is not the dialog's.
  std::optional<Told> Tell(HWND control);
  // Tells the screen reader what it would hear otherwise than before.
  void TellChanges();

 private:
  static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wParam,
                                    LPARAM lParam) noexcept;
  INT_PTR OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
  INT_PTR OnEvent(UINT message, WPARAM wParam, LPARAM lParam);
  INT_PTR Answer(LRESULT result);
  void OnCommandMessage(int control, UINT code);
  INT_PTR OnNotify(const NMHDR& header);
  void OnDpiChanged(int newDpi, const RECT& suggested);
  void DrawControl(const DRAWITEMSTRUCT& item);
  void DrawLabel(const Win32Control& control, const DRAWITEMSTRUCT& item);
  void DrawButton(const Win32Control& control, const DRAWITEMSTRUCT& item);
  void DrawFocus(const DRAWITEMSTRUCT& item);
  RECT SeenPart(const DRAWITEMSTRUCT& item) const;
  LRESULT DrawSlider(const NMCUSTOMDRAW& draw);
  void DrawTrack(HDC context, HWND slider, const RECT& thumb);
  void DrawThumb(const NMCUSTOMDRAW& draw, const RECT& thumb);
  bool EraseWithReadouts(HDC context);
  RECT ReadoutOf(const Win32Control& control) const;
  RECT BarOfEdit(const Win32Control& control) const;
  bool LiesInReadout(const Win32Control& control) const;
  void RepaintReadout(const Win32Control& control);
  void PaintAnew(const RECT* part = nullptr);
  static LRESULT CALLBACK BarProcedure(HWND bar, UINT message, WPARAM wParam, LPARAM lParam,
                                       UINT_PTR number, DWORD_PTR toolkit) noexcept;
  void DrawPicture(const Win32Control& control, const DRAWITEMSTRUCT& item);
  bool PaintMinimised();
  void AdoptControls();
  void OnChange();
  void OnChange(Win32Control& control);
  bool IsSeen() const;
  void ShowText(Win32Control& control);
  void Repaint(const Win32Control& control);
  void ShowNow(Win32Control& control);
  void LayOutSeen();
  bool LayOutControl(Win32Control& control, UINT flags = 0);
  bool MoveToPlace(Win32Control& control, UINT flags);
  void UseFont(Win32Control& control);
  void LimitToLine(Win32Control& control, HFONT font);
  void SizeForClient(int width, int height, UINT flags);
  int Scaled(int value) const;
  RECT Scaled(const ui::Rect& place) const;
  std::string ValueOf(const Win32Control& control) const;
  std::map<int, res::Spoken> Spoken() const;

  Win32Toolkit& toolkit;
  const ui::DialogTemplate& source;
  ui::DialogEvents& events;
  Win32Dialog* parent;
  HWND window = nullptr;
  bool live = false;       // events are passed on: between creation and destruction
  bool pageShown = false;  // of a page, as it was asked for
  bool unsettled = false;  // its windows do not have all that was asked for yet
  bool showsText = false;  // a text is given to a window, which tells of it as if it were typed
  int dpi = 96;
  ui::Rect rect;  // 96 dpi: a page's place, a framed window's client size
  int behind = 0;
  int iconNumber = 0;
  HICON bigIcon = nullptr;
  std::map<int, Win32Control> controls;
  std::map<int, int> timers;
  std::map<int, res::Spoken> said;  // to the screen reader; nothing while the dialog is not seen
};

class Win32Toolkit final : public ui::Toolkit {
 public:
  explicit Win32Toolkit(HINSTANCE theInstance);
  ~Win32Toolkit() override;

  std::unique_ptr<ui::Dialog> CreateDialogFrom(int number, ui::DialogEvents& events,
                                               ui::Dialog* parent) override;
  void RunModal(int number, ui::DialogEvents& events, ui::Dialog& owner,
                ui::Dialog*& opened) override;
  std::string String(int number) const override;
  void DebugOutput(std::string_view text) override;
  ui::SerialHandle OpenSerial(const std::string& name) override;
  void CloseSerial(ui::SerialHandle port) override;
  bool OpenGuide() override;
  int Random() override;

  // Runs the message loop until the dialog is closed.
  void RunUntilClosed(const ui::Dialog& dialog);
  // Handles every message that waits; returns at once when there is none.
  void HandleWaiting();
  // Offers a message to the pages, then to the dialogs' keyboard handling, then to its window.
  void Handle(MSG& message);

  HINSTANCE Instance() const { return instance; }
  GdiCache& Gdi() { return gdi; }

  // The open dialog of a template, the one opened last first; null when there is none.
  Win32Dialog* Find(int number) const;
  // The dialog that a window is or belongs to, the innermost one; null when it is none of ours.
  Win32Dialog* DialogOf(HWND window) const;

  const Look& Colours() const { return look; }
  void TakeSystemColours(bool highContrast = IsHighContrast()) {
    look = LookOf(highContrast);
    gdi.ForgetPictures();
  }
  // The button under the mouse; null = none.
  HWND Hot() const { return hot; }

  // Whether the focus is marked: once the operator moves by the keyboard.
  bool MarksFocus() const { return marksFocus; }

  // Runs whenever a message loop has nothing to do, before it waits. For tests, which act there as
  // the operator while a modal dialog is open.
  std::function<void()> onIdle;
  std::function<void(std::string_view)> onDebugOutput;
  std::function<int()> onRandom;
  std::function<bool()> onGuide;
  int timersLeftRunning = 0;  // that no dialog stopped before it went

 private:
  friend class Win32Dialog;

  // Counts the handlers that run inside each other: the outermost one looks after the focus.
  class Handling {
   public:
    Handling(Win32Toolkit& theToolkit, UINT theMessage) : toolkit(theToolkit), message(theMessage) {
      ++toolkit.depth;
    }
    ~Handling() {
      if (--toolkit.depth != 0) return;
      toolkit.Settle();
      if (toolkit.MayMoveFocus(message)) toolkit.KeepFocusUsable();
      if (toolkit.listened && message != WM_MOUSEMOVE) toolkit.TellChanges();
    }
    Handling(const Handling&) = delete;
    Handling& operator=(const Handling&) = delete;

   private:
    Win32Toolkit& toolkit;
    UINT message;
  };

  // Painting, mouse moves and most ticks change nothing, and to ask for the focus is dearer.
  bool MayMoveFocus(UINT message) const {
    const bool isQuiet = message == WM_TIMER || message == WM_PAINT || message == WM_MOUSEMOVE;
    return !isQuiet || usableChanged;
  }

  void Settle();
  void Listen();
  void TellChanges();
  bool PreTranslate(const MSG& message);
  bool OnKeyDown(const MSG& message, Win32Dialog& dialog);
  void FollowMouse(const MSG& message);
  void SetHot(HWND button);
  bool OnWheel(const MSG& message, const Win32Dialog& dialog);
  void PressFocusedButton(HWND button);
  bool GiveFocus(HWND control);
  void KeepFocusUsable();

  HINSTANCE instance;
  GdiCache gdi;
  std::vector<Win32Dialog*> dialogs;
  Look look = LookOf(IsHighContrast());
  HWND hot = nullptr;
  bool marksFocus = false;
  bool listened = false;      // a screen reader has asked for a control
  int depth = 0;              // of handlers that run
  bool unsettled = false;     // a dialog has something to settle
  bool usableChanged = true;  // something was shown, hidden, enabled or disabled
};

}  // namespace panelora::win32
