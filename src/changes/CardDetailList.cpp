#include "changes/CardDetailList.h"

#include <set>

#include "base/Text.h"
#include "cards/CardVersions.h"
#include "changes/SheetRules.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

constexpr const char* kNewestOfCard =
    " Where a.sCardID in ( Select  Top 1 sCardID From fa_cards Where fa_cards.sCardNum = a.sCardNum"
    " Order By sCardID Desc)";
constexpr const char* kNewestDepreciatedOfCard =
    " Where a.sCardID in ( Select  Top 1 sCardID From fa_cards Where fa_cards.sCardNum = a.sCardNum"
    " And  fa_cards.dblTransInDeprTCard<>0 Order By sCardID Desc)";

/// Columns of a list after the common ones: how each row ends.
using RowEnd = std::vector<std::string> (*)(const Recordset& row);

std::vector<std::string> commonCells(const Recordset& row) {
  return {row.TextOrEmpty("sCardNum"), row.TextOrEmpty("sAssetNum"), row.TextOrEmpty("sAssetName"),
          shownDate(row.Fields("dStartdate")), row.TextOrEmpty("sStyle")};
}

void addRows(TextGrid& grid, Recordset rows, RowEnd rowEnd, const std::set<std::string>& except = {}) {
  for (; !rows.Eof(); rows.MoveNext()) {
    if (except.contains(rows.TextOrEmpty("sCardNum"))) continue;
    auto cells = commonCells(rows);
    for (std::string& cell : rowEnd(rows)) cells.push_back(std::move(cell));
    grid.addRow(std::move(cells));
  }
}

TextGrid gridWith(const char* captionsOfEnd) {
  TextGrid grid;
  grid.setHeader(sql("卡片编号|固定资产编号|固定资产名称|开始使用日期|规格型号", captionsOfEnd));
  return grid;
}

TextGrid allCards(Database& database) {
  TextGrid grid;
  grid.setHeader("卡片编号|固定资产编号|固定资产名称");
  Recordset rows = database.OpenRecordset(
      "select distinct sCardNum,sAssetNum,sAssetName from  fa_cards order by sCardNum");
  for (; !rows.Eof(); rows.MoveNext()) {
    grid.addRow(
        {rows.TextOrEmpty("sCardNum"), rows.TextOrEmpty("sAssetNum"), rows.TextOrEmpty("sAssetName")});
  }
  return grid;
}

TextGrid cardsWithStatus(Database& database) {
  TextGrid grid = gridWith("|使用状况|使用状况编号");
  addRows(grid,
          database.OpenRecordset(sql("select a.*,fa_status.sName from fa_cards a,fa_status", kNewestOfCard,
                                     " And  a.sStatusID=fa_status.sID order by a.sCardNum")),
          [](const Recordset& row) {
            return std::vector{row.TextOrEmpty("sName"), row.TextOrEmpty("sStatusID")};
          });
  return grid;
}

TextGrid cardsWithResidualValue(Database& database) {
  TextGrid grid = gridWith("|净残值率|净残值");
  addRows(grid,
          database.OpenRecordset(
              sql("select a.* from fa_cards a", kNewestDepreciatedOfCard, " order by a.sCardNum")),
          [](const Recordset& row) {
            return std::vector{row.TextOrEmpty("dblBVRate"), row.TextOrEmpty("dblBV")};
          });
  return grid;
}

/// The cards with a sheet of the type, each with what its sheet left, then those that have none.
TextGrid cardsBySheet(Database& database, int voucherType, const char* caption, const char* newest,
                      RowEnd rowEnd) {
  TextGrid grid = gridWith(caption);
  addRows(grid,
          database.OpenRecordset(
              sql("select a.* ,fa_Vouchers.sBeforeVoucher,fa_Vouchers.sAfterVoucher, fa_Vouchers.iVoucherType"
                  " from  fa_cards a,fa_Vouchers  Where  a.sCardNum=fa_Vouchers.sCardNum "
                  " And  a.lOptID=fa_Vouchers.lOptID And  fa_Vouchers.iVoucherType=",
                  voucherType, "  Order By Val(a.sCardID) DESC ")),
          [](const Recordset& row) { return std::vector{row.TextOrEmpty("sAfterVoucher")}; });
  std::set<std::string> withSheet;
  for (std::size_t row = grid.headerRows(); row < grid.rows(); ++row) withSheet.insert(grid.text(row, 0));
  addRows(grid, database.OpenRecordset(sql("select a.* from fa_cards a", newest, " order by a.sCardNum")),
          rowEnd, withSheet);
  return grid;
}

TextGrid cardsWithDepreciation(Database& database) {
  return cardsBySheet(
      database, voucherTypeOf(ChangeKind::AccumulatedDepr), "|累计折旧", kNewestDepreciatedOfCard,
      [](const Recordset& row) { return std::vector{row.TextOrEmpty("dblTransInDeprTCard")}; });
}

TextGrid cardsWithLife(Database& database) {
  return cardsBySheet(database, voucherTypeOf(ChangeKind::UsefulLife), "|使用年限", kNewestOfCard,
                      [](const Recordset& row) { return std::vector{row.TextOrEmpty("lLife")}; });
}

TextGrid cardsToTransfer(Database& database, DateTime operatingDate) {
  TextGrid grid = gridWith("|部门|部门编码|录入日期");
  Recordset rows = database.OpenRecordset(versionsInForce(operatingDate) + " Order By fa_Cards.sCardNum");
  for (; !rows.Eof(); rows.MoveNext()) grid.addRow(transferListRow(database, CardVersion(rows)));
  return grid;
}

}  // namespace

TextGrid cardDetailList(Database& database, ChangeKind kind, DateTime operatingDate) {
  switch (kind) {
    case ChangeKind::OriginalValue:
      return allCards(database);
    case ChangeKind::UsageStatus:
      return cardsWithStatus(database);
    case ChangeKind::AccumulatedDepr:
      return cardsWithDepreciation(database);
    case ChangeKind::UsefulLife:
      return cardsWithLife(database);
    case ChangeKind::ResidualValue:
      return cardsWithResidualValue(database);
    case ChangeKind::Transfer:
      break;
  }
  return cardsToTransfer(database, operatingDate);
}

std::string versionInForceOf(std::string_view cardNum, DateTime date) {
  return sql(versionsInForceBeginning(date), ") And fa_Cards.sCardNum='", cardNum,
             "' GROUP BY fa_Cards.sCardNum) And  fa_Cards.sCardNum='", cardNum,
             "' Order By val(fa_Cards.sCardID) Desc");
}

std::optional<CardVersion> versionInForce(Database& database, std::string_view cardNum, DateTime date) {
  return firstVersion(database, versionInForceOf(cardNum, date));
}

std::vector<std::string> transferListRow(Database& database, const CardVersion& version) {
  return transferListRow(version, departmentNames(database, version.text("sDeptNum")));
}

std::vector<std::string> transferListRow(const CardVersion& version, const std::string& departmentNames) {
  return {version.text("sCardNum"),         version.text("sAssetNum"),       version.text("sAssetName"),
          shownDate(version["dStartdate"]), version.text("sStyle"),          departmentNames,
          version.text("sDeptNum"),         shownDate(version["dInputDate"])};
}

std::string departmentNames(Database& database, std::string_view codes) {
  return departmentNames(database.OpenRecordset(departmentsOf(codes)), codes);
}

std::string departmentsOf(std::string_view codes) {
  if (codes.find('/') == std::string_view::npos)
    return sql("select sname from fa_departments where snum='", codes, "'");
  std::string quoted;
  for (const std::string& code : Split(codes, '/')) quoted += sql(quoted.empty() ? "'" : ",'", code, "'");
  return sql("select sname from fa_departments where snum in (", quoted, ")");
}

std::string departmentNames(Recordset departments, std::string_view codes) {
  const bool several = codes.find('/') != std::string_view::npos;
  std::string names;
  for (; !departments.Eof(); departments.MoveNext()) {
    names += (names.empty() ? "" : "/") + departments.TextOrEmpty("sname");
    if (!several) break;
  }
  return names;
}

}  // namespace zelkor
