// What is known of a call by its kind.
#include "device/call.h"

#include <gtest/gtest.h>

namespace panelora {
namespace {

TEST(Call, TellsByItsResultWhetherItWentWellButForTwoKinds) {
  using enum Call::Operation;
  for (const Call::Operation each :
       {kOpen, kGetBlock, kSetBlock, kGetWord, kSetWord, kGetProcAmp}) {
    EXPECT_TRUE(Call{.operation = each}.TellsResult());
  }
  for (const Call::Operation each : {kGetPicture, kSetProcAmp}) {
    EXPECT_FALSE(Call{.operation = each}.TellsResult());
  }
}

}  // namespace
}  // namespace panelora
