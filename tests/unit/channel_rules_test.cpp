// The channel rules and tables against the model of tests/support/channel_model.h, for all numbers
// and not only those that the buttons can reach.
#include "pages/multiview/channel_rules.h"

#include <gtest/gtest.h>

#include "tests/support/channel_model.h"

namespace panelora {
namespace {

using testing::ChannelModel;

struct Step {
  void (*rule)(Channels&, std::uint8_t, std::uint8_t);
  void (ChannelModel::*press)();
  const char* name;
};
constexpr Step kSteps[] = {{StepMain, &ChannelModel::PressMain, "main"},
                           {StepSub, &ChannelModel::PressSub, "sub"},
                           {StepSub2, &ChannelModel::PressSub2, "sub2"}};

std::uint8_t Byte(int value) { return static_cast<std::uint8_t>(value); }

// The model's names are taken from its own tables.
void ExpectSameAsModel(const ChannelModel& start, const Step& step) {
  ChannelModel model = start;
  (model.*step.press)();
  Channels channels{Byte(start.main), Byte(start.sub), Byte(start.sub2)};
  step.rule(channels, Byte(start.mode), Byte(start.brand));
  ASSERT_EQ(channels, (Channels{Byte(model.main), Byte(model.sub), Byte(model.sub2)}));
  const auto found =
      FindByChannels(Byte(start.brand), Byte(start.boxType), Byte(start.mode), channels);
  const int code = found ? found->code : start.code;
  ASSERT_EQ(code, model.code);
  if (!found) return;
  ASSERT_EQ(ChannelName(found->shown.main), model.names[0]);
  ASSERT_EQ(ChannelName(found->shown.sub), model.names[1]);
  ASSERT_EQ(ChannelName(found->shown.sub2), model.names[2]);
}

TEST(ChannelRules, EveryStepOfEveryNumberIsTheModels) {
  ChannelModel start;
  for (const int boxType : {15, 13, 51}) {
    for (const int brand : {0, 2, 8, 12}) {
      start.boxType = boxType;
      start.brand = brand;
      start.code = 99;
      for (start.mode = 1; start.mode <= 9; ++start.mode) {
        for (int numbers = 0; numbers < 5 * 6 * 6; ++numbers) {
          start.main = numbers % 5;
          start.sub = numbers / 5 % 6;
          start.sub2 = numbers / 30;
          for (const Step& step : kSteps) {
            ExpectSameAsModel(start, step);
            ASSERT_FALSE(::testing::Test::HasFatalFailure())
                << step.name << " type " << boxType << " brand " << brand << " mode " << start.mode
                << " channels " << start.main << start.sub << start.sub2;
          }
        }
      }
    }
  }
}

TEST(ChannelRules, EveryCodeHasTheModelsNumbersAndNames) {
  ChannelModel model;
  for (const int boxType : {15, 13, 51}) {
    for (const int brand : {0, 2, 8, 12}) {
      model.boxType = boxType;
      model.brand = brand;
      for (int mode = 1; mode <= 10; ++mode) {
        for (int code = 0; code <= 13; ++code) {
          model.main = model.sub = model.sub2 = 77;  // kept when there is no row
          model.codeOfMode[mode] = code;
          model.Take(mode);
          const auto found = FindByCode(Byte(brand), Byte(boxType), Byte(mode), Byte(code));
          ASSERT_EQ(found.has_value(), model.main != 77) << boxType << " " << mode << " " << code;
          if (!found) continue;
          EXPECT_EQ(found->code, code);
          EXPECT_EQ(found->channels,
                    (Channels{Byte(model.main), Byte(model.sub), Byte(model.sub2)}));
          EXPECT_EQ(ChannelName(found->shown.main), model.names[0]);
          EXPECT_EQ(ChannelName(found->shown.sub), model.names[1]);
          EXPECT_EQ(ChannelName(found->shown.sub2), model.names[2]);
        }
      }
    }
  }
}

TEST(ChannelRules, NumbersOfType51InMode4DisagreeWithItsNames) {
  const auto row = FindByCode(0, 51, 4, 4);
  ASSERT_TRUE(row);
  EXPECT_EQ(row->channels, (Channels{2, 3, 0}));
  EXPECT_STREQ(ChannelName(row->shown.main), "Channel 2");
  EXPECT_STREQ(ChannelName(row->shown.sub), "Channel 1");
}

TEST(ChannelRules, Brand12OfType15HasThreeChannelsInModes4And5AndTheGeneralRowsBehind) {
  EXPECT_EQ(FindByCode(12, 15, 4, 8)->channels, (Channels{3, 4, 1}));
  EXPECT_EQ(FindByCode(12, 15, 5, 8)->channels, (Channels{3, 1, 4}));
  EXPECT_EQ(FindByCode(0, 15, 4, 8)->channels, (Channels{3, 2, 0}));
  EXPECT_EQ(FindByChannels(12, 15, 4, {3, 2, 0})->code, 8);
  EXPECT_EQ(FindByCode(12, 13, 4, 8)->channels, (Channels{3, 2, 0}));
}

// Whatever numbers pile up where no rule covers them: a step of the main picture leads to an input,
// and what is found for the numbers is a row that has them, or nothing.
TEST(ChannelRules, StepsOfAnyNumberLeadToARowOrToNone) {
  int rows = 0;
  for (const int brand : {0, 12}) {
    for (int mode = 0; mode <= 255; ++mode) {
      for (const int number : {0, 1, 3, 4, 5, 127, 254, 255}) {
        for (const Step& step : kSteps) {
          Channels channels{Byte(number), Byte(number), Byte(255 - number)};
          step.rule(channels, Byte(mode), Byte(brand));
          if (step.rule == StepMain) {
            ASSERT_GE(channels.main, 1) << mode << " " << number;
            ASSERT_LE(channels.main, 4) << mode << " " << number;
          }
          const auto found = FindByChannels(Byte(brand), 15, Byte(mode), channels);
          if (!found) continue;
          ++rows;
          ASSERT_EQ(found->channels, channels);
          ASSERT_GE(found->code, 1);
          ASSERT_LE(found->code, 12);
          ASSERT_LE(mode, 9);
        }
      }
    }
  }
  EXPECT_GT(rows, 0);
}

}  // namespace
}  // namespace panelora
