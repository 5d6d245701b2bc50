// What bench and boxctl change of the shared box.
#include "simulator/box_control.h"

#include <gtest/gtest.h>

#ifndef _WIN32
#include <signal.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

#include "catalogue/information.h"
#include "catalogue/picture.h"
#include "simulator/benched_box.h"
#include "tests/support/fake_host.h"

namespace panelora::simulator {
namespace {

using panelora::testing::FakeHost;
using panelora::testing::NewSharedBox;
using Bytes = std::vector<std::uint8_t>;

class BoxControlTest : public ::testing::Test {
 protected:
  std::unique_ptr<SharedBox> shared = NewSharedBox();
  FakeHost host;
  BoxControl control{*shared, host, By::kBoxctl};

  Bytes At(const Address& at) { return BytesAt(control.LookAt()->box, at); }
  // What the Information page would show of the first input.
  std::string InputText(std::uint8_t property, ByteOrder order, std::size_t first = 0) {
    const Bytes bytes = At(Block(property));
    const VideoFormat format = DecodeFormat(std::span(bytes).subspan(first), order);
    const bool isInterlaced = order == ByteOrder::kBig ? format.scan == 1 : format.scan == 0;
    return TextOf(format, isInterlaced ? "i" : "p");
  }
};

TEST_F(BoxControlTest, FreshBoxIsTheShippedOne) {
  const auto look = control.LookAt();
  EXPECT_EQ(look->box.identity, BoxModel::kDefaultIdentity);
  EXPECT_EQ(look->box.firmware, BoxModel::kDefaultFirmware);
  EXPECT_TRUE(look->isPlugged);
  EXPECT_FALSE(look->isReplayed);
  EXPECT_EQ(look->last, 0U);
  EXPECT_EQ(look->faults.every, 0U);
  EXPECT_EQ(shared->magic, SharedBox::kMagic);
  EXPECT_EQ(shared->size, sizeof(SharedBox));
}

TEST_F(BoxControlTest, BecomesAnotherBoxWithItsDefaults) {
  control.Plug(false);
  control.SetFaults([](Faults& faults) { faults.latency = 7; });
  EXPECT_TRUE(control.Become({46, 2, 1, 0, 1}, 0x0112));
  EXPECT_EQ(At(Block(254)), (Bytes{46, 2, 1, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}));
  const auto look = control.LookAt();
  EXPECT_FALSE(look->isPlugged);
  EXPECT_EQ(look->faults.latency, 7U);
  BoxModel model({46, 2, 1, 0, 1}, 0x0112);
  EXPECT_EQ(At(Block(41)), Bytes(model.Block(41).begin(), model.Block(41).end()));
}

TEST_F(BoxControlTest, StoresValuesAndWritesThemDown) {
  EXPECT_TRUE(control.Store(Block(14, 3), Bytes{1, 2, 3}));
  EXPECT_TRUE(control.Store(Word(4), Bytes{2, 1, 0, 0, 5}));
  EXPECT_TRUE(control.Store(ProcAmp(proc_amp::kHue), Bytes{99}));
  EXPECT_FALSE(control.Store(ProcAmp(proc_amp::kCommit), Bytes{1}));
  EXPECT_FALSE(control.Store({}, Bytes{1}));
  EXPECT_EQ(At(Block(14)), (Bytes{1, 2, 3}));
  EXPECT_EQ(At(Word(4)), (Bytes{2, 1, 0, 0, 5, 0, 0, 0}));
  EXPECT_EQ(At(ProcAmp(proc_amp::kHue)), Bytes{99});
  EXPECT_EQ(At(Word(200)), Bytes{});
  EXPECT_EQ(At(Block(200)), Bytes{});
  std::vector<std::string> texts;
  const auto calls = control.CallsFrom(1);
  for (const Entry& entry : calls->entries) {
    EXPECT_EQ(entry.by, By::kBoxctl);
    EXPECT_EQ(entry.result, kSuccess);
    texts.push_back(TextOf(CallOf(entry)));
  }
  EXPECT_EQ(texts, (std::vector<std::string>{"set block 14,0,3: 01 02 03", "set word 0,4 = 258",
                                             "set proc amp 0,4 = 99"}));
}

TEST_F(BoxControlTest, LabelsHaveSubNumbers) {
  control.Become({15, 0, 0, 0, 0}, 0x0126);
  EXPECT_TRUE(control.Store(Block(19, 60, 2), Bytes{'C', 'A', 'M'}));
  EXPECT_EQ(At(Block(19, 60, 2)), (Bytes{'C', 'A', 'M'}));
  EXPECT_NE(At(Block(19, 60, 1)), (Bytes{'C', 'A', 'M'}));
  // What no box keeps is no write either.
  EXPECT_FALSE(control.Store(Block(19, 60, 4), Bytes{1}));
  EXPECT_FALSE(control.Store(Block(14, 2, 1), Bytes{1}));
  EXPECT_EQ(At(Block(14, 2, 1)), Bytes{});
  EXPECT_EQ(control.LookAt()->last, 1U);
}

TEST_F(BoxControlTest, InputsReceiveWhatTheModelTellsInItsOwnForm) {
  EXPECT_TRUE(control.SetInput({1920, 1080, 50, 0, 0}, true));
  EXPECT_EQ(InputText(1, ByteOrder::kBig), "1920x1080  50.00i");
  EXPECT_TRUE(control.SetInput({1280, 720, 59, 94, 0}, false));
  EXPECT_EQ(InputText(1, ByteOrder::kBig), "1280x720  59.94p");
  EXPECT_TRUE(control.SetInput({}, false));
  EXPECT_EQ(InputText(1, ByteOrder::kBig), kNoSignalText);
  control.Become({51, 0, 0, 0, 0}, 0x0126);  // four inputs in one block
  EXPECT_TRUE(control.SetInput({1920, 1080, 60, 0, 0}, true));
  for (std::size_t i = 0; i < 4; ++i) {
    EXPECT_EQ(InputText(3, ByteOrder::kLittle, i * kFormatBytes), "1920x1080  60.00i");
  }
  control.Become({13, 0, 0, 0, 0}, 0x0126);  // four inputs, each by a code
  EXPECT_TRUE(control.SetInput({1920, 1080, 59, 94, 0}, true));
  for (const std::uint32_t item : {3U, 7U, 14U, 18U}) {
    EXPECT_EQ(At(Word(item)), (Bytes{7, 0, 0, 0, 1, 0, 0, 0})) << item;
  }
  EXPECT_FALSE(control.SetInput({640, 480, 60, 0, 0}, false));
  EXPECT_EQ(At(Word(3))[0], 7);
  EXPECT_TRUE(control.SetInput({}, false));
  EXPECT_EQ(At(Word(3))[0], 91);
}

// A signal comes from outside: what the operator chooses, or a restart, does not change it.
TEST_F(BoxControlTest, AGivenSignalStaysWhateverSourceIsChosen) {
  BenchedBox panel{*shared, host, By::kPanel};
  const DeviceHandle handle = panel.Open(kOpenMode);
  const auto choose = [&](std::uint32_t source) {
    EXPECT_EQ(panel.SetBoxProperty(handle, kBoxGroup, 4, source), kSuccess);
  };
  EXPECT_TRUE(control.SetInput({720, 576, 50, 0, 0}, true));
  choose(2);
  EXPECT_EQ(InputText(1, ByteOrder::kBig), "720x576  50.00i");
  EXPECT_TRUE(control.SetInput({}, false));
  choose(4);
  EXPECT_EQ(InputText(1, ByteOrder::kBig), kNoSignalText);
  EXPECT_EQ(panel.SetBoxProperty(handle, kBoxGroup, command::kAt.number, command::kHardwareReset),
            kSuccess);
  EXPECT_EQ(InputText(1, ByteOrder::kBig), kNoSignalText);
  host.now += BoxModel::kRestartTime;
  EXPECT_TRUE(control.Reset());
  EXPECT_EQ(InputText(1, ByteOrder::kBig), "1920x1080  59.94p");
  choose(2);
  EXPECT_EQ(InputText(1, ByteOrder::kBig), "1024x768  60.00p");
  EXPECT_TRUE(control.Store(Block(1), EncodeFormat({800, 600, 60, 0, 0}, ByteOrder::kBig)));
  choose(1);
  EXPECT_EQ(InputText(1, ByteOrder::kBig), "800x600  60.00p");
}

TEST_F(BoxControlTest, ABoxThatNobodyFinishedGetsItsDefaults) {
  control.Become({13, 0, 0, 0, 0}, 0x0126);
  const Bytes label = At(Block(19, 60, 2));
  for (const bool byCall : {false, true}) {
    shared->box.beingMade = true;
    shared->box.labels = {};
    if (byCall) BenchedBox(*shared, host, By::kPanel).Open(kOpenMode);
    EXPECT_EQ(At(Block(19, 60, 2)), label);
    EXPECT_FALSE(shared->box.beingMade);
  }
}

#ifndef _WIN32
bool AreSame(const BoxMemory& left, const BoxMemory& right) {
  return left.blocks == right.blocks && left.labels == right.labels &&
         std::equal(left.words.begin(), left.words.end(), right.words.begin(),
                    [](const KeptWord& one, const KeptWord& other) {
                      return one.held == other.held && one.words == other.words;
                    });
}

// A process that makes the box one of two types over and over, in memory that both share, is killed
// at any moment.
TEST_F(BoxControlTest, WhoIsKilledWhileItMakesABoxLeavesAWholeOne) {
  constexpr int kKills = 60;
  constexpr Identity kKinds[] = {{13, 0, 0, 0, 0}, {26, 0, 0, 0, 0}};
  void* memory =
      mmap(nullptr, sizeof(SharedBox), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
  ASSERT_NE(memory, MAP_FAILED);
  auto* both = static_cast<SharedBox*>(memory);
  MakeBox(*both);
  BoxControl mine(*both, host, By::kBench);
  for (int kill = 0; kill < kKills; ++kill) {
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      for (BoxControl its(*both, host, By::kBoxctl);;) {
        for (const Identity& kind : kKinds) its.Become(kind, 0x0126);
      }
    }
    usleep(static_cast<useconds_t>(2000 + 137 * kill));
    ::kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    const BoxMemory left = mine.LookAt()->box;
    auto whole = std::make_unique<BoxMemory>();
    BoxModel(*whole, {}).Become(left.identity, 0x0126);
    ASSERT_EQ(left.firmware, 0x0126U);
    ASSERT_TRUE(AreSame(left, *whole)) << "after kill " << kill;
  }
  munmap(memory, sizeof(SharedBox));
}
#endif

TEST_F(BoxControlTest, WholeBoxIsTakenAndPutBack) {
  control.Become({30, 1, 0, 0, 0}, 0x0120);
  control.Store(Word(4), Bytes{3});
  const BoxMemory kept = control.LookAt()->box;
  control.Become(BoxModel::kDefaultIdentity, 0x0126);
  EXPECT_TRUE(control.Load(kept));
  EXPECT_EQ(control.LookAt()->box.identity, (Identity{30, 1, 0, 0, 0}));
  EXPECT_EQ(At(Word(4))[0], 3);
}

}  // namespace
}  // namespace panelora::simulator
