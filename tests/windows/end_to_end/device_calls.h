// The calls that the panel makes on model 26, by what it does.
#pragma once

#include "tests/windows/end_to_end/panel_process.h"

namespace panelora::end_to_end {

inline const Calls kOpen = {"open 2"};
inline const Calls kIdentify = {"get block 254,0,20"};

// The Information page's refresh: input format, then firmware version.
inline const Calls kReadInformation = {"get block 1,0,30", "get word 0,5"};

// All pages in turn, at the start and when the connection changes: Information, then Display Mode.
inline const Calls kInitialisePages = {"get block 1,0,30", "get word 0,5", "get block 1,0,20"};
// The same when no box is there.
inline const Calls kInitialisePagesWithoutBox = {"get block 1,0,20"};

inline const Calls kNothing = {};

}  // namespace panelora::end_to_end
