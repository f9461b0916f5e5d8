#include "depreciation/StagedDepr.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "base/Conversion.h"
#include "base/Format.h"
#include "store/engine/Statement.h"
#include "store/engine/StatementGroup.h"

namespace zelkor {
namespace {

/// All lines of a month's depreciation are to form one voucher.
constexpr const char* kVoucherKey = "00000000000000000100";

constexpr std::array<const char*, 9> kEditingRights = {"bvouchedit", "bvouchAddordele", "bvouchmoneyhold",
                                                       "bvalueedit", "bcodeedit",       "bPCSedit",
                                                       "bDeptedit",  "bItemedit",       "bCusSupInput"};

void setDebitRow(const RunContext& run, Recordset& staged, const Recordset& group, std::int16_t inid) {
  const std::string opDate = Format(run.gdOpDate, "yyyy-m-d");
  const std::string subject = group.TextOrEmpty("sSubjectNum");
  staged.AddNew();
  staged.Collect("coutaccset", run.gstrAccountId);
  staged.Collect("ioutyear", run.gdOpDate.year());
  staged.Collect("coutsysname", "FA");
  staged.Collect("coutsysver", "8.10");
  staged.Collect("doutbilldate", opDate);
  staged.Collect("ioutperiod", run.period());
  staged.Collect("coutsign", "折旧计提");
  staged.Collect("coutno_id", "01");
  staged.Collect("inid", inid);
  staged.Collect("doutdate", opDate);
  staged.Collect("coutbillsign", "折旧计提");
  staged.Collect("coutid", kVoucherKey);
  staged.Collect("idoc", 0);
  staged.Collect("cbill", run.gstrUser);
  staged.Collect("cdigest", stagedDeprDigest(run.period()));
  if (!subject.empty()) staged.Collect("ccode", subject);
  staged.Collect("md", group.Fields("dblJZE"));
  staged.Collect("mc", 0);
  staged.Collect("cdept_id", group.Fields("sDeptNum"));
  staged.Collect("ccodecontrol", "FA,#");
  for (const char* right : kEditingRights) staged.Collect(right, true);
  staged.Collect("cDefine5", inid);
  staged.Collect("cDefine10", "折旧计提");
}

/// What the debit rows of a month come to.
struct DebitRows {
  Currency total;
  std::int16_t next = 1;  // the number of the row after them
};

/// Adds one for each department and subject whose amount is not 0, many together.
void addDebitRows(RunContext& run, StatementGroup& rows, DebitRows& added) {
  Recordset groups = run.dbZKData.OpenRecordset(
      "select sum(dblCredit) as dblJZE,sDeptNum,sSubjectNum from fa_DeprVouchers group by "
      "sDeptNum,sSubjectNum");
  for (; !groups.Eof(); groups.MoveNext()) {
    const double amount = groups.Fields("dblJZE").numberOrZero();
    if (amount == 0) continue;
    rows.add("fa_ZWVouchers", [&](Recordset& staged) { setDebitRow(run, staged, groups, added.next); });
    if (static_cast<std::size_t>(added.next) % StatementGroup::kThings == 0) rows.run();
    added.total = Currency::fromDouble(added.total.toDouble() + amount);
    added.next = CInt(static_cast<double>(added.next) + 1);
  }
}

void addCreditRow(RunContext& run, Currency total, std::int16_t inid) {
  const std::string opDate = Format(run.gdOpDate, "yyyy-m-d");
  run.dbZKData.Execute(
      sql("insert into fa_ZWVouchers (coutaccset,ioutyear,coutsysname,coutsysver,doutbilldate,"
          "ioutperiod,coutsign,coutno_id,inid,doutdate,coutbillsign,coutid,idoc,cbill,"
          "cdigest,md,mc,ccodecontrol,"
          "bvouchedit,bvouchAddordele,bvouchmoneyhold,"
          "bvalueedit,bcodeedit,"
          "bPCSedit,bDeptedit,bItemedit,bCusSupInput,cDefine5,cDefine10) values ('",
          run.gstrAccountId, "',", run.gdOpDate.year(), ",'FA','8.10',#", opDate, "#,", run.period(),
          ",'折旧计提','01',", inid, ",#", opDate, "#,'折旧计提','", kVoucherKey, "',0,'", run.gstrUser,
          "','", stagedDeprDigest(run.period()), "',0,", total,
          ",'FA,#',true,true,true,true,true,true,true,true,true,", inid, ",'折旧计提')"));
}

}  // namespace

std::string stagedDeprDigest(int month) {
  return "计提第[" + std::to_string(month) + "]期间折旧";
}

void stageDepr(RunContext& run) {
  Database& data = run.dbZKData;
  data.Execute(sql("delete from fa_ZWVouchers where ioutperiod=", run.period(), " and coutsign='折旧计提'"));
  StatementGroup rows(data);
  DebitRows debits;
  rows.runAll([&] { addDebitRows(run, rows, debits); });
  addCreditRow(run, debits.total, debits.next);
}

}  // namespace zelkor
