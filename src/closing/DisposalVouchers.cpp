#include "closing/DisposalVouchers.h"

#include "base/Conversion.h"
#include "base/Format.h"
#include "store/engine/Statement.h"

namespace zelkor {
namespace {

/// What distinguishes the rows of one event.
struct Line {
  int inid = 0;
  const char* ccode = "";
  Value md;
  Value mc;
};

std::string nextKey(Database& data) {
  const Recordset highest = data.OpenRecordset("select max(coutid) as a from fa_ZWVouchers");
  return Format(Val(highest.TextOrEmpty("a")) + 1, "00000000000000000000");
}

void addRow(RunContext& run, const StagedDisposal& disposal, const std::string& key, const Line& line) {
  Recordset staged = run.dbZKData.OpenRecordset("Select * from fa_ZWVouchers");
  staged.AddNew();
  staged.Collect("coutaccset", run.gstrAccountId);
  staged.Collect("ioutyear", run.gdOpDate.year());
  staged.Collect("ioutperiod", run.period());
  staged.Collect("coutsysname", "FA");
  staged.Collect("coutsysver", "8.10");
  for (const char* date : {"doutbilldate", "doutdate"}) staged.Collect(date, disposal.date);
  for (const char* caption : {"coutsign", "coutbillsign", "cdigest"}) staged.Collect(caption, "资产减少");
  staged.Collect("coutno_id", disposal.sCardNum);
  staged.Collect("inid", line.inid);
  staged.Collect("coutid", key);
  staged.Collect("idoc", 0);
  staged.Collect("cbill", run.gstrUser);
  staged.Collect("ccode", line.ccode);
  staged.Collect("md", line.md);
  staged.Collect("mc", line.mc);
  for (const char* foreign : {"md_f", "mc_f", "nfrat"}) staged.Collect(foreign, 0);
  for (const char* auxiliary : {"cdept_id", "citem_id", "citem_class"}) staged.Collect(auxiliary, "");
  for (const char* right : {"bvouchedit", "bvouchAddordele", "bvouchmoneyhold", "bvalueedit", "bcodeedit",
                            "bPCSedit", "bDeptedit", "bItemedit"}) {
    staged.Collect(right, true);
  }
  staged.Collect("ccodecontrol", "FA,#");
  staged.Update();
}

/// Word for word as it is issued. It has a word, a comma and a column that the engine does not know.
void addThirdRow(RunContext& run, const StagedDisposal& disposal, int inid) {
  const std::string day = dayText(disposal.date);
  run.dbZKData.Execute(
      sql("insert into fa_ZWVouchers (coutaccset,ioutyear,coutsysname,coutsysver,doutbilldate,"
          "ioutperiod,coutsign,coutno_id,inid,doutdate,coutbillsign,coutid,idoc,cbill,cdigest,ccode,"
          "md,mc,md_f,mc_f,nfrat,cdept_id,citem_id,citem_class,vouchedit,bvouchAddordele,bvouchmoneyhold,"
          "bvalueedit,bcodeedit,ccodecontrol,bPCSedit,bDeptedit,bItemedit) valuse ('",
          run.gstrAccountId, "',", run.gdOpDate.year(), ",'FA','8.10',", "#", day, "#,", run.period(),
          ",'资产减少'，'", disposal.sCardNum, "',", inid, ",#", day, "#,'资产减少' ", ",'',0,", "'",
          run.gstrUser, "'", ",'资产减少','',0,", disposal.value.textOrEmpty(),
          ",0,0,0,'','','',-1,-1,-1,-1,-1,'FA,#',-1,-1,-1", ")"));
}

}  // namespace

void dropStagedDisposal(Database& data, const std::string& card) {
  Recordset taken =
      data.OpenRecordset(sql("SELECT TOP 1 cdefine10 FROM fa_ZWVouchers WHERE coutsign = '资产减少' AND "
                             "coutno_id = '",
                             card, "' AND (Not cdefine1 is Null)"));
  if (taken.Eof()) return;
  taken.Close();
  data.Execute(
      sql("DELETE FROM fa_ZWVouchers WHERE fa_ZWVouchers.coutsign = '资产减少' AND "
          "fa_ZWVouchers.coutno_id = '",
          card, "'"));
}

void stageDisposal(RunContext& run, const StagedDisposal& disposal) {
  const std::string key = nextKey(run.dbZKData);
  addRow(run, disposal, key, {.inid = 1, .ccode = "", .md = disposal.value, .mc = 0});
  addRow(run, disposal, key, {.inid = 2, .ccode = "0", .md = 0, .mc = disposal.value});
  addThirdRow(run, disposal, 3);
}

}  // namespace zelkor
