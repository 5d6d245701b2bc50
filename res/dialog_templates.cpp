#include "res/dialog_templates.h"

namespace panelora::res {

namespace {

using ui::ControlKind;
using ui::ControlTemplate;
using ui::DialogTemplate;

// First reading: the controls of each dialog.
#define DIALOG_PAGE(number, title, w, h) constexpr ControlTemplate kControls##number[] = {
#define DIALOG_FRAME(number, title, w, h) constexpr ControlTemplate kControls##number[] = {
#define DIALOG_END \
  }                \
  ;
#define LABEL(id, text, x, y, w, h) {ControlKind::kLabel, id, text, {x, y, w, h}},
#define GROUP(id, text, x, y, w, h) {ControlKind::kGroup, id, text, {x, y, w, h}},
#define BUTTON(id, text, x, y, w, h) {ControlKind::kButton, id, text, {x, y, w, h}},
#define DEFAULT_BUTTON(id, text, x, y, w, h) {ControlKind::kDefaultButton, id, text, {x, y, w, h}},
#define PICTURE_BUTTON(id, text, x, y, w, h) {ControlKind::kPictureButton, id, text, {x, y, w, h}},
#define PICTURE(id, x, y, w, h) {ControlKind::kPicture, id, "", {x, y, w, h}},
#define EDIT(id, x, y, w, h) {ControlKind::kEdit, id, "", {x, y, w, h}},
#define SLIDER(id, x, y, w, h) {ControlKind::kSlider, id, "", {x, y, w, h}},
#define PROGRESS(id, x, y, w, h) {ControlKind::kProgress, id, "", {x, y, w, h}},
#define COMBO(id, x, y, w, h) {ControlKind::kCombo, id, "", {x, y, w, h}},
#define ICON_BOX(icon, id, x, y, w, h) {ControlKind::kIcon, id, "", {x, y, w, h}},

#include "res/dialogs.inc"

#undef DIALOG_PAGE
#undef DIALOG_FRAME
#undef DIALOG_END
#undef LABEL
#undef GROUP
#undef BUTTON
#undef DEFAULT_BUTTON
#undef PICTURE_BUTTON
#undef PICTURE
#undef EDIT
#undef SLIDER
#undef PROGRESS
#undef COMBO
#undef ICON_BOX

// Second reading: the dialogs themselves.
#define DIALOG_PAGE(number, title, w, h) {number, title, false, {0, 0, w, h}, kControls##number},
#define DIALOG_FRAME(number, title, w, h) {number, title, true, {0, 0, w, h}, kControls##number},
#define DIALOG_END
#define LABEL(...)
#define GROUP(...)
#define BUTTON(...)
#define DEFAULT_BUTTON(...)
#define PICTURE_BUTTON(...)
#define PICTURE(...)
#define EDIT(...)
#define SLIDER(...)
#define PROGRESS(...)
#define COMBO(...)
#define ICON_BOX(...)

constexpr DialogTemplate kDialogs[] = {
#include "res/dialogs.inc"
};

struct StringRow {
  int number;
  const char* text;
};

#define STRING(number, text) {number, text},
constexpr StringRow kStrings[] = {
#include "res/strings.inc"
};

}  // namespace

std::span<const DialogTemplate> Dialogs() { return kDialogs; }

const DialogTemplate* FindDialog(int number) {
  for (const DialogTemplate& dialog : kDialogs) {
    if (dialog.number == number) return &dialog;
  }
  return nullptr;
}

const ControlTemplate* FindControl(const DialogTemplate& dialog, int id) {
  for (const ControlTemplate& control : dialog.controls) {
    if (control.id == id) return &control;
  }
  return nullptr;
}

const char* FindString(int number) {
  for (const StringRow& row : kStrings) {
    if (row.number == number) return row.text;
  }
  return "";
}

}  // namespace panelora::res
