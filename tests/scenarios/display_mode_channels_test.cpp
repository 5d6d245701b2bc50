// The channel rules of the Display Mode page: a tour through every combination of mode and channel
// numbers that the buttons can reach, with every button pressed in each, against a model of its
// own.
#include <set>

#include "tests/support/channel_model.h"
#include "tests/support/scenario.h"

namespace panelora::testing {
namespace {

constexpr int kPage = res::kDisplayMode;

struct Button {
  int control;
  void (ChannelModel::*press)();
};
constexpr Button kButtons[] = {{1046, &ChannelModel::PressMode},
                               {1049, &ChannelModel::PressMain},
                               {1052, &ChannelModel::PressSub},
                               {1055, &ChannelModel::PressSub2}};
constexpr std::size_t kButtonCount = std::size(kButtons);

class DisplayModeChannels : public Scenario {
 protected:
  void Open(const ChannelModel& wanted) {
    panel.reset();
    StartWith({static_cast<std::uint8_t>(wanted.boxType), static_cast<std::uint8_t>(wanted.brand),
               0, 0, 0});
    box.Block(1) = {static_cast<std::uint8_t>(wanted.mode),
                    static_cast<std::uint8_t>(wanted.nine ? 1 : 0), 0};
    Bytes codes;
    for (int mode = 1; mode <= 10; ++mode) {
      codes.push_back(static_cast<std::uint8_t>(wanted.codeOfMode.at(mode)));
    }
    box.Block(2) = codes;
    // The number of modes is read when the page is initialised.
    panel.reset();
    Start();
    panel->OpenPage(PageCode::kDisplayMode);
    model = wanted;
    model.Take(wanted.mode);
    leadsTo.clear();
  }

  // With another mode and other codes than before, on the page that is open already.
  void OpenAgain(const ChannelModel& wanted) {
    box.Block(1)[0] = static_cast<std::uint8_t>(wanted.mode);
    for (std::size_t i = 0; i < 10; ++i) {
      box.Block(2)[i] = static_cast<std::uint8_t>(wanted.codeOfMode.at(static_cast<int>(i + 1)));
    }
    Scenario::Press(kPictureButton);
    model.codeOfMode = wanted.codeOfMode;
    model.Take(wanted.mode);
  }

  Calls ApplyCalls() const {
    if (model.boxType == 51) {
      return {Format("set block 1,0,1: %02X", model.mode),
              Format("set block 2,0,1: %02X", model.code)};
    }
    return {Format("set word 0,1 = %d", model.mode), Format("set word 0,2 = %d", model.code)};
  }

  void Press(std::size_t button) {
    const ChannelModel::Key from = model.Numbers();
    desk.Press(kPage, kButtons[button].control);
    (model.*kButtons[button].press)();
    leadsTo[{from, button}] = model.Numbers();
    const std::string shown = desk.Text(kPage, 1045) + "|" + desk.Text(kPage, 1048) + "|" +
                              desk.Text(kPage, 1051) + "|" + desk.Text(kPage, 1054);
    ASSERT_EQ(shown,
              model.modeName + "|" + model.names[0] + "|" + model.names[1] + "|" + model.names[2])
        << Where();
  }

  // The shortest way to a button that was not pressed yet where it leads from; empty = there is
  // none any more.
  std::vector<std::size_t> WayToNext() {
    struct Step {
      ChannelModel::Key at;
      std::size_t before;
      std::size_t button;
    };
    std::vector<Step> steps{{model.Numbers(), 0, 0}};
    std::set<ChannelModel::Key> seen{model.Numbers()};
    for (std::size_t i = 0; i < steps.size(); ++i) {
      for (std::size_t button = 0; button < kButtonCount; ++button) {
        const auto known = leadsTo.find({steps[i].at, button});
        if (known != leadsTo.end()) {
          if (seen.insert(known->second).second) steps.push_back({known->second, i, button});
          continue;
        }
        std::vector<std::size_t> way{button};
        for (std::size_t back = i; back != 0; back = steps[back].before) {
          way.insert(way.begin(), steps[back].button);
        }
        return way;
      }
    }
    return {};
  }

  void Tour() {
    for (std::vector<std::size_t> way = WayToNext(); !way.empty(); way = WayToNext()) {
      for (const std::size_t button : way) {
        Press(button);
        if (HasFatalFailure()) return;
      }
    }
  }

  std::string Where() const {
    return Format("type %d brand %d nine %d: mode %d channels %d %d %d code %d", model.boxType,
                  model.brand, model.nine ? 1 : 0, model.mode, model.main, model.sub, model.sub2,
                  model.code);
  }

  ChannelModel model;
  // What the box remembers does not change on the tour, so that a button leads to one place.
  std::map<std::pair<ChannelModel::Key, std::size_t>, ChannelModel::Key> leadsTo;
};

ChannelModel ModelOf(int boxType, int brand) {
  ChannelModel wanted;
  wanted.boxType = boxType;
  wanted.brand = brand;
  wanted.nine = true;
  wanted.codeOfMode = {{1, 2}, {2, 3},  {3, 1}, {4, 5}, {5, 4},
                       {6, 6}, {7, 12}, {8, 1}, {9, 7}, {10, 0}};
  return wanted;
}

// Fewer places would mean that the tour went round in a corner of the rules.
TEST_F(DisplayModeChannels, Type15FollowsTheModelEverywhere) {
  for (const int brand : {0, 2, 8, 12}) {
    Open(ModelOf(15, brand));
    Tour();
    if (HasFatalFailure()) return;
    EXPECT_GT(leadsTo.size(), 1300U) << brand;
  }
}

TEST_F(DisplayModeChannels, Type13FollowsTheModelEverywhere) {
  for (const int brand : {0, 2, 8, 12}) {
    Open(ModelOf(13, brand));
    Tour();
    if (HasFatalFailure()) return;
    EXPECT_GT(leadsTo.size(), 1400U) << brand;
  }
}

TEST_F(DisplayModeChannels, Type51FollowsTheModelEverywhere) {
  for (const int brand : {0, 2, 8, 12}) {
    Open(ModelOf(51, brand));
    Tour();
    if (HasFatalFailure()) return;
    EXPECT_GT(leadsTo.size(), 800U) << brand;
  }
}

// After every combination of the table and one press: what Apply sends.
TEST_F(DisplayModeChannels, AppliesTheCodeThatTheModelFinds) {
  for (const int boxType : {15, 13, 51}) {
    for (const int brand : {0, 2, 8, 12}) {
      ChannelModel wanted = ModelOf(boxType, brand);
      for (int mode = 1; mode <= (boxType == 51 ? 4 : 9); ++mode) {
        if (brand == 8 && mode == 5) continue;  // held as mode 9
        for (int code = 1; code <= 12; ++code) {
          wanted.mode = mode;
          wanted.codeOfMode[mode] = code;
          for (std::size_t button = 1; button < kButtonCount; ++button) {
            if (button == 1 && code == 1 && mode == 1) {
              Open(wanted);
            } else {
              OpenAgain(wanted);
            }
            Press(button);
            if (HasFatalFailure()) return;
            EXPECT_EQ(CallsOf(kApplyButton), ApplyCalls()) << Where();
          }
        }
      }
    }
  }
}

}  // namespace
}  // namespace panelora::testing
