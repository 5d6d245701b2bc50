// The fixture of tests that are about one page: they do not name it with every control.
#pragma once

#include <string>

#include "tests/support/scenario.h"

namespace panelora::testing {

// `kNumber`: the page's template number. On top of the fixture of every scenario, or of another.
template <int kNumber, class Fixture = Scenario>
class OnePage : public Fixture {
 protected:
  Places ShownControls() { return this->ShownOn(kNumber); }
  std::string TextOf(int control) { return this->desk.Text(kNumber, control); }
  std::string TextOf(const Group& group) { return TextOf(group.value); }

  // What stands in `text` after each press of `button`.
  Texts Cycle(int button, int text, std::size_t presses) {
    Texts shown;
    for (std::size_t i = 0; i < presses; ++i) {
      this->desk.Press(kNumber, button);
      shown.push_back(TextOf(text));
    }
    return shown;
  }
  Texts Cycle(const Group& group, std::size_t presses) {
    return Cycle(group.next, group.value, presses);
  }

  // What presses of a button of the page make the panel ask and tell.
  Calls CallsOfPress(int button, int presses = 1) {
    return this->CallsOnPage(kNumber, button, presses);
  }

  // A slider is moved, which tells the box nothing, and let go.
  Calls Slide(int slider, int position) {
    this->TakeCalls();
    this->desk.Drag(kNumber, slider, position);
    EXPECT_EQ(this->TakeCalls(), Calls{});
    this->desk.Release(kNumber, slider);
    return this->TakeCalls();
  }
};

}  // namespace panelora::testing
