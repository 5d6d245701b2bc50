// The boxes that can be made, and what is typed for them.
#include "boxbench/models.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "boxbench/plug_switches.h"
#include "tests/boxbench/desk_box.h"

namespace panelora::boxbench {
namespace {

const Model* FindModel(std::uint8_t type) {
  for (const Model& each : Models()) {
    if (each.type == type) return &each;
  }
  return nullptr;
}

TEST(BenchModels, EveryTypeOfTheFamilyIsThereOnce) {
  EXPECT_TRUE(
      std::is_sorted(Models().begin(), Models().end(),
                     [](const auto& left, const auto& right) { return left.type < right.type; }));
  ASSERT_NE(FindModel(26), nullptr);
  EXPECT_EQ(FindModel(26)->text, "26 - complete");
  ASSERT_NE(FindModel(13), nullptr);
  EXPECT_EQ(FindModel(13)->text, "13 - pages as rows say");
  EXPECT_EQ(Models().front().type, 5);
  EXPECT_EQ(Models().back().type, 55);
  EXPECT_EQ(Models().size(), 51U);
  for (const int without : {8, 9, 10, 11, 12, 16, 22, 28, 31, 41}) {
    const Model* model = FindModel(static_cast<std::uint8_t>(without));
    ASSERT_NE(model, nullptr) << without;
    EXPECT_EQ(model->text, std::to_string(without) + " - no front, pages as rows say");
  }
  EXPECT_EQ(FindModel(4), nullptr);
  EXPECT_EQ(ModelText(4), "4 - not of the family");
  EXPECT_EQ(ModelText(200), "200 - not of the family");
  EXPECT_EQ(FindModel(255), nullptr);
}

TEST(BenchModels, ItsPagesAreThoseOfThePanel) {
  EXPECT_EQ(PagesText({26, 0, 0, 0, 0}),
            "Information, Video settings, Image Adjust, Audio, Proc Amp, Setting");
  EXPECT_EQ(PagesText({27, 0, 0, 0, 0}), "Information, Video settings, Setting");
}

TEST(BenchModels, ABoxIsMadeOfWhatIsTyped) {
  const auto wanted = WantedBoxOf({24, "1", "2", true, false, " 0x0126 "});
  ASSERT_TRUE(wanted.value.has_value()) << wanted.problem;
  EXPECT_EQ(wanted.value->identity, (Identity{24, 1, 2, 1, 0}));
  EXPECT_EQ(wanted.value->firmware, 0x0126U);
}

TEST(BenchModels, WhatIsTypedIsWhatTheBoxIs) {
  const Identity identity = {13, 2, 3, 0, 1};
  const auto wanted = WantedBoxOf(FormOf(identity, 0x0A0B));
  ASSERT_TRUE(wanted.value.has_value());
  EXPECT_EQ(wanted.value->identity, identity);
  EXPECT_EQ(wanted.value->firmware, 0x0A0BU);
}

TEST(BenchModels, WrongFieldsAreNamed) {
  EXPECT_EQ(WantedBoxOf({26, "256", "0", false, false, "0126"}).problem,
            "the brand is a number from 0 to 255; 0 is the maker's");
  EXPECT_EQ(WantedBoxOf({26, "0", "x", false, false, "0126"}).problem,
            "the sub-model is a number from 0 to 255; mostly it is 0");
  for (const char* firmware : {"", "10126", "01G6"}) {
    EXPECT_EQ(WantedBoxOf({26, "0", "0", false, false, firmware}).problem,
              "the firmware is four hexadecimal digits, like 0126");
  }
}

TEST(BenchModels, TheFirmwareIsSaidAsThePanelShowsIt) {
  EXPECT_EQ(FirmwareHint("0112"), "shown as 0.1.1.2");
  EXPECT_EQ(FirmwareHint("F"), "shown as 0.0.0.F");
  EXPECT_EQ(FirmwareHint("0.1"), "four digits, 0 to F");
}

TEST(PlugSwitches, BothMustBeOn) {
  EXPECT_TRUE((PlugSwitches{true, true}).IsPlugged());
  EXPECT_FALSE((PlugSwitches{false, true}).IsPlugged());
  EXPECT_FALSE((PlugSwitches{true, false}).IsPlugged());
}

TEST(PlugSwitches, FollowWhatOthersDo) {
  PlugSwitches switches{false, true};
  switches.See(false);
  EXPECT_EQ(switches, (PlugSwitches{false, true}));
  switches.See(true);
  EXPECT_EQ(switches, (PlugSwitches{true, true}));
  switches.See(false);
  EXPECT_EQ(switches, (PlugSwitches{true, false}));
}

TEST(PlugSwitches, TheConnectionSaysWhyThereIsNone) {
  testing::DeskBox desk;
  const auto text = [&](const PlugSwitches& switches) {
    return ConnectionOf(*desk.control.LookAt(), switches, desk.host.milliseconds).text;
  };
  EXPECT_EQ(text({}), "connected");
  EXPECT_EQ(text({false, false}), "the power is off");
  EXPECT_EQ(text({true, false}), "the cable is out");
  desk.control.Cut(10000);
  EXPECT_EQ(text({}), "the cable is cut for 10 s more");
  desk.host.milliseconds += 9001;
  EXPECT_EQ(text({}), "the cable is cut for 1 s more");
  desk.host.milliseconds += 999;
  EXPECT_EQ(text({}), "connected");
}

}  // namespace
}  // namespace panelora::boxbench
