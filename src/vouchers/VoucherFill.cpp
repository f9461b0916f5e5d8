#include "vouchers/VoucherFill.h"

#include <cstdint>

#include "base/Conversion.h"
#include "base/RuntimeError.h"
#include "base/Text.h"
#include "store/engine/Statement.h"
#include "vouchers/ErrorTrap.h"
#include "vouchers/SubjectName.h"

namespace zelkor {
namespace {

constexpr const char* kTitle = "固定资产";
constexpr const char* kEditorTitle = "凭证";
constexpr std::string_view kCardEvent = "卡片";
/// Every entry of this module bears it in the ledger.
constexpr const char* kModuleMark = "FA,#";

Currency amountOf(const Recordset& rows, std::string_view column) {
  const Value amount = rows.Fields(column);
  return amount.isNull() ? Currency() : CCur(amount);
}

std::int16_t shortOrZero(const Value& value) {
  return value.isNull() ? std::int16_t{0} : CInt(value);
}

Value nullWhenEmpty(const std::string& text) {
  return text.empty() ? Value() : Value(text);
}

/// The rows that are to form the voucher of the key.
std::string stagedRows(const RunContext& run, std::string_view key) {
  return sql("where ioutyear=", run.gdOpDate.year(), " and ioutperiod=", run.period(),
             " and cDefine10 like '", key, "*'");
}

}  // namespace

VoucherFill::VoucherFill(RunContext& run, VoucherRequest request, Voucher& localPZ)
    : run_(run),
      request_(std::move(request)),
      localPZ_(localPZ),
      PZ1_{{request_.scOutSign, 0, run.gdOpDate}} {}

std::array<bool, 4> VoucherFill::moveEnabled(std::size_t vouchers) {
  const bool several = vouchers > 1;
  return {several, several, false, false};
}

bool VoucherFill::LoadVouch() {
  bool shown = true;
  const bool loaded = trapped(run_, "frmPZFill LoadVouch", [&] {
    localPZ_.Clear();
    if (giPZCount() > 0) shown = trapped(run_, "A7 frmPZFill ShowPZ", [this] { ShowPZ(); });
  });
  return loaded && shown;
}

void VoucherFill::ShowPZ() {
  Recordset rows = run_.dbZKData.OpenRecordset(
      sql("select a.*,b.ccode_name from fa_ZWVouchers a left join code b on a.ccode=b.ccode ",
          stagedRows(run_, request_.scOutSign), " order by cDefine5"));
  if (rows.Eof()) return;
  if (rows.TextOrEmpty("cDefine1") == "1") {
    bPZmodify_ = true;
    period_ = shortOrZero(rows.Fields("ioutperiod"));
    // The number of the event is taken for the number of the voucher, as it is.
    rows = run_.dbZKData.OpenRecordset(
        sql("select a.*,b.ccode_name from gl_accvouch a left join code b on a.ccode=b.ccode where ino_id=",
            rows.TextOrEmpty("coutno_id"), " and iperiod=", run_.period(), " order by inid"));
  }
  showType();
  showHead(rows);
  if (request_.merge && !bPZmodify_) {
    showMergedLines();
  } else {
    showLines(rows);
  }
}

void VoucherFill::showType() {
  const Recordset type = run_.dbZKData.OpenRecordset("select * from dsign");
  const bool known = !type.Eof();
  localPZ_.Caption = known ? type.TextOrEmpty("ctext") : std::string();
  localPZ_.VoucherSign = known ? type.TextOrEmpty("csign") : std::string();
  localPZ_.SignSeq = known ? shortOrZero(type.Fields("isignseq")) : std::int16_t{0};
  localPZ_.AllowBrowseSign = true;
}

void VoucherFill::showHead(const Recordset& first) {
  localPZ_.VoucherDate = run_.gdOpDate;
  localPZ_.BillMaker = run_.gstrUser;
  localPZ_.Attachments = shortOrZero(first.Fields("idoc"));
  if (!bPZmodify_) return;
  ino_id_ = shortOrZero(first.Fields("ino_id"));
  PZ1_.front().PZino_id = ino_id_;
  const Value date = first.Fields("doutbilldate");
  const Value maker = first.Fields("cbill");
  if (!date.isNull()) localPZ_.VoucherDate = date.date();
  if (!maker.isNull()) localPZ_.BillMaker = maker.text();
  localPZ_.VoucherState = shortOrZero(first.Fields("iflag"));
}

void VoucherFill::showLines(Recordset& rows) {
  StatementGroup group(run_.dbZKData);
  group.runAll([&] {
    for (; !rows.Eof(); rows.MoveNext()) {
      addLine(group, rows.TextOrEmpty("cdigest"), rows.TextOrEmpty("ccode"), amountOf(rows, "md"),
              amountOf(rows, "mc"));
    }
  });
}

void VoucherFill::showMergedLines() {
  Recordset sums =
      run_.dbZKData.OpenRecordset(sql("select sum(mc) as mc1,sum(md) as md1,ccode from fa_ZWVouchers ",
                                      stagedRows(run_, request_.scOutSign), " group by ccode"));
  StatementGroup group(run_.dbZKData);
  group.runAll([&] {
    for (; !sums.Eof(); sums.MoveNext())
      addLine(group, {}, sums.TextOrEmpty("ccode"), amountOf(sums, "md1"), amountOf(sums, "mc1"));
  });
}

/// A line has the credit amount if there is one; the debit amount then counts for nothing.
void VoucherFill::addLine(StatementGroup& group, std::string digest, std::string code, Currency debit,
                          Currency credit) {
  VoucherLine line;
  line.Digest = std::move(digest);
  line.SubjectCode = std::move(code);
  (credit != Currency() ? line.Credit : line.Debit) = credit != Currency() ? credit : debit;
  const std::string query = sql("select * from code where ccode='", line.SubjectCode, "'");
  group.open(query, [this, line = std::move(line)](const Recordset& subject) mutable {
    if (!subject.Eof()) line.SubjectName = subject.TextOrEmpty("ccode_name");
    localPZ_.AddRow(line);
  });
}

bool VoucherFill::refuse(const std::string& text) const {
  run_.dialogs.MsgBox(text, Buttons::Ok, Icon::Critical, kEditorTitle);
  return false;
}

bool VoucherFill::EditRequest() {
  if (localPZ_.VoucherState == voucher_state::Cancelled) {
    return refuse("已作废的凭证不能修改，取消作废后方可修改");
  }
  if (!Trim(localPZ_.Checker).empty()) return refuse("已复核的凭证不能修改，取消复核后方可修改");
  if (!Trim(localPZ_.Cashier).empty()) return refuse("出纳签字凭证不能修改，取消签字后方可修改");
  if (localPZ_.BillMaker != run_.gstrUser &&
      run_.dialogs.MsgBox("是否需要修改他人填制的凭证", Buttons::YesNo, Icon::Question, kEditorTitle) !=
          Answer::Yes) {
    return false;
  }
  localPZ_.VoucherState = voucher_state::Normal;
  localPZ_.BillMaker = run_.gstrUser;
  return true;
}

void VoucherFill::SubjectEntered(std::size_t line, const std::string& code) {
  const std::string name = enteredSubjectName(run_.dbZKData, code).value_or("");
  localPZ_.Row(line).SubjectCode = code;
  localPZ_.Row(line).SubjectName = name;
  if (name.empty()) run_.dialogs.MsgBox("科目不合法", Buttons::Ok, Icon::Exclamation, kEditorTitle);
}

void VoucherFill::walkUnbooked(std::string_view condition) {
  const std::string further = condition.empty() ? std::string() : sql(" and ", condition);
  Recordset entries = run_.dbZKData.OpenRecordset(
      sql("select * from gl_accvouch where ibook<>1 and year(dbill_date)=", run_.gdOpDate.year(), further,
          " order by month(dbill_date),csign,ino_id"));
  while (!entries.Eof()) entries.MoveNext();
}

bool VoucherFill::checkLines() const {
  for (std::size_t i = 1; i <= localPZ_.RowCount(); ++i) {
    const VoucherLine& line = localPZ_.Row(i);
    if (!line.SubjectCode.empty() && !line.Digest.empty()) continue;
    run_.dialogs.MsgBox(line.SubjectCode.empty() ? "凭证中存在尚未确定的科目!" : "摘要不能为空!", Buttons::Ok,
                        Icon::Critical, kTitle);
    return false;
  }
  return true;
}

/// A voucher that is in the ledger keeps its number, and its entries make way; another takes the next number.
void VoucherFill::makeRoom(StatementGroup& group) {
  if (bPZmodify_) {
    group.execute(sql("delete from gl_accvouch where ino_id=", ino_id_, " and iperiod=", period_));
    return;
  }
  constexpr const char* kHighest = "select max(ino_id) as Max_ino_id from gl_accvouch";
  group.foresee({kHighest});
  ino_id_ = CInt(group.rowsOf(kHighest).Fields("Max_ino_id").numberOrZero() + 1);
}

void VoucherFill::fillEntry(Recordset& entry, std::size_t number) const {
  const std::string& key = request_.scOutSign;
  const VoucherLine& line = localPZ_.Row(number);
  entry.AddNew();
  entry.Collect("iperiod", run_.period());
  entry.Collect("Csign", localPZ_.VoucherSign);
  entry.Collect("iSignSeq", localPZ_.SignSeq);
  entry.Collect("ino_id", ino_id_);
  entry.Collect("inid", static_cast<std::int32_t>(number));
  entry.Collect("doutbilldate", localPZ_.VoucherDate);
  entry.Collect("idoc", localPZ_.Attachments);
  entry.Collect("cbill", localPZ_.BillMaker);
  entry.Collect("ccheck", nullWhenEmpty(localPZ_.Checker));
  entry.Collect("cbook", nullWhenEmpty(localPZ_.Bookkeeper));
  entry.Collect("ccashier", nullWhenEmpty(localPZ_.Cashier));
  entry.Collect("cdigest", line.Digest);
  entry.Collect("ccode", line.SubjectCode);
  entry.Collect("md", line.Debit);
  entry.Collect("mc", line.Credit);
  entry.Collect("dBill_Date", localPZ_.VoucherDate);
  entry.Collect("coutsign", key.substr(0, key.find('(')));
  if (key.find(kCardEvent) != std::string::npos) entry.Collect("coutno_id", request_.eventNumber);
  entry.Collect("ccodecontrol", kModuleMark);
}

/// Entries stand as a saved voucher even where the staged rows cannot be marked.
void VoucherFill::write() {
  StatementGroup group(run_.dbZKData);
  std::size_t lastEntry = SIZE_MAX;
  try {
    group.runAll([&] {
      makeRoom(group);
      group.addRows("select top 1 * from gl_accvouch", localPZ_.RowCount(),
                    [this](Recordset& entry, std::size_t line) { fillEntry(entry, line + 1); });
      lastEntry = group.added();
      group.execute(sql("update fa_ZWVouchers set cDefine1='1' where cDefine10 like '", request_.scOutSign,
                        "*' and ioutperiod=", run_.period()));
    });
  } catch (const RuntimeError&) {
    if (group.carriedOut() >= lastEntry) noteSaved();
    throw;
  }
  noteSaved();
}

void VoucherFill::noteSaved() {
  bPZmodify_ = true;
  period_ = static_cast<std::int16_t>(run_.period());
  localPZ_.VoucherState = voucher_state::Saved;
}

bool VoucherFill::Save() {
  if (!checkLines()) return false;
  if (localPZ_.VoucherSign.empty()) {
    run_.dialogs.MsgBox("凭证类别不合法", Buttons::Ok, Icon::Exclamation, kTitle);
    return false;
  }
  if (localPZ_.VoucherState == voucher_state::Saved) {
    run_.dialogs.MsgBox("凭证已保存!", Buttons::Ok, Icon::Information, kTitle);
    return false;
  }
  // A killed process leaves the voucher with its mark on the staged rows, or neither.
  const KeptTogether together = run_.dbZKData.keepTogether();
  write();
  return true;
}

}  // namespace zelkor
