// The services that a toolkit offers beside its dialogs.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "ui/dialog.h"

namespace panelora::ui {

using SerialHandle = std::uint32_t;
constexpr SerialHandle kInvalidSerial = 0xFFFFFFFFU;

// Owns every font, bitmap and brush: each is made once, kept, and freed at the end, so that nothing
// grows with use.
class Toolkit {
 public:
  virtual ~Toolkit() = default;

  // A dialog from template `number`, hidden, in front of or inside `parent`; it is not open when
  // the system can't make it. `events` outlives it.
  virtual std::unique_ptr<Dialog> CreateDialogFrom(int number, DialogEvents& events,
                                                   Dialog* parent) = 0;
  // Shows a dialog and returns when it is closed; `owner` takes no input meanwhile. `opened` gets
  // the dialog before it is shown, so that `events` can close it.
  virtual void RunModal(int number, DialogEvents& events, Dialog& owner, Dialog*& opened) = 0;

  // A text of the string table, empty when there is none of that number.
  virtual std::string String(int number) const = 0;

  // One piece of text on the debugger's output stream.
  virtual void DebugOutput(std::string_view text) = 0;

  // Opens a serial port by its device name, not shared, with 4096-byte queues, purged, at 115200
  // baud, 8 data bits, no parity, one stop bit. kInvalidSerial when the name can't be opened.
  virtual SerialHandle OpenSerial(const std::string& name) = 0;
  virtual void CloseSerial(SerialHandle port) = 0;

  // Opens the guide that lies beside the program, in whatever the operator reads such files with.
  // False when there is none.
  virtual bool OpenGuide() = 0;

  // A random number of at least 0.
  virtual int Random() = 0;

 protected:
  Toolkit() = default;
  Toolkit(const Toolkit&) = default;
  Toolkit& operator=(const Toolkit&) = default;
};

}  // namespace panelora::ui
