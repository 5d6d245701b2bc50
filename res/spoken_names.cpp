#include "res/spoken_names.h"

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <string_view>

#include "res/dialog_templates.h"

namespace panelora::res {

namespace {

using ui::ControlKind;

// What is said for a text. Those that are misspelt are so on purpose on the screen, not to the ear.
struct SaidRow {
  std::string_view shown;
  std::string_view said;
};
constexpr SaidRow kSaid[] = {
    {"Dispalye Mode", "Display Mode"},
    {"Input Lebels", "Input Labels"},
    {"Image Adjsut", "Image Adjust"},
    {"LAnalog L/R Audio", "Analog L/R Audio"},
    {"Nono", "None"},
    {"MicroPhone", "Microphone"},
    {"DipSwitch Config Be Changed !!!", "The configuration of the DIP switches was changed"},
    {"H. Position", "horizontal position"},
    {"V. Position", "vertical position"},
    {"H. Pos", "horizontal position"},
    {"V. Pos", "vertical position"},
    {"H. Size", "horizontal size"},
    {"V. Size", "vertical size"},
    {"H Sync Delay", "Horizontal sync delay"},
    {"V Sync Delay", "Vertical sync delay"},
    {"F/W Version", "Firmware version"},
    {"Hor.", "Horizontal"},
    {"Ver.", "Vertical"},
    {"Hor. + Ver.", "Horizontal and vertical"},
    {"TV WALL", "TV Wall"},
    {"ROI", "Region of interest"},
    {"PHASE", "Find the phase"},
    {"1X1", "Wall of 1 by 1"},
    {"2X2", "Wall of 2 by 2"},
    {"3X3", "Wall of 3 by 3"},
    {"4X4", "Wall of 4 by 4"},
};

// What the screen does not say of a control, or only by a picture.
enum class Says {
  kName,     // its name
  kSubject,  // what stands for its text, also in the names that it gives
  kWithin,   // a frame: its name, with which those begin of what it frames
  kUnit,     // what the number beside it counts
  kFront,    // the picture of the device
  kPicture,  // what its picture shows
  kTile,     // one of those that are shown
};
struct Fact {
  int dialog;
  int first;  // controls from `first` to `last`
  int last;
  Says says;
  std::string_view text = {};
};
constexpr Fact kFacts[] = {
    {kAbout, 1200, 1200, Says::kName, "Icon of Panelora"},
    {kMain, 1000, 1000, Says::kFront, "Front of the converter"},
    {kMain, 1013, 1013, Says::kName, "No serial port"},
    {kMain, 1016, 1017, Says::kPicture},
    {kMain, 1018, 1018, Says::kName, "Navigation"},
    {kMain, 1048, 1048, Says::kName, "Serial port"},
    {kInformation, 1016, 1016, Says::kName, "What the converter reports"},
    {kVideoMenu, 1047, 1047, Says::kName, "Video pages"},
    {kAudio, 1050, 1050, Says::kName, "Scale of the audio level"},
    {kAudio, 1051, 1051, Says::kName, "Marks of the scale"},
    {kProcAmp, 1046, 1046, Says::kSubject, "Second RGB Offset"},
    {kTvWall, 1021, 1036, Says::kTile, "Tile"},
    {kPip, 1050, 1050, Says::kWithin, "Inset 1"},
    {kPip, 1063, 1063, Says::kWithin, "Inset 2"},
    {kGenlock, 1081, 1081, Says::kName, "Reference"},
    {kGenlock, 1090, 1090, Says::kUnit, "lines"},
    {kGenlock, 1091, 1091, Says::kUnit, "clocks"},
    {kRoi, 1102, 1102, Says::kWithin, "Region of interest"},
    {kCaution, 1117, 1117, Says::kName, "Warning sign"},
};

// What is said for a picture.
constexpr SaidRow kPictures[] = {
    {"MARK_INFORMATION", "Page: Information"},
    {"MARK_VIDEO", "Page: Video"},
    {"MARK_AUDIO", "Page: Audio"},
    {"MARK_PROC_AMP", "Page: Proc Amp"},
    {"MARK_SETTING", "Page: Setting"},
    {"MARK_TV_WALL", "Page: TV Wall"},
    {"MARK_DISPLAY_MODE", "Page: Display Mode"},
    {"MARK_VIDEO_SETTINGS", "Page: Video Setting"},
    {"MARK_PIP", "Page: PIP Setting"},
    {"MARK_GENLOCK", "Page: Genlock"},
    {"MARK_IMAGE_ADJUST", "Page: Image Adjust"},
    {"MARK_ROI", "Page: Region of interest"},
    {"MARK_TEXT_LABELS", "Page: Text Labels"},
    {"DOTS_1_OF_2", "Sub-page 1 of 2"},
    {"DOTS_2_OF_2", "Sub-page 2 of 2"},
    {"DOTS_1_OF_3", "Sub-page 1 of 3"},
    {"DOTS_2_OF_3", "Sub-page 2 of 3"},
    {"DOTS_3_OF_3", "Sub-page 3 of 3"},
};

struct PanelRow {
  std::string_view picture;
  std::string_view model;
  std::string_view what;
};
#define PANEL(picture, model, what) {picture, model, what},
constexpr PanelRow kPanels[] = {
#include "res/panels.inc"
};
#undef PANEL

// The signs of step buttons: of options, and of numbers.
struct SignRow {
  std::string_view sign;
  std::string_view ofOption;
  std::string_view ofNumber;
};
constexpr SignRow kSigns[] = {{">>", "next", "increase"},
                              {"<<", "previous", "decrease"},
                              {"+", "increase", "increase"},
                              {"-", "decrease", "decrease"}};

const SignRow* SignOf(const SeenControl& control) {
  if (control.kind != ControlKind::kButton) return nullptr;
  for (const SignRow& row : kSigns) {
    if (row.sign == control.text) return &row;
  }
  return nullptr;
}

bool TakesNumber(const SeenControl& control) {
  return control.kind == ControlKind::kSlider || control.kind == ControlKind::kEdit ||
         control.kind == ControlKind::kCombo;
}

bool IsReadout(const SeenControl& control) {
  return ui::IsReadout(control.kind, control.text, control.rect);
}

int Middle(const ui::Rect& rect) { return rect.y + rect.height / 2; }

bool Contains(const ui::Rect& outer, const ui::Rect& inner) {
  const int x = inner.x + inner.width / 2;
  const int y = Middle(inner);
  return x >= outer.x && x < outer.x + outer.width && y >= outer.y && y < outer.y + outer.height;
}

// A caption that tells a value too: "Audio Volume ( 72 )".
struct Caption {
  std::string subject;
  std::string value;
};

Caption CaptionFrom(const std::string& text) {
  const std::size_t open = text.rfind(" (");
  const bool isTold = open != std::string::npos && open > 0 && text.back() == ')';
  if (!isTold) return {Said(text), ""};
  return {Said(text.substr(0, open)), Said(text.substr(open + 2, text.size() - open - 3))};
}

std::string Joined(std::initializer_list<std::string_view> parts) {
  std::string joined;
  for (const std::string_view part : parts) {
    if (part.empty()) continue;
    if (!joined.empty()) joined += ", ";
    joined += part;
  }
  return joined;
}

// Edits keep their numbers in four digits.
std::string Number(const std::string& digits) {
  if (digits.empty() || digits.find_first_not_of("0123456789") != std::string::npos) return digits;
  return digits.substr(std::min(digits.find_first_not_of('0'), digits.size() - 1));
}

// What is said where the screen gives a control no words.
std::string_view WordFor(ControlKind kind) {
  switch (kind) {
    case ControlKind::kLabel:
      return "Empty text";
    case ControlKind::kGroup:
      return "Frame";
    case ControlKind::kEdit:
      return "Text";
    case ControlKind::kSlider:
      return "Slider";
    case ControlKind::kProgress:
      return "Level";
    case ControlKind::kCombo:
      return "List";
    case ControlKind::kPicture:
    case ControlKind::kIcon:
      return "Picture";
    default:
      return "Button";
  }
}

// The controls of one dialog, as they stand.
class Scene {
 public:
  Scene(int theDialog, std::span<const SeenControl> theControls)
      : dialog(theDialog), controls(theControls) {}

  Spoken Of(const SeenControl& control) const;

 private:
  const Fact* FactOf(const SeenControl& control, Says says) const;
  const SeenControl* ReadoutAround(const SeenControl& control) const;
  const SeenControl* ReadoutBeside(const SeenControl& button) const;
  const SeenControl* CaptionAbove(const SeenControl& control) const;
  const SeenControl* CaptionInRow(const SeenControl& control) const;
  const SeenControl* CaptionOf(const SeenControl& control) const;
  bool HasNumberInRow(const SeenControl& control) const;
  bool IsCaptionOfNumber(const SeenControl& label) const;
  std::string Within(const SeenControl& control) const;
  std::string SubjectFrom(const SeenControl* caption) const;
  std::string ValueIn(const SeenControl& readout) const;
  std::string ValueInRow(const SeenControl& control) const;
  std::string Front(const SeenControl& picture, std::string_view name) const;
  std::string Tile(const SeenControl& tile, std::string_view name) const;
  std::string OfPicture(const SeenControl& picture) const;
  Spoken OfLabel(const SeenControl& label) const;
  Spoken OfGroup(const SeenControl& group) const;
  Spoken OfButton(const SeenControl& button) const;
  Spoken OfStep(const SeenControl& button, const SignRow& sign) const;
  Spoken OfInput(const SeenControl& control) const;

  int dialog;
  std::span<const SeenControl> controls;
};

const Fact* Scene::FactOf(const SeenControl& control, Says says) const {
  for (const Fact& fact : kFacts) {
    const bool isIts = fact.dialog == dialog && fact.first <= control.id && control.id <= fact.last;
    if (isIts && fact.says == says) return &fact;
  }
  return nullptr;
}

// The frame of one value that a control stands in.
const SeenControl* Scene::ReadoutAround(const SeenControl& control) const {
  for (const SeenControl& each : controls) {
    const bool isOther = each.shown && each.id != control.id;
    if (isOther && IsReadout(each) && Contains(each.rect, control.rect)) return &each;
  }
  return nullptr;
}

// The nearest one left of a step button.
const SeenControl* Scene::ReadoutBeside(const SeenControl& button) const {
  const SeenControl* nearest = nullptr;
  const int middle = Middle(button.rect);
  for (const SeenControl& each : controls) {
    if (!each.shown || !IsReadout(each) || each.rect.x > button.rect.x) continue;
    if (middle < each.rect.y || middle >= each.rect.y + each.rect.height) continue;
    if (nearest == nullptr || each.rect.x > nearest->rect.x) nearest = &each;
  }
  return nearest;
}

// Left edge on left edge; a frame's upper line runs through the foot of its caption.
const SeenControl* Scene::CaptionAbove(const SeenControl& control) const {
  constexpr int kAside = 20;
  constexpr int kApart = 12;
  for (const SeenControl& each : controls) {
    if (!each.shown || each.kind != ControlKind::kLabel || each.id == control.id) continue;
    const int apart = control.rect.y - (each.rect.y + each.rect.height);
    const bool isNear = std::abs(apart) <= kApart && each.rect.y < control.rect.y;
    if (isNear && std::abs(each.rect.x - control.rect.x) <= kAside) return &each;
  }
  return nullptr;
}

// The first label of the row in which a control stands.
const SeenControl* Scene::CaptionInRow(const SeenControl& control) const {
  constexpr int kOff = 6;
  const SeenControl* first = nullptr;
  for (const SeenControl& each : controls) {
    if (!each.shown || each.kind != ControlKind::kLabel || each.rect.x >= control.rect.x) continue;
    if (std::abs(Middle(each.rect) - Middle(control.rect)) > kOff) continue;
    if (ReadoutAround(each) != nullptr) continue;
    if (first == nullptr || each.rect.x < first->rect.x) first = &each;
  }
  return first;
}

// What names a control that has no words of its own.
const SeenControl* Scene::CaptionOf(const SeenControl& control) const {
  const SeenControl* readout =
      SignOf(control) != nullptr ? ReadoutBeside(control) : ReadoutAround(control);
  if (readout != nullptr) return CaptionAbove(*readout);
  if (const SeenControl* caption = CaptionInRow(control)) return caption;
  return TakesNumber(control) ? CaptionAbove(control) : nullptr;
}

bool Scene::HasNumberInRow(const SeenControl& control) const {
  const SeenControl* caption = CaptionInRow(control);
  return caption != nullptr && IsCaptionOfNumber(*caption);
}

// Whether a label stands for what the operator sets to a number or a text.
bool Scene::IsCaptionOfNumber(const SeenControl& label) const {
  return std::any_of(controls.begin(), controls.end(), [&](const SeenControl& each) {
    return each.shown && TakesNumber(each) && CaptionOf(each) == &label;
  });
}

std::string Scene::Within(const SeenControl& control) const {
  for (const SeenControl& each : controls) {
    const Fact* fact = FactOf(each, Says::kWithin);
    const bool isFrame = fact != nullptr && each.shown && each.id != control.id;
    if (isFrame && Contains(each.rect, control.rect)) return std::string(fact->text);
  }
  return "";
}

std::string Scene::SubjectFrom(const SeenControl* caption) const {
  if (caption == nullptr) return "";
  const Fact* fact = FactOf(*caption, Says::kSubject);
  const std::string words =
      fact != nullptr ? std::string(fact->text) : CaptionFrom(caption->text).subject;
  return Joined({Within(*caption), words});
}

// What stands in a frame; where no text does, what its caption tells.
std::string Scene::ValueIn(const SeenControl& readout) const {
  for (const SeenControl& each : controls) {
    const bool isText = each.shown && each.kind == ControlKind::kLabel && !each.text.empty();
    if (isText && Contains(readout.rect, each.rect)) return Said(each.text);
  }
  const SeenControl* caption = CaptionAbove(readout);
  return caption != nullptr ? CaptionFrom(caption->text).value : "";
}

// The number at the end of the row of a slider.
std::string Scene::ValueInRow(const SeenControl& control) const {
  const SeenControl* caption = CaptionInRow(control);
  for (const SeenControl& each : controls) {
    const bool isNumber = each.kind == ControlKind::kLabel || each.kind == ControlKind::kEdit;
    if (!each.shown || !isNumber || FactOf(each, Says::kUnit) != nullptr) continue;
    if (caption == nullptr || &each == caption || CaptionInRow(each) != caption) continue;
    return Number(Said(each.kind == ControlKind::kEdit ? each.value : each.text));
  }
  return Number(control.value);
}

std::string Scene::Front(const SeenControl& picture, std::string_view name) const {
  if (picture.picture == "NULL_BOX") return std::string(name) + ": no converter found";
  for (const PanelRow& row : kPanels) {
    if (row.picture != picture.picture) continue;
    return std::string(name) + ": " + Joined({row.model, row.what});
  }
  return std::string(name);
}

// The picture of a chosen tile ends in D.
std::string Scene::Tile(const SeenControl& tile, std::string_view name) const {
  int number = 0;
  int tiles = 0;
  for (const SeenControl& each : controls) {
    if (!each.shown || FactOf(each, Says::kTile) == nullptr) continue;
    ++tiles;
    if (each.id == tile.id) number = tiles;
  }
  const bool isChosen = tile.picture.ends_with("_D");
  return std::string(name) + " " + std::to_string(number) + " of " + std::to_string(tiles) +
         (isChosen ? ", chosen" : "");
}

std::string Scene::OfPicture(const SeenControl& picture) const {
  if (FactOf(picture, Says::kPicture) == nullptr) return "";
  for (const SaidRow& row : kPictures) {
    if (row.shown == picture.picture) return std::string(row.said);
  }
  return "";
}

Spoken Scene::OfLabel(const SeenControl& label) const {
  const SeenControl* readout = ReadoutAround(label);
  const SeenControl* caption = CaptionOf(label);
  if (caption == nullptr && readout == nullptr) {
    const Caption own = CaptionFrom(label.text);
    const std::string_view also = IsCaptionOfNumber(label) ? "caption" : "";
    return {Joined({SubjectFrom(&label), own.value, also}), own.value, ""};
  }
  const std::string subject = SubjectFrom(caption);
  if (const Fact* unit = FactOf(label, Says::kUnit)) {
    return {Joined({subject, "in " + std::string(unit->text)}), "", ""};
  }
  const std::string value = Said(label.text);
  const bool pending = readout != nullptr && readout->mark == ui::Mark::kPending;
  return {Joined({subject, value.empty() ? "nothing" : value, pending ? "not applied yet" : ""}),
          value, ""};
}

Spoken Scene::OfGroup(const SeenControl& group) const {
  if (const Fact* fact = FactOf(group, Says::kWithin)) return {std::string(fact->text), "", ""};
  if (!IsReadout(group)) return {Said(group.text), "", ""};
  const bool pending = group.mark == ui::Mark::kPending;
  return {Joined({SubjectFrom(CaptionAbove(group)), "setting"}), "",
          pending ? "Not applied yet" : ""};
}

Spoken Scene::OfStep(const SeenControl& button, const SignRow& sign) const {
  const std::string subject = SubjectFrom(CaptionOf(button));
  const SeenControl* readout = ReadoutBeside(button);
  const bool isOption = readout != nullptr;
  const bool isNumber = !isOption && HasNumberInRow(button);
  const std::string value = isOption ? ValueIn(*readout) : isNumber ? ValueInRow(button) : "";
  const bool pending = isOption && readout->mark == ui::Mark::kPending;
  return {Joined({subject, value, isNumber ? sign.ofNumber : sign.ofOption}), value,
          pending ? "Not applied yet" : ""};
}

Spoken Scene::OfButton(const SeenControl& button) const {
  if (const SignRow* sign = SignOf(button)) return OfStep(button, *sign);
  if (const Fact* fact = FactOf(button, Says::kFront)) return {Front(button, fact->text), "", ""};
  if (const Fact* fact = FactOf(button, Says::kTile)) return {Tile(button, fact->text), "", ""};
  const std::string_view mark = button.mark == ui::Mark::kCurrent   ? "current"
                                : button.mark == ui::Mark::kPending ? "changes pending"
                                                                    : "";
  return {Joined({Said(button.text), mark}), "", ""};
}

// A slider has the name of its row; the edit beside it is the number of it.
Spoken Scene::OfInput(const SeenControl& control) const {
  std::string_view which;
  if (control.kind == ControlKind::kProgress) which = "level";
  const SeenControl* caption = CaptionOf(control);
  const bool besideSlider =
      control.kind == ControlKind::kEdit &&
      std::any_of(controls.begin(), controls.end(), [&](const SeenControl& each) {
        return each.shown && each.kind == ControlKind::kSlider && caption != nullptr &&
               CaptionOf(each) == caption;
      });
  if (besideSlider) which = "number";
  const bool isSlider = control.kind == ControlKind::kSlider;
  return {Joined({SubjectFrom(caption), which}), isSlider ? ValueInRow(control) : control.value,
          ""};
}

Spoken Scene::Of(const SeenControl& control) const {
  Spoken spoken;
  switch (control.kind) {
    case ControlKind::kLabel:
      spoken = OfLabel(control);
      break;
    case ControlKind::kGroup:
      spoken = OfGroup(control);
      break;
    case ControlKind::kButton:
    case ControlKind::kDefaultButton:
    case ControlKind::kPictureButton:
      spoken = OfButton(control);
      break;
    case ControlKind::kPicture:
      spoken.name = OfPicture(control);
      break;
    default:
      spoken = OfInput(control);
      break;
  }
  if (const Fact* fact = FactOf(control, Says::kName)) spoken.name = fact->text;
  if (spoken.name.empty()) spoken.name = WordFor(control.kind);
  return spoken;
}

}  // namespace

std::string Said(const std::string& text) {
  std::string said;
  for (const char each : text) {
    const bool blank = each == ' ' || each == '\t' || each == '\n' || each == '\r';
    if (!blank) {
      said += each;
    } else if (!said.empty() && said.back() != ' ') {
      said += ' ';
    }
  }
  while (!said.empty() && (said.back() == ' ' || said.back() == ':')) said.pop_back();
  const bool isBetweenDashes = said.size() > 4 && said.starts_with("- ") && said.ends_with(" -");
  if (isBetweenDashes) said = said.substr(2, said.size() - 4);
  for (const SaidRow& row : kSaid) {
    if (row.shown == said) return std::string(row.said);
  }
  return said;
}

std::map<int, Spoken> SpokenOf(int dialog, std::span<const SeenControl> controls) {
  const Scene scene(dialog, controls);
  std::map<int, Spoken> spoken;
  std::map<std::string, int> given;
  for (const SeenControl& control : controls) {
    if (!control.shown) continue;
    Spoken& its = spoken[control.id] = scene.Of(control);
    const int times = ++given[its.name];
    if (times > 1) its.name += ", " + std::to_string(times);
  }
  return spoken;
}

}  // namespace panelora::res
