// Calls in words: what is told, what is answered, and what nobody knows.
#include "catalogue/describe.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "catalogue/codecs.h"

namespace panelora {
namespace {

constexpr std::uint32_t kFirmware = 0x0126;

Identity Box(std::uint8_t type, std::uint8_t brand = 0) { return {type, brand, 0, 0, 0}; }

using Bytes = std::vector<std::uint8_t>;

template <class Array>
Bytes ToBytes(const Array& bytes) {
  return Bytes(bytes.begin(), bytes.end());
}

BlockBuffer BufferOf(const Bytes& bytes) {
  BlockBuffer buffer{};
  std::copy(bytes.begin(), bytes.end(), buffer.begin());
  return buffer;
}

Call Set(std::uint8_t property, const Bytes& bytes, std::uint8_t sub = kNoSub) {
  return Call::SetBlock(property, sub, static_cast<std::uint8_t>(bytes.size()), BufferOf(bytes));
}
Call Set(std::uint32_t item, std::uint32_t value) { return Call::SetWord(kBoxGroup, item, value); }
Call Get(std::uint8_t property, std::uint8_t length, std::uint8_t sub = kNoSub) {
  return Call::GetBlock(property, sub, length);
}
Call Get(std::uint32_t item) { return Call::GetWord(kBoxGroup, item); }

// The call, and what the box answered.
Call Answered(Call call, const Bytes& bytes) {
  call.Take(BufferOf(bytes));
  call.result = kSuccess;
  return call;
}
Call Answered(Call call, std::uint32_t word, std::uint32_t second = 0) {
  call.Take(WordBuffer{word, second});
  call.result = kSuccess;
  return call;
}

struct Case {
  Identity box;
  Call call;
  const char* words;
};

void ExpectWords(std::initializer_list<Case> cases) {
  for (const Case& each : cases) {
    EXPECT_EQ(Describe(each.box, kFirmware, each.call), each.words)
        << TextOf(each.call) << " to type " << int{each.box.boxType};
  }
}

TEST(Describe, WhatEveryBoxIsAsked) {
  const Identity none;
  Call opened = Call::Open(kOpenMode);
  opened.result = kSuccess;
  ExpectWords({
      {none, Call::Open(kOpenMode), "Open?"},
      {none, opened, "Open: a box"},
      {none, Get(254, 20), "Identity?"},
      {none, Answered(Get(254, 20), {26, 3}), "Identity: type 26 brand 3"},
      {none, Answered(Get(254, 20), {24, 2, 5, 1, 1}),
       "Identity: type 24 brand 2 sub-model 5 input DIP output DIP"},
      {none, Get(1, 20), "Display Modes?"},
      {Box(26), Answered(Get(5U), 0x26, 1), "Firmware: 0.1.2.6"},
      {Box(0), Answered(Get(8U), 0x12, 2), "Firmware: 0.2.1.2"},
      {Box(26),
       Answered(Get(1, 30), ToBytes(EncodeFormat({1920, 1080, 59, 94, 0}, ByteOrder::kBig))),
       "Input Format: 1920x1080  59.94p"},
      {Box(14),
       Answered(Get(3, 30), ToBytes(EncodeFormat({1920, 1080, 24, 0, 2}, ByteOrder::kLittle))),
       "Input Format: 1920x1080  24.00s"},
      {Box(51),
       Answered(Get(3, 30), ToBytes(EncodeFormat({1920, 1080, 24, 0, 2}, ByteOrder::kLittle))),
       "Input Format: 1920x1080  24.00s, -  NO SIGNAL  -, -  NO SIGNAL  -, -  NO SIGNAL  -"},
      {Box(0), Answered(Get(3U), 45, 1), "Input Format: 1920x1080 29.97p"},
      {Box(13), Answered(Get(18U), 45, 1), "Input Format 4: 1920x1080 29.97p"},
      {Box(25), Answered(Get(18U), 3), "Input Color: YUV422"},
      {Box(52), Answered(Get(38, 2), {1, 0}), "Audio fitted: source 1, volume 0"},
      {Box(21), Answered(Get(24U), 1), "Audio Mute: ON"},
      {Box(21), Set(1, Bytes{1}), "Audio Mute: ON"},
  });
}

TEST(Describe, OptionsHaveTheNamesOfTheirChoices) {
  ExpectWords({
      {Box(26), Set(4U, 2), "Input Source: VGA"},
      {Box(26), Get(4U), "Input Source?"},
      {Box(26), Answered(Get(4U), 4), "Input Source: SDI"},
      {Box(26), Set(4U, 9), "Input Source: 9"},
      {Box(26), Set(2U, 15), "Output Format: 1920x1080 60.00p"},
      {Box(26), Answered(Get(7U), 5), "Aspect Ratio: UnderScan"},
      {Box(0), Set(15, Bytes{1}), "Aspect Ratio: 4 : 3"},
      {Box(0), Answered(Get(15, 2), {4, 0}), "Aspect Ratio: Full Screen"},
      {Box(26), Set(23, Bytes{6, 1}), "DipSwitch 8(1) Mode: Pan Scan 16 : 9"},
      {Box(0), Set(12U, 1), "Function Button: Locked"},
      {Box(20), Answered(Get(17U), 1), "Pass Through: ON"},
      {Box(29), Set(32, Bytes{8}), "Output Channel: 7.1 Channel"},
      // An audio source is told by its value and reported by its index, and hangs on the input.
      {Box(26), Set(6U, 3), "Audio Source: SDI"},
      {Box(26), Answered(Get(6U), 2), "Audio Source: SDI or HDMI"},
      {Box(26), Set(6U, 1), "Audio Source: Internal (HDMI) or Internal (Mute) or Internal (SDI)"},
      {Box(51), Set(10, Bytes{7}), "Audio Source: 7"},
  });
}

// A row whose firmware the box does not have is taken where there is no other.
TEST(Describe, OptionsOfOtherFirmwareAreNamedToo) {
  EXPECT_EQ(Describe(Box(26), 0, Set(22, Bytes{2})), "No Signal Mode: Disable Output");
}

TEST(Describe, PictureValuesAndCommands) {
  Call picture = Call::GetPicture();
  EXPECT_EQ(Describe(Box(26), kFirmware, picture), "Picture values?");
  picture.Take(ProcAmpBytes{1, 2, 3, 4});
  picture.result = kSuccess;
  Call hue = Call::GetProcAmp(kBoxGroup, proc_amp::kHue);
  ExpectWords({
      {Box(26), picture, "Picture values: brightness 1, contrast 2, hue 3, saturation 4"},
      {Box(26), Call::SetProcAmp(kBoxGroup, 2, 128), "Brightness: 128"},
      {Box(30), Answered(hue, 7), "Hue: 7"},
      {Box(24), Call::SetProcAmp(kBoxGroup, 255, 1), "Picture values: stored"},
      {Box(24), Call::SetProcAmp(kBoxGroup, 255, 0), "Picture values: preview"},
      {Box(26), Set(14, Bytes{100, 120, 64}), "RGB: gain 100, offset 120, offset 2 64"},
      {Box(26), Set(3U, 0), "Proc Amp defaults"},
      {Box(26), Set(3U, 1), "Hardware Reset"},
      {Box(26), Set(3U, 2), "RGB defaults"},
      {Box(26), Set(3U, 3), "Image defaults"},
      {Box(23), Set(7U, 0), "Proc Amp defaults"},
      {Box(23), Set(7U, 1), "Hardware Reset"},
      {Box(23), Set(7U, 2), "Open Image Adjust"},
      {Box(23), Set(13, Bytes{1}), "Auto Phase"},
      {Box(0), Set(19, Bytes{1}), "Freeze"},
      {Box(24), Set(19U, 11), "Freeze"},
      {Box(24, 2), Set(19, Bytes{1}), "Freeze"},
      {Box(40), Set(1, Bytes{4}), "Open ROI"},
      {Box(47), Set(1, Bytes{2}), "Open Genlock"},
      {Box(13), Set(10U, 2), "Open PIP"},
  });
}

TEST(Describe, BlocksOfSeveralBytesHaveTheirCodecs) {
  const PipWindow inset = {100, 50, 512, 304};
  const auto little = ToBytes(EncodePipWindow(inset, ByteOrder::kLittle));
  const auto big = ToBytes(EncodePipWindow(inset, ByteOrder::kBig));
  Bytes label = {1};
  const LabelField camera = CentredLabel("CAMERA 1");
  label.insert(label.end(), camera.begin(), camera.end());
  ExpectWords({
      {Box(15), Answered(Get(13, 8), little), "Inset 1: 512x304 at 100, 50"},
      {Box(15), Set(13, big), "Inset 1: 512x304 at 100, 50"},
      {Box(51), Set(13, little), "Inset 1: 512x304 at 100, 50"},
      {Box(51), Set(14, big), "Inset 2: 512x304 at 100, 50"},
      {Box(15), Set(13, Bytes(8, 0xFF)), "Inset 1: first place"},
      {Box(15), Answered(Get(1, 20), {5, 1, 1}), "Display Modes: Mode 5 of 9, with labels"},
      {Box(15), Set(1U, 6), "Display Mode: Mode 6"},
      {Box(15), Set(2U, 3), "Channel combination: 3"},
      {Box(15), Answered(Get(2, 20), {1, 2, 3, 4, 5, 6, 7, 8, 9, 10}),
       "Channel combinations: 1 2 3 4 5 6 7 8 9 10"},
      {Box(15), Set(20, Bytes(20, 0)), "Input Labels: OFF"},
      {Box(15), Set(19, ToBytes(camera), 2), "Input 3 Label: CAMERA 1"},
      {Box(26), Set(41, label), "Text Label: Enable, CAMERA 1"},
      {Box(30), Set(19, ToBytes(EncodeRegion({300, 50, 960, 540, 1, 0}))),
       "Region: 960x540 at 300, 50, Dot by Dot, in use"},
      {Box(30), Set(16, ToBytes(EncodeTakenDelays({300, 2199}, true))),
       "Sync Delays: 300 lines, 2199 clocks, final"},
      {Box(30), Answered(Get(16, 4), ToBytes(EncodeToldDelays({300, 2199}))),
       "Sync Delays: 300 lines, 2199 clocks"},
      {Box(30), Answered(Get(15, 4), {1, 10, 0, 15}),
       "Genlock Mode: External, output code 10, reference 1920x1080 60.00p"},
      {Box(46), Answered(Get(26, 4), {0, 10, 0, 15}), "Genlock Mode: Free-Run, output code 10"},
      {Box(30), Set(22, Bytes{1}), "Sync Mode: Open termination"},
      {Box(26), Set(17, ToBytes(EncodeImagePosition({300, 50}))), "Image Position: 300, 50"},
      {Box(26), Set(18, Bytes{80, 99}), "Image Size: 80% x 99%"},
      {Box(37), Set(16, Bytes{2, 3}), "TV Wall: 2x2, tile 3"},
      {Box(17), Set(10U, 4), "TV Wall: 4x4"},
      {Box(17), Set(11U, 15), "TV Wall: tile 15"},
      {Box(46), Set(11, Bytes{10, 20}), "Audio Volume: L/R -10, embedded -20"},
      {Box(25), Set(19, Bytes{10, 20}), "Audio Volume: L/R 10, embedded 20"},
      {Box(25, 2), Set(19, Bytes{77, 20}), "Audio Volume: L/R -28.5 dBV, embedded 20"},
      {Box(24), Set(44, Bytes{110, 0}), "Audio Output Level: +24.0 dBu"},
  });
}

TEST(Describe, NumbersThatMeanTwoThingsAreNamedTwice) {
  ExpectWords({
      {Box(51), Set(1, Bytes{1}), "Hardware Reset / Display Mode: Mode 1"},
      {Box(33), Get(1U), "Output Format? / Region Input Format?"},
      {Box(39), Get(4, 2), "Sync Input Format? / Region Input Format?"},
      {Box(20), Set(4U, 1), "Hardware Reset"},
      {Box(20), Get(4U), "Firmware?"},
      {Box(26), Set(10U, 3), "HDMI Output Color: YUV422 / Open Display Mode"},
      // What another page only looks at is not named where it is an option anyway.
      {Box(50), Answered(Get(3, 2), {2, 0}), "Input Source: VGA"},
      {Box(24), Answered(Get(11U), 3), "Aspect Ratio: UnderScan"},
  });
}

TEST(Describe, WhatNoRowKnowsIsUnknown) {
  ExpectWords({
      {Box(26), Call::Open(1), "unknown: open 1"},
      {Box(26), Set(3U, 4), "unknown: set word 0,3 = 4"},
      {Box(26), Set(200U, 1), "unknown: set word 0,200 = 1"},
      {Box(26), Set(4U + 256, 2), "unknown: set word 0,260 = 2"},
      {Box(26), Call::SetWord(1, 4, 2), "unknown: set word 1,4 = 2"},
      {Box(26), Set(5U, 1), "unknown: set word 0,5 = 1"},
      {Box(26), Get(1, 29), "unknown: get block 1,0,29"},
      {Box(26), Set(14, Bytes{1, 2}), "unknown: set block 14,0,2: 01 02"},
      {Box(15), Get(19, 60, 4), "unknown: get block 19,4,60"},
      {Box(26), Call::GetProcAmp(kBoxGroup, 6), "unknown: get proc amp 0,6"},
      {Box(26), Call::GetProcAmp(kBoxGroup, 255), "unknown: get proc amp 0,255"},
      {Box(26), Call::SetProcAmp(1, 2, 5), "unknown: set proc amp 1,2 = 5"},
      {Identity{}, Set(4U, 2), "unknown: set word 0,4 = 2"},
      {Box(26), Set(13, Bytes{}), "unknown: set block 13,0,0:"},
  });
}

TEST(Describe, PlacesAreCalledByKindAndNumber) {
  EXPECT_EQ(TextOf(Word(4)), "word 4");
  EXPECT_EQ(TextOf(Block(14)), "block 14");
  EXPECT_EQ(TextOf(Block(19, 60, 2)), "block 19.2");
  EXPECT_EQ(TextOf(ProcAmp(2)), "picture 2");
  EXPECT_EQ(TextOf(Address{}), "");
}

}  // namespace
}  // namespace panelora
