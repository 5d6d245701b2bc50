// The log of calls: numbers without a gap, filters, pause, and what is dropped.
#include "boxbench/call_log.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "catalogue/codecs.h"
#include "catalogue/multiview.h"
#include "tests/boxbench/desk_box.h"

namespace panelora::boxbench {
namespace {

using simulator::BoxControl;
using simulator::Entry;
using testing::DeskBox;

class CallLogTest : public ::testing::Test {
 protected:
  void Poll() {
    const auto look = desk.control.LookAt();
    log.Add(*desk.control.CallsFrom(log.Next()), look->box.identity, look->box.firmware);
  }
  void Reads(int count) {
    for (int i = 0; i < count; ++i) desk.Read(5);
  }

  DeskBox desk;  // has been opened
  CallLog log{50};
};

TEST_F(CallLogTest, ARowSaysAllOfACall) {
  desk.Read(5);
  Poll();
  ASSERT_EQ(log.Shown(), 2U);
  EXPECT_EQ(log.Text({}, 0), "No.\tTime\tWho\tDirection\tMeaning\tResult\tDuration\tCall\r\n");
  EXPECT_EQ(
      log.AllText(0),
      "No.\tTime\tWho\tDirection\tMeaning\tResult\tDuration\tCall\r\n"
      "1\t00:00:01.000\tpanel\topen\tOpen: a box\tok\t0.000 ms\topen 2\r\n"
      "2\t00:00:01.000\tpanel\tread\tFirmware: 0.1.2.6\tok\t0.000 ms\tget word 0,5 = 38, 1\r\n");
  EXPECT_FALSE(log.HasFailed(1));
}

TEST_F(CallLogTest, AFailedCallIsMarked) {
  desk.control.Plug(false);
  desk.Read(5);
  Poll();
  EXPECT_TRUE(log.HasFailed(1));
  EXPECT_EQ(log.Cell(1, CallLog::kResult, 0), "failed");
  EXPECT_EQ(log.Cell(1, CallLog::kCall, 0), "get word 0,5");
}

TEST_F(CallLogTest, NothingIsTakenTwice) {
  Poll();
  Poll();
  EXPECT_EQ(log.Count(), 1U);
  EXPECT_EQ(log.Next(), 2U);
}

TEST_F(CallLogTest, TheOldestAreDroppedAndThatIsSaid) {
  Reads(59);
  Poll();
  EXPECT_EQ(log.Count(), 50U);
  EXPECT_EQ(log.Shown(), 50U);
  EXPECT_EQ(log.Dropped(), 10U);
  EXPECT_EQ(log.Cell(0, CallLog::kNumber, 0), "11");
  EXPECT_EQ(log.Counts(), "50 calls, the oldest 10 dropped");
}

TEST_F(CallLogTest, WhatTheJournalLostIsARowOfItsOwn) {
  BoxControl::Calls calls;
  calls.lost = 1200;
  Entry entry = simulator::EntryOf(Call::GetWord(kBoxGroup, 5));
  entry.number = 1201;
  calls.entries.push_back(entry);
  log.Add(calls, {26, 0, 0, 0, 0}, 0x0126);
  ASSERT_EQ(log.Shown(), 2U);
  EXPECT_EQ(log.Cell(0, CallLog::kNumber, 0), "1");
  EXPECT_EQ(log.Cell(0, CallLog::kWords, 0), "1,200 calls were lost: the bench looked too late");
  EXPECT_EQ(log.Cell(1, CallLog::kNumber, 0), "1,201");
  EXPECT_TRUE(log.HasFailed(0));
  EXPECT_EQ(log.Next(), 1202U);
  EXPECT_EQ(log.Counts(), "1 call, 1,200 lost");
  log.SetFilter(CallLog::Kind::kWrites, "nothing");
  EXPECT_EQ(log.Shown(), 1U);
}

TEST_F(CallLogTest, ARingThatRanOverIsCountedExactly) {
  CallLog large;
  const auto total = static_cast<std::uint64_t>(simulator::Journal::kHeld) + 100;
  Reads(static_cast<int>(total) - 1);  // the open was the first
  const auto look = desk.control.LookAt();
  large.Add(*desk.control.CallsFrom(large.Next()), look->box.identity, look->box.firmware);
  EXPECT_EQ(large.Cell(0, CallLog::kWords, 0), "100 calls were lost: the bench looked too late");
  EXPECT_EQ(large.Next(), total + 1);
  EXPECT_EQ(large.Cell(1, CallLog::kNumber, 0), "101");
  EXPECT_EQ(large.Cell(large.Shown() - 1, CallLog::kNumber, 0), CountText(total));
}

TEST_F(CallLogTest, KindsAreFiltered) {
  desk.Read(5);
  desk.panel.SetVideoProcAmp(desk.handle, kBoxGroup, proc_amp::kHue, 5);
  desk.control.Plug(false);
  desk.Read(6);
  Poll();
  const auto shown = [&](CallLog::Kind kind) {
    log.SetFilter(kind, "");
    return log.Shown();
  };
  EXPECT_EQ(shown(CallLog::Kind::kAll), 4U);
  EXPECT_EQ(shown(CallLog::Kind::kReads), 2U);
  EXPECT_EQ(shown(CallLog::Kind::kWrites), 1U);
  EXPECT_TRUE(log.IsWrite(0));
  EXPECT_EQ(shown(CallLog::Kind::kOpens), 1U);
  EXPECT_EQ(shown(CallLog::Kind::kFailed), 1U);
  EXPECT_EQ(log.Counts(), "4 calls, 1 shown");
}

TEST_F(CallLogTest, TextIsFilteredInWordsCallAndNumber) {
  desk.Read(5);
  desk.panel.SetVideoProcAmp(desk.handle, kBoxGroup, proc_amp::kHue, 5);
  Poll();
  const auto shown = [&](const char* text) {
    log.SetFilter(CallLog::Kind::kAll, text);
    return log.Shown();
  };
  EXPECT_EQ(shown("firmware"), 1U);
  EXPECT_EQ(shown(" HUE "), 1U);
  EXPECT_EQ(shown("get word"), 1U);
  EXPECT_EQ(shown("3"), 2U) << "number 3, and what was answered with 38";
  EXPECT_EQ(shown("panel"), 3U);
  EXPECT_EQ(shown("nothing of it"), 0U);
  // What comes later is filtered too.
  log.SetFilter(CallLog::Kind::kReads, "firmware");
  desk.Read(5);
  desk.Read(6);
  Poll();
  EXPECT_EQ(log.Shown(), 2U);
}

TEST_F(CallLogTest, APausedLogKeepsCountingAndCatchesUp) {
  Poll();
  log.Pause(true);
  Reads(9);
  Poll();
  EXPECT_EQ(log.Shown(), 1U);
  EXPECT_EQ(log.Counts(), "10 calls, paused: 9 new, 1 shown");
  log.SetFilter(CallLog::Kind::kAll, "");
  EXPECT_EQ(log.Shown(), 1U);
  log.Pause(false);
  EXPECT_EQ(log.Shown(), 10U);
  EXPECT_EQ(log.Counts(), "10 calls");
}

TEST_F(CallLogTest, WhatIsDroppedWhilePausedIsGoneFromTheListToo) {
  Poll();
  log.Pause(true);
  Reads(60);
  Poll();
  EXPECT_EQ(log.Shown(), 0U);
  log.Pause(false);
  EXPECT_EQ(log.Shown(), 50U);
  EXPECT_EQ(log.Cell(0, CallLog::kNumber, 0), "12");
}

TEST_F(CallLogTest, AClearedLogGoesOnWithTheNextNumber) {
  Reads(3);
  Poll();
  log.Clear();
  EXPECT_EQ(log.Count(), 0U);
  EXPECT_EQ(log.Cell(0, CallLog::kNumber, 0), "");
  Reads(1);
  Poll();
  ASSERT_EQ(log.Shown(), 1U);
  EXPECT_EQ(log.Cell(0, CallLog::kNumber, 0), "5");
}

TEST_F(CallLogTest, ClearingWhilePausedShowsWhatComesAfterwards) {
  Poll();
  log.Pause(true);
  Reads(2);
  Poll();
  log.Clear();
  Reads(1);
  Poll();
  log.Pause(false);
  ASSERT_EQ(log.Shown(), 1U);
  EXPECT_EQ(log.Cell(0, CallLog::kNumber, 0), "4");
}

TEST_F(CallLogTest, SelectedRowsAreText) {
  Reads(3);
  Poll();
  const std::vector<std::size_t> rows = {1, 3};
  const std::string text = log.Text(rows, 0);
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 3);
  EXPECT_NE(text.find("\r\n2\t"), std::string::npos);
  EXPECT_NE(text.find("\r\n4\t"), std::string::npos);
}

TEST_F(CallLogTest, ControlCharactersOfALabelTearNoRow) {
  desk.control.Become({13, 0, 0, 0, 0}, 0x0126);
  desk.control.Store(multiview::InputLabel(1), CentredLabel("A\n\tB"));
  Poll();
  EXPECT_EQ(log.Cell(1, CallLog::kWords, 0), "Input 2 Label: A\\x0A\\x09B");
  const std::string text = log.AllText(0);
  EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 3);
  EXPECT_EQ(std::count(text.begin(), text.end(), '\t'), 3 * (CallLog::kColumnCount - 1));
}

TEST_F(CallLogTest, ACallIsNamedAsOfTheBoxThatWasAsked) {
  desk.Read(5);
  Poll();
  const std::string before = log.Cell(1, CallLog::kWords, 0);
  EXPECT_EQ(before, "Firmware: 0.1.2.6");
  desk.control.Become({13, 0, 0, 0, 0}, 0x0126);
  desk.Read(5);
  Poll();
  EXPECT_EQ(log.Cell(1, CallLog::kWords, 0), before);
  EXPECT_NE(log.Cell(2, CallLog::kWords, 0), before);
}

}  // namespace
}  // namespace panelora::boxbench
