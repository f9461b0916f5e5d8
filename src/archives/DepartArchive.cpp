#include "archives/DepartArchive.h"

#include "base/Conversion.h"
#include "base/RuntimeError.h"
#include "startup/Logs.h"

namespace zelkor {
namespace {

/// Adds the departments of a recordset below `parentKey`; each one's code is handed on for the level below.
template <typename Deeper>
void loadDeparts(Recordset rows, const std::string& parentKey, std::vector<TreeRow>& tree, Deeper deeper) {
  for (; rows.isOpen() && !rows.Eof(); rows.MoveNext()) {
    const std::string code = rows.TextOrEmpty("cDepCode");
    tree.push_back({"D" + code, parentKey, "(" + code + ")" + rows.TextOrEmpty("cDepName"), code});
    deeper(code);
  }
}

void LoadSubDeparts(ClsBLLDepart& departs, const std::string& parent, int level, std::vector<TreeRow>& tree) {
  try {
    loadDeparts(departs.GetDepartsInfo(parent, level), "D" + parent, tree,
                [&](const std::string& code) { LoadSubDeparts(departs, code, level + 1, tree); });
  } catch (const RuntimeError& error) {
    WriteErrorLog(error.number(), error.what(), "LoadSubDeparts");
  }
}

void LoadAllDeparts(ClsBLLDepart& departs, std::vector<TreeRow>& tree) {
  try {
    loadDeparts(departs.TopDepartInfo(), "", tree,
                [&](const std::string& code) { LoadSubDeparts(departs, code, 2, tree); });
  } catch (const RuntimeError& error) {
    WriteErrorLog(error.number(), error.what(), "LoadAllDeparts");
  }
}

}  // namespace

std::vector<TreeRow> departTree(ClsBLLDepart& departs) {
  std::vector<TreeRow> tree;
  LoadAllDeparts(departs, tree);
  return tree;
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
