// The label fields of the box.
#include "catalogue/codecs.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace panelora {
namespace {

LabelField Field(std::string_view text) {
  LabelField field{};
  std::copy(text.begin(), text.end(), field.begin());
  return field;
}

std::string Written(std::string_view text) {
  const LabelField field = CentredLabel(text);
  return {field.begin(), field.end()};
}

TEST(LabelField, ShowsTheTextWithoutTheBlanksRoundIt) {
  EXPECT_EQ(TextOfLabel(Field("        CAM         ")), "CAM");
  EXPECT_EQ(TextOfLabel(Field("CAM                 ")), "CAM");
  EXPECT_EQ(TextOfLabel(Field("                 CAM")), "CAM");
  EXPECT_EQ(TextOfLabel(Field("   TWO  WORDS       ")), "TWO  WORDS");
  EXPECT_EQ(TextOfLabel(Field("12345678901234567890")), "12345678901234567890");
  EXPECT_EQ(TextOfLabel(Field("x                   ")), "x");
  EXPECT_EQ(TextOfLabel(Field("                   x")), "x");
}

TEST(LabelField, ShowsAFieldOfBlanksAsItsBlanks) {
  EXPECT_EQ(TextOfLabel(Field("                    ")), std::string(20, ' '));
}

TEST(LabelField, AZeroEndsTheText) {
  EXPECT_EQ(TextOfLabel(Field("")), "");
  EXPECT_EQ(TextOfLabel(Field("  CAM")), "CAM");
  EXPECT_EQ(TextOfLabel(Field("  CAM  ")), "CAM");
}

TEST(LabelField, WritesTheTextInTheMiddleOfTwentyBlanks) {
  EXPECT_EQ(Written("CAM"), "        CAM         ");
  EXPECT_EQ(Written("EVEN"), "        EVEN        ");
  EXPECT_EQ(Written(""), std::string(20, ' '));
  EXPECT_EQ(Written("1234567890123456789"), "1234567890123456789 ");
  EXPECT_EQ(Written("12345678901234567890"), "12345678901234567890");
  EXPECT_EQ(Written("123456789012345678901"), "12345678901234567890");
}

}  // namespace
}  // namespace panelora
