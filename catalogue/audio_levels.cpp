#include "catalogue/audio_levels.h"

#include "base/text.h"

namespace panelora {

namespace {

constexpr int kOutputZero = 62;
constexpr int kInputZero = 20;

}  // namespace

LevelTexts OutputLevelTexts(int raw) {
  const bool positive = raw >= kOutputZero;
  const int decibels = (positive ? raw - kOutputZero : kOutputZero - raw) / 2;
  const int half = raw % 2 != 0 ? 5 : 0;
  const char sign = positive ? '+' : '-';
  return {Format(" Analog L/R Audio Output Level ( %c %d.%d )", sign, decibels, half),
          Format(" %c%d.%d", sign, decibels, half)};
}

// The three captions differ by a blank: they are kept as they are.
LevelTexts InputLevelTexts(int raw) {
  const int half = raw % 2 != 0 ? 5 : 0;
  int even = raw;
  if (raw % 2 != 0) even += raw < kInputZero ? 1 : -1;
  const int steps = even / 2;
  if (raw > kInputZero) {
    return {Format("Analog L/R Audio Input Level ( - %d.%d )", steps - 10, half),
            Format("-%d.%d", steps - 10, half)};
  }
  const char* format = raw == kInputZero ? " Analog L/R Audio Input Level ( + %d.%d )"
                                         : "Analog L/R Audio Input Level ( + %d.%d )";
  return {Format(format, 10 - steps, half), Format("+%d.%d", 10 - steps, half)};
}

}  // namespace panelora
