// The whole program on the toolkit in memory, with a hostile box: does steps and tells the first
// rule that one of them broke.
#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "app/main_dlg.h"
#include "platform/memory/memory_toolkit.h"
#include "tests/fuzz/hostile_box.h"
#include "tests/fuzz/step.h"

namespace panelora::fuzz {

// What the panel knew when a step was done: by this the rules are chosen.
struct Situation {
  bool connected = false;
  PageCode page = PageCode::kInformation;
  Identity identity;
  std::uint32_t firmware = 0;
  int cycleState = 0;
  int tickSkip = 0;
  int wallSize = 0;
  std::pair<int, int> focus = {};  // dialog and control of the window
  int keyPresses = 0;  // the button that a key of the window is about to press; 0 = none
};

// The template number of a page.
int DialogOf(PageCode page);

// Every box type but the one that stands for none is a box to these panels.
std::span<const std::uint8_t> EveryBoxType();

// What stands in the room but is not on the screen: the box, its cable, and the time.
class Surroundings {
 public:
  HostileBox& Box() { return box; }
  // False for a step that is done on the screen. A tick lets the time pass, and is done there too.
  bool Do(const Step& step);

 private:
  std::uint64_t now = 0;  // ms of the box's clock
  simulator::BoxModel model{simulator::BoxModel::kDefaultIdentity,
                            simulator::BoxModel::kDefaultFirmware, [this] { return now; }};
  HostileBox box{model};
};

// A panel, started with a box of type 26 in the right mood.
class FuzzPanel {
 public:
  FuzzPanel();
  ~FuzzPanel();

  // Does a step that can be done now; any other is left out and breaks no rule.
  void Do(const Step& step);
  // What broke with the last step; empty = nothing.
  const std::string& Broken() const { return broken; }

  memory::MemoryToolkit& Toolkit() { return toolkit; }
  const CMainDlg& Main() const { return panel; }
  Situation Now() const;
  // The calls of the last step.
  const std::vector<Call>& Calls() const { return calls; }
  bool CanDo(const Step& step) const;
  int PressedByKey(const Step& step) const;

 private:
  void Act(const Step& step);
  void Settle();
  void Check(const Step& step, const Situation& before);
  void CheckWrites(const Step& step, const Situation& before);
  void CheckOpens(const Step& step, const Situation& before);
  void NoteIdentity(const Situation& before);
  void CheckPagesAndButtons();
  void CheckCaptions();
  void CheckFocus();
  void CheckKeptTexts(const Step& step, const Situation& before);
  void Break(const std::string& what);
  std::vector<std::string> KeptTexts(const Situation& situation);

  memory::MemoryToolkit toolkit;
  Surroundings room;
  CMainDlg panel;
  std::vector<memory::MemoryDialog*> pages;
  std::vector<Call> calls;
  std::vector<std::string> textsBefore;  // that a failed refresh has to keep
  // A library that answers without a box can change the identity under a page that stands; these
  // are all since the page was opened.
  std::vector<Identity> identitiesOfPage;
  std::string broken;
};

// The first rule that a sequence breaks, and after how many steps; none = all hold.
struct Breach {
  std::size_t steps = 0;  // done when it broke
  std::string what;
};
std::optional<Breach> Replay(const Steps& steps);

// A shorter sequence that still breaks a rule, by leaving out as much as possible.
Steps Shorten(Steps steps,
              const std::function<std::optional<Breach>(const Steps&)>& replay = Replay);

// As a failing test tells it: what broke, and the sequence to keep beside the other replays.
std::string Report(const Breach& breach, const Steps& shortened);

}  // namespace panelora::fuzz
