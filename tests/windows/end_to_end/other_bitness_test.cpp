// The finished program beside a whole library that the compiler of the other bitness made.
#include "tests/windows/end_to_end/library_fixture.h"

namespace panelora::testing::end_to_end {
namespace {

class OtherBitnessTest : public LibraryTest {};

TEST_F(OtherBitnessTest, WholeLibraryNamesTheBuildToUse) {
  const std::string bits = sizeof(void*) == 8 ? "32-bit" : "64-bit";
  PanelProcess& panel = ExpectUnusable(Fake("fake_of_the_other_bitness.dll"),
                                       {"DEVLNK.dll", "use the " + bits + " build"});
  ExpectWholeLibraryIsFound(panel);
}

}  // namespace
}  // namespace panelora::testing::end_to_end
