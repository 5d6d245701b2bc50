// The command lines of the operator's guide: each of them does what boxctl is to do there.
#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string_view>

#include "boxctl/failure.h"
#include "boxctl/script.h"
#include "tests/boxctl/boxctl_desk.h"

namespace panelora::boxctl {
namespace {

namespace fs = std::filesystem;

using Lines = std::vector<std::string>;

constexpr std::string_view kCommand = "boxctl ";
constexpr char kTraceFile[] = "DEVLNK.trace.txt";

// The fenced blocks of a page.
std::vector<Lines> BlocksOf(const fs::path& page) {
  std::ifstream file(page);
  std::vector<Lines> blocks;
  bool isInside = false;
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with("```")) {
      isInside = !isInside;
      if (isInside) blocks.emplace_back();
    } else if (isInside) {
      blocks.back().push_back(line);
    }
  }
  return blocks;
}

std::vector<std::string> PagesWithCommands() {
  std::vector<std::string> pages;
  for (const auto& page : fs::directory_iterator(PANELORA_SOURCE_DIR "/docs/guide")) {
    if (page.path().extension() != ".md") continue;
    for (const Lines& block : BlocksOf(page.path())) {
      if (block.empty() || !block.front().starts_with(kCommand)) continue;
      pages.push_back(page.path().stem().string());
      break;
    }
  }
  std::sort(pages.begin(), pages.end());
  return pages;
}

// What a line may end with when all goes well.
bool IsExpected(const std::string& command, int code) {
  const auto is = [code](Exit exit) { return code == static_cast<int>(exit); };
  if (command == "diff") return is(Exit::kDone) || is(Exit::kDiffers);
  return is(command == "wait-for-write" ? Exit::kTimeout : Exit::kDone);
}

class GuidePage : public BoxctlTest, public testing::WithParamInterface<std::string> {
 protected:
  // In a folder of its own, since the guide names files alone.
  GuidePage() : before(fs::current_path()) { fs::current_path(File("")); }
  ~GuidePage() override { fs::current_path(before); }
  GuidePage(const GuidePage&) = delete;
  GuidePage& operator=(const GuidePage&) = delete;

  // A script is a block that begins with its name: "# demo.txt".
  static void PutScript(const Lines& block) {
    const std::string mark = "# ";
    if (block.empty() || !block.front().starts_with(mark)) return;
    std::string content;
    for (const std::string& line : block) content += line + "\n";
    Put(block.front().substr(mark.size()), content);
  }

  void RunLine(const std::string& line) {
    Lines words = WordsOf(line.substr(kCommand.size()));
    for (std::size_t i = 0; i + 1 < words.size(); ++i) {
      if (words[i] == "--library") words[i + 1] = "real.dll";
    }
    for (std::string& word : words) {
      if (word == "..\\" + std::string(kTraceFile)) word = kTraceFile;
    }
    host.stopped = false;
    host.sleeps = 0;
    // Sleeps, until the operator presses Ctrl+C; what has an end of its own reaches it.
    const int patience = words.front() == "wait-for-write" ? 3600 : 10;
    host.whenSleeping = [&](int sleep) { host.stopped = sleep == patience; };
    const Ran ran = Run(words);
    EXPECT_TRUE(IsExpected(words.front(), ran.code)) << line << "\n" << ran;
  }

 private:
  fs::path before;
};

TEST_P(GuidePage, ItsCommandsAreRight) {
  const std::vector<Lines> blocks =
      BlocksOf(fs::path(PANELORA_SOURCE_DIR "/docs/guide") / (GetParam() + ".md"));
  for (const Lines& block : blocks) PutScript(block);
  Run({"read"});
  Put(kTraceFile, TraceOfDesk());
  for (const Lines& block : blocks) {
    for (const std::string& line : block) {
      if (line.starts_with(kCommand)) RunLine(line);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Pages, GuidePage, testing::ValuesIn(PagesWithCommands()),
                         [](const auto& page) {
                           std::string name = page.param;
                           std::replace(name.begin(), name.end(), '-', '_');
                           return name;
                         });

}  // namespace
}  // namespace panelora::boxctl
