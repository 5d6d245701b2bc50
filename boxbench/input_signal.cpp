#include "boxbench/input_signal.h"

#include "base/text.h"

namespace panelora::boxbench {

namespace {

constexpr char kNoSignal[] = "no signal";
constexpr char kHowToType[] = "type a signal like 1920x1080 59.94p, or no signal";
constexpr std::uint32_t kMostPixels = 65535;
constexpr std::uint32_t kMostRate = 255;

constexpr const char* kUsualSignals[] = {
    "1920x1080 60.00p", "1920x1080 59.94p", "1920x1080 50.00p", "1920x1080 30.00p",
    "1920x1080 29.97p", "1920x1080 25.00p", "1920x1080 24.00p", "1920x1080 23.98p",
    "1920x1080 60.00i", "1920x1080 59.94i", "1920x1080 50.00i", "1280x720 60.00p",
    "1280x720 59.94p",  "1280x720 50.00p",  "720x576 50.00p",   "720x576 50.00i",
    "720x480 59.94p",   "720x480 59.94i",   "2048x1080 24.00p", "3840x2160 59.94p",
    "3840x2160 50.00p", "3840x2160 25.00p", kNoSignal,
};

}  // namespace

std::span<const char* const> UsualSignals() { return kUsualSignals; }

Typed<Signal> ParseSignal(std::string_view text) {
  const std::string tidied = Tidied(text);
  if (IsSameText(tidied, kNoSignal) || IsSameText(tidied, "none")) return {Signal{}};
  const std::size_t cross = tidied.find_first_of("xX");
  const std::size_t blank = tidied.find(' ');
  if (cross == std::string::npos || blank == std::string::npos || blank < cross) {
    return {{}, kHowToType};
  }
  const auto width = ParseWhole(tidied.substr(0, cross), kMostPixels);
  const auto height = ParseWhole(tidied.substr(cross + 1, blank - cross - 1), kMostPixels);
  std::string rate = tidied.substr(blank + 1);
  const char scan = rate.empty() ? ' ' : rate.back();
  const bool isInterlaced = scan == 'i' || scan == 'I';
  if (!width || !height || (!isInterlaced && scan != 'p' && scan != 'P')) return {{}, kHowToType};
  if (*width == 0 || *height == 0) return {{}, "a signal has width and height, or it is no signal"};
  rate.pop_back();
  const std::size_t point = rate.find('.');
  std::string hundredths = point == std::string::npos ? "0" : rate.substr(point + 1);
  if (hundredths.size() == 1) hundredths += '0';
  const auto whole = ParseWhole(rate.substr(0, point), kMostRate);
  const auto part = ParseWhole(hundredths, 99);
  if (!whole || !part) return {{}, "the rate goes from 0 to 255.99 Hz, like 59.94"};
  return {Signal{{static_cast<std::uint16_t>(*width), static_cast<std::uint16_t>(*height),
                  static_cast<std::uint8_t>(*whole), static_cast<std::uint8_t>(*part), 0},
                 isInterlaced}};
}

std::string TextOf(const Signal& signal) {
  const VideoFormat& format = signal.format;
  if (format.width == 0 || format.height == 0) return kNoSignal;
  return Format("%dx%d %d.%02d%s", format.width, format.height, format.rate, format.hundredths,
                signal.isInterlaced ? "i" : "p");
}

SignalResult SetSignal(simulator::BoxControl& control, const Signal& signal) {
  if (control.SetInput(signal.format, signal.isInterlaced)) {
    return {true, "The box receives " + TextOf(signal) + "."};
  }
  const auto look = control.LookAt();
  if (!look) return {false, "The box is busy with another program: try again."};
  return {false, Format("Type %d can't tell %s: choose another signal of the list.",
                        look->box.identity.boxType, TextOf(signal).c_str())};
}

}  // namespace panelora::boxbench
