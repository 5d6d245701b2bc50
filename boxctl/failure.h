// How a command of boxctl ends.
#pragma once

#include <stdexcept>
#include <string>

namespace panelora::boxctl {

// What the program ends with.
enum class Exit : int {
  kDone = 0,
  kDiffers = 1,   // something differs, was not found, or was refused by the box
  kBadInput = 2,  // arguments or a file, and nothing was written; or answers can't be printed
  kTimeout = 3,   // or the operator wanted an end before it was done
  kNoBox = 4,
};

// Ends a command with one line that says what is wrong and what to do.
class Failure : public std::runtime_error {
 public:
  Failure(Exit theCode, const std::string& message) : std::runtime_error(message), code(theCode) {}

  Exit Code() const { return code; }

 private:
  Exit code;
};

}  // namespace panelora::boxctl
