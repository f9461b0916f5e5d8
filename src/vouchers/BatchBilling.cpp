#include "vouchers/BatchBilling.h"

#include <algorithm>
#include <cstdint>
#include <unordered_map>
#include <utility>

#include "base/Conversion.h"
#include "base/Format.h"
#include "base/Text.h"
#include "store/engine/Statement.h"
#include "vouchers/ErrorTrap.h"
#include "vouchers/SubjectName.h"

namespace zelkor {
namespace {

constexpr const char* kTitle = "固定资产";
constexpr const char* kAmountPicture = "#,##0.00";

/// Gives the columns their widths; one of no width is hidden.
template <std::size_t Count>
void setWidths(TextGrid& grid, const int (&twips)[Count]) {
  for (std::size_t column = 0; column < Count; ++column) {
    grid.setColumnWidth(column, twips[column]);
    grid.setColumnHidden(column, twips[column] == 0);
  }
}

TextGrid emptySelection() {
  TextGrid grid;
  grid.setHeader("|业务日期|业务类型|业务名称|业务号|金额|合并号|选择|");
  setWidths(grid, {0, 1400, 1400, 1500, 1800, 1900, 1100, 800, 0});
  grid.setAlignment(selection_column::Amount, Align::Right);
  grid.setAlignment(selection_column::MergeNumber, Align::Center);
  grid.setAlignment(selection_column::Mark, Align::Center);
  return grid;
}

TextGrid emptyLines() {
  TextGrid grid;
  grid.setHeader("|业务日期|业务类型|业务名称|业务号|方向|金额|科目||||||");
  setWidths(grid, {0, 1400, 1400, 1500, 1800, 700, 1900, 3600, 0, 0, 0, 0, 0, 0});
  grid.setAlignment(line_column::Side, Align::Center);
  grid.setAlignment(line_column::Amount, Align::Right);
  return grid;
}

std::string amountText(const Recordset& staged, std::string_view column) {
  return Format(staged.Fields(column), kAmountPicture);
}

/// The cells that both grids begin with.
std::vector<std::string> eventCells(const Recordset& staged) {
  return {"", Format(staged.Fields("doutbilldate"), "yyyy.mm.dd"), staged.TextOrEmpty("coutsign"),
          staged.TextOrEmpty("coutbillsign"), staged.TextOrEmpty("coutno_id")};
}

void addSelectionRow(TextGrid& grid, const Recordset& staged) {
  std::vector<std::string> cells = eventCells(staged);
  cells.push_back(amountText(staged, "mc"));
  cells.push_back(staged.TextOrEmpty("cDefine2"));
  cells.emplace_back();
  cells.push_back(staged.TextOrEmpty("coutid"));
  grid.addRow(std::move(cells));
}

void addLine(TextGrid& grid, const Recordset& staged) {
  const bool debit = staged.Fields("mc").numberOrZero() == 0;
  std::vector<std::string> cells = eventCells(staged);
  cells.emplace_back(debit ? "借" : "贷");
  cells.push_back(amountText(staged, debit ? "md" : "mc"));
  cells.push_back(staged.TextOrEmpty("ccode") + " " + staged.TextOrEmpty("ccode_name"));
  cells.resize(line_column::RowId);
  cells.push_back(staged.TextOrEmpty("i_id"));
  grid.addRow(std::move(cells));
}

/// The text before its first blank; without one the platform's text function is given a length of -1.
std::string codeOf(const std::string& subject) {
  const std::size_t blank = subject.find(' ');
  if (blank == std::string::npos) throw RuntimeError(ErrorNumber::InvalidProcedureCall);
  return subject.substr(0, blank);
}

}  // namespace

std::string stagedEventsQuery(DateTime opDate) {
  return sql("select * from fa_ZWVouchers where (isnull(cDefine1) or cDefine1='') and ioutyear=",
             opDate.year(), " and ioutperiod=", opDate.month(), " and mc<>0 order by coutid");
}

BatchBilling::BatchBilling(RunContext& run) : run_(run), selection_(emptySelection()), lines_(emptyLines()) {
  readSelection();
}

void BatchBilling::readSelection() {
  Recordset staged = run_.dbZKData.OpenRecordset(stagedEventsQuery(run_.gdOpDate));
  for (; !staged.Eof(); staged.MoveNext()) addSelectionRow(selection_, staged);
}

void BatchBilling::refresh() {
  std::unordered_map<std::string, std::size_t> rowsBefore;  // by the key of the voucher-to-be
  for (std::size_t row = 1; row < selection_.rows(); ++row) {
    rowsBefore.emplace(selection_.text(row, selection_column::VoucherKey), row);
  }
  const TextGrid before = std::exchange(selection_, emptySelection());
  readSelection();
  for (std::size_t row = 1; row < selection_.rows(); ++row) {
    const auto known = rowsBefore.find(selection_.text(row, selection_column::VoucherKey));
    if (known == rowsBefore.end()) continue;
    for (const std::size_t column : {selection_column::MergeNumber, selection_column::Mark}) {
      selection_.setText(row, column, before.text(known->second, column));
    }
  }
  mergeNumber_.clear();
  loadedText_.clear();
  lines_.clearBody();
}

void BatchBilling::setMarks(const char* mark) {
  for (std::size_t row = 1; row < selection_.rows(); ++row) {
    selection_.setText(row, selection_column::Mark, mark);
  }
}

void BatchBilling::toggleMark(std::size_t row) {
  selection_.setText(row, selection_column::Mark, isMarked(row) ? "" : "Y");
}

void BatchBilling::setMergeNumber(std::size_t row, std::string number) {
  selection_.setText(row, selection_column::MergeNumber, std::move(number));
}

bool BatchBilling::isMarked(std::size_t row) const {
  return selection_.text(row, selection_column::Mark) == "Y";
}

std::size_t BatchBilling::markedRows() const {
  std::size_t marked = 0;
  for (std::size_t row = 1; row < selection_.rows(); ++row) marked += isMarked(row) ? 1 : 0;
  return marked;
}

std::vector<std::string> BatchBilling::usedMergeNumbers() const {
  std::vector<std::string> used;
  for (std::size_t row = 1; row < selection_.rows(); ++row) {
    const std::string& number = selection_.text(row, selection_column::MergeNumber);
    if (!number.empty() && std::find(used.begin(), used.end(), number) == used.end()) used.push_back(number);
  }
  return used;
}

std::string BatchBilling::eventOf(std::size_t row) const {
  return selection_.text(row, selection_column::Sign) + selection_.text(row, selection_column::Number);
}

/// Whether the row's kind and number make up the text.
bool BatchBilling::isEvent(std::size_t row, std::string_view text) const {
  const std::string& sign = selection_.text(row, selection_column::Sign);
  const std::string& number = selection_.text(row, selection_column::Number);
  return text.size() == sign.size() + number.size() && text.starts_with(sign) && text.ends_with(number);
}

bool BatchBilling::belongs(std::size_t row) const {
  return mergeNumber_.empty() ? isEvent(row, loadedText_)
                              : selection_.text(row, selection_column::MergeNumber) == mergeNumber_;
}

std::vector<std::size_t> BatchBilling::loadLines() {
  mergeNumber_.clear();
  loadedText_.clear();
  lines_.clearBody();
  std::vector<std::size_t> loaded;
  if (selection_.rows() <= 1) return loaded;
  // Without a mark the walk ends at the last row, which then is the one that shows.
  std::size_t shown = 1;
  while (shown + 1 < selection_.rows() && !isMarked(shown)) ++shown;
  const bool marked = isMarked(shown);
  if (marked) mergeNumber_ = selection_.text(shown, selection_column::MergeNumber);
  loadedText_ = mergeNumber_.empty() ? eventOf(shown) : mergeNumber_;
  for (std::size_t row = 1; row < selection_.rows(); ++row) {
    if (!belongs(row)) continue;
    loadEvent(selection_.text(row, selection_column::VoucherKey));
    loaded.push_back(row);
  }
  return loaded;
}

void BatchBilling::loadEvent(const std::string& voucherKey) {
  Recordset staged = run_.dbZKData.OpenRecordset(
      sql("select a.*,b.ccode_name from fa_ZWVouchers a left join code b on a.ccode=b.ccode where coutid='",
          voucherKey, "' order by inid"));
  for (; !staged.Eof(); staged.MoveNext()) addLine(lines_, staged);
}

bool BatchBilling::enterSubject(std::size_t row, const std::string& code) {
  const auto name = enteredSubjectName(run_.dbZKData, code);
  if (!name) {
    run_.dialogs.MsgBox("科目代码错！", Buttons::Ok, Icon::Exclamation, kTitle);
    return false;
  }
  lines_.setText(row, line_column::Subject, code + " " + *name);
  return true;
}

bool BatchBilling::CheckKMH() const {
  bool complete = true;
  trapped(run_, "FrmBatBill CheckKMH", [&] {
    for (std::size_t row = 1; row < lines_.rows() && complete; ++row) {
      complete = !Trim(lines_.text(row, line_column::Subject)).empty();
    }
    if (!complete) run_.dialogs.MsgBox("科目不能为空!", Buttons::Ok, Icon::Exclamation, kTitle);
  });
  return complete;
}

bool BatchBilling::ToolSave() {
  if (!CheckKMH()) return false;
  return trapped(run_, "FrmBatBill ToolSave", [this] {
    constexpr std::size_t kHeaderAndTwoLines = 3;
    request_.merge = CheckHB && lines_.rows() != kHeaderAndTwoLines;
    request_.CheckHB = CheckHB;
    makeKey();
    StatementGroup group(run_.dbZKData);
    for (std::size_t row = 1; row < lines_.rows(); ++row) storeLine(group, row);
    group.run();
  });
}

void BatchBilling::makeKey() {
  if (request_.merge) {
    request_.scOutSign = "合并制单(" + lines_.text(1, line_column::RowId) + ")";
    return;
  }
  request_.eventNumber = lines_.text(1, line_column::Number);
  request_.scOutSign = lines_.text(1, line_column::Sign) + "(" + request_.eventNumber + ")";
}

void BatchBilling::storeLine(StatementGroup& group, std::size_t row) const {
  const std::string number = mergeNumber_.empty() ? "Null" : "'" + mergeNumber_ + "'";
  group.execute(sql("update fa_ZWVouchers set cDefine2=", number, ",cDefine5='", row, "',cDefine10='",
                    request_.scOutSign, "',ccode='", codeOf(lines_.text(row, line_column::Subject)),
                    "' where i_id=", lines_.text(row, line_column::RowId)));
}

}  // namespace zelkor
