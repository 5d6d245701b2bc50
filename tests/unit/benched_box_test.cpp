// The shared box as a program calls it: faults, latency, replay and the journal.
#include "simulator/benched_box.h"

#include <gtest/gtest.h>

#include "catalogue/codecs.h"
#include "tests/support/fake_host.h"

namespace panelora::simulator {
namespace {

using panelora::testing::FakeHost;
using panelora::testing::NewSharedBox;

constexpr Address kFirmware = Word(5);

class BenchedBoxTest : public ::testing::Test {
 protected:
  std::unique_ptr<SharedBox> shared = NewSharedBox();
  FakeHost host;
  BenchedBox box{*shared, host, By::kPanel};
  BoxControl control{*shared, host, By::kBench};
  DeviceHandle handle = BoxModel::kHandle;

  // Result and first word of a read of an item.
  std::pair<int, std::uint32_t> ReadWord(std::uint32_t item, std::uint32_t before = 77) {
    WordBuffer words = {before, before};
    const int result = box.GetBoxProperty(handle, kBoxGroup, item, words);
    return {result, words[0]};
  }
  std::pair<int, std::vector<std::uint8_t>> ReadBlock(std::uint8_t property, std::uint8_t length) {
    BlockBuffer bytes{};
    bytes.fill(0xAA);
    const int result = box.GetKiraboxProperty(handle, property, 0, length, bytes);
    return {result, {bytes.begin(), bytes.begin() + length}};
  }
  int WriteWord(std::uint32_t item, std::uint32_t value) {
    return box.SetBoxProperty(handle, kBoxGroup, item, value);
  }
  // The box answers as in these calls; false when they are too many.
  bool Play(const std::vector<Call>& calls) {
    const std::unique_ptr<Replay> recorded = ReplayOf(calls);
    return recorded != nullptr && control.Play(*recorded);
  }
  void Fault(const std::function<void(Faults&)>& change) { EXPECT_TRUE(control.SetFaults(change)); }
  std::vector<std::string> Journal(std::uint64_t first = 1) {
    std::vector<std::string> texts;
    const auto calls = control.CallsFrom(first);
    for (const Entry& entry : calls->entries) {
      texts.push_back(std::to_string(entry.number) + " " + TextOf(CallOf(entry)) + " -> " +
                      std::to_string(entry.result));
    }
    return texts;
  }
};

TEST_F(BenchedBoxTest, AnswersAsTheModelAndWritesDownEveryCall) {
  BoxModel model;
  EXPECT_EQ(box.Open(kOpenMode), BoxModel::kHandle);
  for (const std::uint32_t item : {2U, 4U, 5U, 7U, 21U, 99U, 1000U}) {
    WordBuffer expected = {77, 77};
    const int result = model.GetBoxProperty(handle, kBoxGroup, item, expected);
    EXPECT_EQ(ReadWord(item), std::pair(result, expected[0])) << item;
  }
  EXPECT_EQ(WriteWord(4, 2), kSuccess);
  EXPECT_EQ(ReadWord(4).second, 2U);
  ProcAmpBytes picture;
  EXPECT_EQ(box.SetVideoProcAmp(handle, kBoxGroup, proc_amp::kHue, 9), kSuccess);
  EXPECT_EQ(box.GetKiraboxProcAmp(handle, picture), kSuccess);
  EXPECT_EQ(picture.hue, 9);
  WordBuffer value{};
  EXPECT_EQ(box.GetVideoProcAmp(handle, kBoxGroup, proc_amp::kHue, value), kSuccess);
  EXPECT_EQ(value[0], 9U);
  BlockBuffer rgb{};
  rgb[0] = 5;
  EXPECT_EQ(box.SetKiraboxProperty(handle, 14, 0, 3, rgb), kSuccess);
  EXPECT_EQ(ReadBlock(14, 3).second, (std::vector<std::uint8_t>{5, 0, 0}));
  EXPECT_EQ(
      Journal(),
      (std::vector<std::string>{
          "1 open 2 -> 1", "2 get word 0,2 -> 1", "3 get word 0,4 -> 1", "4 get word 0,5 -> 1",
          "5 get word 0,7 -> 1", "6 get word 0,21 -> 1", "7 get word 0,99 -> 0",
          "8 get word 0,1000 -> 0", "9 set word 0,4 = 2 -> 1", "10 get word 0,4 -> 1",
          "11 set proc amp 0,4 = 9 -> 1", "12 get proc amp -> 1", "13 get proc amp 0,4 -> 1",
          "14 set block 14,0,3: 05 00 00 -> 1", "15 get block 14,0,3 -> 1"}));
}

TEST_F(BenchedBoxTest, JournalKnowsWhoWhenAndHowLong) {
  Fault([](Faults& faults) { faults.latency = 30; });
  ReadWord(5);
  const Entry entry = control.CallsFrom(1)->entries.at(0);
  EXPECT_EQ(entry.by, By::kPanel);
  EXPECT_EQ(entry.process, 4711U);
  EXPECT_EQ(entry.time, 1'700'000'000'001'000U);
  EXPECT_EQ(entry.duration, 30'000U);
  EXPECT_EQ(DecodeFirmware(entry.words), BoxModel::kDefaultFirmware);
}

// Nobody else waits for a slow call.
TEST_F(BenchedBoxTest, LatencyPassesWithoutTheLock) {
  Fault([](Faults& faults) { faults.latency = 500; });
  ReadWord(5);
  EXPECT_FALSE(host.sleptLocked);
  EXPECT_EQ(host.now, 501U);
  EXPECT_FALSE(host.locked);
}

// Whoever asked the box that had one word there may have room for no more.
TEST_F(BenchedBoxTest, AnswersAsManyWordsAsTheBoxHasThatIsAsked) {
  const auto countOf = [&](std::uint32_t item) {
    return box.ReadWords(handle, kBoxGroup, item).count;
  };
  EXPECT_EQ(countOf(5), 2U);
  EXPECT_EQ(countOf(7), 1U);
  EXPECT_EQ(countOf(99), 0U);
  Fault([](Faults& faults) { faults.latency = 30; });
  std::uint8_t next = 13;
  host.whileSleeping = [&] { control.Become({next, 0, 0, 0, 0}, 0x0126); };
  EXPECT_EQ(countOf(7), 1U);
  next = 26;
  const BenchedBox::WordAnswer answer = box.ReadWords(handle, kBoxGroup, 7);
  EXPECT_EQ(answer.result, kSuccess);
  EXPECT_EQ(answer.count, 2U);
}

TEST_F(BenchedBoxTest, JournalKeepsTheLastCallsAndSaysHowManyAreGone) {
  for (std::size_t i = 0; i < Journal::kHeld + 10; ++i) ReadWord(5);
  const auto calls = control.CallsFrom(1);
  EXPECT_EQ(calls->lost, 10U);
  ASSERT_EQ(calls->entries.size(), Journal::kHeld);
  for (std::size_t i = 0; i < calls->entries.size(); ++i) {
    EXPECT_EQ(calls->entries[i].number, 11 + i);
  }
  const auto rest = control.CallsFrom(calls->entries.back().number + 1);
  EXPECT_EQ(rest->lost, 0U);
  EXPECT_TRUE(rest->entries.empty());
}

TEST_F(BenchedBoxTest, EveryNthCallOfAKindFails) {
  Fault([](Faults& faults) {
    faults.every = 3;
    faults.reads = true;
  });
  std::vector<int> results;
  for (int i = 0; i < 6; ++i) {
    EXPECT_EQ(WriteWord(4, 1), kSuccess);
    results.push_back(ReadWord(5).first);
  }
  EXPECT_EQ(results, (std::vector<int>{1, 1, 0, 1, 1, 0}));
  EXPECT_EQ(box.Open(kOpenMode), BoxModel::kHandle);
  Fault([](Faults& faults) {
    faults.every = 1;
    faults.opens = true;
  });
  EXPECT_EQ(box.Open(kOpenMode), kNoBox);
}

TEST_F(BenchedBoxTest, FailedCallsLeaveBufferAndBoxAsTheyWere) {
  Fault([](Faults& faults) {
    faults.every = 1;
    faults.reads = faults.writes = true;
  });
  EXPECT_EQ(ReadWord(5), std::pair(0, 77U));
  EXPECT_EQ(ReadBlock(254, 2), std::pair(0, (std::vector<std::uint8_t>{0xAA, 0xAA})));
  EXPECT_NE(WriteWord(4, 2), kSuccess);
  Fault([](Faults& faults) { faults.every = 0; });
  EXPECT_EQ(ReadWord(4).second, 1U);
}

TEST_F(BenchedBoxTest, OnePropertyFails) {
  Fault([](Faults& faults) {
    faults.every = 1;
    faults.reads = faults.writes = true;
    faults.oneAddress = true;
    faults.address = kFirmware;
  });
  EXPECT_EQ(ReadWord(5).first, 0);
  EXPECT_EQ(ReadWord(4).first, kSuccess);
  EXPECT_EQ(ReadBlock(254, 5).first, kSuccess);
  Fault([](Faults& faults) { faults.address = Block(254); });
  EXPECT_EQ(ReadWord(5).first, kSuccess);
  EXPECT_EQ(ReadBlock(254, 5).first, 0);
}

// Most models read their picture values all at once.
TEST_F(BenchedBoxTest, OnePictureValueFailsWhereAllAreReadAtOnce) {
  Fault([](Faults& faults) {
    faults.every = 1;
    faults.reads = true;
    faults.oneAddress = true;
    faults.address = ProcAmp(proc_amp::kHue);
  });
  ProcAmpBytes picture;
  EXPECT_EQ(box.GetKiraboxProcAmp(handle, picture), 0);
  EXPECT_EQ(ReadWord(4).first, kSuccess);
  Fault([](Faults& faults) { faults.address = Word(proc_amp::kHue); });
  EXPECT_EQ(box.GetKiraboxProcAmp(handle, picture), kSuccess);
}

TEST_F(BenchedBoxTest, AnotherResultComesWithTheAnswer) {
  Fault([](Faults& faults) {
    faults.every = 1;
    faults.reads = true;
    faults.answer = Faults::Answer::kResult;
    faults.result = 2;
  });
  EXPECT_EQ(ReadWord(4), std::pair(2, 1U));
  EXPECT_EQ(ReadBlock(254, 1), std::pair(2, (std::vector<std::uint8_t>{26})));
}

TEST_F(BenchedBoxTest, RandomAnswersSucceedAndWritesAreNotTold) {
  Fault([](Faults& faults) {
    faults.every = 1;
    faults.reads = faults.writes = true;
    faults.answer = Faults::Answer::kRandom;
  });
  const auto first = ReadBlock(254, 20);
  EXPECT_EQ(first.first, kSuccess);
  EXPECT_NE(first.second, ReadBlock(254, 20).second);
  EXPECT_EQ(WriteWord(4, 2), kSuccess);
  ProcAmpBytes picture;
  EXPECT_EQ(box.GetKiraboxProcAmp(handle, picture), kSuccess);
  Fault([](Faults& faults) { faults.every = 0; });
  EXPECT_EQ(ReadWord(4).second, 1U);
}

TEST_F(BenchedBoxTest, VanishesOnTheNextWriteAndComesBackWithItsPlug) {
  Fault([](Faults& faults) { faults.vanishOnWrite = true; });
  EXPECT_EQ(ReadWord(4).first, kSuccess);
  EXPECT_NE(WriteWord(4, 2), kSuccess);
  EXPECT_EQ(box.Open(kOpenMode), kNoBox);
  EXPECT_TRUE(control.Plug(true));
  EXPECT_EQ(box.Open(kOpenMode), BoxModel::kHandle);
  EXPECT_EQ(ReadWord(4).second, 1U);
  EXPECT_EQ(WriteWord(4, 2), kSuccess);  // once
}

TEST_F(BenchedBoxTest, CutCableComesBackByItself) {
  EXPECT_TRUE(control.Cut(10'000));
  EXPECT_FALSE(control.LookAt()->isPlugged);
  EXPECT_EQ(box.Open(kOpenMode), kNoBox);
  EXPECT_EQ(ReadWord(4), std::pair(0, 77U));
  host.now += 9'999;
  EXPECT_EQ(box.Open(kOpenMode), kNoBox);
  host.now += 1;
  EXPECT_EQ(box.Open(kOpenMode), BoxModel::kHandle);
  EXPECT_TRUE(control.LookAt()->isPlugged);
}

TEST_F(BenchedBoxTest, EveryCallFailsWhileAnotherOneKeepsTheBox) {
  host.refuses = true;
  EXPECT_EQ(box.Open(kOpenMode), kNoBox);
  EXPECT_EQ(ReadWord(4), std::pair(0, 77U));
  EXPECT_NE(WriteWord(4, 2), kSuccess);
  EXPECT_FALSE(control.Plug(false));
  EXPECT_FALSE(control.LookAt());
  host.refuses = false;
  EXPECT_EQ(ReadWord(4).second, 1U);
}

Call Recorded(Call call, int result, WordBuffer words = {}, std::vector<std::uint8_t> bytes = {}) {
  call.result = result;
  if (call.IsRead()) {
    call.words = words;
    call.bytes = std::move(bytes);
  } else if (call.operation == Call::Operation::kOpen) {
    call.words = words;
  }
  return call;
}

// Each question its answers in their order; what was not asked then, the box answers.
TEST_F(BenchedBoxTest, ReplayAnswersAsTheRecordedBoxDid) {
  const std::vector<Call> calls = {
      Recorded(Call::Open(kOpenMode), kSuccess, {0x1234, 0}),
      Recorded(Call::GetWord(0, 4), kSuccess, {2, 0}),
      Recorded(Call::GetWord(0, 4), kSuccess, {2, 0}),
      Recorded(Call::GetWord(0, 4), kSuccess, {4, 0}),
      Recorded(Call::GetWord(0, 7), 0),
      Recorded(Call::SetWord(0, 4, 1), 3),
      Recorded(Call::GetBlock(14, 0, 2), kSuccess, {}, {8, 9}),
  };
  ASSERT_TRUE(Play(calls));
  EXPECT_TRUE(control.LookAt()->isReplayed);
  EXPECT_EQ(box.Open(kOpenMode), BoxModel::kHandle);
  EXPECT_EQ(ReadWord(4).second, 2U);
  EXPECT_EQ(ReadWord(4).second, 2U);
  EXPECT_EQ(ReadWord(4).second, 4U);
  EXPECT_EQ(ReadWord(4).second, 4U);
  EXPECT_EQ(ReadWord(7).first, 0);
  EXPECT_EQ(WriteWord(4, 1), 3);
  EXPECT_EQ(ReadBlock(14, 2).second, (std::vector<std::uint8_t>{8, 9}));
  EXPECT_EQ(ReadBlock(14, 3).second, (std::vector<std::uint8_t>{128, 128, 0}));  // another question
  EXPECT_EQ(ReadWord(5).second, 0x26U);
  EXPECT_TRUE(control.Reset());
  EXPECT_EQ(ReadWord(4).second, 1U);
}

// However long a trace is: what is answered again and again takes the room of one answer.
TEST_F(BenchedBoxTest, ReplayGivesAnAnswerAsOftenAsTheRecordedBoxDid) {
  std::vector<Call> calls(Replay::kAnswers * 2, Recorded(Call::GetWord(0, 4), kSuccess, {9, 0}));
  calls.insert(calls.end(), 3, Recorded(Call::GetWord(0, 4), 0));
  calls.push_back(Recorded(Call::GetWord(0, 4), kSuccess, {9, 0}));
  calls.insert(calls.end(), 2, Recorded(Call::SetWord(0, 6, 1), kSuccess));
  calls.push_back(Recorded(Call::SetWord(0, 6, 1), 0));
  ASSERT_TRUE(Play(calls));
  for (const Call& call : calls) {
    if (call.IsWrite()) {
      EXPECT_EQ(WriteWord(6, 1), call.result);
    } else {
      EXPECT_EQ(ReadWord(4), call.Succeeded() ? std::pair(1, 9U) : std::pair(0, 77U));
    }
  }
}

TEST_F(BenchedBoxTest, ReplayLeavesTheBufferAsTheRecordedBoxDid) {
  ASSERT_TRUE(Play({
      Recorded(Call::GetBlock(14, 0, 2), 0),
      Recorded(Call::GetBlock(14, 0, 2), 2, {}, {8, 9}),
      Recorded(Call::GetWord(0, 4), 0),
      Recorded(Call::GetWord(0, 4), 2, {6, 0}),
      Recorded(Call::GetPicture(), 0),
      Recorded(Call::GetPicture(), 0, {}, {1, 2, 3, 4}),
  }));
  EXPECT_EQ(ReadBlock(14, 2), std::pair(0, std::vector<std::uint8_t>{0xAA, 0xAA}));
  EXPECT_EQ(ReadBlock(14, 2), std::pair(2, std::vector<std::uint8_t>{8, 9}));
  EXPECT_EQ(ReadWord(4), std::pair(0, 77U));
  EXPECT_EQ(ReadWord(4), std::pair(2, 6U));
  ProcAmpBytes picture;
  EXPECT_EQ(box.GetKiraboxProcAmp(handle, picture), 0);
  EXPECT_EQ(picture.hue, 128);
  EXPECT_EQ(box.GetKiraboxProcAmp(handle, picture), 0);
  EXPECT_EQ(picture.hue, 3);
}

TEST_F(BenchedBoxTest, ReplayThatIsTooLongIsRefused) {
  std::vector<Call> calls;
  for (std::uint32_t i = 0; i < Replay::kAnswers + 1; ++i) {
    calls.push_back(Recorded(Call::GetWord(0, 4), kSuccess, {i, 0}));
  }
  EXPECT_FALSE(Play(calls));
  EXPECT_FALSE(control.LookAt()->isReplayed);
  calls.pop_back();
  EXPECT_TRUE(Play(calls));
  calls.clear();
  for (std::uint32_t i = 0; i < Replay::kQuestions + 1; ++i) {
    calls.push_back(Recorded(Call::GetWord(0, i), kSuccess));
  }
  EXPECT_FALSE(Play(calls));
}

}  // namespace
}  // namespace panelora::simulator
