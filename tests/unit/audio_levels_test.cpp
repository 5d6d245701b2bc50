// The level texts for every raw value, against decibels counted in another way.
#include "catalogue/audio_levels.h"

#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

namespace panelora {
namespace {

// "12.5" from the size of a number of decibels, told by the stream and not by integer arithmetic.
std::string Magnitude(double decibels) {
  std::ostringstream text;
  text.setf(std::ios::fixed);
  text.precision(1);
  text << std::fabs(decibels);
  return text.str();
}

TEST(AudioLevels, OutputIsHalfDecibelsAround62) {
  for (int raw = 0; raw <= 112; ++raw) {
    const double decibels = (raw - 62) * 0.5;
    const std::string sign = decibels < 0 ? "-" : "+";
    const LevelTexts texts = OutputLevelTexts(raw);
    EXPECT_EQ(texts.caption,
              " Analog L/R Audio Output Level ( " + sign + " " + Magnitude(decibels) + " )")
        << raw;
    EXPECT_EQ(texts.shortLabel, " " + sign + Magnitude(decibels)) << raw;
  }
}

TEST(AudioLevels, InputIsHalfDecibelsAround20) {
  for (int raw = 0; raw <= 80; ++raw) {
    const double decibels = (20 - raw) * 0.5;
    const std::string sign = decibels < 0 ? "-" : "+";
    const LevelTexts texts = InputLevelTexts(raw);
    const std::string start = raw == 20 ? " " : "";  // the blank is deliberate
    EXPECT_EQ(texts.caption,
              start + "Analog L/R Audio Input Level ( " + sign + " " + Magnitude(decibels) + " )")
        << raw;
    EXPECT_EQ(texts.shortLabel, sign + Magnitude(decibels)) << raw;
  }
}

TEST(AudioLevels, KnownValues) {
  EXPECT_EQ(OutputLevelTexts(62).shortLabel, " +0.0");
  EXPECT_EQ(OutputLevelTexts(63).shortLabel, " +0.5");
  EXPECT_EQ(OutputLevelTexts(61).shortLabel, " -0.5");
  EXPECT_EQ(OutputLevelTexts(0).shortLabel, " -31.0");
  EXPECT_EQ(OutputLevelTexts(112).shortLabel, " +25.0");
  EXPECT_EQ(InputLevelTexts(0).shortLabel, "+10.0");
  EXPECT_EQ(InputLevelTexts(1).shortLabel, "+9.5");
  EXPECT_EQ(InputLevelTexts(21).shortLabel, "-0.5");
  EXPECT_EQ(InputLevelTexts(77).shortLabel, "-28.5");
  EXPECT_EQ(InputLevelTexts(80).shortLabel, "-30.0");
}

}  // namespace
}  // namespace panelora
