// Settings of many models: saved, changed, compared, restored.
#include <algorithm>
#include <set>

#include "boxctl/names.h"
#include "boxctl/settings.h"
#include "catalogue/audio.h"
#include "catalogue/setting.h"
#include "catalogue/video.h"
#include "tests/boxctl/boxctl_desk.h"

namespace panelora::boxctl {
namespace {

using Lines = std::vector<std::string>;

constexpr std::uint32_t kNewest = 0xFFFF;

bool Overlap(const Setting& one, const Setting& other) {
  return one.reported.at.kind == other.reported.at.kind &&
         one.reported.at.number == other.reported.at.number &&
         one.reported.at.sub == other.reported.at.sub;
}

// The first settings that lie apart from each other, at most ten.
std::vector<Setting> TenOf(const Identity& identity) {
  std::vector<Setting> ten;
  for (const Setting& each : SettingsOf(identity, kNewest)) {
    const bool isApart = std::none_of(ten.begin(), ten.end(),
                                      [&](const Setting& other) { return Overlap(each, other); });
    const std::vector<Setting> all = SettingsOf(identity, kNewest);
    const bool isAlone = std::count_if(all.begin(), all.end(), [&](const Setting& other) {
                           return Overlap(each, other);
                         }) == 1;
    if (isApart && isAlone && ten.size() < 10) ten.push_back(each);
  }
  return ten;
}

class EveryModel : public BoxctlTest, public testing::WithParamInterface<int> {
 protected:
  EveryModel() { Become(static_cast<std::uint8_t>(GetParam())); }

  Identity Who() const { return {static_cast<std::uint8_t>(GetParam()), 0, 0, 0, 0}; }

  // Puts other bytes where the box keeps the setting.
  void Change(const Setting& setting) {
    const simulator::BoxMemory& box = host.desk->box;
    Bytes bytes = simulator::BytesAt(box, setting.reported.at);
    ASSERT_FALSE(bytes.empty()) << setting.name;
    bytes[0] = static_cast<std::uint8_t>(bytes[0] ^ 1);
    ASSERT_TRUE(Control().Store(setting.reported.at, bytes));
  }
};

// The names at the beginning of lines.
std::vector<std::string> NamesOf(const std::string& lines) {
  std::vector<std::string> names;
  for (std::size_t at = 0; at < lines.size();) {
    names.push_back(lines.substr(at, lines.find(": ", at) - at));
    at = lines.find('\n', at) + 1;
  }
  return names;
}

TEST_P(EveryModel, TenChangedSettingsAreFoundAndRestored) {
  const std::string file = File("settings.json");
  ASSERT_EQ(Run({"save", file}).code, 0);
  EXPECT_EQ(Writes(), Lines());
  EXPECT_EQ(Run({"diff", file}), (Ran{0, "", ""}));
  const std::vector<Setting> ten = TenOf(Who());
  ASSERT_EQ(ten.size(), 10U);
  Lines names;
  for (const Setting& setting : ten) {
    Change(setting);
    names.push_back(setting.name);
  }
  Writes();
  const Ran diff = Run({"diff", file});
  EXPECT_EQ(diff.code, 1);
  EXPECT_EQ(NamesOf(diff.out), names);

  const Ran shown = Run({"restore", file});
  EXPECT_EQ(shown.code, 0);
  EXPECT_TRUE(shown.out.ends_with("nothing was written: add --yes to write 10 settings\n"));
  EXPECT_EQ(Writes(), Lines());

  const Ran restored = Run({"restore", file, "--yes"});
  EXPECT_EQ(restored.code, 0) << restored.err;
  EXPECT_TRUE(restored.out.ends_with("restored 10 settings\n")) << restored.out;
  EXPECT_EQ(Writes().size(), 10U);
  EXPECT_EQ(Run({"diff", file}), (Ran{0, "", ""}));
  EXPECT_EQ(Run({"restore", file, "--yes"}), (Ran{0, "nothing to restore\n", ""}));
  EXPECT_EQ(Writes(), Lines());
}

TEST_P(EveryModel, EverySettingCanBeRestoredAlone) {
  const std::string file = File("settings.json");
  ASSERT_EQ(Run({"save", file}).code, 0);
  for (const Setting& setting : SettingsOf(Who(), kNewest)) {
    Change(setting);
    const Ran diff = Run({"diff", file});
    const Lines names = NamesOf(diff.out);
    EXPECT_NE(std::find(names.begin(), names.end(), setting.name), names.end()) << setting.name;
    EXPECT_EQ(Run({"restore", file, "--yes"}).err, "") << setting.name;
    EXPECT_EQ(Run({"diff", file}), (Ran{0, "", ""})) << setting.name;
  }
}

TEST_P(EveryModel, EveryPropertyIsReadUnderANameOfItsOwn) {
  std::set<std::string> names;
  for (const Named& each : ReadableOf(Who(), kNewest)) {
    EXPECT_TRUE(names.insert(each.name).second) << each.name;
    EXPECT_EQ(Run({"read", each.name}).code, 0) << each.name;
  }
}

// A byte that was reported is told again as it is.
TEST_P(EveryModel, WhatIsToldAgainIsCalledTheSame) {
  for (const Setting& setting : SettingsOf(Who(), kNewest)) {
    const bool isSource = setting.name == audio::Options().options[audio::kSource].name;
    if (isSource || setting.reported.reads != Reads::kIndex) continue;
    for (const Choice& choice : setting.reported.choices) {
      if (choice.index == kNoIndex || !choice.types.Has(Who().boxType)) continue;
      EXPECT_EQ(choice.index, choice.value) << setting.name;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Models, EveryModel,
                         testing::Values(26, 13, 24, 30, 46, 14, 17, 25, 34, 51));

TEST_F(BoxctlTest, SavesWhatTheModelKeeps) {
  Become(17);
  EXPECT_EQ(Run({"save", File("a.json")}), (Ran{0, "saved 17 settings\n", ""}));
  const std::string saved = Content(File("a.json"));
  EXPECT_EQ(saved.substr(0, saved.find("\"settings\"")),
            "{\n"
            "  \"format\": \"panelora-settings\",\n"
            "  \"version\": 1,\n"
            "  \"model\": 17,\n"
            "  \"brand\": 0,\n"
            "  \"subModel\": 0,\n"
            "  \"inputDip\": 0,\n"
            "  \"outputDip\": 0,\n"
            "  \"firmware\": \"0xFFFF\",\n"
            "  ");
  EXPECT_NE(saved.find("    {\n"
                       "      \"name\": \"Brightness\",\n"
                       "      \"caption\": \"128\",\n"
                       "      \"address\": \"picture 2\",\n"
                       "      \"bytes\": \"80\"\n"
                       "    }"),
            std::string::npos);
  EXPECT_NE(saved.find("    {\n"
                       "      \"name\": \"TV Wall (word 11)\",\n"
                       "      \"caption\": \"tile 0\",\n"
                       "      \"address\": \"word 11\",\n"
                       "      \"bytes\": \"00\"\n"
                       "    }"),
            std::string::npos);
  EXPECT_EQ(saved.find("Reset"), std::string::npos);
}

TEST_F(BoxctlTest, WhatIsLeftOutSaysWhy) {
  Become(13);
  Control().SetFaults([](simulator::Faults& faults) {
    faults.every = 1;
    faults.reads = true;
    faults.oneAddress = true;
    faults.address = ProcAmp(proc_amp::kHue);
  });
  const Ran ran = Run({"save", File("a.json")});
  EXPECT_TRUE(ran.out.ends_with(
      "left out Channel combinations: the box takes one only for the display mode that it shows\n"
      "left out Hue: the box does not tell it\n"))
      << ran.out;
  EXPECT_NE(Content(File("a.json")).find("\"reason\": \"the box does not tell it\""),
            std::string::npos);
}

TEST_F(BoxctlTest, NothingIsSavedOfABoxThatTellsNothing) {
  Put(File("a.json"), "as it was");
  Control().SetFaults([](simulator::Faults& faults) {
    faults.every = 1;
    faults.reads = true;
  });
  EXPECT_EQ(Run({"save", File("a.json")}).code, 4);
  EXPECT_EQ(Content(File("a.json")), "as it was");
}

TEST_F(BoxctlTest, DiffSaysBothCaptions) {
  ASSERT_EQ(Run({"save", File("a.json")}).code, 0);
  Run({"set", "Input Source", "VGA"});
  Run({"set", "Contrast", "9"});
  EXPECT_EQ(Run({"diff", File("a.json")}),
            (Ran{1, "Contrast: 128 -> 9\nInput Source: HDMI -> VGA\n", ""}));
  ASSERT_EQ(Run({"save", File("b.json")}).code, 0);
  EXPECT_EQ(Run({"diff", File("b.json"), File("a.json")}),
            (Ran{1, "Contrast: 9 -> 128\nInput Source: VGA -> HDMI\n", ""}));
  EXPECT_EQ(Run({"diff", File("a.json"), File("a.json")}), (Ran{0, "", ""}));
  EXPECT_EQ(Run({"diff", "--json", File("a.json")}).out,
            "[{\"name\":\"Contrast\",\"address\":\"picture 3\",\"from\":\"128\",\"to\":\"9\","
            "\"fromBytes\":\"80\",\"toBytes\":\"09\"},{\"name\":\"Input Source\",\"address\":"
            "\"word 4\",\"from\":\"HDMI\",\"to\":\"VGA\",\"fromBytes\":\"01\",\"toBytes\":\"02\"}]"
            "\n");
}

TEST_F(BoxctlTest, TwoFilesNeedNoBox) {
  ASSERT_EQ(Run({"save", File("a.json")}).code, 0);
  Control().Plug(false);
  EXPECT_EQ(Run({"diff", File("a.json"), File("a.json")}), (Ran{0, "", ""}));
  EXPECT_EQ(Run({"diff", File("a.json")}).code, 4);
}

TEST_F(BoxctlTest, RestoreWritesOnlyWhatDiffers) {
  ASSERT_EQ(Run({"save", File("a.json")}).code, 0);
  Run({"set", "Input Source", "VGA"});
  Run({"set", "Image Size", "hex:5A5A"});
  Run({"set", "Hue", "1"});
  Writes();
  EXPECT_EQ(Run({"restore", File("a.json")}),
            (Ran{0,
                 "Hue: 1 -> 128\nInput Source: VGA -> HDMI\nImage Size: 90% x 90% -> 100% x 100%\n"
                 "nothing was written: add --yes to write 3 settings\n",
                 ""}));
  EXPECT_EQ(Writes(), Lines());
  EXPECT_EQ(Run({"restore", File("a.json"), "--yes"}).code, 0);
  EXPECT_EQ(Writes(),
            Lines({"set proc amp 0,4 = 128", "set word 0,4 = 1", "set block 18,0,2: 64 64"}));
}

TEST_F(BoxctlTest, WhatIsToldInAnotherFormIsRestored) {
  Become(13);
  Run({"set", "Inset 1", "hex:0102030405060708"});
  ASSERT_EQ(Run({"save", File("a.json")}).code, 0);
  Run({"set", "Inset 1", "hex:0000000000000001"});
  Writes();
  ASSERT_EQ(Run({"restore", File("a.json"), "--yes"}).code, 0);
  EXPECT_EQ(Writes(), Lines({"set block 13,0,8: 01 02 03 04 05 06 07 08"}));

  Become(46);
  Run({"set", "Sync Delays", "hex:0001000201"});
  ASSERT_EQ(Run({"save", File("b.json")}).code, 0);
  EXPECT_NE(Content(File("b.json")).find("\"caption\": \"1 lines, 2 clocks\""), std::string::npos);
  Run({"set", "Sync Delays", "hex:0003000401"});
  Writes();
  ASSERT_EQ(Run({"restore", File("b.json"), "--yes"}).code, 0);
  EXPECT_EQ(Writes(), Lines({"set block 27,0,5: 00 01 00 02 01"}));

  Become(21);
  ASSERT_EQ(Run({"save", File("c.json")}).code, 0);
  Run({"set", "Audio Mute", "ON"});
  Writes();
  ASSERT_EQ(Run({"restore", File("c.json"), "--yes"}).code, 0);
  EXPECT_EQ(Writes(), Lines({"set block 1,0,1: 00"}));
}

TEST_F(BoxctlTest, PictureValuesAreStoredOnceAfterARestore) {
  Become(20, 2);
  ASSERT_EQ(Run({"save", File("a.json")}).code, 0);
  Run({"set", "Hue", "1"});
  Run({"set", "Contrast", "1"});
  Writes();
  ASSERT_EQ(Run({"restore", File("a.json"), "--yes"}).code, 0);
  EXPECT_EQ(Writes(),
            Lines({"set proc amp 0,3 = 128", "set proc amp 0,4 = 128", "set proc amp 0,255 = 1"}));
}

TEST_F(BoxctlTest, WhatDidNotTakeIsReported) {
  ASSERT_EQ(Run({"save", File("a.json")}).code, 0);
  Run({"set", "Hue", "1"});
  Run({"set", "Input Source", "VGA"});
  Control().SetFaults([](simulator::Faults& faults) {
    faults.every = 1;
    faults.writes = true;
    faults.oneAddress = true;
    faults.address = ProcAmp(proc_amp::kHue);
  });
  EXPECT_EQ(Run({"restore", File("a.json"), "--yes"}),
            (Ran{1, "Hue: 1 -> 128\nInput Source: VGA -> HDMI\nrestored 1 setting\n",
                 "boxctl: the box did not take Hue\n"}));
}

// What is not told now may differ: it is no success to leave it out.
TEST_F(BoxctlTest, WhatTheBoxDoesNotTellIsNoneThatItHasNot) {
  ASSERT_EQ(Run({"save", File("a.json")}).code, 0);
  Run({"set", "Hue", "1"});
  Run({"set", "Input Source", "VGA"});
  Control().SetFaults([](simulator::Faults& faults) {
    faults.every = 1;
    faults.reads = true;
    faults.oneAddress = true;
    faults.address = Word(4);
  });
  const std::string left = "left out Input Source: the box does not tell it\n";
  const std::string why = "boxctl: the box does not tell Input Source\n";
  EXPECT_EQ(
      Run({"restore", File("a.json")}),
      (Ran{1, "Hue: 1 -> 128\n" + left + "nothing was written: add --yes to write 1 setting\n",
           why}));
  EXPECT_EQ(Run({"restore", File("a.json"), "--yes"}),
            (Ran{1, "Hue: 1 -> 128\n" + left + "restored 1 setting\n", why}));
  EXPECT_EQ(Run({"restore", File("a.json"), "--yes", "--json"}).out,
            "{\"changes\":[],\"leftOut\":[],\"untold\":[\"Input Source\"],\"written\":true,"
            "\"untaken\":[]}\n");
}

TEST_F(BoxctlTest, NothingIsSavedOfABoxThatGoesMeanwhile) {
  Put(File("a.json"), "as it was");
  host.whenLocking = [&](int lock) {
    if (lock == 10) host.desk->box.present = false;
  };
  EXPECT_EQ(Run({"save", File("a.json")}),
            (Ran{4, "", "boxctl: the box went while it was asked: plug it in and try again\n"}));
  EXPECT_GT(host.locks, 10);
  EXPECT_EQ(Content(File("a.json")), "as it was");
}

// Settings hang on the firmware: one that is not told is not the oldest one.
TEST_F(BoxctlTest, AFirmwareThatIsNotToldIsNotTakenForAnother) {
  ASSERT_EQ(Run({"save", File("a.json")}).code, 0);
  const std::string saved = Content(File("a.json"));
  Control().SetFaults([](simulator::Faults& faults) {
    faults.every = 1;
    faults.reads = true;
    faults.oneAddress = true;
    faults.address = Word(5);
  });
  const Lines all[] = {
      {"save", File("a.json")}, {"diff", File("a.json")}, {"restore", File("a.json"), "--yes"}};
  for (const Lines& arguments : all) {
    EXPECT_EQ(Run(arguments), (Ran{1, "",
                                   "boxctl: the box does not tell its firmware version, on which "
                                   "its settings hang: try again\n"}));
  }
  EXPECT_EQ(Content(File("a.json")), saved);
  EXPECT_NE(Run({"status"}).out.find("Firmware:  not told\n"), std::string::npos);
  EXPECT_NE(Run({"status", "--json"}).out.find("\"firmware\":\"\""), std::string::npos);
}

TEST_F(BoxctlTest, SettingsOfAnotherModelAreRefused) {
  ASSERT_EQ(Run({"save", File("a.json")}).code, 0);
  Become(13);
  const std::string why = "boxctl: " + File("a.json") +
                          " is of model 26, and the box of model 13: their settings differ in "
                          "kind\n";
  Writes();
  EXPECT_EQ(Run({"restore", File("a.json"), "--yes"}), (Ran{2, "", why}));
  EXPECT_EQ(Run({"diff", File("a.json")}), (Ran{2, "", why}));
  EXPECT_EQ(Writes(), Lines());
}

TEST_F(BoxctlTest, SettingsThatAnOlderFirmwareLacksAreLeftOut) {
  ASSERT_EQ(Run({"save", File("a.json")}).code, 0);
  Control().Become({26, 0, 0, 0, 0}, 0x0100);
  const Ran ran = Run({"restore", File("a.json"), "--yes"});
  EXPECT_EQ(ran, (Ran{0,
                      "left out Edge Enhance: the box has none\n"
                      "left out DipSwitch 8(1) Mode: the box has none\n"
                      "left out No Signal Mode: the box has none\n"
                      "left out OSD Hide Mode: the box has none\n"
                      "nothing to restore\n",
                      ""}));
}

TEST_F(BoxctlTest, ALibraryIsWrittenOnlyBySetAndRestoreYes) {
  ASSERT_EQ(Run({"save", File("a.json")}).code, 0);
  ASSERT_EQ(Run({"--library", "real.dll", "set", "Hue", "1"}).code, 0);
  RealWrites();
  EXPECT_EQ(Run({"--library", "real.dll", "save", File("b.json")}).code, 0);
  EXPECT_EQ(Run({"--library", "real.dll", "diff", File("a.json")}).code, 1);
  EXPECT_EQ(Run({"--library", "real.dll", "restore", File("a.json")}).code, 0);
  EXPECT_EQ(Run({"--library", "real.dll", "read"}).code, 0);
  EXPECT_EQ(RealWrites(), Lines());
  EXPECT_EQ(Run({"--library", "real.dll", "restore", File("a.json"), "--yes"}).code, 0);
  EXPECT_EQ(RealWrites(), Lines({"set proc amp 0,4 = 128"}));
}

TEST_F(BoxctlTest, AFileIsReplacedWholeOrNotAtAll) {
  EXPECT_EQ(Run({"save", File("no/such/folder.json")}),
            (Ran{2, "",
                 "boxctl: " + File("no/such/folder.json") +
                     " can't be written: may you write in that folder?\n"}));
  Put(File("a.json"), "old");
  ASSERT_EQ(Run({"save", File("a.json")}).code, 0);
  EXPECT_EQ(Content(File("a.json")).front(), '{');
  EXPECT_EQ(Content(File("a.json.boxctl-new")), "");
}

}  // namespace
}  // namespace panelora::boxctl
