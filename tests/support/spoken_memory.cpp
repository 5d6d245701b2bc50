#include <vector>

#include "platform/memory/memory_toolkit.h"
#include "res/dialog_templates.h"
#include "tests/support/spoken.h"

namespace panelora::testing {

namespace {

using memory::MemoryControl;

std::string ValueOf(const MemoryControl& control) {
  switch (control.kind) {
    case ui::ControlKind::kEdit:
      return control.text;
    case ui::ControlKind::kSlider:
      return std::to_string(control.position);
    case ui::ControlKind::kProgress:
      return std::to_string(control.maximum > 0 ? control.position * 100 / control.maximum : 0) +
             "%";
    case ui::ControlKind::kCombo: {
      const auto chosen = static_cast<std::size_t>(control.selected);
      return control.selected < 0 ? "" : res::Said(control.items[chosen]);
    }
    default:
      return "";
  }
}

}  // namespace

std::map<int, res::Spoken> SpokenOn(Desk& desk, int dialog) {
  const auto* found = static_cast<memory::MemoryToolkit&>(desk.Toolkit()).Find(dialog);
  std::vector<res::SeenControl> seen;
  for (const ui::ControlTemplate& row : res::FindDialog(dialog)->controls) {
    const MemoryControl& control = *found->Find(row.id);
    seen.push_back({row.id, control.kind, control.text, control.rect, control.shown, control.mark,
                    control.upPicture, ValueOf(control)});
  }
  return res::SpokenOf(dialog, seen);
}

}  // namespace panelora::testing
