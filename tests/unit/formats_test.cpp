// Texts of formats and versions.
#include <gtest/gtest.h>

#include "catalogue/information.h"

namespace panelora {
namespace {

struct NameRow {
  int code;
  const char* name;
  const char* divided;
};

const NameRow kNames[] = {
    {0, "720x480 59.94i", "720x480 59.94i"},
    {89, "720x480 59.94i", "720x480 59.94i"},
    {1, "720x576 50.00i", ""},
    {2, "720x480 60.00p", "720x480 59.94p"},
    {3, "720x576 50.00p", ""},
    {4, "1280x720 60.00p", "1280x720 59.94p"},
    {5, "1280x720 59.94p", ""},
    {6, "1280x720 50.00p", ""},
    {7, "1920x1080 60.00i", "1920x1080 59.94i"},
    {8, "1920x1080 59.94i", ""},
    {9, "1920x1080 50.00i", ""},
    {10, "1920x1080 60.00p", "1920x1080 59.94p"},
    {11, "1920x1080 59.94p", ""},
    {12, "1920x1080 50.00p", ""},
    {43, "1920x1080 24.00p", "1920x1080 23.98p"},
    {44, "1920x1080 25.00p", ""},
    {45, "1920x1080 30.00p", "1920x1080 29.97p"},
    {81, "1280x720 30.00p", "1280x720 29.97p"},
    {82, "1280x720 25.00p", ""},
    {83, "1280x720 24.00p", "1280x720 23.98p"},
    {91, "-  NO  SIGNAL  -", "-  NO SIGNAL  - "},
    {92, "1920x1035 60.00i", "1920x1035 59.94i"},
    {93, "1920x1080 24.00s", "1920x1080 23.98s"},
};

TEST(InputFormatNames, EveryCodeHasItsNameOrNoSignal) {
  for (int code = 0; code <= 255; ++code) {
    std::string name = "-  NO SIGNAL  -";
    std::string divided = name;
    for (const NameRow& row : kNames) {
      if (row.code != code) continue;
      name = row.name;
      divided = row.divided;
    }
    EXPECT_EQ(information::InputFormatName(20, static_cast<std::uint8_t>(code), false), name)
        << code;
    EXPECT_EQ(information::InputFormatName(20, static_cast<std::uint8_t>(code), true), divided)
        << code;
  }
}

TEST(InputFormatNames, Model19KnowsNoCodeFrom92) {
  EXPECT_EQ(information::InputFormatName(19, 91, false), "-  NO  SIGNAL  -");
  EXPECT_EQ(information::InputFormatName(19, 92, false), "-  NO SIGNAL  -");
  EXPECT_EQ(information::InputFormatName(19, 93, false), "-  NO SIGNAL  -");
  EXPECT_EQ(information::InputFormatName(19, 12, false), "1920x1080 50.00p");
}

TEST(FirmwareText, ShowsFourHexadecimalDigits) {
  EXPECT_EQ(information::FirmwareText(0x0112), "0.1.1.2");
  EXPECT_EQ(information::FirmwareText(518), "0.2.0.6");
  EXPECT_EQ(information::FirmwareText(0), "0.0.0.0");
  EXPECT_EQ(information::FirmwareText(0xFFFF), "F.F.F.F");
  EXPECT_EQ(information::FirmwareText(0xABCD), "A.B.C.D");
}

}  // namespace
}  // namespace panelora
