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

const Choice* Named(const OptionGroup& group, const Kept& kept, std::uint8_t boxType, int value) {
  const auto byte = static_cast<std::uint8_t>(value);
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
        if (!kept.types.Has(boxType)) continue;
        const int stored = StoredAt(defaults, kept.at);
        ASSERT_GE(stored, 0) << type << ": " << group->options[kept.option].name;
      }
    }
  }
}

TEST(Defaults, EveryOptionOfTheShippedTypeHasAName) {
  const std::vector<Default> defaults = DefaultsOf({26, 0, 0, 0, 0}, kNewest);
  for (const OptionGroup* group : {&video::Options(), &setting::Options()}) {
    for (const Kept& kept : group->kept) {
      if (!kept.types.Has(26)) continue;
      const Choice* choice = Named(*group, kept, 26, StoredAt(defaults, kept.at));
      EXPECT_NE(choice, nullptr) << group->options[kept.option].name;
    }
  }
  EXPECT_NE(audio::FindSource(26, 1, static_cast<std::uint8_t>(StoredAt(defaults, Word(6)))),
            nullptr);
}

TEST(Defaults, NoBoxHasNone) { EXPECT_TRUE(DefaultsOf({}, kNewest).empty()); }

}  // namespace
}  // namespace panelora
