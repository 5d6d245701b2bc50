// What a page tells the main window of its pending selections.
#pragma once

namespace panelora {

class PendingLight {
 public:
  virtual ~PendingLight() = default;

  // Whether Apply has something to tell the box.
  virtual void ShowPending(bool pending) = 0;
};

}  // namespace panelora
