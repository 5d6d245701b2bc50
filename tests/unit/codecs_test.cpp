// The codecs: what is taken apart is what was put together, in the byte order of its direction.
#include "catalogue/codecs.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace panelora {
namespace {

template <class Array>
std::vector<int> Numbers(const Array& bytes) {
  return {bytes.begin(), bytes.end()};
}

TEST(Codecs, IdentityIsFiveOfTwentyBytes) {
  const Identity identity = {26, 2, 1, 0, 255};
  const auto bytes = EncodeIdentity(identity);
  EXPECT_EQ(bytes.size(), 20U);
  EXPECT_EQ(Numbers(std::span(bytes).first(6)), (std::vector{26, 2, 1, 0, 255, 0}));
  EXPECT_EQ(DecodeIdentity(bytes), identity);
}

TEST(Codecs, FirmwareIsTheLowBytesOfTwoWords) {
  EXPECT_EQ(EncodeFirmware(0x0126), (WordBuffer{0x26, 0x01}));
  EXPECT_EQ(DecodeFirmware({0xABCD26, 0xABCD01}), 0x0126U);
  for (const std::uint32_t version : {0U, 1U, 255U, 256U, 0xFFFFU}) {
    EXPECT_EQ(DecodeFirmware(EncodeFirmware(version)), version);
  }
}

TEST(Codecs, FormatsHaveTheOrderOfTheirModel) {
  const VideoFormat format = {1920, 1080, 59, 94, 1};
  const auto big = EncodeFormat(format, ByteOrder::kBig);
  const auto little = EncodeFormat(format, ByteOrder::kLittle);
  EXPECT_EQ(Numbers(big), (std::vector{0x07, 0x80, 0x04, 0x38, 59, 94, 1}));
  EXPECT_EQ(Numbers(little), (std::vector{0x80, 0x07, 0x38, 0x04, 59, 94, 1}));
  EXPECT_EQ(DecodeFormat(big, ByteOrder::kBig), format);
  EXPECT_EQ(DecodeFormat(little, ByteOrder::kLittle), format);
}

TEST(Codecs, FormatTextHasTwoDigitsOfRateOrThree) {
  EXPECT_EQ(TextOf({1920, 1080, 59, 94, 0}, "p"), "1920x1080  59.94p");
  EXPECT_EQ(TextOf({1920, 1080, 99, 5, 0}, "i"), "1920x1080  99.05i");
  EXPECT_EQ(TextOf({1920, 1080, 100, 5, 0}, "p"), "1920x1080  100.0p");
  EXPECT_EQ(TextOf({0, 1080, 60, 0, 0}, "p"), "-  NO SIGNAL  -");
  EXPECT_EQ(TextOf({1920, 0, 60, 0, 0}, "p"), "-  NO SIGNAL  -");
}

TEST(Codecs, InsetsHaveTheOrderOfTheirDirection) {
  const PipWindow inset = {0x0210, 100, 640, 360};
  EXPECT_EQ(Numbers(EncodePipWindow(inset, ByteOrder::kLittle)),
            (std::vector{0x10, 0x02, 0x64, 0, 0x80, 0x02, 0x68, 0x01}));
  EXPECT_EQ(Numbers(EncodePipWindow(inset, ByteOrder::kBig)),
            (std::vector{0x02, 0x10, 0, 0x64, 0x02, 0x80, 0x01, 0x68}));
  for (const ByteOrder order : {ByteOrder::kLittle, ByteOrder::kBig}) {
    EXPECT_EQ(DecodePipWindow(EncodePipWindow(inset, order), order), inset);
  }
}

TEST(Codecs, RegionsAreBigEndianWithUseAndMode) {
  const Region region = {300, 50, 960, 540, 1, 2};
  const Bytes10 bytes = EncodeRegion(region);
  EXPECT_EQ(Numbers(bytes), (std::vector{0x01, 0x2C, 0, 50, 0x03, 0xC0, 0x02, 0x1C, 1, 2}));
  EXPECT_EQ(DecodeRegion(bytes), region);
}

TEST(Codecs, DelaysAreToldLittleEndianAndTakenBigEndian) {
  const Delays delays = {300, 2199};
  EXPECT_EQ(Numbers(EncodeToldDelays(delays)), (std::vector{0x2C, 0x01, 0x97, 0x08}));
  EXPECT_EQ(Numbers(EncodeTakenDelays(delays, true)), (std::vector{0x01, 0x2C, 0x08, 0x97, 1}));
  EXPECT_EQ(EncodeTakenDelays(delays, false)[4], 0);
  EXPECT_EQ(DecodeToldDelays(EncodeToldDelays(delays)), delays);
  EXPECT_EQ(DecodeTakenDelays(EncodeTakenDelays(delays, false)), delays);
}

TEST(Codecs, ImagePositionIsBigEndianAndSizeTwoPercentages) {
  const ImagePosition position = {300, 50};
  EXPECT_EQ(Numbers(EncodeImagePosition(position)), (std::vector{0x01, 0x2C, 0, 0x32}));
  EXPECT_EQ(DecodeImagePosition(EncodeImagePosition(position)), position);
  const ImageSize size = {80, 99};
  EXPECT_EQ(Numbers(EncodeImageSize(size)), (std::vector{80, 99}));
  EXPECT_EQ(DecodeImageSize(EncodeImageSize(size)), size);
}

// Any bytes that a box may send come back as they were.
TEST(Codecs, WhatIsTakenApartIsPutTogetherAgain) {
  std::minstd_rand random;
  for (int round = 0; round < 1000; ++round) {
    std::array<std::uint8_t, 20> bytes{};
    for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(random() >> 8);
    const auto expect = [&](const auto& again, std::size_t size) {
      EXPECT_EQ(Numbers(std::span(again).first(size)), Numbers(std::span(bytes).first(size)));
    };
    expect(EncodeIdentity(DecodeIdentity(bytes)), 5);
    for (const ByteOrder order : {ByteOrder::kLittle, ByteOrder::kBig}) {
      expect(EncodeFormat(DecodeFormat(bytes, order), order), 7);
      expect(EncodePipWindow(DecodePipWindow(bytes, order), order), 8);
      expect(Split(order, Join(order, bytes[0], bytes[1])), 2);
    }
    expect(EncodeRegion(DecodeRegion(bytes)), 10);
    expect(EncodeToldDelays(DecodeToldDelays(bytes)), 4);
    expect(EncodeTakenDelays(DecodeTakenDelays(bytes), false), 4);
    expect(EncodeImagePosition(DecodeImagePosition(bytes)), 4);
    expect(EncodeImageSize(DecodeImageSize(bytes)), 2);
    const std::uint32_t version = LittleEndian(bytes[0], bytes[1]);
    EXPECT_EQ(EncodeFirmware(version), (WordBuffer{bytes[0], bytes[1]}));
  }
}

// A field holds its text in the middle; what stands elsewhere in it is moved there.
TEST(Codecs, LabelsInTheMiddleComeBackAsTheyWere) {
  for (std::size_t length = 0; length <= kLabelLength; ++length) {
    const LabelField field = CentredLabel(std::string(length, 'x'));
    EXPECT_EQ(CentredLabel(TextOfLabel(field)), field) << length;
  }
}

}  // namespace
}  // namespace panelora
