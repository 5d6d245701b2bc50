// The Video settings page of every box type: what each sub-page shows where, what every value that
// a box can report shows, and exactly what is read and written.
#include "tests/support/video_list.h"

namespace panelora::testing {
namespace {

using namespace video_list;

class VideoTables : public VideoListed {
 protected:
  // Every value of each setting, and a step from there: text, Apply's calls, nothing else written.
  void Walk(const Identity& identity, std::uint32_t firmware, int subPage,
            const std::vector<int>& values) {
    OpenAs(identity, firmware, subPage);
    const Settings settings = SettingsOf(identity, firmware, subPage);
    std::vector<int> selected;
    for (const Setting& setting : settings) {
      const int start = setting.options.empty() ? 0 : setting.options.front().value;
      ReportTo(setting, start);
      selected.push_back(Selected(setting, start));
    }
    ASSERT_EQ(CallsOf(kPictureButton), Reads(identity, settings));
    for (std::size_t i = 0; i < settings.size(); ++i) {
      const Setting& setting = settings[i];
      const int start = selected[i];
      std::string shown = TextOf(setting.group);
      ASSERT_TRUE(setting.options.empty() || shown == setting.options.front().text);
      const auto expect = [&](int index) {
        selected[i] = index;
        const Option* option = At(setting.options, index);
        if (option != nullptr) shown = option->text;
        const bool hasError = Has({kEdge.next, kUpFilter.next}, setting.group.next);
        if (hasError && index == 255) shown = "Error";
        ASSERT_EQ(TextOf(setting.group), shown);
        ASSERT_EQ(CallsOf(kApplyButton), Writes(identity, settings, selected));
      };
      for (const int value : values) {
        SCOPED_TRACE("address " + std::to_string(setting.address) + " value " +
                     std::to_string(value));
        ReportTo(setting, value);
        ASSERT_EQ(CallsOf(kPictureButton), Reads(identity, settings));
        const int read = Selected(setting, value);
        ASSERT_NO_FATAL_FAILURE(expect(read));
        ASSERT_EQ(CallsOnPage(kPage, setting.group.next), Calls{});
        ASSERT_NO_FATAL_FAILURE(expect(read + 1 > setting.last ? setting.first : read + 1));
        if (setting.group.next != kFormat.next) continue;
        ReportTo(setting, value);
        Reread();
        ASSERT_NO_FATAL_FAILURE(expect(read));
        ASSERT_EQ(CallsOnPage(kPage, kFormatBack), Calls{});
        ASSERT_NO_FATAL_FAILURE(expect(read <= 1 || read > 20 ? 19 : read - 1));
      }
      // Back to where the walk began.
      const Option* option = At(setting.options, start);
      ReportTo(setting, option == nullptr ? 0 : option->value);
      Reread();
      selected[i] = option == nullptr ? 255 : start;
    }
  }
};

TEST_F(VideoTables, EveryValueOfModel26IsShownSteppedAndWritten) {
  for (const std::uint32_t firmware : {0U, 277U, 278U, 400U}) {
    for (const int subPage : {0, 1}) {
      SCOPED_TRACE("firmware " + std::to_string(firmware) + " sub-page " + std::to_string(subPage));
      Walk(Box(26), firmware, subPage, UpTo(24));
      if (HasFatalFailure()) return;
    }
  }
}

TEST_F(VideoTables, EveryValueOfEveryOtherTypeIsShownSteppedAndWritten) {
  for (const int type : kTypes) {
    if (type == 26) continue;
    SCOPED_TRACE(Named(Box(type)));
    const bool named = !InputsOf(type).empty();
    for (const int brand : {0, 2}) {
      if (brand == 2 && !Has({24, 34, 37, 38}, type)) continue;
      const Identity identity = Box(type, brand);
      for (int subPage = 0; subPage < (HasThree(identity) ? 3 : 2); ++subPage) {
        SCOPED_TRACE("brand " + std::to_string(brand) + " sub-page " + std::to_string(subPage));
        Walk(identity, 0x0126, subPage,
             named ? UpTo(23) : std::vector<int>{0, 1, 2, 3, 4, 5, 15, 22, 23, 255});
        if (HasFatalFailure()) return;
      }
    }
  }
}

// By how many presses the first name comes back, also through indices that have none.
TEST_F(VideoTables, AspectRatioOfEveryIdentityWrapsAtItsLastIndex) {
  const auto expectWrap = [&](const Identity& identity, std::uint32_t firmware) {
    OpenAs(identity, firmware);
    ReportTo(AspectOf(identity, firmware), 0);
    Reread();
    const Options options = AspectsOf(identity.boxType);
    const int last = LastAspect(identity, firmware);
    for (int index = 1; index <= last; ++index) {
      desk.Press(kPage, kAspect.next);
      const auto named = std::min<std::size_t>(static_cast<std::size_t>(index), options.size() - 1);
      ASSERT_EQ(TextOf(kAspect), options[named].text)
          << Named(identity) << " firmware " << firmware << " index " << index;
    }
    desk.Press(kPage, kAspect.next);
    ASSERT_EQ(TextOf(kAspect), options[0].text) << Named(identity) << " firmware " << firmware;
  };
  for (const int type : kTypes) {
    ASSERT_NO_FATAL_FAILURE(expectWrap(Box(type, 1), 0x0126));
  }
  for (const int type : {18, 20, 32, 33}) {
    for (const int brand : {1, 2}) {
      for (const std::uint32_t firmware : {289U, 290U, 293U, 294U}) {
        ASSERT_NO_FATAL_FAILURE(expectWrap(Box(type, brand), firmware));
      }
    }
  }
  for (const int brand : {0, 1, 2}) {
    for (const int dip : {0, 1, 2}) {
      for (const int type : {24, 34}) {
        ASSERT_NO_FATAL_FAILURE(expectWrap(Box(type, brand, dip, 0), 265));
      }
      for (const int type : {25, 29}) {
        ASSERT_NO_FATAL_FAILURE(expectWrap(Box(type, brand, 0, dip), 265));
        ASSERT_NO_FATAL_FAILURE(expectWrap(Box(type, brand, 1, dip), 264));
      }
    }
  }
}

TEST_F(VideoTables, SubPagesOfEveryOtherType) {
  for (const int type : kTypes) {
    if (type == 26) continue;
    for (const int brand : {0, 2}) {
      if (brand == 2 && !Has({20, 24, 34, 37, 38}, type)) continue;
      const Identity identity = Box(type, brand);
      SCOPED_TRACE(Named(identity));
      OpenAs(identity);
      Report(3, {2, 0});
      Reread();
      TakeCalls();
      const int count = HasThree(identity) ? 3 : 2;
      for (int i = 0; i <= count; ++i) {
        const int subPage = i % count;
        ASSERT_EQ(ShownOn(kPage), ExpectedPlaces(identity, subPage, true)) << subPage;
        if (subPage != 0) {
          CallsOf(kApplyButton);
          ASSERT_EQ(desk.TimerPeriod(kPage, 1), 0);
        }
        Press(kPageUpButton);
      }
      Press(kReturnButton);  // the first sub-page comes back
      panel->OpenPage(PageCode::kVideoSettings);
      Report(3, {1, 0});
      Reread();
      ASSERT_EQ(ShownOn(kPage), ExpectedPlaces(identity, 0, false));
      Report(3, {2, 0});
      Reread();
      ASSERT_EQ(ShownOn(kPage), ExpectedPlaces(identity, 0, true));
    }
  }
}

}  // namespace
}  // namespace panelora::testing
