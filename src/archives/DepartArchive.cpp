#include "archives/DepartArchive.h"

#include "archives/LevelTree.h"
#include "base/Conversion.h"
#include "base/RuntimeError.h"
#include "startup/Logs.h"

namespace zelkor {
namespace {

void addDeparts(LevelTree& tree, LevelTree::Place above, Recordset& rows) {
  for (; !rows.Eof(); rows.MoveNext()) {
    const std::string code = rows.TextOrEmpty("cDepCode");
    tree.add(above, {"D" + code, above ? tree[*above].key : "",
                     "(" + code + ")" + rows.TextOrEmpty("cDepName"), code});
  }
}

void LoadAllDeparts(ClsBLLDepart& departs, LevelTree& tree) {
  try {
    Recordset top = departs.TopDepartInfo();
    if (top.isOpen()) addDeparts(tree, {}, top);
  } catch (const RuntimeError& error) {
    WriteErrorLog(error.number(), error.what(), "LoadAllDeparts");
  }
}

/// What is below all departments of a level is asked for together.
void LoadSubDeparts(ClsBLLDepart& departs, LevelTree& tree) {
  int level = 1;
  for (auto parents = tree.newPlaces(); !parents.empty(); parents = tree.newPlaces()) {
    std::vector<std::string> codes;
    for (const std::size_t place : parents) codes.push_back(tree[place].tag);
    departs.GetDepartsInfo(codes, ++level,
                           [&](std::size_t i, Recordset& rows) { addDeparts(tree, parents[i], rows); });
  }
}

}  // namespace

std::vector<TreeRow> departTree(ClsBLLDepart& departs) {
  LevelTree tree;
  LoadAllDeparts(departs, tree);
  LoadSubDeparts(departs, tree);
  return tree.rows();
}

std::optional<DepartRecord> readDepart(ClsBLLDepart& departs, std::string_view code) {
  const Recordset row = departs.GetDepartDetail(code);
  if (!row.isOpen() || row.Eof()) return std::nullopt;
  DepartRecord depart;
  depart.code = row.TextOrEmpty("cDepCode");
  depart.name = row.TextOrEmpty("cDepName");
  depart.person = row.TextOrEmpty("cDepPerson");
  depart.property = row.TextOrEmpty("cDepProp");
  depart.phone = row.TextOrEmpty("cDepPhone");
  depart.address = row.TextOrEmpty("cDepAddress");
  depart.memo = row.TextOrEmpty("cDepMemo");
  depart.level = CInt(row.Fields("iDepGrade").numberOrZero());
  return depart;
}

TextGrid personGrid(Recordset persons) {
  TextGrid grid;
  grid.setHeader("职员编号|职员名称|所属部门");
  for (; persons.isOpen() && !persons.Eof(); persons.MoveNext()) {
    grid.addRow({persons.TextOrEmpty("cPersonCode"), persons.TextOrEmpty("cPersonName"),
                 persons.TextOrEmpty("cDepName")});
  }
  return grid;
}

}  // namespace zelkor
