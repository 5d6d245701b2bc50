// The page protocol: what every page offers to the main window, and what it has to work with.
#pragma once

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <memory>
#include <span>

#include "device/device_link.h"
#include "device/properties.h"
#include "pages/panel_state.h"
#include "ui/dialog.h"
#include "ui/toolkit.h"

namespace panelora {

// What a page works with; all of it outlives the page.
struct PanelContext {
  PanelState& panel;
  DeviceLink& device;
  ui::Toolkit& toolkit;
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

  // Reads the box into the page. A failed read keeps what was shown, but for the formats of which
  // the pages say otherwise. The serial handle is kept and never used for input or output.
  virtual void Refresh(ui::SerialHandle serial) { serialHandle = serial; }
  // Writes the page's selections to the box.
  virtual void Apply() {}
  // Has the box restore what this page sets, as far as the box can.
  virtual void RestoreDefaults() {}

 protected:
  ui::Dialog& Window() { return *window; }

  // Block properties; ReadBlock is true when the box answered and `out` holds the bytes.
  bool ReadBlock(std::uint8_t property, std::uint8_t length, BlockBuffer& out,
                 std::uint8_t sub = kNoSub) {
    return device.GetKiraboxProperty(deviceHandle, property, sub, length, out) == kSuccess;
  }
  void WriteBlock(std::uint8_t property, std::span<const std::uint8_t> bytes,
                  std::uint8_t sub = kNoSub) {
    BlockBuffer buffer{};
    std::copy(bytes.begin(), bytes.end(), buffer.begin());
    device.SetKiraboxProperty(deviceHandle, property, sub, static_cast<std::uint8_t>(bytes.size()),
                              buffer);
  }
  void WriteBlock(std::uint8_t property, std::initializer_list<std::uint8_t> bytes,
                  std::uint8_t sub = kNoSub) {
    WriteBlock(property, std::span(bytes.begin(), bytes.size()), sub);
  }

  // Word properties; ReadWord is true when the box answered and `value` holds the low byte.
  bool ReadWord(std::uint32_t item, std::uint8_t& value) {
    WordBuffer words{};
    if (device.GetBoxProperty(deviceHandle, kBoxGroup, item, words) != kSuccess) return false;
    value = static_cast<std::uint8_t>(words[0] & 0xFF);
    return true;
  }
  void WriteWord(std::uint32_t item, std::uint32_t value) {
    device.SetBoxProperty(deviceHandle, kBoxGroup, item, value);
  }

  PanelState& panel;
  DeviceLink& device;
  ui::Toolkit& toolkit;
  DeviceHandle deviceHandle = kNoBox;
  ui::SerialHandle serialHandle = ui::kInvalidSerial;

 private:
  int templateNumber;
  std::unique_ptr<ui::Dialog> window;
};

}  // namespace panelora
