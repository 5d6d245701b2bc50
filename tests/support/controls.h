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

// Where such a group is expected: its caption at `origin`, its ">>" at `nextX`.
inline void PlaceFour(Places& places, const Group& group, ui::Point origin, int nextX) {
  places[group.label] = {origin.x, origin.y, 300, 20};
  places[group.frame] = {origin.x, origin.y + 15, 300, 48};
  places[group.value] = {origin.x + 10, origin.y + 30, 250, 30};
  places[group.next] = {nextX, origin.y + 23, 40, 39};
}

}  // namespace panelora::testing
