// Text in the manner of printf and scanf, for what is given that way.
#pragma once

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <optional>
#include <string>

namespace panelora {

// Compilers that can compare a format with what is given for it do so.
#if defined(__GNUC__)
#define PANELORA_PRINTF __attribute__((format(printf, 1, 2)))
#else
#define PANELORA_PRINTF
#endif

PANELORA_PRINTF inline std::string Format(const char* format, ...);

// The formatted text, cut at 255 characters.
inline std::string Format(const char* format, ...) {
  char text[256];
  std::va_list values;
  va_start(values, format);
  const int length = std::vsnprintf(text, sizeof text, format, values);
  va_end(values);
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

}  // namespace panelora
