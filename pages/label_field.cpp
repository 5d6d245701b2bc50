#include "pages/label_field.h"

#include <algorithm>

namespace panelora {

std::string TextOfLabel(std::span<const std::uint8_t, kLabelLength> field) {
  std::string text(field.begin(), std::find(field.begin(), field.end(), 0));
  const std::size_t first = text.find_first_not_of(' ');
  if (first != std::string::npos) {
    text = text.substr(first, text.find_last_not_of(' ') - first + 1);
  }
  return text;
}

LabelField CentredLabel(std::string_view text) {
  text = text.substr(0, kLabelLength);
  LabelField field;
  field.fill(' ');
  std::copy(text.begin(), text.end(), field.begin() + (kLabelLength - text.size()) / 2);
  return field;
}

}  // namespace panelora
