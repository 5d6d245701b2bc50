// The label fields of the box: 20 characters, blank-padded, shown trimmed and written centred.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace panelora {

constexpr std::size_t kLabelLength = 20;

using LabelField = std::array<std::uint8_t, kLabelLength>;

// The text of a field without the blanks round it. A field of blanks alone is shown as its 20
// blanks: deliberate. A zero byte ends the text.
std::string TextOfLabel(std::span<const std::uint8_t, kLabelLength> field);

// The text in the middle of 20 blanks, one more on the right when their number is odd. What is
// longer than the field is cut.
LabelField CentredLabel(std::string_view text);

}  // namespace panelora
