// What a screen reader says of the controls of a dialog: the one place where they get their names.
// Told from what stands on the screen, so that a caption that changes changes the names that it
// gives.
#pragma once

#include <map>
#include <span>
#include <string>

#include "ui/dialog.h"
#include "ui/dialog_template.h"

namespace panelora::res {

// A control as the operator would see it.
struct SeenControl {
  int id = 0;
  ui::ControlKind kind = ui::ControlKind::kLabel;
  std::string text;  // of what the operator can't change
  ui::Rect rect;     // 96 dpi
  bool shown = true;
  ui::Mark mark = ui::Mark::kNone;
  std::string picture = {};  // of pictures and picture buttons, released
  std::string value = {};    // what an edit, a slider, a bar or a combo box holds
};

struct Spoken {
  std::string name;         // of no other control of the dialog
  std::string value;        // what the control, or the setting that it changes, stands at
  std::string description;  // what else is worth knowing; mostly nothing

  bool operator==(const Spoken&) const = default;
};

// By id, of the controls that are shown. They are given in the order of the template.
std::map<int, Spoken> SpokenOf(int dialog, std::span<const SeenControl> controls);

// A text of the screen as it is said: no layout in it, abbreviations in full, and spelt right.
std::string Said(const std::string& text);

}  // namespace panelora::res
