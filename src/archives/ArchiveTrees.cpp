#include "archives/ArchiveTrees.h"

#include <algorithm>

namespace zelkor {
namespace {

constexpr std::string_view kRootCode = "&";

std::string archiveKey(const std::string& id) {
  return std::string("t").append(id);
}

}  // namespace

std::vector<TreeRow> archiveTree(ClsBLLAssentTypes& types, ArchiveKind kind) {
  Recordset entries = kind == ArchiveKind::AssetTypes ? types.GetAssentTypes() : types.GetOtherTypes(kind);
  std::vector<TreeRow> tree;
  for (; entries.isOpen() && !entries.Eof(); entries.MoveNext()) {
    const std::string parentID = entries.TextOrEmpty("sParentID");
    tree.push_back({archiveKey(entries.TextOrEmpty("sID")), parentID.empty() ? "" : archiveKey(parentID),
                    entries.TextOrEmpty("sName"), entries.TextOrEmpty("sNum")});
  }
  const auto root = std::ranges::find(tree, kRootCode, &TreeRow::tag);
  if (root == tree.end()) return tree;
  std::rotate(tree.begin(), root, root + 1);
  tree.front().parentKey.clear();
  for (std::size_t i = 1; i < tree.size(); ++i) {
    if (tree[i].parentKey.empty()) tree[i].parentKey = tree.front().key;
  }
  return tree;
}

}  // namespace zelkor
