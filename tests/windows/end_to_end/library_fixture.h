// The fixture of the tests that put a DEVLNK.dll of their own beside the program.
#pragma once

#include <string>
#include <vector>

#include "tests/windows/end_to_end/program_test.h"

namespace panelora::testing::end_to_end {

class LibraryTest : public ProgramTest {
 protected:
  std::filesystem::path Fake(const char* name) { return TheParts().tests / name; }

  // The bytes of the simulated box's library.
  static std::string LibraryBytes();
  // The same with a name in it made another one of the same length, decorated names included.
  static std::string LibraryWith(const std::string& name, const std::string& other);
  // The same for the machine that this build is not for.
  static std::string LibraryOfTheOtherBitness();

  // A file that is to become the library; gone with the test.
  std::filesystem::path FileWith(const std::string& bytes);

  // Starts with the library under a debugger; checks the look, now and at the next ticks, and that
  // there is exactly one line about it, which names each of `words`.
  PanelProcess& ExpectUnusable(const std::filesystem::path& library,
                               const std::vector<std::string>& words);
  void ExpectDisconnectedForGood(PanelProcess& panel);
  // After that: the whole library takes the place of what is there, and is found at a tick.
  void ExpectWholeLibraryIsFound(PanelProcess& panel);

  // Presses every button that the operator can see on the page that is shown, fills in what can be
  // filled in, and moves what can be moved.
  void UseEverythingOnThePage(PanelProcess& panel);
  // The same on every page, however it is reached, with all that the main window has for it.
  void OperateEverything(PanelProcess& panel);

  void TearDown() override;

 private:
  std::filesystem::path made;
};

}  // namespace panelora::testing::end_to_end
