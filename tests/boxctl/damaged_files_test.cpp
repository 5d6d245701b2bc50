// Files that are damaged in every way: one line, exit code 2, and nothing written.
#include <filesystem>
#include <functional>
#include <random>

#include "tests/boxctl/boxctl_desk.h"

namespace panelora::boxctl {
namespace {

using Lines = std::vector<std::string>;

constexpr int kRounds = 400;

class DamagedFiles : public BoxctlTest {
 protected:
  void ExpectRefused(const std::string& command, const std::string& content,
                     const std::string& why) {
    Put(File("file.json"), content);
    const std::uint64_t calls = host.desk->journal.last;
    EXPECT_EQ(Run(ArgumentsOf(command)),
              (Ran{2, "", "boxctl: " + File("file.json") + " " + why + "\n"}));
    EXPECT_EQ(host.desk->journal.last, calls);
  }

  Lines ArgumentsOf(const std::string& command) const {
    Lines arguments = {command, File("file.json")};
    if (command == "restore") arguments.emplace_back("--yes");
    return arguments;
  }

  // The good file with one text in place of another.
  static std::string With(std::string content, const std::string& before,
                          const std::string& after) {
    const std::size_t at = content.find(before);
    EXPECT_NE(at, std::string::npos) << before;
    return content.replace(at, before.size(), after);
  }

  // Whatever is in the file, a command either does it or says in one line why not.
  void ExpectSense(const std::string& command, const std::string& content) {
    Put(File("file.json"), content);
    Writes();
    const Ran ran = Run(ArgumentsOf(command));
    ASSERT_TRUE(ran.code >= 0 && ran.code <= 2) << ran.code << content;
    if (ran.code != 2) return;
    EXPECT_EQ(ran.out, "") << content;
    EXPECT_EQ(ran.err.find('\n'), ran.err.size() - 1) << ran.err;
    EXPECT_EQ(Writes(), Lines()) << content;
  }

  void Mutate(const std::string& command, const std::string& good) {
    std::mt19937 random(26);
    const auto below = [&](std::size_t end) { return random() % end; };
    for (int round = 0; round < kRounds; ++round) {
      std::string content = good;
      for (std::size_t times = 1 + below(3); times > 0; --times) Damage(content, below);
      ExpectSense(command, content);
      if (HasFailure()) return;
    }
  }

 private:
  using Below = std::function<std::size_t(std::size_t)>;

  static void Damage(std::string& content, const Below& below) {
    constexpr const char* kPieces[] = {
        "null",    "-1",    "1e999", "{",  "}",    "[",   "]",
        "\"",      "99999", "0.5",   "[[", "\xFF", "\n",  "true",
        "\\u0000", ",",     ":",     "{}", "\"\"", "0x1", "18446744073709551616"};
    if (content.empty()) content = "{}";
    const std::size_t at = below(content.size());
    switch (below(7)) {
      case 0:
        content.resize(at);
        break;
      case 1:
        content[at] = static_cast<char>(below(256));
        break;
      case 2:
        content.erase(at, 1 + below(40));
        break;
      case 3:
        content.insert(at, kPieces[below(std::size(kPieces))]);
        break;
      case 4:  // a piece of it again, somewhere else
        content.insert(at, content.substr(below(content.size()), 1 + below(200)));
        break;
      case 5: {  // a value in place of another
        const std::size_t colon = content.find(':', at);
        if (colon == std::string::npos) break;
        const std::size_t end = content.find_first_of(",}\n", colon);
        content.replace(colon + 1, end == std::string::npos ? end : end - colon - 1,
                        kPieces[below(std::size(kPieces))]);
        break;
      }
      default:  // a line in place of another
        SwapLines(content, at, below(content.size()));
        break;
    }
  }

  static void SwapLines(std::string& content, std::size_t one, std::size_t other) {
    if (one > other) std::swap(one, other);
    const auto lineAt = [&](std::size_t at) {
      const std::size_t begin = content.rfind('\n', at);
      const std::size_t first = begin == std::string::npos ? 0 : begin + 1;
      const std::size_t end = content.find('\n', first);
      return std::pair(first, end == std::string::npos ? content.size() : end);
    };
    const auto [firstBegin, firstEnd] = lineAt(one);
    const auto [secondBegin, secondEnd] = lineAt(other);
    if (firstEnd >= secondBegin) return;
    const std::string first = content.substr(firstBegin, firstEnd - firstBegin);
    const std::string second = content.substr(secondBegin, secondEnd - secondBegin);
    content.replace(secondBegin, second.size(), first);
    content.replace(firstBegin, first.size(), second);
  }
};

TEST_F(DamagedFiles, SettingsAreRefused) {
  ASSERT_EQ(Run({"save", File("good.json")}).code, 0);
  const std::string good = Content(File("good.json"));
  for (const char* command : {"restore", "diff"}) {
    ExpectRefused(command, "", "is damaged or no file of boxctl: it is no JSON");
    ExpectRefused(command, good.substr(0, good.size() / 2),
                  "is damaged or no file of boxctl: it is no JSON");
    ExpectRefused(command, "[1, 2]", "is damaged: there is no object where one belongs");
    ExpectRefused(command, "{}", "is damaged: \"format\" is missing");
    ExpectRefused(command, With(good, "panelora-settings", "panelora-box"),
                  "is another kind of file: it must say \"panelora-settings\" as its format");
    ExpectRefused(command, With(good, "\"version\": 1", "\"version\": 2"),
                  "is of version 2, and this boxctl knows version 1: use the boxctl that wrote it");
    ExpectRefused(command, With(good, "\"version\": 1", "\"version\": 0"),
                  "is of version 0, and this boxctl knows version 1: use the boxctl that wrote it");
    ExpectRefused(command, With(good, "\"version\": 1", "\"version\": \"1\""),
                  "is damaged: \"version\" must be a number from 0 to 4294967295");
    ExpectRefused(command, With(good, "\"model\": 26", "\"model\": 255"),
                  "is damaged: \"model\" must be a number from 0 to 254");
    ExpectRefused(command, With(good, "\"brand\": 0", "\"brand\": 256"),
                  "is damaged: \"brand\" must be a number from 0 to 255");
    ExpectRefused(command, With(good, "\"brand\": 0", "\"brand\": -1"),
                  "is damaged: \"brand\" must be a number from 0 to 255");
    ExpectRefused(command, With(good, "\"0x0126\"", "\"0x10126\""),
                  "is damaged: \"firmware\" must be a version from 0x0000 to 0xFFFF");
    ExpectRefused(command, With(good, "\"settings\": [", "\"settings\": [7,"),
                  "is damaged: there is no object where one belongs");
    ExpectRefused(command, With(good, "\"settings\"", "\"setting\""),
                  "is damaged: \"settings\" is missing");
    ExpectRefused(command, With(good, "\"leftOut\": []", "\"leftOut\": {}"),
                  "is damaged: \"leftOut\" must be a list");
    ExpectRefused(command, With(good, "\"Hue\"", "\"Huge\""),
                  "is damaged: its model has no setting \"Huge\" in picture 4");
    ExpectRefused(command, With(good, "\"picture 4\"", "\"picture 3\""),
                  "is damaged: its model has no setting \"Hue\" in picture 3");
    ExpectRefused(command, With(good, "\"bytes\": \"80\"", "\"bytes\": \"8000\""),
                  "is damaged: \"Brightness\" must have as many bytes as 1");
    ExpectRefused(command, With(good, "\"bytes\": \"80\"", "\"bytes\": \"8\""),
                  "is damaged: \"bytes\" must be pairs of hexadecimal digits, of 255 bytes at "
                  "most");
    const std::size_t begin = good.find("    {");
    const std::string first = good.substr(begin, good.find('}', begin) + 2 - begin);
    ExpectRefused(command, With(good, first, first + first),
                  "is damaged: \"Text Label\" stands there twice");
  }
}

TEST_F(DamagedFiles, BoxesAreRefused) {
  ASSERT_EQ(Run({"dump", File("good.json")}).code, 0);
  const std::string good = Content(File("good.json"));
  ExpectRefused("load", good.substr(0, good.size() - 3),
                "is damaged or no file of boxctl: it is no JSON");
  ExpectRefused("load", With(good, "\"plugged\": true", "\"plugged\": 1"),
                "is damaged: \"plugged\" must be true or false");
  ExpectRefused("load", With(good, "\"words\": {", "\"words\": {\"256\": [0, 0], "),
                "is damaged: no number of a box is \"256\"");
  ExpectRefused("load", With(good, "\"words\": {", "\"words\": {\"01\": [0, 0], "),
                "is damaged: no number of a box is \"01\"");
  ExpectRefused("load", With(good, "\"words\": {", "\"words\": {\"200\": [0], "),
                "is damaged: a word must be a list of two numbers");
  ExpectRefused("load", With(good, "\"words\": {", "\"words\": {\"200\": [0, 4294967296], "),
                "is damaged: a word must be a list of two numbers");
  ExpectRefused("load", With(good, "\"labels\": {", "\"labels\": {\"4\": \"00\""),
                "is damaged: no number of a box is \"4\"");
  ExpectRefused(
      "load",
      With(good, "\"blocks\": {", "\"blocks\": {\"200\": \"" + std::string(512, '0') + "\", "),
      "is damaged: \"200\" must be pairs of hexadecimal digits, of 255 bytes at most");
  EXPECT_EQ(host.desk->box.identity.boxType, 26);
}

TEST_F(DamagedFiles, HugeFilesAreRefusedBySize) {
  Put(File("file.json"), "{}");
  std::filesystem::resize_file(File("file.json"), 100U << 20);
  for (const char* command : {"restore", "diff", "load", "script"}) {
    EXPECT_EQ(Run(ArgumentsOf(command)), (Ran{2, "",
                                              "boxctl: " + File("file.json") +
                                                  " is larger than 4 MB: no file of boxctl is\n"}));
  }
  EXPECT_EQ(Run({"restore", File("")}),
            (Ran{2, "", "boxctl: " + File("") + " is a folder: name a file\n"}));
}

#ifdef __linux__
// The memory of a program can be opened, and not be read at its beginning.
TEST_F(DamagedFiles, FilesThatCanNotBeReadToTheirEndAreRefused) {
  const std::string file = "/proc/self/mem";
  const Ran refused = {2, "",
                       "boxctl: " + file + " can't be read to its end: is its disk all right?\n"};
  const std::vector<Lines> all = {{"script"}, {"restore"}, {"load"},
                                  {"trace"},  {"replay"},  {"trace", "--follow"}};
  for (Lines arguments : all) {
    arguments.push_back(file);
    host.whenSleeping = [&](int) { host.stopped = true; };
    EXPECT_EQ(Run(arguments), refused) << arguments[0];
  }
}
#endif

// However deep it is, it takes no more of the stack.
TEST_F(DamagedFiles, DeepFilesAreRefused) {
  constexpr char kWhy[] = "is damaged: it goes more than 8 levels deep";
  constexpr std::size_t kDepth = 600000;
  const std::string open(kDepth, '[');
  const std::string deep = open + std::string(kDepth, ']');
  std::string objects;
  for (int i = 0; i < 200000; ++i) objects += "{\"a\":";
  ASSERT_EQ(Run({"save", File("settings.json")}).code, 0);
  const std::string settings = Content(File("settings.json"));
  ASSERT_EQ(Run({"dump", File("box.json")}).code, 0);
  const std::string box = Content(File("box.json"));
  for (const char* command : {"restore", "diff"}) {
    ExpectRefused(command, open, kWhy);
    ExpectRefused(command, objects, kWhy);
    ExpectRefused(command, With(settings, "\"settings\": [", "\"settings\": [" + deep + ", "),
                  kWhy);
    ExpectRefused(command, With(settings, "\"leftOut\": [", "\"leftOut\": [" + deep), kWhy);
    ExpectRefused(command, With(settings, "\"version\": 1", "\"version\": " + deep), kWhy);
  }
  ExpectRefused("load", With(box, "\"words\": {", "\"words\": {\"9\": " + deep + ", "), kWhy);
  ExpectRefused("load", With(box, "\"blocks\": {", "\"blocks\": " + deep + ", \"other\": {"), kWhy);
  // As deep as may be.
  ExpectRefused("load", "{\"a\":[[[[[[[]]]]]]]}", "is damaged: \"format\" is missing");
  ExpectRefused("load", "{\"a\":[[[[[[[[]]]]]]]]}", kWhy);
}

// Members are looked for one by one: 4 MB of them would take minutes.
TEST_F(DamagedFiles, ObjectsOfMoreMembersThanAnyFileHasAreRefused) {
  constexpr char kWhy[] = "is damaged: an object has more than 512 members";
  const auto membersOf = [](int count) {
    std::string text;
    for (int i = 0; i < count; ++i) text += "\"a" + std::to_string(i) + "\":0,";
    return text;
  };
  ASSERT_EQ(Run({"dump", File("box.json")}).code, 0);
  const std::string box = Content(File("box.json"));
  ExpectRefused("load", With(box, "\"words\": {", "\"words\": {" + membersOf(300000)), kWhy);
  ExpectRefused("restore", "{" + membersOf(513), kWhy);
  ExpectRefused("restore", "{" + membersOf(511) + "\"last\":0}",
                "is damaged: \"format\" is missing");
  // Each object counts by itself.
  std::string objects = "{\"b\":[";
  for (int i = 0; i < 3; ++i) objects += "{" + membersOf(500) + "\"last\":[0]},";
  ExpectRefused("restore", objects + "0]}", "is damaged: \"format\" is missing");
}

TEST_F(DamagedFiles, MutatedSettingsAreRefusedOrMakeSense) {
  Become(13);
  ASSERT_EQ(Run({"save", File("good.json")}).code, 0);
  Mutate("restore", Content(File("good.json")));
}

TEST_F(DamagedFiles, MutatedBoxesAreRefusedOrMakeSense) {
  ASSERT_EQ(Run({"dump", File("good.json")}).code, 0);
  Mutate("load", Content(File("good.json")));
}

}  // namespace
}  // namespace panelora::boxctl
