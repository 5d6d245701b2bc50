// The wait for a box that another program is at: one patience for all of it.
#include "simulator/wait_for_box.h"

#include <gtest/gtest.h>

#include <limits>

namespace panelora::simulator {
namespace {

constexpr std::uint32_t kPatience = 1000;  // ms
constexpr std::uint64_t kNever = std::numeric_limits<std::uint64_t>::max();

// Others wait before, and one stays at the box, until these moments.
struct Queue {
  std::uint64_t turn = 0;
  std::uint64_t free = 0;
  std::uint64_t now = 0;  // ms
  bool hasTurn = false;

  std::uint64_t Milliseconds() const { return now; }
  bool TakeTurn(std::uint32_t patience) {
    hasTurn = turn <= now + patience;
    now = hasTurn ? turn : now + patience;
    return hasTurn;
  }
  bool TryBox() const {
    EXPECT_TRUE(hasTurn);
    return now >= free;
  }
  void Sleep(std::uint32_t /*milliseconds*/) { ++now; }
  void EndTurn() { hasTurn = false; }
};

TEST(WaitForBox, EndsWhenTheBoxIsFree) {
  Queue queue{.turn = 300, .free = 700};
  EXPECT_TRUE(WaitForBox(queue, kPatience));
  EXPECT_EQ(queue.now, 700U);
  EXPECT_FALSE(queue.hasTurn);
}

TEST(WaitForBox, CountsTheWaitForOnesTurn) {
  for (const std::uint64_t turn :
       {std::uint64_t{0}, std::uint64_t{900}, std::uint64_t{1000}, kNever}) {
    Queue queue{.turn = turn, .free = kNever};
    EXPECT_FALSE(WaitForBox(queue, kPatience));
    EXPECT_LE(queue.now, kPatience + 1) << turn;
    EXPECT_FALSE(queue.hasTurn);
  }
}

TEST(WaitForBox, TriesOnceHoweverLateItsTurnComes) {
  Queue queue{.turn = kPatience, .free = kPatience};
  EXPECT_TRUE(WaitForBox(queue, kPatience));
}

}  // namespace
}  // namespace panelora::simulator
