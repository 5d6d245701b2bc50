// The page protocol: what every page offers to the main window, and what it has to work with.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <memory>
#include <span>

#include "catalogue/kept.h"
#include "device/box.h"
#include "device/device_link.h"
#include "pages/panel_state.h"
#include "pages/pending_light.h"
#include "ui/dialog.h"
#include "ui/toolkit.h"

namespace panelora {

// What a page works with; all of it outlives the page.
struct PanelContext {
  PanelState& panel;
  DeviceLink& device;
  ui::Toolkit& toolkit;
  PendingLight& light;
};

// A row of a page's table from control and notification to the operation that handles it.
template <class T>
struct CommandRow {
  int control;
  void (T::*handler)();
  ui::Notification what = ui::Notification::kClicked;
};

// Runs the handler of the first matching row; nothing when there is none.
template <class T, std::size_t size>
void DispatchCommand(T& target, const CommandRow<T> (&rows)[size], int control,
                     ui::Notification what) {
  for (const CommandRow<T>& row : rows) {
    if (row.control == control && row.what == what) {
      (target.*row.handler)();
      return;
    }
  }
}

// A child dialog of the main window. Each page has an Init with the arguments of its own, which
// copies the device handle; until the next Init the page goes on with that copy. Image Adjust, ROI
// and Text Labels, which a connection change does not initialise, take it when they are opened.
class Page : public ui::DialogEvents {
 public:
  Page(int number, PanelContext context)
      : panel(context.panel),
        device(context.device),
        toolkit(context.toolkit),
        light(context.light),
        templateNumber(number) {}

  // Creates the window; to be called once, before anything else. False when it can't be made.
  bool Create(ui::Dialog& parent) {
    window = toolkit.CreateDialogFrom(templateNumber, *this, &parent);
    return window->IsOpen();
  }
  bool IsOpen() const { return window != nullptr && window->IsOpen(); }
  void Show(bool shown) { window->Show(shown); }
  // Gives the keyboard to the page's first control; a page without one leaves it where it is.
  void FocusFirst() { window->FocusFirst(); }
  void Place(const ui::Rect& rect, int behind) { window->Place(rect, behind); }
  // Closes the window, for a main window that goes.
  void Destroy() { window.reset(); }

  // The operator comes to the page: takes the handle of the box, opens the page's function on it
  // where it has one, reads it and lays the page out.
  virtual void Open() {}
  // The operator goes by Return.
  virtual void Leave() {}

  // What Page Up steps through; a page without sub-pages has one.
  virtual int SubPages() const { return 1; }
  virtual void SetSubPage(int /*number*/) {}

  // Reads the box into the page. A failed read keeps what was shown, but for the formats of which
  // the pages say otherwise. The serial handle is kept and never used for input or output.
  virtual void Refresh(ui::SerialHandle serial) { serialHandle = serial; }
  // Writes the page's selections to the box.
  virtual void Apply() {}
  // Has the box restore what this page sets, as far as the box can.
  virtual void RestoreDefaults() {}

 protected:
  ui::Dialog& Window() { return *window; }

  // Talks to the box that is attached now; until the next time the page goes on with that handle.
  void TakeHandle() { box = Box(device, panel.deviceHandle); }

  // True when the box answered; see Box for what a failure leaves.
  template <class Out>
  bool Read(const Address& at, Out& out) {
    return box.Read(at, out);
  }
  void Write(const Address& at, std::initializer_list<std::uint8_t> bytes) { box.Write(at, bytes); }
  void Write(const Address& at, std::span<const std::uint8_t> bytes) { box.Write(at, bytes); }
  // Tells the box those of the commands that are for it, in their order.
  void Send(std::span<const Command> commands) {
    for (const Command& command : commands) {
      if (command.Serves(panel.identity, panel.firmwareVersion)) {
        Write(command.at, {command.value});
      }
    }
  }
  // Shows the text of a choice, where the list has one for the type of the box.
  void ShowChoice(int control, Choices choices, std::uint8_t index) {
    const Choice* choice = FindIndex(choices, panel.identity.boxType, index);
    if (choice != nullptr) Window().SetText(control, choice->text);
  }

  // Marks the frames and edits of what the operator chose and the box was not told yet. Apply is
  // lit when there is such a value, or `more` to tell.
  struct PendingValue {
    int frame;  // or the edit itself
    bool pending;
  };
  void MarkPending(std::initializer_list<PendingValue> values, bool more = false) {
    bool any = more;
    for (const PendingValue& value : values) {
      Window().SetMark(value.frame, value.pending ? ui::Mark::kPending : ui::Mark::kNone);
      any |= value.pending;
    }
    light.ShowPending(any);
  }

  PanelState& panel;
  DeviceLink& device;
  ui::Toolkit& toolkit;
  PendingLight& light;
  Box box{device, kNoBox};
  ui::SerialHandle serialHandle = ui::kInvalidSerial;

 private:
  int templateNumber;
  std::unique_ptr<ui::Dialog> window;
};

}  // namespace panelora
