// The box types that this build treats as a box, from PANELORA_ADMITTED_BOX_TYPES.
#include "app/main_dlg.h"

#ifndef PANELORA_ADMITTED_BOX_TYPES_LIST
#define PANELORA_ADMITTED_BOX_TYPES_LIST 26
#endif

namespace panelora {

namespace {
constexpr std::uint8_t kAdmitted[] = {PANELORA_ADMITTED_BOX_TYPES_LIST};
}  // namespace

std::span<const std::uint8_t> AdmittedBoxTypes() { return kAdmitted; }

}  // namespace panelora
