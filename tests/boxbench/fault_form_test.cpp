// The faults as they are chosen, as the box has them, and in words.
#include "boxbench/fault_form.h"

#include <gtest/gtest.h>

#include "tests/boxbench/desk_box.h"

namespace panelora::boxbench {
namespace {

using simulator::Faults;
using testing::DeskBox;

std::string WordsOf(const FaultForm& form) {
  const auto faults = FaultsOf(form);
  return faults.value ? FaultsInWords(*faults.value) : "refused: " + faults.problem;
}

TEST(FaultForm, AreSaidInWords) {
  EXPECT_EQ(WordsOf({}), "");
  EXPECT_EQ(WordsOf({.how = FaultForm::kEveryCall}), "Every read or write fails");
  EXPECT_EQ(WordsOf({.how = FaultForm::kEveryCall, .opens = true}), "Every call fails");
  EXPECT_EQ(WordsOf({.how = FaultForm::kEveryNth, .nth = "3", .writes = false, .only = Block(14)}),
            "Every 3rd read of block 14 fails");
  EXPECT_EQ(
      WordsOf(
          {.how = FaultForm::kEveryNth, .nth = "11", .reads = false, .answer = 1, .result = "-5"}),
      "Every 11th write is answered with result -5");
  EXPECT_EQ(WordsOf({.how = FaultForm::kEveryNth,
                     .nth = "22",
                     .reads = false,
                     .writes = false,
                     .opens = true,
                     .answer = 2}),
            "Every 22nd open is answered with random bytes");
  EXPECT_EQ(WordsOf({.latency = 120, .vanishes = true, .fills = true}),
            "Every call takes 120 ms; the box vanishes on the next write; "
            "blocks are answered with FF");
  EXPECT_EQ(WordsOf({.vanishes = true}), "The box vanishes on the next write");
  EXPECT_EQ(WordsOf({.fills = true}), "Blocks are answered with FF");
}

TEST(FaultForm, WhatCanNotBeIsRefused) {
  for (const char* nth : {"", "0", "x", "-3", "1000001"}) {
    EXPECT_EQ(WordsOf({.how = FaultForm::kEveryNth, .nth = nth}),
              "refused: every how many calls: type a number from 1 to 1000000");
  }
  EXPECT_EQ(WordsOf({.how = FaultForm::kEveryCall, .reads = false, .writes = false}),
            "refused: no call goes wrong: tick reads, writes or opens");
  EXPECT_EQ(WordsOf({.how = FaultForm::kEveryCall, .answer = 1, .result = "two"}),
            "refused: the result is a whole number, like 2 or -1");
}

TEST(FaultForm, IsReadBackFromTheBox) {
  const FaultForm forms[] = {
      {},
      {.how = FaultForm::kEveryCall, .opens = true},
      {.how = FaultForm::kEveryNth, .nth = "7", .writes = false, .only = ProcAmp(2)},
      {.how = FaultForm::kEveryNth, .nth = "1"},
      {.how = FaultForm::kEveryCall, .answer = 1, .result = "9"},
      {.how = FaultForm::kEveryCall, .answer = 2, .latency = 500, .vanishes = true, .fills = true},
  };
  for (const FaultForm& form : forms) {
    const Faults faults = *FaultsOf(form).value;
    const FaultForm before = form.nth == "1" ? form : FaultForm{.result = form.result};
    FaultForm back = FormOf(faults, before);
    if (form.how == FaultForm::kNever) back.nth = form.nth;
    EXPECT_EQ(back, form) << FaultsInWords(faults);
    EXPECT_TRUE(IsSameChoice(*FaultsOf(back).value, faults));
  }
}

TEST(FaultForm, LeavesACutAsItIs) {
  DeskBox desk;
  desk.control.Cut(10000);
  const Faults chosen = *FaultsOf({.how = FaultForm::kEveryCall}).value;
  desk.control.SetFaults([&](Faults& faults) { Choose(faults, chosen); });
  EXPECT_EQ(desk.control.LookAt()->faults.cutUntil, desk.host.milliseconds + 10000);
  EXPECT_EQ(desk.control.LookAt()->faults.every, 1U);
}

// The results of eight reads of word 5, a digit each.
std::string Reads(DeskBox& desk) {
  std::string results;
  for (int i = 0; i < 8; ++i) results += std::to_string(desk.Read(5));
  return results;
}
std::string ReadsWith(const FaultForm& form) {
  DeskBox desk;
  desk.control.SetFaults([&](Faults& faults) { Choose(faults, *FaultsOf(form).value); });
  return Reads(desk);
}

TEST(FaultForm, DoesWhatItSays) {
  EXPECT_EQ(ReadsWith({}), "11111111");
  EXPECT_EQ(ReadsWith({.how = FaultForm::kEveryCall}), "00000000");
  EXPECT_EQ(ReadsWith({.how = FaultForm::kEveryNth, .nth = "3"}), "11011011");
  EXPECT_EQ(ReadsWith({.how = FaultForm::kEveryCall, .reads = false}), "11111111");
  EXPECT_EQ(ReadsWith({.how = FaultForm::kEveryCall, .only = Word(5)}), "00000000");
  EXPECT_EQ(ReadsWith({.how = FaultForm::kEveryCall, .only = Block(5)}), "11111111");
  EXPECT_EQ(ReadsWith({.how = FaultForm::kEveryCall, .answer = 1, .result = "7"}), "77777777");
  EXPECT_EQ(ReadsWith({.how = FaultForm::kEveryCall, .answer = 2}), "11111111");
}

TEST(FaultForm, TheBoxVanishesOnce) {
  DeskBox desk;
  desk.control.SetFaults(
      [](Faults& faults) { Choose(faults, *FaultsOf({.vanishes = true}).value); });
  EXPECT_EQ(desk.Read(5), 1);
  EXPECT_EQ(desk.Write(5, 1), 0);
  EXPECT_FALSE(desk.control.LookAt()->isPlugged);
  EXPECT_EQ(FaultsInWords(desk.control.LookAt()->faults), "");
}

}  // namespace
}  // namespace panelora::boxbench
