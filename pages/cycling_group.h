// The group of four controls that most pages repeat: a caption, a frame, the current value in it,
// and the ">>" beside it that steps the value.
#pragma once

#include "pages/caption.h"
#include "ui/dialog.h"

namespace panelora {

struct CyclingGroup {
  int label;
  int frame;
  int value;
  int next;
};

// Gives all but the value their fonts (that one's differs by page), and the caption, an empty frame
// caption, ">>" and the first value.
inline void SetUpGroup(ui::Dialog& dialog, const CyclingGroup& group, const char* caption,
                       const char* firstValue) {
  SetCaption(dialog, group.label, caption);
  SetCaption(dialog, group.frame, "");
  SetCaption(dialog, group.next, ">>");
  dialog.SetText(group.value, firstValue);
}

inline void ShowGroup(ui::Dialog& dialog, const CyclingGroup& group, bool shown) {
  for (const int control : {group.label, group.frame, group.value, group.next}) {
    dialog.ShowControl(control, shown);
  }
}

// Places the caption at `origin` and the others below it; `nextX` is the left edge of ">>".
inline void PlaceGroup(ui::Dialog& dialog, const CyclingGroup& group, ui::Point origin, int nextX) {
  dialog.PlaceControl(group.label, {origin.x, origin.y, 300, 20});
  dialog.PlaceControl(group.frame, {origin.x, origin.y + 15, 300, 48});
  dialog.PlaceControl(group.value, {origin.x + 10, origin.y + 30, 250, 30});
  dialog.PlaceControl(group.next, {nextX, origin.y + 23, 40, 39});
}

}  // namespace panelora
