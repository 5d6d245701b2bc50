// How the bench calls places, times, counts and bytes, and what it takes as such.
#include "boxbench/words.h"

#include <gtest/gtest.h>

namespace panelora::boxbench {
namespace {

using Bytes = std::vector<std::uint8_t>;

TEST(BenchWords, APlaceIsTheSameHoweverMuchIsAsked) {
  EXPECT_TRUE(IsSamePlace(Block(14), Block(14, 8)));
  EXPECT_FALSE(IsSamePlace(Block(19, 60), Block(19, 60, 1)));
  EXPECT_FALSE(IsSamePlace(Block(4), Word(4)));
  EXPECT_TRUE(IsBefore(Word(9), Block(1)));
  EXPECT_TRUE(IsBefore(Block(19, 60), Block(19, 2, 1)));
}

TEST(BenchWords, TimesAreShownInThousandths) {
  constexpr std::uint64_t kHour = 3600000000;
  EXPECT_EQ(ClockText(0, 0), "00:00:00.000");
  EXPECT_EQ(ClockText(14 * kHour + 239120999, 0), "14:03:59.120");
  EXPECT_EQ(ClockText(kHour, -2 * static_cast<std::int64_t>(kHour) + 86400000000), "23:00:00.000");
  EXPECT_EQ(DurationText(0), "0.000 ms");
  EXPECT_EQ(DurationText(120034), "120.034 ms");
}

TEST(BenchWords, CountsHaveGroupsOfThree) {
  EXPECT_EQ(CountText(0), "0");
  EXPECT_EQ(CountText(999), "999");
  EXPECT_EQ(CountText(1000), "1,000");
  EXPECT_EQ(CountText(1234567), "1,234,567");
  EXPECT_EQ(CountText(1, "call", "calls"), "1 call");
  EXPECT_EQ(CountText(2000, "call", "calls"), "2,000 calls");
}

TEST(BenchWords, BytesAreTakenAsTheyAreShown) {
  EXPECT_EQ(HexText(Bytes{0, 10, 255}), "00 0A FF");
  EXPECT_EQ(*ParseHex("00 0A ff").value, (Bytes{0, 10, 255}));
  EXPECT_EQ(*ParseHex(" 0x1,2 ").value, (Bytes{1, 2}));
  EXPECT_EQ(*ParseHex("000Aff").value, (Bytes{0, 10, 255}));
}

TEST(BenchWords, WhatIsNoByteIsRefusedWithAReason) {
  for (const char* text : {"", "  ", "0G", "123", "x"}) {
    const auto typed = ParseHex(text);
    EXPECT_FALSE(typed.value.has_value()) << text;
    EXPECT_FALSE(typed.problem.empty()) << text;
  }
}

TEST(BenchWords, WholeNumbersHaveNothingRoundThem) {
  EXPECT_EQ(ParseWhole(" 255 ", 255), 255U);
  EXPECT_EQ(ParseWhole("256", 255), std::nullopt);
  EXPECT_EQ(ParseWhole("99999999999", 4294967295U), std::nullopt);
  for (const char* text : {"", "-1", "1a", "1 2", "0x1"}) {
    EXPECT_EQ(ParseWhole(text, 255), std::nullopt) << text;
  }
}

TEST(BenchWords, AFileIsCalledAsItIsTyped) {
  EXPECT_EQ(FileOf(L""), L"");
  EXPECT_EQ(FileOf(L"BoxBench.exe"), L"");
  EXPECT_EQ(FileOf(L"\"C:\\my bench\\BoxBench.exe\"  \t"), L"");
  EXPECT_EQ(FileOf(L"BoxBench.exe calls.txt "), L"calls.txt");
  EXPECT_EQ(FileOf(L"BoxBench.exe\tC:\\my  calls\\a.txt"), L"C:\\my  calls\\a.txt");
  EXPECT_EQ(FileOf(L"C:\\\"my bench\"\\BoxBench.exe a.txt"), L"a.txt");
  EXPECT_EQ(FileOf(L"\"BoxBench.exe\" \"C:\\my  calls\\a.txt\" "), L"C:\\my  calls\\a.txt");
  EXPECT_EQ(FileOf(L"BoxBench.exe \" a.txt\""), L" a.txt");
}

TEST(BenchWords, ControlCharactersAreSpelledOut) {
  EXPECT_EQ(Printable("A b~"), "A b~");
  EXPECT_EQ(Printable("\xE9"), "\xE9");  // a letter of the system's code page
  EXPECT_EQ(Printable(std::string_view("A\n\tB\x7F\0", 6)), "A\\x0A\\x09B\\x7F\\x00");
}

TEST(BenchWords, CaseAndBlanksMakeNoDifference) {
  EXPECT_EQ(Tidied("  a \t b\r\n"), "a b");
  EXPECT_TRUE(IsSameText("Vga", "vGA"));
  EXPECT_FALSE(IsSameText("VGA", "VG"));
  EXPECT_TRUE(Contains("Input Source", "t sou"));
  EXPECT_TRUE(Contains("", ""));
  EXPECT_FALSE(Contains("Input", "Inputs"));
}

}  // namespace
}  // namespace panelora::boxbench
