// JSON as it is written and read here: members stay in their order.
#pragma once

#include <cstddef>
#include <cstdint>
#include <nlohmann/json.hpp>
#include <string>

namespace panelora::boxctl {

using Json = nlohmann::ordered_json;

// On one line. What is no text stands as a question mark.
std::string LineOf(const Json& json);

}  // namespace panelora::boxctl
