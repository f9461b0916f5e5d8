#include "changes/ProjectLists.h"

#include "base/Text.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

constexpr std::string_view kKeyBeginning = "t";
constexpr const char* kDirection = "cDirection";
constexpr std::size_t kDirectionColumn = 4;
constexpr int kWidths[] = {1500, 3600, 1100, 1400, 900};

std::string rootKey() {
  return std::string(kKeyBeginning).append(kProjectRootMark);
}

std::string classKey(std::string_view classNumber) {
  return std::string(kKeyBeginning).append(classNumber);
}

std::string groupTable(Database& data, std::string_view classNumber) {
  const Recordset projectClass =
      data.OpenRecordset(sql("select * from fitem where citem_class='", classNumber, "'"));
  return projectClass.Eof() ? std::string() : projectClass.TextOrEmpty("cClasstable");
}

/// Not every class keeps a direction with its projects.
bool hasDirection(const Recordset& projects) {
  for (std::size_t i = 0; i < projects.FieldCount(); ++i) {
    if (equalsIgnoringCase(projects.FieldName(i), kDirection)) return true;
  }
  return false;
}

bool meets(const std::string& cell, const std::string& sought, ProjectMatch match) {
  const std::string text = LCase(cell);
  switch (match) {
    case ProjectMatch::Whole:
      return text == sought;
    case ProjectMatch::Content:
      return text.find(sought) != std::string::npos;
    case ProjectMatch::Right:
      return text.ends_with(sought);
    case ProjectMatch::Left:
      break;
  }
  return text.starts_with(sought);
}

}  // namespace

std::vector<TreeRow> projectClassTree(Database& data) {
  std::vector<TreeRow> tree{{rootKey(), "", "项目大类", std::string(kProjectRootMark)}};
  Recordset classes = data.OpenRecordset("select * from fitem order by citem_class  ");
  for (; !classes.Eof(); classes.MoveNext()) {
    const std::string number = classes.TextOrEmpty("citem_class");
    tree.push_back({classKey(number), rootKey(), classes.TextOrEmpty("citem_name"), number});
  }
  return tree;
}

std::vector<TreeRow> projectGroups(Database& data, std::string_view classNumber) {
  std::vector<TreeRow> groups;
  const std::string table = groupTable(data, classNumber);
  if (table.empty()) return groups;
  Recordset rows = data.OpenRecordset(sql("select * from ", table, " order by cItemCcode"));
  for (; !rows.Eof(); rows.MoveNext()) {
    groups.push_back({classKey(classNumber) + "." + rows.TextOrEmpty("cItemCcode"), classKey(classNumber),
                      rows.TextOrEmpty("cItemCname"), std::string(kProjectGroupMark)});
  }
  return groups;
}

std::string_view projectGroupCode(std::string_view groupKey, std::string_view classKey) {
  return groupKey.substr(classKey.size() + 1);
}

TextGrid projectList(Database& data, std::string_view classNumber) {
  TextGrid grid;
  grid.setHeader("项目编码|项目名称|是否结算|所属分类码|方向");
  for (std::size_t i = 0; i < std::size(kWidths); ++i) grid.setColumnWidth(i, kWidths[i]);
  Recordset projects = data.OpenRecordset(sql("select * from fitemss", classNumber, " order by citemcode"));
  const bool keepsDirection = hasDirection(projects);
  bool directed = false;
  for (; !projects.Eof(); projects.MoveNext()) {
    const std::string direction = keepsDirection ? projects.TextOrEmpty(kDirection) : "";
    directed = directed || !direction.empty();
    grid.addRow({projects.TextOrEmpty("citemcode"), projects.TextOrEmpty("citemname"),
                 projects.Fields("bclose").numberOrZero() == 0 ? "否" : "是",
                 projects.TextOrEmpty("citemccode"), direction});
  }
  if (!directed) grid.resize(grid.rows(), kDirectionColumn);
  return grid;
}

std::size_t nextProject(const TextGrid& list, std::size_t row, std::string_view text, ProjectMatch match) {
  const std::string sought = LCase(text);
  const std::size_t first = list.headerRows();
  const std::size_t count = list.rows() - first;
  const std::size_t start = row < first ? 0 : row - first + 1;
  for (std::size_t step = 0; step < count; ++step) {
    const std::size_t at = first + (start + step) % count;
    if (list.rowHidden(at)) continue;
    if (meets(list.text(at, kProjectCodeColumn), sought, match) ||
        meets(list.text(at, kProjectNameColumn), sought, match))
      return at;
  }
  return 0;
}

}  // namespace zelkor
