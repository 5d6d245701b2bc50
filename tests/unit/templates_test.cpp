// The dialog templates: complete, in order, and within their dialogs.
#include <gtest/gtest.h>

#include <set>
#include <string>

#include "res/dialog_templates.h"

namespace panelora {
namespace {

TEST(Templates, AreAboutAndAllFrom102To116) {
  std::set<int> numbers;
  for (const ui::DialogTemplate& dialog : res::Dialogs()) numbers.insert(dialog.number);
  std::set<int> expected = {100};
  for (int number = 102; number <= 116; ++number) expected.insert(number);
  EXPECT_EQ(numbers, expected);
}

TEST(Templates, NoControlStandsTwiceInADialog) {
  for (const ui::DialogTemplate& dialog : res::Dialogs()) {
    std::set<int> ids;
    for (const ui::ControlTemplate& control : dialog.controls) {
      EXPECT_TRUE(ids.insert(control.id).second) << dialog.number << " " << control.id;
    }
  }
}

TEST(Templates, PagesFillThePageArea) {
  for (const ui::DialogTemplate& dialog : res::Dialogs()) {
    if (dialog.framed) continue;
    const ui::Rect size = ui::PixelsFromUnits(dialog.units);
    EXPECT_EQ(size, (ui::Rect{0, 0, 540, 335})) << dialog.number;
  }
}

TEST(Templates, DialogUnitsAreThoseOfTheEightPointFont) {
  EXPECT_EQ(ui::PixelsFromUnits({4, 8, 2, 4}), (ui::Rect{6, 13, 3, 7}));
  EXPECT_EQ(ui::PixelsFromUnits({0, 0, 51, 28}), (ui::Rect{0, 0, 77, 46}));
}

// Every control that a page or the navigation bar works with.
TEST(Templates, HoldEveryControlOfThePages) {
  struct Row {
    int dialog;
    int first;
    int last;
  };
  const Row rows[] = {
      {100, 1, 1},       {102, 1000, 1015}, {102, 1048, 1048}, {103, 1003, 1039}, {103, 1079, 1079},
      {104, 1002, 1008}, {104, 1047, 1047}, {105, 1023, 1030}, {105, 1035, 1054}, {105, 1103, 1104},
      {105, 1108, 1108}, {106, 1027, 1052}, {107, 1037, 1056}, {107, 1072, 1072}, {108, 1017, 1113},
      {109, 1003, 1007}, {109, 1044, 1062}, {109, 1109, 1112}, {110, 1021, 1036}, {111, 1050, 1083},
      {112, 1077, 1095}, {112, 1105, 1110}, {113, 1087, 1100}, {114, 1044, 1045}, {114, 1051, 1062},
      {114, 1100, 1100}, {114, 1102, 1102}, {115, 1110, 1115}, {116, 1117, 1118}};
  for (const Row& row : rows) {
    const ui::DialogTemplate* dialog = res::FindDialog(row.dialog);
    ASSERT_NE(dialog, nullptr);
    for (int id = row.first; id <= row.last; ++id) {
      EXPECT_NE(res::FindControl(*dialog, id), nullptr) << row.dialog << " " << id;
    }
  }
}

TEST(Templates, NumberThatNoTemplateOrControlHasIsNone) {
  EXPECT_EQ(res::FindDialog(101), nullptr);
  EXPECT_EQ(res::FindControl(*res::FindDialog(res::kMain), 4711), nullptr);
}

TEST(Templates, StringTableNamesTheAboutItem) {
  EXPECT_STREQ(res::FindString(101), "&About Panelora...");
  EXPECT_STREQ(res::FindString(999), "");
}

}  // namespace
}  // namespace panelora
