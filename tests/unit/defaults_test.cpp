// What a box leaves the factory with.
#include "catalogue/defaults.h"

#include <gtest/gtest.h>

#include "catalogue/audio.h"
#include "catalogue/setting.h"
#include "catalogue/video.h"

namespace panelora {
namespace {

constexpr std::uint32_t kNewest = 0xFFFF;

// The value that is stored last at an address; -1 = none.
int StoredAt(const std::vector<Default>& defaults, const Address& at) {
  int stored = -1;
  for (const Default& each : defaults) {
    const bool same = each.at.kind == at.kind && each.at.number == at.number;
    if (same && each.at.sub == at.sub) stored = each.bytes.front();
  }
  return stored;
}

std::uint8_t Byte(int value) { return static_cast<std::uint8_t>(value); }

std::vector<Identity> Variants(std::uint8_t boxType) {
  return {{boxType, 0, 0, 0, 0}, {boxType, 2, 0, 0, 0}, {boxType, 0, 0, 1, 1}};
}

const Choice* Named(const OptionGroup& group, const Kept& kept, std::uint8_t boxType, int value) {
  const auto byte = Byte(value);
  const Choices choices = group.options[kept.option].choices;
  return kept.reads == Reads::kIndex ? FindIndex(choices, boxType, byte)
                                     : FindValue(choices, boxType, byte);
}

TEST(Defaults, EveryOptionOfEveryTypeIsStored) {
  for (int type = 0; type < kNoBoxType; ++type) {
    const auto boxType = static_cast<std::uint8_t>(type);
    const std::vector<Default> defaults = DefaultsOf({boxType, 0, 0, 0, 0}, kNewest);
    for (const OptionGroup* group : {&video::Options(), &setting::Options(), &audio::Options()}) {
      for (const Kept& kept : group->kept) {
        if (!kept.types.Has(boxType) || kept.access == Access::kWriteOnly) continue;
        const int stored = StoredAt(defaults, kept.at);
        ASSERT_GE(stored, 0) << type << ": " << group->options[kept.option].name;
      }
    }
  }
}

// Also where brand and DIP switches say what a type has.
TEST(Defaults, EveryOptionOfEveryTypeHasAName) {
  for (int type = 0; type < kNoBoxType; ++type) {
    for (const Identity& box : Variants(static_cast<std::uint8_t>(type))) {
      const std::vector<Default> defaults = DefaultsOf(box, kNewest);
      const int input = StoredAt(defaults, audio::InputOf(box.boxType));
      for (const OptionGroup* group : {&video::Options(), &setting::Options(), &audio::Options()}) {
        for (const Kept& kept : group->kept) {
          if (!kept.Serves(box, kNewest) || kept.access == Access::kWriteOnly) continue;
          const int stored = StoredAt(defaults, kept.at);
          const bool isSource = group == &audio::Options() && kept.option == audio::kSource;
          const Choice* choice = isSource
                                     ? audio::FindSource(box.boxType, Byte(input), Byte(stored))
                                     : Named(*group, kept, box.boxType, stored);
          EXPECT_NE(choice, nullptr)
              << type << ": " << group->options[kept.option].name << " " << stored;
        }
      }
    }
  }
}

TEST(Defaults, NoBoxHasNone) { EXPECT_TRUE(DefaultsOf({}, kNewest).empty()); }

}  // namespace
}  // namespace panelora
