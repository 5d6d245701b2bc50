// The layers of the tree: which folder may include which.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <string>
#include <vector>

namespace panelora {
namespace {

namespace fs = std::filesystem;

struct Include {
  std::string file;
  std::string included;
  bool system;
};

std::vector<Include> AllIncludes() {
  const fs::path root = PANELORA_SOURCE_DIR;
  const std::regex line("^\\s*#\\s*include\\s*([<\"])([^>\"]+)[>\"].*");
  std::vector<Include> all;
  for (const char* folder : {"app", "base", "boxbench", "boxctl", "catalogue", "device", "pages",
                             "platform", "res", "simulator", "trace", "ui"}) {
    for (const auto& entry : fs::recursive_directory_iterator(root / folder)) {
      const std::string ending = entry.path().extension().string();
      if (ending != ".h" && ending != ".cpp") continue;
      std::ifstream file(entry.path());
      std::smatch match;
      for (std::string text; std::getline(file, text);) {
        if (!std::regex_match(text, match, line)) continue;
        all.push_back(
            {fs::relative(entry.path(), root).generic_string(), match[2], match[1] == "<"});
      }
    }
  }
  return all;
}

bool StartsWith(const std::string& text, const std::string& start) {
  return text.compare(0, start.size(), start) == 0;
}

// What the files of a folder may include of the project.
const std::vector<std::pair<std::string, std::vector<std::string>>> kAllowed = {
    {"base/", {"base/"}},
    {"ui/", {"ui/"}},
    {"device/", {"device/", "base/"}},
    {"catalogue/", {"catalogue/", "base/", "device/"}},
    {"res/", {"res/", "ui/", "dialogs/"}},
    {"pages/", {"pages/", "base/", "catalogue/", "device/", "ui/", "res/"}},
    {"app/", {"app/", "base/", "pages/", "catalogue/", "device/", "ui/", "res/"}},
    {"simulator/", {"simulator/", "base/", "catalogue/", "device/"}},
    {"boxctl/", {"boxctl/", "base/", "catalogue/", "device/", "simulator/", "trace/"}},
    {"trace/", {"trace/", "base/", "catalogue/", "device/"}},
    {"boxbench/win32/",
     {"boxbench/", "app/", "base/", "catalogue/", "device/", "platform/win32/", "simulator/"}},
    {"boxbench/", {"boxbench/", "app/", "base/", "catalogue/", "device/", "simulator/"}},
    {"platform/memory/", {"platform/memory/", "ui/", "res/"}},
    {"platform/win32/", {"platform/win32/", "app/", "pages/", "device/", "ui/", "res/"}},
};

TEST(Layers, ArrowsRunDownOnly) {
  const auto includes = AllIncludes();
  ASSERT_GT(includes.size(), 100U);
  for (const Include& each : includes) {
    if (each.system) continue;
    for (const auto& [folder, targets] : kAllowed) {
      if (!StartsWith(each.file, folder)) continue;
      if (folder == "boxbench/" && StartsWith(each.file, "boxbench/win32/")) continue;
      bool allowed = false;
      for (const std::string& target : targets) allowed |= StartsWith(each.included, target);
      EXPECT_TRUE(allowed) << each.file << " includes " << each.included;
    }
  }
}

TEST(Layers, NoPageIncludesAPageOfAnotherFolder) {
  for (const Include& each : AllIncludes()) {
    if (!StartsWith(each.file, "pages/") || !StartsWith(each.included, "pages/")) continue;
    const std::string own = fs::path(each.file).parent_path().generic_string();
    const std::string other = fs::path(each.included).parent_path().generic_string();
    EXPECT_TRUE(other == own || other == "pages") << each.file << " includes " << each.included;
  }
}

// What a model is stands in the catalogue; the pictures of their fronts are a list of their own.
TEST(Layers, NoBoxTypeStandsOutsideTheCatalogue) {
  const fs::path root = PANELORA_SOURCE_DIR;
  const std::regex compared("boxType\\s*(==|!=)\\s*[0-9]");
  const std::regex switched("switch\\s*\\([^;{]*boxType\\s*\\)");
  const std::regex set("BoxTypes\\s+\\w+\\s*(=\\s*)?\\{[0-9]");
  for (const char* folder :
       {"app", "boxbench", "boxctl", "device", "pages", "platform", "simulator", "trace"}) {
    for (const auto& entry : fs::recursive_directory_iterator(root / folder)) {
      const std::string ending = entry.path().extension().string();
      if (ending != ".h" && ending != ".cpp") continue;
      const std::string name = entry.path().filename().string();
      if (name == "device_picture.cpp" || name == "box_types.h") continue;
      std::ifstream file(entry.path());
      const std::string text(std::istreambuf_iterator<char>(file), {});
      for (const std::regex& wrong : {compared, switched, set}) {
        EXPECT_FALSE(std::regex_search(text, wrong)) << entry.path();
      }
    }
  }
}

// What the system calls must let no exception out: nobody there could catch it.
TEST(Layers, CallbacksOfTheSystemLetNoExceptionOut) {
  const fs::path root = PANELORA_SOURCE_DIR;
  const std::regex definition("\\bCALLBACK\\s+\\w+::\\w+\\([^)]*\\)([^{;]*)\\{");
  int found = 0;
  for (const char* folder : {"boxbench/win32", "platform/win32"}) {
    for (const auto& entry : fs::directory_iterator(root / folder)) {
      if (entry.path().extension() != ".cpp") continue;
      std::ifstream file(entry.path());
      const std::string text(std::istreambuf_iterator<char>(file), {});
      for (std::sregex_iterator match(text.begin(), text.end(), definition), end; match != end;
           ++match) {
        ++found;
        EXPECT_NE((*match)[1].str().find("noexcept"), std::string::npos) << (*match)[0];
      }
    }
  }
  EXPECT_EQ(found, 5);  // of the dialogs, the bars, the colour label; of the bench and its buttons
}

TEST(Layers, WindowsHeadersStayInTheirPlace) {
  for (const Include& each : AllIncludes()) {
    if (!each.system) continue;
    const bool windows = each.included == "windows.h" || each.included == "commctrl.h" ||
                         each.included == "gdiplus.h" || each.included == "shlwapi.h" ||
                         each.included == "objidl.h" || each.included == "windowsx.h" ||
                         each.included == "shellapi.h" || each.included == "commdlg.h";
    if (!windows) continue;
    EXPECT_TRUE(
        StartsWith(each.file, "platform/win32/") || StartsWith(each.file, "boxbench/win32/") ||
        each.file == "boxctl/main.cpp" || each.file == "simulator/devlnk_dll.cpp" ||
        StartsWith(each.file, "simulator/mapped_box.") || each.file == "trace/devlnk_trace.cpp")
        << each.file;
  }
}

TEST(Layers, FilesStayReadableInOneSitting) {
  const fs::path root = PANELORA_SOURCE_DIR;
  for (const char* folder : {"app", "base", "boxbench", "boxctl", "catalogue", "device", "pages",
                             "platform", "simulator", "tests", "trace", "ui"}) {
    for (const auto& entry : fs::recursive_directory_iterator(root / folder)) {
      if (entry.path().extension() != ".h" && entry.path().extension() != ".cpp") continue;
      std::ifstream file(entry.path());
      int lines = 0;
      for (std::string text; std::getline(file, text);) ++lines;
      EXPECT_LE(lines, 700) << entry.path();
    }
  }
}

}  // namespace
}  // namespace panelora
