// What a control answers a screen reader: the system's own object for its window, but with names,
// values, roles and states of ours.
#pragma once

#include "platform/win32/windows_headers.h"

#include <optional>
#include <string>

namespace panelora::win32 {

// What is told of a control, in the system's code page.
struct Told {
  std::string name;
  std::string value;
  std::string description;
  long role = 0;         // ROLE_SYSTEM_...
  long state = 0;        // STATE_SYSTEM_..., besides what the system tells
  bool presses = false;  // its action is to be pressed
};

// Tells of a control as it stands; none when it can't be told any more.
using Teller = std::optional<Told> (*)(HWND control);

// The answer to WM_GETOBJECT for the client area of a control; 0 = it has none, and the system is
// to answer. What it takes is loaded with the first question.
LRESULT AnswerAccessible(HWND control, WPARAM wParam, Teller teller) noexcept;

// The window goes. Those who still hold its object are told so from now on.
void ForgetAccessible(HWND control) noexcept;

}  // namespace panelora::win32
