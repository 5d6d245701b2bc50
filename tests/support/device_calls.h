// Device calls as simulator/call_text.h writes them, and those that the panel makes on model 26.
#pragma once

#include <initializer_list>
#include <string>
#include <vector>

namespace panelora::testing {

using Calls = std::vector<std::string>;

// One list after another.
inline Calls Join(std::initializer_list<Calls> lists) {
  Calls all;
  for (const Calls& list : lists) all.insert(all.end(), list.begin(), list.end());
  return all;
}

// A processed tick, and an Information refresh: input format, then firmware version.
inline const Calls kOpenCall = {"open 2"};
inline const Calls kIdentityCall = {"get block 254,0,20"};
inline const Calls kInformationCalls = {"get block 1,0,30", "get word 0,5"};
// What the Display Mode page asks while it is initialised, whatever the model.
inline const Calls kMultiViewCall = {"get block 1,0,20"};
// All pages in turn, at the start and when the connection changes; the same when no box is there.
inline const Calls kInitialiseCalls = Join({kInformationCalls, kMultiViewCall});
inline const Calls kInitialiseCallsWithoutBox = kMultiViewCall;

}  // namespace panelora::testing
