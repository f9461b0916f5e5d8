#include "year/BookDump.h"

#include "store/engine/Statement.h"

namespace zelkor::test {
namespace {

std::string textOf(const Recordset& row, std::string_view column) {
  const Value cell = row.Fields(column);
  return cell.isNull() ? "~" : cell.text();
}

/// The query's rows under a line with the names of its columns.
std::string table(YearBooks& books, const std::string& title, const std::string& columns,
                  const std::string& rest) {
  std::string text = "\n# " + title + "\n" + columns + "\n";
  for (const std::string& row : books.rows("select " + columns + " " + rest)) text += row + "\n";
  return text;
}

/// Columns of one row, "name=value".
std::string named(const Recordset& row, std::initializer_list<const char*> columns) {
  std::string text = " ";
  for (const char* column : columns) text += sql(" ", column, "=", textOf(row, column));
  return text + "\n";
}

/// A column per month.
std::string series(const Recordset& row, const char* name, int first, int last) {
  std::string text = sql("  ", name, " ", first, "..", last, ":");
  for (int n = first; n <= last; ++n) text += sql(" ", textOf(row, sql(name, n)));
  return text + "\n";
}

std::string ledgerText(const Recordset& row) {
  return textOf(row, "sCardNum") + " " + textOf(row, "sDeprAssetNum") + "\n" +
         named(row, {"iInputPeriod", "dblInputValue", "dblInputDeprTotal", "dblInputBV", "dblInputBVRate",
                     "lInputLife", "lInputDeprMonths"}) +
         named(row, {"dblMonthValue", "dblMonthDeprTotal", "dblMonthBV", "dblMonthBVRate", "sMonthStatusID",
                     "dblPeriodValue", "dblPeriodDeprTotal", "dblDeprThisYear"}) +
         series(row, "dblDepr", 1, 12) + series(row, "dblDeprRate", 0, 12) + series(row, "dblDeprT", 1, 13) +
         series(row, "dblMonthValue", 0, 12) + series(row, "lDeprMonths", 1, 13) +
         series(row, "lUsedMonths", 1, 13);
}

std::string departmentLedgerText(const Recordset& row) {
  return textOf(row, "sCardNum") + " in " + textOf(row, "sDeptNum") +
         ": dblDeprThisYear=" + textOf(row, "dblDeprThisYear") + "\n" + series(row, "dblDepr", 1, 12) +
         series(row, "dblDeprT", 1, 13) + series(row, "dblMonthValue", 1, 13);
}

}  // namespace

std::string ledgersText(YearBooks& books) {
  std::string text = "\n# fa_DeprTransactions\n";
  Recordset cards = books.db().OpenRecordset("select * from fa_DeprTransactions order by sCardNum");
  for (; !cards.Eof(); cards.MoveNext()) text += ledgerText(cards);
  text += "\n# fa_DeprTransactions_Detail\n";
  Recordset departments =
      books.db().OpenRecordset("select * from fa_DeprTransactions_Detail order by sCardNum,sDeptNum");
  for (; !departments.Eof(); departments.MoveNext()) text += departmentLedgerText(departments);
  return text;
}

std::string cardsText(YearBooks& books) {
  return table(books, "fa_Cards",
               "sCardNum,sCardID,lOptID,iOptType,sVoucherNum,dTransDate,sDeptNum,sTransDepteNum,sStatusID,"
               "sDeprMethodID,lLife,lUsedMonths,lDeprMonthsAct,dblValue,dblBV,dblBVRate,dblNetValueAct,"
               "dblTransInDeprTCard,dblCanWork,dblPerDepr,iTransPeriod,dDisposeDate,iDisposePeriod,sOrgID,"
               "dblDecDeprT,dblDecDepr,dblDecDeprRate,dblDecWorkT,sOrgDisposeID,sDisposeReason",
               "from fa_Cards order by sCardNum,val(sCardID),lOptID") +
         table(books, "fa_DeptScale", "sCardNum,lOptID,sDeptNum,dblScale,sID",
               "from fa_DeptScale order by sCardNum,lOptID,sDeptNum") +
         table(books, "fa_Cards_Detail",
               "sCardNum,sCardID,lOptID,sDeptNum,dblValue,dblBV,dblTransInDeprTCard",
               "from fa_Cards_Detail order by sCardNum,lOptID,sDeptNum") +
         table(books, "fa_Vouchers",
               "sNum,sCardNum,sVoucherName,iVoucherType,lOptID,lPreOptID,sBeforeVoucher,sAfterVoucher,"
               "dTransDate,iTransPeriod,sSiteAfter",
               "from fa_Vouchers order by sNum") +
         table(books, "fa_CardsSheets",
               "sID,sCardNum,lSheetNum,sNum,dStartDate,memReason,dTransDate,dblAfterValue,dblTransValue",
               "from fa_CardsSheets order by val(sID),sCardNum") +
         table(books, "fa_Objects", "iObjectnum,lMaxid", "from fa_Objects order by iObjectnum");
}

std::string runText(YearBooks& books) {
  return table(books, "fa_DeprVouchers",
               "lOptID,iPeriod,sDeptNum,sDeptName,sTypeNum,sTypeName,sSubjectNum,sSubjectName,dblDebit,"
               "dblCredit",
               "from fa_DeprVouchers") +
         table(books, "fa_DeprVoucherMain", "lOptID,sNum,iMaxPeriod,iMinPeriod,iStyle",
               "from fa_DeprVoucherMain");
}

std::string workloadsText(YearBooks& books) {
  std::string text = "\n# fa_WorkLoad\n";
  Recordset rows = books.db().OpenRecordset("select * from fa_WorkLoad order by sCardNum");
  for (; !rows.Eof(); rows.MoveNext()) {
    text +=
        textOf(rows, "sCardNum") + "\n" + series(rows, "dblWork", 1, 12) + series(rows, "dblWorkT", 1, 12);
  }
  return text;
}

std::string totalsText(YearBooks& books) {
  return table(
      books, "fa_Total",
      "sDeptNum,sTypeNum,iPeriod,lCount,lMonthCount,dblValue,dblDeprTotal,dblMonthValue,"
      "dblMonthDeprTotal,dblYearValue,dblYearDeprTotal,dblAccrualValue,dblDepr,dblAddValue,dblDecValue,"
      "dblWork,dblWorkT,dblLastAccrualValue,dblLastDepr,dblLastAddValue,dblLastDecValue,dblLastWork,"
      "dblLastWorkTotal,dblTransOutDeprTotal",
      "from fa_Total order by iPeriod,sDeptNum,sTypeNum");
}

std::string optionsText(YearBooks& books) {
  return table(books, "AccInformation", "cName,cValue",
               "from AccInformation where cSysID='FA' order by cID") +
         table(books, "GL_mend", "iperiod,bflag_FA", "from GL_mend order by iperiod");
}

std::string stagedText(YearBooks& books, int month) {
  return table(
      books, "fa_ZWVouchers",
      "i_id,coutaccset,ioutyear,coutsysname,coutsysver,doutbilldate,ioutperiod,coutsign,coutno_id,inid,"
      "doutdate,coutbillsign,coutid,idoc,cbill,cdigest,ccode,md,mc,md_f,mc_f,nfrat,cdept_id,citem_id,"
      "citem_class,ccodecontrol,bvouchedit,bCusSupInput,cDefine1,cDefine2,cDefine5,cDefine9,cDefine10",
      sql("from fa_ZWVouchers where ioutperiod=", month, " order by i_id"));
}

std::string earlierStagedText(YearBooks& books, int month) {
  return table(books, "fa_ZWVouchers of the months before",
               "i_id,ioutperiod,ccode,md,mc,cDefine1,cDefine2,cDefine5,cDefine10",
               sql("from fa_ZWVouchers where ioutperiod<", month, " order by i_id"));
}

std::string vouchersText(YearBooks& books, int month) {
  return table(
      books, "GL_accvouch",
      "ino_id,inid,iperiod,csign,isignseq,doutbilldate,dbill_date,cbill,cdigest,ccode,md,mc,coutsign,"
      "coutno_id,ccodecontrol,iflag,ibook",
      sql("from GL_accvouch where iperiod=", month, " order by ino_id,inid"));
}

}  // namespace zelkor::test
