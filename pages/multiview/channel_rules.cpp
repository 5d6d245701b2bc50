#include "pages/multiview/channel_rules.h"

#include <cstddef>

namespace panelora {

namespace {

constexpr std::uint8_t kInputs = 4;

// One more, from 4 or anything above it to 1.
std::uint8_t NextInput(std::uint8_t number) {
  return number >= kInputs ? std::uint8_t{1} : static_cast<std::uint8_t>(number + 1);
}

void WrapAbove(std::uint8_t& number, std::uint8_t greatest, std::uint8_t first) {
  if (number > greatest) number = first;
}

// The rules of the three buttons, by display mode and brand.
enum class Rule {
  kPairs,         // mode 6: main and sub are the two halves of a pair
  kThree,         // three different channels
  kThreeOrderly,  // brand 12, mode 4: the sub pictures stay in the order of the table
  kMainAndSub,    // everything else
};

Rule RuleOf(std::uint8_t mode, std::uint8_t brandCode) {
  if (mode == 6) return Rule::kPairs;
  if (mode == 7) return Rule::kThree;
  if (brandCode != kBrandOfThreeChannels) return Rule::kMainAndSub;
  if (mode == 5) return Rule::kThree;
  return mode == 4 ? Rule::kThreeOrderly : Rule::kMainAndSub;
}

// 1 and 2 are a pair, 3 and 4 the other; of the inputs 1 to 4.
std::uint8_t PartnerOf(std::uint8_t number) {
  return static_cast<std::uint8_t>(number % 2 == 0 ? number - 1 : number + 1);
}

// The second sub picture goes round in the pair that the main picture is not of.
void WrapIntoOtherPair(Channels& channels) {
  if (channels.main == 1 || channels.main == 2) WrapAbove(channels.sub2, 4, 3);
  if (channels.main == 3 || channels.main == 4) WrapAbove(channels.sub2, 2, 1);
}

// Moves the second sub picture on by one when main or sub has taken its channel.
void MoveTakenSub2(Channels& channels) {
  if (channels.main != channels.sub2 && channels.sub != channels.sub2) return;
  ++channels.sub2;
  WrapIntoOtherPair(channels);
}

void SkipMain(Channels& channels) {
  do {
    if (channels.sub == channels.main) ++channels.sub;
    WrapAbove(channels.sub, kInputs, 1);
  } while (channels.sub == channels.main);
}

// How the sub picture goes on where there are three channels, by main picture 1 to 4.
struct SubRule {
  bool stepsTwice;
  std::uint8_t skipped;  // becomes `instead`; 0 = none
  std::uint8_t instead;
  std::uint8_t greatest;  // above it comes `first`
  std::uint8_t first;
  std::uint8_t sub2;  // what a second sub picture on the same channel becomes; 0 = one more
};
constexpr SubRule kSubOfThree[] = {
    {false, 0, 0, 3, 2, 4}, {true, 0, 0, 3, 1, 4}, {false, 0, 0, 2, 1, 0}, {false, 0, 0, 2, 1, 3}};
constexpr SubRule kSubOrderly[] = {
    {false, 0, 0, 3, 2, 4}, {true, 2, 3, 3, 1, 4}, {false, 2, 4, 4, 1, 0}, {false, 2, 3, 3, 1, 2}};

// The same for the second sub picture.
struct Sub2Rule {
  std::uint8_t greatest;  // above it comes `first`
  std::uint8_t first;
  std::uint8_t other;  // instead of the channel of the sub picture
};
constexpr Sub2Rule kSub2OfThree[] = {{4, 3, 4}, {4, 3, 4}, {4, 2, 3}, {3, 2, 3}};

// The rule of the main picture; null when it is none of the inputs.
template <class Row, std::size_t size>
const Row* RuleOfMain(const Row (&rules)[size], std::uint8_t main) {
  return main >= 1 && main <= size ? &rules[main - 1] : nullptr;
}

void FollowSubRule(Channels& channels, const SubRule* rule) {
  if (rule == nullptr) return;
  auto& [main, sub, sub2] = channels;
  if (rule->stepsTwice) ++sub;
  if (rule->skipped != 0 && sub == rule->skipped) sub = rule->instead;
  WrapAbove(sub, rule->greatest, rule->first);
  if (sub2 != sub) return;
  sub2 = rule->sub2 != 0 ? rule->sub2 : static_cast<std::uint8_t>(sub2 + 1);
}

void FollowSub2Rule(Channels& channels, const Sub2Rule* rule) {
  if (rule == nullptr) return;
  WrapAbove(channels.sub2, rule->greatest, rule->first);
  if (channels.sub2 == channels.sub) channels.sub2 = rule->other;
}

}  // namespace

void StepMain(Channels& channels, std::uint8_t mode, std::uint8_t brandCode) {
  auto& [main, sub, sub2] = channels;
  main = NextInput(main);
  const Rule rule = RuleOf(mode, brandCode);
  if (rule == Rule::kPairs) {
    sub = PartnerOf(main);
    MoveTakenSub2(channels);
  } else if (rule == Rule::kThree) {
    constexpr Channels kFirst[] = {{1, 2, 3}, {2, 1, 3}, {3, 1, 2}, {4, 1, 2}};
    channels = kFirst[main - 1];
  } else if (brandCode == kBrandOfThreeChannels) {
    // In every mode of the brand but 5 to 7, also in those that show the main picture alone.
    constexpr Channels kFirst[] = {{1, 2, 3}, {2, 1, 3}, {3, 4, 1}, {4, 3, 1}};
    channels = kFirst[main - 1];
  } else {
    sub2 = 0;
    if (sub == main) sub = main == 1 ? 2 : 1;
  }
}

void StepSub(Channels& channels, std::uint8_t mode, std::uint8_t brandCode) {
  const Rule rule = RuleOf(mode, brandCode);
  if (rule == Rule::kPairs) {
    channels.sub = NextInput(channels.sub);
    channels.main = PartnerOf(channels.sub);
    MoveTakenSub2(channels);
    return;
  }
  ++channels.sub;
  if (rule == Rule::kThree) FollowSubRule(channels, RuleOfMain(kSubOfThree, channels.main));
  if (rule == Rule::kThreeOrderly) {
    FollowSubRule(channels, RuleOfMain(kSubOrderly, channels.main));
  }
  if (rule == Rule::kMainAndSub) SkipMain(channels);
}

void StepSub2(Channels& channels, std::uint8_t mode, std::uint8_t brandCode) {
  auto& [main, sub, sub2] = channels;
  ++sub2;
  switch (RuleOf(mode, brandCode)) {
    case Rule::kPairs:
    case Rule::kThreeOrderly:
      WrapIntoOtherPair(channels);
      break;
    case Rule::kThree:
      FollowSub2Rule(channels, RuleOfMain(kSub2OfThree, main));
      break;
    case Rule::kMainAndSub:
      // It is the first sub picture that is moved off the main one: deliberate.
      if (main == sub) ++sub;
      WrapAbove(sub2, kInputs, 1);
      break;
  }
}

}  // namespace panelora
