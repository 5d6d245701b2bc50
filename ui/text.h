// Text in the manner of printf and scanf, for what is given that way.
#pragma once

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <optional>
#include <string>

namespace panelora::ui {

// The formatted text, cut at 255 characters.
template <class... Values>
std::string Format(const char* format, Values... values) {
  char text[256];
  const int length = std::snprintf(text, sizeof text, format, values...);
  return length < 0 ? std::string() : std::string(text);
}

// The number that a text begins with, as "%d" reads it: blanks and a sign before it and anything
// behind it are allowed. None when there is no number; one that is too great or too small becomes
// the nearest that there is.
inline std::optional<int> ParseNumber(const std::string& text) {
  char* end = nullptr;
  const long long number = std::strtoll(text.c_str(), &end, 10);
  if (end == text.c_str()) return std::nullopt;
  return static_cast<int>(std::clamp<long long>(number, std::numeric_limits<int>::min(),
                                                std::numeric_limits<int>::max()));
}

}  // namespace panelora::ui
