#include "archives/ArchiveTrees.h"

#include <algorithm>
#include <utility>

#include "base/Text.h"

namespace zelkor {
namespace {

constexpr std::string_view kRootCode = "&";
constexpr const char* kHeadKey = "N0";

struct Columns {
  std::string_view code;
  std::string_view parent;
  std::string_view root;  // code of the archive's own root row, for which the head stands
};

std::string archiveKey(const std::string& id) {
  return std::string("t").append(id);
}

std::vector<TreeRow> pickTree(Recordset entries, const Columns& columns, std::string head) {
  std::vector<TreeRow> tree{{kHeadKey, "", std::move(head)}};
  for (; !entries.Eof(); entries.MoveNext()) {
    const std::string code = entries.TextOrEmpty(columns.code);
    if (code == columns.root) continue;
    const std::string parent = entries.TextOrEmpty(columns.parent);
    tree.push_back({std::string("N").append(code),
                    parent.empty() ? kHeadKey : std::string("N").append(parent),
                    code + " " + entries.TextOrEmpty("sName"), code});
  }
  return tree;
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

std::set<std::string> codesOfHeads(std::span<const TreeRow> tree) {
  std::set<std::string> keys;
  std::set<std::string> parents;
  for (const TreeRow& row : tree) keys.insert(asciiLower(row.key));
  for (const TreeRow& row : tree) {
    const std::string parent = asciiLower(row.parentKey);
    // A row whose parent is not there hangs below the first one.
    if (!parent.empty()) parents.insert(keys.contains(parent) ? parent : asciiLower(tree.front().key));
  }
  std::set<std::string> heads;
  for (const TreeRow& row : tree) {
    if (parents.contains(asciiLower(row.key))) heads.insert(row.tag);
  }
  return heads;
}

std::vector<TreeRow> departPickTree(Database& data) {
  return pickTree(data.OpenRecordset("SELECT * From fa_Departments  Where (iLevel <= 2)  ORDER BY sNum"),
                  {"sNum", "sParentNum", kRootCode}, "固定资产部门编码目录");
}

std::vector<TreeRow> statusPickTree(Database& data) {
  return pickTree(data.OpenRecordset("SELECT * From fa_Status  Where (iLevel <= 2)  ORDER BY sID"),
                  {"sID", "sParentID", "0"}, "使用状况目录表");
}

std::vector<TreeRow> reductionPickTree(Database& data) {
  return pickTree(
      data.OpenRecordset("SELECT * From fa_Origins  Where (iLevel <= 2) and sID not like '1*' ORDER BY sID"),
      {"sID", "sParentID", "0"}, "增减方式目录表");
}

}  // namespace zelkor
