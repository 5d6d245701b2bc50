// The windows of the program's start and nothing else: the same dialog templates, the same
// pictures, no page, no rule and no box.
#pragma once

#include "platform/win32/windows_headers.h"

#include <map>
#include <string>

namespace panelora::benchmarks {

class BareWindows {
 public:
  explicit BareWindows(HINSTANCE theInstance);
  ~BareWindows();
  BareWindows(const BareWindows&) = delete;
  BareWindows& operator=(const BareWindows&) = delete;

  // Creates the main window and its thirteen pages, and shows the first.
  HWND Create();

 private:
  static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  void Draw(HWND dialog, const DRAWITEMSTRUCT& item);

  HINSTANCE instance;
  HWND window = nullptr;
  std::map<int, HBITMAP> pictures;  // of the main window's buttons, once drawn
};

// Handles every message that waits.
void HandleWaiting(HWND dialog);

}  // namespace panelora::benchmarks
