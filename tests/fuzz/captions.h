// What the panel may say: the independent side of the random operator.
#pragma once

#include <string_view>

#include "device/identity.h"

namespace panelora::fuzz {

// Whether a caption of a page may read so, beside the text that it starts with.
bool MayRead(int dialog, int control, std::string_view text);

// `#` stands for a number without a sign, blanks before it included, `$` for one with or without a
// sign, `%` for one hexadecimal digit; all else for itself.
bool Matches(std::string_view pattern, std::string_view text);

// Controls whose text a refresh changes although nothing could be read.
bool ChangesOnFailure(int dialog, int control, const Identity& identity);

}  // namespace panelora::fuzz
