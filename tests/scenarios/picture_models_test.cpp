// Proc Amp and Image Adjust of every box type, against lists of their own: what they ask when they
// are opened, what they show and enable, and what every slider and button tells the box.
#include "tests/support/model_walk.h"
#include "tests/support/proc_amp_controls.h"

namespace panelora::testing {
namespace {

// Proc Amp.

class ProcAmpModels : public ModelWalk {
 protected:
  static constexpr int kPage = res::kProcAmp;

  // The box's four picture values.
  void Hold(int brightness, int contrast, int hue, int saturation) {
    std::uint32_t control = 2;
    for (const int value : {brightness, contrast, hue, saturation}) {
      box.SetVideoProcAmp(simulator::BoxModel::kHandle, 0, control++,
                          static_cast<std::uint32_t>(value));
    }
  }
  static bool HasPicture(int type) { return !Has({5, 6, 7, 27}, type); }
  static Calls OneByOne() {
    return {"get proc amp 0,2", "get proc amp 0,3", "get proc amp 0,4", "get proc amp 0,5"};
  }
  static Calls OpeningOf(int type) {
    if (type == 26) return {"get proc amp", GetBlock(14, 3)};
    if (Has({6, 7}, type)) return {};
    if (Has({13, 14, 15, 17, 18, 19, 20, 30, 32, 33, 35, 36, 43, 48, 49}, type)) return OneByOne();
    return {"get proc amp"};
  }
  // What selects the channel that Default reads back.
  static std::string ChannelOf(int type) {
    if (Has({24, 34}, type)) return SetWord(5, 0);
    if (Has({23, 42}, type)) return SetWord(7, 0);
    if (Has({37, 38, 39, 40, 46, 47, 48, 49, 50, 51}, type)) return SetBlock(1, {0});
    if (Has({14, 36}, type)) return SetBlock(16, {0});
    if (Has({13, 15}, type)) return SetWord(10, 0);
    return SetWord(4, 0);
  }
  static bool Commits(int type, int brand, std::uint32_t firmware) {
    if (brand != 2) return false;
    if (Has({24, 34}, type)) return firmware >= 262;
    if (Has({25, 29}, type)) return firmware >= 265;
    return Has({20, 33}, type);
  }
  void ExpectShown(const std::vector<int>& values, int brand) {
    for (std::size_t i = 0; i < 4; ++i) {
      EXPECT_EQ(desk.Text(kPage, kPictureLabels[i]), std::to_string(values[i]))
          << kPictureLabels[i];
      EXPECT_EQ(desk.SliderPosition(kPage, kPictureSliders[i]), values[i]) << kPictureSliders[i];
      EXPECT_EQ(desk.SliderRange(kPage, kPictureSliders[i]), std::make_pair(0, 255))
          << kPictureSliders[i];
      const std::string digits = Format("%03d", values[i]);
      EXPECT_EQ(desk.Text(kPage, kPictureEdits[i]), brand == 2 ? digits : "") << kPictureEdits[i];
    }
  }
};

TEST_F(ProcAmpModels, EveryTypeReadsShowsAndSetsItsPicture) {
  for (const int type : kTypes) {
    for (const int brand : {0, 2}) {
      if (brand == 2 && !Has({7, 20, 24, 46}, type)) continue;
      const Identity identity = Box(type, brand);
      SCOPED_TRACE(Named(identity));
      StartAs(identity);
      Hold(11, 22, 33, 44);
      EXPECT_EQ(CallsOf(kProcAmpButton), OpeningOf(type));
      std::vector<int> values = {11, 22, 33, 44};
      if (!HasPicture(type)) values = {128, 128, 128, 128};
      ExpectShown(values, brand);
      for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(desk.Enables(kPage, kPictureSliders[i]), HasPicture(type)) << kPictureSliders[i];
        if (!HasPicture(type)) continue;
        TakeCalls();
        desk.Drag(kPage, kPictureSliders[i], 200);
        EXPECT_EQ(TakeCalls(), Calls{"set proc amp 0," + std::to_string(i + 2) + " = 200"});
        desk.Drag(kPage, kPictureSliders[i], values[i]);
      }
      ASSERT_FALSE(HasFailure());
    }
  }
}

TEST_F(ProcAmpModels, EveryTypeShowsThePictureControlsInBothViews) {
  for (const int type : kTypes) {
    if (type == 26) continue;
    for (const int brand : {0, 2}) {
      if (brand == 2 && !Has({7, 20, 24, 46}, type)) continue;
      const Identity identity = Box(type, brand);
      StartAs(identity);
      Press(kProcAmpButton);
      std::vector<int> expected = {1027, 1028, 1029, 1030, 1031, 1032, 1033, 1034, 1035};
      for (const int control : kPictureEdits) {
        if (brand == 2) expected.push_back(control);
      }
      for (const int control : kPictureLabels) {
        if (brand != 2) expected.push_back(control);
      }
      std::sort(expected.begin(), expected.end());
      for (int view = 0; view < 3; ++view) {
        std::vector<int> shown;
        for (const auto& [control, place] : ShownOn(kPage)) shown.push_back(control);
        ASSERT_EQ(shown, expected) << Named(identity) << " view " << view;
        Press(kPageUpButton);
      }
      EXPECT_EQ(desk.PlaceOf(kPage, 1027), (Rect{50, 30, 375, 240}));
    }
  }
}

TEST_F(ProcAmpModels, CaptionsAndFonts) {
  StartAs(Box(26));
  Press(kProcAmpButton);
  const std::map<int, std::string> captions = {
      {1027, "Proc Amp"},   {1028, "Brightness"}, {1029, "Contrast"},   {1030, "Hue"},
      {1031, "Saturation"}, {1040, "RGB Gain"},   {1043, "RGB Offset"}, {1046, "RGB Offset"}};
  for (const auto& [control, caption] : captions) {
    EXPECT_EQ(desk.Text(kPage, control), caption) << control;
  }
  EXPECT_EQ(desk.FontOf(kPage, 1027), (ui::Font{"Arial", 130}));
  EXPECT_EQ(desk.SliderRange(kPage, 1041), std::make_pair(0, 255));
  EXPECT_EQ(desk.SliderRange(kPage, 1044), std::make_pair(0, 255));
  EXPECT_EQ(desk.SliderRange(kPage, 1047), std::make_pair(0, 64));
}

TEST_F(ProcAmpModels, EveryTypeReadsItsDefaultsBack) {
  for (const int type : kTypes) {
    if (type == 26) continue;
    for (const int brand : {0, 2}) {
      if (brand == 2 && !Has({7, 20, 24, 46}, type)) continue;
      const Identity identity = Box(type, brand);
      SCOPED_TRACE(Named(identity));
      StartAs(identity);
      Press(kProcAmpButton);
      Hold(55, 66, 77, 88);
      EXPECT_EQ(CallsOf(kDefaultButton), Join({{ChannelOf(type)}, OneByOne()}));
      std::vector<int> values = {55, 66, 77, 88};
      if (!HasPicture(type)) values = {128, 128, 128, 128};
      ExpectShown(values, brand);
      ASSERT_FALSE(HasFailure());
    }
  }
}

TEST_F(ProcAmpModels, CommitOfEveryIdentity) {
  const auto expectCommit = [&](int type, int brand, std::uint32_t firmware) {
    SCOPED_TRACE(Named(Box(type, brand)) + " firmware " + std::to_string(firmware));
    StartAs(Box(type, brand), firmware);
    Hold(11, 22, 33, 44);
    Press(kProcAmpButton);
    const bool commits = Commits(type, brand, firmware);
    EXPECT_EQ(CallsOf(kApplyButton), commits ? Calls{"set proc amp 0,255 = 1"} : Calls{});
    if (brand != 2) return;
    desk.Type(kPage, 1049, "99");
    desk.PressKey(kPage, 1049, ui::Key::kEnter);
    const bool hasValue = HasPicture(type);
    Calls entered;
    if (commits && hasValue) {
      entered = {"set proc amp 0,2 = 99", "set proc amp 0,255 = 1", "set proc amp 0,255 = 0"};
    }
    EXPECT_EQ(TakeCalls(), entered);
    desk.Type(kPage, 1050, "");  // no number: the rest is not sent, and nothing stored
    desk.PressKey(kPage, 1050, ui::Key::kEnter);
    EXPECT_EQ(TakeCalls(), commits ? Calls{"set proc amp 0,255 = 0"} : Calls{});
    desk.PressKey(kPage, 1049, ui::Key::kEscape);
    EXPECT_EQ(TakeCalls(), Calls{});
  };
  for (const int type : kTypes) {
    expectCommit(type, 2, 0x0126);
    if (HasFailure()) return;
  }
  for (const int type : {24, 34, 25, 29, 20, 33}) {
    for (const std::uint32_t firmware : {0U, 261U, 262U, 264U, 265U}) {
      expectCommit(type, 2, firmware);
    }
    for (const int brand : {0, 1, 3}) expectCommit(type, brand, 0x0126);
  }
}

// Image Adjust.

class ImageModels : public ModelWalk {
 protected:
  static constexpr int kPage = res::kImageAdjust;

  struct Blocks {
    int position = 0;  // 0: none
    int size = 0;
  };
  static Blocks BlocksOf(int type, int brand) {
    switch (type) {
      case 50:
        return {31, 24};
      case 26:
        return {17, 18};
      case 23:
      case 42:
        return {13, 12};
      case 25:
      case 29:
        return {18, 9};
      case 24:
      case 34:
        return {0, brand == 2 ? 24 : 14};
      default:
        return {};
    }
  }
  // What the opening tells the box.
  static Calls OpeningOf(int type, int brand) {
    if (Has({24, 34}, type)) return {brand == 2 ? SetBlock(1, {2}) : SetWord(5, 2)};
    if (type == 50) return {SetBlock(1, {3})};
    if (type == 26) return {SetWord(3, 3)};
    if (Has({23, 42}, type)) return {SetWord(7, 2)};
    if (Has({25, 29}, type)) return {SetWord(4, 2)};
    return {};
  }
  static Calls ReadsOf(int type, int brand) {
    Calls calls;
    if (Has({24, 34}, type)) calls.push_back(brand == 2 ? GetBlock(15) : GetWord(11));
    if (type == 50) calls = {GetBlock(3), GetBlock(15)};
    if (type == 26) calls = {GetWord(4), GetWord(7)};
    const Blocks blocks = BlocksOf(type, brand);
    if (blocks.size != 0) calls.push_back(GetBlock(blocks.size));
    if (blocks.position != 0) calls.push_back(GetBlock(blocks.position, 4));
    return calls;
  }
  // The box holds these values, and what lets both pairs be set where the type can.
  void Hold(int type, int brand, int horizontal, int vertical, int width, int height) {
    const auto byte = [](int value) { return static_cast<std::uint8_t>(value); };
    if (type == 50) {
      Report(3, {2, 0});
      Report(15, {5, 0});
    } else if (type == 26) {
      ReportWord(4, 2);
      ReportWord(7, 5);
    } else if (Has({24, 34}, type)) {
      Report(15, {3, 0});
      ReportWord(11, 3);
    }
    const Blocks blocks = BlocksOf(type, brand);
    if (blocks.size != 0) Report(blocks.size, {byte(width), byte(height)});
    if (blocks.position != 0) {
      Report(blocks.position, {byte(horizontal >> 8), byte(horizontal & 0xFF), byte(vertical >> 8),
                               byte(vertical & 0xFF)});
    }
  }
};

TEST_F(ImageModels, EveryTypeOpensAsksAndShows) {
  for (const int type : kTypes) {
    for (const int brand : {0, 2}) {
      if (brand == 2 && !Has({20, 24, 26, 34, 50}, type)) continue;
      SCOPED_TRACE(Named(Box(type, brand)));
      StartAs(Box(type, brand));
      panel->OpenPage(PageCode::kImageAdjust);
      EXPECT_EQ(TakeCalls(), Join({OpeningOf(type, brand), ReadsOf(type, brand)}));
      EXPECT_EQ(CallsOf(kPictureButton), ReadsOf(type, brand));
      EXPECT_EQ(CallsOf(kApplyButton), Calls{});
      const bool oneFrame = type == 26 || type == 50;
      const std::vector<int> tops =
          oneFrame ? std::vector<int>{45, 105, 165, 225} : std::vector<int>{35, 85, 170, 225};
      Places expected;
      for (int row = 0; row < 4; ++row) {
        const int top = tops[static_cast<std::size_t>(row)];
        expected[1087 + row] = {80, top, 200, 40};
        expected[1091 + 2 * row] = {310, top, 40, 40};
        expected[1092 + 2 * row] = {360, top, 40, 40};
      }
      if (oneFrame) {
        expected[1099] = {45, 15, 390, 265};
      } else {
        expected[1099] = {45, 5, 390, 135};
        expected[1100] = {45, 140, 390, 140};
      }
      // Why, below, where something can't be used.
      if (!desk.Enables(kPage, 1091) || !desk.Enables(kPage, 1095)) {
        expected[1101] = {45, 284, 390, 20};
      }
      EXPECT_EQ(ShownOn(kPage), expected);
      EXPECT_EQ(desk.Text(kPage, 1099), oneFrame ? "Image Adjust" : "Position Adjust(VGA only)");
      for (const ui::ControlTemplate& control : res::FindDialog(kPage)->controls) {
        EXPECT_EQ(desk.FontOf(kPage, control.id), (ui::Font{"Arial", 120})) << control.id;
      }
      ASSERT_FALSE(HasFailure());
    }
  }
}

TEST_F(ImageModels, EveryValueStepsToItsEndsAndIsWrittenAtOnce) {
  // A position stops at its ends, a size wraps round; what is read beyond them comes back likewise.
  const auto position = [](int value, int step, int last) {
    return step > 0 ? std::min(value + 1, last) : std::max(value - 1, 5);
  };
  const auto size = [](int value, int step) {
    if (step > 0) return value + 1 > 100 ? 80 : value + 1;
    return value - 1 < 80 ? 100 : value - 1;
  };
  struct Values {
    int horizontal;
    int vertical;
    int width;
    int height;
  };
  const Values starts[] = {{300, 50, 90, 91}, {600, 100, 100, 100},    {5, 5, 80, 80},
                           {599, 99, 99, 99}, {6, 6, 81, 81},          {700, 300, 200, 255},
                           {0, 1, 50, 10},    {0x0102, 0x0003, 85, 86}};
  for (const int type : {26, 50, 23, 42, 25, 29, 24, 34, 0, 20}) {
    for (const int brand : {0, 2}) {
      const Blocks blocks = BlocksOf(type, brand);
      StartAs(Box(type, brand));
      panel->OpenPage(PageCode::kImageAdjust);
      for (const Values& start : starts) {
        SCOPED_TRACE(Named(Box(type, brand)) + " from " + std::to_string(start.horizontal));
        for (int button = 1091; button <= 1098; ++button) {
          Hold(type, brand, start.horizontal, start.vertical, start.width, start.height);
          Reread();
          Values next = start;
          const int step = button % 2 == 1 ? 1 : -1;
          if (button < 1093) next.horizontal = position(next.horizontal, step, 600);
          if (button == 1093 || button == 1094) next.vertical = position(next.vertical, step, 100);
          if (button == 1095 || button == 1096) next.width = size(next.width, step);
          if (button > 1096) next.height = size(next.height, step);
          Calls expected;
          if (button < 1095 && blocks.position != 0) {
            expected = {SetBlock(blocks.position, {next.horizontal >> 8, next.horizontal & 0xFF,
                                                   next.vertical >> 8, next.vertical & 0xFF})};
          } else if (button >= 1095 && blocks.size != 0) {
            expected = {SetBlock(blocks.size, {next.width, next.height})};
          }
          ASSERT_EQ(CallsOnPage(kPage, button), expected) << button;
        }
      }
    }
  }
}

TEST_F(ImageModels, EveryReportEnablesWhatItLets) {
  for (const int type : kTypes) {
    for (const int brand : {0, 2}) {
      if (brand == 2 && !Has({20, 24, 26, 34, 50}, type)) continue;
      StartAs(Box(type, brand));
      panel->OpenPage(PageCode::kImageAdjust);
      for (const int input : {1, 2, 3, 255}) {
        for (const int aspect : {2, 3, 4, 5, 6}) {
          const auto byte = [](int value) { return static_cast<std::uint8_t>(value); };
          Report(3, {byte(input), 0});
          Report(15, {byte(aspect), 0});
          ReportWord(4, input);
          ReportWord(7, aspect);
          ReportWord(11, aspect);
          Reread();
          bool positions = true;
          bool sizes = true;
          if (type == 26 || type == 50) {
            positions = input == 2;
            sizes = aspect == 5;
          } else if (type == 24 || type == 34) {
            positions = false;
            sizes = aspect == 3;
          }
          for (int button = 1091; button <= 1098; ++button) {
            ASSERT_EQ(desk.Enables(kPage, button), button < 1095 ? positions : sizes)
                << Named(Box(type, brand)) << " input " << input << " aspect " << aspect
                << " button " << button;
          }
        }
      }
    }
  }
}

// A box of another type may be connected: nothing of the first one's page stays.
TEST_F(ImageModels, LayoutFollowsTheBoxThatIsConnected) {
  const std::vector<std::uint8_t> all = {26, 24, 26, 23, 50};
  admitted = all;
  StartWith(0x0126, Box(26));
  for (const std::uint8_t type : all) {
    box.SetPresent(false);
    for (int i = 0; i < 6; ++i) Tick();
    box.Become(Box(type), 0x0126);
    box.SetPresent(true);
    Tick();
    panel->OpenPage(PageCode::kImageAdjust);
    const bool oneFrame = type == 26 || type == 50;
    EXPECT_EQ(desk.Shows(kPage, 1100), !oneFrame) << int{type};
    EXPECT_EQ(desk.Text(kPage, 1099), oneFrame ? "Image Adjust" : "Position Adjust(VGA only)");
    EXPECT_EQ(desk.PlaceOf(kPage, 1091).y, oneFrame ? 45 : 35);
    EXPECT_EQ(desk.Enables(kPage, 1091), type == 23 || type == 50) << int{type};
    Press(kReturnButton);
  }
}

}  // namespace
}  // namespace panelora::testing
