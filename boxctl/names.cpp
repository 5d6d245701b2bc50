#include "boxctl/names.h"

#include <algorithm>

#include "boxctl/failure.h"
#include "boxctl/texts.h"
#include "catalogue/describe.h"
#include "catalogue/multiview.h"

namespace panelora::boxctl {

namespace {

constexpr std::size_t kMostNear = 5;

bool IsSamePlace(const Address& one, const Address& other) {
  return one.kind == other.kind && one.number == other.number && one.sub == other.sub;
}

// Every box can be asked for display modes; only those that have some tell any.
bool IsTold(const Property& property, const Identity& identity) {
  const bool isModes = property.at == multiview::kModes && property.access == Access::kReadOnly &&
                       std::string_view(property.name) == "Display Modes";
  return !isModes || multiview::kModels.Has(identity.boxType);
}

std::vector<Named> Chosen(const Identity& identity, std::uint32_t firmware,
                          bool (*isWanted)(const Property&)) {
  std::vector<Property> all = PropertiesOf(identity, firmware);
  std::erase_if(all, [&](const Property& each) {
    return each.isAside || !isWanted(each) || !IsTold(each, identity);
  });
  return Distinct(all);
}

std::vector<std::string> NamesOf(std::span<const Named> all) {
  std::vector<std::string> names(all.size());
  std::transform(all.begin(), all.end(), names.begin(),
                 [](const Named& each) { return each.name; });
  return names;
}

}  // namespace

std::vector<Named> Distinct(std::span<const Property> properties) {
  std::vector<Named> all;
  for (const Property& property : properties) {
    const bool isThere = std::any_of(all.begin(), all.end(), [&](const Named& each) {
      return each.name == property.name && IsSamePlace(each.property.at, property.at);
    });
    if (!isThere) all.push_back({property.name, property});
  }
  const auto isOfName = [&](const char* name) {
    return [name](const Named& each) { return std::string_view(each.property.name) == name; };
  };
  for (Named& each : all) {
    if (std::count_if(all.begin(), all.end(), isOfName(each.property.name)) < 2) continue;
    each.name += " (" + TextOf(each.property.at) + ")";
  }
  return all;
}

std::vector<Named> ReadableOf(const Identity& identity, std::uint32_t firmware) {
  return Chosen(identity, firmware,
                [](const Property& each) { return each.access != Access::kWriteOnly; });
}

std::vector<Named> WritableOf(const Identity& identity, std::uint32_t firmware) {
  return Chosen(identity, firmware, [](const Property& each) {
    return each.access != Access::kReadOnly && each.command == Property::kAnyValue;
  });
}

std::vector<Named> AllOf(const Identity& identity, std::uint32_t firmware) {
  return Chosen(identity, firmware, [](const Property&) { return true; });
}

std::string NearOf(std::span<const std::string> names, const std::string& typed) {
  const std::string wanted = Folded(typed);
  std::vector<std::pair<std::size_t, std::string>> near;
  for (const std::string& name : names) {
    const std::string folded = Folded(name);
    const bool isPart = !wanted.empty() && (folded.find(wanted) != std::string::npos ||
                                            wanted.find(folded) != std::string::npos);
    const std::size_t distance = isPart ? 0 : DistanceOf(folded, wanted);
    if (isPart || distance * 3 <= wanted.size()) near.emplace_back(distance, name);
  }
  std::stable_sort(near.begin(), near.end(),
                   [](const auto& one, const auto& other) { return one.first < other.first; });
  near.resize(std::min(near.size(), kMostNear));
  std::vector<std::string> found(near.size());
  std::transform(near.begin(), near.end(), found.begin(),
                 [](const auto& each) { return each.second; });
  return Joined(found);
}

std::vector<Named> Find(std::span<const Named> all, const std::string& name) {
  const std::string wanted = Folded(name);
  std::vector<Named> found;
  for (const Named& each : all) {
    const bool isMeant = wanted == Folded(each.name) || wanted == Folded(each.property.name) ||
                         wanted == Folded(TextOf(each.property.at));
    if (isMeant) found.push_back(each);
  }
  if (!found.empty()) return found;
  const std::string near = NearOf(NamesOf(all), name);
  throw Failure(Exit::kDiffers,
                "nothing of this box is called \"" + Printable(name) + "\": " +
                    (near.empty() ? "boxctl read lists what it has" : "do you mean " + near + "?"));
}

bool IsCommand(std::span<const Named> all, const std::string& name) {
  return std::any_of(all.begin(), all.end(), [&](const Named& each) {
    return each.property.command != Property::kAnyValue &&
           Folded(each.property.name) == Folded(name);
  });
}

Named FindOne(std::span<const Named> all, const std::string& name) {
  const std::vector<Named> found = Find(all, name);
  if (found.size() == 1) return found.front();
  throw Failure(Exit::kBadInput, "\"" + Printable(name) + "\" means several things: say which of " +
                                     Joined(NamesOf(found)));
}

}  // namespace panelora::boxctl
