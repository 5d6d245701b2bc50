// The signals that can be typed, and what the models tell of them.
#include "boxbench/input_signal.h"

#include <gtest/gtest.h>

#include "catalogue/describe.h"
#include "tests/boxbench/desk_box.h"

namespace panelora::boxbench {
namespace {

using testing::DeskBox;

std::string Round(const char* text) {
  const auto typed = ParseSignal(text);
  return typed.value ? TextOf(*typed.value) : "refused: " + typed.problem;
}

TEST(InputSignal, UsualOnesAreTakenAsTheyAreWritten) {
  for (const char* text : UsualSignals()) EXPECT_EQ(Round(text), text);
}

TEST(InputSignal, OthersAreTyped) {
  EXPECT_EQ(Round(" 1600X1200  75p "), "1600x1200 75.00p");
  EXPECT_EQ(Round("640x480 59.9I"), "640x480 59.90i");
  EXPECT_EQ(Round("No Signal"), "no signal");
}

TEST(InputSignal, WhatIsNoneIsRefused) {
  for (const char* text : {"", "1920", "1920x1080", "1920x1080 50", "x1080 50p", "1920x1080 p",
                           "0x0 50p", "70000x1 50p", "1920x1080 300p", "1920x1080 50.123p"}) {
    const auto typed = ParseSignal(text);
    EXPECT_FALSE(typed.value.has_value()) << text;
    EXPECT_FALSE(typed.problem.empty()) << text;
  }
}

// What the panel is told by the first property of a name.
std::string Told(DeskBox& desk, const char* name) {
  const auto look = desk.control.LookAt();
  for (const Property& each : PropertiesOf(look->box.identity, look->box.firmware)) {
    if (std::string(each.name) != name || each.access == Access::kWriteOnly) continue;
    const auto bytes = simulator::BytesAt(look->box, each.at);
    Call call = each.at.kind == Address::Kind::kWord
                    ? Call::GetWord(kBoxGroup, each.at.number)
                    : Call::GetBlock(each.at.number, each.at.sub, each.at.readLength);
    call.bytes = bytes;
    call.words = look->box.words[each.at.number].words;
    return ValueOf(look->box.identity, each, call);
  }
  return "not told";
}

TEST(InputSignal, ModelsByBlockTellAnySignal) {
  DeskBox desk;
  EXPECT_TRUE(SetSignal(desk.control, *ParseSignal("1600x1200 75p").value).isSet);
  EXPECT_EQ(Told(desk, "Input Format"), "1600x1200  75.00p");
  EXPECT_TRUE(SetSignal(desk.control, *ParseSignal("1920x1080 59.94i").value).isSet);
  EXPECT_EQ(Told(desk, "Input Format"), "1920x1080  59.94i");
  EXPECT_TRUE(SetSignal(desk.control, {}).isSet);
  EXPECT_EQ(Told(desk, "Input Format"), kNoSignalText);
}

TEST(InputSignal, ModelsByCodeTellThoseThatHaveOne) {
  DeskBox desk({13, 0, 0, 0, 0});
  EXPECT_TRUE(SetSignal(desk.control, *ParseSignal("1920x1080 23.98p").value).isSet);
  EXPECT_EQ(Told(desk, "Input Format"), "1920x1080 23.98p");
  EXPECT_EQ(Told(desk, "Input Format 4"), "1920x1080 23.98p");
  const SignalResult refused = SetSignal(desk.control, *ParseSignal("1600x1200 75p").value);
  EXPECT_FALSE(refused.isSet);
  EXPECT_EQ(refused.text,
            "Type 13 can't tell 1600x1200 75.00p: choose another signal of the list.");
  EXPECT_EQ(Told(desk, "Input Format"), "1920x1080 23.98p");
  EXPECT_TRUE(SetSignal(desk.control, {}).isSet);
  EXPECT_EQ(Told(desk, "Input Format"), "-  NO  SIGNAL  -");
}

}  // namespace
}  // namespace panelora::boxbench
