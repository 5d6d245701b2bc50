#include "catalogue/codecs.h"

#include <algorithm>

#include "base/text.h"

namespace panelora {

Identity DecodeIdentity(BlockBytes bytes) {
  return {bytes[0], bytes[1], bytes[2], bytes[3], bytes[4]};
}

std::array<std::uint8_t, 20> EncodeIdentity(const Identity& identity) {
  return {identity.boxType, identity.brandCode, identity.subModel, identity.inputDipFlag,
          identity.outputDipFlag};
}

VideoFormat DecodeFormat(BlockBytes bytes, ByteOrder order) {
  return {Join(order, bytes[0], bytes[1]), Join(order, bytes[2], bytes[3]), bytes[4], bytes[5],
          bytes[6]};
}

std::array<std::uint8_t, kFormatBytes> EncodeFormat(const VideoFormat& format, ByteOrder order) {
  const Bytes2 width = Split(order, format.width);
  const Bytes2 height = Split(order, format.height);
  return {width[0], width[1], height[0], height[1], format.rate, format.hundredths, format.scan};
}

std::string TextOf(const VideoFormat& format, const char* scan) {
  if (format.width == 0 || format.height == 0) return kNoSignalText;
  const std::string size = Format("%dx%d", format.width, format.height);
  if (format.rate < 100) {
    return Format("%s %3d.%02d%s", size.c_str(), format.rate, format.hundredths, scan);
  }
  return Format("%s %4d.0%s", size.c_str(), format.rate, scan);
}

PipWindow DecodePipWindow(BlockBytes bytes, ByteOrder order) {
  return {Join(order, bytes[0], bytes[1]), Join(order, bytes[2], bytes[3]),
          Join(order, bytes[4], bytes[5]), Join(order, bytes[6], bytes[7])};
}

Bytes8 EncodePipWindow(const PipWindow& inset, ByteOrder order) {
  Bytes8 bytes{};
  std::size_t at = 0;
  for (const std::uint16_t value : {inset.hPos, inset.vPos, inset.hSize, inset.vSize}) {
    for (const std::uint8_t byte : Split(order, value)) bytes[at++] = byte;
  }
  return bytes;
}

Region DecodeRegion(BlockBytes bytes) {
  return {BigEndian(bytes[0], bytes[1]),
          BigEndian(bytes[2], bytes[3]),
          BigEndian(bytes[4], bytes[5]),
          BigEndian(bytes[6], bytes[7]),
          bytes[8],
          bytes[9]};
}

Bytes10 EncodeRegion(const Region& region) {
  return {HighByte(region.x),
          LowByte(region.x),
          HighByte(region.y),
          LowByte(region.y),
          HighByte(region.width),
          LowByte(region.width),
          HighByte(region.height),
          LowByte(region.height),
          region.use,
          region.mode};
}

Delays DecodeToldDelays(BlockBytes bytes) {
  return {LittleEndian(bytes[0], bytes[1]), LittleEndian(bytes[2], bytes[3])};
}

Bytes4 EncodeToldDelays(const Delays& delays) {
  return {LowByte(delays.lines), HighByte(delays.lines), LowByte(delays.clocks),
          HighByte(delays.clocks)};
}

Delays DecodeTakenDelays(BlockBytes bytes) {
  return {BigEndian(bytes[0], bytes[1]), BigEndian(bytes[2], bytes[3])};
}

Bytes5 EncodeTakenDelays(const Delays& delays, bool final) {
  return {HighByte(delays.lines), LowByte(delays.lines), HighByte(delays.clocks),
          LowByte(delays.clocks), static_cast<std::uint8_t>(final ? 1 : 0)};
}

ImagePosition DecodeImagePosition(BlockBytes bytes) {
  return {BigEndian(bytes[0], bytes[1]), BigEndian(bytes[2], bytes[3])};
}

Bytes4 EncodeImagePosition(const ImagePosition& position) {
  return {HighByte(position.horizontal), LowByte(position.horizontal), HighByte(position.vertical),
          LowByte(position.vertical)};
}

std::string TextOfLabel(std::span<const std::uint8_t, kLabelLength> field) {
  std::string text(field.begin(), std::find(field.begin(), field.end(), 0));
  const std::size_t first = text.find_first_not_of(' ');
  if (first != std::string::npos) {
    text = text.substr(first, text.find_last_not_of(' ') - first + 1);
  }
  return text;
}

LabelField CentredLabel(std::string_view text) {
  text = text.substr(0, kLabelLength);
  LabelField field;
  field.fill(' ');
  std::copy(text.begin(), text.end(), field.begin() + (kLabelLength - text.size()) / 2);
  return field;
}

}  // namespace panelora
