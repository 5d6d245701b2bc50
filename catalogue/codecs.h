// Blocks of several bytes as what they mean. Byte orders are the box's own: some differ by model,
// and some by direction. Every Encode makes what the Decode of the same direction takes apart.
#pragma once

#include <array>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "base/byte_order.h"
#include "device/address.h"
#include "device/device_link.h"
#include "device/identity.h"

namespace panelora {

using Bytes2 = std::array<std::uint8_t, 2>;
using Bytes4 = std::array<std::uint8_t, 4>;
using Bytes5 = std::array<std::uint8_t, 5>;
using Bytes8 = std::array<std::uint8_t, 8>;
using Bytes10 = std::array<std::uint8_t, 10>;
using BlockBytes = std::span<const std::uint8_t>;

enum class ByteOrder : std::uint8_t { kLittle, kBig };

constexpr std::uint16_t Join(ByteOrder order, std::uint8_t first, std::uint8_t second) {
  return order == ByteOrder::kBig ? BigEndian(first, second) : LittleEndian(first, second);
}
constexpr Bytes2 Split(ByteOrder order, std::uint16_t value) {
  return order == ByteOrder::kBig ? Bytes2{HighByte(value), LowByte(value)}
                                  : Bytes2{LowByte(value), HighByte(value)};
}

// The identity block, 20 bytes of which five are used: the same on every model.
constexpr Address kIdentityBlock = Block(254, 20);
Identity DecodeIdentity(BlockBytes bytes);
std::array<std::uint8_t, 20> EncodeIdentity(const Identity& identity);

// The two words of a firmware item: low bytes minor and major. 0x0112 is shown as 0.1.1.2.
constexpr std::uint32_t DecodeFirmware(const WordBuffer& words) {
  return (words[1] & 0xFF) * 256 + (words[0] & 0xFF);
}
constexpr WordBuffer EncodeFirmware(std::uint32_t version) {
  return {version & 0xFF, (version >> 8) & 0xFF};
}

// A signal format: width and height in pixels, rate in Hz and hundredths, and how it is scanned.
struct VideoFormat {
  std::uint16_t width = 0;
  std::uint16_t height = 0;
  std::uint8_t rate = 0;
  std::uint8_t hundredths = 0;
  std::uint8_t scan = 0;  // what it means differs by who tells it

  bool operator==(const VideoFormat&) const = default;
};
constexpr std::size_t kFormatBytes = 7;
VideoFormat DecodeFormat(BlockBytes bytes, ByteOrder order);
std::array<std::uint8_t, kFormatBytes> EncodeFormat(const VideoFormat& format, ByteOrder order);

// What stands instead of the format of an input without a signal.
inline constexpr char kNoSignalText[] = "-  NO SIGNAL  -";
// "1920x1080  59.94p", with the letter of the scan; the no-signal text when width or height is 0.
std::string TextOf(const VideoFormat& format, const char* scan);

// An inset, in pixels of the output frame.
struct PipWindow {
  std::uint16_t hPos = 0;
  std::uint16_t vPos = 0;
  std::uint16_t hSize = 0;  // in display mode 7 half of what is shown and typed
  std::uint16_t vSize = 0;

  bool operator==(const PipWindow&) const = default;
};
PipWindow DecodePipWindow(BlockBytes bytes, ByteOrder order);
Bytes8 EncodePipWindow(const PipWindow& inset, ByteOrder order);

// A region of the input, in its pixels.
struct Region {
  std::uint16_t x = 0;
  std::uint16_t y = 0;
  std::uint16_t width = 0;
  std::uint16_t height = 0;
  std::uint8_t use = 0;   // 1 in use, 2 off, 0 as it was
  std::uint8_t mode = 0;  // 0 dot by dot, 1 full screen, 2 disabled

  bool operator==(const Region&) const = default;
};
Region DecodeRegion(BlockBytes bytes);
Bytes10 EncodeRegion(const Region& region);

// The delays of an output against its reference. They are told little-endian and taken big-endian,
// with whether they are final.
struct Delays {
  std::uint16_t lines = 0;   // vertical
  std::uint16_t clocks = 0;  // horizontal

  bool operator==(const Delays&) const = default;
};
Delays DecodeToldDelays(BlockBytes bytes);
Bytes4 EncodeToldDelays(const Delays& delays);
Delays DecodeTakenDelays(BlockBytes bytes);
Bytes5 EncodeTakenDelays(const Delays& delays, bool final);

// Where the picture stands: steps from the left and from the top.
struct ImagePosition {
  std::uint16_t horizontal = 5;  // 5 to 600
  std::uint16_t vertical = 5;    // 5 to 100

  bool operator==(const ImagePosition&) const = default;
};
ImagePosition DecodeImagePosition(BlockBytes bytes);
Bytes4 EncodeImagePosition(const ImagePosition& position);

// How large it is, in percent.
struct ImageSize {
  std::uint8_t horizontal = 100;  // 80 to 100
  std::uint8_t vertical = 100;    // 80 to 100

  bool operator==(const ImageSize&) const = default;
};
constexpr ImageSize DecodeImageSize(BlockBytes bytes) { return {bytes[0], bytes[1]}; }
constexpr Bytes2 EncodeImageSize(const ImageSize& size) { return {size.horizontal, size.vertical}; }

// The label fields: 20 characters, blank-padded, shown trimmed and written centred.
constexpr std::size_t kLabelLength = 20;
using LabelField = std::array<std::uint8_t, kLabelLength>;

// The text of a field without the blanks round it. A field of blanks alone is shown as its 20
// blanks: deliberate. A zero byte ends the text.
std::string TextOfLabel(std::span<const std::uint8_t, kLabelLength> field);

// The text in the middle of 20 blanks, one more on the right when their number is odd. What is
// longer than the field is cut.
LabelField CentredLabel(std::string_view text);

}  // namespace panelora
