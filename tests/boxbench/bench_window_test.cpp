// What an operator does with the window of BoxBench, what the box makes of it, and what he sees.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <map>
#include <sstream>

#include "boxbench/call_log.h"
#include "boxbench/property_list.h"
#include "tests/boxbench/bench_process.h"

namespace panelora::boxbench::testing {
namespace {

using namespace control;  // NOLINT: every line names some

TEST_F(BenchTest, ShowsTheBoxOfItsDesk) {
  StartBench();
  AwaitText(kTitle, "Type 26: connected");
  EXPECT_EQ(bench->Text(kSubtitle), "Brand 0, firmware 0.1.2.6");
  EXPECT_FALSE(bench->IsShown(kDeskError));
  EXPECT_FALSE(bench->IsShown(kFaultBand));
  const int row = bench->FindRow(kProperties, PropertyList::kNumber, "word 5");
  ASSERT_GE(row, 0);
  EXPECT_EQ(bench->Cell(kProperties, row, PropertyList::kName), "Firmware");
  EXPECT_EQ(bench->Cell(kProperties, row, PropertyList::kWords), "0.1.2.6");
  EXPECT_EQ(bench->Text(kPropertyCounts),
            std::to_string(bench->RowCount(kProperties)) + " properties");
  EXPECT_EQ(bench->Text(kLogCounts), "1 call");  // the open of the test
  EXPECT_EQ(bench->Cell(kLog, 0, CallLog::kWords), "Open: a box");
}

TEST_F(BenchTest, MakesItAnotherModel) {
  StartBench();
  bench->Choose(kType, "13 ");
  bench->Type(kBrand, "2");
  bench->Type(kSubModel, "1");
  bench->Tick(kInputDip, true);
  bench->Type(kFirmware, "0A0B");
  EXPECT_EQ(bench->Text(kFirmwareHint), "shown as 0.A.0.B");
  EXPECT_NE(bench->Text(kPages).find("Display Mode, PIP"), std::string::npos);
  bench->Press(kBecome);
  EXPECT_EQ(LookAt().box.identity, (Identity{13, 2, 1, 1, 0}));
  EXPECT_EQ(LookAt().box.firmware, 0x0A0BU);
  EXPECT_EQ(bench->Text(kTitle), "Type 13: connected");
  EXPECT_GE(bench->FindRow(kProperties, PropertyList::kNumber, "block 19.2"), 0);
}

TEST_F(BenchTest, ShowsATypeThatIsNotOfTheFamily) {
  StartBench();
  box->Become({200, 0, 0, 0, 0}, 0x0126);
  AwaitText(kTitle, "Type 200: connected");
  EXPECT_EQ(bench->Text(kType), "200 - not of the family");
  bench->Type(kFirmware, "0127");
  bench->Press(kBecome);
  EXPECT_EQ(LookAt().box.identity.boxType, 200);
  EXPECT_EQ(LookAt().box.firmware, 0x0127U);
  bench->Choose(kType, "16 ");
  bench->Press(kBecome);
  EXPECT_EQ(bench->Text(kTitle), "Type 16: connected");
}

TEST_F(BenchTest, RefusesABoxThatCanNotBeAndKeepsWhatWasTyped) {
  StartBench();
  bench->Type(kBrand, "256");
  bench->Press(kBecome);
  EXPECT_EQ(Status(), "The brand is a number from 0 to 255; 0 is the maker's.");
  EXPECT_EQ(bench->Text(kBrand), "256");
  EXPECT_EQ(LookAt().box.identity, simulator::BoxModel::kDefaultIdentity);
}

TEST_F(BenchTest, GivesDefaultsBack) {
  StartBench();
  Write(proc_amp::kHue, 9);
  bench->Press(kReset);
  EXPECT_EQ(LookAt().box.picture.hue, 128);
}

TEST_F(BenchTest, SetsTheInputSignal) {
  StartBench();
  bench->Type(kSignal, "720x576 50i");
  bench->Press(kSetSignal);
  EXPECT_EQ(Status(), "The box receives 720x576 50.00i.");
  const auto bytes = simulator::BytesAt(LookAt().box, Block(1));
  const VideoFormat format = DecodeFormat(bytes, ByteOrder::kBig);
  EXPECT_EQ(format, (VideoFormat{720, 576, 50, 0, 1}));
  bench->Type(kSignal, "much");
  bench->Press(kSetSignal);
  EXPECT_EQ(Status(), "Type a signal like 1920x1080 59.94p, or no signal.");
  EXPECT_EQ(bench->Text(kSignal), "much");
  EXPECT_EQ(simulator::BytesAt(LookAt().box, Block(1)), bytes);
}

TEST_F(BenchTest, UnplugsAndPlugsIn) {
  StartBench();
  EXPECT_EQ(Read(), 1);
  bench->Tick(kPower, false);
  EXPECT_EQ(bench->Text(kTitle), "Type 26: the power is off");
  EXPECT_EQ(Read(), 0);
  bench->Tick(kCable, false);
  bench->Tick(kPower, true);
  EXPECT_EQ(bench->Text(kTitle), "Type 26: the cable is out");
  EXPECT_EQ(Read(), 0);
  bench->Tick(kCable, true);
  EXPECT_EQ(bench->Text(kTitle), "Type 26: connected");
  EXPECT_EQ(Read(), 1);
}

TEST_F(BenchTest, CutsTheCableUntilItIsPluggedIn) {
  StartBench();
  bench->Press(kCut);
  EXPECT_EQ(bench->Text(kTitle).find("Type 26: the cable is cut for "), 0U);
  EXPECT_EQ(Read(), 0);
  bench->Tick(kCable, true);
  EXPECT_EQ(bench->Text(kTitle), "Type 26: connected");
  EXPECT_EQ(Read(), 1);
}

TEST_F(BenchTest, SaysThatAnotherProgramStaysAtTheBox) {
  StartBench();
  ASSERT_TRUE(mapped->Lock());
  AwaitText(kTitle, "Type 26: the box is busy with another program: try again");
  bench->Press(kRefresh);
  EXPECT_EQ(Status(), "The box is busy with another program: try again.");
  mapped->Unlock();
  AwaitText(kTitle, "Type 26: connected");
  bench->Press(kRefresh);
  EXPECT_EQ(Status(), "Read anew.");
}

TEST_F(BenchTest, FollowsWhatOthersDo) {
  StartBench();
  box->Plug(false);
  AwaitText(kTitle, "Type 26: the cable is out");
  EXPECT_FALSE(bench->IsChecked(kCable));
  box->Become({14, 0, 0, 0, 0}, 0x0126);
  box->Plug(true);
  AwaitText(kTitle, "Type 14: connected");
  box->SetFaults([](simulator::Faults& faults) { faults.latency = 70; });
  AwaitText(kLatencyValue, "70 ms");
  EXPECT_TRUE(bench->IsShown(kFaultBand));
}

TEST_F(BenchTest, EditsAValueOfAndBytes) {
  StartBench();
  const Address source = Word(4);
  bench->SelectRow(kProperties, bench->FindRow(kProperties, PropertyList::kNumber, "word 4"));
  ASSERT_EQ(bench->Text(kValue), "HDMI");
  bench->Choose(kValue, "VGA");
  const std::string other = bench->Text(kValue);
  ASSERT_EQ(other, "VGA");
  bench->Press(kSetValue);
  const int row = bench->FindRow(kProperties, PropertyList::kNumber, "word 4");
  EXPECT_EQ(bench->Cell(kProperties, row, PropertyList::kWords), other);
  EXPECT_EQ(bench->Cell(kProperties, row, PropertyList::kBy), "bench");

  const auto before = simulator::BytesAt(LookAt().box, source);
  bench->Type(kValue, "nothing of it");
  bench->Press(kSetValue);
  EXPECT_NE(Status().find("is no value of Input Source"), std::string::npos) << Status();
  EXPECT_EQ(bench->Text(kValue), "nothing of it");
  EXPECT_EQ(simulator::BytesAt(LookAt().box, source), before);

  bench->Tick(kAsBytes, true);
  bench->Type(kValue, "02 01");
  bench->Press(kSetValue);
  EXPECT_EQ(simulator::BytesAt(LookAt().box, source)[0], 2);
  EXPECT_EQ(simulator::BytesAt(LookAt().box, source)[1], 1);
  bench->Type(kValue, "0G");
  bench->Press(kSetValue);
  EXPECT_EQ(bench->Text(kValue), "0G");
  EXPECT_EQ(Status().find("\"0G\" is no byte"), 0U) << Status();
}

TEST_F(BenchTest, ShowsTheValuesOfAnotherFirmware) {
  StartBench();
  bench->SelectRow(kProperties, bench->FindRow(kProperties, PropertyList::kNumber, "word 5"));
  ASSERT_EQ(bench->Text(kValue), "0.1.2.6");
  box->Become(LookAt().box.identity, 0x0127);
  AwaitText(kValue, "0.1.2.7");
}

TEST_F(BenchTest, ShowsWhatThePanelWrites) {
  StartBench();
  Write(proc_amp::kHue, 77);
  const int row = bench->FindRow(kProperties, PropertyList::kName, "Hue");
  ASSERT_GE(row, 0);
  Await("value", [&] { return bench->Cell(kProperties, row, PropertyList::kWords) == "77"; });
  Await("writer", [&] { return bench->Cell(kProperties, row, PropertyList::kBy) == "panel"; });
}

TEST_F(BenchTest, FiltersProperties) {
  StartBench();
  const std::string all = bench->Text(kPropertyCounts);
  bench->Type(kPropertyFilter, "bright");
  EXPECT_EQ(bench->RowCount(kProperties), 1);
  EXPECT_EQ(bench->Text(kPropertyCounts), "1 of " + all);
  EXPECT_EQ(bench->Cell(kProperties, 0, PropertyList::kName), "Brightness");
  bench->Press(static_cast<Id>(IDCANCEL));  // Esc
  EXPECT_EQ(bench->Text(kPropertyFilter), "");
  EXPECT_EQ(bench->Text(kPropertyCounts), all);
}

// The numbers in the first column of a saved log.
std::vector<long> NumbersIn(const std::string& log) {
  std::vector<long> numbers;
  std::istringstream lines(log);
  std::string line;
  std::getline(lines, line);  // the titles
  while (std::getline(lines, line)) {
    std::string digits;
    for (const char letter : line.substr(0, line.find('\t'))) {
      if (letter != ',') digits += letter;
    }
    numbers.push_back(std::stol(digits));
  }
  return numbers;
}

// In bursts that the journal holds, as quick as they come.
TEST_F(BenchTest, LosesNoneOfTwentyThousandCalls) {
  StartBench();
  constexpr int kBurst = 4000;
  for (const char* counts :
       {"4,000 calls", "8,000 calls", "12,000 calls", "16,000 calls", "20,000 calls"}) {
    const bool isFirst = std::string(counts) == "4,000 calls";  // has the open in it
    for (int i = isFirst ? 1 : 0; i < kBurst; ++i) ASSERT_EQ(Read(), 1);
    AwaitText(kLogCounts, counts);
  }
  EXPECT_EQ(bench->RowCount(kLog), 5 * kBurst);
  bench->Press(kSave);
  const std::vector<long> numbers = NumbersIn(SavedLog());
  ASSERT_EQ(numbers.size(), static_cast<std::size_t>(5 * kBurst));
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    ASSERT_EQ(numbers[i], static_cast<long>(i) + 1);
  }
}

// However many calls come at once: each is in the list, or in a row that says how many are not.
TEST_F(BenchTest, SaysHowManyCallsWereLost) {
  StartBench();
  constexpr long kCalls = 60000;
  for (long i = 1; i < kCalls; ++i) ASSERT_EQ(Read(), 1);
  Await("last call", [&] {
    const int rows = bench->RowCount(kLog);
    return rows > 0 && bench->Cell(kLog, rows - 1, CallLog::kNumber) == "60,000";
  });
  bench->Press(kSave);
  std::istringstream lines(SavedLog());
  std::string line;
  std::getline(lines, line);
  long next = 1;
  while (std::getline(lines, line)) {
    ASSERT_EQ(NumbersIn("titles\n" + line)[0], next) << line;
    const std::size_t told = line.find(" were lost");
    if (told == std::string::npos) {
      ++next;
      continue;
    }
    const std::size_t from = line.find_first_of("0123456789", line.find('\t'));
    next += NumbersIn("titles\n" + line.substr(from, line.find(' ', from) - from))[0];
  }
  EXPECT_EQ(next, kCalls + 1);
}

TEST_F(BenchTest, FiltersPausesClearsAndSavesTheLog) {
  StartBench();
  Read();
  Read();
  Write(proc_amp::kHue, 5);
  AwaitText(kLogCounts, "4 calls");
  bench->Choose(kLogKind, "Reads");
  EXPECT_EQ(bench->Text(kLogCounts), "4 calls, 2 shown");
  bench->Choose(kLogKind, "Writes");
  EXPECT_EQ(bench->Cell(kLog, 0, CallLog::kWords), "Hue: 5");
  EXPECT_EQ(bench->Cell(kLog, 0, CallLog::kBy), "panel");
  bench->Choose(kLogKind, "All");
  bench->Type(kLogFilter, "firmware");
  EXPECT_EQ(bench->RowCount(kLog), 2);
  bench->Press(kSave);
  EXPECT_EQ(NumbersIn(SavedLog()), (std::vector<long>{2, 3}));
  bench->Type(kLogFilter, "");

  bench->Press(kPause);
  Read();
  AwaitText(kLogCounts, "5 calls, paused: 1 new, 4 shown");
  EXPECT_EQ(bench->RowCount(kLog), 4);
  bench->Press(kPause);
  EXPECT_EQ(bench->Text(kLogCounts), "5 calls");
  EXPECT_EQ(bench->RowCount(kLog), 5);

  bench->Press(kClear);
  EXPECT_EQ(bench->Text(kLogCounts), "0 calls");
  EXPECT_EQ(bench->RowCount(kLog), 0);
  Read();
  AwaitText(kLogCounts, "1 call");
  EXPECT_EQ(bench->Cell(kLog, 0, CallLog::kNumber), "6");
}

TEST_F(BenchTest, CopiesTheCallsThatAreSelected) {
  StartBench();
  Read();
  AwaitText(kLogCounts, "2 calls");
  bench->SelectRow(kLog, 1);
  bench->Press(kCopy);
  EXPECT_EQ(Status(), "1 call is on the clipboard.");
  ASSERT_TRUE(OpenClipboard(nullptr));
  const HANDLE data = GetClipboardData(CF_TEXT);
  const std::string text = data != nullptr ? static_cast<const char*>(GlobalLock(data)) : "";
  if (data != nullptr) GlobalUnlock(data);
  CloseClipboard();
  EXPECT_EQ(NumbersIn(text), (std::vector<long>{2}));
}

TEST_F(BenchTest, MakesCallsFail) {
  StartBench();
  bench->Choose(kHow, "Every call");
  EXPECT_EQ(bench->Text(kFaultBand), "   Faults: Every read or write fails.");
  EXPECT_TRUE(bench->IsShown(kFaultBand));
  EXPECT_EQ(Read(), 0);
  EXPECT_EQ(Write(proc_amp::kHue, 1), 0);
  EXPECT_NE(panel->Open(kOpenMode), kNoBox);
  bench->Tick(kOpens, true);
  EXPECT_EQ(panel->Open(kOpenMode), kNoBox);
  bench->Tick(kReads, false);
  EXPECT_EQ(Read(), 1);
  EXPECT_EQ(Write(proc_amp::kHue, 1), 0);
  bench->Press(kNoFaults);
  EXPECT_EQ(bench->Text(kFaultBand), "");
  EXPECT_FALSE(bench->IsShown(kFaultBand));
  EXPECT_EQ(Write(proc_amp::kHue, 1), 1);
  bench->Choose(kLogKind, "Failed");
  AwaitText(kLogCounts, "8 calls, 4 shown");
}

TEST_F(BenchTest, MakesEveryNthCallFail) {
  StartBench();
  bench->Choose(kHow, "Every nth");
  bench->Type(kNth, "2");
  EXPECT_EQ(bench->Text(kFaultBand), "   Faults: Every 2nd read or write fails.");
  EXPECT_EQ(Read() * 1000 + Read() * 100 + Read() * 10 + Read(), 1010);
  bench->Type(kNth, "0");
  EXPECT_EQ(Status(), "Every how many calls: type a number from 1 to 1000000.");
  EXPECT_EQ(LookAt().faults.every, 2U);
}

TEST_F(BenchTest, MakesOnePropertyFail) {
  StartBench();
  bench->Choose(kHow, "Every call");
  bench->Choose(kOnly, "word 5 ");
  EXPECT_EQ(Read(), 0);
  EXPECT_EQ(Write(proc_amp::kHue, 1), 1);
  bench->Choose(kOnly, "picture 4 ");
  EXPECT_EQ(Read(), 1);
  EXPECT_EQ(Write(proc_amp::kHue, 1), 0);
}

TEST_F(BenchTest, AnswersWithAnotherResultAndAtRandom) {
  StartBench();
  bench->Choose(kHow, "Every call");
  bench->Choose(kAnswer, "Another");
  bench->Type(kResult, "-7");
  EXPECT_EQ(Read(), -7);
  bench->Choose(kAnswer, "Random");
  WordBuffer first{};
  WordBuffer second{};
  EXPECT_EQ(panel->GetBoxProperty(handle, kBoxGroup, 5, first), 1);
  EXPECT_EQ(panel->GetBoxProperty(handle, kBoxGroup, 5, second), 1);
  EXPECT_NE(first, second);
}

TEST_F(BenchTest, SlowsEveryCallDown) {
  StartBench();
  bench->Slide(kLatency, 120);
  EXPECT_EQ(bench->Text(kLatencyValue), "120 ms");
  EXPECT_EQ(LookAt().faults.latency, 120U);
  Read();
  AwaitText(kLogCounts, "2 calls");
  const std::string duration = bench->Cell(kLog, 1, CallLog::kDuration);
  EXPECT_GE(std::stod(duration), 100.0) << duration;
}

TEST_F(BenchTest, LetsTheBoxVanishOnTheNextWrite) {
  StartBench();
  bench->Tick(kVanish, true);
  EXPECT_EQ(bench->Text(kFaultBand), "   Faults: The box vanishes on the next write.");
  EXPECT_EQ(Read(), 1);
  EXPECT_EQ(Write(proc_amp::kHue, 1), 0);
  EXPECT_EQ(Read(), 0);
  AwaitText(kTitle, "Type 26: the cable is out");
  AwaitText(kFaultBand, "");
  EXPECT_FALSE(bench->IsChecked(kVanish));
}

TEST_F(BenchTest, FillsBlocks) {
  StartBench();
  bench->Tick(kFill, true);
  BlockBuffer bytes{};
  EXPECT_EQ(panel->GetKiraboxProperty(handle, 1, kNoSub, 20, bytes), 1);
  EXPECT_EQ(bytes[0], 0xFF);
}

TEST_F(BenchTest, ItsEndLeavesTheDeskUsable) {
  StartBench();
  Write(proc_amp::kHue, 9);
  bench->Kill();
  EXPECT_EQ(Read(), 1);
  EXPECT_EQ(LookAt().box.picture.hue, 9);
  StartBench();
  AwaitText(kTitle, "Type 26: connected");
  EXPECT_EQ(bench->Text(kLogCounts), "3 calls");
  bench->Close();
  EXPECT_EQ(Read(), 1);
}

// The texts that Alt and a letter may lead to. The system asks the controls that are hidden as
// well, and labels even while they are disabled.
std::map<int, std::vector<Id>> Letters(BenchProcess& bench) {
  std::map<int, std::vector<Id>> letters;
  for (const Id id : bench.Controls()) {
    char kind[32] = "";
    const HWND control = bench.Control(id);
    GetClassNameA(control, kind, sizeof kind);
    const bool isLabel = std::string(kind) == "Static";
    if (!isLabel && std::string(kind) != "Button") continue;
    if (isLabel && (GetWindowLongPtrA(control, GWL_STYLE) & SS_NOPREFIX) != 0) continue;
    if (!isLabel && !bench.IsEnabled(id)) continue;
    const std::string text = bench.Text(id);
    const std::size_t mark = text.find('&');
    if (mark == std::string::npos || mark + 1 == text.size()) continue;
    letters[std::tolower(text[mark + 1])].push_back(id);
  }
  return letters;
}

// A desk whose memory was made by a program of another version.
class OldDesk {
 public:
  explicit OldDesk(const std::string& name)
      : memory(CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0,
                                  sizeof(simulator::SharedBox),
                                  ("Local\\PaneloraBox." + name).c_str())),
        box(static_cast<simulator::SharedBox*>(
            MapViewOfFile(memory, FILE_MAP_ALL_ACCESS, 0, 0, 0))) {
    box->magic = simulator::SharedBox::kMagic;
    box->layout = simulator::SharedBox::kLayout + 1;
  }
  ~OldDesk() {
    UnmapViewOfFile(box);
    CloseHandle(memory);
  }
  OldDesk(const OldDesk&) = delete;
  OldDesk& operator=(const OldDesk&) = delete;

 private:
  HANDLE memory;
  simulator::SharedBox* box;
};

TEST_F(BenchTest, SaysWhenTheBoxCanNotBeOpened) {
  const std::string other = desk + "-other";
  SetEnvironmentVariableA("PANELORA_BOX", other.c_str());
  auto old = std::make_unique<OldDesk>(other);
  StartBench();
  EXPECT_TRUE(bench->IsShown(kDeskError));
  EXPECT_TRUE(bench->IsShown(kTryAgain));
  EXPECT_FALSE(bench->IsShown(kProperties));
  EXPECT_EQ(bench->Text(kDeskError).find("There is no box to show: "), 0U);
  const auto letters = Letters(*bench);
  ASSERT_EQ(letters.size(), 1U);
  EXPECT_EQ(letters.begin()->second, (std::vector<Id>{kTryAgain}));
  // Nothing that is told of a control finds a box to do it to.
  for (const Id id : bench->Controls()) bench->Press(id);
  for (const Id key : {kRefresh, kFind}) bench->Press(key);
  bench->Slide(kLatency, 120);
  bench->Press(kTryAgain);
  EXPECT_TRUE(bench->IsShown(kDeskError));
  old.reset();
  bench->Press(kTryAgain);
  EXPECT_FALSE(bench->IsShown(kDeskError));
  EXPECT_TRUE(bench->IsShown(kProperties));
  EXPECT_EQ(bench->Text(kTitle), "Type 26: connected");
  Await("focus on the model", [this] { return bench->Focus() == kType; });
}

TEST_F(BenchTest, ThePanelFindsTheBoxOnceItCanBeHad) {
  panel.reset();
  FreeLibrary(library);
  const std::string other = desk + "-panel";
  SetEnvironmentVariableA("PANELORA_BOX", other.c_str());
  auto old = std::make_unique<OldDesk>(other);
  LoadPanel();
  EXPECT_EQ(panel->Open(kOpenMode), kNoBox);
  EXPECT_EQ(Read(), 0);
  EXPECT_EQ(panel->Open(kOpenMode), kNoBox);
  old.reset();
  handle = panel->Open(kOpenMode);
  EXPECT_NE(handle, kNoBox);
  EXPECT_EQ(Read(), 1);
}

// Without the sign of life the others would take it for a dead one, and the box from it.
TEST_F(BenchTest, WhoCanGiveNoSignOfLifeHasNoBox) {
  const std::string name = "Local\\PaneloraBox." + desk + "-life";
  const HANDLE taken =
      CreateMutexA(nullptr, FALSE, (name + "." + std::to_string(GetCurrentProcessId())).c_str());
  simulator::MappedBox none(desk + "-life");
  EXPECT_FALSE(none.IsOpen());
  EXPECT_EQ(none.Error().find("the simulated box can't be had: error "), 0U) << none.Error();
  CloseHandle(taken);
  EXPECT_TRUE(simulator::MappedBox(desk + "-life").IsOpen());
}

// A name that is something else's.
TEST_F(BenchTest, WhoCanNotWaitForTheBoxSaysWhy) {
  const std::string lock = "Local\\PaneloraBox." + desk + "-lock.lock";
  const HANDLE taken = CreateEventA(nullptr, TRUE, FALSE, lock.c_str());
  simulator::MappedBox none(desk + "-lock");
  EXPECT_FALSE(none.IsOpen());
  EXPECT_EQ(none.Error(), "the simulated box can't be had: error 6");
  CloseHandle(taken);
}

// A combo box that is closed is as high as a field.
bool Overlap(const ui::Rect& one, const ui::Rect& other) {
  return one.x < other.x + other.width && other.x < one.x + one.width &&
         one.y < other.y + other.height && other.y < one.y + one.height;
}

TEST_F(BenchTest, NothingIsCutOrCoveredAtAnySize) {
  StartBench();
  for (const auto& [width, height] : {std::pair{100, 100}, {1000, 700}, {1500, 900}}) {
    bench->Resize(width, height);
    for (const Id section : {kShowBox, kShowFaults}) {
      bench->Press(section);
      bench->Choose(kHow, section == kShowBox ? "No call" : "Every call");
      const ui::Rect client = bench->Client();
      const auto places = bench->ShownPlaces();
      for (std::size_t i = 0; i < places.size(); ++i) {
        const auto& [id, place] = places[i];
        EXPECT_GT(place.width, 20) << id;
        EXPECT_GE(place.x, 0) << id;
        // The band reaches the edge at every scale, if need be a little over it.
        const bool isBand = id == kFaultBand;
        EXPECT_LE(place.x + place.width, client.width + (isBand ? 4 : 0)) << id << " at " << width;
        EXPECT_LE(place.y + place.height, client.height) << id << " at " << width;
        for (std::size_t j = 0; j < i; ++j) {
          EXPECT_FALSE(Overlap(place, places[j].second)) << id << " on " << places[j].first;
        }
      }
    }
  }
}

// A window that is larger than its monitor has edges that nobody can grip.
TEST_F(BenchTest, ItsLeastSizeFitsItsMonitorAtAnyScale) {
  StartBench();
  MONITORINFO monitor{};
  monitor.cbSize = sizeof monitor;
  GetMonitorInfoA(MonitorFromWindow(bench->Window(), MONITOR_DEFAULTTONEAREST), &monitor);
  const RECT& work = monitor.rcWork;
  bench->Rescale(384, {0, 0, 500, 400});
  bench->Resize(100, 100);
  RECT place{};
  GetWindowRect(bench->Window(), &place);
  EXPECT_GT(place.right - place.left, 500);
  EXPECT_LE(place.right - place.left, work.right - work.left);
  EXPECT_LE(place.bottom - place.top, work.bottom - work.top);
}

// As between two monitors. Back at the first scale everything stands where it stood.
TEST_F(BenchTest, NothingIsCutOrCoveredAfterAChangeOfScale) {
  StartBench();
  bench->Rescale(96, {0, 0, 1016, 728});
  const auto before = bench->ShownPlaces();
  bench->Rescale(144, {0, 0, 1500, 1092});
  const auto larger = bench->ShownPlaces();
  ASSERT_EQ(larger.size(), before.size());
  for (std::size_t i = 0; i < larger.size(); ++i) {
    for (std::size_t j = 0; j < i; ++j) {
      EXPECT_FALSE(Overlap(larger[i].second, larger[j].second))
          << larger[i].first << " on " << larger[j].first;
    }
    // A list is as high as there is room, text as its letters.
    if (larger[i].second.height < 100) {
      EXPECT_NEAR(larger[i].second.height, before[i].second.height * 3 / 2, 4) << larger[i].first;
    }
  }
  bench->Rescale(96, {0, 0, 1016, 728});
  EXPECT_EQ(bench->ShownPlaces(), before);
}

// A value is found, edited and set, the log paused, the cable pulled.
TEST_F(BenchTest, IsWorkedByTheKeyboardAlone) {
  StartBench();
  SetForegroundWindow(bench->Window());
  const auto awaitFocus = [this](const char* what, Id id) {
    Await(what, [&] { return bench->Focus() == id; });
  };
  bench->TypeKeys({"ctrl+f"});
  awaitFocus("focus on the filter", kPropertyFilter);
  bench->TypeKeys({"h", "u", "e"});
  Await("one row", [this] { return bench->RowCount(kProperties) == 1; });
  bench->TypeKeys({"Tab"});
  awaitFocus("focus on the list", kProperties);
  bench->TypeKeys({"Home", "space", "F2"});
  awaitFocus("focus on the value", kValue);
  bench->TypeKeys({"ctrl+a", "7", "7", "Return"});
  Await("new value", [this] { return bench->Cell(kProperties, 0, PropertyList::kWords) == "77"; });
  bench->TypeKeys({"ctrl+p"});
  Await("pause", [this] { return bench->Text(kLogCounts).find("paused") != std::string::npos; });
  bench->TypeKeys({"alt+a"});
  AwaitText(kTitle, "Type 26: the cable is out");
  bench->TypeKeys({"alt+a"});
  AwaitText(kTitle, "Type 26: connected");
  // Of what is hidden no letter leads anywhere.
  bench->TypeKeys({"alt+u", "alt+1", "alt+h"});
  awaitFocus("focus on how often", kHow);
  EXPECT_EQ(bench->Text(kTitle), "Type 26: connected");
  bench->TypeKeys({"alt+b", "alt+t"});
  awaitFocus("focus on the model", kType);
}

TEST_F(BenchTest, AKeyThatIsHeldCommandsOnce) {
  constexpr LPARAM kAlt = LPARAM{KF_ALTDOWN} << 16;
  constexpr LPARAM kHeld = LPARAM{KF_REPEAT} << 16;
  StartBench();
  const auto type = [this](LPARAM how) {
    PostMessageA(bench->Window(), WM_SYSCHAR, 'a', 1 | kAlt | how);
  };
  type(0);
  AwaitText(kTitle, "Type 26: the cable is out");
  for (int i = 0; i < 5; ++i) type(kHeld);
  type(0);
  AwaitText(kTitle, "Type 26: connected");
}

TEST_F(BenchTest, EveryLetterLeadsToOneControl) {
  StartBench();
  for (const bool isPaused : {false, true}) {
    if (isPaused) bench->Press(kPause);
    for (const Id section : {kShowBox, kShowFaults}) {
      bench->Press(section);
      const auto letters = Letters(*bench);
      for (const auto& [letter, ids] : letters) {
        EXPECT_EQ(ids.size(), 1U) << bench->Text(ids.back());
        EXPECT_TRUE(bench->IsShown(ids.front())) << bench->Text(ids.front());
      }
      EXPECT_GT(letters.size(), 15U);
    }
  }
}

// Of what is shown alone the fields that are of no use are disabled.
TEST_F(BenchTest, WhatIsHiddenIsDisabledUntilItIsShown) {
  StartBench();
  const std::vector<Id> useless = {kNthLabel, kNth, kResultLabel, kResult};
  const std::vector<Id> valueless = {kValue, kAsWords, kAsBytes, kSetValue};
  const auto check = [&](const std::vector<Id>& disabled) {
    for (const Id id : bench->Controls()) {
      const bool isUseless = std::find(disabled.begin(), disabled.end(), id) != disabled.end();
      EXPECT_EQ(bench->IsEnabled(id), bench->IsShown(id) && !isUseless) << id;
    }
  };
  std::vector<Id> both = useless;
  both.insert(both.end(), valueless.begin(), valueless.end());
  check(both);
  bench->Press(kShowFaults);
  check(both);
  bench->SelectRow(kProperties, 0);
  check(useless);
  bench->Choose(kHow, "Every nth");
  bench->Choose(kAnswer, "Another");
  check({});
  bench->Press(kShowBox);
  check({});
  bench->Press(kShowFaults);
  check({});
  bench->Press(kNoFaults);
  check({kNthLabel, kNth});
}

TEST_F(BenchTest, EveryFieldHasANameBeforeIt) {
  StartBench();
  for (const Id id : {kType, kBrand, kSubModel, kFirmware, kSignal, kHow, kNth, kOnly, kAnswer,
                      kResult, kLatency, kPropertyFilter, kValue, kLogKind, kLogFilter}) {
    char kind[32] = "";
    const HWND before = GetWindow(bench->Control(id), GW_HWNDPREV);
    GetClassNameA(before, kind, sizeof kind);
    EXPECT_STREQ(kind, "Static") << id;
    EXPECT_NE(bench->Text(static_cast<Id>(GetDlgCtrlID(before))), "") << id;
  }
  EXPECT_EQ(bench->Text(kProperties), "Properties");
  EXPECT_EQ(bench->Text(kLog), "Call log");
}

}  // namespace
}  // namespace panelora::boxbench::testing
