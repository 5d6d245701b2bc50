// Not part of any program: the compiler must refuse a set with a code that no box type has, or that
// stands twice.
#include "device/box_types.h"

constexpr panelora::BoxTypes kWrong = {WRONG_CODES};
