// Arguments, help, and scripts.
#include "boxctl/script.h"

#include "tests/boxctl/boxctl_desk.h"

namespace panelora::boxctl {
namespace {

using Lines = std::vector<std::string>;

TEST_F(BoxctlTest, WrongArgumentsAreOneLine) {
  const std::vector<Lines> all = {{},
                                  {"--nonsense"},
                                  {"nonsense"},
                                  {"set"},
                                  {"set", "Hue"},
                                  {"set", "Hue", "1", "2"},
                                  {"cut", "soon"},
                                  {"cut", "0"},
                                  {"cut", "nan"},
                                  {"cut", "NAN"},
                                  {"cut", "inf"},
                                  {"become"},
                                  {"watch", "--count", "many"},
                                  {"plug", "unplug"},
                                  {"wait-for-write", "Hue", "--timeout", "-1"},
                                  {"wait-for-write", "Hue", "--timeout", "nan"},
                                  {"wait-for-write", "Hue", "--timeout", "inf"},
                                  {"read", "--library"}};
  for (const Lines& arguments : all) {
    const Ran ran = Run(arguments);
    EXPECT_EQ(ran.code, 2) << testing::PrintToString(arguments);
    EXPECT_EQ(ran.out, "") << testing::PrintToString(arguments);
    EXPECT_TRUE(ran.err.starts_with("boxctl: ")) << ran.err;
    EXPECT_EQ(ran.err.find('\n'), ran.err.size() - 1) << ran.err;
  }
  EXPECT_EQ(host.desk->journal.last, 0U);
}

TEST_F(BoxctlTest, UnknownCommandsListNearOnes) {
  EXPECT_EQ(Run({"unplugg"}),
            (Ran{2, "", "boxctl: \"unplugg\" is no command: do you mean plug, unplug?\n"}));
  EXPECT_EQ(
      Run({"--json", "statsu"}),
      (Ran{2, "",
           "{\"exit\":2,\"error\":\"\\\"statsu\\\" is no command: do you mean status?\"}\n"}));
  EXPECT_EQ(Run({}), (Ran{2, "", "boxctl: say what to do: boxctl --help lists the commands\n"}));
  EXPECT_EQ(Run({"set", "Hue"}),
            (Ran{2, "", "boxctl: VALUE is required (boxctl --help says more)\n"}));
}

TEST_F(BoxctlTest, HelpHasExamplesForEveryCommand) {
  const Ran all = Run({"--help"});
  EXPECT_EQ(all.code, 0);
  EXPECT_EQ(all.err, "");
  for (const char* command :
       {"status", "read",  "set",    "watch",          "save",  "diff",  "restore", "plug",
        "unplug", "cut",   "reset",  "become",         "input", "fail",  "latency", "dump",
        "load",   "calls", "script", "wait-for-write", "trace", "replay"}) {
    EXPECT_NE(all.out.find(std::string("\n  ") + command + " "), std::string::npos) << command;
    const Ran one = Run({command, "--help"});
    EXPECT_EQ(one.code, 0);
    EXPECT_NE(one.out.find(std::string("Examples:\n  boxctl ") + command), std::string::npos)
        << command << one.out;
  }
}

TEST_F(BoxctlTest, AValueMayBeCalledLikeACommand) {
  Become(13);
  EXPECT_EQ(Run({"set", "Input 1 Label", "reset"}), (Ran{0, "Input 1 Label: reset\n", ""}));
  EXPECT_EQ(Run({"set", "Input 1 Label", "/live"}), (Ran{0, "Input 1 Label: /live\n", ""}));
  EXPECT_EQ(Run({"set", "Input 1 Label", "--", "-1-"}), (Ran{0, "Input 1 Label: -1-\n", ""}));
}

TEST_F(BoxctlTest, ScriptsFromThePipeGoOn) {
  EXPECT_EQ(Run({"script", "-"},
                "# a comment\n"
                "\n"
                "set \"Input Source\" vga\r\n"
                "set Hue 256\n"
                "  read Hue \"Input Source\"\n"
                "set \"Hue 1\n"
                "nonsense\n"
                "script -\n"
                "unplug"),
            (Ran{0,
                 "Input Source: VGA\n.\n"
                 "! Hue can't be \"256\": it takes a number from 0 to 255\n"
                 "Hue: 128\nInput Source: VGA\n.\n"
                 "! a quote is never closed: put a \" behind the word\n"
                 "! \"nonsense\" is no command: boxctl --help lists them\n"
                 "! \"script\" is no command: boxctl --help lists them\n"
                 "unplugged\n.\n",
                 ""}));
}

TEST_F(BoxctlTest, FilesMayBeginWithAByteOrderMark) {
  const std::string mark = "\xEF\xBB\xBF";
  const std::string lines = mark + "read Hue\r\nread Contrast\r\n";
  Put(File("script.txt"), lines);
  const Ran read = {0, "Hue: 128\n.\nContrast: 128\n.\n", ""};
  EXPECT_EQ(Run({"script", File("script.txt")}), read);
  EXPECT_EQ(Run({"script", "-"}, lines), read);
  // At the beginning alone.
  EXPECT_EQ(Run({"script", "-"}, "\n" + lines).out.front(), '!');
  ASSERT_EQ(Run({"save", File("a.json")}).code, 0);
  Put(File("a.json"), mark + Content(File("a.json")));
  EXPECT_EQ(Run({"diff", File("a.json")}).code, 0);
  Put(File("trace.txt"), mark + TraceOfDesk());
  EXPECT_EQ(Run({"trace", File("trace.txt")}).code, 0);
}

TEST_F(BoxctlTest, ScriptsFromAFileEndWithTheFirstFailure) {
  Put(File("script.txt"), "set Hue 1\nset Hue x\nset Hue 2\n");
  EXPECT_EQ(Run({"script", File("script.txt")}),
            (Ran{2, "Hue: 1\n.\n! Hue can't be \"x\": it takes a number from 0 to 255\n",
                 "boxctl: " + File("script.txt") +
                     " line 2: Hue can't be \"x\": it takes a number from 0 to 255\n"}));
  EXPECT_EQ(Run({"read", "Hue"}).out, "Hue: 1\n");
  EXPECT_EQ(Run({"script", File("none.txt")}),
            (Ran{2, "", "boxctl: " + File("none.txt") + " can't be opened: is the name right?\n"}));
}

// Ctrl+C ends what waits; what was to come after it is written to no box.
TEST_F(BoxctlTest, AScriptThatIsStoppedExecutesNoFurtherLine) {
  const std::string lines = "watch \"Input Format\" --count 1\nset Hue 1\n";
  Put(File("script.txt"), lines);
  host.whenSleeping = [&](int) { host.stopped = true; };
  EXPECT_EQ(Run({"script", File("script.txt"), "--library", "real.dll"}),
            (Ran{3, ".\n", "boxctl: " + File("script.txt") + " line 1: stopped\n"}));
  host.stopped = false;
  EXPECT_EQ(Run({"script", "-", "--library", "real.dll"}, lines),
            (Ran{3, ".\n", "boxctl: the standard input line 1: stopped\n"}));
  // Stopped while the next line was waited for.
  EXPECT_EQ(Run({"script", "-", "--library", "real.dll"}, "set Hue 1\n"),
            (Ran{3, "", "boxctl: the standard input line 1: stopped\n"}));
  EXPECT_EQ(RealWrites(), Lines());
}

constexpr char kNotPrinted[] =
    "boxctl: the answer can't be printed: is the disk full, or its reader gone?\n";

TEST_F(BoxctlTest, AnswersThatCanNotBePrintedAreAFailure) {
  EXPECT_EQ(RunWithRoom(5, {"status"}), (Ran{2, "Model", kNotPrinted}));
  EXPECT_EQ(RunWithRoom(0, {"read", "Hue", "--json"}).code, 2);
  EXPECT_EQ(RunWithRoom(7, {"--help"}), (Ran{2, "boxctl ", kNotPrinted}));
  EXPECT_EQ(RunWithRoom(0, {"diff"}).err, Run({"diff"}).err);
  // A script ends, also one from a pipe.
  EXPECT_EQ(RunWithRoom(2, {"script", "-"}, "set Hue 1\nset Hue 2\n"), (Ran{2, "Hu", kNotPrinted}));
  EXPECT_EQ(RunWithRoom(8, {"script", "-"}, "set Hue 3\nset Hue 4\n"),
            (Ran{2, "Hue: 3\n.", kNotPrinted}));
  EXPECT_EQ(Run({"read", "Hue"}).out, "Hue: 3\n");
}

// Nobody would end what goes on until Ctrl+C: its reader is gone.
TEST_F(BoxctlTest, WhatIsFollowedEndsWithItsReader) {
  const std::vector<Lines> all = {
      {"watch"}, {"calls", "--follow"}, {"trace", File("trace.txt"), "--follow"}};
  for (const Lines& arguments : all) {
    Put(File("trace.txt"), TraceOfDesk());
    host.stopped = false;
    host.sleeps = 0;
    host.whenSleeping = [&](int sleep) {
      const auto value = static_cast<std::uint8_t>(sleep);
      Control().Store(ProcAmp(proc_amp::kHue), {&value, 1});
      Put(File("trace.txt"), TraceOfDesk());
      host.stopped = sleep == 10;
    };
    EXPECT_EQ(RunWithRoom(0, arguments), (Ran{2, "", kNotPrinted})) << arguments[0];
    EXPECT_LT(host.sleeps, 5) << arguments[0];
  }
}

TEST_F(BoxctlTest, LinesOfAScriptHaveItsOptions) {
  EXPECT_EQ(Run({"script", "-", "--library", "real.dll", "--json"}, "read Hue\nplug\n"),
            (Ran{0,
                 "[{\"name\":\"Hue\",\"address\":\"picture 4\",\"value\":\"128\",\"bytes\":"
                 "\"80\"}]\n{\"exit\":0}\n"
                 "{\"exit\":2,\"error\":\"only the simulated box can do that: leave out "
                 "--library\"}\n",
                 ""}));
}

TEST_F(BoxctlTest, ErrorsAreJsonToo) {
  EXPECT_EQ(Run({"set", "Hue", "x", "--json"}),
            (Ran{2, "",
                 "{\"exit\":2,\"error\":\"Hue can't be \\\"x\\\": it takes a number from 0 to "
                 "255\"}\n"}));
  EXPECT_EQ(Run({"--json"}).err,
            "{\"exit\":2,\"error\":\"say what to do: boxctl --help lists the commands\"}\n");
  EXPECT_EQ(Run({"cut", "--", "--json"}).err.front(), 'b');
  Put(File("script.txt"), "\nset Hue x\n");
  EXPECT_EQ(Run({"script", File("script.txt"), "--json"}),
            (Ran{2,
                 "{\"exit\":2,\"error\":\"Hue can't be \\\"x\\\": it takes a number from 0 to "
                 "255\"}\n",
                 "{\"exit\":2,\"error\":\"" + File("script.txt") +
                     " line 2: Hue can't be \\\"x\\\": it takes a number from 0 to 255\"}\n"}));
  Control().Plug(false);
  EXPECT_EQ(
      Run({"--json", "read", "Hue"}),
      (Ran{4, "", "{\"exit\":4,\"error\":\"no box answers: plug it in and switch it on\"}\n"}));
}

TEST_F(BoxctlTest, DifferencesAreAFailureOfAScript) {
  ASSERT_EQ(Run({"save", File("a.json")}).code, 0);
  const std::string line = "diff \"" + File("a.json") + "\"\n";
  EXPECT_EQ(Run({"script", "-"}, line + "set Hue 1\n" + line),
            (Ran{0, ".\nHue: 1\n.\nHue: 128 -> 1\n! there are differences\n", ""}));
  Put(File("script.txt"), "set Hue 1\n" + line);
  EXPECT_EQ(Run({"script", File("script.txt")}),
            (Ran{1, "Hue: 1\n.\nHue: 128 -> 1\n! there are differences\n",
                 "boxctl: " + File("script.txt") + " line 2: there are differences\n"}));
}

TEST(Script, LinesAreWords) {
  EXPECT_EQ(WordsOf(""), Lines());
  EXPECT_EQ(WordsOf("  a\tb  c "), Lines({"a", "b", "c"}));
  EXPECT_EQ(WordsOf("set \"Input Source\" \"\" C:\\a\\b.json"),
            Lines({"set", "Input Source", "", "C:\\a\\b.json"}));
  EXPECT_EQ(WordsOf("a\"b c\"d"), Lines({"ab cd"}));
}

}  // namespace
}  // namespace panelora::boxctl
