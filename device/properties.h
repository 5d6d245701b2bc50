// Every property of the family by name, those that no page uses yet among them. The same number
// means different things on different models, so a number can have several names, one a use. "rN"
// and "wN" are the lengths, in bytes, with which a block is read and written; multi-byte values say
// their byte order. The pages that a property belongs to stand at the end of its line; models are
// box type codes (byte 0 of the identity block).
#pragma once

#include <cstdint>

// One property a line.
// clang-format off

namespace panelora {

// The group of every word property and of every proc-amp control.
constexpr std::uint32_t kBoxGroup = 0;

// The sub-number of every block property except block::kInputLabel.
constexpr std::uint8_t kNoSub = 0;

// Block properties: (property, sub-number, length).
namespace block {

// Identity and status
constexpr std::uint8_t kIdentity = 254;                  // r20: boxType, brandCode, subModel, 2 DIP flags; main window
constexpr std::uint8_t kStatus = 0;                      // r30: status block; Information
constexpr std::uint8_t kInputFormat = 1;                 // r30: width, height (big-endian pixels), Hz, 1/100 Hz, scan (0 = p); Information (26)
constexpr std::uint8_t kInputFormat2 = 2;                // r30: format of input 2; Information
constexpr std::uint8_t kInputFormatLittle = 3;           // r30: as kInputFormat, little-endian, scan 1 = p, 2 = s; Information
constexpr std::uint8_t kInformationFirst = 4;            // r2: first of the properties 4 to 8 that Information reads on other models
constexpr std::uint8_t kInformation10 = 10;              // r2: Information, other models
constexpr std::uint8_t kInformation12 = 12;              // r30: Information, other models
constexpr std::uint8_t kInformation13 = 13;              // r20: Information, other models
constexpr std::uint8_t kInformation15 = 15;              // r30: Information, other models
constexpr std::uint8_t kInformation18 = 18;              // r30: Information, other models
constexpr std::uint8_t kInformation20 = 20;              // r2: Information, other models
constexpr std::uint8_t kInformation25 = 25;              // r30: Information, other models
constexpr std::uint8_t kInformation26 = 26;              // r3: Information, other models
constexpr std::uint8_t kInformation38 = 38;              // r2: Information, other models
constexpr std::uint8_t kInformation42 = 42;              // r2: Information, other models
constexpr std::uint8_t kInformation44 = 44;              // r2: Information, other models

// The box's own menu
constexpr std::uint8_t kBoxMenu = 1;                     // w1: which function the box shows; Genlock, Image Adjust, ROI, Text Labels, Proc Amp; 1 = reset; Setting

// Multi-view
constexpr std::uint8_t kMultiView = 1;                   // r20: display mode 1-9, nine-modes or PIP flag, input-labels flag; Device picture, Display Mode, PIP, Video menu
constexpr std::uint8_t kDisplayMode = 1;                 // w1: display mode; Display Mode (51)
constexpr std::uint8_t kChannelCodes = 2;                // r20: combination code of modes 1-10; w1: code; Display Mode
constexpr std::uint8_t kPipOption = 5;                   // r20: byte 0; PIP (51)
constexpr std::uint8_t kPipOutputFormat = 6;             // r20: byte 0; PIP (51)
constexpr std::uint8_t kPipWindow1 = 13;                 // r8, w8: CH1 h/v position, h/v size, 16-bit pixels, read little-endian; PIP
constexpr std::uint8_t kPipWindow2 = 14;                 // r8, w8: CH2, as kPipWindow1, big-endian; PIP
constexpr std::uint8_t kInputLabel = 19;                 // sub 0-3, r60, w20: label of input sub + 1, blank-padded; Display Mode
constexpr std::uint8_t kInputLabelsState = 20;           // r2, w20: 0 off, 1 on, 2 default labels; Display Mode
constexpr std::uint8_t kTextLabel = 41;                  // r60, w21: state (0, 1, 2), 20 characters; Text Labels
constexpr std::uint8_t kWall = 16;                       // r20, w2: wall size 1-4, tile 0-15; TV Wall (37-40, 46-49)
constexpr std::uint8_t kWallInput = 8;                   // r20, w2: as kWall; TV Wall (14, 36)

// Genlock: three groups of models
constexpr std::uint8_t kGenlockReference1 = 25;          // r30: reference format, little-endian; Genlock (39, 40, 46-50)
constexpr std::uint8_t kGenlockReference2 = 21;          // r30: the same; Genlock (20, 33)
constexpr std::uint8_t kGenlockReference3 = 18;          // r30: the same; Genlock (30, 43)
constexpr std::uint8_t kGenlockMode1 = 26;               // r4: mode, output code, -, further code; w1: mode; Genlock (39, 40, 46-50)
constexpr std::uint8_t kGenlockMode2 = 19;               // the same; Genlock (20, 33)
constexpr std::uint8_t kGenlockMode3 = 15;               // the same; Genlock (30, 43)
constexpr std::uint8_t kGenlockDelays1 = 27;             // r4: v lines, h clocks, little-endian; w5: big-endian, final flag; Genlock (39, 40, 46-50)
constexpr std::uint8_t kGenlockDelays2 = 20;             // the same; Genlock (20, 33)
constexpr std::uint8_t kGenlockDelays3 = 16;             // the same; Genlock (30, 43)
constexpr std::uint8_t kGenlockLocked = 38;              // r2: byte 0 = 1 the genlock mode can't be changed; Genlock (39, 40, 46-50)
constexpr std::uint8_t kGenlockInputCode = 4;            // r2: byte 0 reference format code; Genlock (39, 40, 46-50)
constexpr std::uint8_t kSyncMode1 = 46;                  // r2: byte 0 = 0 75 ohms, 1 open; Genlock (39, 40, 46-50)
constexpr std::uint8_t kSyncMode3 = 22;                  // r2, w1: the same; Genlock (30, 43)

// Image adjustment: position = h, v 16-bit big-endian steps; size = h, v percent
constexpr std::uint8_t kImagePosition26 = 17;            // r4, w4; Image Adjust (26)
constexpr std::uint8_t kImageSize26 = 18;                // r2, w2; Image Adjust (26)
constexpr std::uint8_t kImagePosition50 = 31;            // r4, w4; Image Adjust (50)
constexpr std::uint8_t kImageSize50 = 24;                // r2, w2; Image Adjust (50; 24 and 34 of brand 2)
constexpr std::uint8_t kImagePosition23 = 13;            // r4, w4; Image Adjust (23, 42)
constexpr std::uint8_t kImageSize23 = 12;                // r2, w2; Image Adjust (23, 42)
constexpr std::uint8_t kImagePosition25 = 18;            // r4, w4; Image Adjust (25, 29)
constexpr std::uint8_t kImageSize25 = 9;                 // r2, w2; Image Adjust (25, 29)
constexpr std::uint8_t kImageSize24 = 14;                // r2, w2; Image Adjust (24, 34)
constexpr std::uint8_t kImageInput50 = 3;                // r2: byte 0 input source; Image Adjust (50)
constexpr std::uint8_t kImageAspect = 15;                // r2: byte 0 aspect ratio; Image Adjust (50; 24 and 34 of brand 2)

// Region of interest: x, y, width, height 16-bit big-endian pixels, switch (1 on, 2 off), mode
constexpr std::uint8_t kRegion18 = 18;                   // r30, w10; ROI (25, 29, 32, 39, 40, 46-49; 24 and 34 with DIP or of brand 2)
constexpr std::uint8_t kRegion14 = 14;                   // r30, w10; ROI (14, 23, 35, 36, 42)
constexpr std::uint8_t kRegion15 = 15;                   // r30, w10; ROI (24, 34)
constexpr std::uint8_t kRegion19 = 19;                   // r30, w10; ROI (30, 43)
constexpr std::uint8_t kRegionInput4 = 4;                // r2: byte 0 input format code; ROI (39, 40, 46-49; 24 and 34 with DIP or of brand 2)

// Proc amp
constexpr std::uint8_t kRgb = 14;                        // r3, w3: RGB gain 0-255, offset 0-255, offset 2 0-64; Proc Amp, main window (26)
constexpr std::uint8_t kProcAmpExtra = 16;               // w2: Proc Amp, other models

// Video settings: one byte each; 26 uses word items instead
constexpr std::uint8_t kVideoPassThroughState = 2;       // r2: byte 0; Video settings
constexpr std::uint8_t kVideoInputSource = 3;            // r2, w1: input source; Video settings
constexpr std::uint8_t kVideoOutputFormat = 4;           // r2, w1: output format code; Video settings
constexpr std::uint8_t kVideoOutputSource = 5;           // r2, w1: output source; Video settings
constexpr std::uint8_t kVideoOutputMode = 6;             // r2, w1: output mode; Video settings
constexpr std::uint8_t kVideoOutputColour = 7;           // r2, w1: output colour; Video settings
constexpr std::uint8_t kVideoPassThrough = 8;            // r2, w1: 1 = pass-through requested; Video settings
constexpr std::uint8_t kVideoSdiEq = 9;                  // w1: SDI equalisation; Video settings
constexpr std::uint8_t kVideoGpiMode = 11;               // w1: GPI mode; Video settings
constexpr std::uint8_t kVideoAutoPhase = 13;             // w1: 1 = adjust the sampling phase now; Video settings
constexpr std::uint8_t kVideoAspectRatio = 15;           // r2, w1: aspect ratio; Video settings
constexpr std::uint8_t kVideoFreeze = 19;                // w1: 1 = freeze or release the picture; Video settings
constexpr std::uint8_t kVideoOutputLevel = 20;           // r2, w1: output level; Video settings
constexpr std::uint8_t kVideoGenlockMode = 26;           // r3: genlock mode; Video settings
constexpr std::uint8_t kVideoIreLevel = 18;              // r2: IRE level; Video settings
constexpr std::uint8_t kVideoErrorLed = 22;              // r2, w1: CRC error lamp; Video settings
constexpr std::uint8_t kVideoEdgeEnhance = 25;           // r2, w1: edge enhancement; Video settings
constexpr std::uint8_t kVideoColourUpFilter = 29;        // r2, w1, w2: colour up-sampling filter; Video settings
constexpr std::uint8_t kVideoSdiType = 30;               // r2, w1: SDI standard; Video settings
constexpr std::uint8_t kVideoHdmiRange = 33;             // r2, w1: second output level; Video settings
constexpr std::uint8_t kVideoHdmiLocked = 38;            // r2: byte 0; Video settings
constexpr std::uint8_t kVideoSdiColour = 40;             // r2, r30, w1: SDI output colour; Video settings
constexpr std::uint8_t kVideoHdmiMode = 42;              // r2, w1: HDMI or DVI; Video settings
constexpr std::uint8_t kVideoMirror = 45;                // r2, w1: image mirror; Video settings
constexpr std::uint8_t kVideoReclock = 49;               // r2, w1: SDI re-clock; Video settings
constexpr std::uint8_t kVideoSignalReport = 50;          // r2, r30, w1: signal report; Video settings

// Audio: other models; 26 uses word items instead
constexpr std::uint8_t kAudioVolumes = 11;               // r2, w2: volume, second volume, attenuation 0-100; Audio (46-49, 52)
constexpr std::uint8_t kAudioInputVolumes = 19;          // r3, w2: volume, second volume; Audio (25, 29)
constexpr std::uint8_t kAudioOutputLevel = 44;           // r2, w2: raw level 0-112, half decibels around 62, then 0; Audio (24, 34)
constexpr std::uint8_t kAudioInput = 3;                  // r2, w1: input code; Audio
constexpr std::uint8_t kAudioSource = 4;                 // w1: audio source; Audio
constexpr std::uint8_t kAudioMute = 6;                   // r2, w1: mute; Audio
constexpr std::uint8_t kAudioOption7 = 7;                // r2, w1: Audio
constexpr std::uint8_t kAudioOption9 = 9;                // r2, w1: Audio
constexpr std::uint8_t kAudioOption10 = 10;              // r2, w1: Audio
constexpr std::uint8_t kAudioOption32 = 32;              // r2, w1: Audio
constexpr std::uint8_t kAudioOption38 = 38;              // r2: Audio

// Unit settings
constexpr std::uint8_t kNoSignal = 22;                   // r2, w1: 0 black, 1 blue screen, 2 output disabled; Setting
constexpr std::uint8_t kDip8Mode = 23;                   // r2, w2: DIP switch 8 mode 0-6, extra byte; Setting (26)
constexpr std::uint8_t kSetting4 = 4;                    // w1: Setting, other models
constexpr std::uint8_t kSetting10 = 10;                  // w1: hardware reset of some models; Setting
constexpr std::uint8_t kSetting11 = 11;                  // r2, w1: Setting, other models
constexpr std::uint8_t kSetting15 = 15;                  // r2, w1: Setting, other models
constexpr std::uint8_t kSetting17 = 17;                  // r2, w1: Setting, other models
constexpr std::uint8_t kSetting21 = 21;                  // r2, w1: Setting, other models

}  // namespace block

// Word properties: (group 0, item), one 32-bit value of which the low byte counts.
namespace word {

// Status
constexpr std::uint32_t kInformation0 = 0;               // r: Information, other models
constexpr std::uint32_t kFirmware = 5;                   // r, two words: low bytes minor, major; Information (26)
constexpr std::uint32_t kFirmwareOther = 8;              // r, two words: the same; Information, other models
constexpr std::uint32_t kFormatCode = 3;                 // r, two words: input format code, 1 = rate / 1.001; Information, other models
constexpr std::uint32_t kInformation18 = 18;             // r: Information, other models
constexpr std::uint32_t kInformation20 = 20;             // r: Information, other models; rw Setting
constexpr std::uint32_t kInformation24 = 24;             // r: Audio, Information, Video settings of other models

// Commands of model 26: written values are the actions of `command`
constexpr std::uint32_t kCommand = 3;                    // w: Proc Amp, Setting, Image Adjust (26); Setting, other models

// Video settings (26)
constexpr std::uint32_t kInputSource = 4;                // rw: 2 VGA, 1 HDMI, 4 SDI; also read by Audio and Image Adjust
constexpr std::uint32_t kOutputFormat = 2;               // rw: format code 1-22
constexpr std::uint32_t kAspectRatio = 7;                // rw: 0-6; also read by Image Adjust
constexpr std::uint32_t kHdmiEq = 12;                    // rw: 0 middle, 1 high, 2 low
constexpr std::uint32_t kOutputColour = 10;              // rw: 0 RGB444, 1 YUV444, 3 YUV422
constexpr std::uint32_t kOutputLevel = 15;               // rw: 0 limited range, 1 full range
constexpr std::uint32_t kEdgeEnhance = 19;               // rw: 0-3

// Video settings of other models
constexpr std::uint32_t kOutputFormatReport = 1;         // r: output format code after a change; Video settings
constexpr std::uint32_t kPassThroughReport = 17;         // r: 1 = the box passes its input through
constexpr std::uint32_t kFreeze = 19;                    // w: 11 = freeze or release (24, 34 without DIP switches)
constexpr std::uint32_t kFreezeSecond = 23;              // w: 11 = freeze or release (25, 29)

// Audio (26)
constexpr std::uint32_t kAudioMute = 11;                 // rw: 0 off, 1 on
constexpr std::uint32_t kAudioSource = 6;                // rw: device code 0-3
constexpr std::uint32_t kAudioStandard = 16;             // rw: 0 SMPTE, 1 EBU

// Unit settings (26)
constexpr std::uint32_t kOsd = 21;                       // rw: 0 disable, 1 enable

// Multi-view and sync of other models
constexpr std::uint32_t kDisplayMode = 1;                // w: display mode 1-9; Display Mode (13, 15)
constexpr std::uint32_t kChannelCode = 2;                // w: combination code 1-12; Display Mode (13, 15)
constexpr std::uint32_t kBoxMenu10 = 10;                 // w: which function the box shows; Display Mode, PIP, Proc Amp
constexpr std::uint32_t kBoxMenu4 = 4;                   // w: the same; Genlock, Image Adjust, Proc Amp
constexpr std::uint32_t kBoxMenu5 = 5;                   // w: the same; Image Adjust, Proc Amp
constexpr std::uint32_t kBoxMenu7 = 7;                   // w: the same; Image Adjust, Proc Amp
constexpr std::uint32_t kPipOption = 5;                  // r: PIP (13, 15)
constexpr std::uint32_t kPipOutputFormat = 6;            // r: PIP (13, 15)
constexpr std::uint32_t kImageAspect = 11;               // r: 3 = sizes can be set; Image Adjust (24, 34)
constexpr std::uint32_t kRegionInput1 = 1;               // r: input format code; ROI (14, 25, 29, 33, 36)
constexpr std::uint32_t kRegionInput2 = 2;               // r: input format code; ROI (24, 30, 34, 43)
constexpr std::uint32_t kRegionInput4 = 4;               // r: input format code; ROI (32, 35)
constexpr std::uint32_t kRegionInput5 = 5;               // r: input format code; ROI (23, 42)
constexpr std::uint32_t kWallSize = 8;                   // rw: wall size 1-4; TV Wall (18, 20, 30, 32, 33, 43)
constexpr std::uint32_t kWallTile = 9;                   // rw: tile 0-15; TV Wall (18, 20, 30, 32, 33, 43)
constexpr std::uint32_t kWallSizeInput = 10;             // rw: wall size; TV Wall (17, 35)
constexpr std::uint32_t kWallTileInput = 11;             // rw: tile; TV Wall (17, 35)

// Unit settings of other models: options and resets by model
constexpr std::uint32_t kSetting5 = 5;                   // rw: Setting; the same for the items below
constexpr std::uint32_t kSetting6 = 6;
constexpr std::uint32_t kSetting8 = 8;
constexpr std::uint32_t kSetting9 = 9;
constexpr std::uint32_t kSetting10 = 10;
constexpr std::uint32_t kSetting11 = 11;
constexpr std::uint32_t kSetting12 = 12;
constexpr std::uint32_t kSetting13 = 13;
constexpr std::uint32_t kSetting14 = 14;
constexpr std::uint32_t kSetting15 = 15;
constexpr std::uint32_t kSetting16 = 16;
constexpr std::uint32_t kSetting17 = 17;
constexpr std::uint32_t kSetting20 = 20;
constexpr std::uint32_t kSetting21 = 21;

}  // namespace word

// What word::kCommand makes a box of type 26 do.
namespace command {
constexpr std::uint8_t kProcAmpDefaults = 0;            // brightness, contrast, hue, saturation
constexpr std::uint8_t kHardwareReset = 1;              // the box vanishes for some seconds
constexpr std::uint8_t kRgbDefaults = 2;                // RGB gain and both offsets
constexpr std::uint8_t kImageRestore = 3;               // image position and size
}  // namespace command

// Proc-amp controls of Get/SetVideoProcAmp.
namespace proc_amp {
constexpr std::uint32_t kBrightness = 2;                 // 0-255
constexpr std::uint32_t kContrast = 3;                   // 0-255
constexpr std::uint32_t kHue = 4;                        // 0-255
constexpr std::uint32_t kSaturation = 5;                 // 0-255
constexpr std::uint32_t kCommit = 255;                   // w: 1 store, 0 preview; other models
}  // namespace proc_amp

}  // namespace panelora
