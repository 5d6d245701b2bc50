// What the random operator does, one thing at a time, as data that can be written down and done
// again.
#pragma once

#include <array>
#include <string>
#include <vector>

namespace panelora::fuzz {

enum class Act {
  kPress,     // a button, by Space or from outside
  kClick,     // a button, by mouse
  kMouse,     // the mouse button goes down on a control, and up outside
  kDrag,      // a slider, to `numbers[0]`
  kRelease,   // the slider is let go
  kType,      // `text` into an edit
  kChoose,    // item `numbers[0]` of a combo box
  kEnter,     // the key, with the focus on the control
  kEscape,    // the same
  kKey,       // the same: a key of the window, `numbers[0]` as ui::Key
  kTick,      // of the connection monitor
  kPageTick,  // of the Video settings page
  kRepaint,   // the dialog was covered
  kUnplug,
  kPlug,
  kTurn,    // somebody turns the box's own knobs: `numbers` 0 word or 1 block, which, byte, value
  kBecome,  // box type, brand, sub-model, both DIP flags, firmware: `numbers`
  kMood,    // `numbers[0]`, random answers by `numbers[1]`
  kAbout,   // from the system menu, read and closed
};
constexpr int kActs = 19;

struct Step {
  Act act = Act::kTick;
  int dialog = 0;
  int control = 0;
  std::array<int, 6> numbers{};
  std::string text = {};

  bool operator==(const Step&) const = default;
};

using Steps = std::vector<Step>;

// A line a step, and back; a line that is none ends the steps with an exception of its text.
std::string TextOf(const Step& step);
std::string TextOf(const Steps& steps);
Steps StepsFrom(const std::string& text);

// Random numbers, or the bytes of a fuzzer.
class Choices {
 public:
  virtual ~Choices() = default;
  // At least 0 and below `bound`, which is at least 1.
  virtual int Below(int bound) = 0;
  // Whether there is anything left to choose by.
  virtual bool IsEmpty() const = 0;

 protected:
  Choices() = default;
  Choices(const Choices&) = default;
  Choices& operator=(const Choices&) = default;
};

}  // namespace panelora::fuzz
