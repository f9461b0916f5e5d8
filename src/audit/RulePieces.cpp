#include "audit/RulePieces.h"

#include "store/engine/Statement.h"

namespace zelkor {
namespace {

struct Piece {
  std::string_view word;
  std::string_view text;
};

// A piece may name those below it.
constexpr Piece kPieces[] = {
    // Card version c is its card's newest.
    {"{newest}",
     "not exists (select z.sCardID from fa_Cards z where z.sCardNum=c.sCardNum and "
     "val(z.sCardID)>val(c.sCardID))"},
    // The run takes card version c: the last in the order of text.
    {"{runTakes}",
     "not exists (select z.sCardID from fa_Cards z where z.sCardNum=c.sCardNum and z.sCardID>c.sCardID)"},
    // The methods by which a month's amount is computed.
    {"{depreciates}", "c.sDeprMethodID in ('2','3','5','6')"},
    // What the run gives card version c; the rate is rounded before the amount is taken.
    {"{expected}", R"(
iif(c.sDeprMethodID in ('2','3','6'),iif(c.lLife=0,0,ccur(c.dblValue*ccur((1-c.dblBVRate)/c.lLife))),
iif(c.sDeprMethodID='5' and c.lLife>6,ccur((c.dblValue-c.dblBV)*ccur((c.lLife-c.lUsedMonths)/
(cint(cint(c.lLife/12)*(cint(c.lLife/12)+1)/2)*c.lLife))),0)))"},
    // An archive has no such code. Several departments of one card stand beside each other, parted by "/".
    {"{noCategory}", "not exists (select a.sNum from fa_AssetTypes a where a.sNum=c.sTypeNum)"},
    {"{noDepartment}",
     "(nz(instr(c.sDeptNum,'/'),0)=0 and not exists (select a.sNum from fa_departments a where "
     "a.sNum=c.sDeptNum))"},
    {"{noStatus}", "not exists (select a.sID from fa_Status a where a.sID=c.sStatusID)"},
    {"{noMethod}", "not exists (select a.sID from fa_Depreciations a where a.sID=c.sDeprMethodID)"},
    {"{noWay}", "not exists (select a.sID from fa_Origins a where a.sID=c.sOrgAddID)"},
    // Card version c can be read. Where a column holds something of another type, it stands before or behind
    // all values of its own.
    {"{hasNumber}", "(c.sCardID>='0' and c.sCardID<':')"},
    {"{hasDates}",
     "(c.dStartdate>=#100-1-1# and c.dStartdate<=#9999-12-31# and (c.dTransDate is null or "
     "(c.dTransDate>=#100-1-1# and c.dTransDate<=#9999-12-31#)) and (c.dDisposeDate is null or "
     "(c.dDisposeDate>=#100-1-1# and c.dDisposeDate<=#9999-12-31#)))"},
    {"{hasLife}",
     "((c.lLife is null or (c.lLife>=0 and c.lLife<1000000)) and (c.lUsedMonths is null or "
     "(c.lUsedMonths>=0 and c.lUsedMonths<1000000)))"},
    {"{hasAmounts}",
     "(c.dblValue>-1E14 and c.dblValue<1E14 and (c.dblBV is null or (c.dblBV>-1E14 and c.dblBV<1E14)) and "
     "(c.dblTransInDeprTCard is null or (c.dblTransInDeprTCard>-1E14 and c.dblTransInDeprTCard<1E14)))"},
    // What the rows by department of the version of row d come to.
    {"{ofDepartments}",
     "(select sum(e.dblValue) from fa_Cards_Detail e where e.sCardNum=d.sCardNum and e.sCardID=d.sCardID)"},
    // Row s belongs to no card.
    {"{noCard}", "not exists (select c.sCardNum from fa_Cards c where c.sCardNum=s.sCardNum)"},
    // A row of the allocation as the ledger keeps it: rounded to cents, a half away from zero.
    {"{cents}", "fix(dblCredit*100+iif(dblCredit<0,-0.5000001,0.5000001))"},
    // The staged entries of the depreciation.
    {"{stagedRun}", "fa_ZWVouchers where ioutyear={year} and ioutperiod={run} and coutsign='折旧计提'"},
    // The vouchers in the ledger: month, kind, number.
    {"{vouchers}", R"(
(select iperiod, iif(coutsign='合并制单','折旧计提',coutsign) as sKind, {number} as sNumber, min(ino_id) as lVoucher,
  sum(md) as mTotal
from GL_accvouch where {ours} and year(dbill_date)={year}
group by iperiod, iif(coutsign='合并制单','折旧计提',coutsign), {number}))"},
    // This module's vouchers that are not cancelled.
    {"{ours}", "ccodecontrol='FA,#' and (iflag<>1 or iflag is null)"},
    // What a key such as "卡片(00009)" is for. One voucher of merged lines may be for all kinds, and later
    // billing writes its own key into the depreciation of all months: both count as depreciation.
    {"{kindOfKey}", R"(
iif(cDefine10 like '卡片(*','卡片',iif(cDefine10 like '资产减少*','资产减少',
iif(cDefine10 like '折旧计提*' or cDefine10 like '合并制单*','折旧计提',nz(cDefine10,'')))))"},
    // A voucher bears the number of its event for cards only.
    {"{numberOfKey}",
     "iif(cDefine10 like "
     "'卡片(*',mid(cDefine10,instr(cDefine10,'(')+1,len(cDefine10)-instr(cDefine10,'(')-1),'')"},
    {"{number}", "iif(coutsign='卡片',nz(coutno_id,''),'')"},
};

void fillIn(std::string& statement, std::string_view word, std::string_view text) {
  for (std::size_t at = statement.find(word); at != std::string::npos;
       at = statement.find(word, at + text.size()))
    statement.replace(at, word.size(), text);
}

}  // namespace

std::string withPieces(std::string_view statement) {
  std::string filled(statement);
  for (const Piece& piece : kPieces) fillIn(filled, piece.word, piece.text);
  return filled;
}

std::string withNumbers(std::string statement,
                        const std::vector<std::pair<std::string_view, std::string>>& words) {
  for (const auto& [word, text] : words) fillIn(statement, word, text);
  return statement;
}

std::string addedMonths(int month) {
  std::string sum = "(0";
  for (int n = 1; n <= month; ++n) sum += sql("+t.dblDepr", n);
  return sum + ")";
}

std::string monthSums(int last) {
  std::string sums;
  for (int month = 1; month <= last; ++month) sums += sql(", sum(dblDepr", month, ") as d", month);
  return sums;
}

std::string sumOfMonth(int last) {
  std::string sum = "0";
  for (int month = last; month >= 1; --month)
    sum = sql("iif(s.ioutperiod=", month, ",l.d", month, ",", sum, ")");
  return sum;
}

}  // namespace zelkor
