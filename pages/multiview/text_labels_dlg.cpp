#include "pages/multiview/text_labels_dlg.h"

#include <algorithm>
#include <array>

#include "catalogue/codecs.h"
#include "catalogue/multiview.h"
#include "pages/caption.h"
#include "pages/cycling_group.h"

namespace panelora {

namespace {

constexpr CyclingGroup kState = {1110, 1111, 1112, 1113};
constexpr int kLabelCaption = 1114;
constexpr int kLabel = 1115;

}  // namespace

void CTextLabelsDlg::Init() {
  SetUpGroup(Window(), kState, "Text Labels Enable", "Disable");
  PlaceGroup(Window(), kState, {50, 55}, 370);
  Window().SetFont(kState.value, ui::kValueFont);
  SetCaption(Window(), kLabelCaption, "Text Labels");
  Window().PlaceControl(kLabelCaption, {50, 155, 300, 20});
  Window().SetFont(kLabel, ui::kValueFont);
  Window().SetTextLimit(kLabel, static_cast<int>(kLabelLength));
  Window().PlaceControl(kLabel, {50, 175, 310, 35});
}

void CTextLabelsDlg::Open() {
  TakeHandle();
  Send(multiview::OpeningOfTextLabels());
  Refresh(serialHandle);
}

void CTextLabelsDlg::Refresh(ui::SerialHandle serial) {
  serialHandle = serial;
  BlockBuffer bytes{};
  if (Read(multiview::kTextLabel, bytes)) {
    Window().SetText(kLabel, TextOfLabel(std::span(bytes).subspan<1, kLabelLength>()));
    toldLabel = Window().Text(kLabel);
    labelState = toldState = bytes[0];
    ShowState();
    EnableLabel();
  }
  ShowPending();
}

void CTextLabelsDlg::ShowPending() {
  MarkPending(
      {{kState.frame, labelState != toldState}, {kLabel, Window().Text(kLabel) != toldLabel}});
}

void CTextLabelsDlg::ShowState() {
  ShowChoice(kState.value, multiview::TextLabelStates(), labelState);
}

// The default label and unknown states leave the edit as it is.
void CTextLabelsDlg::EnableLabel() {
  if (labelState <= 1) Window().EnableControl(kLabel, labelState == 1);
}

void CTextLabelsDlg::OnCommand(int control, ui::Notification what) {
  static constexpr CommandRow<CTextLabelsDlg> kCommands[] = {
      {kState.next, &CTextLabelsDlg::OnNextState},
      {kLabel, &CTextLabelsDlg::ShowPending, ui::Notification::kTyped},
  };
  DispatchCommand(*this, kCommands, control, what);
}

// The default label is shown when the box reports it, but can't be chosen.
void CTextLabelsDlg::OnNextState() {
  labelState = labelState == 0 ? 1 : 0;
  ShowState();
  EnableLabel();
  ShowPending();
}

void CTextLabelsDlg::Apply() {
  std::array<std::uint8_t, 1 + kLabelLength> bytes = {labelState};
  toldLabel = Window().Text(kLabel);
  const LabelField label = CentredLabel(toldLabel);
  std::copy(label.begin(), label.end(), bytes.begin() + 1);
  Write(multiview::kTextLabel, bytes);
  toldState = labelState;
  ShowPending();
}

}  // namespace panelora
