#include "archives/DepartArchive.h"

#include "base/Conversion.h"
#include "base/RuntimeError.h"
#include "startup/Logs.h"

namespace zelkor {
namespace {

void addLevel(ClsBLLDepart& departs, Recordset rows, const std::string& parentKey, int level,
              std::vector<TreeRow>& tree) {
  for (; rows.isOpen() && !rows.Eof(); rows.MoveNext()) {
    const std::string code = rows.TextOrEmpty("cDepCode");
    tree.push_back({"D" + code, parentKey, "(" + code + ")" + rows.TextOrEmpty("cDepName"), code});
    addLevel(departs, departs.GetDepartsInfo(code, level + 1), "D" + code, level + 1, tree);
  }
}

}  // namespace

std::vector<TreeRow> departTree(ClsBLLDepart& departs) {
  std::vector<TreeRow> tree;
  try {
    addLevel(departs, departs.TopDepartInfo(), "", 1, tree);
  } catch (const RuntimeError& error) {
    WriteErrorLog(error.number(), error.what(), "LoadAllDeparts");
  }
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
