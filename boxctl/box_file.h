// A file of all that a simulated box keeps.
#pragma once

#include <memory>
#include <string>

#include "boxctl/json.h"
#include "simulator/box_memory.h"

namespace panelora::boxctl {

Json JsonOfBox(const simulator::BoxMemory& box);

// A failure when the file is no such file, or damaged.
std::unique_ptr<simulator::BoxMemory> ReadBox(const std::string& path);

}  // namespace panelora::boxctl
