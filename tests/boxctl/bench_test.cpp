// What the simulated box alone can do: its plug, its kind, faults, calls, and all that it keeps.
#include "catalogue/codecs.h"
#include "tests/boxctl/boxctl_desk.h"

namespace panelora::boxctl {
namespace {

using Lines = std::vector<std::string>;
using simulator::Faults;

TEST_F(BoxctlTest, PlugsAndUnplugs) {
  EXPECT_EQ(Run({"unplug"}), (Ran{0, "unplugged\n", ""}));
  EXPECT_FALSE(Control().LookAt()->isPlugged);
  EXPECT_EQ(Run({"plug", "--json"}), (Ran{0, "{\"plugged\":true}\n", ""}));
  EXPECT_TRUE(Control().LookAt()->isPlugged);
  EXPECT_EQ(Run({"cut", "2.5"}), (Ran{0, "the cable is cut for 2.5 s\n", ""}));
  EXPECT_FALSE(Control().LookAt()->isPlugged);
  host.now += 2500;
  EXPECT_TRUE(Control().LookAt()->isPlugged);
}

TEST_F(BoxctlTest, BecomesAnotherBox) {
  EXPECT_EQ(Run({"become", "24", "--brand", "2", "--sub-model", "3", "--firmware", "0x0112",
                 "--dip-in", "--dip-out"}),
            (Ran{0, "model 24, firmware 0.1.1.2\n", ""}));
  const auto look = Control().LookAt();
  EXPECT_EQ(look->box.identity, (Identity{24, 2, 3, 1, 1}));
  EXPECT_EQ(look->box.firmware, 0x0112U);
  EXPECT_EQ(Run({"become", "13", "--firmware", "0.1.2.0"}),
            (Ran{0, "model 13, firmware 0.1.2.0\n", ""}));
  EXPECT_EQ(Run({"become", "255"}).code, 2);
  EXPECT_EQ(Run({"become", "-1"}).code, 2);
  EXPECT_EQ(Run({"become", "13", "--firmware", "0.1.2"}),
            (Ran{2, "", "boxctl: \"0.1.2\" is no firmware: type one like 0x0112 or 0.1.1.2\n"}));
  EXPECT_EQ(Control().LookAt()->box.identity.boxType, 13);
}

TEST_F(BoxctlTest, ResetsToTheDefaults) {
  ASSERT_EQ(Run({"set", "Hue", "1"}).code, 0);
  EXPECT_EQ(Run({"reset"}), (Ran{0, "as it left the factory\n", ""}));
  EXPECT_EQ(Run({"read", "Hue"}).out, "Hue: 128\n");
}

TEST_F(BoxctlTest, ReceivesAnotherSignal) {
  EXPECT_EQ(Run({"input", "1920x1080i50"}), (Ran{0, "input: 1920x1080  50.00i\n", ""}));
  EXPECT_EQ(Run({"read", "Input Format"}).out, "Input Format: 1920x1080  50.00i\n");
  EXPECT_EQ(Run({"input", "1280x720p59.94"}), (Ran{0, "input: 1280x720  59.94p\n", ""}));
  EXPECT_EQ(Run({"read", "Input Format"}).out, "Input Format: 1280x720  59.94p\n");
  EXPECT_EQ(Run({"input", "720x576i29.5"}).out, "input: 720x576  29.50i\n");
  EXPECT_EQ(Run({"input", "none"}), (Ran{0, "input: -  NO SIGNAL  -\n", ""}));
  for (const char* wrong :
       {"", "1920", "1920x1080", "1920x1080i", "0x0i50", "1920x1080q50", "70000x1080i50",
        "1920x1080i50.123", "1920x1080i50.", "x1080i50", "1920x1080i50.9x", "1920x1080i300"}) {
    EXPECT_EQ(Run({"input", wrong}).code, 2) << wrong;
  }
  Become(17);  // tells the code of a format
  EXPECT_EQ(Run({"input", "1920x1080i50"}), (Ran{0, "input: 1920x1080  50.00i\n", ""}));
  EXPECT_EQ(Run({"read", "Input Format"}).out, "Input Format: 1920x1080 50.00i\n");
  EXPECT_EQ(Run({"input", "1000x500p60"}),
            (Ran{1, "", "boxctl: model 17 tells no such input: try a common format\n"}));
}

TEST_F(BoxctlTest, ABusyBoxIsNotTakenForOneThatTellsNoSuchInput) {
  host.whenLocking = [&](int lock) { host.isKept = lock >= 1; };  // the first one is a look
  EXPECT_EQ(Run({"input", "1920x1080i50"}),
            (Ran{4, "",
                 "boxctl: another program keeps the simulated box: close that program and try "
                 "again\n"}));
}

TEST_F(BoxctlTest, LetsCallsFail) {
  EXPECT_EQ(Run({"fail", "--every", "3", "--reads"}),
            (Ran{0, "one call in 3 goes wrong: reads\n", ""}));
  Faults faults = host.desk->faults;
  EXPECT_EQ(faults.every, 3U);
  EXPECT_TRUE(faults.reads);
  EXPECT_FALSE(faults.writes || faults.opens || faults.oneAddress);
  EXPECT_EQ(Run({"fail", "--writes", "--property", "Input Source", "--result", "5"}),
            (Ran{0, "every call goes wrong: writes of word 4, with 5\n", ""}));
  faults = host.desk->faults;
  EXPECT_TRUE(faults.oneAddress);
  EXPECT_EQ(faults.address, Word(4));
  EXPECT_EQ(faults.answer, Faults::Answer::kResult);
  EXPECT_EQ(faults.result, 5);
  EXPECT_EQ(Run({"fail", "--random"}),
            (Ran{0, "every call goes wrong: reads, writes, opens, with random bytes\n", ""}));
  EXPECT_EQ(host.desk->faults.answer, Faults::Answer::kRandom);
  EXPECT_EQ(Run({"latency", "200"}), (Ran{0, "every call takes 200 ms\n", ""}));
  EXPECT_EQ(Run({"fail", "--never"}), (Ran{0, "no call fails\n", ""}));
  EXPECT_EQ(host.desk->faults.latency, 200U);
  EXPECT_EQ(Run({"latency", "501"}).code, 2);
  EXPECT_EQ(Run({"latency", "0"}).code, 0);
  EXPECT_EQ(Run({"fail", "--vanish"}),
            (Ran{0, "no call fails; the next write pulls the plug\n", ""}));
  EXPECT_EQ(Run({"set", "Hue", "1"}), (Ran{1, "", "boxctl: the box refused Hue\n"}));
  EXPECT_FALSE(Control().LookAt()->isPlugged);
}

// What the bench armed stays, and is said.
TEST_F(BoxctlTest, FailLeavesWhatItDoesNotMention) {
  Control().SetFaults([](Faults& faults) {
    faults.latency = 7;
    faults.cutUntil = 1;
    faults.fillsWhatWasAsked = true;
  });
  EXPECT_EQ(
      Run({"fail", "--vanish"}),
      (Ran{0, "no call fails; the next write pulls the plug; blocks are answered with FF\n", ""}));
  EXPECT_EQ(Run({"fail", "--reads"}),
            (Ran{0,
                 "every call goes wrong: reads; the next write pulls the plug; blocks are answered "
                 "with FF\n",
                 ""}));
  Faults faults = host.desk->faults;
  EXPECT_TRUE(faults.vanishOnWrite && faults.fillsWhatWasAsked);
  EXPECT_EQ(faults.latency, 7U);
  EXPECT_EQ(faults.cutUntil, 1U);
  EXPECT_EQ(Run({"fail", "--never"}), (Ran{0, "no call fails\n", ""}));
  faults = host.desk->faults;
  EXPECT_FALSE(faults.vanishOnWrite || faults.fillsWhatWasAsked);
  EXPECT_EQ(faults.latency, 7U);
}

TEST_F(BoxctlTest, FailRefusesWhatMakesNoSense) {
  EXPECT_EQ(Run({"fail", "--every", "0"}).code, 2);
  EXPECT_EQ(Run({"fail", "--vanish", "--never"}).code, 2);
  const std::vector<Lines> all = {{"--vanish", "--every", "3"},  {"--every", "3", "--vanish"},
                                  {"--never", "--reads"},        {"--vanish", "--property", "Hue"},
                                  {"--never", "--random"},       {"--random", "--result", "5"},
                                  {"--result", "5", "--random"}, {"--opens", "--never"}};
  for (Lines arguments : all) {
    arguments.insert(arguments.begin(), "fail");
    const Ran ran = Run(arguments);
    EXPECT_EQ(ran.code, 2) << testing::PrintToString(arguments);
    EXPECT_EQ(ran.err.find('\n'), ran.err.size() - 1) << ran.err;
  }
  EXPECT_EQ(Run({"fail", "--vanish", "--every", "3"}).err,
            "boxctl: --vanish excludes --every (boxctl --help says more)\n");
  EXPECT_FALSE(host.desk->faults.vanishOnWrite);
  EXPECT_EQ(Run({"fail", "--property", "Nothing"}).code, 1);
  EXPECT_EQ(host.desk->faults.every, 0U);
}

TEST_F(BoxctlTest, WaitsForAWrite) {
  host.whenSleeping = [&](int sleep) {
    if (sleep == 1) Run({"set", "Contrast", "9"});
    if (sleep == 2) Run({"set", "Hue", "4"});
  };
  ASSERT_EQ(Run({"set", "Hue", "1"}).code, 0);  // before it waits
  EXPECT_EQ(Run({"wait-for-write", "hue"}), (Ran{0, "Hue: 4\n", ""}));
  EXPECT_EQ(host.sleeps, 3);
}

TEST_F(BoxctlTest, WaitsForAWriteThatTheBoxTakes) {
  host.whenSleeping = [&](int sleep) {
    Run({"fail", "--writes", "--every", sleep < 2 ? "1" : "2"});
    Run({"set", "Hue", std::to_string(sleep)});
  };
  EXPECT_EQ(Run({"wait-for-write", "hue"}), (Ran{0, "Hue: 2\n", ""}));
  EXPECT_EQ(host.sleeps, 3);
}

TEST_F(BoxctlTest, WaitsForACommand) {
  host.whenSleeping = [&](int sleep) {
    const auto value = static_cast<std::uint8_t>(sleep);
    Control().Store(Word(3), {&value, 1});
  };
  EXPECT_EQ(Run({"wait-for-write", "Hardware Reset"}), (Ran{0, "Hardware Reset\n", ""}));
  EXPECT_EQ(host.sleeps, 2);
}

TEST_F(BoxctlTest, WaitsNoLongerThanItMay) {
  EXPECT_EQ(Run({"wait-for-write", "Hue", "--timeout", "1.5"}),
            (Ran{3, "", "boxctl: nobody wrote Hue within 1.5 s\n"}));
  EXPECT_EQ(host.now, 1500U);
  host.stopped = true;
  EXPECT_EQ(Run({"wait-for-write", "Hue"}).code, 3);
  EXPECT_EQ(Run({"wait-for-write", "Nothing"}).code, 1);
}

TEST_F(BoxctlTest, CallsAreShownInWords) {
  Run({"set", "Hue", "4"});
  Run({"unplug"});
  Run({"read", "Hue"});
  EXPECT_EQ(Run({"calls"}),
            (Ran{0,
                 "     1  01:46:40.000  boxctl       0 us  Open: a box\n"
                 "     2  01:46:40.000  boxctl       0 us  Identity: type 26 brand 0\n"
                 "     3  01:46:40.000  boxctl       0 us  Firmware: 0.1.2.6\n"
                 "     4  01:46:40.000  boxctl       0 us  Input Source: HDMI\n"
                 "     5  01:46:40.000  boxctl       0 us  Hue: 4\n"
                 "     6  01:46:40.000  boxctl       0 us  Picture values: brightness 128, "
                 "contrast 128, hue 4, saturation 128\n"
                 "     7  01:46:40.000  boxctl       0 us  Open?  failed (0)\n",
                 ""}));
  EXPECT_EQ(Run({"calls", "--writes", "--json"}),
            (Ran{0,
                 "{\"number\":5,\"time\":1000000000000000,\"by\":\"boxctl\",\"process\":7,"
                 "\"duration\":0,\"write\":true,\"call\":\"set proc amp 0,4 = 4\",\"words\":"
                 "\"Hue: 4\",\"result\":1}\n",
                 ""}));
}

TEST_F(BoxctlTest, CallsAreFollowed) {
  host.whenSleeping = [&](int sleep) {
    host.now += 3661001;
    const auto value = static_cast<std::uint8_t>(sleep);
    if (sleep < 2) Control().Store(ProcAmp(proc_amp::kHue), {&value, 1});
    host.stopped = sleep == 2;
  };
  EXPECT_EQ(Run({"calls", "--follow", "--writes"}),
            (Ran{0,
                 "     1  02:47:41.021  bench        0 us  Hue: 0\n"
                 "     2  03:48:42.042  bench        0 us  Hue: 1\n",
                 ""}));
}

TEST_F(BoxctlTest, CallsThatAreGoneAreCounted) {
  const std::uint8_t value = 1;
  host.whenSleeping = [&](int sleep) {
    const auto many = sleep == 0 ? 1 : simulator::Journal::kHeld + 2;
    for (std::size_t i = 0; i < many; ++i) Control().Store(ProcAmp(proc_amp::kHue), {&value, 1});
    host.stopped = sleep == 1;
  };
  const Ran ran = Run({"calls", "--follow"});
  EXPECT_NE(ran.out.find("\n        2 calls are no longer kept\n     4  "), std::string::npos)
      << ran.out.substr(0, 300);
}

TEST_F(BoxctlTest, AllThatABoxKeepsGoesIntoAFileAndBack) {
  Become(13, 8);
  Run({"set", "Input 3 Label", "CAMERA 3"});
  Run({"set", "Hue", "3"});
  const auto before = std::make_unique<simulator::BoxMemory>(host.desk->box);
  EXPECT_EQ(Run({"dump", File("box.json")}), (Ran{0, "dumped all that the box keeps\n", ""}));
  Become(26);
  Control().Plug(false);
  EXPECT_EQ(Run({"load", File("box.json")}), (Ran{0, "loaded a box of model 13\n", ""}));
  const simulator::BoxMemory& now = host.desk->box;
  EXPECT_EQ(now.identity, before->identity);
  EXPECT_EQ(now.firmware, before->firmware);
  EXPECT_TRUE(now.present);
  EXPECT_EQ(now.picture.hue, 3);
  for (std::size_t i = 0; i < simulator::BoxMemory::kNumbers; ++i) {
    EXPECT_EQ(now.blocks[i], before->blocks[i]) << i;
    EXPECT_EQ(now.words[i].held, before->words[i].held) << i;
    EXPECT_EQ(now.words[i].words, before->words[i].words) << i;
  }
  EXPECT_EQ(now.labels, before->labels);
}

TEST_F(BoxctlTest, AGivenSignalIsPartOfTheBox) {
  Run({"input", "720x576i50"});
  ASSERT_EQ(Run({"dump", File("box.json")}).code, 0);
  Run({"reset"});
  ASSERT_EQ(Run({"load", File("box.json")}).code, 0);
  Run({"set", "Input Source", "VGA"});
  EXPECT_EQ(Run({"read", "Input Format"}).out, "Input Format: 720x576  50.00i\n");
  std::string earlier = Content(File("box.json"));
  const std::string flag = " \"inputGiven\": true,\n";
  ASSERT_NE(earlier.find(flag), std::string::npos);
  Put(File("earlier.json"), earlier.erase(earlier.find(flag), flag.size()));
  ASSERT_EQ(Run({"load", File("earlier.json")}).code, 0);
  Run({"set", "Input Source", "HDMI"});
  EXPECT_EQ(Run({"read", "Input Format"}).out, "Input Format: 1920x1080  59.94p\n");
}

TEST_F(BoxctlTest, ALibraryIsNoSimulatedBox) {
  ASSERT_EQ(Run({"dump", File("box.json")}).code, 0);
  const std::vector<Lines> all = {{"plug"},
                                  {"unplug"},
                                  {"cut", "1"},
                                  {"reset"},
                                  {"become", "13"},
                                  {"input", "none"},
                                  {"fail"},
                                  {"latency", "1"},
                                  {"wait-for-write", "Hue"},
                                  {"calls"},
                                  {"dump", File("other.json")},
                                  {"load", File("box.json")}};
  for (Lines arguments : all) {
    arguments.insert(arguments.end(), {"--library", "real.dll"});
    EXPECT_EQ(Run(arguments),
              (Ran{2, "", "boxctl: only the simulated box can do that: leave out --library\n"}))
        << arguments[0];
  }
  EXPECT_EQ(host.real->journal.last, 0U);
  EXPECT_EQ(Content(File("other.json")), "");
}

}  // namespace
}  // namespace panelora::boxctl
