// The program that is shipped has the pictures that its boxes show, in both sizes, and no others of
// the device fronts and of the wall.
#include <windows.h>

#include "tests/support/shown_pictures.h"

namespace panelora::testing {
namespace {

class ShippedPictures : public ShownPictures {
 protected:
  void SetUp() override {
    program = LoadLibraryExA(PANELORA_PROGRAM, nullptr, LOAD_LIBRARY_AS_DATAFILE);
    ASSERT_TRUE(program) << PANELORA_PROGRAM;
    for (const std::uint8_t type : AdmittedBoxTypes()) {
      for (int brand = 0; brand <= 3; ++brand) shown.merge(PicturesOf(Box(type, brand)));
    }
  }
  void TearDown() override { FreeLibrary(program); }

  bool Has(const std::string& picture, LPCSTR kind) {
    return FindResourceA(program, picture.c_str(), kind) != nullptr;
  }

  HMODULE program = nullptr;
  std::set<std::string> shown;
};

TEST_F(ShippedPictures, AreAllThatItsBoxesShow) {
  EXPECT_GT(shown.size(), 20U);
  for (const std::string& picture : shown) {
    EXPECT_TRUE(Has(picture, RT_BITMAP)) << picture;
    EXPECT_TRUE(Has(picture, "PNG2X")) << picture;
    EXPECT_TRUE(Has(picture, "PNG3X")) << picture;
  }
}

TEST_F(ShippedPictures, AreNoFrontsAndWallsOfOtherBoxes) {
  int others = 0;
  for (const int type : {13, 14, 24, 30, 50}) {
    for (const std::string& picture : PicturesOf(Box(type))) {
      if (shown.contains(picture)) continue;
      if (!picture.starts_with("WND") && !picture.starts_with("PANEL")) continue;
      EXPECT_FALSE(Has(picture, RT_BITMAP)) << picture;
      EXPECT_FALSE(Has(picture, "PNG2X")) << picture;
      EXPECT_FALSE(Has(picture, "PNG3X")) << picture;
      ++others;
    }
  }
  EXPECT_GT(others, 20);
}

}  // namespace
}  // namespace panelora::testing
