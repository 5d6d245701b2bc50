// Which picture each model shows, told once more in plain conditions and compared for every
// identity.
#include "app/device_picture.h"

#include <gtest/gtest.h>

#include <string>

namespace panelora {
namespace {

struct Expected {
  std::string picture = "NULL_BOX";
  NavigationChange change = NavigationChange::kNone;
  bool refresh = false;
  int newSubModel = -1;
};

std::string Panel(int number) {
  return "PANEL_BMP_" + std::string(number < 10 ? "0" : "") + std::to_string(number);
}

Expected ExpectedOf(int type, int brand, int sub, int inputDip, int outputDip, bool pip) {
  const auto picture = [](int number, NavigationChange change = NavigationChange::kNone,
                          bool refresh = false) {
    return Expected{Panel(number), change, refresh};
  };
  const auto tail = NavigationChange::kNoProcAmp;
  switch (type) {
    case 5:
      return picture(brand == 2 ? 34 : 33, NavigationChange::kNoProcAmpNoAudio);
    case 6:
      return picture(brand == 2 ? (sub == 2 ? 28 : 27) : brand == 1 ? 39 : 45, tail);
    case 7: {
      Expected expected = picture(brand == 2 ? (sub == 2 ? 31 : 30) : 29, tail);
      if (brand == 2 && sub != 2) expected.newSubModel = 1;
      return expected;
    }
    case 13:
      return picture(brand != 2 ? 46 : pip ? 12 : 11);
    case 14:
      return picture(brand == 2 ? 40 : brand == 1 ? 39 : 43);
    case 15:
      return picture(brand != 2 ? 13 : pip ? 15 : 14);
    case 17:
    case 35:
      return picture(22);
    case 18:
      return picture(brand == 2 ? 21 : brand == 1 ? 19 : 18);
    case 19:
      return picture(23, NavigationChange::kNoAudio, true);
    case 20:
      return picture(brand == 2 ? 26 : brand == 1 ? 39 : 24);
    case 21:
      return picture(44);
    case 23:
    case 42:
      return picture(35);
    case 24:
    case 34:
      if (brand == 1) return picture(inputDip == 1 ? 5 : 4);
      if (brand == 2) return picture(3);
      return picture(inputDip == 1 ? 2 : 1);
    case 25:
    case 29:
      if (brand == 1) return picture(outputDip == 1 ? 10 : 9);
      if (brand == 2) return picture(8);
      return picture(outputDip == 1 ? 7 : 6);
    case 26:
      return picture(17, NavigationChange::kNone, true);
    case 27:
      return picture(32, NavigationChange::kNoProcAmpNoAudio, true);
    case 30:
    case 43:
      return picture(brand == 2 ? (sub == 1 ? 38 : 37) : brand == 1 ? 38 : 36);
    case 32:
      return picture(brand == 2 ? 20 : brand == 1 ? 19 : 18);
    case 33:
      return picture(brand == 2 ? 25 : brand == 1 ? 39 : 24);
    case 36:
    case 44:
    case 45:
    case 46:
    case 47:
    case 48:
    case 49:
      return picture(43);
    case 37:
    case 38:
      return picture(brand != 0 ? 41 : 43);
    case 39:
    case 40:
      return picture(brand != 0 ? 42 : 43);
    case 50:
      return picture(16, NavigationChange::kNone, true);
    case 51:
      return picture(46);
    case 52:
    case 54:
      return picture(45, tail);
    case 53:
    case 55:
      return picture(29, tail);
    default:
      return {};
  }
}

TEST(DevicePicture, FollowsTheIdentityOfEveryModel) {
  for (int type = 0; type <= 255; ++type) {
    for (const int brand : {0, 1, 2, 3, 4, 8, 9, 255}) {
      for (const int sub : {0, 1, 2, 3}) {
        for (int flags = 0; flags < 8; ++flags) {
          const int inputDip = flags & 1;
          const int outputDip = (flags >> 1) & 1;
          const bool pip = (flags & 4) != 0;
          const auto byte = [](int value) { return static_cast<std::uint8_t>(value); };
          const Identity identity = {byte(type), byte(brand), byte(sub), byte(inputDip),
                                     byte(outputDip)};
          const Expected expected = ExpectedOf(type, brand, sub, inputDip, outputDip, pip);
          const PictureChoice choice = ChoosePicture(identity, pip);
          const std::string what = std::to_string(type) + " brand " + std::to_string(brand) +
                                   " sub " + std::to_string(sub) + " flags " +
                                   std::to_string(flags);
          ASSERT_EQ(choice.picture, expected.picture) << what;
          ASSERT_EQ(choice.change, expected.change) << what;
          ASSERT_EQ(choice.showsRefresh, expected.refresh) << what;
          ASSERT_EQ(choice.newSubModel ? *choice.newSubModel : -1, expected.newSubModel) << what;
        }
      }
    }
  }
}

TEST(DevicePicture, OnlyTwoModelsOfBrand2AskForTheMultiViewBlock) {
  for (int type = 0; type <= 255; ++type) {
    for (const int brand : {0, 1, 2, 3}) {
      const Identity identity = {static_cast<std::uint8_t>(type), static_cast<std::uint8_t>(brand),
                                 0, 0, 0};
      EXPECT_EQ(PictureNeedsMultiViewBlock(identity), (type == 13 || type == 15) && brand == 2);
    }
  }
}

TEST(DevicePicture, DipFlagsCountOnlyWhenTheyAreOne) {
  EXPECT_STREQ(ChoosePicture({24, 0, 0, 2, 0}, false).picture, "PANEL_BMP_01");
  EXPECT_STREQ(ChoosePicture({25, 0, 0, 0, 255}, false).picture, "PANEL_BMP_06");
}

}  // namespace
}  // namespace panelora
