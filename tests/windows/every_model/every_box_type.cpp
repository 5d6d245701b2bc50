// The box types that the program for the tests of other models treats as a box: every one that
// there is, in place of the shipped list.
#include "app/main_dlg.h"

namespace panelora {

std::span<const std::uint8_t> AdmittedBoxTypes() {
  static const auto types = [] {
    std::array<std::uint8_t, kNoBoxType> all{};
    for (std::size_t type = 0; type < all.size(); ++type)
      all[type] = static_cast<std::uint8_t>(type);
    return all;
  }();
  return types;
}

}  // namespace panelora
