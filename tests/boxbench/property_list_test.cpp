// The list of what the box keeps: rows, filter, who changed what, and what is marked.
#include "boxbench/property_list.h"

#include <gtest/gtest.h>

#include "catalogue/multiview.h"
#include "tests/boxbench/desk_box.h"

namespace panelora::boxbench {
namespace {

using simulator::By;
using testing::DeskBox;

class PropertyListTest : public ::testing::Test {
 protected:
  bool Update() {
    const auto calls = desk.control.CallsFrom(next);
    if (!calls->entries.empty()) next = calls->entries.back().number + 1;
    return list.Update(*desk.control.LookAt(), calls->entries, desk.host.time, now);
  }
  std::string Cell(const Address& at, int column) {
    const auto index = list.IndexOf(at);
    return index ? list.Cell(*index, column, 0) : "not shown";
  }

  DeskBox desk;
  PropertyList list;
  std::uint64_t next = 1;
  std::uint64_t now = 5000;
};

constexpr Address kBrightness = ProcAmp(proc_amp::kBrightness);

TEST_F(PropertyListTest, EveryPropertyHasARow) {
  EXPECT_TRUE(Update());
  const auto look = desk.control.LookAt();
  for (const Property& each : PropertiesOf(look->box.identity, look->box.firmware)) {
    ASSERT_NE(list.Find(each.at), nullptr) << each.name;
  }
  for (std::size_t i = 1; i < list.Count(); ++i) {
    EXPECT_TRUE(IsBefore(list.All()[i - 1].at, list.All()[i].at));
  }
  EXPECT_EQ(Cell(kBrightness, PropertyList::kNumber), "picture 2");
  EXPECT_EQ(Cell(kBrightness, PropertyList::kName), "Brightness");
  EXPECT_EQ(Cell(kBrightness, PropertyList::kBytes), "80");
  EXPECT_EQ(Cell(kBrightness, PropertyList::kWords), "128");
  EXPECT_EQ(Cell(kBrightness, PropertyList::kBy), "");
  EXPECT_EQ(Cell(Word(5), PropertyList::kName), "Firmware");
  EXPECT_EQ(Cell(Word(5), PropertyList::kWords), "0.1.2.6");
}

TEST_F(PropertyListTest, AsksAreSaidApartWhereANumberMeansTwoThings) {
  Update();
  const PropertyRow* row = list.Find(multiview::kModes);
  ASSERT_NE(row, nullptr);
  EXPECT_NE(row->name.find(" / "), std::string::npos);
  EXPECT_NE(row->words.find("Display Modes: none"), std::string::npos) << row->words;
}

TEST_F(PropertyListTest, NothingChangesByItself) {
  Update();
  EXPECT_FALSE(Update());
}

TEST_F(PropertyListTest, WhoWroteIsTakenFromTheCalls) {
  Update();
  desk.panel.SetVideoProcAmp(desk.handle, kBoxGroup, proc_amp::kBrightness, 9);
  EXPECT_TRUE(Update());
  EXPECT_EQ(Cell(kBrightness, PropertyList::kWords), "9");
  EXPECT_EQ(Cell(kBrightness, PropertyList::kBy), "panel");
  EXPECT_EQ(Cell(kBrightness, PropertyList::kTime), "00:00:01.000");
  const std::uint8_t value = 10;
  desk.control.Store(kBrightness, std::span(&value, 1));
  Update();
  EXPECT_EQ(Cell(kBrightness, PropertyList::kBy), "bench");
}

TEST_F(PropertyListTest, AFailedWriteIsNobodys) {
  Update();
  desk.control.Plug(false);
  desk.panel.SetVideoProcAmp(desk.handle, kBoxGroup, proc_amp::kBrightness, 9);
  Update();
  EXPECT_EQ(Cell(kBrightness, PropertyList::kWords), "128");
  EXPECT_EQ(Cell(kBrightness, PropertyList::kBy), "");
}

TEST_F(PropertyListTest, AWriteBeyondTheNumbersIsOfNoRow) {
  Update();
  ASSERT_EQ(desk.Write(256 + 4, 2), 1);
  Update();
  EXPECT_EQ(Cell(Word(4), PropertyList::kBy), "");
}

TEST_F(PropertyListTest, WhatChangesWithoutAHandIsTheBoxesOwn) {
  Update();
  desk.host.time = 2000000;
  desk.Write(4, 2);
  Update();
  EXPECT_EQ(Cell(Word(4), PropertyList::kBy), "panel");
  EXPECT_EQ(Cell(Block(1), PropertyList::kBy), "the box");
  EXPECT_EQ(Cell(Block(1), PropertyList::kTime), "00:00:02.000");
}

TEST_F(PropertyListTest, WhatChangesWithoutACallIsHisWhoChangedIt) {
  simulator::BoxControl boxctl = desk.ControlBy(By::kBoxctl);
  Update();
  desk.host.time = 2000000;
  boxctl.SetInput({720, 576, 50, 0, 0}, true);
  desk.host.time = 3000000;  // when it is seen
  Update();
  EXPECT_EQ(Cell(Block(1), PropertyList::kBy), "boxctl");
  EXPECT_EQ(Cell(Block(1), PropertyList::kTime), "00:00:02.000");
  desk.control.SetInput({1280, 720, 50, 0, 0}, false);
  Update();
  EXPECT_EQ(Cell(Block(1), PropertyList::kBy), "bench");
  const simulator::BoxMemory before = desk.control.LookAt()->box;
  desk.Write(4, 2);
  boxctl.Reset();
  Update();
  EXPECT_EQ(Cell(Block(1), PropertyList::kBy), "boxctl");
  EXPECT_EQ(Cell(Word(4), PropertyList::kBy), "");  // as it was: what was written meanwhile is gone
  boxctl.Load(before);
  Update();
  EXPECT_EQ(Cell(Block(1), PropertyList::kBy), "boxctl");
}

// A bench that comes later sees calls to a box that is another one now.
TEST_F(PropertyListTest, WhatWasWrittenBeforeItBecameThisBoxIsNobodysNow) {
  desk.panel.SetVideoProcAmp(desk.handle, kBoxGroup, proc_amp::kBrightness, 9);
  desk.control.Become({13, 0, 0, 0, 0}, 0x0126);
  desk.panel.SetVideoProcAmp(desk.handle, kBoxGroup, proc_amp::kHue, 9);
  Update();
  EXPECT_EQ(Cell(kBrightness, PropertyList::kBy), "");
  EXPECT_EQ(Cell(ProcAmp(proc_amp::kHue), PropertyList::kBy), "panel");
}

TEST_F(PropertyListTest, AChangeIsMarkedForASecond) {
  Update();
  const std::size_t index = *list.IndexOf(kBrightness);
  EXPECT_FALSE(list.IsFlashing(index, now));
  desk.panel.SetVideoProcAmp(desk.handle, kBoxGroup, proc_amp::kBrightness, 9);
  Update();
  EXPECT_TRUE(list.IsFlashing(index, now));
  EXPECT_TRUE(list.IsFlashing(index, now + 999));
  EXPECT_FALSE(list.IsFlashing(index, now + 1000));
}

TEST_F(PropertyListTest, TheFilterLooksAtNumberNameAndWords) {
  Update();
  const std::string all = list.Counts();
  EXPECT_EQ(all, CountText(list.Count(), "property", "properties"));
  list.SetFilter("BRIGHT");
  ASSERT_EQ(list.Shown(), 1U);
  EXPECT_EQ(list.Row(0).name, "Brightness");
  EXPECT_EQ(list.Counts(), "1 of " + all);
  list.SetFilter("picture 2");
  EXPECT_EQ(list.Row(0).name, "Brightness");
  list.SetFilter("0.1.2.6");
  ASSERT_EQ(list.Shown(), 1U);
  EXPECT_EQ(list.Row(0).at, Word(5));
  list.SetFilter("no such thing");
  EXPECT_EQ(list.Shown(), 0U);
  EXPECT_EQ(list.Cell(0, PropertyList::kName, 0), "");
  EXPECT_FALSE(list.IsFlashing(0, now));
  list.SetFilter("");
  EXPECT_EQ(list.Counts(), all);
}

TEST_F(PropertyListTest, AFilteredRowComesWithItsValue) {
  Update();
  list.SetFilter("77");
  const std::size_t before = list.Shown();
  desk.panel.SetVideoProcAmp(desk.handle, kBoxGroup, proc_amp::kHue, 77);
  Update();
  EXPECT_EQ(list.Shown(), before + 1);
}

TEST_F(PropertyListTest, AnotherBoxHasOtherRows) {
  Update();
  desk.control.Become({13, 0, 0, 0, 0}, 0x0126);
  EXPECT_TRUE(Update());
  EXPECT_EQ(Cell(Block(19, 60, 2), PropertyList::kNumber), "block 19.2");
  EXPECT_EQ(Cell(Block(19, 60, 2), PropertyList::kName), "Input 3 Label");
}

TEST_F(PropertyListTest, WhatNoRowNamesIsThereToo) {
  Update();
  EXPECT_EQ(list.Find(Word(200)), nullptr);
  const std::uint8_t value = 3;
  desk.control.Store(Word(200), std::span(&value, 1));
  EXPECT_TRUE(Update());
  EXPECT_EQ(Cell(Word(200), PropertyList::kName), "(not named)");
  EXPECT_EQ(Cell(Word(200), PropertyList::kBytes), "03 00 00 00");
  EXPECT_EQ(Cell(Word(200), PropertyList::kWords), "");
  EXPECT_EQ(Cell(Word(200), PropertyList::kBy), "bench");
}

TEST_F(PropertyListTest, TwoWordsAreShownWhereTheSecondCounts) {
  Update();
  EXPECT_EQ(Cell(Word(5), PropertyList::kBytes), "26 00 00 00 01 00 00 00");
}

}  // namespace
}  // namespace panelora::boxbench
