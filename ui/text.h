// Text in the manner of printf, for the captions whose formats are given that way.
#pragma once

#include <cstdio>
#include <string>

namespace panelora::ui {

// The formatted text, cut at 255 characters.
template <class... Values>
std::string Format(const char* format, Values... values) {
  char text[256];
  const int length = std::snprintf(text, sizeof text, format, values...);
  return length < 0 ? std::string() : std::string(text);
}

}  // namespace panelora::ui
