// The box that the programs of a desk share.
#include <gtest/gtest.h>

#include <thread>

#include "base/text.h"
#include "simulator/benched_box.h"
#include "tests/windows/end_to_end/program_test.h"

namespace panelora::testing::end_to_end {
namespace {

using simulator::BenchedBox;
using simulator::BoxControl;
using simulator::By;
using simulator::MappedBox;
using simulator::SharedBox;

std::string OwnName(const char* test) {
  return std::string("test_") + std::to_string(GetCurrentProcessId()) + "_" + test;
}

TEST(SharedBoxTest, IsOneForAllWhoKnowItsName) {
  MappedBox first(OwnName("one"));
  MappedBox second(OwnName("one"));
  MappedBox other(OwnName("other"));
  ASSERT_TRUE(first.IsOpen() && second.IsOpen() && other.IsOpen());
  EXPECT_TRUE(BoxControl(first.Shared(), first, By::kBench).Become({46, 0, 0, 0, 0}, 0x0112));
  EXPECT_EQ(BoxControl(second.Shared(), second, By::kBoxctl).LookAt()->box.identity.boxType, 46);
  EXPECT_EQ(BoxControl(other.Shared(), other, By::kBoxctl).LookAt()->box.identity.boxType, 26);
}

TEST(SharedBoxTest, IsMadeAnewWhenNobodyHasItAnyMore) {
  {
    MappedBox first(OwnName("anew"));
    BoxControl(first.Shared(), first, By::kBench).Become({46, 0, 0, 0, 0}, 0x0112);
  }
  MappedBox second(OwnName("anew"));
  EXPECT_EQ(BoxControl(second.Shared(), second, By::kBench).LookAt()->box.identity.boxType, 26);
}

TEST(SharedBoxTest, OfAnotherLayoutIsRefused) {
  MappedBox first(OwnName("layout"));
  first.Shared().layout = SharedBox::kLayout + 1;
  MappedBox second(OwnName("layout"));
  EXPECT_FALSE(second.IsOpen());
  EXPECT_EQ(second.Error(),
            Format("the simulated box is of another version (layout %u, this program knows %u): "
                   "close the other programs that use it",
                   SharedBox::kLayout + 1, SharedBox::kLayout));
}

// No process has such a number: Windows gives multiples of four.
TEST(SharedBoxTest, WhoDiesWithTheLockLeavesItToOthers) {
  MappedBox box(OwnName("abandoned"));
  box.Shared().owner = 0xFFFFFFF1;
  EXPECT_TRUE(box.Lock());
  EXPECT_EQ(box.Shared().owner, GetCurrentProcessId());
  box.Unlock();
  EXPECT_EQ(box.Shared().owner, 0U);
}

// A mutex belongs to the thread that took it.
TEST(SharedBoxTest, WhoDiesWhileItWaitsLeavesItsTurnToOthers) {
  MappedBox box(OwnName("waited"));
  std::thread([&] {
    const HANDLE mutex = OpenMutexA(SYNCHRONIZE, FALSE,
                                    ("Local\\PaneloraBox." + OwnName("waited") + ".lock").c_str());
    EXPECT_EQ(WaitForSingleObject(mutex, 0), WAIT_OBJECT_0);
  }).join();
  box.Shared().owner = 0xFFFFFFF1;
  EXPECT_TRUE(box.Lock());
  box.Unlock();
}

TEST(SharedBoxTest, ManyAtOnceTakeTheirTurns) {
  constexpr int kThreads = 4;
  constexpr int kCalls = 500;
  MappedBox box(OwnName("many"));
  std::vector<std::thread> threads;
  for (int i = 0; i < kThreads; ++i) {
    threads.emplace_back([] {
      MappedBox own(OwnName("many"));
      BenchedBox panel(own.Shared(), own, By::kPanel);
      for (int call = 0; call < kCalls; ++call) EXPECT_NE(panel.Open(kOpenMode), kNoBox);
    });
  }
  for (std::thread& thread : threads) thread.join();
  const auto calls = BoxControl(box.Shared(), box, By::kBench).CallsFrom(1);
  ASSERT_EQ(calls->entries.size(), std::size_t{kThreads * kCalls});
  for (std::size_t i = 0; i < calls->entries.size(); ++i) {
    EXPECT_EQ(calls->entries[i].number, i + 1);
  }
}

TEST(SharedBoxTest, WhoKeepsTheLockMakesCallsFailAndNoMore) {
  MappedBox box(OwnName("kept"));
  MappedBox panel(OwnName("kept"));
  ASSERT_TRUE(box.Lock());
  std::thread([&] {
    EXPECT_EQ(BenchedBox(panel.Shared(), panel, By::kPanel).Open(kOpenMode), kNoBox);
  }).join();
  box.Unlock();
  EXPECT_NE(BenchedBox(panel.Shared(), panel, By::kPanel).Open(kOpenMode), kNoBox);
}

// The panel is killed at any moment, mostly within a call.
TEST(SharedBoxTest, OutlivesPanelsThatAreKilled) {
  MappedBox box(OwnName("killed"));
  BoxControl control(box.Shared(), box, By::kBench);
  std::uint64_t last = 0;
  for (int kill = 0; kill < 5; ++kill) {
    PanelProcess::Setup setup;
    setup.boxName = OwnName("killed");
    PanelProcess panel(setup);
    panel.Kill();
    const auto look = control.LookAt();
    ASSERT_TRUE(look);
    EXPECT_TRUE(look->isPlugged);
    EXPECT_GT(look->last, last);
    const auto calls = control.CallsFrom(last + 1);
    for (const simulator::Entry& entry : calls->entries) EXPECT_EQ(entry.number, ++last);
  }
}

}  // namespace
}  // namespace panelora::testing::end_to_end
