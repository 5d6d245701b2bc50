#include "pages/option_page.h"

namespace panelora {

void OptionPage::SetUpOptions(const ui::Font& valueFont) {
  for (std::size_t i = 0; i < controls.size(); ++i) {
    const CyclingGroup& place = controls[i].group;
    SetUpGroup(Window(), place, group.options[i].name, controls[i].firstText);
    Window().SetFont(place.value, valueFont);
  }
  HideOptions();
}

void OptionPage::HideOptions() {
  for (const OptionControls& each : controls) ShowGroup(Window(), each.group, false);
  optionShown.assign(optionShown.size(), false);
}

void OptionPage::ShowOption(int option, ui::Point origin, int nextX) {
  const CyclingGroup& place = controls[At(option)].group;
  PlaceGroup(Window(), place, origin, nextX);
  ShowGroup(Window(), place, true);
  optionShown[At(option)] = true;
  ShowPending();
}

void OptionPage::ShowPending() {
  bool any = false;
  for (std::size_t option = 0; option < controls.size(); ++option) {
    const bool pending = selection[option] != known[option];
    Window().SetMark(controls[option].group.frame, pending ? ui::Mark::kPending : ui::Mark::kNone);
    any |= pending && optionShown[option];
  }
  light.ShowPending(any);
}

void OptionPage::Settle(int option) {
  known[At(option)] = selection[At(option)];
  ShowPending();
}

std::optional<int> OptionPage::OptionOf(int control) const {
  for (std::size_t i = 0; i < controls.size(); ++i) {
    if (controls[i].group.next == control) return static_cast<int>(i);
  }
  return std::nullopt;
}

void OptionPage::Next(int option) {
  const int next = selection[At(option)] + 1;
  const int taken = next > LastIndex(option) ? group.options[At(option)].first : next;
  Select(option, static_cast<std::uint8_t>(taken));
  ShowPending();
}

void OptionPage::Previous(int option) {
  const int last = LastIndex(option);
  const int next = selection[At(option)] - 1;
  const bool inside = next >= group.options[At(option)].first && next <= last;
  Select(option, static_cast<std::uint8_t>(inside ? next : last));
  ShowPending();
}

void OptionPage::Select(int option, std::uint8_t index) {
  selection[At(option)] = index;
  if (const Choice* choice = Selected(option)) {
    Window().SetText(controls[At(option)].group.value, choice->text);
  }
}

void OptionPage::SelectValue(int option, std::uint8_t value) {
  const Choice* choice =
      FindValue(group.options[At(option)].choices, panel.identity.boxType, value);
  selection[At(option)] = kNoIndex;
  if (choice != nullptr) Select(option, choice->index);
}

bool OptionPage::ReadOption(const Kept& kept) {
  std::uint8_t reported = 0;
  if (!Read(kept.at, reported)) return false;
  TakeReported(kept, reported);
  return true;
}

void OptionPage::TakeReported(const Kept& kept, std::uint8_t reported) {
  if (kept.reads == Reads::kIndex) {
    Select(kept.option, reported);
  } else {
    SelectValue(kept.option, reported);
  }
  Settle(kept.option);
}

void OptionPage::WriteOption(const Kept& kept) {
  const Choice* choice = Selected(kept.option);
  if (choice != nullptr && choice->index != kNoIndex) Write(kept.at, {choice->value});
  Settle(kept.option);
}

}  // namespace panelora
