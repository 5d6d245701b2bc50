// A text that is saved as a file, whole or not at all.
#pragma once

#include <filesystem>
#include <string>

namespace panelora::boxbench {

// Writes the bytes of the text over a new file beside it, which takes its place in one go. False
// when that can't be done: then a file that was there is as it was.
bool SaveText(const std::filesystem::path& file, const std::string& text);

}  // namespace panelora::boxbench
