// A caption: a text in the font that captions, buttons and small texts share.
#pragma once

#include <string_view>

#include "ui/dialog.h"

namespace panelora {

inline void SetCaption(ui::Dialog& dialog, int control, std::string_view text) {
  dialog.SetFont(control, ui::kCaptionFont);
  dialog.SetText(control, text);
}

}  // namespace panelora
