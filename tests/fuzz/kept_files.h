// The files that are kept for the random operator: sequences to replay, and the fuzzer's corpus.
#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

namespace panelora::fuzz {

struct KeptFile {
  std::string name;
  std::string content;
};

// Of a folder beside this file, by name.
inline std::vector<KeptFile> KeptFilesIn(const char* folder) {
  std::vector<KeptFile> files;
  const auto all = std::filesystem::path(PANELORA_SOURCE_DIR) / "tests/fuzz" / folder;
  for (const auto& entry : std::filesystem::directory_iterator(all)) {
    std::ifstream in(entry.path(), std::ios::binary);
    files.push_back({entry.path().filename().string(), {std::istreambuf_iterator<char>(in), {}}});
  }
  std::sort(files.begin(), files.end(),
            [](const KeptFile& a, const KeptFile& b) { return a.name < b.name; });
  return files;
}

}  // namespace panelora::fuzz
