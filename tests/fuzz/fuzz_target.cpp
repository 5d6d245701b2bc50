// The random operator, led by libFuzzer. It ends at the first rule that breaks, with the steps.
#include <cstdio>
#include <cstdlib>

#include "tests/fuzz/operator.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace panelora::fuzz;
  constexpr int kSteps = 1000;
  ByteChoices choices(data, size);
  Steps done;
  if (Operate(choices, kSteps, done)) {
    const Steps shortened = Shorten(done);
    std::fprintf(stderr, "%s\n", Report(*Replay(shortened), shortened).c_str());
    std::abort();
  }
  return 0;
}
