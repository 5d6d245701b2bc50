// What the pages of options have in common: each option is a group of four controls, ">>" steps its
// pending selection, and the rows of the catalogue say where the box keeps it.
#pragma once

#include <span>
#include <vector>

#include "catalogue/kept.h"
#include "pages/cycling_group.h"
#include "pages/page.h"

namespace panelora {

// How an option stands on its page.
struct OptionControls {
  CyclingGroup group;
  const char* firstText;
};

class OptionPage : public Page {
 public:
  // Copies the device handle, sets fonts and texts, and shows what the box has.
  virtual void Init() = 0;

  void Open() override {
    Init();
    Refresh(panel.serialHandle);
  }

  // There are no defaults to restore: the page is read again.
  void RestoreDefaults() override { Refresh(serialHandle); }

 protected:
  // `theControls` has a row for each option of the group, in the same order.
  OptionPage(int number, PanelContext context, const OptionGroup& theGroup,
             std::span<const OptionControls> theControls)
      : Page(number, context),
        group(theGroup),
        controls(theControls),
        selection(theGroup.options.size()),
        known(theGroup.options.size()),
        optionShown(theGroup.options.size()) {}

  // Fonts, captions and first texts of all options, none of which is shown.
  void SetUpOptions(const ui::Font& valueFont);
  void HideOptions();
  void ShowOption(int option, ui::Point origin, int nextX);

  // The option that a ">>" steps; none for other controls.
  std::optional<int> OptionOf(int control) const;
  void Next(int option);
  void Previous(int option);

  // What is selected is what the box has: it is not pending any more.
  void Settle(int option);

  // Takes a selection over and shows its text; one without a row keeps the text.
  void Select(int option, std::uint8_t index);
  // The same by what the box calls it; a value without a row can't be written back.
  void SelectValue(int option, std::uint8_t value);
  // What the selection is; null for one without a row.
  const Choice* Selected(int option) const { return Find(option, selection[At(option)]); }

  bool Serves(const Kept& kept) const { return kept.Serves(panel.identity, panel.firmwareVersion); }
  // Asks the box; false, and nothing changed, when it did not answer.
  bool ReadOption(const Kept& kept);
  void TakeReported(const Kept& kept, std::uint8_t reported);
  // Tells the box the value of the selection; nothing when that has no row.
  void WriteOption(const Kept& kept);
  // Tells the box the selection itself, as it was reported if nobody stepped it.
  void WriteSelection(const Kept& kept) {
    Write(kept.at, {selection[At(kept.option)]});
    Settle(kept.option);
  }

  virtual const Choice* Find(int option, std::uint8_t index) const {
    return FindIndex(group.options[At(option)].choices, panel.identity.boxType, index);
  }
  virtual int LastIndex(int option) const { return group.options[At(option)].last; }

  static std::size_t At(int option) { return static_cast<std::size_t>(option); }

  const OptionGroup& group;
  std::span<const OptionControls> controls;
  std::vector<std::uint8_t> selection;  // an index each; kNoIndex = a value without a row

 private:
  // Marks what the operator chose and the box was not told yet.
  void ShowPending();

  std::vector<std::uint8_t> known;  // the selection that the box is known to have
  std::vector<bool> optionShown;    // on the page, or on the sub-page that is open
};

}  // namespace panelora
