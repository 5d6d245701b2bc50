#include "tests/fuzz/rules.h"

#include <algorithm>
#include <initializer_list>

#include "app/navigation.h"
#include "base/text.h"
#include "res/dialog_templates.h"

namespace panelora::fuzz {

namespace {

using Operation = Call::Operation;
using Writes = std::vector<AllowedWrite>;

bool In(int type, std::initializer_list<int> types) {
  return std::find(types.begin(), types.end(), type) != types.end();
}

AllowedWrite Word(std::uint32_t item, int value = AllowedWrite::kAnyValue) {
  return {.operation = Operation::kSetWord, .number = item, .value = value};
}
AllowedWrite Block(std::uint32_t property, int length, int value = AllowedWrite::kAnyValue) {
  return {.operation = Operation::kSetBlock, .number = property, .length = length, .value = value};
}
AllowedWrite Picture(std::uint32_t control, int value = AllowedWrite::kAnyValue) {
  return {.operation = Operation::kSetProcAmp, .number = control, .value = value};
}
AllowedWrite Perhaps(AllowedWrite write) {
  write.needed = false;
  return write;
}

constexpr std::uint32_t kCommit = 255;

Writes PicturesPerhaps() {
  return {Perhaps(Picture(2)), Perhaps(Picture(3)), Perhaps(Picture(4)), Perhaps(Picture(5))};
}

// By which property a box is told which function to open, or to reset.
bool TakesBlocks(int type) { return In(type, {37, 38, 39, 40, 46, 47, 48, 49, 50, 51, 14, 36}); }

// Genlock: the properties of the three groups of models.
struct Genlock {
  Writes opening;
  std::uint32_t mode = 0;  // 0 = the type has no genlock
  std::uint32_t delays = 0;
  std::uint32_t sync = 0;
};
Genlock GenlockOf(int type) {
  if (type == 50) return {{Block(1, 1, 4)}, 26, 27, 0};
  if (In(type, {46, 47, 48, 49, 39, 40})) return {{Block(1, 1, 2)}, 26, 27, 0};
  if (In(type, {20, 33})) return {{Word(4, 3)}, 19, 20, 0};
  if (In(type, {30, 43})) return {{Word(4, 2)}, 15, 16, 22};
  return {};
}

// The delays with the flag whether they stay, and the sync mode of those that take it with them.
Writes DelaysOf(int type, bool stay, bool needed) {
  const Genlock genlock = GenlockOf(type);
  if (genlock.mode == 0) return {};
  AllowedWrite delays = Block(genlock.delays, 5);
  delays.last = stay ? 1 : 0;
  delays.needed = needed;
  Writes writes = {delays};
  if (genlock.sync != 0) {
    writes.push_back(Block(genlock.sync, 1));
    writes.back().needed = needed;
  }
  return writes;
}

std::uint32_t RegionOf(const Identity& id) {
  const int type = id.boxType;
  if (In(type, {46, 47, 48, 49, 39, 40, 32, 25, 29})) return 18;
  if (In(type, {35, 23, 42, 14, 36})) return 14;
  if (In(type, {30, 43})) return 19;
  if (In(type, {24, 34})) return id.inputDipFlag == 1 || id.brandCode == 2 ? 18 : 15;
  return 0;
}

// A region of no size is made half of the frame, and written.
Writes RegionPerhaps(const Identity& id) {
  if (RegionOf(id) == 0) return {};
  return {Perhaps(Block(RegionOf(id), 10))};
}

std::uint32_t ImagePositionOf(int type) {
  if (type == 50) return 31;
  if (type == 26) return 17;
  if (In(type, {23, 42})) return 13;
  if (In(type, {25, 29})) return 18;
  return 0;
}

std::uint32_t ImageSizeOf(const Identity& id) {
  const int type = id.boxType;
  if (type == 50) return 24;
  if (type == 26) return 18;
  if (In(type, {23, 42})) return 12;
  if (In(type, {25, 29})) return 9;
  if (In(type, {24, 34})) return id.brandCode == 2 ? 24 : 14;
  return 0;
}

bool HasPip(int type) { return In(type, {13, 15, 51}); }

// What the pages of the Video menu tell the box when they open; Default tells it again.
Writes OpeningOf(PageCode page, const Identity& id) {
  const int type = id.boxType;
  switch (page) {
    case PageCode::kDisplayMode:
      return {Word(10, 3)};
    case PageCode::kPip: {
      if (!HasPip(type)) return {};
      AllowedWrite second = Perhaps(Block(14, 8, 0xFF));
      second.last = 0xFF;
      AllowedWrite first = Block(13, 8, 0xFF);
      first.last = 0xFF;
      if (type == 51) return {first, second};
      return {first, Word(10, 2), second};
    }
    case PageCode::kGenlock:
      return GenlockOf(type).opening;
    case PageCode::kImageAdjust:
      if (In(type, {24, 34})) {
        if (id.brandCode == 2) return {Block(1, 1, 2)};
        return {Word(5, 2)};
      }
      if (type == 50) return {Block(1, 1, 3)};
      if (type == 26) return {Word(3, 3)};
      if (In(type, {23, 42})) return {Word(7, 2)};
      if (In(type, {25, 29})) return {Word(4, 2)};
      return {};
    case PageCode::kRoi: {
      Writes writes;
      if (In(type, {39, 40})) writes.push_back(Block(1, 1, 4));
      if (RegionOf(id) != 0) {
        AllowedWrite whole = Block(RegionOf(id), 10, 0);
        whole.last = 0;
        writes.push_back(whole);
        writes.push_back(Perhaps(Block(RegionOf(id), 10)));
      }
      return writes;
    }
    default:
      return {};
  }
}

AllowedWrite MuteOf(int type) {
  if (In(type, {13, 15, 18, 32, 23, 42})) return Word(11);
  if (In(type, {17, 35})) return Word(17);
  if (In(type, {20, 33, 30, 43})) return Word(5);
  if (In(type, {24, 34})) return Word(7);
  if (type == 36) return Word(3);
  return Block(type == 21 ? 1 : 6, 1);
}

AllowedWrite SourceOf(int type) {
  if (In(type, {20, 33})) return Word(6);
  if (In(type, {18, 32})) return Word(7);
  if (In(type, {13, 15, 23, 42})) return Word(16);
  if (In(type, {17, 35})) return Block(3, 1);
  if (In(type, {14, 36})) return Block(9, 1);
  return Block(type == 21 ? 4 : 10, 1);
}

Writes AudioApply(const Identity& id) {
  const int type = id.boxType;
  if (In(type, {26, 50})) return {Perhaps(Word(6)), Word(11), Word(16)};
  const bool hasSource = In(type, {13, 14, 15, 17, 18, 20, 21, 23, 24, 25, 29, 30, 32, 33, 34,
                                   35, 36, 37, 38, 39, 40, 42, 43, 46, 47, 48, 49, 51, 52});
  Writes writes;
  if (hasSource) writes.push_back(Perhaps(SourceOf(type)));
  if (type != 51) writes.push_back(Perhaps(MuteOf(type)));
  if (In(type, {24, 34, 14, 36})) writes.push_back(Block(7, 1));
  if (type == 14) writes.push_back(Block(32, 1));
  if (In(type, {29, 18, 32})) writes.push_back(Perhaps(Block(32, 1)));
  if (In(type, {46, 47, 48, 49})) writes.push_back(Block(11, 2));
  if (type == 52) writes.push_back(Perhaps(Block(11, 2)));  // it says whether it has a volume
  if (In(type, {24, 34})) writes.push_back(Block(44, 2));
  return writes;
}

Writes VideoApply(const Situation& now) {
  const int type = now.identity.boxType;
  if (type == 26) {
    if (now.cycleState == 0) {
      return {Perhaps(Word(4)), Perhaps(Word(2)), Perhaps(Word(7)), Perhaps(Word(12))};
    }
    Writes writes = {Perhaps(Word(10)), Perhaps(Word(15))};
    if (now.firmware >= 278) writes.push_back(Perhaps(Word(19)));
    return writes;
  }
  const bool isBrand2 = now.identity.brandCode == 2;
  Writes writes;
  const auto blocks = [&](std::initializer_list<std::uint32_t> properties) {
    for (const std::uint32_t property : properties) writes.push_back(Perhaps(Block(property, 1)));
  };
  if (now.cycleState == 2) {
    if (isBrand2 && In(type, {24, 34})) blocks({30, 40, 45, 49});
    if (!isBrand2 && In(type, {37, 38})) blocks({29, 30, 45, 49});
    return writes;
  }
  if (now.cycleState == 1) {
    if (In(type, {24, 34})) blocks({5, 13, 50});
    if (In(type, {30, 43})) blocks({15, 30, 49});
    if (In(type, {20, 33})) blocks({19, 40, 45});
    if (In(type, {23, 42})) blocks({20, 42, 7});
    if (In(type, {25, 29})) blocks({20, 25, 29});
    if (In(type, {37, 38})) blocks({42, 7, 33});
    if (In(type, {39, 40, 46, 47, 48, 49})) blocks({42, 7, 40});
    if (type == 50) blocks({42, 7, 45});
    if (In(type, {14, 36, 51})) blocks({29, 30, 49});
    if (writes.empty()) blocks({25, 29, 49});
    return writes;
  }
  if (In(type, {23, 24, 25, 27, 29, 34, 42, 48, 49, 50})) blocks({3});
  if (type == 21) {
    writes.push_back(Perhaps(Word(2)));
  } else {
    blocks({In(type, {39, 40, 46, 47, 48, 49, 50}) ? 5U : 4U});
  }
  if (In(type, {23, 25, 29, 42})) blocks({5});
  if (In(type, {24, 34})) blocks({22});
  if (In(type, {21, 30, 43})) {
    writes.push_back(Perhaps(Word(7)));
  } else if (In(type, {24, 34}) && !isBrand2) {
    writes.push_back(Perhaps(Word(11)));
  } else {
    blocks({In(type, {14, 36, 37, 38, 39, 40, 46, 47, 48, 49, 51}) ? 20U : 15U});
  }
  if (In(type, {24, 34, 30, 43, 20, 33})) writes.push_back(Perhaps(Block(8, 1)));
  return writes;
}

Writes SettingApply(int type) {
  if (type == 26) return {Word(21), Block(22, 1), Block(23, 2)};
  // Pattern and OSD go to a box that was found to have them: not to one that came after the
  // reading.
  if (type == 50) return {Perhaps(Block(21, 1)), Block(22, 1), Block(17, 1)};
  if (TakesBlocks(type)) return {Perhaps(Block(21, 1)), Block(22, 1), Block(15, 1)};
  if (In(type, {13, 15, 17, 18, 21, 32, 35})) return {Word(12), Perhaps(Word(13)), Block(17, 1)};
  if (In(type, {20, 24, 30, 33, 34, 43})) return {Perhaps(Word(21)), Word(16), Block(17, 1)};
  if (In(type, {23, 25, 29, 42})) return {Perhaps(Word(13)), Word(17), Block(17, 1)};
  if (In(type, {19, 27})) return {Word(8), Perhaps(Word(10)), Word(5)};
  return {Word(12), Perhaps(Word(13)), Word(17)};
}

Writes ResetOf(int type) {
  if (In(type, {20, 21, 33, 30, 43, 25, 29})) return {Word(4, 1)};
  if (In(type, {24, 34})) return {Word(5, 1)};
  if (In(type, {18, 32})) return {Word(6, 1)};
  if (In(type, {23, 42})) return {Word(7, 1)};
  if (In(type, {13, 15})) return {Word(10, 1)};
  if (In(type, {17, 35})) return {Word(8, 0)};
  if (In(type, {14, 36})) return {Block(10, 1, 1)};
  if (TakesBlocks(type)) return {Block(1, 1, 1)};
  return {Word(3, 1)};
}

Writes ApplyOf(const Situation& now) {
  const Identity& id = now.identity;
  const int type = id.boxType;
  switch (now.page) {
    case PageCode::kAudio:
      return AudioApply(id);
    case PageCode::kProcAmp: {
      Writes writes = PicturesPerhaps();
      if (In(type, {24, 34, 25, 29, 20, 33})) writes.push_back(Perhaps(Picture(kCommit, 1)));
      return writes;
    }
    case PageCode::kSetting:
      return SettingApply(type);
    case PageCode::kVideoSettings:
      return VideoApply(now);
    case PageCode::kDisplayMode: {
      if (type == 51) return {Block(1, 1), Block(2, 1)};
      if (!In(type, {13, 15})) return {};
      Writes writes;
      if (now.cycleState == 0) return {Word(1), Word(2)};
      // Boxes without labels are told mode and code from the view of the labels too.
      writes = {Perhaps(Word(1)), Perhaps(Word(2)), Perhaps(Block(20, 20))};
      for (int input = 0; input < 4; ++input) {
        writes.push_back(Perhaps(Block(19, 20)));
        writes.back().sub = input;
      }
      return writes;
    }
    case PageCode::kPip:
      if (!HasPip(type)) return {};
      return {Perhaps(Block(13, 8)), Perhaps(Block(14, 8))};
    case PageCode::kGenlock: {
      if (GenlockOf(type).mode == 0) return {};
      Writes writes = {Block(GenlockOf(type).mode, 1)};
      const Writes delays = DelaysOf(type, true, false);
      writes.insert(writes.end(), delays.begin(), delays.end());
      return writes;
    }
    case PageCode::kRoi:
      if (RegionOf(id) == 0) return {};
      return {Block(RegionOf(id), 10)};
    default:
      return {};
  }
}

Writes DefaultOf(const Situation& now) {
  const int type = now.identity.boxType;
  if (now.page != PageCode::kProcAmp) return OpeningOf(now.page, now.identity);
  if (type == 26) return {Word(3, now.cycleState == 0 ? 0 : 2)};
  if (In(type, {37, 38, 39, 40, 46, 47, 48, 49, 50, 51})) return {Block(1, 1, 0)};
  if (In(type, {24, 34})) return {Word(5, 0)};
  if (In(type, {23, 42})) return {Word(7, 0)};
  if (In(type, {14, 36})) return {Block(16, 1, 0)};
  if (In(type, {13, 15})) return {Word(10, 0)};
  return {Word(4, 0)};
}

// Navigation buttons.
AllowedWrites OnMain(const Step& step, const Situation& now) {
  switch (step.control) {
    case kApplyButton:
      return {ApplyOf(now)};
    case kDefaultButton:
      return {DefaultOf(now)};
    case kReturnButton:
      if (now.page == PageCode::kGenlock) return {DelaysOf(now.identity.boxType, false, false)};
      if (now.page == PageCode::kProcAmp && now.identity.brandCode == 2) return {PicturesPerhaps()};
      return {};
    case kRefreshButton:
    case kPictureButton:
      if (now.page == PageCode::kRoi) return {RegionPerhaps(now.identity)};
      return {};
    default:
      return {};
  }
}

AllowedWrites OnVideoMenu(const Step& step, const Situation& now) {
  switch (step.control) {
    case 1003:
      return {OpeningOf(PageCode::kDisplayMode, now.identity)};
    case 1005:
      return {OpeningOf(PageCode::kPip, now.identity)};
    case 1006:
      return {OpeningOf(PageCode::kGenlock, now.identity)};
    case 1007:
      return {OpeningOf(PageCode::kImageAdjust, now.identity)};
    case 1008:
      return {OpeningOf(PageCode::kRoi, now.identity)};
    default:
      return {};  // Video settings and TV Wall
  }
}

AllowedWrites OnAudio(const Step& step, const Situation& now) {
  const int type = now.identity.boxType;
  const bool input = In(type, {25, 29});
  if (step.act == Act::kPress && (step.control == 1045 || step.control == 1046) && input) {
    return {{Block(19, 2)}};
  }
  if (step.act == Act::kChoose && step.control == 1108) {
    if (input) return {{Block(19, 2)}};
    if (In(type, {24, 34})) {
      AllowedWrite level = Block(44, 2);
      level.last = 0;
      return {{level}};
    }
  }
  return {};
}

AllowedWrites OnVideoSettings(const Step& step, const Situation& now) {
  if (step.act != Act::kPress) return {};
  const Identity& id = now.identity;
  if (step.control == 1066) return {{Block(13, 1, 1)}};
  if (step.control != 1075) return {};
  if (In(id.boxType, {24, 34}) && id.inputDipFlag != 1 && id.brandCode != 2) {
    return {{Word(19, 11)}};
  }
  Writes writes = {Block(19, 1, 1)};
  if (In(id.boxType, {25, 29})) writes.push_back(Word(23, 11));
  return {writes};
}

AllowedWrites OnTvWall(const Step& step, const Situation& now) {
  const int type = now.identity.boxType;
  if (step.act != Act::kMouse && step.act != Act::kPress) return {};
  const int tile = step.control - 1021;
  if (tile >= now.wallSize * now.wallSize) return {};  // while no size is known, none is a tile
  const auto at = [&](AllowedWrite write) {
    write.value = now.wallSize;
    write.last = tile;
    return write;
  };
  AllowedWrites told;
  if (In(type, {37, 38, 39, 40, 46, 47, 48, 49})) told = {{at(Block(16, 2))}};
  if (In(type, {14, 36})) told = {{at(Block(8, 2))}};
  if (In(type, {18, 20, 30, 32, 33, 43})) told = {{Word(8, now.wallSize), Word(9, tile)}};
  if (In(type, {17, 35})) told = {{Word(10, now.wallSize), Word(11, tile)}};
  // Not again by a key that presses the one that is chosen.
  for (AllowedWrite& write : told.writes) write.needed = step.act == Act::kMouse;
  return told;
}

// What a slider of the page stands for; empty = no picture value.
Writes PicturePerhaps(int slider) {
  constexpr std::pair<int, std::uint32_t> kSliders[] = {{1032, 2}, {1035, 3}, {1034, 4}, {1033, 5}};
  for (const auto& [control, picture] : kSliders) {
    if (control == slider) return {Perhaps(Picture(picture))};
  }
  return {};
}

AllowedWrites OnProcAmp(const Step& step, const Situation& now) {
  const Identity& id = now.identity;
  if (step.act == Act::kDrag) {
    const Writes writes = PicturePerhaps(step.control);
    return {writes.empty() ? Writes{Perhaps(Block(14, 3))} : writes};
  }
  // Firmware from which these store what they were sent only when they are told to.
  const bool commits = id.brandCode == 2 && ((In(id.boxType, {24, 34}) && now.firmware >= 262) ||
                                             (In(id.boxType, {25, 29}) && now.firmware >= 265) ||
                                             In(id.boxType, {20, 33}));
  if (step.act == Act::kEnter && commits) {
    Writes writes = PicturesPerhaps();
    writes.push_back(Perhaps(Picture(kCommit, 1)));
    writes.push_back(Picture(kCommit, 0));
    return {writes};
  }
  return {};
}

AllowedWrites OnGenlock(const Step& step, const Situation& now) {
  const int type = now.identity.boxType;
  const bool steps = step.act == Act::kPress && In(step.control, {1107, 1108, 1109, 1110});
  if (steps) return {DelaysOf(type, false, true)};
  if (step.act == Act::kRelease || step.act == Act::kEnter) return {DelaysOf(type, false, false)};
  return {};
}

AllowedWrites OnImageAdjust(const Step& step, const Situation& now) {
  if (step.act != Act::kPress) return {};
  const std::uint32_t position = ImagePositionOf(now.identity.boxType);
  const std::uint32_t size = ImageSizeOf(now.identity);
  if (step.control <= 1094 && position != 0) return {{Block(position, 4)}};
  if (step.control >= 1095 && size != 0) return {{Block(size, 2)}};
  return {};
}

AllowedWrites OnPage(const Step& step, const Situation& now) {
  switch (step.dialog) {
    case res::kMain:
      return step.act == Act::kPress ? OnMain(step, now) : AllowedWrites{};
    case res::kVideoMenu:
      return step.act == Act::kPress ? OnVideoMenu(step, now) : AllowedWrites{};
    case res::kAudio:
      return OnAudio(step, now);
    case res::kProcAmp:
      return OnProcAmp(step, now);
    case res::kSetting:
      if (step.control != 1041 || step.act != Act::kPress) return {};
      return {ResetOf(now.identity.boxType)};
    case res::kVideoSettings:
      return OnVideoSettings(step, now);
    case res::kTvWall:
      return OnTvWall(step, now);
    case res::kGenlock:
      return OnGenlock(step, now);
    case res::kImageAdjust:
      return OnImageAdjust(step, now);
    case res::kRoi:
      return step.act == Act::kRelease ? AllowedWrites{RegionPerhaps(now.identity)}
                                       : AllowedWrites{};
    default:
      return {};
  }
}

// Brand 2 sends a picture value again with every repaint of its slider.
bool SendsAgain(const Situation& now) {
  return now.page == PageCode::kProcAmp && now.identity.brandCode == 2;
}

bool UncoversPage(const Step& step, const Situation& situation) {
  return step.act == Act::kRepaint || step.act == Act::kAbout ||
         situation.keyPresses == kPageUpButton ||
         (step.dialog == res::kMain && step.control == kPageUpButton);
}

bool Fits(const Call& call, const AllowedWrite& allowed) {
  if (call.operation != allowed.operation || call.number != allowed.number) return false;
  if (call.operation != Operation::kSetBlock) {
    return allowed.value == AllowedWrite::kAnyValue ||
           call.words[0] == static_cast<std::uint32_t>(allowed.value);
  }
  return call.sub == allowed.sub && call.length == allowed.length &&
         (allowed.value == AllowedWrite::kAnyValue || call.bytes.front() == allowed.value) &&
         (allowed.last == AllowedWrite::kAnyValue || call.bytes.back() == allowed.last);
}

AllowedWrites WhenPressed(const Step& step, const Situation& situation) {
  switch (step.act) {
    case Act::kEnter: {
      // Presses the button that it meets, but on the pages that keep it for themselves.
      Step pressed = step;
      const bool kept = step.dialog == res::kProcAmp || step.dialog == res::kGenlock;
      if (!kept) pressed.act = Act::kPress;
      return OnPage(pressed, situation);
    }
    case Act::kKey: {
      const Step pressed = {
          .act = Act::kPress, .dialog = res::kMain, .control = situation.keyPresses};
      return situation.keyPresses != 0 ? OnPage(pressed, situation) : AllowedWrites{};
    }
    case Act::kClick: {
      // Down, which the tiles of a wall take, and up, which presses what all others are.
      Step part = step;
      part.act = Act::kMouse;
      AllowedWrites down = OnPage(part, situation);
      part.act = Act::kPress;
      return down.writes.empty() ? OnPage(part, situation) : down;
    }
    case Act::kPress:
    case Act::kMouse:
    case Act::kDrag:
    case Act::kRelease:
    case Act::kChoose:
      return OnPage(step, situation);
    default:
      return {};
  }
}

}  // namespace

AllowedWrites WritesOf(const Step& step, const Situation& situation) {
  if (!situation.connected) return {};
  if (!SendsAgain(situation)) return WhenPressed(step, situation);
  if (UncoversPage(step, situation)) return {PicturesPerhaps(), true};
  // A slider is painted when it loses the focus and when it gets it, before anything is pressed.
  AllowedWrites allowed = WhenPressed(step, situation);
  if (step.act >= Act::kTick || step.act == Act::kDrag) return allowed;
  if (situation.focus == std::pair(step.dialog, step.control)) return allowed;
  std::vector<AllowedWrite>& writes = allowed.writes;
  for (const auto& [dialog, control] : {situation.focus, std::pair(step.dialog, step.control)}) {
    if (dialog != res::kProcAmp) continue;
    const Writes again = PicturePerhaps(control);
    writes.insert(writes.begin(), again.begin(), again.end());
  }
  return allowed;
}

std::string Compare(const std::vector<Call>& writes, const AllowedWrites& allowed) {
  if (allowed.anyOrder) {
    for (const Call& write : writes) {
      const bool fits = std::any_of(allowed.writes.begin(), allowed.writes.end(),
                                    [&](const AllowedWrite& each) { return Fits(write, each); });
      if (!fits) return "nobody asked for: " + TextOf(write);
    }
    return "";
  }
  auto next = writes.begin();
  for (const AllowedWrite& each : allowed.writes) {
    if (next != writes.end() && Fits(*next, each)) {
      ++next;
    } else if (each.needed) {
      return Format("a write to %u is missing", each.number) +
             (next == writes.end() ? "" : " before " + TextOf(*next));
    }
  }
  return next == writes.end() ? "" : "nobody asked for: " + TextOf(*next);
}

std::set<std::set<int>> ButtonSetsOf(const Situation& situation) {
  if (!situation.connected) return {{}};
  const int type = situation.identity.boxType;
  switch (situation.page) {
    case PageCode::kInformation: {
      std::set<int> home = {kInformationButton, kVideoButton, kSettingButton};
      if (!In(type, {5, 27, 19})) home.insert(kAudioButton);
      if (!In(type, {5, 27, 6, 7, 52, 53, 54, 55})) home.insert(kProcAmpButton);
      std::set<int> withRefresh = home;
      withRefresh.insert(kRefreshButton);
      return {home, withRefresh};
    }
    case PageCode::kVideoMenu:
      return {{kReturnButton}};
    case PageCode::kAudio:
      return {{kApplyButton, kReturnButton}};
    case PageCode::kProcAmp: {
      std::set<int> buttons = {kDefaultButton, kReturnButton};
      if (situation.identity.brandCode == 2) buttons.insert(kApplyButton);
      if (type == 26) buttons.insert(kPageUpButton);
      return {buttons};
    }
    case PageCode::kSetting:
      if (type == 26 && situation.firmware < 281) return {{kReturnButton}};
      return {{kApplyButton, kReturnButton}};
    case PageCode::kTvWall:
      return {{kReturnButton, kWall1Button, kWall2Button, kWall3Button, kWall4Button}};
    case PageCode::kVideoSettings:
      return {{kPageUpButton, kApplyButton, kReturnButton}};
    case PageCode::kDisplayMode:
      return {{kApplyButton, kDefaultButton, kReturnButton, kPageUpButton}};
    default:
      return {{kApplyButton, kDefaultButton, kReturnButton}};
  }
}

}  // namespace panelora::fuzz
