// What a screen reader hears, on either toolkit: from real windows by the system's interface.
#pragma once

#include <map>

#include "res/spoken_names.h"
#include "tests/support/desk.h"

namespace panelora::testing {

// Of the controls of a dialog that are shown, by id.
std::map<int, res::Spoken> SpokenOn(Desk& desk, int dialog);

}  // namespace panelora::testing
