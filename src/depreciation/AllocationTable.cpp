#include "depreciation/AllocationTable.h"

#include "base/Format.h"
#include "store/engine/Statement.h"
#include "store/engine/StatementGroup.h"

namespace zelkor {
namespace {

struct ModeWords {
  const char* groups;     // the query of the sums
  const char* names;      // the query of a group's names, up to the group's number
  const char* numColumn;  // where the group's number and name stand
  const char* nameColumn;
  const char* header;
};

const ModeWords& wordsOf(AllocationMode mode) {
  static constexpr ModeWords kDepartment = {
      "select sum(dblCredit) as dblJZE,sDeptNum,sSubjectNum from fa_DeprVouchers group by "
      "sDeptNum,sSubjectNum",
      "select sDeptName,sSubjectName from fa_DeprVouchers where sDeptNum='", "sDeptNum", "sDeptName",
      "部门编号|部门名称|项目编号|项目名称|科目编号|科目名称|金额"};
  static constexpr ModeWords kAssetType = {
      "select sum(dblCredit) as dblJZE,sTypeNum,sSubjectNum from fa_DeprVouchers group by "
      "sTypeNum,sSubjectNum",
      "select sTypeName,sSubjectName from fa_DeprVouchers where sTypeNum='", "sTypeNum", "sTypeName",
      "类别编号|类别名称|项目编号|项目名称|科目编号|科目名称|金额"};
  return mode == AllocationMode::Department ? kDepartment : kAssetType;
}

TextGrid emptyTable(const ModeWords& words) {
  static constexpr int kWidths[] = {1200, 2400, 0, 0, 1500, 3000, 1800};
  TextGrid grid;
  grid.setHeader(words.header);
  for (std::size_t column = 0; column < std::size(kWidths); ++column) {
    grid.setColumnWidth(column, kWidths[column]);
    grid.setColumnHidden(column, kWidths[column] == 0);
  }
  grid.setAlignment(6, Align::Right);
  return grid;
}

}  // namespace

TextGrid allocationTable(Database& data, AllocationMode mode) {
  const ModeWords& words = wordsOf(mode);
  TextGrid grid = emptyTable(words);
  Currency total;
  StatementGroup group(data);
  group.runAll([&] {
    Recordset groups = data.OpenRecordset(words.groups);
    for (; !groups.Eof(); groups.MoveNext()) {
      const std::string number = groups.TextOrEmpty(words.numColumn);
      const std::string subject = groups.TextOrEmpty("sSubjectNum");
      const double amount = groups.Fields("dblJZE").number();
      group.open(sql(words.names, number, "' and sSubjectNum='", subject, "'"),
                 [&, number, subject, amount](const Recordset& names) {
                   grid.addRow({number, names.TextOrEmpty(words.nameColumn), "", "", subject,
                                names.TextOrEmpty("sSubjectName"), Format(amount, "0.00")});
                   total = Currency::fromDouble(total.toDouble() + amount);
                 });
    }
  });
  grid.setTotal(grid.addRow({"合计", "", "", "", "", "", Format(total, "0.00")}));
  return grid;
}

std::string allocationPeriod(DateTime opDate) {
  const std::string month = Format(opDate, "yyyy.mm");
  return "01 (" + month + "-->" + month + ")";
}

}  // namespace zelkor
