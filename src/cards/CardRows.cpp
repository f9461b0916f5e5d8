#include "cards/CardRows.h"

#include <tuple>
#include <utility>

#include "base/Conversion.h"
#include "store/engine/Statement.h"

namespace zelkor {

namespace {

constexpr int monthsOfYear = 12;

/// What stands before and behind the first comma; without one, all of it stands before.
std::pair<std::string, std::string> splitAtComma(std::string_view text) {
  const std::size_t comma = text.find(',');
  if (comma == std::string_view::npos) return {std::string(text), {}};
  return {std::string(text.substr(0, comma)), std::string(text.substr(comma + 1))};
}

/// Code and name of the subject; both empty when the chart does not hold it.
std::pair<std::string, std::string> depreciationSubject(Database& database, const std::string& text) {
  if (text.empty()) return {};
  if (text.find(',') != std::string::npos) return splitAtComma(text);
  const Recordset row = database.OpenRecordset(sql("select * from code where ccode='", text, "'"));
  if (row.Eof()) return {};
  return {row.TextOrEmpty("ccode"), row.TextOrEmpty("ccode_name")};
}

}  // namespace

CardEntry::CardEntry(Database& database, const CardValues& cardValues, CardLayout cardLayout,
                     int operatingMonth)
    : values(cardValues), layout(cardLayout), month(operatingMonth) {
  department = splitAtComma(values[CardField::Department]).first;
  std::tie(subjectCode, subjectName) = depreciationSubject(database, values[CardField::DepreciationSubject]);
  life = CLng(Value(values[CardField::UsefulLife]));
  usedMonths = CLng(Value(values[CardField::MonthsDepreciated]));
  startDate = CDate(Value(values[CardField::StartDate])).toText();
  const DateTime entered = CDate(Value(values[CardField::EntryDate]));
  entryDate = entered.toText();
  entryMonth = entered.month();
}

void insertCard(Database& database, const CardEntry& card, const NewCardKeys& keys) {
  using enum CardField;
  const bool workload = card.layout == CardLayout::Workload;
  const std::string workloadValues =
      workload ? sql(",", card[MonthlyRate], ",", card[TotalWorkload], ",", card[TotalWorkload], ",'",
                     card[WorkloadUnit], "',", card[DeductibleTax])
               : std::string();
  database.Execute(sql(
      "Insert Into FA_Cards (sCardId,sCardNum,lOptID,sAssetNum,sAssetName ,sDeptNum,sTypeNum ,"
      "sOrgAddID,sStatusID,sDeprMethodId,sCurrency ,sSite,lLife "
      ",dStartDate,dInputDate,sOperator,dblNetValueAct,"
      "dblValue,dblBV,dblBVRate,lUsedMonths,dblTransInDeprTCard,sDeprSubjectNum,sDeprSubjectname,iNewType",
      workload ? ",dblperdepr,dblCanWork,dblCanWorkAct,sWorkUnit,dblOffsetTax" : "",
      ",iInputPeriod) Values ( '", keys.cardID, "','", card[CardNumber], "',", keys.lOptID, ",'",
      card[AssetNumber], "','", card[AssetName], "','", card.department, "','", card[CategoryCode], "','",
      card[AdditionWay], "','", card[UsageStatus], "','", card[DepreciationMethod], "','", card[CurrencyName],
      "','", card[Location], "',", card.life, ",#", card.startDate, "#,#", card.entryDate, "#,'",
      card[EnteredBy], "',", card[OriginalValue], ",", card[OriginalValue], ",", card[ResidualValue], ",",
      card[ResidualRate], ",", card.usedMonths, ",", card[AccumulatedDepreciation], ",'", card.subjectCode,
      "','", card.subjectName, "',", static_cast<int>(keys.type), workloadValues, ",", card.entryMonth, ")"));
}

void insertDeptScale(Database& database, const CardEntry& card, const NewCardKeys& keys) {
  database.Execute(
      sql("insert into fa_deptscale (sCardNum,lOptID,sDeptNum,dblScale,sDeprSubjectNum,"
          "sDeprSubjectName,sProjectNum,sProjectName,cItemclsId) values('",
          card[CardField::CardNumber], "',", keys.lOptID, ",'", card.department, "',1,'", card.subjectCode,
          "','", card.subjectName, "',null,null,null)"));
}

void insertCardDetail(Database& database, const CardEntry& card, const NewCardKeys& keys) {
  database.Execute(sql(
      "insert into fa_Cards_Detail (sCardID,sCardNum,sDeptNum,lOptID,dDisposeDate,"
      "iDisposePeriod,dblValue,dblDecDeprT,dblBV,dblCanWork,dblTransInDeprTCard,"
      "dblTransOutDeprTCard,dblDecPreValueT,dblRetDecPreValueT,dblBuildArea,lBuildNum,"
      "lMachinNum,dblMachinW) values ('",
      keys.cardID, "','", card[CardField::CardNumber], "','", card.department, "',", keys.lOptID, ",'',0,",
      card[CardField::OriginalValue], ",0,", card[CardField::ResidualValue], ",0,0,0,0,0,0,0,0,0)"));
}

void insertDeprTransaction(Database& database, const CardEntry& card) {
  using enum CardField;
  std::string monthColumns;
  std::string monthValues;
  for (int n = card.month + 1; n <= monthsOfYear; ++n) {
    monthColumns += sql(",dblMonthValue", n);
    monthValues += sql(",", card[OriginalValue]);
  }
  database.Execute(sql(
      "Insert Into FA_DeprTransactions (sCardNum,sDeprAssetNum,iInputPeriod,dblInputValue,"
      "dblInputDeprTotal,dblMonthDeprTotal,dblInputBV,dblMonthBV,dblInputBVRate,dblMonthBVRate,lInputLife,"
      "lInputDeprMonths,sMonthStatusID,dblDeprT",
      card.month, ",dblMonthValue0", monthColumns, ") Values ('", card[CardNumber], "','", card[AssetNumber],
      "',", card.month, ",", card[OriginalValue], ",", card[AccumulatedDepreciation], ",",
      card[AccumulatedDepreciation], ",", card[ResidualValue], ",", card[ResidualValue], ",",
      card[ResidualRate], ",", card[ResidualRate], ",", card.life, ",", card[MonthsDepreciated], ",'",
      card[UsageStatus], "',", card[AccumulatedDepreciation], ",", card[OriginalValue], monthValues, ")"));
}

void insertDeprTransactionDetail(Database& database, const CardEntry& card) {
  std::string columns;
  std::string values;
  for (int n = 1; n <= monthsOfYear; ++n) {
    columns += sql(",dblDepr", n, ",dblDeprT", n);
    values += ",0,0";
  }
  for (int n = 1; n <= monthsOfYear + 1; ++n) {
    columns += sql(",dblMonthValue", n);
    values += n <= card.month ? ",0" : "," + card[CardField::OriginalValue];
  }
  database.Execute(sql("Insert Into FA_DeprTransactions_detail (sCardNum,sDeptNum", columns,
                       ",dblDeprThisYear) Values ('", card[CardField::CardNumber], "','", card.department,
                       "'", values, ",0)"));
}

void updateCardRows(Database& database, const CardEntry& card, std::string_view cardNum) {
  using enum CardField;
  const std::string workloadAssignments =
      card.layout == CardLayout::Workload
          ? sql(",dblperdepr=", card[MonthlyRate], ",dblCanWork=", card[TotalWorkload],
                ",dblCanWorkAct=", card[TotalWorkload], ",sWorkUnit='", card[WorkloadUnit],
                "',dblOffsetTax=", card[DeductibleTax])
          : std::string();
  database.Execute(sql(
      "Update FA_Cards Set sAssetNum='", card[AssetNumber], "',sAssetName='", card[AssetName], "',sDeptNum='",
      card.department, "',sTypeNum='", card[CategoryCode], "',sOrgAddID='", card[AdditionWay],
      "',sStatusID='", card[UsageStatus], "',sDeprMethodId='", card[DepreciationMethod], "',sCurrency='",
      card[CurrencyName], "',sSite='", card[Location], "',lLife=", card.life, ",dStartDate=#", card.startDate,
      "#,dInputDate=#", card.entryDate, "#,sOperator='", card[EnteredBy],
      "',dblNetValueAct=", card[OriginalValue], ",dblValue=", card[OriginalValue],
      ",dblBV=", card[ResidualValue], ",dblBVRate=", card[ResidualRate], ",lUsedMonths=", card.usedMonths,
      ",dblTransInDeprTCard=", card[AccumulatedDepreciation], ",sDeprSubjectNum='", card.subjectCode,
      "',sDeprSubjectname='", card.subjectName, "'", workloadAssignments, " Where sCardNum='", cardNum, "'"));
}

void updateDeprTransaction(Database& database, const CardEntry& card, std::string_view cardNum) {
  using enum CardField;
  std::string monthAssignments;
  for (int n = card.month + 1; n <= monthsOfYear; ++n) {
    monthAssignments += sql(",dblMonthValue", n, "=", card[AccumulatedDepreciation]);
  }
  database.Execute(
      sql("Update FA_DeprTransactions Set sDeprAssetNum='", card[AssetNumber], "',iInputPeriod=", card.month,
          ",dblInputValue=", card[OriginalValue], ",dblInputDeprTotal=", card[AccumulatedDepreciation],
          ",dblMonthDeprTotal=", card[AccumulatedDepreciation], ",dblInputBV=", card[ResidualValue],
          ",dblMonthBV=", card[ResidualValue], ",dblInputBVRate=", card[ResidualRate],
          ",dblMonthBVRate=", card[ResidualRate], ",lInputLife=", card.life,
          ",lInputDeprMonths=", card[MonthsDepreciated], ",sMonthStatusID='", card[UsageStatus], "',dblDeprT",
          card.month, "=", card[AccumulatedDepreciation], ",dblMonthValue0=", card[AccumulatedDepreciation],
          monthAssignments, " Where sCardNum='", cardNum, "'"));
}

}  // namespace zelkor
