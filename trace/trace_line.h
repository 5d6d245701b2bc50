// A line of a trace as it is written.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

#include "trace/trace_file.h"

namespace panelora::trace {

// What a trace begins with, before the number of its first call.
inline constexpr std::string_view kFirstLine = "Panelora trace 1, calls from ";
inline constexpr std::string_view kLineEnd = "\r\n";
// Of a call that an earlier file has, at the head of a further one.
inline constexpr std::uint64_t kNoNumber = 0;

// A call on its way into a file: of a fixed size, so that it can wait in a ring.
struct Record {
  std::uint64_t time;
  std::uint32_t duration;
  std::uint32_t group;
  std::uint32_t number;
  std::int32_t result;
  WordBuffer words;
  Call::Operation operation;
  std::uint8_t sub;
  std::uint8_t length;
  std::uint8_t byteCount;
  std::array<std::uint8_t, 255> bytes;
};

// The check of what a line says: FNV-1a.
constexpr std::uint32_t CheckOf(std::string_view text) {
  std::uint32_t check = 0x811C9DC5;
  for (const char letter : text) {
    check = (check ^ static_cast<std::uint8_t>(letter)) * 0x01000193;
  }
  return check;
}

// With its end. None of the system's memory and locks is needed to make one: it may be made while a
// process ends.
class Line {
 public:
  static Line First(std::uint64_t firstNumber);
  static Line OfCall(std::uint64_t number, const Record& record);
  static Line OfLost(std::uint64_t number, std::uint64_t count);

  static constexpr std::size_t kLongest = 1000;

  std::string_view Text() const { return {text.data(), size}; }

 private:
  Line() = default;

  void Add(std::string_view part);
  void AddNumber(std::uint64_t value, std::size_t digits = 1);
  void AddByte(std::uint8_t byte);
  void AddBytes(const Record& record);
  void AddTime(std::uint64_t time);
  void AddAsked(const Record& record);
  void AddAnswer(const Record& record);
  void AddCheck();

  std::array<char, kLongest> text;
  std::size_t size = 0;
};

}  // namespace panelora::trace
