// The calls that the panel makes on model 26, by what it does.
#pragma once

#include "panel_process.h"

namespace panelora::end_to_end {

inline const Calls kOpen = {"open 2"};
inline const Calls kIdentify = {"get block 254,0,20"};

// The Information page's refresh: input format, then firmware version.
inline const Calls kReadInformation = {"get block 1,0,30", "get word 0,5"};

// All pages in turn, at the start and when the connection changes. Every page that asks the box
// something while it is initialised adds its calls here, in the order of the pages.
inline const Calls kInitialisePages = kReadInformation;
// The same when no box is there.
inline const Calls kInitialisePagesWithoutBox = {};

inline const Calls kNothing = {};

}  // namespace panelora::end_to_end
