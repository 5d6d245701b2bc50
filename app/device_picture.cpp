#include "app/device_picture.h"

namespace panelora {

namespace {

// A condition on one field of the identity.
struct Condition {
  enum class Test { kAlways, kIs, kIsNot } test = Test::kAlways;
  std::uint8_t Identity::*field = nullptr;
  std::uint8_t value = 0;

  bool Holds(const Identity& identity) const {
    if (test == Test::kAlways) return true;
    return (identity.*field == value) == (test == Test::kIs);
  }
};

constexpr Condition kAlways{};
constexpr Condition Brand(std::uint8_t code) {
  return {Condition::Test::kIs, &Identity::brandCode, code};
}
constexpr Condition NotBrand(std::uint8_t code) {
  return {Condition::Test::kIsNot, &Identity::brandCode, code};
}
constexpr Condition SubModel(std::uint8_t model) {
  return {Condition::Test::kIs, &Identity::subModel, model};
}
constexpr Condition kInputDip{Condition::Test::kIs, &Identity::inputDipFlag, 1};
constexpr Condition kOutputDip{Condition::Test::kIs, &Identity::outputDipFlag, 1};

using enum NavigationChange;

// First row whose box type and both conditions hold.
struct PictureRow {
  std::uint8_t boxType;
  Condition first;
  Condition second;
  const char* picture;
  NavigationChange change = kNone;
  bool showsRefresh = false;
  const char* markedPicture = nullptr;  // instead, when picture-in-picture is fitted
  std::uint8_t newSubModel = 0;         // 0 = the sub-model stays
};

constexpr PictureRow kPictures[] = {
    {5, Brand(2), kAlways, "PANEL_BMP_34", kNoProcAmpNoAudio},
    {5, kAlways, kAlways, "PANEL_BMP_33", kNoProcAmpNoAudio},
    {6, Brand(2), SubModel(2), "PANEL_BMP_28", kNoProcAmp},
    {6, Brand(2), kAlways, "PANEL_BMP_27", kNoProcAmp},
    {6, Brand(1), kAlways, "PANEL_BMP_39", kNoProcAmp},
    {6, kAlways, kAlways, "PANEL_BMP_45", kNoProcAmp},
    {7, Brand(2), SubModel(2), "PANEL_BMP_31", kNoProcAmp},
    {7, Brand(2), kAlways, "PANEL_BMP_30", kNoProcAmp, false, nullptr, 1},
    {7, kAlways, kAlways, "PANEL_BMP_29", kNoProcAmp},
    {13, NotBrand(2), kAlways, "PANEL_BMP_46"},
    {13, kAlways, kAlways, "PANEL_BMP_11", kNone, false, "PANEL_BMP_12"},
    {14, Brand(2), kAlways, "PANEL_BMP_40"},
    {14, Brand(1), kAlways, "PANEL_BMP_39"},
    {14, kAlways, kAlways, "PANEL_BMP_43"},
    {15, NotBrand(2), kAlways, "PANEL_BMP_13"},
    {15, kAlways, kAlways, "PANEL_BMP_14", kNone, false, "PANEL_BMP_15"},
    {17, kAlways, kAlways, "PANEL_BMP_22"},
    {35, kAlways, kAlways, "PANEL_BMP_22"},
    {18, Brand(2), kAlways, "PANEL_BMP_21"},
    {18, Brand(1), kAlways, "PANEL_BMP_19"},
    {18, kAlways, kAlways, "PANEL_BMP_18"},
    {19, kAlways, kAlways, "PANEL_BMP_23", kNoAudio, true},
    {20, Brand(2), kAlways, "PANEL_BMP_26"},
    {20, Brand(1), kAlways, "PANEL_BMP_39"},
    {20, kAlways, kAlways, "PANEL_BMP_24"},
    {21, kAlways, kAlways, "PANEL_BMP_44"},
    {23, kAlways, kAlways, "PANEL_BMP_35"},
    {42, kAlways, kAlways, "PANEL_BMP_35"},
    {24, Brand(1), kInputDip, "PANEL_BMP_05"},
    {24, Brand(1), kAlways, "PANEL_BMP_04"},
    {24, Brand(2), kAlways, "PANEL_BMP_03"},
    {24, kInputDip, kAlways, "PANEL_BMP_02"},
    {24, kAlways, kAlways, "PANEL_BMP_01"},
    {34, Brand(1), kInputDip, "PANEL_BMP_05"},
    {34, Brand(1), kAlways, "PANEL_BMP_04"},
    {34, Brand(2), kAlways, "PANEL_BMP_03"},
    {34, kInputDip, kAlways, "PANEL_BMP_02"},
    {34, kAlways, kAlways, "PANEL_BMP_01"},
    {25, Brand(1), kOutputDip, "PANEL_BMP_10"},
    {25, Brand(1), kAlways, "PANEL_BMP_09"},
    {25, Brand(2), kAlways, "PANEL_BMP_08"},
    {25, kOutputDip, kAlways, "PANEL_BMP_07"},
    {25, kAlways, kAlways, "PANEL_BMP_06"},
    {29, Brand(1), kOutputDip, "PANEL_BMP_10"},
    {29, Brand(1), kAlways, "PANEL_BMP_09"},
    {29, Brand(2), kAlways, "PANEL_BMP_08"},
    {29, kOutputDip, kAlways, "PANEL_BMP_07"},
    {29, kAlways, kAlways, "PANEL_BMP_06"},
    {26, kAlways, kAlways, "PANEL_BMP_17", kNone, true},
    {27, kAlways, kAlways, "PANEL_BMP_32", kNoProcAmpNoAudio, true},
    {30, Brand(2), SubModel(1), "PANEL_BMP_38"},
    {30, Brand(2), kAlways, "PANEL_BMP_37"},
    {30, Brand(1), kAlways, "PANEL_BMP_38"},
    {30, kAlways, kAlways, "PANEL_BMP_36"},
    {43, Brand(2), SubModel(1), "PANEL_BMP_38"},
    {43, Brand(2), kAlways, "PANEL_BMP_37"},
    {43, Brand(1), kAlways, "PANEL_BMP_38"},
    {43, kAlways, kAlways, "PANEL_BMP_36"},
    {32, Brand(2), kAlways, "PANEL_BMP_20"},
    {32, Brand(1), kAlways, "PANEL_BMP_19"},
    {32, kAlways, kAlways, "PANEL_BMP_18"},
    {33, Brand(2), kAlways, "PANEL_BMP_25"},
    {33, Brand(1), kAlways, "PANEL_BMP_39"},
    {33, kAlways, kAlways, "PANEL_BMP_24"},
    {36, kAlways, kAlways, "PANEL_BMP_43"},
    {44, kAlways, kAlways, "PANEL_BMP_43"},
    {45, kAlways, kAlways, "PANEL_BMP_43"},
    {46, kAlways, kAlways, "PANEL_BMP_43"},
    {47, kAlways, kAlways, "PANEL_BMP_43"},
    {48, kAlways, kAlways, "PANEL_BMP_43"},
    {49, kAlways, kAlways, "PANEL_BMP_43"},
    {37, NotBrand(0), kAlways, "PANEL_BMP_41"},
    {37, kAlways, kAlways, "PANEL_BMP_43"},
    {38, NotBrand(0), kAlways, "PANEL_BMP_41"},
    {38, kAlways, kAlways, "PANEL_BMP_43"},
    {39, NotBrand(0), kAlways, "PANEL_BMP_42"},
    {39, kAlways, kAlways, "PANEL_BMP_43"},
    {40, NotBrand(0), kAlways, "PANEL_BMP_42"},
    {40, kAlways, kAlways, "PANEL_BMP_43"},
    {50, kAlways, kAlways, "PANEL_BMP_16", kNone, true},
    {51, kAlways, kAlways, "PANEL_BMP_46"},
    {52, kAlways, kAlways, "PANEL_BMP_45", kNoProcAmp},
    {54, kAlways, kAlways, "PANEL_BMP_45", kNoProcAmp},
    {53, kAlways, kAlways, "PANEL_BMP_29", kNoProcAmp},
    {55, kAlways, kAlways, "PANEL_BMP_29", kNoProcAmp},
};

const PictureRow* FindPicture(const Identity& identity) {
  for (const PictureRow& row : kPictures) {
    if (row.boxType == identity.boxType && row.first.Holds(identity) &&
        row.second.Holds(identity)) {
      return &row;
    }
  }
  return nullptr;
}

}  // namespace

bool PictureNeedsMultiViewBlock(const Identity& identity) {
  const PictureRow* row = FindPicture(identity);
  return row != nullptr && row->markedPicture != nullptr;
}

PictureChoice ChoosePicture(const Identity& identity, bool pipMark) {
  PictureChoice choice;
  const PictureRow* row = FindPicture(identity);
  if (row == nullptr) return choice;
  choice.picture = row->markedPicture != nullptr && pipMark ? row->markedPicture : row->picture;
  choice.change = row->change;
  choice.showsRefresh = row->showsRefresh;
  if (row->newSubModel != 0) choice.newSubModel = row->newSubModel;
  return choice;
}

}  // namespace panelora
