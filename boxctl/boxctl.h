// The program boxctl without the system it runs on.
#pragma once

#include <istream>
#include <ostream>
#include <string>
#include <vector>

#include "boxctl/host.h"

namespace panelora::boxctl {

// Does what the arguments (without the program's name, in UTF-8) say, and returns the exit code.
// Answers go to `out`, what is wrong in one line to `err`, with --json both as JSON.
int Run(const std::vector<std::string>& arguments, Host& host, std::istream& in, std::ostream& out,
        std::ostream& err);

}  // namespace panelora::boxctl
