// Traces: shown in words, followed, and replayed.
#include "tests/boxctl/boxctl_desk.h"
#include "trace/trace_line.h"

namespace panelora::boxctl {
namespace {

using Lines = std::vector<std::string>;

class Traces : public BoxctlTest {
 protected:
  // A line, of a call that took so many ms as its number says.
  static std::string LineOf(std::uint64_t number, const Call& call) {
    const auto duration = static_cast<std::uint32_t>(number * 1000);
    const trace::TracedCall traced = {TestHost::kBegin, duration, call, number};
    return std::string(trace::Line::OfCall(number, trace::RecordOf(traced)).Text());
  }
  static std::string TraceOf(const std::vector<Call>& calls) {
    std::string text(trace::Line::First(1).Text());
    std::uint64_t number = 0;
    for (const Call& call : calls) text += LineOf(++number, call);
    return text;
  }
};

TEST_F(Traces, AreShownInWords) {
  ASSERT_EQ(Run({"set", "Hue", "4"}).code, 0);
  Put(File("trace.txt"), TraceOfDesk());
  const Ran all = Run({"trace", File("trace.txt")});
  EXPECT_EQ(all.code, 0) << all.err;
  EXPECT_NE(all.out.find("Identity: type 26 brand 0"), std::string::npos) << all.out;
  const Ran writes = Run({"trace", File("trace.txt"), "--writes"});
  EXPECT_EQ(writes.out.find("Identity"), std::string::npos);
  EXPECT_NE(writes.out.find("Hue: 4"), std::string::npos);
  EXPECT_EQ(Run({"trace", File("trace.txt"), "--writes", "--slow", "5"}).out, "");
  EXPECT_EQ(Run({"trace", File("trace.txt"), "--writes", "--slow", "4"}).out, writes.out);
  EXPECT_EQ(Run({"trace", File("trace.txt"), "--writes", "--json"}).out,
            "{\"number\":5,\"time\":1000000000000000,\"duration\":5000,\"write\":true,\"call\":"
            "\"set proc amp 0,4 = 4\",\"words\":\"Hue: 4\",\"result\":1}\n");
  const Ran test = Run({"trace", File("trace.txt"), "--as-test"});
  EXPECT_EQ(test.code, 0);
  EXPECT_NE(test.out.find("TEST_F("), std::string::npos) << test.out;
  EXPECT_EQ(Run({"trace", File("trace.txt"), "--as-test", "--json"}),
            (Ran{2, "", "boxctl: a test is no JSON: leave out --json or --as-test\n"}));
}

TEST_F(Traces, TellWhatIsLost) {
  const Call call = Call::SetProcAmp(0, proc_amp::kHue, 4);
  Put(File("trace.txt"), std::string(trace::Line::First(1).Text()) + LineOf(1, call) +
                             std::string(trace::Line::OfLost(2, 66).Text()) + LineOf(68, call) +
                             std::string(trace::Line::OfLost(69, 2).Text()));
  const std::string json = Run({"trace", File("trace.txt"), "--slow", "1000", "--json"}).out;
  EXPECT_EQ(json, "{\"number\":2,\"lost\":66}\n{\"number\":69,\"lost\":2}\n");
  EXPECT_EQ(Run({"trace", File("trace.txt"), "--slow", "1000"}).out,
            "         (66 lost)\n         (2 lost)\n");
}

TEST_F(Traces, AreFollowed) {
  ASSERT_EQ(Run({"set", "Hue", "4"}).code, 0);
  Put(File("trace.txt"), TraceOfDesk());
  const std::string before = Run({"trace", File("trace.txt")}).out;
  host.whenSleeping = [&](int sleep) {
    if (sleep == 0) Run({"set", "Contrast", "9"});
    if (sleep == 1) Put(File("trace.txt"), TraceOfDesk());
    host.stopped = sleep == 3;
  };
  const Ran followed = Run({"trace", File("trace.txt"), "--follow"});
  EXPECT_TRUE(followed.out.starts_with(before));
  EXPECT_EQ(followed.out, Run({"trace", File("trace.txt")}).out);
  EXPECT_NE(followed.out.find("Contrast: 9"), std::string::npos);
}

TEST_F(Traces, AreReplayed) {
  Become(13, 8);
  ASSERT_EQ(Run({"set", "Hue", "4"}).code, 0);
  Put(File("trace.txt"), TraceOfDesk());
  Become(26);
  EXPECT_EQ(Run({"replay", File("trace.txt")}),
            (Ran{0, "the box answers as in these 5 calls, until it becomes another one\n", ""}));
  EXPECT_EQ(Run({"read", "Identity", "Hue"}).out, "Identity: type 13 brand 8\nHue: 4\n");
  EXPECT_TRUE(Control().LookAt()->isReplayed);
  EXPECT_EQ(Control().LookAt()->box.identity.boxType, 13);
  EXPECT_EQ(Run({"become", "26"}).code, 0);
  EXPECT_FALSE(Control().LookAt()->isReplayed);
}

TEST_F(Traces, OfWhichTheBeginningIsGoneAreReplayedByTheSameBox) {
  Become(13, 8);
  ASSERT_EQ(Run({"set", "Hue", "4"}).code, 0);
  const auto made = Control().CallsFrom(1);
  std::string text(trace::Line::First(5).Text());
  for (const std::size_t i : {1U, 2U}) text += LineOf(trace::kNoNumber, CallOf(made->entries[i]));
  Put(File("trace.txt"), text + LineOf(5, Call::GetWord(0, 99)));
  Become(26);
  ASSERT_EQ(Run({"replay", File("trace.txt")}).code, 0);
  EXPECT_EQ(Control().LookAt()->box.identity, (Identity{13, 8, 0, 0, 0}));
  EXPECT_EQ(Control().LookAt()->box.firmware, 0xFFFFU);
}

TEST_F(Traces, ThatAreTooLongToReplayChangeNothing) {
  std::vector<Call> calls(simulator::Replay::kAnswers + 1, Call::GetWord(0, 4));
  for (std::uint32_t i = 0; i < calls.size(); ++i) {
    calls[i].result = kSuccess;
    calls[i].words[0] = i;
  }
  Become(13, 8);
  Call identity = Call::GetBlock(254, 0, 20);
  identity.bytes = {26};
  identity.bytes.resize(20);
  identity.result = kSuccess;
  calls.push_back(identity);
  Put(File("trace.txt"), TraceOf(calls));
  EXPECT_EQ(Run({"replay", File("trace.txt")}),
            (Ran{2, "",
                 "boxctl: " + File("trace.txt") +
                     " has more than 512 different questions or 4096 different answers: replay a "
                     "shorter trace\n"}));
  EXPECT_EQ(Control().LookAt()->box.identity, (Identity{13, 8, 0, 0, 0}));
  EXPECT_FALSE(Control().LookAt()->isReplayed);
  calls.erase(calls.begin());
  calls.pop_back();
  Put(File("trace.txt"), TraceOf(calls));
  EXPECT_EQ(Run({"replay", File("trace.txt")}).code, 0);
}

TEST_F(Traces, ThatAreDamagedAreRefused) {
  ASSERT_EQ(Run({"set", "Hue", "4"}).code, 0);
  std::string damaged = TraceOfDesk();
  damaged.replace(damaged.find("-> 1"), 4, "-> 7");
  Put(File("trace.txt"), damaged);
  for (const Lines& command : {Lines{"trace"}, Lines{"replay"}, Lines{"trace", "--as-test"}}) {
    Lines arguments = command;
    arguments.push_back(File("trace.txt"));
    const Ran ran = Run(arguments);
    EXPECT_EQ(ran.code, 2);
    EXPECT_EQ(ran.out, "");
    EXPECT_TRUE(ran.err.starts_with("boxctl: " + File("trace.txt") + ": ")) << ran.err;
    EXPECT_EQ(ran.err.find('\n'), ran.err.size() - 1);
  }
  EXPECT_FALSE(Control().LookAt()->isReplayed);
  EXPECT_EQ(Run({"trace", File("none.txt")}),
            (Ran{2, "", "boxctl: " + File("none.txt") + " can't be opened: is the name right?\n"}));
  EXPECT_EQ(Run({"replay", File("trace.txt"), "--library", "real.dll"}),
            (Ran{2, "", "boxctl: only the simulated box can do that: leave out --library\n"}));
}

}  // namespace
}  // namespace panelora::boxctl
