// Reading, setting and watching a box by the names of the panel.
#include "tests/boxctl/boxctl_desk.h"

namespace panelora::boxctl {
namespace {

using Lines = std::vector<std::string>;

TEST_F(BoxctlTest, StatusSaysWhichBoxItIs) {
  EXPECT_EQ(Run({"status"}), (Ran{0,
                                  "Model:     26\n"
                                  "Brand:     0\n"
                                  "Sub-model: 0\n"
                                  "Firmware:  0.1.2.6\n"
                                  "Input:     1920x1080  59.94p\n"
                                  "Plugged:   yes\n",
                                  ""}));
  EXPECT_EQ(Run({"status", "--json"}).out,
            "{\"model\":26,\"brand\":0,\"subModel\":0,\"inputDip\":0,\"outputDip\":0,"
            "\"firmware\":\"0x0126\",\"inputs\":[\"1920x1080  59.94p\"],\"plugged\":true}\n");
  EXPECT_EQ(Writes(), Lines());
}

TEST_F(BoxctlTest, StatusOfAnUnpluggedBoxEndsWithNoBox) {
  Control().Plug(false);
  const Ran ran = Run({"status"});
  EXPECT_EQ(ran.code, 4);
  EXPECT_EQ(ran.out,
            "Model:     26\nBrand:     0\nSub-model: 0\nFirmware:  0.1.2.6\n"
            "Input:     not told\nPlugged:   no\n");
  EXPECT_EQ(ran.err, "boxctl: the simulated box is not plugged in: boxctl plug\n");
}

TEST_F(BoxctlTest, NoBoxAnswers) {
  Control().Plug(false);
  const Ran none = {4, "", "boxctl: no box answers: plug it in and switch it on\n"};
  EXPECT_EQ(Run({"read"}), none);
  EXPECT_EQ(Run({"set", "Brightness", "1"}), none);
  EXPECT_EQ(Run({"watch"}), none);
  EXPECT_EQ(Run({"save", File("a.json")}), none);
  host.hasDesk = false;
  EXPECT_EQ(Run({"read"}), (Ran{4, "", "boxctl: the simulated box has no memory: error 8\n"}));
  EXPECT_EQ(Run({"plug"}), (Ran{4, "", "boxctl: the simulated box has no memory: error 8\n"}));
}

TEST_F(BoxctlTest, AKeptBoxIsNoBox) {
  host.isKept = true;
  const std::string why =
      "boxctl: another program keeps the simulated box: close that program and try again\n";
  EXPECT_EQ(Run({"plug"}), (Ran{4, "", why}));
  EXPECT_EQ(Run({"status"}), (Ran{4, "", why}));
}

TEST_F(BoxctlTest, ReadsByNameInAnyLetters) {
  EXPECT_EQ(Run({"read", "input source"}), (Ran{0, "Input Source: HDMI\n", ""}));
  EXPECT_EQ(Run({"read", "OutputFormat", "HUE"}),
            (Ran{0, "Output Format: 1920x1080 60.00p\nHue: 128\n", ""}));
  EXPECT_EQ(Run({"read", "word 4"}), (Ran{0, "Input Source: HDMI\n", ""}));
  EXPECT_EQ(Run({"read", "Input Source", "--json"}).out,
            "[{\"name\":\"Input Source\",\"address\":\"word 4\",\"value\":\"HDMI\","
            "\"bytes\":\"01\"}]\n");
  EXPECT_EQ(Writes(), Lines());
}

TEST_F(BoxctlTest, ReadsAll) {
  const Ran ran = Run({"read"});
  EXPECT_EQ(ran.code, 0);
  EXPECT_EQ(ran.err, "");
  EXPECT_NE(ran.out.find("Identity: type 26 brand 0\n"), std::string::npos);
  EXPECT_NE(ran.out.find("Input Source: HDMI\n"), std::string::npos);
  EXPECT_NE(ran.out.find("Image Position: 300, 50\n"), std::string::npos);
  EXPECT_NE(ran.out.find("Firmware: 0.1.2.6\n"), std::string::npos);
  EXPECT_EQ(ran.out.find("Display Modes"), std::string::npos);
  EXPECT_EQ(ran.out.find("Hardware Reset"), std::string::npos);
}

TEST_F(BoxctlTest, NamesThatStandTwiceHaveTheirAddress) {
  Become(17);
  EXPECT_EQ(Run({"read", "TV Wall"}),
            (Ran{0, "TV Wall (word 10): 2x2\nTV Wall (word 11): tile 0\n", ""}));
  EXPECT_EQ(Run({"read", "tv wall (word 11)"}), (Ran{0, "TV Wall (word 11): tile 0\n", ""}));
  EXPECT_EQ(Run({"set", "TV Wall", "3"}),
            (Ran{2, "",
                 "boxctl: \"TV Wall\" means several things: say which of TV Wall (word 10), "
                 "TV Wall (word 11)\n"}));
  EXPECT_EQ(Run({"set", "word 10", "3"}), (Ran{0, "TV Wall (word 10): 3x3\n", ""}));
  EXPECT_EQ(Writes(), Lines({"set word 0,10 = 3"}));
}

TEST_F(BoxctlTest, UnknownNamesListNearOnes) {
  EXPECT_EQ(Run({"read", "Inputt Sorce"}),
            (Ran{1, "",
                 "boxctl: nothing of this box is called \"Inputt Sorce\": do you mean Input "
                 "Source?\n"}));
  EXPECT_EQ(
      Run({"read", "bright"}),
      (Ran{1, "", "boxctl: nothing of this box is called \"bright\": do you mean Brightness?\n"}));
  EXPECT_EQ(Run({"set", "zzzzzzzz", "1"}),
            (Ran{1, "",
                 "boxctl: nothing of this box is called \"zzzzzzzz\": boxctl read lists what it "
                 "has\n"}));
  EXPECT_EQ(Run({"read", "a\nb"}).err.find('\n'), Run({"read", "a\nb"}).err.size() - 1);
}

TEST_F(BoxctlTest, SetsByCaption) {
  EXPECT_EQ(Run({"set", "input source", "vga"}), (Ran{0, "Input Source: VGA\n", ""}));
  EXPECT_EQ(Run({"set", "Aspect Ratio", "4:3"}), (Ran{0, "Aspect Ratio: 4 : 3\n", ""}));
  EXPECT_EQ(Run({"set", "Brightness", "140"}), (Ran{0, "Brightness: 140\n", ""}));
  EXPECT_EQ(Run({"set", "Image Size", "hex:5A50"}), (Ran{0, "Image Size: 90% x 80%\n", ""}));
  EXPECT_EQ(Run({"set", "Text Label", "enable, STUDIO"}),
            (Ran{0, "Text Label: Enable, STUDIO\n", ""}));
  EXPECT_EQ(Run({"set", "Hue", "0x10", "--json"}).out,
            "{\"name\":\"Hue\",\"address\":\"picture 4\",\"value\":\"16\",\"bytes\":\"10\"}\n");
  EXPECT_EQ(Writes(),
            Lines({"set word 0,4 = 2", "set word 0,7 = 3", "set proc amp 0,2 = 140",
                   "set block 18,0,2: 5A 50",
                   "set block 41,0,21: 01 20 20 20 20 20 20 20 53 54 55 44 49 4F 20 20 20 20 20 20 "
                   "20",
                   "set proc amp 0,4 = 16"}));
}

TEST_F(BoxctlTest, AudioSourcesFollowTheInput) {
  EXPECT_EQ(Run({"set", "Audio Source", "Internal (HDMI)"}).code, 0);
  EXPECT_EQ(Run({"set", "Audio Source", "HDMI"}),
            (Ran{2, "",
                 "boxctl: Audio Source can't be \"HDMI\": it takes L/R Audio, Internal (HDMI), "
                 "SDI\n"}));
  EXPECT_EQ(Run({"set", "Input Source", "SDI"}).code, 0);
  EXPECT_EQ(Run({"set", "Audio Source", "HDMI"}).code, 0);
  EXPECT_EQ(Writes(), Lines({"set word 0,6 = 1", "set word 0,4 = 4", "set word 0,6 = 2"}));
}

TEST_F(BoxctlTest, InputLabelsAreTold) {
  Become(13);
  EXPECT_EQ(Run({"set", "Input 2 Label", "CAMERA 2"}), (Ran{0, "Input 2 Label: CAMERA 2\n", ""}));
  EXPECT_EQ(Run({"set", "Display Mode", "Mode 3"}), (Ran{0, "Display Mode: Mode 3\n", ""}));
  EXPECT_EQ(Run({"set", "Input Labels", "ON"}), (Ran{0, "Input Labels: ON\n", ""}));
  EXPECT_EQ(Writes(),
            Lines({"set block 19,1,20: 20 20 20 20 20 20 43 41 4D 45 52 41 20 32 20 20 20 20 20 20",
                   "set word 0,1 = 3",
                   "set block 20,0,20: 01 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
                   "00"}));
}

TEST_F(BoxctlTest, ValuesThatAreNoneAreRefusedUnwritten) {
  const std::vector<std::pair<Lines, std::string>> cases = {
      {{"Input Source", "DVI"}, "Input Source can't be \"DVI\": it takes VGA, HDMI, SDI"},
      {{"Input Source", "1"}, "Input Source can't be \"1\": it takes VGA, HDMI, SDI"},
      {{"Brightness", "256"}, "Brightness can't be \"256\": it takes a number from 0 to 255"},
      {{"Brightness", "1x"}, "Brightness can't be \"1x\": it takes a number from 0 to 255"},
      {{"Brightness", ""}, "Brightness can't be \"\": it takes a number from 0 to 255"},
      {{"Brightness", "hex:0102"},
       "Brightness can't be \"hex:0102\": it takes 1 byte as in hex:01"},
      {{"Image Size", "90"}, "Image Size can't be \"90\": it takes 2 bytes as in hex:0102"},
      {{"Image Size", "hex:5"}, "Image Size can't be \"hex:5\": it takes 2 bytes as in hex:0102"},
      {{"Image Size", "hex:5G00"},
       "Image Size can't be \"hex:5G00\": it takes 2 bytes as in hex:0102"},
      {{"Text Label", "STUDIO"},
       "Text Label can't be \"STUDIO\": it takes Enable, Disable or Default Labels, then a comma "
       "and the text"},
      {{"Hardware Reset", "1"}, "Hardware Reset is a command of the panel, not a setting"},
  };
  for (const auto& [typed, message] : cases) {
    EXPECT_EQ(Run({"set", typed[0], typed[1]}), (Ran{2, "", "boxctl: " + message + "\n"}));
  }
  EXPECT_EQ(Run({"set", "Firmware", "1"}).code, 1);
  EXPECT_EQ(Writes(), Lines());
}

TEST_F(BoxctlTest, WhatTheBoxRefusesIsSaid) {
  Control().SetFaults([](simulator::Faults& faults) {
    faults.every = 1;
    faults.writes = true;
  });
  EXPECT_EQ(Run({"set", "Input Source", "VGA"}),
            (Ran{1, "", "boxctl: the box refused Input Source\n"}));
}

TEST_F(BoxctlTest, WhatDoesNotTakeIsSaid) {
  Control().SetFaults([](simulator::Faults& faults) {
    faults.every = 1;
    faults.writes = true;
    faults.answer = simulator::Faults::Answer::kRandom;  // success, and nothing is told
  });
  EXPECT_EQ(Run({"set", "Input Source", "VGA"}),
            (Ran{1, "", "boxctl: Input Source did not take it: the box reports HDMI\n"}));
}

TEST_F(BoxctlTest, PictureValuesAreStoredWhereTheyMustBe) {
  Become(20, 2);
  EXPECT_EQ(Run({"set", "Contrast", "9"}), (Ran{0, "Contrast: 9\n", ""}));
  EXPECT_EQ(Writes(), Lines({"set proc amp 0,3 = 9", "set proc amp 0,255 = 1"}));
}

TEST_F(BoxctlTest, WatchPrintsWhatChanges) {
  host.whenSleeping = [&](int sleep) {
    constexpr std::uint8_t kVga[] = {2};
    if (sleep == 1) Control().Store(Word(4), kVga);
    if (sleep == 2) Control().Plug(false);
    if (sleep == 4) Control().Plug(true);
  };
  EXPECT_EQ(Run({"watch", "Input Source", "--count", "3"}),
            (Ran{0, "Input Source: HDMI -> VGA\nBox: there -> gone\nBox: gone -> model 26\n", ""}));
  EXPECT_EQ(host.sleeps, 5);
}

// However far a look has got, a box that goes is one change.
TEST_F(BoxctlTest, WatchTellsABoxThatGoesWhileItIsAskedFromUntoldValues) {
  int locksBefore = 0;
  host.whenSleeping = [&](int sleep) {
    if (sleep == 0) locksBefore = host.locks;
    if (sleep == 2) host.desk->box.present = true;
    host.stopped = sleep == 4;
  };
  host.whenLocking = [&](int lock) {  // the box is asked whether it is there, and then for a value
    if (locksBefore != 0 && lock == locksBefore + 2) host.desk->box.present = false;
  };
  EXPECT_EQ(Run({"watch"}), (Ran{0, "Box: there -> gone\nBox: gone -> model 26\n", ""}));
}

TEST_F(BoxctlTest, WatchEndsWhenItIsStopped) {
  host.whenSleeping = [&](int sleep) {
    constexpr std::uint8_t kBytes[] = {7};
    if (sleep == 1) Control().Store(ProcAmp(proc_amp::kHue), kBytes);
    host.stopped = sleep == 3;
  };
  EXPECT_EQ(Run({"watch", "--json"}),
            (Ran{0, "{\"name\":\"Hue\",\"from\":\"128\",\"to\":\"7\",\"bytes\":\"07\"}\n", ""}));
}

TEST_F(BoxctlTest, ALibraryIsReadAndSetLikeTheDesk) {
  EXPECT_EQ(Run({"--library", "real.dll", "set", "Input Source", "SDI"}),
            (Ran{0, "Input Source: SDI\n", ""}));
  EXPECT_EQ(RealWrites(), Lines({"set word 0,4 = 4"}));
  EXPECT_EQ(Run({"read", "Input Source", "--library", "real.dll"}),
            (Ran{0, "Input Source: SDI\n", ""}));
  EXPECT_EQ(Run({"read", "Input Source"}), (Ran{0, "Input Source: HDMI\n", ""}));
  EXPECT_EQ(Run({"status", "--library", "real.dll"}).code, 0);
  EXPECT_EQ(Run({"status", "--library", "other.dll"}),
            (Ran{4, "", "boxctl: other.dll can't be loaded (error 126): is the name right?\n"}));
  EXPECT_EQ(RealWrites(), Lines());
  EXPECT_EQ(Writes(), Lines());
}

// What the library answers for picture values is not known to say anything.
TEST_F(BoxctlTest, PictureValuesCountWhateverTheirResult) {
  Call read = Call::GetPicture();
  read.bytes = {1, 2, 3, 4};
  const std::vector<Call> calls = {read, Call::SetProcAmp(0, proc_amp::kHue, 3)};
  ASSERT_TRUE(Control().Play(*simulator::ReplayOf(calls)));
  EXPECT_EQ(Run({"read", "Brightness", "Hue"}).out, "Brightness: 1\nHue: 3\n");
  EXPECT_EQ(Run({"set", "Hue", "3"}), (Ran{0, "Hue: 3\n", ""}));
  EXPECT_EQ(Run({"set", "Hue", "9"}), (Ran{1, "", "boxctl: the box refused Hue\n"}));
  // Unless nothing was filled.
  ASSERT_TRUE(Control().Play(*simulator::ReplayOf(std::vector<Call>{Call::GetPicture()})));
  EXPECT_EQ(Run({"read", "Hue"}).code, 1);
}

}  // namespace
}  // namespace panelora::boxctl
