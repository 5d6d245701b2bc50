// Traces: shown in words, followed, and replayed.
#include <filesystem>
#include <functional>
#include <sstream>

#include "boxctl/json.h"
#include "tests/boxctl/boxctl_desk.h"
#include "tests/trace/record_of.h"

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
            (Ran{2, "",
                 "{\"exit\":2,\"error\":\"a test is no JSON: leave out --json or --as-test\"}\n"}));
}

TEST_F(Traces, ThatAreShownInPartAreAFailure) {
  ASSERT_EQ(Run({"set", "Hue", "4"}).code, 0);
  Put(File("trace.txt"), TraceOfDesk());
  const Lines lines[] = {{}, {"--json"}, {"--as-test"}};
  for (const Lines& options : lines) {
    Lines arguments = {"trace", File("trace.txt")};
    arguments.insert(arguments.end(), options.begin(), options.end());
    const std::string whole = Run(arguments).out;
    const Ran part = RunWithRoom(whole.size() - 1, arguments);
    EXPECT_EQ(part.code, 2);
    EXPECT_EQ(part.out, whole.substr(0, whole.size() - 1));
    EXPECT_NE(part.err.find("can't be printed"), std::string::npos) << part.err;
    EXPECT_EQ(RunWithRoom(whole.size(), arguments).code, 0);
  }
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

// A trace that goes from file to file, as the tracing library writes it.
class FollowedTraces : public Traces {
 protected:
  // The file's lines, of calls that all write the Hue.
  static std::string Lines(std::uint64_t first, std::uint64_t last) {
    std::string lines;
    for (std::uint64_t number = first; number <= last; ++number) {
      lines +=
          LineOf(number, Call::SetProcAmp(0, proc_amp::kHue, static_cast<std::uint32_t>(number)));
    }
    return lines;
  }
  static std::string FileOf(std::uint64_t first, std::uint64_t last) {
    return std::string(trace::Line::First(first).Text()) + Lines(first, last);
  }
  void PutTrace(const std::string& text) { Put(File("x.trace.txt"), text); }
  void PutOlder(const std::string& text) { Put(File("x.trace.old.txt"), text); }

  // What is in the files at each look, one after the other; the numbers that are shown, and how
  // many are lost as negative ones.
  std::vector<long> Follow(const std::vector<std::function<void()>>& looks, int code = 0) {
    looks.front()();
    host.whenSleeping = [&, next = std::size_t{1}](int) mutable {
      host.stopped = next == looks.size();
      if (!host.stopped) looks[next++]();
    };
    const Ran ran = Run({"trace", File("x.trace.txt"), "--follow", "--json"});
    EXPECT_EQ(ran.code, code) << ran.err;
    error = ran.err;
    std::vector<long> numbers;
    std::istringstream lines(ran.out);
    for (std::string line; std::getline(lines, line);) {
      const Json json = Json::parse(line);
      const bool isLost = json.contains("lost");
      numbers.push_back(isLost ? -json["lost"].get<long>() : json["number"].get<long>());
    }
    return numbers;
  }

  static std::vector<long> Numbers(long first, long last) {
    std::vector<long> numbers;
    for (; first <= last; ++first) numbers.push_back(first);
    return numbers;
  }

  std::string error;
};

TEST_F(FollowedTraces, GoOnInANewFileWithoutAGap) {
  EXPECT_EQ(Follow({[&] { PutTrace(FileOf(1, 10)); },
                    [&] {  // 11 to 15 came between the last look and the new file
                      PutOlder(FileOf(1, 15));
                      PutTrace(FileOf(16, 20));
                    },
                    [&] { PutTrace(FileOf(16, 22)); },
                    [&] {
                      PutOlder(FileOf(16, 22));
                      PutTrace("");
                    },
                    [&] { PutTrace(FileOf(23, 24)); }}),
            Numbers(1, 24));
}

TEST_F(FollowedTraces, WaitWhereThereIsNoFile) {
  const auto remove = [&] { std::filesystem::remove(File("x.trace.txt")); };
  EXPECT_EQ(Follow({remove, [&] { PutTrace(""); }, [&] { PutTrace("Panelora tra"); },
                    [&] { PutTrace(FileOf(1, 3)); },
                    [&] {
                      PutOlder(FileOf(1, 4));
                      remove();
                    },
                    [&] { PutTrace(FileOf(5, 6)); }}),
            Numbers(1, 6));
}

TEST_F(FollowedTraces, HaveNoHalfOfALine) {
  const std::string whole = FileOf(1, 3);
  std::vector<std::function<void()>> looks;
  for (std::size_t size = 0; size <= whole.size(); size += 7) {
    looks.emplace_back([&, size] { PutTrace(whole.substr(0, size)); });
  }
  looks.emplace_back([&] { PutTrace(whole); });
  EXPECT_EQ(Follow(looks), Numbers(1, 3));
}

TEST_F(FollowedTraces, AreReadOnlyWhereTheyAreNew) {
  Follow({[&] { PutTrace(FileOf(1, 100)); }, [&] { PutTrace(FileOf(1, 101)); }, [] {}});
  EXPECT_EQ(host.openedFrom, FileOf(1, 100).size());
}

TEST_F(FollowedTraces, TellWhatIsNoLongerKept) {
  std::vector<long> expected = Numbers(1, 10);
  expected.push_back(-20);
  for (const long number : Numbers(31, 50)) expected.push_back(number);
  EXPECT_EQ(Follow({[&] { PutTrace(FileOf(1, 10)); },
                    [&] {
                      PutOlder(FileOf(31, 40));
                      PutTrace(FileOf(41, 50));
                    }}),
            expected);
}

TEST_F(FollowedTraces, BeginAnewWithTheNextRun) {
  std::vector<long> expected = Numbers(1, 12);
  for (const long number : Numbers(1, 3)) expected.push_back(number);
  EXPECT_EQ(Follow({[&] { PutTrace(FileOf(1, 10)); },
                    [&] {  // it was killed while it wrote
                      PutOlder(FileOf(1, 12) + Lines(13, 13).substr(0, 30));
                      PutTrace(FileOf(1, 3));
                    }}),
            expected);
}

TEST_F(FollowedTraces, NameTheLineThatIsDamaged) {
  EXPECT_EQ(
      Follow({[&] { PutTrace(FileOf(1, 10)); }, [&] { PutTrace(FileOf(1, 12) + "nonsense\n"); }},
             2),
      Numbers(1, 10));
  EXPECT_EQ(error, "{\"exit\":2,\"error\":\"" + File("x.trace.txt") +
                       ": line 14: the line is damaged: take an untouched copy of the trace\"}\n");
  EXPECT_EQ(Run({"trace", File(""), "--follow"}).code, 2);
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
