// What the pages may rely on in a dialog, on either toolkit.
#include "tests/support/scenario.h"

namespace panelora::testing {
namespace {

// No template has a control of this id.
constexpr int kMissing = 4711;

class Toolkit : public ::testing::Test {
 protected:
  Desk desk;
  ui::DialogEvents events;
  std::unique_ptr<ui::Dialog> dialog = desk.Toolkit().CreateDialogFrom(res::kMain, events, nullptr);
};

TEST_F(Toolkit, IdThatTheTemplateHasNotIsIgnoredAndReadsAsNothing) {
  ASSERT_TRUE(dialog->IsOpen());
  dialog->SetText(kMissing, "text");
  dialog->ShowControl(kMissing, true);
  dialog->EnableControl(kMissing, true);
  dialog->PlaceControl(kMissing, {1, 2, 3, 4});
  dialog->SetFont(kMissing, ui::kValueFont);
  dialog->SetPictures(kMissing, "INFO_BTU_U", "INFO_BTU_D");
  dialog->SetTextLimit(kMissing, 3);
  dialog->SetSliderRange(kMissing, 0, 10);
  dialog->SetSliderPosition(kMissing, 5);
  dialog->SetProgressRange(kMissing, 0, 10);
  dialog->SetProgressPosition(kMissing, 5);
  dialog->ClearItems(kMissing);
  dialog->AddItem(kMissing, "item");
  dialog->SelectItem(kMissing, 0);
  EXPECT_EQ(dialog->Text(kMissing), "");
  EXPECT_EQ(dialog->SliderPosition(kMissing), 0);
  EXPECT_EQ(dialog->ItemText(kMissing, 0), "");
  EXPECT_FALSE(dialog->Focus(kMissing));
}

TEST_F(Toolkit, ItemThatAComboBoxHasNotIsNone) {
  dialog->AddItem(kPortList, "COM1");
  dialog->AddItem(kPortList, "COM2");
  dialog->SelectItem(kPortList, 1);
  EXPECT_EQ(dialog->SelectedItem(kPortList), 1);
  for (const int index : {-1, 2}) {
    dialog->SelectItem(kPortList, index);
    EXPECT_EQ(dialog->SelectedItem(kPortList), -1) << index;
    EXPECT_EQ(dialog->ItemText(kPortList, index), "") << index;
  }
  EXPECT_EQ(dialog->ItemText(kPortList, 1), "COM2");
}

}  // namespace
}  // namespace panelora::testing
