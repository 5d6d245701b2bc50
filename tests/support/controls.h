// What tests say of controls: their places and texts, and the groups of four of most pages.
#pragma once

#include <map>
#include <ostream>
#include <string>
#include <vector>

#include "base/text.h"
#include "ui/geometry.h"

namespace panelora::ui {

inline std::string TextOf(const Rect& rect) {
  return Format("(%d, %d, %d, %d)", rect.x, rect.y, rect.width, rect.height);
}

// For the messages of failed checks.
inline std::ostream& operator<<(std::ostream& out, const Rect& rect) { return out << TextOf(rect); }

}  // namespace panelora::ui

namespace panelora::testing {

// By id, in the client area of their dialog.
using Places = std::map<int, ui::Rect>;

using Texts = std::vector<std::string>;

// The four controls of a setting that is stepped by its ">>".
struct Group {
  int label;
  int frame;
  int value;
  int next;
};

}  // namespace panelora::testing
