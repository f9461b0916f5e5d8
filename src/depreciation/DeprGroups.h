#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "base/Text.h"

namespace zelkor {

/// What belongs to one code of an archive.
template <typename Sums>
struct DeprGroup {
  std::string number;
  std::string name;
  Sums sums;
};

/// Groups by code, in the order of the codes and without regard to case, as statements group.
template <typename Sums>
class DeprGroups {
 public:
  /// The group of that code; a new one begins with `empty`.
  Sums& of(const std::string& number, const std::string& name, const Sums& empty = {}) {
    const auto [group, isNew] = groups_.try_emplace(asciiLower(number));
    if (isNew) group->second = {number, name, empty};
    return group->second.sums;
  }
  std::vector<DeprGroup<Sums>> inOrder() && {
    std::vector<DeprGroup<Sums>> groups;
    for (auto& [key, group] : groups_) groups.push_back(std::move(group));
    return groups;
  }

 private:
  std::map<std::string, DeprGroup<Sums>> groups_;
};

}  // namespace zelkor
