// How the bench calls things: places of values, who did what, times, counts and bytes.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "device/address.h"
#include "simulator/shared_box.h"

namespace panelora::boxbench {

// Why the box can't be had.
constexpr char kBusy[] = "the box is busy with another program: try again";

// What was typed, or why it can't be taken, in one line.
template <class Value>
struct Typed {
  std::optional<Value> value;
  std::string problem = {};
};

// Where values are kept, in the order of the list.
bool IsBefore(const Address& left, const Address& right);
// The same value, however many bytes are asked for.
bool IsSamePlace(const Address& left, const Address& right);

const char* NameOf(simulator::By by);

// "14:03:59.120" of microseconds since 1970 (UTC); `toLocal` is added, in microseconds.
std::string ClockText(std::uint64_t time, std::int64_t toLocal);
// "0.120 ms" of microseconds.
std::string DurationText(std::uint32_t duration);
// "12,345".
std::string CountText(std::uint64_t count);
// "1 call", "2 calls".
std::string CountText(std::uint64_t count, const char* one, const char* more);

// "0A FF".
std::string HexText(std::span<const std::uint8_t> bytes);
// The same back: bytes of one or two digits between blanks or commas, or without any.
Typed<std::vector<std::uint8_t>> ParseHex(std::string_view text);
// A whole number of a range, and nothing else.
std::optional<std::uint32_t> ParseWhole(std::string_view text, std::uint32_t most);

// In one line: control characters, which would end it or its column, stand as \xNN.
std::string Printable(std::string_view text);
// Without blanks at its ends, and one for several.
std::string Tidied(std::string_view text);
// The file that a command line names behind the program, in quotation marks or not; its blanks
// stay.
std::wstring FileOf(std::wstring_view commandLine);
bool IsSameText(std::string_view left, std::string_view right);  // whatever case
bool Contains(std::string_view text, std::string_view part);     // whatever case

}  // namespace panelora::boxbench
