// Small texts: bytes in hexadecimal digits, what can be printed, what is compared.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace panelora::boxctl {

using Bytes = std::vector<std::uint8_t>;

// "01FF".
std::string HexOf(std::span<const std::uint8_t> bytes);
// None when there is anything but pairs of digits.
std::optional<Bytes> BytesOfHex(std::string_view text);

// A whole number from `least` to `most`, decimal or with 0x before it, and nothing else.
std::optional<std::uint32_t> NumberOf(std::string_view text, std::uint32_t least,
                                      std::uint32_t most);
inline constexpr std::uint32_t kMostFirmware = 0xFFFF;
// A firmware version, as a number or as it is shown: 0x0112, 274 or 0.1.1.2.
std::optional<std::uint32_t> FirmwareOfText(const std::string& text);

// In one line of plain characters; what is none stands as \xNN.
std::string Printable(std::string_view text);

// For comparing what was typed: in small letters and without blanks.
std::string Folded(std::string_view text);

// How many letters must be changed, added or left out to make one of the other.
std::size_t DistanceOf(std::string_view one, std::string_view other);

// "VGA, HDMI, SDI"
std::string Joined(std::span<const std::string> texts);

}  // namespace panelora::boxctl
