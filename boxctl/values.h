// What an operator types for a value, as the bytes that a box is told.
#pragma once

#include <optional>
#include <string>

#include "boxctl/names.h"
#include "boxctl/texts.h"

namespace panelora::boxctl {

// A choice as the panel shows it, a text for a label, hex: and all bytes, or a number where there
// are no choices. `input` is the video input, of boxes whose audio sources hang on it. A failure
// that says what can be typed for anything else.
Bytes BytesOfValue(const Named& named, const Identity& identity, std::optional<std::uint8_t> input,
                   const std::string& text);

}  // namespace panelora::boxctl
