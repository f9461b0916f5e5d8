#pragma once

#include <string>

namespace zelkor {

/// One entry of a tree, to be hung below the entry whose key is `parentKey`. Keys are unique within a tree
/// and compared without regard to case.
struct TreeRow {
  std::string key;
  std::string parentKey;
  std::string text;
  std::string tag = {};

  bool operator==(const TreeRow&) const = default;
};

}  // namespace zelkor
