#include "closing/Disposal.h"

#include <cstdint>

#include "base/Conversion.h"
#include "closing/DisposalRows.h"
#include "closing/DisposalVouchers.h"
#include "store/engine/Statement.h"
#include "store/settings/Parameters.h"

namespace zelkor {
namespace {

constexpr const char* kTitle = "固定资产";

std::string versionInForce(const std::string& card, DateTime date) {
  const std::string day = date.toText();
  return sql(
      "SELECT * FROM fa_Cards  Where (fa_Cards.dDisposeDate Is null) And fa_Cards.iOptType<>8 And "
      "fa_Cards.iOptType<>6 "
      "and cint(fa_Cards.sCardID) IN (SELECT Max(cint(sCardID)) From fa_Cards WHERE "
      "(((fa_Cards.dInputDate)<=#",
      day, "#) AND ((fa_Cards.dTransDate)<=#", day,
      "# Or (fa_Cards.dTransDate) Is Null) AND ((fa_Cards.dDisposeDate)<=#", day,
      "# Or (fa_Cards.dDisposeDate) Is Null) and sCardNum ='", card,
      "') GROUP BY fa_Cards.sCardNum) Order By fa_Cards.sCardNum");
}

std::string sharesOf(const std::string& cardID) {
  return sql(
      "select fa_DeptScale.sDeptNum,fa_DeptScale.dblScale,fa_DeptScale.sDeprSubjectNum,"
      "fa_DeptScale.sDeprSubjectName,fa_DeptScale.sProjectNum,fa_DeptScale.sProjectName, "
      "fa_DeptScale.cItemclsId from "
      "fa_DeptScale INNER join fa_cards on fa_DeptScale.sCardNum = fa_cards.sCardNum and "
      "fa_DeptScale.lOptID = fa_cards.lOptID "
      "Where  fa_cards.sCardid = '",
      cardID, "'");
}

std::string departmentValuesOf(const std::string& cardID, int m) {
  return sql("select fa_Cards_Detail.sDeptNum, dblValue, D.dblDepr", m, " as dblDepr,  D.dblDeprT", m,
             "- D.dblDepr", m,
             " AS dblDeprT  From fa_Cards_Detail INNER JOIN fa_DeprTransactions_Detail D ON "
             "fa_Cards_Detail.sCardNum = D.sCardNum and "
             "fa_Cards_Detail.sDeptNum = D.sDeptNum  where fa_Cards_Detail.sCardid ='",
             cardID, "' ORDER BY fa_Cards_Detail.sID");
}

/// One asset's disposal, from the card that is read to the sheet that is registered.
class Disposal {
 public:
  Disposal(RunContext& run, const DisposedAsset& asset)
      : run_(run),
        data_(run.dbZKData),
        asset_(asset),
        now_(run.clock.now()),
        today_(*DateTime::fromParts(now_.year(), now_.month(), now_.day())) {}

  void carryOut();

 private:
  void moveWritableDate();
  void readLedger();
  void readVersion();
  void readDepartmentValues();
  void raiseVersionCounters();
  void addVersion();
  void setDisposalColumns(Recordset& added) const;
  void giveUpShares(Recordset& shares);
  void requireTotal(const std::string& department);
  Value departmentValue(const std::string& department);
  void registerSheet();

  RunContext& run_;
  Database& data_;
  const DisposedAsset& asset_;
  DateTime now_;
  DateTime today_;
  int m_ = run_.period();      // of the login date
  int mSys_ = today_.month();  // of the system date
  Recordset ledger_;
  std::int16_t work_ = 0;          // workload of the month
  std::int32_t residualRate_ = 0;  // a whole number, so that a fraction is lost
  std::int32_t residual_ = 0;
  Recordset inForce_;
  DisposalVersion version_;
  Recordset departments_;
};

void Disposal::carryOut() {
  moveWritableDate();
  readLedger();
  readVersion();
  Recordset shares = data_.OpenRecordset(sharesOf(version_.replacedID));
  readDepartmentValues();
  dropStagedDisposal(data_, asset_.sCardNum);
  raiseVersionCounters();
  addVersion();
  raiseCounter(data_, Counter::DepartmentShare);
  readCounter(data_, Counter::DepartmentShare);
  if (!shares.Eof()) giveUpShares(shares);
  copyDepartmentRows(data_, version_);
  clearDepartmentLedgers(data_, asset_.sCardNum, m_);
  registerSheet();
}

void Disposal::moveWritableDate() {
  data_.Execute(sql("update accinformation set cValue='", now_.toText(),
                    "' where cSysID='fa' and cName='dWritableDate'"));
}

void Disposal::readLedger() {
  const std::string& card = asset_.sCardNum;
  // Opened with the others, although its number is read only after it has been raised.
  const Recordset versionCounter = data_.OpenRecordset("select * from fa_Objects where iobjectnum =1");
  ledger_ = data_.OpenRecordset(sql("select * from fa_DeprTransactions where sCardNum ='", card, "'"));
  const Recordset workload =
      data_.OpenRecordset(sql("Select top 1 * from fa_WorkLoad where sCardNum ='", card, "'"));
  if (!workload.Eof()) work_ = CInt(workload.Fields(sql("dblwork", m_)));
  residualRate_ = CLng(ledger_.Fields("dblMonthBVRate"));
  residual_ = CLng(ledger_.Fields("dblMonthBV"));
}

void Disposal::readVersion() {
  inForce_ = data_.OpenRecordset(versionInForce(asset_.sCardNum, run_.gdOpDate));
  version_ = {.sCardNum = asset_.sCardNum,
              .replacedID = inForce_.Text("sCardID"),
              .sCardID = textOfDouble(inForce_.Fields("sCardID").number() + 1),
              .lOptID = textOfDouble(inForce_.Fields("lOptID").number() + 1),
              .date = today_};
}

/// The sum serves nothing, but it has to stay within 16 bits.
void Disposal::readDepartmentValues() {
  departments_ = data_.OpenRecordset(departmentValuesOf(version_.replacedID, m_));
  std::int16_t sum = 0;
  for (; !departments_.Eof(); departments_.MoveNext()) {
    sum = CInt(sum + departments_.Fields("dbldepr").number());
  }
}

void Disposal::raiseVersionCounters() {
  raiseCounter(data_, Counter::Operation);
  raiseCounter(data_, Counter::CardVersion);
  readCounter(data_, Counter::CardVersion);
}

void Disposal::addVersion() {
  Recordset cards = data_.OpenRecordset("select * from fa_cards");
  cards.AddNew();
  for (std::size_t i = 0; i < inForce_.FieldCount(); ++i) {
    cards.Collect(inForce_.FieldName(i), inForce_.Fields(i));
  }
  setDisposalColumns(cards);
  cards.Update();
}

void Disposal::setDisposalColumns(Recordset& added) const {
  added.Collect("sCardID", version_.sCardID);
  added.Collect("sCardNum", asset_.sCardNum);
  added.Collect("sAssetNum", asset_.sAssetNum);
  added.Collect("sAssetName", asset_.sAssetName);
  added.Collect("lOptID", version_.lOptID);
  added.Collect("iOptType", 3);
  added.Collect("sOrgID", asset_.wayID);
  added.Collect("dDisposeDate", today_);
  added.Collect("iInputPeriod", 0);
  added.Collect("iDisposePeriod", mSys_);
  added.Collect("sDisposer", run_.gstrUser);
  for (const char* column : {"dblDecDeprT", "dblDecDepr"}) {
    added.Collect(column, ledger_.Fields(sql("dblDepr", mSys_)));
  }
  added.Collect("dblDecDeprRate", ledger_.Fields(sql("dblDeprRate", m_)));
  for (const char* column : {"dblDecWorkT", "dblCanWork"}) added.Collect(column, work_);
  added.Collect("dblBV", residual_);
  added.Collect("dblBVRate", residualRate_);
  added.Collect("bMultiDept", CBool(inForce_.Fields("bMultiDept")) ? "-1" : "0");
}

void Disposal::giveUpShares(Recordset& shares) {
  const std::string sID = nextNumber(data_, "fa_DeptScale");
  for (; !shares.Eof(); shares.MoveNext()) {
    const std::string department = shares.TextOrEmpty("sDeptNum");
    addShare(data_, version_, shares, sID);
    raiseCounter(data_, Counter::DepartmentShare);
    requireTotal(department);
    clearLedger(data_, asset_.sCardNum, m_);
    stageDisposal(run_, {asset_.sCardNum, today_, departmentValue(department)});
  }
}

/// A row of the totals stays as it is; without one there is nothing to edit, which is error 3021.
void Disposal::requireTotal(const std::string& department) {
  Recordset total =
      data_.OpenRecordset(sql("Select * from fa_total where sDeptNum ='", department, "' and sTypeNum = '",
                              inForce_.TextOrEmpty("sTypeNum"), "' and iPeriod =", m_));
  if (total.Eof()) total.Edit();
}

/// Of the department itself, or of the first one where it has no row.
Value Disposal::departmentValue(const std::string& department) {
  departments_.MoveFirst();
  departments_.FindFirst(sql("sDeptNum='", department, "'"));
  if (departments_.NoMatch()) departments_.MoveFirst();
  return departments_.Fields("dblvalue");
}

void Disposal::registerSheet() {
  raiseCounter(data_, Counter::SheetEntry);
  readCounter(data_, Counter::SheetEntry);
  data_.Execute(
      sql("insert into fa_CardsSheets (sID,sCardNum,lSheetNum,memReason,dTransDate,dblAfterValue,"
          "dblTransValue) VALUES(",
          nextNumber(data_, "fa_CardsSheets"), ",'", asset_.sCardNum, "',7,'", asset_.reason, "',#",
          dayText(today_), "#,'", asset_.revenue, "','", asset_.cost, "')"));
}

}  // namespace

bool refusedBeforeDepreciation(RunContext& run) {
  if (!isYes(readParameter(run.dbZKData, "bNeedDepr").value_or(""))) return false;
  run.dialogs.MsgBox("本账套需要进行计提折旧后，才能减少资产！", Buttons::Ok, Icon::Information, kTitle);
  return true;
}

bool disposeOfAssets(RunContext& run, std::span<const DisposedAsset> assets) {
  for (const DisposedAsset& asset : assets) {
    if (asset.way.empty()) {
      run.dialogs.MsgBox(asset.sCardNum + "卡片未填写减少方式！", Buttons::Ok, Icon::Information);
      return false;
    }
    // A killed process leaves an asset on the books or off them.
    const KeptTogether together = run.dbZKData.keepTogether();
    Disposal(run, asset).carryOut();
  }
  return true;
}

void tellDisposed(RunContext& run) {
  run.dialogs.MsgBox("所选卡片已减少成功！", Buttons::Ok, Icon::Information, kTitle);
}

}  // namespace zelkor
