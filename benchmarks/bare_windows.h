// The windows of the program's start and nothing else: the same dialog templates, the same
// pictures, no page, no rule and no box.
#pragma once

#include "platform/win32/windows_headers.h"

#include <map>
#include <string>
#include <utility>

namespace panelora::benchmarks {

class BareWindows {
 public:
  explicit BareWindows(HINSTANCE theInstance);
  ~BareWindows();
  BareWindows(const BareWindows&) = delete;
  BareWindows& operator=(const BareWindows&) = delete;

  // Creates the main window and its thirteen pages, and shows the first.
  HWND Create();

  // A page, or a control of a dialog; null when there is none. `control` 0 = the dialog itself.
  HWND Find(int dialog, int control);
  // Draws the picture in place of the one before; the name is that of a resource.
  void ShowPicture(int dialog, int control, const std::string& name);
  // Gives a window a font, which is made once.
  void UseFont(HWND control, const LOGFONTA& font);

 private:
  using Place = std::pair<int, int>;  // dialog and control

  static INT_PTR CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
  void Draw(HWND dialog, const DRAWITEMSTRUCT& item);

  HINSTANCE instance;
  HWND window = nullptr;
  std::map<int, HWND> dialogs;            // by number
  std::map<Place, HWND> controls;         // once found
  std::map<Place, std::string> shown;     // pictures by name
  std::map<std::string, HBITMAP> loaded;  // once drawn
  std::map<std::string, HFONT> fonts;     // by their description
};

// Handles every message that waits.
void HandleWaiting(HWND dialog);

}  // namespace panelora::benchmarks
