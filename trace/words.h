// The words of a trace's view, and of the comments of a test that is made of it.
#pragma once

#include <cstdint>
#include <string>

#include "trace/told_box.h"

namespace panelora::trace {

// Of microseconds since 1970: "09:48:59.123", UTC.
std::string TimeOfDay(std::uint64_t time);

// What a call asked or told, in one line of characters that any console shows; with its result
// where that is not success.
std::string InWords(const ToldBox& box, const Call& call);

}  // namespace panelora::trace
