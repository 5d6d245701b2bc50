// The order in which the eye, and so the keyboard, goes over controls.
#pragma once

#include <algorithm>
#include <cstddef>
#include <span>
#include <vector>

#include "ui/geometry.h"

namespace panelora::ui {

// The numbers of the rectangles row by row from top to bottom, each row from left to right. A row
// is what begins above the middle of its topmost rectangle.
inline std::vector<std::size_t> ReadingOrder(std::span<const Rect> rects) {
  std::vector<std::size_t> order(rects.size());
  for (std::size_t i = 0; i < order.size(); ++i) order[i] = i;
  const auto sort = [&](auto first, auto last, auto edge) {
    std::stable_sort(first, last,
                     [&](std::size_t a, std::size_t b) { return edge(rects[a]) < edge(rects[b]); });
  };
  sort(order.begin(), order.end(), [](const Rect& rect) { return rect.y; });
  for (auto row = order.begin(); row != order.end();) {
    const int middle = rects[*row].y + rects[*row].height / 2;
    const auto next =
        std::find_if(row, order.end(), [&](std::size_t each) { return rects[each].y > middle; });
    sort(row, next, [](const Rect& rect) { return rect.x; });
    row = next;
  }
  return order;
}

}  // namespace panelora::ui
