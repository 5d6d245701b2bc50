#include "boxbench/save_text.h"

#include <fstream>
#include <system_error>

namespace panelora::boxbench {

bool SaveText(const std::filesystem::path& file, const std::string& text) {
  std::filesystem::path beside = file;
  beside += ".boxbench-new";
  std::error_code error;
  {
    std::ofstream written(beside, std::ios::binary | std::ios::trunc);
    written.write(text.data(), static_cast<std::streamsize>(text.size()));
    written.close();
    if (!written) error = std::make_error_code(std::errc::io_error);
  }
  if (!error) std::filesystem::rename(beside, file, error);
  if (!error) return true;
  std::error_code ignored;
  std::filesystem::remove(beside, ignored);
  return false;
}

}  // namespace panelora::boxbench
