#include "closing/DisposalRows.h"

#include "base/Conversion.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

constexpr int kMonths = 12;

/// "<name><n>=0," for the months from `first` to `last`.
std::string zeroes(const char* name, int first, int last) {
  std::string columns;
  for (int n = first; n <= last; ++n) columns += sql(name, n, "=0,");
  return columns;
}

std::string amountsOf(const Recordset& row) {
  std::string amounts;
  for (const char* column :
       {"dblValue", "dblDecDeprT", "dblBV", "dblCanWork", "dblTransInDeprTCard", "dblTransOutDeprTCard",
        "dblDecPreValueT", "dblRetDecPreValueT", "dblBuildArea", "lBuildNum", "lMachinNum", "dblMachinW"}) {
    amounts += "," + row.TextOrEmpty(column);
  }
  return amounts;
}

}  // namespace

void raiseCounter(Database& data, Counter counter) {
  data.Execute(
      sql("update fa_Objects set lMaxid = lMaxid + 1 where iObjectnum =", static_cast<int>(counter)));
}

Value readCounter(Database& data, Counter counter) {
  return data.OpenRecordset(sql("select * from fa_Objects where iobjectnum =", static_cast<int>(counter)))
      .Fields("lMaxid");
}

std::string nextNumber(Database& data, const char* table) {
  const Recordset highest = data.OpenRecordset(sql("select max(sid) as a from ", table));
  return textOfDouble(highest.Fields("a").numberOrZero() + 1);
}

void addShare(Database& data, const DisposalVersion& version, const Recordset& share,
              const std::string& sID) {
  const auto text = [&share](const char* column) { return share.TextOrEmpty(column); };
  data.Execute(
      sql("INSERT INTO fa_DeptScale (sID,sCardNum,lOptID,sDeptNum,dblScale,sDeprSubjectNum,sDeprSubjectName,"
          "sProjectNum,sProjectName,cItemclsId) VALUES ( ",
          sID, ",'", version.sCardNum, "',", version.lOptID, ",'", text("sDeptNum"), "',", text("dblScale"),
          ",'", text("sDeprSubjectNum"), "','", text("sDeprSubjectName"), "','", text("sProjectNum"), "','",
          text("sProjectName"), "','", text("cItemclsId"), "')"));
}

void copyDepartmentRows(Database& data, const DisposalVersion& version) {
  Recordset rows =
      data.OpenRecordset(sql("Select * from fa_Cards_Detail where sCardID='", version.replacedID, "'"));
  for (; !rows.Eof(); rows.MoveNext()) {
    data.Execute(
        sql("insert into fa_Cards_Detail (sID,sCardID,sCardNum,sDeptNum,lOptID,dDisposeDate,iDisposePeriod,"
            "dblValue,"
            "dblDecDeprT,dblBV,dblCanWork,dblTransInDeprTCard,dblTransOutDeprTCard,dblDecPreValueT,"
            "dblRetDecPreValueT, "
            "dblBuildArea,lBuildNum,lMachinNum,dblMachinW) values (",
            nextNumber(data, "fa_Cards_Detail"), ",'", version.sCardID, "','", version.sCardNum, "','",
            rows.TextOrEmpty("sDeptNum"), "',", version.lOptID, ",#", dayText(version.date), "#,",
            version.date.month(), amountsOf(rows), ")"));
  }
}

void clearLedger(Database& data, const std::string& card, int m) {
  std::string columns = sql("dblDeprRate0=0,dblDeprT", m, "=0,", zeroes("dblDeprRate", m + 1, kMonths),
                            "dblMonthValue0=0,", zeroes("dblMonthValue", m + 1, kMonths));
  columns.pop_back();
  data.Execute(sql("update fa_DeprTransactions set ", columns, " where sCardNum='", card, "'"));
}

void clearDepartmentLedgers(Database& data, const std::string& card, int m) {
  std::string columns = sql("dblDeprT", m, "=0,", zeroes("dblMonthValue", m + 1, kMonths + 1));
  columns.pop_back();
  Recordset rows =
      data.OpenRecordset(sql("Select * from fa_DeprTransactions_Detail where sCardNum = '", card, "'"));
  for (; !rows.Eof(); rows.MoveNext()) {
    data.Execute(
        sql("update fa_DeprTransactions_Detail  set ", columns, " where sID=", rows.TextOrEmpty("sID")));
  }
}

}  // namespace zelkor
